#pragma once
// The keys of the default-points group (DefaultPointsSettings): one count per element, in
// element order. The default is the element's minimum plus one.

#include <array>
#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

inline constexpr const char* kDefaultPts = "DEFAULT PTS";

inline constexpr std::array<WzelkoKey<std::uint32_t>, 12> kDefaultPointsKeys{{
    {kDefaultPts, "CIRCLE", KeyKind::Integer, 4},
    {kDefaultPts, "SPHERE", KeyKind::Integer, 5},
    {kDefaultPts, "CYLINDER", KeyKind::Integer, 8},
    {kDefaultPts, "CONE", KeyKind::Integer, 7},
    {kDefaultPts, "LINE", KeyKind::Integer, 3},
    {kDefaultPts, "PLANE", KeyKind::Integer, 4},
    {kDefaultPts, "PARAB", KeyKind::Integer, 7},
    {kDefaultPts, "SLOT", KeyKind::Integer, 6},
    {kDefaultPts, "SQSLOT", KeyKind::Integer, 9},
    {kDefaultPts, "ELLIPSE", KeyKind::Integer, 6},
    {kDefaultPts, "CIRC_NOT_ALI", KeyKind::Integer, 8},
    {kDefaultPts, "TORUS", KeyKind::Integer, 13},
}};

}  // namespace wk
