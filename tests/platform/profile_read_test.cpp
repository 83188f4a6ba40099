// Reading settings files with GetPrivateProfileStringA / GetPrivateProfileIntA, as Windows
// reads them.

#include <gtest/gtest.h>

#include "engine_prefix.h"
#include "platform/profile.h"

namespace wk {
namespace {

using test::EnginePrefix;
using test::GetRaw;
using test::GetString;

class ProfileRead : public testing::Test {
protected:
    void File(const std::string& bytes) {
        EnginePrefix::WriteBytes(prefix.WinPath("TEST.INI"), bytes);
    }
    std::string Get(const char* section, const char* key, const char* def = "dflt") {
        return GetString(section, key, def, "TEST.INI");
    }
    EnginePrefix prefix;
};

TEST_F(ProfileRead, CrLfLoneCrAndLoneLfEachEndALine) {
    File("[S]\r\na=1\rb=2\nc=3\r\n\n\rd=4");
    EXPECT_EQ(Get("S", "a"), "1");
    EXPECT_EQ(Get("S", "b"), "2");
    EXPECT_EQ(Get("S", "c"), "3");
    EXPECT_EQ(Get("S", "d"), "4");
}

TEST_F(ProfileRead, LfCrIsTwoLineEnds) {
    File("[S]\n\ra=1\n\r[T]\n\rb=2");
    EXPECT_EQ(Get("S", "a"), "1");
    EXPECT_EQ(Get("T", "b"), "2");
}

TEST_F(ProfileRead, MissingFinalNewlineIsFine) {
    File("[S]\r\nk=last");
    EXPECT_EQ(Get("S", "k"), "last");
}

TEST_F(ProfileRead, NulBytesDoNotStopParsing) {
    File(std::string("[S]\r\na=1\0x\r\n\0\r\nb=2\r\n\0", 22));
    EXPECT_EQ(Get("S", "b"), "2");
}

TEST_F(ProfileRead, HeaderNameIsTrimmedOfBlanks) {
    File("[ \tsection1\v ]\r\nk=v\r\n");
    EXPECT_EQ(Get("section1", "k"), "v");
}

TEST_F(ProfileRead, BlanksBeforeTheBracketAreAllowed) {
    File(" \t[S]\r\nk=v\r\n");
    EXPECT_EQ(Get("S", "k"), "v");
}

TEST_F(ProfileRead, HeaderNameEndsAtTheFirstClosingBracket) {
    File("[a]b]\r\nk=v\r\n");
    EXPECT_EQ(Get("a", "k"), "v");
    EXPECT_EQ(Get("a]b", "k"), "dflt");
}

TEST_F(ProfileRead, HeaderWithoutClosingBracketRunsToEndOfLine) {
    File("[open section\r\nk=v\r\n");
    EXPECT_EQ(Get("open section", "k"), "v");
}

TEST_F(ProfileRead, TextAfterTheClosingBracketIsIgnored) {
    File("[S]key=v\r\nother=w\r\n");
    EXPECT_EQ(Get("S", "key"), "dflt");
    EXPECT_EQ(Get("S", "other"), "w");
}

TEST_F(ProfileRead, DoubleOpeningBracketIsPartOfTheName) {
    File("[[sec]\r\nk=v\r\n");
    EXPECT_EQ(Get("[sec", "k"), "v");
}

TEST_F(ProfileRead, EmptyBracketsNameTheEmptySection) {
    File("[]\r\nk=v\r\n");
    EXPECT_EQ(Get("", "k"), "v");
}

TEST_F(ProfileRead, QuotesInSectionNamesAreLiteral) {
    File("[\"q\"]\r\nk=v\r\n");
    EXPECT_EQ(Get("\"q\"", "k"), "v");
    EXPECT_EQ(Get("q", "k"), "dflt");
}

TEST_F(ProfileRead, ClosingBracketWithoutOpeningIsNotAHeader) {
    File("[S]\r\nName]\r\nk=v\r\n");
    EXPECT_EQ(Get("S", "k"), "v");
    EXPECT_EQ(Get("Name", "k"), "dflt");
}

TEST_F(ProfileRead, CommentLinesAreNeverMatched) {
    File("[S]\r\n;key=x\r\n  ;other=y\r\n");
    EXPECT_EQ(Get("S", ";key"), "dflt");
    EXPECT_EQ(Get("S", "  ;other"), "dflt");
    EXPECT_EQ(Get("S", nullptr, "none"), "none");
}

TEST_F(ProfileRead, SemicolonInsideAValueIsData) {
    File("[S]\r\nk=v ;x\r\n");
    EXPECT_EQ(Get("S", "k"), "v ;x");
}

TEST_F(ProfileRead, HashIsNotACommentMarker) {
    File("[S]\r\n#k=v\r\n");
    EXPECT_EQ(Get("S", "#k"), "v");
}

TEST_F(ProfileRead, KeyEndsAtTheFirstEqualsSign) {
    File("[S]\r\na=b=c\r\n");
    EXPECT_EQ(Get("S", "a"), "b=c");
}

TEST_F(ProfileRead, BlanksAroundKeyAndValueAreTrimmed) {
    File("[S]\r\n \t key \v= \t value \v\t\r\n");
    EXPECT_EQ(Get("S", "key"), "value");
}

TEST_F(ProfileRead, FormFeedIsNotABlank) {
    File("[S]\r\nk=\fv\f\r\n");
    EXPECT_EQ(Get("S", "k"), "\fv\f");
}

TEST_F(ProfileRead, EmptyKeyIsFoundWithEmptyName) {
    File("[S]\r\n=val5\r\n");
    EXPECT_EQ(Get("S", ""), "val5");
}

TEST_F(ProfileRead, EmptyValueIsARealKeyNotTheDefault) {
    File("[S]\r\nname2=\r\n");
    std::uint32_t n = 99;
    const std::string raw = GetRaw("S", "name2", "dflt", "TEST.INI", 10, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw[0], '\0');
}

TEST_F(ProfileRead, LineWithoutEqualsIsNotAKey) {
    File("[S]\r\nname3\r\nname1=v\r\n");
    EXPECT_EQ(Get("S", "name3"), "dflt");
    EXPECT_EQ(Get("S", nullptr), std::string("name1\0", 6));
}

TEST_F(ProfileRead, LinesBeforeTheFirstHeaderAreUnreachable) {
    File("k=v\r\n[S]\r\nother=w\r\n");
    EXPECT_EQ(Get("", "k"), "dflt");
    EXPECT_EQ(Get(" ", "k"), "dflt");
    EXPECT_EQ(Get("S", "k"), "dflt");
}

TEST_F(ProfileRead, NamesMatchWithoutRegardToAsciiCase) {
    File("[SeCtIoN]\r\nMyKey=Value\r\n");
    EXPECT_EQ(Get("section", "MYKEY"), "Value");
}

TEST_F(ProfileRead, BytesAbove127MustMatchExactly) {
    // Case is folded for ASCII letters only: the result does not depend on a code page.
    File("[S]\r\n\xE9t\xE9=1\r\n");
    EXPECT_EQ(Get("s", "\xE9T\xE9"), "1");
    EXPECT_EQ(Get("s", "\xC9T\xC9"), "dflt");
}

TEST_F(ProfileRead, ArgumentsAreTrimmedOfSpacesOnly) {
    File("[Section]\r\nkey=v\r\n");
    EXPECT_EQ(Get("  Section  ", "  key  "), "v");
    EXPECT_EQ(Get("\tSection", "key"), "dflt");
    EXPECT_EQ(Get("Section", "key\t"), "dflt");
}

TEST_F(ProfileRead, FirstDuplicateSectionWins) {
    File("[S]\r\na=1\r\n[T]\r\n[s]\r\na=2\r\nb=3\r\n");
    EXPECT_EQ(Get("S", "a"), "1");
    EXPECT_EQ(Get("S", "b"), "dflt");
}

TEST_F(ProfileRead, FirstDuplicateKeyWins) {
    File("[S]\r\na=1\r\nA=2\r\n");
    EXPECT_EQ(Get("S", "a"), "1");
}

TEST_F(ProfileRead, FirstDuplicateKeyWinsInALargeSection) {
    std::string text = "[S]\r\n";
    for (int i = 0; i < 100; ++i)
        text += "k" + std::to_string(i) + "=" + std::to_string(i) + "\r\n";
    text += "k5=late\r\nnew=n\r\n";
    File(text);
    EXPECT_EQ(Get("S", "K5"), "5");
    EXPECT_EQ(Get("S", "k99"), "99");
    EXPECT_EQ(Get("S", "new"), "n");
    EXPECT_EQ(Get("S", "k100"), "dflt");
}

TEST_F(ProfileRead, OneMatchingPairOfOuterQuotesIsStripped) {
    File(
        "[S]\r\na=\"x\"\r\nb='x'\r\nc='\"x\"'\r\nd=\"x'\r\ne='\"x'\"\r\nf=\"\r\ng=\"\"\r\n"
        "h=\" a \"\r\ni= \"in\"ner\" \r\n");
    EXPECT_EQ(Get("S", "a"), "x");
    EXPECT_EQ(Get("S", "b"), "x");
    EXPECT_EQ(Get("S", "c"), "\"x\"");
    EXPECT_EQ(Get("S", "d"), "\"x'");
    EXPECT_EQ(Get("S", "e"), "'\"x'\"");
    EXPECT_EQ(Get("S", "f"), "\"");
    EXPECT_EQ(Get("S", "g"), "");
    EXPECT_EQ(Get("S", "h"), " a ");
    EXPECT_EQ(Get("S", "i"), "in\"ner");
}

TEST_F(ProfileRead, DefaultLosesTrailingSpacesOnly) {
    File("[S]\r\n");
    EXPECT_EQ(Get("S", "missing", "default  "), "default");
    EXPECT_EQ(Get("S", "missing", " default\t"), " default\t");
    EXPECT_EQ(Get("S", "missing", " in ner \r\n  "), " in ner \r\n");
}

TEST_F(ProfileRead, DefaultKeepsItsQuotes) {
    File("[S]\r\n");
    EXPECT_EQ(Get("S", "missing", "\"q\""), "\"q\"");
}

TEST_F(ProfileRead, NullDefaultReadsAsEmpty) {
    File("[S]\r\n");
    EXPECT_EQ(Get("S", "missing", nullptr), "");
}

TEST_F(ProfileRead, MissingFileGivesTheDefault) {
    EXPECT_EQ(Get("S", "k", "fallback"), "fallback");
}

TEST_F(ProfileRead, MissingSectionAndMissingKeyGiveTheDefault) {
    File("[S]\r\nk=v\r\n");
    EXPECT_EQ(Get("T", "k", "fallback "), "fallback");
    EXPECT_EQ(Get("S", "x", "fallback "), "fallback");
}

TEST_F(ProfileRead, ValueIsCutToSizeMinusOne) {
    File("[S]\r\nname1=val1\r\n");
    std::uint32_t n = 0;
    std::string raw = GetRaw("S", "name1", "", "TEST.INI", 4, &n);
    EXPECT_EQ(n, 3u);
    EXPECT_EQ(raw.substr(0, 4), std::string("val\0", 4));
    raw = GetRaw("S", "name1", "", "TEST.INI", 5, &n);
    EXPECT_EQ(n, 4u);
    EXPECT_EQ(raw.substr(0, 5), std::string("val1\0", 5));
    raw = GetRaw("S", "name1", "", "TEST.INI", 1, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw[0], '\0');
}

TEST_F(ProfileRead, DefaultIsCutToSizeMinusOne) {
    std::uint32_t n = 0;
    const std::string raw = GetRaw("S", "k", "abcdef", "TEST.INI", 3, &n);
    EXPECT_EQ(n, 2u);
    EXPECT_EQ(raw.substr(0, 3), std::string("ab\0", 3));
}

TEST_F(ProfileRead, SizeZeroReturnsZeroAndLeavesTheBufferUntouched) {
    File("[S]\r\nk=v\r\n");
    char buffer[4] = {'x', 'x', 'x', 'x'};
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "", buffer, 0, "TEST.INI"), 0u);
    EXPECT_EQ(GetPrivateProfileStringA(nullptr, nullptr, "", buffer, 0, "TEST.INI"), 0u);
    EXPECT_EQ(buffer[0], 'x');
}

