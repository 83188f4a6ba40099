#include "cli/windows_directory_check.h"

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
    return true;
}

}  // namespace wk::cli
