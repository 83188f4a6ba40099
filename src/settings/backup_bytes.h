#pragma once
// The bytes a backup of a settings file holds, as the whole-record save makes it: the file
// copied character by character through a text-mode stream, ending with one byte 0xFF more
// than its source. A restore makes the file it replaces into a backup the same way.

#include <optional>
#include <string>

namespace wk {

// The bytes of the backup of the file at `sourcePath` (a path of the measuring application,
// "C:\windows\WZELKO.INI", or a host path). nullopt when the source cannot be opened (a
// missing file, a directory, a pipe: only regular files are opened) or read to its end.
std::optional<std::string> BackupBytes(const char* sourcePath);

}  // namespace wk
