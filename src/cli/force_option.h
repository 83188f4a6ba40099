#pragma once
// --force of the commands that write files: read-only files may be replaced for the one
// command it is given to.

#include <string>

#include "cli/cli_context.h"
#include "platform/file_replace.h"

namespace wk::cli {

// Read-only files may be replaced while the object lives, as `force` says, and not after
// (the tests run many commands in one process), however the command's writes end.
class ForceScope {
public:
    explicit ForceScope(bool force) { platform::SetReplaceReadOnlyFiles(force); }
    ~ForceScope() { platform::SetReplaceReadOnlyFiles(false); }
    ForceScope(const ForceScope&) = delete;
    ForceScope& operator=(const ForceScope&) = delete;
};

// "wkestel: <what>, no file was changed: <file>: <reason>" on the error stream, with the hint
// that --force replaces a read-only file when that is the reason.
inline void ReportNothingChanged(const std::string& what, const std::string& text,
                                 const std::string& reason, CliContext& ctx) {
    ctx.err << "wkestel: " << what << ", no file was changed: " << text;
    if (reason.find("read-only") != std::string::npos) {
        ctx.err << " (--force replaces it all the same)";
    }
    ctx.err << '\n';
}

}  // namespace wk::cli
