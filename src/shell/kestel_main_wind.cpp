#include "shell/kestel_main_wind.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QColorDialog>
#include <QFileDialog>
#include <QGridLayout>
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
#include "platform/message_box.h"
#include "platform/text_codec.h"
#include "platform/windows_directory.h"
#include "settings/profile_helpers.h"
#include "settings/setup_settings.h"
#include "shell/file_filter.h"
#include "shell/kestel_page.h"
#include "shell/qt_message_box.h"
#include "shell/save_failure.h"
#include "shell/startup_messages.h"
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
constexpr int kLanguageMaxLength = 200;

// The title the default exception handler gives its message box.
constexpr const char* kApplicationTitle = "WKestel32";

QString FromAnsi(const std::string& text) {
    return QString::fromStdString(platform::AnsiToUtf8(text));
}

// Menu entries: the popups, then each entry with its caption and hint ids (0: none).
struct MenuText {
    const char* name;
    int captionId;
    int hintId;
};

// clang-format off
constexpr MenuText kMenuTexts[] = {
    {"KestelFile_PopUp", 2, 0},          {"KestelFile_Save", 3, 26},
    {"KestelFile_Exit", 4, 25},          {"KestelGenConf_PopUp", 10, 0},
    {"KestelGenConf_MacPar", 5, 29},     {"KestelGenConf_SysParam", 6, 30},
    {"KestelGenConf_Init", 7, 31},       {"KestelGenConf_MecOff", 8, 32},
    {"KestelElemPar_PopUp", 11, 0},      {"KestelElemPar_NumPts", 14, 34},
    {"KestelOther_PopUp", 15, 0},        {"KestelOther_Sounds", 17, 36},
    {"KestelOther_WindowsColor", 16, 37}, {"KestelOther_Directories", 18, 38},
    {"KestelOther_AxesConvention", 19, 0}, {"KestelHelp_PopUp", 20, 0},
    {"KestelHelp_Index", 21, 0},         {"KestelHelp_About", 22, 0},
};
// clang-format on

// The controller entry: captioned only for the controllers that have a controller page.
constexpr MenuText kControllerMenuText{"KestelGenConf_Controller", 9, 33};

}  // namespace

TKestelMainWind::TKestelMainWind(std::vector<std::string> commandLine, QWidget* parent)
    : QMainWindow(parent), commandLine_(std::move(commandLine)) {
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

    BuildMenu();
    BuildFrame();
}

TKestelMainWind::~TKestelMainWind() {
    // Closing the window moves the focus out of the pages' edit fields; their exit handlers
    // must not run on a half-destroyed window.
    destroying_ = true;
    for (EditField* field : findChildren<EditField*>()) {
        field->blockSignals(true);
    }
    // The record first, then the language library.
    settings_.reset();
    if (languageLoaded_) {
        ReleaseLanguageLibrary();
    }
    // Back to the default presenter, unless ours has been replaced meanwhile.
    MessageBoxPresenter current = SetMessageBoxPresenter(MessageBoxPresenter{});
    if (!current.target<QtMessageBoxPresenter>()) {
        SetMessageBoxPresenter(std::move(current));
    }
}

