#pragma once
// An edit field with the edit semantics the pages were written for.
//
// Enter and Exit report the input focus moving between the controls of one window: by Tab,
// by a click, by a shortcut or because the program moved it. The window losing activation,
// a popup menu opening or the menu bar taking the keyboard are not exits: the user has not
// left the field, and its exit handler (which validates and stores) must not run then.
//
// The modified mark is QLineEdit's own: typing sets it, setText() clears it, which is exactly
// the mark the exit handlers and the pages' store and load look at.

#include <QLineEdit>

namespace wk {

class EditField : public QLineEdit {
    Q_OBJECT

public:
    explicit EditField(QWidget* parent = nullptr);

    // True for a focus move that the pages treat as entering or leaving a control.
    static bool IsControlFocusMove(Qt::FocusReason reason);

signals:
    void Enter();
    void Exit();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace wk
