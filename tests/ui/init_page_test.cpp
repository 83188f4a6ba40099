// The start-up options page: the chain of automatic steps at start with their enabling rules,
// the exit code, the part-program files, and the system files loaded at start.

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::ChooseItem;
using test::PressTab;
using test::Tick;

// A CNC machine that powers on, initialises (with homing and the PH9 first) and loads the
// probe file at start.
const char* const kStartUp =
    "[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOINIT=TRUE\r\nAUTOLOAD=FALSE\r\nAUTOEXEC=FALSE\r\n"
    "EXITCODE=1\r\nPPROG_DIR=C:\\WZELKO\\PARTS\r\n\r\n"
    "[CMM]\r\nCNC=TRUE\r\n\r\n"
    "[INIT]\r\nAUTOPH9=TRUE\r\nAUTOHOME=TRUE\r\nPHFIRST=TRUE\r\nNO_INTERACTIVE=FALSE\r\n\r\n"
    "[EXEC]\r\nRUN_PPROG=C:\\WZELKO\\PROG\\DEMO.TEC\r\nNIL FILE=NIL.TEC\r\nNO_INTERACTIVE=FALSE\r\n"
    "PART PROGRAM WINDOW ON RUN CONTINUE=FALSE\r\n\r\n"
    "[SYSTEMPARAM]\r\nQUALIFILENAME=QUALI.TIP\r\nREFSYSFILENAME=REFSYS.REF\r\n"
    "MEMORYFILENAME=MEMORY.MEM\r\nAUTOLOAD=1\r\nEXTPROCFILENAME=EXTPROC.TEC\r\n";

class InitPage : public test::PageTest {
protected:
    void StartPage(const std::string& sections = kStartUp) {
        rows_ = test::TableRows({"InitTabSheet"});
        Start(test::SettingsFileWithMain(sections), rows_);
        page_ = Page("InitTabSheet");
        ASSERT_NE(page_, nullptr);
    }
    QComboBox* List(const char* name) const { return Find<QComboBox>(name); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
    QFileDialog* FileDialog() const { return window_->findChild<QFileDialog*>("OpenFileDialog"); }

    std::vector<PageEntry> rows_;
    KestelPage* page_ = nullptr;
};

// ---- what the page shows -----------------------------------------------------------------

TEST_F(InitPage, CaptionsAndListsComeFromTheLanguageStrings) {
    StartPage();
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(7));
    const std::pair<const char*, int> boxes[] = {
        {"pCHB_AutoPower", 201},     {"pCHB_AutoInit", 202},  {"pCHB_AutoLoad", 203},
        {"pCHB_AutoExec", 204},      {"pCHB_PP_Mirror", 205}, {"pCHB_No_Inter_Exec", 209},
        {"pCHB_AutoHome", 207},      {"pCHB_AutoPH9", 206},   {"pCHB_PH9_First", 208},
        {"pCHB_No_Inter_Init", 209},
    };
    for (const auto& [name, id] : boxes) EXPECT_EQ(Check(name)->text(), Language(id)) << name;
    const std::pair<const char*, int> labels[] = {
        {"pST_ExitCode", 210},    {"pST_DefProcName", 187},  {"pST_DefNilFileName", 220},
        {"pST_Probe_Label", 172}, {"pST_Refsys_Label", 173}, {"pST_Memory_Label", 174},
        {"pST_AutoLoad", 215},
    };
    for (const auto& [name, id] : labels) EXPECT_EQ(Label(name)->text(), Language(id)) << name;
    EXPECT_EQ(Find<QGroupBox>("pGBX_PP")->title(), Language(216));
    EXPECT_EQ(Find<QGroupBox>("pGBX_Zeroes")->title(), Language(217));
    EXPECT_EQ(Find<QGroupBox>("pGBX_SysFilesIni")->title(), Language(218));
    EXPECT_EQ(Button("pPB_BrowserInit")->text(), Language(134));

