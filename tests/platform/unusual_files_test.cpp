// Files that are not settings files in a settings file's place: pipes, devices, directories,
// link loops, files too large, files that cannot be read. Reads never block and never run
// out of memory, they give the default as Windows gives it for a file it cannot read, and
// the engine says which file it is and what is wrong with it.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "engine_prefix.h"
#include "platform/dos_paths.h"
#include "platform/profile.h"
#include "platform/profile_document.h"
#include "platform/profile_files.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;
using test::GetString;

class UnusualFiles : public testing::Test {
protected:
    std::string Path(const char* name) { return prefix.WinPath(name); }
    EnginePrefix prefix;
};

TEST_F(UnusualFiles, NamedPipeIsNeverOpenedForReadingAndReadsAsTheDefault) {
    ASSERT_EQ(::mkfifo(Path("PIPE.INI").c_str(), 0644), 0);
    // Were the pipe opened for reading, this would wait for a writer for ever (and the
    // test's timeout would end it).
    EXPECT_EQ(GetString("S", "k", "default", "PIPE.INI"), "default");
    const ProfileFileStatus status = GetProfileFileStatus("PIPE.INI");
    EXPECT_EQ(status.state, ProfileFileState::NotRegular);
    EXPECT_EQ(status.path, Path("PIPE.INI"));
    EXPECT_EQ(status.problem, "is a named pipe, not a regular file");
}

TEST_F(UnusualFiles, WriteToANamedPipeFailsAndLeavesThePipe) {
    ASSERT_EQ(::mkfifo(Path("PIPE.INI").c_str(), 0644), 0);
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", "PIPE.INI"));
    EXPECT_EQ(platform::LastProfileFailure().path, Path("PIPE.INI"));
    EXPECT_EQ(platform::LastProfileFailure().reason, "is a named pipe, not a regular file");
    EXPECT_TRUE(fs::is_fifo(Path("PIPE.INI")));
}

TEST_F(UnusualFiles, LinkToADeviceIsNeverReadAndReadsAsTheDefault) {
    fs::create_symlink("/dev/zero", Path("ZERO.INI"));
    EXPECT_EQ(GetString("S", "k", "default", "ZERO.INI"), "default");
    const ProfileFileStatus status = GetProfileFileStatus("ZERO.INI");
    EXPECT_EQ(status.state, ProfileFileState::NotRegular);
    EXPECT_EQ(status.problem, "is a device, not a regular file");
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", "ZERO.INI"));
    EXPECT_TRUE(fs::is_symlink(Path("ZERO.INI")));
}

TEST_F(UnusualFiles, SymbolicLinkLoopIsAnErrorAndIsNeverReplaced) {
    fs::create_symlink("LOOP2.INI", Path("LOOP1.INI"));
    fs::create_symlink("LOOP1.INI", Path("LOOP2.INI"));
    EXPECT_EQ(GetString("S", "k", "default", "LOOP1.INI"), "default");
    const ProfileFileStatus status = GetProfileFileStatus("LOOP1.INI");
    EXPECT_EQ(status.state, ProfileFileState::Unreadable);
    EXPECT_EQ(status.problem, "Too many levels of symbolic links");
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", "LOOP1.INI"));
    EXPECT_NE(LastProfileError().find("Too many levels of symbolic links"), std::string::npos);
    EXPECT_TRUE(fs::is_symlink(Path("LOOP1.INI")));
    EXPECT_TRUE(fs::is_symlink(Path("LOOP2.INI")));
}

TEST_F(UnusualFiles, LinkToARegularFileIsReadThroughTheLink) {
    const fs::path target = prefix.Root() / "elsewhere.ini";
    EnginePrefix::WriteBytes(target, "[S]\r\nk=linked\r\n");
    fs::create_symlink(target, Path("LINKED.INI"));
    EXPECT_EQ(GetString("S", "k", "", "LINKED.INI"), "linked");
    EXPECT_EQ(GetProfileFileStatus("LINKED.INI").state, ProfileFileState::Readable);
}

TEST_F(UnusualFiles, DirectoryReadsAsTheDefaultAndIsNamedAsADirectory) {
    fs::create_directory(Path("DIR.INI"));
    EXPECT_EQ(GetString("S", "k", "default", "DIR.INI"), "default");
    const ProfileFileStatus status = GetProfileFileStatus("DIR.INI");
    EXPECT_EQ(status.state, ProfileFileState::Directory);
    EXPECT_EQ(status.problem, "is a directory");
}

TEST_F(UnusualFiles, MissingAndReadableFilesAreToldApart) {
    EnginePrefix::WriteBytes(Path("HERE.INI"), "[S]\r\nk=\r\n");
    EXPECT_EQ(GetProfileFileStatus("HERE.INI").state, ProfileFileState::Readable);
    EXPECT_TRUE(GetProfileFileStatus("HERE.INI").problem.empty());
    const ProfileFileStatus missing = GetProfileFileStatus("GONE.INI");
    EXPECT_EQ(missing.state, ProfileFileState::Missing);
    EXPECT_EQ(missing.path, Path("GONE.INI"));
    EXPECT_EQ(missing.problem, "does not exist");
}

TEST_F(UnusualFiles, FileLargerThanTheLimitIsRefusedWithoutBeingRead) {
    // A sparse file: its size says it all, nothing of it is read.
    {
        std::FILE* file = std::fopen(Path("HUGE.INI").c_str(), "wb");
        ASSERT_NE(file, nullptr);
        std::fclose(file);
    }
    fs::resize_file(Path("HUGE.INI"), platform::ProfileDocument::kMaxFileBytes + 1);
    EXPECT_EQ(GetString("S", "k", "default", "HUGE.INI"), "default");
    const ProfileFileStatus status = GetProfileFileStatus("HUGE.INI");
    EXPECT_EQ(status.state, ProfileFileState::Unreadable);
    EXPECT_EQ(status.problem, "File too large");
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", "HUGE.INI"));
    EXPECT_EQ(fs::file_size(Path("HUGE.INI")), platform::ProfileDocument::kMaxFileBytes + 1);
}

TEST_F(UnusualFiles, FileWithoutReadPermissionIsUnreadableNotMissing) {
    if (::geteuid() == 0) GTEST_SKIP() << "root reads any file";
    EnginePrefix::WriteBytes(Path("SECRET.INI"), "[S]\r\nk=1\r\n");
    fs::permissions(Path("SECRET.INI"), fs::perms::owner_write);
    const ProfileFileStatus status = GetProfileFileStatus("SECRET.INI");
    EXPECT_EQ(status.state, ProfileFileState::Unreadable);
    EXPECT_EQ(status.problem, "Permission denied");
}

TEST_F(UnusualFiles, OpeningANamedPipeForReadingReturnsAtOnceWithNothing) {
    ASSERT_EQ(::mkfifo(Path("PIPE.INI").c_str(), 0644), 0);
    const std::string dosPath = "C:\\windows\\PIPE.INI";
    EXPECT_EQ(platform::OpenFileA(dosPath.c_str(), "rt"), nullptr);
    fs::create_directory(Path("DIR.INI"));
    EXPECT_EQ(platform::OpenFileA("C:\\windows\\DIR.INI", "rt"), nullptr);
}

}  // namespace
}  // namespace wk
