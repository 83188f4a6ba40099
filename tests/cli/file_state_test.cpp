// The commands are never silent about a settings file that is missing or cannot be read,
// respect read-only files unless told --force, and warn of writes that cannot be read back.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "cli_test_support.h"
#include "support/file_bytes.h"
#include "support/temp_prefix.h"

namespace wk::test {
namespace {

namespace fs = std::filesystem;

const std::string kSample = "[CMM]\r\nPORT=COM3:\r\n";

class CommandFileState : public ::testing::Test {
protected:
    CliResult Run(std::vector<std::string> args) {
        args.insert(args.begin(), {"--prefix", prefix_.Root().string()});
        return RunCli(args);
    }
    std::string Path(const char* name) const { return prefix_.WindowsFile(name).string(); }
    void ReadOnly(const char* name) const {
        fs::permissions(Path(name),
                        fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    }

    TempWinePrefix prefix_;
};

TEST_F(CommandFileState, GetOnAMissingFileGivesTheDefaultExitsZeroAndSaysSoInOneLine) {
    const auto r = Run({"profile", "get", "NONE.INI", "CMM", "PORT", "--default", "d"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "d\n");
    EXPECT_EQ(r.err, "wkestel: " + Path("NONE.INI") +
                         ": does not exist; read as Windows reads a file it cannot open: the "
                         "default\n");
}

TEST_F(CommandFileState, GetOnAReadableFileSaysNothingBesidesTheValue) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    const auto r = Run({"profile", "get", "WZELKO.INI", "CMM", "NOKEY", "--default", "d"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "d\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(CommandFileState, KeysAndSectionsOfADirectoryPrintNothingAndSayItIsADirectory) {
    fs::create_directory(Path("DIR.INI"));
    for (const auto& args : std::vector<std::vector<std::string>>{
             {"profile", "keys", "DIR.INI", "CMM"}, {"profile", "sections", "DIR.INI"}}) {
        const auto r = Run(args);
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.out, "");
        EXPECT_NE(r.err.find(Path("DIR.INI") + ": is a directory"), std::string::npos) << r.err;
    }
}

TEST_F(CommandFileState, GetOnANamedPipeReturnsAtOnceAndSaysWhatItIs) {
    ASSERT_EQ(::mkfifo(Path("PIPE.INI").c_str(), 0644), 0);
    const auto r = Run({"profile", "int", "PIPE.INI", "CMM", "PORT", "7"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "7\n");
    EXPECT_NE(r.err.find("is a named pipe, not a regular file"), std::string::npos) << r.err;
}

TEST_F(CommandFileState, GetOnAnUnreadableFileSaysWhy) {
    if (::geteuid() == 0) GTEST_SKIP() << "root reads any file";
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    fs::permissions(Path("WZELKO.INI"), fs::perms::owner_write);
    const auto r = Run({"profile", "get", "WZELKO.INI", "CMM", "PORT"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_NE(r.err.find(Path("WZELKO.INI") + ": Permission denied"), std::string::npos) << r.err;
}

TEST_F(CommandFileState, SetOnAReadOnlyFileIsRefusedAndTheMessageNamesTheFileAndForce) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    ReadOnly("WZELKO.INI");
    const auto r = Run({"profile", "set", "WZELKO.INI", "CMM", "PORT", "COM1:"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.err, "wkestel: " + Path("WZELKO.INI") +
                         ": the file is read-only (mode 0444); nothing was written (--force "
                         "replaces it all the same)\n");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), kSample);
}

TEST_F(CommandFileState, SetWithForceReplacesAReadOnlyFileWhichStaysReadOnly) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    ReadOnly("WZELKO.INI");
    const auto r = Run({"profile", "set", "--force", "WZELKO.INI", "CMM", "PORT", "COM1:"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), "[CMM]\r\nPORT=COM1:\r\n");
    EXPECT_EQ(fs::status(Path("WZELKO.INI")).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    // --force was for that command only.
    EXPECT_EQ(Run({"profile", "delete", "WZELKO.INI", "CMM"}).exitCode, 1);
    EXPECT_EQ(Run({"profile", "delete", "--force", "WZELKO.INI", "CMM"}).exitCode, 0);
}

TEST_F(CommandFileState, ValueWithALineBreakIsWrittenAsWindowsWritesItWithAWarning) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    const auto r = Run({"profile", "set", "WZELKO.INI", "CMM", "PORT", "COM1:\r\n[EVIL]\r\nx=1"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), "[CMM]\r\nPORT=COM1:\r\n[EVIL]\r\nx=1\r\n");
    EXPECT_EQ(r.err,
              "wkestel: warning: the value holds a line break, which starts new lines in the "
              "file: written as the Windows call writes it, but it cannot be read back as "
              "written\n");
}

TEST_F(CommandFileState, KeyWithAnEqualsSignAndSectionWithABracketAreWrittenWithWarnings) {
    const auto key = Run({"profile", "set", "A.INI", "S", "a=b", "v"});
    EXPECT_EQ(key.exitCode, 0);
    EXPECT_NE(key.err.find("the key holds \"=\""), std::string::npos) << key.err;
    const auto section = Run({"profile", "set", "A.INI", "x]y", "k", "v"});
    EXPECT_EQ(section.exitCode, 0);
    EXPECT_NE(section.err.find("the section name holds \"]\""), std::string::npos) << section.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("A.INI"), "[S]\r\na=b=v\r\n[x]y]\r\nk=v\r\n");
    const auto comment = Run({"profile", "set", "A.INI", "S", ";note", "v"});
    EXPECT_NE(comment.err.find("makes the line a comment"), std::string::npos) << comment.err;
}

TEST_F(CommandFileState, OrdinaryWriteGivesNoWarning) {
    const auto r =
        Run({"profile", "set", "A.INI", "Section one", "Key one", "a value; with = signs"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.err, "");
}

TEST_F(CommandFileState, ShowCheckAndResaveWithoutWzelkoIniExitOneNamingThePath) {
    prefix_.WriteWindowsFile("WZELKO32.INI", "");
    for (const char* command : {"show", "check", "resave"}) {
        const auto r = Run({command});
        EXPECT_EQ(r.exitCode, 1) << command;
        EXPECT_EQ(r.out, "") << command;
        EXPECT_NE(r.err.find(Path("WZELKO.INI") + ": does not exist"), std::string::npos)
            << command << ": " << r.err;
    }
    // Nothing was created: no second spelling, no backup.
    EXPECT_EQ(std::distance(fs::directory_iterator(prefix_.WindowsDir()), {}), 1);
}

TEST_F(CommandFileState, ShowWithWzelkoIniThatIsNoFileExitsOne) {
    ASSERT_EQ(::mkfifo(Path("WZELKO.INI").c_str(), 0644), 0);
    const auto r = Run({"show"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find(Path("WZELKO.INI") + ": is a named pipe"), std::string::npos) << r.err;
}

TEST_F(CommandFileState, ResaveWithWzelko32UnreadableChangesNoFile) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    prefix_.WriteWindowsFile("WZELKO.BAK", "earlier backup");
    fs::create_directory(Path("WZELKO32.INI"));
    const auto r = Run({"resave"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_NE(r.err.find(Path("WZELKO32.INI") + ": is a directory"), std::string::npos) << r.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), kSample);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.BAK"), "earlier backup");
}

TEST_F(CommandFileState, ResaveOfAReadOnlyFileChangesNoFileUnlessForced) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    prefix_.WriteWindowsFile("WZELKO32.INI", "");
    prefix_.WriteWindowsFile("WZELKO.BAK", "earlier backup");
    ReadOnly("WZELKO32.INI");
    const auto refused = Run({"resave"});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.err, "wkestel: the settings could not be saved, no file was changed: " +
                               Path("WZELKO32.INI") +
                               ": the file is read-only (mode 0444); nothing was written "
                               "(--force replaces it all the same)\n");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), kSample);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.BAK"), "earlier backup");

