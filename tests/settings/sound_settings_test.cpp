#include "settings/sound_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class SoundSettingsTest : public test::SettingsFileTest {};

TEST_F(SoundSettingsTest, ConstructorStartsIdsOneAndTwoWithTheTuTextsAndLeavesThreeAndFourEmpty) {
    File("");
    const SoundSettings sounds{ControllerFlags{}};
    EXPECT_EQ(sounds.GetSound(1, false), "pick tu");
    EXPECT_EQ(sounds.GetSound(2, false), "del tu");
    EXPECT_EQ(sounds.GetSound(3, false), "");
    EXPECT_EQ(sounds.GetSound(4, false), "");
    EXPECT_EQ(sounds.GetSound(5, false), "end measure");
    EXPECT_EQ(sounds.GetSound(11, false), "input");
    EXPECT_EQ(sounds.GetSound(12, false), "init.wav");
    EXPECT_EQ(sounds.GetSound(13, false), "home.wav");
    EXPECT_EQ(sounds.Location, "\\WZELKO\\SOUNDS");
}

TEST_F(SoundSettingsTest, MissingSoundsSectionYieldsEmptyLocationEmptyFilesAndAllSwitchesOff) {
    File("");
    auto record = ReadRecord();
    EXPECT_EQ(record->Location, "");
    for (int id = 1; id <= 13; ++id) EXPECT_EQ(record->GetSound(id, false), "") << id;
    EXPECT_FALSE(record->PlayGeneral);
    EXPECT_FALSE(record->PlayPowerOn);
    EXPECT_FALSE(record->PlayZeroes);
    EXPECT_FALSE(record->PowerOnContinuous);
    EXPECT_FALSE(record->ZeroesContinuous);
}

TEST_F(SoundSettingsTest, LocationNoneKeepsTheDefaultButLowerCaseNoneIsTakenAsText) {
    File(Crlf({"[SOUNDS]", "location=NONE"}));
    EXPECT_EQ(ReadRecord()->Location, "\\WZELKO\\SOUNDS");
    File(Crlf({"[SOUNDS]", "location=none"}));
    EXPECT_EQ(ReadRecord()->Location, "none");
}

TEST_F(SoundSettingsTest, EnableIsYesOrNoAndTheOtherSwitchesTrueOrFalse) {
    File(Crlf({"[SOUNDS]", "enable=yes", "[Wzelko]", "PLAY SOUNDS=TRUE", "CONTINUOUS SOUND=TRUE",
               "[INIT]", "PLAY SOUNDS=FALSE", "PLAY CONTINUOUS=TRUE"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->PlayGeneral);
    EXPECT_TRUE(record->PlayPowerOn);
    EXPECT_TRUE(record->PowerOnContinuous);
    EXPECT_FALSE(record->PlayZeroes);
    EXPECT_TRUE(record->ZeroesContinuous);
    record->PowerOnContinuous = false;  // unchecking "Play" for power-on clears it
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SOUNDS", "enable"), "Yes");
    EXPECT_EQ(ValueIn(kWzelkoIni, "Wzelko", "CONTINUOUS SOUND"), "FALSE");
    record->PlayGeneral = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SOUNDS", "enable"), "No");
}

TEST_F(SoundSettingsTest, FilesAreWrittenInTheApplicationsOrderWithEmptyValuesKept) {
    File("");
    auto record = ReadRecord();
    record->SetSound(12, "C:\\S\\INIT.WAV");
    record->SetSound(8, "C:\\S\\ERR.WAV");
    record->WriteAll();
    const std::string file = prefix.ReadFile("WZELKO.INI");
    EXPECT_NE(file.find("[SOUNDS]\r\nenable=No\r\nlocation=\r\npick tf=\r\ndel tf=\r\npick tu=\r\n"
                        "del tu=\r\nend measure=\r\nend compute=\r\nend macro=\r\n"
                        "error=C:\\S\\ERR.WAV\r\nmeasure error=\r\nemergency=\r\n"
                        "init=C:\\S\\INIT.WAV\r\ninput=\r\nhome=\r\n"),
              std::string::npos)
        << file;
}

TEST_F(SoundSettingsTest, GetSoundGivesTheFileNamePartAndIgnoresIdsOutsideTheTable) {
    File("");
    auto record = ReadRecord();
    record->SetSound(12, "init.wav\\\\WZELKO\\SOUNDS");
    EXPECT_EQ(record->GetSound(12, true), "SOUNDS");
    record->SetSound(3, "C:\\WZELKO\\SOUNDS\\PICK.WAV");
    EXPECT_EQ(record->GetSound(3, true), "PICK.WAV");
    record->SetSound(0, "x");
    record->SetSound(14, "x");
    EXPECT_EQ(record->GetSound(0, false), "");
    EXPECT_EQ(record->GetSound(14, false), "");
}

}  // namespace
}  // namespace wk
