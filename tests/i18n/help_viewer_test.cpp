#include "platform/help_viewer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "i18n_test_support.h"
#include "support/file_bytes.h"

namespace wk::test {
namespace {

// PATH holds only a folder of our own, where a test may put a `wine` that records how it
// was called.
class HelpViewer : public ::testing::Test {
protected:
    void SetUp() override {
        const char* path = std::getenv("PATH");
        savedPath_ = path ? path : "";
        std::filesystem::create_directory(cwd_.Path() / "bin");
        setenv("PATH", (cwd_.Path() / "bin").c_str(), 1);
        cwd_.WriteFile("Help/MarvaneEng.hlp", "help");
        helpFile_ = (cwd_.Path() / "Help" / "MarvaneEng.hlp").string();
    }
    void TearDown() override { setenv("PATH", savedPath_.c_str(), 1); }

    void InstallRecordingWine() {
        std::filesystem::path wine = cwd_.Path() / "bin" / "wine";
        std::string record = (cwd_.Path() / "wine-args").string();
        WriteFileBytes(wine, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > " +
                                 record + ".tmp\n/bin/mv " + record + ".tmp " + record + "\n");
        std::filesystem::permissions(wine, std::filesystem::perms::owner_all);
    }

    // What the recording wine was called with, once it has run.
    std::string RecordedArgs() {
        std::filesystem::path record = cwd_.Path() / "wine-args";
        for (int i = 0; i < 500 && !std::filesystem::exists(record); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return std::filesystem::exists(record) ? ReadFileBytes(record) : std::string();
    }

    TempWorkingDirectory cwd_;
    std::string savedPath_;
    std::string helpFile_;
};

TEST_F(HelpViewer, WithoutWineOnPathThereIsNoViewer) {
    EXPECT_FALSE(WinHelpA(helpFile_.c_str(), HELP_CONTEXT, 7));
}

TEST_F(HelpViewer, MissingHelpFileIsNotShown) {
    InstallRecordingWine();
    EXPECT_FALSE(WinHelpA((cwd_.Path() / "Help" / "none.hlp").c_str(), HELP_CONTEXT, 7));
    EXPECT_FALSE(WinHelpA(nullptr, HELP_CONTEXT, 7));
}

TEST_F(HelpViewer, StartsWinhlp32WithTheContextAndTheFileAsAWinePath) {
    InstallRecordingWine();
    EXPECT_TRUE(WinHelpA(helpFile_.c_str(), HELP_CONTEXT, 7));
    std::string winePath = "Z:";
    for (char c : helpFile_) winePath.push_back(c == '/' ? '\\' : c);
    EXPECT_EQ(RecordedArgs(), "winhlp32\n-n\n7\n" + winePath + "\n");
}

TEST_F(HelpViewer, OtherCommandsAreNotSupported) {
    InstallRecordingWine();
    EXPECT_FALSE(WinHelpA(helpFile_.c_str(), 0x3 /* HELP_INDEX */, 0));
}

}  // namespace
}  // namespace wk::test
