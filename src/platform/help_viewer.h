#pragma once
// WinHelpA: hands a help file and a topic to the platform's help viewer.
//
// On Windows this is WinHelp itself. Elsewhere the measuring application's help files
// (.hlp) are shown by Wine's help viewer: `wine winhlp32 -n <context> <file>`, the WinHelp
// command-line form for a topic by context number, started detached (no shell, not waited
// for), with the file given as a Wine path on drive Z:, which Wine maps to the host's root.
// When `wine` is not on PATH, or the file does not exist, there is no viewer and the call
// fails.

#include <cstdint>

namespace wk {

// The help command that shows the topic with a context number (HELP_CONTEXT).
inline constexpr unsigned HELP_CONTEXT = 0x1;

// Shows topic `data` of `helpFile` (a host path). Only HELP_CONTEXT is supported away
// from Windows. True when the viewer was started.
bool WinHelpA(const char* helpFile, unsigned command, std::uintptr_t data);

}  // namespace wk
