#pragma once

#include <string>

#include "cli/cli_context.h"

namespace wk::cli {

// True when `fileName` does not depend on the Windows directory (it is a path), or when the
// Windows directory exists. Otherwise says where it was looked for and how to choose
// another prefix, on the error stream, and sets exit code 1.
bool CheckWindowsDirectoryFor(const std::string& fileName, CliContext& ctx);

// The same for commands that always work in the Windows directory.
bool CheckWindowsDirectory(CliContext& ctx);

}  // namespace wk::cli
