#include "platform/windows_directory.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>

#include "platform/host_path.h"
#include "platform/windows_api.h"

namespace wk {
namespace {

std::mutex& OverrideMutex() {
    static std::mutex mutex;
    return mutex;
}

std::string& PrefixOverride() {
    static std::string prefix;
    return prefix;
}

std::string WithoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.pop_back();
    return path;
}

}  // namespace

std::uint32_t GetWindowsDirectoryA(char* buffer, std::uint32_t size) {
#ifdef _WIN32
    // A stand-in directory (see SetWinePrefixOverride) is given as Windows gives its own.
    const std::string standIn = platform::WinePrefixOverride();
    if (standIn.empty()) return ::GetWindowsDirectoryA(buffer, size);
    const std::string directory = platform::WindowsDirectoryHostPath();
    const auto length = static_cast<std::uint32_t>(directory.size());
    if (buffer == nullptr || size <= length) return length + 1;
    std::memcpy(buffer, directory.c_str(), length + 1);
    return length;
#else
    // The measuring application runs under Wine, where the Windows directory is C:\windows.
    static constexpr char kWineWindowsDirectory[] = "C:\\windows";
    constexpr std::uint32_t length = sizeof(kWineWindowsDirectory) - 1;
    if (buffer == nullptr || size <= length) return length + 1;
    std::memcpy(buffer, kWineWindowsDirectory, length + 1);
    return length;
#endif
}

namespace platform {

std::string WinePrefix() {
    {
        std::lock_guard lock(OverrideMutex());
        if (!PrefixOverride().empty()) return PrefixOverride();
    }
    if (const char* env = std::getenv("WINEPREFIX"); env != nullptr && *env != '\0') {
        return WithoutTrailingSlashes(env);
    }
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "") + "/.wine";
}

void SetWinePrefixOverride(const std::string& prefix) {
    std::lock_guard lock(OverrideMutex());
    PrefixOverride() = prefix.empty() ? std::string() : WithoutTrailingSlashes(prefix);
}

std::string WinePrefixOverride() {
    std::lock_guard lock(OverrideMutex());
    return PrefixOverride();
}

std::string WindowsDirectoryHostPath() {
#ifdef _WIN32
    // `wkestel check` tries a save in a scratch prefix: its drive_c\windows stands in for the
    // Windows directory, so that the real settings files are never written.
    if (std::string standIn = WinePrefixOverride(); !standIn.empty())
        return standIn + "\\drive_c\\windows";
    char buffer[MAX_PATH + 1];
    const UINT length = ::GetWindowsDirectoryA(buffer, sizeof buffer);
    return length > 0 && length < sizeof buffer ? std::string(buffer, length) : std::string();
#else
    return WinePrefix() + "/drive_c/windows";
#endif
}

std::optional<std::string> WindowsDirectoryProblem() {
    const std::string path = WindowsDirectoryHostPath();
    std::error_code ec;
    if (!path.empty() && std::filesystem::is_directory(platform::PathFromAnsi(path), ec))
        return std::nullopt;
#ifdef _WIN32
    return "The Windows directory " + path + " cannot be used.";
#else
    std::string source;
    {
        std::lock_guard lock(OverrideMutex());
        if (!PrefixOverride().empty()) source = "the prefix given with --prefix";
    }
    if (source.empty()) {
        const char* env = std::getenv("WINEPREFIX");
        source = (env != nullptr && *env != '\0') ? "WINEPREFIX" : "the default prefix ~/.wine";
    }
    const bool exists = std::filesystem::exists(path, ec);
    return "The Windows directory of the measuring application, " + path +
           (exists ? ", is not a directory" : ", does not exist") + " (looked in the Wine prefix " +
           WinePrefix() + ", from " + source +
           "). Set WINEPREFIX (or pass --prefix) to the Wine prefix in which the measuring "
           "application is installed.";
#endif
}

}  // namespace platform
}  // namespace wk
