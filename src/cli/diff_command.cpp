// `wkestel diff`: two settings files compared key by key, by default each settings file with
// its backup, that is what the last save changed.

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/comparison_output.h"
#include "cli/help_texts.h"
#include "cli/windows_directory_check.h"
#include "platform/dos_paths.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/windows_directory.h"
#include "settings/backup_pairs.h"

namespace wk::cli {
namespace {

constexpr int kDifferent = 1;
constexpr int kFailure = 2;

struct DiffArgs {
    std::string oldFile;
    std::string newFile;
    bool json = false;
};

// A file named as the profile functions name one: a bare name in the Windows directory
// (whatever its case there), a drive path through the prefix, any other path as it is.
std::string HostPathOfArgument(const std::string& name) {
    if (name.find_first_of("\\/") == std::string::npos) {
        const auto directory = platform::PathFromAnsi(platform::WindowsDirectoryHostPath());
        if (auto entry = platform::FindEntryIgnoringCase(directory, name)) {
            return platform::PathToAnsi(*entry);
        }
        return platform::PathToAnsi(directory / platform::PathFromAnsi(name));
    }
    return platform::ToHostPath(name);
}

void Diff(const DiffArgs& args, CliContext& ctx) {
    std::vector<FileComparison> comparisons;
    if (args.oldFile.empty()) {
        comparisons =
            ComparisonsWithBackups(BackupDirection::BackupToSettings, "compare with", ctx);
        if (comparisons.empty()) {
            ctx.exitCode = kFailure;
            return;
        }
    } else {
        for (const std::string* name : {&args.oldFile, &args.newFile}) {
            if (!CheckWindowsDirectoryFor(*name, ctx)) {
                ctx.exitCode = kFailure;
                return;
            }
        }
        comparisons.push_back(CompareSettingsFiles(args.oldFile, HostPathOfArgument(args.oldFile),
                                                   args.newFile, HostPathOfArgument(args.newFile)));
    }
    for (const FileComparison& comparison : comparisons) {
        if (!comparison.Error.empty()) {
            ctx.err << "wkestel: cannot read " << comparison.Error << '\n';
            ctx.exitCode = kFailure;
            return;
        }
    }
    if (args.json) {
        ctx.out << ComparisonsJson(comparisons).dump(2) << '\n';
    } else {
        ctx.out << ComparisonText(comparisons);
    }
    ctx.exitCode = AnyDifference(comparisons) ? kDifferent : 0;
}

}  // namespace

void AddDiffCommand(CLI::App& app, CliContext& ctx) {
    auto args = std::make_shared<DiffArgs>();
    auto* diff = app.add_subcommand(
        "diff",
        "Compare two settings files key by key (by section and key, without regard to case,\n"
        "values as the measuring application reads them; comments, blank lines and spacing\n"
        "do not count). Without files: each settings file with its backup (WZELKO.BAK ->\n"
        "WZELKO.INI, and WZELKO32.BAK -> WZELKO32.INI when that backup exists), that is what\n"
        "the last save changed; a .BAK file is read without the byte 0xFF its copy appends.\n"
        "Exit 0 when the files are equal, 1 when they differ, 2 when a file cannot be read or\n"
        "there is no backup");
    diff->add_option("OLD_FILE", args->oldFile, std::string("The file compared from; ") + kFileHelp)
        ->type_name("FILE");
    diff->add_option("NEW_FILE", args->newFile,
                     std::string("The file compared to (give both or neither); ") + kFileHelp)
        ->type_name("FILE");
    diff->add_flag("--json", args->json,
                   "JSON output: {\"different\", \"comparisons\": [{\"old\", \"new\", "
                   "\"differences\": [{\"section\", \"key\", \"old\", \"new\", \"change\"}]}]}");
    diff->callback([args, &ctx] {
        if (!args->oldFile.empty() && args->newFile.empty()) {
            throw CLI::ValidationError("NEW_FILE", "two files are compared: give NEW_FILE too");
        }
        Diff(*args, ctx);
    });
}

}  // namespace wk::cli
