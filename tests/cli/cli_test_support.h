#pragma once
// Runs `wkestel` in-process with captured output.

#include <string>
#include <vector>

namespace wk::test {

struct CliResult {
    int exitCode = 0;
    std::string out;
    std::string err;
};

CliResult RunCli(const std::vector<std::string>& args);

// With `input` as standard input; `interactive` as if it were a terminal.
CliResult RunCliWithInput(const std::vector<std::string>& args, const std::string& input,
                          bool interactive);

}  // namespace wk::test
