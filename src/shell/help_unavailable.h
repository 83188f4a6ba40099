#pragma once
// What Help, Index says in the status line when it cannot show the help: without it, nothing
// would happen and the user would not know why.

#include <QString>
#include <string>

namespace wk {

struct LanguageState;

// No help file was found at start-up (where the help files of `languageCode`, and the English
// one every language falls back to, are looked for), or there is one but no viewer could
// start.
QString HelpUnavailableText(const LanguageState& language, const std::string& languageCode);

}  // namespace wk
