#include "platform/dos_paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include "engine_prefix.h"
#include "platform/windows_directory.h"

namespace wk::platform {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;

class DosPaths : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(prefix.Root() / "drive_c" / "WZELKO" / "PROG");
        fs::create_directories(prefix.Root() / "data" / "Parts");
        fs::create_directory_symlink(prefix.Root() / "data", prefix.Root() / "dosdevices" / "d:");
        fs::create_directory_symlink("/", prefix.Root() / "dosdevices" / "z:");
    }
    std::string DriveC() const { return fs::canonical(prefix.Root() / "drive_c").string(); }
    std::string Data() const { return fs::canonical(prefix.Root() / "data").string(); }
    EnginePrefix prefix;
};

TEST_F(DosPaths, DrivePathOrBackslashMarksAPathOfTheMeasuringApplication) {
    EXPECT_TRUE(IsDosPath("C:\\WZELKO"));
    EXPECT_TRUE(IsDosPath("c:"));
    EXPECT_TRUE(IsDosPath("\\WZELKO\\SOUNDS"));
    EXPECT_FALSE(IsDosPath("/home/x"));
    EXPECT_FALSE(IsDosPath("WZELKO.INI"));
}

TEST_F(DosPaths, ComponentsMatchExistingEntriesWithoutRegardToCase) {
    EXPECT_EQ(DosToHostPath("C:\\wzelko\\prog"), DriveC() + "/WZELKO/PROG");
    EXPECT_EQ(DosToHostPath("c:/Wzelko/Prog/"), DriveC() + "/WZELKO/PROG");
}

TEST_F(DosPaths, MissingComponentsAreKeptAsGiven) {
    EXPECT_EQ(DosToHostPath("C:\\wzelko\\New\\File.TXT"), DriveC() + "/WZELKO/New/File.TXT");
}

TEST_F(DosPaths, PathWithoutDriveIsOnC) {
    EXPECT_EQ(DosToHostPath("\\WZELKO\\PROG"), DriveC() + "/WZELKO/PROG");
}

TEST_F(DosPaths, OtherDrivesFollowTheirLinks) {
    EXPECT_EQ(DosToHostPath("D:\\parts"), Data() + "/Parts");
    EXPECT_FALSE(DosToHostPath("Q:\\x").has_value());
}

TEST_F(DosPaths, MissingCLinkMeansDriveC) {
    fs::remove(prefix.Root() / "dosdevices" / "c:");
    EXPECT_EQ(DosToHostPath("C:\\WZELKO"), DriveC() + "/WZELKO");
    EXPECT_EQ(HostToDosPath(DriveC() + "/WZELKO/PROG"), "C:\\WZELKO\\PROG");
}

TEST_F(DosPaths, HostPathMapsBackThroughTheLongestMatchingDrive) {
    EXPECT_EQ(HostToDosPath(DriveC() + "/WZELKO/PROG"), "C:\\WZELKO\\PROG");
    EXPECT_EQ(HostToDosPath(Data() + "/Parts/a.prg"), "D:\\Parts\\a.prg");
    EXPECT_EQ(HostToDosPath(DriveC()), "C:\\");
    EXPECT_EQ(HostToDosPath("/usr/share"), "Z:\\usr\\share");
}

TEST_F(DosPaths, HostPathOutsideEveryDriveHasNoDosPath) {
    fs::remove(prefix.Root() / "dosdevices" / "z:");
    EXPECT_FALSE(HostToDosPath("/usr/share").has_value());
}

TEST_F(DosPaths, FileFunctionsApplyTheMapping) {
    EnginePrefix::WriteBytes(prefix.WinPath("WZELKO.INI"), "[S]\r\n");
    char windows[64];
    GetWindowsDirectoryA(windows, sizeof windows);
    const std::string ini = std::string(windows) + "\\WZELKO.INI";
    const std::string bak = std::string(windows) + "\\WZELKO.BAK";
    EXPECT_TRUE(FileExistsA(ini.c_str()));
    EXPECT_FALSE(FileExistsA(bak.c_str()));
    EXPECT_TRUE(DirectoryExistsA(windows));
    EXPECT_FALSE(DirectoryExistsA(ini.c_str()));
    std::FILE* in = OpenFileA(ini.c_str(), "rt");
    ASSERT_NE(in, nullptr);
    std::FILE* out = OpenFileA(bak.c_str(), "wt");
    ASSERT_NE(out, nullptr);
    for (int c = std::fgetc(in); c != EOF; c = std::fgetc(in)) std::fputc(c, out);
    std::fclose(in);
    std::fclose(out);
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("WZELKO.BAK")), "[S]\r\n");
    EXPECT_TRUE(DeleteFileA(bak.c_str()));
    EXPECT_FALSE(fs::exists(prefix.WinPath("WZELKO.BAK")));
    EXPECT_FALSE(DeleteFileA(bak.c_str()));
}

TEST_F(DosPaths, ToHostPathKeepsHostPathsAndMapsDosPaths) {
    EXPECT_EQ(ToHostPath("relative/file"), "relative/file");
    EXPECT_EQ(ToHostPath("/abs/file"), "/abs/file");
    EXPECT_EQ(ToHostPath("C:\\WZELKO"), DriveC() + "/WZELKO");
    EXPECT_EQ(ToHostPath("Q:\\x\\y"), "Q:/x/y");
}

TEST_F(DosPaths, DrivesAreThePrefixsLettersInOrderEachWithItsTarget) {
    const std::vector<DosDrive> drives = DosDrives();
    ASSERT_EQ(drives.size(), 3u);
    EXPECT_EQ(drives[0].letter, 'C');
    EXPECT_EQ(drives[0].hostRoot, DriveC());
    EXPECT_EQ(drives[1].letter, 'D');
    EXPECT_EQ(drives[1].hostRoot, Data());
    EXPECT_EQ(drives[2].letter, 'Z');
    EXPECT_EQ(drives[2].hostRoot, "/");
}

TEST_F(DosPaths, ADriveWhoseTargetIsMissingIsListedButItsRootIsNoDirectory) {
    fs::create_directory_symlink(prefix.Root() / "cdrom-not-mounted",
                                 prefix.Root() / "dosdevices" / "e:");
    const std::vector<DosDrive> drives = DosDrives();
    ASSERT_EQ(drives.size(), 4u);
    EXPECT_EQ(drives[2].letter, 'E');
    EXPECT_FALSE(DirectoryExistsA("E:\\"));
    EXPECT_TRUE(DirectoryExistsA("D:\\"));
}

TEST_F(DosPaths, CIsADriveEvenWithoutItsLink) {
    fs::remove(prefix.Root() / "dosdevices" / "c:");
    const std::vector<DosDrive> drives = DosDrives();
    ASSERT_FALSE(drives.empty());
    EXPECT_EQ(drives[0].letter, 'C');
    EXPECT_EQ(drives[0].hostRoot, DriveC());
}

TEST_F(DosPaths, EntriesOfDosdevicesThatAreNoDriveLettersAreNoDrives) {
    fs::create_directory_symlink("/", prefix.Root() / "dosdevices" / "com1");
    fs::create_directory_symlink("/", prefix.Root() / "dosdevices" / "d::");
    EXPECT_EQ(DosDrives().size(), 3u);
}

}  // namespace
}  // namespace wk::platform
