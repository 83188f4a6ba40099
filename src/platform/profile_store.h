#pragma once
// The process-wide store of parsed settings files behind the profile functions.
//
// A file is parsed once and kept, keyed by its host path; each call checks the file on disk
// (size, modification time to the nanosecond, inode) and parses it again when another
// program changed it. Inside a ProfileBatch a file, once checked, is not checked again, and
// writes stay in memory until the outermost batch ends.

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/profile_document.h"
#include "platform/profile_file.h"

namespace wk::platform {

// The text LastProfileError() returns, for the code that records a failure.
std::string& LastProfileErrorText();

class ProfileStore {
public:
    static ProfileStore& Instance();

    std::mutex& Mutex() { return mutex_; }

    // The document of the profile file named as the profile functions name it (see
    // profile.h), current with the disk; nullptr when the file does not exist or cannot be
    // read. Call with Mutex() held.
    const ProfileDocument* Read(const char* fileName);

    // Applies `edit` to the document of the file (an empty one when the file does not exist)
    // and writes the file when the edit changed it, or when the file does not exist yet (a
    // file is created even by a delete, as Windows does). In a batch the write waits for the
    // end of the batch. False with `error` set when the file cannot be written. Call with
    // Mutex() held.
    bool Write(const char* fileName, const std::function<bool(ProfileDocument&)>& edit,
               std::string& error);

    // Batches nest; the end of the outermost one writes every changed file.
    void BeginBatch();
    bool IsOutermostBatch() const { return batchDepth_ == 1; }
    bool CommitBatch(std::string& error);
    // Forgets every write of the batch: nothing of it reaches the disk, and later reads see
    // the files as they are on disk.
    void AbandonBatch();
    void EndBatch();
    bool HasPendingWrites() const;

    // Forgets every parsed file (for tests and benchmarks that measure a first read).
    void Clear();

private:
    struct CachedFile {
        std::unique_ptr<ProfileDocument> document;  // nullptr when missing or unreadable
        FileStamp stamp;
        std::string readError;    // why an existing file could not be read
        bool dirty = false;       // changed in the batch, not yet written
        bool mustCreate = false;  // a batch write to a file that did not exist
        std::uint64_t checkedInBatch = 0;
    };

    std::string ResolveName(const char* fileName, bool& fromCache);
    std::string ResolveBareName(const std::string& windowsDirectory, const std::string& name);
    CachedFile& Current(const std::string& path);
    CachedFile& CurrentFor(const char* fileName, std::string& path);
    bool Save(const std::string& path, CachedFile& file, std::string& error);

    std::mutex mutex_;
    std::unordered_map<std::string, CachedFile> files_;
    std::unordered_map<std::string, std::string> resolvedNames_;
    int batchDepth_ = 0;
    std::uint64_t batchNumber_ = 0;
};

}  // namespace wk::platform
