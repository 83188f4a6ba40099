// ProfileBatch: writes applied in memory, one replace per file at the end of the outermost
// batch, with the bytes the same writes one by one would give.

#include "platform/profile_batch.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <vector>

#include "engine_prefix.h"
#include "platform/profile.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;
using test::GetString;

class ProfileBatchTest : public testing::Test {
protected:
    std::string Bytes(const char* name) { return EnginePrefix::ReadBytes(prefix.WinPath(name)); }
    EnginePrefix prefix;
};

TEST_F(ProfileBatchTest, WritesReachTheDiskOnlyAtTheEnd) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
        ASSERT_TRUE(WritePrivateProfileStringA("S", "n", "3", "A.INI"));
        EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=1\r\n");
        EXPECT_EQ(GetString("S", "k", "", "A.INI"), "2");
        EXPECT_EQ(GetPrivateProfileIntA("S", "n", 0, "A.INI"), 3u);
    }
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\nn=3\r\n");
}

TEST_F(ProfileBatchTest, CommitWritesEveryChangedFileOnce) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    ProfileBatch batch;
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    ASSERT_TRUE(WritePrivateProfileStringA("T", "k", "3", "B.INI"));
    EXPECT_FALSE(fs::exists(prefix.WinPath("B.INI")));
    EXPECT_TRUE(batch.Commit());
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\n");
    EXPECT_EQ(Bytes("B.INI"), "[T]\r\nk=3\r\n");
}

TEST_F(ProfileBatchTest, NestedBatchLeavesTheCommitToTheOutermost) {
    {
        ProfileBatch outer;
        {
            ProfileBatch inner;
            ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "1", "A.INI"));
            EXPECT_TRUE(inner.Commit());
        }
        EXPECT_FALSE(fs::exists(prefix.WinPath("A.INI")));
        EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    }
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=1\r\n");
}

TEST_F(ProfileBatchTest, WritesAfterAnExplicitCommitAreNotLost) {
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "1", "A.INI"));
        ASSERT_TRUE(batch.Commit());
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "A.INI"));
    }
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=2\r\n");
}

TEST_F(ProfileBatchTest, DeleteOnAMissingFileCreatesItAtTheEnd) {
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("S", nullptr, nullptr, "A.INI"));
    }
    ASSERT_TRUE(fs::exists(prefix.WinPath("A.INI")));
    EXPECT_EQ(fs::file_size(prefix.WinPath("A.INI")), 0u);
}

TEST_F(ProfileBatchTest, FailedCommitLeavesTheFileIntactAndReportsWhy) {
    const fs::path dir = prefix.Root() / "gone";
    fs::create_directory(dir);
    const std::string path = (dir / "x.ini").string();
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    ProfileBatch batch;
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", path.c_str()));
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "3", "A.INI"));
    // The directory is replaced by a file of the same name: the replace cannot happen.
    fs::remove_all(dir);
    EnginePrefix::WriteBytes(dir, "blocker");
    EXPECT_FALSE(batch.Commit());
    EXPECT_NE(LastProfileError().find(path), std::string::npos);
    EXPECT_EQ(EnginePrefix::ReadBytes(dir), "blocker");
    EXPECT_EQ(Bytes("A.INI"), "[S]\r\nk=3\r\n");
}

TEST_F(ProfileBatchTest, MissingDirectoryFailsAtOnceInABatch) {
    ProfileBatch batch;
    const std::string path = (prefix.Root() / "nodir" / "x.ini").string();
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", path.c_str()));
    EXPECT_TRUE(batch.Commit());
}

TEST_F(ProfileBatchTest, FilesAreNotCheckedAgainInsideABatch) {
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=1\r\n");
    ProfileBatch batch;
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
    EnginePrefix::WriteBytes(prefix.WinPath("A.INI"), "[S]\r\nk=22\r\n");
    EXPECT_EQ(GetString("S", "k", "", "A.INI"), "1");
}

// A random sequence of writes (sets, deletes, odd names) gives the same bytes in a batch as
// one by one.
TEST_F(ProfileBatchTest, BatchGivesTheSameBytesAsWritesOneByOne) {
    const std::vector<const char*> sections = {"S", "s", "T", "  U ", "", "[V]", "W\r\nx=1"};
    const std::vector<const char*> keys = {"a", "A", "b", " c ", ";d", "", "e=f", "[G]", nullptr};
    const std::vector<const char*> values = {"1", "", " spaced ", "\"q\"", "x\r\ny=2", nullptr};
    const std::string start = "junk\r\n[S]\r\na=0\r\n;c\r\n\r\n[T]\nb=1\rplain\r\n[s]\r\nA=9";
    std::mt19937 rng(20240611);
    for (int round = 0; round < 60; ++round) {
        std::vector<std::tuple<const char*, const char*, const char*>> ops;
        const int count = 1 + static_cast<int>(rng() % 12);
        for (int i = 0; i < count; ++i) {
            ops.emplace_back(sections[rng() % sections.size()], keys[rng() % keys.size()],
                             values[rng() % values.size()]);
        }
        EnginePrefix::WriteBytes(prefix.WinPath("ONE.INI"), start);
        for (const auto& [s, k, v] : ops) WritePrivateProfileStringA(s, k, v, "ONE.INI");
        EnginePrefix::WriteBytes(prefix.WinPath("BATCH.INI"), start);
        {
            ProfileBatch batch;
            for (const auto& [s, k, v] : ops) WritePrivateProfileStringA(s, k, v, "BATCH.INI");
            ASSERT_TRUE(batch.Commit());
        }
        ASSERT_EQ(Bytes("BATCH.INI"), Bytes("ONE.INI")) << "round " << round;
        EnginePrefix::ClearStore();
    }
}

}  // namespace
}  // namespace wk

namespace wk {
namespace {

TEST_F(ProfileBatchTest, FailureAtTheEndOfTheScopeIsReportedByLastProfileError) {
    const fs::path dir = prefix.Root() / "gone";
    fs::create_directory(dir);
    const std::string path = (dir / "x.ini").string();
    {
        ProfileBatch batch;
        ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "1", path.c_str()));
        fs::remove_all(dir);
    }
    EXPECT_NE(LastProfileError().find(path), std::string::npos);
    EXPECT_FALSE(fs::exists(dir));
}

}  // namespace
}  // namespace wk
