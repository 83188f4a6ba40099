// Two settings files compared key by key: what the measuring application reads, not lines.
#include "settings/settings_file_comparison.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/backup_pairs.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;

std::vector<KeyDifference> Compare(const std::string& before, const std::string& after) {
    return CompareProfileEntries(ProfileEntries(before), ProfileEntries(after));
}

std::vector<std::string> Lines(const std::vector<KeyDifference>& differences) {
    std::vector<std::string> lines;
    for (const KeyDifference& difference : differences) lines.push_back(DifferenceLine(difference));
    return lines;
}

TEST(SettingsFileComparison, CommentsBlankLinesSpacingAndLineEndsAreNoDifference) {
    const std::string before = Crlf({"[CMM]", "PORT=COM1:", "CNC=TRUE"});
    const std::string after = "; edited by hand\n\n[CMM]\n  PORT = COM1:  \n\nCNC=TRUE";
    EXPECT_TRUE(Compare(before, after).empty());
}

TEST(SettingsFileComparison, SectionAndKeyAreMatchedWithoutRegardToCase) {
    EXPECT_TRUE(
        Compare(Crlf({"[Ph9]", "PH9PRESENT=TRUE"}), Crlf({"[PH9]", "ph9present=TRUE"})).empty());
}

TEST(SettingsFileComparison, ValuesAreComparedAsTheProfileFunctionsReadThemUnquoted) {
    EXPECT_TRUE(Compare(Crlf({"[S]", "K=\"a b\""}), Crlf({"[S]", "K=a b"})).empty());
    // Case of a value is part of it.
    EXPECT_EQ(Lines(Compare(Crlf({"[S]", "K=true"}), Crlf({"[S]", "K=TRUE"}))),
              (std::vector<std::string>{"[S] K: \"true\" -> \"TRUE\""}));
}

TEST(SettingsFileComparison, ChangedRemovedAndAddedKeysAreListedBySection) {
    const std::string before = Crlf({"[A]", "one=1", "two=2", "[B]", "three=3"});
    const std::string after = Crlf({"[B]", "three=33", "new in b=4", "[A]", "one=1", "[C]", "x=y"});
    EXPECT_EQ(Lines(Compare(before, after)),
              (std::vector<std::string>{"[A] two: \"2\" -> (missing)", "[B] three: \"3\" -> \"33\"",
                                        "[B] new in b: (missing) -> \"4\"",
                                        "[C] x: (missing) -> \"y\""}));
}

TEST(SettingsFileComparison, AddedAndRemovedKeysHaveNoValueOnTheSideThatLacksThem) {
    const auto differences = Compare(Crlf({"[S]", "gone=1"}), Crlf({"[S]", "new=2"}));
    ASSERT_EQ(differences.size(), 2u);
    EXPECT_EQ(differences[0].Key, "gone");
    EXPECT_EQ(differences[0].Before, "1");
    EXPECT_FALSE(differences[0].After.has_value());
    EXPECT_EQ(differences[1].Key, "new");
    EXPECT_FALSE(differences[1].Before.has_value());
    EXPECT_EQ(differences[1].After, "2");
}

TEST(SettingsFileComparison, ARepeatedSectionOrKeyIsOutOfReachAndSoNoDifference) {
    const std::string before = Crlf({"[S]", "K=1", "K=2", "[S]", "L=3"});
    const std::string after = Crlf({"[S]", "K=1", "K=9", "[S]", "L=4"});
    EXPECT_TRUE(Compare(before, after).empty());
}

TEST(SettingsFileComparison, AnEmptyValueIsAValueAndDiffersFromAMissingKey) {
    EXPECT_EQ(Lines(Compare(Crlf({"[S]", "K="}), Crlf({"[S]"}))),
              (std::vector<std::string>{"[S] K: \"\" -> (missing)"}));
}

TEST(SettingsFileComparison, AUtf16FileIsComparedInTheAnsiCodePage) {
    // "[S]\r\nK=\xE9\r\n" in UTF-16LE with its byte-order mark.
    std::string utf16 = "\xFF\xFE";
    const std::u16string text = u"[S]\r\nK=\u00E9\r\n";
    for (char16_t unit : text) {
        utf16.push_back(static_cast<char>(unit & 0xFF));
        utf16.push_back(static_cast<char>(unit >> 8));
    }
    EXPECT_TRUE(Compare(Crlf({"[S]", "K=\xE9"}), utf16).empty());
    const auto entries = ProfileEntries(utf16);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].Value, "\xE9");
}

