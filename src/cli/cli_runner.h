#pragma once
// Runs `wkestel` with the given arguments, writing to the given streams: main() passes the
// process's own; tests pass string streams.

#include <ostream>
#include <string>
#include <vector>

namespace wk::cli {

// args are the words after the program name. Returns the exit code.
int RunWkestel(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace wk::cli
