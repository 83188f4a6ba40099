#pragma once
// The language strings WKestel32 adds to the libraries for features of its own. Their ids
// start at 1000, clear of the strings the measuring application's libraries carry (1 to 492)
// and of any string it may add in its own range. Each has its English text here as well: a
// language library installed before a string was added lacks it, and the entry or message
// then shows the English text instead of an empty one.

#include <initializer_list>
#include <string>
#include <string_view>

namespace wk {

struct OwnString {
    int Id;
    const char* English;  // also the text of the English library
};

// File, Restore Backup...: the menu entry, its hint, and the caption of its messages.
inline constexpr OwnString kRestoreEntryCaption{1000, "&Restore Backup..."};
inline constexpr OwnString kRestoreEntryHint{
    1001, "Puts back the settings files as the last save found them (WZELKO.BAK)"};
inline constexpr OwnString kRestoreMessageCaption{1002, "Restore Backup"};
// The question before a restore; the sentence after it when edits are not saved yet.
inline constexpr OwnString kRestoreQuestion{
    1003,
    "Put the settings files back as the last save found them?\n\n"
    "The files as they are now become the backup, so that restoring again undoes this."};
inline constexpr OwnString kRestoreUnsavedChanges{1004, "The changes that are not saved are lost."};
// %s: the Windows directory.
inline constexpr OwnString kRestoreNoBackup{
    1005, "There is no backup to restore: neither WZELKO.BAK nor WZELKO32.BAK is in %s."};
// %s: the file that could not be replaced; %s: why.
inline constexpr OwnString kRestoreFailed{
    1006, "The backup could not be restored.\n\n%s\n%s\n\nNo file was changed."};

// Every string of the program's own, in id order.
inline constexpr OwnString kOwnStrings[] = {
    kRestoreEntryCaption,   kRestoreEntryHint, kRestoreMessageCaption, kRestoreQuestion,
    kRestoreUnsavedChanges, kRestoreNoBackup,  kRestoreFailed,
};

// The string as GetLanguageString fetches it from the current library (maximum 200), as
// ANSI bytes. Its English text when the library lacks it, or when the library's text has
// not as many "%s" as the English one: a translation that lost a placeholder would hide
// the file name or the reason that the message is about.
std::string GetOwnString(const OwnString& string);

// `text` with its "%s" replaced by `parts`, one by one in order; a part's own "%s" stays as
// it is. A "%s" without a part stays too.
std::string FillInParts(std::string_view text, std::initializer_list<std::string_view> parts);

// How many "%s" `text` holds.
int PlaceholderCount(std::string_view text);

}  // namespace wk
