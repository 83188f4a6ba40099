#pragma once
// Paths as the measuring application writes them ("C:\WZELKO\PROG", "\WZELKO\SOUNDS") and
// the host paths they stand for.
//
// Under Wine a drive letter is a link $WINEPREFIX/dosdevices/<letter>: to a host directory;
// a path without a drive is on C:. Path components match existing files without regard to
// case, as Wine does. On Windows these functions leave paths as they are.

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace wk::platform {

// True when `path` has a drive ("C:...") or uses '\' as separator: a path of the measuring
// application rather than a host path.
bool IsDosPath(const std::string& path);

// The host path for a path of the measuring application. Existing components are matched
// without regard to case; missing ones are kept as given. nullopt when the drive has no
// link in the prefix.
std::optional<std::string> DosToHostPath(const std::string& dosPath);

// The path of the measuring application for a host path: the drive whose link target
// contains it, with '\' separators. nullopt when no drive of the prefix reaches it.
std::optional<std::string> HostToDosPath(const std::string& hostPath);

// A drive the measuring application can name: its letter, upper case, and the host directory
// it stands for. Under Wine that is the target of the prefix's dosdevices link, which need not
// exist (a drive whose medium is missing); on Windows the drive's root, "D:\".
struct DosDrive {
    char letter;
    std::string hostRoot;
};

// The drives, in letter order: under Wine the letters of the prefix's dosdevices links, C:
// always (drive_c when it has no link); on Windows the logical drives.
std::vector<DosDrive> DosDrives();

// Any path the program handles (a bare name is taken relative to the working directory;
// a dos path is mapped; a host path is kept) as a host path.
std::string ToHostPath(const std::string& path);

// fopen for paths of the measuring application: the backup and the upgrade build their
// paths from GetWindowsDirectoryA and "\WZELKO.INI", which are Windows paths. A file opened
// for reading must be a regular file (nullptr with errno EISDIR or ENODEV otherwise), so that
// a pipe or device in a settings file's place never blocks or floods the program.
std::FILE* OpenFileA(const char* path, const char* mode);

// remove() for such paths; true when the file was removed.
bool DeleteFileA(const char* path);

// True when such a path names an existing regular file / directory.
bool FileExistsA(const char* path);
bool DirectoryExistsA(const char* path);

}  // namespace wk::platform
