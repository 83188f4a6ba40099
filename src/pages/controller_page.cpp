#include "pages/controller_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QRegularExpression>
#include <QVBoxLayout>
#include <iterator>

#include "pages/form_controls.h"
#include "platform/text_codec.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdMainCaption = 1;
constexpr int kIdSheet = 9;
constexpr int kIdController = 470;
constexpr int kIdMouseFunctions[] = {471, 472, 473, 474, 475};
constexpr int kIdMouseButtons = 477;
constexpr int kIdLeftButton = 481;
constexpr int kIdMiddleButton = 482;
constexpr int kIdRightButton = 483;
constexpr int kIdBaseAddress = 484;
constexpr int kIdHardProbe = 486;
constexpr int kIdMaxMSpeed = 487;
constexpr int kIdMaxPSpeed = 488;
constexpr int kIdMaxAccel = 489;
constexpr int kIdSpeedUnit = 490;
constexpr int kIdRmdName = 491;
constexpr int kIdKptName = 492;

// The controller types the page tells apart; any other takes the "other" branch of each rule.
constexpr const char* kRmd = "RMD";
constexpr const char* kKpt = "KPT";
constexpr const char* kTq = "TQ";
constexpr const char* kVek3 = "VEK3";

EditField* MakeEdit(QWidget* parent, const char* name) {
    EditField* edit = MakeFormEdit(parent, name);
    edit->setMaximumWidth(140);
    return edit;
}

QComboBox* MakeList(QWidget* parent, const char* name) {
    QComboBox* list = MakeFormList(parent, name);
    list->setMinimumContentsLength(16);
    return list;
}

void ShowLimit(EditField* edit, double value) {
    // setText also clears the modified mark.
    edit->setText(QString::fromStdString(platform::AnsiToUtf8(FloatToStr(value))));
}

// The base address a typed text gives: one to four hexadecimal digits (a "0X" before them is
// allowed, as the measuring application's scan allows it), blanks around them ignored.
// Anything else is not an address: it raises ConversionError and the address stays as it was.
std::uint32_t ParseBaseAddress(const QString& text) {
    static const QRegularExpression hexadecimal(QStringLiteral("^(0X)?([0-9A-F]{1,4})$"));
    const QRegularExpressionMatch match = hexadecimal.match(text.trimmed().toUpper());
    if (!match.hasMatch()) {
        throw ConversionError(platform::Utf8ToAnsi(text.toStdString()), "hexadecimal");
    }
    return match.captured(2).toUInt(nullptr, 16);
}

}  // namespace

