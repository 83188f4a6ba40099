#pragma once
// What every command of `wkestel` shares: where its output goes and how it ends.

#include <functional>
#include <istream>
#include <ostream>

namespace CLI {
class App;
}

namespace wk::cli {

struct CliContext {
    std::ostream& out;
    std::ostream& err;
    int exitCode = 0;
    // Where a command that must be confirmed reads the answer, and whether someone is there
    // to give it (standard input is a terminal). Without anyone, such a command does nothing
    // unless its confirmation is given on the command line.
    std::istream* in = nullptr;
    bool interactive = false;
};

// Each command adds itself to the application; its callback sets ctx.exitCode.
using CommandRegistration = std::function<void(CLI::App&, CliContext&)>;

}  // namespace wk::cli
