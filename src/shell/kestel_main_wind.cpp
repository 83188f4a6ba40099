#include "shell/kestel_main_wind.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusTipEvent>
#include <cstdio>
#include <cstring>

#include "dialogs/about_box.h"
#include "i18n/resgenstring.h"
#include "platform/ascii_case.h"
#include "platform/dos_paths.h"
#include "platform/file_lookup.h"
#include "platform/message_box.h"
#include "platform/windows_directory.h"
#include "settings/directory_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/pending_changes.h"
#include "settings/settings_files.h"
#include "shell/client_area.h"
#include "shell/help_unavailable.h"
#include "shell/language_text.h"
#include "shell/page_sheets.h"
#include "shell/qt_message_box.h"
#include "shell/restore_backup.h"
#include "shell/save_failure.h"
#include "shell/startup_messages.h"
#include "shell/upgrade_status.h"
#include "widgets/edit_field.h"
#include "widgets/page_control.h"

namespace wk {

namespace {

// Language string ids of the frame.
constexpr int kIdCaption = 1;
constexpr int kIdCheckingFile = 23;
constexpr int kIdFileMissing = 24;
constexpr int kIdSaveQuestion = 41;
constexpr int kIdSaveCaption = 42;

// Help context when no page is active.
constexpr int kNoPageHelpContext = 15;

// The title the default exception handler gives its message box.
constexpr const char* kApplicationTitle = "WKestel32";

}  // namespace

TKestelMainWind::TKestelMainWind(std::vector<std::string> commandLine,
                                 std::span<const PageEntry> pages, QWidget* parent)
    : QMainWindow(parent),
      commandLine_(std::move(commandLine)),
      rows_(pages.begin(), pages.end()),
      // The record exists, on its defaults, before the pages that refer to it are built;
      // start-up makes it anew in place once the controller type is known.
      settings_(ControllerFlags{}),
      menu_(*menuBar(), rows_),
      openFileDialog_(*this) {
    setObjectName(QStringLiteral("KestelMainWind"));
    setWindowTitle(QStringLiteral("General Setup"));

    // Every word of the command line, the program's own path included, is compared; only the
    // bare word counts ("/UPGRADE" or "UPGRADE=1" do not).
    for (const std::string& word : commandLine_) {
        if (EqualsIgnoringAsciiCase(word, "UPGRADE")) {
            upgradeRequested_ = true;
        }
    }

    // Message boxes show as Qt message boxes. Tests and tools that answer them themselves
    // put their presenter in place after this.
    SetMessageBoxPresenter(QtMessageBoxPresenter{});

    ConnectMenu();
    BuildFrame();
}

TKestelMainWind::~TKestelMainWind() {
    // Closing the window moves the focus out of the pages' edit fields; their exit handlers
    // must not run on a half-destroyed window. The pages go first, while the record they refer
    // to is still there.
    destroying_ = true;
    sheets_->Close();
    for (EditField* field : findChildren<EditField*>()) {
        field->blockSignals(true);
    }
    delete takeCentralWidget();
    pageControl_ = nullptr;
    pOK_ = nullptr;
    pCancel_ = nullptr;
    pBottBar_ = nullptr;
    if (languageLoaded_) {
        ReleaseLanguageLibrary();
    }
    // Back to the default presenter, unless ours has been replaced meanwhile.
    MessageBoxPresenter current = SetMessageBoxPresenter(MessageBoxPresenter{});
    if (!current.target<QtMessageBoxPresenter>()) {
        SetMessageBoxPresenter(std::move(current));
    }
}

void TKestelMainWind::ConnectMenu() {
    connect(menu_.Save(), &QAction::triggered, this, &TKestelMainWind::KestelFile_SaveClick);
    connect(menu_.Restore(), &QAction::triggered, this, &TKestelMainWind::KestelFile_RestoreClick);
    connect(menu_.Exit(), &QAction::triggered, this, &TKestelMainWind::KestelFile_ExitClick);
    connect(menu_.HelpIndex(), &QAction::triggered, this, &TKestelMainWind::KestelHelp_IndexClick);
    connect(menu_.About(), &QAction::triggered, this, &TKestelMainWind::KestelHelp_AboutClick);
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        connect(menu_.PageAction(row), &QAction::triggered, this,
                [this, row] { SelectPageFromMenu(row); });
    }
}

