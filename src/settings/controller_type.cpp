#include "settings/controller_type.h"

#include "settings/controller_schema.h"
#include "settings/key_profile_helpers.h"

namespace wk {

ControllerFlags ControllerFlagsFromType(const std::string& type) {
    const char* t = type.c_str();
    ControllerFlags flags;
    flags.IsQd32OrRmd = EqualsIgnoringAsciiCase(t, "qd32") || EqualsIgnoringAsciiCase(t, "RMD");
    flags.IsVek3Family = EqualsIgnoringAsciiCase(t, "Tq") || EqualsIgnoringAsciiCase(t, "Q5") ||
                         EqualsIgnoringAsciiCase(t, "Vek3");
    flags.IsKpt = EqualsIgnoringAsciiCase(t, "KPT");
    flags.IsRmdOrKpt = EqualsIgnoringAsciiCase(t, "RMD") || EqualsIgnoringAsciiCase(t, "KPT");
    return flags;
}

std::string ReadControllerType() {
    char type[256];
    const std::uint32_t length = ReadProfileText(kControllerType, type, sizeof type);
    return std::string(type, length);
}

}  // namespace wk
