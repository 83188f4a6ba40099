// `wkestel diff`: settings files compared key by key, by default each with its backup.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli_prefix_test.h"
#include "cli_test_support.h"
#include "support/file_bytes.h"

namespace wk {
namespace {

using test::Crlf;
using test::RunCli;

using DiffCommandTest = test::CliPrefixTest;

TEST_F(DiffCommandTest, WithoutABackupThereIsNothingToCompareAndTheExitCodeIsTwo) {
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[S]", "K=1"}));
    const auto result = RunCli({"--prefix", Prefix(), "diff"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("there is no backup to compare with"), std::string::npos)
        << result.err;
}

TEST_F(DiffCommandTest, AFileEqualToItsBackupExitsZero) {
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[S]", "K=1"}));
    prefix.WriteWindowsFile("WZELKO.BAK", Crlf({"[S]", "K=1"}) + "\xFF");
    const auto result = RunCli({"--prefix", Prefix(), "diff"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out, "WZELKO.BAK -> WZELKO.INI:\n  no difference\n");
}

TEST_F(DiffCommandTest, TheBackupsTrailingByteAfterTheLastValueIsNoDifference) {
    // Without a final line end, the byte the backup appends ends the last value.
    prefix.WriteWindowsFile("WZELKO.INI", "[S]\r\nK=1");
    prefix.WriteWindowsFile("WZELKO.BAK", "[S]\r\nK=1\xFF");
    const auto result = RunCli({"--prefix", Prefix(), "diff"});
    EXPECT_EQ(result.exitCode, 0) << result.out;
}

TEST_F(DiffCommandTest, AChangeSinceTheLastSaveIsListedAndExitsOne) {
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[MACHINEPARAM]", "DIST APPROACH=6.000000"}));
    prefix.WriteWindowsFile("WZELKO32.INI", "");
    // The first save writes every key; the second backs up a file that has them all.
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "resave"}).exitCode, 0);
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "resave"}).exitCode, 0);
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "diff"}).exitCode, 0);
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "profile", "set", "WZELKO.INI", "MACHINEPARAM",
                      "DIST APPROACH", "12.000000"})
                  .exitCode,
              0);
    const auto result = RunCli({"--prefix", Prefix(), "diff"});
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_EQ(result.out,
              "WZELKO.BAK -> WZELKO.INI:\n"
              "  [MACHINEPARAM] DIST APPROACH: \"6.000000\" -> \"12.000000\"\n");
}

TEST_F(DiffCommandTest, JsonListsEachComparisonWithOldAndNewValues) {
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[S]", "K=2", "N=new"}));
    prefix.WriteWindowsFile("WZELKO.BAK", Crlf({"[S]", "K=1", "G=gone"}) + "\xFF");
    prefix.WriteWindowsFile("WZELKO32.INI", Crlf({"[T]", "L=1"}));
    prefix.WriteWindowsFile("WZELKO32.BAK", Crlf({"[T]", "L=1"}) + "\xFF");
    const auto result = RunCli({"--prefix", Prefix(), "diff", "--json"});
    EXPECT_EQ(result.exitCode, 1) << result.err;
    const auto json = nlohmann::json::parse(result.out);
    EXPECT_EQ(json.at("different"), true);
    const auto& comparisons = json.at("comparisons");
    ASSERT_EQ(comparisons.size(), 2u);
    EXPECT_EQ(comparisons[0].at("old"), "WZELKO.BAK");
    EXPECT_EQ(comparisons[0].at("new"), "WZELKO.INI");
    const auto& differences = comparisons[0].at("differences");
    ASSERT_EQ(differences.size(), 3u);
    EXPECT_EQ(
        differences[0],
        (nlohmann::json{
            {"section", "S"}, {"key", "K"}, {"old", "1"}, {"new", "2"}, {"change", "changed"}}));
    EXPECT_EQ(differences[1].at("key"), "G");
    EXPECT_TRUE(differences[1].at("new").is_null());
    EXPECT_EQ(differences[1].at("change"), "removed");
    EXPECT_EQ(differences[2].at("key"), "N");
    EXPECT_TRUE(differences[2].at("old").is_null());
    EXPECT_EQ(differences[2].at("change"), "added");
    EXPECT_EQ(comparisons[1].at("old"), "WZELKO32.BAK");
    EXPECT_TRUE(comparisons[1].at("differences").empty());
}

TEST_F(DiffCommandTest, TwoGivenFilesAreComparedBareNamesInTheWindowsDirectory) {
    prefix.WriteWindowsFile("Wzelko.ini", Crlf({"[S]", "K=1"}));
    const std::filesystem::path other = prefix.Root() / "other.ini";
    test::WriteFileBytes(other, "[s]\nk = 1\n");
    auto result = RunCli({"--prefix", Prefix(), "diff", "WZELKO.INI", other.string()});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(result.out, "WZELKO.INI -> " + other.string() + ":\n  no difference\n");

    test::WriteFileBytes(other, "[s]\nk = 2\n");
    result = RunCli({"--prefix", Prefix(), "diff", other.string(), "wzelko.ini"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, other.string() + " -> wzelko.ini:\n  [s] k: \"2\" -> \"1\"\n");
}

TEST_F(DiffCommandTest, AFileThatCannotBeReadExitsTwoAndSaysWhich) {
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[S]", "K=1"}));
    const auto result = RunCli({"--prefix", Prefix(), "diff", "WZELKO.INI", "NOSUCH.INI"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find("NOSUCH.INI"), std::string::npos) << result.err;
}

TEST_F(DiffCommandTest, OneFileAloneIsAUsageError) {
    const auto result = RunCli({"--prefix", Prefix(), "diff", "WZELKO.INI"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_NE(result.err.find("give NEW_FILE too"), std::string::npos) << result.err;
}

}  // namespace
}  // namespace wk
