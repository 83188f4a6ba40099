#include "settings/directory_settings.h"

#include "settings/profile_helpers.h"

namespace wk {

DirectorySettings::DirectorySettings(const ControllerFlags& controllerFlags)
    : SoundSettings(controllerFlags) {}

bool DirectorySettings::Read() {
    SoundSettings::Read();
    std::string* const fields[] = {&SystemDir, &DataDir, &PProgDir, &MeasDir, &UserDir};
    const char* const keys[] = {"SYSTEM_DIR", "DATA_DIR", "PPROG_DIR", "MEAS_DIR", "USER_DIR"};
    for (std::size_t i = 0; i < 5; ++i) {
        ReadProfileText(keys[i], ScratchText, 80, kDirectorySection);
        // "NONE" in any case keeps the built-in directory; a missing key empties it.
        if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) *fields[i] = ToUpperAscii(ScratchText);
    }
    return true;
}

bool DirectorySettings::Write() {
    SoundSettings::Write();
    WriteProfileString("SYSTEM_DIR", SystemDir, kDirectorySection);
    WriteProfileString("DATA_DIR", DataDir, kDirectorySection);
    WriteProfileString("PPROG_DIR", PProgDir, kDirectorySection);
    WriteProfileString("MEAS_DIR", MeasDir, kDirectorySection);
    WriteProfileString("USER_DIR", UserDir, kDirectorySection);
    return true;
}

}  // namespace wk
