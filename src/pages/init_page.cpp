#include "pages/init_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cstdio>

#include "pages/form_controls.h"
#include "settings/directory_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/machine_schema.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 7;
constexpr int kIdAutoPower = 201;
constexpr int kIdAutoInit = 202;
constexpr int kIdAutoLoad = 203;
constexpr int kIdExitCode = 210;
// The exit codes at their positions: no action, park position, home position.
constexpr int kIdExitCodeItems[] = {200, 198, 199};
constexpr int kIdPartProgram = 216;
constexpr int kIdAutoExec = 204;
constexpr int kIdPpMirror = 205;
constexpr int kIdPpName = 211;
constexpr int kIdDefProcName = 187;
constexpr int kIdDefNilFileName = 220;
constexpr int kIdQuickStart = 209;
constexpr int kIdBrowse = 134;
constexpr int kIdZeroes = 217;
constexpr int kIdAutoHome = 207;
constexpr int kIdAutoPh9 = 206;
constexpr int kIdPh9First = 208;
constexpr int kIdSysFiles = 218;
constexpr int kIdProbeFname = 172;
constexpr int kIdRefsysFname = 173;
constexpr int kIdMemoryFname = 174;
constexpr int kIdAutoLoadCode = 215;
// The system-file sets in list order, as on the system parameters page.
constexpr int kIdFileSetItems[] = {157, 158, 159, 160, 161, 163, 164, 165};

// The browse dialog opens in the measuring application's part-program folder; this one when
// the settings file names none.
constexpr const char* kDefaultPProgDir = "C:\\Wzelko\\prog";
constexpr std::uint32_t kPProgDirSize = 200;
// Part programs, whichever of the three edits the file is for.
constexpr const char* kPartProgramExtension = "TEC";

void SetCurrent(QComboBox* list, std::uint32_t position) {
    const QSignalBlocker blocker(list);
    // A stored value that is none of the list's positions shows no item: the user sees that
    // the file holds something else, and it stays so until a choice is made.
    list->setCurrentIndex(
        position < static_cast<std::uint32_t>(list->count()) ? static_cast<int>(position) : -1);
}

QLineEdit* MakeShownName(QWidget* parent, const char* name) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setReadOnly(true);
    return edit;
}

}  // namespace

