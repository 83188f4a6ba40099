#include "settings/default_points_settings.h"

#include "settings/key_profile_helpers.h"

namespace wk {

const std::array<std::uint32_t, DefaultPointsSettings::kElementCount>
    DefaultPointsSettings::kElementMinimums = {3, 4, 7, 6, 2, 3, 6, 5, 8, 5, 7, 12};

DefaultPointsSettings::DefaultPointsSettings(const ControllerFlags& controllerFlags)
    : MechOffsetSettings(controllerFlags) {
    for (std::size_t i = 0; i < kElementCount; ++i) {
        MinimumPoints[i] = ElementPoints{kElementMinimums[i], false};
        CurrentPoints[i] = MinimumPoints[i];
        if (!CurrentPoints[i].Fixed) ++CurrentPoints[i].Count;
    }
}

bool DefaultPointsSettings::ElementExists(int index) const {
    // Indices up to 15 are asked about, one past the records; an index beyond the records
    // is no element.
    if (index < 0 || index > 15 || index >= kElementCapacity) return false;
    return CurrentPoints[static_cast<std::size_t>(index)].Count != 0;
}

std::uint32_t DefaultPointsSettings::DefaultPoints(int index) const {
    if (index < 0 || index >= kElementCapacity) return 0;
    const ElementPoints& minimum = MinimumPoints[static_cast<std::size_t>(index)];
    return minimum.Fixed ? minimum.Count : minimum.Count + 1;
}

bool DefaultPointsSettings::Read() {
    MechOffsetSettings::Read();
    for (std::size_t i = 0; i < kElementCount; ++i) {
        ElementPoints& current = CurrentPoints[i];
        const std::uint32_t value =
            ReadProfileInt(kDefaultPointsKeys[i], static_cast<std::int32_t>(current.Count));
        LastPointsRead = value;
        // Unsigned comparison, as the measuring application makes it: a count below the
        // minimum is ignored, but a negative one passes as a very large count.
        if (value >= current.Count - 1 && !current.Fixed) current.Count = value;
    }
    return true;
}

bool DefaultPointsSettings::Write() {
    MechOffsetSettings::Write();
    for (std::size_t i = 0; i < kElementCount; ++i) {
        WriteProfileUInt(kDefaultPointsKeys[i], CurrentPoints[i].Count);
    }
    return true;
}

}  // namespace wk
