#pragma once
// Every setting of the record, level by level, with where it lives in the files: what
// `wkestel show` prints.

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "settings/setting_key.h"
#include "settings/setup_settings.h"

namespace wk::cli {

struct ColourValue {
    int Red = 0, Green = 0, Blue = 0;
    bool Listed = false;
    bool operator==(const ColourValue&) const = default;
};

using SettingValue = std::variant<bool, std::int64_t, double, std::string, ColourValue>;

struct SettingEntry {
    std::string Field;  // stable name: the record's field (with the key for table entries)
    // The declared key the setting is read from and written to; nullptr for a setting without
    // a key (the spare colour entries). Section, Key and File are its texts.
    const SettingKey* Schema = nullptr;
    std::string Section;  // empty for a setting without a key
    std::string Key;
    std::string File;  // "WZELKO.INI" or "WZELKO32.INI"
    SettingValue Value;
    std::string Note;  // how the value reads in the measuring application's terms, if useful
};

struct SettingsLevel {
    std::string Name;  // the level's class name
    std::vector<SettingEntry> Entries;
};

// The record's levels, base first, with every field as it is held now.
std::vector<SettingsLevel> ListSettings(const SetupSettings& record);

}  // namespace wk::cli
