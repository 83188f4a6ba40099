#pragma once
// Two settings files compared key by key, as the measuring application sees them.
//
// A service engineer asks "which settings differ", not "which lines": a comment, a blank line,
// the spacing around '=' or the spelling of a section's case change nothing the measuring
// application reads. So the files are compared by section and key, matched without regard to
// (ASCII) case as the profile functions match them, and by values as the profile functions
// read them (trimmed of blanks and of one pair of outer quotes). A repeated section or key is
// out of the profile functions' reach after its first occurrence, and so out of the comparison.
//
// Used by `wkestel diff`, by the preview of `wkestel restore` and by the window's restore.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wk {

// One key of a settings file as the profile functions read it. Names and values are in the
// ANSI code page, as GetPrivateProfileStringA gives them (also for a UTF-16 file).
struct ProfileEntry {
    std::string Section;
    std::string Key;
    std::string Value;
};

// Every key the profile functions reach in a file with these bytes, sections and keys in file
// order: the first section of each name, the first key of each name in it.
std::vector<ProfileEntry> ProfileEntries(std::string fileBytes);

// A key whose value differs between two files, or that only one of them has.
struct KeyDifference {
    std::string Section;  // spelled as the first file that has the key spells it
    std::string Key;
    std::optional<std::string> Before;  // nullopt: the first file lacks the key
    std::optional<std::string> After;   // nullopt: the second file lacks the key
};

// The keys that differ from `before` to `after`, grouped by section: the sections of `before`
// in its order, each with its changed and removed keys in its order followed by the keys only
// `after` has in that section; then the sections only `after` has, in its order.
std::vector<KeyDifference> CompareProfileEntries(const std::vector<ProfileEntry>& before,
                                                 const std::vector<ProfileEntry>& after);

// Whether a file name is a backup's (".BAK", any case): a backup is read without the byte
// its copy appends.
bool IsBackupFileName(std::string_view name);

// The settings file a backup holds: the backup's bytes without the one byte 0xFF that the
// backup's character copy writes after the last character. Bytes that do not end in 0xFF are
// given back as they are.
std::string WithoutBackupMark(std::string backupBytes);

// The bytes of a settings file for comparing it, read from its host path: a backup's without
// its trailing byte (IsBackupFileName). False with `error` ("<path>: <reason>") when the file
// cannot be read.
bool ReadSettingsFileForComparison(const std::string& hostPath, std::string& bytes,
                                   std::string& error);

// "[SECTION] KEY: "old" -> "new"", with "(missing)" for a side that lacks the key: one line of
// the lists the window and `wkestel diff` show.
std::string DifferenceLine(const KeyDifference& difference);

// Two files compared, with the names they are shown by.
struct FileComparison {
    std::string OldName;
    std::string NewName;
    std::vector<KeyDifference> Differences;
    std::string Error;  // "<path>: <reason>" when a file could not be read; no differences then
};

// The file at `newPath` compared with the one at `oldPath` (host paths, read with
// ReadSettingsFileForComparison). An empty path stands for a file that does not exist, which
// has no keys.
FileComparison CompareSettingsFiles(std::string oldName, const std::string& oldPath,
                                    std::string newName, const std::string& newPath);

// Whether any comparison found a difference.
bool AnyDifference(const std::vector<FileComparison>& comparisons);

// The comparisons as lines for a person: per comparison "OLD -> NEW:", then one DifferenceLine
// per key, indented, or "  no difference", or "  cannot be read: <error>".
std::string ComparisonText(const std::vector<FileComparison>& comparisons);

}  // namespace wk
