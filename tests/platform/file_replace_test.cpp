// Replacing files: read-only files are respected, mode and owner are kept, leftovers of
// interrupted saves are removed by the next save, and a set of files is replaced whole or
// not at all, also when a kill interrupted its commit.

#include "platform/file_replace.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <set>

#include "engine_prefix.h"
#include "platform/profile.h"
#include "platform/profile_batch.h"
#include "platform/profile_files.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;
using test::GetString;

class FileReplace : public testing::Test {
protected:
    ~FileReplace() override { platform::SetReplaceReadOnlyFiles(false); }

    std::string Path(const std::string& name) { return prefix.WinPath(name); }
    void File(const std::string& name, const std::string& bytes) {
        EnginePrefix::WriteBytes(Path(name), bytes);
    }
    std::string Bytes(const std::string& name) { return EnginePrefix::ReadBytes(Path(name)); }

    // The names in the Windows directory.
    std::set<std::string> Entries() {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(prefix.WindowsDir()))
            names.insert(entry.path().filename().string());
        return names;
    }

    // A leftover of an interrupted save, last written an hour ago.
    void Leftover(const std::string& name) {
        File(name, "half a file");
        fs::last_write_time(Path(name), fs::file_time_type::clock::now() - std::chrono::hours(1));
    }

    // A journal as a commit writes it, naming (temporary, file) pairs.
    void Journal(const std::vector<std::pair<std::string, std::string>>& entries,
                 bool complete = true) {
        std::string bytes = "wkestel journal 1\n";
        for (const auto& [temp, target] : entries) {
            bytes += Path(temp);
            bytes.push_back('\0');
            bytes += Path(target);
            bytes.push_back('\0');
        }
        if (complete) bytes += "end\n";
        File(platform::kJournalFileName, bytes);
    }

    EnginePrefix prefix;
};

TEST_F(FileReplace, ReadOnlyFileIsNotReplacedAndTheMessageSaysSo) {
    File("RO.INI", "[S]\r\nk=1\r\n");
    fs::permissions(Path("RO.INI"),
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "2", "RO.INI"));
    EXPECT_EQ(platform::LastProfileFailure().path, Path("RO.INI"));
    EXPECT_EQ(platform::LastProfileFailure().reason,
              "the file is read-only (mode 0444); nothing was written");
    EXPECT_EQ(Bytes("RO.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"RO.INI"}));
}

TEST_F(FileReplace, ReadOnlyFileIsReplacedWhenAllowedAndStaysReadOnly) {
    File("RO.INI", "[S]\r\nk=1\r\n");
    fs::permissions(Path("RO.INI"), fs::perms::owner_read | fs::perms::group_read);
    platform::SetReplaceReadOnlyFiles(true);
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "RO.INI"));
    EXPECT_EQ(Bytes("RO.INI"), "[S]\r\nk=2\r\n");
    EXPECT_EQ(fs::status(Path("RO.INI")).permissions(),
              fs::perms::owner_read | fs::perms::group_read);
}

TEST_F(FileReplace, FileThisUserMayNotWriteIsNotReplacedInAFolderItMayWrite) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may write any file";
    // Stands for a file of another user: the directory is writable, the file is not.
    File("THEIRS.INI", "[S]\r\nk=1\r\n");
    fs::permissions(Path("THEIRS.INI"), fs::perms::owner_read | fs::perms::others_write);
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "2", "THEIRS.INI"));
    EXPECT_NE(LastProfileError().find("may not write"), std::string::npos);
    fs::permissions(Path("THEIRS.INI"), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Bytes("THEIRS.INI"), "[S]\r\nk=1\r\n");
}

