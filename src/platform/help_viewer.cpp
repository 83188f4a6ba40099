#include "platform/help_viewer.h"

#include "platform/windows_api.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

extern char** environ;
#endif

namespace wk {

#ifdef _WIN32

bool WinHelpA(const char* helpFile, unsigned command, std::uintptr_t data) {
    return ::WinHelpA(nullptr, helpFile, command, static_cast<ULONG_PTR>(data)) != FALSE;
}

#else

namespace {

// The path of the `wine` program on PATH; empty when there is none.
std::string FindWine() {
    const char* path = std::getenv("PATH");
    if (!path) return {};
    std::string dirs = path;
    std::size_t start = 0;
    while (start <= dirs.size()) {
        std::size_t colon = dirs.find(':', start);
        std::string dir = dirs.substr(start, colon == std::string::npos ? colon : colon - start);
        start = colon == std::string::npos ? dirs.size() + 1 : colon + 1;
        std::string candidate = (dir.empty() ? std::string(".") : dir) + "/wine";
        std::error_code ec;
        if (std::filesystem::is_regular_file(candidate, ec) && access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return {};
}

// The file as a path of drive Z:, which every Wine prefix maps to the host's root.
std::string WinePath(const std::string& hostPath) {
    std::error_code ec;
    std::string absolute = std::filesystem::absolute(hostPath, ec).lexically_normal().string();
    if (ec) absolute = hostPath;
    std::string winePath = "Z:";
    for (char c : absolute) winePath.push_back(c == '/' ? '\\' : c);
    return winePath;
}

// Starts `program` so that the editor never waits for it and leaves no zombie: an
// intermediate child starts it in a session of its own and ends at once. Between fork and
// exec only async-signal-safe calls are made (the editor has other threads). A pipe closed
// on exec tells whether the program started.
bool SpawnDetached(const std::string& program, const std::vector<std::string>& args) {
    std::vector<char*> argv;
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);

    int report[2];
    if (pipe2(report, O_CLOEXEC) != 0) return false;
    pid_t child = fork();
    if (child < 0) {
        close(report[0]);
        close(report[1]);
        return false;
    }
    if (child == 0) {
        close(report[0]);
        setsid();
        pid_t viewer = fork();
        if (viewer == 0) {
            int devNull = open("/dev/null", O_RDONLY);
            if (devNull >= 0) dup2(devNull, 0);
            execve(program.c_str(), argv.data(), environ);
            int error = errno;
            ssize_t written = write(report[1], &error, sizeof error);
            (void)written;
            _exit(127);
        }
        _exit(viewer < 0 ? 1 : 0);
    }
    close(report[1]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            close(report[0]);
            return false;
        }
    }
    int error = 0;
    ssize_t got;
    do {
        got = read(report[0], &error, sizeof error);
    } while (got < 0 && errno == EINTR);
    close(report[0]);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 && got == 0;
}

}  // namespace

bool WinHelpA(const char* helpFile, unsigned command, std::uintptr_t data) {
    if (!helpFile || command != HELP_CONTEXT) return false;
    std::error_code ec;
    if (!std::filesystem::is_regular_file(helpFile, ec)) return false;
    std::string wine = FindWine();
    if (wine.empty()) return false;
    return SpawnDetached(wine,
                         {"wine", "winhlp32", "-n", std::to_string(data), WinePath(helpFile)});
}

#endif

}  // namespace wk
