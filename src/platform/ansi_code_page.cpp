#include "platform/ansi_code_page.h"

#include <algorithm>
#include <iterator>

namespace wk::platform {
namespace {

// Windows-1252 at 0x80-0x9F; elsewhere it is ISO 8859-1.
constexpr char16_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ToAnsi(char16_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const char16_t* hit = std::find(std::begin(kHigh), std::end(kHigh), c);
    return hit == std::end(kHigh) ? '?' : static_cast<char>(0x80 + (hit - std::begin(kHigh)));
}

}  // namespace

std::string Utf16ToAnsi(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char16_t c = text[i];
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            ++i;
            out.push_back('?');
            continue;
        }
        out.push_back(ToAnsi(c));
    }
    return out;
}

}  // namespace wk::platform
