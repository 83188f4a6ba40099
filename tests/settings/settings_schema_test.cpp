#include "settings/settings_schema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/ascii_case.h"
#include "settings/colour_schema.h"
#include "settings/controller_schema.h"
#include "settings/default_points_schema.h"
#include "settings/init_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/machine_schema.h"
#include "settings/setup_settings.h"
#include "settings/sound_schema.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;

// A key as the profile functions tell keys apart: its file, and section and key without
// regard to case.
std::string Identity(SettingsFile file, const std::string& section, const std::string& key) {
    return std::string(file == SettingsFile::Wzelko ? "WZELKO.INI" : "WZELKO32.INI") + " [" +
           ToUpperAscii(section) + "] " + ToUpperAscii(key);
}

std::string Identity(const SettingKey& key) {
    return Identity(key.File, key.Section, key.Key);
}

std::vector<const SettingKey*> AllKeys() {
    std::vector<const SettingKey*> keys;
    for (const SchemaLevel& level : SettingsSchema()) {
        keys.insert(keys.end(), level.Keys.begin(), level.Keys.end());
    }
    return keys;
}

// The names a profile listing gives (NUL-separated, ending with an empty name).
std::vector<std::string> Names(const char* section, const char* fileName) {
    std::vector<char> buffer(1 << 16, '\0');
    const std::uint32_t n = GetPrivateProfileStringA(
        section, nullptr, "", buffer.data(), static_cast<std::uint32_t>(buffer.size()), fileName);
    std::vector<std::string> names;
    std::string name;
    for (std::uint32_t i = 0; i < n; ++i) {
        if (buffer[i] == '\0') {
            names.push_back(name);
            name.clear();
        } else {
            name += buffer[i];
        }
    }
    return names;
}

// Every key of both files, as identities.
std::set<std::string> KeysInFiles() {
    std::set<std::string> keys;
    for (const SettingsFile file : {SettingsFile::Wzelko, SettingsFile::Wzelko32}) {
        const char* fileName = file == SettingsFile::Wzelko ? kWzelkoIni : kWzelko32Ini;
        for (const std::string& section : Names(nullptr, fileName)) {
            for (const std::string& key : Names(section.c_str(), fileName)) {
                keys.insert(Identity(file, section, key));
            }
        }
    }
    return keys;
}

class SettingsSchemaTest : public test::SettingsFileTest {};

TEST(SettingsSchema, ListsTheTenLevelsOfTheRecordBaseFirst) {
    std::vector<std::string> names;
    for (const SchemaLevel& level : SettingsSchema()) names.push_back(level.Level);
    EXPECT_EQ(names, (std::vector<std::string>{
                         "ColourSettings", "MachineSettings", "SystemSettings", "InitSettings",
                         "MechOffsetSettings", "DefaultPointsSettings", "SoundSettings",
                         "DirectorySettings", "ControllerSettings", "AxesConvSettings"}));
}

// One declaration per key of a file: two declarations never name the same key (the profile
// functions ignore case), so a key's meaning is declared in one place only.
TEST(SettingsSchema, EveryDeclarationNamesADifferentKeyOfItsFile) {
    std::map<std::string, int> seen;
    for (const SettingKey* key : AllKeys()) ++seen[Identity(*key)];
    for (const auto& [identity, count] : seen) EXPECT_EQ(count, 1) << identity;
    EXPECT_EQ(seen.size(), AllKeys().size());
}

TEST(SettingsSchema, EveryDeclarationHasASectionAndAKey) {
    for (const SettingKey* key : AllKeys()) {
        EXPECT_NE(std::string(key->Section), "") << Identity(*key);
        EXPECT_NE(std::string(key->Key), "") << Identity(*key);
    }
}

// The same key text in two sections (or files) is two settings with two meanings, and so two
// declarations.
TEST(SettingsSchema, KeysUsedTwiceWithTwoMeaningsAreTwoDeclarations) {
    const std::pair<const SettingKey*, const SettingKey*> twice[] = {
        {&kAutoLoad, &kAutoLoadCode},                // "AUTOLOAD" in "Wzelko" and "SYSTEMPARAM"
        {&kNoInteractiveInit, &kNoInteractiveExec},  // "NO_INTERACTIVE" in "INIT" and "EXEC"
        {&kPlayPowerOn, &kPlayZeroes},               // "PLAY SOUNDS" in "Wzelko" and "INIT"
        {&kCmmSimulation, &kPh9Simulation},          // "SIMULATION" in "CMM" and "Ph9"
        {&kPortIndex, &kPh9Serial},                  // "PORT" in "CMM" and "Ph9"
        {&kVolcompMethod, &kLegacyMethod},           // "COMPENS" "METHOD" in both files
    };
    const std::vector<const SettingKey*> all = AllKeys();
    for (const auto& [first, second] : twice) {
        EXPECT_TRUE(EqualsIgnoringAsciiCase(first->Key, second->Key)) << first->Key;
        EXPECT_NE(Identity(*first), Identity(*second));
        EXPECT_NE(std::find(all.begin(), all.end(), first), all.end()) << Identity(*first);
        EXPECT_NE(std::find(all.begin(), all.end(), second), all.end()) << Identity(*second);
    }
}