TInitPage::TInitPage(PageHost& host) : KestelPage(host) {
    pCHB_AutoPower = MakeFormCheck(this, "pCHB_AutoPower", "Auto power on");
    pCHB_AutoInit = MakeFormCheck(this, "pCHB_AutoInit", "Auto Init");
    pCHB_AutoLoad = MakeFormCheck(this, "pCHB_AutoLoad", "Auto load part program");
    pST_ExitCode = MakeFormLabel(this, "pST_ExitCode", "Exit Code:");
    pCB_ExitCode = MakeFormList(this, "pCB_ExitCode");

    pGBX_PP = MakeFormGroup(this, "pGBX_PP", "Part Program");
    pCHB_AutoExec = MakeFormCheck(pGBX_PP, "pCHB_AutoExec", "Auto Execution");
    pCHB_PP_Mirror = MakeFormCheck(pGBX_PP, "pCHB_PP_Mirror", "Show running");
    pST_PP_Name = MakeFormLabel(pGBX_PP, "pST_PP_Name", "Part program to run:");
    pSLE_PP_Name = MakeFormEdit(pGBX_PP, "pSLE_PP_Name");
    pST_DefProcName = MakeFormLabel(pGBX_PP, "pST_DefProcName", "External procedures");
    pSLE_DefProcName = MakeFormEdit(pGBX_PP, "pSLE_DefProcName");
    pST_DefNilFileName = MakeFormLabel(pGBX_PP, "pST_DefNilFileName", "NIL PProg File Name");
    pSLE_DefNilFileName = MakeFormEdit(pGBX_PP, "pSLE_DefNilFileName");
    pCHB_No_Inter_Exec = MakeFormCheck(pGBX_PP, "pCHB_No_Inter_Exec", "Quick Start");
    pPB_BrowserInit = MakeFormButton(pGBX_PP, "pPB_BrowserInit", "&Browse");

    pGBX_Zeroes = MakeFormGroup(this, "pGBX_Zeroes", "Zeroes");
    pCHB_AutoHome = MakeFormCheck(pGBX_Zeroes, "pCHB_AutoHome", "Auto Home");
    pCHB_AutoPH9 = MakeFormCheck(pGBX_Zeroes, "pCHB_AutoPH9", "Auto PH9/PH10");
    pCHB_PH9_First = MakeFormCheck(pGBX_Zeroes, "pCHB_PH9_First", "PH9/PH10 First");
    pCHB_No_Inter_Init = MakeFormCheck(pGBX_Zeroes, "pCHB_No_Inter_Init", "Quick Start");

    pGBX_SysFilesIni = MakeFormGroup(this, "pGBX_SysFilesIni", "System files");
    pST_Probe_Label = MakeFormLabel(pGBX_SysFilesIni, "pST_Probe_Label", "Probe file name:");
    pST_ProbeFnameIni = MakeShownName(pGBX_SysFilesIni, "pST_ProbeFnameIni");
    pST_Refsys_Label = MakeFormLabel(pGBX_SysFilesIni, "pST_Refsys_Label", "Refsys file name:");
    pST_RefsysFnameIni = MakeShownName(pGBX_SysFilesIni, "pST_RefsysFnameIni");
    pST_Memory_Label =
        MakeFormLabel(pGBX_SysFilesIni, "pST_Memory_Label", "Memory array file name:");
    pST_MemoryFnameIni = MakeShownName(pGBX_SysFilesIni, "pST_MemoryFnameIni");
    pST_AutoLoad = MakeFormLabel(pGBX_SysFilesIni, "pST_AutoLoad", "Auto Load:");
    pCB_AutoLoad = MakeFormList(pGBX_SysFilesIni, "pCB_AutoLoad");

    // The part program: its options, then its three files, each a label over its edit.
    auto* pp = new QGridLayout(pGBX_PP);
    pp->setVerticalSpacing(4);
    pp->addWidget(pCHB_AutoExec, 0, 0, 1, 2);
    pp->addWidget(pCHB_PP_Mirror, 1, 0, 1, 2);
    int row = 2;
    for (auto [label, edit] : {std::pair<QLabel*, EditField*>{pST_PP_Name, pSLE_PP_Name},
                               {pST_DefProcName, pSLE_DefProcName},
                               {pST_DefNilFileName, pSLE_DefNilFileName}}) {
        label->setBuddy(edit);
        pp->addWidget(label, row++, 0, 1, 2);
        pp->addWidget(edit, row++, 0, 1, 2);
    }
    pp->addWidget(pCHB_No_Inter_Exec, row, 0);
    pp->addWidget(pPB_BrowserInit, row, 1, Qt::AlignRight);
    pp->setRowStretch(row + 1, 1);

    auto* zeroes = new QGridLayout(pGBX_Zeroes);
    zeroes->setVerticalSpacing(4);
    zeroes->addWidget(pCHB_AutoHome, 0, 0);
    zeroes->addWidget(pCHB_AutoPH9, 1, 0);
    zeroes->addWidget(pCHB_PH9_First, 2, 0);
    zeroes->addWidget(pCHB_No_Inter_Init, 3, 0);

    auto* files = new QGridLayout(pGBX_SysFilesIni);
    files->setHorizontalSpacing(8);
    files->setVerticalSpacing(6);
    row = 0;
    for (auto [label, control] : {std::pair<QLabel*, QWidget*>{pST_Probe_Label, pST_ProbeFnameIni},
                                  {pST_Refsys_Label, pST_RefsysFnameIni},
                                  {pST_Memory_Label, pST_MemoryFnameIni},
                                  {pST_AutoLoad, pCB_AutoLoad}}) {
        label->setBuddy(control);
        files->addWidget(label, row, 0, Qt::AlignLeft);
        files->addWidget(control, row, 1);
        ++row;
    }
    files->setColumnStretch(1, 1);
    // The file sets take the room there is; their longest item would otherwise widen the page
    // beyond the window. (The exit codes have the top row to themselves.)
    pCB_AutoLoad->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    pCB_AutoLoad->setMinimumContentsLength(12);
    pCB_AutoLoad->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    // Above: what happens at start and on leaving; below, side by side: the part program, and
    // the zeroes over the system files.
    auto* start = new QGridLayout;
    start->setHorizontalSpacing(20);
    start->addWidget(pCHB_AutoPower, 0, 0);
    start->addWidget(pCHB_AutoInit, 1, 0);
    start->addWidget(pCHB_AutoLoad, 2, 0);
    pST_ExitCode->setBuddy(pCB_ExitCode);
    auto* exitCode = new QHBoxLayout;
    exitCode->addWidget(pST_ExitCode);
    exitCode->addWidget(pCB_ExitCode);
    exitCode->addStretch(1);
    start->addLayout(exitCode, 0, 1);
    start->setColumnStretch(1, 1);

    auto* right = new QVBoxLayout;
    right->setSpacing(10);
    right->addWidget(pGBX_Zeroes);
    right->addWidget(pGBX_SysFilesIni);
    right->addStretch(1);

    auto* groups = new QHBoxLayout;
    groups->setSpacing(12);
    groups->addWidget(pGBX_PP, 1);
    groups->addLayout(right, 1);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(10);
    page->addLayout(start);
    page->addLayout(groups, 1);

    ChainTabOrder({pCHB_AutoPower, pCHB_AutoInit, pCHB_AutoLoad, pCB_ExitCode, pCHB_AutoExec,
                   pCHB_PP_Mirror, pSLE_PP_Name, pSLE_DefProcName, pSLE_DefNilFileName,
                   pCHB_No_Inter_Exec, pPB_BrowserInit, pCHB_AutoHome, pCHB_AutoPH9, pCHB_PH9_First,
                   pCHB_No_Inter_Init, pST_ProbeFnameIni, pST_RefsysFnameIni, pST_MemoryFnameIni,
                   pCB_AutoLoad});

    // activated: the user's choice only, never the page putting a list at the record's value
    // (nor the exit code's list being put back).
    connect(pCB_ExitCode, &QComboBox::activated, this, &TInitPage::pCB_ExitCodeChange);
    connect(pCB_AutoLoad, &QComboBox::activated, this, &TInitPage::pCB_AutoLoadChange);
    connect(pCHB_AutoPower, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoPowerClick);
    connect(pCHB_AutoInit, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoInitClick);
    connect(pCHB_AutoLoad, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoLoadClick);
    connect(pCHB_AutoExec, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoExecClick);
    connect(pCHB_PP_Mirror, &QCheckBox::clicked, this, &TInitPage::pCHB_PP_MirrorClick);
    connect(pCHB_No_Inter_Exec, &QCheckBox::clicked, this, &TInitPage::pCHB_No_Inter_ExecClick);
    connect(pCHB_AutoHome, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoHomeClick);
    connect(pCHB_AutoPH9, &QCheckBox::clicked, this, &TInitPage::pCHB_AutoPH9Click);
    connect(pCHB_PH9_First, &QCheckBox::clicked, this, &TInitPage::pCHB_PH9_FirstClick);
    connect(pCHB_No_Inter_Init, &QCheckBox::clicked, this, &TInitPage::pCHB_No_Inter_InitClick);
    connect(pPB_BrowserInit, &QPushButton::clicked, this, &TInitPage::pPB_BrowserInitClick);
    connect(pSLE_PP_Name, &EditField::Enter, this, &TInitPage::pSLE_PP_NameEnter);
    connect(pSLE_PP_Name, &EditField::Exit, this, &TInitPage::pSLE_PP_NameExit);
    connect(pSLE_DefProcName, &EditField::Enter, this, &TInitPage::pSLE_DefProcNameEnter);
    connect(pSLE_DefProcName, &EditField::Exit, this, &TInitPage::pSLE_DefProcNameExit);
    connect(pSLE_DefNilFileName, &EditField::Enter, this, &TInitPage::pSLE_DefNilFileNameEnter);
    connect(pSLE_DefNilFileName, &EditField::Exit, this, &TInitPage::pSLE_DefNilFileNameExit);
}

