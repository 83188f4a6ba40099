// `wkestel show | check | resave` through the runner, with captured streams.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "cli_prefix_test.h"
#include "cli_test_support.h"
#include "support/file_bytes.h"

#ifndef WKESTEL_DEMO_PREFIX_DIR
#error "WKESTEL_DEMO_PREFIX_DIR must name demo/prefix"
#endif

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::Crlf;
using test::RunCli;

class SettingsCommandsTest : public test::CliPrefixTest {
protected:
    void Files(const std::string& wzelko, const std::string& wzelko32) {
        prefix.WriteWindowsFile("WZELKO.INI", wzelko);
        prefix.WriteWindowsFile("WZELKO32.INI", wzelko32);
    }
    // The demo machine's files, copied into the test's own prefix.
    void DemoFiles() {
        const fs::path demo = fs::path(WKESTEL_DEMO_PREFIX_DIR) / "drive_c" / "windows";
        for (const char* name : {"WZELKO.INI", "WZELKO32.INI", "WIN.INI"}) {
            prefix.WriteWindowsFile(name, test::ReadFileBytes(demo / name));
        }
    }
};

const std::string kCom9Machine = Crlf({"; test machine", "[CONTROLLER]", "Type=QEN", "[CMM]",
                                       "PORT=COM9:", "CNC=TRUE", "[SYSTEMPARAM]", "GUI=NONE"});

