#include "platform/ansi_code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace wk::test {
namespace {

TEST(AnsiToUtf8, ConvertsWindows1252IncludingItsOwnRange) {
    EXPECT_EQ(platform::AnsiToUtf8("Caf\xe9"), "Caf\xc3\xa9");
    EXPECT_EQ(platform::AnsiToUtf8("\x80\x82\x9f"), "\xe2\x82\xac\xe2\x80\x9a\xc5\xb8");
    EXPECT_EQ(platform::AnsiToUtf8(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST(AnsiToUtf8, UndefinedBytesBecomeControlCharactersOfTheSameValue) {
    EXPECT_EQ(platform::AnsiToUtf8("\x81"), "\xc2\x81");
}

TEST(Utf16ToAnsi, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(platform::Utf16ToAnsi(u"\u00e9\u20ac\u03b1"), "\xe9\x80?");
    EXPECT_EQ(platform::Utf16ToAnsi(u"\U0001F600"), "?");
    EXPECT_EQ(platform::Utf16ToAnsi(std::u16string(1, u'\xd800')), "?");  // lone surrogate
}

TEST(Utf8ToAnsi, RoundTripsEveryWindows1252Byte) {
    std::string all;
    for (int b = 1; b < 256; ++b) all.push_back(static_cast<char>(b));
    EXPECT_EQ(platform::Utf8ToAnsi(platform::AnsiToUtf8(all)), all);
}

TEST(Utf8ToAnsi, MalformedAndForeignTextBecomesQuestionMarks) {
    EXPECT_EQ(platform::Utf8ToAnsi("\xce\xb1"), "?");  // Greek alpha
    EXPECT_EQ(platform::Utf8ToAnsi("a\xc3"), "a?");    // cut short
    EXPECT_EQ(platform::Utf8ToAnsi("\xff"
                                   "b"),
              "?b");                                         // not UTF-8
    EXPECT_EQ(platform::Utf8ToAnsi("\xe2\x28\xa1"), "?(?");  // bad continuation
}

}  // namespace
}  // namespace wk::test
