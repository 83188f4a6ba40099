#pragma once
// A combo box whose list can be chosen from and whose text can be typed, with the edit
// semantics of EditField: Enter and Exit report the input focus moving between the controls of
// one window (not the list popping up, not the window losing activation), and the typed text
// carries the line edit's modified mark (typing sets it, showing a value clears it).
//
// The typed text is never added to the list by the combo box itself: the page decides whether
// and where a typed value joins the list. Enter and Escape, with the list closed, are the
// window's (its default and cancel buttons), as in an edit field.

#include <QComboBox>

namespace wk {

class EditComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit EditComboBox(QWidget* parent = nullptr);

    // The typed text has changed since it was last shown.
    bool IsModified() const;
    // Shows `text` as the combo box's text and clears the modified mark.
    void ShowText(const QString& text);

signals:
    void Enter();
    void Exit();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool IsExitOrEnter(const QFocusEvent* event) const;
};

}  // namespace wk
