// The sounds page: the power-on, zeroes and event sounds, their switches, the wave files of the
// sounds location, and the Test button, which plays for real through the sound plugin and is
// tested here through a player that records what it is asked to play.

#include "pages/sounds_page.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "support/file_bytes.h"
#include "wave_files.h"
#include "widgets/page_control.h"
#include "widgets/wave_player_loader.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::PressTab;
using test::TypeInto;

const char* const kSounds =
    "[SOUNDS]\r\nenable=Yes\r\nlocation=\\WZELKO\\SOUNDS\r\n"
    "pick tf=C:\\WZELKO\\SOUNDS\\PICK.WAV\r\ndel tf=\r\npick tu=C:\\WZELKO\\SOUNDS\\PICK.WAV\r\n"
    "del tu=\r\nend measure=C:\\WZELKO\\SOUNDS\\ENDMEAS.WAV\r\nend compute=\r\nend macro=\r\n"
    "error=C:\\WZELKO\\SOUNDS\\ERROR.WAV\r\nmeasure "
    "error=\r\nemergency=C:\\WZELKO\\SOUNDS\\GONE.WAV\r\n"
    "init=C:\\WZELKO\\SOUNDS\\INIT.WAV\r\ninput=C:\\WZELKO\\SOUNDS\\NOTES.WAV\r\n"
    "home=C:\\WZELKO\\SOUNDS\\HOME.WAV\r\n";

// A settings file in English with the given lines in [WZELKO] and [INIT], and `sounds`.
std::string SoundsFile(const std::string& sounds = kSounds,
                       const std::string& wzelko = "PLAY SOUNDS=TRUE\r\nCONTINUOUS SOUND=TRUE\r\n",
                       const std::string& init = "PLAY SOUNDS=TRUE\r\nPLAY CONTINUOUS=FALSE\r\n") {
    return "[WZELKO]\r\nLANGUAGE=ENG\r\n" + wzelko +
           "\r\n[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n\r\n"
           "[CONTROLLER]\r\nType=RMD\r\n\r\n[INIT]\r\n" +
           init + "\r\n" + sounds;
}

// Records what it is asked to play; the test answers the reports.
class RecordingPlayer : public WavePlayer {
public:
    struct Log {
        std::vector<QString> played;
        std::vector<Report> reports;
        int made = 0;
    };
    explicit RecordingPlayer(Log& log) : log_(log) {}
    void Play(const QString& hostPath, Report report) override {
        log_.played.push_back(hostPath);
        log_.reports.push_back(std::move(report));
    }

private:
    Log& log_;
};

class SoundsPage : public test::PageTest {
protected:
    SoundsPage() {
        sounds_ = prefix_.DriveC() / "WZELKO" / "SOUNDS";
        fs::create_directories(sounds_);
        for (const char* name : {"ERROR.WAV", "HOME.WAV", "INIT.WAV", "PICK.WAV", "beep.wav"}) {
            test::WriteFileBytes(sounds_ / name, test::BeepWave());
        }
        test::WriteFileBytes(sounds_ / "NOTES.WAV", "these are notes, not a sound");
        test::WriteFileBytes(sounds_ / "README.TXT", "not listed");
        fs::create_directories(sounds_ / "OLD.WAV");  // a folder, not a file
        SetWavePlayerSource([this] {
            ++log_.made;
            return std::make_unique<RecordingPlayer>(log_);
        });
    }
    ~SoundsPage() override { SetWavePlayerSource({}); }