    QStringList exitCodes;
    for (int i = 0; i < List("pCB_ExitCode")->count(); ++i) {
        exitCodes << List("pCB_ExitCode")->itemText(i);
    }
    EXPECT_EQ(exitCodes, QStringList({Language(200), Language(198), Language(199)}));
    QStringList fileSets;
    for (int i = 0; i < List("pCB_AutoLoad")->count(); ++i) {
        fileSets << List("pCB_AutoLoad")->itemText(i);
    }
    QStringList expected;
    for (int id : {157, 158, 159, 160, 161, 163, 164, 165}) expected << Language(id);
    EXPECT_EQ(fileSets, expected);
}

TEST_F(InitPage, ShowsTheRecordsValues) {
    StartPage();
    EXPECT_TRUE(Check("pCHB_AutoPower")->isChecked());
    EXPECT_TRUE(Check("pCHB_AutoInit")->isChecked());
    EXPECT_FALSE(Check("pCHB_AutoLoad")->isChecked());
    EXPECT_TRUE(Check("pCHB_PH9_First")->isChecked());
    EXPECT_EQ(List("pCB_ExitCode")->currentIndex(), 1);
    EXPECT_EQ(List("pCB_AutoLoad")->currentIndex(), 2);  // code 1: the probe file
    EXPECT_EQ(Edit("pSLE_PP_Name")->text(), QStringLiteral("C:\\WZELKO\\PROG\\DEMO.TEC"));
    EXPECT_EQ(Edit("pSLE_DefProcName")->text(), QStringLiteral("EXTPROC.TEC"));
    EXPECT_EQ(Edit("pSLE_DefNilFileName")->text(), QStringLiteral("NIL.TEC"));
    EXPECT_EQ(Edit("pST_ProbeFnameIni")->text(), QStringLiteral("QUALI.TIP"));
    EXPECT_EQ(Edit("pST_RefsysFnameIni")->text(), QStringLiteral("REFSYS.REF"));
    EXPECT_EQ(Edit("pST_MemoryFnameIni")->text(), QStringLiteral("MEMORY.MEM"));
    for (const char* name : {"pST_ProbeFnameIni", "pST_RefsysFnameIni", "pST_MemoryFnameIni"}) {
        EXPECT_TRUE(Edit(name)->isReadOnly()) << name;
    }
    EXPECT_FALSE(Enabled("pPB_BrowserInit"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(InitPage, AMissingExitcodeKeyGivesPosition1) {
    StartPage("[CMM]\r\nCNC=TRUE\r\n");
    EXPECT_EQ(List("pCB_ExitCode")->currentIndex(), 1);
    EXPECT_EQ(List("pCB_ExitCode")->currentText(), Language(198));
}

TEST_F(InitPage, AnAutoLoadCodeAbove7ShowsNoItemAndIsKeptUntilAChoiceIsMade) {
    StartPage("[SYSTEMPARAM]\r\nAUTOLOAD=12\r\n");
    EXPECT_EQ(List("pCB_AutoLoad")->currentIndex(), -1);
    Tick(Check("pCHB_PP_Mirror"));
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "AUTOLOAD"), "12");
}

// ---- enabling at start -------------------------------------------------------------------

TEST_F(InitPage,
       AutoPowerFalseAndAutoInitTrueShowAutoInitCheckedButDisabledAutoLoadAndAutoExecEnabled) {
    StartPage("[WZELKO]\r\nAUTOPOWER=FALSE\r\nAUTOINIT=TRUE\r\n");
    EXPECT_TRUE(Check("pCHB_AutoInit")->isChecked());
    EXPECT_FALSE(Enabled("pCHB_AutoInit"));
    EXPECT_TRUE(Enabled("pCHB_AutoLoad"));
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
}

TEST_F(InitPage, WithNothingAutomaticOnlyAutoPowerAndTheQuickStartsCanBeChosen) {
    StartPage("[WZELKO]\r\nAUTOPOWER=FALSE\r\n");
    EXPECT_TRUE(Enabled("pCHB_AutoPower"));
    EXPECT_FALSE(Enabled("pCHB_AutoInit"));
    EXPECT_FALSE(Enabled("pCHB_AutoLoad"));
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
    EXPECT_FALSE(Enabled("pCHB_AutoPH9"));
    EXPECT_FALSE(Enabled("pCHB_AutoHome"));
    EXPECT_FALSE(Enabled("pCHB_PH9_First"));
    EXPECT_TRUE(Enabled("pCHB_No_Inter_Init"));
    EXPECT_TRUE(Enabled("pCHB_No_Inter_Exec"));
}

TEST_F(InitPage, Ph9FirstIsEnabledOnlyWithAutoPh9) {
    StartPage("[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOINIT=TRUE\r\n\r\n[INIT]\r\nAUTOPH9=FALSE\r\n");
    EXPECT_TRUE(Enabled("pCHB_AutoPH9"));
    EXPECT_TRUE(Enabled("pCHB_AutoHome"));
    EXPECT_FALSE(Enabled("pCHB_PH9_First"));
}

// ---- the chain of automatic steps --------------------------------------------------------

TEST_F(InitPage, ClearingAutoPowerDisablesInitLoadAndExecutionAndKeepsTheirValues) {
    StartPage();
    Tick(Check("pCHB_AutoPower"));
    EXPECT_FALSE(Record().AutoPower);
    EXPECT_FALSE(Enabled("pCHB_AutoInit"));
    EXPECT_FALSE(Enabled("pCHB_AutoLoad"));
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
    EXPECT_TRUE(Check("pCHB_AutoInit")->isChecked());
    EXPECT_FALSE(Enabled("pPB_BrowserInit"));
    Save();
    EXPECT_EQ(Saved("WZELKO", "AUTOPOWER"), "FALSE");
    EXPECT_EQ(Saved("WZELKO", "AUTOINIT"), "TRUE");
}

TEST_F(InitPage, SettingAutoPowerEnablesInitAndLoadAndExecutionOnlyWithAutoLoad) {
    StartPage("[WZELKO]\r\nAUTOPOWER=FALSE\r\n");
    Tick(Check("pCHB_AutoPower"));
    EXPECT_TRUE(Enabled("pCHB_AutoInit"));
    EXPECT_TRUE(Enabled("pCHB_AutoLoad"));
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_AutoLoad"));
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_AutoPower"));
    Tick(Check("pCHB_AutoPower"));
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
    Save();
    EXPECT_EQ(Saved("WZELKO", "AUTOPOWER"), "TRUE");
    EXPECT_EQ(Saved("WZELKO", "AUTOLOAD"), "TRUE");
}

TEST_F(InitPage, AutoLoadEnablesAutoExecutionExactlyWhenSet) {
    StartPage();
    Tick(Check("pCHB_AutoLoad"));
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_AutoLoad"));
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
}

TEST_F(InitPage, WithAutoLoadSetCheckingAutoInitDisablesAutoExecution) {
    StartPage("[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOINIT=FALSE\r\nAUTOLOAD=TRUE\r\n");
    ASSERT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_AutoInit"));
    EXPECT_TRUE(Record().AutoInit);
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
}

TEST_F(InitPage, AutoInitEnablesHomingAndTheHeadAndClearingItDisablesThemAndExecution) {
    StartPage("[WZELKO]\r\nAUTOPOWER=TRUE\r\n\r\n[INIT]\r\nAUTOPH9=TRUE\r\n");
    ASSERT_FALSE(Enabled("pCHB_AutoHome"));
    Tick(Check("pCHB_AutoInit"));
    EXPECT_TRUE(Enabled("pCHB_AutoHome"));
    EXPECT_TRUE(Enabled("pCHB_AutoPH9"));
    EXPECT_TRUE(Enabled("pCHB_PH9_First"));
    Tick(Check("pCHB_AutoInit"));
    EXPECT_FALSE(Enabled("pCHB_AutoHome"));
    EXPECT_FALSE(Enabled("pCHB_AutoPH9"));
    EXPECT_FALSE(Enabled("pCHB_PH9_First"));
    EXPECT_FALSE(Enabled("pCHB_AutoExec"));
}

TEST_F(InitPage, QuickStartOfTheInitialisationEnablesHomingAndTheHeadWithoutTouchingExecution) {
    StartPage("[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOLOAD=TRUE\r\n");
    ASSERT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_No_Inter_Init"));
    EXPECT_TRUE(Enabled("pCHB_AutoHome"));
    EXPECT_TRUE(Enabled("pCHB_AutoPH9"));
    EXPECT_FALSE(Enabled("pCHB_PH9_First"));  // no auto PH9/PH10
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_No_Inter_Init"));
    EXPECT_FALSE(Enabled("pCHB_AutoHome"));
    EXPECT_TRUE(Enabled("pCHB_AutoExec"));
    Tick(Check("pCHB_No_Inter_Init"));
    Save();
    EXPECT_EQ(Saved("INIT", "NO_INTERACTIVE"), "TRUE");
    EXPECT_EQ(Saved("EXEC", "NO_INTERACTIVE"), "FALSE");
}

TEST_F(InitPage, ClearingAutoPh9AlsoClearsPh9FirstAndSaveWritesPhfirstFalse) {
    StartPage();
    ASSERT_TRUE(Check("pCHB_PH9_First")->isChecked());
    Tick(Check("pCHB_AutoPH9"));
    EXPECT_FALSE(Check("pCHB_PH9_First")->isChecked());
    EXPECT_FALSE(Enabled("pCHB_PH9_First"));
    EXPECT_FALSE(Record().Ph9First);
    Save();
    EXPECT_EQ(Saved("INIT", "PHFIRST"), "FALSE");
    EXPECT_EQ(Saved("INIT", "AUTOPH9"), "FALSE");
}

TEST_F(InitPage, SettingAutoPh9EnablesPh9First) {
    StartPage("[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOINIT=TRUE\r\n");
    Tick(Check("pCHB_AutoPH9"));
    EXPECT_TRUE(Enabled("pCHB_PH9_First"));
    EXPECT_FALSE(Check("pCHB_PH9_First")->isChecked());
}

TEST_F(InitPage, TheOtherCheckBoxesWriteTheirOptions) {
    StartPage(
        "[WZELKO]\r\nAUTOPOWER=TRUE\r\nAUTOINIT=TRUE\r\nAUTOLOAD=TRUE\r\n\r\n"
        "[INIT]\r\nAUTOPH9=TRUE\r\n");
    Tick(Check("pCHB_AutoExec"));
    Tick(Check("pCHB_PP_Mirror"));
    Tick(Check("pCHB_No_Inter_Exec"));
    Tick(Check("pCHB_AutoHome"));
    Tick(Check("pCHB_PH9_First"));
    Save();
    EXPECT_EQ(Saved("WZELKO", "AUTOEXEC"), "TRUE");
    EXPECT_EQ(Saved("EXEC", "PART PROGRAM WINDOW ON RUN CONTINUE"), "TRUE");
    EXPECT_EQ(Saved("EXEC", "NO_INTERACTIVE"), "TRUE");
    EXPECT_EQ(Saved("INIT", "AUTOHOME"), "TRUE");
    EXPECT_EQ(Saved("INIT", "PHFIRST"), "TRUE");
}

// ---- the exit code and the system files ---------------------------------------------------

TEST_F(InitPage, OnACncMachineTheExitCodeIsThePosition) {
    StartPage();
    ChooseItem(List("pCB_ExitCode"), 2);
    EXPECT_EQ(Record().ExitCode, 2u);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("WZELKO", "EXITCODE"), "2");
}

