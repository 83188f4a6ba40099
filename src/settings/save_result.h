#pragma once
// What a whole-record save did, for the window and the command line to tell the user: a
// failed write is never silent.

#include <string>

namespace wk {

struct SaveResult {
    bool Saved = false;
    std::string File;    // the file that could not be written (its host path); empty when saved
    std::string Reason;  // why, in words: "the file is read-only (mode 0444); nothing was written"
    // Saved, but without a backup: the backup's path and why it could not be written.
    std::string BackupProblem;

    // "<file>: <reason>", as one line.
    std::string Text() const { return File.empty() ? Reason : File + ": " + Reason; }
};

}  // namespace wk