    void StartSounds(const std::string& file = SoundsFile()) {
        Start(file);
        page_ = dynamic_cast<TSoundsPage*>(Page("SoundsTabSheet"));
        ASSERT_NE(page_, nullptr);
        window_->PageCtl()->SetActivePage(page_);
        QApplication::processEvents();
    }
    QListWidget* Events() const { return Find<QListWidget>("pLB_EventsList"); }
    QListWidget* Files() const { return Find<QListWidget>("pFLB_FilesList"); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    void ClickBox(const char* name) const {
        Check(name)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(Check(name), Qt::Key_Space);
    }
    static void ClickRow(QListWidget* list, int row) {
        const QRect rect = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
    }
    static void DoubleClickRow(QListWidget* list, int row) {
        const QRect rect = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rect.center());
    }
    int FileRow(const QString& name) const {
        const QList<QListWidgetItem*> found = Files()->findItems(name, Qt::MatchExactly);
        return found.isEmpty() ? -1 : Files()->row(found.front());
    }
    // The event's row text as the page forms it: "%-15s [%s]".
    static QString Row(int id, const QString& file) {
        return Language(319 + id).leftJustified(15, QLatin1Char(' ')) + QStringLiteral(" [") +
               file + QStringLiteral("]");
    }
    QString Host(const char* name) const {
        return QString::fromStdString(fs::canonical(sounds_ / name).string());
    }
    std::string Saved(const char* section, const char* key) const {
        return PageTest::Saved(section, key);
    }
    QString StatusLine() const { return Label("pBottBar")->text(); }

    fs::path sounds_;
    RecordingPlayer::Log log_;
    TSoundsPage* page_ = nullptr;
};

// ---- captions and lists ---------------------------------------------------------------------

TEST_F(SoundsPage, CaptionsComeFromTheLanguageStrings) {
    StartSounds();
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(17));
    EXPECT_EQ(Label("pST_Directory")->text(), Language(129));
    EXPECT_EQ(Find<QGroupBox>("pGBX_ContPowerOn")->title(), Language(331));
    EXPECT_EQ(Find<QGroupBox>("pGBX_ContZeroes")->title(), Language(335));
    EXPECT_EQ(Find<QGroupBox>("pGBX_PlayGeneral")->title(), Language(336));
    EXPECT_EQ(Label("pST_FnamePowerOn")->text(), Language(332));
    EXPECT_EQ(Label("pST_FnameZeroes")->text(), Language(332));
    for (const char* play : {"pCHB_PlayPowerOn", "pCHB_PlayZeroes", "pCHB_PlayGeneral"}) {
        EXPECT_EQ(Check(play)->text(), Language(333)) << play;
    }
    EXPECT_EQ(Button("pPB_Test")->text(), Language(333));
    EXPECT_EQ(Check("pCHB_ContPowerOn")->text(), Language(334));
    EXPECT_EQ(Check("pCHB_ContZeroes")->text(), Language(334));
    EXPECT_EQ(Label("pST_EventsList")->text(), Language(337));
    EXPECT_EQ(Label("pST_FilesList")->text(), Language(338));
}

TEST_F(SoundsPage, TheEventsListShowsEachCaptionPaddedAndItsFileName) {
    StartSounds();
    ASSERT_EQ(Events()->count(), 11);
    EXPECT_EQ(Events()->item(0)->text(), Row(1, QStringLiteral("PICK.WAV")));
    EXPECT_EQ(Events()->item(4)->text(), Row(5, QStringLiteral("ENDMEAS.WAV")));
    EXPECT_EQ(Events()->item(7)->text(), Row(8, QStringLiteral("ERROR.WAV")));
    EXPECT_EQ(Events()->currentRow(), 0);
    // Padded to 15 characters: "Error" and its bracket are 16 apart.
    EXPECT_TRUE(Events()->item(7)->text().startsWith(Language(327) + QString(10, QLatin1Char(' ')) +
                                                     QStringLiteral(" [")));
}

TEST_F(SoundsPage, AnEventWithoutAFileShowsItsPaddedCaptionFollowedByEmptyBrackets) {
    StartSounds();
    EXPECT_EQ(Events()->item(1)->text(), Row(2, QString()));
    EXPECT_TRUE(Events()->item(1)->text().endsWith(QStringLiteral(" []")));
}

TEST_F(SoundsPage, ShowsTheLocationTheStartSoundNamesAndTheSwitches) {
    StartSounds();
    EXPECT_EQ(Edit("pSLE_Location")->text(), QStringLiteral("\\WZELKO\\SOUNDS"));
    EXPECT_TRUE(Edit("pSLE_Location")->isReadOnly());
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QStringLiteral("INIT.WAV"));
    EXPECT_EQ(Edit("pSLE_FnameZeroes")->text(), QStringLiteral("HOME.WAV"));
    EXPECT_TRUE(Check("pCHB_PlayPowerOn")->isChecked());
    EXPECT_TRUE(Check("pCHB_ContPowerOn")->isChecked());
    EXPECT_TRUE(Check("pCHB_PlayZeroes")->isChecked());
    EXPECT_TRUE(Check("pCHB_PlayGeneral")->isChecked());
}

