#include "platform/text_codec.h"

#include <array>
#include <cstdint>

namespace wk::platform {
namespace {

// Unicode code points of the bytes 0x80-0x9F in Windows-1252. The unassigned bytes map to the
// C1 control of the same value, as Windows' own conversion does, so that no byte is lost.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

char32_t AnsiToCodePoint(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
    return byte;
}

// The Windows-1252 byte for a code point, or -1.
int CodePointToAnsi(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<int>(cp);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == cp) return static_cast<int>(0x80 + i);
    }
    return -1;
}

void AppendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

constexpr char32_t kInvalid = 0xFFFFFFFF;

// Decodes one sequence at `pos` and advances it. Surrogates (three-byte ED A0-BF ..) are
// accepted when `allowSurrogates` is set (WTF-8); overlong forms and values beyond U+10FFFF
// never are. An invalid sequence consumes one byte and gives kInvalid.
char32_t DecodeUtf8(std::string_view s, std::size_t& pos, bool allowSurrogates) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(s[i]); };
    const unsigned char b0 = byte(pos);
    if (b0 < 0x80) {
        ++pos;
        return b0;
    }
    std::size_t length = 0;
    char32_t cp = 0;
    char32_t minimum = 0;
    if (b0 >= 0xC2 && b0 <= 0xDF) {
        length = 2;
        cp = b0 & 0x1F;
        minimum = 0x80;
    } else if (b0 >= 0xE0 && b0 <= 0xEF) {
        length = 3;
        cp = b0 & 0x0F;
        minimum = 0x800;
    } else if (b0 >= 0xF0 && b0 <= 0xF4) {
        length = 4;
        cp = b0 & 0x07;
        minimum = 0x10000;
    } else {
        ++pos;
        return kInvalid;
    }
    if (pos + length > s.size()) {
        ++pos;
        return kInvalid;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char b = byte(pos + i);
        if ((b & 0xC0) != 0x80) {
            ++pos;
            return kInvalid;
        }
        cp = (cp << 6) | (b & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (!allowSurrogates && cp >= 0xD800 && cp <= 0xDFFF)) {
        ++pos;
        return kInvalid;
    }
    pos += length;
    return cp;
}

}  // namespace

std::string AnsiToUtf8(std::string_view ansi) {
    std::string out;
    out.reserve(ansi.size() + ansi.size() / 4);
    for (const char c : ansi) AppendUtf8(out, AnsiToCodePoint(static_cast<unsigned char>(c)));
    return out;
}

std::string Utf8ToAnsi(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    std::size_t pos = 0;
    while (pos < utf8.size()) {
        const char32_t cp = DecodeUtf8(utf8, pos, false);
        const int ansi = cp == kInvalid ? -1 : CodePointToAnsi(cp);
        out.push_back(ansi < 0 ? '?' : static_cast<char>(ansi));
    }
    return out;
}

std::string Utf16LeToWtf8(std::string_view utf16le) {
    std::string out;
    out.reserve(utf16le.size());
    const std::size_t units = utf16le.size() / 2;
    const auto unit = [&](std::size_t i) -> char32_t {
        return static_cast<unsigned char>(utf16le[2 * i]) |
               (static_cast<char32_t>(static_cast<unsigned char>(utf16le[2 * i + 1])) << 8);
    };
    for (std::size_t i = 0; i < units; ++i) {
        const char32_t u = unit(i);
        if (u >= 0xD800 && u <= 0xDBFF && i + 1 < units) {
            const char32_t low = unit(i + 1);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                AppendUtf8(out, 0x10000 + ((u - 0xD800) << 10) + (low - 0xDC00));
                ++i;
                continue;
            }
        }
        AppendUtf8(out, u);  // a lone surrogate stays a three-byte sequence
    }
    return out;
}

std::string Wtf8ToUtf16Le(std::string_view wtf8) {
    std::string out;
    out.reserve(wtf8.size() * 2);
    const auto put = [&](char32_t u) {
        out.push_back(static_cast<char>(u & 0xFF));
        out.push_back(static_cast<char>((u >> 8) & 0xFF));
    };
    std::size_t pos = 0;
    while (pos < wtf8.size()) {
        char32_t cp = DecodeUtf8(wtf8, pos, true);
        if (cp == kInvalid) cp = 0xFFFD;
        if (cp >= 0x10000) {
            cp -= 0x10000;
            put(0xD800 + (cp >> 10));
            put(0xDC00 + (cp & 0x3FF));
        } else {
            put(cp);
        }
    }
    return out;
}

}  // namespace wk::platform
