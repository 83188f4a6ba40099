#include "pages/win_color_page.h"

#include <QColor>
#include <QColorDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <iterator>

#include "pages/form_controls.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "widgets/dialog_answers.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 16;
// The caption of each window of the list, by colour entry (the entries with a key).
constexpr std::array<int, ColourSettings::kColourKeyCount> kIdWindowCaptions{
    365, 366, 367, 393, 368, 369, 370, 371, 372, 373, 374, 375, 376,
    377, 378, 379, 380, 381, 382, 383, 384, 392, 394, 395, 396, 397,
};

// The colour of the active component's label.
const QColor kHighlightText(0, 0, 170);

QScrollBar* MakeBar(QWidget* parent, const char* name) {
    auto* bar = new QScrollBar(Qt::Horizontal, parent);
    bar->setObjectName(QString::fromLatin1(name));
    // Dragging the thumb is reported by sliderMoved (the Scroll handlers); the position, and
    // with it the Change handlers, follows only when the thumb is let go or the bar is stepped.
    bar->setTracking(false);
    bar->setFocusPolicy(Qt::StrongFocus);
    bar->setMinimumWidth(220);
    return bar;
}

EditField* MakeEdit(QWidget* parent, const char* name) {
    EditField* edit = MakeFormEdit(parent, name);
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QStringLiteral("0000000")) + 12);
    return edit;
}

QString ThreeDigits(int value) {
    return QString::asprintf("%03d", value);
}

}  // namespace

