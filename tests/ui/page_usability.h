#pragma once
// What makes a page usable by anyone, checked the same way on every page of the window: a
// screen reader names every control after its caption, the mnemonics of the page clash neither
// with each other nor with the window's tabs and menus, Tab walks every control in reading
// order, and at any size of the window no control covers another and no caption is cut.
//
// Each check returns its findings, one line each (empty when the page passes), so that a test
// shows everything that is wrong with a page at once.

#include <QStringList>
#include <string>
#include <vector>

class QWidget;

namespace wk {
class TKestelMainWind;
}

namespace wk::test {

// The controls of `page` a user works with (buttons, check boxes, radio buttons, lists, edits,
// combo boxes, scroll bars, spin boxes, group boxes), in the page's focus-chain order; not the
// parts Qt builds inside them (a list's scroll bars, a combo box's edit) and nothing of a
// dialog the page owns.
std::vector<QWidget*> UserControls(const QWidget* page);

// A caption as a screen reader says it: without its mnemonic mark, blanks around it and a
// closing colon ("&Data :" is "Data").
QString Spoken(const QString& caption);

// The letter of a caption's mnemonic, in lower case, or a null QChar.
QChar MnemonicOf(const QString& caption);

// Every control has an accessible name, and it is its caption: a button's or group box's own
// text, for any other control the text of the label whose buddy it is.
std::vector<std::string> UnnamedControls(const QWidget* page);

// The captions of the window whose mnemonics work wherever the focus is: every tab and every
// popup of the menu bar.
QStringList WindowMnemonicCaptions(const TKestelMainWind& window);

// The mnemonics of the page's captions (buttons, group boxes, labels; shown or hidden) are
// unique on the page and differ from those of `windowCaptions`; a label with a mnemonic has a
// buddy to go to.
std::vector<std::string> MnemonicClashes(const QWidget* page, const QStringList& windowCaptions);

// Presses Tab from the window's tab row on, as a user does: the first Tab enters `page` (the
// active page of `window`), further ones reach each of its shown, enabled controls exactly once
// (a group of radio buttons once, at its chosen one) before the focus leaves it for OK; no step
// goes back up to the left, and no group box is left and entered again.
std::vector<std::string> TabOrderProblems(TKestelMainWind& window, QWidget* page);

// At the window's present size: every shown control and caption of the page lies inside the
// page, is at least as large as its minimum size hint and shows its whole caption, and no two
// of them overlap.
std::vector<std::string> LayoutProblems(const QWidget* page);

}  // namespace wk::test