void TKestelMainWind::BuildFrame() {
    const ClientArea area = BuildClientArea(*this);
    pageControl_ = area.pageControl;
    pOK_ = area.pOK;
    pCancel_ = area.pCancel;
    pBottBar_ = area.pBottBar;

    // The start page is made now, the others just after the window is first drawn.
    PageSheets::Hooks hooks;
    hooks.pageMade = [this](KestelPage& page) {
        PutButtonsLastInTabOrder();
        if (recordRead_) {
            // Made later, it starts as it would have at start-up. Its initialisation's writes
            // to the record are no more the user's change than those of the pages made then.
            const bool modified = settings_.Modified;
            page.Initialise();
            settings_.Modified = modified;
        }
    };
    hooks.pagesMade = [this] {
        if (ready_) {
            // The window takes the room the new pages need, if more, before it is drawn again.
            SettleLayouts();
        }
    };
    sheets_ = std::make_unique<PageSheets>(rows_, *this, *pageControl_, *this, std::move(hooks));
    sheets_->AddSheets();
    PutButtonsLastInTabOrder();

    pageControl_->SetChangingHook([this] { return KestelPageControlChanging(); });
    connect(pageControl_, &PageControl::Change, this, &TKestelMainWind::KestelPageControlChange);
    connect(pageControl_, &PageControl::SheetEnter, this, &TKestelMainWind::SheetEnter);
    // Enter and Escape reach them through keyPressEvent.
    connect(pOK_, &QPushButton::clicked, this, &TKestelMainWind::pOKClick);
    connect(pCancel_, &QPushButton::clicked, this, &TKestelMainWind::pCancelClick);
}

void TKestelMainWind::PutButtonsLastInTabOrder() {
    // Tab goes from the tabs into the page shown, through its controls, then to OK and Cancel:
    // the buttons were made before the pages, and would otherwise come first.
    QWidget* last = previousInFocusChain();
    if (last != pCancel_) {
        setTabOrder(last, pOK_);
        setTabOrder(pOK_, pCancel_);
    }
}

bool TKestelMainWind::AllPagesBuilt() const {
    return sheets_->AllMade();
}

void TKestelMainWind::BuildRemainingPages() {
    sheets_->MakeRemaining();
}

KestelPage* TKestelMainWind::PageOfRow(int row) const {
    return row >= 0 ? sheets_->Page(static_cast<std::size_t>(row)) : nullptr;
}

QString TKestelMainWind::LanguageText(int id) const {
    return LanguageCaption(id);
}

void TKestelMainWind::SetSheetCaption(QWidget* sheet, const QString& caption) {
    pageControl_->SetSheetCaption(sheet, caption);
}

void TKestelMainWind::ReportConversionError(const ConversionError& error) {
    MessageBoxA(static_cast<QWidget*>(this), error.what(), kApplicationTitle, MB_OK | MB_ICONSTOP);
}

bool TKestelMainWind::BrowseForFile(std::string& path, const std::string& initialDir,
                                    const std::string& ext, const std::string& description) {
    return openFileDialog_.Browse(path, initialDir, ext, description);
}

int TKestelMainWind::RowOf(const QWidget* sheet) const {
    return sheets_->RowOf(sheet);
}

int TKestelMainWind::ActiveRow() const {
    return RowOf(pageControl_->ActivePage());
}

// ---- start-up ---------------------------------------------------------------------------

bool TKestelMainWind::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::WindowActivate:
            // Start-up runs on the first activation only: Qt activates the window again after
            // every modal dialog and application switch, and running the sequence again would
            // re-read the files and drop the user's edits.
            if (!activated_) {
                activated_ = true;
                QMainWindow::event(event);
                FirstActivation();
                return true;
            }
            break;
        case QEvent::StatusTip:
            // Menu hints show in the status line.
            if (pBottBar_) {
                pBottBar_->setText(static_cast<QStatusTipEvent*>(event)->tip());
            }
            return true;
        default:
            break;
    }
    return QMainWindow::event(event);
}

