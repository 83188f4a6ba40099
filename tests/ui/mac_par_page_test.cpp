// The machine parameters page, driven as a user drives it: connection and mode, resolution,
// the PH9 head, the general values, file names and browsing, the TCP/IP address.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <string>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::ChooseFromList;
using test::ClickIndicator;
using test::Items;
using test::PressTab;
using test::SettingsFile;
using test::Settle;
using test::TypeInto;

// A CNC machine on COM2 with a PH9 head, simulated, its hand unit simulated too.
const char* const kMachine =
    "[CMM]\r\nSIMULATION=TRUE\r\nCNC=TRUE\r\nPORT=COM2:\r\nUSESOCKET=0\r\n"
    "TCPIP Address=10.0.0.7\r\nTCPIP Port=2001\r\nRESOLUTION=0.000100\r\n\r\n"
    "[MACHINEPARAM]\r\nTOOL CHANGER=FALSE\r\nCOSDAT FNAME=ZELKOCOSDAT1.BIN\r\n"
    "DIST APPROACH=6.000000\r\nXTERM=1.0000000000\r\nYTERM=1.0000000000\r\n"
    "ZTERM=1.0000000000\r\nPARTTERM=1.0000000000\r\nOPTSPEED=250.000000\r\n"
    "DEPTH=12.000000\r\n\r\n"
    "[COMPENS]\r\nCOMPENS MODE=1\r\nMETHOD=QEN\r\nCOMPENS FILE NAME=ZELKOCOMPENS.DAT\r\n\r\n"
    "[MEAS_WINDOW]\r\nJX01 SIMULATION=TRUE\r\nJX01 DELAY=10\r\n\r\n"
    "[Ph9]\r\nSIMULATION=FALSE\r\nPH9PRESENT=TRUE\r\nPORT=COM2:9600,N,8,2\r\n";

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    if (at != std::string::npos) text.replace(at, from.size(), to);
    return text;
}

// The machine made manual.
std::string ManualMachine() {
    return Replaced(kMachine, "CNC=TRUE", "CNC=FALSE");
}

class MacParPage : public test::PageTest {
protected:
    void StartMachine(const std::string& sections = kMachine, const std::string& type = "RMD") {
        Start(SettingsFile(sections, type));
    }
    QAbstractButton* Box(const char* name) const { return Find<QAbstractButton>(name); }
    QComboBox* Combo(const char* name) const { return Find<QComboBox>(name); }
    QGroupBox* Group(const char* name) const { return Find<QGroupBox>(name); }
    void ClickBox(const char* name) const {
        QAbstractButton* box = Box(name);
        ASSERT_NE(box, nullptr) << name;
        ClickIndicator(box);
    }
    void Choose(const char* combo, const char* item) const {
        QComboBox* box = Combo(combo);
        ASSERT_NE(box, nullptr) << combo;
        ASSERT_TRUE(ChooseFromList(box, QString::fromLatin1(item))) << combo << " " << item;
    }
    // Types into the resolution's text and leaves it with Tab.
    void TypeResolution(const QString& text) const {
        QComboBox* box = Combo("pCB_Resolution");
        box->setFocus(Qt::MouseFocusReason);
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->lineEdit(), text);
        PressTab(box);
    }
    QString Shown(const char* edit) const { return Edit(edit)->text(); }
    QWidget* Focused() const { return QApplication::focusWidget(); }
};

// ---- captions and lists -----------------------------------------------------------------

TEST_F(MacParPage, CaptionsComeFromTheLanguageStrings) {
    StartMachine();
    EXPECT_EQ(window_->PageCtl()->SheetCaption(Page("MacParTabSheet")), Language(5));
    EXPECT_EQ(Group("pGBX_CMM")->title(), Language(96));
    EXPECT_EQ(Box("p_RB_PHx")->text(), Language(97));
    EXPECT_EQ(Group("pGBX_General")->title(), Language(98));
    EXPECT_EQ(Button("pPB_BrowserMP")->text(), Language(134));
    EXPECT_EQ(Label("pST_RESOL_UNITY")->text(), Language(86));
    EXPECT_EQ(Label("pST_APPR_UNITY")->text(), Language(86));
    EXPECT_EQ(Label("pST_DEPTH_UNITY")->text(), Language(86));
    EXPECT_EQ(Label("pST_OPT_SP_UNITY")->text(), QStringLiteral("[m/mm]"));
}

TEST_F(MacParPage, TheFormsCaptionsStandWhereNoLanguageStringIsNamed) {
    StartMachine();
    EXPECT_EQ(Group("pGB_TCPIP")->title(), QStringLiteral("TCP/IP"));
    EXPECT_EQ(Box("pRB_Manual")->text(), QStringLiteral("&Manual"));
    EXPECT_EQ(Box("pRB_CNC")->text(), QStringLiteral("&CNC"));
    EXPECT_EQ(Group("pGBX_PH9")->title(), QStringLiteral("Indexed Wrist"));
    EXPECT_EQ(Box("pCHB_JX01_Simul")->text(), QStringLiteral("JX01"));
    EXPECT_EQ(Box("p_RB_MODRIVAXM")->text(), QStringLiteral("MODRIVAX-m"));
    EXPECT_EQ(Box("pCHB_Depth")->text(), QStringLiteral("&Depth"));
    EXPECT_EQ(Box("pCHB_Optimal_Speed")->text(), QStringLiteral("Optima&l Speed"));
    EXPECT_EQ(Box("pCHB_Tool_Ch")->text(), QStringLiteral("&Tool Changer"));
    EXPECT_EQ(Box("pCHB_Active")->text(), QStringLiteral("&Active"));
    EXPECT_EQ(Label("pST_Term_X")->text(), QStringLiteral("Scale X:"));
    EXPECT_EQ(Label("pST_Term_Part")->text(), QStringLiteral("Scale:"));
}

