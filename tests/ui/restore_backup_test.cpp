// File, Restore Backup: the backup put back after a question that shows what changes, the
// files read again and every page refreshed.

#include "shell/restore_backup.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <filesystem>

#include "page_test_fixture.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::TypeInto;

// The start-up options' auto power-on is in the first section, [WZELKO], beside the language.
std::string Settings(const char* autoPower, const char* offsetX) {
    return std::string("[WZELKO]\r\nLANGUAGE=ENG\r\nAUTOPOWER=") + autoPower +
           "\r\n\r\n[CONTROLLER]\r\nType=RMD\r\n\r\n[MECHAOFFS]\r\noffx=" + offsetX + "\r\n";
}
const std::string kNow = Settings("FALSE", "1.000000");
const std::string kBackedUp = Settings("TRUE", "5.000000");

class RestoreBackup : public test::PageTest {
protected:
    void SetUp() override {
        pages_ = test::TableRows({"MecOffTabSheet", "InitTabSheet"});
        prefix_.WriteWindowsFile("WZELKO.BAK", kBackedUp + '\xFF');
        Start(kNow, pages_);
        // The mechanical offsets page in front, the start-up options behind it.
        Action("KestelGenConf_MecOff")->trigger();
        ASSERT_EQ(window_->PageCtl()->ActivePage(), Page("MecOffTabSheet"));
    }
    void Restore() const { Action("KestelFile_Restore")->trigger(); }

    std::vector<PageEntry> pages_;
};

TEST_F(RestoreBackup, TheEntryFollowsSaveInTheFileMenu) {
    auto* file = Find<QMenu>("KestelFile_PopUp");
    ASSERT_NE(file, nullptr);
    const QList<QAction*> actions = file->actions();
    ASSERT_GE(actions.size(), 3);
    EXPECT_EQ(actions[0]->objectName(), QStringLiteral("KestelFile_Save"));
    EXPECT_EQ(actions[1]->objectName(), QStringLiteral("KestelFile_Restore"));
    EXPECT_EQ(actions[1]->text(), QStringLiteral("&Restore Backup..."));
    EXPECT_TRUE(actions[2]->isSeparator());
}

TEST_F(RestoreBackup, TheQuestionShowsWhatTheRestoreChangesAndNoChangesNothing) {
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    const MessageBoxRequest& question = script_.Shown()[0];
    EXPECT_EQ(question.type, MB_YESNO | MB_ICONQUESTION);
    EXPECT_EQ(question.caption, kRestoreCaption);
    EXPECT_EQ(question.text, RestoreQuestionText(false));
    EXPECT_EQ(question.details,
              "WZELKO.INI -> WZELKO.BAK:\n"
              "  [WZELKO] AUTOPOWER: \"FALSE\" -> \"TRUE\"\n"
              "  [MECHAOFFS] offx: \"1.000000\" -> \"5.000000\"\n");
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, YesRestoresReadsTheFilesAgainAndRefreshesEveryPage) {
    auto* autoPower = Find<QCheckBox>("pCHB_AutoPower");
    ASSERT_NE(autoPower, nullptr);
    EXPECT_FALSE(autoPower->isChecked());
    script_.Answer(IDYES);
    Restore();
    EXPECT_EQ(Bytes(), kBackedUp);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kNow + '\xFF');
    EXPECT_DOUBLE_EQ(Record().OffsetX, 5.0);
    EXPECT_TRUE(Record().AutoPower);
    EXPECT_FALSE(Record().Modified);
    // The page shown and the page behind it both show the restored values.
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("5"));
    EXPECT_TRUE(autoPower->isChecked());
}

TEST_F(RestoreBackup, RestoringTwiceGivesBackTheFilesAndTheBackup) {
    script_.Answer(IDYES);
    Restore();
    script_.Answer(IDYES);
    Restore();
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, UnsavedChangesAreNamedInTheQuestionAndKeptOnNo) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));  // still in the field
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, RestoreQuestionText(true));
    EXPECT_NE(script_.Shown()[0].text.find("not saved are lost"), std::string::npos);
    EXPECT_TRUE(Record().Modified);
    EXPECT_DOUBLE_EQ(Record().OffsetX, 9.0);
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("9"));
    EXPECT_EQ(Bytes(), kNow);
}

TEST_F(RestoreBackup, UnsavedChangesAreLostOnYes) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));
    script_.Answer(IDYES);
    Restore();
    EXPECT_DOUBLE_EQ(Record().OffsetX, 5.0);
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("5"));
    // Nothing left to save: leaving asks nothing.
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(script_.Count(), 1);
}

TEST_F(RestoreBackup, AFailedRestoreSaysWhichFileAndWhyAndChangesNothing) {
    fs::permissions(prefix_.WindowsFile("WZELKO.INI"), fs::perms::owner_read);
    script_.Answer(IDYES);
    Restore();
    ASSERT_EQ(script_.Count(), 2);
    const MessageBoxRequest& failure = script_.Shown()[1];
    EXPECT_EQ(failure.type, MB_OK | MB_ICONSTOP);
    EXPECT_NE(failure.text.find("could not be restored"), std::string::npos) << failure.text;
    EXPECT_NE(failure.text.find("WZELKO.INI"), std::string::npos) << failure.text;
    EXPECT_NE(failure.text.find("read-only"), std::string::npos) << failure.text;
    EXPECT_NE(failure.text.find("No file was changed."), std::string::npos);
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, WithoutABackupItSaysSoAndChangesNothing) {
    fs::remove(prefix_.WindowsFile("WZELKO.BAK"));
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].type, MB_OK | MB_ICONSTOP);
    EXPECT_NE(script_.Shown()[0].text.find("There is no backup to restore"), std::string::npos);
    EXPECT_EQ(Bytes(), kNow);
}

}  // namespace
}  // namespace wk
