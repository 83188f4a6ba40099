#pragma once
// Resgenstring: the language of the editor's texts.
//
// Every caption, hint, list entry and message shown in the user's language is a numbered
// string of the language library "Kes32_<code>.dll" beside the program (found relative to
// the working directory), with "Kes32_eng.dll" as the fallback. Strings are fetched by
// number, cut to the caller's maximum, and converted from the OEM code page unless the
// settings file lists the language under "NO ANSI-OEM CONVERSION". The language's help
// file is chosen here too, and the list of offered languages is read here for the system
// parameters page.

#include <memory>
#include <string>
#include <vector>

#include "i18n/resourcegenfile.h"

namespace wk {

// The process's language state. Used from the user-interface thread only.
struct LanguageState {
    std::unique_ptr<ResourceGenFile> CurrentResourceFile;  // the library in use
    bool LibraryLoaded = false;  // a ResourceGenFile was made for an existing file
    bool OemConversion = true;   // fetched strings are converted from the OEM code page
    bool HelpAvailable = false;  // a help file was found
    std::string HelpFilePath;    // the help file handed to the help viewer (host path)
};

// The one instance of the process.
LanguageState& Language();

// The language code whose library and help file start-up loads: "NONE" stands for "ENG". Only
// "NONE" in capitals does; "none" is a code of its own (which finds no library, so the English
// fallback is loaded, but looks for its own help file).
std::string LanguageCodeToLoad(const std::string& code);

// The language that WZELKO.INI names for start-up: key "LANGUAGE" of section "Wzelko" (at most
// 79 characters, a missing key giving an empty code), with the rule of LanguageCodeToLoad.
std::string ReadStartUpLanguageCode();

// Loads "Kes32_<code>.dll" (code as given), else "Kes32_eng.dll" when nothing is loaded
// yet, replacing a loaded library; then switches the OEM conversion off when the
// upper-cased code ("ENG" after the fallback) occurs in "NO ANSI-OEM CONVERSION" of section
// "WZELKO" of WZELKO.INI. Returns whether a library is loaded.
bool LoadLanguageLibrary(const std::string& code);

// String `id` of the current library as ANSI (Windows-1252) bytes: at most
// maxLength - 1 characters (every caller passes 200), empty when the library lacks it.
// Stops the program (assertion "rf != NULL") when no library was ever loaded.
std::string GetLanguageString(int id, int maxLength);

// Releases the current library; strings may not be fetched afterwards.
void ReleaseLanguageLibrary();

// Chooses <working dir>\Help\Marvane<code>.hlp (code's case kept), else
// <working dir>\Help\MarvaneEng.hlp, as the help file. Returns whether help is available.
bool SetupHelpFile(const std::string& code);

// Shows topic `context` of the help file. False when there is no help file or no help
// viewer.
bool ShowHelpContext(int context);

// One entry of the list of offered languages.
struct LanguageListEntry {
    std::string Text;  // the key of section "Languages", "(*) " before it when the files differ
    std::string Code;  // its value in WZELKO.INI
};

// How an entry's code is compared with the current language code.
enum class LanguageCodeMatch {
    Exact,       // as the language-list mechanism states it
    IgnoreCase,  // as the system parameters page compares
};

// The keys of section "Languages" of WZELKO.INI, in file order (one listing of at most
// 200 characters), each with its value there (80 characters). An entry whose value in
// WZELKO32.INI differs (compared exactly; a key missing there differs) gets the "(*) "
// prefix. `selectedIndex` is the index of the entry whose code matches `currentCode`, the
// last one when several do, 0 when none does.
std::vector<LanguageListEntry> ReadLanguageList(
    const std::string& currentCode, int& selectedIndex,
    LanguageCodeMatch match = LanguageCodeMatch::IgnoreCase);

}  // namespace wk
