#include "settings/backup_restore.h"

#include <optional>

#include "platform/profile_batch.h"
#include "platform/profile_document.h"
#include "platform/profile_file.h"
#include "platform/profile_files.h"
#include "platform/windows_directory.h"
#include "settings/backup_bytes.h"
#include "settings/backup_pairs.h"
#include "settings/settings_file_comparison.h"

namespace wk {

RestoreResult RestoreSettingsBackups() {
    RestoreResult result;
    // One batch that replaces every file or none, holding the lock that saves take: no other
    // writer of this program changes the files between their reading here and their
    // replacement, and a kill half-way is completed or undone as a save's is.
    ProfileBatch batch(ProfileBatch::Mode::AllOrNothing);
    const auto fail = [&](const platform::FileError& why) {
        batch.Abandon();
        result.Files.clear();
        result.File = why.path;
        result.Reason = why.reason;
        return result;
    };
    if (!batch.LockDirectory(platform::WindowsDirectoryHostPath())) {
        return fail(platform::LastProfileFailure());
    }

    const std::vector<BackupPair> pairs = PairsWithBackup();
    if (pairs.empty()) {
        return fail(platform::FileError{
            {},
            "there is no backup to restore: neither WZELKO.BAK nor WZELKO32.BAK is in " +
                platform::WindowsDirectoryHostPath()});
    }
    for (const BackupPair& pair : pairs) {
        std::string backup;
        platform::FileStamp stamp;
        platform::FileError error;
        if (!platform::ReadWholeFile(pair.BackupPath, platform::ProfileDocument::kMaxFileBytes,
                                     backup, stamp, error)) {
            return fail(error);
        }
        // The settings file as it is becomes the backup, made as every backup is made. A
        // settings file that is not there has nothing to keep: its backup stays as it is.
        std::optional<std::string> newBackup;
        if (pair.SettingsExists) {
            newBackup = BackupBytes(pair.SettingsPath.c_str());
            if (!newBackup) {
                std::string unused;
                if (!platform::ReadWholeFile(pair.SettingsPath,
                                             platform::ProfileDocument::kMaxFileBytes, unused,
                                             stamp, error)) {
                    return fail(error);
                }
                return fail(platform::FileError{pair.SettingsPath, "cannot be read"});
            }
        }
        if (!platform::ReplaceWholeFile(pair.SettingsPath, WithoutBackupMark(std::move(backup)))) {
            return fail(platform::LastProfileFailure());
        }
        if (newBackup && !platform::ReplaceWholeFile(pair.BackupPath, *newBackup)) {
            return fail(platform::LastProfileFailure());
        }
        result.Files.push_back(pair.SettingsName);
    }
    if (!batch.Commit()) return fail(platform::LastProfileFailure());
    result.Restored = true;
    return result;
}

}  // namespace wk
