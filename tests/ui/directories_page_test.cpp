// The directories page: five working directories, upper case once they pass the page, and the
// browse button that opens the directory dialog for the directory edit entered last.

#include "pages/directories_page.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <string>

#include "dialogs/open_dir_dialog.h"
#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::PressTab;
using test::TypeInto;

const char* const kDirectories =
    "SYSTEM_DIR=C:\\WZELKO\r\nDATA_DIR=C:\\WZELKO\\DATA\r\nPPROG_DIR=C:\\WZELKO\\PROG\r\n"
    "MEAS_DIR=C:\\WZELKO\\MEAS\r\nUSER_DIR=C:\\WZELKO\\USER\r\n";

std::string DirectoriesFile(const std::string& wzelkoLines = kDirectories) {
    return "[WZELKO]\r\nLANGUAGE=ENG\r\n" + wzelkoLines +
           "\r\n[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n\r\n"
           "[CONTROLLER]\r\nType=RMD\r\n";
}

class DirectoriesPage : public test::PageTest {
protected:
    DirectoriesPage() {
        for (const char* dir : {"DATA", "PROG", "MEAS", "USER"}) {
            fs::create_directories(prefix_.DriveC() / "WZELKO" / dir);
        }
    }
    void StartDirectories(const std::string& file = DirectoriesFile()) {
        Start(file);
        page_ = dynamic_cast<TDirectoriesPage*>(Page("DirectoriesTabSheet"));
        ASSERT_NE(page_, nullptr);
        window_->PageCtl()->SetActivePage(page_);
        QApplication::processEvents();
    }
    void Enter(const char* edit) const { Edit(edit)->setFocus(Qt::MouseFocusReason); }
    std::string Saved(const char* key) const { return PageTest::Saved("WZELKO", key); }

    TDirectoriesPage* page_ = nullptr;
};

const char* const kEdits[] = {"pSLE_SystemDir", "pSLE_DataDir", "pSLE_PProgDir", "pSLE_MeasDir",
                              "pSLE_UserDir"};

TEST_F(DirectoriesPage, CaptionsComeFromTheLanguageStrings) {
    StartDirectories();
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(18));
    const char* labels[] = {"pST_SystemDir", "pST_DataDir", "pST_PProgDir", "pST_MeasDir",
                            "pST_UserDir"};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(Label(labels[i])->text(), Language(450 + i)) << i;
    EXPECT_EQ(Button("pPB_BrowserDir")->text(), Language(134));
    EXPECT_EQ(page_->OpenDirDialog().windowTitle(), Language(455));
}

TEST_F(DirectoriesPage, ShowsTheFiveDirectories) {
    StartDirectories();
    EXPECT_EQ(Edit("pSLE_SystemDir")->text(), QStringLiteral("C:\\WZELKO"));
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("C:\\WZELKO\\DATA"));
    EXPECT_EQ(Edit("pSLE_PProgDir")->text(), QStringLiteral("C:\\WZELKO\\PROG"));
    EXPECT_EQ(Edit("pSLE_MeasDir")->text(), QStringLiteral("C:\\WZELKO\\MEAS"));
    EXPECT_EQ(Edit("pSLE_UserDir")->text(), QStringLiteral("C:\\WZELKO\\USER"));
}

TEST_F(DirectoriesPage, AWzelkoSectionWithoutDataDirLeavesTheDataDirectoryEmpty) {
    StartDirectories(DirectoriesFile("SYSTEM_DIR=C:\\WZELKO\r\n"));
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QString());
    EXPECT_EQ(Record().DataDir, "");
    TypeAndLeave("pSLE_UserDir", QStringLiteral("D:\\U"));
    Save();
    EXPECT_EQ(Saved("DATA_DIR"), "");
    EXPECT_EQ(Saved("USER_DIR"), "D:\\U");
}

TEST_F(DirectoriesPage, ADataDirOfNoneKeepsTheBuiltInDirectory) {
    StartDirectories(DirectoriesFile("DATA_DIR=none\r\n"));
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("\\WZELKO\\DATA"));
}

