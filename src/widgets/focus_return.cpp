#include "widgets/focus_return.h"

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

namespace wk {

void ReturnFocusLater(QWidget* field) {
    if (field == nullptr) {
        return;
    }
    // The window's focus child survives a message box shown meanwhile: when the box closes,
    // the focus goes back to it.
    QPointer<QWidget> taker = field->window()->focusWidget();
    QPointer<QWidget> target = field;
    QTimer::singleShot(0, field, [target, taker] {
        if (!target || !target->isVisible() || !target->isEnabled()) {
            return;
        }
        if (target->window()->focusWidget() != taker.data()) {
            return;
        }
        QWidget* modal = QApplication::activeModalWidget();
        if (modal != nullptr && modal != target->window()) {
            return;
        }
        target->setFocus(Qt::OtherFocusReason);
    });
}

}  // namespace wk
