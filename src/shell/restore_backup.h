#pragma once
// File, Restore Backup: the settings files put back as the last save found them.
//
// The user is asked first, with the keys the restore changes behind "Show Details...". The
// files as they are become the backup, so a second restore undoes the first. Edits in the
// window that are not saved are lost by a restore (the files are read again afterwards): the
// question says so, and No keeps them. A restore that cannot be done says which file and why,
// and changes no file.

#include <string>

#include "settings/backup_restore.h"

namespace wk {

// Asks and restores. True when the files were restored: the caller reads them again then.
// `owner` is the window the messages belong to; `unsavedChanges` whether the record holds
// edits that the files do not.
bool RestoreBackupAsking(void* owner, bool unsavedChanges);

// The texts of the entry's messages in the language of the library, as ANSI bytes (English
// when the library is older than the entry's strings).
std::string RestoreCaptionText();
std::string NoBackupText(const std::string& windowsDirectory);
std::string RestoreQuestionText(bool unsavedChanges);
std::string FailedRestoreText(const RestoreResult& result);

}  // namespace wk
