#include "pages/mech_offsets_page.h"

#include <QGridLayout>

#include "pages/form_controls.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 8;
constexpr int kIdOffsetX = 250;
constexpr int kIdOffsetY = 251;
constexpr int kIdOffsetZ = 252;
constexpr int kIdCompOffset = 253;
constexpr int kIdBridgeStroke = 255;
constexpr int kIdMillimetres = 86;

EditField* MakeEdit(QWidget* parent, const char* name) {
    EditField* edit = MakeFormEdit(parent, name);
    edit->setMaximumWidth(160);
    return edit;
}

}  // namespace

TMecOffPage::TMecOffPage(PageHost& host) : KestelPage(host) {
    pST_OffsetX = MakeFormLabel(this, "pST_OffsetX", "Offset X :");
    pST_OffsetY = MakeFormLabel(this, "pST_OffsetY", "Offset Y :");
    pST_OffsetZ = MakeFormLabel(this, "pST_OffsetZ", "Offset Z :");
    pST_CompOffset = MakeFormLabel(this, "pST_CompOffset", "Compens. Offset :");
    pST_BridgeStroke = MakeFormLabel(this, "pST_BridgeStroke", "Bridge Axis Stroke :");
    pSLE_OffsetX = MakeEdit(this, "pSLE_OffsetX");
    pSLE_OffsetY = MakeEdit(this, "pSLE_OffsetY");
    pSLE_OffsetZ = MakeEdit(this, "pSLE_OffsetZ");
    pSLE_CompOffset = MakeEdit(this, "pSLE_CompOffset");
    pSLE_BridgeStroke = MakeEdit(this, "pSLE_BridgeStroke");
    pST_CompX_Unity = MakeFormLabel(this, "pST_CompX_Unity", "[mm]");
    pST_CompY_Unity = MakeFormLabel(this, "pST_CompY_Unity", "[mm]");
    pST_CompZ_Unity = MakeFormLabel(this, "pST_CompZ_Unity", "[mm]");
    pST_CompOff_Unity = MakeFormLabel(this, "pST_CompOff_Unity", "[mm]");
    pST_Bridge_Unity = MakeFormLabel(this, "pST_Bridge_Unity", "[mm]");

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(10);
    const struct {
        QLabel* label;
        EditField* edit;
        QLabel* unit;
    } rows[] = {
        {pST_OffsetX, pSLE_OffsetX, pST_CompX_Unity},
        {pST_OffsetY, pSLE_OffsetY, pST_CompY_Unity},
        {pST_OffsetZ, pSLE_OffsetZ, pST_CompZ_Unity},
        {pST_CompOffset, pSLE_CompOffset, pST_CompOff_Unity},
        {pST_BridgeStroke, pSLE_BridgeStroke, pST_Bridge_Unity},
    };
    int row = 0;
    for (const auto& r : rows) {
        r.label->setBuddy(r.edit);
        grid->addWidget(r.label, row, 0, Qt::AlignRight);
        grid->addWidget(r.edit, row, 1);
        grid->addWidget(r.unit, row, 2, Qt::AlignLeft);
        ++row;
    }
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(row, 1);

    connect(pSLE_OffsetX, &EditField::Exit, this, &TMecOffPage::pSLE_OffsetXExit);
    connect(pSLE_OffsetY, &EditField::Exit, this, &TMecOffPage::pSLE_OffsetYExit);
    connect(pSLE_OffsetZ, &EditField::Exit, this, &TMecOffPage::pSLE_OffsetZExit);
    connect(pSLE_CompOffset, &EditField::Exit, this, &TMecOffPage::pSLE_CompOffsetExit);
    connect(pSLE_BridgeStroke, &EditField::Exit, this, &TMecOffPage::pSLE_BridgeStrokeExit);
}

void TMecOffPage::ShowValue(EditField* field, double value) {
    // setText also clears the field's modified mark.
    field->setText(QString::fromStdString(FloatToStr(value)));
}

void TMecOffPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pST_OffsetX->setText(host_.LanguageText(kIdOffsetX));
    pST_OffsetY->setText(host_.LanguageText(kIdOffsetY));
    pST_OffsetZ->setText(host_.LanguageText(kIdOffsetZ));
    pST_CompOffset->setText(host_.LanguageText(kIdCompOffset));
    pST_BridgeStroke->setText(host_.LanguageText(kIdBridgeStroke));
    const QString millimetres = host_.LanguageText(kIdMillimetres);
    for (QLabel* unit :
         {pST_CompX_Unity, pST_CompY_Unity, pST_CompZ_Unity, pST_CompOff_Unity, pST_Bridge_Unity}) {
        unit->setText(millimetres);
    }
    Load(true);
}

void TMecOffPage::CommitField(EditField* field, double& value) {
    if (!field->isModified()) {
        return;
    }
    host_.Converting([&] {
        const double typed = StrToFloat(AnsiText(field));
        ShowValue(field, typed);
        value = typed;
        host_.MarkModified();
    });
}

void TMecOffPage::pSLE_OffsetXExit() {
    CommitField(pSLE_OffsetX, host_.Settings().OffsetX);
}
void TMecOffPage::pSLE_OffsetYExit() {
    CommitField(pSLE_OffsetY, host_.Settings().OffsetY);
}
void TMecOffPage::pSLE_OffsetZExit() {
    CommitField(pSLE_OffsetZ, host_.Settings().OffsetZ);
}
void TMecOffPage::pSLE_CompOffsetExit() {
    CommitField(pSLE_CompOffset, host_.Settings().CompensOffset);
}
void TMecOffPage::pSLE_BridgeStrokeExit() {
    CommitField(pSLE_BridgeStroke, host_.Settings().BridgeAxisStroke);
}

void TMecOffPage::Store() {
    pSLE_OffsetXExit();
    pSLE_OffsetYExit();
    pSLE_OffsetZExit();
    pSLE_CompOffsetExit();
    pSLE_BridgeStrokeExit();
}

void TMecOffPage::Load(bool refreshAll) {
    const SetupSettings& settings = host_.Settings();
    const struct {
        EditField* field;
        double value;
    } fields[] = {
        {pSLE_OffsetX, settings.OffsetX},
        {pSLE_OffsetY, settings.OffsetY},
        {pSLE_OffsetZ, settings.OffsetZ},
        {pSLE_CompOffset, settings.CompensOffset},
        {pSLE_BridgeStroke, settings.BridgeAxisStroke},
    };
    for (const auto& f : fields) {
        if (refreshAll || f.field->isModified()) {
            ShowValue(f.field, f.value);
        }
    }
}

}  // namespace wk
