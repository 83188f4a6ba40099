#include "platform/scratch_directory.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/windows_directory.h"
#include "support/file_bytes.h"

namespace wk::platform {
namespace {

namespace fs = std::filesystem;

TEST(ScratchDirectory, EachCallMakesANewEmptyDirectoryWithTheStem) {
    const fs::path a = MakeScratchDirectory("wkestel-scratch-test-");
    const fs::path b = MakeScratchDirectory("wkestel-scratch-test-");
    EXPECT_NE(a, b);
    EXPECT_TRUE(fs::is_directory(a));
    EXPECT_TRUE(fs::is_empty(a));
    EXPECT_EQ(a.filename().string().rfind("wkestel-scratch-test-", 0), 0u);
    RemoveScratchDirectory(a);
    RemoveScratchDirectory(b);
    EXPECT_FALSE(fs::exists(a));
    EXPECT_FALSE(fs::exists(b));
}

TEST(ScratchDirectory, RemovesATreeMadeReadOnly) {
    const fs::path root = MakeScratchDirectory("wkestel-scratch-test-");
    fs::create_directories(root / "sub");
    test::WriteFileBytes(root / "sub" / "WZELKO.INI", "[A]\r\n");
    fs::permissions(root / "sub", fs::perms::owner_read | fs::perms::owner_exec);
    RemoveScratchDirectory(root);
    EXPECT_FALSE(fs::exists(root));
}

TEST(ScratchWinePrefix, HasAWindowsDirectoryAndDriveCAndIsGoneAfterwards) {
    fs::path root;
    {
        ScratchWinePrefix prefix;
        root = prefix.Root();
        EXPECT_TRUE(fs::is_directory(prefix.WindowsDir()));
        EXPECT_EQ(fs::canonical(root / "dosdevices" / "c:"), fs::canonical(root / "drive_c"));
    }
    EXPECT_FALSE(fs::exists(root));
}

TEST(ScratchWinePrefix, DoesNotPointThePlatformAtItself) {
    const std::string before = WinePrefixOverride();
    ScratchWinePrefix prefix;
    EXPECT_EQ(WinePrefixOverride(), before);
}

TEST(WinePrefixOverride, GivesBackWhatWasSetAndEmptyWhenRemoved) {
    const std::string before = WinePrefixOverride();
    SetWinePrefixOverride("/some/prefix/");
    EXPECT_EQ(WinePrefixOverride(), "/some/prefix");
    SetWinePrefixOverride("");
    EXPECT_EQ(WinePrefixOverride(), "");
    SetWinePrefixOverride(before);
}

}  // namespace
}  // namespace wk::platform
