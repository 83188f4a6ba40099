// Dialogs with answers given in advance: what a run of a dialog gives, with and without one.

#include "widgets/dialog_answers.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFileDialog>

namespace wk {
namespace {

class DialogAnswersTest : public ::testing::Test {
protected:
    DialogAnswersTest() { Reset(); }
    ~DialogAnswersTest() override {
        Reset();
        SetUnansweredDialogsCancel(true);  // as the test programs run
    }
    static void Reset() {
        FileOpenAnswers().Reset();
        ColourAnswers().Reset();
        DirectoryAnswers().Reset();
    }
};

TEST_F(DialogAnswersTest, AQueuedFileIsChosenWithoutShowingTheDialog) {
    QFileDialog dialog;
    FileOpenAnswers().Choose(QStringLiteral("/tmp/part.tec"));
    EXPECT_EQ(RunFileOpenDialog(dialog), QStringLiteral("/tmp/part.tec"));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(FileOpenAnswers().Runs(), 1);
    EXPECT_EQ(FileOpenAnswers().Pending(), 0u);
}

TEST_F(DialogAnswersTest, AQueuedCancelChoosesNothing) {
    QColorDialog dialog;
    ColourAnswers().Cancel();
    EXPECT_EQ(RunColourDialog(dialog), std::nullopt);
    EXPECT_EQ(ColourAnswers().Runs(), 1);
}

TEST_F(DialogAnswersTest, AnswersAreTakenInTheOrderGiven) {
    QColorDialog dialog;
    ColourAnswers().Choose(QColor(1, 2, 3));
    ColourAnswers().Cancel();
    ColourAnswers().Choose(QColor(4, 5, 6));
    EXPECT_EQ(RunColourDialog(dialog), QColor(1, 2, 3));
    EXPECT_EQ(RunColourDialog(dialog), std::nullopt);
    EXPECT_EQ(RunColourDialog(dialog), QColor(4, 5, 6));
    EXPECT_EQ(ColourAnswers().Runs(), 3);
}

TEST_F(DialogAnswersTest, AnEmptyFileNameOrAnInvalidColourIsNoChoice) {
    QFileDialog files;
    FileOpenAnswers().Choose(QString());
    EXPECT_EQ(RunFileOpenDialog(files), std::nullopt);
    QColorDialog colours;
    ColourAnswers().Choose(QColor());
    EXPECT_EQ(RunColourDialog(colours), std::nullopt);
}

TEST_F(DialogAnswersTest, AnUnansweredDialogIsCancelledWhenUnansweredDialogsCancel) {
    SetUnansweredDialogsCancel(true);
    bool ran = false;
    const std::optional<std::string> chosen = DirectoryAnswers().Run([&] {
        ran = true;
        return std::optional<std::string>("C:\\WZELKO");
    });
    EXPECT_EQ(chosen, std::nullopt);
    EXPECT_FALSE(ran);
    EXPECT_EQ(DirectoryAnswers().Runs(), 1);
}

TEST_F(DialogAnswersTest, AnUnansweredDialogRunsModallyOtherwise) {
    SetUnansweredDialogsCancel(false);
    const std::optional<std::string> chosen =
        DirectoryAnswers().Run([] { return std::optional<std::string>("C:\\WZELKO\\DATA"); });
    EXPECT_EQ(chosen, "C:\\WZELKO\\DATA");
}

TEST_F(DialogAnswersTest, AQueuedAnswerIsTakenBeforeTheModalRun) {
    SetUnansweredDialogsCancel(false);
    DirectoryAnswers().Choose("C:\\WZELKO\\PROG");
    bool ran = false;
    const std::optional<std::string> chosen = DirectoryAnswers().Run([&] {
        ran = true;
        return std::optional<std::string>();
    });
    EXPECT_EQ(chosen, "C:\\WZELKO\\PROG");
    EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace wk