bool TKestelMainWind::FirstActivation() {
    const std::string language = ReadStartUpLanguageCode();
    languageLoaded_ = LoadLanguageLibrary(language);
    if (!languageLoaded_) {
        // The libraries are looked for in the working directory; the system directory of the
        // measuring application is where the program is meant to be started from.
        char systemDir[256] = {};
        ReadProfileText(kSystemDir, systemDir, 80);
        const std::string message = LanguageLibraryMissingMessage(systemDir, language);
        MessageBoxA(static_cast<QWidget*>(this), message.c_str(), "", MB_OK | MB_ICONSTOP);
        startupFailed_ = true;
        ApplicationTerminate();
        return false;
    }

    SetupHelpFile(language);
    helpLanguage_ = language;
    flags_ = ControllerFlagsFromType(ReadControllerType());
    setWindowTitle(LanguageText(kIdCaption));
    menu_.Caption(flags_);
    SettingsFilePresenceCheck();

    if (upgradeRequested_) {
        UpgradeStatus status(*this, *pBottBar_, {pageControl_, pOK_, pCancel_});
        UpgradeSettingsFiles(status);
    }

    // Made anew for the controller type and the measuring unit the files (upgraded, perhaps)
    // now hold, in place: the pages keep referring to this one record.
    settings_ = SetupSettings(flags_);
    settings_.ReadAll();
    recordRead_ = true;

    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (KestelPage* page = sheets_->Page(row)) {
            page->Initialise();
        }
    }
    sheets_->CaptionStandIns([this](int id) { return LanguageText(id); });
    pageControl_->SetActivePage(StartPage());

    // What the initialisations wrote into the record is not the user's change.
    settings_.Modified = false;

    pageControl_->setVisible(true);
    pOK_->setVisible(true);
    pCancel_->setVisible(true);
    SettleLayouts();
    ready_ = true;
    sheets_->AwaitRemaining(idlePageBuilding_);
    return true;
}

void TKestelMainWind::SettleLayouts() {
    // The pages have just been shown with the language's captions. Each layout that changes
    // tells the one around it by a posted event, so the news takes one pass per level (page,
    // page control, client area, window) to reach the window; it does so now, before anything
    // is drawn or clicked, and the window has the size the pages need from the start.
    constexpr int kLevels = 8;
    for (int pass = 0; pass < kLevels; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    }
}

QWidget* TKestelMainWind::StartPage() const {
    const std::size_t row = sheets_->StartRow();
    return row < rows_.size() ? sheets_->Sheet(row) : nullptr;
}

void TKestelMainWind::SettingsFilePresenceCheck() {
    // Seen while the message below is up (its event loop paints the window).
    pBottBar_->setText(LanguageText(kIdCheckingFile));

    char path[512 + 16] = {};
    GetWindowsDirectoryA(path, 512);
    std::strcat(path, kRequiredSettingsFilePath);
    if (!platform::FileExistsA(path)) {
        const std::string message =
            SettingsFileMissingMessage(GetLanguageString(kIdFileMissing, kLanguageMaxLength));
        MessageBoxA(static_cast<QWidget*>(this), message.c_str(), "", MB_OK | MB_ICONSTOP);
        // The sequence goes on; the program ends once control is back in the event loop.
        startupFailed_ = true;
        ApplicationTerminate();
    }
    pBottBar_->setText(QString());
}

void TKestelMainWind::ApplicationTerminate() {
    terminationRequested_ = true;
    emit TerminateRequested();
}

// ---- the frame --------------------------------------------------------------------------

bool TKestelMainWind::ApplyCurrentPage(bool saveWithoutAsking) {
    if (!recordRead_) {
        return true;
    }
    const int row = ActiveRow();
    KestelPage* page = PageOfRow(row);
    if (page && rows_[static_cast<std::size_t>(row)].storesOnOk) {
        page->Store();
    }
    if (!settings_.Modified) {
        return true;
    }

    switch (saveWithoutAsking ? IDYES : AskToSave()) {
        case IDCANCEL:
            return false;
        case IDYES:
            // A save that fails is told (which file, why), and the window stays where it is
            // with the record still modified, so that the edit is kept and Exit asks again.
            return SaveSettingsReportingFailure(static_cast<QWidget*>(this), settings_);
        case IDNO:
            settings_.ReadAll();
            if (page) {
                page->Load(true);
            }
            return true;
        default:
            return true;
    }
}

