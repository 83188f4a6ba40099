// The volumetric compensation page: the method across both files, the QEN mode, the
// controller's compensation on exit, the QEN and thermal switches.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLineEdit>
#include <algorithm>
#include <string>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "shell/kestel_main_wind.h"
#include "ui_test_support.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::ClickIndicator;

// WZELKO.INI of a machine with the controller `type`; `method` is the older file's word.
std::string Wzelko(const std::string& type, const std::string& method = "QEN",
                   const std::string& onExit = "2") {
    return "[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n"
           "[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n\r\n"
           "[CONTROLLER]\r\nType=" +
           type + "\r\nCTR VOLCOMP ON EXIT=" + onExit +
           "\r\n\r\n"
           "[COMPENS]\r\nCOMPENS MODE=1\r\nMETHOD=" +
           method + "\r\nCOMPENS FILE NAME=ZELKOCOMPENS.DAT\r\n";
}

// WZELKO32.INI with `method` ("" for none).
std::string Wzelko32(const std::string& method, const std::string& active = "1") {
    std::string compens = "[COMPENS]\r\n";
    if (!method.empty()) compens += "METHOD=" + method + "\r\n";
    return compens + "ACTIVE=" + active + "\r\nThermal=0\r\n";
}

class VolcompPage : public test::PageTest {
protected:
    // Starts the window on the two files and shows the page from the menu.
    void StartVolcomp(const std::string& wzelko, const std::string& wzelko32) {
        prefix_.WriteWindowsFile("WZELKO32.INI", wzelko32);
        Start(wzelko);
        ShowPage();
    }
    void ShowPage() const {
        Action("KestelGenConf_Volcomp")->trigger();
        ASSERT_EQ(window_->PageCtl()->ActivePage(), Page("VolcompTabSheet"));
    }
    QAbstractButton* Box(const char* name) const { return Find<QAbstractButton>(name); }
    void ClickBox(const char* name) const {
        ASSERT_NE(Box(name), nullptr) << name;
        ClickIndicator(Box(name));
    }
    // The method button that is checked, or "" for none.
    std::string CheckedMethod() const {
        for (const char* name :
             {"pRB_None", "pRB_Qen", "pRB_KVL", "pRB_Controller", "pRB_UseMELDAXSet"}) {
            if (Box(name)->isChecked()) return name;
        }
        return "";
    }
    std::string Saved32(const char* section, const char* key) const {
        return Saved(section, key, "WZELKO32.INI");
    }
};

// ---- the method across the two files ----------------------------------------------------

TEST_F(VolcompPage, NoMethodInWzelko32AndKvInWzelkoShowsKvAndWritesKvToWzelko32) {
    StartVolcomp(Wzelko("RMD", "KV"), Wzelko32(""));
    EXPECT_EQ(CheckedMethod(), "pRB_KVL");
    EXPECT_EQ(Record().VolcompMethod, 2);
    ClickBox("pRB_HorizQen");  // a change, so that Save writes
    Save();
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "KV");
    EXPECT_EQ(Saved("COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompPage, CtrlInWzelko32IsTheControllerMethodAndTheOlderFileKeepsItsWord) {
    StartVolcomp(Wzelko("RMD", "KV"), Wzelko32("CTRL"));
    EXPECT_EQ(CheckedMethod(), "pRB_Controller");
    EXPECT_EQ(Record().VolcompMethod, 4);
    ClickBox("pRB_VolEn");
    Save();
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "CTRL");
    EXPECT_EQ(Saved("COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompPage, RhoInWzelko32ChecksNoMethodButtonAndIsWrittenBackAsRho) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("RHO"));
    EXPECT_EQ(CheckedMethod(), "");
    EXPECT_EQ(Record().VolcompMethod, 3);
    EXPECT_FALSE(Box("pCHB_ActiveQEN")->isEnabled());
    ClickBox("pRB_DualReaderQen");
    Save();
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "RHO");
    EXPECT_EQ(Saved("COMPENS", "COMPENS MODE"), "2");
}

TEST_F(VolcompPage, QenInLowerCaseInWzelko32IsNotRecognisedSoTheOlderFilesChoiceIsShown) {
    StartVolcomp(Wzelko("RMD", "KV"), Wzelko32("qen"));
    EXPECT_EQ(CheckedMethod(), "pRB_KVL");
    ClickBox("pRB_VolDis");
    Save();
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompPage, ChoosingTheControllerMethodLeavesThermalCompensationDisabledUntilTheNextStart) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("QEN"));
    EXPECT_FALSE(Box("pCB_ThComp")->isEnabled());
    ClickBox("pRB_Controller");
    EXPECT_EQ(Record().VolcompMethod, 4);
    EXPECT_FALSE(Box("pCB_ThComp")->isEnabled());
    // Neither leaving the page nor coming back changes that.
    script_.Answer(IDYES);
    Action("KestelGenConf_MacPar")->trigger();
    ShowPage();
    EXPECT_FALSE(Box("pCB_ThComp")->isEnabled());
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "CTRL");

    CloseWindow();
    StartOnFiles();
    ShowPage();
    EXPECT_EQ(CheckedMethod(), "pRB_Controller");
    EXPECT_TRUE(Box("pCB_ThComp")->isEnabled());
}

