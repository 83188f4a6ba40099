#include "settings/directory_settings.h"

#include "settings/key_profile_helpers.h"

namespace wk {

DirectorySettings::DirectorySettings(const ControllerFlags& controllerFlags)
    : SoundSettings(controllerFlags) {}

bool DirectorySettings::Read() {
    SoundSettings::Read();
    // In the order of kDirectoryKeys.
    std::string* const fields[] = {&SystemDir, &DataDir, &PProgDir, &MeasDir, &UserDir};
    for (std::size_t i = 0; i < kDirectoryKeys.size(); ++i) {
        ReadProfileText(*kDirectoryKeys[i], ScratchText, 80);
        // "NONE" in any case keeps the built-in directory; a missing key empties it.
        if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) *fields[i] = ToUpperAscii(ScratchText);
    }
    return true;
}

bool DirectorySettings::Write() {
    SoundSettings::Write();
    WriteProfileString(kSystemDir, SystemDir);
    WriteProfileString(kDataDir, DataDir);
    WriteProfileString(kPProgDir, PProgDir);
    WriteProfileString(kMeasDir, MeasDir);
    WriteProfileString(kUserDir, UserDir);
    return true;
}

}  // namespace wk
