#pragma once
// Base level of the settings record: the window background colours of the measuring
// application, and the fields every level shares (modified flag, scratch text, metric flag).

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "settings/colour_schema.h"

namespace wk {

// One window's background: an RGB colour value (red in bits 0-7, green 8-15, blue 16-23)
// and whether the entry is a window of the list.
struct ColourEntry {
    std::uint32_t Colour = 0xFFFFFF;
    bool Listed = false;
};

class ColourSettings {
public:
    // Entries 0-25 are the windows with a key (kWindowBackgroundKeys); 26-29 are spare.
    static constexpr int kColourEntryCount = 30;
    static constexpr int kColourKeyCount = static_cast<int>(kWindowBackgroundKeys.size());

    ColourSettings();
    virtual ~ColourSettings() = default;

    // Set by every page change; cleared by a whole read, by the backup at the start of a
    // whole write, and by the shell once start-up has filled the pages.
    bool Modified = false;

    // Text formed by FormatLength and by the reads and writes of the levels. Its content
    // carries over from one use to the next, which one write relies on (the "3D LINE
    // COMPENS" carry-over of SystemSettings); it is never a setting.
    char ScratchText[256] = {};

    // The background colours, by entry index.
    std::array<ColourEntry, kColourEntryCount> ColourTable;

    // Whether any entry is a window of the list. When none is, the window colours page has
    // nothing to offer and is switched off, and the sounds page dims its list labels with it.
    bool AnyWindowListed() const {
        return std::any_of(ColourTable.begin(), ColourTable.end(),
                           [](const ColourEntry& entry) { return entry.Listed; });
    }

    // Sets an entry's colour from three components (each taken modulo 256); an index
    // outside the table is ignored. The entry's listed mark is not changed.
    void SetColour(int index, int red, int green, int blue);
    static std::uint32_t MakeColour(int red, int green, int blue);
    static int RedOf(std::uint32_t colour) { return static_cast<int>(colour & 0xFF); }
    static int GreenOf(std::uint32_t colour) { return static_cast<int>((colour >> 8) & 0xFF); }
    static int BlueOf(std::uint32_t colour) { return static_cast<int>((colour >> 16) & 0xFF); }

    // True for millimetres, false for inches; read once, by the constructor.
    bool IsMetric() const { return metric_; }

    // A length held in millimetres as the operator sees it (inches when not metric):
    // "%lf" when width and precision are both 0, else "%*.*lf".
    std::string FormatLength(double mm, int width, int precision);
    // A length typed by the operator, in millimetres. Raises ConversionError for text that
    // is not a number.
    double ParseLength(const std::string& text) const;

    // Copies WZELKO.INI to WZELKO.BAK (or, when that pair cannot be opened, WZELKO32.INI to
    // WZELKO32.BAK) and clears the modified flag. True when a copy was made. The backup is
    // replaced whole or not at all (an earlier backup survives a failed one); inside the
    // whole-record save it is replaced together with the settings files.
    bool BackupSettingsFiles();
    // Why the last backup could not be written, in words with the file's path; empty when it
    // was made, or when there was no settings file to copy.
    const std::string& BackupProblem() const { return backupProblem_; }

    // The level's read (clears the modified flag first) and write (takes the backup first).
    // Both return true.
    bool Read();
    bool Write();

private:
    bool metric_ = kMetric.Default;
    std::string backupProblem_;
};

}  // namespace wk