TEST_F(MacParPage, InInchModeTheLengthsShowTheInchLabelAndTheResolutionStaysInMillimetres) {
    // No "MEASURE INTERFACE" section: inches.
    Start("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[CONTROLLER]\r\nType=RMD\r\n\r\n" +
          std::string(kMachine));
    ASSERT_FALSE(Record().IsMetric());
    EXPECT_EQ(Label("pST_APPR_UNITY")->text(), Language(87));
    EXPECT_EQ(Label("pST_DEPTH_UNITY")->text(), Language(87));
    EXPECT_EQ(Label("pST_RESOL_UNITY")->text(), Language(86));
    // 6 mm and 12 mm in inches, three decimals.
    EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("0.236"));
    EXPECT_EQ(Shown("pSLE_Depth"), QStringLiteral("0.472"));
}

TEST_F(MacParPage, ThePortListOffersTcpipOnlyToTheControllersThatAcceptIt) {
    for (const char* type : {"RMD", "KPT", "rmd"}) {
        StartMachine(kMachine, type);
        const std::vector<QString> items = Items(Combo("pCB_Port"));
        ASSERT_EQ(items.size(), 9u) << type;
        EXPECT_EQ(items[0], QStringLiteral("COM1"));
        EXPECT_EQ(items[7], QStringLiteral("COM8"));
        EXPECT_EQ(items[8], QStringLiteral("TCP/IP")) << type;
        CloseWindow();
    }
    for (const char* type : {"qd32", "Vek3", "QEN", ""}) {
        StartMachine(kMachine, type);
        const std::vector<QString> items = Items(Combo("pCB_Port"));
        ASSERT_EQ(items.size(), 8u) << type;
        EXPECT_EQ(items[7], QStringLiteral("COM8")) << type;
        CloseWindow();
    }
}

TEST_F(MacParPage, ThePh9ListsAreFilledOnlyForControllersWithoutTheirOwnHeadLine) {
    StartMachine(kMachine, "QEN");
    EXPECT_EQ(Items(Combo("pCB_Ph9_Port")).size(), 8u);
    EXPECT_EQ(Items(Combo("pCB_Ph9_Port"))[2], QStringLiteral("COM3"));
    const struct {
        const char* combo;
        int firstId;
        int count;
    } lists[] = {{"pCB_Ph9_Baud", 54, 8},
                 {"pCB_Ph9_Parity", 62, 3},
                 {"pCB_Ph9_NBits", 65, 4},
                 {"pCB_Ph9_StopBits", 69, 3}};
    for (const auto& list : lists) {
        const std::vector<QString> items = Items(Combo(list.combo));
        ASSERT_EQ(items.size(), static_cast<std::size_t>(list.count)) << list.combo;
        for (int i = 0; i < list.count; ++i) {
            EXPECT_EQ(items[static_cast<std::size_t>(i)], Language(list.firstId + i));
        }
    }
    // COM2, 9600 baud, no parity, 8 data bits, 2 stop bits.
    EXPECT_EQ(Combo("pCB_Ph9_Port")->currentIndex(), 1);
    EXPECT_EQ(Combo("pCB_Ph9_Baud")->currentIndex(), 6);
    EXPECT_EQ(Combo("pCB_Ph9_Parity")->currentIndex(), 0);
    EXPECT_EQ(Combo("pCB_Ph9_NBits")->currentIndex(), 3);
    EXPECT_EQ(Combo("pCB_Ph9_StopBits")->currentIndex(), 2);
    CloseWindow();

    for (const char* type : {"qd32", "RMD", "Tq", "Q5", "Vek3", "KPT", "vek3"}) {
        StartMachine(kMachine, type);
        for (const char* combo : {"pCB_Ph9_Port", "pCB_Ph9_Baud", "pCB_Ph9_Parity", "pCB_Ph9_NBits",
                                  "pCB_Ph9_StopBits"}) {
            EXPECT_EQ(Combo(combo)->count(), 0) << type << " " << combo;
        }
        CloseWindow();
    }
}

TEST_F(MacParPage, ThePh9ListsAreDisabledWithoutAHeadAndOnQd32RmdAndKpt) {
    StartMachine(kMachine, "QEN");
    EXPECT_TRUE(Combo("pCB_Ph9_Baud")->isEnabled());
    CloseWindow();
    StartMachine(Replaced(kMachine, "PH9PRESENT=TRUE", "PH9PRESENT=FALSE"), "QEN");
    EXPECT_FALSE(Combo("pCB_Ph9_Baud")->isEnabled());
    CloseWindow();
    for (const char* type : {"qd32", "RMD", "KPT"}) {
        StartMachine(kMachine, type);
        EXPECT_FALSE(Combo("pCB_Ph9_Port")->isEnabled()) << type;
        CloseWindow();
    }
}

TEST_F(MacParPage, TheResolutionListHoldsTheTwoResolutionsAndIsLockedOnACncMachine) {
    StartMachine();
    EXPECT_EQ(Items(Combo("pCB_Resolution")),
              (std::vector<QString>{QStringLiteral("0.0001"), QStringLiteral("0.0005")}));
    EXPECT_EQ(Combo("pCB_Resolution")->currentText(), QStringLiteral("0.0001"));
    EXPECT_FALSE(Combo("pCB_Resolution")->isEnabled());
    EXPECT_TRUE(Box("pRB_CNC")->isChecked());
}

// ---- connection and mode ----------------------------------------------------------------

TEST_F(MacParPage, SelectingTcpipInThePortListShowsTheAddressGroupAndCom3HidesIt) {
    StartMachine();
    QGroupBox* tcpip = Group("pGB_TCPIP");
    EXPECT_FALSE(tcpip->isVisible());
    Choose("pCB_Port", "TCP/IP");
    EXPECT_TRUE(tcpip->isVisible());
    EXPECT_EQ(Record().PortIndex, 8);
    Choose("pCB_Port", "COM3");
    EXPECT_FALSE(tcpip->isVisible());
    EXPECT_EQ(Record().PortIndex, 2);
    Save();
    EXPECT_EQ(Saved("CMM", "PORT"), "COM3:");
    EXPECT_EQ(Saved("CMM", "USESOCKET"), "0");
    EXPECT_EQ(Saved("CMM", "TCPIP Address"), "10.0.0.7");
}

