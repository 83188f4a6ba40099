// The mechanical offsets page: five lengths, always millimetres.

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "i18n/resgenstring.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::PressTab;
using test::SettingsFile;
using test::TypeInto;

class MecOffPage : public test::PageTest {};

const char* const kFull =
    "[MACHINEPARAM]\r\nBRIDGE AXIS STROKE=1200.000000\r\n\r\n"
    "[MECHAOFFS]\r\noffx=0.000000\r\noffy=152.500000\r\noffz=-310.250000\r\ncompensoff=2.125\r\n";

TEST_F(MecOffPage, ShowsTheFiveValuesInTheirShortestForm) {
    Start(SettingsFile(kFull));
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("0"));
    EXPECT_EQ(Edit("pSLE_OffsetY")->text(), QStringLiteral("152.5"));
    EXPECT_EQ(Edit("pSLE_OffsetZ")->text(), QStringLiteral("-310.25"));
    EXPECT_EQ(Edit("pSLE_CompOffset")->text(), QStringLiteral("2.125"));
    EXPECT_EQ(Edit("pSLE_BridgeStroke")->text(), QStringLiteral("1200"));
}

TEST_F(MecOffPage, CaptionsComeFromTheLanguageStrings) {
    Start(SettingsFile(kFull));
    EXPECT_EQ(window_->PageCtl()->SheetCaption(window_->PageCtl()->ActivePage()), Language(8));
    EXPECT_EQ(Label("pST_OffsetX")->text(), Language(250));
    EXPECT_EQ(Label("pST_OffsetY")->text(), Language(251));
    EXPECT_EQ(Label("pST_OffsetZ")->text(), Language(252));
    EXPECT_EQ(Label("pST_CompOffset")->text(), Language(253));
    EXPECT_EQ(Label("pST_BridgeStroke")->text(), Language(255));
    for (const char* unit : {"pST_CompX_Unity", "pST_CompY_Unity", "pST_CompZ_Unity",
                             "pST_CompOff_Unity", "pST_Bridge_Unity"}) {
        EXPECT_EQ(Label(unit)->text(), Language(86)) << unit;
    }
}

TEST_F(MecOffPage, OffxHoldingNoneReadsAsZeroAndIsWrittenBackAsZero) {
    Start(SettingsFile("[MECHAOFFS]\r\noffx=NONE\r\noffy=1\r\n"));
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("0"));
    EXPECT_DOUBLE_EQ(Record().OffsetX, 0.0);
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("2"));
    PressTab(y);
    Save();
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "0.000000");
    EXPECT_EQ(Saved("MECHAOFFS", "offy"), "2.000000");
}

TEST_F(MecOffPage, MissingMechaoffsSectionLeavesTheOffsetsAtZeroAndReadsTheStrokeFromMachineparam) {
    Start(SettingsFile("[MACHINEPARAM]\r\nBRIDGE AXIS STROKE=850.5\r\n"));
    for (const char* name : {"pSLE_OffsetX", "pSLE_OffsetY", "pSLE_OffsetZ", "pSLE_CompOffset"}) {
        EXPECT_EQ(Edit(name)->text(), QStringLiteral("0")) << name;
    }
    EXPECT_EQ(Edit("pSLE_BridgeStroke")->text(), QStringLiteral("850.5"));
    EXPECT_DOUBLE_EQ(Record().BridgeAxisStroke, 850.5);
}

TEST_F(MecOffPage, Typing1250ShowsItAs125AfterLeavingTheField) {
    Start(SettingsFile(kFull));
    QLineEdit* z = Edit("pSLE_OffsetZ");
    TypeInto(z, QStringLiteral("12.50"));
    PressTab(z);
    EXPECT_EQ(z->text(), QStringLiteral("12.5"));
    EXPECT_DOUBLE_EQ(Record().OffsetZ, 12.5);
}

TEST_F(MecOffPage, InInchModeATyped1IsStoredAs1Millimetre) {
    // No "MEASURE INTERFACE" section: the record is in inches.
    Start("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[MECHAOFFS]\r\noffx=0\r\n");
    ASSERT_FALSE(Record().IsMetric());
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("1"));
    PressTab(x);
    EXPECT_EQ(x->text(), QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(Record().OffsetX, 1.0);
    Save();
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "1.000000");
}

TEST_F(MecOffPage, NoRangeCheck) {
    Start(SettingsFile(kFull));
    QLineEdit* stroke = Edit("pSLE_BridgeStroke");
    TypeInto(stroke, QStringLiteral("-99999.75"));
    PressTab(stroke);
    EXPECT_DOUBLE_EQ(Record().BridgeAxisStroke, -99999.75);
    Save();
    EXPECT_EQ(Saved("MACHINEPARAM", "BRIDGE AXIS STROKE"), "-99999.750000");
}

TEST_F(MecOffPage, LeavingAnUntouchedFieldStoresNothing) {
    Start(SettingsFile(kFull));
    QLineEdit* y = Edit("pSLE_OffsetY");
    y->setFocus(Qt::MouseFocusReason);
    PressTab(y);
    EXPECT_FALSE(Record().Modified);
}

TEST_F(MecOffPage, EnteringTheSheetShowsTheRecordAgain) {
    Start(SettingsFile(kFull));
    auto* ok = window_->findChild<QPushButton*>(QStringLiteral("pOK"));
    ok->setFocus(Qt::MouseFocusReason);
    Record().OffsetY = 42.0;  // as another page of the record might change it
    Edit("pSLE_OffsetY")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Edit("pSLE_OffsetY")->text(), QStringLiteral("42"));
}

TEST_F(MecOffPage, LoadWithoutRefreshAllPutsBackOnlyTheModifiedFields) {
    Start(SettingsFile(kFull));
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("9"));
    Record().OffsetX = 5.0;  // in the record, not shown yet
    Click("pCancel");
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("0"));
}

TEST_F(MecOffPage, ControlsCarryTheirNames) {
    Start(SettingsFile(kFull));
    for (const char* name :
         {"pSLE_OffsetX", "pSLE_OffsetY", "pSLE_OffsetZ", "pSLE_CompOffset", "pSLE_BridgeStroke"}) {
        EXPECT_NE(Edit(name), nullptr) << name;
    }
    for (const char* name : {"pST_OffsetX", "pST_OffsetY", "pST_OffsetZ", "pST_CompOffset",
                             "pST_BridgeStroke", "pST_CompX_Unity", "pST_CompY_Unity",
                             "pST_CompZ_Unity", "pST_CompOff_Unity", "pST_Bridge_Unity"}) {
        EXPECT_NE(Label(name), nullptr) << name;
    }
    EXPECT_NE(window_->findChild<QWidget*>(QStringLiteral("MecOffTabSheet")), nullptr);
}

}  // namespace
}  // namespace wk