TEST_F(ProfileRead, NullBufferReturnsZero) {
    File("[S]\r\nk=v\r\n");
    EXPECT_EQ(GetPrivateProfileStringA("S", "k", "", nullptr, 10, "TEST.INI"), 0u);
}

TEST_F(ProfileRead, InputStringsAreNotModified) {
    File("[S]\r\n");
    char def[] = "default   ";
    char section[] = "  S  ";
    GetString(section, "k", def, "TEST.INI");
    EXPECT_STREQ(def, "default   ");
    EXPECT_STREQ(section, "  S  ");
}

// Listings ----------------------------------------------------------------------------------

class ProfileListing : public ProfileRead {
protected:
    void SetUp() override {
        File(
            "[section1]\r\nname1=val1\r\nname2=\r\nname3\r\nname4=val4\r\n[section2]\r\n"
            "[section3]\r\n");
    }
};

TEST_F(ProfileListing, SectionListThatFitsEndsWithDoubleNul) {
    std::uint32_t n = 0;
    const std::string raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 29, &n);
    EXPECT_EQ(n, 27u);
    EXPECT_EQ(raw.substr(0, 28), std::string("section1\0section2\0section3\0\0", 28));
    EXPECT_EQ(raw[28], '\x7f');
}

TEST_F(ProfileListing, ExactFitCountsAsOverflow) {
    std::uint32_t n = 0;
    const std::string raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 28, &n);
    EXPECT_EQ(n, 26u);
    EXPECT_EQ(raw.substr(0, 28), std::string("section1\0section2\0section3\0\0", 28));
}

