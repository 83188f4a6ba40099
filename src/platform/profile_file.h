#pragma once
// The file operations under the profile engine: what a file looks like on disk now, and
// reading it whole. Replacing files is file_replace.h.
//
// Only regular files are settings files. A named pipe, a device or a socket in a settings
// file's place is never read (a pipe would block the program for ever, /dev/zero would fill
// its memory), and a file larger than the engine's limit is refused before it is read.

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/file_error.h"

namespace wk::platform {

enum class FileKind : std::uint8_t {
    Missing,     // nothing of that name (or a link to nothing)
    Regular,     // a regular file, directly or through symbolic links
    Directory,   // a directory
    NotRegular,  // a named pipe, a device or a socket
    Unusable,    // stat failed for another reason: a link loop, a path that cannot be searched
};

// Enough of a file's state to notice that another program changed it.
struct FileStamp {
    bool exists = false;
    bool isDirectory = false;
    FileKind kind = FileKind::Missing;
    // Why a stat failed other than for a missing file: the errno (on Windows, the system's
    // error code).
    int error = 0;
    // The file type of st_mode (pipe, device or socket); on Windows, GetFileType's.
    std::uint32_t typeBits = 0;
    std::uint64_t size = 0;
    std::int64_t mtimeSeconds = 0;
    std::int64_t mtimeNanoseconds = 0;
    std::uint64_t inode = 0;
    std::uint64_t device = 0;

    bool operator==(const FileStamp&) const = default;
};

// The state of the file `path` names, symbolic links followed.
FileStamp StatFile(const std::string& path);

// What a file that is not a settings file is, for messages: "is a directory", "is a named
// pipe, not a regular file", "Too many levels of symbolic links". Empty for a regular or a
// missing file.
std::string DescribeUnusableFile(const FileStamp& stamp);

// Reads the whole regular file, without ever blocking on a pipe or device (it is opened
// non-blocking and refused when it is not a regular file). A file of more than `maxBytes`
// is refused ("File too large"). False with `error` when it cannot be read; `stamp`
// describes the file that was read (or found).
bool ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes,
                   FileStamp& stamp, FileError& error);

}  // namespace wk::platform
