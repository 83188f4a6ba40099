#include "settings/axes_conv_settings.h"

#include <gtest/gtest.h>

#include "settings/settings_files.h"
#include "settings_test_prefix.h"

namespace wk {
namespace {

using test::Crlf;
using test::ReadRecord;
using test::ValueIn;

class AxesConvSettingsTest : public test::SettingsFileTest {};

TEST_F(AxesConvSettingsTest, NoGuiKeySelectsQenAndTheNextSaveWritesQen) {
    File("");
    auto record = ReadRecord();
    EXPECT_TRUE(record->QenAxesConvention);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "GUI"), "QEN");
}

TEST_F(AxesConvSettingsTest, StandardInLowerCaseSelectsStandardAndIsWrittenBackUpperCase) {
    File(Crlf({"[SYSTEMPARAM]", "GUI=standard"}));
    auto record = ReadRecord();
    EXPECT_FALSE(record->QenAxesConvention);
    record->WriteAll();
    EXPECT_EQ(ValueIn(kWzelkoIni, "SYSTEMPARAM", "GUI"), "STANDARD");
}

}  // namespace
}  // namespace wk