TEST_F(ProfileListing, OverflowCutsToSizeMinusTwoAndTwoNuls) {
    std::uint32_t n = 0;
    std::string raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 27, &n);
    EXPECT_EQ(n, 25u);
    EXPECT_EQ(raw.substr(0, 27), std::string("section1\0section2\0section\0\0", 27));
    raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 16, &n);
    EXPECT_EQ(n, 14u);
    EXPECT_EQ(raw.substr(0, 16), std::string("section1\0secti\0\0", 16));
    EXPECT_EQ(raw[16], '\x7f');
}

TEST_F(ProfileListing, KeyListSkipsLinesWithoutEquals) {
    std::uint32_t n = 0;
    std::string raw = GetRaw("section1", nullptr, "", "TEST.INI", 100, &n);
    EXPECT_EQ(n, 18u);
    EXPECT_EQ(raw.substr(0, 19), std::string("name1\0name2\0name4\0\0", 19));
    raw = GetRaw("section1", nullptr, "", "TEST.INI", 16, &n);
    EXPECT_EQ(n, 14u);
    EXPECT_EQ(raw.substr(0, 16), std::string("name1\0name2\0na\0\0", 16));
}

TEST_F(ProfileListing, ListingWithSizeOneOrTwoReturnsZero) {
    std::uint32_t n = 9;
    std::string raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 1, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw[0], '\0');
    raw = GetRaw(nullptr, nullptr, "", "TEST.INI", 2, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw.substr(0, 2), std::string("\0\0", 2));
}

