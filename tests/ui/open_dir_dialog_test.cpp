// The directory dialog driven as a user drives it, offscreen: the drives of the prefix in the
// drive combo box, the directory list, a drive without a medium, OK, Cancel and double-click.

#include "dialogs/open_dir_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "support/temp_prefix.h"
#include "widgets/dialog_answers.h"

namespace wk {
namespace {

namespace fs = std::filesystem;

class OpenDirDialog : public ::testing::Test {
protected:
    OpenDirDialog() {
        DirectoryAnswers().Reset();
        for (const char* dir : {"WZELKO/DATA/2023", "WZELKO/DATA/2024", "WZELKO/PROG",
                                "WZELKO/.hidden", "Program Files"}) {
            fs::create_directories(prefix_.DriveC() / dir);
        }
        fs::create_directories(prefix_.Root() / "parts" / "BRACKETS");
        fs::create_directory_symlink(prefix_.Root() / "parts",
                                     prefix_.Root() / "dosdevices" / "d:");
        // A CD-ROM drive whose medium is not in: its link leads nowhere.
        fs::create_directory_symlink(prefix_.Root() / "cdrom",
                                     prefix_.Root() / "dosdevices" / "e:");
    }
    ~OpenDirDialog() override {
        DirectoryAnswers().Reset();
        SetUnansweredDialogsCancel(true);
    }

    QComboBox* Drives() const { return dialog_.findChild<QComboBox*>("DriveComboBox"); }
    QListWidget* List() const { return dialog_.findChild<QListWidget*>("DirectoryLisBox"); }
    QPushButton* Ok() const { return dialog_.findChild<QPushButton*>("pOkButton"); }
    QPushButton* CancelButton() const { return dialog_.findChild<QPushButton*>("pBButton"); }
    // The list's rows without their indentation.
    QStringList Rows() const {
        QStringList rows;
        for (int i = 0; i < List()->count(); ++i) rows << List()->item(i)->text().trimmed();
        return rows;
    }
    int Row(const QString& name) const {
        for (int i = 0; i < List()->count(); ++i) {
            if (List()->item(i)->text().trimmed() == name) return i;
        }
        return -1;
    }
    void ClickRow(int row) const {
        const QRect rect = List()->visualItemRect(List()->item(row));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, rect.center());
    }
    // Chooses a drive in the combo box by typing its letter, as a user does.
    void ChooseDrive(char letter) const {
        Drives()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(Drives(), letter);
    }
    // Runs the dialog modally for real; `user` acts in it once it is up.
    bool RunWith(const std::function<void()>& user) {
        SetUnansweredDialogsCancel(false);
        QTimer::singleShot(0, &dialog_, [this, user] {
            dialog_.activateWindow();
            QApplication::processEvents();
            user();
            // Whatever the user did, the dialog must not stay up.
            if (dialog_.isVisible()) dialog_.reject();
        });
        const bool confirmed = dialog_.Run();
        SetUnansweredDialogsCancel(true);
        return confirmed;
    }

