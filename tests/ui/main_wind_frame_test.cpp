// The frame around the pages: the save question, Save, Exit, close, OK and Cancel, help, the
// about box and the shared file dialog. Shown on the mechanical offsets page.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "i18n/resgenstring.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "ui_test_support.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::IniValue;
using test::MessageScript;
using test::PressTab;
using test::SettingsFile;
using test::StartWindow;
using test::TempWinePrefix;
using test::TypeInto;
using test::WorkingDir;

const char* const kOffsets =
    "[MACHINEPARAM]\r\nBRIDGE AXIS STROKE=1200.000000\r\n\r\n"
    "[MECHAOFFS]\r\noffx=0.000000\r\noffy=152.500000\r\noffz=-310.250000\r\ncompensoff=0."
    "000000\r\n";

class Frame : public ::testing::Test {
protected:
    void SetUp() override {
        prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
        original_ = prefix_.ReadWindowsFile("WZELKO.INI");
        window_ = StartWindow(script_);
        ASSERT_TRUE(window_->Ready());
        script_.Clear();
    }

    QLineEdit* Edit(const char* name) const {
        return window_->findChild<QLineEdit*>(QString::fromLatin1(name));
    }
    QAction* Action(const char* name) const {
        return window_->findChild<QAction*>(QString::fromLatin1(name));
    }
    std::string Saved(const char* section, const char* key) const {
        return IniValue(prefix_.ReadWindowsFile("WZELKO.INI"), section, key);
    }
    bool AskedToSave(std::size_t index = 0) const {
        if (index >= script_.Shown().size()) {
            return false;
        }
        const MessageBoxRequest& r = script_.Shown()[index];
        return r.text == GetLanguageString(41, 200) && r.caption == GetLanguageString(42, 200) &&
               r.type == (MB_YESNOCANCEL | MB_ICONQUESTION);
    }

    TempWinePrefix prefix_;
    WorkingDir cwd_{WorkingDir::Kind::LanguageLibraries};
    MessageScript script_;
    std::string original_;
    std::unique_ptr<TKestelMainWind> window_;
};

TEST_F(Frame, SaveWithNoChangeWritesNothingAndMakesNoBackup) {
    Action("KestelFile_Save")->trigger();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
    EXPECT_FALSE(test::Exists(prefix_, "WZELKO.BAK"));
}

TEST_F(Frame, Typing1250AndLeavingShows125AndSaveWritesSixDecimals) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("12.50"));
    PressTab(x);
    EXPECT_EQ(x->text(), QStringLiteral("12.5"));
    EXPECT_FALSE(x->isModified());
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 12.5);
    EXPECT_TRUE(window_->Settings()->Modified);
    // Leaving the field stores into the record only; the files wait for Save.
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);

    Action("KestelFile_Save")->trigger();
    EXPECT_EQ(script_.Count(), 0);  // Save does not ask
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "12.500000");
    EXPECT_TRUE(test::Exists(prefix_, "WZELKO.BAK"));
    EXPECT_FALSE(window_->Settings()->Modified);
}

TEST_F(Frame, SaveCommitsTheEditInProgressFirst) {
    QLineEdit* z = Edit("pSLE_OffsetZ");
    TypeInto(z, QStringLiteral("-5"));
    Action("KestelFile_Save")->trigger();
    EXPECT_EQ(Saved("MECHAOFFS", "offz"), "-5.000000");
    EXPECT_EQ(z->text(), QStringLiteral("-5"));
}

TEST_F(Frame, TextThatIsNotANumberShowsTheConversionMessageAndKeepsTheOldValue) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("abc"));
    PressTab(y);
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'abc' is not a valid floating point value");
    EXPECT_EQ(script_.Shown()[0].type & 0xF0u, MB_ICONSTOP);
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetY, 152.5);
    EXPECT_FALSE(window_->Settings()->Modified);
    // The program goes on; Save finds nothing changed, and reports the text once more.
    Action("KestelFile_Save")->trigger();
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(Frame, EscapeInAChangedEditRestoresTheValueFromTheRecord) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("77"));
    QTest::keyClick(y, Qt::Key_Escape);
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_FALSE(y->isModified());
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetY, 152.5);
    EXPECT_FALSE(window_->Settings()->Modified);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, EnterInAChangedEditCommitsItWithoutWritingTheFiles) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("77.0"));
    QTest::keyClick(y, Qt::Key_Return);
    EXPECT_EQ(y->text(), QStringLiteral("77"));
    EXPECT_TRUE(y->hasFocus());
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetY, 77.0);
    EXPECT_TRUE(window_->Settings()->Modified);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
    EXPECT_FALSE(test::Exists(prefix_, "WZELKO.BAK"));
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, CancelDropsOnlyTheEditInProgress) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(x, QStringLiteral("4"));
    PressTab(x);  // taken into the record
    TypeInto(y, QStringLiteral("5"));
    window_->findChild<QPushButton*>(QStringLiteral("pCancel"))->click();
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_EQ(x->text(), QStringLiteral("4"));
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 4.0);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringCancelKeepsTheWindowAndTheEdit) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    EXPECT_FALSE(window_->close());
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(x->text(), QStringLiteral("7"));
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 7.0);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringNoReReadsTheFiles) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    PressTab(x);
    script_.Answer(IDNO);
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(AskedToSave());
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 0.0);
    EXPECT_FALSE(window_->Settings()->Modified);
    EXPECT_EQ(x->text(), QStringLiteral("0"));
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringYesWritesTheFiles) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDYES);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "7.000000");
    EXPECT_TRUE(test::Exists(prefix_, "WZELKO.BAK"));
}