TControllerPage::TControllerPage(PageHost& host) : KestelPage(host) {
    pGBX_MouseButt = MakeFormGroup(this, "pGBX_MouseButt", "Mouse buttons");
    pFT_LeftButt = MakeFormLabel(pGBX_MouseButt, "pFT_LeftButt", "Left button:");
    pFT_MiddleButt = MakeFormLabel(pGBX_MouseButt, "pFT_MiddleButt", "Middle button:");
    pFT_RightButt = MakeFormLabel(pGBX_MouseButt, "pFT_RightButt", "Right button:");
    pCB_Left = MakeList(pGBX_MouseButt, "pCB_Left");
    pCB_Middle = MakeList(pGBX_MouseButt, "pCB_Middle");
    pCB_Right = MakeList(pGBX_MouseButt, "pCB_Right");

    pFT_BaseAddr = MakeFormLabel(this, "pFT_BaseAddr", "Base address:");
    pSLE_BaseAddr = MakeEdit(this, "pSLE_BaseAddr");
    pCHB_HpEnabled = MakeFormCheck(this, "pCHB_HpEnabled", "Hard probe compensation");
    pCB_IsQD32Z = MakeFormCheck(this, "pCB_IsQD32Z", "QD32Z compatible mode");

    pGrBox_SpeedAndAccel =
        MakeFormGroup(this, "pGrBox_SpeedAndAccel", "Max speeds and acceleration parameters ");
    QWidget* speeds = pGrBox_SpeedAndAccel;
    pRB_FromController = new QRadioButton(QStringLiteral("From &Controller"), speeds);
    pRB_FromController->setObjectName(QStringLiteral("pRB_FromController"));
    pRB_FromSetupFile = new QRadioButton(QStringLiteral("From &Setup File"), speeds);
    pRB_FromSetupFile->setObjectName(QStringLiteral("pRB_FromSetupFile"));
    pFT_MaxMSpeed = MakeFormLabel(speeds, "pFT_MaxMSpeed", "Max measuring speed:");
    pFT_MaxPSpeed = MakeFormLabel(speeds, "pFT_MaxPSpeed", "Max positioning speed:");
    pFT_MaxAccell = MakeFormLabel(speeds, "pFT_MaxAccell", "Max acceleration:");
    pSLE_MaxMSpeed = MakeEdit(speeds, "pSLE_MaxMSpeed");
    pSLE_MaxPSpeed = MakeEdit(speeds, "pSLE_MaxPSpeed");
    pSLE_MaxAccell = MakeEdit(speeds, "pSLE_MaxAccell");
    pFT_MMSpUnity = MakeFormLabel(speeds, "pFT_MMSpUnity", "[mm / s]");
    pFT_MPSpUnity = MakeFormLabel(speeds, "pFT_MPSpUnity", "[mm / s]");
    pFT_MAccUnity = MakeFormLabel(speeds, "pFT_MAccUnity", "[mm / s]");
    // The exponent of the acceleration unit, written small and raised beside it.
    pFT_Square = MakeFormLabel(speeds, "pFT_Square", "2");
    QFont small = pFT_Square->font();
    small.setPointSizeF(small.pointSizeF() * 0.75);
    pFT_Square->setFont(small);
    pFT_Square->setAccessibleName(QStringLiteral("squared"));

    BuildLayout();

    connect(pCB_Left, &QComboBox::activated, this, &TControllerPage::pCB_LeftChange);
    connect(pCB_Middle, &QComboBox::activated, this, &TControllerPage::pCB_MiddleChange);
    connect(pCB_Right, &QComboBox::activated, this, &TControllerPage::pCB_RightChange);
    connect(pSLE_BaseAddr, &EditField::Exit, this, &TControllerPage::pSLE_BaseAddrExit);
    connect(pCHB_HpEnabled, &QCheckBox::clicked, this, &TControllerPage::pCHB_HpEnabledClick);
    connect(pSLE_MaxMSpeed, &EditField::Exit, this, &TControllerPage::pSLE_MaxMSpeedExit);
    connect(pSLE_MaxPSpeed, &EditField::Exit, this, &TControllerPage::pSLE_MaxPSpeedExit);
    connect(pSLE_MaxAccell, &EditField::Exit, this, &TControllerPage::pSLE_MaxAccellExit);
    connect(pRB_FromController, &QRadioButton::clicked, this,
            &TControllerPage::pRB_FromControllerClick);
    connect(pRB_FromSetupFile, &QRadioButton::clicked, this,
            &TControllerPage::pRB_FromSetupFileClick);
    connect(pCB_IsQD32Z, &QCheckBox::clicked, this, &TControllerPage::pCB_IsQD32ZClick);
}

