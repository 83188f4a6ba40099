#include "cli/cli_runner.h"

#include <CLI/CLI.hpp>
#include <sstream>

#include "cli/commands.h"
#include "cli/help_texts.h"
#include "platform/windows_directory.h"

namespace wk::cli {
namespace {

constexpr int kUsageError = 2;

// The names of the commands `app` offers, comma-separated.
std::string CommandNames(const CLI::App& app) {
    std::string names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!names.empty()) names += ", ";
        names += command->get_name();
    }
    return names;
}

bool HasCommands(const CLI::App& app) {
    return !app.get_subcommands([](const CLI::App*) { return true; }).empty();
}

// "wkestel profile get": the command as typed, for messages.
std::string CommandPath(const CLI::App& command) {
    std::string path = command.get_name();
    for (const CLI::App* parent = command.get_parent(); parent; parent = parent->get_parent())
        path = parent->get_name() + " " + path;
    return path;
}

// The innermost command the words selected before parsing stopped.
const CLI::App& SelectedCommand(const CLI::App& app) {
    const CLI::App* command = &app;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    return *command;
}

const CLI::Option* FindOption(const CLI::App& command, const std::string& name) {
    for (const CLI::App* app = &command; app; app = app->get_parent()) {
        if (const CLI::Option* option = app->get_option_no_throw(name)) return option;
    }
    return nullptr;
}

// A word where a command is expected that names none ("wkestel shwo"): CLI11 would only say
// that a command is required, so the words are walked here first. Returns the message, or an
// empty text when every command word is known (or help is asked for, which wins).
std::string UnknownCommandMessage(const CLI::App& app, const std::vector<std::string>& args) {
    const CLI::App* current = &app;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& word = args[i];
        if (word == "--" || word == "-h" || word == "--help") return {};
        if (word.size() > 1 && word[0] == '-') {
            const std::string name = word.substr(0, word.find('='));
            const CLI::Option* option = FindOption(*current, name);
            if (option && option->get_expected_min() > 0 && name == word) ++i;  // its value
            continue;
        }
        if (!HasCommands(*current)) return {};  // the words of a command's own arguments
        const CLI::App* next = nullptr;
        for (const CLI::App* command :
             current->get_subcommands([](const CLI::App*) { return true; })) {
            if (command->check_name(word)) next = command;
        }
        if (!next) {
            return CommandPath(*current) + ": unknown command '" + word + "' (the commands are " +
                   CommandNames(*current) + ")\nRun '" + CommandPath(*current) +
                   " --help' for more information.\n";
        }
        current = next;
    }
    return {};
}

// Help lists the commands under "Commands:", the word every message here uses.
void ListAsCommands(CLI::App& app) {
    for (CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
        command->group("Commands");
        ListAsCommands(*command);
    }
}

}  // namespace

std::string VersionText() {
    return std::string(kProgramName) + " " + std::to_string(WKESTEL_VERSION_MAJOR) + "." +
           std::to_string(WKESTEL_VERSION_MINOR) + "." + std::to_string(WKESTEL_VERSION_PATCH) +
           "." + std::to_string(WKESTEL_VERSION_TWEAK);
}

std::unique_ptr<CLI::App> MakeWkestelApp(CliContext& ctx) {
    auto app = std::make_unique<CLI::App>(kProgramDescription, kProgramName);
    app->require_subcommand(1);
    app->fallthrough();
    app->set_help_flag("-h,--help", "Print this help and exit; every command has its own");
    app->set_version_flag("--version", VersionText(), "Print the program's version and exit");
    app->get_formatter()->label("SUBCOMMAND", "COMMAND");
    app->get_formatter()->label("SUBCOMMANDS", "COMMANDS");

#ifndef _WIN32
    // Windows has one Windows directory and no prefix to choose.
    auto prefix = std::make_shared<std::string>();
    app->add_option("--prefix", *prefix,
                    "Wine prefix whose drive_c/windows holds the settings files "
                    "(default: $WINEPREFIX, else ~/.wine)")
        ->type_name("DIR");
    app->parse_complete_callback([prefix] {
        if (!prefix->empty()) platform::SetWinePrefixOverride(*prefix);
    });
#endif

    AddProfileCommand(*app, ctx);
    AddSettingsCommands(*app, ctx);
    AddDiffCommand(*app, ctx);
    AddRestoreCommand(*app, ctx);
    AddStringsCommand(*app, ctx);
    AddUpgradeCommand(*app, ctx);
    ListAsCommands(*app);
    // After the commands, which would inherit it otherwise.
    app->footer("Run 'wkestel COMMAND --help' for the arguments of a command.");
    return app;
}

int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::istringstream nobody;
    return RunWkestel(args, out, err, nobody, false);
}

int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               std::istream& in, bool interactive) {
    CliContext ctx{out, err};
    ctx.in = &in;
    ctx.interactive = interactive;
    const std::unique_ptr<CLI::App> app = MakeWkestelApp(ctx);

    if (const std::string unknown = UnknownCommandMessage(*app, args); !unknown.empty()) {
        err << unknown;
        return kUsageError;
    }
    // CLI11 parses argv in reverse order of a vector it is given.
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app->parse(reversed);
    } catch (const CLI::CallForHelp& e) {
        return app->exit(e, out, err);
    } catch (const CLI::CallForAllHelp& e) {
        return app->exit(e, out, err);
    } catch (const CLI::CallForVersion&) {
        out << VersionText() << '\n';
        return 0;
    } catch (const CLI::ParseError& e) {
        const CLI::App& command = SelectedCommand(*app);
        const std::string path = CommandPath(command);
        std::string message = e.what();
        if (HasCommands(command) && command.get_subcommands().empty())
            message = "a command is required (" + CommandNames(command) + ")";
        err << path << ": " << message << "\nRun '" << path << " --help' for more information.\n";
        return kUsageError;
    }
    return ctx.exitCode;
}

}  // namespace wk::cli
