// The controller page: mouse buttons, base address, hard probe compensation, QD32Z mode and
// the motion limits, each shown or usable only for the controllers that have it.

#include "pages/controller_page.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <cstdio>
#include <string>
#include <vector>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::PressTab;
using test::TypeInto;

// The lines of the controller section after "Type", and the limits.
const char* const kControllerLines =
    "Button1=0\r\nButton2=2\r\nButton3=4\r\nBase Address=300\r\n"
    "Hard Probe Compensation=1\r\nSUBTYPE=R7NS\r\n";
const char* const kLimits =
    "[MACHINEPARAM]\r\nMax pspeed=400.000000\r\nMax mspeed=20.000000\r\n"
    "Max accel=800.000000\r\nUSE INI MAX SPEEDS AND ACCEL=0\r\n";

// A settings file in English and millimetres for the controller `type` (nullptr: no "Type" key).
std::string ControllerFile(const char* type, const std::string& controllerLines = kControllerLines,
                           const std::string& rest = kLimits) {
    std::string file =
        "[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[MEASURE INTERFACE]\r\n"
        "MEASURE MODE METRIC/INCH=METRIC\r\n\r\n[CONTROLLER]\r\n";
    if (type) file += std::string("Type=") + type + "\r\n";
    return file + controllerLines + "\r\n" + rest;
}

class ControllerPage : public test::PageTest {
protected:
    // The window on a settings file for the controller `type`, the page shown.
    void StartController(const char* type, const std::string& controllerLines = kControllerLines,
                         const std::string& rest = kLimits) {
        StartFile(ControllerFile(type, controllerLines, rest));
    }
    void StartFile(const std::string& file) {
        Start(file);
        page_ = dynamic_cast<TControllerPage*>(Page("ControllerTabSheet"));
        ASSERT_NE(page_, nullptr);
        window_->PageCtl()->SetActivePage(page_);
        QApplication::processEvents();
    }
    QComboBox* List(const char* name) const { return Find<QComboBox>(name); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    QRadioButton* Radio(const char* name) const { return Find<QRadioButton>(name); }
    QGroupBox* Group(const char* name) const { return Find<QGroupBox>(name); }
    bool Shown(const char* name) const { return Find<QWidget>(name)->isVisibleTo(page_); }
    bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
    // Chooses the next function of a mouse button list with the keyboard, as a user does (the
    // one before when the last is chosen).
    void ChooseNext(const char* list) const {
        QComboBox* box = List(list);
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, box->currentIndex() + 1 < box->count() ? Qt::Key_Down : Qt::Key_Up);
    }
    void ClickBox(QAbstractButton* box) const {
        box->setFocus(Qt::TabFocusReason);
        QTest::keyClick(box, Qt::Key_Space);
    }
    std::string Saved(const char* key) const { return PageTest::Saved("Controller", key); }
    std::string SavedLimit(const char* key) const { return PageTest::Saved("MACHINEPARAM", key); }
    QString Caption(int id) const { return Language(id); }

    TControllerPage* page_ = nullptr;
};

const char* const kLimitRows[] = {"pFT_MaxPSpeed", "pFT_MaxAccell", "pFT_MPSpUnity",
                                  "pFT_MAccUnity", "pFT_Square",    "pSLE_MaxPSpeed",
                                  "pSLE_MaxAccell"};
const char* const kMouseControls[] = {"pGBX_MouseButt", "pFT_LeftButt", "pFT_MiddleButt",
                                      "pFT_RightButt",  "pCB_Left",     "pCB_Middle",
                                      "pCB_Right"};

// ---- captions and lists ---------------------------------------------------------------------

TEST_F(ControllerPage, CaptionsComeFromTheLanguageStrings) {
    StartController("RMD");
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Caption(9));
    EXPECT_EQ(Group("pGBX_MouseButt")->title(), Caption(477));
    EXPECT_EQ(Label("pFT_LeftButt")->text(), Caption(481));
    EXPECT_EQ(Label("pFT_MiddleButt")->text(), Caption(482));
    EXPECT_EQ(Label("pFT_RightButt")->text(), Caption(483));
    EXPECT_EQ(Label("pFT_BaseAddr")->text(), Caption(484));
    EXPECT_EQ(Check("pCHB_HpEnabled")->text(), Caption(486));
    EXPECT_EQ(Label("pFT_MaxMSpeed")->text(), Caption(487));
    EXPECT_EQ(Label("pFT_MaxPSpeed")->text(), Caption(488));
    EXPECT_EQ(Label("pFT_MaxAccell")->text(), Caption(489));
    for (const char* unit : {"pFT_MMSpUnity", "pFT_MPSpUnity", "pFT_MAccUnity"}) {
        EXPECT_EQ(Label(unit)->text(), Caption(490)) << unit;
    }
    EXPECT_EQ(Label("pFT_Square")->text(), QStringLiteral("2"));
}

