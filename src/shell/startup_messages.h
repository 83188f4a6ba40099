#pragma once
// The messages of a failed start-up, saying where the program looked.
//
// The measuring application's own texts ("Be sure working dir is correct ! (%s)", language
// string 24) name no path, or the directory the settings file names rather than the one the
// program searched; a user with a wrong prefix or a wrong working folder could not tell what
// to change. Each message keeps its text and adds the place searched.

#include <string>

namespace wk {

// "Be sure working dir is correct ! (<systemDir>)" and the folder the language libraries
// were looked for in (the working directory), with the names looked for.
std::string LanguageLibraryMissingMessage(const std::string& systemDir,
                                          const std::string& languageCode);

// `fileMissingText` (language string 24) and the path where WZELKO.INI was looked for, with
// what was found there instead when something was.
std::string SettingsFileMissingMessage(const std::string& fileMissingText);

}  // namespace wk
