#include "pages/system_param_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cstdio>

#include "i18n/resgenstring.h"
#include "pages/form_controls.h"
#include "platform/text_to_number.h"
#include "settings/directory_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/printer_list.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 6;
constexpr int kIdLanguage = 169;
constexpr int kIdCalibDiam = 170;
constexpr int kIdMillimetres = 86;
constexpr int kIdInches = 87;
constexpr int kIdThreshold = 178;
constexpr int kIdTruePosErr = 180;
constexpr int kIdCompensLine = 162;
constexpr int kIdLinearityErr = 184;
constexpr int kIdGraphPrinter = 188;
constexpr int kIdFenWire = 175;
constexpr int kIdDblFormErr = 177;
constexpr int kIdDosCompatib = 171;
constexpr int kIdElemAccel = 182;
constexpr int kIdUseLastMem = 183;
constexpr int kIdSelfTeachRef0 = 185;
constexpr int kIdUseFormat = 186;
constexpr int kIdPrintAtEnd = 181;
constexpr int kIdGeoElemCreated = 189;
constexpr int kIdQuickAlign = 190;
constexpr int kIdImmediateDataInput = 191;
constexpr int kIdWaitAtEndExec = 192;
constexpr int kIdSysFiles = 218;
constexpr int kIdProbeFname = 172;
constexpr int kIdRefsysFname = 173;
constexpr int kIdMemoryFname = 174;
constexpr int kIdAutoSave = 179;
constexpr int kIdBrowse = 134;
// The two error lists: radius at position 0, diameter at position 1.
constexpr int kIdErrorItems[] = {155, 156};
// The two 3D line compensation modes, at their mode's position.
constexpr int kIdCompensLineItems[] = {166, 167};
// The system-file sets in list order: none, all, probe, reference system, memory, probe and
// reference system, probe and memory, reference system and memory. The probe, reference-system
// and memory strings also describe those files in the browse dialog.
constexpr int kIdFileSetItems[] = {157, 158, 159, 160, 161, 163, 164, 165};
constexpr int kIdProbeFiles = 159;
constexpr int kIdRefsysFiles = 160;
constexpr int kIdMemoryFiles = 161;

// The browse dialog opens in the measuring application's data folder; this one when the
// settings file names none.
constexpr const char* kDefaultDataDir = "C:\\Wzelko\\data";
constexpr std::uint32_t kDataDirSize = 200;
constexpr std::uint32_t kLanguageValueSize = 80;
// The mark of a language whose entries in the two settings files differ.
constexpr const char* kDifferingLanguageMark = "(*)";

void FillList(QComboBox* list, PageHost& host, std::initializer_list<int> ids) {
    list->clear();
    for (int id : ids) list->addItem(host.LanguageText(id));
}

void SetCurrent(QComboBox* list, int position) {
    const QSignalBlocker blocker(list);
    list->setCurrentIndex(position < list->count() ? position : -1);
}

}  // namespace

