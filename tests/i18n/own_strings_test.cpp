// The program's own language strings: taken from the library when it has them, English when
// it does not, and their placeholders filled in.

#include "i18n/own_strings.h"

#include <gtest/gtest.h>

#include <string>

#include "language_test_fixture.h"

namespace wk::test {
namespace {

class OwnStrings : public LanguageTest {
protected:
    void Load(const std::string& library) {
        cwd_.CopyLibrary(library, "Kes32_eng.dll");
        WriteSettings("[WZELKO]\r\nLANGUAGE=ENG\r\nNO ANSI-OEM CONVERSION=ENG\r\n");
        ASSERT_TRUE(LoadLanguageLibrary("ENG"));
    }
};

TEST_F(OwnStrings, ALibraryThatHasTheStringGivesItsText) {
    Load("test_own_strings.dll");
    EXPECT_EQ(GetOwnString(kRestoreEntryCaption), "&Put Back...");
}

TEST_F(OwnStrings, ALibraryWithoutTheStringGivesTheEnglishText) {
    // The test Italian library has strings 1 and 4 only, as a library older than the
    // program's own strings.
    Load("test_ita32.dll");
    EXPECT_EQ(GetOwnString(kRestoreEntryCaption), "&Restore Backup...");
    EXPECT_EQ(GetOwnString(kRestoreFailed),
              "The backup could not be restored.\n\n%s\n%s\n\nNo file was changed.");
    EXPECT_EQ(GetLanguageString(kRestoreEntryCaption.Id, 200), "");
}

TEST_F(OwnStrings, ATranslationThatLostItsPlaceholderGivesTheEnglishText) {
    Load("test_own_strings.dll");
    EXPECT_EQ(GetLanguageString(kRestoreNoBackup.Id, 200), "No backup here.");
    EXPECT_EQ(GetOwnString(kRestoreNoBackup), kRestoreNoBackup.English);
}

TEST(OwnStringTable, IdsAreInTheProgramsOwnRangeInOrderAndEnglishTextsFitTheFetch) {
    int previous = 999;
    for (const OwnString& string : kOwnStrings) {
        EXPECT_GT(string.Id, previous);
        previous = string.Id;
        // Fetched with a maximum of 200: at most 199 characters come through.
        EXPECT_LE(std::string(string.English).size(), 199u) << string.Id;
        EXPECT_FALSE(std::string(string.English).empty()) << string.Id;
    }
}

TEST(FillInParts, ReplacesEachPlaceholderWithTheNextPartInOrder) {
    EXPECT_EQ(FillInParts("a %s b %s c", {"1", "2"}), "a 1 b 2 c");
    EXPECT_EQ(FillInParts("%s%s", {"x", "y"}), "xy");
    EXPECT_EQ(FillInParts("none", {"x"}), "none");
}

TEST(FillInParts, APartsOwnPlaceholderIsNotFilledIn) {
    EXPECT_EQ(FillInParts("%s and %s", {"C:\\%s", "why"}), "C:\\%s and why");
}

TEST(FillInParts, APlaceholderWithoutAPartStays) {
    EXPECT_EQ(FillInParts("%s and %s", {"one"}), "one and %s");
}

TEST(PlaceholderCount, CountsEveryPercentS) {
    EXPECT_EQ(PlaceholderCount("no placeholder, 100%"), 0);
    EXPECT_EQ(PlaceholderCount("%s\n%s"), 2);
    EXPECT_EQ(PlaceholderCount(kRestoreFailed.English), 2);
}

}  // namespace
}  // namespace wk::test