TInitPage::~TInitPage() {
    // The edits may report leaving while the window goes; no handler of a page that is gone
    // may run then.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

// ---- initialisation, store, load ---------------------------------------------------------

void TInitPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pCHB_AutoPower->setText(host_.LanguageText(kIdAutoPower));
    pCHB_AutoInit->setText(host_.LanguageText(kIdAutoInit));
    pCHB_AutoLoad->setText(host_.LanguageText(kIdAutoLoad));
    pST_ExitCode->setText(host_.LanguageText(kIdExitCode));
    pGBX_PP->setTitle(host_.LanguageText(kIdPartProgram));
    pCHB_AutoExec->setText(host_.LanguageText(kIdAutoExec));
    pCHB_PP_Mirror->setText(host_.LanguageText(kIdPpMirror));
    pST_PP_Name->setText(host_.LanguageText(kIdPpName));
    pST_DefProcName->setText(host_.LanguageText(kIdDefProcName));
    pST_DefNilFileName->setText(host_.LanguageText(kIdDefNilFileName));
    pCHB_No_Inter_Exec->setText(host_.LanguageText(kIdQuickStart));
    pPB_BrowserInit->setText(host_.LanguageText(kIdBrowse));
    pGBX_Zeroes->setTitle(host_.LanguageText(kIdZeroes));
    pCHB_AutoHome->setText(host_.LanguageText(kIdAutoHome));
    pCHB_AutoPH9->setText(host_.LanguageText(kIdAutoPh9));
    pCHB_PH9_First->setText(host_.LanguageText(kIdPh9First));
    pCHB_No_Inter_Init->setText(host_.LanguageText(kIdQuickStart));
    pGBX_SysFilesIni->setTitle(host_.LanguageText(kIdSysFiles));
    pST_Probe_Label->setText(host_.LanguageText(kIdProbeFname));
    pST_Refsys_Label->setText(host_.LanguageText(kIdRefsysFname));
    pST_Memory_Label->setText(host_.LanguageText(kIdMemoryFname));
    pST_AutoLoad->setText(host_.LanguageText(kIdAutoLoadCode));

    for (const QLabel* label :
         {pST_ExitCode, pST_PP_Name, pST_DefProcName, pST_DefNilFileName, pST_Probe_Label,
          pST_Refsys_Label, pST_Memory_Label, pST_AutoLoad}) {
        NameAfterLabel(label);
    }
    NameAfterCaption({pCHB_AutoPower, pCHB_AutoInit, pCHB_AutoLoad, pGBX_PP, pCHB_AutoExec,
                      pCHB_PP_Mirror, pCHB_No_Inter_Exec, pPB_BrowserInit, pGBX_Zeroes,
                      pCHB_AutoHome, pCHB_AutoPH9, pCHB_PH9_First, pCHB_No_Inter_Init,
                      pGBX_SysFilesIni});
    // The two quick starts share a caption; their group tells them apart.
    pCHB_No_Inter_Exec->setAccessibleDescription(pGBX_PP->title());
    pCHB_No_Inter_Init->setAccessibleDescription(pGBX_Zeroes->title());

    pCB_ExitCode->clear();
    for (int id : kIdExitCodeItems) pCB_ExitCode->addItem(host_.LanguageText(id));
    pCB_AutoLoad->clear();
    for (int id : kIdFileSetItems) pCB_AutoLoad->addItem(host_.LanguageText(id));

    const InitSettings& settings = host_.Settings();
    pSLE_PP_Name->setText(FromAnsi(settings.RunPProg));
    pSLE_DefProcName->setText(FromAnsi(settings.ExtProcFileName));
    pSLE_DefNilFileName->setText(FromAnsi(settings.NilFileName));
    ShowSystemFiles();
    pPB_BrowserInit->setEnabled(false);
    ShowChoices();
}

