#pragma once
// Mechanical offsets of the machine: always millimetres, whatever the measuring unit.

#include "settings/init_settings.h"
#include "settings/mech_offset_schema.h"

namespace wk {

class MechOffsetSettings : public InitSettings {
public:
    explicit MechOffsetSettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (mech_offset_schema.h).
    double OffsetX = kOffsetX.Default;
    double OffsetY = kOffsetY.Default;
    double OffsetZ = kOffsetZ.Default;
    double CompensOffset = kCompensOffset.Default;
    double BridgeAxisStroke = kBridgeAxisStroke.Default;

    bool Read();
    bool Write();
};

}  // namespace wk
