#include "settings/mech_offset_settings.h"

#include <cstdio>
#include <cstring>

#include "settings/key_profile_helpers.h"
#include "settings/mech_offset_schema.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf") follow LC_NUMERIC, which the programs keep at "C".

namespace wk {

MechOffsetSettings::MechOffsetSettings(const ControllerFlags& controllerFlags)
    : InitSettings(controllerFlags) {}

bool MechOffsetSettings::Read() {
    InitSettings::Read();
    // In the order of kMechOffsetKeys.
    double* const fields[] = {&OffsetX, &OffsetY, &OffsetZ, &CompensOffset, &BridgeAxisStroke};
    for (std::size_t i = 0; i < kMechOffsetKeys.size(); ++i) {
        ReadProfileText(*kMechOffsetKeys[i], ScratchText, 20);
        // "NONE" (exactly) and text that does not scan keep the value.
        if (std::strcmp(ScratchText, "NONE") == 0) continue;
        double value = 0.0;
        if (std::sscanf(ScratchText, "%lf", &value) == 1) *fields[i] = value;
    }
    return true;
}

bool MechOffsetSettings::Write() {
    InitSettings::Write();
    const double values[] = {OffsetX, OffsetY, OffsetZ, CompensOffset, BridgeAxisStroke};
    for (std::size_t i = 0; i < kMechOffsetKeys.size(); ++i) {
        // "NONE" is never written back: a key that held it gets the value as a number.
        WriteProfileDouble(*kMechOffsetKeys[i], values[i], ScratchText);
    }
    return true;
}

}  // namespace wk
