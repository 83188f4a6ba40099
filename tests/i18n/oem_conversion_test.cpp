#include "platform/oem_conversion.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace wk::test {
namespace {

std::string Convert(std::string text) {
    EXPECT_TRUE(OemToCharBuffA(text.data(), text.data(), static_cast<std::uint32_t>(text.size())));
    return text;
}

class OemConversion : public ::testing::Test {
protected:
    void SetUp() override { unsetenv("WKESTEL_OEM_CODEPAGE"); }
    void TearDown() override { unsetenv("WKESTEL_OEM_CODEPAGE"); }
};

TEST_F(OemConversion, ConvertsAccentedLettersOfCodePage850ToWindows1252) {
    EXPECT_EQ(Convert("\x82"), "\xe9");                  // e acute
    EXPECT_EQ(Convert("\x81\x8a\x85"), "\xfc\xe8\xe0");  // u umlaut, e grave, a grave
    EXPECT_EQ(Convert("\x9b"), "\xf8");                  // o slash, 850's own
}

TEST_F(OemConversion, KeepsAscii) {
    EXPECT_EQ(Convert("General Setup 123"), "General Setup 123");
}

TEST_F(OemConversion, CharacterWindows1252LacksBecomesQuestionMark) {
    EXPECT_EQ(Convert("\xc9\xcd\xbb"), "???");  // box drawing
}

TEST_F(OemConversion, ConvertsOnlyTheGivenLength) {
    std::string text = "\x82\x82";
    OemToCharBuffA(text.data(), text.data(), 1);
    EXPECT_EQ(text, "\xe9\x82");
}

TEST_F(OemConversion, WritesIntoAnotherBuffer) {
    const char source[] = "\x82t\x82";
    char destination[3] = {};
    EXPECT_TRUE(OemToCharBuffA(source, destination, 3));
    EXPECT_EQ(std::string(destination, 3), "\xe9t\xe9");
    EXPECT_EQ(std::string(source), "\x82t\x82");
}

TEST_F(OemConversion, EnvironmentSelectsAnotherOemCodePage) {
    setenv("WKESTEL_OEM_CODEPAGE", "437", 1);
    EXPECT_EQ(Convert("\x9b"), "\xa2");  // cent sign in 437, o slash in 850
    setenv("WKESTEL_OEM_CODEPAGE", "CP850", 1);
    EXPECT_EQ(Convert("\x9b"), "\xf8");
}

TEST_F(OemConversion, UnknownCodePageKeepsTheDefault) {
    setenv("WKESTEL_OEM_CODEPAGE", "no-such-code-page", 1);
    EXPECT_EQ(Convert("\x82"), "\xe9");
}

// All 256 bytes, in the form of the shared tables that the Windows build's conversion (by
// Windows itself) is checked against under Wine: both platforms convert alike.
std::string TableOfEveryByte() {
    char bytes[256];
    for (int b = 0; b < 256; ++b) bytes[b] = static_cast<char>(b);
    EXPECT_TRUE(OemToCharBuffA(bytes, bytes, sizeof bytes));
    std::string table;
    for (int row = 0; row < 16; ++row) {
        char line[8];
        std::snprintf(line, sizeof line, "%02X:", row * 16);
        table += line;
        for (int column = 0; column < 16; ++column) {
            std::snprintf(line, sizeof line, " %02X",
                          static_cast<unsigned char>(bytes[row * 16 + column]));
            table += line;
        }
        table += '\n';
    }
    return table;
}

std::string SharedTable(const char* codePage) {
    std::ifstream in(std::string(WKESTEL_OEM_TABLE_DIR) + "/" + codePage + ".txt");
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST_F(OemConversion, EveryByteOfCodePage850ConvertsAsTheSharedTableSays) {
    EXPECT_EQ(TableOfEveryByte(), SharedTable("850"));
}

TEST_F(OemConversion, EveryByteOfCodePage437ConvertsAsTheSharedTableSays) {
    setenv("WKESTEL_OEM_CODEPAGE", "437", 1);
    EXPECT_EQ(TableOfEveryByte(), SharedTable("437"));
}

TEST_F(OemConversion, NullBuffersFailUnlessNothingToDo) {
    EXPECT_TRUE(OemToCharBuffA(nullptr, nullptr, 0));
    char c = 'a';
    EXPECT_FALSE(OemToCharBuffA(nullptr, &c, 1));
}

}  // namespace
}  // namespace wk::test
