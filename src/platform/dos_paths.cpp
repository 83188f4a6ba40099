#include "platform/dos_paths.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/ascii_case.h"
#include "platform/file_lookup.h"
#include "platform/host_path.h"
#include "platform/windows_api.h"
#include "platform/windows_directory.h"

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace wk::platform {
namespace fs = std::filesystem;

namespace {

bool HasDrive(const std::string& path) {
    return path.size() >= 2 && std::isalpha(static_cast<unsigned char>(path[0])) && path[1] == ':';
}

#ifndef _WIN32
std::vector<std::string> SplitComponents(std::string_view path) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i == path.size() || path[i] == '\\' || path[i] == '/') {
            if (i > start) parts.emplace_back(path.substr(start, i - start));
            start = i + 1;
        }
    }
    return parts;
}

// The host directory a drive link of the prefix stands for, made absolute and resolved as
// far as it exists.
fs::path ResolveDriveLink(const fs::path& link) {
    std::error_code ec;
    fs::path target = fs::canonical(link, ec);
    if (!ec) return target;
    fs::path raw = fs::read_symlink(link, ec);
    if (ec) return fs::absolute(link, ec).lexically_normal();
    if (raw.is_relative()) raw = link.parent_path() / raw;
    return fs::weakly_canonical(raw, ec).lexically_normal();
}

// The drives of the prefix: letter and host directory. C: is drive_c when it has no link.
std::vector<std::pair<char, fs::path>> Drives() {
    std::vector<std::pair<char, fs::path>> drives;
    const fs::path prefix = WinePrefix();
    const fs::path dosdevices = prefix / "dosdevices";
    bool haveC = false;
    std::error_code ec;
    for (fs::directory_iterator it(dosdevices, ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.size() != 2 || name[1] != ':' ||
            !std::isalpha(static_cast<unsigned char>(name[0]))) {
            continue;
        }
        const char letter = ToLowerAscii(name[0]);
        if (letter == 'c') haveC = true;
        drives.emplace_back(letter, ResolveDriveLink(it->path()));
    }
    if (!haveC) {
        std::error_code canonicalEc;
        fs::path driveC = fs::weakly_canonical(prefix / "drive_c", canonicalEc);
        drives.emplace_back('c', canonicalEc ? prefix / "drive_c" : driveC);
    }
    return drives;
}

std::optional<fs::path> DriveRoot(char letter) {
    letter = ToLowerAscii(letter);
    const fs::path prefix = WinePrefix();
    const fs::path link = prefix / "dosdevices" / (std::string(1, letter) + ":");
    std::error_code ec;
    if (fs::exists(fs::symlink_status(link, ec))) return ResolveDriveLink(link);
    if (letter == 'c') {
        fs::path driveC = fs::weakly_canonical(prefix / "drive_c", ec);
        return ec ? prefix / "drive_c" : driveC;
    }
    return std::nullopt;
}
#endif

}  // namespace

bool IsDosPath(const std::string& path) {
    return HasDrive(path) || path.find('\\') != std::string::npos;
}

std::optional<std::string> DosToHostPath(const std::string& dosPath) {
#ifdef _WIN32
    return dosPath;
#else
    const char letter = HasDrive(dosPath) ? dosPath[0] : 'c';
    const std::optional<fs::path> root = DriveRoot(letter);
    if (!root) return std::nullopt;
    fs::path host = *root;
    bool matching = true;  // existing components are matched until one is missing
    for (const std::string& part :
         SplitComponents(HasDrive(dosPath) ? dosPath.substr(2) : dosPath)) {
        if (part == ".") continue;
        if (part == "..") {
            if (host != *root) host = host.parent_path();
            continue;
        }
        std::error_code ec;
        if (matching && !fs::exists(fs::symlink_status(host / part, ec))) {
            if (auto entry = FindEntryIgnoringCase(host, part)) {
                host = *entry;
                continue;
            }
            matching = false;
        }
        host /= part;
    }
    return host.string();
#endif
}