TEST_F(ProfileListing, SectionListOfAMissingFileWritesOneNul) {
    std::uint32_t n = 9;
    const std::string raw = GetRaw(nullptr, nullptr, "", "MISSING.INI", 10, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw[0], '\0');
    EXPECT_EQ(raw[1], '\x7f');
}

TEST_F(ProfileListing, KeyListOfAMissingSectionGivesTheDefault) {
    EXPECT_EQ(Get("nosuch", nullptr, "dflt  "), "dflt");
}

TEST_F(ProfileListing, KeyListOfAnEmptySectionGivesTheDefault) {
    EXPECT_EQ(Get("section2", nullptr, "dflt"), "dflt");
}

TEST_F(ProfileListing, KeyListOfAMissingFileGivesTheDefault) {
    EXPECT_EQ(GetString("section1", nullptr, "dflt", "MISSING.INI"), "dflt");
}

TEST_F(ProfileListing, ListsIncludeDuplicatesInFileOrder) {
    File("[A]\r\nk=1\r\nK=2\r\n;c=3\r\n[B]\r\n[a]\r\nz=1\r\n");
    EXPECT_EQ(Get(nullptr, nullptr), std::string("A\0B\0a\0", 6));
    EXPECT_EQ(Get("a", nullptr), std::string("k\0K\0", 4));
}

