#pragma once
// TKestelMainWind: the editor's one window.
//
// A menu bar over a page control of the settings pages, OK and Cancel beside it and the
// status line pBottBar below. The window owns the settings record and the pages, runs the
// start-up sequence on its first activation, and is the frame around the pages: which page is
// shown, when a page's edits reach the record, when the user is asked whether to save, when
// the files are written, help by page and the about box.

#include <QCursor>
#include <QMainWindow>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "platform/text_to_number.h"
#include "settings/controller_type.h"
#include "settings/setup_settings.h"
#include "shell/page_table.h"
#include "upgrade/upgrade_settings.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QFileDialog;
class QColorDialog;

namespace wk {

class KestelPage;
class PageControl;

class TKestelMainWind : public QMainWindow, public UpgradeProgress {
    Q_OBJECT

public:
    // `commandLine` holds the program's own path and its arguments, as argv does.
    explicit TKestelMainWind(std::vector<std::string> commandLine, QWidget* parent = nullptr);
    ~TKestelMainWind() override;

    // The start-up sequence; runs on the window's first activation. True when the pages are
    // ready, false when start-up failed (the application has then been asked to end).
    bool FirstActivation();

    // Stores the active page's edit in progress and, when the record has changed, asks whether
    // to save (or saves at once with saveWithoutAsking). True to go on, false to stay.
    bool ApplyCurrentPage(bool saveWithoutAsking);

    // The help context of the active page (15 when there is none).
    int HelpContextOfPage() const;

    // The shared file-open dialog. Paths are texts as the settings files hold them (ANSI
    // code page, paths of the measuring application): the initial directory is shown on the
    // host, and the chosen file is given back as the measuring application's path when a
    // drive of the Wine prefix reaches it. True when a file was chosen; `path` is unchanged
    // otherwise.
    bool BrowseForFile(std::string& path, const std::string& initialDir, const std::string& ext,
                       const std::string& description);

    // The shared colour dialog (the window colours page presets and runs it), made on first
    // use: solid colours only, no help button (Qt's colour dialog has none).
    QColorDialog* WinColorDialog();

    // Services for the pages.
    SetupSettings* Settings() const { return settings_.get(); }
    const ControllerFlags& Flags() const { return flags_; }
    // A language string (maximum length 200), ready for a control.
    QString LanguageText(int id) const;
    void SetSheetCaption(QWidget* sheet, const QString& caption);
    // Runs a handler that converts text to numbers; a text that is not a number is reported
    // as the application's default handler reports an exception, and the rest of the handler
    // is skipped.
    template <typename Handler>
    void Converting(Handler&& handler);

    // State the tests and tools look at.
    bool UpgradeRequested() const { return upgradeRequested_; }
    bool TerminationRequested() const { return terminationRequested_; }
    // The start-up sequence failed (no language library, no settings file): the program
    // ends, and its exit status says so.
    bool StartupFailed() const { return startupFailed_; }
    bool Ready() const { return ready_; }
    PageControl* PageCtl() const { return pageControl_; }
    KestelPage* Page(const char* sheetName) const;
    const std::string& ControllerType() const { return controllerType_; }

    // The window during the settings-file upgrade: only the status line shows, with the
    // hourglass; the message loop does not run, so the window is repainted at once.
    void Prepare(const std::string& statusText) override;
    void Finish() override;

signals:
    // The application is asked to end; it does so when control returns to the event loop.
    void TerminateRequested();

public slots:
    void KestelFile_SaveClick();
    void KestelFile_ExitClick();
    void KestelHelp_IndexClick();
    void KestelHelp_AboutClick();
    void pOKClick();
    void pCancelClick();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildMenu();
    void BuildFrame();
    void CaptionMenus();
    void SettingsFilePresenceCheck();
    void ApplicationTerminate();
    bool FormCloseQuery();
    void SelectPageFromMenu(int pageIndex);
    bool KestelPageControlChanging();
    void KestelPageControlChange();
    void SheetEnter(QWidget* sheet);
    int ActivePageIndex() const;
    KestelPage* ActivePage() const;
    void ShowConversionError(const std::exception& error);
    QAction* MenuAction(const char* name) const;

    std::vector<std::string> commandLine_;
    bool upgradeRequested_ = false;
    ControllerFlags flags_{};
    std::unique_ptr<SetupSettings> settings_;
    std::string controllerType_;

    bool activated_ = false;
    bool ready_ = false;
    bool terminationRequested_ = false;
    bool startupFailed_ = false;
    bool destroying_ = false;
    bool languageLoaded_ = false;

    PageControl* pageControl_ = nullptr;
    QPushButton* pOK_ = nullptr;
    QPushButton* pCancel_ = nullptr;
    QLabel* pBottBar_ = nullptr;
    QFileDialog* openFileDialog_ = nullptr;   // made on first use
    QColorDialog* winColorDialog_ = nullptr;  // made on first use
    std::array<KestelPage*, kPageCount> pages_{};
    std::array<QAction*, kPageCount> pageActions_{};
    QAction* controlSeparator_ = nullptr;

    // What Prepare found, for Finish to put back.
    struct {
        bool pageControl = false;
        bool window = false;
        bool ok = false;
        bool cancel = false;
        QCursor cursor;
    } beforeUpgrade_;
};

template <typename Handler>
void TKestelMainWind::Converting(Handler&& handler) {
    // The event loop cannot carry an exception out of a handler, so this stands where the
    // application's default exception handler stood: the conversion error of a text that is
    // not a number is shown, nothing further happens in the handler, and the program goes on.
    try {
        handler();
    } catch (const ConversionError& error) {
        ShowConversionError(error);
    }
}

}  // namespace wk
