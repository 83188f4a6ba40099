// `wkestel restore`: the settings files put back from their backups, after showing what that
// changes and asking.

#include <CLI/CLI.hpp>
#include <istream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/comparison_output.h"
#include "cli/force_option.h"
#include "settings/backup_restore.h"

namespace wk::cli {
namespace {

constexpr int kNotRestored = 1;

struct RestoreArgs {
    bool yes = false;
    bool force = false;
};

// Asks on the terminal; anything but "y" or "yes" (any case) is no.
bool Confirmed(CliContext& ctx) {
    ctx.out << "Put these files back from their backups? [y/N] " << std::flush;
    std::string answer;
    if (ctx.in == nullptr || !std::getline(*ctx.in, answer)) return false;
    while (!answer.empty() && (answer.back() == '\r' || answer.back() == ' ')) answer.pop_back();
    return answer == "y" || answer == "Y" || answer == "yes" || answer == "YES" || answer == "Yes";
}

void Restore(const RestoreArgs& args, CliContext& ctx) {
    const std::vector<FileComparison> preview =
        ComparisonsWithBackups(BackupDirection::SettingsToBackup, "restore", ctx);
    if (preview.empty()) {
        ctx.exitCode = kNotRestored;
        return;
    }
    ctx.out << "What the restore changes:\n" << ComparisonText(preview);
    if (!args.yes) {
        if (!ctx.interactive) {
            ctx.err << "wkestel: not restored: nobody at a terminal to confirm it; give --yes to "
                       "restore without asking\n";
            ctx.exitCode = kNotRestored;
            return;
        }
        if (!Confirmed(ctx)) {
            ctx.out << "Not restored.\n";
            ctx.exitCode = kNotRestored;
            return;
        }
    }
    // Read-only files are replaced only when the user says so, for this one restore.
    const RestoreResult result = [&] {
        const ForceScope forced(args.force);
        return RestoreSettingsBackups();
    }();
    if (!result.Restored) {
        ReportNothingChanged("the backup could not be restored", result.Text(), result.Reason, ctx);
        ctx.exitCode = kNotRestored;
        return;
    }
    for (const std::string& file : result.Files) {
        ctx.out << "Restored " << file << " from its backup; the file it replaced is the backup "
                << "now.\n";
    }
    ctx.out << "Run 'wkestel restore' again to undo.\n";
}

}  // namespace

void AddRestoreCommand(CLI::App& app, CliContext& ctx) {
    auto args = std::make_shared<RestoreArgs>();
    auto* restore = app.add_subcommand(
        "restore",
        "Put the settings files back from their backups: WZELKO.INI from WZELKO.BAK (and\n"
        "WZELKO32.INI from WZELKO32.BAK when that backup exists), without the byte 0xFF the\n"
        "backup's copy appends. The files as they are become the new backups, so a second\n"
        "restore undoes the first. Shows what changes (as 'wkestel diff' does, from the files\n"
        "to the backups) and asks first; all files are replaced or none.\n"
        "Exit 0 when restored, 1 when not (no backup, not confirmed, or a file that cannot be\n"
        "replaced: the message says which and why)");
    restore->add_flag("--yes,-y", args->yes,
                      "Restore without asking (for scripts: without a terminal, restore asks "
                      "nobody and does nothing unless this is given)");
    restore->add_flag("--force", args->force,
                      "Replace settings files and backups that are read-only too");
    restore->callback([args, &ctx] { Restore(*args, ctx); });
}

}  // namespace wk::cli
