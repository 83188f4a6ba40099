#include "settings/profile_helpers.h"

#include <cstdio>
#include <cstring>

#include "platform/profile.h"
#include "platform/profile_files.h"
#include "settings/settings_files.h"

namespace wk {

namespace {

std::uint32_t ReadTextFrom(const char* fileName, const char* key, char* buffer, std::uint32_t size,
                           const char* section) {
    if (buffer == nullptr || size == 0) return 0;
    std::uint32_t length =
        GetPrivateProfileStringA(section, key, kMissingKeyMark, buffer, size, fileName);
    if (std::strcmp(buffer, kMissingKeyMark) == 0) {
        buffer[0] = '\0';
        length = 0;
    }
    return length;
}

// The one buffer the string reads share, as in the measuring application.
char sharedStringBuffer[500];

std::uint32_t ReadStringFrom(const char* fileName, const char* key, std::string& value,
                             std::uint32_t maxLength, const char* section) {
    const std::uint32_t size =
        maxLength < sizeof sharedStringBuffer ? maxLength : sizeof sharedStringBuffer;
    sharedStringBuffer[0] = '\0';
    const std::uint32_t length = ReadTextFrom(fileName, key, sharedStringBuffer, size, section);
    value.assign(sharedStringBuffer, length);
    return length;
}

thread_local std::uint64_t failedWrites = 0;
thread_local std::string lastFailedWriteError;
thread_local platform::FileError lastFailedWrite;

bool Counted(bool written) {
    if (!written) {
        ++failedWrites;
        lastFailedWriteError = LastProfileError();
        lastFailedWrite = platform::LastProfileFailure();
    }
    return written;
}

// The groups name the files "Wzelko.ini" (through the helpers) and "WZELKO.INI" (directly);
// a save that has to create a file must create one, under the name the measuring
// application's installation gives it, not one for each spelling.
[[maybe_unused]] const bool kSpellingsDeclared = [] {
    platform::DeclareNewProfileFileSpelling(kWzelkoIni);
    platform::DeclareNewProfileFileSpelling(kWzelko32Ini);
    return true;
}();

}  // namespace

bool WriteProfileKey(const char* section, const char* key, const char* value,
                     const char* fileName) {
    return Counted(WritePrivateProfileStringA(section, key, value, fileName));
}

std::uint64_t FailedProfileWrites() {
    return failedWrites;
}

const std::string& LastFailedProfileWriteError() {
    return lastFailedWriteError;
}

const platform::FileError& LastFailedProfileWrite() {
    return lastFailedWrite;
}

std::uint32_t ReadProfileInt(const char* key, std::int32_t defaultValue, const char* section) {
    return GetPrivateProfileIntA(section, key, defaultValue, kSettingsFileName);
}

std::uint32_t ReadProfileText(const char* key, char* buffer, std::uint32_t size,
                              const char* section) {
    return ReadTextFrom(kSettingsFileName, key, buffer, size, section);
}

std::uint32_t ReadProfileText32(const char* key, char* buffer, std::uint32_t size,
                                const char* section) {
    return ReadTextFrom(kSettingsFile32Name, key, buffer, size, section);
}

std::uint32_t ReadProfileString(const char* key, std::string& value, std::uint32_t maxLength,
                                const char* section) {
    return ReadStringFrom(kSettingsFileName, key, value, maxLength, section);
}

std::uint32_t ReadProfileString32(const char* key, std::string& value, std::uint32_t maxLength,
                                  const char* section) {
    return ReadStringFrom(kSettingsFile32Name, key, value, maxLength, section);
}

bool ReadProfileBool(const char* key, const char* section, const char* word) {
    char text[40];
    ReadProfileText(key, text, sizeof text, section);
    return EqualsIgnoringAsciiCase(text, word != nullptr ? word : "TRUE");
}

bool WriteProfileUInt(const char* key, std::uint32_t value, const char* section) {
    char text[20];
    std::snprintf(text, sizeof text, "%u", static_cast<unsigned>(value));
    return WriteProfileKey(section, key, text, kSettingsFileName);
}

bool WriteProfileText(const char* key, const char* text, const char* section) {
    return WriteProfileKey(section, key, text != nullptr ? text : "", kSettingsFileName);
}

bool WriteProfileString(const char* key, const std::string& value, const char* section) {
    return WriteProfileText(key, value.c_str(), section);
}

bool WriteProfileBool(const char* key, bool value, const char* section) {
    return WriteProfileText(key, value ? "TRUE" : "FALSE", section);
}

}  // namespace wk
