// The window colours page: a window picked from the list, its colour shown as components,
// scroll bars, edits and the colour dialog changing the page's current colour, Set applying it.

#include "pages/win_color_page.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include "i18n/resgenstring.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::PressTab;
using test::SettingsFile;
using test::TypeInto;

// MAIN WINDOW grey, INIT WINDOW white, EXECUTION WINDOW light yellow, FUNCTION WINDOW dark
// blue; every later window has no key and keeps the components of the one before.
const char* const kColours =
    "[WINDOWS BACKGROUND]\r\nMAIN WINDOW=192,192,192\r\nINIT WINDOW=255,255,255\r\n"
    "EXECUTION WINDOW=255,255,224\r\nFUNCTION WINDOW=5,10,200\r\n";

class WinColorPage : public test::PageTest {
protected:
    void StartColours(const std::string& extraSections = kColours) {
        Start(SettingsFile(extraSections));
        page_ = dynamic_cast<TWinColorPage*>(Page("WinColorTabSheet"));
        ASSERT_NE(page_, nullptr);
    }
    // Shows the page as the program would (no change event, no question) and enters it, as
    // the user does with a click on its list: the page then shows the record (sheet entry).
    void ShowPage() const {
        window_->PageCtl()->SetActivePage(page_);
        List()->setFocus(Qt::TabFocusReason);
        QApplication::processEvents();
    }
    QScrollBar* Bar(const char* name) const { return Find<QScrollBar>(name); }
    QListWidget* List() const { return Find<QListWidget>("pLB_WinList"); }
    QColor Swatch() const { return Edit("pSLE_ShowColor")->palette().color(QPalette::Base); }
    QStringList Components() const {
        return {Edit("pSLE_RedColor")->text(), Edit("pSLE_GreenColor")->text(),
                Edit("pSLE_BlueColor")->text()};
    }
    std::uint32_t Entry(int index) const {
        return Record().ColourTable[static_cast<std::size_t>(index)].Colour;
    }
    void ClickRow(int row) const {
        QListWidget* list = List();
        const QRect rect = list->visualItemRect(list->item(row));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
    }
    std::string Saved(const char* key) const { return PageTest::Saved("WINDOWS BACKGROUND", key); }
    // Clicks "Colors palette >>" with the dialog's answer given in advance: `colour`, or Cancel.
    // `preset` receives the colour the dialog was opened with.
    void PickInDialog(QColor colour, bool accept, QColor* preset = nullptr) const {
        if (accept) {
            AnswerColour(colour);
        } else {
            CancelColour();
        }
        Click("pPB_ColorsPal");
        EXPECT_EQ(ColourAnswers().Runs(), 1);
        auto* dialog = Find<QColorDialog>("WinColorDialog");
        ASSERT_NE(dialog, nullptr);
        if (preset) *preset = dialog->currentColor();
    }
    static QStringList Rgb(int red, int green, int blue) {
        return {QString::asprintf("%03d", red), QString::asprintf("%03d", green),
                QString::asprintf("%03d", blue)};
    }

    TWinColorPage* page_ = nullptr;
};

TEST_F(WinColorPage, ControlsCarryTheirNamesAndTheMenuEntryIsEnabled) {
    StartColours();
    for (const char* name : {"pST_WinList", "pST_RedColor", "pST_GreenColor", "pST_BlueColor"}) {
        EXPECT_NE(Find<QLabel>(name), nullptr) << name;
    }
    for (const char* name : {"pHSB_Red", "pHSB_Green", "pHSB_Blue"}) {
        ASSERT_NE(Bar(name), nullptr) << name;
        EXPECT_EQ(Bar(name)->orientation(), Qt::Horizontal) << name;
    }
    for (const char* name : {"pSLE_RedColor", "pSLE_GreenColor", "pSLE_BlueColor"}) {
        EXPECT_NE(Edit(name), nullptr) << name;
    }
    EXPECT_TRUE(Edit("pSLE_ShowColor")->isReadOnly());
    EXPECT_NE(List(), nullptr);
    EXPECT_NE(Button("pPB_ColorsPal"), nullptr);
    EXPECT_NE(Button("pPB_SetCol"), nullptr);
    EXPECT_TRUE(Find<QAction>("KestelOther_WindowsColor")->isEnabled());
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(16));
}

