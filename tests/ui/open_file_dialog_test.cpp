// Where the shared file-open dialog opens: the folder asked for, found through the prefix's
// drives without regard to case, or the nearest folder above it that exists.

#include "shell/open_file_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/temp_prefix.h"

namespace wk {
namespace {

namespace fs = std::filesystem;

class DialogStartDirectoryTest : public ::testing::Test {
protected:
    static fs::path Opened(const std::string& initialDir) {
        return fs::path(DialogStartDirectory(initialDir));
    }
    fs::path DriveC() const { return fs::canonical(prefix_.DriveC()); }

    test::TempWinePrefix prefix_;
};

TEST_F(DialogStartDirectoryTest, AnExistingFolderOfTheMeasuringApplicationIsOpenedThroughDriveC) {
    fs::create_directories(prefix_.DriveC() / "WZELKO");
    EXPECT_EQ(Opened("C:\\wzelko"), DriveC() / "WZELKO");
}

TEST_F(DialogStartDirectoryTest, AMissingFolderOpensTheNearestExistingFolderAboveIt) {
    EXPECT_EQ(Opened("C:\\wzelko"), DriveC());
    fs::create_directories(prefix_.DriveC() / "Wzelko");
    EXPECT_EQ(Opened("C:\\WZELKO\\DATA\\COMP"), DriveC() / "Wzelko");
}

TEST_F(DialogStartDirectoryTest, AFileNameInsteadOfAFolderOpensTheFolderHoldingIt) {
    fs::create_directories(prefix_.DriveC() / "WZELKO");
    { std::ofstream(prefix_.DriveC() / "WZELKO" / "A.BIN") << "x"; }
    EXPECT_EQ(Opened("C:\\WZELKO\\A.BIN"), DriveC() / "WZELKO");
}

TEST_F(DialogStartDirectoryTest, AHostFolderIsTakenAsItIs) {
    EXPECT_EQ(Opened(prefix_.Root().string()), prefix_.Root());
    EXPECT_EQ(Opened((prefix_.Root() / "no" / "such").string()), prefix_.Root());
}

TEST_F(DialogStartDirectoryTest, NoFolderLeavesTheChoiceToTheDialog) {
    EXPECT_EQ(DialogStartDirectory(""), "");
}

}  // namespace
}  // namespace wk
