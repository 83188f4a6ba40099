// The machine parameters page: its controls, their layout, the captions and lists of the
// initialisation, and how the record is shown (Load) and its pending edits taken (Store).
// The handlers are in mac_par_handlers.cpp.

#include "pages/mac_par_page.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <functional>
#include <vector>

#include "pages/form_controls.h"
#include "pages/mac_par_texts.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "widgets/edit_combo_box.h"
#include "widgets/edit_field.h"
#include "widgets/radio_tab_stop.h"

namespace wk {

namespace {

// Edits of numbers are as wide as the numbers they hold; the file names take the room there is.
EditField* MakeNumberEdit(QWidget* parent, const char* name, int characters) {
    auto* edit = MakeFormControl<EditField>(parent, name);
    const int width = edit->fontMetrics().horizontalAdvance(QString(characters, QLatin1Char('0')));
    edit->setMaximumWidth(width + 16);
    edit->setMinimumWidth(width + 16);
    return edit;
}

QLabel* Dot(QWidget* parent) {
    return new QLabel(QStringLiteral("."), parent);
}

}  // namespace

TMacParPage::TMacParPage(PageHost& host) : KestelPage(host) {
    BuildControls();
    BuildLayout();
    ConnectHandlers();
    SetTabOrder();
}

void TMacParPage::BuildControls() {
    // The form's texts are the captions until the language strings replace them. Their
    // mnemonics are all different, on a page that needs more of them than any other, and none
    // is a letter of the menu bar's in either language: the PH9 head's simulation box takes
    // "Sim&ulation" ("&Simulation" is the CMM's), depth "&Depth" (H is Help's), the optimal
    // speed "Optima&l Speed" (O is Other's); the labels of the resolution and the connection
    // have the letters left, the other labels none.
    pGBX_CMM = MakeFormControl<QGroupBox>(this, "pGBX_CMM", "CMM");
    pST_Port = MakeFormControl<QLabel>(this, "pST_Port", "Co&nnection:");
    pCB_Port = MakeFormControl<QComboBox>(this, "pCB_Port");
    pST_Resolution = MakeFormControl<QLabel>(this, "pST_Resolution", "&Resolution:");
    pCB_Resolution = MakeFormControl<EditComboBox>(this, "pCB_Resolution");
    pST_RESOL_UNITY = MakeFormControl<QLabel>(this, "pST_RESOL_UNITY", "[mm]");
    pCHB_CNC_Simul = MakeFormControl<QCheckBox>(this, "pCHB_CNC_Simul", "&Simulation");
    pCHB_JX01_Simul = MakeFormControl<QCheckBox>(this, "pCHB_JX01_Simul", "JX01");
    pGB_TCPIP = MakeFormControl<QGroupBox>(this, "pGB_TCPIP", "TCP/IP");
    pST_TCPAddress = MakeFormControl<QLabel>(this, "pST_TCPAddress", "Address:");
    pSLE_TCP1 = MakeNumberEdit(this, "pSLE_TCP1", 3);
    pSLE_TCP2 = MakeNumberEdit(this, "pSLE_TCP2", 3);
    pSLE_TCP3 = MakeNumberEdit(this, "pSLE_TCP3", 3);
    pSLE_TCP4 = MakeNumberEdit(this, "pSLE_TCP4", 3);
    pST_TCPPORT = MakeFormControl<QLabel>(this, "pST_TCPPORT", "Port:");
    pSLE_TCPPORT = MakeNumberEdit(this, "pSLE_TCPPORT", 6);
    pSLE_TCPPORT->setText(QStringLiteral("2001"));
    // Named as it reads: inside the CMM's group a screen reader would take that group's title.
    pGB_TCPIP->setAccessibleName(pGB_TCPIP->title());

    pRB_Manual = MakeFormControl<QRadioButton>(this, "pRB_Manual", "&Manual");
    pRB_CNC = MakeFormControl<QRadioButton>(this, "pRB_CNC", "&CNC");
    pRB_CNC->setChecked(true);
    // The two stand on the page itself, among the head's type buttons further down: a group
    // of their own keeps them (and the keyboard's way through them) apart from those.
    auto* machineKind = new QButtonGroup(this);
    machineKind->addButton(pRB_Manual);
    machineKind->addButton(pRB_CNC);

    pGBX_PH9 = MakeFormControl<QGroupBox>(this, "pGBX_PH9", "Indexed Wrist");
    pCHB_Ph9_Present = MakeFormControl<QCheckBox>(this, "pCHB_Ph9_Present", "&Present");
    pCHB_Ph9_Simul = MakeFormControl<QCheckBox>(this, "pCHB_Ph9_Simul", "Sim&ulation");
    // The head's serial line: its port, then lists whose items say what they are ("9600 baud",
    // "No parity", "8 data bits", "2 stop bits"), so they need no labels of their own.
    pST_Ph9_Port = MakeFormControl<QLabel>(this, "pST_Ph9_Port", "Serial line:");
    pCB_Ph9_Port = MakeFormControl<QComboBox>(this, "pCB_Ph9_Port");
    pCB_Ph9_Baud = MakeFormControl<QComboBox>(this, "pCB_Ph9_Baud");
    pCB_Ph9_Parity = MakeFormControl<QComboBox>(this, "pCB_Ph9_Parity");
    pCB_Ph9_NBits = MakeFormControl<QComboBox>(this, "pCB_Ph9_NBits");
    pCB_Ph9_StopBits = MakeFormControl<QComboBox>(this, "pCB_Ph9_StopBits");
    pCB_Ph9_Port->setAccessibleName(QStringLiteral("PH9 port"));
    pCB_Ph9_Baud->setAccessibleName(QStringLiteral("PH9 speed"));
    pCB_Ph9_Parity->setAccessibleName(QStringLiteral("PH9 parity"));
    pCB_Ph9_NBits->setAccessibleName(QStringLiteral("PH9 data bits"));
    pCB_Ph9_StopBits->setAccessibleName(QStringLiteral("PH9 stop bits"));
    p_RB_PHx = MakeFormControl<QRadioButton>(this, "p_RB_PHx", "PH9/PH10");
    p_RB_MODRIVAXM = MakeFormControl<QRadioButton>(this, "p_RB_MODRIVAXM", "MODRIVAX-m");
    p_RB_MODRIVAXI = MakeFormControl<QRadioButton>(this, "p_RB_MODRIVAXI", "MODRIVAX-i");
    // No head of this type is offered yet; the button is there for the type number 2.
    p_RB_MODRIVAXI->setVisible(false);

    pGBX_General = MakeFormControl<QGroupBox>(this, "pGBX_General", "General");
    pST_CosDatFname = MakeFormControl<QLabel>(this, "pST_CosDatFname", "Compensation data file:");
    pSLE_CosDatFname = MakeFormControl<EditField>(this, "pSLE_CosDatFname");
    pST_CompensFname = MakeFormControl<QLabel>(this, "pST_CompensFname", "Compensation file:");
    pSLE_CompensFname = MakeFormControl<EditField>(this, "pSLE_CompensFname");
    pPB_BrowserMP = MakeFormControl<QPushButton>(this, "pPB_BrowserMP", "&Browse");
    pST_DistApproach = MakeFormControl<QLabel>(this, "pST_DistApproach", "Approach distance:");
    pSLE_DistApproach = MakeNumberEdit(this, "pSLE_DistApproach", 9);
    pST_APPR_UNITY = MakeFormControl<QLabel>(this, "pST_APPR_UNITY", "[mm]");
    pCHB_Depth = MakeFormControl<QCheckBox>(this, "pCHB_Depth", "&Depth");
    pSLE_Depth = MakeNumberEdit(this, "pSLE_Depth", 9);
    pST_DEPTH_UNITY = MakeFormControl<QLabel>(this, "pST_DEPTH_UNITY", "[mm]");
    // A grey third state would stand for nothing the record can hold (it counts as not set),
    // so the box offers the two states that mean something.
    pCHB_Optimal_Speed = MakeFormControl<QCheckBox>(this, "pCHB_Optimal_Speed", "Optima&l Speed");
    pSLE_Optimal_Speed = MakeNumberEdit(this, "pSLE_Optimal_Speed", 9);
    pST_OPT_SP_UNITY = MakeFormControl<QLabel>(this, "pST_OPT_SP_UNITY", "[m/mm]");
    pST_Term_X = MakeFormControl<QLabel>(this, "pST_Term_X", "Scale X:");
    pSLE_Term_X = MakeNumberEdit(this, "pSLE_Term_X", 12);
    pST_Term_Y = MakeFormControl<QLabel>(this, "pST_Term_Y", "Scale Y:");
    pSLE_Term_Y = MakeNumberEdit(this, "pSLE_Term_Y", 12);
    pST_Term_Z = MakeFormControl<QLabel>(this, "pST_Term_Z", "Scale Z:");
    pSLE_Term_Z = MakeNumberEdit(this, "pSLE_Term_Z", 12);
    pST_Term_Part = MakeFormControl<QLabel>(this, "pST_Term_Part", "Scale:");
    pSLE_Term_Part = MakeNumberEdit(this, "pSLE_Term_Part", 12);
    pCHB_Tool_Ch = MakeFormControl<QCheckBox>(this, "pCHB_Tool_Ch", "&Tool Changer");
    pCHB_Active = MakeFormControl<QCheckBox>(this, "pCHB_Active", "&Active");

    const std::pair<QLabel*, QWidget*> buddies[] = {
        {pST_Port, pCB_Port},
        {pST_Resolution, pCB_Resolution},
        {pST_TCPAddress, pSLE_TCP1},
        {pST_TCPPORT, pSLE_TCPPORT},
        {pST_Ph9_Port, pCB_Ph9_Port},
        {pST_CosDatFname, pSLE_CosDatFname},
        {pST_CompensFname, pSLE_CompensFname},
        {pST_DistApproach, pSLE_DistApproach},
        {pST_Term_X, pSLE_Term_X},
        {pST_Term_Y, pSLE_Term_Y},
        {pST_Term_Z, pSLE_Term_Z},
        {pST_Term_Part, pSLE_Term_Part},
    };
    for (const auto& [label, control] : buddies) {
        label->setBuddy(control);
    }
    // The fields that have no label of their own are named after what stands beside them.
    pSLE_TCP2->setAccessibleName(QStringLiteral("Address, part 2"));
    pSLE_TCP3->setAccessibleName(QStringLiteral("Address, part 3"));
    pSLE_TCP4->setAccessibleName(QStringLiteral("Address, part 4"));
    pSLE_TCP1->setAccessibleName(QStringLiteral("Address, part 1"));
    NameEditsAfterTheirSwitches();
}

void TMacParPage::NameEditsAfterTheirSwitches() {
    // The depth and the optimal speed have their check boxes for labels.
    pSLE_Depth->setAccessibleName(SpokenCaption(pCHB_Depth->text()));
    pSLE_Optimal_Speed->setAccessibleName(SpokenCaption(pCHB_Optimal_Speed->text()));
}

void TMacParPage::BuildLayout() {
    // Laid out to fit the window as it opens: the connection beside the head, the general
    // values below both.
    auto* tcpip = new QGridLayout(pGB_TCPIP);
    tcpip->addWidget(pST_TCPAddress, 0, 0);
    tcpip->addWidget(pSLE_TCP1, 0, 1);
    tcpip->addWidget(Dot(pGB_TCPIP), 0, 2);
    tcpip->addWidget(pSLE_TCP2, 0, 3);
    tcpip->addWidget(Dot(pGB_TCPIP), 0, 4);
    tcpip->addWidget(pSLE_TCP3, 0, 5);
    tcpip->addWidget(Dot(pGB_TCPIP), 0, 6);
    tcpip->addWidget(pSLE_TCP4, 0, 7);
    tcpip->addWidget(pST_TCPPORT, 1, 0);
    tcpip->addWidget(pSLE_TCPPORT, 1, 1, 1, 3);
    tcpip->setColumnStretch(8, 1);
    tcpip->setHorizontalSpacing(4);

    auto* cmm = new QGridLayout(pGBX_CMM);
    cmm->addWidget(pST_Port, 0, 0);
    cmm->addWidget(pCB_Port, 0, 1);
    cmm->addWidget(pCHB_CNC_Simul, 0, 3);
    cmm->addWidget(pST_Resolution, 1, 0);
    cmm->addWidget(pCB_Resolution, 1, 1);
    cmm->addWidget(pST_RESOL_UNITY, 1, 2);
    cmm->addWidget(pCHB_JX01_Simul, 1, 3);
    cmm->addWidget(pGB_TCPIP, 2, 0, 1, 5);
    cmm->setColumnStretch(4, 1);
    cmm->setRowStretch(3, 1);

    auto* mode = new QHBoxLayout;
    mode->addWidget(pRB_Manual);
    mode->addWidget(pRB_CNC);
    mode->addStretch(1);
    auto* left = new QVBoxLayout;
    left->addLayout(mode);
    left->addWidget(pGBX_CMM, 1);

    auto* ph9 = new QGridLayout(pGBX_PH9);
    ph9->addWidget(pCHB_Ph9_Present, 0, 0, 1, 2);
    ph9->addWidget(pCHB_Ph9_Simul, 0, 2);
    ph9->addWidget(pST_Ph9_Port, 1, 0);
    ph9->addWidget(pCB_Ph9_Port, 1, 1);
    ph9->addWidget(pCB_Ph9_Baud, 1, 2);
    ph9->addWidget(pCB_Ph9_Parity, 2, 1);
    ph9->addWidget(pCB_Ph9_NBits, 2, 2);
    ph9->addWidget(pCB_Ph9_StopBits, 3, 1);
    auto* heads = new QHBoxLayout;
    heads->addWidget(p_RB_PHx);
    heads->addWidget(p_RB_MODRIVAXM);
    heads->addWidget(p_RB_MODRIVAXI);
    heads->addStretch(1);
    ph9->addLayout(heads, 4, 0, 1, 4);
    ph9->setColumnStretch(3, 1);
    ph9->setRowStretch(5, 1);

    auto* top = new QHBoxLayout;
    top->addLayout(left, 1);
    top->addWidget(pGBX_PH9, 1);

    // The file names take the width there is; the numbers go in columns of their own.
    auto* files = new QGridLayout;
    files->addWidget(pST_CosDatFname, 0, 0);
    files->addWidget(pSLE_CosDatFname, 0, 1);
    files->addWidget(pPB_BrowserMP, 0, 2);
    files->addWidget(pST_CompensFname, 1, 0);
    files->addWidget(pSLE_CompensFname, 1, 1);
    auto* values = new QGridLayout;
    values->addWidget(pST_DistApproach, 0, 0);
    values->addWidget(pSLE_DistApproach, 0, 1);
    values->addWidget(pST_APPR_UNITY, 0, 2);
    values->addWidget(pCHB_Depth, 1, 0);
    values->addWidget(pSLE_Depth, 1, 1);
    values->addWidget(pST_DEPTH_UNITY, 1, 2);
    values->addWidget(pCHB_Optimal_Speed, 2, 0);
    values->addWidget(pSLE_Optimal_Speed, 2, 1);
    values->addWidget(pST_OPT_SP_UNITY, 2, 2);
    values->addWidget(pST_Term_X, 0, 3, Qt::AlignRight);
    values->addWidget(pSLE_Term_X, 0, 4);
    values->addWidget(pST_Term_Y, 0, 5, Qt::AlignRight);
    values->addWidget(pSLE_Term_Y, 0, 6);
    values->addWidget(pST_Term_Z, 1, 3, Qt::AlignRight);
    values->addWidget(pSLE_Term_Z, 1, 4);
    values->addWidget(pST_Term_Part, 1, 5, Qt::AlignRight);
    values->addWidget(pSLE_Term_Part, 1, 6);
    values->addWidget(pCHB_Tool_Ch, 2, 3, 1, 2);
    values->addWidget(pCHB_Active, 2, 5, 1, 2);
    values->setColumnMinimumWidth(2, 36);
    values->setColumnStretch(7, 1);
    auto* general = new QVBoxLayout(pGBX_General);
    general->addLayout(files);
    general->addLayout(values);

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(8, 6, 8, 6);
    page->addLayout(top);
    page->addWidget(pGBX_General);
    page->addStretch(1);
}

void TMacParPage::SetTabOrder() {
    // Down the CMM column, then the head, then the general values row by row, the scale
    // factors after the values of their rows.
    const QWidget* order[] = {
        pRB_Manual,     pRB_CNC,          pCB_Port,           pCHB_CNC_Simul,     pCHB_JX01_Simul,
        pCB_Resolution, pSLE_TCP1,        pSLE_TCP2,          pSLE_TCP3,          pSLE_TCP4,
        pSLE_TCPPORT,   pCHB_Ph9_Present, pCHB_Ph9_Simul,     pCB_Ph9_Port,       pCB_Ph9_Baud,
        pCB_Ph9_Parity, pCB_Ph9_NBits,    pCB_Ph9_StopBits,   p_RB_PHx,           p_RB_MODRIVAXM,
        p_RB_MODRIVAXI, pSLE_CosDatFname, pSLE_CompensFname,  pPB_BrowserMP,      pSLE_DistApproach,
        pCHB_Depth,     pSLE_Depth,       pCHB_Optimal_Speed, pSLE_Optimal_Speed, pSLE_Term_X,
        pSLE_Term_Y,    pSLE_Term_Z,      pSLE_Term_Part,     pCHB_Tool_Ch,       pCHB_Active,
    };
    for (std::size_t i = 1; i < std::size(order); ++i) {
        setTabOrder(const_cast<QWidget*>(order[i - 1]), const_cast<QWidget*>(order[i]));
    }
}

void TMacParPage::SetCaption(QWidget* control, int id) {
    // A string the library lacks leaves the form's text.
    const QString text = host_.LanguageText(id);
    if (text.isEmpty()) {
        return;
    }
    if (auto* group = qobject_cast<QGroupBox*>(control)) {
        group->setTitle(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(control)) {
        label->setText(text);
    }
}

void TMacParPage::Initialise() {
    using namespace mac_par;
    const QString sheet = host_.LanguageText(kIdSheet);
    if (!sheet.isEmpty()) host_.SetSheetCaption(this, sheet);
    SetCaption(pGBX_CMM, kIdCmmGroup);
    SetCaption(p_RB_PHx, kIdPh9HeadType);
    SetCaption(pGBX_General, kIdGeneralGroup);
    SetCaption(pPB_BrowserMP, kIdBrowse);
    NameEditsAfterTheirSwitches();
    // The resolution is a machine constant in millimetres in either mode (its list items are
    // millimetres); the approach distance and the depth follow the measuring unit. The optimal
    // speed is no length and keeps the form's unit.
    SetCaption(pST_RESOL_UNITY, kIdMillimetres);
    const bool metric = host_.Settings().IsMetric();
    const int lengthUnit = metric ? kIdMillimetres : kIdInches;
    // The fall-backs of the two labels, for a library that lacks the unit strings.
    pST_APPR_UNITY->setText(metric ? QStringLiteral("[mm]") : QStringLiteral("[inch]"));
    pST_DEPTH_UNITY->setText(pST_APPR_UNITY->text());
    SetCaption(pST_APPR_UNITY, lengthUnit);
    SetCaption(pST_DEPTH_UNITY, lengthUnit);

    pCB_Resolution->clear();
    for (const char* item : kResolutionItems) {
        pCB_Resolution->addItem(QString::fromLatin1(item));
    }
    CncResolutionIndex = 0;
    ManualResolutionIndex = 1;

    pCB_Port->clear();
    for (int number = 1; number <= 8; ++number) {
        pCB_Port->addItem(QStringLiteral("COM%1").arg(number));
    }
    const ControllerFlags& flags = host_.Flags();
    if (flags.AcceptsTcpip()) {
        pCB_Port->addItem(QStringLiteral("TCP/IP"));
    }

    // The controllers that drive the head themselves have no serial line for it to set.
    const bool ownHeadLine = flags.IsQd32OrRmd || flags.IsVek3Family || flags.IsKpt;
    struct List {
        QComboBox* box;
        int firstId;
        int count;
    };
    const List lists[] = {
        {pCB_Ph9_Baud, kIdFirstSpeed, 8},
        {pCB_Ph9_Parity, kIdFirstParity, 3},
        {pCB_Ph9_NBits, kIdFirstDataBits, 4},
        {pCB_Ph9_StopBits, kIdFirstStopBits, 3},
    };
    pCB_Ph9_Port->clear();
    for (const List& list : lists) list.box->clear();
    if (!ownHeadLine) {
        for (int number = 1; number <= 8; ++number) {
            pCB_Ph9_Port->addItem(QStringLiteral("COM%1").arg(number));
        }
        for (const List& list : lists) {
            for (int i = 0; i < list.count; ++i) {
                list.box->addItem(host_.LanguageText(list.firstId + i));
            }
        }
    }

    pPB_BrowserMP->setEnabled(false);
    LastFileEdit = nullptr;
    Load(true);
}

void TMacParPage::Load(bool refreshAll) {
    if (refreshAll) {
        ShowConnection();
        ShowResolution();
        ShowPh9();
        ShowGeneral();
        EnableByRecord();
        return;
    }
    // Only the edit in progress is thrown away: the focused field with a typed text.
    const SetupSettings& settings = host_.Settings();
    for (EditField* part : {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4}) {
        if (part->hasFocus() && part->isModified()) ShowAddressFields();
    }
    if (pSLE_TCPPORT->hasFocus() && pSLE_TCPPORT->isModified()) ShowPortField();
    if (pCB_Resolution->hasFocus() && pCB_Resolution->IsModified()) ShowResolution();
    const struct {
        EditField* field;
        std::function<void()> show;
    } fields[] = {
        {pSLE_CosDatFname,
         [&] { pSLE_CosDatFname->setText(mac_par::FromAnsi(settings.CosDatFileName)); }},
        {pSLE_CompensFname,
         [&] { pSLE_CompensFname->setText(mac_par::FromAnsi(settings.CompensFileName)); }},
        {pSLE_DistApproach, [&] { pSLE_DistApproach->setText(LengthText(settings.DistApproach)); }},
        {pSLE_Depth, [&] { ShowDepth(); }},
        {pSLE_Optimal_Speed, [&] { ShowOptimalSpeed(); }},
        {pSLE_Term_X, [&] { pSLE_Term_X->setText(mac_par::ScaleText(settings.XTerm)); }},
        {pSLE_Term_Y, [&] { pSLE_Term_Y->setText(mac_par::ScaleText(settings.YTerm)); }},
        {pSLE_Term_Z, [&] { pSLE_Term_Z->setText(mac_par::ScaleText(settings.ZTerm)); }},
        {pSLE_Term_Part, [&] { pSLE_Term_Part->setText(mac_par::ScaleText(settings.PartTerm)); }},
    };
    for (const auto& f : fields) {
        if (f.field->hasFocus() && f.field->isModified()) f.show();
    }
}

void TMacParPage::Store() {
    // Whatever was typed and not yet taken, field by field as its exit handler takes it.
    for (EditField* part : {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4}) {
        CommitAddressPart(part, Commit::OnStore);
    }
    CommitPort(Commit::OnStore);
    CommitResolution(Commit::OnStore);
    SetupSettings& settings = host_.Settings();
    CommitFileName(pSLE_CosDatFname, settings.CosDatFileName, Commit::OnStore);
    CommitFileName(pSLE_CompensFname, settings.CompensFileName, Commit::OnStore);
    CommitDistApproach(Commit::OnStore);
    CommitDepth(Commit::OnStore);
    CommitOptimalSpeed(Commit::OnStore);
    CommitScale(pSLE_Term_X, settings.XTerm, Commit::OnStore);
    CommitScale(pSLE_Term_Y, settings.YTerm, Commit::OnStore);
    CommitScale(pSLE_Term_Z, settings.ZTerm, Commit::OnStore);
    CommitScale(pSLE_Term_Part, settings.PartTerm, Commit::OnStore);
}

// ---- showing the record -----------------------------------------------------------------

QString TMacParPage::LengthText(double mm) {
    return QString::fromStdString(host_.Settings().FormatLength(mm, 3, 3));
}

void TMacParPage::ShowConnection() {
    const SetupSettings& settings = host_.Settings();
    pCB_Port->setCurrentIndex(settings.PortIndex < pCB_Port->count() ? settings.PortIndex : -1);
    pGB_TCPIP->setVisible(settings.PortIndex == MachineSettings::kTcpipPortIndex);
    ShowAddressFields();
    ShowPortField();
    pRB_CNC->setChecked(settings.Cnc);
    pRB_Manual->setChecked(!settings.Cnc);
    TabStopOnChecked({pRB_Manual, pRB_CNC});
    pCHB_CNC_Simul->setChecked(settings.CmmSimulation);
    pCHB_JX01_Simul->setChecked(settings.Jx01Simulation);
}

void TMacParPage::ShowAddressFields() {
    const std::array<std::string, 4> parts = AddressParts(host_.Settings().TcpipAddress);
    EditField* fields[] = {pSLE_TCP1, pSLE_TCP2, pSLE_TCP3, pSLE_TCP4};
    for (std::size_t i = 0; i < 4; ++i) {
        fields[i]->setText(mac_par::FromAnsi(parts[i]));
    }
}

void TMacParPage::ShowPortField() {
    pSLE_TCPPORT->setText(QString::number(host_.Settings().TcpipPort));
}

void TMacParPage::ShowResolution() {
    pCB_Resolution->ShowText(mac_par::ResolutionText(host_.Settings().Resolution));
}

void TMacParPage::ShowPh9() {
    const SetupSettings& settings = host_.Settings();
    pCHB_Ph9_Present->setChecked(settings.Ph9Present);
    pCHB_Ph9_Simul->setChecked(settings.Ph9Simulation);
    const std::uint32_t serial = settings.Ph9Serial;
    const auto select = [](QComboBox* box, std::uint32_t index) {
        box->setCurrentIndex(static_cast<int>(index) < box->count() ? static_cast<int>(index) : -1);
    };
    select(pCB_Ph9_Port, serial & MachineSettings::kPh9PortMask);
    select(pCB_Ph9_Baud, (serial & MachineSettings::kPh9SpeedMask) >> 4);
    select(pCB_Ph9_Parity, (serial & MachineSettings::kPh9ParityMask) >> 8);
    select(pCB_Ph9_StopBits, (serial & MachineSettings::kPh9StopMask) >> 10);
    select(pCB_Ph9_NBits, (serial & MachineSettings::kPh9DataMask) >> 12);
    SelectHeadType(settings.Ph9Type);
}

void TMacParPage::ShowGeneral() {
    const SetupSettings& settings = host_.Settings();
    pSLE_CosDatFname->setText(mac_par::FromAnsi(settings.CosDatFileName));
    pSLE_CompensFname->setText(mac_par::FromAnsi(settings.CompensFileName));
    pSLE_DistApproach->setText(LengthText(settings.DistApproach));
    pCHB_Depth->setChecked(settings.DepthSet);
    ShowDepth();
    pCHB_Optimal_Speed->setChecked(settings.OptSpeedSet);
    ShowOptimalSpeed();
    pSLE_Term_X->setText(mac_par::ScaleText(settings.XTerm));
    pSLE_Term_Y->setText(mac_par::ScaleText(settings.YTerm));
    pSLE_Term_Z->setText(mac_par::ScaleText(settings.ZTerm));
    pSLE_Term_Part->setText(mac_par::ScaleText(settings.PartTerm));
    pCHB_Tool_Ch->setChecked(settings.ToolChanger);
    pCHB_Active->setChecked(settings.CompensActive);
}

void TMacParPage::ShowDepth() {
    const SetupSettings& settings = host_.Settings();
    pSLE_Depth->setText(settings.DepthSet ? LengthText(settings.Depth) : NotSetText());
}

void TMacParPage::ShowOptimalSpeed() {
    const SetupSettings& settings = host_.Settings();
    pSLE_Optimal_Speed->setText(settings.OptSpeedSet ? mac_par::SpeedText(settings.OptSpeed)
                                                     : NotSetText());
}

QString TMacParPage::NotSetText() const {
    const QString text = host_.LanguageText(mac_par::kIdNotSet);
    return text.isEmpty() ? QStringLiteral("not set") : text;
}

void TMacParPage::EnableByRecord() {
    const SetupSettings& settings = host_.Settings();
    const ControllerFlags& flags = host_.Flags();
    // CNC: the resolution is the remembered CNC item and cannot be typed.
    pCB_Resolution->setEnabled(!settings.Cnc);
    pCHB_JX01_Simul->setEnabled(settings.CmmSimulation);
    pCHB_Ph9_Present->setEnabled(true);
    // A manual machine drives the head in simulation only.
    pCHB_Ph9_Simul->setEnabled(settings.Ph9Present && settings.Cnc);
    SetPh9ListsEnabled(settings.Ph9Present && !flags.IsQd32OrRmd && !flags.IsKpt);
    // The head type matters to the controllers that are reached over TCP/IP.
    SetHeadTypeEnabled(settings.Ph9Present && settings.Cnc && flags.AcceptsTcpip());
    pSLE_Depth->setEnabled(settings.DepthSet);
    pSLE_Optimal_Speed->setEnabled(settings.OptSpeedSet);
}

void TMacParPage::SelectHeadType(std::int32_t type) {
    QRadioButton* buttons[] = {p_RB_PHx, p_RB_MODRIVAXM, p_RB_MODRIVAXI};
    if (type >= 0 && type <= 2) {
        buttons[type]->setChecked(true);
        TabStopOnChecked({p_RB_PHx, p_RB_MODRIVAXM, p_RB_MODRIVAXI});
        return;
    }
    // A type the page does not know: no button stands for it.
    for (QRadioButton* button : buttons) {
        button->setAutoExclusive(false);
        button->setChecked(false);
        button->setAutoExclusive(true);
    }
    TabStopOnChecked({p_RB_PHx, p_RB_MODRIVAXM, p_RB_MODRIVAXI});
}

void TMacParPage::SetHeadTypeEnabled(bool enabled) {
    for (QRadioButton* button : {p_RB_PHx, p_RB_MODRIVAXM, p_RB_MODRIVAXI}) {
        button->setEnabled(enabled);
    }
    TabStopOnChecked({p_RB_PHx, p_RB_MODRIVAXM, p_RB_MODRIVAXI});
}

void TMacParPage::SetPh9ListsEnabled(bool enabled) {
    for (QComboBox* box :
         {pCB_Ph9_Port, pCB_Ph9_Baud, pCB_Ph9_Parity, pCB_Ph9_NBits, pCB_Ph9_StopBits}) {
        box->setEnabled(enabled);
    }
}

std::array<std::string, 4> TMacParPage::AddressParts(const std::string& address) {
    const auto split = [](const std::string& text) {
        std::vector<std::string> parts(1);
        for (char c : text) {
            if (c == '.') {
                parts.emplace_back();
            } else {
                parts.back() += c;
            }
        }
        return parts;
    };
    std::vector<std::string> parts = split(address);
    // An address that is not four parts (damaged, or a host name) shows the address the
    // controllers leave the factory with: four parts the user can correct one by one.
    if (parts.size() != 4) {
        parts = split(MachineSettings::kDefaultTcpipAddress);
    }
    return {parts[0], parts[1], parts[2], parts[3]};
}

}  // namespace wk