TEST_F(WinColorPage, MenuEntryShowsThePage) {
    StartColours();
    Find<QAction>("KestelOther_WindowsColor")->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(window_->HelpContextOfPage(), 28);
}

TEST_F(WinColorPage, ListsTheTwentySixWindowsCaptionedByTheirLanguageStrings) {
    StartColours();
    const int captions[] = {365, 366, 367, 393, 368, 369, 370, 371, 372, 373, 374, 375, 376,
                            377, 378, 379, 380, 381, 382, 383, 384, 392, 394, 395, 396, 397};
    ASSERT_EQ(List()->count(), 26);
    for (int row = 0; row < 26; ++row) {
        EXPECT_EQ(List()->item(row)->text(), Language(captions[row])) << row;
    }
    EXPECT_EQ(List()->currentRow(), 0);
}

TEST_F(WinColorPage, ShowsTheFirstWindowsColourAsThreeDigitEditsBarsAndSwatch) {
    StartColours("[WINDOWS BACKGROUND]\r\nMAIN WINDOW=7,64,192\r\n");
    EXPECT_EQ(Components(), Rgb(7, 64, 192));
    EXPECT_EQ(Bar("pHSB_Red")->value(), 7);
    EXPECT_EQ(Bar("pHSB_Green")->value(), 64);
    EXPECT_EQ(Bar("pHSB_Blue")->value(), 192);
    EXPECT_EQ(Swatch(), QColor(7, 64, 192));
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    EXPECT_TRUE(Button("pPB_ColorsPal")->isEnabled());
}

TEST_F(WinColorPage, ScrollBarsRunFrom0To255InStepsOf1) {
    StartColours();
    for (const char* name : {"pHSB_Red", "pHSB_Green", "pHSB_Blue"}) {
        EXPECT_EQ(Bar(name)->minimum(), 0) << name;
        EXPECT_EQ(Bar(name)->maximum(), 255) << name;
        EXPECT_EQ(Bar(name)->pageStep(), 1) << name;
    }
}

TEST_F(WinColorPage, EmptyWindowsBackgroundSectionStillListsAll26WindowsWithBlue255Throughout) {
    StartColours("[WINDOWS BACKGROUND]\r\n");
    ShowPage();
    ASSERT_EQ(List()->count(), 26);
    for (int row = 0; row < 26; ++row) {
        ClickRow(row);
        EXPECT_EQ(Edit("pSLE_BlueColor")->text(), QStringLiteral("255")) << row;
        EXPECT_EQ(Components(), Rgb(255, 255, 255)) << row;
    }
}

TEST_F(WinColorPage, NoneInAnyCaseKeepsWhiteAndTheNextSaveWrites255255255) {
    StartColours(
        "[WINDOWS BACKGROUND]\r\nMAIN WINDOW=nOnE\r\nINIT WINDOW=1,2,3\r\n"
        "EXECUTION WINDOW=NONE\r\n");
    ShowPage();
    EXPECT_EQ(Components(), Rgb(255, 255, 255));
    ClickRow(2);
    EXPECT_EQ(Components(), Rgb(255, 255, 255));
    // Something else changes, so that Save writes.
    ClickRow(1);
    TypeAndLeave("pSLE_RedColor", QStringLiteral("4"));
    Button("pPB_SetCol")->click();
    Save();
    EXPECT_EQ(Saved("MAIN WINDOW"), "255,255,255");
    EXPECT_EQ(Saved("INIT WINDOW"), "4,2,3");
    EXPECT_EQ(Saved("EXECUTION WINDOW"), "255,255,255");
}

