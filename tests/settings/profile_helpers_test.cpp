#include "settings/profile_helpers.h"

#include <gtest/gtest.h>

#include <cstring>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::SettingsTestPrefix;
using test::ValueIn;

TEST(ReadProfileText, ReturnsZeroWithEmptyBufferForMissingSectionOrKey) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[CMM]", "PORT=COM2:"}));
    char buffer[40] = "junk";
    EXPECT_EQ(ReadProfileText("PORT", buffer, sizeof buffer, "NO SUCH SECTION"), 0u);
    EXPECT_STREQ(buffer, "");
    std::strcpy(buffer, "junk");
    EXPECT_EQ(ReadProfileText("NO SUCH KEY", buffer, sizeof buffer, "CMM"), 0u);
    EXPECT_STREQ(buffer, "");
    EXPECT_EQ(ReadProfileText("PORT", buffer, sizeof buffer, "cmm"), 5u);
    EXPECT_STREQ(buffer, "COM2:");
}

TEST(ReadProfileText, StoredMissingKeyMarkReadsAsEmpty) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "K=+-"}));
    char buffer[40] = "junk";
    EXPECT_EQ(ReadProfileText("K", buffer, sizeof buffer, "S"), 0u);
    EXPECT_STREQ(buffer, "");
}

TEST(ReadProfileText, ValueLongerThanBufferIsCutToSizeLessOne) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "K=ABCDEFGHIJ"}));
    char buffer[5];
    EXPECT_EQ(ReadProfileText("K", buffer, sizeof buffer, "S"), 4u);
    EXPECT_STREQ(buffer, "ABCD");
    std::string value;
    EXPECT_EQ(ReadProfileString("K", value, 4, "S"), 3u);
    EXPECT_EQ(value, "ABC");
}

TEST(ReadProfileText32, ReadsTheSecondFile) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[PH9]", "TYPE=1"}));
    prefix.WriteFile("WZELKO32.INI", Crlf({"[PH9]", "TYPE=2"}));
    char buffer[10];
    EXPECT_EQ(ReadProfileText32("TYPE", buffer, sizeof buffer, "PH9"), 1u);
    EXPECT_STREQ(buffer, "2");
    std::string value;
    ReadProfileString32("TYPE", value, 80, "PH9");
    EXPECT_EQ(value, "2");
}

TEST(ReadProfileBool, TrueInAnyCaseReadsTrue) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "A=true", "B=True", "C=TRUE"}));
    EXPECT_TRUE(ReadProfileBool("A", "S"));
    EXPECT_TRUE(ReadProfileBool("B", "S"));
    EXPECT_TRUE(ReadProfileBool("C", "S"));
}

TEST(ReadProfileBool, OneYesAndEmptyValueReadFalse) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "A=1", "B=YES", "C="}));
    EXPECT_FALSE(ReadProfileBool("A", "S"));
    EXPECT_FALSE(ReadProfileBool("B", "S"));
    EXPECT_FALSE(ReadProfileBool("C", "S"));
    EXPECT_FALSE(ReadProfileBool("MISSING", "S"));
}

TEST(ReadProfileBool, ComparesWithTheCallersWordIgnoringCase) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "A=metric", "B=TRUE"}));
    EXPECT_TRUE(ReadProfileBool("A", "S", "METRIC"));
    EXPECT_FALSE(ReadProfileBool("B", "S", "METRIC"));
}

TEST(ReadProfileInt, GivesTheDefaultForAMissingKey) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "A=42"}));
    EXPECT_EQ(ReadProfileInt("A", 7, "S"), 42u);
    EXPECT_EQ(ReadProfileInt("B", 7, "S"), 7u);
}

TEST(WriteProfileUInt, MinusOnePatternWritesTenDigits) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", "");
    EXPECT_TRUE(WriteProfileUInt("K", static_cast<std::uint32_t>(-1), "S"));
    EXPECT_EQ(ValueIn(kWzelkoIni, "S", "K"), "4294967295");
}

TEST(WriteProfileBool, WritesUpperCaseWords) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", "");
    WriteProfileBool("A", true, "S");
    WriteProfileBool("B", false, "S");
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), Crlf({"[S]", "A=TRUE", "B=FALSE"}));
}

TEST(WriteProfileString, EmptyStringWritesAnEmptyValue) {
    SettingsTestPrefix prefix;
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "K=OLD"}));
    EXPECT_TRUE(WriteProfileString("K", std::string(), "S"));
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), Crlf({"[S]", "K="}));
}

}  // namespace
}  // namespace wk
