#pragma once
// Conversions between the ANSI code page of the measuring application's files (Windows-1252)
// and UTF-8, and between UTF-16LE files and the byte form the profile engine parses.
//
// The measuring application writes its settings in Windows-1252. The window shows them as
// Unicode text, so it converts with AnsiToUtf8 and back with Utf8ToAnsi. Every one of the 256
// bytes survives the round trip: the five bytes that Windows-1252 leaves unassigned (0x81,
// 0x8D, 0x8F, 0x90, 0x9D) map to the control characters U+0081... as Windows maps them.

#include <string>
#include <string_view>

namespace wk::platform {

// Windows-1252 bytes as UTF-8.
std::string AnsiToUtf8(std::string_view ansi);

// UTF-8 as Windows-1252 bytes. A character the code page cannot hold, and a byte that is not
// part of valid UTF-8, becomes '?', as Windows converts to the ANSI code page.
std::string Utf8ToAnsi(std::string_view utf8);

// UTF-16LE code units (an even number of bytes; a last odd byte is ignored) as WTF-8: UTF-8
// in which an unpaired surrogate is kept as its own three-byte sequence, so that any sequence
// of code units converts back unchanged.
std::string Utf16LeToWtf8(std::string_view utf16le);

// The inverse of Utf16LeToWtf8. A byte that is not part of a (generalised) UTF-8 sequence
// becomes U+FFFD.
std::string Wtf8ToUtf16Le(std::string_view wtf8);

}  // namespace wk::platform
