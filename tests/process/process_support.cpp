#include "process_support.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <thread>

#include "support/file_bytes.h"

extern char** environ;

#ifndef WKESTEL_BINARY
#error "WKESTEL_BINARY must name the built wkestel"
#endif

namespace wk::test {

namespace fs = std::filesystem;

pid_t StartWkestel(const std::vector<std::string>& args) {
    std::vector<std::string> words{WKESTEL_BINARY};
    words.insert(words.end(), args.begin(), args.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int error = posix_spawn(&pid, WKESTEL_BINARY, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::system_error(error, std::generic_category(), "posix_spawn");
    return pid;
}

int WaitFor(pid_t pid) {
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int RunWkestel(const std::vector<std::string>& args) {
    return WaitFor(StartWkestel(args));
}

bool KillAfter(pid_t pid, std::chrono::microseconds delay) {
    std::this_thread::sleep_for(delay);
    int status = 0;
    const bool running = ::waitpid(pid, &status, WNOHANG) == 0;
    if (running) {
        ::kill(pid, SIGKILL);
        WaitFor(pid);
    }
    return running;
}

std::map<std::string, std::string> DirectoryFiles(const fs::path& dir) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(dir)) {
        if (entry.is_regular_file()) files[entry.path().filename().string()] = ReadFileBytes(entry);
    }
    return files;
}

void ResetDirectory(const fs::path& dir, const std::map<std::string, std::string>& files) {
    for (const auto& entry : fs::directory_iterator(dir)) fs::remove_all(entry);
    for (const auto& [name, bytes] : files) WriteFileBytes(dir / name, bytes);
}

std::vector<std::string> TemporaryFiles(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) {
        const std::string name = entry.path().filename().string();
        if (name.find(".wkestel-") != std::string::npos) names.push_back(name);
    }
    return names;
}

int KillRounds(int fallback) {
    if (const char* rounds = std::getenv("WKESTEL_KILL_ROUNDS")) {
        const int n = std::atoi(rounds);
        if (n > 0) return n;
    }
    return fallback;
}

}  // namespace wk::test
