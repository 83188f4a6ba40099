#include "pages/default_points_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "pages/form_controls.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "widgets/edit_field.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 14;
constexpr int kIdListElement = 294;
constexpr int kIdOldDefault = 292;
constexpr int kIdNewDefault = 293;
constexpr int kIdDefault = 295;
constexpr int kIdSetNum = 296;
// Element i is captioned by string 280 + i.
constexpr int kIdFirstElement = 280;

// Elements are asked about up to this index, one past the records (see ElementExists).
constexpr int kLastIndexAsked = 14;

// A count as the current number (and a checked new number) shows it: right-aligned in three
// characters, "  3".
QString Counted(std::int64_t count) {
    return QString::asprintf("%3d", static_cast<int>(count));
}

QString RangeText(std::uint32_t minimum) {
    return QStringLiteral("[%1 \u2013 %2]").arg(minimum).arg(DefaultPointsSettings::kMaximumPoints);
}

}  // namespace

TNumPointsPage::TNumPointsPage(PageHost& host) : KestelPage(host) {
    // A plain frame around the page's controls: it has no caption, and no name to give.
    auto* frame = new QFrame(this);
    frame->setFrameShape(QFrame::StyledPanel);
    pST_ListElement = MakeFormLabel(frame, "pST_ListElement", "Element List");
    pLB_Element = new QListWidget(frame);
    pLB_Element->setObjectName(QStringLiteral("pLB_Element"));
    pLB_Element->setSelectionMode(QAbstractItemView::SingleSelection);
    pST_OldDefault = MakeFormLabel(frame, "pST_OldDefault", "Current number :");
    pSLE_OldDefault = MakeFormControl<QLineEdit>(frame, "pSLE_OldDefault");
    pSLE_OldDefault->setReadOnly(true);
    pST_NewDefault = MakeFormLabel(frame, "pST_NewDefault", "New default number :");
    pSLE_NewDefault = MakeFormEdit(frame, "pSLE_NewDefault");
    pST_Range = MakeFormLabel(frame, "pST_Range", "");
    pPB_Piu = MakeFormButton(frame, "pPB_Piu", "+");
    pPB_Meno = MakeFormButton(frame, "pPB_Meno", "-");
    pPB_Default = MakeFormButton(frame, "pPB_Default", "Default");
    pPB_SetNum = MakeFormButton(frame, "pPB_SetNum", "Set");

    // Numbers of up to three digits, right-aligned as the counts are formed.
    const int numberWidth =
        pSLE_NewDefault->fontMetrics().horizontalAdvance(QStringLiteral("00000")) + 16;
    for (QLineEdit* edit : {pSLE_OldDefault, static_cast<QLineEdit*>(pSLE_NewDefault)}) {
        edit->setFixedWidth(numberWidth);
        edit->setAlignment(Qt::AlignRight);
    }
    for (QPushButton* step : {pPB_Meno, pPB_Piu}) {
        step->setFixedWidth(step->fontMetrics().horizontalAdvance(QStringLiteral("+")) + 32);
    }

    pST_ListElement->setBuddy(pLB_Element);
    pST_OldDefault->setBuddy(pSLE_OldDefault);
    pST_NewDefault->setBuddy(pSLE_NewDefault);

    auto* listColumn = new QVBoxLayout;
    // Its own spacing: a nested layout would take the wide one of the frame's row.
    listColumn->setSpacing(6);
    listColumn->addWidget(pST_ListElement);
    listColumn->addWidget(pLB_Element, 1);

    auto* numbers = new QGridLayout;
    numbers->setHorizontalSpacing(8);
    numbers->setVerticalSpacing(10);
    numbers->addWidget(pST_OldDefault, 0, 0, Qt::AlignLeft);
    numbers->addWidget(pSLE_OldDefault, 0, 1);
    numbers->addWidget(pST_NewDefault, 1, 0, Qt::AlignLeft);
    numbers->addWidget(pSLE_NewDefault, 1, 1);
    numbers->addWidget(pST_Range, 1, 2, Qt::AlignLeft);
    numbers->setColumnStretch(3, 1);
    auto* steps = new QHBoxLayout;
    steps->addWidget(pPB_Meno);
    steps->addWidget(pPB_Piu);
    steps->addWidget(pPB_Default);
    steps->addStretch(1);
    auto* apply = new QHBoxLayout;
    apply->addWidget(pPB_SetNum);
    apply->addStretch(1);

    auto* numberColumn = new QVBoxLayout;
    numberColumn->setSpacing(12);
    numberColumn->addSpacing(pST_ListElement->sizeHint().height() + 6);
    numberColumn->addLayout(numbers);
    numberColumn->addLayout(steps);
    numberColumn->addLayout(apply);
    numberColumn->addStretch(1);

    auto* inFrame = new QHBoxLayout(frame);
    inFrame->setSpacing(24);
    inFrame->addLayout(listColumn, 1);
    inFrame->addLayout(numberColumn, 1);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(16, 16, 16, 16);
    page->addWidget(frame);

    ChainTabOrder({pLB_Element, pSLE_OldDefault, pSLE_NewDefault, pPB_Meno, pPB_Piu, pPB_Default,
                   pPB_SetNum});

    // The user's keys and clicks on the list; clicking the selected row again counts too.
    connect(pLB_Element, &QListWidget::currentRowChanged, this, [this] {
        if (!selecting_) pLB_ElementClick();
    });
    connect(pLB_Element, &QListWidget::itemClicked, this, &TNumPointsPage::pLB_ElementClick);
    connect(pSLE_NewDefault, &EditField::Exit, this, &TNumPointsPage::pSLE_NewDefaultExit);
    connect(pPB_Piu, &QPushButton::clicked, this, &TNumPointsPage::pPB_PiuClick);
    connect(pPB_Meno, &QPushButton::clicked, this, &TNumPointsPage::pPB_MenoClick);
    connect(pPB_Default, &QPushButton::clicked, this, &TNumPointsPage::pPB_DefaultClick);
    connect(pPB_SetNum, &QPushButton::clicked, this, &TNumPointsPage::pPB_SetNumClick);
}

