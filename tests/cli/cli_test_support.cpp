#include "cli_test_support.h"

#include <sstream>

#include "cli/cli_runner.h"

namespace wk::test {

CliResult RunCli(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    CliResult result;
    result.exitCode = cli::RunWkestel(args, out, err);
    result.out = out.str();
    result.err = err.str();
    return result;
}

CliResult RunCliWithInput(const std::vector<std::string>& args, const std::string& input,
                          bool interactive) {
    std::ostringstream out, err;
    std::istringstream in(input);
    CliResult result;
    result.exitCode = cli::RunWkestel(args, out, err, in, interactive);
    result.out = out.str();
    result.err = err.str();
    return result;
}

}  // namespace wk::test
