#pragma once
// The keys of the sounds group (SoundSettings). Each constant is named after the field it
// fills; its default is that field's value before the first read.

#include <array>

#include "settings/setting_key.h"

namespace wk {

inline constexpr const char* kSounds = "SOUNDS";

// "Yes" or "No".
inline constexpr WzelkoKey<bool> kPlayGeneral{kSounds, "enable", KeyKind::Word, false};
// The power-on sound's switches live in the main section, the zeroes sound's in "INIT".
inline constexpr WzelkoKey<bool> kPlayPowerOn{"Wzelko", "PLAY SOUNDS", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kPlayZeroes{"INIT", "PLAY SOUNDS", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kPowerOnContinuous{"Wzelko", "CONTINUOUS SOUND", KeyKind::Bool,
                                                    false};
inline constexpr WzelkoKey<bool> kZeroesContinuous{"INIT", "PLAY CONTINUOUS", KeyKind::Bool, false};
inline constexpr WzelkoKey<const char*> kLocation{kSounds, "location", KeyKind::Text,
                                                  "\\WZELKO\\SOUNDS"};

// The file of each sound, by sound id - 1: ids 1-11 are events, 12 the power-on sound, 13
// the zeroes sound. The defaults are what the constructor leaves: "pick tf" and "del tf"
// start with the "tu" texts and "pick tu" and "del tu" empty (see SoundSettings).
inline constexpr std::array<WzelkoKey<const char*>, 13> kSoundFileKeys{{
    {kSounds, "pick tf", KeyKind::Text, "pick tu"},
    {kSounds, "del tf", KeyKind::Text, "del tu"},
    {kSounds, "pick tu", KeyKind::Text, ""},
    {kSounds, "del tu", KeyKind::Text, ""},
    {kSounds, "end measure", KeyKind::Text, "end measure"},
    {kSounds, "end compute", KeyKind::Text, "end compute"},
    {kSounds, "end macro", KeyKind::Text, "end macro"},
    {kSounds, "error", KeyKind::Text, "error"},
    {kSounds, "measure error", KeyKind::Text, "measure error"},
    {kSounds, "emergency", KeyKind::Text, "emergency"},
    {kSounds, "input", KeyKind::Text, "input"},
    {kSounds, "init", KeyKind::Text, "init.wav"},
    {kSounds, "home", KeyKind::Text, "home.wav"},
}};

}  // namespace wk
