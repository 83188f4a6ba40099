#pragma once
// The keys of the start-up group (InitSettings). Each constant is named after the field it
// fills; its default is that field's value before the first read.
//
// "AUTOLOAD" and "NO_INTERACTIVE" are each used twice, in different sections and with
// different meanings; the constants say which. The three system-file names, which this group
// reads a second time, are the system parameters' keys (system_schema.h).

#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

inline constexpr WzelkoKey<bool> kAutoPower{"Wzelko", "AUTOPOWER", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kAutoInit{"Wzelko", "AUTOINIT", KeyKind::Bool, false};
// Load a part program at start.
inline constexpr WzelkoKey<bool> kAutoLoad{"Wzelko", "AUTOLOAD", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kAutoExec{"Wzelko", "AUTOEXEC", KeyKind::Bool, false};
// A list position 0-2. The machine level writes 0 here for a manual machine.
inline constexpr WzelkoKey<std::uint32_t> kExitCode{"Wzelko", "EXITCODE", KeyKind::Integer, 1};
inline constexpr WzelkoKey<bool> kAutoPh9{"INIT", "AUTOPH9", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kAutoHome{"INIT", "AUTOHOME", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kPh9First{"INIT", "PHFIRST", KeyKind::Bool, false};
// Quick start of the initialisation.
inline constexpr WzelkoKey<bool> kNoInteractiveInit{"INIT", "NO_INTERACTIVE", KeyKind::Bool, false};
inline constexpr WzelkoKey<const char*> kRunPProg{"EXEC", "RUN_PPROG", KeyKind::Text, ""};
inline constexpr WzelkoKey<const char*> kExtProcFileName{"SYSTEMPARAM", "EXTPROCFILENAME",
                                                         KeyKind::Text, ""};
inline constexpr WzelkoKey<const char*> kNilFileName{"EXEC", "NIL FILE", KeyKind::Text, "NIL.TEC"};
// Quick start of the execution.
inline constexpr WzelkoKey<bool> kNoInteractiveExec{"EXEC", "NO_INTERACTIVE", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kPartProgramWindowOnRun{
    "EXEC", "PART PROGRAM WINDOW ON RUN CONTINUE", KeyKind::Bool, false};
// The system files to load at start: a system-file set code 0-7.
inline constexpr WzelkoKey<std::uint32_t> kAutoLoadCode{"SYSTEMPARAM", "AUTOLOAD", KeyKind::Integer,
                                                        0};

}  // namespace wk
