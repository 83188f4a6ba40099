#pragma once
// What a settings group says about each of its keys, once: the file, the section, the key
// text, the form of the value in the file and the group's default.
//
// Each group declares its keys in its own schema header (machine_schema.h, ...). The group's
// read and write, the pages, `wkestel show` and the upgrade's kept keys name a key through
// that declaration, so that a section or key text is written in one place only. How a value
// is read and written (buffer sizes, "NONE" rules, formats, order) stays in the group's own
// code, next to the reasons for it: a declaration names the key, it does not interpret it.
//
//     inline constexpr WzelkoKey<double> kDistApproach{"MACHINEPARAM", "DIST APPROACH",
//                                                      KeyKind::Number, 6.0};
//     double DistApproach = kDistApproach.Default;             // the field's initial value
//     ReadProfileText(kDistApproach, ScratchText, 20);         // through the typed helpers
//     WriteProfileKey(kCompensActive, "1");                    // the profile function directly
//
// A WZELKO32.INI key has its own type (Wzelko32Key), so it cannot be handed to a typed helper
// of WZELKO.INI by mistake: the compiler refuses it.

#include <cstdint>

#include "settings/settings_files.h"

namespace wk {

enum class SettingsFile : std::uint8_t {
    Wzelko,    // WZELKO.INI
    Wzelko32,  // WZELKO32.INI
};

// The form of a value in the file (not the type of the field that holds it).
enum class KeyKind : std::uint8_t {
    Bool,     // "TRUE" or "FALSE"
    Word,     // one word of a fixed vocabulary: "DIAMETER"/"RADIUS", "Yes"/"No", "QEN", ...
    Integer,  // a decimal integer
    Hex,      // a hexadecimal integer without prefix
    Number,   // a decimal number with a fraction ("%lf" and the like)
    Text,     // free text: a file name, a directory, an address
    Port,     // a serial port, "COMn:" with or without the line settings after the colon
    Colour,   // "red,green,blue"
};

// A key's identity and form; the common part of every declaration, for lists of keys.
struct SettingKey {
    SettingsFile File;
    const char* Section;
    const char* Key;
    KeyKind Kind;

    // The upper-case name the profile functions are given when a group calls them directly
    // for this key ("WZELKO.INI", "WZELKO32.INI"). The typed helpers name the files
    // themselves.
    constexpr const char* DirectFileName() const {
        return File == SettingsFile::Wzelko32 ? kWzelko32Ini : kWzelkoIni;
    }
};

// A key with the group's default for it: the value its field holds before the first read.
// T is the field's type (const char* for text).
template <SettingsFile F, typename T>
struct DeclaredKey : SettingKey {
    constexpr DeclaredKey(const char* section, const char* key, KeyKind kind, T defaultValue)
        : SettingKey{F, section, key, kind}, Default(defaultValue) {}
    T Default;
};

template <typename T>
using WzelkoKey = DeclaredKey<SettingsFile::Wzelko, T>;
template <typename T>
using Wzelko32Key = DeclaredKey<SettingsFile::Wzelko32, T>;

}  // namespace wk
