// The volumetric compensation method, read and written by the machine level in both files.
#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::SettingsTestPrefix;
using test::ValueIn;

class VolcompMethodTest : public ::testing::Test {
protected:
    void Files(const std::string& wzelko, const std::string& wzelko32) {
        prefix.WriteFile("WZELKO.INI", wzelko);
        prefix.WriteFile("WZELKO32.INI", wzelko32);
    }
    SettingsTestPrefix prefix;
};

TEST_F(VolcompMethodTest, MissingMethodInWzelko32FallsBackToOlderFileKv) {
    Files(Crlf({"[COMPENS]", "METHOD=KV"}), Crlf({"[COMPENS]", "ACTIVE=1"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->VolcompMethod, 2);
    EXPECT_EQ(record->LegacyMethod, 2);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), "KV");
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompMethodTest, NoMethodInEitherFileIsQen) {
    Files("", "");
    auto record = ReadRecord();
    EXPECT_EQ(record->VolcompMethod, 1);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), "QEN");
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "METHOD"), "QEN");
}

TEST_F(VolcompMethodTest, CtrlMethodKeepsTheOlderFileAtItsFormerWord) {
    Files(Crlf({"[COMPENS]", "METHOD=KV"}), Crlf({"[COMPENS]", "METHOD=CTRL"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->VolcompMethod, 4);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), "CTRL");
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "METHOD"), "KV");
}

TEST_F(VolcompMethodTest, RhoMethodIsReadAndWrittenBackUnchanged) {
    Files(Crlf({"[COMPENS]", "METHOD=QEN"}), Crlf({"[COMPENS]", "METHOD=RHO"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->VolcompMethod, 3);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), "RHO");
}

TEST_F(VolcompMethodTest, LowerCaseQenWordIsNotRecognisedSoTheOlderFileDecides) {
    Files(Crlf({"[COMPENS]", "METHOD=KV"}), Crlf({"[COMPENS]", "METHOD=qen"}));
    EXPECT_EQ(ReadRecord()->VolcompMethod, 2);
}

TEST_F(VolcompMethodTest, EveryMethodWordMapsBothWays) {
    const char* words[] = {"NONE", "QEN", "KV", "RHO", "CTRL", "MELDAX"};
    for (int method = 0; method <= 5; ++method) {
        Files("", Crlf({"[COMPENS]", (std::string("METHOD=") + words[method]).c_str()}));
        auto record = ReadRecord();
        EXPECT_EQ(record->VolcompMethod, method) << words[method];
        record->WriteAll();
        EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), words[method]);
    }
}

TEST_F(VolcompMethodTest, MethodOutsideTheTableIsWrittenAsUnk) {
    Files("", "");
    auto record = ReadRecord();
    record->VolcompMethod = 9;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelko32Ini, "COMPENS", "METHOD"), "UNK");
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "METHOD"), "QEN");
}

TEST_F(VolcompMethodTest, CompensModeAndControllerExitModeAreProfileIntegers) {
    Files(Crlf({"[COMPENS]", "COMPENS MODE=2", "[CONTROLLER]", "CTR VOLCOMP ON EXIT=0"}), "");
    auto record = ReadRecord();
    EXPECT_EQ(record->CompensMode, 2);
    EXPECT_EQ(record->CtrVolcompOnExit, 0);
    record->CompensMode = 0;
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "COMPENS", "COMPENS MODE"), "0");
    EXPECT_EQ(ValueIn(kWzelkoIni, "CONTROLLER", "CTR VOLCOMP ON EXIT"), "0");
}

}  // namespace
}  // namespace wk
