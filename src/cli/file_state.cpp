#include "cli/file_state.h"

#include "platform/profile_files.h"
#include "settings/settings_files.h"

namespace wk::cli {

void NoteProfileFileState(const std::string& fileName, CliContext& ctx) {
    const ProfileFileStatus status = GetProfileFileStatus(fileName.c_str());
    if (status.state == ProfileFileState::Readable) return;
    ctx.err << "wkestel: " << status.path << ": " << status.problem
            << "; read as Windows reads a file it cannot open: the default\n";
}

bool CheckSettingsFilesReadable(CliContext& ctx) {
    const ProfileFileStatus ini = GetProfileFileStatus(kWzelkoIni);
    if (ini.state != ProfileFileState::Readable) {
        ctx.err << "wkestel: " << ini.path << ": " << ini.problem
                << " (the measuring application's settings file " << kWzelkoIni
                << " must be a readable file in its Windows directory)\n";
        ctx.exitCode = 1;
        return false;
    }
    const ProfileFileStatus ini32 = GetProfileFileStatus(kWzelko32Ini);
    if (ini32.state == ProfileFileState::Missing) {
        ctx.err << "wkestel: " << ini32.path << ": " << ini32.problem
                << "; its settings read as their defaults\n";
    } else if (ini32.state != ProfileFileState::Readable) {
        ctx.err << "wkestel: " << ini32.path << ": " << ini32.problem << '\n';
        ctx.exitCode = 1;
        return false;
    }
    return true;
}

}  // namespace wk::cli