void TInitPage::ShowChoices() {
    const InitSettings& settings = host_.Settings();
    SetCurrent(pCB_ExitCode, settings.ExitCode);
    SetCurrent(pCB_AutoLoad, settings.AutoLoadCode < settings.AutoLoadCodeToPosition.size()
                                 ? settings.AutoLoadCodeToPosition[settings.AutoLoadCode]
                                 : static_cast<std::uint32_t>(-1));
    pCHB_AutoPower->setChecked(settings.AutoPower);
    pCHB_AutoInit->setChecked(settings.AutoInit);
    pCHB_AutoLoad->setChecked(settings.AutoLoad);
    pCHB_AutoExec->setChecked(settings.AutoExec);
    pCHB_PP_Mirror->setChecked(settings.PartProgramWindowOnRun);
    pCHB_No_Inter_Exec->setChecked(settings.NoInteractiveExec);
    pCHB_AutoHome->setChecked(settings.AutoHome);
    pCHB_AutoPH9->setChecked(settings.AutoPh9);
    pCHB_PH9_First->setChecked(settings.Ph9First);
    pCHB_No_Inter_Init->setChecked(settings.NoInteractiveInit);
    ApplyEnabling();
}

void TInitPage::ApplyEnabling() {
    // Each step may undo what an earlier one did for the same box; the last one stands.
    const InitSettings& settings = host_.Settings();
    // Initialising and loading need the machine switched on at start...
    pCHB_AutoInit->setEnabled(settings.AutoPower);
    pCHB_AutoLoad->setEnabled(settings.AutoPower);
    if (!settings.AutoPower) pCHB_AutoExec->setEnabled(false);
    // ...or, for loading, initialised.
    if (settings.AutoInit || settings.AutoPower) {
        pCHB_AutoLoad->setEnabled(true);
    } else {
        pCHB_AutoExec->setEnabled(false);
    }
    // A part program can run by itself once something happens at start.
    pCHB_AutoExec->setEnabled(settings.AutoInit || settings.AutoPower || settings.AutoLoad);
    pCHB_PH9_First->setEnabled(settings.AutoPh9);
    // Homing and the head belong to an initialisation, quick or automatic.
    if (!settings.NoInteractiveInit && !settings.AutoInit) {
        pCHB_AutoPH9->setEnabled(false);
        pCHB_AutoHome->setEnabled(false);
        pCHB_PH9_First->setEnabled(false);
    } else {
        pCHB_AutoPH9->setEnabled(true);
        pCHB_AutoHome->setEnabled(true);
    }
}

