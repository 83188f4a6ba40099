#pragma once
// The controller type check made at start-up.
//
// The measuring application drives several controller families; a few settings make sense
// only for some of them. The type is key "Type" of section "Controller" in WZELKO.INI, and
// every comparison ignores case.

#include <string>

namespace wk {

struct ControllerFlags {
    bool IsQd32OrRmd = false;   // "qd32" or "RMD"
    bool IsVek3Family = false;  // "Tq", "Q5" or "Vek3"
    bool IsKpt = false;         // "KPT"
    bool IsRmdOrKpt = false;    // "RMD" or "KPT"

    // Only the RMD and KPT controllers can be reached over TCP/IP.
    bool AcceptsTcpip() const { return IsRmdOrKpt; }
    // The controllers with options of their own on the controller page, which the menu offers
    // only for them: "RMD" (the one type in both RMD flags), "Tq", "Q5" and "Vek3".
    bool HasControllerOptions() const { return IsVek3Family || (IsQd32OrRmd && IsRmdOrKpt); }
};

// The four flags for a controller type text (a missing key, i.e. "", sets none).
ControllerFlags ControllerFlagsFromType(const std::string& type);

// The controller type as start-up reads it: key "Type", section "Controller", at most 255
// characters, empty when missing.
std::string ReadControllerType();

}  // namespace wk
