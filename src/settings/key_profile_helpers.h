#pragma once
// The profile helpers for a declared key: the same calls as in profile_helpers.h, with the
// section and key text taken from the key's declaration (setting_key.h).
//
// Which way a key is reached stays the group's choice, as in the measuring application's own
// code: through the typed helpers of WZELKO.INI ("Wzelko.ini", the "+-" missing-key mark,
// "%u"), or through the profile functions directly under the upper-case file name
// ("WZELKO.INI", "WZELKO32.INI"). The typed helpers accept only keys of WZELKO.INI.

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/profile.h"
#include "settings/profile_helpers.h"
#include "settings/setting_key.h"

namespace wk {

// ---- the typed helpers of WZELKO.INI --------------------------------------------------

template <typename T>
std::uint32_t ReadProfileInt(const WzelkoKey<T>& key, std::int32_t defaultValue) {
    return ReadProfileInt(key.Key, defaultValue, key.Section);
}

template <typename T>
std::uint32_t ReadProfileText(const WzelkoKey<T>& key, char* buffer, std::uint32_t size) {
    return ReadProfileText(key.Key, buffer, size, key.Section);
}

template <typename T>
std::uint32_t ReadProfileString(const WzelkoKey<T>& key, std::string& value,
                                std::uint32_t maxLength) {
    return ReadProfileString(key.Key, value, maxLength, key.Section);
}

template <typename T>
bool ReadProfileBool(const WzelkoKey<T>& key, const char* word = nullptr) {
    return ReadProfileBool(key.Key, key.Section, word);
}

template <typename T>
bool WriteProfileUInt(const WzelkoKey<T>& key, std::uint32_t value) {
    return WriteProfileUInt(key.Key, value, key.Section);
}

template <typename T>
bool WriteProfileText(const WzelkoKey<T>& key, const char* text) {
    return WriteProfileText(key.Key, text, key.Section);
}

template <typename T>
bool WriteProfileString(const WzelkoKey<T>& key, const std::string& value) {
    return WriteProfileString(key.Key, value, key.Section);
}

template <typename T>
bool WriteProfileBool(const WzelkoKey<T>& key, bool value) {
    return WriteProfileBool(key.Key, value, key.Section);
}

// ---- numbers with a fraction, as "%lf" texts of WZELKO.INI ----------------------------
// Numbers in the settings files always use '.' as decimal point. "%lf" follows LC_NUMERIC,
// which the programs keep at "C": they never call setlocale for numbers.

// "%lf" of `text` into `value`; a text that does not scan leaves the value as it is.
inline void ScanDouble(const char* text, double& value) {
    double scanned = 0.0;
    if (std::sscanf(text, "%lf", &scanned) == 1) value = scanned;
}

// The key's text into `buffer` (as ReadProfileText: at most size - 1 characters, empty when
// the key is missing), then its number into `value` as ScanDouble takes it. The text stays in
// the buffer for the caller to look at.
template <typename T>
void ReadProfileDouble(const WzelkoKey<T>& key, char* buffer, std::uint32_t size, double& value) {
    ReadProfileText(key, buffer, size);
    ScanDouble(buffer, value);
}

// "%lf" of `value` (six decimals) into `buffer`, written as the key's text. Returns success.
template <typename T, std::size_t N>
bool WriteProfileDouble(const WzelkoKey<T>& key, double value, char (&buffer)[N]) {
    std::snprintf(buffer, N, "%lf", value);
    return WriteProfileText(key, buffer);
}

// ---- the profile functions directly, under the key's upper-case file name -------------

// GetPrivateProfileIntA of the key; the default when it is missing.
inline std::uint32_t DirectProfileInt(const SettingKey& key, std::int32_t defaultValue) {
    return GetPrivateProfileIntA(key.Section, key.Key, defaultValue, key.DirectFileName());
}

// GetPrivateProfileStringA of the key into buffer (at most size - 1 characters).
inline std::uint32_t DirectProfileString(const SettingKey& key, const char* defaultValue,
                                         char* buffer, std::uint32_t size) {
    return GetPrivateProfileStringA(key.Section, key.Key, defaultValue, buffer, size,
                                    key.DirectFileName());
}

// WritePrivateProfileStringA of the key, counted as the helpers count a failure.
inline bool WriteProfileKey(const SettingKey& key, const char* value) {
    return WriteProfileKey(key.Section, key.Key, value, key.DirectFileName());
}

}  // namespace wk
