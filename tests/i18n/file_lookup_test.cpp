#include "platform/file_lookup.h"

#include <gtest/gtest.h>

#include "i18n_test_support.h"

namespace wk::test {
namespace {

TEST(FindFileIgnoringCase, FindsAFileSpelledInAnotherCase) {
    TempWorkingDirectory cwd;
    cwd.WriteFile("Help/Marvaneita.hlp", "help");
    auto found = platform::FindFileIgnoringCase("HELP/MARVANEITA.HLP");
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, "Help/Marvaneita.hlp");
}

TEST(FindFileIgnoringCase, TakesBackslashesAsSeparators) {
    TempWorkingDirectory cwd;
    cwd.WriteFile("Help/MarvaneEng.hlp", "help");
    auto found = platform::FindFileIgnoringCase(cwd.Path().string() + "\\help\\marvaneeng.hlp");
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, (cwd.Path() / "Help" / "MarvaneEng.hlp").string());
}

TEST(FindFileIgnoringCase, PrefersTheExactNameAndOtherwiseTheFirstInOrder) {
    TempWorkingDirectory cwd;
    cwd.WriteFile("kes32_ENG.dll", "b");
    cwd.WriteFile("Kes32_eng.dll", "a");
    EXPECT_EQ(*platform::FindFileIgnoringCase("kes32_ENG.dll"), "kes32_ENG.dll");
    EXPECT_EQ(*platform::FindFileIgnoringCase("KES32_ENG.DLL"), "Kes32_eng.dll");
}

TEST(FindFileIgnoringCase, DirectoriesAndMissingFilesAreNotFound) {
    TempWorkingDirectory cwd;
    std::filesystem::create_directory(cwd.Path() / "Help");
    EXPECT_FALSE(platform::FindFileIgnoringCase("help"));
    EXPECT_FALSE(platform::FindFileIgnoringCase("Help/none.hlp"));
    EXPECT_FALSE(platform::FindFileIgnoringCase(""));
}

}  // namespace
}  // namespace wk::test
