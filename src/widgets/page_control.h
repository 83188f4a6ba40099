#pragma once
// A page control: a row of tabs over a stack of tab sheets, with the changing step the main
// window relies on.
//
// Before the user's switch to another sheet takes effect the changing hook is asked; when it
// refuses, the tab row stays on the current sheet and nothing else happens. The question is the
// same for every way a user can switch: a click on a tab, the arrow keys on the focused tab
// row, the mouse wheel over it, Ctrl+Tab / Ctrl+Shift+Tab and Ctrl+PageDown / Ctrl+PageUp from
// anywhere inside the control. After a user's switch Change is emitted. A switch made by the
// program (SetActivePage) asks nothing and emits no Change: the caller has already decided.
//
// SheetEnter reports the input focus moving, inside the window, from outside a sheet to a
// control on it, which is when the pages refresh themselves.

#include <QTabBar>
#include <QWidget>
#include <functional>

class QStackedWidget;

namespace wk {

class PageControl : public QWidget {
    Q_OBJECT

public:
    // Answers whether the active sheet may be left; asked before a user's switch.
    using ChangingHook = std::function<bool()>;

    explicit PageControl(QWidget* parent = nullptr);
    ~PageControl() override;

    // Appends a sheet with its tab caption; returns its index.
    //
    // A tab shows its caption without the caption's mnemonic: the captions are those of the
    // pages' menu entries, whose letters the entries keep, but a tab's letter would answer on
    // every page and take it from the page's own controls, which need nearly every letter
    // there is. The keyboard reaches the tabs through the menus, Ctrl+Tab, Ctrl+PageDown and
    // Ctrl+PageUp, and the arrow keys on the tab row.
    int AddSheet(QWidget* sheet, const QString& caption);
    void SetSheetCaption(QWidget* sheet, const QString& caption);
    // The caption the sheet was given, mnemonic and all.
    QString SheetCaption(QWidget* sheet) const;

    int SheetCount() const;
    QWidget* Sheet(int index) const;
    int IndexOf(QWidget* sheet) const;

    QWidget* ActivePage() const;
    // Shows the sheet without asking (nothing happens for a sheet that is not in the control).
    void SetActivePage(QWidget* sheet);

    void SetChangingHook(ChangingHook hook);

    // Told the index of a sheet about to be shown, before it is shown, whoever asked for it:
    // a sheet that stands in for a page not made yet is replaced (ReplaceSheet) here.
    using SheetPreparer = std::function<void(int index)>;
    void SetSheetPreparer(SheetPreparer preparer);
    // Puts `sheet` where `standIn` was: its tab, caption and place in the row stay as they are,
    // and so does which sheet is shown (the stand-in, if shown, gives way to `sheet`).
    // `standIn` is destroyed.
    void ReplaceSheet(QWidget* standIn, QWidget* sheet);

    QTabBar* TabBar() const;

signals:
    void Change();
    void SheetEnter(QWidget* sheet);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void OnTabBarCurrentChanged(int index);
    void ShowSheet(int index);
    void OnFocusChanged(QWidget* old, QWidget* now);
    QWidget* SheetContaining(QWidget* widget) const;

    QTabBar* tabBar_;
    QStackedWidget* stack_;
    ChangingHook changing_;
    SheetPreparer preparer_;
    // The tab row is put back when a switch is refused; that move is not a switch.
    bool revertingTab_ = false;
    bool programmaticSwitch_ = false;
    QMetaObject::Connection focusConnection_;
};

}  // namespace wk
