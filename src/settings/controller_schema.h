#pragma once
// The keys of the controller group (ControllerSettings). Each constant is named after the
// field it fills; its default is that field's value before the first read.

#include <cstdint>

#include "settings/setting_key.h"

namespace wk {

// Read once, by the constructor (and by start-up for the controller flags); never written.
inline constexpr WzelkoKey<const char*> kControllerType{"Controller", "Type", KeyKind::Text, "QEN"};
inline constexpr WzelkoKey<std::uint32_t> kBaseAddress{"Controller", "Base Address", KeyKind::Hex,
                                                       0};
// "1" or "0".
inline constexpr WzelkoKey<bool> kHardProbeCompensation{"Controller", "Hard Probe Compensation",
                                                        KeyKind::Integer, true};
// The mouse buttons are numbered right to left: "Button1" is the right one.
inline constexpr WzelkoKey<std::int32_t> kRightButtonFunction{"Controller", "Button1",
                                                              KeyKind::Integer, 1};
inline constexpr WzelkoKey<std::int32_t> kMiddleButtonFunction{"Controller", "Button2",
                                                               KeyKind::Integer, 4};
inline constexpr WzelkoKey<std::int32_t> kLeftButtonFunction{"Controller", "Button3",
                                                             KeyKind::Integer, 3};
// Motion limits: mm/s, mm/s, mm/s2.
inline constexpr WzelkoKey<double> kMaxPSpeed{"MACHINEPARAM", "Max pspeed", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kMaxMSpeed{"MACHINEPARAM", "Max mspeed", KeyKind::Number, 0.0};
inline constexpr WzelkoKey<double> kMaxAccel{"MACHINEPARAM", "Max accel", KeyKind::Number, 0.0};
// "1" or "0": the limits come from the settings file rather than from the controller.
inline constexpr WzelkoKey<bool> kUseIniMaxSpeeds{"MACHINEPARAM", "USE INI MAX SPEEDS AND ACCEL",
                                                  KeyKind::Integer, false};
// "QD32Z" (true) or "R7NS".
inline constexpr WzelkoKey<bool> kIsQd32z{"CONTROLLER", "SUBTYPE", KeyKind::Word, false};

}  // namespace wk
