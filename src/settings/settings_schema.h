#pragma once
// Every declared key of the settings record, level by level, base first: the whole schema
// in one list, for tools that go through all keys (and for the tests that hold the listing,
// the reads and the writes to it).

#include <vector>

#include "settings/setting_key.h"

namespace wk {

struct SchemaLevel {
    const char* Level;  // the class name of the record level whose read and write own the keys
    std::vector<const SettingKey*> Keys;
};

// The levels in chain order, each with its keys in declaration order.
const std::vector<SchemaLevel>& SettingsSchema();

}  // namespace wk
