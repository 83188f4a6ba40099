#pragma once
// Sounds the measuring application plays: at power-on, at zeroes (homing) and for eleven
// run-time events.

#include <array>
#include <string>

#include "settings/default_points_settings.h"

namespace wk {

class SoundSettings : public DefaultPointsSettings {
public:
    // Sound ids 1-11 are events, 12 the power-on sound, 13 the zeroes sound.
    static constexpr int kSoundCount = 13;
    static constexpr int kEventCount = 11;
    static constexpr int kPowerOnSoundId = 12;
    static constexpr int kZeroesSoundId = 13;
    static constexpr const char* kSoundsSection = "SOUNDS";
    static constexpr const char* kDefaultLocation = "\\WZELKO\\SOUNDS";
    // The key of each sound, by id - 1.
    static const std::array<const char*, kSoundCount> kSoundKeys;

    explicit SoundSettings(const ControllerFlags& controllerFlags);

    // Fields in the order of the measuring application's record; the sound files follow.
    bool PlayGeneral = false;        // "SOUNDS" "enable": "Yes"/"No"
    bool PlayPowerOn = false;        // "Wzelko" "PLAY SOUNDS"
    bool PlayZeroes = false;         // "INIT" "PLAY SOUNDS"
    bool PowerOnContinuous = false;  // "Wzelko" "CONTINUOUS SOUND"
    bool ZeroesContinuous = false;   // "INIT" "PLAY CONTINUOUS"
    std::string Location = kDefaultLocation;
    std::array<std::string, kSoundCount> SoundFiles;  // by id - 1

    // The stored path of a sound, or only its file-name part; empty for an id outside 1-13.
    std::string GetSound(int id, bool nameOnly) const;
    // Stores the path of a sound; an id outside 1-13 is ignored.
    void SetSound(int id, const std::string& path);
    // Everything after the last path separator.
    static std::string FileNamePart(const std::string& path);

    bool Read();
    bool Write();
};

}  // namespace wk
