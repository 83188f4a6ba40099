#pragma once
// Sounds the measuring application plays: at power-on, at zeroes (homing) and for eleven
// run-time events.

#include <array>
#include <string>

#include "settings/default_points_settings.h"
#include "settings/sound_schema.h"

namespace wk {

class SoundSettings : public DefaultPointsSettings {
public:
    // Sound ids 1-11 are events, 12 the power-on sound, 13 the zeroes sound.
    static constexpr int kSoundCount = static_cast<int>(kSoundFileKeys.size());
    static constexpr int kEventCount = 11;
    static constexpr int kPowerOnSoundId = 12;
    static constexpr int kZeroesSoundId = 13;

    explicit SoundSettings(const ControllerFlags& controllerFlags);

    // Fields in the order of the measuring application's record; the sound files follow.
    // Each starts with its key's default (sound_schema.h); the sound files are set by the
    // constructor.
    bool PlayGeneral = kPlayGeneral.Default;
    bool PlayPowerOn = kPlayPowerOn.Default;
    bool PlayZeroes = kPlayZeroes.Default;
    bool PowerOnContinuous = kPowerOnContinuous.Default;
    bool ZeroesContinuous = kZeroesContinuous.Default;
    std::string Location = kLocation.Default;
    std::array<std::string, kSoundCount> SoundFiles;  // by id - 1, keys kSoundFileKeys

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
