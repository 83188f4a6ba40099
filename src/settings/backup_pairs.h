#pragma once
// The settings files and their backups, paired as the whole-record save pairs them:
// WZELKO.INI with WZELKO.BAK, and WZELKO32.INI with WZELKO32.BAK (the pair a save backs up
// when WZELKO.INI cannot be opened).
//
// What a backup holds is compared with its settings file key by key
// (settings_file_comparison.h): for `wkestel diff` (what the last save changed), and before a
// restore (what the restore would change).

#include <string>
#include <vector>

#include "settings/settings_file_comparison.h"

namespace wk {

struct BackupPair {
    std::string SettingsName;  // "WZELKO.INI"
    std::string BackupName;    // "WZELKO.BAK"
    // Host paths, found as the backup finds them: the existing file of the Windows directory
    // whatever its case, else the upper-case name there.
    std::string SettingsPath;
    std::string BackupPath;
    bool SettingsExists = false;
    bool BackupExists = false;
};

// Both pairs, WZELKO.INI's first, as the Windows directory holds them now.
std::vector<BackupPair> SettingsBackupPairs();

// The pairs whose backup exists: what a restore puts back.
std::vector<BackupPair> PairsWithBackup();

// Which way a pair is compared.
enum class BackupDirection {
    BackupToSettings,  // what the last save changed: the backup before, the settings file after
    SettingsToBackup   // what a restore would change: the settings file before, the backup after
};

// Each pair that has a backup, compared key by key, named by the files' names ("WZELKO.BAK",
// "WZELKO.INI"). A settings file that does not exist has no keys, and is named with
// " (no such file)".
std::vector<FileComparison> CompareWithBackups(BackupDirection direction);

}  // namespace wk