TEST_F(MacParPage, ChoosingTcpipWritesTheThreeTcpipKeysAndLeavesThePortAsItWas) {
    StartMachine();
    Choose("pCB_Port", "TCP/IP");
    TypeAndLeave("pSLE_TCPPORT", QStringLiteral("5000"));
    Save();
    EXPECT_EQ(Saved("CMM", "USESOCKET"), "1");
    EXPECT_EQ(Saved("CMM", "TCPIP Port"), "5000");
    EXPECT_EQ(Saved("CMM", "TCPIP Address"), "10.0.0.7");
    EXPECT_EQ(Saved("CMM", "PORT"), "COM2:");
}

TEST_F(MacParPage, ClearingCmmSimulationClearsAndDisablesJx01AndClearsItsSimulation) {
    StartMachine();
    ASSERT_TRUE(Box("pCHB_JX01_Simul")->isChecked());
    ASSERT_TRUE(Box("pCHB_JX01_Simul")->isEnabled());
    ClickBox("pCHB_CNC_Simul");
    EXPECT_FALSE(Box("pCHB_JX01_Simul")->isChecked());
    EXPECT_FALSE(Box("pCHB_JX01_Simul")->isEnabled());
    EXPECT_FALSE(Record().Jx01Simulation);
    Save();
    EXPECT_EQ(Saved("CMM", "SIMULATION"), "FALSE");
    EXPECT_EQ(Saved("MEAS_WINDOW", "JX01 SIMULATION"), "FALSE");
}

TEST_F(MacParPage, CheckingCmmSimulationMakesJx01Available) {
    StartMachine(Replaced(Replaced(kMachine, "SIMULATION=TRUE\r\nCNC", "SIMULATION=FALSE\r\nCNC"),
                          "JX01 SIMULATION=TRUE", "JX01 SIMULATION=FALSE"));
    EXPECT_FALSE(Box("pCHB_JX01_Simul")->isEnabled());
    ClickBox("pCHB_CNC_Simul");
    EXPECT_TRUE(Box("pCHB_JX01_Simul")->isEnabled());
    ClickBox("pCHB_JX01_Simul");
    Save();
    EXPECT_EQ(Saved("CMM", "SIMULATION"), "TRUE");
    EXPECT_EQ(Saved("MEAS_WINDOW", "JX01 SIMULATION"), "TRUE");
}

TEST_F(MacParPage, ManualUnlocksTheResolutionAtTheManualItemAndCncLocksItAtTheCncItem) {
    StartMachine();
    ClickBox("pRB_Manual");
    QComboBox* resolution = Combo("pCB_Resolution");
    EXPECT_TRUE(resolution->isEnabled());
    EXPECT_EQ(resolution->currentText(), QStringLiteral("0.0005"));
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.0005);
    EXPECT_FALSE(Record().Cnc);
    ClickBox("pRB_CNC");
    EXPECT_FALSE(resolution->isEnabled());
    EXPECT_EQ(resolution->currentText(), QStringLiteral("0.0001"));
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.0001);
    ClickBox("pRB_Manual");
    Save();
    EXPECT_EQ(Saved("CMM", "CNC"), "FALSE");
    EXPECT_EQ(Saved("CMM", "RESOLUTION"), "0.000500");
}

TEST_F(MacParPage, TypingAResolutionInManualModeInsertsItFirstAndCncStillSelectsItsOwn) {
    StartMachine(ManualMachine());
    TypeResolution(QStringLiteral("0.002"));
    QComboBox* resolution = Combo("pCB_Resolution");
    EXPECT_EQ(Items(resolution),
              (std::vector<QString>{QStringLiteral("0.002"), QStringLiteral("0.0001"),
                                    QStringLiteral("0.0005")}));
    EXPECT_EQ(resolution->currentIndex(), 0);
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.002);
    ClickBox("pRB_CNC");
    EXPECT_EQ(resolution->currentText(), QStringLiteral("0.0001"));
    ClickBox("pRB_Manual");
    EXPECT_EQ(resolution->currentText(), QStringLiteral("0.002"));
    Save();
    EXPECT_EQ(Saved("CMM", "RESOLUTION"), "0.002000");
}

TEST_F(MacParPage, ATypedResolutionIsShownInItsShortestFormAndFoundInTheList) {
    StartMachine(ManualMachine());
    TypeResolution(QStringLiteral("0.00050"));
    QComboBox* resolution = Combo("pCB_Resolution");
    EXPECT_EQ(resolution->count(), 2);
    EXPECT_EQ(resolution->currentIndex(), 1);
    EXPECT_EQ(resolution->currentText(), QStringLiteral("0.0005"));
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.0005);
}

TEST_F(MacParPage, AResolutionOfZeroOrLessChangesNothing) {
    StartMachine(ManualMachine());
    for (const char* typed : {"0", "-0.001"}) {
        TypeResolution(QString::fromLatin1(typed));
        EXPECT_DOUBLE_EQ(Record().Resolution, 0.0001) << typed;
        EXPECT_EQ(Combo("pCB_Resolution")->currentText(), QStringLiteral("0.0001")) << typed;
        EXPECT_EQ(Combo("pCB_Resolution")->count(), 2) << typed;
    }
    EXPECT_FALSE(Record().Modified);
}

TEST_F(MacParPage, ChoosingAResolutionFromTheListIsRememberedForTheManualMachine) {
    StartMachine(Replaced(ManualMachine(), "RESOLUTION=0.000100", "RESOLUTION=0.000500"));
    Choose("pCB_Resolution", "0.0001");
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.0001);
    ClickBox("pRB_CNC");
    ClickBox("pRB_Manual");
    EXPECT_EQ(Combo("pCB_Resolution")->currentText(), QStringLiteral("0.0001"));
}