TEST_F(Frame, ExitAsksAndEndsTheProgramUnlessCancelled) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    EXPECT_TRUE(AskedToSave());
    EXPECT_FALSE(window_->TerminationRequested());
    script_.Answer(IDYES);
    Action("KestelFile_Exit")->trigger();
    EXPECT_TRUE(window_->TerminationRequested());
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "7.000000");
}

TEST_F(Frame, ExitWithNoChangeEndsWithoutAQuestion) {
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_TRUE(window_->TerminationRequested());
}

TEST_F(Frame, ChoosingTheMenuEntryOfThePageAlreadyShownStillAsks) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    Action("KestelGenConf_MecOff")->trigger();
    // Asked once: the menu's own question, no second one from the switch.
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_EQ(x->text(), QStringLiteral("7"));
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("MecOffTabSheet"));
}

// The edit in progress is taken into the record before the question, so leaving the page with
// nothing but a typed value still asks; Cancel keeps the sheet and what was typed.
TEST_F(Frame, TypingAndClickingAnotherTabStoresTheEditFirstSoTheQuestionAppears) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("4.5"));
    ASSERT_FALSE(window_->Settings()->Modified);
    QTabBar* tabs = window_->PageCtl()->TabBar();
    QWidget* colours = window_->findChild<QWidget*>(QStringLiteral("WinColorTabSheet"));
    ASSERT_NE(colours, nullptr);
    const int colourTab = window_->PageCtl()->IndexOf(colours);
    ASSERT_GE(colourTab, 0);
    script_.Answer(IDCANCEL);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(colourTab).center());
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 4.5);
    EXPECT_TRUE(window_->Settings()->Modified);
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("MecOffTabSheet"));
    EXPECT_EQ(x->text(), QStringLiteral("4.5"));
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(Frame, AnsweringNoOnLeavingAPageReloadsTheFilesAndRefreshesThePage) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(x, QStringLiteral("7"));
    PressTab(x);
    TypeInto(y, QStringLiteral("8"));
    script_.Answer(IDNO);
    Action("KestelGenConf_MecOff")->trigger();
    EXPECT_EQ(script_.Count(), 1);
    EXPECT_EQ(x->text(), QStringLiteral("0"));
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_FALSE(window_->Settings()->Modified);
}

TEST_F(Frame, OkCommitsTheEditAndNeverWrites) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("3.25"));
    window_->pOKClick();
    EXPECT_DOUBLE_EQ(window_->Settings()->OffsetX, 3.25);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, DestroyingTheWindowRunsNoExitHandler) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("abc"));  // its exit handler would report the text
    window_.reset();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(Frame, HelpContextIsThatOfTheActivePage) {
    EXPECT_EQ(window_->HelpContextOfPage(), 21);
    Action("KestelHelp_Index")->trigger();  // no help viewer here: nothing to see, no message
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, AboutEntryShowsTheAboutBoxModally) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal->objectName() == QStringLiteral("AboutBox")) {
            seen = true;
            modal->findChild<QPushButton*>(QStringLiteral("ButtonOK"))->click();
        } else if (modal) {
            modal->close();
        }
    });
    Action("KestelHelp_About")->trigger();
    EXPECT_TRUE(seen);
    EXPECT_EQ(window_->findChild<QWidget*>(QStringLiteral("AboutBox")), nullptr);
}

TEST_F(Frame, BrowseForFileShowsTheMeasuringApplicationsPaths) {
    const auto dir = prefix_.Root() / "drive_c" / "WZELKO" / "SOUNDS";
    std::filesystem::create_directories(dir);
    prefix_.WriteWindowsFile("../../drive_c/WZELKO/SOUNDS/beep.wav", "RIFF");

    QString shownDir;
    QStringList filters;
    QTimer::singleShot(0, [&] {
        auto* dialog = window_->findChild<QFileDialog*>(QStringLiteral("OpenFileDialog"));
        ASSERT_NE(dialog, nullptr);
        shownDir = dialog->directory().absolutePath();
        filters = dialog->nameFilters();
        dialog->selectFile(QString::fromStdString((dir / "beep.wav").string()));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    std::string path = "unchanged";
    EXPECT_TRUE(window_->BrowseForFile(path, "C:\\WZELKO\\SOUNDS", "wav", "Wave files"));
    EXPECT_EQ(path, "C:\\WZELKO\\SOUNDS\\beep.wav");
    EXPECT_EQ(std::filesystem::path(shownDir.toStdString()), std::filesystem::canonical(dir));
    EXPECT_EQ(filters, QStringList{QStringLiteral("Wave files (*.wav)")});
}

TEST_F(Frame, BrowseForFileCancelledLeavesThePathUnchanged) {
    QTimer::singleShot(0, [&] {
        auto* dialog = window_->findChild<QFileDialog*>(QStringLiteral("OpenFileDialog"));
        ASSERT_NE(dialog, nullptr);
        dialog->reject();
    });
    std::string path = "C:\\KEEP.BIN";
    EXPECT_FALSE(window_->BrowseForFile(path, "C:\\", "bin", "Compensation"));
    EXPECT_EQ(path, "C:\\KEEP.BIN");
}

}  // namespace
}  // namespace wk
