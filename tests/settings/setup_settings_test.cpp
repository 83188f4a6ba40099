#include "settings/setup_settings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/text_to_number.h"
#include "settings/settings_files.h"
#include "settings_test_prefix.h"

#ifndef WKESTEL_SETTINGS_GOLDEN_DIR
#error "WKESTEL_SETTINGS_GOLDEN_DIR must name tests/settings/golden"
#endif

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::TcpipController;
using test::ValueIn;

std::string Golden(const std::string& name) {
    std::ifstream in(std::filesystem::path(WKESTEL_SETTINGS_GOLDEN_DIR) / name, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

class SetupSettingsTest : public test::SettingsFileTest {};

TEST_F(SetupSettingsTest, FileWithoutMeasureInterfaceShowsEveryLengthInInches) {
    Files(Crlf({"[CMM]", "PORT=COM1:"}));
    SetupSettings record{ControllerFlags{}};
    EXPECT_FALSE(record.IsMetric());
    EXPECT_EQ(record.FormatLength(25.4, 3, 3), "1.000");
    EXPECT_DOUBLE_EQ(record.ParseLength("1"), 25.4);
}

TEST_F(SetupSettingsTest,
       MetricFormatLengthOfOneAndAHalfWithWidthAndPrecisionZeroGivesSixDecimals) {
    Files(Crlf({"[MEASURE INTERFACE]", "MEASURE MODE METRIC/INCH=metric"}));
    SetupSettings record{ControllerFlags{}};
    EXPECT_TRUE(record.IsMetric());
    EXPECT_EQ(record.FormatLength(1.5, 0, 0), "1.500000");
    EXPECT_EQ(record.FormatLength(6.0, 8, 3), "   6.000");
    EXPECT_DOUBLE_EQ(record.ParseLength(" 12.5 "), 12.5);
}

TEST_F(SetupSettingsTest, ParseLengthRaisesConversionErrorForTextThatIsNotANumber) {
    Files("");
    SetupSettings record{ControllerFlags{}};
    EXPECT_THROW(record.ParseLength("abc"), ConversionError);
}

TEST_F(SetupSettingsTest, MeasureModeOtherThanMetricIsInches) {
    Files(Crlf({"[MEASURE INTERFACE]", "MEASURE MODE METRIC/INCH=INCH"}));
    EXPECT_FALSE(SetupSettings{ControllerFlags{}}.IsMetric());
}

TEST_F(SetupSettingsTest, MetricFlagIsNeverWrittenAndNotChangedByReadAll) {
    Files(Crlf({"[MEASURE INTERFACE]", "MEASURE MODE METRIC/INCH=METRIC"}));
    auto record = ReadRecord();
    Files("");
    record->ReadAll();
    EXPECT_TRUE(record->IsMetric());
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "MEASURE INTERFACE", "MEASURE MODE METRIC/INCH"), "<missing>");
}

TEST_F(SetupSettingsTest, BackupCopiesOnlyWzelkoIniAndIsOneByte0xFFLonger) {
    const std::string source = Crlf({"; comment", "[CMM]", "PORT=COM2:"});
    Files(source, Crlf({"[PH9]", "TYPE=1"}));
    SetupSettings record{ControllerFlags{}};
    record.Modified = true;
    EXPECT_TRUE(record.BackupSettingsFiles());
    EXPECT_FALSE(record.Modified);
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), source + '\xFF');
    EXPECT_FALSE(prefix.Exists("WZELKO32.BAK"));
}

TEST_F(SetupSettingsTest, BackupWithoutWzelkoIniCopiesWzelko32Instead) {
    const std::string source32 = Crlf({"[PH9]", "TYPE=1"});
    prefix.WriteFile("WZELKO32.INI", source32);
    SetupSettings record{ControllerFlags{}};
    EXPECT_TRUE(record.BackupSettingsFiles());
    EXPECT_EQ(prefix.ReadFile("WZELKO32.BAK"), source32 + '\xFF');
    EXPECT_FALSE(prefix.Exists("WZELKO.INI"));
}

// Both files of a pair are opened before either is looked at, so the backup file is
// opened for writing (and emptied) even when its settings file is missing.
TEST_F(SetupSettingsTest, BackupWithNeitherFileMakesNoCopyAndKeepsEarlierBackups) {
    prefix.WriteFile("WZELKO.BAK", "old backup");
    SetupSettings record{ControllerFlags{}};
    EXPECT_FALSE(record.BackupSettingsFiles());
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), "old backup");
    EXPECT_FALSE(std::filesystem::exists(prefix.WindowsDir() / "WZELKO32.BAK"));
}

TEST_F(SetupSettingsTest, WriteAllTakesTheBackupOfTheFileAsItWasBeforeAnyKey) {
    const std::string source = Crlf({"[CMM]", "PORT=COM9:"});
    Files(source);
    auto record = ReadRecord();
    record->Modified = true;
    ASSERT_TRUE(record->WriteAll());
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), source + '\xFF');
    EXPECT_FALSE(record->Modified);
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM1:");
}

TEST_F(SetupSettingsTest, ReadingThenWritingAnEmptyPairGivesTheCompleteFilesInTheDocumentedOrder) {
    Files("", "");
    ASSERT_TRUE(ReadRecord()->WriteAll());
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), Golden("empty-pair.WZELKO.INI"));
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI"), Golden("empty-pair.WZELKO32.INI"));
}

