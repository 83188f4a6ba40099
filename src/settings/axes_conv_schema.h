#pragma once
// The key of the axes-convention group (AxesConvSettings).

#include "settings/setting_key.h"

namespace wk {

// "QEN" (true) or "STANDARD". The read always sets the field; true is what a missing key
// gives.
inline constexpr WzelkoKey<bool> kQenAxesConvention{"SYSTEMPARAM", "GUI", KeyKind::Word, true};

}  // namespace wk
