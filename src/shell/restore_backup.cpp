#include "shell/restore_backup.h"

#include <vector>

#include "platform/message_box.h"
#include "platform/windows_directory.h"
#include "settings/backup_pairs.h"

namespace wk {

std::string NoBackupText(const std::string& windowsDirectory) {
    return "There is no backup to restore: neither WZELKO.BAK nor WZELKO32.BAK is in " +
           windowsDirectory + ".";
}

std::string RestoreQuestionText(bool unsavedChanges) {
    std::string text =
        "Put the settings files back as the last save found them?\n\n"
        "The files as they are now become the backup, so that restoring again undoes this.";
    if (unsavedChanges) text += "\n\nThe changes that are not saved are lost.";
    return text;
}

std::string FailedRestoreText(const RestoreResult& result) {
    return "The backup could not be restored.\n\n" + result.File + "\n" + result.Reason +
           "\n\nNo file was changed.";
}

bool RestoreBackupAsking(void* owner, bool unsavedChanges) {
    const std::vector<FileComparison> preview =
        CompareWithBackups(BackupDirection::SettingsToBackup);
    if (preview.empty()) {
        MessageBoxA(owner, NoBackupText(platform::WindowsDirectoryHostPath()).c_str(),
                    kRestoreCaption, MB_OK | MB_ICONSTOP);
        return false;
    }
    const std::string question = RestoreQuestionText(unsavedChanges);
    if (MessageBoxWithDetails(owner, question.c_str(), kRestoreCaption, MB_YESNO | MB_ICONQUESTION,
                              ComparisonText(preview)) != IDYES) {
        return false;
    }
    const RestoreResult result = RestoreSettingsBackups();
    if (!result.Restored) {
        MessageBoxA(owner, FailedRestoreText(result).c_str(), kRestoreCaption, MB_OK | MB_ICONSTOP);
        return false;
    }
    return true;
}

}  // namespace wk
