// A Save that cannot write is never silent: the window says which file could not be written
// and why, no file is changed, the record stays modified (the edit is kept), and Exit and
// closing ask again. Shown on the mechanical offsets page.
//
// The tests run as root in CI, where folder permissions bind nobody: a read-only file (which
// the program refuses to replace for anyone) and a directory in a file's place fail for
// root too; the read-only folder is tried only as another user.

#include <gtest/gtest.h>
#include <unistd.h>

#include <QAction>
#include <QLineEdit>
#include <filesystem>

#include "i18n/resgenstring.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "ui_test_support.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::MessageScript;
using test::PressTab;
using test::SettingsFile;
using test::StartWindow;
using test::TempWinePrefix;
using test::TypeInto;
using test::WorkingDir;

const char* const kOffsets =
    "[MECHAOFFS]\r\noffx=0.000000\r\noffy=152.500000\r\noffz=-310.250000\r\ncompensoff=0."
    "000000\r\n";
const std::string kWzelko32 = "[PH9]\r\nTYPE=1\r\n";

class FailedSave : public ::testing::Test {
protected:
    void SetUp() override {
        prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
        prefix_.WriteWindowsFile("WZELKO32.INI", kWzelko32);
        prefix_.WriteWindowsFile("WZELKO.BAK", "the backup of an earlier save");
        original_ = prefix_.ReadWindowsFile("WZELKO.INI");
        window_ = StartWindow(script_);
        ASSERT_TRUE(window_->Ready());
        script_.Clear();
    }
    void TearDown() override {
        fs::permissions(prefix_.WindowsDir(), fs::perms::owner_all, fs::perm_options::add);
    }

