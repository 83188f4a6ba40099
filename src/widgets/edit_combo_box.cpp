#include "widgets/edit_combo_box.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "widgets/edit_field.h"

namespace wk {

EditComboBox::EditComboBox(QWidget* parent) : QComboBox(parent) {
    // Editable through a line edit of its own: setEditable would also build the list's popup
    // at once, which is only needed when the user opens it.
    setLineEdit(new QLineEdit(this));
    setInsertPolicy(QComboBox::NoInsert);
    // Typed values are numbers: completing them from the list would change what was typed.
    setCompleter(nullptr);
}

bool EditComboBox::IsModified() const {
    return lineEdit() != nullptr && lineEdit()->isModified();
}

void EditComboBox::ShowText(const QString& text) {
    const int index = findText(text, Qt::MatchExactly);
    if (index >= 0) {
        setCurrentIndex(index);
    }
    // setText also clears the modified mark, even when the text is the item's already.
    lineEdit()->setText(text);
}

void EditComboBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    if (IsExitOrEnter(event)) {
        emit Enter();
    }
}

// While the list is open the focus moves into it and about inside it: the user has not left
// the combo box.
bool EditComboBox::IsExitOrEnter(const QFocusEvent* event) const {
    return EditField::IsControlFocusMove(event->reason()) &&
           QApplication::activePopupWidget() == nullptr;
}

void EditComboBox::focusOutEvent(QFocusEvent* event) {
    // The exit handler first: on leaving, QComboBox itself selects the item that matches the
    // typed text (and reports it as chosen from the list), which would take the typed value
    // out of the exit handler's hands.
    if (IsExitOrEnter(event)) {
        emit Exit();
    }
    QComboBox::focusOutEvent(event);
}

}  // namespace wk

namespace wk {

void EditComboBox::keyPressEvent(QKeyEvent* event) {
    // (Asking the view would build the list's popup on the first key typed.)
    const bool listOpen = QApplication::activePopupWidget() != nullptr;
    const int key = event->key();
    const bool plain =
        event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (!listOpen && plain &&
        (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape)) {
        event->ignore();  // on to the window
        return;
    }
    QComboBox::keyPressEvent(event);
}

}  // namespace wk
