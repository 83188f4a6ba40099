#pragma once
// The pages of the main window, declared once: the page control, the menu, help, OK and the
// refresh rules all read this table.
//
// A page that is not built yet has no factory: its sheet is absent from the page control and
// its menu entry is disabled. A new page is added by writing its class and naming its factory
// in page_table.cpp.

#include <array>
#include <memory>

namespace wk {

class KestelPage;
class TKestelMainWind;

using PageFactory = std::unique_ptr<KestelPage> (*)(TKestelMainWind&);

// When the frame calls the page's load operation with refresh-all set.
enum class PageRefresh {
    OnEntry,           // when the focus enters the sheet
    OnEntryAndChange,  // on entry, and after the user switched to the sheet
    OnChange,          // only after the user switched to the sheet
    Never,
};

struct PageEntry {
    const char* sheetName;      // tab sheet, also the page's objectName
    const char* designCaption;  // the tab's caption until the page captions it
    const char* menuEntry;      // the menu entry that selects the sheet
    PageFactory factory;        // nullptr: not built
    int helpContext;
    bool hasStore;  // the page has a store operation, so OK and leaving the page store it
    PageRefresh refresh;
};

inline constexpr int kPageCount = 11;

// In tab order, which is also the order of initialisation at first activation.
const std::array<PageEntry, kPageCount>& PageTable();

// Help context when no page is active.
inline constexpr int kNoPageHelpContext = 15;

}  // namespace wk
