#include "upgrade/section_names.h"

#include <cstring>

namespace wk {
namespace {

bool IsLineBreak(char c) {
    return c == '\n' || c == '\r';
}

// The blanks that the profile functions ignore around a name in the file.
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\v';
}

char UpperAscii(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::optional<std::string> SectionNameInPiece(const char* piece) {
    const char* open = std::strchr(piece, '[');
    if (open == nullptr) return std::nullopt;
    const char* begin = open + 1;
    const char* end = begin;
    while (*end != '\0' && *end != ']' && !IsLineBreak(*end)) ++end;
    return std::string(begin, end);
}

bool ListSectionNames(std::FILE* freshFile, std::FILE* workFile) {
    char piece[kUpgradeLineBuffer];
    bool written = true;
    while (std::fgets(piece, sizeof piece, freshFile) != nullptr) {
        if (auto name = SectionNameInPiece(piece)) {
            name->push_back('\n');
            if (std::fputs(name->c_str(), workFile) == EOF) written = false;
        }
    }
    return written;
}

std::string SectionNameForMerge(const char* workLine) {
    std::string name(workLine);
    while (!name.empty() && IsLineBreak(name.back())) name.pop_back();
    std::size_t begin = 0;
    while (begin < name.size() && IsBlank(name[begin])) ++begin;
    std::size_t end = name.size();
    while (end > begin && IsBlank(name[end - 1])) --end;
    name = name.substr(begin, end - begin);
    for (char& c : name) c = UpperAscii(c);
    return name;
}

}  // namespace wk
