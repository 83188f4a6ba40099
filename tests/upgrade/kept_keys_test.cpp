#include "upgrade/kept_keys.h"

#include <gtest/gtest.h>

#include "platform/ascii_case.h"
#include "settings/controller_schema.h"
#include "settings/directory_schema.h"
#include "settings/machine_schema.h"

namespace wk {
namespace {

TEST(KeptKeys, HoldsTheDirectoriesOfTheInstallation) {
    for (const char* key : {"SYSTEM_DIR", "DATA_DIR", "PPROG_DIR", "MEAS_DIR", "USER_DIR"}) {
        EXPECT_TRUE(IsKeptAsInstalled("WZELKO", key)) << key;
    }
    EXPECT_FALSE(IsKeptAsInstalled("WZELKO", "LANGUAGE"));
}

TEST(KeptKeys, HoldsTheHardwareOfTheInstallation) {
    EXPECT_TRUE(IsKeptAsInstalled("CMM", "SIMULATION"));
    EXPECT_TRUE(IsKeptAsInstalled("CMM", "CNC"));
    EXPECT_TRUE(IsKeptAsInstalled("PH9", "SIMULATION"));
    EXPECT_TRUE(IsKeptAsInstalled("PH9", "PH9PRESENT"));
    EXPECT_TRUE(IsKeptAsInstalled("CONTROLLER", "TYPE"));
    EXPECT_TRUE(IsKeptAsInstalled("COMPENS", "METHOD"));
    EXPECT_FALSE(IsKeptAsInstalled("CMM", "PORT"));
    EXPECT_FALSE(IsKeptAsInstalled("PH9", "TYPE"));
    EXPECT_FALSE(IsKeptAsInstalled("CONTROLLER", "SUBTYPE"));
}

// The table is the groups' own declarations, as the merge names them: section upper-cased.
TEST(KeptKeys, AreTheDeclaredKeysOfTheDirectoriesHardwareControllerAndMethod) {
    const SettingKey* const kept[] = {
        &kSystemDir,  &kDataDir,        &kPProgDir,      &kMeasDir,
        &kUserDir,    &kCmmSimulation,  &kCnc,           &kPh9Simulation,
        &kPh9Present, &kControllerType, &kVolcompMethod, &kLegacyMethod};
    for (const SettingKey* key : kept) {
        EXPECT_TRUE(IsKeptAsInstalled(ToUpperAscii(key->Section), key->Key))
            << key->Section << " " << key->Key;
    }
    for (const SettingKey* key :
         {static_cast<const SettingKey*>(&kPortIndex), static_cast<const SettingKey*>(&kPh9Serial),
          static_cast<const SettingKey*>(&kIsQd32z),
          static_cast<const SettingKey*>(&kCompensActive)}) {
        EXPECT_FALSE(IsKeptAsInstalled(ToUpperAscii(key->Section), key->Key))
            << key->Section << " " << key->Key;
    }
    EXPECT_TRUE(IsCompensationMethod(ToUpperAscii(kVolcompMethod.Section), kVolcompMethod.Key));
}

TEST(KeptKeys, MatchesKeysWithoutRegardToCase) {
    EXPECT_TRUE(IsKeptAsInstalled("CONTROLLER", "Type"));
    EXPECT_TRUE(IsKeptAsInstalled("CMM", "cnc"));
    EXPECT_TRUE(IsKeptAsInstalled("WZELKO", "System_Dir"));
}

TEST(KeptKeys, TakesSectionsAsTheMergeUpperCasedThem) {
    // The merge upper-cases the section name before asking.
    EXPECT_FALSE(IsKeptAsInstalled("cmm", "CNC"));
}

TEST(KeptKeys, AKeyOfAnotherSectionIsNotKept) {
    EXPECT_FALSE(IsKeptAsInstalled("MACHINEPARAM", "CNC"));
    EXPECT_FALSE(IsKeptAsInstalled("WZELKO", "TYPE"));
    EXPECT_FALSE(IsKeptAsInstalled("CMM", "SIMULATIONS"));
    EXPECT_FALSE(IsKeptAsInstalled("CMM", "CN"));
}

TEST(KeptKeys, TheCompensationMethodIsMethodOfCompens) {
    EXPECT_TRUE(IsCompensationMethod("COMPENS", "method"));
    EXPECT_FALSE(IsCompensationMethod("COMPENS", "ACTIVE"));
    EXPECT_FALSE(IsCompensationMethod("CMM", "METHOD"));
}

TEST(KeptKeys, ControllerCompensationIsCtrlInAnyCase) {
    EXPECT_TRUE(IsControllerCompensation("CTRL"));
    EXPECT_TRUE(IsControllerCompensation("ctrl"));
    EXPECT_FALSE(IsControllerCompensation("CTRL2"));
    EXPECT_FALSE(IsControllerCompensation("QEN"));
    EXPECT_FALSE(IsControllerCompensation(""));
}

}  // namespace
}  // namespace wk
