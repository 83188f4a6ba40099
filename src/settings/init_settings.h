#pragma once
// Start-up options: what the measuring application does by itself when it starts and when a
// part program runs.

#include <array>
#include <cstdint>
#include <string>

#include "settings/init_schema.h"
#include "settings/system_settings.h"

namespace wk {

class InitSettings : public SystemSettings {
public:
    explicit InitSettings(const ControllerFlags& controllerFlags);

    // Each field starts with its key's default (init_schema.h). "AUTOLOAD" and
    // "NO_INTERACTIVE" are each used twice, in different sections and with different
    // meanings; the fields say which.
    bool AutoPower = kAutoPower.Default;
    bool AutoInit = kAutoInit.Default;
    bool AutoLoad = kAutoLoad.Default;  // "AUTOLOAD" in "Wzelko": load a part program at start
    bool AutoExec = kAutoExec.Default;
    std::uint32_t ExitCode = kExitCode.Default;  // list position 0-2
    bool AutoPh9 = kAutoPh9.Default;
    bool AutoHome = kAutoHome.Default;
    bool Ph9First = kPh9First.Default;
    bool NoInteractiveInit = kNoInteractiveInit.Default;  // "NO_INTERACTIVE" in "INIT"
    std::string RunPProg = kRunPProg.Default;
    std::string ExtProcFileName = kExtProcFileName.Default;
    std::string NilFileName = kNilFileName.Default;
    bool NoInteractiveExec = kNoInteractiveExec.Default;  // "NO_INTERACTIVE" in "EXEC"
    bool PartProgramWindowOnRun = kPartProgramWindowOnRun.Default;
    // "AUTOLOAD" in "SYSTEMPARAM": system files to load
    std::uint32_t AutoLoadCode = kAutoLoadCode.Default;
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
