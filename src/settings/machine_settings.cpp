#include "settings/machine_settings.h"

#include <cstdio>
#include <cstring>

#include "platform/profile.h"
#include "settings/profile_helpers.h"
#include "settings/settings_files.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf", "%1.10lf", "COM%d") follow LC_NUMERIC, which the programs keep
// at "C": they never call setlocale for numbers.

namespace wk {

namespace {

// Method words of WZELKO32.INI by method value + 1 (-1 is "UNK").
constexpr const char* kMethodWords[] = {"UNK", "NONE", "QEN", "KV", "RHO", "CTRL", "MELDAX"};

constexpr std::uint32_t kSpeeds[] = {150, 300, 600, 1200, 2400, 4800, 9600, 19200};

std::int32_t ProfileInt(const char* section, const char* key, std::int32_t defaultValue,
                        const char* fileName) {
    return static_cast<std::int32_t>(GetPrivateProfileIntA(section, key, defaultValue, fileName));
}

void WriteProfileDecimal(const char* section, const char* key, std::int32_t value,
                         const char* fileName) {
    char text[20];
    std::snprintf(text, sizeof text, "%d", value);
    WriteProfileKey(section, key, text, fileName);
}

// "%lf" of a text; a text that does not scan leaves the value as it is.
void ScanDouble(const char* text, double& value) {
    double scanned = 0.0;
    if (std::sscanf(text, "%lf", &scanned) == 1) value = scanned;
}

// The number of "COMn" (1 when the name does not scan). "COM%d" heeds case.
int ComNumber(const char* name) {
    int number = 1;
    if (std::sscanf(name, "COM%d", &number) != 1) number = 1;
    return number;
}

}  // namespace

MachineSettings::MachineSettings(const ControllerFlags& controllerFlags)
    : controllerAcceptsTcpip_(controllerFlags.AcceptsTcpip()) {}

void MachineSettings::ReadVolcompMethod() {
    char word[10];
    GetPrivateProfileStringA("COMPENS", "METHOD", "UNK", word, sizeof word, kWzelko32Ini);
    VolcompMethod = -1;
    for (int value = -1; value <= 5; ++value) {
        if (std::strcmp(word, kMethodWords[value + 1]) == 0) VolcompMethod = value;
    }
    GetPrivateProfileStringA("COMPENS", "METHOD", "NONE", word, sizeof word, kWzelkoIni);
    if (std::strcmp(word, "QEN") == 0) {
        LegacyMethod = 1;
    } else if (std::strcmp(word, "KV") == 0) {
        LegacyMethod = 2;
    } else {
        LegacyMethod = 1;
    }
    // No method in WZELKO32.INI: the older file's QEN or KV choice stands.
    if (VolcompMethod < 0) VolcompMethod = LegacyMethod;
}

void MachineSettings::WriteVolcompMethod() {
    const bool known = VolcompMethod >= 0 && VolcompMethod <= 5;
    WriteProfileKey("COMPENS", "METHOD", known ? kMethodWords[VolcompMethod + 1] : "UNK",
                    kWzelko32Ini);
    if (VolcompMethod == 1 || VolcompMethod == 2) LegacyMethod = VolcompMethod;
    // The older file knows only the two brands: it always names one of them.
    WriteProfileKey("COMPENS", "METHOD", LegacyMethod == 2 ? "KV" : "QEN", kWzelkoIni);
}

bool MachineSettings::Read() {
    ColourSettings::Read();
    ReadVolcompMethod();

    CompensMode = ProfileInt("COMPENS", "COMPENS MODE", 1, kWzelkoIni);
    CtrVolcompOnExit = ProfileInt("CONTROLLER", "CTR VOLCOMP ON EXIT", 2, kWzelkoIni);
    CompensActive = ProfileInt("COMPENS", "ACTIVE", 0, kWzelko32Ini) == 1;
    ThermalCompens = ProfileInt("Compens", "Thermal", 0, kWzelko32Ini) != 0;
    ToolChanger = ReadProfileBool("TOOL CHANGER", "MACHINEPARAM");

    // "NONE" stands for the built-in name, which the next write stores in its place; any
    // other text, an empty one included, is the name.
    ReadProfileText("COSDAT FNAME", ScratchText, 80, "MACHINEPARAM");
    if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) CosDatFileName = ToUpperAscii(ScratchText);
    ReadProfileText("COMPENS FILE NAME", ScratchText, 80, "COMPENS");
    if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) CompensFileName = ToUpperAscii(ScratchText);

    ReadProfileText("DIST APPROACH", ScratchText, 20, "MACHINEPARAM");
    ScanDouble(ScratchText, DistApproach);
    ReadProfileText("XTERM", ScratchText, 20, "MACHINEPARAM");
    ScanDouble(ScratchText, XTerm);
    ReadProfileText("YTERM", ScratchText, 20, "MACHINEPARAM");
    ScanDouble(ScratchText, YTerm);
    ReadProfileText("ZTERM", ScratchText, 20, "MACHINEPARAM");
    ScanDouble(ScratchText, ZTerm);
    ReadProfileText("PARTTERM", ScratchText, 20, "MACHINEPARAM");
    ScanDouble(ScratchText, PartTerm);
    ReadProfileText("OPTSPEED", ScratchText, 20, "MACHINEPARAM");
    OptSpeedSet = ScratchText[0] != '\0';
    ScanDouble(ScratchText, OptSpeed);
    ReadProfileText("DEPTH", ScratchText, 20, "MACHINEPARAM");
    DepthSet = ScratchText[0] != '\0';
    ScanDouble(ScratchText, Depth);

    Jx01Simulation = ReadProfileBool("JX01 SIMULATION", "MEAS_WINDOW");
    Jx01Delay = ReadProfileInt("JX01 DELAY", 10, "MEAS_WINDOW");
    CmmSimulation = ReadProfileBool("SIMULATION", "CMM");
    Cnc = ReadProfileBool("CNC", "CMM");

    // The port name is the text up to the first colon. COM9 and above, and names that do
    // not scan, are COM1.
    char cmmPortName[20] = "";
    ReadProfileText("PORT", ScratchText, 20, "CMM");
    std::sscanf(ScratchText, "%19[^:]", cmmPortName);  // "%[^:]"; the text is at most 19 long
    const int cmmPortNumber = ComNumber(cmmPortName);
    PortIndex = (cmmPortNumber >= 1 && cmmPortNumber <= 8) ? cmmPortNumber - 1 : 0;

    UseSocket = ProfileInt("CMM", "USESOCKET", 0, kWzelkoIni) != 0;
    char address[20];
    GetPrivateProfileStringA("CMM", "TCPIP Address", "", address, sizeof address, kWzelkoIni);
    TcpipAddress = address[0] != '\0' ? address : kDefaultTcpipAddress;
    TcpipPort = ProfileInt("CMM", "TCPIP Port", 2001, kWzelkoIni);
    // Only a controller that can be reached over TCP/IP takes the file's socket request.
    if (controllerAcceptsTcpip_ && UseSocket) PortIndex = kTcpipPortIndex;

    ReadProfileText("RESOLUTION", ScratchText, 20, "CMM");
    ScanDouble(ScratchText, Resolution);
    Ph9Simulation = ReadProfileBool("SIMULATION", "Ph9");
    Ph9Present = ReadProfileBool("PH9PRESENT", "Ph9");
    Ph9Type = ProfileInt("PH9", "TYPE", 0, kWzelko32Ini);

    ReadProfileText("PORT", ScratchText, 20, "Ph9");
    if (EqualsIgnoringAsciiCase(ScratchText, "NONE")) {
        // No line given: the head sits on the CMM's port number, with the usual line settings.
        const int number = cmmPortNumber > 8 ? 1 : cmmPortNumber;
        Ph9Serial = (kDefaultPh9Serial & ~kPh9PortMask) |
                    (static_cast<std::uint32_t>(number - 1) & kPh9PortMask);
    } else if (ScratchText[0] != '\0') {
        const std::string line = ToUpperAscii(ScratchText);
        // Fields that the scan does not reach keep the setting held so far.
        char portName[20];
        std::snprintf(portName, sizeof portName, "COM%u", (Ph9Serial & kPh9PortMask) + 1);
        unsigned speed = kSpeeds[(Ph9Serial & kPh9SpeedMask) >> 4 & 0x7];
        char parity = (Ph9Serial & kPh9ParityMask) == kPh9ParityEven ? 'E' : 'N';
        unsigned dataBits = ((Ph9Serial & kPh9DataMask) >> 12) + 5;
        const std::uint32_t stopCode = Ph9Serial & kPh9StopMask;
        float stopBits = stopCode == 0x800 ? 2.0f : stopCode == 0x400 ? 1.5f : 1.0f;
        std::sscanf(line.c_str(), "%19[^:]:%u,%c,%u,%f", portName, &speed, &parity, &dataBits,
                    &stopBits);  // "%[^:]:%u,%c,%u,%f"; the text is at most 19 long

        std::uint32_t serial = 0;
        int number = ComNumber(portName);
        if (number > 8) number = 1;
        serial |= static_cast<std::uint32_t>(number - 1) & kPh9PortMask;
        for (std::uint32_t code = 0; code < 8; ++code) {
            if (speed == kSpeeds[code]) serial |= code << 4;
        }
        // Odd parity written by the page is not taken back on reading: only "E" counts.
        if (parity == 'E' || parity == 'e') serial |= kPh9ParityEven;
        if (dataBits >= 5 && dataBits <= 8) serial |= (dataBits - 5) << 12;
        const double stop = stopBits;
        if (stop == 1.5) serial |= 0x400;
        if (stop == 2.0) serial |= 0x800;
        Ph9Serial = serial;
    }
    return true;
}

