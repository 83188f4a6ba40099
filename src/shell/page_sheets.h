#pragma once
// The window's pages, by row of the page table: the start page made with the window, every other
// page standing in on its tab until it is made, a moment after the window was first drawn.
//
// Making every page costs more than starting Qt itself, and the user looks at the start page
// first: the window is on screen about a third sooner. The others are made in the window's
// first idle time after it has been drawn (all in one turn of the event loop, a few
// milliseconds, and one change of the window's size at most), at once when one of them is to be
// shown, and at the latest when the user first presses a key or a mouse button: before any
// change, so that each page starts from the record as the files gave it, as it would have if it
// had been made with the window.

#include <QObject>
#include <QString>
#include <functional>
#include <span>
#include <vector>

#include "shell/page_host.h"

class QWidget;

namespace wk {

class PageControl;

class PageSheets : public QObject {
    Q_OBJECT

public:
    struct Hooks {
        // A page was made after start-up had read the record: the window initialises it.
        std::function<void(KestelPage&)> pageMade;
        // A round of making pages is over: the window takes the room they need.
        std::function<void()> pagesMade;
    };

    // The sheets go into `control`, inside `window`, whose paints and input are watched.
    PageSheets(std::span<const PageEntry> rows, PageHost& host, PageControl& control,
               QWidget& window, Hooks hooks);
    ~PageSheets() override;

    // Adds a sheet for every row that has a page: the start page made, stand-ins for the rest.
    void AddSheets();
    // The row of the start page, or of the first page there is while it is not built; the
    // number of rows when there is no page at all.
    std::size_t StartRow() const;

    KestelPage* Page(std::size_t row) const { return pages_[row]; }
    // The page, or the stand-in of a page still to come; nullptr for a row without a page.
    QWidget* Sheet(std::size_t row) const { return sheets_[row]; }
    // The row of a page or of a stand-in; -1 for anything else.
    int RowOf(const QWidget* sheet) const;

    // The tabs of the pages still to come show the captions their pages will give them.
    void CaptionStandIns(const std::function<QString(int id)>& languageText);
    // From now on (start-up is done) the pages still to come are made: in the first idle time
    // after the window has been drawn when `idle`, and before the user's first key or button.
    void AwaitRemaining(bool idle);
    // No page is made any more: the window is going.
    void Close();

    bool AllMade() const;
    void Make(std::size_t row);
    void MakeRemaining();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool MakeOne(std::size_t row);
    void RoundDone();
    void StopWatching();

    std::span<const PageEntry> rows_;
    PageHost& host_;
    PageControl& control_;
    QWidget& window_;
    Hooks hooks_;
    std::vector<KestelPage*> pages_;  // nullptr for a page not made (yet)
    std::vector<QWidget*> sheets_;
    bool watching_ = false;
    bool idle_ = false;
    bool closed_ = false;
};

}  // namespace wk