TNumPointsPage::~TNumPointsPage() {
    // The edit may report leaving while the window goes; no handler of a page that is gone
    // may run then.
    for (QObject* control : findChildren<QObject*>()) {
        control->disconnect(this);
    }
}

int TNumPointsPage::ElementAt(int position) const {
    if (position < 0 || position >= pLB_Element->count()) return -1;
    return positionToElement_[static_cast<std::size_t>(position)];
}

void TNumPointsPage::ShowRange(int element) {
    if (element < 0) {
        pST_Range->clear();
        return;
    }
    pST_Range->setText(
        RangeText(host_.Settings().MinimumPoints[static_cast<std::size_t>(element)].Count));
}

// ---- initialisation, store, load ---------------------------------------------------------

void TNumPointsPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pST_ListElement->setText(host_.LanguageText(kIdListElement));
    pST_OldDefault->setText(host_.LanguageText(kIdOldDefault));
    pST_NewDefault->setText(host_.LanguageText(kIdNewDefault));
    pPB_Default->setText(host_.LanguageText(kIdDefault));
    pPB_SetNum->setText(host_.LanguageText(kIdSetNum));
    for (const QLabel* label : {pST_ListElement, pST_OldDefault, pST_NewDefault}) {
        NameAfterLabel(label);
    }
    NameAfterCaption({pPB_Piu, pPB_Meno, pPB_Default, pPB_SetNum});

    const DefaultPointsSettings& settings = host_.Settings();
    selecting_ = true;
    pLB_Element->clear();
    positionToElement_.fill(0);
    for (int index = 0; index <= kLastIndexAsked; ++index) {
        if (!settings.ElementExists(index)) continue;
        positionToElement_[static_cast<std::size_t>(pLB_Element->count())] = index;
        auto* row = new QListWidgetItem(host_.LanguageText(kIdFirstElement + index), pLB_Element);
        // Each row tells its limits, the same as the range beside the new number.
        row->setToolTip(RangeText(settings.MinimumPoints[static_cast<std::size_t>(index)].Count));
    }
    selectedPosition_ = 0;
    const bool any = pLB_Element->count() > 0;
    if (any) {
        pLB_Element->setCurrentRow(0);
        const int element = ElementAt(0);
        const ElementPoints& current = settings.CurrentPoints[static_cast<std::size_t>(element)];
        pSLE_OldDefault->setText(Counted(current.Count));
        pSLE_NewDefault->setText(Counted(current.Count));
        pSLE_OldDefault->setEnabled(false);
        pSLE_NewDefault->setEnabled(!current.Fixed);
        ShowRange(element);
    } else {
        // Nothing to edit; Set stays as it is, with nothing to set.
        pSLE_OldDefault->setEnabled(false);
        pSLE_NewDefault->setEnabled(false);
        pPB_Meno->setEnabled(false);
        pPB_Piu->setEnabled(false);
        pPB_Default->setEnabled(false);
        pLB_Element->setEnabled(false);
        ShowRange(-1);
    }
    selecting_ = false;
}

