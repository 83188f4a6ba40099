// What a save of the record would change, computed before the save and without touching the
// files: the details of the save question.
#include "settings/pending_changes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;

std::vector<std::string> Lines(const std::vector<PendingChange>& changes) {
    std::vector<std::string> lines;
    const std::string text = PendingChangesText(changes);
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = text.find('\n', start);
        lines.push_back(text.substr(start, end - start));
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return lines;
}

class PendingChangesTest : public ::testing::Test {
protected:
    // Files as a save leaves them: every key the record writes is there, with the value it
    // writes, so that a record read from them changes nothing.
    void SavedFiles(const std::string& wzelko, const std::string& wzelko32 = "") {
        prefix.WriteFile("WZELKO.INI", wzelko);
        prefix.WriteFile("WZELKO32.INI", wzelko32);
        ASSERT_TRUE(ReadRecord()->WriteAll());
        std::filesystem::remove(prefix.WindowsFile("WZELKO.BAK"));
    }
    test::SettingsTestPrefix prefix;
};

TEST_F(PendingChangesTest, ACleanRecordChangesNothing) {
    SavedFiles(Crlf({"[MACHINEPARAM]", "DIST APPROACH=6.000000"}));
    const auto record = ReadRecord();
    EXPECT_TRUE(PendingChanges(*record).empty());
    EXPECT_EQ(PendingChangesText(PendingChanges(*record)), "");
}

TEST_F(PendingChangesTest, ARealChangeListsExactlyItsKeyWithOldAndNewValue) {
    SavedFiles(Crlf({"[MACHINEPARAM]", "DIST APPROACH=6.000000"}));
    const auto record = ReadRecord();
    record->DistApproach = 12.0;
    record->Modified = true;
    const auto changes = PendingChanges(*record);
    ASSERT_EQ(changes.size(), 1u);
    EXPECT_EQ(changes[0].File, "WZELKO.INI");
    EXPECT_EQ(changes[0].Section, "MACHINEPARAM");
    EXPECT_EQ(changes[0].Key, "DIST APPROACH");
    EXPECT_EQ(changes[0].Before, "6.000000");
    EXPECT_EQ(changes[0].After, "12.000000");
    EXPECT_EQ(PendingChangesText(changes),
              "WZELKO.INI [MACHINEPARAM] DIST APPROACH: \"6.000000\" -> \"12.000000\"");
}

TEST_F(PendingChangesTest, ChangesAreListedInTheOrderOfTheWriteBaseLevelFirst) {
    SavedFiles(Crlf({"[CMM]", "CNC=TRUE"}));
    const auto record = ReadRecord();
    record->QenAxesConvention = !record->QenAxesConvention;  // the last level
    record->AutoPower = !record->AutoPower;                  // start-up options
    record->Resolution = 0.5;                                // machine parameters
    record->SetColour(0, 1, 2, 3);                           // the base level
    EXPECT_EQ(Lines(PendingChanges(*record)),
              (std::vector<std::string>{
                  "WZELKO.INI [WINDOWS BACKGROUND] MAIN WINDOW: \"255,255,255\" -> \"1,2,3\"",
                  "WZELKO.INI [CMM] RESOLUTION: \"0.000100\" -> \"0.500000\"",
                  "WZELKO.INI [Wzelko] AUTOPOWER: \"FALSE\" -> \"TRUE\"",
                  "WZELKO.INI [SYSTEMPARAM] GUI: \"QEN\" -> \"STANDARD\""}));
}

TEST_F(PendingChangesTest, AKeyWrittenTwiceIsListedOnceWhereFirstWrittenWithItsLastValue) {
    // A manual machine: the machine level writes the exit code 0, the start-up options level
    // then writes the one the record holds.
    SavedFiles(Crlf({"[CMM]", "CNC=FALSE", "[Wzelko]", "EXITCODE=5"}));
    auto record = ReadRecord();
    ASSERT_EQ(record->ExitCode, 5u);
    EXPECT_TRUE(PendingChanges(*record).empty());  // 0 in between, 5 at the end: no change

    record->ExitCode = 7;
    record->Resolution = 0.5;
    record->AutoPower = !record->AutoPower;
    EXPECT_EQ(Lines(PendingChanges(*record)),
              (std::vector<std::string>{"WZELKO.INI [Wzelko] EXITCODE: \"5\" -> \"7\"",
                                        "WZELKO.INI [CMM] RESOLUTION: \"0.000100\" -> \"0.500000\"",
                                        "WZELKO.INI [Wzelko] AUTOPOWER: \"FALSE\" -> \"TRUE\""}));
}

