// `wkestel show` lists the record's settings through the groups' key declarations.
#include "cli/settings_listing.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "settings/settings_schema.h"
#include "support/temp_prefix.h"

namespace wk::cli {
namespace {

std::vector<SettingsLevel> ListingOfAnEmptyPair() {
    test::TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", "");
    prefix.WriteWindowsFile("WZELKO32.INI", "");
    SetupSettings record{ControllerFlags{}};
    record.ReadAll();
    return ListSettings(record);
}

// Each level lists every key its group declares, and every key it names is one of them.
TEST(SettingsListing, EachLevelListsExactlyTheKeysItsGroupDeclares) {
    const std::vector<SettingsLevel> levels = ListingOfAnEmptyPair();
    const std::vector<SchemaLevel>& schema = SettingsSchema();
    ASSERT_EQ(levels.size(), schema.size());
    for (std::size_t i = 0; i < levels.size(); ++i) {
        EXPECT_EQ(levels[i].Name, schema[i].Level);
        std::set<const SettingKey*> listed;
        for (const SettingEntry& entry : levels[i].Entries) {
            if (entry.Schema != nullptr) listed.insert(entry.Schema);
        }
        const std::set<const SettingKey*> declared(schema[i].Keys.begin(), schema[i].Keys.end());
        EXPECT_EQ(listed, declared) << levels[i].Name;
    }
}

TEST(SettingsListing, SectionKeyAndFileAreTheDeclaredTexts) {
    for (const SettingsLevel& level : ListingOfAnEmptyPair()) {
        for (const SettingEntry& entry : level.Entries) {
            if (entry.Schema == nullptr) continue;
            EXPECT_EQ(entry.Section, entry.Schema->Section) << entry.Field;
            EXPECT_EQ(entry.Key, entry.Schema->Key) << entry.Field;
            EXPECT_EQ(entry.File, entry.Schema->DirectFileName()) << entry.Field;
        }
    }
}

// Only the four spare colour entries have no key; they are listed with an empty section and
// key in WZELKO.INI, as before.
TEST(SettingsListing, OnlyTheSpareColourEntriesHaveNoKey) {
    std::vector<std::string> withoutKey;
    for (const SettingsLevel& level : ListingOfAnEmptyPair()) {
        for (const SettingEntry& entry : level.Entries) {
            if (entry.Schema != nullptr) continue;
            withoutKey.push_back(entry.Field);
            EXPECT_EQ(entry.Section, "");
            EXPECT_EQ(entry.Key, "");
            EXPECT_EQ(entry.File, "WZELKO.INI");
        }
    }
    EXPECT_EQ(withoutKey, (std::vector<std::string>{"ColourTable[26]", "ColourTable[27]",
                                                    "ColourTable[28]", "ColourTable[29]"}));
}

// A field is listed once; the two "given" flags share the key of their value.
TEST(SettingsListing, FieldNamesAreUniqueWithinALevel) {
    for (const SettingsLevel& level : ListingOfAnEmptyPair()) {
        std::map<std::string, int> count;
        for (const SettingEntry& entry : level.Entries) ++count[entry.Field];
        for (const auto& [field, n] : count) EXPECT_EQ(n, 1) << level.Name << "." << field;
    }
}

}  // namespace
}  // namespace wk::cli
