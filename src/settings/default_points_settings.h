#pragma once
// Default number of points per geometric element.

#include <array>
#include <cstdint>

#include "settings/default_points_schema.h"
#include "settings/mech_offset_settings.h"

namespace wk {

struct ElementPoints {
    std::uint32_t Count = 0;
    // A fixed element keeps its minimum, ignores the file and refuses every change.
    bool Fixed = false;
};

class DefaultPointsSettings : public MechOffsetSettings {
public:
    static constexpr int kElementCount = static_cast<int>(kDefaultPointsKeys.size());
    // Room for fifteen records; only the first twelve are elements.
    static constexpr int kElementCapacity = 15;
    static constexpr int kMaximumPoints = 999;  // enforced by the page, not here
    static const std::array<std::uint32_t, kElementCount> kElementMinimums;

    explicit DefaultPointsSettings(const ControllerFlags& controllerFlags);

    std::array<ElementPoints, kElementCapacity> MinimumPoints{};
    std::array<ElementPoints, kElementCapacity> CurrentPoints{};
    // The value the last element read gave, taken or not.
    std::uint32_t LastPointsRead = 0;

    // False for an index above 15, else whether the element's current count is not zero.
    bool ElementExists(int index) const;
    // Minimum plus one, or the minimum for a fixed element.
    std::uint32_t DefaultPoints(int index) const;

    bool Read();
    bool Write();
};

}  // namespace wk
