// `wkestel show | check | resave`: the settings record as the window reads and saves it.
//
// All three build the record exactly as start-up does: the controller flags from key "Type"
// of section "Controller", then SetupSettings and ReadAll.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "cli/commands.h"
#include "cli/file_state.h"
#include "cli/force_option.h"
#include "cli/settings_listing.h"
#include "cli/windows_directory_check.h"
#include "platform/ascii_case.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/profile.h"
#include "platform/scratch_directory.h"
#include "platform/text_codec.h"
#include "platform/windows_directory.h"
#include "settings/controller_type.h"
#include "settings/profile_helpers.h"
#include "settings/settings_files.h"
#include "settings/setup_settings.h"

namespace wk::cli {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

struct LoadedRecord {
    std::string controllerType;
    ControllerFlags flags;
    std::unique_ptr<SetupSettings> record;
};

LoadedRecord LoadRecord() {
    LoadedRecord loaded;
    loaded.controllerType = ReadControllerType();
    loaded.flags = ControllerFlagsFromType(loaded.controllerType);
    loaded.record = std::make_unique<SetupSettings>(loaded.flags);
    loaded.record->ReadAll();
    return loaded;
}

// Numbers are shown with a point whatever the user's locale, as the files hold them.
std::string NumberText(double value) {
    char text[64];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

std::string ValueText(const SettingValue& value) {
    struct Visitor {
        std::string operator()(bool v) const { return v ? "true" : "false"; }
        std::string operator()(std::int64_t v) const { return std::to_string(v); }
        std::string operator()(double v) const { return NumberText(v); }
        std::string operator()(const std::string& v) const { return "\"" + v + "\""; }
        std::string operator()(const ColourValue& v) const {
            return std::to_string(v.Red) + "," + std::to_string(v.Green) + "," +
                   std::to_string(v.Blue) + (v.Listed ? "" : " (not listed)");
        }
    };
    return std::visit(Visitor{}, value);
}

// JSON is UTF-8; the files are in the ANSI code page (Windows-1252).
Json Text(const std::string& ansi) {
    return platform::AnsiToUtf8(ansi);
}

Json ValueJson(const SettingValue& value) {
    struct Visitor {
        Json operator()(bool v) const { return v; }
        Json operator()(std::int64_t v) const { return v; }
        Json operator()(double v) const { return v; }
        Json operator()(const std::string& v) const { return Text(v); }
        Json operator()(const ColourValue& v) const {
            return Json{{"red", v.Red}, {"green", v.Green}, {"blue", v.Blue}, {"listed", v.Listed}};
        }
    };
    return std::visit(Visitor{}, value);
}

Json ControllerJson(const LoadedRecord& loaded) {
    return Json{
        {"type", Text(loaded.controllerType)},       {"IsQd32OrRmd", loaded.flags.IsQd32OrRmd},
        {"IsVek3Family", loaded.flags.IsVek3Family}, {"IsKpt", loaded.flags.IsKpt},
        {"IsRmdOrKpt", loaded.flags.IsRmdOrKpt},     {"AcceptsTcpip", loaded.flags.AcceptsTcpip()}};
}

// Only the settings whose value differs from the record's constructor values, its built-in
// defaults: what was changed on this machine. The constructor itself reads the measuring unit
// and the controller type from the file, so those two are the file's in both and never listed.
// A setting without a key (the spare colour entries) is not a setting of the file and is left
// out.
std::vector<SettingsLevel> ChangedFromDefaults(const std::vector<SettingsLevel>& levels,
                                               const std::vector<SettingsLevel>& defaults,
                                               std::map<std::string, SettingValue>& defaultOf) {
    std::map<std::string, const SettingValue*> byField;
    for (const SettingsLevel& level : defaults) {
        for (const SettingEntry& entry : level.Entries) {
            byField[level.Name + "." + entry.Field] = &entry.Value;
        }
    }
    std::vector<SettingsLevel> changed;
    for (const SettingsLevel& level : levels) {
        SettingsLevel kept{level.Name, {}};
        for (const SettingEntry& entry : level.Entries) {
            if (entry.Key.empty()) continue;
            const auto it = byField.find(level.Name + "." + entry.Field);
            if (it != byField.end() && *it->second == entry.Value) continue;
            if (it != byField.end()) defaultOf[level.Name + "." + entry.Field] = *it->second;
            kept.Entries.push_back(entry);
        }
        if (!kept.Entries.empty()) changed.push_back(std::move(kept));
    }
    return changed;
}

void Show(bool json, bool changedOnly, CliContext& ctx) {
    if (!CheckWindowsDirectory(ctx) || !CheckSettingsFilesReadable(ctx)) return;
    const LoadedRecord loaded = LoadRecord();
    std::vector<SettingsLevel> levels = ListSettings(*loaded.record);
    std::map<std::string, SettingValue> defaultOf;
    if (changedOnly) {
        const SetupSettings defaults(loaded.flags);
        levels = ChangedFromDefaults(levels, ListSettings(defaults), defaultOf);
    }
    const auto defaultFor = [&](const SettingsLevel& level,
                                const SettingEntry& entry) -> const SettingValue* {
        const auto it = defaultOf.find(level.Name + "." + entry.Field);
        return it != defaultOf.end() ? &it->second : nullptr;
    };

    if (json) {
        Json levelsJson = Json::object();
        for (const SettingsLevel& level : levels) {
            Json fields = Json::object();
            for (const SettingEntry& entry : level.Entries) {
                Json field{{"value", ValueJson(entry.Value)},
                           {"section", entry.Section},
                           {"key", entry.Key},
                           {"file", entry.File}};
                if (!entry.Note.empty()) field["note"] = Text(entry.Note);
                if (const SettingValue* value = defaultFor(level, entry)) {
                    field["default"] = ValueJson(*value);
                }
                fields[entry.Field] = std::move(field);
            }
            levelsJson[level.Name] = std::move(fields);
        }
        const Json document{{"windowsDirectory", Text(platform::WindowsDirectoryHostPath())},
                            {"controller", ControllerJson(loaded)},
                            {"levels", std::move(levelsJson)}};
        ctx.out << document.dump(2) << '\n';
        return;
    }

    ctx.out << "Windows directory: " << platform::WindowsDirectoryHostPath() << '\n';
    ctx.out << "Controller type: \"" << loaded.controllerType << "\""
            << (loaded.flags.AcceptsTcpip() ? " (accepts TCP/IP)" : "") << '\n';
    for (const SettingsLevel& level : levels) {
        ctx.out << '\n' << level.Name << '\n';
        for (const SettingEntry& entry : level.Entries) {
            std::string value = ValueText(entry.Value);
            if (!entry.Note.empty()) value += "  (" + entry.Note + ")";
            char line[1024];
            std::snprintf(line, sizeof line, "  %-28s %-40s ", entry.Field.c_str(), value.c_str());
            ctx.out << line;
            if (entry.Key.empty()) {
                ctx.out << "(no key)";
            } else {
                ctx.out << '[' << entry.Section << "] " << entry.Key << "  " << entry.File;
            }
            if (const SettingValue* defaultValue = defaultFor(level, entry)) {
                ctx.out << "  default " << ValueText(*defaultValue);
            }
            ctx.out << '\n';
        }
    }
}

// ---- check ----------------------------------------------------------------------------

struct KeyValue {
    std::string section, key, value;
};

// A NUL-separated listing of the profile functions, grown until it fits.
std::vector<std::string> Listing(const char* section, const char* fileName) {
    for (std::uint32_t size = 4096;; size *= 4) {
        std::vector<char> buffer(size, '\0');
        const std::uint32_t n =
            GetPrivateProfileStringA(section, nullptr, "", buffer.data(), size, fileName);
        if (n + 2 >= size && size < (64u << 20)) continue;
        std::vector<std::string> names;
        std::string name;
        for (std::uint32_t i = 0; i < n; ++i) {
            if (buffer[i] == '\0') {
                names.push_back(name);
                name.clear();
            } else {
                name += buffer[i];
            }
        }
        if (!name.empty()) names.push_back(name);
        return names;
    }
}

// Every key of a file as the profile functions see it: first section of a name, first key
// of a name, values trimmed and unquoted.
std::vector<KeyValue> Snapshot(const char* fileName) {
    std::vector<KeyValue> values;
    std::map<std::string, bool> seenSections;
    std::vector<char> value(65536, '\0');
    for (const std::string& section : Listing(nullptr, fileName)) {
        if (!seenSections.emplace(ToUpperAscii(section), true).second) continue;
        std::map<std::string, bool> seenKeys;
        for (const std::string& key : Listing(section.c_str(), fileName)) {
            if (!seenKeys.emplace(ToUpperAscii(key), true).second) continue;
            const std::uint32_t n =
                GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value.data(),
                                         static_cast<std::uint32_t>(value.size()), fileName);
            values.push_back(KeyValue{section, key, std::string(value.data(), n)});
        }
    }
    return values;
}

// A throw-away prefix holding copies of the settings files; the platform points at it for
// the lifetime of the object and at the previous prefix afterwards.
class ScratchPrefix {
public:
    ScratchPrefix() : previous_(platform::WinePrefixOverride()), prefix_("wkestel-check-") {}
    ~ScratchPrefix() { platform::SetWinePrefixOverride(previous_); }
    ScratchPrefix(const ScratchPrefix&) = delete;
    ScratchPrefix& operator=(const ScratchPrefix&) = delete;

