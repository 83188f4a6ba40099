#include "cli/comparison_output.h"

#include "cli/windows_directory_check.h"
#include "platform/text_codec.h"
#include "platform/windows_directory.h"

namespace wk::cli {

using Json = nlohmann::ordered_json;

namespace {

// JSON is UTF-8; the files are in the ANSI code page (Windows-1252).
Json Text(const std::string& ansi) {
    return platform::AnsiToUtf8(ansi);
}

}  // namespace

std::vector<FileComparison> ComparisonsWithBackups(BackupDirection direction, const char* purpose,
                                                   CliContext& ctx) {
    if (!CheckWindowsDirectory(ctx)) return {};
    std::vector<FileComparison> comparisons = CompareWithBackups(direction);
    if (comparisons.empty()) {
        ctx.err << "wkestel: there is no backup to " << purpose
                << ": neither WZELKO.BAK nor WZELKO32.BAK is in "
                << platform::WindowsDirectoryHostPath() << '\n';
    }
    return comparisons;
}

Json DifferenceJson(const KeyDifference& difference) {
    Json item{{"section", Text(difference.Section)}, {"key", Text(difference.Key)}};
    item["old"] = difference.Before ? Text(*difference.Before) : Json(nullptr);
    item["new"] = difference.After ? Text(*difference.After) : Json(nullptr);
    item["change"] = !difference.Before ? "added" : !difference.After ? "removed" : "changed";
    return item;
}

Json ComparisonsJson(const std::vector<FileComparison>& comparisons) {
    Json list = Json::array();
    for (const FileComparison& comparison : comparisons) {
        Json differences = Json::array();
        for (const KeyDifference& difference : comparison.Differences) {
            differences.push_back(DifferenceJson(difference));
        }
        list.push_back(Json{{"old", Text(comparison.OldName)},
                            {"new", Text(comparison.NewName)},
                            {"differences", std::move(differences)}});
    }
    return Json{{"different", AnyDifference(comparisons)}, {"comparisons", std::move(list)}};
}

}  // namespace wk::cli
