// Libraries made byte by byte, for the corners of the string table that windres never
// produces: several languages per block, short blocks, damage inside a block, blocks sharing
// their data.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/resource_library.h"

namespace wk::test {
namespace {

using Bytes = std::vector<unsigned char>;

void Put16(Bytes& b, std::size_t at, std::uint32_t v) {
    if (b.size() < at + 2) b.resize(at + 2);
    b[at] = static_cast<unsigned char>(v);
    b[at + 1] = static_cast<unsigned char>(v >> 8);
}

void Put32(Bytes& b, std::size_t at, std::uint32_t v) {
    Put16(b, at, v & 0xffff);
    Put16(b, at + 2, v >> 16);
}

// The data of one block: each string a 16-bit length and its UTF-16 units.
Bytes EncodeBlock(const std::vector<std::u16string>& strings) {
    Bytes data;
    for (const std::u16string& s : strings) {
        Put16(data, data.size(), static_cast<std::uint32_t>(s.size()));
        for (char16_t c : s) Put16(data, data.size(), c);
    }
    return data;
}

struct LanguageEntry {
    std::uint32_t language;
    std::size_t data;  // index into the library's data list
};

struct Block {
    std::uint32_t id;
    std::vector<LanguageEntry> languages;
};

constexpr std::uint32_t kResourceRva = 0x1000;
constexpr std::uint32_t kResourceFileOffset = 0x200;

// A PE32 image with one section, .rsrc, holding a string table of `blocks` over `datas`.
Bytes BuildLibrary(const std::vector<Block>& blocks, const std::vector<Bytes>& datas) {
    // The resource section: root, type directory, one language directory per block, data
    // entries, then the data.
    Bytes rsrc;
    auto directory = [&rsrc](std::size_t at, std::uint32_t count) {
        rsrc.resize(std::max(rsrc.size(), at + 16 + 8 * count));
        Put16(rsrc, at + 14, count);
    };
    directory(0, 1);
    std::size_t typeDir = 24;
    Put32(rsrc, 16, 6);
    Put32(rsrc, 20, 0x80000000u | static_cast<std::uint32_t>(typeDir));
    directory(typeDir, static_cast<std::uint32_t>(blocks.size()));
    std::size_t next = typeDir + 16 + 8 * blocks.size();
    std::vector<std::size_t> languageDirs;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        languageDirs.push_back(next);
        Put32(rsrc, typeDir + 16 + 8 * i, blocks[i].id);
        Put32(rsrc, typeDir + 20 + 8 * i, 0x80000000u | static_cast<std::uint32_t>(next));
        directory(next, static_cast<std::uint32_t>(blocks[i].languages.size()));
        next += 16 + 8 * blocks[i].languages.size();
    }
    std::size_t dataEntries = next;
    std::size_t dataStart = dataEntries + 16 * datas.size();
    std::vector<std::size_t> dataOffsets;
    for (const Bytes& d : datas) {
        dataOffsets.push_back(dataStart);
        dataStart += (d.size() + 3) & ~std::size_t{3};
    }
    rsrc.resize(dataStart);
    for (std::size_t i = 0; i < datas.size(); ++i) {
        Put32(rsrc, dataEntries + 16 * i,
              kResourceRva + static_cast<std::uint32_t>(dataOffsets[i]));
        Put32(rsrc, dataEntries + 16 * i + 4, static_cast<std::uint32_t>(datas[i].size()));
        std::copy(datas[i].begin(), datas[i].end(), rsrc.begin() + dataOffsets[i]);
    }
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        for (std::size_t k = 0; k < blocks[i].languages.size(); ++k) {
            Put32(rsrc, languageDirs[i] + 16 + 8 * k, blocks[i].languages[k].language);
            Put32(rsrc, languageDirs[i] + 20 + 8 * k,
                  static_cast<std::uint32_t>(dataEntries + 16 * blocks[i].languages[k].data));
        }
    }

