#include "settings/controller_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class ControllerSettingsTest : public test::SettingsFileTest {};

TEST_F(ControllerSettingsTest, MissingTypeKeyGivesAnEmptyControllerType) {
    File(Crlf({"[Controller]", "Button1=2"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ControllerType, "");
}

TEST_F(ControllerSettingsTest, TypeNoneKeepsQen) {
    File(Crlf({"[Controller]", "Type=none"}));
    EXPECT_EQ(ReadRecord()->ControllerType, "QEN");
}

TEST_F(ControllerSettingsTest, TypeIsUpperCasedAndSettledByTheConstructorOnly) {
    File(Crlf({"[Controller]", "Type=vek3"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ControllerType, "VEK3");
    File(Crlf({"[Controller]", "Type=RMD"}));
    record->ReadAll();
    EXPECT_EQ(record->ControllerType, "VEK3");
}

TEST_F(ControllerSettingsTest, FileWithoutControllerKeysYieldsDefaultsAndWritesSubtypeR7ns) {
    File("");
    auto record = ReadRecord();
    EXPECT_EQ(record->RightButtonFunction, 1);
    EXPECT_EQ(record->MiddleButtonFunction, 4);
    EXPECT_EQ(record->LeftButtonFunction, 3);
    EXPECT_TRUE(record->HardProbeCompensation);
    EXPECT_EQ(record->BaseAddress, 0u);
    EXPECT_DOUBLE_EQ(record->MaxPSpeed, 0.0);
    EXPECT_DOUBLE_EQ(record->MaxMSpeed, 0.0);
    EXPECT_DOUBLE_EQ(record->MaxAccel, 0.0);
    EXPECT_FALSE(record->UseIniMaxSpeeds);
    EXPECT_FALSE(record->IsQd32z);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CONTROLLER", "SUBTYPE"), "R7NS");
    EXPECT_EQ(ValueIn(kWzelkoIni, "Controller", "Hard Probe Compensation"), "1");
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "USE INI MAX SPEEDS AND ACCEL"), "0");
}

TEST_F(ControllerSettingsTest, BaseAddressIsWrittenAsLowerCaseHexadecimalWithoutPrefix) {
    File(Crlf({"[Controller]", "Base Address=2E0"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->BaseAddress, 0x2E0u);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Controller", "Base Address"), "2e0");
    record->BaseAddress = 0x1234;  // typed 12345, cut to 1234 and scanned as hexadecimal
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Controller", "Base Address"), "1234");
}

TEST_F(ControllerSettingsTest, BaseAddressThatDoesNotScanKeepsTheValue) {
    File(Crlf({"[Controller]", "Base Address=zz"}));
    EXPECT_EQ(ReadRecord()->BaseAddress, 0u);
}

// "SUBTYPE" is read with the profile function under "WZELKO.INI" and written through the
// helper under "Wzelko.ini": both reach the same file.
TEST_F(ControllerSettingsTest, SubtypeReadDirectlyAndWrittenThroughTheHelperReachTheSameFile) {
    File(Crlf({"[CONTROLLER]", "SUBTYPE=qd32z"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->IsQd32z);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "CONTROLLER", "SUBTYPE"), "QD32Z");
    EXPECT_FALSE(prefix.Exists("Wzelko.ini"));
}

TEST_F(ControllerSettingsTest, LimitsAndButtonsRoundTrip) {
    File(Crlf({"[Controller]", "Button1=0", "Button2=2", "Button3=4", "Hard Probe Compensation=0",
               "[MACHINEPARAM]", "Max pspeed=250", "Max mspeed=12.5", "Max accel=-1",
               "USE INI MAX SPEEDS AND ACCEL=7"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->RightButtonFunction, 0);
    EXPECT_EQ(record->MiddleButtonFunction, 2);
    EXPECT_EQ(record->LeftButtonFunction, 4);
    EXPECT_FALSE(record->HardProbeCompensation);
    EXPECT_DOUBLE_EQ(record->MaxPSpeed, 250.0);
    EXPECT_DOUBLE_EQ(record->MaxMSpeed, 12.5);
    EXPECT_DOUBLE_EQ(record->MaxAccel, -1.0);
    EXPECT_TRUE(record->UseIniMaxSpeeds);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "Max pspeed"), "250.000000");
    EXPECT_EQ(ValueIn(kWzelkoIni, "MACHINEPARAM", "USE INI MAX SPEEDS AND ACCEL"), "1");
    EXPECT_EQ(ValueIn(kWzelkoIni, "Controller", "Button3"), "4");
}

}  // namespace
}  // namespace wk
