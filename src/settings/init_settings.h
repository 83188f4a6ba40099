#pragma once
// Start-up options: what the measuring application does by itself when it starts and when a
// part program runs.

#include <array>
#include <cstdint>
#include <string>

#include "settings/system_settings.h"

namespace wk {

class InitSettings : public SystemSettings {
public:
    explicit InitSettings(const ControllerFlags& controllerFlags);

    // "AUTOLOAD" and "NO_INTERACTIVE" are each used twice, in different sections and with
    // different meanings; the fields say which.
    bool AutoPower = false;
    bool AutoInit = false;
    bool AutoLoad = false;  // "AUTOLOAD" in "Wzelko": load a part program at start
    bool AutoExec = false;
    std::uint32_t ExitCode = 1;  // list position 0-2
    bool AutoPh9 = false;
    bool AutoHome = false;
    bool Ph9First = false;
    bool NoInteractiveInit = false;  // "NO_INTERACTIVE" in "INIT"
    std::string RunPProg;
    std::string ExtProcFileName;
    std::string NilFileName = "NIL.TEC";
    bool NoInteractiveExec = false;  // "NO_INTERACTIVE" in "EXEC"
    bool PartProgramWindowOnRun = false;
    std::uint32_t AutoLoadCode = 0;  // "AUTOLOAD" in "SYSTEMPARAM": system files to load
    // The group's own copies of the auto-load tables (the same as the auto-save ones).
    std::array<std::uint32_t, 8> AutoLoadPositionToCode = kListPositionToCode;
    std::array<std::uint32_t, 8> AutoLoadCodeToPosition = kCodeToListPosition;

    void SetRunPProg(const std::string& name) { RunPProg = name; }
    void SetExtProcFileName(const std::string& name) { ExtProcFileName = name; }
    void SetNilFileName(const std::string& name) { NilFileName = name; }

    bool Read();
    bool Write();
};

}  // namespace wk
