#include "settings/sound_settings.h"

#include <cstring>

#include "settings/key_profile_helpers.h"

namespace wk {

SoundSettings::SoundSettings(const ControllerFlags& controllerFlags)
    : DefaultPointsSettings(controllerFlags) {
    // Every event starts with the text of its own key, except that the values meant for
    // "pick tf" and "del tf" are overwritten by "pick tu" and "del tu", which leaves ids 3
    // and 4 empty. The measuring application's record has always started so; a read
    // replaces all of them.
    SoundFiles[0] = kSoundFileKeys[0].Key;
    SoundFiles[1] = kSoundFileKeys[1].Key;
    SoundFiles[0] = kSoundFileKeys[2].Key;
    SoundFiles[1] = kSoundFileKeys[3].Key;
    for (int id = 5; id <= kEventCount; ++id) {
        SoundFiles[static_cast<std::size_t>(id - 1)] =
            kSoundFileKeys[static_cast<std::size_t>(id - 1)].Key;
    }
    SoundFiles[kPowerOnSoundId - 1] = kSoundFileKeys[kPowerOnSoundId - 1].Default;
    SoundFiles[kZeroesSoundId - 1] = kSoundFileKeys[kZeroesSoundId - 1].Default;
}

std::string SoundSettings::FileNamePart(const std::string& path) {
    const std::size_t separator = path.find_last_of("\\/:");
    return separator == std::string::npos ? path : path.substr(separator + 1);
}

std::string SoundSettings::GetSound(int id, bool nameOnly) const {
    if (id < 1 || id > kSoundCount) return {};
    const std::string& path = SoundFiles[static_cast<std::size_t>(id - 1)];
    return nameOnly ? FileNamePart(path) : path;
}

void SoundSettings::SetSound(int id, const std::string& path) {
    if (id < 1 || id > kSoundCount) return;
    SoundFiles[static_cast<std::size_t>(id - 1)] = path;
}

bool SoundSettings::Read() {
    DefaultPointsSettings::Read();

    PlayGeneral = ReadProfileBool(kPlayGeneral, "YES");
    ReadProfileText(kLocation, ScratchText, 80);
    // Only "NONE" exactly keeps the location; a missing key empties it.
    if (std::strcmp(ScratchText, "NONE") != 0) Location = ScratchText;
    ReadProfileText(kSoundFileKeys[kPowerOnSoundId - 1], ScratchText, 80);
    SoundFiles[kPowerOnSoundId - 1] = ScratchText;
    ReadProfileText(kSoundFileKeys[kZeroesSoundId - 1], ScratchText, 80);
    SoundFiles[kZeroesSoundId - 1] = ScratchText;
    PlayPowerOn = ReadProfileBool(kPlayPowerOn);
    PowerOnContinuous = ReadProfileBool(kPowerOnContinuous);
    PlayZeroes = ReadProfileBool(kPlayZeroes);
    ZeroesContinuous = ReadProfileBool(kZeroesContinuous);
    for (int id = 1; id <= kEventCount; ++id) {
        ReadProfileText(kSoundFileKeys[static_cast<std::size_t>(id - 1)], ScratchText, 80);
        SoundFiles[static_cast<std::size_t>(id - 1)] = ScratchText;
    }
    return true;
}

bool SoundSettings::Write() {
    DefaultPointsSettings::Write();

    WriteProfileText(kPlayGeneral, PlayGeneral ? "Yes" : "No");
    WriteProfileBool(kPlayPowerOn, PlayPowerOn);
    WriteProfileBool(kPowerOnContinuous, PowerOnContinuous);
    WriteProfileBool(kPlayZeroes, PlayZeroes);
    WriteProfileBool(kZeroesContinuous, ZeroesContinuous);
    WriteProfileString(kLocation, Location);
    // The measuring application's order: the two start-up sounds sit among the events.
    static constexpr int kWriteOrder[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 11, 13};
    for (int id : kWriteOrder) {
        WriteProfileString(kSoundFileKeys[static_cast<std::size_t>(id - 1)],
                           SoundFiles[static_cast<std::size_t>(id - 1)]);
    }
    return true;
}

}  // namespace wk