std::optional<std::string> HostToDosPath(const std::string& hostPath) {
#ifdef _WIN32
    return hostPath;
#else
    std::error_code ec;
    fs::path host = fs::weakly_canonical(fs::absolute(hostPath, ec), ec).lexically_normal();
    if (ec) return std::nullopt;
    std::optional<std::pair<char, fs::path>> best;
    std::size_t bestDepth = 0;
    for (const auto& [letter, target] : Drives()) {
        const fs::path normal = target.lexically_normal();
        auto t = normal.begin();
        auto h = host.begin();
        std::size_t depth = 0;
        for (; t != normal.end() && h != host.end() && *t == *h; ++t, ++h) ++depth;
        if (t != normal.end() && !t->empty()) continue;  // not inside this drive
        if (!best || depth > bestDepth) {
            best.emplace(letter, normal);
            bestDepth = depth;
        }
    }
    if (!best) return std::nullopt;
    std::string dos(1, ToUpperAscii(best->first));
    dos += ":";
    const fs::path relative = host.lexically_relative(best->second);
    bool any = false;
    for (const fs::path& part : relative) {
        if (part.empty() || part == ".") continue;
        dos += '\\';
        dos += part.string();
        any = true;
    }
    if (!any) dos += "\\";
    return dos;
#endif
}

std::vector<DosDrive> DosDrives() {
    std::vector<DosDrive> drives;
#ifdef _WIN32
    const DWORD mask = ::GetLogicalDrives();
    for (int i = 0; i < 26; ++i) {
        if (mask & (DWORD{1} << i)) {
            const char letter = static_cast<char>('A' + i);
            drives.push_back({letter, std::string(1, letter) + ":\\"});
        }
    }
#else
    for (const auto& [letter, target] : Drives()) {
        drives.push_back({ToUpperAscii(letter), target.string()});
    }
    std::sort(drives.begin(), drives.end(),
              [](const DosDrive& a, const DosDrive& b) { return a.letter < b.letter; });
#endif
    return drives;
}

std::string ToHostPath(const std::string& path) {
#ifdef _WIN32
    return path;
#else
    if (!IsDosPath(path)) return path;
    if (auto host = DosToHostPath(path)) return *host;
    std::string slashed = path;
    for (char& c : slashed) {
        if (c == '\\') c = '/';
    }
    return slashed;
#endif
}

std::FILE* OpenFileA(const char* path, const char* mode) {
    if (path == nullptr || mode == nullptr) return nullptr;
    std::string hostMode;
    for (const char* m = mode; *m != '\0'; ++m) {
        if (*m != 't') hostMode.push_back(*m);  // text mode is the only mode outside Windows
    }
    const bool reading = hostMode == "r" || hostMode == "rb";
#ifdef _WIN32
    // The name is ANSI-code-page bytes; the file system's names are UTF-16 (host_path.h).
    const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
    std::FILE* file = ::_wfopen(PathFromAnsi(path).c_str(), wideMode.c_str());
    // A device ("CON", "\\.\COM1") or a pipe is no settings file: a console would wait
    // for typing, a port for data.
    if (file != nullptr && reading &&
        ::GetFileType(reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(file)))) !=
            FILE_TYPE_DISK) {
        std::fclose(file);
        errno = ENODEV;
        return nullptr;
    }
    return file;
#else
    const std::string host = ToHostPath(path);
    if (!reading) return std::fopen(host.c_str(), hostMode.c_str());
    // A file that is read must be a regular file: opening a named pipe would wait for a
    // writer for ever, and a device such as /dev/zero never ends. It is opened without
    // blocking and looked at before anything is read.
    const int fd = ::open(host.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (fd < 0) return nullptr;
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        const int why = S_ISDIR(st.st_mode) ? EISDIR : ENODEV;
        ::close(fd);
        errno = why;
        return nullptr;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    std::FILE* file = ::fdopen(fd, hostMode.c_str());
    if (file == nullptr) ::close(fd);
    return file;
#endif
}

bool DeleteFileA(const char* path) {
    if (path == nullptr) return false;
    std::error_code ec;
    return fs::remove(PathFromAnsi(ToHostPath(path)), ec) && !ec;
}

bool FileExistsA(const char* path) {
    if (path == nullptr) return false;
    std::error_code ec;
    return fs::is_regular_file(PathFromAnsi(ToHostPath(path)), ec);
}

bool DirectoryExistsA(const char* path) {
    if (path == nullptr) return false;
    std::error_code ec;
    return fs::is_directory(PathFromAnsi(ToHostPath(path)), ec);
}

}  // namespace wk::platform
