#pragma once
// What a save of the settings record would change in the files, key by key, before it is made.
//
// The save question offers this list behind "Show Details...": a service engineer sees which
// keys of which file the answer Yes writes, with their old and new values. It is what WriteAll
// would write against what the files hold now: the record's whole write is tried out in memory
// (ProfileDryRun), on a copy of the record, so that neither the files (not even the backup) nor
// the record change; the real save that may follow is unaffected.

#include <optional>
#include <string>
#include <vector>

#include "settings/setup_settings.h"

namespace wk {

struct PendingChange {
    std::string File;     // "WZELKO.INI" or "WZELKO32.INI"
    std::string Section;  // as the record writes them
    std::string Key;
    std::optional<std::string> Before;  // the value in the file now; nullopt: the key is added
    std::string After;                  // the value the save leaves
};

// The keys whose value (as the profile functions read it) a WriteAll of `record` would change,
// in the order of the write, each once, with the value it has when the save is done: a key the
// save writes twice is listed where it is first written, with its last value; a key written
// with the value it already has is not listed.
std::vector<PendingChange> PendingChanges(const SetupSettings& record);

// One line per change: "WZELKO.INI [MACHINEPARAM] DIST APPROACH: "6.000000" -> "12.000000"",
// with "(missing)" for a key the save adds. Empty for no change.
std::string PendingChangesText(const std::vector<PendingChange>& changes);

}  // namespace wk
