// The axes convention page: two picture buttons, the chosen convention "on".

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

#include "i18n/resgenstring.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "shell/kestel_page.h"
#include "ui_test_support.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::IniValue;
using test::MessageScript;
using test::SettingsFile;
using test::StartWindow;
using test::TempWinePrefix;
using test::WorkingDir;

class AxesConvPage : public ::testing::Test {
protected:
    void Start(const std::string& extraSections) {
        prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(extraSections));
        original_ = prefix_.ReadWindowsFile("WZELKO.INI");
        window_ = StartWindow(script_);
        ASSERT_TRUE(window_->Ready());
        script_.Clear();
        page_ = window_->Page("AxesConvTabSheet");
        ASSERT_NE(page_, nullptr);
    }
    QToolButton* Qen() const {
        return window_->findChild<QToolButton*>(QStringLiteral("pGB_QenAxes"));
    }
    QToolButton* Standard() const {
        return window_->findChild<QToolButton*>(QStringLiteral("pGB_KVAxes"));
    }
    QLabel* Picture(const char* name) const {
        return window_->findChild<QLabel*>(QString::fromLatin1(name));
    }
    // Whether the button's glyph is the picture of the hidden image `name`.
    bool Shows(QToolButton* button, const char* name) const {
        const QPixmap picture = Picture(name)->pixmap();
        return !picture.isNull() &&
               button->icon().pixmap(picture.size()).toImage() == picture.toImage();
    }
    bool QenOn() const { return Shows(Qen(), "QenAxesOn") && Shows(Standard(), "VKAxesOff"); }
    bool StandardOn() const { return Shows(Qen(), "QenAxesOff") && Shows(Standard(), "VKAxesOn"); }
    // Shows the page as the user does, with a click on its tab.
    void SwitchToPage() const {
        window_->PageCtl()->TabBar()->setCurrentIndex(window_->PageCtl()->IndexOf(page_));
    }
    void Save() const { window_->KestelFile_SaveClick(); }
    std::string SavedGui() const {
        return IniValue(prefix_.ReadWindowsFile("WZELKO.INI"), "SYSTEMPARAM", "GUI");
    }
    static QString Language(int id) {
        return QString::fromStdString(platform::AnsiToUtf8(GetLanguageString(id, 200)));
    }

    TempWinePrefix prefix_;
    WorkingDir cwd_{WorkingDir::Kind::LanguageLibraries};
    MessageScript script_;
    std::string original_;
    std::unique_ptr<TKestelMainWind> window_;
    KestelPage* page_ = nullptr;
};

const char* const kQen = "[SYSTEMPARAM]\r\nGUI=QEN\r\n";
const char* const kStandard = "[SYSTEMPARAM]\r\nGUI=STANDARD\r\n";

TEST_F(AxesConvPage, ControlsCarryTheirNamesAndThePicturesAreHidden) {
    Start(kQen);
    ASSERT_NE(Qen(), nullptr);
    ASSERT_NE(Standard(), nullptr);
    for (QToolButton* button : {Qen(), Standard()}) {
        EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        EXPECT_GE(button->iconSize().width(), 96);
        EXPECT_FALSE(button->text().isEmpty());
    }
    SwitchToPage();
    for (const char* name : {"QenAxesOn", "QenAxesOff", "VKAxesOn", "VKAxesOff"}) {
        ASSERT_NE(Picture(name), nullptr) << name;
        EXPECT_FALSE(Picture(name)->isVisible()) << name;
        EXPECT_FALSE(Picture(name)->pixmap().isNull()) << name;
        EXPECT_EQ(Picture(name)->pixmap().size(), Picture("QenAxesOn")->pixmap().size()) << name;
    }
    EXPECT_TRUE(Qen()->isVisible());
    EXPECT_TRUE(Standard()->isVisible());
}

TEST_F(AxesConvPage, CaptionAndHintsComeFromTheLanguageStrings) {
    Start(kQen);
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(19));
    EXPECT_EQ(Qen()->toolTip(), Language(39));
    EXPECT_EQ(Standard()->toolTip(), Language(40));
}

TEST_F(AxesConvPage, MenuEntryIsEnabledAndShowsThePage) {
    Start(kQen);
    auto* entry = window_->findChild<QAction*>(QStringLiteral("KestelOther_AxesConvention"));
    ASSERT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(window_->HelpContextOfPage(), 32);
}

TEST_F(AxesConvPage, QenInTheFileShowsTheQenButtonOn) {
    Start(kQen);
    EXPECT_TRUE(QenOn());
    EXPECT_FALSE(StandardOn());
}

