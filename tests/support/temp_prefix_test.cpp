#include "support/temp_prefix.h"

#include <gtest/gtest.h>

#include "platform/windows_directory.h"

namespace wk::test {
namespace {

TEST(TempWinePrefix, PointsThePlatformAtItsWindowsDirectory) {
    TempWinePrefix prefix;
    EXPECT_EQ(platform::WindowsDirectoryHostPath(), prefix.WindowsDir().string());
    EXPECT_TRUE(std::filesystem::is_directory(prefix.WindowsDir()));
}

TEST(TempWinePrefix, RemovesItselfAndTheOverride) {
    std::filesystem::path root;
    {
        TempWinePrefix prefix;
        root = prefix.Root();
        prefix.WriteWindowsFile("WZELKO.INI", "[A]\r\n");
        EXPECT_EQ(prefix.ReadWindowsFile("WZELKO.INI"), "[A]\r\n");
    }
    EXPECT_FALSE(std::filesystem::exists(root));
    EXPECT_NE(platform::WinePrefix(), root.string());
}

}  // namespace
}  // namespace wk::test