int TKestelMainWind::AskToSave() {
    const std::string text = GetLanguageString(kIdSaveQuestion, kLanguageMaxLength);
    const std::string caption = GetLanguageString(kIdSaveCaption, kLanguageMaxLength);
    // Behind "Show Details...": each key a Yes would change, old and new value, so that the
    // user knows exactly what the answer does. A record whose changes were all taken back
    // changes no value, and the question then has no details.
    const std::string details = PendingChangesText(PendingChanges(settings_));
    return MessageBoxWithDetails(static_cast<QWidget*>(this), text.c_str(), caption.c_str(),
                                 MB_YESNOCANCEL | MB_ICONQUESTION, details);
}

void TKestelMainWind::SelectPageFromMenu(std::size_t row) {
    // Asks here; the switch itself is the program's and asks no second time.
    if (ApplyCurrentPage(false)) {
        pageControl_->SetActivePage(sheets_->Sheet(row));
    }
}

void TKestelMainWind::KestelFile_SaveClick() {
    ApplyCurrentPage(true);
}

void TKestelMainWind::KestelFile_RestoreClick() {
    if (!recordRead_) {
        return;
    }
    // An edit in progress is a change like any other: the question then says that the changes
    // not saved are lost, and No keeps it (in the record, as OK would).
    const int row = ActiveRow();
    if (row >= 0 && rows_[static_cast<std::size_t>(row)].storesOnOk) {
        PageOfRow(row)->Store();
    }
    if (!RestoreBackupAsking(static_cast<QWidget*>(this), settings_.Modified)) {
        return;
    }
    // The record and every page show the restored files, as after the answer No to the save
    // question. The measuring unit and the controller type are taken once per run (start-up):
    // a restore that changes them shows in the next run.
    settings_.ReadAll();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (KestelPage* page = sheets_->Page(row)) {
            page->Load(true);
        }
    }
}

void TKestelMainWind::KestelFile_ExitClick() {
    if (ApplyCurrentPage(false)) {
        ApplicationTerminate();
    }
}

bool TKestelMainWind::FormCloseQuery() {
    return ApplyCurrentPage(false);
}

void TKestelMainWind::closeEvent(QCloseEvent* event) {
    if (FormCloseQuery()) {
        event->accept();
    } else {
        event->ignore();
    }
}

bool TKestelMainWind::KestelPageControlChanging() {
    return ApplyCurrentPage(false);
}

void TKestelMainWind::KestelPageControlChange() {
    const int row = ActiveRow();
    if (row >= 0 && rows_[static_cast<std::size_t>(row)].refreshOnChange) {
        PageOfRow(row)->Load(true);
    }
}

void TKestelMainWind::SheetEnter(QWidget* sheet) {
    if (destroying_ || !recordRead_) {
        return;
    }
    const int row = RowOf(sheet);
    if (row >= 0 && PageOfRow(row) && rows_[static_cast<std::size_t>(row)].refreshOnEntry) {
        PageOfRow(row)->Load(true);
    }
}

void TKestelMainWind::pOKClick() {
    const int row = ActiveRow();
    if (recordRead_ && row >= 0 && rows_[static_cast<std::size_t>(row)].storesOnOk) {
        PageOfRow(row)->Store();
    }
}

void TKestelMainWind::pCancelClick() {
    const int row = ActiveRow();
    if (recordRead_ && row >= 0) {
        PageOfRow(row)->Load(false);
    }
}

void TKestelMainWind::keyPressEvent(QKeyEvent* event) {
    // pOK is the window's default button and pCancel its cancel button: Enter and Escape that
    // no control took for itself click them.
    const bool plain =
        event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        pOK_->isVisible() && pOK_->isEnabled()) {
        pOK_->click();
        return;
    }
    if (plain && event->key() == Qt::Key_Escape && pCancel_->isVisible() && pCancel_->isEnabled()) {
        pCancel_->click();
        return;
    }
    QMainWindow::keyPressEvent(event);
}

int TKestelMainWind::HelpContextOfPage() const {
    const int row = ActiveRow();
    return row >= 0 ? rows_[static_cast<std::size_t>(row)].helpContext : kNoPageHelpContext;
}

void TKestelMainWind::KestelHelp_IndexClick() {
    if (ShowHelpContext(HelpContextOfPage())) {
        return;
    }
    // Nothing would happen otherwise: say why, where the user looks after choosing a menu entry.
    const LanguageState& language = Language();
    pBottBar_->setText(HelpUnavailableText(language, helpLanguage_));
}

void TKestelMainWind::KestelHelp_AboutClick() {
    TAboutBox aboutBox(this);
    aboutBox.exec();
}

}  // namespace wk
