// The about box, the message-box presenter, file filters and the built-in pictures.

#include "dialogs/about_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCoreApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "shell/file_filter.h"
#include "shell/pictures.h"
#include "shell/qt_message_box.h"

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

// Runs MessageBoxA through the Qt presenter and lets `act` answer the box that appears.
template <typename Act>
int ShowAndAnswer(unsigned type, Act act, QMessageBox** seen = nullptr) {
    MessageBoxPresenter previous = SetMessageBoxPresenter(QtMessageBoxPresenter{});
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        if (seen) {
            *seen = box;
        }
        act(box);
    });
    const int answer = MessageBoxA(nullptr, "Save changes?\xE9", "Question", type);
    SetMessageBoxPresenter(std::move(previous));
    return answer;
}

TEST(QtMessageBox, YesNoCancelAnswersWithTheWindowsIds) {
    EXPECT_EQ(ShowAndAnswer(MB_YESNOCANCEL | MB_ICONQUESTION,
                            [](QMessageBox* b) { b->button(QMessageBox::Yes)->click(); }),
              IDYES);
    EXPECT_EQ(ShowAndAnswer(MB_YESNOCANCEL | MB_ICONQUESTION,
                            [](QMessageBox* b) { b->button(QMessageBox::No)->click(); }),
              IDNO);
    EXPECT_EQ(ShowAndAnswer(MB_YESNOCANCEL | MB_ICONQUESTION,
                            [](QMessageBox* b) { b->button(QMessageBox::Cancel)->click(); }),
              IDCANCEL);
}

TEST(QtMessageBox, EscapeOnTheSaveQuestionIsCancel) {
    EXPECT_EQ(ShowAndAnswer(MB_YESNOCANCEL | MB_ICONQUESTION,
                            [](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Escape); }),
              IDCANCEL);
}

TEST(QtMessageBox, ShowsTextCaptionAndIconOfTheRequest) {
    QString text;
    QString caption;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    const int answer = ShowAndAnswer(MB_OK | MB_ICONSTOP, [&](QMessageBox* b) {
        text = b->text();
        caption = b->windowTitle();
        icon = b->icon();
        b->button(QMessageBox::Ok)->click();
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_EQ(text, QStringLiteral("Save changes?\u00E9"));  // ANSI text shown as such
    EXPECT_EQ(caption, QStringLiteral("Question"));
    EXPECT_EQ(icon, QMessageBox::Critical);
}

TEST(FileFilter, WindowsFilterOfBrowseForFileBecomesOneQtFilter) {
    EXPECT_EQ(QtNameFilters(QStringLiteral("Wave files (*.wav)|*.wav")),
              QStringList{QStringLiteral("Wave files (*.wav)")});
}

TEST(FileFilter, PatternsAreAddedWhenTheDescriptionLacksThem) {
    EXPECT_EQ(
        QtNameFilters(QStringLiteral("Pictures|*.bmp;*.png|All files (*.*)|*.*")),
        (QStringList{QStringLiteral("Pictures (*.bmp *.png)"), QStringLiteral("All files (*.*)")}));
}

TEST(FileFilter, EmptyFilterGivesNoFilters) {
    EXPECT_TRUE(QtNameFilters(QString()).isEmpty());
}

TEST(Pictures, AllPicturesAreBuiltIn) {
    for (const char* name :
         {"MAINICON", "AboutProduct", "QenAxesOn", "QenAxesOff", "VKAxesOn", "VKAxesOff"}) {
        EXPECT_FALSE(PicturePixmap(name).isNull()) << name;
    }
    EXPECT_FALSE(MainIcon().isNull());
}

TEST(Pictures, AxesConventionPicturesHaveEqualSizes) {
    const QSize size = PicturePixmap("QenAxesOn").size();
    EXPECT_EQ(PicturePixmap("QenAxesOff").size(), size);
    EXPECT_EQ(PicturePixmap("VKAxesOn").size(), size);
    EXPECT_EQ(PicturePixmap("VKAxesOff").size(), size);
}

TEST(Pictures, OffPicturesAreGreyAndOnPicturesAreNot) {
    auto colourful = [](const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c.alpha() > 0 && c.hsvSaturation() > 60) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(colourful(PicturePixmap("QenAxesOn").toImage()));
    EXPECT_TRUE(colourful(PicturePixmap("VKAxesOn").toImage()));
    EXPECT_FALSE(colourful(PicturePixmap("QenAxesOff").toImage()));
    EXPECT_FALSE(colourful(PicturePixmap("VKAxesOff").toImage()));
}

}  // namespace
}  // namespace wk
