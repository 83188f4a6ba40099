#include "platform/windows_directory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "engine_prefix.h"
#include "platform/windows_directory.h"

namespace wk {
namespace {

namespace fs = std::filesystem;

// Sets an environment variable for one test and puts the old value back.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value)
            ::setenv(name, value, 1);
        else
            ::unsetenv(name);
    }
    ~ScopedEnv() {
        if (old_)
            ::setenv(name_, old_->c_str(), 1);
        else
            ::unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(WindowsDirectory, IsCWindowsAsTheMeasuringApplicationSeesIt) {
    char buffer[64];
    EXPECT_EQ(GetWindowsDirectoryA(buffer, sizeof buffer), 10u);
    EXPECT_STREQ(buffer, "C:\\windows");
}

TEST(WindowsDirectory, TooSmallBufferGetsTheSizeNeededAndNothingCopied) {
    char buffer[16] = {'x'};
    EXPECT_EQ(GetWindowsDirectoryA(buffer, 10), 11u);
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(GetWindowsDirectoryA(buffer, 11), 10u);
    EXPECT_STREQ(buffer, "C:\\windows");
}

TEST(WindowsDirectory, PrefixComesFromOverrideThenWineprefixThenHome) {
    ScopedEnv home("HOME", "/home/operator");
    {
        ScopedEnv prefix("WINEPREFIX", nullptr);
        EXPECT_EQ(platform::WinePrefix(), "/home/operator/.wine");
    }
    ScopedEnv prefix("WINEPREFIX", "/opt/cmm/prefix/");
    EXPECT_EQ(platform::WinePrefix(), "/opt/cmm/prefix");
    EXPECT_EQ(platform::WindowsDirectoryHostPath(), "/opt/cmm/prefix/drive_c/windows");
    platform::SetWinePrefixOverride("/srv/other");
    EXPECT_EQ(platform::WinePrefix(), "/srv/other");
    platform::SetWinePrefixOverride("");
    EXPECT_EQ(platform::WinePrefix(), "/opt/cmm/prefix");
}

TEST(WindowsDirectory, MissingDirectoryIsExplainedWithWhereItLooked) {
    test::EnginePrefix prefix;
    EXPECT_FALSE(platform::WindowsDirectoryProblem().has_value());
    fs::remove_all(prefix.WindowsDir());
    const auto problem = platform::WindowsDirectoryProblem();
    ASSERT_TRUE(problem.has_value());
    EXPECT_NE(problem->find(prefix.WindowsDir().string()), std::string::npos);
    EXPECT_NE(problem->find("WINEPREFIX"), std::string::npos);
    EXPECT_NE(problem->find("--prefix"), std::string::npos);
}

TEST(WindowsDirectory, FileInPlaceOfTheDirectoryIsAProblem) {
    test::EnginePrefix prefix;
    fs::remove_all(prefix.WindowsDir());
    test::EnginePrefix::WriteBytes(prefix.WindowsDir(), "x");
    const auto problem = platform::WindowsDirectoryProblem();
    ASSERT_TRUE(problem.has_value());
    EXPECT_NE(problem->find("not a directory"), std::string::npos);
}

}  // namespace
}  // namespace wk
