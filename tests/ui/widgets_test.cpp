// The edit semantics of the widgets the pages are built from.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "widgets/edit_field.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

// A window with two edit fields, counting their enters and exits.
struct TwoFields {
    QWidget window;
    EditField* first = new EditField(&window);
    EditField* second = new EditField(&window);
    int firstEnters = 0;
    int firstExits = 0;

    TwoFields() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(first);
        layout->addWidget(second);
        QObject::connect(first, &EditField::Enter, [this] { ++firstEnters; });
        QObject::connect(first, &EditField::Exit, [this] { ++firstExits; });
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window, 2000);
    }
};

TEST(EditField, ReportsEnterAndExitWhenTabMovesTheFocus) {
    TwoFields f;
    f.second->setFocus(Qt::MouseFocusReason);
    f.firstEnters = 0;
    f.firstExits = 0;
    QTest::keyClick(f.second, Qt::Key_Tab);  // wraps round to the first field
    ASSERT_TRUE(f.first->hasFocus());
    EXPECT_EQ(f.firstEnters, 1);
    QTest::keyClick(f.first, Qt::Key_Tab);
    EXPECT_TRUE(f.second->hasFocus());
    EXPECT_EQ(f.firstExits, 1);
}

TEST(EditField, ReportsExitWhenTheProgramMovesTheFocus) {
    TwoFields f;
    f.first->setFocus(Qt::MouseFocusReason);
    f.second->setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(f.firstExits, 1);
}

TEST(EditField, ReportsNoExitWhenTheWindowLosesActivation) {
    TwoFields f;
    f.first->setFocus(Qt::MouseFocusReason);
    QWidget other;
    other.show();
    other.activateWindow();
    (void)QTest::qWaitForWindowActive(&other, 2000);
    EXPECT_FALSE(f.window.isActiveWindow());
    EXPECT_EQ(f.firstExits, 0);
    // Coming back is no entry either.
    const int enters = f.firstEnters;
    f.window.activateWindow();
    (void)QTest::qWaitForWindowActive(&f.window, 2000);
    EXPECT_EQ(f.firstEnters, enters);
    EXPECT_EQ(f.firstExits, 0);
}

TEST(EditField, ReportsNoExitWhenAPopupOpens) {
    TwoFields f;
    f.first->setFocus(Qt::MouseFocusReason);
    QMenu popup;
    popup.addAction(QStringLiteral("entry"));
    popup.popup(f.first->mapToGlobal(QPoint(0, 0)));
    (void)QTest::qWaitForWindowExposed(&popup, 2000);
    popup.close();
    QApplication::processEvents();
    EXPECT_EQ(f.firstExits, 0);
}

TEST(EditField, TypingSetsTheModifiedMarkAndSetTextClearsIt) {
    TwoFields f;
    f.first->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(f.first->isModified());
    QTest::keyClicks(f.first, QStringLiteral("12"));
    EXPECT_TRUE(f.first->isModified());
    f.first->setText(QStringLiteral("5"));
    EXPECT_FALSE(f.first->isModified());
    // Leaving the field does not clear it: only the program's text does.
    QTest::keyClicks(f.first, QStringLiteral("3"));
    QTest::keyClick(f.first, Qt::Key_Tab);
    EXPECT_TRUE(f.first->isModified());
}

// A page control with three sheets, one edit field on each, and a changing step that answers
// from `allow` and counts how often it was asked.
struct ThreeSheets {
    QWidget window;
    PageControl* pages = new PageControl(&window);
    QWidget* sheets[3] = {new QWidget, new QWidget, new QWidget};
    EditField* edits[3];
    bool allow = true;
    int asked = 0;
    int changes = 0;
    std::vector<QWidget*> entered;

    ThreeSheets() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(pages);
        for (int i = 0; i < 3; ++i) {
            edits[i] = new EditField(sheets[i]);
            auto* sheetLayout = new QVBoxLayout(sheets[i]);
            sheetLayout->addWidget(edits[i]);
            pages->AddSheet(sheets[i], QStringLiteral("Sheet %1").arg(i));
        }
        pages->SetChangingHook([this] {
            ++asked;
            return allow;
        });
        QObject::connect(pages, &PageControl::Change, [this] { ++changes; });
        QObject::connect(pages, &PageControl::SheetEnter,
                         [this](QWidget* s) { entered.push_back(s); });
        window.resize(400, 300);
        window.show();
        window.activateWindow();
        (void)QTest::qWaitForWindowActive(&window, 2000);
    }

    void ClickTab(int index) {
        QTabBar* bar = pages->TabBar();
        QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(index).center());
    }
};

TEST(PageControl, ATabShowsItsCaptionWithoutTheMnemonicAndAltWithItsLetterDoesNotSwitch) {
    ThreeSheets t;
    t.pages->SetSheetCaption(t.sheets[1], QStringLiteral("&Machine && Head"));
    EXPECT_EQ(t.pages->TabBar()->tabText(1), QStringLiteral("Machine && Head"));
    EXPECT_EQ(t.pages->SheetCaption(t.sheets[1]), QStringLiteral("&Machine && Head"));
    t.edits[0]->setFocus(Qt::TabFocusReason);
    QTest::keyClick(t.edits[0], Qt::Key_M, Qt::AltModifier);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_EQ(t.asked, 0);
}

TEST(PageControl, RefusedClickOnATabKeepsTheSheet) {
    ThreeSheets t;
    t.allow = false;
    t.ClickTab(1);
    EXPECT_EQ(t.asked, 1);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_EQ(t.pages->TabBar()->currentIndex(), 0);
    EXPECT_EQ(t.changes, 0);
}

