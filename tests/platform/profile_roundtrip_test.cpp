// Round trips: any bytes parsed and written back unchanged are the same bytes; an edited
// document always equals what reading its bytes again gives; UTF-16LE files stay UTF-16LE.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "engine_prefix.h"
#include "platform/profile.h"
#include "platform/profile_document.h"

namespace wk {
namespace {

using platform::ProfileDocument;
using test::EnginePrefix;
using test::GetString;

// Random file content rich in the grammar's delimiters and in bytes that are not text.
std::string RandomBytes(std::mt19937& rng, std::size_t maxLength) {
    static constexpr char kAlphabet[] = "[]=;\"' \t\v\r\n\r\n\0abcAB#\xFF\xFE\x80\xE9";
    static const std::string alphabet(kAlphabet, sizeof kAlphabet - 1);
    const std::size_t length = rng() % (maxLength + 1);
    std::string s;
    for (std::size_t i = 0; i < length; ++i) {
        s.push_back(rng() % 4 == 0 ? static_cast<char>(rng() % 256)
                                   : alphabet[rng() % alphabet.size()]);
    }
    if (rng() % 8 == 0) s.insert(0, "\xFF\xFE");  // some become UTF-16LE files
    return s;
}

// Everything a reader can observe of a document, for a set of names.
std::string Observe(const ProfileDocument& doc, const std::vector<std::string>& names) {
    std::string seen;
    doc.AppendSectionNames(seen);
    seen += "|";
    for (const std::string& s : names) {
        seen += doc.AppendKeyNames(s, seen) ? "+" : "-";
        for (const std::string& k : names) {
            const auto v = doc.Value(s, k);
            seen += v ? std::string(*v) + "," : std::string("#,");
        }
    }
    return seen;
}

TEST(ProfileRoundTrip, AnyBytesWrittenBackUnchangedAreTheSameBytes) {
    std::mt19937 rng(12345);
    for (int i = 0; i < 4000; ++i) {
        const std::string bytes = RandomBytes(rng, 200);
        const ProfileDocument doc(bytes);
        ASSERT_EQ(doc.Serialize(), bytes) << "case " << i;
    }
}

TEST(ProfileRoundTrip, EditedDocumentEqualsARereadOfItsBytes) {
    const std::vector<std::string> names = {"",   "a",      "A",   "b",   "[c",      "a]b",
                                            ";a", "x\r\ny", "q=r", "\ta", "\xC3\xA9"};
    const std::vector<std::string> values = {"", "1", " v ", "\"q\"", "l\r\n[a]\r\nb=2", "\r"};
    std::mt19937 rng(777);
    for (int i = 0; i < 1500; ++i) {
        ProfileDocument doc(RandomBytes(rng, 120));
        for (int step = 0; step < 6; ++step) {
            const std::string& s = names[rng() % names.size()];
            const std::string& k = names[rng() % names.size()];
            switch (rng() % 4) {
                case 0:
                case 1:
                    doc.SetValue(s, k, values[rng() % values.size()]);
                    break;
                case 2:
                    doc.DeleteKey(s, k);
                    break;
                default:
                    doc.DeleteSection(s);
                    break;
            }
            const std::string bytes = doc.Serialize();
            const ProfileDocument reread(bytes);
            ASSERT_EQ(Observe(doc, names), Observe(reread, names)) << "case " << i;
            // A further edit gives the same bytes on both.
            ProfileDocument copy(bytes);
            doc.SetValue("a", "b", "z");
            copy.SetValue("a", "b", "z");
            ASSERT_EQ(doc.Serialize(), copy.Serialize()) << "case " << i;
        }
    }
}

TEST(ProfileRoundTrip, LargeSectionsStayConsistentThroughEdits) {
    std::string text = "[S]\r\n";
    for (int k = 0; k < 50; ++k) text += "k" + std::to_string(k) + "=" + std::to_string(k) + "\r\n";
    ProfileDocument doc(text);
    ASSERT_EQ(*doc.Value("S", "k10"), "10");
    doc.SetValue("S", "new", "n");
    doc.DeleteKey("S", "k10");
    doc.SetValue("S", "K11", "eleven");
    EXPECT_FALSE(doc.Value("S", "k10"));
    EXPECT_EQ(*doc.Value("S", "new"), "n");
    EXPECT_EQ(*doc.Value("S", "k11"), "eleven");
    EXPECT_EQ(*doc.Value("S", "k49"), "49");
    const ProfileDocument reread(doc.Serialize());
    EXPECT_EQ(*reread.Value("S", "k11"), "eleven");
}

std::string Utf16(const std::u16string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t c : text) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

TEST(ProfileRoundTrip, Utf16FileWithLoneSurrogatesAndOddByteSurvivesAnEdit) {
    std::string bytes = Utf16(u"[S]\r\nk=1\r\nz=\xD800x\xDC00\r\n;\u20AC\r\n");
    bytes.push_back('\x41');
    ProfileDocument doc(bytes);
    EXPECT_EQ(doc.Serialize(), bytes);
    doc.SetValue("S", "k", "2");
    std::string expected = Utf16(u"[S]\r\nk=2\r\nz=\xD800x\xDC00\r\n;\u20AC\r\n");
    expected.push_back('\x41');
    EXPECT_EQ(doc.Serialize(), expected);
}

class ProfileUtf16 : public testing::Test {
protected:
    EnginePrefix prefix;
};

TEST_F(ProfileUtf16, FileStaysUtf16AndAnsiValuesConvert) {
    const std::string path = prefix.WinPath("U.INI");
    EnginePrefix::WriteBytes(path, Utf16(u"[Grüße]\r\nk=v\r\n"));
    EXPECT_EQ(GetString("Gr\xFC\xDF"
                        "e",
                        "k", "", "U.INI"),
              "v");
    ASSERT_TRUE(
        WritePrivateProfileStringA("Gr\xFC\xDF"
                                   "e",
                                   "n", "\x80 5", "U.INI"));
    ASSERT_TRUE(WritePrivateProfileStringA("Neu", "\xE9", "x", "U.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(path),
              Utf16(u"[Grüße]\r\nk=v\r\nn=\u20AC 5\r\n[Neu]\r\n\u00E9=x\r\n"));
    EXPECT_EQ(GetString("Gr\xFC\xDF"
                        "e",
                        "n", "", "U.INI"),
              "\x80 5");
}

TEST_F(ProfileUtf16, ByteOrderMarkOnlyFileGetsALineEndBeforeTheNewSection) {
    const std::string path = prefix.WinPath("U.INI");
    EnginePrefix::WriteBytes(path, "\xFF\xFE");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "v", "U.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(path), Utf16(u"\r\n[S]\r\nk=v\r\n"));
}

TEST_F(ProfileUtf16, NewFilesAreNeverUnicode) {
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "\xE9", "NEW.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("NEW.INI")), "[S]\r\nk=\xE9\r\n");
}

TEST_F(ProfileUtf16, BigEndianMarkIsNotRecognised) {
    const std::string path = prefix.WinPath("U.INI");
    EnginePrefix::WriteBytes(path, std::string("\xFE\xFF\0[", 4));
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "v", "U.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(path), std::string("\xFE\xFF\0[\r\n[S]\r\nk=v\r\n", 16));
}

}  // namespace
}  // namespace wk

namespace wk {
namespace {

TEST(ProfileRoundTrip, RewritingALongValueManyTimesKeepsMemoryBounded) {
    ProfileDocument doc("[S]\r\nk=1\r\n[T]\r\nx=2\r\n");
    const std::string longValue(10000, 'v');
    for (int i = 0; i < 500; ++i) {
        doc.SetValue("S", "k", longValue + std::to_string(i % 2));
        doc.SetValue("T", "n" + std::to_string(i % 3), std::to_string(i));
    }
    EXPECT_LT(doc.BytesHeld(), 200000u);
    EXPECT_EQ(doc.Serialize(),
              "[S]\r\nk=" + longValue + "1\r\n[T]\r\nx=2\r\nn0=498\r\nn1=499\r\nn2=497\r\n");
}

}  // namespace
}  // namespace wk