    test::TempWinePrefix prefix_;
    TOpenDirDialog dialog_;
};

TEST_F(OpenDirDialog, IsCaptionedSelectDirectoryUntilThePageCaptionsIt) {
    EXPECT_EQ(dialog_.windowTitle(), QStringLiteral("Select Directory"));
    EXPECT_EQ(dialog_.objectName(), QStringLiteral("OpenDirDialog"));
    EXPECT_EQ(Ok()->text(), QStringLiteral("&OK"));
    EXPECT_EQ(CancelButton()->text(), QStringLiteral("&Cancel"));
}

TEST_F(OpenDirDialog, TheDrivesAreThePrefixsLettersEachWithItsTarget) {
    dialog_.SetDirectory("C:\\WZELKO");
    ASSERT_EQ(Drives()->count(), 3);
    EXPECT_TRUE(Drives()->itemText(0).startsWith(QStringLiteral("c:")));
    EXPECT_TRUE(Drives()->itemText(1).startsWith(QStringLiteral("d:")));
    EXPECT_TRUE(Drives()->itemText(1).contains(QStringLiteral("parts")));
    EXPECT_TRUE(Drives()->itemText(2).startsWith(QStringLiteral("e:")));
    EXPECT_EQ(Drives()->currentIndex(), 0);
}

TEST_F(OpenDirDialog, ShowsTheWayDownFromTheRootThenTheSubdirectories) {
    dialog_.SetDirectory("C:\\WZELKO");
    EXPECT_EQ(Rows(), (QStringList{"C:\\", "WZELKO", "DATA", "PROG"}));
    EXPECT_EQ(List()->currentRow(), 1);
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO");
    EXPECT_EQ(dialog_.findChild<QLabel*>("DirectoryLabel")->text(), QStringLiteral("C:\\WZELKO"));
}

TEST_F(OpenDirDialog, DirectoriesAreFoundWithoutRegardToCase) {
    dialog_.SetDirectory("c:\\wzelko\\data");
    EXPECT_EQ(Rows(), (QStringList{"C:\\", "WZELKO", "DATA", "2023", "2024"}));
    EXPECT_EQ(List()->currentRow(), 2);
}

TEST_F(OpenDirDialog, ADirectoryThatDoesNotExistIsKeptAndTheListShowsWhatExists) {
    dialog_.SetDirectory("C:\\WZELKO\\NEW\\DEEP");
    EXPECT_EQ(Rows(), (QStringList{"C:\\", "WZELKO", "DATA", "PROG"}));
    EXPECT_EQ(List()->currentRow(), -1);
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\NEW\\DEEP");
}

TEST_F(OpenDirDialog, ChoosingAnotherDriveOpensItsRoot) {
    dialog_.SetDirectory("C:\\WZELKO\\DATA");
    ChooseDrive('d');
    EXPECT_EQ(dialog_.Drive(), 'D');
    EXPECT_EQ(Rows(), (QStringList{"D:\\", "BRACKETS"}));
    EXPECT_EQ(dialog_.GetDirectory(), "D:\\");
}

TEST_F(OpenDirDialog, TheArrowKeysStepThroughTheDrives) {
    dialog_.SetDirectory("C:\\WZELKO");
    Drives()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(Drives(), Qt::Key_Down);
    EXPECT_EQ(dialog_.Drive(), 'D');
    QTest::keyClick(Drives(), Qt::Key_Up);
    EXPECT_EQ(dialog_.Drive(), 'C');
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\");
}

TEST_F(OpenDirDialog, ChoosingADriveWithoutAMediumSnapsTheDriveComboBack) {
    dialog_.SetDirectory("C:\\WZELKO\\DATA");
    ChooseDrive('e');
    EXPECT_EQ(Drives()->currentIndex(), 0);
    EXPECT_EQ(dialog_.Drive(), 'C');
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\DATA");
    EXPECT_EQ(Rows().front(), QStringLiteral("C:\\"));
    EXPECT_TRUE(dialog_.findChild<QLabel*>("DriveNote")
                    ->text()
                    .startsWith(QStringLiteral("Drive E: has no medium")));
}

TEST_F(OpenDirDialog, APathOnADriveWithoutAMediumLeavesTheListOnItsDrive) {
    dialog_.SetDirectory("E:\\DISC");
    EXPECT_EQ(dialog_.Drive(), 'C');
    EXPECT_EQ(Drives()->currentIndex(), 0);
    EXPECT_EQ(dialog_.GetDirectory(), "E:\\DISC");
}

TEST_F(OpenDirDialog, APathWithoutADriveIsOnTheListsDrive) {
    dialog_.SetDirectory("D:\\");
    dialog_.SetDirectory("\\brackets");
    EXPECT_EQ(dialog_.GetDirectory(), "D:\\brackets");
    EXPECT_EQ(List()->currentItem()->text().trimmed(), QStringLiteral("BRACKETS"));
}

TEST_F(OpenDirDialog, HiddenHostDirectoriesAreNotListed) {
    dialog_.SetDirectory("C:\\WZELKO");
    EXPECT_FALSE(Rows().contains(QStringLiteral(".hidden")));
}

TEST_F(OpenDirDialog, EnterOpensTheSelectedDirectoryAndTheDialogStays) {
    dialog_.SetDirectory("C:\\WZELKO");
    dialog_.show();
    ClickRow(Row(QStringLiteral("DATA")));
    QTest::keyClick(List(), Qt::Key_Return);
    EXPECT_EQ(Rows(), (QStringList{"C:\\", "WZELKO", "DATA", "2023", "2024"}));
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\DATA");
    EXPECT_TRUE(dialog_.isVisible());
    dialog_.hide();
}

TEST_F(OpenDirDialog, OkChoosesTheDirectoryClicked) {
    dialog_.SetDirectory("C:\\WZELKO");
    const bool confirmed = RunWith([this] {
        ClickRow(Row(QStringLiteral("PROG")));
        QTest::mouseClick(Ok(), Qt::LeftButton);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\PROG");
}

TEST_F(OpenDirDialog, ADoubleClickOpensTheDirectoryAndChoosesIt) {
    dialog_.SetDirectory("C:\\WZELKO\\DATA");
    const bool confirmed = RunWith([this] {
        const QRect rect = List()->visualItemRect(List()->item(Row(QStringLiteral("2024"))));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, rect.center());
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, rect.center());
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\DATA\\2024");
}

TEST_F(OpenDirDialog, OkOnAnotherDriveChoosesItsRoot) {
    dialog_.SetDirectory("C:\\WZELKO");
    const bool confirmed = RunWith([this] {
        ChooseDrive('d');
        QTest::mouseClick(Ok(), Qt::LeftButton);
    });
    EXPECT_TRUE(confirmed);
    EXPECT_EQ(dialog_.GetDirectory(), "D:\\");
}

TEST_F(OpenDirDialog, CancelChoosesNothing) {
    dialog_.SetDirectory("C:\\WZELKO");
    const bool confirmed = RunWith([this] {
        ClickRow(Row(QStringLiteral("PROG")));
        QTest::mouseClick(CancelButton(), Qt::LeftButton);
    });
    EXPECT_FALSE(confirmed);
}

TEST_F(OpenDirDialog, EscapeCancels) {
    dialog_.SetDirectory("C:\\WZELKO");
    const bool confirmed = RunWith([this] { QTest::keyClick(&dialog_, Qt::Key_Escape); });
    EXPECT_FALSE(confirmed);
}

TEST_F(OpenDirDialog, AnAnswerGivenInAdvanceIsTakenAsTheDirectory) {
    DirectoryAnswers().Choose("d:\\brackets\\");
    EXPECT_TRUE(dialog_.Run());
    EXPECT_EQ(dialog_.GetDirectory(), "D:\\brackets");
    EXPECT_EQ(dialog_.Drive(), 'D');
    EXPECT_FALSE(dialog_.isVisible());
}

TEST_F(OpenDirDialog, ACancelGivenInAdvanceChoosesNothing) {
    dialog_.SetDirectory("C:\\WZELKO");
    DirectoryAnswers().Cancel();
    EXPECT_FALSE(dialog_.Run());
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO");
}

TEST_F(OpenDirDialog, AnEmptyPathKeepsTheDirectory) {
    dialog_.SetDirectory("C:\\WZELKO\\PROG");
    dialog_.SetDirectory("");
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\PROG");
}

TEST_F(OpenDirDialog, DotsInAPathAreFollowed) {
    dialog_.SetDirectory("C:\\WZELKO\\DATA\\..\\PROG\\.");
    EXPECT_EQ(dialog_.GetDirectory(), "C:\\WZELKO\\PROG");
}

}  // namespace
}  // namespace wk
