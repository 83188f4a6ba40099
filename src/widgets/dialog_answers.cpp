#include "widgets/dialog_answers.h"

#include <QColorDialog>
#include <QFileDialog>

namespace wk {

namespace {

bool unansweredDialogsCancel = false;

}  // namespace

void SetUnansweredDialogsCancel(bool cancel) {
    unansweredDialogsCancel = cancel;
}

bool UnansweredDialogsCancel() {
    return unansweredDialogsCancel;
}

DialogAnswers<QString>& FileOpenAnswers() {
    static DialogAnswers<QString> answers;
    return answers;
}

DialogAnswers<QColor>& ColourAnswers() {
    static DialogAnswers<QColor> answers;
    return answers;
}

DialogAnswers<std::string>& DirectoryAnswers() {
    static DialogAnswers<std::string> answers;
    return answers;
}

std::optional<QString> RunFileOpenDialog(QFileDialog& dialog) {
    std::optional<QString> chosen = FileOpenAnswers().Run([&]() -> std::optional<QString> {
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
            return std::nullopt;
        }
        return dialog.selectedFiles().front();
    });
    if (chosen && chosen->isEmpty()) {
        return std::nullopt;
    }
    return chosen;
}

std::optional<QColor> RunColourDialog(QColorDialog& dialog) {
    std::optional<QColor> chosen = ColourAnswers().Run([&]() -> std::optional<QColor> {
        if (dialog.exec() != QDialog::Accepted) {
            return std::nullopt;
        }
        return dialog.selectedColor();
    });
    if (chosen && !chosen->isValid()) {
        return std::nullopt;
    }
    return chosen;
}

}  // namespace wk
