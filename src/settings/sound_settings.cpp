#include "settings/sound_settings.h"

#include <cstring>

#include "settings/profile_helpers.h"

namespace wk {

const std::array<const char*, SoundSettings::kSoundCount> SoundSettings::kSoundKeys = {
    "pick tf", "del tf",        "pick tu",   "del tu", "end measure", "end compute", "end macro",
    "error",   "measure error", "emergency", "input",  "init",        "home"};

SoundSettings::SoundSettings(const ControllerFlags& controllerFlags)
    : DefaultPointsSettings(controllerFlags) {
    // Every event starts with the text of its own key, except that the values meant for
    // "pick tf" and "del tf" are overwritten by "pick tu" and "del tu", which leaves ids 3
    // and 4 empty. The measuring application's record has always started so; a read
    // replaces all of them.
    SoundFiles[0] = "pick tf";
    SoundFiles[1] = "del tf";
    SoundFiles[0] = "pick tu";
    SoundFiles[1] = "del tu";
    for (int id = 5; id <= kEventCount; ++id) {
        SoundFiles[static_cast<std::size_t>(id - 1)] = kSoundKeys[static_cast<std::size_t>(id - 1)];
    }
    SoundFiles[kPowerOnSoundId - 1] = "init.wav";
    SoundFiles[kZeroesSoundId - 1] = "home.wav";
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

    PlayGeneral = ReadProfileBool("enable", kSoundsSection, "YES");
    ReadProfileText("location", ScratchText, 80, kSoundsSection);
    // Only "NONE" exactly keeps the location; a missing key empties it.
    if (std::strcmp(ScratchText, "NONE") != 0) Location = ScratchText;
    ReadProfileText("init", ScratchText, 80, kSoundsSection);
    SoundFiles[kPowerOnSoundId - 1] = ScratchText;
    ReadProfileText("home", ScratchText, 80, kSoundsSection);
    SoundFiles[kZeroesSoundId - 1] = ScratchText;
    PlayPowerOn = ReadProfileBool("PLAY SOUNDS", "Wzelko");
    PowerOnContinuous = ReadProfileBool("CONTINUOUS SOUND", "Wzelko");
    PlayZeroes = ReadProfileBool("PLAY SOUNDS", "INIT");
    ZeroesContinuous = ReadProfileBool("PLAY CONTINUOUS", "INIT");
    for (int id = 1; id <= kEventCount; ++id) {
        ReadProfileText(kSoundKeys[static_cast<std::size_t>(id - 1)], ScratchText, 80,
                        kSoundsSection);
        SoundFiles[static_cast<std::size_t>(id - 1)] = ScratchText;
    }
    return true;
}

bool SoundSettings::Write() {
    DefaultPointsSettings::Write();

    WriteProfileText("enable", PlayGeneral ? "Yes" : "No", kSoundsSection);
    WriteProfileBool("PLAY SOUNDS", PlayPowerOn, "Wzelko");
    WriteProfileBool("CONTINUOUS SOUND", PowerOnContinuous, "Wzelko");
    WriteProfileBool("PLAY SOUNDS", PlayZeroes, "INIT");
    WriteProfileBool("PLAY CONTINUOUS", ZeroesContinuous, "INIT");
    WriteProfileString("location", Location, kSoundsSection);
    // The measuring application's order: the two start-up sounds sit among the events.
    static constexpr int kWriteOrder[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 12, 11, 13};
    for (int id : kWriteOrder) {
        WriteProfileString(kSoundKeys[static_cast<std::size_t>(id - 1)],
                           SoundFiles[static_cast<std::size_t>(id - 1)], kSoundsSection);
    }
    return true;
}

}  // namespace wk
