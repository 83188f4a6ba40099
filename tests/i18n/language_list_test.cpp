#include <gtest/gtest.h>

#include <string>

#include "i18n/resgenstring.h"
#include "language_test_fixture.h"

namespace wk::test {
namespace {

class LanguageList : public LanguageTest {
protected:
    void WriteBoth(const std::string& wzelko, const std::string& wzelko32) {
        prefix_.WriteWindowsFile("WZELKO.INI", wzelko);
        prefix_.WriteWindowsFile("WZELKO32.INI", wzelko32);
    }
};

std::vector<std::string> Texts(const std::vector<LanguageListEntry>& entries) {
    std::vector<std::string> texts;
    for (const auto& e : entries) texts.push_back(e.Text);
    return texts;
}

TEST_F(LanguageList, KeyPresentInWzelkoButAbsentFromWzelko32IsListedWithTheStarPrefix) {
    WriteBoth("[Languages]\r\nEnglish=ENG\r\nItaliano=ITA\r\n", "[Languages]\r\nEnglish=ENG\r\n");
    int selected = -1;
    auto entries = ReadLanguageList("ENG", selected);
    EXPECT_EQ(Texts(entries), (std::vector<std::string>{"English", "(*) Italiano"}));
    EXPECT_EQ(entries[1].Code, "ITA");
    EXPECT_EQ(selected, 0);
}

TEST_F(LanguageList, KeyWithAnEmptyValueAbsentFromWzelko32IsListedWithTheStarPrefix) {
    WriteBoth("[Languages]\r\nDeutsch=\r\n", "[Languages]\r\n");
    int selected = -1;
    EXPECT_EQ(Texts(ReadLanguageList("ENG", selected)), (std::vector<std::string>{"(*) Deutsch"}));
}

TEST_F(LanguageList, ValuesThatDifferOnlyInCaseAreMarked) {
    WriteBoth("[Languages]\r\nItaliano=ITA\r\nEnglish=ENG\r\n",
              "[languages]\r\nitaliano=ita\r\nENGLISH=ENG\r\n");
    int selected = -1;
    EXPECT_EQ(Texts(ReadLanguageList("ENG", selected)),
              (std::vector<std::string>{"(*) Italiano", "English"}));
    EXPECT_EQ(selected, 1);
}

TEST_F(LanguageList, WithoutWzelko32EveryEntryIsMarked) {
    prefix_.WriteWindowsFile("WZELKO.INI", "[Languages]\r\nEnglish=ENG\r\n");
    int selected = -1;
    EXPECT_EQ(Texts(ReadLanguageList("ENG", selected)), (std::vector<std::string>{"(*) English"}));
}

TEST_F(LanguageList, EntriesKeepFileOrder) {
    WriteBoth("[Languages]\r\nZulu=ZUL\r\nAlpha=ALP\r\nMike=MIK\r\n",
              "[Languages]\r\nAlpha=ALP\r\nMike=MIK\r\nZulu=ZUL\r\n");
    int selected = -1;
    EXPECT_EQ(Texts(ReadLanguageList("", selected)),
              (std::vector<std::string>{"Zulu", "Alpha", "Mike"}));
}

TEST_F(LanguageList, SelectsTheMatchIgnoringCaseAndALaterMatchReplacesAnEarlier) {
    WriteBoth("[Languages]\r\nEnglish=ENG\r\nItaliano=ita\r\nItaliano2=ITA\r\nX=FRA\r\n",
              "[Languages]\r\n");
    int selected = -1;
    ReadLanguageList("ITA", selected);
    EXPECT_EQ(selected, 2);
}

TEST_F(LanguageList, ExactMatchHeedsCase) {
    WriteBoth("[Languages]\r\nEnglish=ENG\r\nItaliano=ita\r\nX=FRA\r\n", "[Languages]\r\n");
    int selected = -1;
    ReadLanguageList("ita", selected, LanguageCodeMatch::Exact);
    EXPECT_EQ(selected, 1);
    ReadLanguageList("ITA", selected, LanguageCodeMatch::Exact);
    EXPECT_EQ(selected, 0);
}

TEST_F(LanguageList, NoMatchSelectsTheFirstEntry) {
    WriteBoth("[Languages]\r\nEnglish=ENG\r\nItaliano=ITA\r\n", "[Languages]\r\n");
    int selected = -1;
    ReadLanguageList("DEU", selected);
    EXPECT_EQ(selected, 0);
}

TEST_F(LanguageList, NoLanguagesSectionGivesAnEmptyList) {
    WriteBoth("[Wzelko]\r\nLANGUAGE=ENG\r\n", "");
    int selected = -1;
    EXPECT_TRUE(ReadLanguageList("ENG", selected).empty());
    EXPECT_EQ(selected, 0);
}

TEST_F(LanguageList, KeyNamesAreReadInOneListingOf200Characters) {
    std::string wzelko = "[Languages]\r\n";
    for (int i = 10; i < 40; ++i)
        wzelko += "LANGUAGE" + std::to_string(i) + "=L" + std::to_string(i) + "\r\n";
    WriteBoth(wzelko, wzelko);
    int selected = -1;
    auto entries = ReadLanguageList("L27", selected);
    // Ten characters and a NUL per name: 18 names fill the 198 characters the listing keeps.
    ASSERT_EQ(entries.size(), 18u);
    EXPECT_EQ(entries.back().Text, "LANGUAGE27");
    EXPECT_EQ(selected, 17);
}

TEST_F(LanguageList, ValuesAreReadUpTo79Characters) {
    std::string longValue(100, 'V');
    WriteBoth("[Languages]\r\nLong=" + longValue + "\r\n",
              "[Languages]\r\nLong=" + longValue.substr(0, 79) + "\r\n");
    int selected = -1;
    auto entries = ReadLanguageList("", selected);
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].Text, "Long");  // both cut to the same 79 characters
    EXPECT_EQ(entries[0].Code, longValue.substr(0, 79));
}

}  // namespace
}  // namespace wk::test
