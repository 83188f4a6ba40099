#pragma once
// The words of `wkestel --help` that depend on where the program runs: on Windows the
// settings files are in the Windows directory; elsewhere in the Windows directory of the Wine
// prefix in which the measuring application is installed.

namespace wk::cli {

inline constexpr char kProgramName[] = "wkestel";

#ifdef _WIN32

inline constexpr char kProgramDescription[] =
    "wkestel: the measuring application's settings files from the command line.\n"
    "Reads and writes WZELKO.INI and WZELKO32.INI in the Windows directory exactly as the\n"
    "Windows private-profile functions do.";

inline constexpr char kFileHelp[] =
    "INI file: a bare name (WZELKO.INI) in the Windows directory, or a path";

#else

inline constexpr char kProgramDescription[] =
    "wkestel: the measuring application's settings files from the command line.\n"
    "Reads and writes WZELKO.INI and WZELKO32.INI in the Windows directory of a Wine prefix\n"
    "($WINEPREFIX/drive_c/windows) exactly as the Windows private-profile functions do.";

inline constexpr char kFileHelp[] =
    "INI file: a bare name (WZELKO.INI) in the Windows directory of the Wine prefix, or a path";

#endif

}  // namespace wk::cli
