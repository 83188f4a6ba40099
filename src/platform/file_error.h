#pragma once
// Why a settings file could not be read or written: the file and the reason, kept apart so
// that the window can say which file failed and the command line can print both on one line.

#include <string>

namespace wk::platform {

struct FileError {
    std::string path;    // the host path of the file concerned; empty when none applies
    std::string reason;  // in words: "Permission denied", "the file is read-only (mode 0444)"

    bool Empty() const { return reason.empty(); }
    void Clear() {
        path.clear();
        reason.clear();
    }
    // "<path>: <reason>", the form every message of the program uses.
    std::string Text() const { return path.empty() ? reason : path + ": " + reason; }
};

// A FileError with the system's text for an errno value.
FileError ErrnoError(const std::string& path, int errorNumber);

}  // namespace wk::platform
