#include "settings/controller_settings.h"

#include <cstdio>

#include "platform/profile.h"
#include "settings/profile_helpers.h"
#include "settings/settings_files.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf", "%x", "%d") follow LC_NUMERIC, which the programs keep at "C".

namespace wk {

namespace {

void ScanDouble(const char* text, double& value) {
    double scanned = 0.0;
    if (std::sscanf(text, "%lf", &scanned) == 1) value = scanned;
}

}  // namespace

ControllerSettings::ControllerSettings(const ControllerFlags& controllerFlags)
    : DirectorySettings(controllerFlags) {
    std::string type;
    ReadProfileString("Type", type, 80, "Controller");
    if (!EqualsIgnoringAsciiCase(type.c_str(), "NONE")) ControllerType = ToUpperAscii(type);
}

bool ControllerSettings::Read() {
    DirectorySettings::Read();

    RightButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt("Button1", RightButtonFunction, "Controller"));
    MiddleButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt("Button2", MiddleButtonFunction, "Controller"));
    LeftButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt("Button3", LeftButtonFunction, "Controller"));
    // Read with the profile function directly, but written through the helper: the
    // measuring application's code has it so, and both reach WZELKO.INI.
    char subtype[80];
    GetPrivateProfileStringA("CONTROLLER", "SUBTYPE", "R7NS", subtype, sizeof subtype, kWzelkoIni);
    IsQd32z = EqualsIgnoringAsciiCase(subtype, "QD32Z");
    ReadProfileText("Base Address", ScratchText, 256, "Controller");
    unsigned address = 0;
    if (std::sscanf(ScratchText, "%x", &address) == 1) BaseAddress = address;
    HardProbeCompensation =
        ReadProfileInt("Hard Probe Compensation", HardProbeCompensation ? 1 : 0, "Controller") != 0;
    ReadProfileText("Max pspeed", ScratchText, 80, "MACHINEPARAM");
    ScanDouble(ScratchText, MaxPSpeed);
    ReadProfileText("Max mspeed", ScratchText, 80, "MACHINEPARAM");
    ScanDouble(ScratchText, MaxMSpeed);
    ReadProfileText("Max accel", ScratchText, 80, "MACHINEPARAM");
    ScanDouble(ScratchText, MaxAccel);
    ReadProfileText("USE INI MAX SPEEDS AND ACCEL", ScratchText, 80, "MACHINEPARAM");
    int useIni = 0;
    if (std::sscanf(ScratchText, "%d", &useIni) != 1) useIni = 0;
    UseIniMaxSpeeds = useIni != 0;
    return true;
}

bool ControllerSettings::Write() {
    DirectorySettings::Write();

    WriteProfileUInt("Button1", static_cast<std::uint32_t>(RightButtonFunction), "Controller");
    WriteProfileUInt("Button2", static_cast<std::uint32_t>(MiddleButtonFunction), "Controller");
    WriteProfileUInt("Button3", static_cast<std::uint32_t>(LeftButtonFunction), "Controller");
    std::snprintf(ScratchText, sizeof ScratchText, "%x", static_cast<unsigned>(BaseAddress));
    WriteProfileText("Base Address", ScratchText, "Controller");
    WriteProfileUInt("Hard Probe Compensation", HardProbeCompensation ? 1u : 0u, "Controller");
    std::snprintf(ScratchText, sizeof ScratchText, "%lf", MaxPSpeed);
    WriteProfileText("Max pspeed", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%lf", MaxMSpeed);
    WriteProfileText("Max mspeed", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%lf", MaxAccel);
    WriteProfileText("Max accel", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%d", UseIniMaxSpeeds ? 1 : 0);
    WriteProfileText("USE INI MAX SPEEDS AND ACCEL", ScratchText, "MACHINEPARAM");
    WriteProfileText("SUBTYPE", IsQd32z ? "QD32Z" : "R7NS", "CONTROLLER");
    return true;
}

}  // namespace wk