TEST_F(FileReplace, ReplacedFileKeepsItsOwnerAndGroup) {
    File("OWNED.INI", "[S]\r\nk=1\r\n");
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(Path("OWNED.INI").c_str(), 4321, 8765), 0);
    }
    struct stat before {};
    ASSERT_EQ(::stat(Path("OWNED.INI").c_str(), &before), 0);
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "OWNED.INI"));
    struct stat after {};
    ASSERT_EQ(::stat(Path("OWNED.INI").c_str(), &after), 0);
    EXPECT_NE(before.st_ino, after.st_ino);  // replaced, not written in place
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST_F(FileReplace, LeftoverTemporariesOfTheFileAreRemovedByItsNextSave) {
    File("TEST.INI", "[S]\r\nk=1\r\n");
    Leftover(".TEST.INI.wkestel-a1B2c3");
    Leftover(".TEST.INI.wkestel-zzzzzz");
    // Not of this program's pattern, or of another file: they stay.
    Leftover(".TEST.INI.wkestel-notes.txt");
    Leftover(".TEST.INI.a1B2c3");
    Leftover(".OTHER.INI.wkestel-a1B2c3");
    // Of the pattern, but newer than the save: another writer may be filling it.
    File(".TEST.INI.wkestel-N3wer1", "being written");
    fs::last_write_time(Path(".TEST.INI.wkestel-N3wer1"),
                        fs::file_time_type::clock::now() + std::chrono::hours(1));

    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "TEST.INI"));
    EXPECT_EQ(Entries(),
              (std::set<std::string>{"TEST.INI", ".TEST.INI.wkestel-notes.txt", ".TEST.INI.a1B2c3",
                                     ".OTHER.INI.wkestel-a1B2c3", ".TEST.INI.wkestel-N3wer1"}));
}

TEST_F(FileReplace, FailedWriteLeavesNoTemporaryFile) {
    File("RO.INI", "[S]\r\nk=1\r\n");
    fs::permissions(Path("RO.INI"), fs::perms::owner_read);
    File("OK.INI", "[S]\r\nk=1\r\n");
    {
        ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "OK.INI"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "RO.INI"));
        EXPECT_FALSE(batch.Commit());
    }
    EXPECT_EQ(Entries(), (std::set<std::string>{"OK.INI", "RO.INI"}));
}

TEST_F(FileReplace, AllOrNothingBatchReplacesNoFileWhenOneCannotBeReplaced) {
    File("A.INI", "[S]\r\nk=1\r\n");
    File("B.INI", "[S]\r\nk=1\r\n");
    fs::permissions(Path("B.INI"), fs::perms::owner_read);
    {
        ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "B.INI"));
        EXPECT_FALSE(batch.Commit());
        EXPECT_EQ(platform::LastProfileFailure().path, Path("B.INI"));
    }
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(Bytes("B.INI"), "[S]\r\nk=1\r\n");
    // Reads see the disk again, not the writes that were never made.
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
}

TEST_F(FileReplace, AllOrNothingBatchReplacesEveryFileAndLeavesNoJournal) {
    File("A.INI", "[S]\r\nk=1\r\n");
    {
        ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
        ASSERT_TRUE(batch.LockDirectory(prefix.WindowsDir().string()));
        ASSERT_TRUE(platform::ReplaceWholeFile("C:\\windows\\A.BAK", "backup"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "3", "B.INI"));
        // Staged, not yet in place: the backup waits for the commit too.
        EXPECT_FALSE(fs::exists(Path("A.BAK")));
        ASSERT_TRUE(batch.Commit());
    }
    EXPECT_EQ(Bytes("A.BAK"), "backup");
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\n");
    EXPECT_EQ(Bytes("B.INI"), "[S]\r\nk=3\r\n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.BAK", "A.INI", "B.INI"}));
}

TEST_F(FileReplace, AbandonedBatchWritesNothingAndRemovesItsStagedFiles) {
    File("A.INI", "[S]\r\nk=1\r\n");
    {
        ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
        ASSERT_TRUE(platform::ReplaceWholeFile("C:\\windows\\A.BAK", "backup"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
        batch.Abandon();
    }
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.INI"}));
}

TEST_F(FileReplace, WholeFileOutsideABatchIsReplacedAtOnce) {
    File("A.BAK", "old backup");
    ASSERT_TRUE(platform::ReplaceWholeFile("C:\\windows\\a.bak", "new backup"));
    EXPECT_EQ(Bytes("A.BAK"), "new backup");
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.BAK"}));
}

TEST_F(FileReplace, ReadCompletesTheCommitAKillInterrupted) {
    // Killed after A.INI was renamed into place, before B.INI was.
    File("A.INI", "[S]\r\nk=new\r\n");
    File("B.INI", "[S]\r\nk=old\r\n");
    File(".B.INI.wkestel-Tmp002", "[S]\r\nk=new\r\n");
    Journal({{".A.INI.wkestel-Tmp001", "A.INI"}, {".B.INI.wkestel-Tmp002", "B.INI"}});
    EXPECT_EQ(GetString("S", "k", "", "B.INI"), "new");
    EXPECT_EQ(Bytes("B.INI"), "[S]\r\nk=new\r\n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.INI", "B.INI"}));
}