TEST_F(ControllerPage, ControlsWithoutALanguageStringKeepTheirFormCaptions) {
    StartController("RMD");
    EXPECT_EQ(Group("pGrBox_SpeedAndAccel")->title(),
              QStringLiteral("Max speeds and acceleration parameters "));
    EXPECT_EQ(Radio("pRB_FromController")->text(), QStringLiteral("From &Controller"));
    EXPECT_EQ(Radio("pRB_FromSetupFile")->text(), QStringLiteral("From &Setup File"));
    EXPECT_EQ(Check("pCB_IsQD32Z")->text(), QStringLiteral("QD32Z compatible mode"));
}

TEST_F(ControllerPage, EachMouseListOffersTheFiveFunctionsInOrder) {
    StartController("Q5");
    for (const char* name : {"pCB_Left", "pCB_Middle", "pCB_Right"}) {
        QComboBox* list = List(name);
        ASSERT_EQ(list->count(), 5) << name;
        for (int i = 0; i < 5; ++i) EXPECT_EQ(list->itemText(i), Caption(471 + i)) << name;
    }
}

TEST_F(ControllerPage, TheWindowCaptionNamesTheController) {
    // The display name: a language string for the TCP/IP controllers, else the type itself.
    const struct {
        const char* type;
        int nameId;
        const char* name;
    } cases[] = {
        {"RMD", 491, nullptr}, {"kpt", 492, nullptr}, {"Tq", 0, "TQ"}, {"vek3", 0, "VEK3"}};
    for (const auto& c : cases) {
        StartController(c.type);
        const QString name = c.nameId ? Caption(c.nameId) : QString::fromLatin1(c.name);
        EXPECT_EQ(window_->windowTitle(), Caption(1) + QStringLiteral(" - ") + name +
                                              QStringLiteral(" [") + Caption(470) +
                                              QStringLiteral("]"))
            << c.type;
        CloseWindow();
    }
}

// ---- what each controller shows ---------------------------------------------------------------

TEST_F(ControllerPage, RmdShowsTheLimitsAndQd32zAndLeavesButtonsAndHardProbeToTheController) {
    StartController("RMD");
    EXPECT_TRUE(Shown("pGrBox_SpeedAndAccel"));
    EXPECT_TRUE(Shown("pCB_IsQD32Z"));
    EXPECT_FALSE(Shown("pSLE_BaseAddr"));
    EXPECT_FALSE(Shown("pFT_BaseAddr"));
    for (const char* name : kMouseControls) EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_FALSE(Enabled("pCHB_HpEnabled"));
    EXPECT_EQ(Edit("pSLE_MaxMSpeed")->text(), QStringLiteral("20"));
    EXPECT_EQ(Edit("pSLE_MaxPSpeed")->text(), QStringLiteral("400"));
    EXPECT_EQ(Edit("pSLE_MaxAccell")->text(), QStringLiteral("800"));
}

TEST_F(ControllerPage, KptShowsTheLimitsButNotQd32z) {
    StartController("KPT");
    EXPECT_TRUE(Shown("pGrBox_SpeedAndAccel"));
    EXPECT_FALSE(Shown("pCB_IsQD32Z"));
    for (const char* name : kMouseControls) EXPECT_FALSE(Enabled(name)) << name;
}

TEST_F(ControllerPage, Vek3LeavesTheMouseButtonsToTheControllerButNotHardProbe) {
    StartController("Vek3");
    for (const char* name : kMouseControls) EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("pCHB_HpEnabled"));
    EXPECT_FALSE(Shown("pGrBox_SpeedAndAccel"));
    EXPECT_FALSE(Shown("pCB_IsQD32Z"));
    EXPECT_FALSE(Shown("pSLE_BaseAddr"));
}

