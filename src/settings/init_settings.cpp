#include "settings/init_settings.h"

#include <cstring>

#include "settings/init_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/system_schema.h"

namespace wk {

namespace {

// The start-up group's name rule: only "NONE" exactly (case heeded) keeps the name; any
// other text, an empty one included, is the name in upper case.
void ReadNameKeepingOnExactNone(const WzelkoKey<const char*>& key, char* buffer,
                                std::string& name) {
    ReadProfileText(key, buffer, 80);
    if (std::strcmp(buffer, "NONE") != 0) name = ToUpperAscii(buffer);
}

}  // namespace

InitSettings::InitSettings(const ControllerFlags& controllerFlags)
    : SystemSettings(controllerFlags) {}

bool InitSettings::Read() {
    SystemSettings::Read();

    AutoPower = ReadProfileBool(kAutoPower);
    AutoInit = ReadProfileBool(kAutoInit);
    AutoLoad = ReadProfileBool(kAutoLoad);
    AutoExec = ReadProfileBool(kAutoExec);
    ExitCode = ReadProfileInt(kExitCode, static_cast<std::int32_t>(ExitCode));
    AutoPh9 = ReadProfileBool(kAutoPh9);
    AutoHome = ReadProfileBool(kAutoHome);
    Ph9First = ReadProfileBool(kPh9First);
    NoInteractiveInit = ReadProfileBool(kNoInteractiveInit);
    ReadNameKeepingOnExactNone(kRunPProg, ScratchText, RunPProg);
    ReadNameKeepingOnExactNone(kNilFileName, ScratchText, NilFileName);
    NoInteractiveExec = ReadProfileBool(kNoInteractiveExec);
    PartProgramWindowOnRun = ReadProfileBool(kPartProgramWindowOnRun);
    // The three system file names once more, by this group's case-sensitive rule: a "none"
    // in lower case, which the system parameters took for "NONE", becomes the name "NONE"
    // here. This second reading is the one that stands.
    ReadNameKeepingOnExactNone(kQualiFileName, ScratchText, QualiFileName);
    ReadNameKeepingOnExactNone(kRefSysFileName, ScratchText, RefSysFileName);
    ReadNameKeepingOnExactNone(kMemoryFileName, ScratchText, MemoryFileName);
    // No range check here, unlike the auto-save code.
    AutoLoadCode = ReadProfileInt(kAutoLoadCode, static_cast<std::int32_t>(kAutoLoadCode.Default));
    ReadNameKeepingOnExactNone(kExtProcFileName, ScratchText, ExtProcFileName);
    return true;
}

bool InitSettings::Write() {
    SystemSettings::Write();

    WriteProfileBool(kAutoPower, AutoPower);
    WriteProfileBool(kAutoInit, AutoInit);
    WriteProfileBool(kAutoLoad, AutoLoad);
    WriteProfileBool(kAutoExec, AutoExec);
    WriteProfileUInt(kExitCode, ExitCode);
    WriteProfileBool(kAutoPh9, AutoPh9);
    WriteProfileBool(kAutoHome, AutoHome);
    WriteProfileBool(kPh9First, Ph9First);
    WriteProfileBool(kNoInteractiveInit, NoInteractiveInit);
    WriteProfileString(kRunPProg, RunPProg);
    WriteProfileString(kNilFileName, NilFileName);
    WriteProfileBool(kNoInteractiveExec, NoInteractiveExec);
    WriteProfileBool(kPartProgramWindowOnRun, PartProgramWindowOnRun);
    WriteProfileString(kQualiFileName, QualiFileName);
    WriteProfileString(kRefSysFileName, RefSysFileName);
    WriteProfileString(kMemoryFileName, MemoryFileName);
    WriteProfileUInt(kAutoLoadCode, AutoLoadCode);
    WriteProfileString(kExtProcFileName, ExtProcFileName);
    return true;
}

}  // namespace wk
