// hold_lock.exe DIRECTORY SECONDS
//
// Holds the writers' lock of DIRECTORY for SECONDS, as another writer of the settings files
// would: LockFileEx on the first byte of DIRECTORY\.wkestel.lock, taken with the system's own
// calls rather than with the program's lock code, so that the test shows that wkestel.exe
// honours a lock it did not take itself. Prints "held" once the lock is held, then "released".

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: hold_lock DIRECTORY SECONDS\n");
        return 2;
    }
    const std::string lockPath = std::string(argv[1]) + "\\.wkestel.lock";
    HANDLE file = ::CreateFileA(lockPath.c_str(), GENERIC_READ | GENERIC_WRITE,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        std::fprintf(stderr, "hold_lock: cannot open %s (error %lu)\n", lockPath.c_str(),
                     ::GetLastError());
        return 1;
    }
    OVERLAPPED at{};
    if (!::LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &at)) {
        std::fprintf(stderr, "hold_lock: %s is locked already (error %lu)\n", lockPath.c_str(),
                     ::GetLastError());
        return 1;
    }
    std::printf("held\n");
    std::fflush(stdout);
    ::Sleep(static_cast<DWORD>(std::atoi(argv[2])) * 1000);
    ::UnlockFileEx(file, 0, 1, 0, &at);
    ::CloseHandle(file);
    std::printf("released\n");
    return 0;
}