TEST_F(ProfileListing, SectionListIgnoresTheKeyArgument) {
    EXPECT_EQ(Get(nullptr, "name1"), std::string("section1\0section2\0section3\0", 27));
}

// File names and encodings ----------------------------------------------------------------

TEST_F(ProfileRead, NullFileNameReadsWinIniInTheWindowsDirectory) {
    EnginePrefix::WriteBytes(prefix.WinPath("WIN.INI"), "[devices]\r\nPrinter=winspool,LPT1:\r\n");
    EXPECT_EQ(GetString("devices", "printer", "", nullptr), "winspool,LPT1:");
    char buffer[64];
    EXPECT_EQ(GetProfileStringA("DEVICES", nullptr, "", buffer, sizeof buffer), 8u);
    EXPECT_EQ(std::string(buffer, 9), std::string("Printer\0\0", 9));
}

TEST_F(ProfileRead, EmptyFileNameReadsTheDefault) {
    EXPECT_EQ(GetString("S", "k", "dflt", ""), "dflt");
    std::uint32_t n = 9;
    const std::string raw = GetRaw(nullptr, nullptr, "", "", 10, &n);
    EXPECT_EQ(n, 0u);
    EXPECT_EQ(raw[1], '\x7f');
}

TEST_F(ProfileRead, Utf8ByteOrderMarkIsOrdinaryText) {
    File("\xEF\xBB\xBF[S]\r\nk=v\r\n[T]\r\nk=w\r\n");
    EXPECT_EQ(Get("S", "k"), "dflt");
    EXPECT_EQ(Get("T", "k"), "w");
}

TEST_F(ProfileRead, Windows1252BytesPassThroughUnchanged) {
    File(
        "[S]\r\nk=Gr\xF6\xDF"
        "e \x80\x81\xFF\r\n");
    EXPECT_EQ(Get("S", "k"),
              "Gr\xF6\xDF"
              "e \x80\x81\xFF");
}

TEST_F(ProfileRead, Utf8ContentComesBackByteForByte) {
    File("[S]\r\nk=\xC3\xA9\xE2\x82\xAC\r\n");
    EXPECT_EQ(Get("S", "k"), "\xC3\xA9\xE2\x82\xAC");
}

TEST_F(ProfileRead, Utf16LeFileIsReadThroughTheAnsiCodePage) {
    // "[S]\r\nk=é€\r\n" in UTF-16LE with its byte-order mark.
    std::string bytes = "\xFF\xFE";
    for (const char16_t c : std::u16string(u"[S]\r\nk=\u00E9\u20AC\u4E2D\r\nName=x\r\n")) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    File(bytes);
    EXPECT_EQ(Get("s", "K"), "\xE9\x80?");
    EXPECT_EQ(Get("S", nullptr), std::string("k\0Name\0", 7));
    EXPECT_EQ(Get(nullptr, nullptr), std::string("S\0", 2));
}

