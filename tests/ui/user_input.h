#pragma once
// More of what a user does with the controls of a page: a click on a check box's or a radio
// button's indicator, a choice from a combo box's list, a look at where the focus is.

#include <QString>
#include <vector>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace wk::test {

// A mouse click where the user clicks a check box or radio button: on its indicator (a push
// button in its middle). The focus moves to it, as it does for a user.
void ClickIndicator(QAbstractButton* button);

// Opens the list of `box` and clicks the item with `text`; false when the list has no such item.
bool ChooseFromList(QComboBox* box, const QString& text);

// The texts of a combo box's items.
std::vector<QString> Items(const QComboBox* box);

// Types `text` into the focused `widget` key by key. QTest types ASCII only; any other
// character arrives as the key event of a keyboard that has it (its text, no key code).
void TypeText(QWidget* widget, const QString& text);

// Lets the events queued so far run (deferred focus moves, repaints).
void Settle();

// The ampersand mnemonics (upper case letters) of the texts of every button, group box and
// label with a buddy on `page`, one entry per control that has one.
std::vector<QChar> Mnemonics(const QWidget* page);

}  // namespace wk::test