TEST_F(MacParPage, ManualWithAHeadChecksAndLocksItsSimulation) {
    StartMachine();
    ASSERT_FALSE(Box("pCHB_Ph9_Simul")->isChecked());
    ClickBox("pRB_Manual");
    EXPECT_TRUE(Box("pCHB_Ph9_Simul")->isChecked());
    EXPECT_FALSE(Box("pCHB_Ph9_Simul")->isEnabled());
    EXPECT_TRUE(Record().Ph9Simulation);
    // The kind of machine and the head's type are separate choices.
    EXPECT_TRUE(Box("p_RB_PHx")->isChecked());
    Save();
    EXPECT_EQ(Saved("Ph9", "SIMULATION"), "TRUE");
}

// ---- PH9 head ---------------------------------------------------------------------------

TEST_F(MacParPage, CheckingPh9PresentOnAManualMachineChecksAndLocksPh9Simulation) {
    StartMachine(Replaced(ManualMachine(), "PH9PRESENT=TRUE", "PH9PRESENT=FALSE"));
    ASSERT_FALSE(Box("pCHB_Ph9_Present")->isChecked());
    ClickBox("pCHB_Ph9_Present");
    EXPECT_TRUE(Record().Ph9Present);
    EXPECT_TRUE(Box("pCHB_Ph9_Simul")->isChecked());
    EXPECT_FALSE(Box("pCHB_Ph9_Simul")->isEnabled());
    EXPECT_TRUE(Record().Ph9Simulation);
    EXPECT_FALSE(Box("p_RB_PHx")->isEnabled());
    Save();
    EXPECT_EQ(Saved("Ph9", "PH9PRESENT"), "TRUE");
    EXPECT_EQ(Saved("Ph9", "SIMULATION"), "TRUE");
}

TEST_F(MacParPage, CheckingPh9PresentOnACncTcpipControllerOffersTheHeadTypes) {
    prefix_.WriteWindowsFile("WZELKO32.INI", "[PH9]\r\nTYPE=1\r\n");
    StartMachine(Replaced(kMachine, "PH9PRESENT=TRUE", "PH9PRESENT=FALSE"));
    EXPECT_FALSE(Box("p_RB_MODRIVAXM")->isEnabled());
    ClickBox("pCHB_Ph9_Present");
    EXPECT_TRUE(Box("pCHB_Ph9_Simul")->isEnabled());
    EXPECT_TRUE(Box("p_RB_PHx")->isEnabled());
    EXPECT_TRUE(Box("p_RB_MODRIVAXM")->isEnabled());
    EXPECT_TRUE(Box("p_RB_MODRIVAXM")->isChecked());
    // RMD has no serial lists to offer, but they are enabled with the head.
    EXPECT_TRUE(Combo("pCB_Ph9_Port")->isEnabled());
    ClickBox("p_RB_PHx");
    Save();
    EXPECT_EQ(Saved("PH9", "TYPE", "WZELKO32.INI"), "0");
}

TEST_F(MacParPage, CheckingPh9PresentOnACncMachineOfAnotherControllerSetsTheFirstHeadType) {
    prefix_.WriteWindowsFile("WZELKO32.INI", "[PH9]\r\nTYPE=1\r\n");
    StartMachine(Replaced(kMachine, "PH9PRESENT=TRUE", "PH9PRESENT=FALSE"), "QEN");
    ClickBox("pCHB_Ph9_Present");
    EXPECT_FALSE(Box("p_RB_PHx")->isEnabled());
    EXPECT_TRUE(Box("p_RB_PHx")->isChecked());
    EXPECT_EQ(Record().Ph9Type, 0);
    EXPECT_TRUE(Combo("pCB_Ph9_Baud")->isEnabled());
    Save();
    EXPECT_EQ(Saved("PH9", "TYPE", "WZELKO32.INI"), "0");
}

TEST_F(MacParPage, ClearingPh9PresentClearsItsSimulationAndLocksItsSettings) {
    StartMachine(Replaced(kMachine, "[Ph9]\r\nSIMULATION=FALSE", "[Ph9]\r\nSIMULATION=TRUE"),
                 "QEN");
    ASSERT_TRUE(Box("pCHB_Ph9_Simul")->isChecked());
    ClickBox("pCHB_Ph9_Present");
    EXPECT_FALSE(Box("pCHB_Ph9_Simul")->isChecked());
    EXPECT_FALSE(Box("pCHB_Ph9_Simul")->isEnabled());
    EXPECT_FALSE(Combo("pCB_Ph9_Port")->isEnabled());
    EXPECT_FALSE(Combo("pCB_Ph9_StopBits")->isEnabled());
    EXPECT_FALSE(Box("p_RB_PHx")->isEnabled());
    EXPECT_FALSE(Record().Ph9Simulation);
    Save();
    EXPECT_EQ(Saved("Ph9", "PH9PRESENT"), "FALSE");
    EXPECT_EQ(Saved("Ph9", "SIMULATION"), "FALSE");
}

TEST_F(MacParPage, ChoosingTheHeadsSerialSettingsRebuildsItsLine) {
    StartMachine(kMachine, "QEN");
    Choose("pCB_Ph9_Port", "COM3");
    Choose("pCB_Ph9_Baud", Language(61).toLatin1().constData());
    Choose("pCB_Ph9_Parity", Language(63).toLatin1().constData());
    Choose("pCB_Ph9_NBits", Language(67).toLatin1().constData());
    Choose("pCB_Ph9_StopBits", Language(70).toLatin1().constData());
    Save();
    EXPECT_EQ(Saved("Ph9", "PORT"), "COM3:19200,E,7,1.5");
}

TEST_F(MacParPage, OddParityIsWrittenAsOAndReadBackAsNone) {
    StartMachine(kMachine, "QEN");
    Choose("pCB_Ph9_Parity", Language(64).toLatin1().constData());
    Save();
    EXPECT_EQ(Saved("Ph9", "PORT"), "COM2:9600,O,8,2");
    CloseWindow();
    StartOnFiles();
    EXPECT_EQ(Combo("pCB_Ph9_Parity")->currentIndex(), 0);
}

// ---- general values ---------------------------------------------------------------------

