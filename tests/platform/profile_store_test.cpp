// The store of parsed files: changes made by other programs are seen on the next call, and
// file names resolve as the measuring application expects.

#include "platform/profile_store.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>

#include "engine_prefix.h"
#include "platform/profile.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;
using test::GetString;

class ProfileStoreTest : public testing::Test {
protected:
    EnginePrefix prefix;
};

TEST_F(ProfileStoreTest, EditByAnotherProgramIsSeenOnTheNextCall) {
    const std::string path = prefix.WinPath("A.INI");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=22\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "22");
}

TEST_F(ProfileStoreTest, SameSizeEditWithANewTimeIsSeen) {
    const std::string path = prefix.WinPath("A.INI");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    const auto time = fs::last_write_time(path);
    EnginePrefix::WriteBytes(path, "[S]\r\nk=2\r\n");
    fs::last_write_time(path, time + std::chrono::nanoseconds(1));
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "2");
}

TEST_F(ProfileStoreTest, SameSizeSameTimeEditOfANewFileIsSeenByItsInode) {
    const std::string path = prefix.WinPath("A.INI");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    const auto time = fs::last_write_time(path);
    const std::string other = prefix.WinPath("other");
    EnginePrefix::WriteBytes(other, "[S]\r\nk=3\r\n");
    fs::last_write_time(other, time);
    fs::rename(other, path);
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "3");
}

TEST_F(ProfileStoreTest, DeletedFileReadsAsMissing) {
    const std::string path = prefix.WinPath("A.INI");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "d", "A.INI"), "1");
    fs::remove(path);
    EXPECT_EQ(GetString("S", "k", "d", "A.INI"), "d");
}

TEST_F(ProfileStoreTest, WriteAfterAnOutsideEditKeepsThatEdit) {
    const std::string path = prefix.WinPath("A.INI");
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "a", "1", "A.INI"));
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\nother=edit\r\n");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "b", "2", "A.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(path), "[S]\r\nk=1\r\nother=edit\r\nb=2\r\n");
}

TEST_F(ProfileStoreTest, CaseInsensitiveMatchFollowsTheFileWhenItIsRenamed) {
    EnginePrefix::WriteBytes(prefix.WinPath("WZELKO.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "Wzelko.ini"), "1");
    fs::rename(prefix.WinPath("WZELKO.INI"), prefix.WinPath("wzelko.INI"));
    EXPECT_EQ(GetString("S", "k", "", "Wzelko.ini"), "1");
}

TEST_F(ProfileStoreTest, ExactNameIsPreferredOverOtherCases) {
    EnginePrefix::WriteBytes(prefix.WinPath("WZELKO.INI"), "[S]\r\nk=upper\r\n");
    EnginePrefix::WriteBytes(prefix.WinPath("Wzelko.ini"), "[S]\r\nk=exact\r\n");
    EXPECT_EQ(GetString("S", "k", "", "Wzelko.ini"), "exact");
}

TEST_F(ProfileStoreTest, NameWithSeparatorIsRelativeToTheWorkingDirectory) {
    const fs::path old = fs::current_path();
    fs::create_directory(prefix.Root() / "work");
    fs::create_directory(prefix.Root() / "work" / "sub");
    fs::current_path(prefix.Root() / "work");
    EnginePrefix::WriteBytes(prefix.Root() / "work" / "sub" / "x.ini", "[S]\r\nk=cwd\r\n");
    EnginePrefix::WriteBytes(prefix.WinPath("x.ini"), "[S]\r\nk=windows\r\n");
    EXPECT_EQ(GetString("S", "k", "", "sub\\x.ini"), "cwd");
    EXPECT_EQ(GetString("S", "k", "", "./sub/x.ini"), "cwd");
    EXPECT_EQ(GetString("S", "k", "", "x.ini"), "windows");
    fs::current_path(old);
}

TEST_F(ProfileStoreTest, DrivePathMapsThroughThePrefix) {
    EnginePrefix::WriteBytes(prefix.WinPath("WZELKO.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "C:\\WINDOWS\\wzelko.ini"), "1");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "c:\\windows\\Wzelko.ini"));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("WZELKO.INI")), "[S]\r\nk=2\r\n");
}

// Lines as the measuring application writes them ("DIST APPROACH=2.0000000000"); every
// section's key index built.
TEST_F(ProfileStoreTest, DocumentMemoryStaysWithinThreeTimesTheFile) {
    std::string text;
    for (int s = 0; s < 200; ++s) {
        text += "[MACHINEPARAM" + std::to_string(s) + "]\r\n";
        for (int k = 0; k < 30; ++k)
            text +=
                "DIST APPROACH " + std::to_string(k) + "=" + std::to_string(k) + ".5000000000\r\n";
    }
    platform::ProfileDocument doc(text);
    for (int s = 0; s < 200; ++s) doc.Value("machineparam" + std::to_string(s), "dist approach 29");
    EXPECT_LT(doc.BytesHeld(), 3 * text.size());
}

}  // namespace
}  // namespace wk
