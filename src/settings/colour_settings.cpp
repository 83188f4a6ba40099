#include "settings/colour_settings.h"

#include <cstdio>
#include <cstring>

#include "platform/text_to_number.h"
#include "settings/key_profile_helpers.h"
#include "settings/settings_files.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below (snprintf "%lf", sscanf "%d") follow LC_NUMERIC, which the programs keep at
// "C": they never call setlocale for numbers.

namespace wk {

ColourSettings::ColourSettings() {
    metric_ = kMetric.Default;
    Modified = false;
    // A file that does not say METRIC is an inch machine: a missing key selects inches.
    metric_ = ReadProfileBool(kMetric, "METRIC");
    for (ColourEntry& entry : ColourTable) entry = ColourEntry{MakeColour(255, 255, 255), false};
    for (int i = 0; i < kColourKeyCount; ++i) {
        ColourTable[static_cast<std::size_t>(i)] =
            ColourEntry{kWindowBackgroundKeys[static_cast<std::size_t>(i)].Default, true};
    }
}

std::uint32_t ColourSettings::MakeColour(int red, int green, int blue) {
    return (static_cast<std::uint32_t>(red) & 0xFF) |
           ((static_cast<std::uint32_t>(green) & 0xFF) << 8) |
           ((static_cast<std::uint32_t>(blue) & 0xFF) << 16);
}

void ColourSettings::SetColour(int index, int red, int green, int blue) {
    if (index < 0 || index >= kColourEntryCount) return;
    ColourTable[static_cast<std::size_t>(index)].Colour = MakeColour(red, green, blue);
}

std::string ColourSettings::FormatLength(double mm, int width, int precision) {
    double value = mm;
    if (!metric_) value = static_cast<double>(mm * (1.0L / 25.4L));
    if (width == 0 && precision == 0) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", value);
    } else {
        std::snprintf(ScratchText, sizeof ScratchText, "%*.*lf", width, precision, value);
    }
    return ScratchText;
}

double ColourSettings::ParseLength(const std::string& text) const {
    double value = StrToFloat(text);
    if (!metric_) value *= 25.4;
    return value;
}

bool ColourSettings::Read() {
    Modified = false;
    // The components live across the loop: a value that does not scan keeps the previous
    // window's component. Before the first window they are white.
    int red = 255;
    int green = 255;
    int blue = 255;
    for (int i = 0; i < kColourEntryCount; ++i) {
        // The spare entries have no key: the scratch text still holds "DATA INPUT WINDOW",
        // so they take its colour and become listed. Kept as the measuring application has it.
        if (i < kColourKeyCount) {
            ReadProfileText(kWindowBackgroundKeys[static_cast<std::size_t>(i)], ScratchText, 80);
        }
        if (EqualsIgnoringAsciiCase(ScratchText, "NONE")) continue;  // "NONE": the default colour
        std::sscanf(ScratchText, "%d,%d,%d", &red, &green, &blue);
        ColourEntry& entry = ColourTable[static_cast<std::size_t>(i)];
        entry.Colour = MakeColour(red, green, blue);
        entry.Listed = true;
    }
    return true;
}

bool ColourSettings::Write() {
    // The result of the backup is not looked at: a write goes ahead without one.
    BackupSettingsFiles();
    for (int i = 0; i < kColourKeyCount; ++i) {
        const std::uint32_t colour = ColourTable[static_cast<std::size_t>(i)].Colour;
        std::snprintf(ScratchText, sizeof ScratchText, "%d,%d,%d", RedOf(colour), GreenOf(colour),
                      BlueOf(colour));
        WriteProfileText(kWindowBackgroundKeys[static_cast<std::size_t>(i)], ScratchText);
    }
    return true;
}

}  // namespace wk
