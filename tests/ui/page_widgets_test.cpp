// The editable combo box of the pages and the return of the focus into a refused field.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "page_checks.h"
#include "ui_test_support.h"
#include "widgets/edit_combo_box.h"
#include "widgets/edit_field.h"
#include "widgets/focus_return.h"
#include "widgets/radio_tab_stop.h"

namespace wk {
namespace {

// A window holding the widgets under test, shown and active, that notes the keys that reach
// it.
class Window : public QWidget {
public:
    Window() {
        auto* layout = new QVBoxLayout(this);
        first = new EditField(this);
        combo = new EditComboBox(this);
        combo->addItems({QStringLiteral("0.0001"), QStringLiteral("0.0005")});
        second = new EditField(this);
        layout->addWidget(first);
        layout->addWidget(combo);
        layout->addWidget(second);
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this, 2000);
    }
    std::vector<int> keys;
    EditComboBox* combo;
    EditField* first;
    EditField* second;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
};

TEST(EditComboBox, ATypedTextIsMarkedModifiedAndNeverJoinsTheListByItself) {
    Window window;
    window.combo->setFocus(Qt::TabFocusReason);
    window.combo->lineEdit()->selectAll();
    QTest::keyClicks(window.combo->lineEdit(), QStringLiteral("0.002"));
    EXPECT_TRUE(window.combo->IsModified());
    QTest::keyClick(window.combo, Qt::Key_Return);
    window.second->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(window.combo->count(), 2);
    EXPECT_EQ(window.combo->currentText(), QStringLiteral("0.002"));
}

TEST(EditComboBox, ShowTextSelectsTheMatchingItemAndClearsTheMark) {
    Window window;
    window.combo->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(window.combo->lineEdit(), QStringLiteral("9"));
    window.combo->ShowText(QStringLiteral("0.0005"));
    EXPECT_EQ(window.combo->currentIndex(), 1);
    EXPECT_FALSE(window.combo->IsModified());
    window.combo->ShowText(QStringLiteral("0.25"));
    EXPECT_EQ(window.combo->currentText(), QStringLiteral("0.25"));
    EXPECT_FALSE(window.combo->IsModified());
}

TEST(EditComboBox, EnterAndExitAreTheFocusMovingBetweenControlsNotTheListOpening) {
    Window window;
    QSignalSpy enter(window.combo, &EditComboBox::Enter);
    QSignalSpy exit(window.combo, &EditComboBox::Exit);
    window.first->setFocus(Qt::TabFocusReason);
    test::PressTab(window.first);
    EXPECT_EQ(enter.count(), 1);
    window.combo->showPopup();
    test::Settle();
    window.combo->hidePopup();
    test::Settle();
    EXPECT_EQ(exit.count(), 0);
    test::PressTab(window.combo);
    EXPECT_EQ(exit.count(), 1);
    EXPECT_TRUE(window.second->hasFocus());
}

TEST(EditComboBox, EnterAndEscapeWithTheListClosedAreTheWindows) {
    Window window;
    window.combo->setFocus(Qt::TabFocusReason);
    QTest::keyClick(window.combo, Qt::Key_Escape);
    QTest::keyClick(window.combo, Qt::Key_Return);
    EXPECT_EQ(window.keys, (std::vector<int>{Qt::Key_Escape, Qt::Key_Return}));
}

TEST(ReturnFocusLater, TheFieldGetsTheFocusBackOnceTheMoveIsOver) {
    Window window;
    window.first->setFocus(Qt::TabFocusReason);
    QObject::connect(window.first, &EditField::Exit, [&] { ReturnFocusLater(window.first); });
    test::PressTab(window.first);
    EXPECT_TRUE(window.combo->hasFocus());  // not in the middle of the move
    test::Settle();
    EXPECT_TRUE(window.first->hasFocus());
}

TEST(ReturnFocusLater, NotWhenTheUserHasMovedOnMeanwhile) {
    Window window;
    window.first->setFocus(Qt::TabFocusReason);
    ReturnFocusLater(window.first);
    window.second->setFocus(Qt::MouseFocusReason);
    test::Settle();
    EXPECT_TRUE(window.second->hasFocus());
}

TEST(ReturnFocusLater, NotWhileADialogIsOpenOverTheWindow) {
    Window window;
    window.second->setFocus(Qt::TabFocusReason);
    ReturnFocusLater(window.first);
    QDialog dialog(&window);
    auto* ok = new QPushButton(QStringLiteral("OK"), &dialog);
    dialog.setModal(true);
    dialog.show();
    dialog.activateWindow();
    (void)QTest::qWaitForWindowActive(&dialog, 2000);
    ok->setFocus();
    test::Settle();
    EXPECT_TRUE(ok->hasFocus());
    EXPECT_FALSE(window.first->hasFocus());
    dialog.close();
}

TEST(ReturnFocusLater, NotIntoAFieldThatCannotTakeIt) {
    Window window;
    window.second->setFocus(Qt::TabFocusReason);
    ReturnFocusLater(window.first);
    window.first->setEnabled(false);
    test::Settle();
    EXPECT_TRUE(window.second->hasFocus());
}

// An edit, then three radio buttons of one group.
class RadioWindow : public QWidget {
public:
    RadioWindow() {
        auto* layout = new QVBoxLayout(this);
        edit = new EditField(this);
        layout->addWidget(edit);
        for (QRadioButton*& button : buttons) {
            button = new QRadioButton(QStringLiteral("Choice"), this);
            layout->addWidget(button);
        }
        show();
        activateWindow();
        (void)QTest::qWaitForWindowActive(this, 2000);
    }
    // Where Tab from the edit lands.
    QWidget* TabFromEdit() {
        edit->setFocus(Qt::TabFocusReason);
        test::PressTab(edit);
        return QApplication::focusWidget();
    }
    EditField* edit;
    QRadioButton* buttons[3];
};

TEST(TabStopOnChecked, TabEntersTheGroupAtTheCheckedButton) {
    RadioWindow window;
    window.buttons[1]->setChecked(true);
    TabStopOnChecked({window.buttons[0], window.buttons[1], window.buttons[2]});
    EXPECT_EQ(window.TabFromEdit(), window.buttons[1]);
}

TEST(TabStopOnChecked, ACheckedButtonThatCannotBeUsedLeavesTheWayInToTheFirstUsableOne) {
    RadioWindow window;
    window.buttons[2]->setChecked(true);
    window.buttons[2]->setEnabled(false);
    window.buttons[0]->setEnabled(false);
    TabStopOnChecked({window.buttons[0], window.buttons[1], window.buttons[2]});
    EXPECT_EQ(window.TabFromEdit(), window.buttons[1]);
}

}  // namespace
}  // namespace wk
