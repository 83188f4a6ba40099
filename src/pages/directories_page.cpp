#include "pages/directories_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <iterator>

#include "dialogs/open_dir_dialog.h"
#include "pages/form_controls.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 18;
constexpr int kIdBrowse = 134;
constexpr int kIdDialogCaption = 455;

EditField* MakeEdit(QWidget* parent, const char* name) {
    EditField* edit = MakeFormEdit(parent, name);
    edit->setMinimumWidth(edit->fontMetrics().horizontalAdvance(QString(32, QLatin1Char('W'))));
    return edit;
}

}  // namespace

TDirectoriesPage::TDirectoriesPage(PageHost& host) : KestelPage(host) {
    pST_SystemDir = MakeFormLabel(this, "pST_SystemDir", "System :");
    pST_DataDir = MakeFormLabel(this, "pST_DataDir", "Data :");
    pST_PProgDir = MakeFormLabel(this, "pST_PProgDir", "Part Program :");
    pST_MeasDir = MakeFormLabel(this, "pST_MeasDir", "Measure :");
    pST_UserDir = MakeFormLabel(this, "pST_UserDir", "User :");
    pSLE_SystemDir = MakeEdit(this, "pSLE_SystemDir");
    pSLE_DataDir = MakeEdit(this, "pSLE_DataDir");
    pSLE_PProgDir = MakeEdit(this, "pSLE_PProgDir");
    pSLE_MeasDir = MakeEdit(this, "pSLE_MeasDir");
    pSLE_UserDir = MakeEdit(this, "pSLE_UserDir");
    pPB_BrowserDir = new QPushButton(QStringLiteral("&Browse"), this);
    pPB_BrowserDir->setObjectName(QStringLiteral("pPB_BrowserDir"));
    // Made once, with the window, and opened again by every browse: it keeps the drive the
    // user was last on, and opening it costs no construction.
    OpenDirDialog_ = new TOpenDirDialog(this);

    directories_ = {{
        {pST_SystemDir, pSLE_SystemDir, 450},
        {pST_DataDir, pSLE_DataDir, 451},
        {pST_PProgDir, pSLE_PProgDir, 452},
        {pST_MeasDir, pSLE_MeasDir, 453},
        {pST_UserDir, pSLE_UserDir, 454},
    }};

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    int row = 0;
    for (const Directory& d : directories_) {
        d.label->setBuddy(d.edit);
        grid->addWidget(d.label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(d.edit, row, 1);
        ++row;
    }
    auto* browse = new QHBoxLayout;
    browse->addStretch(1);
    browse->addWidget(pPB_BrowserDir);
    grid->addLayout(browse, row, 1);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(row + 1, 1);

    ChainTabOrder(
        {pSLE_SystemDir, pSLE_DataDir, pSLE_PProgDir, pSLE_MeasDir, pSLE_UserDir, pPB_BrowserDir});

    connect(pSLE_SystemDir, &EditField::Enter, this, &TDirectoriesPage::pSLE_SystemDirEnter);
    connect(pSLE_SystemDir, &EditField::Exit, this, &TDirectoriesPage::pSLE_SystemDirExit);
    connect(pSLE_DataDir, &EditField::Enter, this, &TDirectoriesPage::pSLE_DataDirEnter);
    connect(pSLE_DataDir, &EditField::Exit, this, &TDirectoriesPage::pSLE_DataDirExit);
    connect(pSLE_PProgDir, &EditField::Enter, this, &TDirectoriesPage::pSLE_PProgDirEnter);
    connect(pSLE_PProgDir, &EditField::Exit, this, &TDirectoriesPage::pSLE_PProgDirExit);
    connect(pSLE_MeasDir, &EditField::Enter, this, &TDirectoriesPage::pSLE_MeasDirEnter);
    connect(pSLE_MeasDir, &EditField::Exit, this, &TDirectoriesPage::pSLE_MeasDirExit);
    connect(pSLE_UserDir, &EditField::Enter, this, &TDirectoriesPage::pSLE_UserDirEnter);
    connect(pSLE_UserDir, &EditField::Exit, this, &TDirectoriesPage::pSLE_UserDirExit);
    connect(pPB_BrowserDir, &QPushButton::clicked, this, &TDirectoriesPage::pPB_BrowserDirClick);
}

TDirectoriesPage::~TDirectoriesPage() {
    // The controls outlive this part of the page by a moment; what they report while going
    // must not reach the handlers of a page that is gone.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

const QWidget* TDirectoriesPage::LastDirectoryEdit() const {
    return lastEdit_;
}

std::string& TDirectoriesPage::Field(std::size_t index) const {
    SetupSettings& settings = host_.Settings();
    std::string* const fields[] = {&settings.SystemDir, &settings.DataDir, &settings.PProgDir,
                                   &settings.MeasDir, &settings.UserDir};
    return *fields[index];
}

void TDirectoriesPage::ShowField(std::size_t index) {
    // setText also clears the modified mark.
    directories_[index].edit->setText(FromAnsi(Field(index)));
}

void TDirectoriesPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    for (const Directory& d : directories_) {
        d.label->setText(host_.LanguageText(d.captionId));
        NameAfterLabel(d.label);
    }
    pPB_BrowserDir->setText(host_.LanguageText(kIdBrowse));
    OpenDirDialog_->setWindowTitle(host_.LanguageText(kIdDialogCaption));
    for (std::size_t i = 0; i < directories_.size(); ++i) ShowField(i);
}

void TDirectoriesPage::DirectoryEnter(std::size_t index) {
    lastEdit_ = directories_[index].edit;
}

void TDirectoriesPage::DirectoryExit(std::size_t index) {
    EditField* edit = directories_[index].edit;
    if (!edit->isModified()) return;
    // The measuring application keeps its directories in upper case; the text is not checked
    // against the disk.
    const QString upper = edit->text().toUpper();
    edit->setText(upper);
    Field(index) = AnsiOf(upper);
    host_.MarkModified();
}

void TDirectoriesPage::pSLE_SystemDirEnter() {
    DirectoryEnter(0);
}
void TDirectoriesPage::pSLE_SystemDirExit() {
    DirectoryExit(0);
}
void TDirectoriesPage::pSLE_DataDirEnter() {
    DirectoryEnter(1);
}
void TDirectoriesPage::pSLE_DataDirExit() {
    DirectoryExit(1);
}
void TDirectoriesPage::pSLE_PProgDirEnter() {
    DirectoryEnter(2);
}
void TDirectoriesPage::pSLE_PProgDirExit() {
    DirectoryExit(2);
}
void TDirectoriesPage::pSLE_MeasDirEnter() {
    DirectoryEnter(3);
}
void TDirectoriesPage::pSLE_MeasDirExit() {
    DirectoryExit(3);
}
void TDirectoriesPage::pSLE_UserDirEnter() {
    DirectoryEnter(4);
}
void TDirectoriesPage::pSLE_UserDirExit() {
    DirectoryExit(4);
}

void TDirectoriesPage::pPB_BrowserDirClick() {
    // The button browses for the directory edit entered last; before any was, it does nothing.
    std::size_t index = directories_.size();
    for (std::size_t i = 0; i < directories_.size(); ++i) {
        if (directories_[i].edit == lastEdit_) index = i;
    }
    if (index == directories_.size()) return;
    EditField* edit = directories_[index].edit;

    TOpenDirDialog& dialog = *OpenDirDialog_;
    dialog.SetDirectory(AnsiOf(edit->text()));
    if (!dialog.Run()) return;
    const QString chosen = FromAnsi(dialog.GetDirectory()).toUpper();
    // In the record at once, and left in the edit as a change not yet committed: leaving the
    // edit (or Save, OK, another page) commits it and marks the settings changed.
    edit->setText(chosen);
    edit->setModified(true);
    Field(index) = AnsiOf(chosen);
    edit->setFocus(Qt::OtherFocusReason);
}

void TDirectoriesPage::Store() {
    for (std::size_t i = 0; i < directories_.size(); ++i) {
        EditField* edit = directories_[i].edit;
        if (edit->hasFocus() && edit->isModified()) DirectoryExit(i);
    }
}

void TDirectoriesPage::Load(bool refreshAll) {
    for (std::size_t i = 0; i < directories_.size(); ++i) {
        EditField* edit = directories_[i].edit;
        if (refreshAll || !(edit->hasFocus() && edit->isModified())) ShowField(i);
    }
    if (refreshAll) {
        // The data directory is where the user most often starts. The focus moves after the
        // edits are filled again, so that moving it commits nothing that is being discarded.
        lastEdit_ = pSLE_DataDir;
        if (pSLE_DataDir->isVisible()) pSLE_DataDir->setFocus(Qt::OtherFocusReason);
    }
}

}  // namespace wk
