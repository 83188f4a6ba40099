#pragma once
// The names of the measuring application's two settings files.
//
// The typed helpers pass the mixed-case names bare: the platform resolves a bare name in
// the Windows directory, where the files live. A few keys are read and written with the
// profile functions directly under the upper-case names, as the measuring application's
// own code does; both spellings reach the same file. The backup builds full paths from
// the Windows directory and the upper-case names with a leading backslash.

namespace wk {

// Used by every typed helper except ReadProfileText32 and ReadProfileString32.
inline constexpr const char* kSettingsFileName = "Wzelko.ini";
// Used by ReadProfileText32 and ReadProfileString32.
inline constexpr const char* kSettingsFile32Name = "Wzelko32.ini";

// The names used where the profile functions are called directly.
inline constexpr const char* kWzelkoIni = "WZELKO.INI";
inline constexpr const char* kWzelko32Ini = "WZELKO32.INI";

// The file start-up requires, appended to the Windows directory: without it the measuring
// application is not installed there.
inline constexpr const char* kRequiredSettingsFilePath = "\\WZELKO.INI";

// The backup's pairs, appended to the Windows directory.
inline constexpr const char* kBackupSourcePath = "\\WZELKO.INI";
inline constexpr const char* kBackupTargetPath = "\\WZELKO.BAK";
inline constexpr const char* kBackupSource32Path = "\\WZELKO32.INI";
inline constexpr const char* kBackupTarget32Path = "\\WZELKO32.BAK";

}  // namespace wk