TEST_F(InitPage, OnAMachineThatIsNotCncTheExitCodeListSnapsBackTo0AndNothingChanges) {
    StartPage("[CMM]\r\nCNC=FALSE\r\n\r\n[WZELKO]\r\nEXITCODE=1\r\n");
    ChooseItem(List("pCB_ExitCode"), 2);
    EXPECT_EQ(List("pCB_ExitCode")->currentIndex(), 0);
    EXPECT_EQ(Record().ExitCode, 1u);
    EXPECT_FALSE(Record().Modified);
    // Choosing again does the same, once each time.
    ChooseItem(List("pCB_ExitCode"), 1);
    EXPECT_EQ(List("pCB_ExitCode")->currentIndex(), 0);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(InitPage, WhetherTheMachineIsCncIsReadFromTheFileNotFromTheRecord) {
    StartPage("[CMM]\r\nCNC=FALSE\r\n");
    Record().Cnc = true;  // as the machine page may hold it, not yet saved
    ChooseItem(List("pCB_ExitCode"), 2);
    EXPECT_EQ(List("pCB_ExitCode")->currentIndex(), 0);
    EXPECT_EQ(Record().ExitCode, 1u);
}

TEST_F(InitPage, TheAutoLoadListStoresTheCodeOfItsPosition) {
    StartPage();
    ChooseItem(List("pCB_AutoLoad"), 5);
    EXPECT_EQ(Record().AutoLoadCode, 3u);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "AUTOLOAD"), "3");
    // The load-at-start flag of the same name is another key.
    EXPECT_EQ(Saved("WZELKO", "AUTOLOAD"), "FALSE");
}

