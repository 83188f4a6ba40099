#pragma once
// The keys that an upgrade never carries from the saved files: they describe this
// installation (its directories, whether the machine is simulated or driven by CNC, whether
// a PH9 head is fitted, the controller type, the compensation method), not the user's
// preferences, so the fresh file's value stays. The table names the settings groups' own
// key declarations (settings/*_schema.h).

#include <string>

namespace wk {

// True when `key` of `section` keeps the installed value. `section` is the upper-cased name
// the merge uses; `key` is matched without regard to case. This is the whole table,
// "METHOD" of "COMPENS" included; see IsCompensationMethod for its exception.
bool IsKeptAsInstalled(const std::string& section, const char* key);

// True for "METHOD" of "COMPENS" (key without regard to case). In WZELKO32.INI a saved
// method "CTRL" (the controller compensates) is carried over despite the table, because the
// installation cannot know that the controller was set up to compensate.
bool IsCompensationMethod(const std::string& section, const char* key);

// True when a saved compensation method is "CTRL", without regard to case.
bool IsControllerCompensation(const char* savedMethod);

}  // namespace wk
