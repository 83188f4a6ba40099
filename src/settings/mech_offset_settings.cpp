#include "settings/mech_offset_settings.h"

#include <cstdio>
#include <cstring>

#include "settings/profile_helpers.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf") follow LC_NUMERIC, which the programs keep at "C".

namespace wk {

namespace {

struct OffsetKey {
    const char* section;
    const char* key;
};

// The "MECHAOFFS" keys are lower case in the measuring application's files; the bridge
// stroke lives among the upper-case machine parameters.
constexpr OffsetKey kOffsetKeys[] = {
    {"MECHAOFFS", "offx"},
    {"MECHAOFFS", "offy"},
    {"MECHAOFFS", "offz"},
    {"MECHAOFFS", "compensoff"},
    {"MACHINEPARAM", "BRIDGE AXIS STROKE"},
};

}  // namespace

MechOffsetSettings::MechOffsetSettings(const ControllerFlags& controllerFlags)
    : InitSettings(controllerFlags) {}

bool MechOffsetSettings::Read() {
    InitSettings::Read();
    double* const fields[] = {&OffsetX, &OffsetY, &OffsetZ, &CompensOffset, &BridgeAxisStroke};
    for (std::size_t i = 0; i < 5; ++i) {
        ReadProfileText(kOffsetKeys[i].key, ScratchText, 20, kOffsetKeys[i].section);
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
    for (std::size_t i = 0; i < 5; ++i) {
        // "NONE" is never written back: a key that held it gets the value as a number.
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", values[i]);
        WriteProfileText(kOffsetKeys[i].key, ScratchText, kOffsetKeys[i].section);
    }
    return true;
}

}  // namespace wk