TEST(SettingsFileComparison, BackupMarkAtTheEndOfTheLastValueIsNoDifference) {
    // A file without a final line end: the backup's 0xFF would end the last value.
    const std::string file = "[S]\r\nK=1";
    const std::string backup = file + "\xFF";
    EXPECT_FALSE(Compare(file, backup).empty());  // read as it stands, it would differ
    EXPECT_TRUE(Compare(file, WithoutBackupMark(backup)).empty());
}

TEST(SettingsFileComparison, BackupMarkOnALineOfItsOwnIsNoKey) {
    const std::string file = Crlf({"[S]", "K=1"});
    EXPECT_TRUE(Compare(file, file + "\xFF").empty());
}

TEST(SettingsFileComparison, WithoutBackupMarkRemovesOnlyOneTrailingFF) {
    EXPECT_EQ(WithoutBackupMark("ab\xFF\xFF"), "ab\xFF");
    EXPECT_EQ(WithoutBackupMark("ab"), "ab");
    EXPECT_EQ(WithoutBackupMark(""), "");
}

TEST(SettingsFileComparison, BackupFileNamesEndInBakWhateverTheCase) {
    EXPECT_TRUE(IsBackupFileName("WZELKO.BAK"));
    EXPECT_TRUE(IsBackupFileName("/tmp/x/wzelko32.bak"));
    EXPECT_TRUE(IsBackupFileName("C:\\WINDOWS\\Old.Bak"));
    EXPECT_FALSE(IsBackupFileName("WZELKO.INI"));
    EXPECT_FALSE(IsBackupFileName("BAK"));
    EXPECT_FALSE(IsBackupFileName("/tmp/x.bak/WZELKO.INI"));
}

class BackupComparisonTest : public ::testing::Test {
protected:
    test::SettingsTestPrefix prefix;
};

TEST_F(BackupComparisonTest, ABackupIsReadWithoutItsTrailingByte) {
    prefix.WriteFile("WZELKO.INI", "[S]\r\nK=1");
    prefix.WriteFile("WZELKO.BAK", std::string("[S]\r\nK=1") + "\xFF");
    const auto comparisons = CompareWithBackups(BackupDirection::BackupToSettings);
    ASSERT_EQ(comparisons.size(), 1u);
    EXPECT_EQ(comparisons[0].OldName, "WZELKO.BAK");
    EXPECT_EQ(comparisons[0].NewName, "WZELKO.INI");
    EXPECT_TRUE(comparisons[0].Error.empty());
    EXPECT_TRUE(comparisons[0].Differences.empty());
}

TEST_F(BackupComparisonTest, OnlyPairsWithABackupAreCompared) {
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "K=2"}));
    prefix.WriteFile("WZELKO32.INI", Crlf({"[T]", "L=1"}));
    prefix.WriteFile("wzelko32.bak", Crlf({"[T]", "L=0"}) + "\xFF");
    const auto comparisons = CompareWithBackups(BackupDirection::SettingsToBackup);
    ASSERT_EQ(comparisons.size(), 1u);
    EXPECT_EQ(ComparisonText(comparisons),
              "WZELKO32.INI -> WZELKO32.BAK:\n"
              "  [T] L: \"1\" -> \"0\"\n");
}

TEST_F(BackupComparisonTest, AMissingSettingsFileHasNoKeys) {
    prefix.WriteFile("WZELKO.BAK", Crlf({"[S]", "K=1"}) + "\xFF");
    const auto comparisons = CompareWithBackups(BackupDirection::SettingsToBackup);
    ASSERT_EQ(comparisons.size(), 1u);
    EXPECT_EQ(ComparisonText(comparisons),
              "WZELKO.INI (no such file) -> WZELKO.BAK:\n"
              "  [S] K: (missing) -> \"1\"\n");
}

TEST_F(BackupComparisonTest, EqualFilesSayNoDifference) {
    prefix.WriteFile("WZELKO.INI", Crlf({"[S]", "K=1"}));
    prefix.WriteFile("WZELKO.BAK", Crlf({"[S]", "K=1"}) + "\xFF");
    const auto comparisons = CompareWithBackups(BackupDirection::BackupToSettings);
    EXPECT_FALSE(AnyDifference(comparisons));
    EXPECT_EQ(ComparisonText(comparisons), "WZELKO.BAK -> WZELKO.INI:\n  no difference\n");
}

}  // namespace
}  // namespace wk
