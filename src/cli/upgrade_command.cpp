// `wkestel upgrade`: the UPGRADE merge of the window, for installers and service scripts.
// It carries the saved values into the fresh files by the same rules and says, pass by
// pass, what it carried and what it left and why.

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/commands.h"
#include "cli/force_option.h"
#include "cli/windows_directory_check.h"
#include "upgrade/upgrade_settings.h"

namespace wk::cli {
namespace {

// Headless there is no window to hide: the status line goes to the error stream, so that
// the report on the output stream stays clean for scripts.
class StreamProgress : public UpgradeProgress {
public:
    explicit StreamProgress(std::ostream& err) : err_(err) {}
    void Prepare(const std::string& statusText) override { err_ << statusText << '\n'; }
    void Finish() override { err_.flush(); }

private:
    std::ostream& err_;
};

const char* Why(const UpgradeKeyEntry& entry) {
    switch (entry.fate) {
        case UpgradeKeyFate::KeptAsInstalled:
            return "kept as installed";
        case UpgradeKeyFate::MethodNotCtrl:
            return "kept as installed, the saved method is not CTRL";
        case UpgradeKeyFate::NotInSavedFile:
            return "not in the saved file";
        case UpgradeKeyFate::SavedValueNone:
            return "the saved value is NONE";
        case UpgradeKeyFate::Carried:
            break;
    }
    return "";
}

void PrintPass(const UpgradePassReport& pass, CliContext& ctx) {
    ctx.out << "Pass " << pass.number << ": " << pass.savedFile << " into " << pass.freshFile
            << '\n';
    switch (pass.status) {
        case UpgradePassStatus::NoSavedFile:
            ctx.out << "  skipped: no saved file\n";
            return;
        case UpgradePassStatus::NotReached:
            ctx.out << "  not run: the upgrade ended in an earlier pass\n";
            return;
        default:
            break;
    }
    for (const UpgradeKeyEntry& entry : pass.keys) {
        ctx.out << "  ";
        if (entry.fate == UpgradeKeyFate::Carried) {
            ctx.out << "carried [" << entry.section << "] " << entry.key << "=" << entry.savedValue;
            if (entry.installedValue == entry.savedValue) {
                ctx.out << "  (unchanged)\n";
            } else {
                ctx.out << "  (was " << entry.installedValue << ")\n";
            }
        } else {
            ctx.out << "left    [" << entry.section << "] " << entry.key << ": " << Why(entry);
            if (!entry.savedValue.empty() && entry.fate == UpgradeKeyFate::MethodNotCtrl)
                ctx.out << " (saved " << entry.savedValue << ")";
            ctx.out << '\n';
        }
    }
    switch (pass.status) {
        case UpgradePassStatus::Merged:
            break;
        case UpgradePassStatus::WriteFailed:
            ctx.out << "  nothing written: " << pass.problem << '\n';
            ctx.err << "wkestel: " << pass.freshFile << " was not changed: " << pass.problem
                    << '\n';
            break;
        default:
            ctx.out << "  ended: " << pass.problem << '\n';
            ctx.err << "wkestel: " << pass.problem << '\n';
            break;
    }
}

}  // namespace

void AddUpgradeCommand(CLI::App& app, CliContext& ctx) {
    auto* upgrade = app.add_subcommand(
        "upgrade",
        "Carry the previous settings from WZELKO.SAV and WZELKO32INI.SAVE into freshly\n"
        "installed WZELKO.INI and WZELKO32.INI, as the editor started with UPGRADE does.\n"
        "Directories, simulation switches, hardware presence, controller type and the\n"
        "compensation method keep their installed values.");
    auto force = std::make_shared<bool>(false);
    upgrade->add_flag("--force", *force,
                      "Replace the fresh files even when they are read-only (they stay so)");
    upgrade->callback([force, &ctx] {
        if (!CheckWindowsDirectory(ctx)) return;
        StreamProgress progress(ctx.err);
        const UpgradeReport report = [&] {
            const ForceScope forced(*force);
            return UpgradeSettingsFiles(progress);
        }();
        for (const UpgradePassReport& pass : report.passes) PrintPass(pass, ctx);
        ctx.exitCode = report.Succeeded() ? 0 : 1;
    });
}

}  // namespace wk::cli
