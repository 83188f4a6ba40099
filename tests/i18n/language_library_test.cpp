#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "i18n/resgenstring.h"
#include "i18n/resourcegenfile.h"
#include "language_test_fixture.h"

namespace wk::test {
namespace {

const std::string kAlphabet199 = [] {
    std::string s;
    for (int i = 0; i < 199; ++i) s.push_back(static_cast<char>('A' + i % 26));
    return s;
}();

class LanguageLibrary : public LanguageTest {
protected:
    void InstallEnglish() { cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll"); }
    void InstallItalian() { cwd_.CopyLibrary("test_ita32.dll", "Kes32_ita.dll"); }
};

TEST_F(LanguageLibrary, ItaWithOnlyTheEnglishLibraryUsesEnglishAndTestsNoConversionAgainstEng) {
    InstallEnglish();
    WriteSettings("[WZELKO]\r\nNO ANSI-OEM CONVERSION=ENG\r\n");
    EXPECT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_EQ(GetLanguageString(1, 200), "General Setup");
    EXPECT_FALSE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \x82 for OEM");
    EXPECT_TRUE(messages_.empty());
}

TEST_F(LanguageLibrary, ItaWithOnlyTheEnglishLibraryKeepsConvertingWhenOnlyItaIsListed) {
    InstallEnglish();
    WriteSettings("[WZELKO]\r\nNO ANSI-OEM CONVERSION=ITA\r\n");
    EXPECT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_TRUE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \xe9 for OEM");
}

TEST_F(LanguageLibrary, StringOf250CharactersReachesTheCallerCutTo199) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_EQ(GetLanguageString(2, 200), kAlphabet199);
}

TEST_F(LanguageLibrary, CutFollowsTheCallersMaximum) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_EQ(GetLanguageString(1, 8), "General");
    EXPECT_EQ(GetLanguageString(1, 1), "");
    EXPECT_EQ(GetLanguageString(1, 0), "");
    EXPECT_EQ(GetLanguageString(1, std::numeric_limits<int>::min()), "");
    EXPECT_EQ(GetLanguageString(1, 300), "General Setup");
}

TEST_F(LanguageLibrary, WithoutNoAnsiOemConversionEveryStringIsConvertedEnglishIncluded) {
    InstallEnglish();
    InstallItalian();
    WriteSettings("[WZELKO]\r\nLANGUAGE=ENG\r\n");
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_TRUE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \xe9 for OEM");  // OEM 850 0x82 is e acute
    EXPECT_EQ(GetLanguageString(3, 200), "Caf\xda");            // 0xE9 read as OEM 850
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \xe9 per OEM");
}

TEST_F(LanguageLibrary, WithoutTheSettingsFileStringsAreConverted) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_TRUE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \xe9 for OEM");
}

TEST_F(LanguageLibrary, NoConversionListWithCommaSwitchesOffEveryLanguageListed) {
    InstallEnglish();
    InstallItalian();
    WriteSettings("[WZELKO]\r\nNO ANSI-OEM CONVERSION=eng,ita\r\n");
    ASSERT_TRUE(LoadLanguageLibrary("ita"));
    EXPECT_FALSE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \x82 per OEM");
}

TEST_F(LanguageLibrary, NoConversionSettingIsReadUpTo149Characters) {
    InstallEnglish();
    WriteSettings("[WZELKO]\r\nNO ANSI-OEM CONVERSION=" + std::string(147, 'X') + ",ENG\r\n");
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_TRUE(Language().OemConversion);  // the read ends after the "E" of "ENG"
}

TEST_F(LanguageLibrary, NothingSwitchesTheConversionBackOn) {
    InstallEnglish();
    InstallItalian();
    WriteSettings("[WZELKO]\r\nNO ANSI-OEM CONVERSION=ITA\r\n");
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));
    ASSERT_FALSE(Language().OemConversion);
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_FALSE(Language().OemConversion);
    EXPECT_EQ(GetLanguageString(4, 200), "Byte \x82 for OEM");
}

TEST_F(LanguageLibrary, LibraryNameIsMatchedWithoutRegardToCase) {
    InstallEnglish();
    InstallItalian();
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));  // Kes32_ITA.dll finds Kes32_ita.dll
    EXPECT_EQ(GetLanguageString(1, 200), "Impostazioni generali");
}

TEST_F(LanguageLibrary, EmptyCodeFallsBackToEnglish) {
    InstallEnglish();
    cwd_.WriteFile("Kes32_.dll", "a file named for the empty code is not looked at");
    ASSERT_TRUE(LoadLanguageLibrary(""));
    EXPECT_EQ(GetLanguageString(1, 200), "General Setup");
    EXPECT_TRUE(messages_.empty());
}

TEST_F(LanguageLibrary, NeitherLibraryPresentReturnsFalseWithoutAMessage) {
    EXPECT_FALSE(LoadLanguageLibrary("ITA"));
    EXPECT_FALSE(Language().LibraryLoaded);
    EXPECT_EQ(Language().CurrentResourceFile, nullptr);
    EXPECT_TRUE(messages_.empty());
}

TEST_F(LanguageLibrary, LoadingAgainReplacesTheLibrary) {
    InstallEnglish();
    InstallItalian();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_EQ(GetLanguageString(1, 200), "General Setup");
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_EQ(GetLanguageString(1, 200), "Impostazioni generali");
}

TEST_F(LanguageLibrary, FallbackKeepsTheLibraryAlreadyLoaded) {
    InstallEnglish();
    InstallItalian();
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_TRUE(LoadLanguageLibrary("FRA"));
    EXPECT_EQ(GetLanguageString(1, 200), "Impostazioni generali");
}

