#include "platform/directory_lock.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

#include "platform/host_path.h"

#ifdef _WIN32
#include "platform/windows_error.h"
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace wk::platform {
namespace {

namespace fs = std::filesystem;

std::atomic<long long> lockWaitMs{5000};

constexpr std::chrono::milliseconds kPollInterval{10};

// ---- the system's lock, on one open lock file ---------------------------------------------

#ifndef _WIN32

using LockHandle = int;
constexpr LockHandle kNoHandle = -1;

// The directory itself is what is locked: flock works on a directory's descriptor, and so
// no lock file is left among the measuring application's files.
LockHandle OpenLockFile(const std::string& directory, int& errorNumber) {
    const int fd = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) errorNumber = errno;
    return fd;
}

// True when locked; false when another process holds it (errorNumber 0) or on an error.
bool TryLock(LockHandle handle, int& errorNumber) {
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0) return true;
    errorNumber = (errno == EWOULDBLOCK || errno == EINTR) ? 0 : errno;
    return false;
}

void CloseLockFile(LockHandle handle) {
    ::close(handle);  // closing the last descriptor releases the flock
}

#else

using LockHandle = HANDLE;
const LockHandle kNoHandle = INVALID_HANDLE_VALUE;

// A directory cannot be locked with LockFileEx: a hidden lock file in it is.
LockHandle OpenLockFile(const std::string& directory, int& errorNumber) {
    const std::string lockPath = directory + "\\" + kLockFileName;
    HANDLE file = ::CreateFileW(PathFromAnsi(lockPath).c_str(), GENERIC_READ | GENERIC_WRITE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
    if (file == INVALID_HANDLE_VALUE) errorNumber = EACCES;
    return file;
}

bool TryLock(LockHandle handle, int& errorNumber) {
    OVERLAPPED at{};
    if (::LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at))
        return true;
    errorNumber = ::GetLastError() == ERROR_LOCK_VIOLATION ? 0 : EACCES;
    return false;
}

void CloseLockFile(LockHandle handle) {
    OVERLAPPED at{};
    ::UnlockFileEx(handle, 0, 1, 0, &at);
    ::CloseHandle(handle);
}

#endif

// ---- the process's table of held locks ----------------------------------------------------

struct HeldLock {
    LockHandle handle = kNoHandle;
    int count = 0;
};

std::mutex& TableMutex() {
    static std::mutex mutex;
    return mutex;
}

std::map<std::string, HeldLock>& Table() {
    static std::map<std::string, HeldLock> table;
    return table;
}

// One key per directory, however it is spelt ("/a/b", "/a/b/", "/a/./b", a link to it).
std::string KeyOf(const std::string& directory) {
    std::error_code ec;
    const fs::path path = PathFromAnsi(directory.empty() ? std::string(".") : directory);
    const fs::path canonical = fs::weakly_canonical(path, ec);
    return PathToAnsi(ec ? path.lexically_normal() : canonical);
}

bool NoLockFilePossible(int errorNumber) {
    return errorNumber == ENOENT || errorNumber == ENOTDIR || errorNumber == EACCES ||
           errorNumber == EPERM || errorNumber == EROFS;
}

}  // namespace

std::chrono::milliseconds LockWait() {
    return std::chrono::milliseconds(lockWaitMs.load());
}

void SetLockWait(std::chrono::milliseconds wait) {
    lockWaitMs.store(wait.count());
}

DirectoryLock::DirectoryLock(DirectoryLock&& other) noexcept : key_(std::move(other.key_)) {
    other.key_.clear();
}

DirectoryLock& DirectoryLock::operator=(DirectoryLock&& other) noexcept {
    if (this != &other) {
        Release();
        key_ = std::move(other.key_);
        other.key_.clear();
    }
    return *this;
}

bool DirectoryLock::Acquire(const std::string& directory, FileError& error) {
    Release();
    const std::string key = KeyOf(directory);
    std::lock_guard table(TableMutex());
    auto it = Table().find(key);
    if (it != Table().end()) {
        ++it->second.count;
        key_ = key;
        return true;
    }
#ifdef _WIN32
    const std::string lockPath = PathToAnsi(PathFromAnsi(key) / kLockFileName);
#else
    const std::string lockPath = key;
#endif
    int errorNumber = 0;
    const LockHandle handle = OpenLockFile(key, errorNumber);
    if (handle == kNoHandle) {
        if (NoLockFilePossible(errorNumber)) return true;
        error = ErrnoError(lockPath, errorNumber);
        return false;
    }
    const auto deadline = std::chrono::steady_clock::now() + LockWait();
    for (;;) {
        errorNumber = 0;
        if (TryLock(handle, errorNumber)) break;
        if (errorNumber != 0 || std::chrono::steady_clock::now() >= deadline) {
            CloseLockFile(handle);
            if (errorNumber != 0) {
                error = ErrnoError(lockPath, errorNumber);
            } else {
                const auto seconds = static_cast<double>(LockWait().count()) / 1000.0;
                char waited[32];
                std::snprintf(waited, sizeof waited, "%.3g", seconds);
                error = FileError{key, std::string("another program is saving the settings files "
                                                   "in this directory (it holds their lock) and "
                                                   "did not finish within ") +
                                           waited + " s; nothing was written, try again"};
            }
            return false;
        }
        std::this_thread::sleep_for(kPollInterval);
    }
    Table().emplace(key, HeldLock{handle, 1});
    key_ = key;
    return true;
}

void DirectoryLock::Release() {
    if (key_.empty()) return;
    std::lock_guard table(TableMutex());
    auto it = Table().find(key_);
    if (it != Table().end() && --it->second.count == 0) {
        CloseLockFile(it->second.handle);
        Table().erase(it);
    }
    key_.clear();
}

}  // namespace wk::platform
