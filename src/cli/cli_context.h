#pragma once
// What every command of `wkestel` shares: where its output goes and how it ends.

#include <functional>
#include <ostream>

namespace CLI {
class App;
}

namespace wk::cli {

struct CliContext {
    std::ostream& out;
    std::ostream& err;
    int exitCode = 0;
};

// Each command adds itself to the application; its callback sets ctx.exitCode.
using CommandRegistration = std::function<void(CLI::App&, CliContext&)>;

}  // namespace wk::cli