void TInitPage::ShowSystemFiles() {
    const InitSettings& settings = host_.Settings();
    pST_ProbeFnameIni->setText(FromAnsi(settings.QualiFileName));
    pST_RefsysFnameIni->setText(FromAnsi(settings.RefSysFileName));
    pST_MemoryFnameIni->setText(FromAnsi(settings.MemoryFileName));
}

void TInitPage::Store() {
    // The external procedures file is taken only when its edit is left.
    if (pSLE_DefNilFileName->hasFocus() && pSLE_DefNilFileName->isModified()) {
        CommitFileName(pSLE_DefNilFileName, &InitSettings::SetNilFileName);
    }
    if (pSLE_PP_Name->hasFocus() && pSLE_PP_Name->isModified()) {
        CommitFileName(pSLE_PP_Name, &InitSettings::SetRunPProg);
    }
}

void TInitPage::Load(bool refreshAll) {
    const InitSettings& settings = host_.Settings();
    // Without refreshAll only the edit being typed in is put back. The external procedures
    // file is not put back either way: what is typed there counts once the edit is left.
    if (refreshAll || (pSLE_DefNilFileName->hasFocus() && pSLE_DefNilFileName->isModified())) {
        pSLE_DefNilFileName->setText(FromAnsi(settings.NilFileName));
    }
    if (refreshAll || (pSLE_PP_Name->hasFocus() && pSLE_PP_Name->isModified())) {
        pSLE_PP_Name->setText(FromAnsi(settings.RunPProg));
    }
    if (refreshAll) {
        // The system files may have been renamed on the system parameters page meanwhile, and
        // after the files were read again (the user discarded the changes) every option
        // shows what was read.
        ShowSystemFiles();
        ShowChoices();
    }
}

