#pragma once
// The ANSI code page: Windows-1252, the code page of the settings files and of the strings
// the language libraries give. Texts cross into Unicode (UTF-8 for the terminal, UTF-16 in
// the libraries and the window) only here.

#include <string>
#include <string_view>

namespace wk::platform {

// Windows-1252 bytes as UTF-8. The five bytes Windows-1252 leaves undefined (0x81, 0x8D,
// 0x8F, 0x90, 0x9D) become the control characters of the same value, as in Windows.
std::string AnsiToUtf8(std::string_view ansi);

// UTF-16 text as Windows-1252 bytes, one byte per character: a character outside the code
// page (a surrogate pair counts as one) becomes '?', as Windows' conversion gives it.
std::string Utf16ToAnsi(std::u16string_view text);

// UTF-8 text as Windows-1252 bytes; characters outside it and malformed bytes become '?'.
std::string Utf8ToAnsi(std::string_view utf8);

}  // namespace wk::platform
