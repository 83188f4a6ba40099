#include "widgets/edit_field.h"

#include <QFocusEvent>

namespace wk {

EditField::EditField(QWidget* parent) : QLineEdit(parent) {}

bool EditField::IsControlFocusMove(Qt::FocusReason reason) {
    switch (reason) {
        case Qt::MouseFocusReason:
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
        case Qt::OtherFocusReason:
            return true;
        case Qt::ActiveWindowFocusReason:  // another window (or a message box) took over
        case Qt::PopupFocusReason:         // a context menu or a combo box list opened
        case Qt::MenuBarFocusReason:       // Alt or F10 to the menu bar
        case Qt::NoFocusReason:
        default:
            return false;
    }
}

void EditField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (IsControlFocusMove(event->reason())) {
        emit Enter();
    }
}

void EditField::focusOutEvent(QFocusEvent* event) {
    // The base class first, so that the field no longer shows as focused while the exit
    // handler runs (it may show a message box).
    QLineEdit::focusOutEvent(event);
    if (IsControlFocusMove(event->reason())) {
        emit Exit();
    }
}

}  // namespace wk
