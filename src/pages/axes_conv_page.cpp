#include "pages/axes_conv_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "settings/setup_settings.h"
#include "widgets/pictures.h"

namespace wk {

namespace {

// Language string ids of the page.
constexpr int kIdSheet = 19;
constexpr int kIdQenHint = 39;
constexpr int kIdStandardHint = 40;

// The pictures are drawn at this size, which is also the size of the buttons' glyphs.
constexpr int kPictureSide = 128;

QLabel* MakePicture(QWidget* parent, const char* name) {
    auto* picture = new QLabel(parent);
    picture->setObjectName(QString::fromLatin1(name));
    picture->setPixmap(PicturePixmap(name, QSize(kPictureSide, kPictureSide)));
    picture->setVisible(false);
    return picture;
}

QToolButton* MakeButton(QWidget* parent, const char* name, const char* caption) {
    auto* button = new QToolButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setText(QString::fromLatin1(caption));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setIconSize(QSize(kPictureSide, kPictureSide));
    button->setAutoRaise(false);
    button->setMinimumSize(kPictureSide + 40, kPictureSide + 48);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setCheckable(true);
    return button;
}

}  // namespace

TAxesConvPage::TAxesConvPage(PageHost& host) : KestelPage(host) {
    QenAxesOn = MakePicture(this, "QenAxesOn");
    QenAxesOff = MakePicture(this, "QenAxesOff");
    VKAxesOn = MakePicture(this, "VKAxesOn");
    VKAxesOff = MakePicture(this, "VKAxesOff");
    pGB_QenAxes = MakeButton(this, "pGB_QenAxes", "QEN");
    pGB_KVAxes = MakeButton(this, "pGB_KVAxes", "Standard");

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(48);
    buttons->addStretch(1);
    buttons->addWidget(pGB_QenAxes);
    buttons->addWidget(pGB_KVAxes);
    buttons->addStretch(1);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(24, 24, 24, 24);
    page->addStretch(1);
    page->addLayout(buttons);
    page->addStretch(2);

    connect(pGB_QenAxes, &QToolButton::clicked, this, &TAxesConvPage::pGB_QenAxesClick);
    connect(pGB_KVAxes, &QToolButton::clicked, this, &TAxesConvPage::pGB_KVAxesClick);
}

void TAxesConvPage::CopyGlyph(QToolButton* button, const QLabel* picture) {
    button->setIcon(QIcon(picture->pixmap()));
}

void TAxesConvPage::ShowState() {
    ShowChosen(host_.Settings().QenAxesConvention);
}

void TAxesConvPage::ShowChosen(bool qen) {
    CopyGlyph(pGB_QenAxes, qen ? QenAxesOn : QenAxesOff);
    CopyGlyph(pGB_KVAxes, qen ? VKAxesOff : VKAxesOn);
    // The chosen button is also down, which is how a screen reader tells the two apart.
    pGB_QenAxes->setChecked(qen);
    pGB_KVAxes->setChecked(!qen);
}

void TAxesConvPage::Initialise() {
    host_.SetSheetCaption(this, host_.LanguageText(kIdSheet));
    pGB_QenAxes->setToolTip(host_.LanguageText(kIdQenHint));
    pGB_KVAxes->setToolTip(host_.LanguageText(kIdStandardHint));
    ShowState();
}

void TAxesConvPage::Load(bool /*refreshAll*/) {
    ShowState();
}

void TAxesConvPage::pGB_QenAxesClick() {
    SetupSettings& settings = host_.Settings();
    // The convention already chosen: nothing changes, and the record is not marked modified.
    // The click has let the button up, which is put right: the chosen one stays down.
    if (settings.QenAxesConvention) return ShowChosen(true);
    ShowChosen(true);
    settings.QenAxesConvention = true;
    host_.MarkModified();
}

void TAxesConvPage::pGB_KVAxesClick() {
    SetupSettings& settings = host_.Settings();
    if (!settings.QenAxesConvention) return ShowChosen(false);
    ShowChosen(false);
    settings.QenAxesConvention = false;
    host_.MarkModified();
}

}  // namespace wk
