#pragma once
// Mechanical offsets of the machine: always millimetres, whatever the measuring unit.

#include "settings/init_settings.h"

namespace wk {

class MechOffsetSettings : public InitSettings {
public:
    explicit MechOffsetSettings(const ControllerFlags& controllerFlags);

    double OffsetX = 0.0;
    double OffsetY = 0.0;
    double OffsetZ = 0.0;
    double CompensOffset = 0.0;
    double BridgeAxisStroke = 0.0;

    bool Read();
    bool Write();
};

}  // namespace wk
