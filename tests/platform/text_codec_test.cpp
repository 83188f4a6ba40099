#include "platform/text_codec.h"

#include <gtest/gtest.h>

namespace wk::platform {
namespace {

TEST(TextCodec, EveryAnsiByteSurvivesTheRoundTrip) {
    for (int b = 0; b < 256; ++b) {
        const std::string ansi(1, static_cast<char>(b));
        EXPECT_EQ(Utf8ToAnsi(AnsiToUtf8(ansi)), ansi) << b;
    }
}

TEST(TextCodec, AnsiToUtf8UsesWindows1252) {
    EXPECT_EQ(AnsiToUtf8("abc"), "abc");
    EXPECT_EQ(AnsiToUtf8("\x80"), "\xE2\x82\xAC");  // euro sign
    EXPECT_EQ(AnsiToUtf8("\x9F"), "\xC5\xB8");      // Y with diaeresis
    EXPECT_EQ(AnsiToUtf8("\x92"), "\xE2\x80\x99");  // right single quote
    EXPECT_EQ(AnsiToUtf8("\xE9"), "\xC3\xA9");      // e acute
    EXPECT_EQ(AnsiToUtf8("\xA0"), "\xC2\xA0");
    EXPECT_EQ(AnsiToUtf8("\x81"), "\xC2\x81");  // unassigned: the C1 control
    EXPECT_EQ(AnsiToUtf8(std::string("\0", 1)), std::string("\0", 1));
}

TEST(TextCodec, Utf8ToAnsiMapsBackAndMarksTheRest) {
    EXPECT_EQ(Utf8ToAnsi("\xE2\x82\xAC"), "\x80");
    EXPECT_EQ(Utf8ToAnsi("Gr\xC3\xBC\xC3\x9F"
                         "e"),
              "Gr\xFC\xDF"
              "e");
    EXPECT_EQ(Utf8ToAnsi("\xE4\xB8\xAD"), "?");      // not in the code page
    EXPECT_EQ(Utf8ToAnsi("\xF0\x9F\x98\x80"), "?");  // beyond the BMP
    EXPECT_EQ(Utf8ToAnsi("a\xFFz"), "a?z");          // not UTF-8
    EXPECT_EQ(Utf8ToAnsi("\xC3"), "?");              // cut sequence
    EXPECT_EQ(Utf8ToAnsi("\xC0\xAF"), "??");         // overlong
    EXPECT_EQ(Utf8ToAnsi("\xED\xA0\x80"), "???");    // a surrogate is not UTF-8
}

TEST(TextCodec, Utf16LeRoundTripsAnyCodeUnits) {
    const std::string units(
        "A\0\x00\xD8"
        "B\0\x00\xDC\x00\xDC\x00\xD8\x3D\xD8\x00\xDE\xAC\x20",
        18);
    const std::string wtf8 = Utf16LeToWtf8(units);
    EXPECT_EQ(Wtf8ToUtf16Le(wtf8), units);
    EXPECT_EQ(Utf16LeToWtf8(std::string("\xAC\x20", 2)), "\xE2\x82\xAC");
    EXPECT_EQ(Utf16LeToWtf8(std::string("\x3D\xD8\x00\xDE", 4)), "\xF0\x9F\x98\x80");
}

}  // namespace
}  // namespace wk::platform
