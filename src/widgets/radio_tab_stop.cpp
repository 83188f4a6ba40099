#include "widgets/radio_tab_stop.h"

#include <QAbstractButton>

namespace wk {

void TabStopOnChecked(std::initializer_list<QAbstractButton*> group) {
    // A button that cannot be used cannot be the way in.
    const QAbstractButton* stop = nullptr;
    for (const QAbstractButton* button : group) {
        if (button->isChecked() && button->isEnabled()) stop = button;
    }
    for (const QAbstractButton* button : group) {
        if (stop == nullptr && button->isEnabled()) stop = button;
    }
    for (QAbstractButton* button : group) {
        const Qt::FocusPolicy policy = button->focusPolicy();
        button->setFocusPolicy(button == stop ? Qt::FocusPolicy(policy | Qt::TabFocus)
                                              : Qt::FocusPolicy(policy & ~Qt::TabFocus));
    }
}

}  // namespace wk