TEST_F(WinColorPage, Typing256IntoTheRedEditSetsRed0) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("256"));
    EXPECT_EQ(Components(), Rgb(0, 192, 192));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(0, 192, 192));
}

TEST_F(WinColorPage, Typing300InRedAndLeavingShows044EnablesSetAndMovesTheFocusThere) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("300"));
    EXPECT_EQ(Edit("pSLE_RedColor")->text(), QStringLiteral("044"));
    EXPECT_EQ(Swatch(), QColor(44, 192, 192));
    EXPECT_EQ(Bar("pHSB_Red")->value(), 44);
    EXPECT_TRUE(Button("pPB_SetCol")->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), Button("pPB_SetCol"));
    // Not applied yet: the entry and the record are as read.
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(WinColorPage, MinusOneInAComponentEditGives255WithoutAMessage) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_GreenColor", QStringLiteral("-1"));
    EXPECT_EQ(Components(), Rgb(192, 255, 192));
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(WinColorPage, HexadecimalTextIsAnIntegerToo) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_BlueColor", QStringLiteral("$1F"));
    EXPECT_EQ(Components(), Rgb(192, 192, 31));
}

TEST_F(WinColorPage, TextThatIsNotAnIntegerShowsTheConversionErrorAndKeepsTheCurrentColour) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("12a"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'12a' is not a valid integer value");
    EXPECT_EQ(script_.Shown()[0].type & 0xF0u, MB_ICONSTOP);
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_EQ(Swatch(), QColor(192, 192, 192));
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    EXPECT_FALSE(Record().Modified);
}

TEST_F(WinColorPage, LeavingAnUntouchedEditChangesNothingAndKeepsSetDisabled) {
    StartColours();
    ShowPage();
    Edit("pSLE_RedColor")->setFocus(Qt::MouseFocusReason);
    PressTab(Edit("pSLE_RedColor"));
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
}

TEST_F(WinColorPage, DraggingAScrollBarPaintsTheSwatchButLeavesTheCurrentColourAndTheEntry) {
    StartColours();
    ShowPage();
    QScrollBar* green = Bar("pHSB_Green");
    green->setSliderDown(true);
    green->setSliderPosition(40);
    EXPECT_EQ(Edit("pSLE_GreenColor")->text(), QStringLiteral("040"));
    EXPECT_EQ(Swatch(), QColor(192, 40, 192));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_EQ(page_->ActiveComponent(), TWinColorPage::kRedComponent);
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
}

TEST_F(WinColorPage, LettingGoOfTheThumbChangesTheCurrentColourButNotTheEntryUntilSet) {
    StartColours();
    ShowPage();
    QScrollBar* blue = Bar("pHSB_Blue");
    blue->setSliderDown(true);
    blue->setSliderPosition(17);
    blue->setSliderDown(false);
    EXPECT_EQ(Components(), Rgb(192, 192, 17));
    EXPECT_EQ(Swatch(), QColor(192, 192, 17));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(192, 192, 17));
    EXPECT_EQ(page_->ActiveComponent(), TWinColorPage::kBlueComponent);
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_FALSE(Record().Modified);
    // The bars alone do not enable Set.
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    Save();
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(WinColorPage, SteppingAScrollBarChangesTheCurrentColour) {
    StartColours();
    ShowPage();
    Bar("pHSB_Red")->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(Components(), Rgb(193, 192, 192));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(193, 192, 192));
}

TEST_F(WinColorPage, SetThenSaveWritesTheNewColour) {
    StartColours();
    ShowPage();
    ClickRow(2);  // EXECUTION WINDOW
    EXPECT_EQ(Components(), Rgb(255, 255, 224));
    TypeAndLeave("pSLE_GreenColor", QStringLiteral("10"));
    Button("pPB_SetCol")->click();
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    EXPECT_EQ(Entry(2), ColourSettings::MakeColour(255, 10, 224));
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("EXECUTION WINDOW"), "255,10,224");
    EXPECT_EQ(Saved("MAIN WINDOW"), "192,192,192");
    EXPECT_TRUE(Exists("WZELKO.BAK"));
}

