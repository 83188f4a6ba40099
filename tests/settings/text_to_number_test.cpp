#include "platform/text_to_number.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <limits>

namespace wk {
namespace {

TEST(StrToFloat, AcceptsSurroundingBlanksSignAndExponent) {
    EXPECT_DOUBLE_EQ(StrToFloat("  12.5  "), 12.5);
    EXPECT_DOUBLE_EQ(StrToFloat("-0.25"), -0.25);
    EXPECT_DOUBLE_EQ(StrToFloat("+3"), 3.0);
    EXPECT_DOUBLE_EQ(StrToFloat("1.5E3"), 1500.0);
    EXPECT_DOUBLE_EQ(StrToFloat(".5"), 0.5);
    EXPECT_DOUBLE_EQ(StrToFloat("7."), 7.0);
}

TEST(StrToFloat, AcceptsTheLocaleDecimalSeparator) {
    const char separator = LocaleDecimalSeparator();
    const std::string text = std::string("2") + separator + "75";
    EXPECT_DOUBLE_EQ(StrToFloat(text), 2.75);
}

TEST(StrToFloat, TextThatIsNotANumberRaisesConversionErrorWithTheToolkitMessage) {
    try {
        StrToFloat("abc");
        FAIL() << "no ConversionError";
    } catch (const ConversionError& error) {
        EXPECT_STREQ(error.what(), "'abc' is not a valid floating point value");
        EXPECT_EQ(error.Text(), "abc");
    }
}

TEST(StrToFloat, RejectsEmptyPartialAndOverflowingTexts) {
    for (const char* text :
         {"", "   ", "1.2.3", "12abc", "1e", "-", "e5", "1e999", "nan", "inf", "1 2"}) {
        EXPECT_THROW(StrToFloat(text), ConversionError) << text;
    }
}

TEST(StrToFloat, DoesNotChangeTheGlobalNumericLocale) {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    StrToFloat("1.5");
    EXPECT_EQ(before, std::setlocale(LC_NUMERIC, nullptr));
    char text[32];
    std::snprintf(text, sizeof text, "%lf", 1.5);
    EXPECT_STREQ(text, "1.500000");
}

TEST(StrToInt, ReadsDecimalWithSignAndHexadecimalAfterDollar) {
    EXPECT_EQ(StrToInt("42"), 42);
    EXPECT_EQ(StrToInt("  -17"), -17);
    EXPECT_EQ(StrToInt("+5"), 5);
    EXPECT_EQ(StrToInt("$FF"), 255);
    EXPECT_EQ(StrToInt("0x1a"), 26);
    EXPECT_EQ(StrToInt("$FFFFFFFF"), -1);
    EXPECT_EQ(StrToInt("2147483647"), 2147483647);
    EXPECT_EQ(StrToInt("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(StrToInt, OutOfRangeAndNonDigitsRaiseConversionError) {
    for (const char* text : {"", "2147483648", "-2147483649", "12a", "1.5", "$", "$G", "4 "}) {
        EXPECT_THROW(StrToInt(text), ConversionError) << text;
    }
    try {
        StrToInt("x1");
        FAIL() << "no ConversionError";
    } catch (const ConversionError& error) {
        EXPECT_STREQ(error.what(), "'x1' is not a valid integer value");
    }
}

TEST(FloatToStr, GivesTheShortestGeneralForm) {
    const char sep = LocaleDecimalSeparator();
    auto withSep = [sep](std::string text) {
        for (char& c : text) {
            if (c == '.') c = sep;
        }
        return text;
    };
    EXPECT_EQ(FloatToStr(12.5), withSep("12.5"));
    EXPECT_EQ(FloatToStr(0.1), withSep("0.1"));
    EXPECT_EQ(FloatToStr(100.0), "100");
    EXPECT_EQ(FloatToStr(0.0), "0");
    EXPECT_EQ(FloatToStr(-3.25), withSep("-3.25"));
    EXPECT_EQ(FloatToStr(15.073), withSep("15.073"));
    EXPECT_EQ(FloatToStr(0.00001), withSep("0.00001"));
    EXPECT_EQ(FloatToStr(1e20), "1E20");
    EXPECT_EQ(FloatToStr(1.5e-7), withSep("1.5E-7"));
    EXPECT_EQ(FloatToStr(123456789012345.0), "123456789012345");
    EXPECT_EQ(FloatToStr(1e15), "1E15");
    EXPECT_EQ(FloatToStr(1.0 / 3.0), withSep("0.333333333333333"));
}

// A length typed as 12.50 is shown as 12.5 once the field is left.
TEST(FloatToStr, TypedTwelveFiftyShowsTwelveFive) {
    EXPECT_EQ(StrToFloat(FloatToStr(StrToFloat("12.50"))), 12.5);
    const std::string shown = FloatToStr(StrToFloat("12.50"));
    EXPECT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown.substr(0, 2), "12");
    EXPECT_EQ(shown.back(), '5');
}

}  // namespace
}  // namespace wk
