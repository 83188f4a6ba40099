#include "dialogs/about_box.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <cstdio>
#include <vector>

#include "platform/file_version.h"
#include "widgets/pictures.h"

namespace wk {

namespace {

constexpr int kWidth = 484;
constexpr int kHeight = 321;

}  // namespace

QString TAboutBox::FileVersionText(const QString& programPath) {
    const QByteArray path = programPath.toLocal8Bit();
    std::uint32_t handle = 0;
    const std::uint32_t size = GetFileVersionInfoSizeA(path.constData(), &handle);
    if (size == 0) {
        return QStringLiteral("##.##.##.##");
    }
    std::vector<unsigned char> data(size);
    void* value = nullptr;
    std::uint32_t length = 0;
    if (!GetFileVersionInfoA(path.constData(), handle, size, data.data()) ||
        !VerQueryValueA(data.data(), "\\", &value, &length) || length < sizeof(VS_FIXEDFILEINFO)) {
        return QStringLiteral("##.##.##.##");
    }
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    char text[64];
    std::snprintf(text, sizeof text, "%d.%d.%d.%d", static_cast<int>(fixed->dwFileVersionMS >> 16),
                  static_cast<int>(fixed->dwFileVersionMS & 0xFFFF),
                  static_cast<int>(fixed->dwFileVersionLS >> 16),
                  static_cast<int>(fixed->dwFileVersionLS & 0xFFFF));
    return QString::fromLatin1(text);
}

TAboutBox::TAboutBox(QWidget* owner) : QDialog(owner) {
    setObjectName(QStringLiteral("AboutBox"));
    setWindowTitle(QStringLiteral("About"));
    setFixedSize(kWidth, kHeight);

    // Lime text on the dark ground of the product picture.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0x10, 0x18, 0x30));
    colours.setColor(QPalette::WindowText, QColor(0x00, 0xFF, 0x00));
    setPalette(colours);
    setAutoFillBackground(true);

    LabelGeneralSetup = new QLabel(QStringLiteral("Marvane General Setup"), this);
    LabelGeneralSetup->setObjectName(QStringLiteral("LabelGeneralSetup"));
    QFont title = LabelGeneralSetup->font();
    title.setPointSizeF(title.pointSizeF() * 1.6);
    title.setBold(true);
    LabelGeneralSetup->setFont(title);

    LabelVersion = new QLabel(QStringLiteral("Version:"), this);
    LabelVersion->setObjectName(QStringLiteral("LabelVersion"));
    LabelVersionNumber = new QLabel(this);
    LabelVersionNumber->setObjectName(QStringLiteral("LabelVersionNumber"));
    LabelCopyRight = new QLabel(
        QStringLiteral("Copyright \u00A9 the WKestel32 developers. All rights reserved."), this);
    LabelCopyRight->setObjectName(QStringLiteral("LabelCopyRight"));
    LabelCopyRight->setWordWrap(true);

    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    const QPixmap picture = PicturePixmap("AboutProduct");
    Image1->setPixmap(picture);
    Image1->setFixedSize(picture.size());  // sized to its picture

    ButtonOK = new QPushButton(QStringLiteral("&OK"), this);
    ButtonOK->setObjectName(QStringLiteral("ButtonOK"));
    ButtonOK->setDefault(true);
    QPalette buttonColours = ButtonOK->palette();
    buttonColours.setColor(QPalette::ButtonText, Qt::black);
    ButtonOK->setPalette(buttonColours);
    connect(ButtonOK, &QPushButton::clicked, this, &QDialog::accept);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->addWidget(Image1, 0, 0, 4, 1, Qt::AlignTop);
    grid->addWidget(LabelGeneralSetup, 0, 1, 1, 2);
    grid->addWidget(LabelVersion, 1, 1, Qt::AlignLeft);
    grid->addWidget(LabelVersionNumber, 1, 2, Qt::AlignLeft);
    grid->addWidget(LabelCopyRight, 2, 1, 1, 2);
    grid->addWidget(ButtonOK, 4, 2, Qt::AlignRight | Qt::AlignBottom);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(3, 1);

    LabelVersionNumber->setText(FileVersionText(QCoreApplication::applicationFilePath()));
}

}  // namespace wk