void TNumPointsPage::Store() {
    // The typed number is checked but not applied: only Set applies it.
    if (pSLE_NewDefault->hasFocus() && pSLE_NewDefault->isModified()) CheckNewDefault();
}

void TNumPointsPage::Load(bool refreshAll) {
    if (!refreshAll && !(pSLE_NewDefault->hasFocus() && pSLE_NewDefault->isModified())) return;
    const int element = ElementAt(selectedPosition_);
    if (element < 0) return;
    // The new number starts again from the element's minimum, in plain digits.
    pSLE_NewDefault->setText(
        QString::number(host_.Settings().MinimumPoints[static_cast<std::size_t>(element)].Count));
}

// ---- handlers ----------------------------------------------------------------------------

void TNumPointsPage::pLB_ElementClick() {
    const int position = pLB_Element->currentRow();
    const int element = ElementAt(position);
    if (element < 0) return;
    selectedPosition_ = position;
    const ElementPoints& current =
        host_.Settings().CurrentPoints[static_cast<std::size_t>(element)];
    pSLE_OldDefault->setText(Counted(current.Count));
    pSLE_NewDefault->setText(Counted(current.Count));
    pSLE_NewDefault->setEnabled(!current.Fixed);
    ShowRange(element);
}

void TNumPointsPage::CheckNewDefault() {
    const int element = ElementAt(selectedPosition_);
    if (element < 0) return;
    host_.Converting([&] {
        const std::int64_t typed = StrToInt(AnsiText(pSLE_NewDefault));
        const std::uint32_t minimum =
            host_.Settings().MinimumPoints[static_cast<std::size_t>(element)].Count;
        if (typed >= minimum && typed <= DefaultPointsSettings::kMaximumPoints) {
            pSLE_NewDefault->setText(Counted(typed));
            // Ready to be applied.
            pPB_SetNum->setFocus(Qt::OtherFocusReason);
        } else {
            pSLE_NewDefault->setText(Counted(minimum));
        }
    });
}

void TNumPointsPage::pSLE_NewDefaultExit() {
    if (pSLE_NewDefault->isModified()) CheckNewDefault();
}

void TNumPointsPage::pPB_PiuClick() {
    selectedPosition_ = pLB_Element->currentRow();
    const int element = ElementAt(selectedPosition_);
    if (element < 0) return;
    host_.Converting([&] {
        const std::int64_t shown = StrToInt(AnsiText(pSLE_NewDefault));
        const DefaultPointsSettings& settings = host_.Settings();
        if (!settings.CurrentPoints[static_cast<std::size_t>(element)].Fixed &&
            shown < DefaultPointsSettings::kMaximumPoints) {
            pSLE_NewDefault->setText(QString::number(shown + 1));
        }
    });
}

void TNumPointsPage::pPB_MenoClick() {
    selectedPosition_ = pLB_Element->currentRow();
    const int element = ElementAt(selectedPosition_);
    if (element < 0) return;
    host_.Converting([&] {
        const std::int64_t shown = StrToInt(AnsiText(pSLE_NewDefault));
        const DefaultPointsSettings& settings = host_.Settings();
        const auto index = static_cast<std::size_t>(element);
        if (!settings.CurrentPoints[index].Fixed &&
            shown - 1 >= static_cast<std::int64_t>(settings.MinimumPoints[index].Count)) {
            pSLE_NewDefault->setText(QString::number(shown - 1));
        }
    });
}

void TNumPointsPage::pPB_DefaultClick() {
    selectedPosition_ = pLB_Element->currentRow();
    const int element = ElementAt(selectedPosition_);
    if (element < 0) return;
    pSLE_NewDefault->setText(Counted(host_.Settings().DefaultPoints(element)));
    pPB_SetNum->setFocus(Qt::OtherFocusReason);
}

void TNumPointsPage::pPB_SetNumClick() {
    host_.Converting([&] {
        const std::int32_t typed = StrToInt(AnsiText(pSLE_NewDefault));
        selectedPosition_ = pLB_Element->currentRow();
        const int element = ElementAt(selectedPosition_);
        if (element < 0) return;
        // No check here: leaving the new-number edit has kept it within the element's limits.
        host_.Settings().CurrentPoints[static_cast<std::size_t>(element)].Count =
            static_cast<std::uint32_t>(typed);
        pSLE_OldDefault->setText(Counted(typed));
        host_.MarkModified();
    });
}

}  // namespace wk
