#include "settings/mech_offset_settings.h"

#include <gtest/gtest.h>

#include "platform/text_to_number.h"
#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class MechOffsetSettingsTest : public test::SettingsFileTest {};

TEST_F(MechOffsetSettingsTest, OffxNoneReadsAsZeroAndIsWrittenBackAsZeroNumber) {
    File(Crlf({"[MECHAOFFS]", "offx=NONE", "offy=1.25"}));
    auto record = ReadRecord();
    EXPECT_DOUBLE_EQ(record->OffsetX, 0.0);
    EXPECT_DOUBLE_EQ(record->OffsetY, 1.25);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MECHAOFFS", "offx"), "0.000000");
    EXPECT_EQ(ValueIn(kWzelkoIni, "MECHAOFFS", "offy"), "1.250000");
}

TEST_F(MechOffsetSettingsTest,
       MissingMechaoffsSectionLeavesOffsetsZeroAndBridgeStrokeComesFromMachineparam) {
    File(Crlf({"[MACHINEPARAM]", "BRIDGE AXIS STROKE=1500.5"}));
    auto record = ReadRecord();
    EXPECT_DOUBLE_EQ(record->OffsetX, 0.0);
    EXPECT_DOUBLE_EQ(record->OffsetY, 0.0);
    EXPECT_DOUBLE_EQ(record->OffsetZ, 0.0);
    EXPECT_DOUBLE_EQ(record->CompensOffset, 0.0);
    EXPECT_DOUBLE_EQ(record->BridgeAxisStroke, 1500.5);
}

TEST_F(MechOffsetSettingsTest, OffsetKeysAreWrittenInLowerCaseInMechaoffs) {
    prefix.WriteFile("WZELKO.INI", "");
    prefix.WriteFile("WZELKO32.INI", "");
    auto record = ReadRecord();
    record->OffsetZ = -3.5;
    record->WriteAll();
    const std::string file = prefix.ReadFile("WZELKO.INI");
    EXPECT_NE(file.find("[MECHAOFFS]\r\noffx=0.000000\r\noffy=0.000000\r\noffz=-3.500000\r\n"
                        "compensoff=0.000000\r\n"),
              std::string::npos);
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "BRIDGE AXIS STROKE"), "0.000000");
}

TEST_F(MechOffsetSettingsTest, LowerCaseNoneIsNotTheKeepWordAndDoesNotScan) {
    File(Crlf({"[MECHAOFFS]", "offz=none", "compensoff=x"}));
    auto record = ReadRecord();
    EXPECT_DOUBLE_EQ(record->OffsetZ, 0.0);
    EXPECT_DOUBLE_EQ(record->CompensOffset, 0.0);
}

// The offsets are always millimetres: the page converts typed text without the inch factor.
TEST_F(MechOffsetSettingsTest, InInchModeATypedOneIsOneMillimetreNotAnInch) {
    File("");
    auto record = ReadRecord();
    ASSERT_FALSE(record->IsMetric());
    record->OffsetX = StrToFloat("1");
    EXPECT_DOUBLE_EQ(record->OffsetX, 1.0);
    EXPECT_DOUBLE_EQ(record->ParseLength("1"), 25.4);
}

}  // namespace
}  // namespace wk
