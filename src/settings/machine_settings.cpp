#include "settings/machine_settings.h"

#include <cstdio>
#include <cstring>

#include "settings/init_schema.h"
#include "settings/key_profile_helpers.h"
#include "settings/machine_schema.h"

// Numbers in the settings files always use '.' as decimal point. The C formatting and
// scanning below ("%lf", "%1.10lf", "COM%d") follow LC_NUMERIC, which the programs keep
// at "C": they never call setlocale for numbers.

namespace wk {

namespace {

constexpr std::uint32_t kSpeeds[] = {150, 300, 600, 1200, 2400, 4800, 9600, 19200};

// The keys read and written with the profile functions directly, under the upper-case file
// names: integers read with GetPrivateProfileIntA, written with "%d".
std::int32_t ProfileInt(const SettingKey& key, std::int32_t defaultValue) {
    return static_cast<std::int32_t>(DirectProfileInt(key, defaultValue));
}

void WriteProfileDecimal(const SettingKey& key, std::int32_t value) {
    char text[20];
    std::snprintf(text, sizeof text, "%d", value);
    WriteProfileKey(key, text);
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
    DirectProfileString(kVolcompMethod, "UNK", word, sizeof word);
    VolcompMethod = -1;
    for (int value = -1; value <= 5; ++value) {
        if (std::strcmp(word, kVolcompMethodWords[static_cast<std::size_t>(value + 1)]) == 0) {
            VolcompMethod = value;
        }
    }
    DirectProfileString(kLegacyMethod, "NONE", word, sizeof word);
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
    WriteProfileKey(
        kVolcompMethod,
        known ? kVolcompMethodWords[static_cast<std::size_t>(VolcompMethod + 1)] : "UNK");
    if (VolcompMethod == 1 || VolcompMethod == 2) LegacyMethod = VolcompMethod;
    // The older file knows only the two brands: it always names one of them.
    WriteProfileKey(kLegacyMethod, LegacyMethod == 2 ? "KV" : "QEN");
}

bool MachineSettings::Read() {
    ColourSettings::Read();
    ReadVolcompMethod();

    CompensMode = ProfileInt(kCompensMode, kCompensMode.Default);
    CtrVolcompOnExit = ProfileInt(kCtrVolcompOnExit, kCtrVolcompOnExit.Default);
    CompensActive = ProfileInt(kCompensActive, 0) == 1;
    ThermalCompens = ProfileInt(kThermalCompens, 0) != 0;
    ToolChanger = ReadProfileBool(kToolChanger);

    // "NONE" stands for the built-in name, which the next write stores in its place; any
    // other text, an empty one included, is the name.
    ReadProfileText(kCosDatFileName, ScratchText, 80);
    if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) CosDatFileName = ToUpperAscii(ScratchText);
    ReadProfileText(kCompensFileName, ScratchText, 80);
    if (!EqualsIgnoringAsciiCase(ScratchText, "NONE")) CompensFileName = ToUpperAscii(ScratchText);

    ReadProfileDouble(kDistApproach, ScratchText, 20, DistApproach);
    ReadProfileDouble(kXTerm, ScratchText, 20, XTerm);
    ReadProfileDouble(kYTerm, ScratchText, 20, YTerm);
    ReadProfileDouble(kZTerm, ScratchText, 20, ZTerm);
    ReadProfileDouble(kPartTerm, ScratchText, 20, PartTerm);
    ReadProfileDouble(kOptSpeed, ScratchText, 20, OptSpeed);
    OptSpeedSet = ScratchText[0] != '\0';
    ReadProfileDouble(kDepth, ScratchText, 20, Depth);
    DepthSet = ScratchText[0] != '\0';

    Jx01Simulation = ReadProfileBool(kJx01Simulation);
    Jx01Delay = ReadProfileInt(kJx01Delay, kJx01Delay.Default);
    CmmSimulation = ReadProfileBool(kCmmSimulation);
    Cnc = ReadProfileBool(kCnc);

    // The port name is the text up to the first colon. COM9 and above, and names that do
    // not scan, are COM1.
    char cmmPortName[20] = "";
    ReadProfileText(kPortIndex, ScratchText, 20);
    std::sscanf(ScratchText, "%19[^:]", cmmPortName);  // "%[^:]"; the text is at most 19 long
    const int cmmPortNumber = ComNumber(cmmPortName);
    PortIndex = (cmmPortNumber >= 1 && cmmPortNumber <= 8) ? cmmPortNumber - 1 : 0;