TSysParPage::TSysParPage(PageHost& host) : KestelPage(host) {
    pST_Language = MakeFormLabel(this, "pST_Language", "Language:");
    pCB_Language = MakeFormList(this, "pCB_Language");
    pST_CalibDiam = MakeFormLabel(this, "pST_CalibDiam", "Gauge Diameter:");
    pSLE_CalibDiam = MakeFormEdit(this, "pSLE_CalibDiam");
    pST_Calib_UNITY = MakeFormLabel(this, "pST_Calib_UNITY", "[mm]");
    pST_ThreSholdAng = MakeFormLabel(this, "pST_ThreSholdAng", "Thresh. Inters. angle:");
    pSLE_ThreSholdAng = MakeFormEdit(this, "pSLE_ThreSholdAng");
    pST_TruePosErr = MakeFormLabel(this, "pST_TruePosErr", "True Position Error:");
    pCB_TruePosErr = MakeFormList(this, "pCB_TruePosErr");
    pST_Compens_Line = MakeFormLabel(this, "pST_Compens_Line", "3D Line comp. mode:");
    pCB_Compens_Line = MakeFormList(this, "pCB_Compens_Line");
    pST_LinearityErr = MakeFormLabel(this, "pST_LinearityErr", "Linearity Error:");
    pCB_LinearityErr = MakeFormList(this, "pCB_LinearityErr");
    pST_GraphPrinter = MakeFormLabel(this, "pST_GraphPrinter", "Printer for graphics:");
    pCB_GraphPrinter = MakeFormList(this, "pCB_GraphPrinter");

    pCHB_TP200 = MakeFormCheck(this, "pCHB_TP200", "TP&200");
    pCHB_FenWire = MakeFormCheck(this, "pCHB_FenWire", "Fen &Wire");
    pCHB_DblFormErr = MakeFormCheck(this, "pCHB_DblFormErr", "Double Form Error");
    pCHB_DosCompatib = MakeFormCheck(this, "pCHB_DosCompatib", "Dos PP Compatibility");
    pCHB_ElemAccel = MakeFormCheck(this, "pCHB_ElemAccel", "Element Accelerator");
    pCHB_UseLastMem = MakeFormCheck(this, "pCHB_UseLastMem", "Macro using last memories");
    pCHB_SelfTeachRef0 = MakeFormCheck(this, "pCHB_SelfTeachRef0", "Self-Teach Ref0");
    pCHB_UseFormat = MakeFormCheck(this, "pCHB_UseFormat", "Geo tolerances using format");
    pCHB_PrintAtEnd = MakeFormCheck(this, "pCHB_PrintAtEnd", "Print at end PProg");
    pCHB_GeoElemCreated =
        MakeFormCheck(this, "pCHB_GeoElemCreated", "New element by Geo Tolerances");
    pCHB_QuickAlign = MakeFormCheck(this, "pCHB_QuickAlign", "Quick Alignement");
    pCHB_ImmediateDataInput =
        MakeFormCheck(this, "pCHB_ImmediateDataInput", "Procedure Parameter Window");
    pCHB_WaitAtEndExec =
        MakeFormCheck(this, "pCHB_WaitAtEndExec", "Terminate PProg without quitting");
    // Options the measuring application decides for itself today: shown with their values,
    // which are kept, but never changed here.
    for (QCheckBox* fixed :
         {pCHB_ElemAccel, pCHB_UseLastMem, pCHB_SelfTeachRef0, pCHB_QuickAlign}) {
        fixed->setEnabled(false);
    }

    pGBX_SysFilesSt = MakeFormGroup(this, "pGBX_SysFilesSt", "System files");
    pST_ProbeFnameSt = MakeFormLabel(pGBX_SysFilesSt, "pST_ProbeFnameSt", "Probe file name:");
    pSLE_ProbeFname = MakeFormEdit(pGBX_SysFilesSt, "pSLE_ProbeFname");
    pST_RefsysFnameSt = MakeFormLabel(pGBX_SysFilesSt, "pST_RefsysFnameSt", "Refsys file name:");
    pSLE_RefsysFname = MakeFormEdit(pGBX_SysFilesSt, "pSLE_RefsysFname");
    pST_MemoryFnameSt =
        MakeFormLabel(pGBX_SysFilesSt, "pST_MemoryFnameSt", "Memory array file name");
    pSLE_MemoryFname = MakeFormEdit(pGBX_SysFilesSt, "pSLE_MemoryFname");
    pST_AutoSave = MakeFormLabel(pGBX_SysFilesSt, "pST_AutoSave", "AutoSave");
    pCB_AutoSave = MakeFormList(pGBX_SysFilesSt, "pCB_AutoSave");
    pPB_BrowserSys = MakeFormButton(pGBX_SysFilesSt, "pPB_BrowserSys", "Browser");

    // Left: the values and lists above the system files; right: the options.
    auto* values = new QGridLayout;
    values->setHorizontalSpacing(8);
    values->setVerticalSpacing(6);
    const struct {
        QLabel* label;
        QWidget* control;
    } rows[] = {
        {pST_Language, pCB_Language},          {pST_CalibDiam, pSLE_CalibDiam},
        {pST_ThreSholdAng, pSLE_ThreSholdAng}, {pST_TruePosErr, pCB_TruePosErr},
        {pST_Compens_Line, pCB_Compens_Line},  {pST_LinearityErr, pCB_LinearityErr},
        {pST_GraphPrinter, pCB_GraphPrinter},
    };
    int row = 0;
    for (const auto& r : rows) {
        r.label->setBuddy(r.control);
        values->addWidget(r.label, row, 0, Qt::AlignLeft);
        if (r.control == pSLE_CalibDiam) {
            // The unit right after the diameter it is the unit of.
            auto* diameter = new QHBoxLayout;
            diameter->addWidget(pSLE_CalibDiam);
            diameter->addWidget(pST_Calib_UNITY);
            diameter->addStretch(1);
            values->addLayout(diameter, row, 1);
        } else {
            values->addWidget(r.control, row, 1);
        }
        ++row;
    }
    values->setColumnStretch(1, 1);
    pSLE_CalibDiam->setMaximumWidth(120);
    pSLE_ThreSholdAng->setMaximumWidth(120);
    // The lists take the room there is; their longest items (printers, file sets) would
    // otherwise widen the page beyond the window.
    for (QComboBox* list : {pCB_Language, pCB_TruePosErr, pCB_Compens_Line, pCB_LinearityErr,
                            pCB_GraphPrinter, pCB_AutoSave}) {
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(12);
        list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    auto* files = new QGridLayout(pGBX_SysFilesSt);
    files->setHorizontalSpacing(8);
    files->setVerticalSpacing(6);
    const struct {
        QLabel* label;
        QWidget* control;
    } fileRows[] = {
        {pST_ProbeFnameSt, pSLE_ProbeFname},
        {pST_RefsysFnameSt, pSLE_RefsysFname},
        {pST_MemoryFnameSt, pSLE_MemoryFname},
        {pST_AutoSave, pCB_AutoSave},
    };
    row = 0;
    for (const auto& r : fileRows) {
        r.label->setBuddy(r.control);
        files->addWidget(r.label, row, 0, Qt::AlignLeft);
        files->addWidget(r.control, row, 1);
        ++row;
        // Browse under the file names it fills.
        if (r.control == pSLE_MemoryFname)
            files->addWidget(pPB_BrowserSys, row++, 1, Qt::AlignRight);
    }
    files->setColumnStretch(1, 1);

    auto* left = new QVBoxLayout;
    left->setSpacing(12);
    left->addLayout(values);
    left->addWidget(pGBX_SysFilesSt);
    left->addStretch(1);

    auto* options = new QVBoxLayout;
    options->setSpacing(4);
    for (QCheckBox* check :
         {pCHB_TP200, pCHB_FenWire, pCHB_DblFormErr, pCHB_DosCompatib, pCHB_ElemAccel,
          pCHB_UseLastMem, pCHB_SelfTeachRef0, pCHB_UseFormat, pCHB_PrintAtEnd, pCHB_GeoElemCreated,
          pCHB_QuickAlign, pCHB_ImmediateDataInput, pCHB_WaitAtEndExec}) {
        options->addWidget(check);
    }
    options->addStretch(1);

    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(16);
    page->addLayout(left, 3);
    page->addLayout(options, 2);

    ChainTabOrder(
        {pCB_Language,      pSLE_CalibDiam,      pSLE_ThreSholdAng,  pCB_TruePosErr,
         pCB_Compens_Line,  pCB_LinearityErr,    pCB_GraphPrinter,   pSLE_ProbeFname,
         pSLE_RefsysFname,  pSLE_MemoryFname,    pPB_BrowserSys,     pCB_AutoSave,
         pCHB_TP200,        pCHB_FenWire,        pCHB_DblFormErr,    pCHB_DosCompatib,
         pCHB_ElemAccel,    pCHB_UseLastMem,     pCHB_SelfTeachRef0, pCHB_UseFormat,
         pCHB_PrintAtEnd,   pCHB_GeoElemCreated, pCHB_QuickAlign,    pCHB_ImmediateDataInput,
         pCHB_WaitAtEndExec});

    // activated: the user's choice only (a click, the keyboard, the wheel), never the page
    // putting a list at the record's position.
    connect(pCB_Language, &QComboBox::activated, this, &TSysParPage::pCB_LanguageChange);
    connect(pCB_TruePosErr, &QComboBox::activated, this, &TSysParPage::pCB_TruePosErrChange);
    connect(pCB_Compens_Line, &QComboBox::activated, this, &TSysParPage::pCB_Compens_LineChange);
    connect(pCB_LinearityErr, &QComboBox::activated, this, &TSysParPage::pCB_LinearityErrChange);
    connect(pCB_GraphPrinter, &QComboBox::activated, this, &TSysParPage::pCB_GraphPrinterChange);
    connect(pCB_AutoSave, &QComboBox::activated, this, &TSysParPage::pCB_AutoSaveChange);
    connect(pCHB_TP200, &QCheckBox::clicked, this, &TSysParPage::pCHB_TP200Click);
    connect(pCHB_FenWire, &QCheckBox::clicked, this, &TSysParPage::pCHB_FenWireClick);
    connect(pCHB_DblFormErr, &QCheckBox::clicked, this, &TSysParPage::pCHB_DblFormErrClick);
    connect(pCHB_DosCompatib, &QCheckBox::clicked, this, &TSysParPage::pCHB_DosCompatibClick);
    connect(pCHB_ElemAccel, &QCheckBox::clicked, this, &TSysParPage::pCHB_ElemAccelClick);
    connect(pCHB_UseLastMem, &QCheckBox::clicked, this, &TSysParPage::pCHB_UseLastMemClick);
    connect(pCHB_SelfTeachRef0, &QCheckBox::clicked, this, &TSysParPage::pCHB_SelfTeachRef0Click);
    connect(pCHB_UseFormat, &QCheckBox::clicked, this, &TSysParPage::pCHB_UseFormatClick);
    connect(pCHB_PrintAtEnd, &QCheckBox::clicked, this, &TSysParPage::pCHB_PrintAtEndClick);
    connect(pCHB_GeoElemCreated, &QCheckBox::clicked, this, &TSysParPage::pCHB_GeoElemCreatedClick);
    connect(pCHB_QuickAlign, &QCheckBox::clicked, this, &TSysParPage::pCHB_QuickAlignClick);
    connect(pCHB_ImmediateDataInput, &QCheckBox::clicked, this,
            &TSysParPage::pCHB_ImmediateDataInputClick);
    connect(pCHB_WaitAtEndExec, &QCheckBox::clicked, this, &TSysParPage::pCHB_WaitAtEndExecClick);
    connect(pPB_BrowserSys, &QPushButton::clicked, this, &TSysParPage::pPB_BrowserSysClick);
    connect(pSLE_CalibDiam, &EditField::Enter, this, &TSysParPage::pSLE_CalibDiamEnter);
    connect(pSLE_CalibDiam, &EditField::Exit, this, &TSysParPage::pSLE_CalibDiamExit);
    connect(pSLE_ThreSholdAng, &EditField::Enter, this, &TSysParPage::pSLE_ThreSholdAngEnter);
    connect(pSLE_ThreSholdAng, &EditField::Exit, this, &TSysParPage::pSLE_ThreSholdAngExit);
    connect(pSLE_ProbeFname, &EditField::Enter, this, &TSysParPage::pSLE_ProbeFnameEnter);
    connect(pSLE_ProbeFname, &EditField::Exit, this, &TSysParPage::pSLE_ProbeFnameExit);
    connect(pSLE_RefsysFname, &EditField::Enter, this, &TSysParPage::pSLE_RefsysFnameEnter);
    connect(pSLE_RefsysFname, &EditField::Exit, this, &TSysParPage::pSLE_RefsysFnameExit);
    connect(pSLE_MemoryFname, &EditField::Enter, this, &TSysParPage::pSLE_MemoryFnameEnter);
    connect(pSLE_MemoryFname, &EditField::Exit, this, &TSysParPage::pSLE_MemoryFnameExit);
}

TSysParPage::~TSysParPage() {
    // The edits may report leaving while the window goes; no handler of a page that is gone
    // may run then.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

// ---- initialisation, store, load ---------------------------------------------------------

void TSysParPage::Initialise() {
    FillLanguageList();

    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pST_Language->setText(host_.LanguageText(kIdLanguage));
    pST_CalibDiam->setText(host_.LanguageText(kIdCalibDiam));
    pST_Calib_UNITY->setText(
        host_.LanguageText(host_.Settings().IsMetric() ? kIdMillimetres : kIdInches));
    pST_ThreSholdAng->setText(host_.LanguageText(kIdThreshold));
    pST_TruePosErr->setText(host_.LanguageText(kIdTruePosErr));
    pST_Compens_Line->setText(host_.LanguageText(kIdCompensLine));
    pST_LinearityErr->setText(host_.LanguageText(kIdLinearityErr));
    pST_GraphPrinter->setText(host_.LanguageText(kIdGraphPrinter));
    // TP200 is a probe's name in every language: its caption stays.
    pCHB_FenWire->setText(host_.LanguageText(kIdFenWire));
    pCHB_DblFormErr->setText(host_.LanguageText(kIdDblFormErr));
    pCHB_DosCompatib->setText(host_.LanguageText(kIdDosCompatib));
    pCHB_ElemAccel->setText(host_.LanguageText(kIdElemAccel));
    pCHB_UseLastMem->setText(host_.LanguageText(kIdUseLastMem));
    pCHB_SelfTeachRef0->setText(host_.LanguageText(kIdSelfTeachRef0));
    pCHB_UseFormat->setText(host_.LanguageText(kIdUseFormat));
    pCHB_PrintAtEnd->setText(host_.LanguageText(kIdPrintAtEnd));
    pCHB_GeoElemCreated->setText(host_.LanguageText(kIdGeoElemCreated));
    pCHB_QuickAlign->setText(host_.LanguageText(kIdQuickAlign));
    pCHB_ImmediateDataInput->setText(host_.LanguageText(kIdImmediateDataInput));
    pCHB_WaitAtEndExec->setText(host_.LanguageText(kIdWaitAtEndExec));
    pGBX_SysFilesSt->setTitle(host_.LanguageText(kIdSysFiles));
    pST_ProbeFnameSt->setText(host_.LanguageText(kIdProbeFname));
    pST_RefsysFnameSt->setText(host_.LanguageText(kIdRefsysFname));
    pST_MemoryFnameSt->setText(host_.LanguageText(kIdMemoryFname));
    pST_AutoSave->setText(host_.LanguageText(kIdAutoSave));
    pPB_BrowserSys->setText(host_.LanguageText(kIdBrowse));

    for (const QLabel* label :
         {pST_Language, pST_CalibDiam, pST_ThreSholdAng, pST_TruePosErr, pST_Compens_Line,
          pST_LinearityErr, pST_GraphPrinter, pST_ProbeFnameSt, pST_RefsysFnameSt,
          pST_MemoryFnameSt, pST_AutoSave}) {
        NameAfterLabel(label);
    }
    NameAfterCaption({pCHB_TP200, pCHB_FenWire, pCHB_DblFormErr, pCHB_DosCompatib, pCHB_ElemAccel,
                      pCHB_UseLastMem, pCHB_SelfTeachRef0, pCHB_UseFormat, pCHB_PrintAtEnd,
                      pCHB_GeoElemCreated, pCHB_QuickAlign, pCHB_ImmediateDataInput,
                      pCHB_WaitAtEndExec, pGBX_SysFilesSt, pPB_BrowserSys});

    FillPrinterList();
    FillList(pCB_TruePosErr, host_, {kIdErrorItems[0], kIdErrorItems[1]});
    FillList(pCB_Compens_Line, host_, {kIdCompensLineItems[0], kIdCompensLineItems[1]});
    FillList(pCB_LinearityErr, host_, {kIdErrorItems[0], kIdErrorItems[1]});
    FillList(pCB_AutoSave, host_,
             {kIdFileSetItems[0], kIdFileSetItems[1], kIdFileSetItems[2], kIdFileSetItems[3],
              kIdFileSetItems[4], kIdFileSetItems[5], kIdFileSetItems[6], kIdFileSetItems[7]});

    ShowDiameter();
    ShowThreshold();
    ShowChoices();
    ShowFileNames();
    pPB_BrowserSys->setEnabled(false);
}

void TSysParPage::FillLanguageList() {
    int selected = 0;
    const std::vector<LanguageListEntry> languages =
        ReadLanguageList(host_.Settings().LanguageCode, selected, LanguageCodeMatch::IgnoreCase);
    const QSignalBlocker blocker(pCB_Language);
    pCB_Language->clear();
    for (const LanguageListEntry& language : languages) {
        pCB_Language->addItem(FromAnsi(language.Text), FromAnsi(language.Code));
    }
    pCB_Language->setCurrentIndex(languages.empty() ? -1 : selected);
}

void TSysParPage::FillPrinterList() {
    printers_ = ReadPrinterList();
    const QSignalBlocker blocker(pCB_GraphPrinter);
    pCB_GraphPrinter->clear();
    if (printers_.empty()) {
        // Nothing to choose from: the stored printer stays as it was read.
        pCB_GraphPrinter->setEnabled(false);
        return;
    }
    pCB_GraphPrinter->setEnabled(true);
    for (const std::string& printer : printers_) pCB_GraphPrinter->addItem(FromAnsi(printer));
    // The record then names a printer that is installed. This is no change of the user's:
    // the modified flag stays as it is, and the choice is written with the next save.
    SystemSettings& settings = host_.Settings();
    const int position = PrinterPosition(printers_, settings.GraphPrinter);
    pCB_GraphPrinter->setCurrentIndex(position);
    settings.SetGraphPrinter(printers_[static_cast<std::size_t>(position)]);
}

void TSysParPage::ShowChoices() {
    const SystemSettings& settings = host_.Settings();
    SetCurrent(pCB_TruePosErr, settings.TruePosErrDiameter ? 1 : 0);
    SetCurrent(pCB_Compens_Line, static_cast<int>(settings.Line3dCompens));
    SetCurrent(pCB_LinearityErr, settings.LinearityErrDiameter ? 1 : 0);
    SetCurrent(pCB_AutoSave,
               settings.AutoSave < settings.AutoSaveCodeToPosition.size()
                   ? static_cast<int>(settings.AutoSaveCodeToPosition[settings.AutoSave])
                   : -1);
    pCHB_TP200->setChecked(settings.Tp200);
    pCHB_FenWire->setChecked(settings.FenWire);
    pCHB_DblFormErr->setChecked(settings.DoubleFormErr);
    pCHB_DosCompatib->setChecked(settings.DosPpCompatibility);
    pCHB_ElemAccel->setChecked(settings.SelfAccelerators);
    pCHB_UseLastMem->setChecked(settings.UseLastMemories);
    pCHB_SelfTeachRef0->setChecked(settings.ForceRef0);
    pCHB_UseFormat->setChecked(settings.GeoTolUseFormat);
    pCHB_PrintAtEnd->setChecked(settings.PrintAtEndExec);
    pCHB_GeoElemCreated->setChecked(settings.GeoTolElementCreation);
    pCHB_QuickAlign->setChecked(settings.QuickAlignments);
    pCHB_ImmediateDataInput->setChecked(settings.ImmediateDataInputWindow);
    pCHB_WaitAtEndExec->setChecked(settings.WaitAtEndExecution);
}

void TSysParPage::ShowDiameter() {
    const SystemSettings& settings = host_.Settings();
    pSLE_CalibDiam->setText(FromAnsi(settings.DiameterToText(settings.DiaSferaCal)));
}

void TSysParPage::ShowThreshold() {
    pSLE_ThreSholdAng->setText(FromAnsi(FloatToStr(host_.Settings().ThresholdAngMiddleRel)));
}

void TSysParPage::ShowFileNames() {
    const SystemSettings& settings = host_.Settings();
    pSLE_ProbeFname->setText(FromAnsi(settings.QualiFileName));
    pSLE_RefsysFname->setText(FromAnsi(settings.RefSysFileName));
    pSLE_MemoryFname->setText(FromAnsi(settings.MemoryFileName));
}

void TSysParPage::Store() {
    if (pSLE_CalibDiam->hasFocus() && pSLE_CalibDiam->isModified()) {
        host_.Converting([&] {
            CommitDiameter();
            ShowDiameter();
        });
    }
    if (pSLE_ThreSholdAng->hasFocus() && pSLE_ThreSholdAng->isModified()) {
        host_.Converting([&] {
            CommitThreshold();
            // Committed on the way to a save or another page: the full six decimals show
            // what is written.
            char text[64];
            std::snprintf(text, sizeof text, "%lf", host_.Settings().ThresholdAngMiddleRel);
            pSLE_ThreSholdAng->setText(QString::fromLatin1(text));
        });
    }
    const struct {
        EditField* edit;
        void (SystemSettings::*setter)(const std::string&);
    } names[] = {
        {pSLE_ProbeFname, &SystemSettings::SetQualiFileName},
        {pSLE_RefsysFname, &SystemSettings::SetRefSysFileName},
        {pSLE_MemoryFname, &SystemSettings::SetMemoryFileName},
    };
    for (const auto& n : names) {
        if (!n.edit->hasFocus() || !n.edit->isModified()) continue;
        // An emptied name loses its modified mark first and is taken all the same.
        if (n.edit->text().isEmpty()) n.edit->setModified(false);
        CommitFileName(n.edit, n.setter, true);
    }
}

void TSysParPage::Load(bool refreshAll) {
    // Without refreshAll only the edit being typed in is put back (the edit in progress is
    // dropped); every other control keeps what it shows.
    auto putBack = [refreshAll](const EditField* edit) {
        return refreshAll || (edit->hasFocus() && edit->isModified());
    };
    if (putBack(pSLE_CalibDiam)) ShowDiameter();
    if (putBack(pSLE_ThreSholdAng)) ShowThreshold();
    const SystemSettings& settings = host_.Settings();
    if (putBack(pSLE_ProbeFname)) pSLE_ProbeFname->setText(FromAnsi(settings.QualiFileName));
    if (putBack(pSLE_RefsysFname)) pSLE_RefsysFname->setText(FromAnsi(settings.RefSysFileName));
    if (putBack(pSLE_MemoryFname)) pSLE_MemoryFname->setText(FromAnsi(settings.MemoryFileName));
    if (refreshAll) {
        // The lists and check boxes show the record too, so that after the files were read
        // again (the user discarded the changes) the page shows what was read.
        ShowChoices();
        SetCurrent(pCB_GraphPrinter,
                   printers_.empty() ? -1 : PrinterPosition(printers_, settings.GraphPrinter));
        int position = 0;
        for (int i = 0; i < pCB_Language->count(); ++i) {
            if (EqualsIgnoringAsciiCase(AnsiOf(pCB_Language->itemData(i).toString()),
                                        settings.LanguageCode)) {
                position = i;
            }
        }
        SetCurrent(pCB_Language, pCB_Language->count() > 0 ? position : -1);
    }
}

// ---- lists and check boxes ---------------------------------------------------------------

void TSysParPage::ChoiceMade() {
    host_.MarkModified();
    pPB_BrowserSys->setEnabled(false);
}

void TSysParPage::pCB_LanguageChange() {
    std::string name = AnsiOf(pCB_Language->currentText());
    // A language marked as differing between the two files is named after its mark.
    if (name.find(kDifferingLanguageMark) != std::string::npos) {
        name = name.size() > 4 ? name.substr(4) : std::string();
    }
    char code[kLanguageValueSize] = {};
    ReadProfileText(name.c_str(), code, kLanguageValueSize, kLanguagesSection);
    // Stored as the file has it. The captions stay in the language of this run: the new one
    // is loaded when the program next starts.
    host_.Settings().SetLanguageCode(code);
    ChoiceMade();
}

void TSysParPage::pCB_TruePosErrChange() {
    host_.Settings().TruePosErrDiameter = pCB_TruePosErr->currentIndex() != 0;
    ChoiceMade();
}

void TSysParPage::pCB_Compens_LineChange() {
    host_.Settings().Line3dCompens = static_cast<std::uint32_t>(pCB_Compens_Line->currentIndex());
    ChoiceMade();
}

void TSysParPage::pCB_LinearityErrChange() {
    host_.Settings().LinearityErrDiameter = pCB_LinearityErr->currentIndex() != 0;
    ChoiceMade();
}

void TSysParPage::pCB_GraphPrinterChange() {
    const int position = pCB_GraphPrinter->currentIndex();
    if (position < 0 || position >= static_cast<int>(printers_.size())) return;
    host_.Settings().SetGraphPrinter(printers_[static_cast<std::size_t>(position)]);
    ChoiceMade();
}

void TSysParPage::pCB_AutoSaveChange() {
    const int position = pCB_AutoSave->currentIndex();
    SystemSettings& settings = host_.Settings();
    if (position < 0 || position >= static_cast<int>(settings.AutoSavePositionToCode.size())) {
        return;
    }
    settings.AutoSave = settings.AutoSavePositionToCode[static_cast<std::size_t>(position)];
    ChoiceMade();
}

void TSysParPage::pCHB_TP200Click() {
    host_.Settings().Tp200 = pCHB_TP200->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_FenWireClick() {
    host_.Settings().FenWire = pCHB_FenWire->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_DblFormErrClick() {
    host_.Settings().DoubleFormErr = pCHB_DblFormErr->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_DosCompatibClick() {
    host_.Settings().DosPpCompatibility = pCHB_DosCompatib->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_ElemAccelClick() {
    host_.Settings().SelfAccelerators = pCHB_ElemAccel->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_UseLastMemClick() {
    // Kept as it has always been: this box writes the geometric tolerances' format option,
    // not the macros' last memories. The box is disabled, so no user reaches it.
    host_.Settings().GeoTolUseFormat = pCHB_UseLastMem->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_SelfTeachRef0Click() {
    host_.Settings().ForceRef0 = pCHB_SelfTeachRef0->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_UseFormatClick() {
    host_.Settings().GeoTolUseFormat = pCHB_UseFormat->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_PrintAtEndClick() {
    host_.Settings().PrintAtEndExec = pCHB_PrintAtEnd->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_GeoElemCreatedClick() {
    host_.Settings().GeoTolElementCreation = pCHB_GeoElemCreated->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_QuickAlignClick() {
    host_.Settings().QuickAlignments = pCHB_QuickAlign->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_ImmediateDataInputClick() {
    host_.Settings().ImmediateDataInputWindow = pCHB_ImmediateDataInput->isChecked();
    ChoiceMade();
}

void TSysParPage::pCHB_WaitAtEndExecClick() {
    host_.Settings().WaitAtEndExecution = pCHB_WaitAtEndExec->isChecked();
    ChoiceMade();
}

// ---- edits -------------------------------------------------------------------------------

void TSysParPage::CommitDiameter() {
    SystemSettings& settings = host_.Settings();
    const double typed = settings.TextToDiameter(AnsiText(pSLE_CalibDiam));
    if (typed < 0.0) {
        // No sphere has a negative diameter: refused without a word.
        ShowDiameter();
        return;
    }
    settings.DiaSferaCal = typed;
    host_.MarkModified();
    // The text stays as typed; it is taken, so leaving the edit again takes nothing.
    pSLE_CalibDiam->setModified(false);
}

void TSysParPage::CommitThreshold() {
    const double typed = StrToFloat(AnsiText(pSLE_ThreSholdAng));
    host_.Settings().ThresholdAngMiddleRel = typed;
    host_.MarkModified();
}

void TSysParPage::CommitFileName(EditField* edit,
                                 void (SystemSettings::*setter)(const std::string&), bool force) {
    if (!force && !edit->isModified()) return;
    // The measuring application looks its system files up by upper-case names.
    const std::string name = ToUpperAscii(AnsiText(edit));
    edit->setText(FromAnsi(name));
    (host_.Settings().*setter)(name);
    host_.MarkModified();
}

void TSysParPage::FileNameEnter(EditField* edit) {
    host_.ActiveFile().Enter(edit);
    pPB_BrowserSys->setEnabled(true);
}

void TSysParPage::pSLE_CalibDiamEnter() {
    pPB_BrowserSys->setEnabled(false);
}

void TSysParPage::pSLE_CalibDiamExit() {
    if (!pSLE_CalibDiam->isModified()) return;
    host_.Converting([&] { CommitDiameter(); });
}

void TSysParPage::pSLE_ThreSholdAngEnter() {
    pPB_BrowserSys->setEnabled(false);
}

void TSysParPage::pSLE_ThreSholdAngExit() {
    if (!pSLE_ThreSholdAng->isModified()) return;
    host_.Converting([&] {
        CommitThreshold();
        ShowThreshold();
    });
}

void TSysParPage::pSLE_ProbeFnameEnter() {
    FileNameEnter(pSLE_ProbeFname);
}

void TSysParPage::pSLE_ProbeFnameExit() {
    CommitFileName(pSLE_ProbeFname, &SystemSettings::SetQualiFileName, false);
}

void TSysParPage::pSLE_RefsysFnameEnter() {
    FileNameEnter(pSLE_RefsysFname);
}

void TSysParPage::pSLE_RefsysFnameExit() {
    CommitFileName(pSLE_RefsysFname, &SystemSettings::SetRefSysFileName, false);
}

void TSysParPage::pSLE_MemoryFnameEnter() {
    FileNameEnter(pSLE_MemoryFname);
}

void TSysParPage::pSLE_MemoryFnameExit() {
    CommitFileName(pSLE_MemoryFname, &SystemSettings::SetMemoryFileName, false);
}

void TSysParPage::pPB_BrowserSysClick() {
    char dataDir[kDataDirSize] = {};
    if (ReadProfileText(kDataDir, dataDir, kDataDirSize) == 0) {
        std::snprintf(dataDir, sizeof dataDir, "%s", kDefaultDataDir);
    }
    ActiveFileEdit& active = host_.ActiveFile();
    EditField* edit = nullptr;
    int description = 0;
    const char* extension = nullptr;
    if (active.Is(pSLE_ProbeFname)) {
        edit = pSLE_ProbeFname;
        description = kIdProbeFiles;
        extension = "TIP";
    } else if (active.Is(pSLE_RefsysFname)) {
        edit = pSLE_RefsysFname;
        description = kIdRefsysFiles;
        extension = "REF";
    } else if (active.Is(pSLE_MemoryFname)) {
        edit = pSLE_MemoryFname;
        description = kIdMemoryFiles;
        extension = "MEM";
    } else {
        // The file-name edit entered last is the start-up page's: not this button's business.
        return;
    }
    std::string path;
    if (!host_.BrowseForFile(path, dataDir, extension, AnsiOf(host_.LanguageText(description)))) {
        return;
    }
    // Taken (upper-cased and stored) when the edit is left or the page is stored.
    edit->setText(FromAnsi(path));
    edit->setModified(true);
    edit->setFocus(Qt::OtherFocusReason);
}

}  // namespace wk
