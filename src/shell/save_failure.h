#pragma once
// Saving the record from the window, and telling the user when it did not go to plan.
//
// A Save that cannot write must not look like one that did: the edit would be lost without a
// word and Exit would quit as if it had been saved. So the message says which file could not
// be written and why, and that no file was changed (the save is all or nothing), and the
// record stays modified, so that the edits are kept and leaving or Exit asks again.

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
