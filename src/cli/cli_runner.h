#pragma once
// Runs `wkestel` with the given arguments, writing to the given streams: main() passes the
// process's own; tests pass string streams.

#include <istream>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "cli/cli_context.h"

namespace wk::cli {

// "wkestel 1.0.0.0": the program's name and the four-part version the build stamps.
std::string VersionText();

// The whole command line of `wkestel`, every command and argument with its help; the
// commands run on `ctx` once parsed. For RunWkestel, and for tests that walk the commands.
std::unique_ptr<CLI::App> MakeWkestelApp(CliContext& ctx);

// args are the words after the program name. Returns the exit code: 0 for success, 1 for a
// failure of the command, 2 for a command line that cannot be parsed. Nobody answers
// questions: a command that asks for confirmation does nothing without --yes.
int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// The same, with questions answered from `in` when `interactive` (a person at a terminal).
int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               std::istream& in, bool interactive);

}  // namespace wk::cli