TControllerPage::~TControllerPage() {
    // The controls outlive this part of the page by a moment; what they report while going
    // must not reach the handlers of a page that is gone.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

void TControllerPage::BuildLayout() {
    // Left: the mouse buttons, then the base address and the two switches. Right: the limits.
    auto* mouse = new QGridLayout(pGBX_MouseButt);
    mouse->setHorizontalSpacing(10);
    mouse->setVerticalSpacing(8);
    const struct {
        QLabel* label;
        QComboBox* list;
    } buttons[] = {
        {pFT_LeftButt, pCB_Left}, {pFT_MiddleButt, pCB_Middle}, {pFT_RightButt, pCB_Right}};
    int row = 0;
    for (const auto& b : buttons) {
        b.label->setBuddy(b.list);
        mouse->addWidget(b.label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        mouse->addWidget(b.list, row, 1);
        ++row;
    }
    mouse->setColumnStretch(1, 1);

    auto* address = new QHBoxLayout;
    pFT_BaseAddr->setBuddy(pSLE_BaseAddr);
    address->addWidget(pFT_BaseAddr);
    address->addWidget(pSLE_BaseAddr);
    address->addStretch(1);

    auto* left = new QVBoxLayout;
    left->setSpacing(10);
    left->addWidget(pGBX_MouseButt);
    left->addLayout(address);
    left->addWidget(pCHB_HpEnabled);
    left->addWidget(pCB_IsQD32Z);
    left->addStretch(1);

    auto* limits = new QGridLayout(pGrBox_SpeedAndAccel);
    limits->setHorizontalSpacing(8);
    limits->setVerticalSpacing(8);
    auto* source = new QHBoxLayout;
    source->addWidget(pRB_FromController);
    source->addWidget(pRB_FromSetupFile);
    source->addStretch(1);
    limits->addLayout(source, 0, 0, 1, 4);
    const struct {
        QLabel* label;
        EditField* edit;
        QLabel* unit;
    } rows[] = {{pFT_MaxMSpeed, pSLE_MaxMSpeed, pFT_MMSpUnity},
                {pFT_MaxPSpeed, pSLE_MaxPSpeed, pFT_MPSpUnity},
                {pFT_MaxAccell, pSLE_MaxAccell, pFT_MAccUnity}};
    row = 1;
    for (const auto& r : rows) {
        r.label->setBuddy(r.edit);
        limits->addWidget(r.label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
        limits->addWidget(r.edit, row, 1);
        if (r.unit == pFT_MAccUnity) {
            // The exponent right after the unit, raised: mm / s².
            auto* unit = new QHBoxLayout;
            unit->setSpacing(1);
            unit->addWidget(pFT_MAccUnity, 0, Qt::AlignVCenter);
            unit->addWidget(pFT_Square, 0, Qt::AlignTop);
            unit->addStretch(1);
            limits->addLayout(unit, row, 2);
        } else {
            limits->addWidget(r.unit, row, 2, Qt::AlignLeft | Qt::AlignVCenter);
        }
        ++row;
    }
    limits->setColumnStretch(3, 1);

    auto* right = new QVBoxLayout;
    right->addWidget(pGrBox_SpeedAndAccel);
    right->addStretch(1);

    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(16, 16, 16, 16);
    page->setSpacing(20);
    page->addLayout(left, 1);
    page->addLayout(right, 1);

    // Down the left column, then the source of the limits and the limits themselves.
    ChainTabOrder({pCB_Left, pCB_Middle, pCB_Right, pSLE_BaseAddr, pCHB_HpEnabled, pCB_IsQD32Z,
                   pRB_FromController, pRB_FromSetupFile, pSLE_MaxMSpeed, pSLE_MaxPSpeed,
                   pSLE_MaxAccell});
}

QString TControllerPage::WindowCaption(const PageHost& host, const std::string& controllerType) {
    QString name;
    if (controllerType == kRmd) {
        name = host.LanguageText(kIdRmdName);
    } else if (controllerType == kKpt) {
        name = host.LanguageText(kIdKptName);
    } else {
        name = QString::fromStdString(platform::AnsiToUtf8(controllerType));
    }
    return host.LanguageText(kIdMainCaption) + QStringLiteral(" - ") +
           QStringLiteral("%1 [%2]").arg(name, host.LanguageText(kIdController));
}

void TControllerPage::Initialise() {
    const SetupSettings& settings = host_.Settings();
    const std::string& type = settings.ControllerType;

    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    // The window's caption names the controller the settings are for.
    window()->setWindowTitle(WindowCaption(host_, type));
    pGBX_MouseButt->setTitle(host_.LanguageText(kIdMouseButtons));
    pFT_LeftButt->setText(host_.LanguageText(kIdLeftButton));
    pFT_MiddleButt->setText(host_.LanguageText(kIdMiddleButton));
    pFT_RightButt->setText(host_.LanguageText(kIdRightButton));
    pFT_BaseAddr->setText(host_.LanguageText(kIdBaseAddress));
    pCHB_HpEnabled->setText(host_.LanguageText(kIdHardProbe));
    pFT_MaxMSpeed->setText(host_.LanguageText(kIdMaxMSpeed));
    pFT_MaxPSpeed->setText(host_.LanguageText(kIdMaxPSpeed));
    pFT_MaxAccell->setText(host_.LanguageText(kIdMaxAccel));
    const QString speedUnit = host_.LanguageText(kIdSpeedUnit);
    for (QLabel* unit : {pFT_MMSpUnity, pFT_MPSpUnity, pFT_MAccUnity}) unit->setText(speedUnit);
    pFT_Square->setText(QStringLiteral("2"));
    for (const QLabel* label : {pFT_LeftButt, pFT_MiddleButt, pFT_RightButt, pFT_BaseAddr,
                                pFT_MaxMSpeed, pFT_MaxPSpeed, pFT_MaxAccell}) {
        NameAfterLabel(label);
    }

    // The five functions a button can have; the stored value is the index of the chosen one.
    // A value outside the list selects nothing and stays stored until the user chooses.
    const struct {
        QComboBox* list;
        std::int32_t function;
    } lists[] = {{pCB_Left, settings.LeftButtonFunction},
                 {pCB_Middle, settings.MiddleButtonFunction},
                 {pCB_Right, settings.RightButtonFunction}};
    for (const auto& l : lists) {
        l.list->clear();
        for (int i = 0; i < static_cast<int>(std::size(kIdMouseFunctions)); ++i) {
            l.list->insertItem(i, host_.LanguageText(kIdMouseFunctions[i]));
        }
        l.list->setCurrentIndex(l.function >= 0 && l.function < l.list->count() ? l.function : -1);
    }

    // At least four hexadecimal digits, upper case.
    pSLE_BaseAddr->setText(
        QString::asprintf("%04x", static_cast<unsigned>(settings.BaseAddress)).toUpper());

    // The TCP/IP controllers take their mouse buttons and probe compensation from the
    // controller itself but have motion limits; the others the other way round.
    const bool tcpip = type == kRmd || type == kKpt;
    pCB_IsQD32Z->setVisible(type == kRmd);
    pCB_IsQD32Z->setChecked(settings.IsQd32z);
    pGrBox_SpeedAndAccel->setVisible(tcpip);
    if (tcpip) {
        ShowLimit(pSLE_MaxMSpeed, settings.MaxMSpeed);
        ShowLimit(pSLE_MaxPSpeed, settings.MaxPSpeed);
        ShowLimit(pSLE_MaxAccell, settings.MaxAccel);
        ShowLimitSource(settings.UseIniMaxSpeeds);
        EnableLimits(settings.UseIniMaxSpeeds);
    }
    pFT_BaseAddr->setVisible(type == kTq);
    pSLE_BaseAddr->setVisible(type == kTq);
    pCHB_HpEnabled->setChecked(settings.HardProbeCompensation);
    pCHB_HpEnabled->setEnabled(!tcpip);

    const bool mouseButtons = !tcpip && type != kVek3;
    pGBX_MouseButt->setEnabled(mouseButtons);
    for (QWidget* control :
         {static_cast<QWidget*>(pFT_LeftButt), static_cast<QWidget*>(pFT_MiddleButt),
          static_cast<QWidget*>(pFT_RightButt), static_cast<QWidget*>(pCB_Left),
          static_cast<QWidget*>(pCB_Middle), static_cast<QWidget*>(pCB_Right)}) {
        control->setEnabled(mouseButtons);
    }
}

void TControllerPage::ShowLimitSource(bool fromSetupFile) {
    pRB_FromSetupFile->setChecked(fromSetupFile);
    pRB_FromController->setChecked(!fromSetupFile);
}

void TControllerPage::EnableLimits(bool fromSetupFile) {
    for (QWidget* control :
         {static_cast<QWidget*>(pFT_MaxMSpeed), static_cast<QWidget*>(pFT_MMSpUnity),
          static_cast<QWidget*>(pSLE_MaxMSpeed)}) {
        control->setEnabled(true);
    }
    for (QWidget* control :
         {static_cast<QWidget*>(pFT_MaxPSpeed), static_cast<QWidget*>(pFT_MaxAccell),
          static_cast<QWidget*>(pFT_MPSpUnity), static_cast<QWidget*>(pFT_MAccUnity),
          static_cast<QWidget*>(pFT_Square), static_cast<QWidget*>(pSLE_MaxPSpeed),
          static_cast<QWidget*>(pSLE_MaxAccell)}) {
        control->setEnabled(fromSetupFile);
    }
}

void TControllerPage::ButtonChange(QComboBox* list, std::int32_t& function) {
    const int index = list->currentIndex();
    if (index == function) return;
    function = index;
    host_.MarkModified();
}

void TControllerPage::pCB_LeftChange() {
    ButtonChange(pCB_Left, host_.Settings().LeftButtonFunction);
}
void TControllerPage::pCB_MiddleChange() {
    ButtonChange(pCB_Middle, host_.Settings().MiddleButtonFunction);
}
void TControllerPage::pCB_RightChange() {
    ButtonChange(pCB_Right, host_.Settings().RightButtonFunction);
}

void TControllerPage::pCHB_HpEnabledClick() {
    host_.Settings().HardProbeCompensation = pCHB_HpEnabled->isChecked();
    host_.MarkModified();
}

void TControllerPage::pCB_IsQD32ZClick() {
    host_.Settings().IsQd32z = pCB_IsQD32Z->isChecked();
    host_.MarkModified();
}

void TControllerPage::pSLE_BaseAddrExit() {
    if (!pSLE_BaseAddr->isModified()) return;
    // Only the first four characters count; what is kept is shown in upper case.
    QString text = pSLE_BaseAddr->text();
    if (text.size() > 4) text.truncate(4);
    text = text.toUpper();
    pSLE_BaseAddr->setText(text);
    // A text that is not hexadecimal keeps the address that was stored; the field stays
    // marked as changed, so that leaving it again, or Save, reports it again.
    pSLE_BaseAddr->setModified(true);
    host_.Converting([&] {
        host_.Settings().BaseAddress = ParseBaseAddress(text);
        pSLE_BaseAddr->setModified(false);
        host_.MarkModified();
    });
}

void TControllerPage::CommitLimit(EditField* edit, double& value) {
    if (!edit->isModified()) return;
    // No range: zero and negative limits are the user's to choose.
    host_.Converting([&] {
        const double typed = StrToFloat(platform::Utf8ToAnsi(edit->text().toStdString()));
        ShowLimit(edit, typed);
        value = typed;
        host_.MarkModified();
    });
}

void TControllerPage::pSLE_MaxMSpeedExit() {
    CommitLimit(pSLE_MaxMSpeed, host_.Settings().MaxMSpeed);
}
void TControllerPage::pSLE_MaxPSpeedExit() {
    CommitLimit(pSLE_MaxPSpeed, host_.Settings().MaxPSpeed);
}
void TControllerPage::pSLE_MaxAccellExit() {
    CommitLimit(pSLE_MaxAccell, host_.Settings().MaxAccel);
}

void TControllerPage::pRB_FromControllerClick() {
    SetupSettings& settings = host_.Settings();
    // Clicking the source already chosen changes nothing and asks no question later.
    if (settings.UseIniMaxSpeeds) {
        settings.UseIniMaxSpeeds = false;
        host_.MarkModified();
    }
    ShowLimitSource(false);
    EnableLimits(false);
}

void TControllerPage::pRB_FromSetupFileClick() {
    SetupSettings& settings = host_.Settings();
    if (!settings.UseIniMaxSpeeds) {
        settings.UseIniMaxSpeeds = true;
        host_.MarkModified();
    }
    ShowLimitSource(true);
    EnableLimits(true);
}

void TControllerPage::Store() {
    // A value still being typed is committed as leaving its field would.
    const struct {
        EditField* edit;
        void (TControllerPage::*exit)();
    } edits[] = {{pSLE_BaseAddr, &TControllerPage::pSLE_BaseAddrExit},
                 {pSLE_MaxMSpeed, &TControllerPage::pSLE_MaxMSpeedExit},
                 {pSLE_MaxPSpeed, &TControllerPage::pSLE_MaxPSpeedExit},
                 {pSLE_MaxAccell, &TControllerPage::pSLE_MaxAccellExit}};
    for (const auto& e : edits) {
        if (e.edit->hasFocus() && e.edit->isModified()) (this->*e.exit)();
    }
}

void TControllerPage::Load(bool refreshAll) {
    const SetupSettings& settings = host_.Settings();
    const auto keep = [refreshAll](const EditField* edit) {
        return !refreshAll && edit->hasFocus() && edit->isModified();
    };
    if (!keep(pSLE_MaxMSpeed)) ShowLimit(pSLE_MaxMSpeed, settings.MaxMSpeed);
    if (!keep(pSLE_MaxPSpeed)) ShowLimit(pSLE_MaxPSpeed, settings.MaxPSpeed);
    if (!keep(pSLE_MaxAccell)) ShowLimit(pSLE_MaxAccell, settings.MaxAccel);
    // Decimal here, against hexadecimal at initialisation and on exit: after a reload an
    // address of 0x300 shows as 768, and editing it reads the text as hexadecimal. The
    // asymmetry is deliberate and kept.
    if (!keep(pSLE_BaseAddr)) {
        pSLE_BaseAddr->setText(QString::number(static_cast<unsigned>(settings.BaseAddress)));
    }
}

}  // namespace wk
