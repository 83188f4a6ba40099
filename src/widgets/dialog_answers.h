#pragma once
// The modal dialogs the pages open, with answers that can be given in advance.
//
// As with the message-box presenter, a test says beforehand what the user answers: it queues a
// choice (or Cancel) for a dialog, and the next run of that dialog takes it instead of waiting
// for a user. The dialog object is still made and set up as always, so a test can look at what
// it would have shown. Without a queued answer the dialog runs modally - unless unanswered
// dialogs are switched to cancel at once, which the test programs do so that a dialog nobody
// answers can never hang a test.

#include <QColor>
#include <QString>
#include <deque>
#include <optional>
#include <string>
#include <utility>

class QColorDialog;
class QFileDialog;

namespace wk {

// Whether a dialog without a queued answer is cancelled at once (tests) or runs modally.
void SetUnansweredDialogsCancel(bool cancel);
bool UnansweredDialogsCancel();

// The queued answers of one dialog: each a choice, or nullopt for Cancel.
template <typename Choice>
class DialogAnswers {
public:
    void Choose(Choice choice) { answers_.push_back(std::move(choice)); }
    void Cancel() { answers_.push_back(std::nullopt); }

    // Answers queued and not yet taken by a run.
    std::size_t Pending() const { return answers_.size(); }
    // How often the dialog has run (answered in advance or not) since the last Reset.
    int Runs() const { return runs_; }
    void Reset() {
        answers_.clear();
        runs_ = 0;
    }

    // One run of the dialog: the first queued answer, else what `runModally` (the dialog's
    // own exec) gives; nullopt means cancelled.
    template <typename RunModally>
    std::optional<Choice> Run(RunModally&& runModally) {
        ++runs_;
        if (!answers_.empty()) {
            const bool chose = answers_.front().has_value();
            Choice choice = chose ? std::move(*answers_.front()) : Choice{};
            answers_.pop_front();
            return chose ? std::optional<Choice>(std::move(choice)) : std::nullopt;
        }
        if (UnansweredDialogsCancel()) {
            return std::nullopt;
        }
        return runModally();
    }

private:
    std::deque<std::optional<Choice>> answers_;
    int runs_ = 0;
};

// The file-open dialog of BrowseForFile; a choice is a host path.
DialogAnswers<QString>& FileOpenAnswers();
// The colour dialog of the window colours page.
DialogAnswers<QColor>& ColourAnswers();
// The directory dialog of the directories page (TOpenDirDialog); a choice is a directory as the
// measuring application names it ("C:\WZELKO\DATA"), which the dialog takes as its directory.
DialogAnswers<std::string>& DirectoryAnswers();

// Runs the dialog through its answers: the chosen file (host path), nullopt when cancelled or
// when nothing was chosen.
std::optional<QString> RunFileOpenDialog(QFileDialog& dialog);
// Runs the dialog through its answers: the chosen colour, nullopt when cancelled.
std::optional<QColor> RunColourDialog(QColorDialog& dialog);

}  // namespace wk
