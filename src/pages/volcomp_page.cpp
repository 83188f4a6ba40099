#include "pages/volcomp_page.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>
#include <initializer_list>

#include "pages/form_controls.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "widgets/radio_tab_stop.h"

// The form also holds a group of two disabled, read-only edits with labels for the MELDAX
// method. They name nothing the settings files hold and nothing can be done with them, so the
// page leaves them out: a user would only wonder what they are for.

namespace wk {

namespace {

// Compensation methods (VolcompMethod) with a button; 3 (RHO) has none.
constexpr std::int32_t kMethodNone = 0;
constexpr std::int32_t kMethodQen = 1;
constexpr std::int32_t kMethodKv = 2;
constexpr std::int32_t kMethodController = 4;
constexpr std::int32_t kMethodMeldax = 5;

// Checks the button of `value` among `buttons` (by their values), or none when no button
// stands for it.
void CheckButtonOf(std::int32_t value,
                   std::initializer_list<std::pair<QRadioButton*, std::int32_t>> buttons) {
    for (const auto& [button, buttonValue] : buttons) {
        if (buttonValue == value) {
            button->setChecked(true);
            return;
        }
    }
    for (const auto& [button, buttonValue] : buttons) {
        button->setAutoExclusive(false);
        button->setChecked(false);
        button->setAutoExclusive(true);
    }
}

}  // namespace

TVolcompPage::TVolcompPage(PageHost& host) : KestelPage(host) {
    // The form gives no captions for the method buttons and the file field; they say what
    // the methods are called in the settings files.
    pGBX_VolCompMethod =
        MakeFormControl<QGroupBox>(this, "pGBX_VolCompMethod", "Compensation method");
    pRB_None = MakeFormControl<QRadioButton>(this, "pRB_None", "&None");
    pRB_Qen = MakeFormControl<QRadioButton>(this, "pRB_Qen", "&QEN");
    pRB_KVL = MakeFormControl<QRadioButton>(this, "pRB_KVL", "&KV");
    pRB_Controller = MakeFormControl<QRadioButton>(this, "pRB_Controller", "&Controller");
    pRB_UseMELDAXSet =
        MakeFormControl<QRadioButton>(this, "pRB_UseMELDAXSet", "Use &MELDAX settings");
    pCHB_ActiveQEN = MakeFormControl<QCheckBox>(this, "pCHB_ActiveQEN", "&Active");
    pST_CosDatFnameKVL = MakeFormControl<QLabel>(this, "pST_CosDatFnameKVL", "Com&pensation file:");
    pSLE_CosDatFnameKVL = MakeFormControl<QLineEdit>(this, "pSLE_CosDatFnameKVL");
    // The name is edited on the machine parameters page; here it is only shown.
    pSLE_CosDatFnameKVL->setReadOnly(true);
    pST_CosDatFnameKVL->setBuddy(pSLE_CosDatFnameKVL);
    pCB_ThComp = MakeFormControl<QCheckBox>(this, "pCB_ThComp", "Thermal compensation");

    pGBX_VolCompModeQen = MakeFormControl<QGroupBox>(this, "pGBX_VolCompModeQen", "Mode");
    pRB_BridgeQen = MakeFormControl<QRadioButton>(this, "pRB_BridgeQen", "&Bridge");
    // H is Help's, and E the Element Parameters': "Horizon&tal" and "Enab&led" below.
    pRB_HorizQen = MakeFormControl<QRadioButton>(this, "pRB_HorizQen", "Horizon&tal");
    pRB_DualReaderQen = MakeFormControl<QRadioButton>(this, "pRB_DualReaderQen", "Dual &Reader");

    pGBX_ContrCompOnExit =
        MakeFormControl<QGroupBox>(this, "pGBX_ContrCompOnExit", "Controller volcomp mode on exit");
    pRB_VolDis = MakeFormControl<QRadioButton>(this, "pRB_VolDis", "D&isabled");
    pRB_VolEn = MakeFormControl<QRadioButton>(this, "pRB_VolEn", "Enab&led");
    pRB_Restore = MakeFormControl<QRadioButton>(this, "pRB_Restore", "Re&store");

    // Not offered: no method without compensation, and the MELDAX settings are not chosen
    // here.
    pRB_None->setEnabled(false);
    pRB_UseMELDAXSet->setEnabled(false);

    BuildLayout();
    ConnectHandlers();
}

void TVolcompPage::BuildLayout() {
    // Each method with what belongs to it: QEN its switch, KV its file, the controller the
    // thermal compensation.
    auto* method = new QGridLayout(pGBX_VolCompMethod);
    method->setColumnMinimumWidth(0, 20);
    method->addWidget(pRB_None, 0, 0, 1, 3);
    method->addWidget(pRB_Qen, 1, 0, 1, 3);
    method->addWidget(pCHB_ActiveQEN, 2, 1, 1, 2);
    method->addWidget(pRB_KVL, 3, 0, 1, 3);
    method->addWidget(pST_CosDatFnameKVL, 4, 1);
    method->addWidget(pSLE_CosDatFnameKVL, 4, 2);
    method->addWidget(pRB_Controller, 5, 0, 1, 3);
    method->addWidget(pCB_ThComp, 6, 1, 1, 2);
    method->addWidget(pRB_UseMELDAXSet, 7, 0, 1, 3);
    method->setColumnStretch(2, 1);

    auto* mode = new QVBoxLayout(pGBX_VolCompModeQen);
    mode->addWidget(pRB_BridgeQen);
    mode->addWidget(pRB_HorizQen);
    mode->addWidget(pRB_DualReaderQen);

    auto* onExit = new QVBoxLayout(pGBX_ContrCompOnExit);
    onExit->addWidget(pRB_VolDis);
    onExit->addWidget(pRB_VolEn);
    onExit->addWidget(pRB_Restore);

    auto* right = new QVBoxLayout;
    right->addWidget(pGBX_VolCompModeQen);
    right->addWidget(pGBX_ContrCompOnExit);
    right->addStretch(1);

    auto* left = new QVBoxLayout;
    left->addWidget(pGBX_VolCompMethod);
    left->addStretch(1);

    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(24, 16, 24, 16);
    page->setSpacing(16);
    page->addLayout(left, 3);
    page->addLayout(right, 2);
}

void TVolcompPage::ConnectHandlers() {
    connect(pRB_None, &QRadioButton::clicked, this, &TVolcompPage::pRB_NoneClick);
    connect(pRB_Qen, &QRadioButton::clicked, this, &TVolcompPage::pRB_QenClick);
    connect(pRB_KVL, &QRadioButton::clicked, this, &TVolcompPage::pRB_KVLClick);
    connect(pRB_Controller, &QRadioButton::clicked, this, &TVolcompPage::pRB_ControllerClick);
    connect(pRB_UseMELDAXSet, &QRadioButton::clicked, this, &TVolcompPage::pRB_UseMELDAXSetClick);
    connect(pCHB_ActiveQEN, &QCheckBox::clicked, this, &TVolcompPage::pCHB_ActiveQENClick);
    connect(pRB_BridgeQen, &QRadioButton::clicked, this, &TVolcompPage::pRB_BridgeQenClick);
    connect(pRB_HorizQen, &QRadioButton::clicked, this, &TVolcompPage::pRB_HorizQenClick);
    connect(pRB_DualReaderQen, &QRadioButton::clicked, this, &TVolcompPage::pRB_DualReaderQenClick);
    connect(pRB_VolDis, &QRadioButton::clicked, this, &TVolcompPage::pRB_VolDisClick);
    connect(pRB_VolEn, &QRadioButton::clicked, this, &TVolcompPage::pRB_VolEnClick);
    connect(pRB_Restore, &QRadioButton::clicked, this, &TVolcompPage::pRB_RestoreClick);
    connect(pCB_ThComp, &QCheckBox::clicked, this, &TVolcompPage::pCB_ThCompClick);
}

void TVolcompPage::Initialise() {
    const SetupSettings& settings = host_.Settings();
    // The controllers reached over TCP/IP compensate by themselves and are told what to do
    // with it on exit. The type is the controller group's, upper case already.
    const bool acceptsTcpip = settings.ControllerType == "RMD" || settings.ControllerType == "KPT";
    ShowChoices();
    pRB_Controller->setEnabled(acceptsTcpip);
    pCHB_ActiveQEN->setEnabled(settings.VolcompMethod == kMethodQen);
    // Enabled here only: choosing the controller's method later leaves it as it is until the
    // next start, when the method read from the files is the controller's.
    pCB_ThComp->setEnabled(pRB_Controller->isChecked());
    pGBX_ContrCompOnExit->setEnabled(acceptsTcpip);
    for (QRadioButton* button : {pRB_VolDis, pRB_VolEn, pRB_Restore}) {
        button->setEnabled(acceptsTcpip);
    }
    SetTabStops();
}

void TVolcompPage::Load(bool /*refreshAll*/) {
    // The switch and the file name can change on the machine parameters page. The other
    // marks are shown again too: they differ from the record only after the files were read
    // again (changes discarded), and then the record is what holds. Nothing is enabled or
    // disabled here.
    ShowChoices();
}

void TVolcompPage::ShowChoices() {
    const SetupSettings& settings = host_.Settings();
    CheckButtonOf(settings.VolcompMethod, {{pRB_None, kMethodNone},
                                           {pRB_Qen, kMethodQen},
                                           {pRB_KVL, kMethodKv},
                                           {pRB_Controller, kMethodController},
                                           {pRB_UseMELDAXSet, kMethodMeldax}});
    pCHB_ActiveQEN->setChecked(settings.CompensActive);
    pCB_ThComp->setChecked(settings.ThermalCompens);
    pSLE_CosDatFnameKVL->setText(
        QString::fromStdString(platform::AnsiToUtf8(settings.CompensFileName)));
    CheckButtonOf(settings.CompensMode,
                  {{pRB_HorizQen, 0}, {pRB_BridgeQen, 1}, {pRB_DualReaderQen, 2}});
    CheckButtonOf(settings.CtrVolcompOnExit, {{pRB_VolDis, 0}, {pRB_VolEn, 1}, {pRB_Restore, 2}});
    SetTabStops();
}

void TVolcompPage::SetTabStops() {
    TabStopOnChecked({pRB_None, pRB_Qen, pRB_KVL, pRB_Controller, pRB_UseMELDAXSet});
    TabStopOnChecked({pRB_BridgeQen, pRB_HorizQen, pRB_DualReaderQen});
    TabStopOnChecked({pRB_VolDis, pRB_VolEn, pRB_Restore});
}

bool TVolcompPage::ChooseMethod(std::int32_t method) {
    SetupSettings& settings = host_.Settings();
    if (settings.VolcompMethod == method) {
        return false;  // the button that was checked already: nothing changes
    }
    settings.VolcompMethod = method;
    pCHB_ActiveQEN->setEnabled(method == kMethodQen);
    host_.MarkModified();
    return true;
}

void TVolcompPage::pRB_NoneClick() {
    if (ChooseMethod(kMethodNone)) pCB_ThComp->setEnabled(false);
}

void TVolcompPage::pRB_QenClick() {
    if (ChooseMethod(kMethodQen)) pCB_ThComp->setEnabled(false);
}

void TVolcompPage::pRB_KVLClick() {
    if (ChooseMethod(kMethodKv)) pCB_ThComp->setEnabled(false);
}

void TVolcompPage::pRB_ControllerClick() {
    // The thermal switch is deliberately left as it is: it becomes usable at the next start.
    ChooseMethod(kMethodController);
}

void TVolcompPage::pRB_UseMELDAXSetClick() {
    if (ChooseMethod(kMethodMeldax)) pCB_ThComp->setEnabled(false);
}

void TVolcompPage::pCHB_ActiveQENClick() {
    host_.Settings().CompensActive = pCHB_ActiveQEN->isChecked();
    host_.MarkModified();
}

void TVolcompPage::ChooseMode(std::int32_t mode) {
    SetupSettings& settings = host_.Settings();
    if (settings.CompensMode == mode) return;
    settings.CompensMode = mode;
    host_.MarkModified();
}

void TVolcompPage::pRB_BridgeQenClick() {
    ChooseMode(1);
}
void TVolcompPage::pRB_HorizQenClick() {
    ChooseMode(0);
}
void TVolcompPage::pRB_DualReaderQenClick() {
    ChooseMode(2);
}

void TVolcompPage::ChooseOnExit(std::int32_t onExit) {
    SetupSettings& settings = host_.Settings();
    if (settings.CtrVolcompOnExit == onExit) return;
    settings.CtrVolcompOnExit = onExit;
    host_.MarkModified();
}

void TVolcompPage::pRB_VolDisClick() {
    ChooseOnExit(0);
}
void TVolcompPage::pRB_VolEnClick() {
    ChooseOnExit(1);
}
void TVolcompPage::pRB_RestoreClick() {
    ChooseOnExit(2);
}

void TVolcompPage::pCB_ThCompClick() {
    host_.Settings().ThermalCompens = pCB_ThComp->isChecked();
    host_.MarkModified();
}

}  // namespace wk