TEST_F(DirectoriesPage, ADirectoryTypedInLowerCaseIsStoredShownAndWrittenInUpperCase) {
    StartDirectories();
    TypeAndLeave("pSLE_MeasDir", QStringLiteral("d:\\messungen\\neu"));
    EXPECT_EQ(Edit("pSLE_MeasDir")->text(), QStringLiteral("D:\\MESSUNGEN\\NEU"));
    EXPECT_EQ(Record().MeasDir, "D:\\MESSUNGEN\\NEU");
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("MEAS_DIR"), "D:\\MESSUNGEN\\NEU");
}

TEST_F(DirectoriesPage, TheTextIsNotCheckedAgainstTheDisk) {
    StartDirectories();
    TypeAndLeave("pSLE_UserDir", QStringLiteral("q:\\nowhere"));
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(Record().UserDir, "Q:\\NOWHERE");
}

TEST_F(DirectoriesPage, LeavingAnUntouchedEditChangesNothing) {
    StartDirectories();
    Enter("pSLE_DataDir");
    PressTab(Edit("pSLE_DataDir"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(DirectoriesPage, SaveCommitsTheDirectoryBeingTyped) {
    StartDirectories();
    TypeInto(Edit("pSLE_SystemDir"), QStringLiteral("c:\\w"));
    Save();
    EXPECT_EQ(Saved("SYSTEM_DIR"), "C:\\W");
}

TEST_F(DirectoriesPage, CancelKeepsTheDirectoryBeingTypedAndShowsTheOthersAgain) {
    StartDirectories();
    Record().UserDir = "E:\\ELSEWHERE";
    TypeInto(Edit("pSLE_DataDir"), QStringLiteral("typed"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("typed"));
    EXPECT_EQ(Edit("pSLE_UserDir")->text(), QStringLiteral("E:\\ELSEWHERE"));
}

TEST_F(DirectoriesPage, TabGoesDownTheEditsToTheBrowseButton) {
    StartDirectories();
    Enter("pSLE_SystemDir");
    for (const char* next :
         {"pSLE_DataDir", "pSLE_PProgDir", "pSLE_MeasDir", "pSLE_UserDir", "pPB_BrowserDir"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>(next)) << next;
    }
}

// ---- browse ---------------------------------------------------------------------------------

TEST_F(DirectoriesPage, ClickingBrowseBeforeAnyDirectoryEditWasEnteredOpensNoDialog) {
    StartDirectories();
    EXPECT_EQ(page_->LastDirectoryEdit(), nullptr);
    Click("pPB_BrowserDir");
    EXPECT_EQ(DirectoryAnswers().Runs(), 0);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(DirectoriesPage, TheDialogIsMadeWithThePageAndUsedAgainByEveryBrowse) {
    StartDirectories();
    auto* dialog = Find<TOpenDirDialog>("OpenDirDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog, &page_->OpenDirDialog());
    Enter("pSLE_DataDir");
    CancelDirectory();
    CancelDirectory();
    Click("pPB_BrowserDir");
    Click("pPB_BrowserDir");
    EXPECT_EQ(DirectoryAnswers().Runs(), 2);
    EXPECT_EQ(Find<TOpenDirDialog>("OpenDirDialog"), dialog);
    EXPECT_EQ(window_->findChildren<TOpenDirDialog*>().size(), 1);
}

TEST_F(DirectoriesPage, BrowseOpensTheDialogAtTheDirectoryOfTheEditEnteredLast) {
    StartDirectories();
    Enter("pSLE_PProgDir");
    Enter("pSLE_MeasDir");
    CancelDirectory();
    Click("pPB_BrowserDir");
    EXPECT_EQ(page_->OpenDirDialog().GetDirectory(), "C:\\WZELKO\\MEAS");
    EXPECT_EQ(page_->OpenDirDialog().Drive(), 'C');
}

TEST_F(DirectoriesPage, AChosenDirectoryIsPutInUpperCaseIntoTheEditAndCommittedOnLeavingIt) {
    StartDirectories();
    Enter("pSLE_PProgDir");
    AnswerDirectory("c:\\wzelko\\prog\\new");
    Click("pPB_BrowserDir");
    QLineEdit* edit = Edit("pSLE_PProgDir");
    EXPECT_EQ(edit->text(), QStringLiteral("C:\\WZELKO\\PROG\\NEW"));
    EXPECT_TRUE(edit->isModified());
    EXPECT_TRUE(edit->hasFocus());
    EXPECT_EQ(Record().PProgDir, "C:\\WZELKO\\PROG\\NEW");
    // In the record, but the settings count as changed only once the edit is left.
    EXPECT_FALSE(Record().Modified);
    PressTab(edit);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("PPROG_DIR"), "C:\\WZELKO\\PROG\\NEW");
}

TEST_F(DirectoriesPage, AChosenDirectoryIsSavedWithoutLeavingTheEdit) {
    StartDirectories();
    Enter("pSLE_UserDir");
    AnswerDirectory("C:\\WZELKO\\DATA");
    Click("pPB_BrowserDir");
    Save();
    EXPECT_EQ(Saved("USER_DIR"), "C:\\WZELKO\\DATA");
}

TEST_F(DirectoriesPage, CancellingTheDialogChangesNothing) {
    StartDirectories();
    Enter("pSLE_DataDir");
    CancelDirectory();
    Click("pPB_BrowserDir");
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("C:\\WZELKO\\DATA"));
    EXPECT_FALSE(Edit("pSLE_DataDir")->isModified());
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(DirectoriesPage, ReloadingEverythingMakesTheDataDirectoryTheOneToBrowseFor) {
    StartDirectories();
    Enter("pSLE_UserDir");
    page_->Load(true);
    EXPECT_EQ(page_->LastDirectoryEdit(), Edit("pSLE_DataDir"));
    EXPECT_TRUE(Edit("pSLE_DataDir")->hasFocus());
    AnswerDirectory("C:\\WZELKO\\PROG");
    Click("pPB_BrowserDir");
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("C:\\WZELKO\\PROG"));
    EXPECT_EQ(Edit("pSLE_UserDir")->text(), QStringLiteral("C:\\WZELKO\\USER"));
}

TEST_F(DirectoriesPage, AnsweringNoOnLeavingThePageReadsTheDirectoriesAgain) {
    StartDirectories();
    TypeAndLeave("pSLE_DataDir", QStringLiteral("x:\\lost"));
    script_.Answer(IDNO);
    Action("KestelOther_AxesConvention")->trigger();
    EXPECT_EQ(Record().DataDir, "C:\\WZELKO\\DATA");
    EXPECT_EQ(Edit("pSLE_DataDir")->text(), QStringLiteral("C:\\WZELKO\\DATA"));
    EXPECT_FALSE(Record().Modified);
}

// ---- fuzz -----------------------------------------------------------------------------------

// Random text typed into every directory edit and committed by Tab, by the page's store, by OK
// or by Save: stored in upper case as typed (in the ANSI code page, '?' for what that cannot
// hold), no message, and the file stays readable with every other line as it was.
TEST_F(DirectoriesPage, RandomTextInEveryEditIsStoredInUpperCaseAndNeverDamagesTheFile) {
    const std::string file = DirectoriesFile(std::string(kDirectories) + "KEEP ME=  as is\r\n");
    StartDirectories(file);
    const std::string baseline = SaveUnchanged();
    CloseWindow();

    StartDirectories(file);
    test::RandomText typing(1234);
    std::string* const fields[] = {&Record().SystemDir, &Record().DataDir, &Record().PProgDir,
                                   &Record().MeasDir, &Record().UserDir};
    for (int step = 0; step < 150; ++step) {
        const int index = typing.Below(5);
        QLineEdit* edit = Edit(kEdits[index]);
        test::TypeInto(edit, typing.Next());
        const QString typed = edit->text();
        CommitTyped(edit, kCommits[typing.Below(4)]);
        EXPECT_EQ(script_.Count(), 0) << typed.toStdString();
        EXPECT_EQ(*fields[index], platform::Utf8ToAnsi(typed.toUpper().toStdString()))
            << typed.toStdString();
        page_->Load(true);
    }
    EXPECT_EQ(test::ChangedBeyond(baseline, SaveUnchanged(),
                                  {"WZELKO|SYSTEM_DIR", "WZELKO|DATA_DIR", "WZELKO|PPROG_DIR",
                                   "WZELKO|MEAS_DIR", "WZELKO|USER_DIR"}),
              std::set<std::string>{});
}

}  // namespace
}  // namespace wk
