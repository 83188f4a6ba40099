#pragma once
// Controller options beyond the connection: mouse buttons, I/O base address, hard probe
// compensation, subtype and motion limits.

#include <cstdint>
#include <string>

#include "settings/directory_settings.h"

namespace wk {

class ControllerSettings : public DirectorySettings {
public:
    // Reads the controller type from the file (key "Type", section "Controller") once.
    explicit ControllerSettings(const ControllerFlags& controllerFlags);

    // Upper case; "QEN" when the file says "NONE", empty when the key is missing.
    std::string ControllerType = "QEN";
    std::uint32_t BaseAddress = 0;
    bool HardProbeCompensation = true;
    // The buttons are numbered right to left: "Button1" is the right one.
    std::int32_t RightButtonFunction = 1;   // "Button1"
    std::int32_t MiddleButtonFunction = 4;  // "Button2"
    std::int32_t LeftButtonFunction = 3;    // "Button3"
    double MaxPSpeed = 0.0;                 // mm/s
    double MaxMSpeed = 0.0;                 // mm/s
    double MaxAccel = 0.0;                  // mm/s2
    // True: the three limits come from the settings file; false: from the controller.
    bool UseIniMaxSpeeds = false;
    bool IsQd32z = false;  // "SUBTYPE" "QD32Z" rather than "R7NS"

    bool Read();
    bool Write();
};

}  // namespace wk
