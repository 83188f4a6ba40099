#include "widgets/page_control.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace wk {

PageControl::PageControl(QWidget* parent)
    : QWidget(parent), tabBar_(new QTabBar(this)), stack_(new QStackedWidget(this)) {
    tabBar_->setObjectName(QStringLiteral("PageControlTabs"));
    tabBar_->setDrawBase(true);
    tabBar_->setExpanding(false);
    tabBar_->setUsesScrollButtons(true);
    // The arrows that scroll a tab row too long for the window are for the mouse: the keyboard
    // moves along the tabs with the arrow keys, and Tab goes from the tabs into the page.
    for (QWidget* arrow : tabBar_->findChildren<QWidget*>()) {
        arrow->setFocusPolicy(Qt::NoFocus);
    }
    stack_->setFrameShape(QFrame::StyledPanel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(tabBar_);
    layout->addWidget(stack_, 1);

    connect(tabBar_, &QTabBar::currentChanged, this, &PageControl::OnTabBarCurrentChanged);
    focusConnection_ =
        connect(qApp, &QApplication::focusChanged, this, &PageControl::OnFocusChanged);
}

PageControl::~PageControl() {
    // Sheets are destroyed after this point; focus moves caused by that are not entries.
    disconnect(focusConnection_);
}

namespace {

// What a tab shows of a caption: the caption without the "&" of its mnemonic ("&&", a literal
// "&", stays as the tab row needs it).
QString TabText(const QString& caption) {
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == QLatin1Char('&') && i + 1 < caption.size()) {
            if (caption[i + 1] != QLatin1Char('&')) continue;
            text += caption[i++];
        }
        text += caption[i];
    }
    return text;
}

}  // namespace

int PageControl::AddSheet(QWidget* sheet, const QString& caption) {
    const int index = stack_->addWidget(sheet);
    revertingTab_ = true;  // the first tab becomes current: not a user's switch
    tabBar_->insertTab(index, TabText(caption));
    tabBar_->setTabData(index, caption);
    revertingTab_ = false;
    return index;
}

void PageControl::SetSheetCaption(QWidget* sheet, const QString& caption) {
    const int index = IndexOf(sheet);
    if (index >= 0) {
        tabBar_->setTabText(index, TabText(caption));
        tabBar_->setTabData(index, caption);
    }
}

QString PageControl::SheetCaption(QWidget* sheet) const {
    const int index = IndexOf(sheet);
    return index >= 0 ? tabBar_->tabData(index).toString() : QString();
}

int PageControl::SheetCount() const {
    return stack_->count();
}

QWidget* PageControl::Sheet(int index) const {
    return stack_->widget(index);
}

int PageControl::IndexOf(QWidget* sheet) const {
    return sheet ? stack_->indexOf(sheet) : -1;
}

QWidget* PageControl::ActivePage() const {
    return stack_->currentWidget();
}

void PageControl::SetActivePage(QWidget* sheet) {
    const int index = IndexOf(sheet);
    if (index < 0) {
        return;
    }
    programmaticSwitch_ = true;
    tabBar_->setCurrentIndex(index);
    programmaticSwitch_ = false;
    ShowSheet(index);
}

void PageControl::SetChangingHook(ChangingHook hook) {
    changing_ = std::move(hook);
}

void PageControl::SetSheetPreparer(SheetPreparer preparer) {
    preparer_ = std::move(preparer);
}

void PageControl::ReplaceSheet(QWidget* standIn, QWidget* sheet) {
    const int index = IndexOf(standIn);
    if (index < 0 || !sheet) {
        return;
    }
    const bool shown = stack_->currentIndex() == index;
    stack_->insertWidget(index, sheet);  // the stand-in moves one place on, behind it
    if (shown) {
        stack_->setCurrentIndex(index);
    }
    stack_->removeWidget(standIn);
    delete standIn;
}

QTabBar* PageControl::TabBar() const {
    return tabBar_;
}

void PageControl::OnTabBarCurrentChanged(int index) {
    if (revertingTab_ || programmaticSwitch_ || index < 0 || index == stack_->currentIndex()) {
        return;
    }
    // The tab row has moved but the sheet has not: the active sheet and its focused edit are
    // still what the changing step has to look at.
    if (changing_ && !changing_()) {
        revertingTab_ = true;
        tabBar_->setCurrentIndex(stack_->currentIndex());
        revertingTab_ = false;
        return;
    }
    ShowSheet(index);
    emit Change();
}

void PageControl::ShowSheet(int index) {
    if (index == stack_->currentIndex()) {
        return;
    }
    if (preparer_) {
        preparer_(index);
    }
    QWidget* old = stack_->currentWidget();
    QWidget* focus = QApplication::focusWidget();
    const bool focusWasOnSheet = old && focus && old->isAncestorOf(focus);
    if (focusWasOnSheet) {
        // Held by the tab row while the sheets change, so that the stack does not hand it to
        // the control last focused on the new sheet on the way: that control would be entered
        // and left at once, and its handlers would run for nothing.
        tabBar_->setFocus(Qt::OtherFocusReason);
    }
    stack_->setCurrentIndex(index);
    if (!focusWasOnSheet) {
        return;
    }
    // The focused control has gone out of sight with its sheet: the focus goes to the first
    // control of the new sheet, as it would on a Tab into it, or to the tab row.
    QWidget* sheet = stack_->currentWidget();
    for (QWidget* w = sheet->nextInFocusChain(); w && w != sheet; w = w->nextInFocusChain()) {
        if (!sheet->isAncestorOf(w)) {
            break;
        }
        if ((w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(sheet) && w->isEnabled()) {
            w->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
    tabBar_->setFocus(Qt::OtherFocusReason);
}

void PageControl::keyPressEvent(QKeyEvent* event) {
    const int count = tabBar_->count();
    if (count > 1 && (event->modifiers() & Qt::ControlModifier)) {
        int step = 0;
        switch (event->key()) {
            case Qt::Key_Tab:
            case Qt::Key_PageDown:
                step = (event->modifiers() & Qt::ShiftModifier) ? -1 : 1;
                break;
            case Qt::Key_Backtab:
            case Qt::Key_PageUp:
                step = -1;
                break;
            default:
                break;
        }
        if (step != 0) {
            // Skip disabled tabs, as the tab row's own keys do.
            int index = tabBar_->currentIndex();
            for (int i = 0; i < count; ++i) {
                index = (index + step + count) % count;
                if (tabBar_->isTabEnabled(index)) {
                    break;
                }
            }
            tabBar_->setCurrentIndex(index);  // through the changing step
            event->accept();
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

QWidget* PageControl::SheetContaining(QWidget* widget) const {
    if (!widget) {
        return nullptr;
    }
    for (int i = 0; i < stack_->count(); ++i) {
        QWidget* sheet = stack_->widget(i);
        if (sheet == widget || sheet->isAncestorOf(widget)) {
            return sheet;
        }
    }
    return nullptr;
}

void PageControl::OnFocusChanged(QWidget* old, QWidget* now) {
    // Only moves between controls of this window: focus coming back with the window's
    // activation (old is null) or from a closed message box or popup is no entry, and neither
    // is focus coming back from the menu bar, which holds it only while Alt or F10 walks the
    // menus (the field the user was typing in has not been left).
    if (!old || !now || old->window() != window() || now->window() != window() ||
        qobject_cast<QMenuBar*>(old)) {
        return;
    }
    QWidget* sheet = SheetContaining(now);
    if (sheet && sheet != SheetContaining(old)) {
        emit SheetEnter(sheet);
    }
}

}  // namespace wk
