#include "settings/init_settings.h"

#include <cstring>

#include "settings/profile_helpers.h"

namespace wk {

namespace {

// The start-up group's name rule: only "NONE" exactly (case heeded) keeps the name; any
// other text, an empty one included, is the name in upper case.
void ReadNameKeepingOnExactNone(const char* key, const char* section, char* buffer,
                                std::string& name) {
    ReadProfileText(key, buffer, 80, section);
    if (std::strcmp(buffer, "NONE") != 0) name = ToUpperAscii(buffer);
}

}  // namespace

InitSettings::InitSettings(const ControllerFlags& controllerFlags)
    : SystemSettings(controllerFlags) {}

bool InitSettings::Read() {
    SystemSettings::Read();

    AutoPower = ReadProfileBool("AUTOPOWER", "Wzelko");
    AutoInit = ReadProfileBool("AUTOINIT", "Wzelko");
    AutoLoad = ReadProfileBool("AUTOLOAD", "Wzelko");
    AutoExec = ReadProfileBool("AUTOEXEC", "Wzelko");
    ExitCode = ReadProfileInt("EXITCODE", static_cast<std::int32_t>(ExitCode), "Wzelko");
    AutoPh9 = ReadProfileBool("AUTOPH9", "INIT");
    AutoHome = ReadProfileBool("AUTOHOME", "INIT");
    Ph9First = ReadProfileBool("PHFIRST", "INIT");
    NoInteractiveInit = ReadProfileBool("NO_INTERACTIVE", "INIT");
    ReadNameKeepingOnExactNone("RUN_PPROG", "EXEC", ScratchText, RunPProg);
    ReadNameKeepingOnExactNone("NIL FILE", "EXEC", ScratchText, NilFileName);
    NoInteractiveExec = ReadProfileBool("NO_INTERACTIVE", "EXEC");
    PartProgramWindowOnRun = ReadProfileBool("PART PROGRAM WINDOW ON RUN CONTINUE", "EXEC");
    // The three system file names once more, by this group's case-sensitive rule: a "none"
    // in lower case, which the system parameters took for "NONE", becomes the name "NONE"
    // here. This second reading is the one that stands.
    ReadNameKeepingOnExactNone("QUALIFILENAME", "SYSTEMPARAM", ScratchText, QualiFileName);
    ReadNameKeepingOnExactNone("REFSYSFILENAME", "SYSTEMPARAM", ScratchText, RefSysFileName);
    ReadNameKeepingOnExactNone("MEMORYFILENAME", "SYSTEMPARAM", ScratchText, MemoryFileName);
    // No range check here, unlike the auto-save code.
    AutoLoadCode = ReadProfileInt("AUTOLOAD", 0, "SYSTEMPARAM");
    ReadNameKeepingOnExactNone("EXTPROCFILENAME", "SYSTEMPARAM", ScratchText, ExtProcFileName);
    return true;
}

bool InitSettings::Write() {
    SystemSettings::Write();

    WriteProfileBool("AUTOPOWER", AutoPower, "Wzelko");
    WriteProfileBool("AUTOINIT", AutoInit, "Wzelko");
    WriteProfileBool("AUTOLOAD", AutoLoad, "Wzelko");
    WriteProfileBool("AUTOEXEC", AutoExec, "Wzelko");
    WriteProfileUInt("EXITCODE", ExitCode, "Wzelko");
    WriteProfileBool("AUTOPH9", AutoPh9, "INIT");
    WriteProfileBool("AUTOHOME", AutoHome, "INIT");
    WriteProfileBool("PHFIRST", Ph9First, "INIT");
    WriteProfileBool("NO_INTERACTIVE", NoInteractiveInit, "INIT");
    WriteProfileString("RUN_PPROG", RunPProg, "EXEC");
    WriteProfileString("NIL FILE", NilFileName, "EXEC");
    WriteProfileBool("NO_INTERACTIVE", NoInteractiveExec, "EXEC");
    WriteProfileBool("PART PROGRAM WINDOW ON RUN CONTINUE", PartProgramWindowOnRun, "EXEC");
    WriteProfileString("QUALIFILENAME", QualiFileName, "SYSTEMPARAM");
    WriteProfileString("REFSYSFILENAME", RefSysFileName, "SYSTEMPARAM");
    WriteProfileString("MEMORYFILENAME", MemoryFileName, "SYSTEMPARAM");
    WriteProfileUInt("AUTOLOAD", AutoLoadCode, "SYSTEMPARAM");
    WriteProfileString("EXTPROCFILENAME", ExtProcFileName, "SYSTEMPARAM");
    return true;
}

}  // namespace wk
