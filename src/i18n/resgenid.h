#pragma once
// ResGenID: the checks of the language-string unit.
//
// Fetching a string before any language library was loaded is a programming error, not a
// user's: the program stops there, naming the check and where it is, as the measuring
// application's own assertion did ("rf != NULL", ResGenID line 34).

namespace wk {

// The line of ResGenID that holds the check of a missing resource file.
inline constexpr int kResGenIdNoResourceFileLine = 34;

// Writes "Assertion failed: <expression>, file <unit>, line <line>" to standard error and
// ends the program abnormally.
[[noreturn]] void ResGenAssertFailed(const char* expression, const char* unit, int line);

}  // namespace wk