TEST(SettingsSchema, TheCompensationKeysOfWzelko32AreDeclaredInThatFile) {
    for (const SettingKey* key : {static_cast<const SettingKey*>(&kVolcompMethod),
                                  static_cast<const SettingKey*>(&kCompensActive),
                                  static_cast<const SettingKey*>(&kThermalCompens),
                                  static_cast<const SettingKey*>(&kPh9Type)}) {
        EXPECT_EQ(key->File, SettingsFile::Wzelko32) << Identity(*key);
        EXPECT_STREQ(key->DirectFileName(), "WZELKO32.INI");
    }
    EXPECT_STREQ(kLegacyMethod.DirectFileName(), "WZELKO.INI");
}

// A whole write of an empty pair writes every declared key and nothing else; the TCP/IP keys
// are written only for a TCP/IP connection, so a second record asks for one. The controller
// type and the measure mode are read and never written.
TEST_F(SettingsSchemaTest, WholeWritesWriteEveryDeclaredKeyAndNoOther) {
    Files("", "");
    ASSERT_TRUE(ReadRecord()->WriteAll());
    std::set<std::string> written = KeysInFiles();
    Files("", "");
    auto tcpip = ReadRecord();
    tcpip->PortIndex = MachineSettings::kTcpipPortIndex;
    ASSERT_TRUE(tcpip->WriteAll());
    const std::set<std::string> writtenWithTcpip = KeysInFiles();
    written.insert(writtenWithTcpip.begin(), writtenWithTcpip.end());

    std::set<std::string> declared;
    for (const SettingKey* key : AllKeys()) declared.insert(Identity(*key));
    const std::set<std::string> readOnly = {Identity(kControllerType), Identity(kMetric)};
    for (const std::string& identity : readOnly) {
        EXPECT_EQ(written.count(identity), 0u) << identity;
        declared.erase(identity);
    }
    EXPECT_EQ(written, declared);
}

// Where a constructor computes a group's starting values, they agree with the declared
// defaults.
TEST_F(SettingsSchemaTest, ComputedStartingValuesAgreeWithTheDeclaredDefaults) {
    Files(Crlf(
        {"[Controller]", "Type=NONE", "[MEASURE INTERFACE]", "MEASURE MODE METRIC/INCH=METRIC"}));
    const SetupSettings record{ControllerFlags{}};
    EXPECT_EQ(record.ControllerType, kControllerType.Default);
    EXPECT_EQ(record.IsMetric(), kMetric.Default);
    for (std::size_t i = 0; i < kWindowBackgroundKeys.size(); ++i) {
        EXPECT_EQ(record.ColourTable[i].Colour, kWindowBackgroundKeys[i].Default) << i;
    }
    for (std::size_t i = 0; i < kDefaultPointsKeys.size(); ++i) {
        EXPECT_EQ(record.CurrentPoints[i].Count, kDefaultPointsKeys[i].Default)
            << kDefaultPointsKeys[i].Key;
        EXPECT_EQ(record.DefaultPoints(static_cast<int>(i)), kDefaultPointsKeys[i].Default);
    }
    for (std::size_t i = 0; i < kSoundFileKeys.size(); ++i) {
        EXPECT_EQ(record.SoundFiles[i], kSoundFileKeys[i].Default) << kSoundFileKeys[i].Key;
    }
    EXPECT_DOUBLE_EQ(kDepth.Default, 2 * kDistApproach.Default);
}

// The typed helpers reach WZELKO.INI only: a key of WZELKO32.INI handed to one of them does
// not compile, so its file cannot be mistaken.
template <typename Key>
concept ReadableThroughTheWzelkoHelpers = requires(const Key& key, char* buffer) {
    ReadProfileBool(key);
    ReadProfileText(key, buffer, 1u);
};
template <typename Key>
concept WritableThroughTheWzelkoHelpers = requires(const Key& key) {
    WriteProfileBool(key, true);
    WriteProfileText(key, "");
};
static_assert(ReadableThroughTheWzelkoHelpers<WzelkoKey<bool>>);
static_assert(WritableThroughTheWzelkoHelpers<WzelkoKey<bool>>);
static_assert(!ReadableThroughTheWzelkoHelpers<Wzelko32Key<bool>>);
static_assert(!WritableThroughTheWzelkoHelpers<Wzelko32Key<bool>>);

}  // namespace
}  // namespace wk