void TKestelMainWind::BuildMenu() {
    QMenuBar* bar = menuBar();
    auto addMenu = [&](const char* name, const char* caption) {
        QMenu* menu = bar->addMenu(QString::fromLatin1(caption));
        menu->setObjectName(QString::fromLatin1(name));
        menu->menuAction()->setObjectName(QString::fromLatin1(name));
        return menu;
    };
    auto addEntry = [&](QMenu* menu, const char* name, const QString& caption) {
        QAction* action = menu->addAction(caption);
        action->setObjectName(QString::fromLatin1(name));
        return action;
    };
    const auto& table = PageTable();
    auto addPageEntry = [&](QMenu* menu, int pageIndex) {
        const PageEntry& entry = table[static_cast<std::size_t>(pageIndex)];
        QAction* action = addEntry(menu, entry.menuEntry,
                                   QStringLiteral("&") + QString::fromLatin1(entry.designCaption));
        // A page that is not built is not offered.
        action->setEnabled(entry.factory != nullptr);
        connect(action, &QAction::triggered, this,
                [this, pageIndex] { SelectPageFromMenu(pageIndex); });
        pageActions_[static_cast<std::size_t>(pageIndex)] = action;
        return action;
    };
    auto indexOf = [&](const char* sheetName) {
        for (int i = 0; i < kPageCount; ++i) {
            if (std::strcmp(table[static_cast<std::size_t>(i)].sheetName, sheetName) == 0) {
                return i;
            }
        }
        return -1;
    };

    QMenu* file = addMenu("KestelFile_PopUp", "&File");
    connect(addEntry(file, "KestelFile_Save", QStringLiteral("&Save")), &QAction::triggered, this,
            &TKestelMainWind::KestelFile_SaveClick);
    file->addSeparator();
    connect(addEntry(file, "KestelFile_Exit", QStringLiteral("E&xit")), &QAction::triggered, this,
            &TKestelMainWind::KestelFile_ExitClick);

    QMenu* genConf = addMenu("KestelGenConf_PopUp", "&General configuration");
    addPageEntry(genConf, indexOf("MacParTabSheet"));
    addPageEntry(genConf, indexOf("SysParTabSheet"));
    addPageEntry(genConf, indexOf("InitTabSheet"));
    // Deliberately not translated: keeps its design caption in every language.
    addPageEntry(genConf, indexOf("VolcompTabSheet"))->setText(QStringLiteral("&Volcomp"));
    addPageEntry(genConf, indexOf("MecOffTabSheet"));
    controlSeparator_ = genConf->addSeparator();
    controlSeparator_->setObjectName(QStringLiteral("KestelGenConf_ControlSeparator"));
    addPageEntry(genConf, indexOf("ControllerTabSheet"));

    QMenu* elemPar = addMenu("KestelElemPar_PopUp", "&Element parameters");
    addPageEntry(elemPar, indexOf("NumPointsTabSheet"));

    QMenu* other = addMenu("KestelOther_PopUp", "&Other");
    addPageEntry(other, indexOf("SoundsTabSheet"));
    addPageEntry(other, indexOf("WinColorTabSheet"));
    addPageEntry(other, indexOf("DirectoriesTabSheet"));
    addPageEntry(other, indexOf("AxesConvTabSheet"));

    QMenu* help = addMenu("KestelHelp_PopUp", "&Help");
    connect(addEntry(help, "KestelHelp_Index", QStringLiteral("&Index")), &QAction::triggered, this,
            &TKestelMainWind::KestelHelp_IndexClick);
    connect(addEntry(help, "KestelHelp_About", QStringLiteral("&About...")), &QAction::triggered,
            this, &TKestelMainWind::KestelHelp_AboutClick);
}

void TKestelMainWind::BuildFrame() {
    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("KestelClientArea"));
    auto* grid = new QGridLayout(central);

    pageControl_ = new PageControl(central);
    pageControl_->setObjectName(QStringLiteral("KestelPageControl"));
    const auto& table = PageTable();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (!table[i].factory) {
            continue;  // not built: absent from the page control
        }
        std::unique_ptr<KestelPage> page = table[i].factory(*this);
        page->setObjectName(QString::fromLatin1(table[i].sheetName));
        pages_[i] = page.get();
        pageControl_->AddSheet(page.release(), QString::fromLatin1(table[i].designCaption));
    }
    pageControl_->SetChangingHook([this] { return KestelPageControlChanging(); });
    connect(pageControl_, &PageControl::Change, this, &TKestelMainWind::KestelPageControlChange);
    connect(pageControl_, &PageControl::SheetEnter, this, &TKestelMainWind::SheetEnter);

    pOK_ = new QPushButton(QStringLiteral("OK"), central);
    pOK_->setObjectName(QStringLiteral("pOK"));
    pOK_->setDefault(true);  // Enter (keyPressEvent)
    pOK_->setAutoDefault(true);
    pCancel_ = new QPushButton(QStringLiteral("Cancel"), central);
    pCancel_->setObjectName(QStringLiteral("pCancel"));
    pCancel_->setAutoDefault(true);  // Escape (keyPressEvent)
    connect(pOK_, &QPushButton::clicked, this, &TKestelMainWind::pOKClick);
    connect(pCancel_, &QPushButton::clicked, this, &TKestelMainWind::pCancelClick);

    auto* buttons = new QVBoxLayout;
    buttons->addSpacing(pageControl_->TabBar()->sizeHint().height());
    buttons->addWidget(pOK_);
    buttons->addWidget(pCancel_);
    buttons->addStretch(1);

    pBottBar_ = new QLabel(QStringLiteral("."), central);
    pBottBar_->setObjectName(QStringLiteral("pBottBar"));
    pBottBar_->setAlignment(Qt::AlignCenter);
    QFont font = pBottBar_->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    pBottBar_->setFont(font);
    pBottBar_->setFrameShape(QFrame::Panel);
    pBottBar_->setFrameShadow(QFrame::Sunken);
    pBottBar_->setMinimumHeight(pBottBar_->fontMetrics().height() + 10);

    grid->addWidget(pageControl_, 0, 0);
    grid->addLayout(buttons, 0, 1);
    grid->addWidget(pBottBar_, 1, 0, 1, 2);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
    setCentralWidget(central);

    // Hidden until the start-up sequence has filled the pages.
    pageControl_->setVisible(false);
    pOK_->setVisible(false);
    pCancel_->setVisible(false);
    resize(760, 540);
}

