#pragma once
// The menu bar of the main window: File, General configuration, Element parameters, Other and
// Help. The page entries come from the table of pages, each in its popup at its position, with
// its captions and its rule for being shown; the frame's own entries (Save, Restore Backup,
// Exit, Index, About) are fixed here.

#include <span>
#include <vector>

#include "settings/controller_type.h"
#include "shell/page_host.h"

class QAction;
class QMenuBar;

namespace wk {

class MainMenu {
public:
    // Builds the popups and entries on `bar` with their design captions. A page without a
    // factory keeps its entry, disabled. `pages` must outlive the menu.
    MainMenu(QMenuBar& bar, std::span<const PageEntry> pages);

    QAction* Save() const { return save_; }
    QAction* Restore() const { return restore_; }
    QAction* Exit() const { return exit_; }
    QAction* HelpIndex() const { return helpIndex_; }
    QAction* About() const { return about_; }
    // The entry of the table's row `row`.
    QAction* PageAction(std::size_t row) const { return pageEntries_[row].action; }

    // Captions and hints from the language strings. Each page entry (and its separator) is shown
    // only when its rule allows it for the controller; a hidden entry keeps its design caption.
    void Caption(const ControllerFlags& flags);

private:
    struct Captioned {
        QAction* action;
        int captionId;
        int hintId;
    };
    struct PageEntryActions {
        QAction* action = nullptr;
        QAction* separator = nullptr;
    };

    std::span<const PageEntry> pages_;
    std::vector<Captioned> frameEntries_;  // popups and the frame's entries
    std::vector<PageEntryActions> pageEntries_;
    QAction* save_ = nullptr;
    QAction* restore_ = nullptr;
    QAction* exit_ = nullptr;
    QAction* helpIndex_ = nullptr;
    QAction* about_ = nullptr;
};

}  // namespace wk