TEST_F(WinColorPage, TabThenEnterAfterTypingAComponentAppliesIt) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("20"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(20, 192, 192));
    EXPECT_TRUE(Record().Modified);
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
}

TEST_F(WinColorPage, DraggingTheThumbWithTheMousePaintsTheSwatchAndLettingGoChangesTheColour) {
    StartColours();
    ShowPage();
    QScrollBar* red = Bar("pHSB_Red");
    QStyleOptionSlider option;
    option.initFrom(red);
    option.orientation = red->orientation();
    option.minimum = red->minimum();
    option.maximum = red->maximum();
    option.sliderPosition = red->sliderPosition();
    option.sliderValue = red->value();
    option.singleStep = red->singleStep();
    option.pageStep = red->pageStep();
    option.upsideDown = red->invertedAppearance();
    const QRect thumb = red->style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                     QStyle::SC_ScrollBarSlider, red);
    const QPoint from = thumb.center();
    const QPoint to = from - QPoint(40, 0);
    QTest::mousePress(red, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, to, red->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(red, &move);
    const int dragged = red->sliderPosition();
    ASSERT_LT(dragged, 192);
    EXPECT_EQ(Edit("pSLE_RedColor")->text(), QString::asprintf("%03d", dragged));
    EXPECT_EQ(Swatch(), QColor(dragged, 192, 192));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(192, 192, 192));
    QTest::mouseRelease(red, Qt::LeftButton, {}, to);
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(dragged, 192, 192));
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
}

TEST_F(WinColorPage, ScrollBarChangeThenEditThenSetAppliesTheWholeCurrentColour) {
    StartColours();
    ShowPage();
    Bar("pHSB_Red")->setValue(11);  // as a step or a release would
    TypeAndLeave("pSLE_BlueColor", QStringLiteral("33"));
    Button("pPB_SetCol")->click();
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(11, 192, 33));
}

TEST_F(WinColorPage, SwitchingRowsDropsAnUnappliedColourAndDisablesSet) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("1"));
    ASSERT_TRUE(Button("pPB_SetCol")->isEnabled());
    ClickRow(3);  // FUNCTION WINDOW
    EXPECT_EQ(Components(), Rgb(5, 10, 200));
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
    ClickRow(0);
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(WinColorPage, ClickingTheSelectedRowAgainDropsTheUnappliedColour) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("1"));
    ClickRow(0);
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
}

TEST_F(WinColorPage, ArrowKeysInTheListSelectTheNextWindow) {
    StartColours();
    ShowPage();
    List()->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(List(), Qt::Key_Down);
    EXPECT_EQ(page_->SelectedRow(), 1);
    EXPECT_EQ(Components(), Rgb(255, 255, 255));
}

TEST_F(WinColorPage, LaterWindowsWithoutAKeyTakeTheColourOfTheOneBefore) {
    StartColours();
    ShowPage();
    ClickRow(25);  // DATA INPUT WINDOW
    EXPECT_EQ(Components(), Rgb(5, 10, 200));
}

TEST_F(WinColorPage, ColourDialogIsPresetWithTheCurrentColourAndItsColourIsShown) {
    StartColours();
    ShowPage();
    QColor preset;
    PickInDialog(QColor(12, 34, 56), true, &preset);
    EXPECT_EQ(preset, QColor(192, 192, 192));
    EXPECT_EQ(Components(), Rgb(12, 34, 56));
    EXPECT_EQ(Swatch(), QColor(12, 34, 56));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(12, 34, 56));
}