    UseSocket = ProfileInt(kUseSocket, 0) != 0;
    char address[20];
    DirectProfileString(kTcpipAddress, "", address, sizeof address);
    TcpipAddress = address[0] != '\0' ? address : kDefaultTcpipAddress;
    TcpipPort = ProfileInt(kTcpipPort, kTcpipPort.Default);
    // Only a controller that can be reached over TCP/IP takes the file's socket request.
    if (controllerAcceptsTcpip_ && UseSocket) PortIndex = kTcpipPortIndex;

    ReadProfileDouble(kResolution, ScratchText, 20, Resolution);
    Ph9Simulation = ReadProfileBool(kPh9Simulation);
    Ph9Present = ReadProfileBool(kPh9Present);
    Ph9Type = ProfileInt(kPh9Type, kPh9Type.Default);

    ReadProfileText(kPh9Serial, ScratchText, 20);
    if (EqualsIgnoringAsciiCase(ScratchText, "NONE")) {
        // No line given: the head sits on the CMM's port number, with the usual line settings.
        const int number = cmmPortNumber > 8 ? 1 : cmmPortNumber;
        Ph9Serial = (kPh9Serial.Default & ~kPh9PortMask) |
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

    WriteProfileBool(kJx01Simulation, Jx01Simulation);
    WriteProfileUInt(kJx01Delay, Jx01Delay);
    WriteProfileDecimal(kCompensMode, CompensMode);
    WriteProfileDecimal(kCtrVolcompOnExit, CtrVolcompOnExit);
    WriteVolcompMethod();
    WriteProfileKey(kCompensActive, CompensActive ? "1" : "0");
    WriteProfileKey(kThermalCompens, ThermalCompens ? "1" : "0");
    WriteProfileBool(kToolChanger, ToolChanger);
    WriteProfileString(kCosDatFileName, CosDatFileName);
    WriteProfileString(kCompensFileName, CompensFileName);

    WriteProfileDouble(kDistApproach, DistApproach, ScratchText);
    // The scale factors get ten decimals, deliberately finer than the lengths.
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", XTerm);
    WriteProfileText(kXTerm, ScratchText);
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", YTerm);
    WriteProfileText(kYTerm, ScratchText);
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", ZTerm);
    WriteProfileText(kZTerm, ScratchText);
    std::snprintf(ScratchText, sizeof ScratchText, "%1.10lf", PartTerm);
    WriteProfileText(kPartTerm, ScratchText);

    // An optimal speed or depth that is not given stays an empty value.
    if (OptSpeedSet) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", OptSpeed);
    } else {
        ScratchText[0] = '\0';
    }
    WriteProfileText(kOptSpeed, ScratchText);
    if (DepthSet) {
        std::snprintf(ScratchText, sizeof ScratchText, "%lf", Depth);
    } else {
        ScratchText[0] = '\0';
    }
    WriteProfileText(kDepth, ScratchText);

    WriteProfileBool(kCmmSimulation, CmmSimulation);
    WriteProfileBool(kCnc, Cnc);
    // A manual machine has no exit code to choose: the start-up group's key is set to 0.
    if (!Cnc) WriteProfileUInt(kExitCode, 0);

    if (PortIndex != kTcpipPortIndex) {
        // A serial connection leaves the TCP/IP keys as they are.
        WriteProfileKey(kUseSocket, "0");
        std::snprintf(ScratchText, sizeof ScratchText, "COM%d:", PortIndex + 1);
        WriteProfileText(kPortIndex, ScratchText);
    } else {
        // A TCP/IP connection leaves the serial port as it is.
        WriteProfileKey(kUseSocket, "1");
        WriteProfileDecimal(kTcpipPort, TcpipPort);
        WriteProfileKey(kTcpipAddress, TcpipAddress.c_str());
    }

    WriteProfileDouble(kResolution, Resolution, ScratchText);
    WriteProfileBool(kPh9Simulation, Ph9Simulation);
    WriteProfileBool(kPh9Present, Ph9Present);
    WriteProfileDecimal(kPh9Type, Ph9Type);
    WriteProfileString(kPh9Serial, Ph9SerialText(Ph9Serial));
    return true;
}

}  // namespace wk
