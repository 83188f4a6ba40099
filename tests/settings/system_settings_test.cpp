#include "settings/system_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class SystemSettingsTest : public test::SettingsFileTest {};

TEST_F(SystemSettingsTest, FileWithoutAnyKeyYieldsTheDocumentedValues) {
    File(Crlf({"[MEASURE INTERFACE]", "MEASURE MODE METRIC/INCH=METRIC"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->LanguageCode, "");
    EXPECT_FALSE(record->FenWire);
    EXPECT_FALSE(record->Tp200);
    EXPECT_DOUBLE_EQ(record->DiaSferaCal, 15.073);
    EXPECT_EQ(record->QualiFileName, "");
    EXPECT_EQ(record->RefSysFileName, "");
    EXPECT_EQ(record->MemoryFileName, "");
    EXPECT_EQ(record->AutoSave, 0u);
    EXPECT_FALSE(record->TruePosErrDiameter);
    EXPECT_FALSE(record->LinearityErrDiameter);
    EXPECT_FALSE(record->DoubleFormErr);
    EXPECT_FALSE(record->DosPpCompatibility);
    EXPECT_EQ(record->Line3dCompens, 0u);
    EXPECT_DOUBLE_EQ(record->ThresholdAngMiddleRel, 0.0);
    EXPECT_FALSE(record->PrintAtEndExec);
    EXPECT_FALSE(record->SelfAccelerators);
    EXPECT_FALSE(record->UseLastMemories);
    EXPECT_FALSE(record->ForceRef0);
    EXPECT_FALSE(record->GeoTolUseFormat);
    EXPECT_FALSE(record->GeoTolElementCreation);
    EXPECT_FALSE(record->WaitAtEndExecution);
    EXPECT_FALSE(record->ImmediateDataInputWindow);
    EXPECT_FALSE(record->QuickAlignments);
    EXPECT_EQ(record->GraphPrinter, "");
}

TEST_F(SystemSettingsTest, ConstructionDefaultsBeforeReading) {
    File("");
    const SystemSettings system{ControllerFlags{}};
    EXPECT_TRUE(system.FenWire);
    EXPECT_EQ(system.QualiFileName, "QUALI.TIP");
    EXPECT_EQ(system.RefSysFileName, "REFSYS.REF");
    EXPECT_EQ(system.MemoryFileName, "MEMORY.MEM");
    EXPECT_TRUE(system.TruePosErrDiameter);
    EXPECT_TRUE(system.WaitAtEndExecution);
    EXPECT_TRUE(system.QuickAlignments);
    for (std::uint32_t position = 0; position < 8; ++position) {
        EXPECT_EQ(system.AutoSaveCodeToPosition[system.AutoSavePositionToCode[position]], position);
    }
}

TEST_F(SystemSettingsTest, AutosaveNineAndMinusOneBothReadAsZero) {
    File(Crlf({"[SYSTEMPARAM]", "AUTOSAVE=9"}));
    EXPECT_EQ(ReadRecord()->AutoSave, 0u);
    File(Crlf({"[SYSTEMPARAM]", "AUTOSAVE=-1"}));
    EXPECT_EQ(ReadRecord()->AutoSave, 0u);
    File(Crlf({"[SYSTEMPARAM]", "AUTOSAVE=5"}));
    EXPECT_EQ(ReadRecord()->AutoSave, 5u);
}

TEST_F(SystemSettingsTest, LanguageNoneInLowerCaseReadsEngAndItaReadsIta) {
    File(Crlf({"[Wzelko]", "LANGUAGE=none"}));
    EXPECT_EQ(ReadRecord()->LanguageCode, "ENG");
    File(Crlf({"[Wzelko]", "LANGUAGE=ita"}));
    EXPECT_EQ(ReadRecord()->LanguageCode, "ITA");
}

TEST_F(SystemSettingsTest, QualiFileNameNoneKeepsQualiTipAndLowerCaseIsUpperCased) {
    File(Crlf({"[SYSTEMPARAM]", "QUALIFILENAME=NONE", "REFSYSFILENAME=probe.tip"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->QualiFileName, "QUALI.TIP");
    EXPECT_EQ(record->RefSysFileName, "PROBE.TIP");
}

TEST_F(SystemSettingsTest, PrintAtEndExecIsHeldAsOneOrZeroNotTrueOrFalse) {
    File(Crlf({"[EXEC]", "PRINT AT END EXEC=TRUE"}));
    EXPECT_FALSE(ReadRecord()->PrintAtEndExec);
    File(Crlf({"[EXEC]", "PRINT AT END EXEC=1"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->PrintAtEndExec);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "EXEC", "PRINT AT END EXEC"), "1");
    record->PrintAtEndExec = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "EXEC", "PRINT AT END EXEC"), "0");
}

TEST_F(SystemSettingsTest, TrueposerrDiameterInLowerCaseIsWrittenBackUpperCase) {
    File(Crlf({"[OTHER]", "TRUEPOSERR=diameter", "LINEARITY ERROR=Diameter"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->TruePosErrDiameter);
    EXPECT_TRUE(record->LinearityErrDiameter);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "OTHER", "TRUEPOSERR"), "DIAMETER");
    EXPECT_EQ(ValueIn(kWzelkoIni, "OTHER", "LINEARITY ERROR"), "DIAMETER");
    record->TruePosErrDiameter = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "OTHER", "TRUEPOSERR"), "RADIUS");
}

