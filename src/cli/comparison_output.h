#pragma once
// Key-by-key comparisons of settings files as `wkestel diff` and `wkestel restore` take and
// print them: the settings files with their backups, and JSON for a script. (For a person:
// ComparisonText, settings_file_comparison.h.)

#include <nlohmann/json.hpp>
#include <vector>

#include "cli/cli_context.h"
#include "settings/backup_pairs.h"
#include "settings/settings_file_comparison.h"

namespace wk::cli {

// Each settings file compared with its backup in `direction`. None when the Windows directory
// is missing or holds no backup: that is said on the error stream, with what the backup was
// wanted for (`purpose`: "compare with", "restore"); the caller sets the exit code.
std::vector<FileComparison> ComparisonsWithBackups(BackupDirection direction, const char* purpose,
                                                   CliContext& ctx);

// {"section", "key", "old", "new", "change"}: "old" is null for a key only the second file
// has ("added"), "new" null for a key only the first has ("removed"). Texts in UTF-8.
nlohmann::ordered_json DifferenceJson(const KeyDifference& difference);

// {"different": bool, "comparisons": [{"old": name, "new": name, "differences": [...]}]}
nlohmann::ordered_json ComparisonsJson(const std::vector<FileComparison>& comparisons);

}  // namespace wk::cli
