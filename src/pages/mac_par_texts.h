#pragma once
// The language string ids of the machine parameters page and the text forms its fields show.

#include <QString>
#include <cstdio>
#include <string>

#include "platform/text_codec.h"

namespace wk::mac_par {

constexpr int kIdSheet = 5;
constexpr int kIdFirstSpeed = 54;     // 54-61: 150 ... 19200 baud
constexpr int kIdFirstParity = 62;    // 62-64: none, even, odd
constexpr int kIdFirstDataBits = 65;  // 65-68: 5 ... 8 data bits
constexpr int kIdFirstStopBits = 69;  // 69-71: 1, 1.5, 2 stop bits
constexpr int kIdNotSet = 72;         // depth and optimal speed switched off
constexpr int kIdCosDatFilter = 79;   // *.BIN
constexpr int kIdCompensFilter = 80;  // *.DAT
constexpr int kIdMillimetres = 86;
constexpr int kIdInches = 87;
constexpr int kIdCmmGroup = 96;
constexpr int kIdPh9HeadType = 97;
constexpr int kIdGeneralGroup = 98;
constexpr int kIdBrowse = 134;

// The resolutions every machine is offered, in millimetres.
inline constexpr const char* kResolutionItems[] = {"0.0001", "0.0005"};

// Where the measuring application keeps its compensation files.
inline constexpr const char* kBrowseDirectory = "C:\\wzelko";

// The approach distance the measuring application accepts, in millimetres, ends included.
constexpr double kMinDistApproach = 0.1;
constexpr double kMaxDistApproach = 100.0;

// "TCPIP Address" is read back with at most 19 characters.
constexpr std::size_t kMaxTcpipAddressLength = 19;

// Texts of the settings files (ANSI) as the controls show them, and back.
inline QString FromAnsi(const std::string& ansi) {
    return QString::fromStdString(platform::AnsiToUtf8(ansi));
}
inline std::string ToAnsi(const QString& text) {
    return platform::Utf8ToAnsi(text.toStdString());
}

inline QString Printed(const char* format, double value) {
    char text[512];  // "%3.3lf" of the largest double is some 320 characters
    std::snprintf(text, sizeof text, format, value);
    return QString::fromLatin1(text);
}

// The optimal speed, and a scale factor as its exit handler shows it: three decimals.
inline QString SpeedText(double value) {
    return Printed("%3.3lf", value);
}
// A scale factor as the record holds it (and the file): ten decimals.
inline QString ScaleText(double value) {
    return Printed("%1.10lf", value);
}
// The shortest form of a resolution, which is also the form of the list's items.
inline QString ResolutionText(double value) {
    return Printed("%g", value);
}

}  // namespace wk::mac_par
