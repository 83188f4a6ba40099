#include "platform/ansi_code_page.h"

#include <algorithm>
#include <iterator>

namespace wk::platform {
namespace {

// Windows-1252 at 0x80-0x9F; elsewhere it is ISO 8859-1.
constexpr char32_t kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ToAnsi(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const char32_t* hit = std::find(std::begin(kHigh), std::end(kHigh), c);
    return hit == std::end(kHigh) ? '?' : static_cast<char>(0x80 + (hit - std::begin(kHigh)));
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

}  // namespace

std::string AnsiToUtf8(std::string_view ansi) {
    std::string out;
    out.reserve(ansi.size());
    for (char b : ansi) {
        unsigned char byte = static_cast<unsigned char>(b);
        AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80] : char32_t{byte});
    }
    return out;
}

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

std::string Utf8ToAnsi(std::string_view utf8) {
    std::string out;
    std::size_t i = 0;
    while (i < utf8.size()) {
        unsigned char lead = static_cast<unsigned char>(utf8[i]);
        int extra = lead < 0x80           ? 0
                    : (lead >> 5) == 0x6  ? 1
                    : (lead >> 4) == 0xE  ? 2
                    : (lead >> 3) == 0x1E ? 3
                                          : -1;
        bool cutShort = extra > 0 && i + static_cast<std::size_t>(extra) >= utf8.size();
        if (extra < 0 || cutShort) {
            out.push_back('?');
            ++i;
            continue;
        }
        char32_t c = extra == 0 ? lead : lead & (0x3F >> extra);
        bool ok = true;
        for (int k = 1; k <= extra; ++k) {
            unsigned char next = static_cast<unsigned char>(utf8[i + k]);
            if ((next & 0xC0) != 0x80) {
                ok = false;
                break;
            }
            c = (c << 6) | (next & 0x3F);
        }
        if (!ok) {
            out.push_back('?');
            ++i;
            continue;
        }
        out.push_back(ToAnsi(c));
        i += static_cast<std::size_t>(extra) + 1;
    }
    return out;
}

}  // namespace wk::platform