TWinColorPage::TWinColorPage(PageHost& host) : KestelPage(host) {
    pST_WinList = MakeFormLabel(this, "pST_WinList", "Windows background list");
    pLB_WinList = new QListWidget(this);
    pLB_WinList->setObjectName(QStringLiteral("pLB_WinList"));
    pLB_WinList->setSelectionMode(QAbstractItemView::SingleSelection);
    pLB_WinList->setMinimumWidth(260);
    pST_WinList->setBuddy(pLB_WinList);

    pST_RedColor = MakeFormLabel(this, "pST_RedColor", "Red");
    pST_GreenColor = MakeFormLabel(this, "pST_GreenColor", "Green");
    pST_BlueColor = MakeFormLabel(this, "pST_BlueColor", "Blue");
    pHSB_Red = MakeBar(this, "pHSB_Red");
    pHSB_Green = MakeBar(this, "pHSB_Green");
    pHSB_Blue = MakeBar(this, "pHSB_Blue");
    pSLE_RedColor = MakeEdit(this, "pSLE_RedColor");
    pSLE_GreenColor = MakeEdit(this, "pSLE_GreenColor");
    pSLE_BlueColor = MakeEdit(this, "pSLE_BlueColor");

    pSLE_ShowColor = MakeFormControl<QLineEdit>(this, "pSLE_ShowColor");
    pSLE_ShowColor->setReadOnly(true);
    pSLE_ShowColor->setFocusPolicy(Qt::NoFocus);
    pSLE_ShowColor->setAutoFillBackground(true);
    pSLE_ShowColor->setMinimumHeight(72);
    pSLE_ShowColor->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    // Enter on a focused button clicks it: a component edit that is left hands the focus to
    // Set, so Tab then Enter applies.
    pPB_ColorsPal = MakeFormButton(this, "pPB_ColorsPal", "Colors palette >>");
    pPB_SetCol = MakeFormButton(this, "pPB_SetCol", "Set");
    pPB_SetCol->setEnabled(false);

    components_ = {{
        {kRedComponent, pST_RedColor, pHSB_Red, pSLE_RedColor},
        {kGreenComponent, pST_GreenColor, pHSB_Green, pSLE_GreenColor},
        {kBlueComponent, pST_BlueColor, pHSB_Blue, pSLE_BlueColor},
    }};

    // Named for a screen reader: a list reads no label by itself, and a component's bar and
    // edit both go by the component's caption.
    NameAfterLabel(pST_WinList);
    for (const Component& c : components_) c.bar->setAccessibleName(c.label->text());
    pSLE_ShowColor->setAccessibleName(QStringLiteral("Color"));

    // The list on the left; the components, the swatch and the buttons on the right.
    auto* page = new QHBoxLayout(this);
    page->setContentsMargins(16, 16, 16, 16);
    page->setSpacing(20);

    auto* listColumn = new QVBoxLayout;
    listColumn->setSpacing(6);
    listColumn->addWidget(pST_WinList);
    listColumn->addWidget(pLB_WinList, 1);
    page->addLayout(listColumn, 1);

    auto* colourColumn = new QVBoxLayout;
    colourColumn->setSpacing(12);
    colourColumn->addSpacing(pST_WinList->sizeHint().height() + 6);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(12);
    int row = 0;
    for (const Component& c : components_) {
        c.label->setBuddy(c.edit);
        grid->addWidget(c.label, row, 0, Qt::AlignLeft | Qt::AlignVCenter);
        grid->addWidget(c.bar, row, 1);
        grid->addWidget(c.edit, row, 2);
        ++row;
    }
    grid->setColumnStretch(1, 1);
    colourColumn->addLayout(grid);
    colourColumn->addWidget(pSLE_ShowColor);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(pPB_ColorsPal);
    buttons->addStretch(1);
    buttons->addWidget(pPB_SetCol);
    colourColumn->addLayout(buttons);
    colourColumn->addStretch(1);
    page->addLayout(colourColumn, 1);

    // Tab goes down the list, then each component's bar and edit, then the buttons.
    ChainTabOrder({pLB_WinList, pHSB_Red, pSLE_RedColor, pHSB_Green, pSLE_GreenColor, pHSB_Blue,
                   pSLE_BlueColor, pPB_ColorsPal, pPB_SetCol});

    // The user's keys and clicks on the list; clicking the selected row again counts too.
    connect(pLB_WinList, &QListWidget::currentRowChanged, this, [this] {
        if (!selecting_) pLB_WinListClick();
    });
    connect(pLB_WinList, &QListWidget::itemClicked, this, &TWinColorPage::pLB_WinListClick);

    connect(pHSB_Red, &QScrollBar::valueChanged, this, &TWinColorPage::pHSB_RedChange);
    connect(pHSB_Green, &QScrollBar::valueChanged, this, &TWinColorPage::pHSB_GreenChange);
    connect(pHSB_Blue, &QScrollBar::valueChanged, this, &TWinColorPage::pHSB_BlueChange);
    connect(pHSB_Red, &QScrollBar::sliderMoved, this, &TWinColorPage::pHSB_RedScroll);
    connect(pHSB_Green, &QScrollBar::sliderMoved, this, &TWinColorPage::pHSB_GreenScroll);
    connect(pHSB_Blue, &QScrollBar::sliderMoved, this, &TWinColorPage::pHSB_BlueScroll);
    connect(pSLE_RedColor, &EditField::Enter, this, &TWinColorPage::pSLE_RedColorEnter);
    connect(pSLE_GreenColor, &EditField::Enter, this, &TWinColorPage::pSLE_GreenColorEnter);
    connect(pSLE_BlueColor, &EditField::Enter, this, &TWinColorPage::pSLE_BlueColorEnter);
    connect(pSLE_RedColor, &EditField::Exit, this, &TWinColorPage::pSLE_RedColorExit);
    connect(pSLE_GreenColor, &EditField::Exit, this, &TWinColorPage::pSLE_GreenColorExit);
    connect(pSLE_BlueColor, &EditField::Exit, this, &TWinColorPage::pSLE_BlueColorExit);
    connect(pPB_ColorsPal, &QPushButton::clicked, this, &TWinColorPage::pPB_ColorsPalClick);
    connect(pPB_SetCol, &QPushButton::clicked, this, &TWinColorPage::pPB_SetColClick);

    ShowColour();
    HighlightActiveComponent();
}

TWinColorPage::~TWinColorPage() {
    // The controls outlive this part of the page by a moment (the widget base deletes them);
    // whatever they report while going must not reach the handlers of a page that is gone.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

TWinColorPage::Component& TWinColorPage::ComponentOf(int id) {
    for (Component& c : components_) {
        if (c.id == id) return c;
    }
    return components_[0];
}

std::uint32_t TWinColorPage::WithComponent(std::uint32_t colour, int id, int value) {
    int red = ColourSettings::RedOf(colour);
    int green = ColourSettings::GreenOf(colour);
    int blue = ColourSettings::BlueOf(colour);
    switch (id) {
        case kRedComponent:
            red = value;
            break;
        case kGreenComponent:
            green = value;
            break;
        case kBlueComponent:
            blue = value;
            break;
        default:
            break;
    }
    return ColourSettings::MakeColour(red, green, blue);
}

int TWinColorPage::EntryOfRow(int row) const {
    if (row < 0 || row >= static_cast<int>(rowToEntry_.size())) return 0;
    return rowToEntry_[static_cast<std::size_t>(row)];
}

void TWinColorPage::PaintSwatch(std::uint32_t colour) {
    const QColor shown(ColourSettings::RedOf(colour), ColourSettings::GreenOf(colour),
                       ColourSettings::BlueOf(colour));
    QPalette palette = pSLE_ShowColor->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, shown);
        palette.setColor(group, QPalette::Window, shown);
    }
    pSLE_ShowColor->setPalette(palette);
}