TEST_F(SoundsPage, ASettingsFileWithoutSoundsGivesNoLocationNoFilesAndEverySwitchOff) {
    StartSounds(SoundsFile("", "", ""));
    EXPECT_EQ(Edit("pSLE_Location")->text(), QString());
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QString());
    EXPECT_EQ(Edit("pSLE_FnameZeroes")->text(), QString());
    for (int row = 0; row < 11; ++row) {
        EXPECT_EQ(Events()->item(row)->text(), Row(row + 1, QString())) << row;
    }
    for (const char* name :
         {"pCHB_PlayPowerOn", "pCHB_ContPowerOn", "pCHB_PlayZeroes", "pCHB_PlayGeneral"}) {
        EXPECT_FALSE(Check(name)->isChecked()) << name;
    }
    EXPECT_EQ(Files()->count(), 0);
    ClickBox("pCHB_PlayGeneral");
    ClickBox("pCHB_PlayGeneral");
    Save();
    EXPECT_EQ(Saved("SOUNDS", "location"), "");
    EXPECT_EQ(Saved("SOUNDS", "init"), "");
    EXPECT_EQ(Saved("SOUNDS", "error"), "");
    EXPECT_EQ(Saved("SOUNDS", "enable"), "No");
    EXPECT_EQ(Saved("WZELKO", "PLAY SOUNDS"), "FALSE");
}

TEST_F(SoundsPage, LocationNoneKeepsTheDefaultAndNoneInLowerCaseIsALocationOfItsOwn) {
    StartSounds(SoundsFile("[SOUNDS]\r\nlocation=NONE\r\n"));
    EXPECT_EQ(Edit("pSLE_Location")->text(), QStringLiteral("\\WZELKO\\SOUNDS"));
    CloseWindow();
    StartSounds(SoundsFile("[SOUNDS]\r\nlocation=none\r\n"));
    EXPECT_EQ(Edit("pSLE_Location")->text(), QStringLiteral("none"));
}

// ---- switches -------------------------------------------------------------------------------

TEST_F(SoundsPage, UncheckingPlayForPowerOnAlsoClearsContinuousWhichIsWrittenAsFalse) {
    StartSounds();
    ClickBox("pCHB_PlayPowerOn");
    EXPECT_FALSE(Record().PlayPowerOn);
    EXPECT_FALSE(Record().PowerOnContinuous);
    EXPECT_FALSE(Check("pCHB_ContPowerOn")->isChecked());
    EXPECT_FALSE(Check("pCHB_ContPowerOn")->isEnabled());
    Save();
    EXPECT_EQ(Saved("WZELKO", "PLAY SOUNDS"), "FALSE");
    EXPECT_EQ(Saved("WZELKO", "CONTINUOUS SOUND"), "FALSE");
}

TEST_F(SoundsPage, ContinuousPowerOnIsOfferedOnlyWhileThePowerOnSoundIsPlayed) {
    StartSounds(SoundsFile(kSounds, "PLAY SOUNDS=FALSE\r\n"));
    EXPECT_FALSE(Check("pCHB_ContPowerOn")->isEnabled());
    ClickBox("pCHB_PlayPowerOn");
    EXPECT_TRUE(Check("pCHB_ContPowerOn")->isEnabled());
    ClickBox("pCHB_ContPowerOn");
    EXPECT_TRUE(Record().PowerOnContinuous);
    Save();
    EXPECT_EQ(Saved("WZELKO", "PLAY SOUNDS"), "TRUE");
    EXPECT_EQ(Saved("WZELKO", "CONTINUOUS SOUND"), "TRUE");
}