TEST_F(WinColorPage, ColourDialogOffersSolidColoursOnly) {
    StartColours();
    ShowPage();
    PickInDialog(QColor(1, 2, 3), false);
    auto* dialog = Find<QColorDialog>("WinColorDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->testOption(QColorDialog::ShowAlphaChannel));
    EXPECT_FALSE(dialog->testOption(QColorDialog::NoButtons));
}

TEST_F(WinColorPage, ACancelledColourDialogKeepsTheCurrentColour) {
    StartColours();
    ShowPage();
    PickInDialog(QColor(1, 2, 3), false);
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
}

TEST_F(WinColorPage, AColourFromTheDialogDoesNotEnableSet) {
    StartColours();
    ShowPage();
    PickInDialog(QColor(12, 34, 56), true);
    EXPECT_FALSE(Button("pPB_SetCol")->isEnabled());
}

TEST_F(WinColorPage, AColourPickedOnlyInTheDialogIsLostOnARowChange) {
    StartColours();
    ShowPage();
    PickInDialog(QColor(12, 34, 56), true);
    ClickRow(1);
    ClickRow(0);
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
}

TEST_F(WinColorPage, AColourFromTheDialogIsAppliedAfterAComponentEditIsChangedAndLeftAndSet) {
    StartColours();
    ShowPage();
    PickInDialog(QColor(12, 34, 56), true);
    TypeAndLeave("pSLE_RedColor", QStringLiteral("13"));
    Button("pPB_SetCol")->click();
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(13, 34, 56));
}

TEST_F(WinColorPage, EnteringAComponentEditMakesItTheActiveHighlightedComponent) {
    StartColours();
    ShowPage();
    EXPECT_EQ(page_->ActiveComponent(), TWinColorPage::kRedComponent);
    EXPECT_TRUE(Find<QLabel>("pST_RedColor")->font().bold());
    Edit("pSLE_GreenColor")->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(page_->ActiveComponent(), TWinColorPage::kGreenComponent);
    EXPECT_TRUE(Find<QLabel>("pST_GreenColor")->font().bold());
    EXPECT_TRUE(Edit("pSLE_GreenColor")->font().bold());
    EXPECT_FALSE(Find<QLabel>("pST_RedColor")->font().bold());
    EXPECT_FALSE(Edit("pSLE_RedColor")->font().bold());
    EXPECT_NE(Find<QLabel>("pST_GreenColor")->palette().color(QPalette::WindowText),
              Find<QLabel>("pST_RedColor")->palette().color(QPalette::WindowText));
}

TEST_F(WinColorPage, SetAppliesToTheEntryWhoseIndexIsTheRowNumber) {
    StartColours();
    // A record whose FUNCTION WINDOW is not listed: row 3 then shows entry 4.
    Record().ColourTable[3].Listed = false;
    Record().ColourTable[4].Colour = ColourSettings::MakeColour(40, 40, 40);
    page_->Initialise();
    ShowPage();
    ASSERT_EQ(List()->count(), 25);
    ClickRow(3);
    EXPECT_EQ(Components(), Rgb(40, 40, 40));
    TypeAndLeave("pSLE_RedColor", QStringLiteral("99"));
    Button("pPB_SetCol")->click();
    EXPECT_EQ(Entry(3), ColourSettings::MakeColour(99, 40, 40));
    EXPECT_EQ(Entry(4), ColourSettings::MakeColour(40, 40, 40));
}

TEST_F(WinColorPage, NoListedEntryDisablesTheListBarsEditsLabelsAndBothButtons) {
    StartColours();
    for (ColourEntry& entry : Record().ColourTable) entry.Listed = false;
    page_->Initialise();
    EXPECT_EQ(List()->count(), 0);
    for (const char* name :
         {"pLB_WinList", "pST_WinList", "pST_RedColor", "pST_GreenColor", "pST_BlueColor",
          "pHSB_Red", "pHSB_Green", "pHSB_Blue", "pSLE_RedColor", "pSLE_GreenColor",
          "pSLE_BlueColor", "pPB_ColorsPal", "pPB_SetCol"}) {
        EXPECT_FALSE(Find<QWidget>(name)->isEnabled()) << name;
    }
    // The first entry's colour is still shown.
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
}