QString TKestelMainWind::LanguageText(int id) const {
    return FromAnsi(GetLanguageString(id, kLanguageMaxLength));
}

void TKestelMainWind::SetSheetCaption(QWidget* sheet, const QString& caption) {
    pageControl_->SetSheetCaption(sheet, caption);
}

KestelPage* TKestelMainWind::Page(const char* sheetName) const {
    const auto& table = PageTable();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (std::strcmp(table[i].sheetName, sheetName) == 0) {
            return pages_[i];
        }
    }
    return nullptr;
}

QAction* TKestelMainWind::MenuAction(const char* name) const {
    return menuBar()->findChild<QAction*>(QString::fromLatin1(name));
}

// ---- start-up ---------------------------------------------------------------------------

bool TKestelMainWind::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::WindowActivate:
            // The original toolkit ran the start-up sequence on every activation of the
            // window; Qt activates it again after every modal dialog and application switch,
            // where running it again would re-read the files and drop the user's edits. It
            // runs once, on the first activation at start-up.
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
    char buffer[256] = {};
    ReadProfileText("LANGUAGE", buffer, 80, "Wzelko");
    std::string language = buffer;
    if (language == "NONE") {  // case matters here: "none" is a language code of its own
        language = "ENG";
    }

    languageLoaded_ = LoadLanguageLibrary(language);
    if (!languageLoaded_) {
        char systemDir[256] = {};
        ReadProfileText("SYSTEM_DIR", systemDir, 80, "Wzelko");
        controllerType_ = systemDir;
        const std::string message = LanguageLibraryMissingMessage(controllerType_, language);
        MessageBoxA(static_cast<QWidget*>(this), message.c_str(), "", MB_OK | MB_ICONSTOP);
        startupFailed_ = true;
        ApplicationTerminate();
        return false;
    }

    SetupHelpFile(language);

    controllerType_ = ReadControllerType();
    flags_ = ControllerFlagsFromType(controllerType_);

    setWindowTitle(LanguageText(kIdCaption));
    CaptionMenus();
    SettingsFilePresenceCheck();

    if (upgradeRequested_) {
        UpgradeSettingsFiles(*this);
    }

    settings_ = std::make_unique<SetupSettings>(flags_);
    settings_->ReadAll();

    const auto& table = PageTable();
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (pages_[i]) {
            pages_[i]->Initialise();
        }
    }

    // The machine parameters page, or the first page there is while it is not built.
    QWidget* first = Page("MacParTabSheet");
    pageControl_->SetActivePage(first ? first : pageControl_->Sheet(0));

    settings_->Modified = false;

    pageControl_->setVisible(true);
    pOK_->setVisible(true);
    pCancel_->setVisible(true);
    ready_ = true;
    return true;
}

