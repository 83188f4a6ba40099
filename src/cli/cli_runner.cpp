#include "cli/cli_runner.h"

#include <CLI/CLI.hpp>

#include "cli/commands.h"
#include "platform/windows_directory.h"

namespace wk::cli {
namespace {

constexpr int kUsageError = 2;

}  // namespace

int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    CliContext ctx{out, err};

    CLI::App app{
        "wkestel: the measuring application's settings files from the command line.\n"
        "Reads and writes WZELKO.INI and WZELKO32.INI in the Windows directory of a Wine prefix\n"
        "exactly as the Windows private-profile functions do."};
    app.require_subcommand(1);
    app.fallthrough();

    std::string prefix;
    app.add_option("--prefix", prefix,
                   "Wine prefix whose drive_c/windows holds the settings files "
                   "(default: $WINEPREFIX, else ~/.wine)");
    app.parse_complete_callback([&prefix] {
        if (!prefix.empty()) platform::SetWinePrefixOverride(prefix);
    });

    AddProfileCommand(app, ctx);
    AddSettingsCommands(app, ctx);
    AddStringsCommand(app, ctx);
    AddUpgradeCommand(app, ctx);

    // CLI11 parses argv in reverse order of a vector it is given.
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& e) {
        const int code = app.exit(e, out, err);
        return code == 0 ? 0 : kUsageError;
    }
    return ctx.exitCode;
}

}  // namespace wk::cli
