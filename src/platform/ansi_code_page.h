#pragma once
// UTF-16 text of the language libraries as bytes of the ANSI code page (Windows-1252), as
// LoadStringA gives it. The conversions between Windows-1252 and UTF-8 are in text_codec.h.

#include <string>
#include <string_view>

namespace wk::platform {

// One byte per character: a character outside the code page (a surrogate pair counts as
// one, a lone surrogate too) becomes '?', as Windows' conversion to the ANSI code page gives
// it. The five bytes Windows-1252 leaves unassigned come from the control characters
// U+0081, U+008D, U+008F, U+0090, U+009D, as in Windows.
std::string Utf16ToAnsi(std::u16string_view text);

}  // namespace wk::platform
