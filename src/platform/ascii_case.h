#pragma once
// Case rules for the names of the measuring application's files, sections and keys.
//
// Windows compares these names without regard to case. They are plain ASCII, so only ASCII
// letters are folded: bytes 0x80 and above must match exactly, which keeps a name's meaning
// independent of the code page and of the user's C locale.

#include <cstddef>
#include <string>
#include <string_view>

namespace wk {

constexpr char ToLowerAscii(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char ToUpperAscii(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string ToUpperAscii(std::string text) {
    for (char& c : text) c = ToUpperAscii(c);
    return text;
}

inline bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (ToLowerAscii(a[i]) != ToLowerAscii(b[i])) return false;
    }
    return true;
}

}  // namespace wk
