// The writers' lock: a write waits for another program's lock, gives up after the wait with
// a message that says so and writes nothing; reads are never held up by it. And one file
// name throughout: both spellings of a missing settings file create one file.

#include "platform/directory_lock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "engine_prefix.h"
#include "platform/profile.h"
#include "platform/profile_batch.h"
#include "platform/profile_files.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::EnginePrefix;
using test::GetString;

// Another program holding the lock of a directory: its own open of the directory, locked.
// (flock locks belong to an open file, so this conflicts with the engine's own lock even in
// the same process.)
class OtherProgramsLock {
public:
    explicit OtherProgramsLock(const fs::path& directory)
        : fd_(::open(directory.c_str(), O_RDONLY | O_DIRECTORY)) {
        EXPECT_GE(fd_, 0);
        EXPECT_EQ(::flock(fd_, LOCK_EX), 0);
    }
    ~OtherProgramsLock() { Release(); }
    void Release() {
        if (fd_ >= 0) ::close(fd_);
        fd_ = -1;
    }

private:
    int fd_;
};

class DirectoryLockTest : public testing::Test {
protected:
    DirectoryLockTest() { platform::SetLockWait(200ms); }
    ~DirectoryLockTest() override { platform::SetLockWait(5000ms); }

    std::string Bytes(const char* name) { return EnginePrefix::ReadBytes(prefix.WinPath(name)); }
    EnginePrefix prefix;
};

TEST_F(DirectoryLockTest, WriteGivesUpAfterTheWaitWhileAnotherProgramHoldsTheLock) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    OtherProgramsLock other(prefix.WindowsDir());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms);
    EXPECT_EQ(platform::LastProfileFailure().reason,
              "another program is saving the settings files in this directory (it holds their "
              "lock) and did not finish within 0.2 s; nothing was written, try again");
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=1\r\n");
    other.Release();
    EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\n");
}

TEST_F(DirectoryLockTest, WriteGoesAheadOnceTheOtherProgramLetsGoWithinTheWait) {
    platform::SetLockWait(5000ms);
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    OtherProgramsLock other(prefix.WindowsDir());
    std::thread release([&other] {
        std::this_thread::sleep_for(100ms);
        other.Release();
    });
    EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    release.join();
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\n");
}

TEST_F(DirectoryLockTest, ReadsAreNotHeldUpByAWritersLock) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    OtherProgramsLock other(prefix.WindowsDir());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    EXPECT_LT(std::chrono::steady_clock::now() - start, 200ms);
}

TEST_F(DirectoryLockTest, BatchHoldsTheLockUntilItEnds) {
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "1", "A.INI"));
        const int fd = ::open(prefix.WindowsDir().c_str(), O_RDONLY | O_DIRECTORY);
        EXPECT_NE(::flock(fd, LOCK_EX | LOCK_NB), 0);
        ::close(fd);
    }
    const int fd = ::open(prefix.WindowsDir().c_str(), O_RDONLY | O_DIRECTORY);
    EXPECT_EQ(::flock(fd, LOCK_EX | LOCK_NB), 0);
    ::close(fd);
}

TEST_F(DirectoryLockTest, BatchThatCannotHaveTheLockWritesNothing) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    OtherProgramsLock other(prefix.WindowsDir());
    ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
    EXPECT_FALSE(batch.LockDirectory(prefix.WindowsDir().string()));
    EXPECT_NE(LastProfileError().find("another program is saving"), std::string::npos);
    batch.Abandon();
}

TEST_F(DirectoryLockTest, LockIsReenteredWithinTheProcess) {
    platform::DirectoryLock outer;
    platform::FileError error;
    ASSERT_TRUE(outer.Acquire(prefix.WindowsDir().string(), error));
    EXPECT_TRUE(outer.Held());
    // The engine's own write takes the same lock again without waiting.
    EXPECT_TRUE(WritePrivateProfileStringA("S", "k", "1", "A.INI"));
}

TEST_F(DirectoryLockTest, MissingDirectoryNeedsNoLockAndTheWriteSaysWhatIsWrong) {
    const std::string path = (prefix.Root() / "nodir" / "x.ini").string();
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", path.c_str()));
    EXPECT_EQ(platform::LastProfileFailure().path, path);
    EXPECT_EQ(platform::LastProfileFailure().reason, "No such file or directory");
}

TEST(NewFileSpelling, BothSpellingsOfAMissingFileCreateOneFileUnderTheDeclaredName) {
    EnginePrefix prefix;
    platform::DeclareNewProfileFileSpelling("SPELLED.INI");
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("A", "k", "1", "Spelled.ini"));
        ASSERT_TRUE(WritePrivateProfileStringA("B", "k", "2", "SPELLED.INI"));
        ASSERT_TRUE(batch.Commit());
    }
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("SPELLED.INI")),
              "[A]\r\nk=1\r\n[B]\r\nk=2\r\n");
    EXPECT_FALSE(fs::exists(prefix.WinPath("Spelled.ini")));
}

TEST(NewFileSpelling, ExistingFileIsFoundWhateverItsCase) {
    EnginePrefix prefix;
    platform::DeclareNewProfileFileSpelling("SPELLED.INI");
    EnginePrefix::WriteBytes(prefix.WinPath("spelled.ini"), "[A]\r\nk=lower\r\n");
    EXPECT_EQ(GetString("A", "k", "", "Spelled.ini"), "lower");
    ASSERT_TRUE(WritePrivateProfileStringA("A", "k", "2", "SPELLED.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("spelled.ini")), "[A]\r\nk=2\r\n");
    EXPECT_FALSE(fs::exists(prefix.WinPath("SPELLED.INI")));
}

}  // namespace
}  // namespace wk
