#include "shell/startup_messages.h"

#include <cstdio>

#include "platform/file_lookup.h"
#include "platform/profile_files.h"
#include "settings/settings_files.h"

namespace wk {

std::string LanguageLibraryMissingMessage(const std::string& systemDir,
                                          const std::string& languageCode) {
    char first[512];
    std::snprintf(first, sizeof first, "Be sure working dir is correct ! (%s)", systemDir.c_str());
    const std::string names = languageCode.empty()
                                  ? std::string("Kes32_eng.dll")
                                  : "Kes32_" + languageCode + ".dll or Kes32_eng.dll";
    return std::string(first) + "\n\nThe language library " + names + " was looked for in " +
           platform::CurrentDirectory() + ", the folder the program was started from.";
}

std::string SettingsFileMissingMessage(const std::string& fileMissingText) {
    const ProfileFileStatus status = GetProfileFileStatus(kWzelkoIni);
    return fileMissingText + "\n\nLooked for " + status.path + ": " +
           (status.problem.empty() ? std::string("not a readable file") : status.problem) + ".";
}

}  // namespace wk