TEST_F(SystemSettingsTest, InchModeShowsDiameterInInchesAndDefaultIsWrittenAs15073000) {
    File("");
    auto record = ReadRecord();
    ASSERT_FALSE(record->IsMetric());
    EXPECT_EQ(record->DiameterToText(25.4), "1.000000");
    EXPECT_DOUBLE_EQ(record->TextToDiameter("1"), 25.4);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "DIASFERACAL"), "15.073000");
}

TEST_F(SystemSettingsTest, Line3dCompensWordsSetTheModeAndOtherTextsLeaveIt) {
    File(Crlf({"[SYSTEMPARAM]", "3D LINE COMPENS=should mode"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->Line3dCompens, 1u);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "3D LINE COMPENS"), "SHOULD MODE");
    File(Crlf({"[SYSTEMPARAM]", "3D LINE COMPENS=SOMETHING"}));
    record->ReadAll();
    EXPECT_EQ(record->Line3dCompens, 1u);
}

TEST_F(SystemSettingsTest, Line3dCompensOtherModeCarriesTheScratchTextOver) {
    File(Crlf({"[OTHER]", "TRUEPOSERR=DIAMETER"}));
    auto record = ReadRecord();
    record->Line3dCompens = 2;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "3D LINE COMPENS"), "DIAMETER");
    record->TruePosErrDiameter = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "3D LINE COMPENS"), "RADIUS");
}

TEST_F(SystemSettingsTest, PrinterNoneKeepsThePrinterAndOtherTextIsUpperCased) {
    File(Crlf({"[GraphOutput]", "Printer=hp laserjet"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->GraphPrinter, "HP LASERJET");
    File(Crlf({"[GraphOutput]", "Printer=none"}));
    record->ReadAll();
    EXPECT_EQ(record->GraphPrinter, "HP LASERJET");
}

TEST_F(SystemSettingsTest, QuickAlignementsKeyKeepsTheFilesSpelling) {
    File(Crlf({"[OTHER]", "QUICK ALIGNEMENTS=TRUE", "QUICK ALIGNMENTS=FALSE"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->QuickAlignments);
    record->QuickAlignments = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "OTHER", "QUICK ALIGNEMENTS"), "FALSE");
}

TEST_F(SystemSettingsTest, DiasferacalThatDoesNotScanKeepsItsValue) {
    File(Crlf({"[SYSTEMPARAM]", "DIASFERACAL=big", "THRESHOLD ANG MIDDLE REL=2.5"}));
    auto record = ReadRecord();
    EXPECT_DOUBLE_EQ(record->DiaSferaCal, 15.073);
    EXPECT_DOUBLE_EQ(record->ThresholdAngMiddleRel, 2.5);
}

}  // namespace
}  // namespace wk
