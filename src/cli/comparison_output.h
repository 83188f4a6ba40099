#pragma once
// Key-by-key comparisons of settings files as `wkestel diff` and `wkestel restore` print them
// for a script. (For a person: ComparisonText, settings_file_comparison.h.)

#include <nlohmann/json.hpp>
#include <vector>

#include "settings/settings_file_comparison.h"

namespace wk::cli {

// {"section", "key", "old", "new", "change"}: "old" is null for a key only the second file
// has ("added"), "new" null for a key only the first has ("removed"). Texts in UTF-8.
nlohmann::ordered_json DifferenceJson(const KeyDifference& difference);

// {"different": bool, "comparisons": [{"old": name, "new": name, "differences": [...]}]}
nlohmann::ordered_json ComparisonsJson(const std::vector<FileComparison>& comparisons);

}  // namespace wk::cli
