// `wkestel restore`: the settings files put back from their backups, the files replaced
// becoming the backups, all or nothing, after showing what changes and asking.
#include <gtest/gtest.h>

#include <filesystem>

#include "cli_prefix_test.h"
#include "cli_test_support.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::Crlf;
using test::RunCli;
using test::RunCliWithInput;

const std::string kCurrent = Crlf({"[MACHINEPARAM]", "DIST APPROACH=12.000000", "; now"});
const std::string kSaved =
    Crlf({"; as the last save found it", "[MACHINEPARAM]", "DIST APPROACH=6.000000"});
const std::string kCurrent32 = Crlf({"[COMPENS]", "ACTIVE=1"});
const std::string kSaved32 = Crlf({"[COMPENS]", "ACTIVE=0"});

class RestoreCommandTest : public test::CliPrefixTest {
protected:
    void Files() {
        prefix.WriteWindowsFile("WZELKO.INI", kCurrent);
        prefix.WriteWindowsFile("WZELKO.BAK", kSaved + '\xFF');
    }
};

TEST_F(RestoreCommandTest, WithoutABackupNothingIsRestored) {
    prefix.WriteWindowsFile("WZELKO.INI", kCurrent);
    const auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("there is no backup to restore"), std::string::npos) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
}

TEST_F(RestoreCommandTest, YesPutsTheBackupBackWithoutItsTrailingByteAndKeepsTheFileAsBackup) {
    Files();
    const auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kSaved);
    EXPECT_EQ(File("WZELKO.BAK"), kCurrent + '\xFF');
    EXPECT_NE(result.out.find("Restored WZELKO.INI from its backup"), std::string::npos)
        << result.out;
}

TEST_F(RestoreCommandTest, RestoringARestoreGivesBackTheOriginalBytes) {
    Files();
    prefix.WriteWindowsFile("WZELKO32.INI", kCurrent32);
    prefix.WriteWindowsFile("WZELKO32.BAK", kSaved32 + '\xFF');
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "restore", "--yes"}).exitCode, 0);
    EXPECT_EQ(File("WZELKO32.INI"), kSaved32);
    EXPECT_EQ(File("WZELKO32.BAK"), kCurrent32 + '\xFF');
    ASSERT_EQ(RunCli({"--prefix", Prefix(), "restore", "--yes"}).exitCode, 0);
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    EXPECT_EQ(File("WZELKO.BAK"), kSaved + '\xFF');
    EXPECT_EQ(File("WZELKO32.INI"), kCurrent32);
    EXPECT_EQ(File("WZELKO32.BAK"), kSaved32 + '\xFF');
}

TEST_F(RestoreCommandTest, ShowsWhatTheRestoreChangesFirst) {
    Files();
    const auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    EXPECT_EQ(result.out.substr(0, result.out.find("Restored")),
              "What the restore changes:\n"
              "WZELKO.INI -> WZELKO.BAK:\n"
              "  [MACHINEPARAM] DIST APPROACH: \"12.000000\" -> \"6.000000\"\n");
}

TEST_F(RestoreCommandTest, WithoutATerminalAndWithoutYesNothingIsRestored) {
    Files();
    const auto result = RunCliWithInput({"--prefix", Prefix(), "restore"}, "y\n", false);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find("DIST APPROACH"), std::string::npos);  // the preview, all the same
    EXPECT_NE(result.err.find("give --yes"), std::string::npos) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    EXPECT_EQ(File("WZELKO.BAK"), kSaved + '\xFF');
}

TEST_F(RestoreCommandTest, AtATerminalYesRestoresAndAnythingElseDoesNot) {
    Files();
    auto result = RunCliWithInput({"--prefix", Prefix(), "restore"}, "n\n", true);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find("[y/N] Not restored.\n"), std::string::npos) << result.out;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    result = RunCliWithInput({"--prefix", Prefix(), "restore"}, "", true);  // end of input
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    result = RunCliWithInput({"--prefix", Prefix(), "restore"}, "yes\r\n", true);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kSaved);
}

TEST_F(RestoreCommandTest, OnlyThePairsWithABackupAreRestored) {
    prefix.WriteWindowsFile("WZELKO.INI", kCurrent);
    prefix.WriteWindowsFile("WZELKO32.INI", kCurrent32);
    prefix.WriteWindowsFile("WZELKO32.BAK", kSaved32 + '\xFF');
    const auto result = RunCli({"--prefix", Prefix(), "restore", "-y"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    EXPECT_FALSE(Exists("WZELKO.BAK"));
    EXPECT_EQ(File("WZELKO32.INI"), kSaved32);
    EXPECT_EQ(File("WZELKO32.BAK"), kCurrent32 + '\xFF');
}

TEST_F(RestoreCommandTest, AMissingSettingsFileIsMadeFromItsBackupWhichStays) {
    prefix.WriteWindowsFile("WZELKO.BAK", kSaved + '\xFF');
    const auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kSaved);
    EXPECT_EQ(File("WZELKO.BAK"), kSaved + '\xFF');
}

TEST_F(RestoreCommandTest, AReadOnlyFileIsRefusedUnlessForcedAndARefusalChangesNoFile) {
    Files();
    prefix.WriteWindowsFile("WZELKO32.INI", kCurrent32);
    prefix.WriteWindowsFile("WZELKO32.BAK", kSaved32 + '\xFF');
    // The second pair's file cannot be replaced: the first pair is not restored either.
    fs::permissions(prefix.WindowsFile("WZELKO32.INI"), fs::perms::owner_read);
    auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("no file was changed"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("WZELKO32.INI"), std::string::npos) << result.err;
    EXPECT_NE(result.err.find("--force"), std::string::npos) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    EXPECT_EQ(File("WZELKO.BAK"), kSaved + '\xFF');
    EXPECT_EQ(File("WZELKO32.INI"), kCurrent32);
    EXPECT_EQ(File("WZELKO32.BAK"), kSaved32 + '\xFF');

    result = RunCli({"--prefix", Prefix(), "restore", "--yes", "--force"});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kSaved);
    EXPECT_EQ(File("WZELKO32.INI"), kSaved32);
    EXPECT_EQ(fs::status(prefix.WindowsFile("WZELKO32.INI")).permissions() & fs::perms::all,
              fs::perms::owner_read);
}

TEST_F(RestoreCommandTest, ADirectoryInTheBackupsPlaceIsNoBackup) {
    Files();
    fs::remove(prefix.WindowsFile("WZELKO.BAK"));
    fs::create_directory(prefix.WindowsFile("WZELKO.BAK"));
    prefix.WriteWindowsFile("WZELKO32.INI", kCurrent32);
    prefix.WriteWindowsFile("WZELKO32.BAK", kSaved32 + '\xFF');
    const auto result = RunCli({"--prefix", Prefix(), "restore", "--yes"});
    // A directory is no backup: only the second pair has one.
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), kCurrent);
    EXPECT_EQ(File("WZELKO32.INI"), kSaved32);
}

}  // namespace
}  // namespace wk
