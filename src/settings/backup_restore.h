#pragma once
// Putting the backup back: the settings files as the last save found them.
//
// Each settings file that has a backup (WZELKO.BAK, WZELKO32.BAK) gets the backup's bytes
// without the byte 0xFF that the backup's copy appends; the settings file as it was becomes
// the new backup, with that byte, as every backup is. So a restore can itself be undone by
// restoring again, and two restores give back the files and backups they started from.
//
// All or nothing: every new file is written and flushed beside its file first, under the
// Windows directory's lock that saves take, and then all are put in place together; a file
// that cannot be read or replaced (read-only, a directory, a full disk) changes nothing.

#include <string>
#include <vector>

namespace wk {

struct RestoreResult {
    bool Restored = false;
    // The settings files put back ("WZELKO.INI"), each from its backup.
    std::vector<std::string> Files;
    // When not restored: the file (its host path) and why, in words.
    std::string File;
    std::string Reason;

    // "<file>: <reason>", as one line.
    std::string Text() const { return File.empty() ? Reason : File + ": " + Reason; }
};

// Restores every pair that has a backup (backup_pairs.h). Not restored, with a reason, when
// there is no backup at all.
RestoreResult RestoreSettingsBackups();

}  // namespace wk
