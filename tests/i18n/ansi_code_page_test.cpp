#include "platform/ansi_code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace wk::test {
namespace {

TEST(Utf16ToAnsi, KeepsWindows1252IncludingItsOwnRange) {
    EXPECT_EQ(platform::Utf16ToAnsi(u"Caf\u00e9 \u20ac\u201a\u0178"), "Caf\xe9 \x80\x82\x9f");
    EXPECT_EQ(platform::Utf16ToAnsi(u"\u0081"), "\x81");
}

TEST(Utf16ToAnsi, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(platform::Utf16ToAnsi(u"\u03b1\u0100"), "??");
    EXPECT_EQ(platform::Utf16ToAnsi(u"\U0001F600"), "?");
    EXPECT_EQ(platform::Utf16ToAnsi(std::u16string(1, u'\xd800')), "?");  // lone surrogate
    EXPECT_EQ(platform::Utf16ToAnsi(std::u16string(1, u'\xdc00')), "?");
}

}  // namespace
}  // namespace wk::test
