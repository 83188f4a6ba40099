// The whole-record save is all or nothing: the backup, WZELKO.INI and WZELKO32.INI are
// replaced together or not at all, a failure says which file and why, and the record stays
// modified so that the edits are neither lost nor taken for saved.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <set>

#include "platform/directory_lock.h"
#include "settings/settings_files.h"
#include "settings/setup_settings.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class WholeSave : public ::testing::Test {
protected:
    void SetUp() override {
        prefix.WriteFile("WZELKO.INI", kWzelko);
        prefix.WriteFile("WZELKO32.INI", kWzelko32);
        prefix.WriteFile("WZELKO.BAK", "the backup of the save before");
    }

    // A record read from the files with a change in it, as a page leaves it.
    std::unique_ptr<SetupSettings> EditedRecord() {
        auto record = ReadRecord();
        record->PortIndex = 3;
        record->Modified = true;
        return record;
    }

    std::set<std::string> Entries() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(prefix.WindowsDir()))
            names.insert(entry.path().filename().string());
        return names;
    }

    void ExpectFilesAsBefore() const {
        EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), kWzelko);
        EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), "the backup of the save before");
    }

    const std::string kWzelko = Crlf({"[CMM]", "PORT=COM2:"});
    const std::string kWzelko32 = Crlf({"[PH9]", "TYPE=1"});
    test::SettingsTestPrefix prefix;
};

TEST_F(WholeSave, Wzelko32ThatCannotBeReadMakesTheSaveReplaceNothing) {
    auto record = EditedRecord();
    // A directory in its place: readable by nobody as a file, root included.
    fs::remove(prefix.WindowsFile("WZELKO32.INI"));
    fs::create_directory(prefix.WindowsFile("WZELKO32.INI"));
    SaveResult result;
    EXPECT_FALSE(record->WriteAll(result));
    EXPECT_FALSE(result.Saved);
    EXPECT_EQ(result.File, prefix.WindowsFile("WZELKO32.INI").string());
    EXPECT_EQ(result.Reason, "Is a directory");
    ExpectFilesAsBefore();
    EXPECT_EQ(Entries(), (std::set<std::string>{"WZELKO.INI", "WZELKO32.INI", "WZELKO.BAK"}));
}

TEST_F(WholeSave, FailedSaveKeepsTheRecordModified) {
    auto record = EditedRecord();
    fs::permissions(prefix.WindowsFile("WZELKO32.INI"), fs::perms::owner_read);
    EXPECT_FALSE(record->WriteAll());
    EXPECT_TRUE(record->Modified);
    EXPECT_EQ(record->PortIndex, 3);
}

TEST_F(WholeSave, ReadOnlyWzelko32IsNamedAndNothingIsReplaced) {
    auto record = EditedRecord();
    fs::permissions(prefix.WindowsFile("WZELKO32.INI"),
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    SaveResult result;
    EXPECT_FALSE(record->WriteAll(result));
    EXPECT_EQ(result.Text(), prefix.WindowsFile("WZELKO32.INI").string() +
                                 ": the file is read-only (mode 0444); nothing was written");
    ExpectFilesAsBefore();
    EXPECT_EQ(Entries(), (std::set<std::string>{"WZELKO.INI", "WZELKO32.INI", "WZELKO.BAK"}));
}

TEST_F(WholeSave, WzelkoIniThatIsADirectoryLeavesNoBackupBehind) {
    fs::remove(prefix.WindowsFile("WZELKO.INI"));
    fs::remove(prefix.WindowsFile("WZELKO.BAK"));
    fs::create_directory(prefix.WindowsFile("WZELKO.INI"));
    auto record = EditedRecord();
    SaveResult result;
    EXPECT_FALSE(record->WriteAll(result));
    EXPECT_EQ(result.File, prefix.WindowsFile("WZELKO.INI").string());
    EXPECT_EQ(Entries(), (std::set<std::string>{"WZELKO.INI", "WZELKO32.INI"}));
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI"), kWzelko32);
}

TEST_F(WholeSave, SuccessfulSaveReplacesTheBackupAndBothFilesTogether) {
    auto record = EditedRecord();
    SaveResult result;
    ASSERT_TRUE(record->WriteAll(result));
    EXPECT_TRUE(result.Saved);
    EXPECT_TRUE(result.BackupProblem.empty());
    EXPECT_FALSE(record->Modified);
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), kWzelko + '\xFF');
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM4:");
    EXPECT_EQ(Entries(), (std::set<std::string>{"WZELKO.INI", "WZELKO32.INI", "WZELKO.BAK"}));
}

TEST_F(WholeSave, MissingFilesAreCreatedOnceEachUnderTheirCapitalNames) {
    fs::remove(prefix.WindowsFile("WZELKO.INI"));
    fs::remove(prefix.WindowsFile("WZELKO32.INI"));
    fs::remove(prefix.WindowsFile("WZELKO.BAK"));
    ASSERT_TRUE(ReadRecord()->WriteAll());
    EXPECT_EQ(Entries(), (std::set<std::string>{"WZELKO.INI", "WZELKO32.INI"}));
}

TEST_F(WholeSave, FileInAnotherCaseIsTheOneSaved) {
    fs::rename(prefix.WindowsFile("WZELKO.INI"), prefix.WindowsFile("Wzelko.ini"));
    fs::rename(prefix.WindowsFile("WZELKO32.INI"), prefix.WindowsFile("wzelko32.ini"));
    ASSERT_TRUE(EditedRecord()->WriteAll());
    EXPECT_EQ(Entries(), (std::set<std::string>{"Wzelko.ini", "wzelko32.ini", "WZELKO.BAK"}));
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), kWzelko + '\xFF');
}

TEST_F(WholeSave, ReadOnlyBackupIsToldAndTheSaveGoesAheadWithTheOtherPair) {
    fs::permissions(prefix.WindowsFile("WZELKO.BAK"), fs::perms::owner_read);
    auto record = EditedRecord();
    SaveResult result;
    ASSERT_TRUE(record->WriteAll(result));
    EXPECT_EQ(result.BackupProblem,
              prefix.WindowsFile("WZELKO.BAK").string() +
                  ": the file is read-only (mode 0400); nothing was written (WZELKO32.INI was "
                  "backed up instead)");
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), "the backup of the save before");
    EXPECT_EQ(prefix.ReadFile("WZELKO32.BAK"), kWzelko32 + '\xFF');
    EXPECT_EQ(ValueIn(kWzelkoIni, "CMM", "PORT"), "COM4:");
}

TEST_F(WholeSave, SaveWhileAnotherWriterHoldsTheLockWritesNothingAndSaysSo) {
    platform::SetLockWait(std::chrono::milliseconds(100));
    const int fd = ::open(prefix.WindowsDir().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(fd, LOCK_EX), 0);
    auto record = EditedRecord();
    SaveResult result;
    EXPECT_FALSE(record->WriteAll(result));
    ::close(fd);
    platform::SetLockWait(std::chrono::milliseconds(5000));
    EXPECT_EQ(result.File, prefix.WindowsDir().string());
    EXPECT_NE(result.Reason.find("another program is saving the settings files"),
              std::string::npos);
    EXPECT_TRUE(record->Modified);
    ExpectFilesAsBefore();
}

}  // namespace
}  // namespace wk