TEST_F(PendingChangesTest, KeysTheSaveAddsHaveNoOldValue) {
    prefix.WriteFile("WZELKO.INI", Crlf({"[CMM]", "CNC=TRUE"}));
    prefix.WriteFile("WZELKO32.INI", "");
    const auto changes = PendingChanges(*ReadRecord());
    bool found = false;
    for (const PendingChange& change : changes) {
        if (change.Key == "DIST APPROACH") {
            found = true;
            EXPECT_FALSE(change.Before.has_value());
            EXPECT_EQ(change.After, "6.000000");
        }
        EXPECT_NE(change.Key, "CNC");  // written with the value it has
    }
    EXPECT_TRUE(found);
    EXPECT_NE(PendingChangesText(changes).find(
                  "WZELKO.INI [MACHINEPARAM] DIST APPROACH: (missing) -> \"6.000000\""),
              std::string::npos);
}

TEST_F(PendingChangesTest, KeysOfWzelko32IniAreListedUnderThatFile) {
    SavedFiles(Crlf({"[CMM]", "CNC=TRUE"}), Crlf({"[COMPENS]", "ACTIVE=0"}));
    const auto record = ReadRecord();
    record->CompensActive = true;
    record->Ph9Type = 3;
    EXPECT_EQ(Lines(PendingChanges(*record)),
              (std::vector<std::string>{"WZELKO32.INI [COMPENS] ACTIVE: \"0\" -> \"1\"",
                                        "WZELKO32.INI [PH9] TYPE: \"0\" -> \"3\""}));
}

TEST_F(PendingChangesTest, TheFilesTheRecordAndTheFollowingSaveAreUntouched) {
    SavedFiles(Crlf({"[CMM]", "CNC=TRUE"}), Crlf({"[COMPENS]", "METHOD=KV"}));
    const std::string before = prefix.ReadFile("WZELKO.INI");
    const std::string before32 = prefix.ReadFile("WZELKO32.INI");
    auto record = ReadRecord();
    record->DistApproach = 9.0;
    record->VolcompMethod = 1;  // QEN: the save also makes the older file's method QEN
    record->Modified = true;
    std::strcpy(record->ScratchText, "kept");
    const std::int32_t legacyMethod = record->LegacyMethod;

    const auto changes = PendingChanges(*record);
    EXPECT_EQ(prefix.ReadFile("WZELKO.INI"), before);
    EXPECT_EQ(prefix.ReadFile("WZELKO32.INI"), before32);
    EXPECT_FALSE(prefix.Exists("WZELKO.BAK"));
    EXPECT_FALSE(prefix.Exists("WZELKO32.BAK"));
    EXPECT_TRUE(record->Modified);
    EXPECT_STREQ(record->ScratchText, "kept");
    EXPECT_EQ(record->LegacyMethod, legacyMethod);
    EXPECT_EQ(test::ValueIn("WZELKO.INI", "MACHINEPARAM", "DIST APPROACH"), "6.000000");

    // The save that follows writes what the list said, and takes its backup.
    ASSERT_TRUE(record->WriteAll());
    EXPECT_EQ(prefix.ReadFile("WZELKO.BAK"), before + '\xFF');
    for (const PendingChange& change : changes) {
        EXPECT_EQ(test::ValueIn(change.File.c_str(), change.Section.c_str(), change.Key.c_str()),
                  change.After)
            << change.Key;
    }
    EXPECT_TRUE(PendingChanges(*record).empty());
}

TEST_F(PendingChangesTest, MissingFilesAreNotCreatedByTheTrial) {
    prefix.WriteFile("WZELKO.INI", Crlf({"[CMM]", "CNC=TRUE"}));
    const auto changes = PendingChanges(*ReadRecord());
    EXPECT_FALSE(prefix.Exists("WZELKO32.INI"));
    bool any32 = false;
    for (const PendingChange& change : changes) any32 = any32 || change.File == "WZELKO32.INI";
    EXPECT_TRUE(any32);  // the save would create it with its keys
}

}  // namespace
}  // namespace wk