TEST_F(SettingsCommandsTest, ShowListsEveryLevelWithSectionKeyAndFile) {
    DemoFiles();
    const auto result = RunCli({"show"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    for (const char* level : {"ColourSettings", "MachineSettings", "SystemSettings", "InitSettings",
                              "MechOffsetSettings", "DefaultPointsSettings", "SoundSettings",
                              "DirectorySettings", "ControllerSettings", "AxesConvSettings"}) {
        EXPECT_NE(result.out.find(std::string("\n") + level + "\n"), std::string::npos) << level;
    }
    EXPECT_NE(result.out.find("Controller type: \"RMD\" (accepts TCP/IP)"), std::string::npos);
    EXPECT_NE(result.out.find("[MACHINEPARAM] DIST APPROACH  WZELKO.INI"), std::string::npos);
    EXPECT_NE(result.out.find("[PH9] TYPE  WZELKO32.INI"), std::string::npos);
    EXPECT_NE(result.out.find("COM2:9600,N,8,2"), std::string::npos);
}

TEST_F(SettingsCommandsTest, ShowJsonKeysAreTheRecordsFieldNames) {
    Files(Crlf({"[CMM]", "PORT=COM3:", "[MECHAOFFS]", "offy=2.5"}), "");
    const auto result = RunCli({"show", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto json = nlohmann::json::parse(result.out);
    const auto& levels = json.at("levels");
    EXPECT_EQ(levels.size(), 10u);
    EXPECT_EQ(levels.at("MachineSettings").at("PortIndex").at("value"), 2);
    EXPECT_EQ(levels.at("MachineSettings").at("PortIndex").at("section"), "CMM");
    EXPECT_EQ(levels.at("MachineSettings").at("PortIndex").at("key"), "PORT");
    EXPECT_EQ(levels.at("MachineSettings").at("PortIndex").at("file"), "WZELKO.INI");
    EXPECT_EQ(levels.at("MechOffsetSettings").at("OffsetY").at("value"), 2.5);
    EXPECT_EQ(levels.at("AxesConvSettings").at("QenAxesConvention").at("value"), true);
    EXPECT_EQ(levels.at("ColourSettings").at("ColourTable[0]").at("value").at("blue"), 255);
    EXPECT_EQ(json.at("controller").at("type"), "");
    EXPECT_EQ(json.at("controller").at("AcceptsTcpip"), false);
}

TEST_F(SettingsCommandsTest, JsonGivesAnsiTextAsUtf8) {
    Files(Crlf({"[GraphOutput]", "Printer=Imprimante \xE9tage 2", "[CUSTOMER \xC9]", "X=\xE0"}),
          "");
    const auto shown = RunCli({"show", "--json"});
    ASSERT_EQ(shown.exitCode, 0) << shown.err;
    EXPECT_EQ(nlohmann::json::parse(shown.out)
                  .at("levels")
                  .at("SystemSettings")
                  .at("GraphPrinter")
                  .at("value"),
              "IMPRIMANTE \xC3\xA9TAGE 2");  // upper-cased as ASCII only, then UTF-8
    const auto checked = RunCli({"check", "--json"});
    EXPECT_EQ(checked.exitCode, 1) << checked.err;
    EXPECT_NO_THROW(nlohmann::json::parse(checked.out));
}

TEST_F(SettingsCommandsTest, ShowHonoursThePrefixOption) {
    test::TempWinePrefix other;  // now the platform's prefix; the files are in `prefix`
    prefix.WriteWindowsFile("WZELKO.INI", Crlf({"[CMM]", "PORT=COM6:"}));
    const auto result = RunCli({"--prefix", Prefix(), "show", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(nlohmann::json::parse(result.out)
                  .at("levels")
                  .at("MachineSettings")
                  .at("PortIndex")
                  .at("value"),
              5);
}

TEST_F(SettingsCommandsTest, ShowChangedOnTheDemoMachineListsOnlyWhatDiffersFromTheDefaults) {
    DemoFiles();
    const auto all = RunCli({"show"});
    const auto changed = RunCli({"show", "--changed"});
    ASSERT_EQ(changed.exitCode, 0) << changed.err;
    EXPECT_LT(changed.out.size(), all.out.size());
    // The demo machine reaches its RMD controller over TCP/IP, at its own address.
    EXPECT_NE(changed.out.find("  PortIndex                    8  (TCP/IP)"), std::string::npos)
        << changed.out;
    EXPECT_NE(changed.out.find("[CMM] PORT  WZELKO.INI  default 0\n"), std::string::npos)
        << changed.out;
    EXPECT_NE(changed.out.find("\"192.168.10.20\""), std::string::npos);
    // Its approach distance is the default one, and the spare colour entries have no key.
    EXPECT_NE(all.out.find("  DistApproach "), std::string::npos);
    EXPECT_EQ(changed.out.find("  DistApproach "), std::string::npos) << changed.out;
    EXPECT_EQ(changed.out.find("(no key)"), std::string::npos);
    // The measuring unit is read by the record's constructor: never a change.
    EXPECT_EQ(changed.out.find("  Metric "), std::string::npos);
}

TEST_F(SettingsCommandsTest, ShowChangedJsonHasShowsFormWithTheDefaultOfEachSetting) {
    DemoFiles();
    const auto result = RunCli({"show", "--changed", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const auto json = nlohmann::json::parse(result.out);
    EXPECT_EQ(json.at("controller").at("type"), "RMD");
    const auto& port = json.at("levels").at("MachineSettings").at("PortIndex");
    EXPECT_EQ(port.at("value"), 8);
    EXPECT_EQ(port.at("default"), 0);
    EXPECT_EQ(port.at("section"), "CMM");
    EXPECT_EQ(port.at("key"), "PORT");
    EXPECT_EQ(port.at("file"), "WZELKO.INI");
    EXPECT_FALSE(json.at("levels").at("MachineSettings").contains("DistApproach"));
    for (const auto& [level, fields] : json.at("levels").items()) {
        EXPECT_FALSE(fields.empty()) << level;
        for (const auto& [field, entry] : fields.items()) {
            EXPECT_NE(entry.at("value"), entry.at("default")) << level << "." << field;
        }
    }
}

TEST_F(SettingsCommandsTest, ShowChangedCountsAKeyThatReadsEmptyAsAChangeFromItsDefault) {
    // A directory that is not in the file reads empty: the measuring application then has
    // none, not its built-in one.
    Files(Crlf({"[WZELKO]", "DATA_DIR=\\WZELKO\\DATA"}), "");
    const auto json = nlohmann::json::parse(RunCli({"show", "--changed", "--json"}).out);
    const auto& directories = json.at("levels").at("DirectorySettings");
    EXPECT_FALSE(directories.contains("DataDir"));
    EXPECT_EQ(directories.at("SystemDir").at("value"), "");
    EXPECT_EQ(directories.at("SystemDir").at("default"), "\\WZELKO");
}

TEST_F(SettingsCommandsTest, CheckReportsCom9ReadAsCom1AndExitsOne) {
    Files(kCom9Machine, "");
    const auto result = RunCli({"check"});
    EXPECT_EQ(result.exitCode, 1) << result.err;
    EXPECT_NE(result.out.find("[CMM] PORT: \"COM9:\" -> \"COM1:\""), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("[SYSTEMPARAM] GUI: \"NONE\" -> \"QEN\""), std::string::npos);
    EXPECT_NE(result.out.find("[CMM] USESOCKET: added \"0\""), std::string::npos);
    EXPECT_NE(result.out.find("WZELKO32.INI: "), std::string::npos);
}

TEST_F(SettingsCommandsTest, CheckLeavesTheRealFilesAndBackupsUntouched) {
    Files(kCom9Machine, Crlf({"[PH9]", "TYPE=1"}));
    const auto before = fs::last_write_time(prefix.WindowsFile("WZELKO.INI"));
    const auto result = RunCli({"check"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(File("WZELKO.INI"), kCom9Machine);
    EXPECT_EQ(File("WZELKO32.INI"), Crlf({"[PH9]", "TYPE=1"}));
    EXPECT_EQ(fs::last_write_time(prefix.WindowsFile("WZELKO.INI")), before);
    EXPECT_FALSE(Exists("WZELKO.BAK"));
    EXPECT_FALSE(Exists("WZELKO32.BAK"));
    // The platform points at the test's prefix again.
    EXPECT_EQ(RunCli({"profile", "get", "WZELKO.INI", "CMM", "PORT"}).out, "COM9:\n");
}

TEST_F(SettingsCommandsTest, CheckJsonListsOldAndNewValues) {
    Files(kCom9Machine, "");
    const auto result = RunCli({"check", "--json"});
    EXPECT_EQ(result.exitCode, 1);
    const auto json = nlohmann::json::parse(result.out);
    EXPECT_TRUE(json.at("wouldChange"));
    bool found = false;
    for (const auto& change : json.at("changes")) {
        if (change.at("section") == "CMM" && change.at("key") == "PORT") {
            found = true;
            EXPECT_EQ(change.at("old"), "COM9:");
            EXPECT_EQ(change.at("new"), "COM1:");
            EXPECT_EQ(change.at("file"), "WZELKO.INI");
            EXPECT_EQ(change.at("change"), "changed");
        }
    }
    EXPECT_TRUE(found);
}

TEST_F(SettingsCommandsTest, CheckExitsZeroAfterAResave) {
    Files(kCom9Machine, "");
    const auto resave = RunCli({"resave"});
    ASSERT_EQ(resave.exitCode, 0) << resave.err;
    const auto result = RunCli({"check"});
    EXPECT_EQ(result.exitCode, 0) << result.out;
    EXPECT_NE(result.out.find("WZELKO.INI: no change"), std::string::npos);
    EXPECT_NE(result.out.find("WZELKO32.INI: no change"), std::string::npos);
}

TEST_F(SettingsCommandsTest, TheDemoMachineIsSavedAsItStands) {
    DemoFiles();
    const auto result = RunCli({"check"});
    EXPECT_EQ(result.exitCode, 0) << result.out;
}

TEST_F(SettingsCommandsTest, ResaveTakesTheBackupAndWritesEveryGroup) {
    Files(kCom9Machine, "");
    const auto result = RunCli({"resave"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.BAK"), kCom9Machine + '\xFF');
    EXPECT_EQ(RunCli({"profile", "get", "WZELKO.INI", "CMM", "PORT"}).out, "COM1:\n");
    EXPECT_EQ(RunCli({"profile", "get", "WZELKO.INI", "DEFAULT PTS", "TORUS"}).out, "13\n");
    EXPECT_EQ(RunCli({"profile", "get", "WZELKO32.INI", "COMPENS", "METHOD"}).out, "QEN\n");
    // Untouched lines stay: the comment is still the first line.
    EXPECT_EQ(File("WZELKO.INI").rfind("; test machine\r\n[CONTROLLER]\r\n", 0), 0u);
}

TEST_F(SettingsCommandsTest, ResaveOfTheDemoMachineKeepsEveryByte) {
    DemoFiles();
    const std::string before = File("WZELKO.INI");
    const std::string before32 = File("WZELKO32.INI");
    const auto result = RunCli({"resave"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(File("WZELKO.INI"), before);
    EXPECT_EQ(File("WZELKO32.INI"), before32);
    EXPECT_EQ(File("WZELKO.BAK"), before + '\xFF');
}

// New keys of a known section go after its last key line; every line that was there stays.
TEST_F(SettingsCommandsTest, ResaveKeepsCommentsUnknownSectionsAndUnknownKeysByteForByte) {
    const std::string head =
        "; Settings of the measuring application\r\n"
        "\r\n"
        "[CUSTOMER]\r\n"
        "NAME=Officine Rossi\r\n"
        "; keep this\r\n"
        "[CMM]\r\n"
        "PORT=COM2:\r\n"
        "VENDOR NOTE=  spaced value  \r\n";
    const std::string tail =
        "; trailing comment of CMM\r\n"
        "\r\n"
        "[ZZ UNKNOWN]\n"
        "lf only=1\n";
    Files(head + tail, "; 32-bit\r\n[UNKNOWN32]\r\nA=B\r\n");
    ASSERT_EQ(RunCli({"resave"}).exitCode, 0);
    const std::string after = File("WZELKO.INI");
    EXPECT_EQ(after.rfind(head, 0), 0u) << after;
    EXPECT_NE(after.find("USESOCKET=0\r\nRESOLUTION=0.000100\r\n" + tail), std::string::npos)
        << after;
    EXPECT_EQ(File("WZELKO32.INI").rfind("; 32-bit\r\n[UNKNOWN32]\r\nA=B\r\n", 0), 0u);
}

TEST_F(SettingsCommandsTest, ResaveThatCannotWriteSaysWhyAndExitsOne) {
    // A directory where the settings file should be: nothing can replace it.
    fs::create_directory(prefix.WindowsFile("WZELKO.INI"));
    prefix.WriteWindowsFile("WZELKO32.INI", "");
    const auto result = RunCli({"resave"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.err.find("WZELKO.INI"), std::string::npos) << result.err;
}

TEST_F(SettingsCommandsTest, CommandsWithoutAWindowsDirectorySayWhereTheyLooked) {
    fs::remove_all(prefix.WindowsDir());
    for (const char* command : {"show", "check", "resave"}) {
        const auto result = RunCli({command});
        EXPECT_EQ(result.exitCode, 1) << command;
        EXPECT_FALSE(result.err.empty()) << command;
    }
}

}  // namespace
}  // namespace wk
