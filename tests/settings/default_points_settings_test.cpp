#include "settings/default_points_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class DefaultPointsSettingsTest : public test::SettingsFileTest {};

TEST_F(DefaultPointsSettingsTest,
       MissingSectionYieldsDefaultsAndWriteStoresFourForCircleUpToThirteenForTorus) {
    File("");
    auto record = ReadRecord();
    const std::uint32_t expected[] = {4, 5, 8, 7, 3, 4, 7, 6, 9, 6, 8, 13};
    for (std::size_t i = 0; i < 12; ++i) EXPECT_EQ(record->CurrentPoints[i].Count, expected[i]);
    record->WriteAll();
    for (std::size_t i = 0; i < 12; ++i) {
        EXPECT_EQ(ValueIn(kWzelkoIni, "DEFAULT PTS", kDefaultPointsKeys[i].Key),
                  std::to_string(expected[i]));
    }
    const std::string file = prefix.ReadFile("WZELKO.INI");
    EXPECT_NE(
        file.find("[DEFAULT PTS]\r\nCIRCLE=4\r\nSPHERE=5\r\nCYLINDER=8\r\nCONE=7\r\nLINE=3\r\n"
                  "PLANE=4\r\nPARAB=7\r\nSLOT=6\r\nSQSLOT=9\r\nELLIPSE=6\r\n"
                  "CIRC_NOT_ALI=8\r\nTORUS=13\r\n"),
        std::string::npos);
}

TEST_F(DefaultPointsSettingsTest, CircleTwoIsIgnoredAndThreeIsTaken) {
    File(Crlf({"[DEFAULT PTS]", "CIRCLE=2"}));
    EXPECT_EQ(ReadRecord()->CurrentPoints[0].Count, 4u);
    File(Crlf({"[DEFAULT PTS]", "CIRCLE=3"}));
    EXPECT_EQ(ReadRecord()->CurrentPoints[0].Count, 3u);
}

TEST_F(DefaultPointsSettingsTest, CountsAboveTheLimitAreTakenAsTheyAre) {
    File(Crlf({"[DEFAULT PTS]", "TORUS=5000"}));
    EXPECT_EQ(ReadRecord()->CurrentPoints[11].Count, 5000u);
}

// The comparison is between unsigned numbers: a negative count passes it and is taken as
// a very large count.
TEST_F(DefaultPointsSettingsTest, NegativeCountPassesTheUnsignedComparisonAsAVeryLargeCount) {
    File(Crlf({"[DEFAULT PTS]", "SPHERE=-1"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->CurrentPoints[1].Count, 4294967295u);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "DEFAULT PTS", "SPHERE"), "4294967295");
}

TEST_F(DefaultPointsSettingsTest, LastPointsReadHoldsTheLastElementsValue) {
    File(Crlf({"[DEFAULT PTS]", "TORUS=2"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->LastPointsRead, 2u);
    EXPECT_EQ(record->CurrentPoints[11].Count, 13u);
}

TEST_F(DefaultPointsSettingsTest, TwelveElementsExistAndNoIndexAboveThem) {
    File("");
    auto record = ReadRecord();
    for (int i = 0; i < 12; ++i) EXPECT_TRUE(record->ElementExists(i)) << i;
    for (int i : {12, 13, 14, 15, 16, 100, -1}) EXPECT_FALSE(record->ElementExists(i)) << i;
}

TEST_F(DefaultPointsSettingsTest, DefaultOnATorusGivesThirteen) {
    File("");
    auto record = ReadRecord();
    EXPECT_EQ(record->DefaultPoints(11), 13u);
    EXPECT_EQ(record->DefaultPoints(0), 4u);
    EXPECT_EQ(record->MinimumPoints[0].Count, 3u);
}

}  // namespace
}  // namespace wk