TEST_F(MacParPage, ApproachDistanceAcceptsBothEnds0_1And100) {
    StartMachine();
    TypeAndLeave("pSLE_DistApproach", QStringLiteral("0.1"));
    EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("0.100"));
    EXPECT_DOUBLE_EQ(Record().DistApproach, 0.1);
    TypeAndLeave("pSLE_DistApproach", QStringLiteral("100"));
    EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("100.000"));
    EXPECT_DOUBLE_EQ(Record().DistApproach, 100.0);
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DIST APPROACH"), "100.000000");
}

TEST_F(MacParPage, ApproachDistance0_09And100_01ShowTheStoredValueAgainWithoutAMessage) {
    StartMachine();
    for (const char* typed : {"0.09", "100.01"}) {
        TypeAndLeave("pSLE_DistApproach", QString::fromLatin1(typed));
        EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("6.000")) << typed;
        EXPECT_DOUBLE_EQ(Record().DistApproach, 6.0) << typed;
    }
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(MacParPage, InInchModeApproachDistance3_937InchesIsAcceptedAnd4IsNot) {
    Start("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[CONTROLLER]\r\nType=RMD\r\n\r\n" +
          std::string(kMachine));
    ASSERT_FALSE(Record().IsMetric());
    TypeAndLeave("pSLE_DistApproach", QStringLiteral("3.937"));
    EXPECT_NEAR(Record().DistApproach, 3.937 * 25.4, 1e-9);
    EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("3.937"));
    TypeAndLeave("pSLE_DistApproach", QStringLiteral("4"));
    EXPECT_NEAR(Record().DistApproach, 3.937 * 25.4, 1e-9);
    EXPECT_EQ(Shown("pSLE_DistApproach"), QStringLiteral("3.937"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DIST APPROACH"), "99.999800");
}

TEST_F(MacParPage, InInchModeTheDepthTypedInInchesIsStoredInMillimetres) {
    Start("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[CONTROLLER]\r\nType=RMD\r\n\r\n" +
          std::string(kMachine));
    TypeAndLeave("pSLE_Depth", QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(Record().Depth, 25.4);
    EXPECT_EQ(Shown("pSLE_Depth"), QStringLiteral("1.000"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DEPTH"), "25.400000");
}

TEST_F(MacParPage, DepthAndOptimalSpeedKeepAnyNumberTyped) {
    StartMachine();
    TypeAndLeave("pSLE_Depth", QStringLiteral("-3.5"));
    TypeAndLeave("pSLE_Optimal_Speed", QStringLiteral("1e3"));
    EXPECT_EQ(Shown("pSLE_Depth"), QStringLiteral("-3.500"));
    EXPECT_EQ(Shown("pSLE_Optimal_Speed"), QStringLiteral("1000.000"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DEPTH"), "-3.500000");
    EXPECT_EQ(Saved("MACHINEPARAM", "OPTSPEED"), "1000.000000");
}

TEST_F(MacParPage, ClearingDepthShowsNotSetAndWritesAnEmptyValue) {
    StartMachine();
    ClickBox("pCHB_Depth");
    EXPECT_FALSE(Edit("pSLE_Depth")->isEnabled());
    EXPECT_EQ(Shown("pSLE_Depth"), Language(72));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DEPTH"), "");
    ClickBox("pCHB_Depth");
    EXPECT_TRUE(Edit("pSLE_Depth")->isEnabled());
    EXPECT_EQ(Shown("pSLE_Depth"), QStringLiteral("12.000"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "DEPTH"), "12.000000");
}

TEST_F(MacParPage, ClearingOptimalSpeedShowsNotSetAndWritesAnEmptyValue) {
    StartMachine();
    ClickBox("pCHB_Optimal_Speed");
    EXPECT_FALSE(Edit("pSLE_Optimal_Speed")->isEnabled());
    EXPECT_EQ(Shown("pSLE_Optimal_Speed"), Language(72));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "OPTSPEED"), "");
    ClickBox("pCHB_Optimal_Speed");
    EXPECT_EQ(Shown("pSLE_Optimal_Speed"), QStringLiteral("250.000"));
}

TEST_F(MacParPage, AnOptimalSpeedThatIsNotGivenStartsDisabledAndNotSet) {
    StartMachine(Replaced(kMachine, "OPTSPEED=250.000000", "OPTSPEED="));
    EXPECT_FALSE(Box("pCHB_Optimal_Speed")->isChecked());
    EXPECT_FALSE(Edit("pSLE_Optimal_Speed")->isEnabled());
    EXPECT_EQ(Shown("pSLE_Optimal_Speed"), Language(72));
}

TEST_F(MacParPage, AScaleFactorShowsThreeDecimalsWhenLeftAndTenWhenLoaded) {
    StartMachine();
    EXPECT_EQ(Shown("pSLE_Term_X"), QStringLiteral("1.0000000000"));
    TypeAndLeave("pSLE_Term_X", QStringLiteral("1.00012345"));
    EXPECT_EQ(Shown("pSLE_Term_X"), QStringLiteral("1.000"));
    EXPECT_DOUBLE_EQ(Record().XTerm, 1.00012345);
    Page("MacParTabSheet")->Load(true);
    EXPECT_EQ(Shown("pSLE_Term_X"), QStringLiteral("1.0001234500"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "XTERM"), "1.0001234500");
}

TEST_F(MacParPage, StoreTakesAScaleFactorThatDiffersOnlyBeyondTenDecimalsAsNoChange) {
    StartMachine();
    Type("pSLE_Term_Y", QStringLiteral("1.00000000000001"));
    Click("pOK");
    EXPECT_FALSE(Record().Modified);
    EXPECT_DOUBLE_EQ(Record().YTerm, 1.0);
}

TEST_F(MacParPage, ToolChangerAndActiveAreWrittenAtOnce) {
    StartMachine();
    ClickBox("pCHB_Tool_Ch");
    ClickBox("pCHB_Active");
    EXPECT_TRUE(Record().ToolChanger);
    EXPECT_TRUE(Record().CompensActive);
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "TOOL CHANGER"), "TRUE");
    EXPECT_EQ(Saved("COMPENS", "ACTIVE", "WZELKO32.INI"), "1");
}

TEST_F(MacParPage, ATextThatIsNotANumberGetsTheConversionMessageAndNothingIsStored) {
    StartMachine();
    for (const char* field : {"pSLE_DistApproach", "pSLE_Depth", "pSLE_Optimal_Speed",
                              "pSLE_Term_X", "pSLE_Term_Y", "pSLE_Term_Z", "pSLE_Term_Part"}) {
        script_.Clear();
        TypeAndLeave(field, QStringLiteral("12,5x"));
        ASSERT_EQ(script_.Count(), 1) << field;
        EXPECT_NE(script_.Shown()[0].text.find("'12,5x' is not a valid floating point value"),
                  std::string::npos)
            << field;
        EXPECT_EQ(Shown(field), QStringLiteral("12,5x")) << field;
    }
    EXPECT_FALSE(Record().Modified);
    script_.Clear();
    Save();
    EXPECT_EQ(script_.Count(), 7) << "the store of Save reports each field again";
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(MacParPage, FileNamesAreUpperCasedWhenTheFieldIsLeft) {
    StartMachine();
    TypeAndLeave("pSLE_CosDatFname", QStringLiteral("cosdat2.bin"));
    EXPECT_EQ(Shown("pSLE_CosDatFname"), QStringLiteral("COSDAT2.BIN"));
    test::TypeInto(Edit("pSLE_CompensFname"), QStringLiteral("c:\\wzelko\\comp\u00e9.dat"));
    PressTab(Edit("pSLE_CompensFname"));
    EXPECT_EQ(Shown("pSLE_CompensFname"), QStringLiteral("C:\\WZELKO\\COMP\u00e9.DAT"));
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "COSDAT FNAME"), "COSDAT2.BIN");
    EXPECT_EQ(Saved("COMPENS", "COMPENS FILE NAME"), "C:\\WZELKO\\COMP\xe9.DAT");
}

// ---- browsing ---------------------------------------------------------------------------

TEST_F(MacParPage, BrowseIsEnabledOnlyAfterEnteringAFileNameField) {
    StartMachine(ManualMachine());
    QPushButton* browse = Button("pPB_BrowserMP");
    EXPECT_FALSE(browse->isEnabled());
    Edit("pSLE_DistApproach")->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(browse->isEnabled());
    Edit("pSLE_CosDatFname")->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(browse->isEnabled());
    PressTab(Edit("pSLE_CosDatFname"));  // to the compensation file
    EXPECT_TRUE(browse->isEnabled());
    ClickBox("pCHB_Tool_Ch");
    EXPECT_FALSE(browse->isEnabled());
    Edit("pSLE_CompensFname")->setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(browse->isEnabled());
    Combo("pCB_Resolution")->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(browse->isEnabled());
    Edit("pSLE_CompensFname")->setFocus(Qt::MouseFocusReason);
    Edit("pSLE_TCPPORT")->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(browse->isEnabled());
}

TEST_F(MacParPage, BrowseOpensInTheWzelkoFolderOfDriveCAndFillsTheLastFileField) {
    const std::filesystem::path wzelko = prefix_.DriveC() / "WZELKO";
    std::filesystem::create_directories(wzelko / "Data");
    StartMachine();
    AnswerFileOpen(wzelko / "Data" / "Cosdat7.bin");
    Edit("pSLE_CosDatFname")->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(Button("pPB_BrowserMP"), Qt::LeftButton);
    auto* dialog = Find<QFileDialog>("OpenFileDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(std::filesystem::path(dialog->directory().absolutePath().toStdString()),
              std::filesystem::canonical(wzelko));
    EXPECT_EQ(dialog->nameFilters(), QStringList{Language(79) + QStringLiteral(" (*.BIN)")});
    EXPECT_EQ(dialog->defaultSuffix(), QStringLiteral("BIN"));
    // The Windows path the measuring application reads, upper case once it is taken.
    EXPECT_EQ(Shown("pSLE_CosDatFname"), QStringLiteral("C:\\WZELKO\\Data\\Cosdat7.bin"));
    EXPECT_TRUE(Edit("pSLE_CosDatFname")->isModified());
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "COSDAT FNAME"), "C:\\WZELKO\\DATA\\COSDAT7.BIN");
    EXPECT_EQ(Shown("pSLE_CosDatFname"), QStringLiteral("C:\\WZELKO\\DATA\\COSDAT7.BIN"));
}