TEST_F(ControllerPage, TqAloneShowsTheBaseAddressInAtLeastFourUpperCaseHexadecimalDigits) {
    StartController("tq", "Base Address=2fa\r\n");
    EXPECT_TRUE(Shown("pSLE_BaseAddr"));
    EXPECT_TRUE(Shown("pFT_BaseAddr"));
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("02FA"));
    for (const char* name : kMouseControls) EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_FALSE(Shown("pGrBox_SpeedAndAccel"));
}

TEST_F(ControllerPage, MissingTypeHidesSpeedGroupQd32zAndBaseAddressAndEnablesTheMouseLists) {
    StartFile(ControllerFile(nullptr));
    EXPECT_EQ(Record().ControllerType, "");
    EXPECT_FALSE(Shown("pGrBox_SpeedAndAccel"));
    EXPECT_FALSE(Shown("pCB_IsQD32Z"));
    EXPECT_FALSE(Shown("pSLE_BaseAddr"));
    for (const char* name : kMouseControls) EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("pCHB_HpEnabled"));
}

TEST_F(ControllerPage, TypeNoneKeepsQen) {
    StartController("NONE");
    EXPECT_EQ(Record().ControllerType, "QEN");
    EXPECT_EQ(window_->windowTitle(),
              Caption(1) + QStringLiteral(" - QEN [") + Caption(470) + QStringLiteral("]"));
    EXPECT_FALSE(Shown("pGrBox_SpeedAndAccel"));
    for (const char* name : kMouseControls) EXPECT_TRUE(Enabled(name)) << name;
}

// ---- mouse buttons ------------------------------------------------------------------------------

TEST_F(ControllerPage, TheListsShowTheStoredFunctionsRightToLeft) {
    StartController("Q5");
    EXPECT_EQ(List("pCB_Right")->currentIndex(), 0);   // Button1
    EXPECT_EQ(List("pCB_Middle")->currentIndex(), 2);  // Button2
    EXPECT_EQ(List("pCB_Left")->currentIndex(), 4);    // Button3
}

TEST_F(ControllerPage, ChoosingAFunctionStoresItsIndexUnderTheButtonsKey) {
    StartController("Q5");
    ChooseNext("pCB_Right");
    EXPECT_EQ(Record().RightButtonFunction, 1);
    EXPECT_TRUE(Record().Modified);
    ChooseNext("pCB_Middle");
    Save();
    EXPECT_EQ(Saved("Button1"), "1");
    EXPECT_EQ(Saved("Button2"), "3");
    EXPECT_EQ(Saved("Button3"), "4");
}

TEST_F(ControllerPage, AStoredFunctionOutsideTheListSelectsNothingAndIsKept) {
    StartController("Q5", "Button1=7\r\nButton3=-1\r\n");
    EXPECT_EQ(List("pCB_Right")->currentIndex(), -1);
    EXPECT_EQ(List("pCB_Left")->currentIndex(), -1);
    ChooseNext("pCB_Middle");  // another change, so that Save writes
    Save();
    EXPECT_EQ(Saved("Button1"), "7");
    EXPECT_EQ(Saved("Button3"), "4294967295");
}

// ---- the file's defaults --------------------------------------------------------------------

TEST_F(ControllerPage, AFileWithoutControllerKeysGivesTheDefaultsAndWritesR7nsOnTheNextSave) {
    StartFile(
        "[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[MEASURE INTERFACE]\r\n"
        "MEASURE MODE METRIC/INCH=METRIC\r\n");
    EXPECT_EQ(List("pCB_Right")->currentIndex(), 1);
    EXPECT_EQ(List("pCB_Middle")->currentIndex(), 4);
    EXPECT_EQ(List("pCB_Left")->currentIndex(), 3);
    EXPECT_TRUE(Check("pCHB_HpEnabled")->isChecked());
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("0000"));
    EXPECT_EQ(Record().MaxMSpeed, 0.0);
    EXPECT_EQ(Record().MaxPSpeed, 0.0);
    EXPECT_EQ(Record().MaxAccel, 0.0);
    EXPECT_FALSE(Record().UseIniMaxSpeeds);
    EXPECT_FALSE(Record().IsQd32z);
    // Two clicks leave hard probe compensation on but make the record changed.
    ClickBox(Check("pCHB_HpEnabled"));
    ClickBox(Check("pCHB_HpEnabled"));
    Save();
    EXPECT_EQ(PageTest::Saved("CONTROLLER", "SUBTYPE"), "R7NS");
    EXPECT_EQ(Saved("Button1"), "1");
    EXPECT_EQ(Saved("Button2"), "4");
    EXPECT_EQ(Saved("Button3"), "3");
    EXPECT_EQ(Saved("Base Address"), "0");
    EXPECT_EQ(Saved("Hard Probe Compensation"), "1");
    EXPECT_EQ(SavedLimit("Max mspeed"), "0.000000");
    EXPECT_EQ(SavedLimit("USE INI MAX SPEEDS AND ACCEL"), "0");
}