    Bytes image(kResourceFileOffset, 0);
    image[0] = 'M';
    image[1] = 'Z';
    Put32(image, 0x3c, 0x40);
    Put32(image, 0x40, 0x00004550);
    Put16(image, 0x44, 0x14c);  // i386
    Put16(image, 0x46, 1);      // one section
    Put16(image, 0x54, 0xe0);   // optional header size
    Put16(image, 0x58, 0x10b);  // PE32
    Put32(image, 0x58 + 92, 16);
    Put32(image, 0x58 + 96 + 16, kResourceRva);
    Put32(image, 0x58 + 96 + 20, static_cast<std::uint32_t>(rsrc.size()));
    const std::size_t section = 0x58 + 0xe0;
    const char name[] = ".rsrc";
    std::copy(name, name + 5, image.begin() + section);
    Put32(image, section + 8, static_cast<std::uint32_t>(rsrc.size()));
    Put32(image, section + 12, kResourceRva);
    Put32(image, section + 16, static_cast<std::uint32_t>(rsrc.size()));
    Put32(image, section + 20, kResourceFileOffset);
    image.insert(image.end(), rsrc.begin(), rsrc.end());
    return image;
}

std::string Fetch(ModuleHandle module, unsigned id) {
    char buffer[256];
    int length = LoadStringA(module, id, buffer, sizeof buffer);
    return std::string(buffer, static_cast<std::size_t>(length));
}

TEST(CraftedLibrary, LanguageNeutralBlockIsPreferredOverTheFirstListed) {
    ModuleHandle module = platform::LoadLibraryFromBytes(BuildLibrary(
        {{1, {{0x410, 0}, {0x000, 1}}}}, {EncodeBlock({u"italiano"}), EncodeBlock({u"neutral"})}));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Fetch(module, 0), "neutral");
    FreeLibrary(module);
}

TEST(CraftedLibrary, WithoutANeutralBlockTheFirstListedIsTaken) {
    ModuleHandle module = platform::LoadLibraryFromBytes(BuildLibrary(
        {{1, {{0x410, 0}, {0x409, 1}}}}, {EncodeBlock({u"italiano"}), EncodeBlock({u"english"})}));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Fetch(module, 0), "italiano");
    FreeLibrary(module);
}

TEST(CraftedLibrary, BlockEndingEarlyLeavesItsLaterStringsMissing) {
    ModuleHandle module = platform::LoadLibraryFromBytes(
        BuildLibrary({{2, {{0, 0}}}}, {EncodeBlock({u"sixteen", u"", u"eighteen"})}));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(platform::StringIds(module), (std::vector<unsigned>{16, 18}));
    EXPECT_EQ(Fetch(module, 18), "eighteen");
    FreeLibrary(module);
}

TEST(CraftedLibrary, StringRunningPastItsBlockFailsToLoad) {
    Bytes data = EncodeBlock({u"abc"});
    Put16(data, 0, 100);  // says 100 characters, holds 3
    EXPECT_EQ(platform::LoadLibraryFromBytes(BuildLibrary({{1, {{0, 0}}}}, {data})), nullptr);
}

TEST(CraftedLibrary, BlockNumberOutsideTheTableFailsToLoad) {
    EXPECT_EQ(
        platform::LoadLibraryFromBytes(BuildLibrary({{0, {{0, 0}}}}, {EncodeBlock({u"zero"})})),
        nullptr);
    EXPECT_EQ(platform::LoadLibraryFromBytes(
                  BuildLibrary({{4097, {{0, 0}}}}, {EncodeBlock({u"beyond"})})),
              nullptr);
}

TEST(CraftedLibrary, SurrogatePairIsOneQuestionMark) {
    ModuleHandle module = platform::LoadLibraryFromBytes(
        BuildLibrary({{1, {{0, 0}}}}, {EncodeBlock({u"a\U0001F600b"})}));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Fetch(module, 0), "a?b");
    FreeLibrary(module);
}

TEST(CraftedLibrary, EveryBlockSharingOneLargeDataLoadsWithinItsSize) {
    std::vector<std::u16string> strings(16, std::u16string(4000, u'x'));
    std::vector<Block> blocks;
    for (std::uint32_t id = 1; id <= 4096; ++id) blocks.push_back({id, {{0, 0}}});
    ModuleHandle module =
        platform::LoadLibraryFromBytes(BuildLibrary(blocks, {EncodeBlock(strings)}));
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(platform::StringIds(module).size(), 65536u);
    EXPECT_EQ(Fetch(module, 65535), std::string(255, 'x'));
    FreeLibrary(module);
}

TEST(CraftedLibrary, LibraryWithAnEmptyStringTableLoads) {
    ModuleHandle module = platform::LoadLibraryFromBytes(BuildLibrary({}, {}));
    ASSERT_NE(module, nullptr);
    EXPECT_TRUE(platform::StringIds(module).empty());
    EXPECT_EQ(Fetch(module, 1), "");
    FreeLibrary(module);
}

}  // namespace
}  // namespace wk::test