void TKestelMainWind::CaptionMenus() {
    for (const MenuText& text : kMenuTexts) {
        QAction* action = MenuAction(text.name);
        if (!action) {
            continue;
        }
        action->setText(LanguageText(text.captionId));
        if (text.hintId) {
            action->setStatusTip(LanguageText(text.hintId));
        }
    }

    // The controller entry exists for the controllers that have their own options.
    const std::string type = ReadControllerType();
    const bool controllerEntry =
        EqualsIgnoringAsciiCase(type, "RMD") || EqualsIgnoringAsciiCase(type, "Tq") ||
        EqualsIgnoringAsciiCase(type, "Q5") || EqualsIgnoringAsciiCase(type, "Vek3");
    QAction* controller = MenuAction(kControllerMenuText.name);
    controlSeparator_->setVisible(controllerEntry);
    controller->setVisible(controllerEntry);
    if (controllerEntry) {
        controller->setText(LanguageText(kControllerMenuText.captionId));
        controller->setStatusTip(LanguageText(kControllerMenuText.hintId));
    }
}

void TKestelMainWind::SettingsFilePresenceCheck() {
    // Seen while the message below is up (its event loop paints the window).
    pBottBar_->setText(LanguageText(kIdCheckingFile));

    char path[512 + 16] = {};
    GetWindowsDirectoryA(path, 512);
    std::strcat(path, "\\WZELKO.INI");
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

void TKestelMainWind::Prepare(const std::string& statusText) {
    beforeUpgrade_.pageControl = pageControl_->isVisible();
    beforeUpgrade_.window = isVisible();
    beforeUpgrade_.ok = pOK_->isVisible();
    beforeUpgrade_.cancel = pCancel_->isVisible();
    beforeUpgrade_.cursor = cursor();
    pageControl_->setVisible(false);
    pOK_->setVisible(false);
    pCancel_->setVisible(false);
    setVisible(true);
    setCursor(Qt::WaitCursor);
    pBottBar_->setText(FromAnsi(statusText));
    repaint();
}

void TKestelMainWind::Finish() {
    pageControl_->setVisible(beforeUpgrade_.pageControl);
    setVisible(beforeUpgrade_.window);
    pOK_->setVisible(beforeUpgrade_.ok);
    pCancel_->setVisible(beforeUpgrade_.cancel);
    setCursor(beforeUpgrade_.cursor);
    repaint();
}

void TKestelMainWind::ApplicationTerminate() {
    terminationRequested_ = true;
    emit TerminateRequested();
}

// ---- the frame --------------------------------------------------------------------------

int TKestelMainWind::ActivePageIndex() const {
    QWidget* active = pageControl_->ActivePage();
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (active && pages_[i] == active) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

KestelPage* TKestelMainWind::ActivePage() const {
    const int index = ActivePageIndex();
    return index >= 0 ? pages_[static_cast<std::size_t>(index)] : nullptr;
}

bool TKestelMainWind::ApplyCurrentPage(bool saveWithoutAsking) {
    if (!settings_) {
        return true;
    }
    const int index = ActivePageIndex();
    KestelPage* page = ActivePage();
    if (page && PageTable()[static_cast<std::size_t>(index)].hasStore) {
        page->Store();
    }
    if (!settings_->Modified) {
        return true;
    }

    int answer = IDYES;
    if (!saveWithoutAsking) {
        const std::string text = GetLanguageString(kIdSaveQuestion, kLanguageMaxLength);
        const std::string caption = GetLanguageString(kIdSaveCaption, kLanguageMaxLength);
        answer = MessageBoxA(static_cast<QWidget*>(this), text.c_str(), caption.c_str(),
                             MB_YESNOCANCEL | MB_ICONQUESTION);
    }
    switch (answer) {
        case IDCANCEL:
            return false;
        case IDYES:
            // Deliberately unlike earlier versions, which wrote without looking at the
            // result: a save that fails is told (which file, why), and the window stays where
            // it is with the record still modified, so that the edit is kept and Exit asks
            // again.
            return SaveSettingsReportingFailure(static_cast<QWidget*>(this), *settings_);
        case IDNO:
            settings_->ReadAll();
            if (page) {
                page->Load(true);
            }
            return true;
        default:
            return true;
    }
}

void TKestelMainWind::SelectPageFromMenu(int pageIndex) {
    // Asks here; the switch itself is the program's and asks no second time.
    if (ApplyCurrentPage(false)) {
        pageControl_->SetActivePage(pages_[static_cast<std::size_t>(pageIndex)]);
    }
}

void TKestelMainWind::KestelFile_SaveClick() {
    ApplyCurrentPage(true);
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
    const int index = ActivePageIndex();
    if (index < 0) {
        return;
    }
    const PageRefresh refresh = PageTable()[static_cast<std::size_t>(index)].refresh;
    if (refresh == PageRefresh::OnChange || refresh == PageRefresh::OnEntryAndChange) {
        pages_[static_cast<std::size_t>(index)]->Load(true);
    }
}

void TKestelMainWind::SheetEnter(QWidget* sheet) {
    if (destroying_ || !settings_) {
        return;
    }
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        if (pages_[i] && pages_[i] == sheet) {
            const PageRefresh refresh = PageTable()[i].refresh;
            if (refresh == PageRefresh::OnEntry || refresh == PageRefresh::OnEntryAndChange) {
                pages_[i]->Load(true);
            }
            return;
        }
    }
}

void TKestelMainWind::pOKClick() {
    const int index = ActivePageIndex();
    if (index >= 0 && settings_ && PageTable()[static_cast<std::size_t>(index)].hasStore) {
        pages_[static_cast<std::size_t>(index)]->Store();
    }
}

void TKestelMainWind::pCancelClick() {
    if (KestelPage* page = ActivePage(); page && settings_) {
        page->Load(false);
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
    const int index = ActivePageIndex();
    return index >= 0 ? PageTable()[static_cast<std::size_t>(index)].helpContext
                      : kNoPageHelpContext;
}

void TKestelMainWind::KestelHelp_IndexClick() {
    ShowHelpContext(HelpContextOfPage());
}

void TKestelMainWind::KestelHelp_AboutClick() {
    TAboutBox aboutBox(this);
    aboutBox.exec();
}

void TKestelMainWind::ShowConversionError(const std::exception& error) {
    MessageBoxA(static_cast<QWidget*>(this), error.what(), kApplicationTitle, MB_OK | MB_ICONSTOP);
}

bool TKestelMainWind::BrowseForFile(std::string& path, const std::string& initialDir,
                                    const std::string& ext, const std::string& description) {
    if (!openFileDialog_) {
        openFileDialog_ = new QFileDialog(this);
        openFileDialog_->setObjectName(QStringLiteral("OpenFileDialog"));
        openFileDialog_->setOption(QFileDialog::DontUseNativeDialog);
        openFileDialog_->setAcceptMode(QFileDialog::AcceptOpen);
        openFileDialog_->setFileMode(QFileDialog::AnyFile);
    }
    QFileDialog& dialog = *openFileDialog_;
    dialog.setDefaultSuffix(FromAnsi(ext));
    // Host paths are UTF-8; the settings files' paths are ANSI.
    std::string hostDir = platform::AnsiToUtf8(initialDir);
    if (platform::IsDosPath(hostDir)) {
        hostDir = platform::DosToHostPath(hostDir).value_or(hostDir);
    }
    dialog.setDirectory(QString::fromStdString(hostDir));

    char filter[512];
    std::snprintf(filter, sizeof filter, "%s (*.%s)|*.%s", description.c_str(), ext.c_str(),
                  ext.c_str());
    dialog.setNameFilters(QtNameFilters(FromAnsi(filter)));
    dialog.selectFile(QString());

    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    const QStringList chosen = dialog.selectedFiles();
    if (chosen.isEmpty() || chosen.front().isEmpty()) {
        return false;
    }
    const std::string host = chosen.front().toStdString();
    path = platform::Utf8ToAnsi(platform::HostToDosPath(host).value_or(host));
    return true;
}

QColorDialog* TKestelMainWind::WinColorDialog() {
    if (!winColorDialog_) {
        // The measuring application's colour dialog could not be opened full (no custom
        // colours), offered solid colours only and had a help button. Qt's dialog always shows
        // its custom colours and has no help button; solid colours are its default (no alpha
        // channel). Qt's own dialog rather than the desktop's, so that it looks and answers
        // the same everywhere.
        winColorDialog_ = new QColorDialog(this);
        winColorDialog_->setObjectName(QStringLiteral("WinColorDialog"));
        winColorDialog_->setOption(QColorDialog::ShowAlphaChannel, false);
        winColorDialog_->setOption(QColorDialog::DontUseNativeDialog);
        winColorDialog_->setModal(true);
    }
    return winColorDialog_;
}

}  // namespace wk
