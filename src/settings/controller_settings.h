#pragma once
// Controller options beyond the connection: mouse buttons, I/O base address, hard probe
// compensation, subtype and motion limits.

#include <cstdint>
#include <string>

#include "settings/controller_schema.h"
#include "settings/directory_settings.h"

namespace wk {

class ControllerSettings : public DirectorySettings {
public:
    // Reads the controller type from the file (key "Type", section "Controller") once.
    explicit ControllerSettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (controller_schema.h).
    // Upper case; "QEN" when the file says "NONE", empty when the key is missing.
    std::string ControllerType = kControllerType.Default;
    std::uint32_t BaseAddress = kBaseAddress.Default;
    bool HardProbeCompensation = kHardProbeCompensation.Default;
    // The buttons are numbered right to left: "Button1" is the right one.
    std::int32_t RightButtonFunction = kRightButtonFunction.Default;
    std::int32_t MiddleButtonFunction = kMiddleButtonFunction.Default;
    std::int32_t LeftButtonFunction = kLeftButtonFunction.Default;
    double MaxPSpeed = kMaxPSpeed.Default;  // mm/s
    double MaxMSpeed = kMaxMSpeed.Default;  // mm/s
    double MaxAccel = kMaxAccel.Default;    // mm/s2
    // True: the three limits come from the settings file; false: from the controller.
    bool UseIniMaxSpeeds = kUseIniMaxSpeeds.Default;
    bool IsQd32z = kIsQd32z.Default;  // "SUBTYPE" "QD32Z" rather than "R7NS"

    bool Read();
    bool Write();
};

}  // namespace wk