TEST_F(SetupSettingsTest, WriteAllGivesTheBytesOfTheSameWritesOneByOne) {
    const std::string wzelko =
        Crlf({"; a machine", "[CMM]", "PORT=COM9:", "USESOCKET=1", "[Ph9]", "PORT=NONE",
              "[COMPENS]", "METHOD=KV", "[SOUNDS]", "location=NONE", "[OTHER]", "X=1"});
    const std::string wzelko32 = Crlf({"[COMPENS]", "METHOD=RHO", "ACTIVE=1"});

    Files(wzelko, wzelko32);
    auto batched = ReadRecord(TcpipController());
    ASSERT_TRUE(batched->WriteAll());
    const std::string batchedIni = prefix.ReadFile("WZELKO.INI");
    const std::string batched32 = prefix.ReadFile("WZELKO32.INI");

    Files(wzelko, wzelko32);
    auto oneByOne = ReadRecord(TcpipController());
    ASSERT_TRUE(oneByOne->Write());  // the chain's own writes, each straight to disk
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), batchedIni);
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI"), batched32);
}

TEST_F(SetupSettingsTest, CompleteFileWrittenBackChangesOnlyWhatTheRulesChange) {
    // A complete machine in the written forms, with three values the rules replace.
    Files("", "");
    auto first = ReadRecord(TcpipController());
    first->PortIndex = 4;
    first->Ph9Present = true;
    ASSERT_TRUE(first->WriteAll());
    const std::string complete = prefix.ReadFile("WZELKO.INI");
    const std::string complete32 = prefix.ReadFile("WZELKO32.INI");

    auto replaceValue = [](std::string text, const std::string& from, const std::string& to) {
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        if (at != std::string::npos) text.replace(at, from.size(), to);
        return text;
    };
    std::string edited = replaceValue(complete, "PORT=COM5:", "PORT=COM9:");
    edited = replaceValue(edited, "offx=0.000000", "offx=NONE");
    edited = replaceValue(edited, "DIASFERACAL=15.073000", "DIASFERACAL=15.073");
    Files(edited, complete32);
    ASSERT_TRUE(ReadRecord(TcpipController())->WriteAll());

    std::string expected = replaceValue(complete, "PORT=COM5:", "PORT=COM1:");
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), expected);
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI"), complete32);
}

TEST_F(SetupSettingsTest, CommentsUnknownSectionsAndUnknownKeysSurviveAWholeWriteByteForByte) {
    const std::string wzelko =
        "; Settings of the measuring application\r\n"
        "\r\n"
        "[CUSTOMER]\r\n"
        "NAME=Officine Rossi\r\n"
        "; keep this\r\n"
        "[CMM]\r\n"
        "PORT=COM2:\r\n"
        "VENDOR NOTE=  spaced value  \r\n"
        "; trailing comment of CMM\r\n"
        "\r\n"
        "[ZZ UNKNOWN]\n"
        "lf only=1\n";
    Files(wzelko, "; 32-bit\r\n[UNKNOWN32]\r\nA=B\r\n");
    ASSERT_TRUE(ReadRecord()->WriteAll());
    const std::string after = prefix.ReadFile("WZELKO.INI");
    EXPECT_EQ(after.rfind("; Settings of the measuring application\r\n\r\n[CUSTOMER]\r\n"
                          "NAME=Officine Rossi\r\n; keep this\r\n[CMM]\r\nPORT=COM2:\r\n"
                          "VENDOR NOTE=  spaced value  \r\n",
                          0),
              0u);
    EXPECT_NE(after.find("; trailing comment of CMM\r\n\r\n[ZZ UNKNOWN]\nlf only=1\n"),
              std::string::npos);
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI").rfind("; 32-bit\r\n[UNKNOWN32]\r\nA=B\r\n", 0), 0u);
}

TEST_F(SetupSettingsTest, WriteAllReportsAFileThatCannotBeWritten) {
    Files("");
    auto record = ReadRecord();
    // The Windows directory is gone: nothing can be written there.
    std::filesystem::remove_all(prefix.WindowsDir());
    EXPECT_FALSE(record->WriteAll());
}

TEST_F(SetupSettingsTest, ConstructorsRunBaseFirstAndEveryLevelSetsItsDefaults) {
    Files("");
    const SetupSettings record{ControllerFlags{}};
    EXPECT_FALSE(record.Modified);
    EXPECT_EQ(record.ColourTable[0].Colour, 0xFFFFFFu);
    EXPECT_DOUBLE_EQ(record.DistApproach, 6.0);
    EXPECT_DOUBLE_EQ(record.DiaSferaCal, 15.073);
    EXPECT_EQ(record.NilFileName, "NIL.TEC");
    EXPECT_DOUBLE_EQ(record.OffsetX, 0.0);
    EXPECT_EQ(record.CurrentPoints[11].Count, 13u);
    EXPECT_EQ(record.Location, "\\WZELKO\\SOUNDS");
    EXPECT_EQ(record.SystemDir, "\\WZELKO");
    EXPECT_EQ(record.RightButtonFunction, 1);
}

}  // namespace
}  // namespace wk
