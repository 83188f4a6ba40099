// wkestel: the command-line companion of the settings editor.

#include <iostream>
#include <string>
#include <vector>

#include "cli/cli_runner.h"

int main(int argc, char** argv) {
    // Arguments are passed through as bytes: the settings files are in the ANSI code page,
    // and nothing here converts them. The C locale stays "C", so that numbers in the files
    // are formatted and scanned with a point whatever the user's locale.
    std::vector<std::string> args(argv + 1, argv + argc);
    return wk::cli::RunWkestel(args, std::cout, std::cerr);
}