void TWinColorPage::ShowColour() {
    const int values[] = {ColourSettings::RedOf(currentColour_),
                          ColourSettings::GreenOf(currentColour_),
                          ColourSettings::BlueOf(currentColour_)};
    for (std::size_t i = 0; i < components_.size(); ++i) {
        components_[i].edit->setText(ThreeDigits(values[i]));
    }
    PaintSwatch(currentColour_);
    // Putting the thumbs in place is not the user moving them.
    for (std::size_t i = 0; i < components_.size(); ++i) {
        const QSignalBlocker blocker(components_[i].bar);
        components_[i].bar->setValue(values[i]);
    }
}

void TWinColorPage::HighlightActiveComponent() {
    for (const Component& c : components_) {
        const bool active = c.id == activeComponent_;
        QFont labelFont = c.label->font();
        labelFont.setBold(active);
        c.label->setFont(labelFont);
        QFont editFont = c.edit->font();
        editFont.setBold(active);
        c.edit->setFont(editFont);
        QPalette labelPalette = palette();
        if (active) {
            labelPalette.setColor(QPalette::Active, QPalette::WindowText, kHighlightText);
            labelPalette.setColor(QPalette::Inactive, QPalette::WindowText, kHighlightText);
        }
        c.label->setPalette(labelPalette);
    }
}

void TWinColorPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pPB_ColorsPal->setEnabled(true);
    for (const Component& c : components_) {
        const QSignalBlocker blocker(c.bar);
        c.bar->setRange(0, 255);
        c.bar->setPageStep(1);
        c.bar->setSingleStep(1);
    }

    const SetupSettings& settings = host_.Settings();
    selecting_ = true;
    pLB_WinList->clear();
    rowToEntry_.fill(0);
    int listed = 0;
    for (int entry = 0; entry < ColourSettings::kColourEntryCount; ++entry) {
        if (!settings.ColourTable[static_cast<std::size_t>(entry)].Listed) continue;
        rowToEntry_[static_cast<std::size_t>(listed++)] = entry;
        // The spare entries take a slot of the table but have no caption and no row.
        if (entry < ColourSettings::kColourKeyCount) {
            pLB_WinList->addItem(
                host_.LanguageText(kIdWindowCaptions[static_cast<std::size_t>(entry)]));
        }
    }

    if (listed == 0) {
        // Nothing to colour: the page is switched off. (The sounds page dims its list labels
        // then too, asking the record the same question.)
        pLB_WinList->setEnabled(false);
        pST_WinList->setEnabled(false);
        for (const Component& c : components_) {
            c.label->setEnabled(false);
            c.bar->setEnabled(false);
            c.edit->setEnabled(false);
        }
        pPB_ColorsPal->setEnabled(false);
        pPB_SetCol->setEnabled(false);
    } else {
        pLB_WinList->setCurrentRow(0);
    }
    selecting_ = false;

    selectedRow_ = 0;
    currentColour_ = settings.ColourTable[static_cast<std::size_t>(EntryOfRow(0))].Colour;
    ShowColour();
    HighlightActiveComponent();
}

void TWinColorPage::pLB_WinListClick() {
    const int row = pLB_WinList->currentRow();
    if (row < 0) return;
    selectedRow_ = row;
    currentColour_ = host_.Settings().ColourTable[static_cast<std::size_t>(EntryOfRow(row))].Colour;
    ShowColour();
    pPB_SetCol->setEnabled(false);
}

void TWinColorPage::ComponentChange(int id) {
    Component& c = ComponentOf(id);
    const int position = c.bar->value();
    c.edit->setText(ThreeDigits(position));
    currentColour_ = WithComponent(currentColour_, id, position);
    ShowColour();
    activeComponent_ = id;
    HighlightActiveComponent();
}

void TWinColorPage::ComponentScroll(int id, int position) {
    // While the thumb is dragged only the edit and the swatch follow it; the current colour
    // waits for the thumb to be let go.
    ComponentOf(id).edit->setText(ThreeDigits(position));
    PaintSwatch(WithComponent(currentColour_, id, position));
}

void TWinColorPage::ComponentEnter(int id) {
    activeComponent_ = id;
    HighlightActiveComponent();
}

