#include "shell/save_failure.h"

#include "platform/message_box.h"

namespace wk {

std::string FailedSaveText(const SaveResult& result) {
    return "The settings could not be saved.\n\n" + result.File + "\n" + result.Reason +
           "\n\nNo file was changed. Your changes are kept: save again once the cause is "
           "put right, or leave without saving.";
}

std::string SavedWithoutBackupText(const SaveResult& result) {
    return "The settings were saved, but without a backup:\n\n" + result.BackupProblem;
}

bool SaveSettingsReportingFailure(void* owner, SetupSettings& record) {
    SaveResult result;
    if (!record.WriteAll(result)) {
        MessageBoxA(owner, FailedSaveText(result).c_str(), kSaveMessageCaption,
                    MB_OK | MB_ICONSTOP);
        return false;
    }
    if (!result.BackupProblem.empty()) {
        MessageBoxA(owner, SavedWithoutBackupText(result).c_str(), kSaveMessageCaption,
                    MB_OK | MB_ICONEXCLAMATION);
    }
    return true;
}

}  // namespace wk
