#include "settings/colour_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class ColourSettingsTest : public test::SettingsFileTest {};

TEST_F(ColourSettingsTest, ConstructorMakesTwentySixListedWhiteWindowsAndFourSpareEntries) {
    File("");
    const ColourSettings colours;
    for (int i = 0; i < 30; ++i) {
        EXPECT_EQ(colours.ColourTable[static_cast<std::size_t>(i)].Colour, 0xFFFFFFu);
        EXPECT_EQ(colours.ColourTable[static_cast<std::size_t>(i)].Listed, i < 26) << i;
    }
}

TEST_F(ColourSettingsTest, AnyWindowListedIsFalseOnlyWhenNoEntryIsListed) {
    File("");
    ColourSettings colours;
    EXPECT_TRUE(colours.AnyWindowListed());
    for (ColourEntry& entry : colours.ColourTable) entry.Listed = false;
    EXPECT_FALSE(colours.AnyWindowListed());
    colours.ColourTable[29].Listed = true;  // a spare entry counts too
    EXPECT_TRUE(colours.AnyWindowListed());
}

TEST_F(ColourSettingsTest, EmptySectionStillListsAll26WindowsWithBlue255Throughout) {
    File(Crlf({"[WINDOWS BACKGROUND]"}));
    auto record = ReadRecord();
    for (int i = 0; i < 26; ++i) {
        const ColourEntry& entry = record->ColourTable[static_cast<std::size_t>(i)];
        EXPECT_TRUE(entry.Listed);
        EXPECT_EQ(ColourSettings::BlueOf(entry.Colour), 255);
    }
}

TEST_F(ColourSettingsTest, NoneInAnyCaseKeepsWhiteAndTheNextSaveWrites255255255) {
    File(Crlf({"[WINDOWS BACKGROUND]", "MAIN WINDOW=1,2,3", "INIT WINDOW=none",
               "EXECUTION WINDOW=NoNe"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ColourTable[1].Colour, 0xFFFFFFu);
    EXPECT_EQ(record->ColourTable[2].Colour, 0xFFFFFFu);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "WINDOWS BACKGROUND", "INIT WINDOW"), "255,255,255");
    EXPECT_EQ(ValueIn(kWzelkoIni, "WINDOWS BACKGROUND", "EXECUTION WINDOW"), "255,255,255");
    EXPECT_EQ(ValueIn(kWzelkoIni, "WINDOWS BACKGROUND", "MAIN WINDOW"), "1,2,3");
}

TEST_F(ColourSettingsTest, ComponentsThatDoNotScanKeepThePreviousWindowsValues) {
    File(Crlf(
        {"[WINDOWS BACKGROUND]", "MAIN WINDOW=10,20,30", "INIT WINDOW=40", "EXECUTION WINDOW=x"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ColourTable[1].Colour, ColourSettings::MakeColour(40, 20, 30));
    EXPECT_EQ(record->ColourTable[2].Colour, ColourSettings::MakeColour(40, 20, 30));
}

TEST_F(ColourSettingsTest, SpareEntries26To29TakeTheDataInputWindowColourAndBecomeListed) {
    File(Crlf({"[WINDOWS BACKGROUND]", "DATA INPUT WINDOW=12,34,56"}));
    auto record = ReadRecord();
    for (std::size_t i = 26; i < 30; ++i) {
        EXPECT_TRUE(record->ColourTable[i].Listed);
        EXPECT_EQ(record->ColourTable[i].Colour, ColourSettings::MakeColour(12, 34, 56));
    }
}

TEST_F(ColourSettingsTest, ColourIsPackedRedLowAndComponentsAreTakenModulo256) {
    File("");
    ColourSettings colours;
    colours.SetColour(3, 256, 1, -1);  // a typed 256 sets red 0, -1 gives 255
    EXPECT_EQ(colours.ColourTable[3].Colour, 0xFF0100u);
    colours.SetColour(30, 1, 2, 3);  // outside the table: ignored
    colours.SetColour(-1, 1, 2, 3);
}

TEST_F(ColourSettingsTest, ReadClearsTheModifiedFlag) {
    File("");
    auto record = ReadRecord();
    record->Modified = true;
    record->ReadAll();
    EXPECT_FALSE(record->Modified);
}

TEST_F(ColourSettingsTest, KeySpellingsOfTheFileFormatAreKept) {
    File(Crlf({"[WINDOWS BACKGROUND]", "ALIGNEMENTS WINDOW=1,1,1", "FREERELBKG=2,2,2"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->ColourTable[13].Colour, 0x010101u);
    EXPECT_EQ(record->ColourTable[22].Colour, 0x020202u);
}

}  // namespace
}  // namespace wk