// ---- base address ---------------------------------------------------------------------------

TEST_F(ControllerPage, Typing12345IntoTheBaseAddressShows1234Stores0x1234AndWrites1234) {
    StartController("TQ");
    TypeAndLeave("pSLE_BaseAddr", QStringLiteral("12345"));
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("1234"));
    EXPECT_EQ(Record().BaseAddress, 0x1234u);
    Save();
    EXPECT_EQ(Saved("Base Address"), "1234");
}

TEST_F(ControllerPage, AfterACancelTheBaseAddressShowsTheDecimalForm) {
    StartController("TQ");
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("0300"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("768"));
}

TEST_F(ControllerPage, EditingTheDecimalFormAfterAReloadReadsItAsHexadecimal) {
    StartController("TQ");
    Click("pCancel");
    QLineEdit* address = Edit("pSLE_BaseAddr");
    ASSERT_EQ(address->text(), QStringLiteral("768"));
    address->setFocus(Qt::MouseFocusReason);
    address->end(false);
    QTest::keyClick(address, Qt::Key_Backspace);
    QTest::keyClicks(address, QStringLiteral("8"));
    PressTab(address);
    EXPECT_EQ(Record().BaseAddress, 0x768u);
    Save();
    EXPECT_EQ(Saved("Base Address"), "768");
}

TEST_F(ControllerPage, LowerCaseHexadecimalIsShownInUpperCase) {
    StartController("TQ");
    TypeAndLeave("pSLE_BaseAddr", QStringLiteral("3fc"));
    EXPECT_EQ(Edit("pSLE_BaseAddr")->text(), QStringLiteral("3FC"));
    EXPECT_EQ(Record().BaseAddress, 0x3FCu);
}

