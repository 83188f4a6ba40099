#include "platform/file_lookup.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "platform/ascii_case.h"
#include "platform/host_path.h"

namespace wk::platform {
namespace {

namespace fs = std::filesystem;

}  // namespace

std::optional<fs::path> FindEntryIgnoringCase(const fs::path& dir, const std::string& name) {
    std::error_code ec;
    fs::path exact = dir / PathFromAnsi(name);
    if (fs::exists(fs::symlink_status(exact, ec))) return exact;
    std::vector<std::string> matches;
    fs::directory_iterator it(dir.empty() ? fs::path(".") : dir, ec);
    if (ec) return std::nullopt;
    for (; it != fs::directory_iterator(); it.increment(ec)) {
        if (ec) break;
        std::string entry = PathToAnsi(it->path().filename());
        if (EqualsIgnoringAsciiCase(entry, name)) matches.push_back(entry);
    }
    if (matches.empty()) return std::nullopt;
    std::sort(matches.begin(), matches.end());
    return dir / PathFromAnsi(matches.front());
}

std::optional<std::string> FindFileIgnoringCase(const std::string& path) {
    if (path.empty()) return std::nullopt;
#ifdef _WIN32
    std::error_code ec;
    if (fs::is_regular_file(PathFromAnsi(path), ec)) return path;
    return std::nullopt;
#else
    std::string unixPath = path;
    std::replace(unixPath.begin(), unixPath.end(), '\\', '/');
    std::error_code ec;
    if (fs::is_regular_file(fs::path(unixPath), ec)) return unixPath;

    // Walk the components, resolving each against the directory found so far.
    fs::path current;
    std::size_t pos = 0;
    if (unixPath.front() == '/') {
        current = "/";
        pos = 1;
    }
    while (pos <= unixPath.size()) {
        std::size_t slash = unixPath.find('/', pos);
        std::string component =
            unixPath.substr(pos, slash == std::string::npos ? std::string::npos : slash - pos);
        pos = slash == std::string::npos ? unixPath.size() + 1 : slash + 1;
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            current /= component;
            continue;
        }
        std::optional<fs::path> entry = FindEntryIgnoringCase(current, component);
        if (!entry) return std::nullopt;
        current = *entry;
    }
    if (!fs::is_regular_file(current, ec)) return std::nullopt;
    return current.string();
#endif
}

std::string CurrentDirectory() {
    std::error_code ec;
    fs::path cwd = fs::current_path(ec);
    if (ec) return {};
    return PathToAnsi(cwd);
}

}  // namespace wk::platform
