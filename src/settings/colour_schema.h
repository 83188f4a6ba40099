#pragma once
// The keys of the window-colours group, the base level of the settings record, with the
// measure-mode key that the base level reads once, at construction.

#include <array>
#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

// True (metric) before the constructor reads it. Read with the comparison word "METRIC" and
// never written: a file that does not say METRIC is an inch machine.
inline constexpr WzelkoKey<bool> kMetric{"MEASURE INTERFACE", "MEASURE MODE METRIC/INCH",
                                         KeyKind::Word, true};

// White, as the constructor makes every window: red in bits 0-7, green 8-15, blue 16-23.
inline constexpr std::uint32_t kWhite = 0xFFFFFF;

inline constexpr const char* kWindowsBackground = "WINDOWS BACKGROUND";

// One key per window of the list, in entry order; the spare entries after them have none.
inline constexpr std::array<WzelkoKey<std::uint32_t>, 26> kWindowBackgroundKeys{{
    {kWindowsBackground, "MAIN WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "INIT WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "EXECUTION WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FUNCTION WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FILE WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT GROUP WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT MEASURE WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT CONSTRUCTION WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT RELATION WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "ELEMENT RELATION GROUP WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "GEOMETRICAL TOLERANCE WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "GEOMETRICAL TOLERANCE GROUP WINDOW", KeyKind::Colour, kWhite},
    // Spelled so in the measuring application's files.
    {kWindowsBackground, "ALIGNEMENTS WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "TIP UTILITIES WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "MEASURE WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "MEASURE WINDOW DATA", KeyKind::Colour, kWhite},
    {kWindowsBackground, "MEASURE WINDOW POINT COUNTER", KeyKind::Colour, kWhite},
    {kWindowsBackground, "MEASURE WINDOW BLOCK NUMBER", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FRAME WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FRAME WINDOW CLIENT AREA", KeyKind::Colour, kWhite},
    {kWindowsBackground, "PROCEDURE EXECUTION WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FREERELBKG", KeyKind::Colour, kWhite},
    {kWindowsBackground, "FRAME WINDOW TEACH", KeyKind::Colour, kWhite},
    {kWindowsBackground, "SKIN WINDOW", KeyKind::Colour, kWhite},
    {kWindowsBackground, "DATA INPUT WINDOW", KeyKind::Colour, kWhite},
}};

}  // namespace wk
