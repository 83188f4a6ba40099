#include "settings/system_settings.h"

#include <cstdio>
#include <cstring>

#include "platform/text_to_number.h"
#include "settings/profile_helpers.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf") follow LC_NUMERIC, which the programs keep at "C".

namespace wk {

namespace {

void ScanDouble(const char* text, double& value) {
    double scanned = 0.0;
    if (std::sscanf(text, "%lf", &scanned) == 1) value = scanned;
}

// The system parameters' file-name rule: "NONE" in any case keeps the name, any other text (an
// empty one included) is the name in upper case.
void ReadNameKeepingOnNone(const char* key, const char* section, char* buffer, std::string& name) {
    ReadProfileText(key, buffer, 80, section);
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

    ReadProfileText("LANGUAGE", ScratchText, 20, "Wzelko");
    LanguageCode = EqualsIgnoringAsciiCase(ScratchText, "NONE") ? std::string("ENG")
                                                                : ToUpperAscii(ScratchText);
    FenWire = ReadProfileBool("FENWIRE", "TOOL");
    Tp200 = ReadProfileBool("TP200", "MEASUREPARAM");
    ReadProfileText("DIASFERACAL", ScratchText, 20, "SYSTEMPARAM");
    ScanDouble(ScratchText, DiaSferaCal);
    ReadNameKeepingOnNone("QUALIFILENAME", "SYSTEMPARAM", ScratchText, QualiFileName);
    ReadNameKeepingOnNone("REFSYSFILENAME", "SYSTEMPARAM", ScratchText, RefSysFileName);
    ReadNameKeepingOnNone("MEMORYFILENAME", "SYSTEMPARAM", ScratchText, MemoryFileName);
    AutoSave = ReadProfileInt("AUTOSAVE", static_cast<std::int32_t>(AutoSave), "SYSTEMPARAM");
    if (AutoSave > 7) AutoSave = 0;  // unsigned: a negative number is out of range too

    ReadProfileText("TRUEPOSERR", ScratchText, 80, "OTHER");
    TruePosErrDiameter = EqualsIgnoringAsciiCase(ToUpperAscii(ScratchText).c_str(), "DIAMETER");
    DoubleFormErr = ReadProfileBool("DOUBLEFORMERR", "OTHER");
    DosPpCompatibility = ReadProfileBool("ZELKO DOS PP COMPATIBILITY", "SYSTEMPARAM");
    ReadProfileText("3D LINE COMPENS", ScratchText, 80, "SYSTEMPARAM");
    if (EqualsIgnoringAsciiCase(ScratchText, "USING SELPL")) {
        Line3dCompens = 0;
    } else if (EqualsIgnoringAsciiCase(ScratchText, "SHOULD MODE")) {
        Line3dCompens = 1;
    }
    ReadProfileText("THRESHOLD ANG MIDDLE REL", ScratchText, 20, "SYSTEMPARAM");
    ScanDouble(ScratchText, ThresholdAngMiddleRel);
    // Unlike every other flag of the group this one is "1"/"0", not "TRUE"/"FALSE".
    PrintAtEndExec = ReadProfileBool("PRINT AT END EXEC", "EXEC", "1");
    SelfAccelerators = ReadProfileBool("SELF ACCELERATORS", "ELEMENTS MENU");
    UseLastMemories = ReadProfileBool("USE LAST MEMORIES", "MACRO");
    ReadProfileText("LINEARITY ERROR", ScratchText, 80, "OTHER");
    LinearityErrDiameter = EqualsIgnoringAsciiCase(ToUpperAscii(ScratchText).c_str(), "DIAMETER");
    ForceRef0 = ReadProfileBool("FORCE REF0", "SELF TEACHING");
    GeoTolUseFormat = ReadProfileBool("USE FORMAT", "GEO TOLERANCE");
    GeoTolElementCreation = ReadProfileBool("GEO TOL ELEMENT CREATION", "MACRO");
    WaitAtEndExecution = ReadProfileBool("WAIT AT END EXECUTION", "EXEC");
    ImmediateDataInputWindow = ReadProfileBool("IMMEDIATE DATA INPUT WINDOW", "EXEC PROCEDURE");
    QuickAlignments = ReadProfileBool("QUICK ALIGNEMENTS", "OTHER");  // the file's spelling
    ReadNameKeepingOnNone("Printer", "GraphOutput", ScratchText, GraphPrinter);
    return true;
}

bool SystemSettings::Write() {
    MachineSettings::Write();

    WriteProfileString("LANGUAGE", LanguageCode, "Wzelko");
    WriteProfileBool("FENWIRE", FenWire, "TOOL");
    WriteProfileBool("TP200", Tp200, "MEASUREPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%lf", DiaSferaCal);
    WriteProfileText("DIASFERACAL", ScratchText, "SYSTEMPARAM");
    WriteProfileString("QUALIFILENAME", QualiFileName, "SYSTEMPARAM");
    WriteProfileString("REFSYSFILENAME", RefSysFileName, "SYSTEMPARAM");
    WriteProfileString("MEMORYFILENAME", MemoryFileName, "SYSTEMPARAM");
    WriteProfileUInt("AUTOSAVE", AutoSave, "SYSTEMPARAM");
    WriteProfileBool("ZELKO DOS PP COMPATIBILITY", DosPpCompatibility, "SYSTEMPARAM");
    std::strcpy(ScratchText, TruePosErrDiameter ? "DIAMETER" : "RADIUS");
    WriteProfileText("TRUEPOSERR", ScratchText, "OTHER");
    WriteProfileBool("DOUBLEFORMERR", DoubleFormErr, "OTHER");
    // A mode other than 0 and 1 sets no text: the scratch text still holds the "DIAMETER"
    // or "RADIUS" just written, and that is what goes to the file, as it always has.
    if (Line3dCompens == 0) std::strcpy(ScratchText, "USING SELPL");
    if (Line3dCompens == 1) std::strcpy(ScratchText, "SHOULD MODE");
    WriteProfileText("3D LINE COMPENS", ScratchText, "SYSTEMPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%lf", ThresholdAngMiddleRel);
    WriteProfileText("THRESHOLD ANG MIDDLE REL", ScratchText, "SYSTEMPARAM");
    WriteProfileUInt("PRINT AT END EXEC", PrintAtEndExec ? 1u : 0u, "EXEC");
    WriteProfileBool("SELF ACCELERATORS", SelfAccelerators, "ELEMENTS MENU");
    WriteProfileBool("USE LAST MEMORIES", UseLastMemories, "MACRO");
    WriteProfileText("LINEARITY ERROR", LinearityErrDiameter ? "DIAMETER" : "RADIUS", "OTHER");
    WriteProfileBool("FORCE REF0", ForceRef0, "SELF TEACHING");
    WriteProfileBool("USE FORMAT", GeoTolUseFormat, "GEO TOLERANCE");
    WriteProfileBool("GEO TOL ELEMENT CREATION", GeoTolElementCreation, "MACRO");
    WriteProfileBool("WAIT AT END EXECUTION", WaitAtEndExecution, "EXEC");
    WriteProfileBool("IMMEDIATE DATA INPUT WINDOW", ImmediateDataInputWindow, "EXEC PROCEDURE");
    WriteProfileBool("QUICK ALIGNEMENTS", QuickAlignments, "OTHER");
    WriteProfileString("Printer", GraphPrinter, "GraphOutput");
    return true;
}

}  // namespace wk
