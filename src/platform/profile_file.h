#pragma once
// The file operations under the profile engine: what a file looks like on disk now, reading
// it whole, and replacing it atomically.

#include <cstdint>
#include <string>

namespace wk::platform {

// Enough of a file's state to notice that another program changed it.
struct FileStamp {
    bool exists = false;
    bool isDirectory = false;
    std::uint64_t size = 0;
    std::int64_t mtimeSeconds = 0;
    std::int64_t mtimeNanoseconds = 0;
    std::uint64_t inode = 0;
    std::uint64_t device = 0;

    bool operator==(const FileStamp&) const = default;
};

FileStamp StatFile(const std::string& path);

// Reads the whole file. False (with `error` as "<path>: <reason>") when it cannot be read;
// `stamp` describes the file that was read.
bool ReadWholeFile(const std::string& path, std::string& bytes, FileStamp& stamp,
                   std::string& error);

// Replaces the file (the target of a symbolic link, not the link) with `bytes`: a temporary
// file beside it is written, flushed to disk, given the original's permissions and renamed
// over it, so that a reader sees either the old or the new file, never a mix. On failure the
// temporary file is removed, the original is left as it was, and `error` says why.
bool ReplaceFileAtomically(const std::string& path, const std::string& bytes, std::string& error);

}  // namespace wk::platform