TEST_F(SoundsPage, ContinuousZeroesIsNeverShownButItsKeyIsKeptAndClearedWithPlay) {
    StartSounds(SoundsFile(kSounds, "", "PLAY SOUNDS=TRUE\r\nPLAY CONTINUOUS=TRUE\r\n"));
    EXPECT_FALSE(Check("pCHB_ContZeroes")->isVisibleTo(page_));
    EXPECT_TRUE(Check("pCHB_ContZeroes")->isEnabled());
    EXPECT_TRUE(Record().ZeroesContinuous);
    ClickBox("pCHB_PlayZeroes");
    EXPECT_FALSE(Record().PlayZeroes);
    EXPECT_FALSE(Record().ZeroesContinuous);
    EXPECT_FALSE(Check("pCHB_ContZeroes")->isEnabled());
    Save();
    EXPECT_EQ(Saved("INIT", "PLAY SOUNDS"), "FALSE");
    EXPECT_EQ(Saved("INIT", "PLAY CONTINUOUS"), "FALSE");
}

TEST_F(SoundsPage, PlayingTheEventSoundsIsWrittenYesOrNo) {
    StartSounds();
    ClickBox("pCHB_PlayGeneral");
    EXPECT_FALSE(Record().PlayGeneral);
    Save();
    EXPECT_EQ(Saved("SOUNDS", "enable"), "No");
}

TEST_F(SoundsPage, WithNoWindowListedTheListLabelsAreDimmed) {
    StartSounds();
    EXPECT_TRUE(Label("pST_EventsList")->isEnabled());
    for (ColourEntry& entry : Record().ColourTable) entry.Listed = false;
    page_->Initialise();
    EXPECT_FALSE(Label("pST_EventsList")->isEnabled());
    EXPECT_FALSE(Label("pST_FilesList")->isEnabled());
}

// ---- the start sounds' names ----------------------------------------------------------------

TEST_F(SoundsPage, ATypedPowerOnNameIsStoredBeforeTheLocationAndACancelShowsSounds) {
    StartSounds();
    TypeAndLeave("pSLE_FnamePowerOn", QStringLiteral("init.wav"));
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QStringLiteral("init.wav"));
    EXPECT_EQ(Record().GetSound(SoundSettings::kPowerOnSoundId, false),
              "init.wav\\\\WZELKO\\SOUNDS");
    EXPECT_TRUE(Record().Modified);
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QStringLiteral("SOUNDS"));
    Save();
    EXPECT_EQ(Saved("SOUNDS", "init"), "init.wav\\\\WZELKO\\SOUNDS");
}

TEST_F(SoundsPage, ATypedZeroesNameIsStoredTheSameWay) {
    StartSounds();
    TypeAndLeave("pSLE_FnameZeroes", QStringLiteral("HOME2.WAV"));
    Save();
    EXPECT_EQ(Saved("SOUNDS", "home"), "HOME2.WAV\\\\WZELKO\\SOUNDS");
}