TEST_F(WinColorPage, ASpareEntryHasATableSlotButNoRow) {
    StartColours("[WINDOWS BACKGROUND]\r\nDATA INPUT WINDOW=1,2,3\r\n");
    EXPECT_TRUE(Record().ColourTable[29].Listed);
    EXPECT_EQ(List()->count(), 26);
}

TEST_F(WinColorPage, EnteringTheSheetShowsTheSelectedEntrysColourAgain) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("1"));  // unapplied
    window_->findChild<QPushButton*>(QStringLiteral("pOK"))->setFocus(Qt::MouseFocusReason);
    Record().SetColour(0, 9, 8, 7);  // as another part of the record might
    Edit("pSLE_GreenColor")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Components(), Rgb(9, 8, 7));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(9, 8, 7));
}

TEST_F(WinColorPage, SwitchingToTheSheetShowsTheSelectedEntrysColourAgain) {
    StartColours();
    Record().SetColour(0, 9, 8, 7);
    QTabBar* tabs = window_->PageCtl()->TabBar();
    tabs->setCurrentIndex(window_->PageCtl()->IndexOf(page_));  // as the user's click
    ASSERT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(Components(), Rgb(9, 8, 7));
    EXPECT_EQ(Swatch(), QColor(9, 8, 7));
}

TEST_F(WinColorPage, OkCommitsTheFocusedEditToTheCurrentColourOnly) {
    StartColours();
    ShowPage();
    TypeInto(Edit("pSLE_BlueColor"), QStringLiteral("5"));
    window_->pOKClick();
    EXPECT_EQ(Components(), Rgb(192, 192, 5));
    EXPECT_TRUE(Button("pPB_SetCol")->isEnabled());
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(WinColorPage, SaveCommitsTheFocusedEditButAppliesNothing) {
    StartColours();
    ShowPage();
    TypeInto(Edit("pSLE_BlueColor"), QStringLiteral("5"));
    Save();
    EXPECT_EQ(Components(), Rgb(192, 192, 5));
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(WinColorPage, CancelShowsTheOtherEditsAgainButKeepsTheOneBeingTyped) {
    StartColours();
    ShowPage();
    Edit("pSLE_RedColor")->setText(QStringLiteral("77"));  // not typed: no modified mark
    TypeInto(Edit("pSLE_GreenColor"), QStringLiteral("6"));
    Click("pCancel");
    EXPECT_EQ(Components(),
              (QStringList{QStringLiteral("192"), QStringLiteral("6"), QStringLiteral("192")}));
    EXPECT_EQ(page_->CurrentColour(), ColourSettings::MakeColour(192, 192, 192));
}

TEST_F(WinColorPage, AnsweringNoOnLeavingThePageReReadsTheFilesAndShowsTheReadColour) {
    StartColours();
    ShowPage();
    TypeAndLeave("pSLE_RedColor", QStringLiteral("1"));
    Button("pPB_SetCol")->click();
    script_.Answer(IDNO);
    Find<QAction>("KestelGenConf_MecOff")->trigger();
    EXPECT_EQ(script_.Count(), 1);
    EXPECT_EQ(Entry(0), ColourSettings::MakeColour(192, 192, 192));
    EXPECT_EQ(Components(), Rgb(192, 192, 192));
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(WinColorPage, ClosingTheProgramWithATypedComponentRunsNoHandler) {
    StartColours();
    ShowPage();
    TypeInto(Edit("pSLE_RedColor"), QStringLiteral("12a"));
    window_.reset();
    EXPECT_EQ(script_.Count(), 0);
}

}  // namespace
}  // namespace wk