TEST_F(FileReplace, WriteCompletesTheCommitAKillInterruptedBeforeItsOwnChange) {
    File("A.INI", "[S]\r\nk=old\r\n");
    File(".A.INI.wkestel-Tmp001", "[S]\r\nk=new\r\n");
    File("B.INI", "[S]\r\nk=old\r\n");
    File(".B.INI.wkestel-Tmp002", "[S]\r\nk=new\r\n");
    Journal({{".A.INI.wkestel-Tmp001", "A.INI"}, {".B.INI.wkestel-Tmp002", "B.INI"}});
    ASSERT_TRUE(WritePrivateProfileStringA("S", "other", "1", "A.INI"));
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=new\r\nother=1\r\n");
    EXPECT_EQ(Bytes("B.INI"), "[S]\r\nk=new\r\n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.INI", "B.INI"}));
}

TEST_F(FileReplace, IncompleteJournalRenamesNothingAndIsRemoved) {
    File("A.INI", "[S]\r\nk=old\r\n");
    File(".A.INI.wkestel-Tmp001", "[S]\r\nk=new\r\n");
    Journal({{".A.INI.wkestel-Tmp001", "A.INI"}}, /*complete=*/false);
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "old");
    EXPECT_FALSE(fs::exists(Path(platform::kJournalFileName)));
}

// The journal is written in its place: a kill between its creation and its writing leaves it
// empty, and an empty journal decides nothing.
TEST_F(FileReplace, EmptyJournalRenamesNothingAndItsTemporariesGoWithTheNextSave) {
    File("A.INI", "[S]\r\nk=old\r\n");
    Leftover(".A.INI.wkestel-Tmp001");
    File(platform::kJournalFileName, "");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "old");
    EXPECT_FALSE(fs::exists(Path(platform::kJournalFileName)));
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    EXPECT_EQ(Entries(), (std::set<std::string>{"A.INI"}));
}

TEST_F(FileReplace, WholeSaveRemovesTheLeftoversOfEachOfItsFilesAndOfNoOther) {
    File("A.INI", "[S]\r\nk=1\r\n");
    File("B.INI", "[S]\r\nk=1\r\n");
    Leftover(".A.INI.wkestel-a1B2c3");
    Leftover(".B.INI.wkestel-d4E5f6");
    Leftover(".A.BAK.wkestel-g7H8i9");
    Leftover(".OTHER.INI.wkestel-j1K2l3");
    {
        ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
        ASSERT_TRUE(platform::ReplaceWholeFile("C:\\windows\\A.BAK", "backup"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "B.INI"));
        ASSERT_TRUE(batch.Commit());
    }
    EXPECT_EQ(Entries(),
              (std::set<std::string>{"A.BAK", "A.INI", "B.INI", ".OTHER.INI.wkestel-j1K2l3"}));
}

TEST_F(FileReplace, JournalNamingAFileThatIsNoTemporaryOfThisProgramRenamesNothing) {
    File("A.INI", "[S]\r\nk=old\r\n");
    File("PRECIOUS.TXT", "not a temporary file");
    Journal({{"PRECIOUS.TXT", "A.INI"}});
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "old");
    EXPECT_EQ(Bytes("PRECIOUS.TXT"), "not a temporary file");
    EXPECT_FALSE(fs::exists(Path(platform::kJournalFileName)));
}

}  // namespace
}  // namespace wk
