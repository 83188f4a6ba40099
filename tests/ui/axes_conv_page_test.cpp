// The axes convention page: two picture buttons, the chosen convention "on".

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QToolButton>

#include "i18n/resgenstring.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::SettingsFile;

class AxesConvPage : public test::PageTest {
protected:
    void StartAxes(const std::string& extraSections) {
        Start(SettingsFile(extraSections));
        page_ = Page("AxesConvTabSheet");
        ASSERT_NE(page_, nullptr);
    }
    QToolButton* Qen() const { return Find<QToolButton>("pGB_QenAxes"); }
    QToolButton* Standard() const { return Find<QToolButton>("pGB_KVAxes"); }
    QLabel* Picture(const char* name) const { return Label(name); }
    // Whether the button's glyph is the picture of the hidden image `name`.
    bool Shows(QToolButton* button, const char* name) const {
        const QPixmap picture = Picture(name)->pixmap();
        return !picture.isNull() &&
               button->icon().pixmap(picture.size()).toImage() == picture.toImage();
    }
    // The chosen convention's button shows its "on" picture and is down, the other its "off"
    // picture, up.
    bool QenOn() const {
        return Shows(Qen(), "QenAxesOn") && Shows(Standard(), "VKAxesOff") && Qen()->isChecked() &&
               !Standard()->isChecked();
    }
    bool StandardOn() const {
        return Shows(Qen(), "QenAxesOff") && Shows(Standard(), "VKAxesOn") && !Qen()->isChecked() &&
               Standard()->isChecked();
    }
    // Shows the page as the user does, with a click on its tab.
    void SwitchToPage() const {
        window_->PageCtl()->TabBar()->setCurrentIndex(window_->PageCtl()->IndexOf(page_));
    }
    std::string SavedGui() const { return Saved("SYSTEMPARAM", "GUI"); }

    KestelPage* page_ = nullptr;
};

const char* const kQen = "[SYSTEMPARAM]\r\nGUI=QEN\r\n";
const char* const kStandard = "[SYSTEMPARAM]\r\nGUI=STANDARD\r\n";

TEST_F(AxesConvPage, ControlsCarryTheirNamesAndThePicturesAreHidden) {
    StartAxes(kQen);
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
    StartAxes(kQen);
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(19));
    EXPECT_EQ(Qen()->toolTip(), Language(39));
    EXPECT_EQ(Standard()->toolTip(), Language(40));
}

TEST_F(AxesConvPage, MenuEntryIsEnabledAndShowsThePage) {
    StartAxes(kQen);
    auto* entry = window_->findChild<QAction*>(QStringLiteral("KestelOther_AxesConvention"));
    ASSERT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(window_->HelpContextOfPage(), 32);
}

TEST_F(AxesConvPage, QenInTheFileShowsTheQenButtonOn) {
    StartAxes(kQen);
    EXPECT_TRUE(QenOn());
    EXPECT_FALSE(StandardOn());
}

TEST_F(AxesConvPage, StandardInTheFileShowsTheStandardButtonOn) {
    StartAxes(kStandard);
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(QenOn());
}

TEST_F(AxesConvPage, NoGuiKeyShowsTheQenButtonOnAndTheNextSaveWritesQen) {
    StartAxes("[SYSTEMPARAM]\r\nCALIB=1\r\n");
    EXPECT_TRUE(QenOn());
    // Something changes elsewhere in the record, so that Save writes.
    Record().SetColour(0, 1, 2, 3);
    Record().Modified = true;
    Save();
    EXPECT_EQ(SavedGui(), "QEN");
}

TEST_F(AxesConvPage, LowerCaseStandardSelectsTheStandardConventionAndIsWrittenBackAsSTANDARD) {
    StartAxes("[SYSTEMPARAM]\r\nGUI=standard\r\n");
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(Record().QenAxesConvention);
    Record().SetColour(0, 1, 2, 3);
    Record().Modified = true;
    Save();
    EXPECT_EQ(SavedGui(), "STANDARD");
}

TEST_F(AxesConvPage, ClickingTheStandardConventionThenSaveWritesSTANDARD) {
    StartAxes(kQen);
    SwitchToPage();
    Standard()->click();
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(Record().QenAxesConvention);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(SavedGui(), "STANDARD");
    EXPECT_TRUE(Exists("WZELKO.BAK"));
}

TEST_F(AxesConvPage, ClickingTheQenConventionThenSaveWritesQen) {
    StartAxes(kStandard);
    SwitchToPage();
    Qen()->click();
    EXPECT_TRUE(QenOn());
    EXPECT_TRUE(Record().QenAxesConvention);
    Save();
    EXPECT_EQ(SavedGui(), "QEN");
}

TEST_F(AxesConvPage, ClickingTheChosenConventionDoesNothingAndDoesNotSetModified) {
    StartAxes(kQen);
    SwitchToPage();
    Qen()->click();
    EXPECT_TRUE(QenOn());
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(AxesConvPage, ClickingTheChosenStandardConventionDoesNothing) {
    StartAxes(kStandard);
    SwitchToPage();
    Standard()->click();
    EXPECT_TRUE(StandardOn());
    EXPECT_FALSE(Record().Modified);
}

TEST_F(AxesConvPage, SwitchingToTheSheetShowsTheRecordAgain) {
    StartAxes(kQen);
    Record().QenAxesConvention = false;  // as a re-read of the files might
    SwitchToPage();
    ASSERT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_TRUE(StandardOn());
}

TEST_F(AxesConvPage, EnteringTheSheetDoesNotShowTheRecordAgain) {
    StartAxes(kQen);
    window_->PageCtl()->SetActivePage(page_);  // no change event
    window_->findChild<QPushButton*>(QStringLiteral("pOK"))->setFocus(Qt::MouseFocusReason);
    Record().QenAxesConvention = false;
    Standard()->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(Standard()->hasFocus());
    EXPECT_TRUE(QenOn());
}

TEST_F(AxesConvPage, OkOnTheAxesPageDoesNothing) {
    StartAxes(kQen);
    SwitchToPage();
    Record().QenAxesConvention = false;
    window_->pOKClick();
    EXPECT_TRUE(QenOn());  // not shown again
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(AxesConvPage, LeavingAfterAClickAsksAndAnsweringNoShowsTheFilesConventionAgain) {
    StartAxes(kQen);
    SwitchToPage();
    Standard()->click();
    script_.Answer(IDNO);
    window_->findChild<QAction*>(QStringLiteral("KestelGenConf_MecOff"))->trigger();
    EXPECT_EQ(script_.Count(), 1);
    EXPECT_TRUE(Record().QenAxesConvention);
    EXPECT_TRUE(QenOn());
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(AxesConvPage, LeavingAfterAClickAndAnsweringYesWritesTheConvention) {
    StartAxes(kQen);
    SwitchToPage();
    Standard()->click();
    script_.Answer(IDYES);
    window_->findChild<QAction*>(QStringLiteral("KestelGenConf_MecOff"))->trigger();
    EXPECT_EQ(SavedGui(), "STANDARD");
}

}  // namespace
}  // namespace wk
