#pragma once
// The keyboard's way into a group of radio buttons.
//
// Tab stops once in a group of radio buttons and the arrow keys move within it. Qt settles
// which button holds the group's tab stop only when one of them receives the focus; until
// then Tab enters the group at its first button, whichever is checked. A page that checks a
// button from the record, or enables or disables buttons, calls this, so that Tab enters the
// group at the checked button (at the first usable one when that is not usable or none is
// checked), as it does once the user has been in the group.

#include <initializer_list>

class QAbstractButton;

namespace wk {

void TabStopOnChecked(std::initializer_list<QAbstractButton*> group);

}  // namespace wk
