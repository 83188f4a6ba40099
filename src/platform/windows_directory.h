#pragma once
// Where the measuring application's Windows directory is.
//
// On Windows, the real one. Elsewhere the measuring application runs under Wine, and its
// Windows directory is $WINEPREFIX/drive_c/windows (WINEPREFIX defaulting to ~/.wine).

#include <cstdint>
#include <optional>
#include <string>

namespace wk {

// The Windows directory as the measuring application sees it: "C:\windows" under Wine.
// Returns its length; copies at most size - 1 characters and a NUL. When the buffer is too
// small, returns the size needed (NUL included) and copies nothing, as Windows does.
std::uint32_t GetWindowsDirectoryA(char* buffer, std::uint32_t size);

namespace platform {

// The Wine prefix in use: the override if set, else $WINEPREFIX, else ~/.wine.
std::string WinePrefix();

// Makes every later call use this prefix instead of $WINEPREFIX (the CLI's --prefix).
// An empty path removes the override. On Windows, where there is no prefix, the override's
// drive_c\windows stands in for the Windows directory (a save tried on copies, tests).
void SetWinePrefixOverride(const std::string& prefix);

// The override in force, empty when there is none: what a caller that points the platform
// elsewhere for a while puts back afterwards.
std::string WinePrefixOverride();

// The host path of the Windows directory. On Windows the real one, unless overridden.
std::string WindowsDirectoryHostPath();

// Why the Windows directory cannot be used (it does not exist, or is not a directory), in
// words that say where it was looked for and how to set WINEPREFIX; nullopt when it is fine.
std::optional<std::string> WindowsDirectoryProblem();

}  // namespace platform
}  // namespace wk