TEST_F(SoundsPage, LeavingANameAgainWithoutTypingStoresNothingMore) {
    StartSounds();
    TypeAndLeave("pSLE_FnamePowerOn", QStringLiteral("a.wav"));
    Save();
    EXPECT_FALSE(Record().Modified);
    Edit("pSLE_FnamePowerOn")->setFocus(Qt::MouseFocusReason);
    PressTab(Edit("pSLE_FnamePowerOn"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(SoundsPage, SaveCommitsTheNameBeingTyped) {
    StartSounds();
    TypeInto(Edit("pSLE_FnameZeroes"), QStringLiteral("Z.WAV"));
    Save();
    EXPECT_EQ(Saved("SOUNDS", "home"), "Z.WAV\\\\WZELKO\\SOUNDS");
}

TEST_F(SoundsPage, CancelKeepsTheNameBeingTypedAndShowsTheOtherAgain) {
    StartSounds();
    Record().SetSound(SoundSettings::kZeroesSoundId, "C:\\X\\OTHER.WAV");
    TypeInto(Edit("pSLE_FnamePowerOn"), QStringLiteral("typed"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QStringLiteral("typed"));
    EXPECT_EQ(Edit("pSLE_FnameZeroes")->text(), QStringLiteral("OTHER.WAV"));
}

TEST_F(SoundsPage, EnteringANameEditMakesItTheFileTargetAndMarksItsLabel) {
    StartSounds();
    EXPECT_EQ(page_->FileTarget(), TSoundsPage::kSelectedEvent);
    EXPECT_TRUE(Label("pST_EventsList")->font().bold());
    Edit("pSLE_FnameZeroes")->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(page_->FileTarget(), TSoundsPage::kZeroesFile);
    EXPECT_EQ(page_->LastSelection(), TSoundsPage::kZeroesFile);
    EXPECT_TRUE(Label("pST_FnameZeroes")->font().bold());
    EXPECT_FALSE(Label("pST_EventsList")->font().bold());
}

// ---- the file list --------------------------------------------------------------------------

TEST_F(SoundsPage, TheFileListShowsTheWaveFilesOfTheLocationWhateverTheirCase) {
    StartSounds();
    QStringList shown;
    for (int row = 0; row < Files()->count(); ++row) shown << Files()->item(row)->text();
    EXPECT_EQ(shown, (QStringList{"beep.wav", "ERROR.WAV", "HOME.WAV", "INIT.WAV", "NOTES.WAV",
                                  "PICK.WAV"}));
    EXPECT_EQ(page_->FileListFolder(), QString::fromStdString(fs::canonical(sounds_).string()));
}

TEST_F(SoundsPage, ALocationThatIsNoDirectoryLeavesTheFileListEmpty) {
    StartSounds(SoundsFile("[SOUNDS]\r\nlocation=\\NOWHERE\r\n"));
    EXPECT_EQ(Files()->count(), 0);
    EXPECT_TRUE(page_->FileListFolder().isEmpty());
}

TEST_F(SoundsPage, ALocationWithADriveIsListedToo) {
    StartSounds(SoundsFile("[SOUNDS]\r\nlocation=c:\\wzelko\\sounds\r\n"));
    EXPECT_EQ(Files()->count(), 6);
}

TEST_F(SoundsPage, DoubleClickingAFileGivesItToTheSelectedEvent) {
    StartSounds();
    ClickRow(Events(), 7);  // "error"
    DoubleClickRow(Files(), FileRow(QStringLiteral("beep.wav")));
    EXPECT_EQ(Record().GetSound(8, false), "C:\\WZELKO\\SOUNDS\\beep.wav");
    EXPECT_EQ(Events()->item(7)->text(), Row(8, QStringLiteral("beep.wav")));
    EXPECT_EQ(Events()->currentRow(), 7);
    EXPECT_FALSE(Button("pPB_Test")->isEnabled());
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("SOUNDS", "error"), "C:\\WZELKO\\SOUNDS\\beep.wav");
}

TEST_F(SoundsPage, BeforeAnyClickAPickedFileGoesToTheEventShownSelected) {
    StartSounds();
    DoubleClickRow(Files(), FileRow(QStringLiteral("HOME.WAV")));
    EXPECT_EQ(Record().GetSound(1, false), "C:\\WZELKO\\SOUNDS\\HOME.WAV");
    EXPECT_EQ(Events()->item(0)->text(), Row(1, QStringLiteral("HOME.WAV")));
}

TEST_F(SoundsPage, DoubleClickingAFileAfterEnteringThePowerOnEditSetsThePowerOnSound) {
    StartSounds();
    Edit("pSLE_FnamePowerOn")->setFocus(Qt::MouseFocusReason);
    DoubleClickRow(Files(), FileRow(QStringLiteral("PICK.WAV")));
    EXPECT_EQ(Edit("pSLE_FnamePowerOn")->text(), QStringLiteral("PICK.WAV"));
    Save();
    EXPECT_EQ(Saved("SOUNDS", "init"), "C:\\WZELKO\\SOUNDS\\PICK.WAV");
    EXPECT_EQ(Saved("SOUNDS", "home"), "C:\\WZELKO\\SOUNDS\\HOME.WAV");
}

TEST_F(SoundsPage, DoubleClickingAFileAfterEnteringTheZeroesEditSetsTheZeroesSound) {
    StartSounds();
    Edit("pSLE_FnameZeroes")->setFocus(Qt::MouseFocusReason);
    DoubleClickRow(Files(), FileRow(QStringLiteral("ERROR.WAV")));
    EXPECT_EQ(Edit("pSLE_FnameZeroes")->text(), QStringLiteral("ERROR.WAV"));
    Save();
    EXPECT_EQ(Saved("SOUNDS", "home"), "C:\\WZELKO\\SOUNDS\\ERROR.WAV");
}

TEST_F(SoundsPage, SelectingAFileMakesItWhatTestPlays) {
    StartSounds();
    ClickRow(Files(), FileRow(QStringLiteral("PICK.WAV")));
    EXPECT_EQ(page_->LastSelection(), TSoundsPage::kListedFile);
    EXPECT_TRUE(Button("pPB_Test")->isEnabled());
    // The file target stays: a double-click still goes to the selected event.
    EXPECT_EQ(page_->FileTarget(), TSoundsPage::kSelectedEvent);
}

// ---- the Test button ------------------------------------------------------------------------

TEST_F(SoundsPage, TestPlaysWhatWasSelectedLastFoundThroughThePrefix) {
    StartSounds();
    Click("pPB_Test");  // the event shown selected: "pick tf"
    Edit("pSLE_FnamePowerOn")->setFocus(Qt::MouseFocusReason);
    Click("pPB_Test");
    Edit("pSLE_FnameZeroes")->setFocus(Qt::MouseFocusReason);
    Click("pPB_Test");
    ClickRow(Files(), FileRow(QStringLiteral("beep.wav")));
    Click("pPB_Test");
    ClickRow(Events(), 7);
    Click("pPB_Test");
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(log_.played,
              (std::vector<QString>{Host("PICK.WAV"), Host("INIT.WAV"), Host("HOME.WAV"),
                                    Host("beep.wav"), Host("ERROR.WAV")}));
}

TEST_F(SoundsPage, ThePlayerIsMadeOnTheFirstTestAndKept) {
    StartSounds();
    EXPECT_EQ(log_.made, 0);
    Click("pPB_Test");
    Click("pPB_Test");
    EXPECT_EQ(log_.made, 1);
    EXPECT_EQ(log_.played.size(), 2u);
}

TEST_F(SoundsPage, TestOfAMissingFileSaysSoAndPlaysNothing) {
    StartSounds();
    ClickRow(Events(), 9);  // "emergency": GONE.WAV
    Click("pPB_Test");
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_NE(script_.Shown()[0].text.find("C:\\WZELKO\\SOUNDS\\GONE.WAV does not exist"),
              std::string::npos)
        << script_.Shown()[0].text;
    EXPECT_TRUE(log_.played.empty());
}

TEST_F(SoundsPage, TestOfAFileThatIsNoWaveFileSaysSo) {
    StartSounds();
    ClickRow(Events(), 10);  // "input": NOTES.WAV
    Click("pPB_Test");
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_NE(script_.Shown()[0].text.find("is not a wave file"), std::string::npos);
    EXPECT_TRUE(log_.played.empty());
}

TEST_F(SoundsPage, TestOfAnEventWithoutAFileSaysSo) {
    StartSounds();
    ClickRow(Events(), 1);
    Click("pPB_Test");
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "No sound file is named for this sound.");
    EXPECT_TRUE(log_.played.empty());
}

TEST_F(SoundsPage, TestOfATypedNamePlaysTheStoredValueAsItStands) {
    StartSounds();
    TypeAndLeave("pSLE_FnamePowerOn", QStringLiteral("INIT.WAV"));
    Edit("pSLE_FnamePowerOn")->setFocus(Qt::MouseFocusReason);
    Click("pPB_Test");
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_NE(script_.Shown()[0].text.find("INIT.WAV\\\\WZELKO\\SOUNDS does not exist"),
              std::string::npos)
        << script_.Shown()[0].text;
    EXPECT_TRUE(log_.played.empty());
}

TEST_F(SoundsPage, WhatBecameOfTheSoundIsNotedInTheStatusLine) {
    StartSounds();
    Click("pPB_Test");
    ASSERT_EQ(log_.reports.size(), 1u);
    EXPECT_EQ(StatusLine(), QStringLiteral("Loading PICK.WAV ..."));
    log_.reports[0](WavePlayer::Outcome::Playing, QStringLiteral("Speakers"));
    EXPECT_EQ(StatusLine(), QStringLiteral("Playing PICK.WAV on Speakers"));
    Click("pPB_Test");
    log_.reports[1](WavePlayer::Outcome::NoAudioDevice,
                    QStringLiteral("this machine has no audio output"));
    EXPECT_EQ(StatusLine(),
              QStringLiteral("PICK.WAV is not played: this machine has no audio output"));
    Click("pPB_Test");
    log_.reports[2](WavePlayer::Outcome::CannotPlay, QStringLiteral("damaged"));
    EXPECT_EQ(StatusLine(), QStringLiteral("PICK.WAV cannot be played: damaged"));
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(SoundsPage, WithoutTheSoundPluginTestSaysSoAndGoesOn) {
    SetWavePlayerSource([] { return std::unique_ptr<WavePlayer>(); });
    StartSounds();
    Click("pPB_Test");
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text.rfind("Sounds cannot be played: ", 0), 0u);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(SoundsPage, TestPlaysForRealThroughTheSoundPluginWithoutBlocking) {
    SetWavePlayerSource({});
    StartSounds();
    QElapsedTimer clock;
    clock.start();
    Click("pPB_Test");
    // Asynchronous: the click returns before the sound system has answered.
    EXPECT_LT(clock.elapsed(), 2000);
    EXPECT_EQ(script_.Count(), 0);
    while (StatusLine().startsWith(QStringLiteral("Loading")) && clock.elapsed() < 10000) {
        QTest::qWait(20);
    }
    // A machine with an audio device plays the file; one without says so.
    EXPECT_TRUE(StatusLine().startsWith(QStringLiteral("Playing PICK.WAV")) ||
                StatusLine().startsWith(QStringLiteral("PICK.WAV is not played")))
        << StatusLine().toStdString();
}

// ---- fuzz -----------------------------------------------------------------------------------

// Random text typed into both name edits and committed by Tab, by the page's store, by OK or by
// Save: it is stored before the location, as typed (in the ANSI code page, '?' for what that
// cannot hold), no message is shown, and the file stays readable with every other line as it was.
TEST_F(SoundsPage, RandomTextInTheNameEditsIsStoredBeforeTheLocationAndNeverDamagesTheFile) {
    const std::string file = SoundsFile(std::string(kSounds) + "\r\n[OTHER]\r\nkept = as  is \r\n");
    StartSounds(file);
    const std::string baseline = SaveUnchanged();
    CloseWindow();

    StartSounds(file);
    test::RandomText typing(4711);
    const struct {
        const char* edit;
        int id;
    } edits[] = {{"pSLE_FnamePowerOn", SoundSettings::kPowerOnSoundId},
                 {"pSLE_FnameZeroes", SoundSettings::kZeroesSoundId}};
    for (int step = 0; step < 120; ++step) {
        const auto& target = edits[typing.Below(2)];
        QLineEdit* edit = Edit(target.edit);
        test::TypeInto(edit, typing.Next());
        const QString typed = edit->text();
        CommitTyped(edit, kCommits[typing.Below(4)]);
        EXPECT_EQ(script_.Count(), 0) << typed.toStdString();
        EXPECT_EQ(Record().GetSound(target.id, false),
                  platform::Utf8ToAnsi(typed.toStdString()) + "\\\\WZELKO\\SOUNDS")
            << typed.toStdString();
        page_->Load(true);
    }
    const std::string saved = SaveUnchanged();
    EXPECT_EQ(test::ChangedBeyond(baseline, saved, {"SOUNDS|INIT", "SOUNDS|HOME"}),
              std::set<std::string>{});
    for (const char* key : {"init", "home"}) {
        EXPECT_NE(test::IniValue(saved, "SOUNDS", key).find("\\\\WZELKO\\SOUNDS"),
                  std::string::npos)
            << key;
    }
}

}  // namespace
}  // namespace wk