TEST_F(InitPage, SystemFilesRenamedOnTheSystemParametersPageShowWhenThePageIsEntered) {
    rows_ = test::TableRows({"SysParTabSheet", "InitTabSheet"});
    Start(test::SettingsFileWithMain(kStartUp), rows_);
    test::TypeInto(Edit("pSLE_ProbeFname"), QStringLiteral("star.tip"));
    PressTab(Edit("pSLE_ProbeFname"));
    script_.Answer(IDYES);
    Action("KestelGenConf_Init")->trigger();
    ASSERT_EQ(window_->PageCtl()->ActivePage(), Page("InitTabSheet"));
    EXPECT_EQ(Edit("pST_ProbeFnameIni")->text(), QStringLiteral("STAR.TIP"));
    EXPECT_EQ(Saved("SYSTEMPARAM", "QUALIFILENAME"), "STAR.TIP");
}

// ---- part-program files ------------------------------------------------------------------

TEST_F(InitPage, APartProgramNameIsUpperCasedWhenLeftAndStored) {
    StartPage();
    test::TypeInto(Edit("pSLE_PP_Name"), QStringLiteral("c:\\wzelko\\prog\\part1.tec"));
    PressTab(Edit("pSLE_PP_Name"));
    EXPECT_EQ(Edit("pSLE_PP_Name")->text(), QStringLiteral("C:\\WZELKO\\PROG\\PART1.TEC"));
    test::TypeInto(Edit("pSLE_DefProcName"), QStringLiteral("procs.tec"));
    PressTab(Edit("pSLE_DefProcName"));
    test::TypeInto(Edit("pSLE_DefNilFileName"), QStringLiteral("empty.tec"));
    PressTab(Edit("pSLE_DefNilFileName"));
    Save();
    EXPECT_EQ(Saved("EXEC", "RUN_PPROG"), "C:\\WZELKO\\PROG\\PART1.TEC");
    EXPECT_EQ(Saved("SYSTEMPARAM", "EXTPROCFILENAME"), "PROCS.TEC");
    EXPECT_EQ(Saved("EXEC", "NIL FILE"), "EMPTY.TEC");
}

