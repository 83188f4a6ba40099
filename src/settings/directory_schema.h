#pragma once
// The keys of the directories group (DirectorySettings). Each constant is named after the
// field it fills; its default is that field's value before the first read.

#include <array>

#include "settings/setting_key.h"

namespace wk {

inline constexpr WzelkoKey<const char*> kSystemDir{"WZELKO", "SYSTEM_DIR", KeyKind::Text,
                                                   "\\WZELKO"};
inline constexpr WzelkoKey<const char*> kDataDir{"WZELKO", "DATA_DIR", KeyKind::Text,
                                                 "\\WZELKO\\DATA"};
inline constexpr WzelkoKey<const char*> kPProgDir{"WZELKO", "PPROG_DIR", KeyKind::Text,
                                                  "\\WZELKO\\PROG"};
inline constexpr WzelkoKey<const char*> kMeasDir{"WZELKO", "MEAS_DIR", KeyKind::Text,
                                                 "\\WZELKO\\MEAS"};
inline constexpr WzelkoKey<const char*> kUserDir{"WZELKO", "USER_DIR", KeyKind::Text,
                                                 "\\WZELKO\\USER"};

// The order in which the group reads and writes them.
inline constexpr std::array<const WzelkoKey<const char*>*, 5> kDirectoryKeys{
    &kSystemDir, &kDataDir, &kPProgDir, &kMeasDir, &kUserDir};

}  // namespace wk