    QLineEdit* Edit(const char* name) const {
        return window_->findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    QAction* Action(const char* name) const {
        return window_->findChild<QAction*>(QString::fromLatin1(name));
    }
    std::string Path(const char* name) const { return prefix_.WindowsFile(name).string(); }

    void TypeAnOffset() {
        QLineEdit* x = Edit("pSLE_OffsetX");
        TypeInto(x, QStringLiteral("7"));
        PressTab(x);
        ASSERT_TRUE(window_->Settings().Modified);
    }

    void ExpectNoFileChanged() const {
        EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
        EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.BAK"), "the backup of an earlier save");
    }

    bool IsFailedSaveMessage(std::size_t index, const std::string& file,
                             const std::string& reason) const {
        if (index >= script_.Shown().size()) return false;
        const MessageBoxRequest& r = script_.Shown()[index];
        return r.text == "The settings could not be saved.\n\n" + file + "\n" + reason +
                             "\n\nNo file was changed. Your changes are kept: save again once "
                             "the cause is put right, or leave without saving." &&
               r.caption == "WKestel32" && r.type == (MB_OK | MB_ICONSTOP);
    }

    bool AskedToSave(std::size_t index) const {
        return index < script_.Shown().size() &&
               script_.Shown()[index].text == GetLanguageString(41, 200);
    }

    TempWinePrefix prefix_;
    WorkingDir cwd_{WorkingDir::Kind::LanguageLibraries};
    MessageScript script_;
    std::string original_;
    std::unique_ptr<TKestelMainWind> window_;
};

TEST_F(FailedSave, SaveOfAReadOnlyFileSaysWhichAndWhyAndKeepsTheEdit) {
    TypeAnOffset();
    fs::permissions(Path("WZELKO32.INI"),
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    Action("KestelFile_Save")->trigger();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(IsFailedSaveMessage(0, Path("WZELKO32.INI"),
                                    "the file is read-only (mode 0444); nothing was written"))
        << script_.Shown()[0].text;
    EXPECT_TRUE(window_->Settings().Modified);
    EXPECT_DOUBLE_EQ(window_->Settings().OffsetX, 7.0);
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("7"));
    ExpectNoFileChanged();
}

TEST_F(FailedSave, ExitAfterAFailedSaveStillAsks) {
    TypeAnOffset();
    fs::remove(Path("WZELKO32.INI"));
    fs::create_directory(Path("WZELKO32.INI"));
    Action("KestelFile_Save")->trigger();
    ASSERT_TRUE(IsFailedSaveMessage(0, Path("WZELKO32.INI"), "Is a directory"))
        << script_.Shown()[0].text;
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    ASSERT_EQ(script_.Count(), 2);
    EXPECT_TRUE(AskedToSave(1));
    EXPECT_FALSE(window_->TerminationRequested());
}

TEST_F(FailedSave, AnsweringYesOnExitWhenTheSaveFailsKeepsTheWindowOpen) {
    TypeAnOffset();
    fs::permissions(Path("WZELKO32.INI"), fs::perms::owner_read);
    script_.Answer(IDYES);
    Action("KestelFile_Exit")->trigger();
    ASSERT_EQ(script_.Count(), 2);
    EXPECT_TRUE(AskedToSave(0));
    EXPECT_TRUE(IsFailedSaveMessage(1, Path("WZELKO32.INI"),
                                    "the file is read-only (mode 0400); nothing was written"));
    EXPECT_FALSE(window_->TerminationRequested());
    EXPECT_TRUE(window_->Settings().Modified);
    ExpectNoFileChanged();

    // Once the cause is put right, the same edit is saved.
    fs::permissions(Path("WZELKO32.INI"), fs::perms::owner_read | fs::perms::owner_write);
    script_.Answer(IDYES);
    Action("KestelFile_Exit")->trigger();
    EXPECT_TRUE(window_->TerminationRequested());
    EXPECT_EQ(test::IniValue(prefix_.ReadWindowsFile("WZELKO.INI"), "MECHAOFFS", "offx"),
              "7.000000");
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.BAK"), original_ + '\xFF');
}

TEST_F(FailedSave, ClosingWithYesWhenTheSaveFailsKeepsTheWindowOpen) {
    TypeAnOffset();
    fs::permissions(Path("WZELKO.INI"), fs::perms::owner_read);
    script_.Answer(IDYES);
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(IsFailedSaveMessage(1, Path("WZELKO.INI"),
                                    "the file is read-only (mode 0400); nothing was written"));
    EXPECT_TRUE(window_->isVisible());
}

TEST_F(FailedSave, SaveIntoAFolderThatCannotBeWrittenNamesTheFile) {
    if (::geteuid() == 0) GTEST_SKIP() << "folder permissions bind nobody as root";
    TypeAnOffset();
    fs::permissions(prefix_.WindowsDir(), fs::perms::owner_read | fs::perms::owner_exec);
    Action("KestelFile_Save")->trigger();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_NE(script_.Shown()[0].text.find("Permission denied"), std::string::npos)
        << script_.Shown()[0].text;
    EXPECT_TRUE(window_->Settings().Modified);
    fs::permissions(prefix_.WindowsDir(), fs::perms::owner_all);
    ExpectNoFileChanged();
}

TEST_F(FailedSave, SaveWithoutItsBackupSavesAndSaysSo) {
    TypeAnOffset();
    fs::remove(Path("WZELKO.BAK"));
    fs::create_directory(Path("WZELKO.BAK"));
    fs::create_directory(Path("WZELKO32.BAK"));
    Action("KestelFile_Save")->trigger();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "The settings were saved, but without a backup:\n\n" +
                                           Path("WZELKO.BAK") + ": is a directory");
    EXPECT_EQ(script_.Shown()[0].type, MB_OK | MB_ICONEXCLAMATION);
    EXPECT_FALSE(window_->Settings().Modified);
    EXPECT_EQ(test::IniValue(prefix_.ReadWindowsFile("WZELKO.INI"), "MECHAOFFS", "offx"),
              "7.000000");
}

}  // namespace
}  // namespace wk
