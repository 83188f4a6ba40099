#include "settings/settings_file_comparison.h"

#include <map>
#include <set>
#include <utility>

#include "platform/ascii_case.h"
#include "platform/profile_document.h"
#include "platform/profile_file.h"
#include "platform/text_codec.h"

namespace wk {
namespace {

using platform::ProfileDocument;

// The names of a NUL-terminated listing ("a\0b\0"); an empty name is a name too.
std::vector<std::string> SplitListing(const std::string& listing) {
    std::vector<std::string> names;
    std::size_t start = 0;
    for (std::size_t i = 0; i < listing.size(); ++i) {
        if (listing[i] == '\0') {
            names.push_back(listing.substr(start, i - start));
            start = i + 1;
        }
    }
    return names;
}

std::string Folded(std::string_view section, std::string_view key) {
    std::string folded = ToUpperAscii(std::string(section));
    folded.push_back('\n');  // cannot be part of a name: names end at the line's end
    folded += ToUpperAscii(std::string(key));
    return folded;
}

}  // namespace

std::vector<ProfileEntry> ProfileEntries(std::string fileBytes) {
    const ProfileDocument document(std::move(fileBytes));
    // A UTF-16 file is held in UTF-8; the profile functions give its texts in the ANSI code
    // page, and so does this.
    const auto ansi = [&](std::string_view text) {
        return document.IsUtf16() ? platform::Utf8ToAnsi(text) : std::string(text);
    };
    std::string sectionListing;
    document.AppendSectionNames(sectionListing);

    std::vector<ProfileEntry> entries;
    std::set<std::string> seenSections;
    for (const std::string& section : SplitListing(sectionListing)) {
        // A repeated header: lookups find the first section of the name only.
        if (!seenSections.insert(ToUpperAscii(section)).second) continue;
        std::string keyListing;
        document.AppendKeyNames(section, keyListing);
        std::set<std::string> seenKeys;
        for (const std::string& key : SplitListing(keyListing)) {
            if (!seenKeys.insert(ToUpperAscii(key)).second) continue;
            const std::optional<std::string_view> value = document.Value(section, key);
            if (!value) continue;
            entries.push_back(ProfileEntry{ansi(section), ansi(key), ansi(*value)});
        }
    }
    return entries;
}

std::vector<KeyDifference> CompareProfileEntries(const std::vector<ProfileEntry>& before,
                                                 const std::vector<ProfileEntry>& after) {
    std::map<std::string, const ProfileEntry*> afterByName;
    for (const ProfileEntry& entry : after) {
        afterByName.emplace(Folded(entry.Section, entry.Key), &entry);
    }
    std::set<std::string> beforeNames;
    for (const ProfileEntry& entry : before) beforeNames.insert(Folded(entry.Section, entry.Key));

    // The keys only `after` has, by section, in its order.
    std::map<std::string, std::vector<const ProfileEntry*>> addedBySection;
    std::vector<std::string> addedSectionOrder;
    for (const ProfileEntry& entry : after) {
        if (beforeNames.count(Folded(entry.Section, entry.Key)) != 0) continue;
        const std::string section = ToUpperAscii(entry.Section);
        auto [it, isNew] = addedBySection.try_emplace(section);
        if (isNew) addedSectionOrder.push_back(section);
        it->second.push_back(&entry);
    }

    std::vector<KeyDifference> differences;
    const auto appendAdded = [&](const std::string& section) {
        const auto it = addedBySection.find(section);
        if (it == addedBySection.end()) return;
        for (const ProfileEntry* entry : it->second) {
            differences.push_back(
                KeyDifference{entry->Section, entry->Key, std::nullopt, entry->Value});
        }
        addedBySection.erase(it);
    };

    std::string currentSection;
    bool inSection = false;
    for (const ProfileEntry& entry : before) {
        const std::string section = ToUpperAscii(entry.Section);
        if (inSection && section != currentSection) appendAdded(currentSection);
        currentSection = section;
        inSection = true;
        const auto it = afterByName.find(Folded(entry.Section, entry.Key));
        if (it == afterByName.end()) {
            differences.push_back(
                KeyDifference{entry.Section, entry.Key, entry.Value, std::nullopt});
        } else if (it->second->Value != entry.Value) {
            differences.push_back(
                KeyDifference{entry.Section, entry.Key, entry.Value, it->second->Value});
        }
    }
    if (inSection) appendAdded(currentSection);
    // Sections of `before` are each one run of entries (ProfileEntries lists a section's keys
    // together), so what is left are the keys of sections `before` does not have.
    for (const std::string& section : addedSectionOrder) appendAdded(section);
    return differences;
}

bool IsBackupFileName(std::string_view name) {
    const std::size_t slash = name.find_last_of("/\\");
    if (slash != std::string_view::npos) name.remove_prefix(slash + 1);
    return name.size() >= 4 && EqualsIgnoringAsciiCase(name.substr(name.size() - 4), ".BAK");
}

std::string WithoutBackupMark(std::string backupBytes) {
    if (!backupBytes.empty() && static_cast<unsigned char>(backupBytes.back()) == 0xFF) {
        backupBytes.pop_back();
    }
    return backupBytes;
}

bool ReadSettingsFileForComparison(const std::string& hostPath, std::string& bytes,
                                   std::string& error) {
    platform::FileStamp stamp;
    platform::FileError failure;
    if (!platform::ReadWholeFile(hostPath, ProfileDocument::kMaxFileBytes, bytes, stamp, failure)) {
        error = failure.Text();
        return false;
    }
    if (IsBackupFileName(hostPath)) bytes = WithoutBackupMark(std::move(bytes));
    return true;
}

std::string DifferenceLine(const KeyDifference& difference) {
    const auto quoted = [](const std::optional<std::string>& value) {
        return value ? "\"" + *value + "\"" : std::string("(missing)");
    };
    return "[" + difference.Section + "] " + difference.Key + ": " + quoted(difference.Before) +
           " -> " + quoted(difference.After);
}

FileComparison CompareSettingsFiles(std::string oldName, const std::string& oldPath,
                                    std::string newName, const std::string& newPath) {
    FileComparison comparison{std::move(oldName), std::move(newName), {}, {}};
    std::string oldBytes;
    std::string newBytes;
    if ((!oldPath.empty() && !ReadSettingsFileForComparison(oldPath, oldBytes, comparison.Error)) ||
        (!newPath.empty() && !ReadSettingsFileForComparison(newPath, newBytes, comparison.Error))) {
        return comparison;
    }
    comparison.Differences = CompareProfileEntries(ProfileEntries(std::move(oldBytes)),
                                                   ProfileEntries(std::move(newBytes)));
    return comparison;
}

bool AnyDifference(const std::vector<FileComparison>& comparisons) {
    for (const FileComparison& comparison : comparisons) {
        if (!comparison.Differences.empty()) return true;
    }
    return false;
}

std::string ComparisonText(const std::vector<FileComparison>& comparisons) {
    std::string text;
    for (const FileComparison& comparison : comparisons) {
        text += comparison.OldName + " -> " + comparison.NewName + ":\n";
        if (!comparison.Error.empty()) {
            text += "  cannot be read: " + comparison.Error + "\n";
        } else if (comparison.Differences.empty()) {
            text += "  no difference\n";
        }
        for (const KeyDifference& difference : comparison.Differences) {
            text += "  " + DifferenceLine(difference) + "\n";
        }
    }
    return text;
}

}  // namespace wk