TEST_F(AxesConvPage, StandardInTheFileShowsTheStandardButtonOn) {
    Start(kStandard);
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(QenOn());
}

TEST_F(AxesConvPage, NoGuiKeyShowsTheQenButtonOnAndTheNextSaveWritesQen) {
    Start("[SYSTEMPARAM]\r\nCALIB=1\r\n");
    EXPECT_TRUE(QenOn());
    // Something changes elsewhere in the record, so that Save writes.
    window_->Settings()->SetColour(0, 1, 2, 3);
    window_->Settings()->Modified = true;
    Save();
    EXPECT_EQ(SavedGui(), "QEN");
}

TEST_F(AxesConvPage, LowerCaseStandardSelectsTheStandardConventionAndIsWrittenBackAsSTANDARD) {
    Start("[SYSTEMPARAM]\r\nGUI=standard\r\n");
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(window_->Settings()->QenAxesConvention);
    window_->Settings()->SetColour(0, 1, 2, 3);
    window_->Settings()->Modified = true;
    Save();
    EXPECT_EQ(SavedGui(), "STANDARD");
}

TEST_F(AxesConvPage, ClickingTheStandardConventionThenSaveWritesSTANDARD) {
    Start(kQen);
    SwitchToPage();
    Standard()->click();
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(window_->Settings()->QenAxesConvention);
    EXPECT_TRUE(window_->Settings()->Modified);
    Save();
    EXPECT_EQ(SavedGui(), "STANDARD");
    EXPECT_TRUE(test::Exists(prefix_, "WZELKO.BAK"));
}

TEST_F(AxesConvPage, ClickingTheQenConventionThenSaveWritesQen) {
    Start(kStandard);
    SwitchToPage();
    Qen()->click();
    EXPECT_TRUE(QenOn());
    EXPECT_TRUE(window_->Settings()->QenAxesConvention);
    Save();
    EXPECT_EQ(SavedGui(), "QEN");
}

TEST_F(AxesConvPage, ClickingTheChosenConventionDoesNothingAndDoesNotSetModified) {
    Start(kQen);
    SwitchToPage();
    Qen()->click();
    EXPECT_TRUE(QenOn());
    EXPECT_FALSE(window_->Settings()->Modified);
    Save();
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(AxesConvPage, ClickingTheChosenStandardConventionDoesNothing) {
    Start(kStandard);
    SwitchToPage();
    Standard()->click();
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(window_->Settings()->Modified);
}

TEST_F(AxesConvPage, SwitchingToTheSheetShowsTheRecordAgain) {
    Start(kQen);
    window_->Settings()->QenAxesConvention = false;  // as a re-read of the files might
    SwitchToPage();
    ASSERT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_TRUE(StandardOn());
}

TEST_F(AxesConvPage, EnteringTheSheetDoesNotShowTheRecordAgain) {
    Start(kQen);
    window_->PageCtl()->SetActivePage(page_);  // no change event
    window_->findChild<QPushButton*>(QStringLiteral("pOK"))->setFocus(Qt::MouseFocusReason);
    window_->Settings()->QenAxesConvention = false;
    Standard()->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(Standard()->hasFocus());
    EXPECT_TRUE(QenOn());
}

TEST_F(AxesConvPage, OkOnTheAxesPageDoesNothing) {
    Start(kQen);
    SwitchToPage();
    window_->Settings()->QenAxesConvention = false;
    window_->pOKClick();
    EXPECT_TRUE(QenOn());  // not shown again
    EXPECT_FALSE(window_->Settings()->Modified);
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(AxesConvPage, LeavingAfterAClickAsksAndAnsweringNoShowsTheFilesConventionAgain) {
    Start(kQen);
    SwitchToPage();
    Standard()->click();
    script_.Answer(IDNO);
    window_->findChild<QAction*>(QStringLiteral("KestelGenConf_MecOff"))->trigger();
    EXPECT_EQ(script_.Count(), 1);
    EXPECT_TRUE(window_->Settings()->QenAxesConvention);
    EXPECT_TRUE(QenOn());
    EXPECT_EQ(prefix_.ReadWindowsFile("WZELKO.INI"), original_);
}

TEST_F(AxesConvPage, LeavingAfterAClickAndAnsweringYesWritesTheConvention) {
    Start(kQen);
    SwitchToPage();
    Standard()->click();
    script_.Answer(IDYES);
    window_->findChild<QAction*>(QStringLiteral("KestelGenConf_MecOff"))->trigger();
    EXPECT_EQ(SavedGui(), "STANDARD");
}

}  // namespace
}  // namespace wk
