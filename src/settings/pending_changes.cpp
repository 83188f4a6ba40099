#include "settings/pending_changes.h"

#include <map>

#include "platform/ascii_case.h"
#include "platform/profile_dry_run.h"
#include "settings/settings_file_comparison.h"

namespace wk {

std::vector<PendingChange> PendingChanges(const SetupSettings& record) {
    // The write changes the record it runs on (the modified flag, the scratch text, the older
    // file's compensation method): a copy is written, and the record stays as it was.
    SetupSettings copy(record);
    std::vector<ProfileDryRun::Write> writes;
    {
        ProfileDryRun dryRun;
        copy.Write();
        writes = dryRun.Writes();
    }

    struct Tried {
        PendingChange change;
        std::optional<std::string> last;
    };
    std::vector<Tried> tried;
    std::map<std::string, std::size_t> indexOf;
    for (const ProfileDryRun::Write& write : writes) {
        if (!write.Key) continue;  // the record deletes no section
        // "Wzelko.ini" and "WZELKO.INI" are one file; sections and keys match without case.
        const std::string file = ToUpperAscii(write.FileName);
        const std::string name =
            file + '\n' + ToUpperAscii(write.Section) + '\n' + ToUpperAscii(*write.Key);
        const auto [it, isNew] = indexOf.try_emplace(name, tried.size());
        if (isNew) {
            tried.push_back(Tried{PendingChange{file, write.Section, *write.Key, write.Before, {}},
                                  write.After});
        } else {
            tried[it->second].last = write.After;
        }
    }

    std::vector<PendingChange> changes;
    for (Tried& entry : tried) {
        // The record only sets keys, so each one it wrote is there afterwards.
        if (!entry.last || entry.last == entry.change.Before) continue;
        entry.change.After = *entry.last;
        changes.push_back(std::move(entry.change));
    }
    return changes;
}

std::string PendingChangesText(const std::vector<PendingChange>& changes) {
    std::string text;
    for (const PendingChange& change : changes) {
        if (!text.empty()) text += '\n';
        text +=
            change.File + " " +
            DifferenceLine(KeyDifference{change.Section, change.Key, change.Before, change.After});
    }
    return text;
}

}  // namespace wk
