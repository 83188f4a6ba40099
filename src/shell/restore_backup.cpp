#include "shell/restore_backup.h"

#include <vector>

#include "i18n/own_strings.h"
#include "platform/message_box.h"
#include "platform/windows_directory.h"
#include "settings/backup_pairs.h"

namespace wk {

std::string RestoreCaptionText() {
    return GetOwnString(kRestoreMessageCaption);
}

std::string NoBackupText(const std::string& windowsDirectory) {
    return FillInParts(GetOwnString(kRestoreNoBackup), {windowsDirectory});
}

std::string RestoreQuestionText(bool unsavedChanges) {
    std::string text = GetOwnString(kRestoreQuestion);
    if (unsavedChanges) text += "\n\n" + GetOwnString(kRestoreUnsavedChanges);
    return text;
}

std::string FailedRestoreText(const RestoreResult& result) {
    return FillInParts(GetOwnString(kRestoreFailed), {result.File, result.Reason});
}

bool RestoreBackupAsking(void* owner, bool unsavedChanges) {
    const std::string caption = RestoreCaptionText();
    const std::vector<FileComparison> preview =
        CompareWithBackups(BackupDirection::SettingsToBackup);
    if (preview.empty()) {
        MessageBoxA(owner, NoBackupText(platform::WindowsDirectoryHostPath()).c_str(),
                    caption.c_str(), MB_OK | MB_ICONSTOP);
        return false;
    }
    const std::string question = RestoreQuestionText(unsavedChanges);
    if (MessageBoxWithDetails(owner, question.c_str(), caption.c_str(), MB_YESNO | MB_ICONQUESTION,
                              ComparisonText(preview)) != IDYES) {
        return false;
    }
    const RestoreResult result = RestoreSettingsBackups();
    if (!result.Restored) {
        MessageBoxA(owner, FailedRestoreText(result).c_str(), caption.c_str(), MB_OK | MB_ICONSTOP);
        return false;
    }
    return true;
}

}  // namespace wk