// ---- check boxes and lists ---------------------------------------------------------------

void TInitPage::ChoiceMade() {
    host_.MarkModified();
    pPB_BrowserInit->setEnabled(false);
}

void TInitPage::EnableZeroes() {
    const InitSettings& settings = host_.Settings();
    const bool initialising = settings.NoInteractiveInit || settings.AutoInit;
    pCHB_AutoPH9->setEnabled(initialising);
    pCHB_AutoHome->setEnabled(initialising);
    pCHB_PH9_First->setEnabled(initialising && settings.AutoPh9);
}

void TInitPage::pCHB_AutoPowerClick() {
    InitSettings& settings = host_.Settings();
    settings.AutoPower = pCHB_AutoPower->isChecked();
    // The boxes that are disabled keep their values.
    if (settings.AutoPower) {
        pCHB_AutoInit->setEnabled(true);
        pCHB_AutoLoad->setEnabled(true);
        if (settings.AutoLoad) pCHB_AutoExec->setEnabled(true);
    } else {
        pCHB_AutoInit->setEnabled(false);
        pCHB_AutoLoad->setEnabled(false);
        pCHB_AutoExec->setEnabled(false);
    }
    ChoiceMade();
}

void TInitPage::pCHB_AutoInitClick() {
    InitSettings& settings = host_.Settings();
    settings.AutoInit = pCHB_AutoInit->isChecked();
    EnableZeroes();
    if (settings.NoInteractiveInit || settings.AutoInit) {
        // Kept as it has always been: with a part program loaded at start, initialising
        // automatically disables its automatic execution rather than enabling it.
        if (settings.AutoLoad) pCHB_AutoExec->setEnabled(false);
    } else {
        pCHB_AutoExec->setEnabled(false);
    }
    ChoiceMade();
}

void TInitPage::pCHB_No_Inter_InitClick() {
    host_.Settings().NoInteractiveInit = pCHB_No_Inter_Init->isChecked();
    EnableZeroes();
    ChoiceMade();
}

void TInitPage::pCHB_AutoLoadClick() {
    InitSettings& settings = host_.Settings();
    settings.AutoLoad = pCHB_AutoLoad->isChecked();
    pCHB_AutoExec->setEnabled(settings.AutoLoad);
    ChoiceMade();
}

void TInitPage::pCHB_AutoPH9Click() {
    InitSettings& settings = host_.Settings();
    settings.AutoPh9 = pCHB_AutoPH9->isChecked();
    if (settings.AutoPh9) {
        pCHB_PH9_First->setEnabled(true);
    } else {
        // Without the head set up at start it cannot come first.
        settings.Ph9First = false;
        pCHB_PH9_First->setChecked(false);
        pCHB_PH9_First->setEnabled(false);
    }
    ChoiceMade();
}

void TInitPage::pCHB_AutoExecClick() {
    host_.Settings().AutoExec = pCHB_AutoExec->isChecked();
    ChoiceMade();
}

void TInitPage::pCHB_PP_MirrorClick() {
    host_.Settings().PartProgramWindowOnRun = pCHB_PP_Mirror->isChecked();
    ChoiceMade();
}

void TInitPage::pCHB_No_Inter_ExecClick() {
    host_.Settings().NoInteractiveExec = pCHB_No_Inter_Exec->isChecked();
    ChoiceMade();
}

