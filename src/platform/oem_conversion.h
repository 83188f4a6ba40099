#pragma once
// OemToCharBuffA: text of the OEM (DOS) code page to the ANSI (Windows) code page.
//
// Some language libraries hold their texts as the measuring application's DOS programs
// wrote them, in the OEM code page; the editor converts every fetched string unless the
// settings file says the language needs no conversion.
//
// The OEM code page is 850 (multilingual Latin 1) unless the environment variable
// WKESTEL_OEM_CODEPAGE names another: a number such as 437, or "CP852"; elsewhere than on
// Windows also any name iconv knows. The ANSI code page is Windows-1252, the code page of the
// settings files, whatever the code pages of the machine are: the texts must come out the same
// on every machine. An unknown code page leaves the default in force. Bytes 0x00-0x7F are kept;
// a byte whose character the ANSI code page lacks (the box-drawing characters of 850, for
// instance) becomes '?', never a look-alike.
//
// On Windows the conversion is Windows' own (MultiByteToWideChar, WideCharToMultiByte);
// elsewhere it is iconv's. Both give the same table (tests/i18n/data/oem_tables).

#include <cstdint>

namespace wk {

// Converts `length` bytes from `source` into `destination` (which may be the same buffer).
// Returns true; false only when either pointer is null and length is not 0.
bool OemToCharBuffA(const char* source, char* destination, std::uint32_t length);

}  // namespace wk
