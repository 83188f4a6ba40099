#include "i18n/resgenstring.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "i18n/resgenid.h"
#include "platform/ascii_case.h"
#include "platform/file_lookup.h"
#include "platform/help_viewer.h"
#include "platform/oem_conversion.h"
#include "platform/profile.h"
#include "settings/system_schema.h"

namespace wk {
namespace {

constexpr const char* kSettingsFile = "WZELKO.INI";
constexpr const char* kSettingsFile32 = "WZELKO32.INI";
constexpr const char* kFallbackLibrary = "Kes32_eng.dll";
constexpr const char* kFallbackCode = "ENG";
// The value of "LANGUAGE" that means no language of its own.
constexpr const char* kNoLanguage = "NONE";
constexpr const char* kMissingKey = "+-";
constexpr int kStringBufferSize = 256;
constexpr std::uint32_t kNoConversionSize = 150;
constexpr std::uint32_t kLanguageKeysSize = 200;
constexpr std::uint32_t kLanguageValueSize = 80;

// The names of a NUL-separated listing of `length` characters.
std::vector<std::string> SplitListing(const char* listing, std::uint32_t length) {
    std::vector<std::string> names;
    std::uint32_t at = 0;
    while (at < length && listing[at] != '\0') {
        std::string name(listing + at);
        at += static_cast<std::uint32_t>(name.size()) + 1;
        names.push_back(std::move(name));
    }
    return names;
}

void LoadResourceFile(LanguageState& state, const std::string& fileName) {
    state.CurrentResourceFile.reset();
    state.CurrentResourceFile = std::make_unique<ResourceGenFile>(fileName);
    state.LibraryLoaded = true;
}

bool MakeHelpFile(LanguageState& state, const std::string& path) {
    std::optional<std::string> found = platform::FindFileIgnoringCase(path);
    if (!found) return false;
    state.HelpFilePath = *found;
    state.HelpAvailable = true;
    return true;
}

}  // namespace

LanguageState& Language() {
    static LanguageState state;
    return state;
}

std::string LanguageCodeToLoad(const std::string& code) {
    return code == kNoLanguage ? std::string(kFallbackCode) : code;
}

std::string ReadStartUpLanguageCode() {
    // Read as the typed text reader reads: its mark for a missing key reads as empty.
    char code[kLanguageValueSize] = {};
    GetPrivateProfileStringA(kLanguageCode.Section, kLanguageCode.Key, kMissingKey, code,
                             kLanguageValueSize, kSettingsFile);
    return LanguageCodeToLoad(std::string(code) == kMissingKey ? std::string() : code);
}

bool LoadLanguageLibrary(const std::string& code) {
    LanguageState& state = Language();
    std::string fileName = "Kes32_" + code + ".dll";
    std::string upperCode = ToUpperAscii(code);

    if (!code.empty() && platform::FindFileIgnoringCase(fileName)) {
        LoadResourceFile(state, fileName);
    } else {
        fileName = kFallbackLibrary;
        upperCode = kFallbackCode;
        if (!state.LibraryLoaded && platform::FindFileIgnoringCase(fileName))
            LoadResourceFile(state, fileName);
    }

    char noConversion[kNoConversionSize] = {};
    GetPrivateProfileStringA("WZELKO", "NO ANSI-OEM CONVERSION", "", noConversion,
                             kNoConversionSize, kSettingsFile);
    std::string languages = noConversion;
    if (!languages.empty() && ToUpperAscii(languages).find(upperCode) != std::string::npos)
        state.OemConversion = false;

    return state.LibraryLoaded;
}

std::string GetLanguageString(int id, int maxLength) {
    LanguageState& state = Language();
    if (!state.CurrentResourceFile)
        ResGenAssertFailed("rf != NULL", "ResGenID", kResGenIdNoResourceFileLine);

    char buffer[kStringBufferSize] = {};
    int length = LoadStringA(state.CurrentResourceFile->Module(), static_cast<unsigned>(id), buffer,
                             kStringBufferSize);
    // The cut leaves the length as loaded: the conversion below runs over it, past the cut,
    // which changes nothing that is shown.
    long long cut = static_cast<long long>(maxLength) - 1;
    if (cut < length) buffer[std::max(cut, 0LL)] = '\0';
    if (state.OemConversion && length > 0)
        OemToCharBuffA(buffer, buffer, static_cast<std::uint32_t>(length));
    return std::string(buffer);
}

void ReleaseLanguageLibrary() {
    LanguageState& state = Language();
    if (state.CurrentResourceFile) state.CurrentResourceFile->Release();
    state.CurrentResourceFile.reset();
    state.LibraryLoaded = false;
}

bool SetupHelpFile(const std::string& code) {
    LanguageState& state = Language();
    // A help file found for an earlier language (or an earlier window of the process) is not
    // this language's.
    state.HelpAvailable = false;
    state.HelpFilePath.clear();
    std::string directory = platform::CurrentDirectory();
    std::string fallback = directory + "\\Help\\MarvaneEng.hlp";
    std::string candidate = directory + "\\Help\\Marvane" + code + ".hlp";
    if (!MakeHelpFile(state, candidate)) MakeHelpFile(state, fallback);
    return state.HelpAvailable;
}

bool ShowHelpContext(int context) {
    const LanguageState& state = Language();
    if (state.HelpFilePath.empty()) return false;
    return WinHelpA(state.HelpFilePath.c_str(), HELP_CONTEXT,
                    static_cast<std::uintptr_t>(static_cast<unsigned>(context)));
}

std::vector<LanguageListEntry> ReadLanguageList(const std::string& currentCode, int& selectedIndex,
                                                LanguageCodeMatch match) {
    selectedIndex = 0;
    char keys[kLanguageKeysSize] = {};
    std::uint32_t length = GetPrivateProfileStringA(kLanguagesSection, nullptr, "", keys,
                                                    kLanguageKeysSize, kSettingsFile);

    // Which keys the second file has at all: a key missing there differs even from an empty
    // value here.
    std::vector<char> keys32(32768);
    std::uint32_t length32 =
        GetPrivateProfileStringA(kLanguagesSection, nullptr, "", keys32.data(),
                                 static_cast<std::uint32_t>(keys32.size()), kSettingsFile32);
    std::vector<std::string> names32 = SplitListing(keys32.data(), length32);

    std::vector<LanguageListEntry> entries;
    for (const std::string& key : SplitListing(keys, length)) {
        char value[kLanguageValueSize] = {};
        char value32[kLanguageValueSize] = {};
        GetPrivateProfileStringA(kLanguagesSection, key.c_str(), "", value, kLanguageValueSize,
                                 kSettingsFile);
        GetPrivateProfileStringA(kLanguagesSection, key.c_str(), "", value32, kLanguageValueSize,
                                 kSettingsFile32);
        bool present32 = std::any_of(names32.begin(), names32.end(), [&](const std::string& n) {
            return EqualsIgnoringAsciiCase(n, key);
        });
        std::string code = value;
        bool matches = match == LanguageCodeMatch::Exact
                           ? code == currentCode
                           : EqualsIgnoringAsciiCase(code, currentCode);
        if (matches) selectedIndex = static_cast<int>(entries.size());
        bool differs = !present32 || code != std::string(value32);
        entries.push_back({differs ? "(*) " + key : key, code});
    }
    return entries;
}

}  // namespace wk
