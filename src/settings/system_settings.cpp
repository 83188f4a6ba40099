#include "settings/system_settings.h"

#include <cstdio>
#include <cstring>

#include "platform/text_to_number.h"
#include "settings/key_profile_helpers.h"
#include "settings/system_schema.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf") follow LC_NUMERIC, which the programs keep at "C".

namespace wk {

namespace {

// The system parameters' file-name rule: "NONE" in any case keeps the name, any other text (an
// empty one included) is the name in upper case.
void ReadNameKeepingOnNone(const WzelkoKey<const char*>& key, char* buffer, std::string& name) {
    ReadProfileText(key, buffer, 80);
    if (!EqualsIgnoringAsciiCase(buffer, "NONE")) name = ToUpperAscii(buffer);
}

}  // namespace

SystemSettings::SystemSettings(const ControllerFlags& controllerFlags)
    : MachineSettings(controllerFlags) {}

std::string SystemSettings::DiameterToText(double mm) const {
    const double value = IsMetric() ? mm : mm * 0.03937007874015748;
    char text[64];
    std::snprintf(text, sizeof text, "%lf", value);
    return text;
}

double SystemSettings::TextToDiameter(const std::string& text) const {
    const double value = StrToFloat(text);
    return IsMetric() ? value : value * 25.4;
}

bool SystemSettings::Read() {
    MachineSettings::Read();

    ReadProfileText(kLanguageCode, ScratchText, 20);
    LanguageCode = EqualsIgnoringAsciiCase(ScratchText, "NONE") ? std::string("ENG")
                                                                : ToUpperAscii(ScratchText);
    FenWire = ReadProfileBool(kFenWire);
    Tp200 = ReadProfileBool(kTp200);
    ReadProfileDouble(kDiaSferaCal, ScratchText, 20, DiaSferaCal);
    ReadNameKeepingOnNone(kQualiFileName, ScratchText, QualiFileName);
    ReadNameKeepingOnNone(kRefSysFileName, ScratchText, RefSysFileName);
    ReadNameKeepingOnNone(kMemoryFileName, ScratchText, MemoryFileName);
    AutoSave = ReadProfileInt(kAutoSave, static_cast<std::int32_t>(AutoSave));
    if (AutoSave > 7) AutoSave = 0;  // unsigned: a negative number is out of range too

    ReadProfileText(kTruePosErrDiameter, ScratchText, 80);
    TruePosErrDiameter = EqualsIgnoringAsciiCase(ToUpperAscii(ScratchText).c_str(), "DIAMETER");
    DoubleFormErr = ReadProfileBool(kDoubleFormErr);
    DosPpCompatibility = ReadProfileBool(kDosPpCompatibility);
    ReadProfileText(kLine3dCompens, ScratchText, 80);
    if (EqualsIgnoringAsciiCase(ScratchText, "USING SELPL")) {
        Line3dCompens = 0;
    } else if (EqualsIgnoringAsciiCase(ScratchText, "SHOULD MODE")) {
        Line3dCompens = 1;
    }
    ReadProfileDouble(kThresholdAngMiddleRel, ScratchText, 20, ThresholdAngMiddleRel);
    // Unlike every other flag of the group this one is "1"/"0", not "TRUE"/"FALSE".
    PrintAtEndExec = ReadProfileBool(kPrintAtEndExec, "1");
    SelfAccelerators = ReadProfileBool(kSelfAccelerators);
    UseLastMemories = ReadProfileBool(kUseLastMemories);
    ReadProfileText(kLinearityErrDiameter, ScratchText, 80);
    LinearityErrDiameter = EqualsIgnoringAsciiCase(ToUpperAscii(ScratchText).c_str(), "DIAMETER");
    ForceRef0 = ReadProfileBool(kForceRef0);
    GeoTolUseFormat = ReadProfileBool(kGeoTolUseFormat);
    GeoTolElementCreation = ReadProfileBool(kGeoTolElementCreation);
    WaitAtEndExecution = ReadProfileBool(kWaitAtEndExecution);
    ImmediateDataInputWindow = ReadProfileBool(kImmediateDataInputWindow);
    QuickAlignments = ReadProfileBool(kQuickAlignments);
    ReadNameKeepingOnNone(kGraphPrinter, ScratchText, GraphPrinter);
    return true;
}

bool SystemSettings::Write() {
    MachineSettings::Write();

    WriteProfileString(kLanguageCode, LanguageCode);
    WriteProfileBool(kFenWire, FenWire);
    WriteProfileBool(kTp200, Tp200);
    WriteProfileDouble(kDiaSferaCal, DiaSferaCal, ScratchText);
    WriteProfileString(kQualiFileName, QualiFileName);
    WriteProfileString(kRefSysFileName, RefSysFileName);
    WriteProfileString(kMemoryFileName, MemoryFileName);
    WriteProfileUInt(kAutoSave, AutoSave);
    WriteProfileBool(kDosPpCompatibility, DosPpCompatibility);
    std::strcpy(ScratchText, TruePosErrDiameter ? "DIAMETER" : "RADIUS");
    WriteProfileText(kTruePosErrDiameter, ScratchText);
    WriteProfileBool(kDoubleFormErr, DoubleFormErr);
    // A mode other than 0 and 1 sets no text: the scratch text still holds the "DIAMETER"
    // or "RADIUS" just written, and that is what goes to the file, as it always has.
    if (Line3dCompens == 0) std::strcpy(ScratchText, "USING SELPL");
    if (Line3dCompens == 1) std::strcpy(ScratchText, "SHOULD MODE");
    WriteProfileText(kLine3dCompens, ScratchText);
    WriteProfileDouble(kThresholdAngMiddleRel, ThresholdAngMiddleRel, ScratchText);
    WriteProfileUInt(kPrintAtEndExec, PrintAtEndExec ? 1u : 0u);
    WriteProfileBool(kSelfAccelerators, SelfAccelerators);
    WriteProfileBool(kUseLastMemories, UseLastMemories);
    WriteProfileText(kLinearityErrDiameter, LinearityErrDiameter ? "DIAMETER" : "RADIUS");
    WriteProfileBool(kForceRef0, ForceRef0);
    WriteProfileBool(kGeoTolUseFormat, GeoTolUseFormat);
    WriteProfileBool(kGeoTolElementCreation, GeoTolElementCreation);
    WriteProfileBool(kWaitAtEndExecution, WaitAtEndExecution);
    WriteProfileBool(kImmediateDataInputWindow, ImmediateDataInputWindow);
    WriteProfileBool(kQuickAlignments, QuickAlignments);
    WriteProfileString(kGraphPrinter, GraphPrinter);
    return true;
}

}  // namespace wk