    const auto forced = Run({"resave", "--force"});
    EXPECT_EQ(forced.exitCode, 0) << forced.err;
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.BAK"), kSample + '\xFF');
    EXPECT_NE(prefix_.ReadWindowsFile("WZELKO32.INI"), "");
}

TEST_F(CommandFileState, ResaveWithoutTheBackupSaysSo) {
    prefix_.WriteWindowsFile("WZELKO.INI", kSample);
    prefix_.WriteWindowsFile("WZELKO32.INI", "");
    fs::create_directory(Path("WZELKO.BAK"));
    fs::create_directory(Path("WZELKO32.BAK"));
    const auto r = Run({"resave"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.err.find("wkestel: warning: saved without the backup: " + Path("WZELKO.BAK") +
                         ": is a directory"),
              std::string::npos)
        << r.err;
}

}  // namespace
}  // namespace wk::test

namespace wk::test {
namespace {

// A save killed after its journal was written: any command completes it before it looks at
// the files, also one that reads none through the profile functions (an upgrade without
// saved files).
TEST(InterruptedSave, AnyCommandCompletesItFirst) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", "[CMM]\r\nPORT=COM3:\r\n");
    prefix.WriteWindowsFile(".WZELKO.INI.wkestel-Tmp001", "[CMM]\r\nPORT=COM1:\r\n");
    std::string journal = "wkestel journal 1\n";
    journal += prefix.WindowsFile(".WZELKO.INI.wkestel-Tmp001").string() + '\0';
    journal += prefix.WindowsFile("WZELKO.INI").string() + '\0';
    journal += "end\n";
    prefix.WriteWindowsFile(".wkestel.journal", journal);
    const auto r = RunCli({"--prefix", prefix.Root().string(), "upgrade"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(prefix.ReadWindowsFile("WZELKO.INI"), "[CMM]\r\nPORT=COM1:\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(prefix.WindowsDir()), {}), 1);
}

}  // namespace
}  // namespace wk::test
