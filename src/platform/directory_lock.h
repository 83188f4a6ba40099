#pragma once
// The advisory lock that keeps two writers of the settings files from losing each other's
// changes.
//
// Every write of this program is a read-modify-write of a whole file: read the file, change
// a key, replace the file. Two programs doing that at once would each replace the file with
// their own change only. So every writer of this program holds the lock of the directory the
// files live in from before it reads a file it will replace until the replacement is done:
// `flock` on the directory itself (on Windows, where a directory cannot be locked, LockFileEx
// on a hidden lock file ".wkestel.lock" in it). One lock for the directory serves the pair
// WZELKO.INI and WZELKO32.INI and their backups, which a save replaces together, and
// locking the directory leaves no lock file among the measuring application's files.
//
// The lock is advisory: it orders this program's writers (the window, `wkestel`, in any
// number), not the measuring application, which writes its files through Wine without it.
// A writer waits for the lock at most LockWait() (5 s) and then gives up with a message
// saying which lock is held. Within one process the lock is re-entrant: the whole-record
// save holds it while the profile functions it calls take it again.

#include <chrono>
#include <string>

#include "platform/file_error.h"

namespace wk::platform {

// The lock file of a directory on Windows.
inline constexpr const char* kLockFileName = ".wkestel.lock";

// How long a writer waits for another writer's lock. 5 s by default.
std::chrono::milliseconds LockWait();
void SetLockWait(std::chrono::milliseconds wait);

class DirectoryLock {
public:
    DirectoryLock() = default;
    ~DirectoryLock() { Release(); }

    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;
    DirectoryLock(DirectoryLock&& other) noexcept;
    DirectoryLock& operator=(DirectoryLock&& other) noexcept;

    // Takes the lock of `directory`, waiting at most LockWait(). True when it is held, and
    // also when there can be no lock file there (a directory that does not exist or cannot
    // be written: the write that follows fails with its own reason, which names the settings
    // file). False, with `error` saying which lock is held, when the wait runs out.
    bool Acquire(const std::string& directory, FileError& error);
    void Release();

    // True while this object holds the lock (not when Acquire went ahead without one).
    bool Held() const { return !key_.empty(); }

private:
    std::string key_;  // the directory, as the process-wide table of held locks knows it
};

}  // namespace wk::platform
