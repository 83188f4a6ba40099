#pragma once
// TKestelMainWind: the editor's one window.
//
// A menu bar over a page control of the settings pages, OK and Cancel beside it and the status
// line pBottBar below. The window owns the settings record and the pages it is given, runs the
// start-up sequence on its first activation, and is the frame around the pages: which page is
// shown, when a page's edits reach the record, when the user is asked whether to save, when the
// files are written, help by page and the about box. To the pages it is their PageHost.

#include <QMainWindow>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "settings/controller_type.h"
#include "settings/setup_settings.h"
#include "shell/main_menu.h"
#include "shell/open_file_dialog.h"
#include "shell/page_host.h"

class QLabel;
class QPushButton;

namespace wk {

class PageControl;
class PageSheets;

class TKestelMainWind : public QMainWindow, public PageHost {
    Q_OBJECT

public:
    // `commandLine` holds the program's own path and its arguments, as argv does. `pages` are
    // the rows of the table of pages this window shows, in tab order: the program passes the
    // whole table, a test any part of it.
    TKestelMainWind(std::vector<std::string> commandLine, std::span<const PageEntry> pages,
                    QWidget* parent = nullptr);
    ~TKestelMainWind() override;

    // The start-up sequence; runs on the window's first activation. True when the pages are
    // ready, false when start-up failed (the application has then been asked to end).
    bool FirstActivation();

    // Stores the active page's edit in progress and, when the record has changed, asks whether
    // to save (or saves at once with saveWithoutAsking). True to go on, false to stay.
    bool ApplyCurrentPage(bool saveWithoutAsking);

    // The help context of the active page (15 when there is none).
    int HelpContextOfPage() const;

    // What the pages use (PageHost).
    SetupSettings& Settings() override { return settings_; }
    const ControllerFlags& Flags() const override { return flags_; }
    QString LanguageText(int id) const override;
    void SetSheetCaption(QWidget* sheet, const QString& caption) override;
    void ReportConversionError(const ConversionError& error) override;
    bool BrowseForFile(std::string& path, const std::string& initialDir, const std::string& ext,
                       const std::string& description) override;
    ActiveFileEdit& ActiveFile() override { return activeFile_; }

    // State the tests and tools look at.
    bool UpgradeRequested() const { return upgradeRequested_; }
    bool TerminationRequested() const { return terminationRequested_; }
    // The start-up sequence failed (no language library, no settings file): the program
    // ends, and its exit status says so.
    bool StartupFailed() const { return startupFailed_; }
    bool Ready() const { return ready_; }
    // Whether start-up got as far as reading the files into the record. Before that the frame
    // has nothing to store, to ask about or to save, and pages are neither stored nor loaded.
    bool RecordRead() const { return recordRead_; }
    PageControl* PageCtl() const { return pageControl_; }

    // The start page is made with the window, the others a moment after it is first drawn
    // (see PageSheets). Whether they all are; making them now (the tools that look at every
    // page ask for this).
    bool AllPagesBuilt() const;
    void BuildRemainingPages();
    // Whether the remaining pages are made in the first idle time (on by default); off, they
    // are made only when needed, which is how the tests see a window with pages still to come.
    void SetIdlePageBuilding(bool on) { idlePageBuilding_ = on; }

signals:
    // The application is asked to end; it does so when control returns to the event loop.
    void TerminateRequested();

public slots:
    void KestelFile_SaveClick();
    void KestelFile_RestoreClick();
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
    void ConnectMenu();
    void BuildFrame();
    void SettingsFilePresenceCheck();
    void ApplicationTerminate();
    bool FormCloseQuery();
    int AskToSave();
    void SelectPageFromMenu(std::size_t row);
    bool KestelPageControlChanging();
    void KestelPageControlChange();
    void SheetEnter(QWidget* sheet);
    QWidget* StartPage() const;
    void PutButtonsLastInTabOrder();
    // The page of a row; nullptr for none or a page still to come.
    KestelPage* PageOfRow(int row) const;
    void SettleLayouts();
    // The row of the table whose page is `sheet`, or of the active page; -1 for none.
    int RowOf(const QWidget* sheet) const;
    int ActiveRow() const;

    std::vector<std::string> commandLine_;
    std::vector<PageEntry> rows_;
    bool upgradeRequested_ = false;
    ControllerFlags flags_{};
    SetupSettings settings_;
    ActiveFileEdit activeFile_;

    bool activated_ = false;
    bool recordRead_ = false;
    bool ready_ = false;
    bool terminationRequested_ = false;
    bool startupFailed_ = false;
    bool destroying_ = false;
    bool languageLoaded_ = false;
    std::string helpLanguage_;  // the language code the help file was looked for with

    MainMenu menu_;
    PageControl* pageControl_ = nullptr;
    QPushButton* pOK_ = nullptr;
    QPushButton* pCancel_ = nullptr;
    QLabel* pBottBar_ = nullptr;
    std::unique_ptr<PageSheets> sheets_;
    bool idlePageBuilding_ = true;
    OpenFileDialog openFileDialog_;
};

}  // namespace wk