    fs::path WindowsDir() const { return prefix_.WindowsDir(); }
    void Activate() const { platform::SetWinePrefixOverride(platform::PathToAnsi(prefix_.Root())); }

private:
    std::string previous_;
    platform::ScratchWinePrefix prefix_;
};

struct Change {
    std::string file, section, key, oldValue, newValue;
    bool added = false;
    bool removed = false;
};

std::vector<Change> Compare(const std::string& file, const std::vector<KeyValue>& before,
                            const std::vector<KeyValue>& after) {
    std::map<std::string, const KeyValue*> old;
    for (const KeyValue& kv : before)
        old.emplace(ToUpperAscii(kv.section) + '\n' + ToUpperAscii(kv.key), &kv);
    std::vector<Change> changes;
    for (const KeyValue& kv : after) {
        const auto it = old.find(ToUpperAscii(kv.section) + '\n' + ToUpperAscii(kv.key));
        if (it == old.end()) {
            changes.push_back(Change{file, kv.section, kv.key, "", kv.value, true, false});
            continue;
        }
        if (it->second->value != kv.value) {
            changes.push_back(Change{file, kv.section, kv.key, it->second->value, kv.value});
        }
        old.erase(it);
    }
    for (const KeyValue& kv : before) {
        if (old.count(ToUpperAscii(kv.section) + '\n' + ToUpperAscii(kv.key)) != 0) {
            changes.push_back(Change{file, kv.section, kv.key, kv.value, "", false, true});
        }
    }
    return changes;
}

void Check(bool json, CliContext& ctx) {
    if (!CheckWindowsDirectory(ctx) || !CheckSettingsFilesReadable(ctx)) return;
    const fs::path windowsDir = platform::PathFromAnsi(platform::WindowsDirectoryHostPath());
    const LoadedRecord loaded = LoadRecord();

    const char* const files[] = {kWzelkoIni, kWzelko32Ini};
    std::vector<Change> changes;
    bool written = false;
    std::string writeError;
    {
        ScratchPrefix scratch;
        for (const char* name : files) {
            // The file the profile functions would reach under the bare name.
            const auto source = platform::FindEntryIgnoringCase(windowsDir, name);
            if (source && fs::is_regular_file(*source)) {
                std::error_code ec;
                fs::copy_file(*source, scratch.WindowsDir() / source->filename(), ec);
                if (ec) {
                    ctx.err << "wkestel: cannot copy " << platform::PathToAnsi(*source) << ": "
                            << ec.message() << '\n';
                    ctx.exitCode = 2;
                    return;
                }
            }
        }
        scratch.Activate();
        std::map<std::string, std::vector<KeyValue>> before;
        for (const char* name : files) before[name] = Snapshot(name);
        SaveResult result;
        written = loaded.record->WriteAll(result);
        if (!written) writeError = result.Text();
        for (const char* name : files) {
            const std::vector<Change> fileChanges = Compare(name, before[name], Snapshot(name));
            changes.insert(changes.end(), fileChanges.begin(), fileChanges.end());
        }
    }
    if (!written) {
        ctx.err << "wkestel: a save could not be tried out: " << writeError << '\n';
        ctx.exitCode = 2;
        return;
    }

    if (json) {
        Json list = Json::array();
        for (const Change& c : changes) {
            Json item{{"file", c.file}, {"section", Text(c.section)}, {"key", Text(c.key)}};
            item["old"] = c.added ? Json(nullptr) : Text(c.oldValue);
            item["new"] = c.removed ? Json(nullptr) : Text(c.newValue);
            item["change"] = c.added ? "added" : c.removed ? "removed" : "changed";
            list.push_back(std::move(item));
        }
        ctx.out << Json{{"wouldChange", !changes.empty()}, {"changes", std::move(list)}}.dump(2)
                << '\n';
    } else {
        for (const char* name : files) {
            std::size_t count = 0;
            for (const Change& c : changes) count += c.file == name ? 1 : 0;
            ctx.out << name << ": "
                    << (count == 0 ? std::string("no change")
                                   : std::to_string(count) + (count == 1 ? " key" : " keys") +
                                         " would change")
                    << '\n';
            for (const Change& c : changes) {
                if (c.file != name) continue;
                ctx.out << "  [" << c.section << "] " << c.key << ": ";
                if (c.added) {
                    ctx.out << "added \"" << c.newValue << "\"\n";
                } else if (c.removed) {
                    ctx.out << "removed (was \"" << c.oldValue << "\")\n";
                } else {
                    ctx.out << '"' << c.oldValue << "\" -> \"" << c.newValue << "\"\n";
                }
            }
        }
    }
    ctx.exitCode = changes.empty() ? 0 : 1;
}

// ---- resave -----------------------------------------------------------------------------

void Resave(bool force, CliContext& ctx) {
    if (!CheckWindowsDirectory(ctx) || !CheckSettingsFilesReadable(ctx)) return;
    const LoadedRecord loaded = LoadRecord();
    // Read-only files are replaced only when the user says so, for this one save.
    SaveResult result;
    const bool saved = [&] {
        const ForceScope forced(force);
        return loaded.record->WriteAll(result);
    }();
    if (!saved) {
        ReportNothingChanged("the settings could not be saved", result.Text(), result.Reason, ctx);
        ctx.exitCode = 1;
        return;
    }
    if (!result.BackupProblem.empty())
        ctx.err << "wkestel: warning: saved without the backup: " << result.BackupProblem << '\n';
    ctx.out << "Saved " << kWzelkoIni << " and " << kWzelko32Ini << " in "
            << platform::WindowsDirectoryHostPath() << '\n';
}

// The commands report what went wrong instead of ending the program (a temporary directory
// that cannot be made, memory).
template <typename Command>
void Guarded(CliContext& ctx, Command command) {
    try {
        command();
    } catch (const std::exception& error) {
        ctx.err << "wkestel: " << error.what() << '\n';
        ctx.exitCode = 2;
    }
}

}  // namespace