TEST_F(InitPage, StoreTakesTheNilFileAndThePartProgramBeingTyped) {
    StartPage();
    test::TypeInto(Edit("pSLE_DefNilFileName"), QStringLiteral("nil2.tec"));
    Save();
    EXPECT_EQ(Saved("EXEC", "NIL FILE"), "NIL2.TEC");
    EXPECT_EQ(Edit("pSLE_DefNilFileName")->text(), QStringLiteral("NIL2.TEC"));
    test::TypeInto(Edit("pSLE_PP_Name"), QStringLiteral("run.tec"));
    Click("pOK");
    EXPECT_EQ(Record().RunPProg, "RUN.TEC");
}

TEST_F(InitPage, StoreLeavesTheExternalProceduresFileBeingTypedUntilTheEditIsLeft) {
    StartPage();
    test::TypeInto(Edit("pSLE_DefProcName"), QStringLiteral("other.tec"));
    Save();
    EXPECT_EQ(Record().ExtProcFileName, "EXTPROC.TEC");
    EXPECT_EQ(Bytes(), Original());
    EXPECT_EQ(Edit("pSLE_DefProcName")->text(), QStringLiteral("other.tec"));
    PressTab(Edit("pSLE_DefProcName"));
    EXPECT_EQ(Record().ExtProcFileName, "OTHER.TEC");
}

