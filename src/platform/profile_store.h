#pragma once
// The process-wide store of parsed settings files behind the profile functions.
//
// A file is parsed once and kept, keyed by its host path; each call checks the file on disk
// (size, modification time to the nanosecond, inode) and parses it again when another
// program changed it. Inside a ProfileBatch a file, once checked, is not checked again, and
// writes stay in memory until the outermost batch ends.
//
// Writers hold the lock of the file's directory (directory_lock.h) from before they look at
// the file until it is replaced, so that two writers never lose each other's changes; a
// batch holds the locks it took until it ends. Whoever takes a directory's lock first
// completes a commit that a killed writer left unfinished there (file_replace.h), and so
// does a read that finds such a commit's journal.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/directory_lock.h"
#include "platform/file_error.h"
#include "platform/file_replace.h"
#include "platform/profile_document.h"
#include "platform/profile_file.h"

namespace wk::platform {

// Records why the last profile write (or batch commit) of this thread failed; an empty
// error records a success. LastProfileError() and LastProfileFailure() give it back.
void RecordProfileFailure(const FileError& error);

class ProfileStore {
public:
    enum class CommitMode {
        EachFile,      // each changed file is replaced by itself; one failure spares the others
        AllOrNothing,  // every changed and staged file is replaced, or none (file_replace.h)
        DryRun  // nothing is replaced and no lock is taken: the writes are tried out in memory
                // and dropped at the end (profile_dry_run.h)
    };

    // What a caller may learn about a settings file besides its values.
    struct FileInfo {
        std::string path;       // the host path the name resolves to
        FileStamp stamp;        // the file on disk
        FileError readError;    // why an existing file could not be read; empty otherwise
        bool readable = false;  // its content is what the profile functions see
    };

    static ProfileStore& Instance();

    std::mutex& Mutex() { return mutex_; }

    // The document of the profile file named as the profile functions name it (see
    // profile.h), current with the disk; nullptr when the file does not exist or cannot be
    // read. Call with Mutex() held.
    const ProfileDocument* Read(const char* fileName);

    // The state of the file the name resolves to, current with the disk. Call with Mutex()
    // held.
    FileInfo Inspect(const char* fileName);

    // Applies `edit` to the document of the file (an empty one when the file does not exist)
    // and writes the file when the edit changed it, or when the file does not exist yet (a
    // file is created even by a delete, as Windows does). In a batch the write waits for the
    // end of the batch. False with `error` set when the file cannot be written. Call with
    // Mutex() held.
    bool Write(const char* fileName, const std::function<bool(ProfileDocument&)>& edit,
               FileError& error);

    // A whole file's new bytes, for a file the profile functions do not edit (the backup):
    // in an all-or-nothing batch it is replaced with the batch's files, else at once.
    // `hostPath` is a host path. Call with Mutex() held.
    bool StageFile(const std::string& hostPath, const std::string& bytes, FileError& error);

    // Batches nest; the end of the outermost one writes every changed file, in the mode the
    // outermost one was begun with.
    void BeginBatch(CommitMode mode);
    bool IsOutermostBatch() const { return batchDepth_ == 1; }
    // Takes the lock of `directory` for the rest of the batch now, before the files there are
    // read: the files then are what this batch replaces, and its commit journal goes there.
    bool LockDirectoryForBatch(const std::string& directory, FileError& error);
    bool CommitBatch(FileError& error);
    // Forgets every write of the batch: nothing of it reaches the disk.
    void AbandonBatch();
    void EndBatch();
    bool HasPendingWrites() const;

    // A bare name matched by no file of the Windows directory creates the file under its
    // declared spelling when one matches without regard to case ("Wzelko.ini" and
    // "WZELKO.INI" both create WZELKO.INI once that spelling is declared), else under the
    // name given. An existing file is found whatever its case.
    void DeclareNewFileSpelling(const std::string& name);

    // Completes a commit a kill interrupted in `directory`, as a read that finds its journal
    // does. Call with Mutex() held.
    void CompleteInterruptedCommit(const std::string& directory);

    // Forgets every parsed file (for tests and benchmarks that measure a first read).
    void Clear();

private:
    struct CachedFile {
        std::unique_ptr<ProfileDocument> document;  // nullptr when missing or unreadable
        FileStamp stamp;
        FileError readError;      // why an existing file could not be read
        bool dirty = false;       // changed in the batch, not yet written
        bool mustCreate = false;  // a batch write to a file that did not exist
        std::uint64_t checkedInBatch = 0;
    };

    std::string ResolveName(const char* fileName, bool& fromCache);
    std::string ResolveBareName(const std::string& windowsDirectory, const std::string& name);
    CachedFile& Current(const std::string& path);
    CachedFile& CurrentFor(const char* fileName, std::string& path);
    bool LockForWrite(const std::string& directory, DirectoryLock& local, FileError& error);
    bool Save(const std::string& path, CachedFile& file, FileError& error);
    bool CommitEachFile(FileError& error);
    bool CommitAllOrNothing(FileError& error);
    std::vector<std::string> PendingPaths() const;
    void DropPendingWrites();
    FileReplacement& BatchReplacement(const std::string& directoryHint);

    std::mutex mutex_;
    std::unordered_map<std::string, CachedFile> files_;
    std::unordered_map<std::string, std::string> resolvedNames_;
    std::vector<std::string> newFileSpellings_;
    int batchDepth_ = 0;
    std::uint64_t batchNumber_ = 0;
    CommitMode batchMode_ = CommitMode::EachFile;
    std::map<std::string, DirectoryLock> batchLocks_;  // held until the outermost batch ends
    std::string batchJournalDirectory_;
    std::unique_ptr<FileReplacement> batchReplacement_;
};

}  // namespace wk::platform
