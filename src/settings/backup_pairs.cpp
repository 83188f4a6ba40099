#include "settings/backup_pairs.h"

#include <string_view>

#include "platform/dos_paths.h"
#include "platform/profile_file.h"
#include "platform/windows_directory.h"
#include "settings/settings_files.h"

namespace wk {
namespace {

// "C:\windows" + "\WZELKO.BAK" on the host, as the backup opens it: each component matched
// without regard to case where the file exists.
std::string HostPathOf(const char* backslashName) {
    char windowsDirectory[500];
    const std::uint32_t n = GetWindowsDirectoryA(windowsDirectory, sizeof windowsDirectory);
    const std::string directory =
        n > 0 && n < sizeof windowsDirectory ? std::string(windowsDirectory, n) : std::string();
    return platform::ToHostPath(directory + backslashName);
}

bool IsFile(const std::string& hostPath) {
    const platform::FileStamp stamp = platform::StatFile(hostPath);
    return stamp.exists && !stamp.isDirectory;
}

BackupPair MakePair(const char* settingsPath, const char* backupPath) {
    BackupPair pair;
    pair.SettingsName = std::string_view(settingsPath).substr(1);  // without the backslash
    pair.BackupName = std::string_view(backupPath).substr(1);
    pair.SettingsPath = HostPathOf(settingsPath);
    pair.BackupPath = HostPathOf(backupPath);
    pair.SettingsExists = IsFile(pair.SettingsPath);
    pair.BackupExists = IsFile(pair.BackupPath);
    return pair;
}

}  // namespace

std::vector<BackupPair> SettingsBackupPairs() {
    return {MakePair(kBackupSourcePath, kBackupTargetPath),
            MakePair(kBackupSource32Path, kBackupTarget32Path)};
}

std::vector<BackupPair> PairsWithBackup() {
    std::vector<BackupPair> pairs;
    for (BackupPair& pair : SettingsBackupPairs()) {
        if (pair.BackupExists) pairs.push_back(std::move(pair));
    }
    return pairs;
}

std::vector<FileComparison> CompareWithBackups(BackupDirection direction) {
    std::vector<FileComparison> comparisons;
    for (const BackupPair& pair : PairsWithBackup()) {
        const std::string settingsName =
            pair.SettingsName + (pair.SettingsExists ? "" : " (no such file)");
        const std::string settingsPath = pair.SettingsExists ? pair.SettingsPath : std::string();
        comparisons.push_back(
            direction == BackupDirection::BackupToSettings
                ? CompareSettingsFiles(pair.BackupName, pair.BackupPath, settingsName, settingsPath)
                : CompareSettingsFiles(settingsName, settingsPath, pair.BackupName,
                                       pair.BackupPath));
    }
    return comparisons;
}

}  // namespace wk
