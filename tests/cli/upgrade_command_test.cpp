#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "cli_test_support.h"
#include "platform/windows_directory.h"
#include "support/temp_prefix.h"

namespace wk::test {
namespace {

class UpgradeCommand : public ::testing::Test {
protected:
    CliResult Run(std::vector<std::string> args = {"upgrade"}) {
        args.insert(args.begin(), {"--prefix", prefix_.Root().string()});
        return RunCli(args);
    }

    TempWinePrefix prefix_;
};

TEST_F(UpgradeCommand, PrintsPerPassWhatItCarriedAndWhatItLeftAndExitsZero) {
    prefix_.WriteWindowsFile("WZELKO.INI",
                             "[CMM]\r\nCNC=TRUE\r\nPORT=COM1:\r\nSPEED=1\r\nNEW=5\r\nUNITS=MM\r\n");
    prefix_.WriteWindowsFile("WZELKO.SAV",
                             "[CMM]\r\nCNC=FALSE\r\nPORT=COM3:\r\nSPEED=NONE\r\nUNITS=MM\r\n");
    prefix_.WriteWindowsFile("WZELKO32.INI", "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=1\r\n");
    prefix_.WriteWindowsFile("WZELKO32INI.SAVE", "[COMPENS]\r\nMETHOD=TABLE\r\nACTIVE=0\r\n");
    auto r = Run();
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out,
              "Pass 1: C:\\windows\\WZELKO.SAV into C:\\windows\\WZELKO.INI\n"
              "  left    [CMM] CNC: kept as installed\n"
              "  carried [CMM] PORT=COM3:  (was COM1:)\n"
              "  left    [CMM] SPEED: the saved value is NONE\n"
              "  left    [CMM] NEW: not in the saved file\n"
              "  carried [CMM] UNITS=MM  (unchanged)\n"
              "Pass 2: C:\\windows\\WZELKO32INI.SAVE into C:\\windows\\WZELKO32.INI\n"
              "  left    [COMPENS] METHOD: kept as installed, the saved method is not CTRL "
              "(saved TABLE)\n"
              "  carried [COMPENS] ACTIVE=0  (was 1)\n");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"),
              "[CMM]\r\nCNC=TRUE\r\nPORT=COM3:\r\nSPEED=1\r\nNEW=5\r\nUNITS=MM\r\n");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO32.INI"), "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=0\r\n");
}

TEST_F(UpgradeCommand, ShowsTheStatusTextOfEachPassOnTheErrorStream) {
    prefix_.WriteWindowsFile("WZELKO.INI", "[A]\r\nK=1\r\n");
    prefix_.WriteWindowsFile("WZELKO.SAV", "[A]\r\nK=2\r\n");
    prefix_.WriteWindowsFile("WZELKO32.INI", "[B]\r\nK=1\r\n");
    prefix_.WriteWindowsFile("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    auto r = Run();
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err,
              "Upgrading WZELKO.INI. Please Wait...\n"
              "Upgrading WZELKO32.INI. Please Wait...\n");
}

TEST_F(UpgradeCommand, SaysWhichPassesItSkippedAndExitsZeroWithoutSavedFiles) {
    prefix_.WriteWindowsFile("WZELKO.INI", "[A]\r\nK=1\r\n");
    auto r = Run();
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out,
              "Pass 1: C:\\windows\\WZELKO.SAV into C:\\windows\\WZELKO.INI\n"
              "  skipped: no saved file\n"
              "Pass 2: C:\\windows\\WZELKO32INI.SAVE into C:\\windows\\WZELKO32.INI\n"
              "  skipped: no saved file\n");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), "[A]\r\nK=1\r\n");
}

TEST_F(UpgradeCommand, ExitsOneWithTheReasonWhenAFreshFileCannotBeOpened) {
    prefix_.WriteWindowsFile("WZELKO.SAV", "[A]\r\nK=2\r\n");
    prefix_.WriteWindowsFile("WZELKO32.INI", "[B]\r\nK=1\r\n");
    prefix_.WriteWindowsFile("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    auto r = Run();
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("wkestel: cannot open C:\\windows\\WZELKO.INI"), std::string::npos)
        << r.err;
    EXPECT_NE(r.out.find("  not run: the upgrade ended in an earlier pass\n"), std::string::npos)
        << r.out;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO32.INI"), "[B]\r\nK=1\r\n");
}

TEST_F(UpgradeCommand, ExitsOneWithTheReasonWhenTheWorkFileCannotBeCreated) {
    std::filesystem::create_directory(prefix_.WindowsFile("TEMP.TMP"));
    prefix_.WriteWindowsFile("WZELKO.INI", "[A]\r\nK=1\r\n");
    prefix_.WriteWindowsFile("WZELKO.SAV", "[A]\r\nK=2\r\n");
    auto r = Run();
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("TEMP.TMP"), std::string::npos) << r.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), "[A]\r\nK=1\r\n");
}

TEST_F(UpgradeCommand, ExitsOneWhenThePrefixHasNoWindowsDirectory) {
    auto r = RunCli({"--prefix", (prefix_.Root() / "nowhere").string(), "upgrade"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find("nowhere"), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
}

TEST_F(UpgradeCommand, UsesWineprefixWhenNoPrefixIsGiven) {
    prefix_.WriteWindowsFile("WZELKO.INI", "[A]\r\nK=1\r\n");
    prefix_.WriteWindowsFile("WZELKO.SAV", "[A]\r\nK=2\r\n");
    const char* before = std::getenv("WINEPREFIX");
    const std::string saved = before ? before : "";
    platform::SetWinePrefixOverride("");
    ::setenv("WINEPREFIX", prefix_.Root().c_str(), 1);
    auto r = RunCli({"upgrade"});
    if (before) {
        ::setenv("WINEPREFIX", saved.c_str(), 1);
    } else {
        ::unsetenv("WINEPREFIX");
    }
    platform::SetWinePrefixOverride(prefix_.Root().string());
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), "[A]\r\nK=2\r\n");
}

TEST(UpgradeCommandUsage, HelpExitsZero) {
    auto r = RunCli({"upgrade", "--help"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_NE(r.out.find("WZELKO32INI.SAVE"), std::string::npos) << r.out;
}

}  // namespace
}  // namespace wk::test
