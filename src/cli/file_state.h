#pragma once
// What the commands say about a settings file that is not there or cannot be read.
//
// The profile calls read such a file as Windows does, as if it were missing: the default.
// That is right for a mirror of the calls, and wrong to keep quiet about, so the commands say
// it on the error stream, in one line naming the file.

#include <string>

#include "cli/cli_context.h"

namespace wk::cli {

// For the profile commands: one line on the error stream when the file that `fileName` names
// is missing, unreadable, a directory, a pipe or a device ("wkestel: /p/X.INI: does not exist;
// read as Windows reads it: the default"). The exit code is left as it is.
void NoteProfileFileState(const std::string& fileName, CliContext& ctx);

// For show, check and resave: true when the measuring application's settings file
// WZELKO.INI can be read, and WZELKO32.INI can be read or is missing (a note says so then).
// Otherwise says which file and why on the error stream and sets exit code 1.
bool CheckSettingsFilesReadable(CliContext& ctx);

}  // namespace wk::cli