TEST_F(VolcompPage, ChoosingAnotherMethodDisablesThermalCompensation) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("CTRL"));
    ASSERT_TRUE(Box("pCB_ThComp")->isEnabled());
    ClickBox("pRB_KVL");
    EXPECT_FALSE(Box("pCB_ThComp")->isEnabled());
    Save();
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "KV");
    EXPECT_EQ(Saved("COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompPage, ClickingTheMethodAlreadyChosenChangesNothing) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("QEN"));
    ClickBox("pRB_Qen");
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

// ---- what is offered --------------------------------------------------------------------

TEST_F(VolcompPage, TheControllerMethodAndTheOnExitChoiceAreOfferedToTcpipControllersOnly) {
    for (const char* type : {"RMD", "KPT", "rmd"}) {
        StartVolcomp(Wzelko(type), Wzelko32("QEN"));
        EXPECT_TRUE(Box("pRB_Controller")->isEnabled()) << type;
        EXPECT_TRUE(Find<QGroupBox>("pGBX_ContrCompOnExit")->isEnabled()) << type;
        EXPECT_TRUE(Box("pRB_Restore")->isEnabled()) << type;
        CloseWindow();
    }
    for (const char* type : {"Vek3", "qd32", "NONE"}) {
        StartVolcomp(Wzelko(type), Wzelko32("QEN"));
        EXPECT_FALSE(Box("pRB_Controller")->isEnabled()) << type;
        EXPECT_FALSE(Find<QGroupBox>("pGBX_ContrCompOnExit")->isEnabled()) << type;
        EXPECT_FALSE(Box("pRB_VolDis")->isEnabled()) << type;
        CloseWindow();
    }
}

TEST_F(VolcompPage, NoneAndMeldaxAreShownWhenTheFileSaysSoButNotOffered) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("NONE"));
    EXPECT_EQ(CheckedMethod(), "pRB_None");
    EXPECT_FALSE(Box("pRB_None")->isEnabled());
    EXPECT_FALSE(Box("pRB_UseMELDAXSet")->isEnabled());
    CloseWindow();
    StartVolcomp(Wzelko("RMD"), Wzelko32("MELDAX"));
    EXPECT_EQ(CheckedMethod(), "pRB_UseMELDAXSet");
    EXPECT_FALSE(Box("pRB_UseMELDAXSet")->isEnabled());
}

TEST_F(VolcompPage, TheQenSwitchIsUsableWithTheQenMethodOnly) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("QEN", "0"));
    EXPECT_TRUE(Box("pCHB_ActiveQEN")->isEnabled());
    EXPECT_FALSE(Box("pCHB_ActiveQEN")->isChecked());
    ClickBox("pCHB_ActiveQEN");
    EXPECT_TRUE(Record().CompensActive);
    ClickBox("pRB_KVL");
    EXPECT_FALSE(Box("pCHB_ActiveQEN")->isEnabled());
    ClickBox("pRB_Qen");
    EXPECT_TRUE(Box("pCHB_ActiveQEN")->isEnabled());
    Save();
    EXPECT_EQ(Saved32("COMPENS", "ACTIVE"), "1");
    EXPECT_EQ(Saved32("COMPENS", "METHOD"), "QEN");
}

