// The about box.

#include "dialogs/about_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>

namespace wk {
namespace {

QString BuildVersion() {
    char text[64];
    std::snprintf(text, sizeof text, "%d.%d.%d.%d", WKESTEL_VERSION_MAJOR, WKESTEL_VERSION_MINOR,
                  WKESTEL_VERSION_PATCH, WKESTEL_VERSION_TWEAK + 0);
    return QString::fromLatin1(text);
}

TEST(AboutBox, HasItsNamesCaptionSizeAndTexts) {
    TAboutBox box;
    EXPECT_EQ(box.objectName(), QStringLiteral("AboutBox"));
    EXPECT_EQ(box.windowTitle(), QStringLiteral("About"));
    EXPECT_EQ(box.size(), QSize(484, 321));
    EXPECT_EQ(box.findChild<QLabel*>(QStringLiteral("LabelGeneralSetup"))->text(),
              QStringLiteral("Marvane General Setup"));
    EXPECT_EQ(box.findChild<QLabel*>(QStringLiteral("LabelVersion"))->text(),
              QStringLiteral("Version:"));
    EXPECT_FALSE(box.findChild<QLabel*>(QStringLiteral("LabelCopyRight"))->text().isEmpty());
    EXPECT_EQ(box.findChild<QPushButton*>(QStringLiteral("ButtonOK"))->text(),
              QStringLiteral("&OK"));
    auto* image = box.findChild<QLabel*>(QStringLiteral("Image1"));
    ASSERT_NE(image, nullptr);
    EXPECT_FALSE(image->pixmap().isNull());
    EXPECT_EQ(image->size(), image->pixmap().size());
}

TEST(AboutBox, TextIsLime) {
    TAboutBox box;
    EXPECT_EQ(box.palette().color(QPalette::WindowText), QColor(0, 255, 0));
    EXPECT_EQ(box.findChild<QLabel*>(QStringLiteral("LabelVersionNumber"))
                  ->palette()
                  .color(QPalette::WindowText),
              QColor(0, 255, 0));
}

TEST(AboutBox, ShowsTheProgramsFileVersion) {
    TAboutBox box;
    EXPECT_EQ(box.findChild<QLabel*>(QStringLiteral("LabelVersionNumber"))->text(), BuildVersion());
}

TEST(AboutBox, FileWithoutVersionResourceShowsHashes) {
    EXPECT_EQ(TAboutBox::FileVersionText(QStringLiteral("/nonexistent/WKestel32")),
              QStringLiteral("##.##.##.##"));
    EXPECT_EQ(TAboutBox::FileVersionText(QStringLiteral("/bin/sh")), QStringLiteral("##.##.##.##"));
    EXPECT_EQ(TAboutBox::FileVersionText(QString()), QStringLiteral("##.##.##.##"));
}

TEST(AboutBox, OkClosesIt) {
    TAboutBox box;
    QTimer::singleShot(0,
                       [&] { box.findChild<QPushButton*>(QStringLiteral("ButtonOK"))->click(); });
    EXPECT_EQ(box.exec(), QDialog::Accepted);
}

}  // namespace
}  // namespace wk