std::string MachineSettings::Ph9SerialText(std::uint32_t serial) {
    std::string text;
    char part[20];
    std::snprintf(part, sizeof part, "COM%d:", static_cast<int>(serial & kPh9PortMask) + 1);
    text += part;
    static constexpr const char* kSpeedTexts[] = {"150,",  "300,",  "600,",  "1200,",
                                                  "2400,", "4800,", "9600,", "19200,"};
    const std::uint32_t speedCode = (serial & kPh9SpeedMask) >> 4;
    if (speedCode < 8) text += kSpeedTexts[speedCode];
    switch (serial & kPh9ParityMask) {
        case 0x000:
            text += "N,";
            break;
        case kPh9ParityEven:
            text += "E,";
            break;
        case kPh9ParityOdd:
            text += "O,";
            break;
        default:
            break;
    }
    static constexpr const char* kDataTexts[] = {"5,", "6,", "7,", "8,"};
    const std::uint32_t dataCode = (serial & kPh9DataMask) >> 12;
    if (dataCode < 4) text += kDataTexts[dataCode];
    switch (serial & kPh9StopMask) {
        case 0x000:
            text += "1";
            break;
        case 0x400:
            text += "1.5";
            break;
        case 0x800:
            text += "2";
            break;
        default:
            break;
    }
    return text;
}