// ---- the other choices ------------------------------------------------------------------

TEST_F(VolcompPage, TheModeButtonsShowAndWriteTheCompensationMode) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("QEN"));
    EXPECT_TRUE(Box("pRB_BridgeQen")->isChecked());
    ClickBox("pRB_HorizQen");
    EXPECT_EQ(Record().CompensMode, 0);
    Save();
    EXPECT_EQ(Saved("COMPENS", "COMPENS MODE"), "0");
    ClickBox("pRB_DualReaderQen");
    Save();
    EXPECT_EQ(Saved("COMPENS", "COMPENS MODE"), "2");
}

TEST_F(VolcompPage, TheOnExitButtonsShowAndWriteWhatTheControllerDoesOnExit) {
    StartVolcomp(Wzelko("RMD", "QEN", "1"), Wzelko32("QEN"));
    EXPECT_TRUE(Box("pRB_VolEn")->isChecked());
    ClickBox("pRB_VolDis");
    Save();
    EXPECT_EQ(Saved("CONTROLLER", "CTR VOLCOMP ON EXIT"), "0");
    ClickBox("pRB_Restore");
    Save();
    EXPECT_EQ(Saved("CONTROLLER", "CTR VOLCOMP ON EXIT"), "2");
}

TEST_F(VolcompPage, ThermalCompensationIsWrittenToWzelko32) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("CTRL"));
    ClickBox("pCB_ThComp");
    EXPECT_TRUE(Record().ThermalCompens);
    Save();
    EXPECT_EQ(Saved32("Compens", "Thermal"), "1");
}

TEST_F(VolcompPage, TheCompensationFileIsShownReadOnly) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("KV"));
    QLineEdit* file = Edit("pSLE_CosDatFnameKVL");
    EXPECT_EQ(file->text(), QStringLiteral("ZELKOCOMPENS.DAT"));
    EXPECT_TRUE(file->isReadOnly());
}

TEST_F(VolcompPage, TheFileAndTheQenSwitchChangedOnTheMachinePageShowWhenThePageIsEntered) {
    prefix_.WriteWindowsFile("WZELKO32.INI", Wzelko32("QEN", "0"));
    Start(Wzelko("RMD"));
    TypeAndLeave("pSLE_CompensFname", QStringLiteral("other.dat"));
    ClickIndicator(Box("pCHB_Active"));
    script_.Answer(IDYES);
    ShowPage();
    EXPECT_EQ(Edit("pSLE_CosDatFnameKVL")->text(), QStringLiteral("OTHER.DAT"));
    EXPECT_TRUE(Box("pCHB_ActiveQEN")->isChecked());
}

TEST_F(VolcompPage, DiscardingTheChangesShowsTheMethodOfTheFilesAgain) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("QEN"));
    ClickBox("pRB_KVL");
    script_.Answer(IDNO);
    Action("KestelGenConf_MacPar")->trigger();
    ShowPage();
    EXPECT_EQ(CheckedMethod(), "pRB_Qen");
    EXPECT_EQ(Record().VolcompMethod, 1);
}

TEST_F(VolcompPage, TabGoesThroughTheMethodWithItsSettingsThenTheModeThenTheExitChoice) {
    StartVolcomp(Wzelko("RMD"), Wzelko32("CTRL"));
    QWidget* page = Page("VolcompTabSheet");
    Box("pRB_Controller")->setFocus(Qt::TabFocusReason);
    std::vector<std::string> visited;
    for (int i = 0; i < 12; ++i) {
        QWidget* now = QApplication::focusWidget();
        if (now == nullptr || !page->isAncestorOf(now)) break;
        visited.push_back(now->objectName().toStdString());
        test::PressTab(now);
    }
    // The QEN switch is not usable with the controller's method.
    EXPECT_EQ(visited, (std::vector<std::string>{"pRB_Controller", "pSLE_CosDatFnameKVL",
                                                 "pCB_ThComp", "pRB_BridgeQen", "pRB_Restore"}));
}

}  // namespace
}  // namespace wk