TEST(PageControl, AllowedClickOnATabSwitchesAndReportsTheChange) {
    ThreeSheets t;
    t.ClickTab(2);
    EXPECT_EQ(t.asked, 1);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[2]);
    EXPECT_EQ(t.changes, 1);
}

TEST(PageControl, RefusedCtrlTabFromAnEditFieldKeepsTheSheetAndTheEdit) {
    ThreeSheets t;
    t.allow = false;
    t.edits[0]->setFocus(Qt::MouseFocusReason);
    QTest::keyClicks(t.edits[0], QStringLiteral("7"));
    QTest::keyClick(t.edits[0], Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(t.asked, 1);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_TRUE(t.edits[0]->hasFocus());
    EXPECT_EQ(t.edits[0]->text(), QStringLiteral("7"));
    EXPECT_TRUE(t.edits[0]->isModified());
}

TEST(PageControl, CtrlTabAndCtrlShiftTabGoThroughTheChangingStep) {
    ThreeSheets t;
    t.edits[0]->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(t.edits[0], Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[1]);
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    QTest::keyClick(focused, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_EQ(t.asked, 2);
    EXPECT_EQ(t.changes, 2);
}

TEST(PageControl, RefusedArrowKeyOnTheTabRowKeepsTheSheet) {
    ThreeSheets t;
    t.allow = false;
    t.pages->TabBar()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(t.pages->TabBar(), Qt::Key_Right);
    EXPECT_EQ(t.asked, 1);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_EQ(t.pages->TabBar()->currentIndex(), 0);
    t.allow = true;
    QTest::keyClick(t.pages->TabBar(), Qt::Key_Right);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[1]);
}

TEST(PageControl, RefusedWheelOverTheTabRowKeepsTheSheet) {
    ThreeSheets t;
    t.allow = false;
    QTabBar* bar = t.pages->TabBar();
    const QPointF pos = bar->tabRect(0).center();
    QWheelEvent wheel(pos, bar->mapToGlobal(pos), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar, &wheel);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[0]);
    EXPECT_EQ(bar->currentIndex(), 0);
}

TEST(PageControl, SwitchByTheProgramAsksNothing) {
    ThreeSheets t;
    t.pages->SetActivePage(t.sheets[2]);
    EXPECT_EQ(t.asked, 0);
    EXPECT_EQ(t.changes, 0);
    EXPECT_EQ(t.pages->ActivePage(), t.sheets[2]);
    EXPECT_EQ(t.pages->TabBar()->currentIndex(), 2);
}

TEST(PageControl, FocusMovingOntoASheetIsAnEntry) {
    ThreeSheets t;
    QWidget* outside = new EditField(&t.window);
    t.window.layout()->addWidget(outside);
    outside->setFocus(Qt::MouseFocusReason);
    t.entered.clear();
    t.edits[0]->setFocus(Qt::TabFocusReason);
    ASSERT_EQ(t.entered.size(), 1u);
    EXPECT_EQ(t.entered[0], t.sheets[0]);
}

TEST(PageControl, FocusComingBackWithTheWindowIsNoEntry) {
    ThreeSheets t;
    t.edits[0]->setFocus(Qt::MouseFocusReason);
    t.entered.clear();
    QWidget other;
    other.show();
    other.activateWindow();
    (void)QTest::qWaitForWindowActive(&other, 2000);
    t.window.activateWindow();
    (void)QTest::qWaitForWindowActive(&t.window, 2000);
    EXPECT_TRUE(t.entered.empty());
}

TEST(PageControl, FocusComingBackFromTheMenuBarIsNoEntry) {
    ThreeSheets t;
    auto* bar = new QMenuBar(&t.window);
    bar->addMenu(QStringLiteral("&File"));
    bar->show();
    t.edits[0]->setFocus(Qt::MouseFocusReason);
    t.entered.clear();
    // What Alt does: the menu bar takes the keyboard, and gives it back when left.
    bar->setFocus(Qt::MenuBarFocusReason);
    ASSERT_TRUE(bar->hasFocus());
    t.edits[0]->setFocus(Qt::MenuBarFocusReason);
    EXPECT_TRUE(t.edits[0]->hasFocus());
    EXPECT_TRUE(t.entered.empty());
}

TEST(PageControl, SwitchingAwayFromTheFocusedSheetEntersTheNewSheet) {
    ThreeSheets t;
    t.edits[0]->setFocus(Qt::MouseFocusReason);
    t.entered.clear();
    t.ClickTab(1);
    EXPECT_TRUE(t.edits[1]->hasFocus());
    ASSERT_FALSE(t.entered.empty());
    EXPECT_EQ(t.entered.back(), t.sheets[1]);
}

TEST(PageControl, SwitchingSheetsEntersNoOtherControlOfTheNewSheetOnTheWay) {
    QWidget window;
    auto* pages = new PageControl(&window);
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(pages);
    auto* a = new QWidget;
    auto* edit = new EditField(a);
    (new QVBoxLayout(a))->addWidget(edit);
    auto* b = new QWidget;
    auto* first = new EditField(b);
    auto* second = new EditField(b);
    auto* bLayout = new QVBoxLayout(b);
    bLayout->addWidget(first);
    bLayout->addWidget(second);
    pages->AddSheet(a, QStringLiteral("A"));
    pages->AddSheet(b, QStringLiteral("B"));
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window, 2000);

    pages->SetActivePage(b);
    second->setFocus(Qt::MouseFocusReason);  // the control last focused on B
    pages->SetActivePage(a);
    edit->setFocus(Qt::MouseFocusReason);
    int secondEntered = 0;
    QObject::connect(second, &EditField::Enter, [&] { ++secondEntered; });
    pages->SetActivePage(b);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(secondEntered, 0);
}

}  // namespace
}  // namespace wk
