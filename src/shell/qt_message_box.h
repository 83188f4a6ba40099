#pragma once
// Shows wk::MessageBoxA as a Qt message box.
//
// The owner passed to MessageBoxA by the window code is always a QWidget*. A null owner gives a
// box of its own, not tied to a window: the messages shown before any window is up (a language
// library that cannot be read) need that.

#include "platform/message_box.h"

class QWidget;

namespace wk {

// The presenter the main window installs. A distinct type, so that the window can tell on
// its way out whether the presenter in place is still its own.
struct QtMessageBoxPresenter {
    int operator()(const MessageBoxRequest& request) const;
};

}  // namespace wk