TEST_F(MacParPage, BrowseForTheCompensationFileOffersDatFiles) {
    StartMachine();
    AnswerFileOpen(prefix_.DriveC() / "comp.dat");
    Edit("pSLE_CompensFname")->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(Button("pPB_BrowserMP"), Qt::LeftButton);
    auto* dialog = Find<QFileDialog>("OpenFileDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->nameFilters(), QStringList{Language(80) + QStringLiteral(" (*.DAT)")});
    // No WZELKO folder in this prefix: the dialog opens on drive C itself.
    EXPECT_EQ(std::filesystem::path(dialog->directory().absolutePath().toStdString()),
              std::filesystem::canonical(prefix_.DriveC()));
    // Leaving the field takes it.
    Edit("pSLE_CompensFname")->setFocus(Qt::MouseFocusReason);
    PressTab(Edit("pSLE_CompensFname"));
    EXPECT_EQ(Record().CompensFileName, "C:\\COMP.DAT");
}

TEST_F(MacParPage, CancellingTheFileDialogLeavesTheFieldAsItWas) {
    StartMachine();
    CancelFileOpen();
    Edit("pSLE_CosDatFname")->setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(Button("pPB_BrowserMP"), Qt::LeftButton);
    EXPECT_EQ(Shown("pSLE_CosDatFname"), QStringLiteral("ZELKOCOSDAT1.BIN"));
    EXPECT_FALSE(Edit("pSLE_CosDatFname")->isModified());
    Save();
    EXPECT_EQ(Bytes(), Original());
}

// ---- TCP/IP address ---------------------------------------------------------------------

class MacParTcpip : public MacParPage {
protected:
    void SetUp() override {
        StartMachine(Replaced(kMachine, "USESOCKET=0", "USESOCKET=1"));
        ASSERT_TRUE(Group("pGB_TCPIP")->isVisible());
    }
    QStringList Parts() const {
        return {Shown("pSLE_TCP1"), Shown("pSLE_TCP2"), Shown("pSLE_TCP3"), Shown("pSLE_TCP4")};
    }
};

TEST_F(MacParTcpip, TheAddressIsSplitIntoTheFourFields) {
    EXPECT_EQ(Parts(), (QStringList{"10", "0", "0", "7"}));
    EXPECT_EQ(Shown("pSLE_TCPPORT"), QStringLiteral("2001"));
}

TEST_F(MacParTcpip, Typing256IntoThePartRestoresTheAddressAndKeepsTheFocusThere) {
    TypeAndLeave("pSLE_TCP2", QStringLiteral("256"));
    Settle();
    EXPECT_EQ(Parts(), (QStringList{"10", "0", "0", "7"}));
    EXPECT_TRUE(Edit("pSLE_TCP2")->hasFocus());
    EXPECT_EQ(Record().TcpipAddress, "10.0.0.7");
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(MacParTcpip, Typing10IntoThePartStoresTheJoinedAddress) {
    TypeAndLeave("pSLE_TCP2", QStringLiteral("10"));
    Settle();
    EXPECT_EQ(Record().TcpipAddress, "10.10.0.7");
    EXPECT_TRUE(Edit("pSLE_TCP3")->hasFocus());
    Save();
    EXPECT_EQ(Saved("CMM", "TCPIP Address"), "10.10.0.7");
}

TEST_F(MacParTcpip, APartIsJoinedAsTyped) {
    TypeAndLeave("pSLE_TCP4", QStringLiteral("007"));
    EXPECT_EQ(Record().TcpipAddress, "10.0.0.007");
}

TEST_F(MacParTcpip, AnAddressPartThatIsNotANumberIsReportedRestoredAndGetsTheFocusBack) {
    TypeAndLeave("pSLE_TCP3", QStringLiteral("x1"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_NE(script_.Shown()[0].text.find("'x1' is not a valid integer value"), std::string::npos);
    Settle();
    EXPECT_EQ(Parts(), (QStringList{"10", "0", "0", "7"}));
    EXPECT_TRUE(Edit("pSLE_TCP3")->hasFocus());
    EXPECT_FALSE(Record().Modified);
}

TEST_F(MacParTcpip, TakingTheFocusBackHappensOnceAndSettles) {
    Type("pSLE_TCP1", QStringLiteral("300"));
    int moves = 0;
    const QMetaObject::Connection counting = QObject::connect(
        qApp, &QApplication::focusChanged, [&moves](QWidget*, QWidget*) { ++moves; });
    PressTab(Edit("pSLE_TCP1"));
    for (int i = 0; i < 10; ++i) Settle();
    QObject::disconnect(counting);
    // Tab to the next part, and back.
    EXPECT_EQ(moves, 2);
    EXPECT_TRUE(Edit("pSLE_TCP1")->hasFocus());
    EXPECT_FALSE(Edit("pSLE_TCP2")->isModified());
}

TEST_F(MacParTcpip, TheFocusStaysWithADialogOpenedMeanwhile) {
    TypeAndLeave("pSLE_TCP2", QStringLiteral("999"));
    QDialog dialog(window_.get());
    auto* button = new QPushButton(QStringLiteral("OK"), &dialog);
    dialog.setModal(true);
    dialog.show();
    dialog.activateWindow();
    (void)QTest::qWaitForWindowActive(&dialog, 2000);
    button->setFocus();
    Settle();
    EXPECT_TRUE(button->hasFocus());
    EXPECT_FALSE(Edit("pSLE_TCP2")->hasFocus());
    dialog.close();
}

TEST_F(MacParTcpip, TheFocusDoesNotChaseTheUserWhoHasMovedOn) {
    TypeAndLeave("pSLE_TCP2", QStringLiteral("999"));
    // Before the return could happen, the user is somewhere else already.
    Edit("pSLE_DistApproach")->setFocus(Qt::MouseFocusReason);
    Settle();
    EXPECT_TRUE(Edit("pSLE_DistApproach")->hasFocus());
}

TEST_F(MacParTcpip, ANegativePortPutsTheStoredPortBackAndTakesTheFocusBack) {
    TypeAndLeave("pSLE_TCPPORT", QStringLiteral("-1"));
    Settle();
    EXPECT_EQ(Shown("pSLE_TCPPORT"), QStringLiteral("2001"));
    EXPECT_TRUE(Edit("pSLE_TCPPORT")->hasFocus());
    EXPECT_EQ(Record().TcpipPort, 2001);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(MacParTcpip, APortThatIsNotANumberIsReportedAndPutBack) {
    TypeAndLeave("pSLE_TCPPORT", QStringLiteral("http"));
    EXPECT_EQ(script_.Count(), 1);
    Settle();
    EXPECT_EQ(Shown("pSLE_TCPPORT"), QStringLiteral("2001"));
    EXPECT_TRUE(Edit("pSLE_TCPPORT")->hasFocus());
}

TEST_F(MacParTcpip, ThePortHasNoUpperBound) {
    TypeAndLeave("pSLE_TCPPORT", QStringLiteral("99999"));
    EXPECT_EQ(Record().TcpipPort, 99999);
    Save();
    EXPECT_EQ(Saved("CMM", "TCPIP Port"), "99999");
}

TEST_F(MacParTcpip, OkTakesATypedPartWithoutMovingTheFocus) {
    Type("pSLE_TCP4", QStringLiteral("300"));
    Click("pOK");
    EXPECT_EQ(Parts(), (QStringList{"10", "0", "0", "7"}));
    Type("pSLE_TCP4", QStringLiteral("8"));
    Click("pOK");
    Settle();
    EXPECT_EQ(Record().TcpipAddress, "10.0.0.8");
    EXPECT_TRUE(Edit("pSLE_TCP4")->hasFocus());
}

TEST_F(MacParTcpip, AnAddressTooLongForTheFileIsRefused) {
    TypeAndLeave("pSLE_TCP1", QStringLiteral("0000000000000010"));
    EXPECT_EQ(Record().TcpipAddress, "10.0.0.7");
    EXPECT_EQ(Shown("pSLE_TCP1"), QStringLiteral("10"));
}

TEST_F(MacParPage, AnAddressThatIsNotFourPartsShowsThePartsOfTheDefaultAddress) {
    StartMachine(
        Replaced(Replaced(kMachine, "USESOCKET=0", "USESOCKET=1"), "10.0.0.7", "controller.local"));
    EXPECT_EQ(Shown("pSLE_TCP1"), QStringLiteral("192"));
    EXPECT_EQ(Shown("pSLE_TCP2"), QStringLiteral("168"));
    EXPECT_EQ(Shown("pSLE_TCP3"), QStringLiteral("0"));
    EXPECT_EQ(Shown("pSLE_TCP4"), QStringLiteral("100"));
    // Correcting one part makes the address of the four parts shown.
    TypeAndLeave("pSLE_TCP4", QStringLiteral("101"));
    EXPECT_EQ(Record().TcpipAddress, "192.168.0.101");
}

// ---- the page and the frame -------------------------------------------------------------

TEST_F(MacParPage, IsThePageShownAtStart) {
    StartMachine();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), Page("MacParTabSheet"));
}

TEST_F(MacParPage, EscapeInTheResolutionPutsBackTheRecordsValue) {
    StartMachine(ManualMachine());
    QComboBox* box = Combo("pCB_Resolution");
    box->setFocus(Qt::MouseFocusReason);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("0.3"));
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(box->currentText(), QStringLiteral("0.0001"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(MacParPage, EnterInTheResolutionTakesTheTypedValueWithoutWritingTheFiles) {
    StartMachine(ManualMachine());
    QComboBox* box = Combo("pCB_Resolution");
    box->setFocus(Qt::MouseFocusReason);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("0.003"));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(Record().Resolution, 0.003);
    EXPECT_EQ(box->currentText(), QStringLiteral("0.003"));
    EXPECT_EQ(Bytes(), Original());
}

// The names of the controls Tab visits, from the CNC button round to where it leaves the page.
std::vector<QString> TabWalk(QWidget* page, QWidget* first) {
    first->setFocus(Qt::TabFocusReason);
    std::vector<QString> visited;
    for (int i = 0; i < 80; ++i) {
        QWidget* now = QApplication::focusWidget();
        if (now == nullptr || !page->isAncestorOf(now)) break;
        if (!visited.empty() && now->objectName() == visited.front()) break;
        visited.push_back(now->objectName());
        PressTab(now);
    }
    return visited;
}

long Position(const std::vector<QString>& visited, const char* name) {
    return std::find(visited.begin(), visited.end(), QString::fromLatin1(name)) - visited.begin();
}

void ExpectVisitedOnce(const std::vector<QString>& visited,
                       std::initializer_list<const char*> names) {
    for (const char* name : names) {
        EXPECT_EQ(std::count(visited.begin(), visited.end(), QString::fromLatin1(name)), 1) << name;
    }
}

TEST_F(MacParPage, TabVisitsTheConnectionTheHeadAndTheGeneralValuesInReadingOrder) {
    StartMachine(Replaced(kMachine, "USESOCKET=0", "USESOCKET=1"), "RMD");
    const std::vector<QString> visited = TabWalk(Page("MacParTabSheet"), Find<QWidget>("pRB_CNC"));
    ExpectVisitedOnce(
        visited, {"pCB_Port",           "pCHB_CNC_Simul",     "pCHB_JX01_Simul", "pSLE_TCP1",
                  "pSLE_TCP2",          "pSLE_TCP3",          "pSLE_TCP4",       "pSLE_TCPPORT",
                  "pCHB_Ph9_Present",   "pCHB_Ph9_Simul",     "p_RB_PHx",        "pSLE_CosDatFname",
                  "pSLE_CompensFname",  "pSLE_DistApproach",  "pCHB_Depth",      "pSLE_Depth",
                  "pCHB_Optimal_Speed", "pSLE_Optimal_Speed", "pSLE_Term_X",     "pSLE_Term_Y",
                  "pSLE_Term_Z",        "pSLE_Term_Part",     "pCHB_Tool_Ch",    "pCHB_Active"});
    EXPECT_LT(Position(visited, "pCB_Port"), Position(visited, "pSLE_TCP1"));
    EXPECT_LT(Position(visited, "pSLE_TCPPORT"), Position(visited, "pCHB_Ph9_Present"));
    EXPECT_LT(Position(visited, "p_RB_PHx"), Position(visited, "pSLE_CosDatFname"));
    EXPECT_LT(Position(visited, "pSLE_DistApproach"), Position(visited, "pSLE_Term_X"));
}

TEST_F(MacParPage, TabVisitsTheHeadsSerialSettingsAndBrowseWhenTheyCanBeUsed) {
    StartMachine(ManualMachine(), "QEN");
    Edit("pSLE_CosDatFname")->setFocus(Qt::TabFocusReason);  // Browse has a target now
    const std::vector<QString> visited =
        TabWalk(Page("MacParTabSheet"), Find<QWidget>("pRB_Manual"));
    ExpectVisitedOnce(visited, {"pCB_Resolution", "pCB_Ph9_Port", "pCB_Ph9_Baud", "pCB_Ph9_Parity",
                                "pCB_Ph9_NBits", "pCB_Ph9_StopBits", "pPB_BrowserMP"});
    EXPECT_LT(Position(visited, "pCB_Resolution"), Position(visited, "pCB_Ph9_Port"));
    EXPECT_LT(Position(visited, "pCB_Ph9_StopBits"), Position(visited, "pSLE_CosDatFname"));
    EXPECT_LT(Position(visited, "pSLE_CompensFname"), Position(visited, "pPB_BrowserMP"));
}

}  // namespace
}  // namespace wk
