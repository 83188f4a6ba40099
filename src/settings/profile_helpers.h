#pragma once
// Typed reads and writes of the settings files, over the private-profile functions.
//
// Arguments come in the order the measuring application's code passes them: key first,
// section last. Strings and booleans are read with the two characters "+-" as default: a
// read that gives exactly "+-" is a missing key and reads as empty. A key that really holds
// "+-" therefore also reads as empty; that is intended.
//
// There is deliberately no write helper for WZELKO32.INI: its few keys are written with the
// profile functions directly by the groups that own them.

#include <cstdint>
#include <string>

// The settings compare and upper-case their words with the ASCII case rule of the files.
#include "platform/ascii_case.h"
#include "platform/file_error.h"

namespace wk {

// The default passed to every string and boolean read; a result equal to it is a missing key.
inline constexpr const char* kMissingKeyMark = "+-";

// The platform's integer read of WZELKO.INI; the default when the key is missing.
std::uint32_t ReadProfileInt(const char* key, std::int32_t defaultValue, const char* section);

// String read of WZELKO.INI into buffer (at most size - 1 characters and a NUL). Returns the
// length read; 0 and an empty buffer for a missing key.
std::uint32_t ReadProfileText(const char* key, char* buffer, std::uint32_t size,
                              const char* section);
// As ReadProfileText, from WZELKO32.INI.
std::uint32_t ReadProfileText32(const char* key, char* buffer, std::uint32_t size,
                                const char* section);

// ReadProfileText through a shared 500-character buffer, copied into `value`, at most
// maxLength - 1 characters. Returns the length.
std::uint32_t ReadProfileString(const char* key, std::string& value, std::uint32_t maxLength,
                                const char* section);
// As ReadProfileString, from WZELKO32.INI.
std::uint32_t ReadProfileString32(const char* key, std::string& value, std::uint32_t maxLength,
                                  const char* section);

// Reads at most 40 characters; true exactly when the text equals `word` ("TRUE" when
// word is nullptr) without regard to case. A missing key is false.
bool ReadProfileBool(const char* key, const char* section, const char* word = nullptr);

// "%u" into a 20-character buffer, written to WZELKO.INI. Returns success.
bool WriteProfileUInt(const char* key, std::uint32_t value, const char* section);
// The text as is, to WZELKO.INI. Returns success.
bool WriteProfileText(const char* key, const char* text, const char* section);
// As WriteProfileText; an empty string writes an empty value.
bool WriteProfileString(const char* key, const std::string& value, const char* section);
// "TRUE" or "FALSE", to WZELKO.INI. Returns success.
bool WriteProfileBool(const char* key, bool value, const char* section);

// A profile write to a file named by the caller ("WZELKO.INI", "WZELKO32.INI"), for the
// keys the measuring application writes with the profile functions directly. Returns
// success, and counts a failure as the helpers do.
bool WriteProfileKey(const char* section, const char* key, const char* value, const char* fileName);

// The groups go on after a failed write, as the measuring application does; a whole-record
// write compares this count before and after to learn whether every key was written.
std::uint64_t FailedProfileWrites();
// Why the most recent failed write of this thread failed (LastProfileError() at the time).
const std::string& LastFailedProfileWriteError();
// The same, as the file and the reason.
const platform::FileError& LastFailedProfileWrite();

}  // namespace wk
