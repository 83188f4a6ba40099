// The message-box presenter the window installs: MessageBoxA shown as a Qt message box.

#include "shell/qt_message_box.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace wk {
namespace {

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

TEST(QtMessageBox, DetailsAreShownBehindShowDetails) {
    MessageBoxPresenter previous = SetMessageBoxPresenter(QtMessageBoxPresenter{});
    QString details;
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        details = box->detailedText();
        box->button(QMessageBox::Yes)->click();
    });
    const int answer = MessageBoxWithDetails(nullptr, "Save changes?", "Question",
                                             MB_YESNOCANCEL | MB_ICONQUESTION,
                                             "WZELKO.INI [S] K: \"1\" -> \"2\xE9\"");
    SetMessageBoxPresenter(std::move(previous));
    EXPECT_EQ(answer, IDYES);
    EXPECT_EQ(details, QStringLiteral("WZELKO.INI [S] K: \"1\" -> \"2\u00E9\""));
}

TEST(QtMessageBox, AMessageWithoutDetailsHasNoDetailsSection) {
    QString details = QStringLiteral("unset");
    ShowAndAnswer(MB_YESNOCANCEL | MB_ICONQUESTION, [&](QMessageBox* b) {
        details = b->detailedText();
        b->button(QMessageBox::Cancel)->click();
    });
    EXPECT_TRUE(details.isEmpty());
}

TEST(QtMessageBox, YesNoAnswersWithTheWindowsIdsAndEscapeIsNo) {
    bool hasCancel = true;
    EXPECT_EQ(ShowAndAnswer(MB_YESNO | MB_ICONQUESTION,
                            [&](QMessageBox* b) {
                                hasCancel = b->button(QMessageBox::Cancel) != nullptr;
                                b->button(QMessageBox::Yes)->click();
                            }),
              IDYES);
    EXPECT_FALSE(hasCancel);
    EXPECT_EQ(ShowAndAnswer(MB_YESNO | MB_ICONQUESTION,
                            [](QMessageBox* b) { QTest::keyClick(b, Qt::Key_Escape); }),
              IDNO);
}

}  // namespace
}  // namespace wk
