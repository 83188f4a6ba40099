// ProfileDryRun: writes tried out in memory and recorded, none of them reaching the disk.

#include "platform/profile_dry_run.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "engine_prefix.h"
#include "platform/profile.h"
#include "platform/profile_batch.h"
#include "platform/profile_files.h"

namespace wk {
namespace {

using test::EnginePrefix;
using test::GetString;

class ProfileDryRunTest : public testing::Test {
protected:
    std::string Bytes(const char* name) { return EnginePrefix::ReadBytes(prefix.WinPath(name)); }
    EnginePrefix prefix;
};

TEST_F(ProfileDryRunTest, ReadsInsideSeeTheTriedWritesAndNothingReachesTheDisk) {
    EnginePrefix::WriteBytes(prefix.WinPath("X.INI"), "[S]\r\nK=1\r\n");
    {
        ProfileDryRun dryRun;
        EXPECT_TRUE(ProfileDryRun::Active());
        EXPECT_TRUE(WritePrivateProfileStringA("S", "K", " 2 ", "X.INI"));
        EXPECT_TRUE(WritePrivateProfileStringA("s", " NEW ", "3", "x.ini"));
        EXPECT_TRUE(WritePrivateProfileStringA("S", "K", nullptr, "X.INI"));
        EXPECT_EQ(GetString("S", "NEW", "<missing>", "X.INI"), "3");
        EXPECT_EQ(Bytes("X.INI"), "[S]\r\nK=1\r\n");
        const auto& writes = dryRun.Writes();
        ASSERT_EQ(writes.size(), 3u);
        EXPECT_EQ(writes[0].FileName, "X.INI");
        EXPECT_EQ(writes[0].Section, "S");
        EXPECT_EQ(writes[0].Key, "K");
        EXPECT_EQ(writes[0].Before, "1");
        EXPECT_EQ(writes[0].After, "2");  // as the profile functions read it: trimmed
        EXPECT_EQ(writes[1].FileName, "x.ini");
        EXPECT_EQ(writes[1].Section, "s");
        EXPECT_EQ(writes[1].Key, "NEW");  // without the spaces the call trims
        EXPECT_FALSE(writes[1].Before.has_value());
        EXPECT_EQ(writes[1].After, "3");
        EXPECT_EQ(writes[2].Before, "2");
        EXPECT_FALSE(writes[2].After.has_value());
    }
    EXPECT_FALSE(ProfileDryRun::Active());
    EXPECT_EQ(Bytes("X.INI"), "[S]\r\nK=1\r\n");
    EXPECT_EQ(GetString("S", "K", "<missing>", "X.INI"), "1");
    EXPECT_EQ(GetString("S", "NEW", "<missing>", "X.INI"), "<missing>");
}

TEST_F(ProfileDryRunTest, AFileTheTrialWouldCreateIsNotCreated) {
    {
        ProfileDryRun dryRun;
        EXPECT_TRUE(WritePrivateProfileStringA("S", "K", "1", "NEW.INI"));
        EXPECT_EQ(GetString("S", "K", "<missing>", "NEW.INI"), "1");
    }
    EXPECT_FALSE(std::filesystem::exists(prefix.WinPath("NEW.INI")));
    EXPECT_EQ(GetString("S", "K", "<missing>", "NEW.INI"), "<missing>");
}

TEST_F(ProfileDryRunTest, AWholeFileReplacementLikeTheBackupIsNotMade) {
    EnginePrefix::WriteBytes(prefix.WinPath("X.BAK"), "old backup");
    {
        ProfileDryRun dryRun;
        EXPECT_TRUE(platform::ReplaceWholeFile(prefix.WinPath("X.BAK"), "new backup"));
        EXPECT_TRUE(platform::ReplaceWholeFile(prefix.WinPath("Y.BAK"), "new backup"));
    }
    EXPECT_EQ(Bytes("X.BAK"), "old backup");
    EXPECT_FALSE(std::filesystem::exists(prefix.WinPath("Y.BAK")));
}

TEST_F(ProfileDryRunTest, ASectionDeletionIsRecordedWithoutAKey) {
    EnginePrefix::WriteBytes(prefix.WinPath("X.INI"), "[S]\r\nK=1\r\n");
    ProfileDryRun dryRun;
    EXPECT_TRUE(WritePrivateProfileStringA("S", nullptr, nullptr, "X.INI"));
    ASSERT_EQ(dryRun.Writes().size(), 1u);
    EXPECT_FALSE(dryRun.Writes()[0].Key.has_value());
}

TEST_F(ProfileDryRunTest, CannotBeBegunInsideABatchWhoseWritesItWouldDrop) {
    ProfileBatch batch;
    ASSERT_TRUE(WritePrivateProfileStringA("S", "K", "kept", "X.INI"));
    EXPECT_THROW(ProfileDryRun dryRun, std::logic_error);
    EXPECT_FALSE(ProfileDryRun::Active());
    ASSERT_TRUE(batch.Commit());
    EXPECT_EQ(Bytes("X.INI"), "[S]\r\nK=kept\r\n");
}

TEST_F(ProfileDryRunTest, WritesAfterTheDryRunReachTheDiskAgain) {
    { ProfileDryRun dryRun; }
    ASSERT_TRUE(WritePrivateProfileStringA("S", "K", "1", "X.INI"));
    EXPECT_EQ(Bytes("X.INI"), "[S]\r\nK=1\r\n");
}

}  // namespace
}  // namespace wk
