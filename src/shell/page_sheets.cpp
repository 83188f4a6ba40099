#include "shell/page_sheets.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "widgets/page_control.h"

namespace wk {

PageSheets::PageSheets(std::span<const PageEntry> rows, PageHost& host, PageControl& control,
                       QWidget& window, Hooks hooks)
    : rows_(rows),
      host_(host),
      control_(control),
      window_(window),
      hooks_(std::move(hooks)),
      pages_(rows.size(), nullptr),
      sheets_(rows.size(), nullptr) {
    // A page about to be shown is made first, whoever asked for it to be shown.
    control_.SetSheetPreparer([this](int index) {
        const int row = RowOf(control_.Sheet(index));
        if (row >= 0) {
            Make(static_cast<std::size_t>(row));
        }
    });
}

PageSheets::~PageSheets() {
    Close();
}

void PageSheets::AddSheets() {
    const std::size_t start = StartRow();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (!rows_[row].factory) {
            continue;  // not built: absent from the page control
        }
        QWidget* sheet = nullptr;
        if (row == start) {
            std::unique_ptr<KestelPage> page = rows_[row].factory(host_);
            page->setObjectName(QString::fromLatin1(rows_[row].sheetName));
            pages_[row] = page.get();
            sheet = page.release();
        } else {
            sheet = new QWidget;
        }
        sheets_[row] = sheet;
        control_.AddSheet(sheet, QString::fromLatin1(rows_[row].designCaption));
    }
}

std::size_t PageSheets::StartRow() const {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].startPage && rows_[row].factory) {
            return row;
        }
    }
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].factory) {
            return row;
        }
    }
    return rows_.size();
}

int PageSheets::RowOf(const QWidget* sheet) const {
    for (std::size_t row = 0; sheet && row < sheets_.size(); ++row) {
        if (sheets_[row] == sheet) {
            return static_cast<int>(row);
        }
    }
    return -1;
}

void PageSheets::CaptionStandIns(const std::function<QString(int id)>& languageText) {
    // The caption a page gives its tab is its menu entry's language string.
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const int captionId = rows_[row].menu.captionId;
        if (sheets_[row] && !pages_[row] && captionId > 0) {
            const QString caption = languageText(captionId);
            if (!caption.isEmpty()) {
                control_.SetSheetCaption(sheets_[row], caption);
            }
        }
    }
}

void PageSheets::AwaitRemaining(bool idle) {
    if (AllMade() || closed_ || watching_) {
        return;
    }
    idle_ = idle;
    watching_ = true;
    QCoreApplication::instance()->installEventFilter(this);
}

void PageSheets::Close() {
    closed_ = true;
    StopWatching();
}

bool PageSheets::AllMade() const {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].factory && !pages_[row]) {
            return false;
        }
    }
    return true;
}

void PageSheets::Make(std::size_t row) {
    if (MakeOne(row)) {
        RoundDone();
    }
}

void PageSheets::MakeRemaining() {
    bool made = false;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        made = MakeOne(row) || made;
    }
    if (made) {
        RoundDone();
    }
}

bool PageSheets::MakeOne(std::size_t row) {
    if (closed_ || row >= rows_.size() || pages_[row] || !rows_[row].factory) {
        return false;
    }
    std::unique_ptr<KestelPage> made = rows_[row].factory(host_);
    KestelPage* page = made.get();
    page->setObjectName(QString::fromLatin1(rows_[row].sheetName));
    control_.ReplaceSheet(sheets_[row], made.release());
    sheets_[row] = page;
    pages_[row] = page;
    if (hooks_.pageMade) {
        hooks_.pageMade(*page);
    }
    return true;
}

void PageSheets::RoundDone() {
    if (hooks_.pagesMade) {
        hooks_.pagesMade();
    }
    if (AllMade()) {
        StopWatching();
    }
}

void PageSheets::StopWatching() {
    if (watching_) {
        watching_ = false;
        QCoreApplication::instance()->removeEventFilter(this);
    }
}

bool PageSheets::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Paint:
            // The window is being drawn with the start page: the other pages follow, all in the
            // next turn of the event loop, while the user looks at it.
            if (idle_ && window_.isAncestorOf(qobject_cast<QWidget*>(watched))) {
                idle_ = false;
                QTimer::singleShot(0, this, &PageSheets::MakeRemaining);
            }
            break;
        case QEvent::KeyPress:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TabletPress:
            // Before the user's first change every page is made, on the record as the files
            // gave it: a page made after an edit would start from the edited record, and show
            // what a page made at start-up would not.
            MakeRemaining();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace wk
