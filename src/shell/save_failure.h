#pragma once
// Saving the record from the window, and telling the user when it did not go to plan.
//
// Earlier versions of the editor wrote the files without looking at the result, so a Save
// that could not write lost the edit without a word and Exit then quit as if it had been
// saved. Telling the user is a deliberate change: the message says which file could not be
// written and why, no file was changed (the save is all or nothing), and the record stays
// modified, so that the edits are kept and leaving or Exit asks again.

#include "settings/setup_settings.h"

namespace wk {

// Runs WriteAll. On failure shows which file and why (stop icon) and returns false; the
// record is still modified then. A save made without its backup is told too (warning icon)
// and returns true. `owner` is the window the message belongs to.
bool SaveSettingsReportingFailure(void* owner, SetupSettings& record);

// The texts of those messages (fixed English texts, as the program's other fixed messages).
std::string FailedSaveText(const SaveResult& result);
std::string SavedWithoutBackupText(const SaveResult& result);

// The caption of both messages.
inline constexpr const char* kSaveMessageCaption = "WKestel32";

}  // namespace wk