TEST_F(ControllerPage, ABaseAddressThatIsNotHexadecimalIsReportedAndTheAddressKept) {
    StartController("TQ");
    TypeAndLeave("pSLE_BaseAddr", QStringLiteral("12G4"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'12G4' is not a valid hexadecimal value");
    EXPECT_EQ(Record().BaseAddress, 0x300u);
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(ControllerPage, AnEmptyBaseAddressIsReportedAndKeepsThePreviousValue) {
    StartController("TQ");
    QLineEdit* address = Edit("pSLE_BaseAddr");
    test::TypeInto(address, QString());
    PressTab(address);
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(Record().BaseAddress, 0x300u);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(ControllerPage, ANonHexadecimalBaseAddressStillPendingIsReportedAgainBySave) {
    StartController("TQ");
    TypeAndLeave("pSLE_BaseAddr", QStringLiteral("xyz"));
    ASSERT_EQ(script_.Count(), 1);
    Edit("pSLE_BaseAddr")->setFocus(Qt::MouseFocusReason);
    Save();
    EXPECT_EQ(script_.Count(), 2);
    EXPECT_EQ(Bytes(), Original());
}

// ---- limits ---------------------------------------------------------------------------------

TEST_F(ControllerPage, ALimitIsShownInItsShortestFormAndWrittenWithSixDecimals) {
    StartController("RMD");
    TypeAndLeave("pSLE_MaxMSpeed", QStringLiteral("20.50"));
    EXPECT_EQ(Edit("pSLE_MaxMSpeed")->text(), QStringLiteral("20.5"));
    EXPECT_DOUBLE_EQ(Record().MaxMSpeed, 20.5);
    Save();
    EXPECT_EQ(SavedLimit("Max mspeed"), "20.500000");
}

TEST_F(ControllerPage, LimitsHaveNoRangeZeroAndNegativeAreTaken) {
    StartController("RMD");
    ClickBox(Radio("pRB_FromSetupFile"));
    TypeAndLeave("pSLE_MaxPSpeed", QStringLiteral("0"));
    TypeAndLeave("pSLE_MaxAccell", QStringLiteral("-12.25"));
    EXPECT_EQ(script_.Count(), 0);
    Save();
    EXPECT_EQ(SavedLimit("Max pspeed"), "0.000000");
    EXPECT_EQ(SavedLimit("Max accel"), "-12.250000");
}

TEST_F(ControllerPage, ALimitThatIsNotANumberIsReportedAndNothingIsStored) {
    StartController("RMD");
    TypeAndLeave("pSLE_MaxMSpeed", QStringLiteral("fast"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'fast' is not a valid floating point value");
    EXPECT_DOUBLE_EQ(Record().MaxMSpeed, 20.0);
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(ControllerPage, FromTheControllerOnlyTheMeasuringSpeedIsEditable) {
    StartController("RMD");
    EXPECT_TRUE(Radio("pRB_FromController")->isChecked());
    EXPECT_FALSE(Radio("pRB_FromSetupFile")->isChecked());
    EXPECT_TRUE(Enabled("pSLE_MaxMSpeed"));
    EXPECT_TRUE(Enabled("pFT_MaxMSpeed"));
    EXPECT_TRUE(Enabled("pFT_MMSpUnity"));
    for (const char* name : kLimitRows) EXPECT_FALSE(Enabled(name)) << name;
}

TEST_F(ControllerPage, FromTheSetupFileEnablesEveryLimitAndIsWrittenAs1) {
    StartController("RMD");
    ClickBox(Radio("pRB_FromSetupFile"));
    EXPECT_TRUE(Record().UseIniMaxSpeeds);
    EXPECT_TRUE(Record().Modified);
    EXPECT_FALSE(Radio("pRB_FromController")->isChecked());
    for (const char* name : kLimitRows) EXPECT_TRUE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("pSLE_MaxMSpeed"));
    Save();
    EXPECT_EQ(SavedLimit("USE INI MAX SPEEDS AND ACCEL"), "1");
}

TEST_F(ControllerPage, BackToTheControllerDisablesThePositioningSpeedAndAcceleration) {
    StartController("RMD", kControllerLines,
                    "[MACHINEPARAM]\r\nUSE INI MAX SPEEDS AND ACCEL=1\r\n");
    EXPECT_TRUE(Radio("pRB_FromSetupFile")->isChecked());
    for (const char* name : kLimitRows) EXPECT_TRUE(Enabled(name)) << name;
    ClickBox(Radio("pRB_FromController"));
    EXPECT_FALSE(Record().UseIniMaxSpeeds);
    for (const char* name : kLimitRows) EXPECT_FALSE(Enabled(name)) << name;
    EXPECT_TRUE(Enabled("pSLE_MaxMSpeed"));
    Save();
    EXPECT_EQ(SavedLimit("USE INI MAX SPEEDS AND ACCEL"), "0");
}

TEST_F(ControllerPage, ChoosingTheSourceAlreadyChosenChangesNothing) {
    StartController("RMD");
    Radio("pRB_FromController")->click();
    EXPECT_FALSE(Record().Modified);
}

TEST_F(ControllerPage, SaveCommitsTheLimitStillBeingTyped) {
    StartController("RMD");
    TypeInto(Edit("pSLE_MaxMSpeed"), QStringLiteral("33"));
    Save();
    EXPECT_EQ(SavedLimit("Max mspeed"), "33.000000");
}

TEST_F(ControllerPage, CancelKeepsTheLimitBeingTypedAndShowsTheOthersAgain) {
    StartController("RMD");
    Record().MaxPSpeed = 123.0;  // in the record, not shown yet
    TypeInto(Edit("pSLE_MaxMSpeed"), QStringLiteral("33"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_MaxMSpeed")->text(), QStringLiteral("33"));
    EXPECT_EQ(Edit("pSLE_MaxPSpeed")->text(), QStringLiteral("123"));
}

// ---- switches -------------------------------------------------------------------------------

TEST_F(ControllerPage, HardProbeCompensationIsWrittenAs0Or1) {
    StartController("Q5");
    EXPECT_TRUE(Check("pCHB_HpEnabled")->isChecked());
    ClickBox(Check("pCHB_HpEnabled"));
    EXPECT_FALSE(Record().HardProbeCompensation);
    Save();
    EXPECT_EQ(Saved("Hard Probe Compensation"), "0");
}

TEST_F(ControllerPage, Qd32zModeIsWrittenAsTheSubtype) {
    StartController("RMD");
    EXPECT_FALSE(Check("pCB_IsQD32Z")->isChecked());
    ClickBox(Check("pCB_IsQD32Z"));
    EXPECT_TRUE(Record().IsQd32z);
    Save();
    EXPECT_EQ(PageTest::Saved("CONTROLLER", "SUBTYPE"), "QD32Z");
}

TEST_F(ControllerPage, TheSubtypeIsReadWithoutRegardToCase) {
    StartController("RMD", "SUBTYPE=qd32z\r\n");
    EXPECT_TRUE(Check("pCB_IsQD32Z")->isChecked());
}

// ---- keyboard -------------------------------------------------------------------------------

TEST_F(ControllerPage, TabGoesDownTheButtonsThenToTheAddressAndHardProbe) {
    StartController("TQ");
    List("pCB_Left")->setFocus(Qt::TabFocusReason);
    const char* order[] = {"pCB_Middle", "pCB_Right", "pSLE_BaseAddr", "pCHB_HpEnabled"};
    for (const char* next : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>(next)) << next;
    }
}

TEST_F(ControllerPage, TabGoesFromTheSourceOfTheLimitsToTheLimits) {
    StartController("RMD", kControllerLines,
                    "[MACHINEPARAM]\r\nUSE INI MAX SPEEDS AND ACCEL=1\r\n");
    Radio("pRB_FromSetupFile")->setFocus(Qt::TabFocusReason);
    const char* order[] = {"pSLE_MaxMSpeed", "pSLE_MaxPSpeed", "pSLE_MaxAccell"};
    for (const char* next : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), Find<QWidget>(next)) << next;
    }
}

// ---- the menu entry -------------------------------------------------------------------------

struct MenuCase {
    const char* type;
    bool shown;
};

class ControllerMenuEntry : public ControllerPage,
                            public ::testing::WithParamInterface<MenuCase> {};

TEST_P(ControllerMenuEntry, IsOfferedOnlyForTheControllersWithOptionsOfTheirOwnAndShowsThePage) {
    StartController(GetParam().type);
    QAction* entry = Action("KestelGenConf_Controller");
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->isVisible(), GetParam().shown);
    EXPECT_EQ(Action("KestelGenConf_ControlSeparator")->isVisible(), GetParam().shown);
    // The tab of the page is there either way; the menu offers it only for those controllers.
    EXPECT_GE(window_->PageCtl()->IndexOf(page_), 0);
    if (!GetParam().shown) return;
    EXPECT_TRUE(entry->isEnabled());
    EXPECT_EQ(entry->text(), Caption(9));
    window_->PageCtl()->SetActivePage(window_->PageCtl()->Sheet(0));
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(window_->HelpContextOfPage(), 22);
}

INSTANTIATE_TEST_SUITE_P(Types, ControllerMenuEntry,
                         ::testing::Values(MenuCase{"RMD", true}, MenuCase{"Tq", true},
                                           MenuCase{"Q5", true}, MenuCase{"vek3", true},
                                           MenuCase{"KPT", false}, MenuCase{"qd32", false},
                                           MenuCase{"QEN", false}),
                         [](const auto& info) { return std::string(info.param.type); });

TEST_F(ControllerPage, Qd32HidesTheMenuEntryButSetsItsFlag) {
    StartController("qd32");
    EXPECT_FALSE(Action("KestelGenConf_Controller")->isVisible());
    EXPECT_TRUE(window_->Flags().IsQd32OrRmd);
}

// ---- fuzz -----------------------------------------------------------------------------------

// Random text typed into every edit and committed by Tab, by the page's store, by OK or by
// Save: a text that is not a number is reported and stores nothing, a number is stored, and the
// file written stays readable with every other key as it was.
TEST_F(ControllerPage, RandomTextInEveryEditIsStoredOrReportedAndNeverDamagesTheFile) {
    const struct {
        const char* type;
        const char* edits[3];
    } runs[] = {{"RMD", {"pSLE_MaxMSpeed", "pSLE_MaxPSpeed", "pSLE_MaxAccell"}},
                {"TQ", {"pSLE_BaseAddr", nullptr, nullptr}}};
    test::RandomText typing(20240517);
    for (const auto& run : runs) {
        const std::string file =
            ControllerFile(run.type, kControllerLines,
                           std::string(kLimits) + "\r\n[OTHER]\r\nuntouched = kept  as is \r\n");
        // What a save without any edit of this page writes: the rest of the file must stay so.
        StartFile(file);
        const std::string baseline = SaveUnchanged();
        CloseWindow();

        StartFile(file);
        if (Shown("pRB_FromSetupFile")) ClickBox(Radio("pRB_FromSetupFile"));
        std::vector<QLineEdit*> edits;
        for (const char* name : run.edits) {
            if (name) edits.push_back(Edit(name));
        }
        for (int step = 0; step < 120; ++step) {
            QLineEdit* edit = edits[static_cast<std::size_t>(typing.Below(int(edits.size())))];
            const QString text = typing.Next();
            const int messages = script_.Count();
            const SetupSettings before = Record();
            test::TypeInto(edit, text);
            const QString typed = edit->text();
            CommitTyped(edit, kCommits[typing.Below(4)]);
            const std::string name =
                edit->objectName().toStdString() + " <- " + typed.toStdString();
            if (edit == Edit("pSLE_BaseAddr")) {
                static const QRegularExpression hex(QStringLiteral("^(0X)?([0-9A-F]{1,4})$"));
                const QRegularExpressionMatch match = hex.match(typed.left(4).toUpper().trimmed());
                if (match.hasMatch()) {
                    EXPECT_EQ(script_.Count(), messages) << name;
                    EXPECT_EQ(Record().BaseAddress, match.captured(2).toUInt(nullptr, 16)) << name;
                } else {
                    EXPECT_EQ(script_.Count(), messages + 1) << name;
                    EXPECT_EQ(Record().BaseAddress, before.BaseAddress) << name;
                }
            } else {
                double expected = 0;
                bool number = true;
                try {
                    expected = StrToFloat(platform::Utf8ToAnsi(typed.toStdString()));
                } catch (const ConversionError&) {
                    number = false;
                }
                double* fields[] = {&Record().MaxMSpeed, &Record().MaxPSpeed, &Record().MaxAccel};
                const double beforeFields[] = {before.MaxMSpeed, before.MaxPSpeed, before.MaxAccel};
                const int index = edit == Edit("pSLE_MaxMSpeed")   ? 0
                                  : edit == Edit("pSLE_MaxPSpeed") ? 1
                                                                   : 2;
                if (number) {
                    EXPECT_EQ(script_.Count(), messages) << name;
                    EXPECT_EQ(*fields[index], expected) << name;
                } else {
                    EXPECT_EQ(script_.Count(), messages + 1) << name;
                    if (script_.Count() > messages) {
                        EXPECT_NE(script_.Shown().back().text.find("is not a valid"),
                                  std::string::npos)
                            << name;
                    }
                    EXPECT_EQ(*fields[index], beforeFields[index]) << name;
                }
            }
            // What is left in the edits is shown from the record again, as entering the page
            // does.
            page_->Load(true);
        }
        // Every key of the page is still there and readable; every other line is as it was.
        const std::string saved = SaveUnchanged();
        unsigned address = 0;
        EXPECT_EQ(std::sscanf(Saved("Base Address").c_str(), "%x", &address), 1);
        for (const char* key : {"Max pspeed", "Max mspeed", "Max accel"}) {
            double value = 0;
            EXPECT_EQ(std::sscanf(SavedLimit(key).c_str(), "%lf", &value), 1) << key;
        }
        EXPECT_EQ(test::ChangedBeyond(baseline, saved,
                                      {"CONTROLLER|BASE ADDRESS", "MACHINEPARAM|MAX PSPEED",
                                       "MACHINEPARAM|MAX MSPEED", "MACHINEPARAM|MAX ACCEL",
                                       "MACHINEPARAM|USE INI MAX SPEEDS AND ACCEL"}),
                  std::set<std::string>{});
        EXPECT_NE(saved.find("untouched = kept  as is \r\n"), std::string::npos);
        CloseWindow();
    }
}

}  // namespace
}  // namespace wk
