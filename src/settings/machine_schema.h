#pragma once
// The keys of the machine-parameters group (MachineSettings), with the volumetric
// compensation keys that the same level reads and writes. Each constant is named after the
// field it fills; its default is that field's value before the first read.

#include <array>
#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

// ---- volumetric compensation ------------------------------------------------------------

// What the controller does with its compensation when the measuring application exits.
inline constexpr WzelkoKey<std::int32_t> kCtrVolcompOnExit{"CONTROLLER", "CTR VOLCOMP ON EXIT",
                                                           KeyKind::Integer, 2};
inline constexpr WzelkoKey<std::int32_t> kCompensMode{"COMPENS", "COMPENS MODE", KeyKind::Integer,
                                                      1};
// The method under the same section and key in both files: WZELKO32.INI knows every method,
// WZELKO.INI (the older form) only QEN and KV.
inline constexpr Wzelko32Key<std::int32_t> kVolcompMethod{"COMPENS", "METHOD", KeyKind::Word, 1};
inline constexpr WzelkoKey<std::int32_t> kLegacyMethod{"COMPENS", "METHOD", KeyKind::Word, 1};
// "1" or "0".
inline constexpr Wzelko32Key<bool> kCompensActive{"COMPENS", "ACTIVE", KeyKind::Integer, false};
inline constexpr Wzelko32Key<bool> kThermalCompens{"Compens", "Thermal", KeyKind::Integer, false};

// The words of kVolcompMethod, by method value + 1: -1 "UNK" ... 5 "MELDAX".
inline constexpr std::array<const char*, 7> kVolcompMethodWords{"UNK", "NONE", "QEN",   "KV",
                                                                "RHO", "CTRL", "MELDAX"};
// The method in which the controller compensates by itself ("CTRL").
inline constexpr std::int32_t kControllerVolcompMethod = 4;

// ---- machine parameters -----------------------------------------------------------------

inline constexpr WzelkoKey<bool> kToolChanger{"MACHINEPARAM", "TOOL CHANGER", KeyKind::Bool, false};
inline constexpr WzelkoKey<const char*> kCosDatFileName{"MACHINEPARAM", "COSDAT FNAME",
                                                        KeyKind::Text, "ZELKOCOSDAT1.BIN"};
inline constexpr WzelkoKey<const char*> kCompensFileName{"COMPENS", "COMPENS FILE NAME",
                                                         KeyKind::Text, "ZELKOCOMPENS.DAT"};
// Lengths in millimetres.
inline constexpr WzelkoKey<double> kDistApproach{"MACHINEPARAM", "DIST APPROACH", KeyKind::Number,
                                                 6.0};
// The scale factors of the axes and of the part.
inline constexpr WzelkoKey<double> kXTerm{"MACHINEPARAM", "XTERM", KeyKind::Number, 1.0};
inline constexpr WzelkoKey<double> kYTerm{"MACHINEPARAM", "YTERM", KeyKind::Number, 1.0};
inline constexpr WzelkoKey<double> kZTerm{"MACHINEPARAM", "ZTERM", KeyKind::Number, 1.0};
inline constexpr WzelkoKey<double> kPartTerm{"MACHINEPARAM", "PARTTERM", KeyKind::Number, 1.0};
// An empty value is "not given" (OptSpeedSet, DepthSet false).
inline constexpr WzelkoKey<double> kOptSpeed{"MACHINEPARAM", "OPTSPEED", KeyKind::Number, 0.0};
// Twice the approach distance.
inline constexpr WzelkoKey<double> kDepth{"MACHINEPARAM", "DEPTH", KeyKind::Number,
                                          2 * kDistApproach.Default};
inline constexpr WzelkoKey<bool> kCnc{"CMM", "CNC", KeyKind::Bool, true};
// The CMM connection: PortIndex 0-7 for "COM1:" to "COM8:".
inline constexpr WzelkoKey<std::int32_t> kPortIndex{"CMM", "PORT", KeyKind::Port, 0};
inline constexpr WzelkoKey<bool> kCmmSimulation{"CMM", "SIMULATION", KeyKind::Bool, false};
inline constexpr WzelkoKey<double> kResolution{"CMM", "RESOLUTION", KeyKind::Number, 0.0001};
inline constexpr WzelkoKey<bool> kPh9Simulation{"Ph9", "SIMULATION", KeyKind::Bool, false};
inline constexpr WzelkoKey<bool> kPh9Present{"Ph9", "PH9PRESENT", KeyKind::Bool, false};
// The head's serial line, held packed: COM2, 4800 baud, no parity, 8 data bits, 2 stop bits.
inline constexpr WzelkoKey<std::uint32_t> kPh9Serial{"Ph9", "PORT", KeyKind::Port, 0x3851};
inline constexpr Wzelko32Key<std::int32_t> kPh9Type{"PH9", "TYPE", KeyKind::Integer, 0};
inline constexpr WzelkoKey<bool> kJx01Simulation{"MEAS_WINDOW", "JX01 SIMULATION", KeyKind::Bool,
                                                 false};
inline constexpr WzelkoKey<std::uint32_t> kJx01Delay{"MEAS_WINDOW", "JX01 DELAY", KeyKind::Integer,
                                                     10};
// "1" or "0": the file asks for the TCP/IP connection.
inline constexpr WzelkoKey<bool> kUseSocket{"CMM", "USESOCKET", KeyKind::Integer, false};
inline constexpr WzelkoKey<const char*> kTcpipAddress{"CMM", "TCPIP Address", KeyKind::Text, ""};
inline constexpr WzelkoKey<std::int32_t> kTcpipPort{"CMM", "TCPIP Port", KeyKind::Integer, 2001};

}  // namespace wk
