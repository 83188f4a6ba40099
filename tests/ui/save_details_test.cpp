// The save question's details: the keys a Yes would change, shown behind "Show Details...".

#include <gtest/gtest.h>

#include <QLineEdit>
#include <filesystem>

#include "i18n/resgenstring.h"
#include "page_test_fixture.h"
#include "settings/controller_type.h"
#include "settings/setup_settings.h"

namespace wk {
namespace {

using test::PressTab;
using test::SettingsFile;
using test::TypeInto;

const char* const kOffsets =
    "[MECHAOFFS]\r\noffx=0.000000\r\noffy=152.500000\r\noffz=-310.250000\r\n";

class SaveDetails : public test::PageTest {
protected:
    void SetUp() override {
        // The files as a save leaves them, so that only the test's own edits change a value.
        prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
        prefix_.WriteWindowsFile("WZELKO32.INI", "");
        SetupSettings record(ControllerFlagsFromType(ReadControllerType()));
        record.ReadAll();
        ASSERT_TRUE(record.WriteAll());
        std::filesystem::remove(prefix_.WindowsFile("WZELKO.BAK"));
        pages_ = test::TableRows({"MecOffTabSheet", "WinColorTabSheet"});
        StartOnFiles(pages_);
    }

    // The question asked, by its texts, buttons and icon.
    const MessageBoxRequest& Question() const {
        EXPECT_EQ(script_.Count(), 1);
        const MessageBoxRequest& r = script_.Shown().at(0);
        EXPECT_EQ(r.text, GetLanguageString(41, 200));
        EXPECT_EQ(r.caption, GetLanguageString(42, 200));
        EXPECT_EQ(r.type, MB_YESNOCANCEL | MB_ICONQUESTION);
        return r;
    }

    std::vector<PageEntry> pages_;
};

TEST_F(SaveDetails, TheSaveQuestionListsEachKeyAYesWouldChangeWithOldAndNewValue) {
    TypeAndLeave("pSLE_OffsetX", QStringLiteral("7"));
    TypeInto(Edit("pSLE_OffsetZ"), QStringLiteral("-300"));  // still in the field
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(Question().details,
              "WZELKO.INI [MECHAOFFS] offx: \"0.000000\" -> \"7.000000\"\n"
              "WZELKO.INI [MECHAOFFS] offz: \"-310.250000\" -> \"-300.000000\"");
    // Asking changed nothing: not the files, no backup, and the edits are still there.
    EXPECT_EQ(Bytes(), Original());
    EXPECT_FALSE(Exists("WZELKO.BAK"));
    EXPECT_TRUE(Record().Modified);
    EXPECT_DOUBLE_EQ(Record().OffsetX, 7.0);
}

TEST_F(SaveDetails, AnsweringYesWritesWhatTheDetailsSaid) {
    TypeAndLeave("pSLE_OffsetY", QStringLiteral("150"));
    script_.Answer(IDYES);
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(Question().details, "WZELKO.INI [MECHAOFFS] offy: \"152.500000\" -> \"150.000000\"");
    EXPECT_EQ(Saved("MECHAOFFS", "offy"), "150.000000");
    EXPECT_EQ(Bytes("WZELKO.BAK"), Original() + '\xFF');
    // Only that line of the file changed.
    std::string expected = Original();
    expected.replace(expected.find("offy=152.500000"), 15, "offy=150.000000");
    EXPECT_EQ(Bytes(), expected);
}

TEST_F(SaveDetails, ARecordWhoseChangesChangeNoValueAsksWithoutDetails) {
    // The same value typed again: the record is marked changed, no value in the files is.
    TypeAndLeave("pSLE_OffsetY", QStringLiteral("152.5"));
    ASSERT_TRUE(Record().Modified);
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(Question().details, "");
}

TEST_F(SaveDetails, SaveAsksNothingAndAfterItTheNextQuestionListsOnlyNewChanges) {
    TypeAndLeave("pSLE_OffsetX", QStringLiteral("1"));
    Save();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "1.000000");
    TypeAndLeave("pSLE_OffsetX", QStringLiteral("2"));
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(Question().details, "WZELKO.INI [MECHAOFFS] offx: \"1.000000\" -> \"2.000000\"");
}

}  // namespace
}  // namespace wk