void AddSettingsCommands(CLI::App& app, CliContext& ctx) {
    auto showJson = std::make_shared<bool>(false);
    auto showChanged = std::make_shared<bool>(false);
    auto* show = app.add_subcommand(
        "show",
        "Every setting of every group as the editor reads it, level by level, with its\n"
        "section, key and file");
    show->add_flag("--json", *showJson, "JSON output; keys are the record's field names");
    show->add_flag("--changed", *showChanged,
                   "Only the settings whose value differs from the built-in default (the value\n"
                   "a new settings record starts with), each with that default; levels without\n"
                   "such a setting are left out");
    show->callback([showJson, showChanged, &ctx] {
        Guarded(ctx, [&] { Show(*showJson, *showChanged, ctx); });
    });

    auto checkJson = std::make_shared<bool>(false);
    auto* check = app.add_subcommand(
        "check",
        "What a save would change in each file (section, key, old and new value, keys added),\n"
        "without writing. Exit 0 when nothing would change, 1 when something would");
    check->add_flag("--json", *checkJson, "JSON output");
    check->callback([checkJson, &ctx] { Guarded(ctx, [&] { Check(*checkJson, ctx); }); });

    auto resaveForce = std::make_shared<bool>(false);
    auto* resave = app.add_subcommand(
        "resave",
        "Read every setting and write them all back, exactly as Save does after a change:\n"
        "the backup first (WZELKO.BAK), then every group's keys in order. The backup and both\n"
        "files are replaced together or not at all");
    resave->add_flag("--force", *resaveForce,
                     "Replace the files even when they are read-only (they stay read-only)");
    resave->callback([resaveForce, &ctx] { Guarded(ctx, [&] { Resave(*resaveForce, ctx); }); });
}

}  // namespace wk::cli
