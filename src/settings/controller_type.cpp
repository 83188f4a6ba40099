#include "settings/controller_type.h"

#include "settings/profile_helpers.h"

namespace wk {

ControllerFlags ControllerFlagsFromType(const std::string& type) {
    const char* t = type.c_str();
    ControllerFlags flags;
    flags.IsQd32OrRmd = EqualsNoCase(t, "qd32") || EqualsNoCase(t, "RMD");
    flags.IsVek3Family = EqualsNoCase(t, "Tq") || EqualsNoCase(t, "Q5") || EqualsNoCase(t, "Vek3");
    flags.IsKpt = EqualsNoCase(t, "KPT");
    flags.IsRmdOrKpt = EqualsNoCase(t, "RMD") || EqualsNoCase(t, "KPT");
    return flags;
}

std::string ReadControllerType() {
    char type[256];
    const std::uint32_t length = ReadProfileText("Type", type, sizeof type, "Controller");
    return std::string(type, length);
}

}  // namespace wk