void TWinColorPage::ComponentExit(int id) {
    EditField* edit = ComponentOf(id).edit;
    if (!edit->isModified()) return;
    host_.Converting([&] {
        // No range message: the low 8 bits are taken, so 300 gives 44 and -1 gives 255.
        const std::int32_t typed = StrToInt(AnsiText(edit));
        currentColour_ = WithComponent(currentColour_, id, typed & 0xFF);
        ShowColour();
        pPB_SetCol->setEnabled(true);
        pPB_SetCol->setFocus(Qt::OtherFocusReason);
    });
}

void TWinColorPage::pHSB_RedChange() {
    ComponentChange(kRedComponent);
}
void TWinColorPage::pHSB_GreenChange() {
    ComponentChange(kGreenComponent);
}
void TWinColorPage::pHSB_BlueChange() {
    ComponentChange(kBlueComponent);
}
void TWinColorPage::pHSB_RedScroll(int position) {
    ComponentScroll(kRedComponent, position);
}
void TWinColorPage::pHSB_GreenScroll(int position) {
    ComponentScroll(kGreenComponent, position);
}
void TWinColorPage::pHSB_BlueScroll(int position) {
    ComponentScroll(kBlueComponent, position);
}
void TWinColorPage::pSLE_RedColorEnter() {
    ComponentEnter(kRedComponent);
}
void TWinColorPage::pSLE_GreenColorEnter() {
    ComponentEnter(kGreenComponent);
}
void TWinColorPage::pSLE_BlueColorEnter() {
    ComponentEnter(kBlueComponent);
}
void TWinColorPage::pSLE_RedColorExit() {
    ComponentExit(kRedComponent);
}
void TWinColorPage::pSLE_GreenColorExit() {
    ComponentExit(kGreenComponent);
}
void TWinColorPage::pSLE_BlueColorExit() {
    ComponentExit(kBlueComponent);
}

QColorDialog& TWinColorPage::ColourDialog() {
    if (!WinColorDialog) {
        // Meant to open without its custom-colour part, with solid colours only and a help
        // button. Qt's dialog always shows its custom colours and has no help button; solid
        // colours are its default (no alpha channel). Qt's own dialog rather than the
        // desktop's, so that it looks and answers the same everywhere.
        WinColorDialog = new QColorDialog(this);
        WinColorDialog->setObjectName(QStringLiteral("WinColorDialog"));
        WinColorDialog->setOption(QColorDialog::ShowAlphaChannel, false);
        WinColorDialog->setOption(QColorDialog::DontUseNativeDialog);
        WinColorDialog->setModal(true);
    }
    return *WinColorDialog;
}

void TWinColorPage::pPB_ColorsPalClick() {
    QColorDialog& dialog = ColourDialog();
    dialog.setCurrentColor(QColor(ColourSettings::RedOf(currentColour_),
                                  ColourSettings::GreenOf(currentColour_),
                                  ColourSettings::BlueOf(currentColour_)));
    const std::optional<QColor> chosen = RunColourDialog(dialog);
    if (!chosen) return;
    currentColour_ = ColourSettings::MakeColour(chosen->red(), chosen->green(), chosen->blue());
    ShowColour();
    // Set stays as it was: a colour from the dialog is applied only after a component edit
    // has been changed and left.
}

void TWinColorPage::pPB_SetColClick() {
    // The entry whose index is the row number, not the one the row-to-entry table gives. The two
    // coincide for the windows with a key; they differ only when a colour for "DATA INPUT
    // WINDOW" lists the spare entries too, and files written so are kept as they are.
    host_.Settings().SetColour(selectedRow_, ColourSettings::RedOf(currentColour_),
                               ColourSettings::GreenOf(currentColour_),
                               ColourSettings::BlueOf(currentColour_));
    host_.MarkModified();
    pPB_SetCol->setEnabled(false);
}

void TWinColorPage::Store() {
    // As leaving the field would: the current colour changes and Set is enabled, but nothing
    // reaches the record until Set.
    for (const Component& c : components_) {
        if (c.edit->hasFocus() && c.edit->isModified()) {
            ComponentExit(c.id);
        }
    }
}

void TWinColorPage::Load(bool refreshAll) {
    if (refreshAll) {
        currentColour_ =
            host_.Settings().ColourTable[static_cast<std::size_t>(EntryOfRow(selectedRow_))].Colour;
        ShowColour();
        return;
    }
    // Every edit but the one being typed in shows the current colour again.
    const int values[] = {ColourSettings::RedOf(currentColour_),
                          ColourSettings::GreenOf(currentColour_),
                          ColourSettings::BlueOf(currentColour_)};
    for (std::size_t i = 0; i < components_.size(); ++i) {
        EditField* edit = components_[i].edit;
        if (!(edit->hasFocus() && edit->isModified())) {
            edit->setText(ThreeDigits(values[i]));
        }
    }
}

}  // namespace wk
