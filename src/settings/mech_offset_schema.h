#pragma once
// The keys of the mechanical-offsets group (MechOffsetSettings): five lengths in millimetres,
// 0 before the first read. The "MECHAOFFS" keys are lower case in the measuring application's
// files; the bridge stroke lives among the upper-case machine parameters.

#include <array>

#include "settings/setting_key.h"

namespace wk {

inline constexpr WzelkoKey<double> kOffsetX{"MECHAOFFS", "offx", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kOffsetY{"MECHAOFFS", "offy", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kOffsetZ{"MECHAOFFS", "offz", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kCompensOffset{"MECHAOFFS", "compensoff", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kBridgeAxisStroke{"MACHINEPARAM", "BRIDGE AXIS STROKE",
                                                     KeyKind::Number, 0.0};

// The order in which the group reads and writes them.
inline constexpr std::array<const WzelkoKey<double>*, 5> kMechOffsetKeys{
    &kOffsetX, &kOffsetY, &kOffsetZ, &kCompensOffset, &kBridgeAxisStroke};

}  // namespace wk
