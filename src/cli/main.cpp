// wkestel: the command-line companion of the settings editor.

#include <cstdio>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

#include "cli/cli_runner.h"

int main(int argc, char** argv) {
#ifdef _WIN32
    // Values are printed byte for byte, as the files hold them: a text-mode stream would add a
    // CR before every LF, also before one inside a value, and a script reading the output
    // would see other bytes than the measuring application's own calls get.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#endif
    // Arguments are passed through as bytes: the settings files are in the ANSI code page,
    // and nothing here converts them (on Windows the arguments arrive in the ANSI code page,
    // as the measuring application's A functions take them). The C locale stays "C", so that
    // numbers in the files are formatted and scanned with a point whatever the user's locale.
    std::vector<std::string> args(argv + 1, argv + argc);
    // A question (restore's confirmation) is asked only of a person at a terminal; a script's
    // input is never taken for an answer.
#ifdef _WIN32
    const bool interactive = _isatty(_fileno(stdin)) != 0;
#else
    const bool interactive = isatty(fileno(stdin)) != 0;
#endif
    return wk::cli::RunWkestel(args, std::cout, std::cerr, std::cin, interactive);
}