void TInitPage::pCHB_AutoHomeClick() {
    host_.Settings().AutoHome = pCHB_AutoHome->isChecked();
    ChoiceMade();
}

void TInitPage::pCHB_PH9_FirstClick() {
    host_.Settings().Ph9First = pCHB_PH9_First->isChecked();
    ChoiceMade();
}

void TInitPage::pCB_ExitCodeChange() {
    // Only a CNC machine moves by itself when the measuring application ends. Whether it is
    // one is what the settings file says now ("CNC" of "CMM"), not the page's record.
    if (ReadProfileBool(kCnc)) {
        host_.Settings().ExitCode = static_cast<std::uint32_t>(pCB_ExitCode->currentIndex());
        ChoiceMade();
        return;
    }
    // Put back without a change of the record; setting the position raises no new choice.
    pCB_ExitCode->setCurrentIndex(0);
    pPB_BrowserInit->setEnabled(false);
}

void TInitPage::pCB_AutoLoadChange() {
    const int position = pCB_AutoLoad->currentIndex();
    InitSettings& settings = host_.Settings();
    if (position < 0 || position >= static_cast<int>(settings.AutoLoadPositionToCode.size())) {
        return;
    }
    settings.AutoLoadCode = settings.AutoLoadPositionToCode[static_cast<std::size_t>(position)];
    ChoiceMade();
}

// ---- file-name edits ---------------------------------------------------------------------

void TInitPage::FileNameEnter(EditField* edit) {
    host_.ActiveFile().Enter(edit);
    pPB_BrowserInit->setEnabled(true);
}

void TInitPage::CommitFileName(EditField* edit, void (InitSettings::*setter)(const std::string&)) {
    // Part programs are named in upper case, as the measuring application looks them up.
    const std::string name = ToUpperAscii(AnsiText(edit));
    edit->setText(FromAnsi(name));
    (host_.Settings().*setter)(name);
    host_.MarkModified();
}

void TInitPage::pSLE_PP_NameEnter() {
    FileNameEnter(pSLE_PP_Name);
}

void TInitPage::pSLE_PP_NameExit() {
    if (pSLE_PP_Name->isModified()) CommitFileName(pSLE_PP_Name, &InitSettings::SetRunPProg);
}

void TInitPage::pSLE_DefProcNameEnter() {
    FileNameEnter(pSLE_DefProcName);
}

void TInitPage::pSLE_DefProcNameExit() {
    if (pSLE_DefProcName->isModified()) {
        CommitFileName(pSLE_DefProcName, &InitSettings::SetExtProcFileName);
    }
}

void TInitPage::pSLE_DefNilFileNameEnter() {
    FileNameEnter(pSLE_DefNilFileName);
}

void TInitPage::pSLE_DefNilFileNameExit() {
    if (pSLE_DefNilFileName->isModified()) {
        CommitFileName(pSLE_DefNilFileName, &InitSettings::SetNilFileName);
    }
}

void TInitPage::pPB_BrowserInitClick() {
    char pprogDir[kPProgDirSize] = {};
    if (ReadProfileText(kPProgDir, pprogDir, kPProgDirSize) == 0) {
        std::snprintf(pprogDir, sizeof pprogDir, "%s", kDefaultPProgDir);
    }
    EditField* edit = nullptr;
    for (EditField* own : {pSLE_PP_Name, pSLE_DefProcName, pSLE_DefNilFileName}) {
        if (host_.ActiveFile().Is(own)) edit = own;
    }
    // The file-name edit entered last is the system parameters page's: not this button's.
    if (!edit) return;
    std::string path;
    if (!host_.BrowseForFile(path, pprogDir, kPartProgramExtension,
                             AnsiOf(host_.LanguageText(kIdPartProgram)))) {
        return;
    }
    // Taken (upper-cased and stored) when the edit is left or the page is stored.
    edit->setText(FromAnsi(path));
    edit->setModified(true);
    edit->setFocus(Qt::OtherFocusReason);
}

}  // namespace wk
