#include "widgets/contents_scroll_area.h"

#include <QEvent>

namespace wk {

ContentsScrollArea::ContentsScrollArea(QWidget* contents, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // Tab goes through the contents and never stops at the area itself.
    setFocusPolicy(Qt::NoFocus);
    setWidget(contents);  // which also has this area watch the contents' events
}

QSize ContentsScrollArea::Frame() const {
    return QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize ContentsScrollArea::minimumSizeHint() const {
    const QWidget* contents = widget();
    if (!contents) return QScrollArea::minimumSizeHint();
    return contents->minimumSizeHint().expandedTo(contents->minimumSize()) + Frame();
}

QSize ContentsScrollArea::sizeHint() const {
    const QWidget* contents = widget();
    if (!contents) return QScrollArea::sizeHint();
    return contents->sizeHint().expandedTo(minimumSizeHint() - Frame()) + Frame();
}

bool ContentsScrollArea::eventFilter(QObject* watched, QEvent* event) {
    // The contents' layout has changed (a control shown or hidden, a caption of another
    // length): the room they need may have changed with it, and the window must hear of it.
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace wk
