#include "i18n/own_strings.h"

#include "i18n/resgenstring.h"

namespace wk {
namespace {

constexpr std::string_view kPlaceholder = "%s";
constexpr int kMaxLength = 200;  // as every caller of GetLanguageString passes

}  // namespace

int PlaceholderCount(std::string_view text) {
    int count = 0;
    for (std::size_t at = text.find(kPlaceholder); at != std::string_view::npos;
         at = text.find(kPlaceholder, at + kPlaceholder.size())) {
        ++count;
    }
    return count;
}

std::string GetOwnString(const OwnString& string) {
    std::string text = GetLanguageString(string.Id, kMaxLength);
    if (text.empty() || PlaceholderCount(text) != PlaceholderCount(string.English)) {
        return string.English;
    }
    return text;
}

std::string FillInParts(std::string_view text, std::initializer_list<std::string_view> parts) {
    std::string filled;
    const std::string_view* part = parts.begin();
    std::size_t from = 0;
    for (std::size_t at = text.find(kPlaceholder);
         at != std::string_view::npos && part != parts.end(); at = text.find(kPlaceholder, from)) {
        filled.append(text.substr(from, at - from));
        filled.append(*part++);
        from = at + kPlaceholder.size();
    }
    filled.append(text.substr(from));
    return filled;
}

}  // namespace wk