TEST_F(InitPage, CancelPutsBackTheNilFileAndThePartProgramButNotTheExternalProcedures) {
    StartPage();
    test::TypeInto(Edit("pSLE_PP_Name"), QStringLiteral("x.tec"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_PP_Name")->text(), QStringLiteral("C:\\WZELKO\\PROG\\DEMO.TEC"));
    test::TypeInto(Edit("pSLE_DefProcName"), QStringLiteral("y.tec"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_DefProcName")->text(), QStringLiteral("y.tec"));
    page_->Load(true);
    EXPECT_EQ(Edit("pSLE_DefProcName")->text(), QStringLiteral("y.tec"));
}

TEST_F(InitPage, EnteringAPartProgramEditEnablesBrowseAndEveryChoiceDisablesIt) {
    StartPage();
    Edit("pSLE_DefNilFileName")->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(Enabled("pPB_BrowserInit"));
    Tick(Check("pCHB_AutoHome"));
    EXPECT_FALSE(Enabled("pPB_BrowserInit"));
    Edit("pSLE_PP_Name")->setFocus(Qt::TabFocusReason);
    ChooseItem(List("pCB_AutoLoad"), 0);
    EXPECT_FALSE(Enabled("pPB_BrowserInit"));
    Edit("pSLE_PP_Name")->setFocus(Qt::TabFocusReason);
    ChooseItem(List("pCB_ExitCode"), 0);
    EXPECT_FALSE(Enabled("pPB_BrowserInit"));
}

TEST_F(InitPage, BrowsePutsTheChosenPartProgramIntoTheEditEnteredLastAndLeavingStoresIt) {
    StartPage();
    std::filesystem::create_directories(prefix_.DriveC() / "WZELKO" / "PARTS");
    Edit("pSLE_DefProcName")->setFocus(Qt::TabFocusReason);
    AnswerFileOpen(prefix_.DriveC() / "WZELKO" / "PARTS" / "Procs2.tec");
    QTest::mouseClick(Button("pPB_BrowserInit"), Qt::LeftButton);
    QLineEdit* edit = Edit("pSLE_DefProcName");
    EXPECT_EQ(edit->text(), QStringLiteral("C:\\WZELKO\\PARTS\\Procs2.tec"));
    EXPECT_TRUE(edit->isModified());
    EXPECT_TRUE(edit->hasFocus());
    EXPECT_EQ(FileDialog()->nameFilters(), QStringList({Language(216) + " (*.TEC)"}));
    EXPECT_EQ(std::filesystem::canonical(FileDialog()->directory().absolutePath().toStdString()),
              std::filesystem::canonical(prefix_.DriveC() / "WZELKO" / "PARTS"));
    PressTab(edit);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "EXTPROCFILENAME"), "C:\\WZELKO\\PARTS\\PROCS2.TEC");
}

TEST_F(InitPage, WithoutAPartProgramFolderBrowseStartsInTheUsualOne) {
    StartPage("[CMM]\r\nCNC=TRUE\r\n");
    std::filesystem::create_directories(prefix_.DriveC() / "WZELKO" / "PROG");
    Edit("pSLE_PP_Name")->setFocus(Qt::TabFocusReason);
    CancelFileOpen();
    Click("pPB_BrowserInit");
    EXPECT_EQ(std::filesystem::canonical(FileDialog()->directory().absolutePath().toStdString()),
              std::filesystem::canonical(prefix_.DriveC() / "WZELKO" / "PROG"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(InitPage, BrowseDoesNothingWhenTheFileEditEnteredLastIsTheSystemParametersPages) {
    rows_ = test::TableRows({"SysParTabSheet", "InitTabSheet"});
    Start(test::SettingsFileWithMain(kStartUp), rows_);
    Action("KestelGenConf_Init")->trigger();
    Edit("pSLE_PP_Name")->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(Enabled("pPB_BrowserInit"));
    Action("KestelGenConf_SysParam")->trigger();
    Edit("pSLE_RefsysFname")->setFocus(Qt::TabFocusReason);
    Action("KestelGenConf_Init")->trigger();
    ASSERT_TRUE(Enabled("pPB_BrowserInit"));
    Click("pPB_BrowserInit");
    EXPECT_EQ(FileOpenAnswers().Runs(), 0);
}

// ---- the frame ---------------------------------------------------------------------------

TEST_F(InitPage, AnsweringNoOnLeavingThePageShowsWhatWasReadAgain) {
    rows_ = test::TableRows({"InitTabSheet", "WinColorTabSheet"});
    Start(test::SettingsFileWithMain(kStartUp), rows_);
    Tick(Check("pCHB_AutoPower"));
    ChooseItem(List("pCB_AutoLoad"), 0);
    script_.Answer(IDNO);
    Action("KestelOther_WindowsColor")->trigger();
    EXPECT_TRUE(Check("pCHB_AutoPower")->isChecked());
    EXPECT_TRUE(Enabled("pCHB_AutoInit"));
    EXPECT_EQ(List("pCB_AutoLoad")->currentIndex(), 2);
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(InitPage, MenuEntryIsEnabledAndShowsThePage) {
    rows_ = test::TableRows({"InitTabSheet", "WinColorTabSheet"});
    Start(test::SettingsFileWithMain(kStartUp), rows_);
    Action("KestelOther_WindowsColor")->trigger();
    QAction* entry = Action("KestelGenConf_Init");
    ASSERT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), Page("InitTabSheet"));
    EXPECT_EQ(window_->HelpContextOfPage(), 20);
}

// ---- random text -------------------------------------------------------------------------

// Random texts typed into every edit and committed by leaving, OK or Save: no crash, no
// message (these are names, not numbers), and the saved file differs from one saved before
// only in this page's keys.
TEST_F(InitPage, RandomTextInEveryEditNeverCrashesNorCorruptsTheFiles) {
    StartPage();
    const std::string before = SaveUnchanged();
    test::RandomText random(19970304);
    const char* const edits[] = {"pSLE_PP_Name", "pSLE_DefProcName", "pSLE_DefNilFileName"};
    for (int round = 0; round < 120; ++round) {
        const char* name = edits[random.Below(3)];
        test::TypeInto(Edit(name), random.Next());
        CommitTyped(Edit(name), kCommits[random.Below(3)]);  // Tab, OK or Save
        Click("pCancel");
    }
    EXPECT_EQ(script_.Count(), 0);
    PressTab(Edit("pSLE_DefProcName"));
    const std::string after = SaveUnchanged();
    EXPECT_TRUE(test::ParsesAsSettingsFile(after));
    EXPECT_NE(after, before);
    EXPECT_EQ(
        test::ChangedBeyond(before, after,
                            {"EXEC|RUN_PPROG", "EXEC|NIL FILE", "SYSTEMPARAM|EXTPROCFILENAME"}),
        std::set<std::string>{});
}

}  // namespace
}  // namespace wk
