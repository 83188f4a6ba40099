// GoogleTest main for the window's tests: offscreen, with a QApplication on the stack.

#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>
#include <cstdlib>

#include "widgets/dialog_answers.h"

int main(int argc, char** argv) {
    // ctest sets these; a test binary run by hand (or for test discovery) sets them itself.
    if (!std::getenv("QT_QPA_PLATFORM")) {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    }
    if (!std::getenv("QTEST_DISABLE_STACK_DUMP")) {
        setenv("QTEST_DISABLE_STACK_DUMP", "1", 1);
    }
    QApplication app(argc, argv);
    // As in the program: the settings files' numbers need '.' whatever the user's locale.
    std::setlocale(LC_NUMERIC, "C");
    // A dialog that a test did not answer in advance is cancelled instead of waiting for a
    // click that never comes.
    wk::SetUnansweredDialogsCancel(true);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
