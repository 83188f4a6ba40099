#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "i18n/resgenstring.h"
#include "language_test_fixture.h"
#include "support/file_bytes.h"

namespace wk::test {
namespace {

class HelpFile : public LanguageTest {
protected:
    std::filesystem::path HelpPath(const std::string& name) { return cwd_.Path() / "Help" / name; }
};

TEST_F(HelpFile, LowerCaseItaIsLookedUpAsMarvaneitaInTheHelpFolder) {
    cwd_.WriteFile("Help/Marvaneita.hlp", "ita");
    cwd_.WriteFile("Help/MarvaneITA.hlp", "ITA");
    cwd_.WriteFile("Help/MarvaneEng.hlp", "eng");
    EXPECT_TRUE(SetupHelpFile("ita"));
    EXPECT_TRUE(Language().HelpAvailable);
    EXPECT_EQ(Language().HelpFilePath, HelpPath("Marvaneita.hlp").string());
}

TEST_F(HelpFile, LowerCaseItaFallsBackToMarvaneEng) {
    cwd_.WriteFile("Help/MarvaneEng.hlp", "eng");
    EXPECT_TRUE(SetupHelpFile("ita"));
    EXPECT_EQ(Language().HelpFilePath, HelpPath("MarvaneEng.hlp").string());
}

TEST_F(HelpFile, NamesMatchWithoutRegardToCaseOnThisFileSystem) {
    cwd_.WriteFile("help/MARVANEITA.HLP", "ita");
    EXPECT_TRUE(SetupHelpFile("ita"));
    EXPECT_EQ(Language().HelpFilePath, (cwd_.Path() / "help" / "MARVANEITA.HLP").string());
}

TEST_F(HelpFile, WithoutHelpFilesHelpIsNotAvailable) {
    EXPECT_FALSE(SetupHelpFile("ita"));
    EXPECT_FALSE(Language().HelpAvailable);
    EXPECT_TRUE(Language().HelpFilePath.empty());
    EXPECT_FALSE(ShowHelpContext(1));
}

TEST_F(HelpFile, ASecondLookupWithoutHelpFilesForgetsTheFileTheFirstFound) {
    cwd_.WriteFile("Help/MarvaneEng.hlp", "eng");
    ASSERT_TRUE(SetupHelpFile("ENG"));
    std::filesystem::remove(HelpPath("MarvaneEng.hlp"));
    EXPECT_FALSE(SetupHelpFile("ENG"));
    EXPECT_FALSE(Language().HelpAvailable);
    EXPECT_TRUE(Language().HelpFilePath.empty());
    EXPECT_FALSE(ShowHelpContext(1));
}

TEST_F(HelpFile, HelpFilesOutsideTheHelpFolderAreNotUsed) {
    cwd_.WriteFile("MarvaneEng.hlp", "eng");
    EXPECT_FALSE(SetupHelpFile("ENG"));
}

// The viewer is found on PATH; a `wine` of our own records how it was called.
TEST_F(HelpFile, ShowHelpContextHandsTheFileAndContextToTheViewer) {
    cwd_.WriteFile("Help/MarvaneEng.hlp", "eng");
    ASSERT_TRUE(SetupHelpFile("ENG"));
    std::filesystem::path bin = cwd_.Path() / "bin";
    std::filesystem::path record = cwd_.Path() / "args";
    cwd_.WriteFile("bin/wine", "#!/bin/sh\nprintf '%s ' \"$@\" > " + record.string() +
                                   ".tmp\n/bin/mv " + record.string() + ".tmp " + record.string() +
                                   "\n");
    std::filesystem::permissions(bin / "wine", std::filesystem::perms::owner_all);
    const char* path = std::getenv("PATH");
    std::string savedPath = path ? path : "";
    setenv("PATH", bin.c_str(), 1);
    bool shown = ShowHelpContext(1234);
    setenv("PATH", savedPath.c_str(), 1);
    ASSERT_TRUE(shown);
    for (int i = 0; i < 500 && !std::filesystem::exists(record); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    std::string winePath = "Z:";
    for (char c : HelpPath("MarvaneEng.hlp").string()) winePath.push_back(c == '/' ? '\\' : c);
    EXPECT_EQ(ReadFileBytes(record), "winhlp32 -n 1234 " + winePath + " ");
}

TEST_F(HelpFile, ShowHelpContextWithoutAViewerFails) {
    cwd_.WriteFile("Help/MarvaneEng.hlp", "eng");
    ASSERT_TRUE(SetupHelpFile("ENG"));
    const char* path = std::getenv("PATH");
    std::string savedPath = path ? path : "";
    setenv("PATH", cwd_.Path().c_str(), 1);  // no wine there
    bool shown = ShowHelpContext(1);
    setenv("PATH", savedPath.c_str(), 1);
    EXPECT_FALSE(shown);
}

}  // namespace
}  // namespace wk::test
