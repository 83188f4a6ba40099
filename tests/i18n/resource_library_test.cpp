#include "platform/resource_library.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "i18n_test_support.h"
#include "support/file_bytes.h"

namespace wk::test {
namespace {

std::string Load(ModuleHandle module, unsigned id, int bufferMax = 256) {
    std::vector<char> buffer(static_cast<std::size_t>(bufferMax) + 1, 'x');
    int length = LoadStringA(module, id, buffer.data(), bufferMax);
    std::string text(buffer.data());
    EXPECT_EQ(static_cast<int>(text.size()), length);
    return text;
}

std::vector<unsigned char> Bytes(const std::string& text) {
    return std::vector<unsigned char>(text.begin(), text.end());
}

const std::string kAlphabet250 = [] {
    std::string s;
    for (int i = 0; i < 250; ++i) s.push_back(static_cast<char>('A' + i % 26));
    return s;
}();

class ResourceLibrary : public ::testing::TestWithParam<const char*> {};

TEST_P(ResourceLibrary, LoadsStringsByIdAcrossBlocks) {
    ModuleHandle module = LoadLibraryA(TestLibrary(GetParam()).string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 1), "General Setup");
    EXPECT_EQ(Load(module, 15), "last of block one");
    EXPECT_EQ(Load(module, 16), "first of block two");
    EXPECT_EQ(Load(module, 1000), "far away");
    EXPECT_TRUE(FreeLibrary(module));
}

TEST_P(ResourceLibrary, ConvertsTextToWindows1252) {
    ModuleHandle module = LoadLibraryA(TestLibrary(GetParam()).string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 3), "Caf\xe9");
    EXPECT_EQ(Load(module, 4), "Byte \x82 for OEM");
    EXPECT_EQ(Load(module, 40), "Euro \x80");
    FreeLibrary(module);
}

INSTANTIATE_TEST_SUITE_P(PeFormats, ResourceLibrary,
                         ::testing::Values("test_eng32.dll", "test_eng64.dll"));

TEST(LoadStringA, CharacterOutsideWindows1252BecomesQuestionMark) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 41), "Alpha ? here");
    FreeLibrary(module);
}

TEST(LoadStringA, Copies250CharactersIntoA256Buffer) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 2), kAlphabet250);
    FreeLibrary(module);
}

TEST(LoadStringA, CutsToBufferSizeLessOneAndReportsTheCopiedLength) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 1, 8), "General");
    EXPECT_EQ(Load(module, 1, 1), "");
    FreeLibrary(module);
}

TEST(LoadStringA, MissingIdGivesEmptyTextAndZero) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 5), "");      // in a present block
    EXPECT_EQ(Load(module, 600), "");    // in a missing block
    EXPECT_EQ(Load(module, 70000), "");  // beyond any block
    FreeLibrary(module);
}

TEST(LoadStringA, NullModuleGivesEmptyTextAndZero) {
    EXPECT_EQ(Load(nullptr, 1), "");
}

TEST(LoadStringA, ZeroBufferSizeWritesNothing) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    char c = 'x';
    EXPECT_EQ(LoadStringA(module, 1, &c, 0), 0);
    EXPECT_EQ(c, 'x');
    FreeLibrary(module);
}

TEST(StringIds, ListsEveryStringOfTheLibraryInOrder) {
    ModuleHandle module = LoadLibraryA(TestLibrary("test_eng32.dll").string().c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(platform::StringIds(module),
              (std::vector<unsigned>{1, 2, 3, 4, 15, 16, 40, 41, 1000}));
    FreeLibrary(module);
}

TEST(LoadLibraryA, NameMatchIgnoresCase) {
    TempWorkingDirectory cwd;
    cwd.CopyLibrary("test_ita32.dll", "Kes32_ita.dll");
    ModuleHandle module = LoadLibraryA("Kes32_ITA.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Load(module, 1), "Impostazioni generali");
    FreeLibrary(module);
}

TEST(LoadLibraryA, MissingFileDoesNotLoad) {
    TempWorkingDirectory cwd;
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
    EXPECT_EQ(LoadLibraryA(nullptr), nullptr);
}

TEST(LoadLibraryA, GarbageFileNamedLikeALibraryDoesNotLoad) {
    TempWorkingDirectory cwd;
    cwd.WriteFile("Kes32_eng.dll", "This is not a library at all, just text.\n");
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
    cwd.WriteFile("Kes32_eng.dll", "");
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
    cwd.WriteFile("Kes32_eng.dll", "MZ");
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
}

TEST(LoadLibraryA, DirectoryNamedLikeALibraryDoesNotLoad) {
    TempWorkingDirectory cwd;
    std::filesystem::create_directory(cwd.Path() / "Kes32_eng.dll");
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
}

TEST(LoadLibraryA, LibraryWithoutStringTableDoesNotLoad) {
    EXPECT_EQ(LoadLibraryA(TestLibrary("test_no_strings.dll").string().c_str()), nullptr);
}

TEST(LoadLibraryA, EveryTruncatedCopyOfALibraryFailsToLoad) {
    for (const char* name : {"test_eng32.dll", "test_eng64.dll"}) {
        std::string bytes = TestLibraryBytes(name);
        for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
            ModuleHandle module = platform::LoadLibraryFromBytes(Bytes(bytes.substr(0, cut)));
            EXPECT_EQ(module, nullptr) << name << " cut at " << cut;
            FreeLibrary(module);
        }
    }
}

TEST(LoadLibraryA, TruncatedCopyOnDiskFailsToLoad) {
    TempWorkingDirectory cwd;
    std::string bytes = TestLibraryBytes("test_eng32.dll");
    cwd.WriteFile("Kes32_eng.dll", bytes.substr(0, bytes.size() - 100));
    EXPECT_EQ(LoadLibraryA("Kes32_eng.dll"), nullptr);
}

TEST(LoadLibraryA, DamagedLibrariesNeverCrash) {
    // Random byte changes anywhere in a real library: each copy either loads (and then gives
    // strings that fit the buffer) or does not; nothing is read outside the bytes.
    std::mt19937 random(1234);
    for (const char* name : {"test_eng32.dll", "test_eng64.dll"}) {
        std::vector<unsigned char> original = Bytes(TestLibraryBytes(name));
        std::uniform_int_distribution<std::size_t> where(0, original.size() - 1);
        std::uniform_int_distribution<int> value(0, 255);
        for (int round = 0; round < 3000; ++round) {
            std::vector<unsigned char> bytes = original;
            for (int n = 0; n < 1 + round % 4; ++n)
                bytes[where(random)] = static_cast<unsigned char>(value(random));
            ModuleHandle module = platform::LoadLibraryFromBytes(bytes);
            for (unsigned id : platform::StringIds(module)) {
                char buffer[256];
                int length = LoadStringA(module, id, buffer, sizeof buffer);
                ASSERT_GE(length, 0);
                ASSERT_LT(length, 256);
            }
            FreeLibrary(module);
        }
    }
}

TEST(FreeLibrary, NullIsIgnored) {
    EXPECT_FALSE(FreeLibrary(nullptr));
}

}  // namespace
}  // namespace wk::test
