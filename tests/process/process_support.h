#pragma once
// Running the built `wkestel` as a separate process, as a user or a script does: started,
// waited for, or killed with SIGKILL at a chosen moment. For the tests that only separate
// processes can make: a kill in the middle of a save, two writers at once.

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace wk::test {

// Starts `wkestel` with the arguments; its output goes nowhere. Returns its process id.
pid_t StartWkestel(const std::vector<std::string>& args);

// Waits for the process and returns its exit code (-1 when it did not exit normally).
int WaitFor(pid_t pid);

// Runs `wkestel` to its end and returns its exit code.
int RunWkestel(const std::vector<std::string>& args);

// Kills the process with SIGKILL after `delay` (at once when it has already ended) and
// reaps it. True when the kill found it still running.
bool KillAfter(pid_t pid, std::chrono::microseconds delay);

// Every regular file of a directory, by name, with its bytes.
std::map<std::string, std::string> DirectoryFiles(const std::filesystem::path& dir);

// Removes every entry of a directory and writes the given files into it.
void ResetDirectory(const std::filesystem::path& dir,
                    const std::map<std::string, std::string>& files);

// The names in a directory that are temporary files of this program (".NAME.wkestel-XXXXXX").
std::vector<std::string> TemporaryFiles(const std::filesystem::path& dir);

// How many rounds a kill test runs: WKESTEL_KILL_ROUNDS, else `fallback`.
int KillRounds(int fallback);

}  // namespace wk::test
