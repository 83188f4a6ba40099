#include "settings/init_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class InitSettingsTest : public test::SettingsFileTest {};

TEST_F(InitSettingsTest, MissingExitCodeGivesPositionOne) {
    File(Crlf({"[Wzelko]", "AUTOPOWER=TRUE"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ExitCode, 1u);
    EXPECT_TRUE(record->AutoPower);
}

TEST_F(InitSettingsTest, ExitCodeIsReadWithoutRangeCheck) {
    File(Crlf({"[Wzelko]", "EXITCODE=7"}));
    EXPECT_EQ(ReadRecord()->ExitCode, 7u);
}

TEST_F(InitSettingsTest, AutoPowerFalseAndAutoInitTrueAreReadAsTheyStand) {
    File(Crlf({"[Wzelko]", "AUTOPOWER=FALSE", "AUTOINIT=TRUE"}));
    auto record = ReadRecord();
    EXPECT_FALSE(record->AutoPower);
    EXPECT_TRUE(record->AutoInit);
}

TEST_F(InitSettingsTest, ClearedPh9FirstIsWrittenAsFalse) {
    File(Crlf({"[INIT]", "AUTOPH9=TRUE", "PHFIRST=TRUE"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->Ph9First);
    record->AutoPh9 = false;
    record->Ph9First = false;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "INIT", "PHFIRST"), "FALSE");
    EXPECT_EQ(ValueIn(kWzelkoIni, "INIT", "AUTOPH9"), "FALSE");
}

TEST_F(InitSettingsTest, AutoloadKeyIsABoolInWzelkoAndACodeInSystemparam) {
    File(Crlf({"[Wzelko]", "AUTOLOAD=TRUE", "[SYSTEMPARAM]", "AUTOLOAD=6"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->AutoLoad);
    EXPECT_EQ(record->AutoLoadCode, 6u);
    record->AutoLoad = false;
    record->AutoLoadCode = 3;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "Wzelko", "AUTOLOAD"), "FALSE");
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "AUTOLOAD"), "3");
}

TEST_F(InitSettingsTest, NoInteractiveKeyIsTheInitQuickStartInInitAndTheExecQuickStartInExec) {
    File(Crlf({"[INIT]", "NO_INTERACTIVE=TRUE", "[EXEC]", "NO_INTERACTIVE=FALSE"}));
    auto record = ReadRecord();
    EXPECT_TRUE(record->NoInteractiveInit);
    EXPECT_FALSE(record->NoInteractiveExec);
}

TEST_F(InitSettingsTest, AutoloadCodeAboveSevenIsKeptWithoutCorrection) {
    File(Crlf({"[SYSTEMPARAM]", "AUTOLOAD=12"}));
    EXPECT_EQ(ReadRecord()->AutoLoadCode, 12u);
}

TEST_F(InitSettingsTest, PartProgramNamesKeepOnlyOnExactNoneAndAreUpperCased) {
    File(Crlf({"[EXEC]", "RUN_PPROG=none", "NIL FILE=NONE", "[SYSTEMPARAM]",
               "EXTPROCFILENAME=c:\\wzelko\\ext.tec"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->RunPProg, "NONE");
    EXPECT_EQ(record->NilFileName, "NIL.TEC");
    EXPECT_EQ(record->ExtProcFileName, "C:\\WZELKO\\EXT.TEC");
}

TEST_F(InitSettingsTest, MissingPartProgramKeysEmptyTheNames) {
    File(Crlf({"[EXEC]", "WAIT AT END EXECUTION=TRUE"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->NilFileName, "");
    EXPECT_EQ(record->RunPProg, "");
}

// The start-up level reads the three system file names a second time, heeding case: a
// lower-case "none", which the system parameters took for "NONE", becomes the name "NONE".
TEST_F(InitSettingsTest, SecondReadOfSystemFileNamesTakesLowerCaseNoneAsTheNameNone) {
    File(Crlf(
        {"[SYSTEMPARAM]", "QUALIFILENAME=none", "REFSYSFILENAME=NONE", "MEMORYFILENAME=mem.mem"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->QualiFileName, "NONE");
    EXPECT_EQ(record->RefSysFileName, "REFSYS.REF");
    EXPECT_EQ(record->MemoryFileName, "MEM.MEM");
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "QUALIFILENAME"), "NONE");
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "REFSYSFILENAME"), "REFSYS.REF");
}

}  // namespace
}  // namespace wk
