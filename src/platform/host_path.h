#pragma once
// File names as the program holds them (bytes of the ANSI code page, as the measuring
// application's A functions take them) and the host file system's own paths.
//
// On Windows the file system's names are UTF-16: a name is converted with the ANSI code page
// both ways, as the A functions of Windows convert it, so that "C:\WZELKO\näme.ini" opens the
// file that Explorer shows as näme.ini. (The standard library would read the bytes one way and
// give them back UTF-8 encoded, and a file would be created under a garbled name.) Elsewhere a
// file name is bytes, and the bytes are passed through unchanged.

#include <filesystem>
#include <string>
#include <string_view>

namespace wk::platform {

// The host path for a file name in the ANSI code page.
std::filesystem::path PathFromAnsi(std::string_view ansiName);

// The file name in the ANSI code page for a host path. On Windows a character the code page
// cannot hold becomes '?', as the A functions give it.
std::string PathToAnsi(const std::filesystem::path& path);

}  // namespace wk::platform