TEST_F(LanguageLibrary, LibraryThatDoesNotLoadIsRetriedWith32BeforeTheExtension) {
    cwd_.WriteFile("Kes32_ITA.dll", "not a library");
    cwd_.CopyLibrary("test_ita32.dll", "Kes32_ITA32.dll");
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));
    EXPECT_EQ(GetLanguageString(1, 200), "Impostazioni generali");
    EXPECT_TRUE(messages_.empty());
}

TEST_F(LanguageLibrary, LibraryThatDoesNotLoadShowsTheErrorMessageAndGivesEmptyStrings) {
    InstallEnglish();
    cwd_.WriteFile("Kes32_ITA.dll", "not a library");
    ASSERT_TRUE(LoadLanguageLibrary("ITA"));  // the library still counts as loaded
    ASSERT_EQ(messages_.size(), 1u);
    EXPECT_EQ(messages_[0].text,
              "In ResourceFile::ResourceFile(const char *) -> Error while loading Kes32_ITA.dll");
    EXPECT_EQ(messages_[0].caption, "ERROR");
    EXPECT_EQ(messages_[0].type, MB_TOPMOST);
    EXPECT_EQ(messages_[0].owner, nullptr);
    EXPECT_TRUE(Language().LibraryLoaded);
    EXPECT_EQ(GetLanguageString(1, 200), "");
}

TEST_F(LanguageLibrary, TruncatedLibraryShowsTheErrorMessage) {
    std::string bytes = TestLibraryBytes("test_eng32.dll");
    cwd_.WriteFile("Kes32_eng.dll", bytes.substr(0, bytes.size() / 2));
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    ASSERT_EQ(messages_.size(), 1u);
    EXPECT_EQ(messages_[0].caption, "ERROR");
    EXPECT_EQ(GetLanguageString(1, 200), "");
}

TEST_F(LanguageLibrary, SixtyFourBitLibraryLoads) {
    cwd_.CopyLibrary("test_eng64.dll", "Kes32_eng.dll");
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_EQ(GetLanguageString(1, 200), "General Setup");
}

TEST_F(LanguageLibrary, MissingStringIdGivesEmptyTextWithoutAMessage) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    EXPECT_EQ(GetLanguageString(5, 200), "");
    EXPECT_EQ(GetLanguageString(9999, 200), "");
    EXPECT_EQ(GetLanguageString(-1, 200), "");
    EXPECT_TRUE(messages_.empty());
}

TEST_F(LanguageLibrary, ReleaseClearsTheLibraryAndItsMark) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    ReleaseLanguageLibrary();
    EXPECT_FALSE(Language().LibraryLoaded);
    EXPECT_EQ(Language().CurrentResourceFile, nullptr);
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));  // the fallback loads again after a release
    EXPECT_EQ(GetLanguageString(1, 200), "General Setup");
}

using LanguageLibraryDeathTest = LanguageLibrary;

TEST_F(LanguageLibraryDeathTest, FetchingWithoutALibraryStopsWithTheAssertion) {
    EXPECT_DEATH(GetLanguageString(1, 200), "rf != NULL, file ResGenID, line 34");
}

TEST_F(LanguageLibraryDeathTest, FetchingAfterTheReleaseStopsWithTheAssertion) {
    InstallEnglish();
    ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    ReleaseLanguageLibrary();
    EXPECT_DEATH(GetLanguageString(1, 200), "rf != NULL");
}

TEST(ResourceFileRetryName, Puts32BeforeTheExtension) {
    EXPECT_EQ(ResourceFileRetryName("Kes32_ITA.dll"), "Kes32_ITA32.dll");
    EXPECT_EQ(ResourceFileRetryName("lib\\Kes32_ITA.dll"), "lib\\Kes32_ITA32.dll");
    EXPECT_EQ(ResourceFileRetryName("dir.d/Kes32"), "dir.d/Kes3232");
    EXPECT_EQ(ResourceFileRetryName("Kes32"), "Kes3232");
}

TEST_F(LanguageLibrary, NoneInCapitalsStandsForEngAndNoneInLowerCaseIsACodeOfItsOwn) {
    EXPECT_EQ(LanguageCodeToLoad("NONE"), "ENG");
    EXPECT_EQ(LanguageCodeToLoad("none"), "none");
    EXPECT_EQ(LanguageCodeToLoad("None"), "None");
    EXPECT_EQ(LanguageCodeToLoad("ITA"), "ITA");
    EXPECT_EQ(LanguageCodeToLoad(""), "");
}

TEST_F(LanguageLibrary, StartUpLanguageIsTheLanguageKeyOfWzelkoWithNoneStandingForEng) {
    WriteSettings("[Wzelko]\r\nLANGUAGE=NONE\r\n");
    EXPECT_EQ(ReadStartUpLanguageCode(), "ENG");
    WriteSettings("[WZELKO]\r\nLANGUAGE=ita\r\n");
    EXPECT_EQ(ReadStartUpLanguageCode(), "ita");
    WriteSettings("[WZELKO]\r\nSYSTEM_DIR=C:\\WZELKO\r\n");
    EXPECT_EQ(ReadStartUpLanguageCode(), "");  // a missing key: the English fallback follows
    WriteSettings("[WZELKO]\r\nLANGUAGE=" + std::string(100, 'x') + "\r\n");
    EXPECT_EQ(ReadStartUpLanguageCode(), std::string(79, 'x'));
}

}  // namespace
}  // namespace wk::test
