#include "settings/controller_settings.h"

#include <cstdio>

#include "settings/key_profile_helpers.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%x", "%d"; "%lf" in ReadProfileDouble and WriteProfileDouble) follow
// LC_NUMERIC, which the programs keep at "C".

namespace wk {

ControllerSettings::ControllerSettings(const ControllerFlags& controllerFlags)
    : DirectorySettings(controllerFlags) {
    std::string type;
    ReadProfileString(kControllerType, type, 80);
    if (!EqualsIgnoringAsciiCase(type.c_str(), "NONE")) ControllerType = ToUpperAscii(type);
}

bool ControllerSettings::Read() {
    DirectorySettings::Read();

    RightButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt(kRightButtonFunction, RightButtonFunction));
    MiddleButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt(kMiddleButtonFunction, MiddleButtonFunction));
    LeftButtonFunction =
        static_cast<std::int32_t>(ReadProfileInt(kLeftButtonFunction, LeftButtonFunction));
    // Read with the profile function directly, but written through the helper: the
    // measuring application's code has it so, and both reach WZELKO.INI.
    char subtype[80];
    DirectProfileString(kIsQd32z, "R7NS", subtype, sizeof subtype);
    IsQd32z = EqualsIgnoringAsciiCase(subtype, "QD32Z");
    ReadProfileText(kBaseAddress, ScratchText, 256);
    unsigned address = 0;
    if (std::sscanf(ScratchText, "%x", &address) == 1) BaseAddress = address;
    HardProbeCompensation =
        ReadProfileInt(kHardProbeCompensation, HardProbeCompensation ? 1 : 0) != 0;
    ReadProfileDouble(kMaxPSpeed, ScratchText, 80, MaxPSpeed);
    ReadProfileDouble(kMaxMSpeed, ScratchText, 80, MaxMSpeed);
    ReadProfileDouble(kMaxAccel, ScratchText, 80, MaxAccel);
    ReadProfileText(kUseIniMaxSpeeds, ScratchText, 80);
    int useIni = 0;
    if (std::sscanf(ScratchText, "%d", &useIni) != 1) useIni = 0;
    UseIniMaxSpeeds = useIni != 0;
    return true;
}

bool ControllerSettings::Write() {
    DirectorySettings::Write();

    WriteProfileUInt(kRightButtonFunction, static_cast<std::uint32_t>(RightButtonFunction));
    WriteProfileUInt(kMiddleButtonFunction, static_cast<std::uint32_t>(MiddleButtonFunction));
    WriteProfileUInt(kLeftButtonFunction, static_cast<std::uint32_t>(LeftButtonFunction));
    std::snprintf(ScratchText, sizeof ScratchText, "%x", static_cast<unsigned>(BaseAddress));
    WriteProfileText(kBaseAddress, ScratchText);
    WriteProfileUInt(kHardProbeCompensation, HardProbeCompensation ? 1u : 0u);
    WriteProfileDouble(kMaxPSpeed, MaxPSpeed, ScratchText);
    WriteProfileDouble(kMaxMSpeed, MaxMSpeed, ScratchText);
    WriteProfileDouble(kMaxAccel, MaxAccel, ScratchText);
    std::snprintf(ScratchText, sizeof ScratchText, "%d", UseIniMaxSpeeds ? 1 : 0);
    WriteProfileText(kUseIniMaxSpeeds, ScratchText);
    WriteProfileText(kIsQd32z, IsQd32z ? "QD32Z" : "R7NS");
    return true;
}

}  // namespace wk
