#include <gtest/gtest.h>

#include <filesystem>

#include "cli_test_support.h"
#include "platform/windows_directory.h"
#include "support/file_bytes.h"
#include "support/temp_prefix.h"

namespace wk::test {
namespace {

const std::string kSample =
    "; written by the installer\r\n"
    "[WZELKO]\r\n"
    "LANGUAGE=ENG\r\n"
    "SYSTEM_DIR=C:\\WZELKO\r\n"
    "\r\n"
    "[CMM]\r\n"
    "PORT = COM3:\r\n"
    "CNC=TRUE\r\n";

class ProfileCommand : public ::testing::Test {
protected:
    void SetUp() override { prefix_.WriteWindowsFile("WZELKO.INI", kSample); }

    CliResult Run(std::vector<std::string> args) {
        args.insert(args.begin(), {"--prefix", prefix_.Root().string()});
        return RunCli(args);
    }

    TempWinePrefix prefix_;
};

TEST_F(ProfileCommand, GetPrintsTheValueOfABareNameMatchedWithoutCase) {
    auto r = Run({"profile", "get", "Wzelko.ini", "cmm", "port"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "COM3:\n");
}

TEST_F(ProfileCommand, GetPrintsWhatABufferOfTheGivenSizeReceives) {
    auto r = Run({"profile", "get", "WZELKO.INI", "WZELKO", "LANGUAGE", "--size", "3"});
    EXPECT_EQ(r.out, "EN\n");
}

TEST_F(ProfileCommand, GetPrintsTheDefaultForAMissingKey) {
    auto r = Run({"profile", "get", "WZELKO.INI", "CMM", "NOPE", "--default", "+-"});
    EXPECT_EQ(r.out, "+-\n");
}

TEST_F(ProfileCommand, KeysListsOneNamePerLine) {
    auto r = Run({"profile", "keys", "WZELKO.INI", "WZELKO"});
    EXPECT_EQ(r.out, "LANGUAGE\nSYSTEM_DIR\n");
}

TEST_F(ProfileCommand, KeysPrintsANameCutByTheBufferAsDelivered) {
    // "LANGUAGE\0SYSTEM_DIR\0" does not fit in 14: 12 characters and two NULs are delivered.
    auto r = Run({"profile", "keys", "WZELKO.INI", "WZELKO", "--size", "14"});
    EXPECT_EQ(r.out, "LANGUAGE\nSYS\n");
}

TEST_F(ProfileCommand, SectionsListsEveryHeader) {
    auto r = Run({"profile", "sections", "WZELKO.INI"});
    EXPECT_EQ(r.out, "WZELKO\nCMM\n");
}

TEST_F(ProfileCommand, IntPrintsTheUnsignedResult) {
    EXPECT_EQ(Run({"profile", "int", "WZELKO.INI", "CMM", "MISSING", "-1"}).out, "4294967295\n");
    EXPECT_EQ(Run({"profile", "int", "WZELKO.INI", "CMM", "PORT", "7"}).out, "0\n");
}

TEST_F(ProfileCommand, SetChangesOnlyTheValuePartOfTheKeyLine) {
    auto r = Run({"profile", "set", "WZELKO.INI", "cmm", "port", "COM1:"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    std::string expected = kSample;
    expected.replace(expected.find("PORT = COM3:"), 12, "PORT =COM1:");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), expected);
}

TEST_F(ProfileCommand, DeleteWithoutKeyRemovesTheSectionButKeepsComments) {
    auto r = Run({"profile", "delete", "WZELKO.INI", "WZELKO"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"),
              "; written by the installer\r\n\r\n[CMM]\r\nPORT = COM3:\r\nCNC=TRUE\r\n");
}

TEST_F(ProfileCommand, DeleteWithKeyRemovesOnlyThatLine) {
    Run({"profile", "delete", "WZELKO.INI", "CMM", "CNC"});
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), kSample.substr(0, kSample.size() - 10));
}

TEST_F(ProfileCommand, AFailedWriteSaysWhyAndExitsOne) {
    // A path through a regular file cannot be written, whoever runs the test.
    WriteFileBytes(prefix_.Root() / "plainfile", "x");
    const auto target = (prefix_.Root() / "plainfile" / "X.INI").string();
    auto r = Run({"profile", "set", target, "S", "K", "V"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("X.INI"), std::string::npos) << r.err;
}

TEST_F(ProfileCommand, AMissingWindowsDirectorySaysWhereAndHowToChooseAPrefix) {
    auto r = RunCli({"--prefix", (prefix_.Root() / "nowhere").string(), "profile", "get",
                     "WZELKO.INI", "CMM", "PORT"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("nowhere"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("WINEPREFIX"), std::string::npos) << r.err;
}

TEST_F(ProfileCommand, ValuesArePassedThroughAsBytes) {
    Run({"profile", "set", "WZELKO.INI", "WZELKO", "NAME", "Caf\xE9"});
    EXPECT_EQ(Run({"profile", "get", "WZELKO.INI", "WZELKO", "NAME"}).out, "Caf\xE9\n");
}

TEST(ProfileCommandUsage, HelpExitsZeroOnEveryLevel) {
    EXPECT_EQ(RunCli({"--help"}).exitCode, 0);
    EXPECT_EQ(RunCli({"profile", "--help"}).exitCode, 0);
    EXPECT_EQ(RunCli({"profile", "get", "--help"}).exitCode, 0);
}

TEST(ProfileCommandUsage, AMissingArgumentIsAUsageError) {
    auto r = RunCli({"profile", "get", "WZELKO.INI"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_FALSE(r.err.empty());
}

}  // namespace
}  // namespace wk::test