// GetPrivateProfileIntA ---------------------------------------------------------------------

class ProfileInt : public ProfileRead {
protected:
    std::uint32_t Int(const char* value, std::int32_t def = 77) {
        File(std::string("[S]\r\nk=") + value + "\r\n");
        return GetPrivateProfileIntA("S", "k", def, "TEST.INI");
    }
};

TEST_F(ProfileInt, TrailingJunkIsIgnored) {
    EXPECT_EQ(Int("42A94967297"), 42u);
}
TEST_F(ProfileInt, NoDigitsGiveZeroNotTheDefault) {
    EXPECT_EQ(Int("B4294967297"), 0u);
}
TEST_F(ProfileInt, ValuesWrapModulo2To32) {
    EXPECT_EQ(Int("4294967296"), 0u);
    EXPECT_EQ(Int("4294967297"), 1u);
    EXPECT_EQ(Int("-4294967297"), 4294967295u);
}
TEST_F(ProfileInt, MinusOneReadsAs4294967295) {
    EXPECT_EQ(Int("-1"), 4294967295u);
}
TEST_F(ProfileInt, OnePlusSignIsAccepted) {
    EXPECT_EQ(Int("+1"), 1u);
}
TEST_F(ProfileInt, TwoSignsGiveZero) {
    EXPECT_EQ(Int("--1"), 0u);
    EXPECT_EQ(Int("+-1"), 0u);
}
TEST_F(ProfileInt, LeadingControlCharactersAreSkipped) {
    EXPECT_EQ(Int("\"\x01\x1f 12\""), 12u);
    EXPECT_EQ(Int("' -3'"), 4294967293u);
}
TEST_F(ProfileInt, LowerCasePrefixesSelectTheBase) {
    EXPECT_EQ(Int("0x1F"), 31u);
    EXPECT_EQ(Int("0xffffffff"), 4294967295u);
    EXPECT_EQ(Int("0o17"), 15u);
    EXPECT_EQ(Int("0b101"), 5u);
    EXPECT_EQ(Int("-0x10"), 4294967280u);
}
TEST_F(ProfileInt, UpperCasePrefixIsNotAPrefix) {
    EXPECT_EQ(Int("0X1F"), 0u);
}
TEST_F(ProfileInt, DigitsStopAtTheFirstDigitOutsideTheBase) {
    EXPECT_EQ(Int("0b1021"), 2u);
    EXPECT_EQ(Int("0o78"), 7u);
    EXPECT_EQ(Int("12.9"), 12u);
}
TEST_F(ProfileInt, EmptyValueGivesTheDefault) {
    EXPECT_EQ(Int("", -1), 4294967295u);
}
TEST_F(ProfileInt, MissingKeyGivesTheDefaultAsUnsigned) {
    File("[S]\r\n");
    EXPECT_EQ(GetPrivateProfileIntA("S", "missing", -1, "TEST.INI"), 4294967295u);
    EXPECT_EQ(GetPrivateProfileIntA("S", "missing", 5, "MISSING.INI"), 5u);
}
TEST_F(ProfileInt, NullSectionParsesTheSectionList) {
    File("[section1]\r\n");
    EXPECT_EQ(GetPrivateProfileIntA(nullptr, "k", 5, "TEST.INI"), 0u);
    File("[12abc]\r\n[34]\r\n");
    EXPECT_EQ(GetPrivateProfileIntA(nullptr, nullptr, 5, "TEST.INI"), 12u);
}
TEST_F(ProfileInt, NullKeyParsesTheKeyList) {
    File("[S]\r\n7up=x\r\n");
    EXPECT_EQ(GetPrivateProfileIntA("S", nullptr, 5, "TEST.INI"), 7u);
    EXPECT_EQ(GetPrivateProfileIntA("T", nullptr, 5, "TEST.INI"), 5u);
}

}  // namespace
}  // namespace wk
