// The command line's own help: what a user reads before running anything.

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli_runner.h"
#include "cli_test_support.h"

namespace wk::test {
namespace {

// Every command with the words that select it ({"profile", "get"}), depth first.
std::vector<std::vector<std::string>> AllCommandPaths() {
    std::ostringstream out, err;
    cli::CliContext ctx{out, err};
    const auto app = cli::MakeWkestelApp(ctx);
    std::vector<std::vector<std::string>> paths;
    std::function<void(const CLI::App&, std::vector<std::string>)> walk =
        [&](const CLI::App& command, std::vector<std::string> path) {
            if (!path.empty()) paths.push_back(path);
            for (const CLI::App* sub :
                 command.get_subcommands([](const CLI::App*) { return true; })) {
                auto next = path;
                next.push_back(sub->get_name());
                walk(*sub, next);
            }
        };
    walk(*app, {});
    return paths;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

TEST(CliVersion, PrintsTheProgramNameAndTheFourPartVersionOfTheBuild) {
    auto r = RunCli({"--version"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, std::string("wkestel ") + WKESTEL_EXPECTED_VERSION + "\n");
    EXPECT_EQ(r.err, "");
}

TEST(CliHelp, ReachesEveryCommandOfTheProgram) {
    const auto paths = AllCommandPaths();
    std::vector<std::string> names;
    for (const auto& path : paths) names.push_back(Joined(path));
    EXPECT_EQ(names, (std::vector<std::string>{"profile", "profile get", "profile keys",
                                               "profile sections", "profile int", "profile set",
                                               "profile delete", "show", "check", "resave", "diff",
                                               "restore", "strings", "upgrade"}));
}

TEST(CliHelp, UsageLineOfEveryCommandNamesTheProgramAndTheCommand) {
    auto top = RunCli({"--help"});
    EXPECT_EQ(top.exitCode, 0);
    EXPECT_NE(top.out.find("Usage: wkestel [OPTIONS] COMMAND\n"), std::string::npos) << top.out;
    for (auto path : AllCommandPaths()) {
        const std::string name = Joined(path);
        path.push_back("--help");
        auto r = RunCli(path);
        EXPECT_EQ(r.exitCode, 0) << name;
        EXPECT_NE(r.out.find("Usage: wkestel " + name + " "), std::string::npos) << r.out;
    }
}

TEST(CliHelp, EveryCommandAndEveryArgumentHasADescription) {
    std::ostringstream out, err;
    cli::CliContext ctx{out, err};
    const auto app = cli::MakeWkestelApp(ctx);
    std::function<void(const CLI::App&)> check = [&](const CLI::App& command) {
        if (command.get_parent() != nullptr) {
            EXPECT_FALSE(command.get_description().empty()) << command.get_name();
        }
        for (const CLI::Option* option : command.get_options()) {
            EXPECT_FALSE(option->get_description().empty())
                << command.get_name() << " " << option->get_name();
        }
        for (const CLI::App* sub : command.get_subcommands([](const CLI::App*) { return true; }))
            check(*sub);
    };
    check(*app);
}

TEST(CliHelp, ArgumentsAreListedWithTheirDescriptions) {
    auto r = RunCli({"profile", "set", "--help"});
    EXPECT_NE(
        r.out.find("SECTION TEXT REQUIRED       Section name, matched without regard to case"),
        std::string::npos)
        << r.out;
    EXPECT_NE(r.out.find("VALUE TEXT REQUIRED         Value, written as given"), std::string::npos)
        << r.out;
}

TEST(CliHelp, SpeaksOfTheWinePrefixWhereTheProgramRunsBesideWine) {
    auto r = RunCli({"--help"});
    EXPECT_NE(r.out.find("Windows directory of a Wine prefix"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("--prefix DIR"), std::string::npos) << r.out;
}

TEST(CliErrors, AnUnknownCommandIsNamedWithTheCommandsThereAre) {
    auto r = RunCli({"shwo"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err,
              "wkestel: unknown command 'shwo' (the commands are profile, show, check, resave, "
              "diff, restore, strings, upgrade)\nRun 'wkestel --help' for more information.\n");
}

TEST(CliErrors, AnUnknownCommandOfAGroupIsNamedWithTheGroup) {
    auto r = RunCli({"--prefix", "/nonexistent", "profile", "gte", "WZELKO.INI", "S", "K"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err,
              "wkestel profile: unknown command 'gte' (the commands are get, keys, sections, int, "
              "set, delete)\nRun 'wkestel profile --help' for more information.\n");
}

TEST(CliErrors, AMissingCommandListsTheCommands) {
    auto r = RunCli({});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err,
              "wkestel: a command is required (profile, show, check, resave, diff, restore, "
              "strings, upgrade)\n"
              "Run 'wkestel --help' for more information.\n");
}

TEST(CliErrors, AMissingArgumentNamesTheCommandItBelongsTo) {
    auto r = RunCli({"profile", "get", "WZELKO.INI"});
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err,
              "wkestel profile get: SECTION is required\n"
              "Run 'wkestel profile get --help' for more information.\n");
}

TEST(CliErrors, AnArgumentThatLooksLikeACommandAfterACommandIsItsArgument) {
    // "show" here is a section name, not a second command.
    auto r = RunCli({"--prefix", "/nonexistent", "profile", "get", "X.INI", "show", "K"});
    EXPECT_EQ(r.err.find("unknown command"), std::string::npos) << r.err;
}

}  // namespace
}  // namespace wk::test
