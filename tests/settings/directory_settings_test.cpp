#include "settings/directory_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class DirectorySettingsTest : public test::SettingsFileTest {};

TEST_F(DirectorySettingsTest, WzelkoSectionWithoutDataDirLeavesTheDataDirectoryEmpty) {
    File(Crlf({"[WZELKO]", "SYSTEM_DIR=C:\\WZELKO"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->DataDir, "");
    EXPECT_EQ(record->SystemDir, "C:\\WZELKO");
}

TEST_F(DirectorySettingsTest, NoneKeepsTheBuiltInDirectory) {
    File(Crlf({"[WZELKO]", "DATA_DIR=none", "PPROG_DIR=NONE"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->DataDir, "\\WZELKO\\DATA");
    EXPECT_EQ(record->PProgDir, "\\WZELKO\\PROG");
}

TEST_F(DirectorySettingsTest, DirectoryInLowerCaseIsHeldAndWrittenInUpperCase) {
    File(Crlf({"[WZELKO]", "MEAS_DIR=c:\\wzelko\\meas"}));
    auto record = ReadRecord();
    EXPECT_EQ(record->MeasDir, "C:\\WZELKO\\MEAS");
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "WZELKO", "MEAS_DIR"), "C:\\WZELKO\\MEAS");
    EXPECT_EQ(ValueIn(kWzelkoIni, "WZELKO", "USER_DIR"), "");
}

}  // namespace
}  // namespace wk
