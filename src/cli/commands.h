#pragma once
// The commands of `wkestel`. Each adds its subcommand (with its own --help) to the app.

#include "cli/cli_context.h"

namespace wk::cli {

void AddProfileCommand(CLI::App& app, CliContext& ctx);
void AddSettingsCommands(CLI::App& app, CliContext& ctx);
void AddDiffCommand(CLI::App& app, CliContext& ctx);
void AddRestoreCommand(CLI::App& app, CliContext& ctx);
void AddStringsCommand(CLI::App& app, CliContext& ctx);
void AddUpgradeCommand(CLI::App& app, CliContext& ctx);

}  // namespace wk::cli
