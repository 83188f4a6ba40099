#include "user_input.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

namespace wk::test {

namespace {

// The letter after a single '&' ("&&" is a literal ampersand), or a null QChar.
QChar MnemonicOf(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != QLatin1Char('&')) continue;
        if (text[i + 1] == QLatin1Char('&')) {
            ++i;
            continue;
        }
        return text[i + 1].toUpper();
    }
    return QChar();
}

}  // namespace

void ClickIndicator(QAbstractButton* button) {
    QPoint where = button->rect().center();
    QStyleOptionButton option;
    option.initFrom(button);
    if (qobject_cast<QCheckBox*>(button)) {
        where =
            button->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, button).center();
    } else if (qobject_cast<QRadioButton*>(button)) {
        where = button->style()
                    ->subElementRect(QStyle::SE_RadioButtonIndicator, &option, button)
                    .center();
    }
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, where);
}

bool ChooseFromList(QComboBox* box, const QString& text) {
    const int index = box->findText(text, Qt::MatchExactly);
    if (index < 0) return false;
    box->setFocus(Qt::MouseFocusReason);
    box->showPopup();
    QAbstractItemView* view = box->view();
    const QRect item = view->visualRect(view->model()->index(index, box->modelColumn()));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, item.center());
    Settle();
    if (view->isVisible()) box->hidePopup();
    return box->currentIndex() == index;
}

std::vector<QString> Items(const QComboBox* box) {
    std::vector<QString> items;
    for (int i = 0; i < box->count(); ++i) items.push_back(box->itemText(i));
    return items;
}

void TypeText(QWidget* widget, const QString& text) {
    for (const QChar c : text) {
        if (c.unicode() >= 0x20 && c.unicode() < 0x7F) {
            QTest::keyClick(widget, static_cast<char>(c.unicode()));
            continue;
        }
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(widget, &release);
    }
}

void Settle() {
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
}

std::vector<QChar> Mnemonics(const QWidget* page) {
    std::vector<QChar> letters;
    const auto add = [&letters](const QString& text) {
        const QChar letter = MnemonicOf(text);
        if (!letter.isNull()) letters.push_back(letter);
    };
    for (const QAbstractButton* button : page->findChildren<QAbstractButton*>()) {
        if (button->isVisibleTo(page)) add(button->text());
    }
    for (const QGroupBox* group : page->findChildren<QGroupBox*>()) {
        if (group->isVisibleTo(page)) add(group->title());
    }
    for (const QLabel* label : page->findChildren<QLabel*>()) {
        if (label->buddy() != nullptr && label->isVisibleTo(page)) add(label->text());
    }
    return letters;
}

}  // namespace wk::test