bool MachineSettings::Write() {
    ColourSettings::Write();

    WriteProfileBool("JX01 SIMULATION", Jx01Simulation, "MEAS_WINDOW");
    WriteProfileUInt("JX01 DELAY", Jx01Delay, "MEAS_WINDOW");
    WriteProfileDecimal("COMPENS", "COMPENS MODE", CompensMode, kWzelkoIni);
    WriteProfileDecimal("CONTROLLER", "CTR VOLCOMP ON EXIT", CtrVolcompOnExit, kWzelkoIni);
    WriteVolcompMethod();
    WriteProfileKey("COMPENS", "ACTIVE", CompensActive ? "1" : "0", kWzelko32Ini);
    WriteProfileKey("Compens", "Thermal", ThermalCompens ? "1" : "0", kWzelko32Ini);
    WriteProfileBool("TOOL CHANGER", ToolChanger, "MACHINEPARAM");
    WriteProfileString("COSDAT FNAME", CosDatFileName, "MACHINEPARAM");
    WriteProfileString("COMPENS FILE NAME", CompensFileName, "COMPENS");

    std::snprintf(ScratchText, sizeof ScratchText, "%lf", DistApproach);
    WriteProfileText("DIST APPROACH", ScratchText, "MACHINEPARAM");
    // The scale factors get ten decimals, deliberately finer than the lengths.
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", XTerm);
    WriteProfileText("XTERM", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", YTerm);
    WriteProfileText("YTERM", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", ZTerm);
    WriteProfileText("ZTERM", ScratchText, "MACHINEPARAM");
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", PartTerm);
    WriteProfileText("PARTTERM", ScratchText, "MACHINEPARAM");

    // An optimal speed or depth that is not given stays an empty value.
    if (OptSpeedSet) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", OptSpeed);
    } else {
        ScratchText[0] = '\0';
    }
    WriteProfileText("OPTSPEED", ScratchText, "MACHINEPARAM");
    if (DepthSet) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", Depth);
    } else {
        ScratchText[0] = '\0';
    }
    WriteProfileText("DEPTH", ScratchText, "MACHINEPARAM");

    WriteProfileBool("SIMULATION", CmmSimulation, "CMM");
    WriteProfileBool("CNC", Cnc, "CMM");
    if (!Cnc) WriteProfileUInt("EXITCODE", 0, "Wzelko");

    if (PortIndex != kTcpipPortIndex) {
        // A serial connection leaves the TCP/IP keys as they are.
        WriteProfileKey("CMM", "USESOCKET", "0", kWzelkoIni);
        std::snprintf(ScratchText, sizeof ScratchText, "COM%d:", PortIndex + 1);
        WriteProfileText("PORT", ScratchText, "CMM");
    } else {
        // A TCP/IP connection leaves the serial port as it is.
        WriteProfileKey("CMM", "USESOCKET", "1", kWzelkoIni);
        WriteProfileDecimal("CMM", "TCPIP Port", TcpipPort, kWzelkoIni);
        WriteProfileKey("CMM", "TCPIP Address", TcpipAddress.c_str(), kWzelkoIni);
    }

    std::snprintf(ScratchText, sizeof ScratchText, "%lf", Resolution);
    WriteProfileText("RESOLUTION", ScratchText, "CMM");
    WriteProfileBool("SIMULATION", Ph9Simulation, "Ph9");
    WriteProfileBool("PH9PRESENT", Ph9Present, "Ph9");
    WriteProfileDecimal("PH9", "TYPE", Ph9Type, kWzelko32Ini);
    WriteProfileString("PORT", Ph9SerialText(Ph9Serial), "Ph9");
    return true;
}

}  // namespace wk
