#include "cli/windows_directory_check.h"

#include "platform/profile_files.h"
#include "platform/windows_directory.h"

namespace wk::cli {

bool CheckWindowsDirectoryFor(const std::string& fileName, CliContext& ctx) {
    const bool isPath = fileName.find_first_of("\\/") != std::string::npos;
    return isPath || CheckWindowsDirectory(ctx);
}

bool CheckWindowsDirectory(CliContext& ctx) {
    if (auto problem = platform::WindowsDirectoryProblem()) {
        ctx.err << "wkestel: " << *problem << '\n';
        ctx.exitCode = 1;
        return false;
    }
    // A save that a kill interrupted is completed before any command looks at the files,
    // also by the commands that open them by other means than the profile functions.
    platform::CompleteInterruptedSaves();
    return true;
}

}  // namespace wk::cli
