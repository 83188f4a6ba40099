#pragma once
// What a page of the main window sees of the window around it, and what the window asks of a
// page. This is the one header of src/shell that pages include; the window implements PageHost,
// and the table of pages (src/pages/page_table.cpp) is made of PageEntry rows.
//
// The page protocol: a page is the tab sheet itself. Its check boxes, radio buttons, combo boxes
// and buttons write into the settings record from their own handlers; its edit fields do so from
// their exit handlers, only when their text was modified. Every such change calls MarkModified.
// The frame drives the rest:
//   Initialise  once, at first activation: captions, list contents, first display, enabling;
//   Store       on OK, Save, a page switch, Exit and close: commit what the focused, modified
//               edit field holds, exactly as its exit handler would;
//   Load        on sheet entry, page change, Cancel, and after the user discarded changes:
//               refreshAll shows every value of the record again; without it only the edit in
//               progress is dealt with (each page says how).

#include <QString>
#include <QWidget>
#include <memory>
#include <string>

#include "platform/text_to_number.h"
#include "settings/controller_type.h"
#include "settings/setup_settings.h"

namespace wk {

// Which file-name edit the user entered last, across the pages whose browse buttons share one
// target (system parameters and start-up options). A page's browse button acts only when that
// edit is one of the page's own, so the page asks about each of its edits in turn.
class ActiveFileEdit {
public:
    // Called by the Enter handler of every file-name edit that takes part.
    void Enter(const QWidget* edit) { edit_ = edit; }
    bool Is(const QWidget* edit) const { return edit != nullptr && edit_ == edit; }

private:
    // Only compared, never used: it may be an edit of another page.
    const QWidget* edit_ = nullptr;
};

// The services of the window that the pages use.
class PageHost {
public:
    // The settings record. It exists for the host's whole life (on its defaults until start-up
    // has read the files), and it is always this one object: a page may keep the reference.
    virtual SetupSettings& Settings() = 0;
    // The controller flags start-up derived from the controller type.
    virtual const ControllerFlags& Flags() const = 0;
    // Language string `id`, fetched as every caller fetches it (at most 199 characters).
    virtual QString LanguageText(int id) const = 0;
    // Replaces the caption of the page's tab.
    virtual void SetSheetCaption(QWidget* sheet, const QString& caption) = 0;
    // Shows a text that is not a number as the application's default handler shows an error.
    virtual void ReportConversionError(const ConversionError& error) = 0;
    // The shared file-open dialog. Paths are texts as the settings files hold them (ANSI code
    // page, paths of the measuring application). True when a file was chosen; `path` is
    // unchanged otherwise.
    virtual bool BrowseForFile(std::string& path, const std::string& initialDir,
                               const std::string& ext, const std::string& description) = 0;
    // The file-name edit entered last on the pages that share one browse target.
    virtual ActiveFileEdit& ActiveFile() = 0;

    // The one way a page marks the record changed, so that the next page switch, Exit or close
    // asks whether to save.
    void MarkModified() { Settings().Modified = true; }

    // Runs a handler that converts text to numbers. A text that is not a number is reported and
    // the rest of the handler is skipped, so nothing is stored; the program goes on.
    template <typename Handler>
    void Converting(Handler&& handler) {
        try {
            handler();
        } catch (const ConversionError& error) {
            ReportConversionError(error);
        }
    }

protected:
    ~PageHost() = default;
};

class KestelPage : public QWidget {
    Q_OBJECT

public:
    explicit KestelPage(PageHost& host) : host_(host) {}

    virtual void Initialise() = 0;
    // A page whose controls all write the record at once has nothing to store.
    virtual void Store() {}
    virtual void Load(bool refreshAll) = 0;

protected:
    PageHost& host_;
};

using PageFactory = std::unique_ptr<KestelPage> (*)(PageHost&);

template <typename Page>
std::unique_ptr<KestelPage> MakePage(PageHost& host) {
    return std::make_unique<Page>(host);
}

// The popups of the menu bar that hold page entries.
enum class MenuPopup { GeneralConfiguration, ElementParameters, Other };

// Whether a page's menu entry is shown, decided once the controller type is known.
using MenuRule = bool (*)(const ControllerFlags&);

struct PageMenuEntry {
    const char* name;  // the entry's objectName, e.g. "KestelGenConf_MacPar"
    MenuPopup popup;
    int position;   // order within the popup
    int captionId;  // language string of the caption; 0: the entry keeps its design caption
    int hintId;     // language string of the hint shown in the status line; 0: none
    // A separator placed before the entry, shown and hidden with it (its objectName), or nullptr.
    const char* separatorBefore = nullptr;
    // nullptr: always shown; otherwise shown, and captioned, only when the rule allows.
    MenuRule shownFor = nullptr;
};

// One row of the table of pages.
struct PageEntry {
    const char* sheetName;  // tab sheet, also the page's objectName
    // The tab's caption until the page captions it; after a "&", the menu entry's caption
    // until the language strings caption it.
    const char* designCaption;
    PageFactory factory;  // nullptr: not built; no sheet, menu entry disabled
    int helpContext;
    bool storesOnOk;       // OK and leaving the page call Store
    bool refreshOnEntry;   // Load(true) when the focus enters the sheet
    bool refreshOnChange;  // Load(true) after the user switched to the sheet
    bool startPage;        // shown when start-up is done
    PageMenuEntry menu;
};

}  // namespace wk
