#pragma once
// A Wine prefix of its own for each profile-engine test, in a temporary directory, so that
// no test ever touches ~/.wine. The prefix override is set for the test's lifetime and the
// engine's store is cleared, so that no parsed file leaks from one test into the next.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "platform/profile.h"
#include "platform/profile_store.h"
#include "platform/windows_directory.h"

namespace wk::test {

class EnginePrefix {
public:
    EnginePrefix() {
        std::random_device rd;
        root_ = std::filesystem::temp_directory_path() /
                ("wkestel-engine-" + std::to_string(rd()) + "-" + std::to_string(rd()));
        std::filesystem::create_directories(root_ / "drive_c" / "windows");
        std::filesystem::create_directories(root_ / "dosdevices");
        std::filesystem::create_directory_symlink("../drive_c", root_ / "dosdevices" / "c:");
        platform::SetWinePrefixOverride(root_.string());
        ClearStore();
    }
    ~EnginePrefix() {
        ClearStore();
        platform::SetWinePrefixOverride("");
        std::error_code ec;
        // Directories made read-only by a test must be writable again to be removed.
        for (auto it = std::filesystem::recursive_directory_iterator(root_, ec);
             !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
            if (it->is_directory(ec)) {
                std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                             std::filesystem::perm_options::add, ec);
            }
        }
        std::filesystem::remove_all(root_, ec);
    }
    EnginePrefix(const EnginePrefix&) = delete;
    EnginePrefix& operator=(const EnginePrefix&) = delete;

    static void ClearStore() {
        auto& store = platform::ProfileStore::Instance();
        std::lock_guard lock(store.Mutex());
        store.Clear();
    }

    std::filesystem::path Root() const { return root_; }
    std::filesystem::path WindowsDir() const { return root_ / "drive_c" / "windows"; }
    std::string WinPath(const std::string& name) const { return (WindowsDir() / name).string(); }

    static void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
        std::ofstream out(path, std::ios::binary | std::ios::trunc);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    static std::string ReadBytes(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        return s.str();
    }

private:
    std::filesystem::path root_;
};

// GetPrivateProfileStringA into a std::string (the returned count of characters).
inline std::string GetString(const char* section, const char* key, const char* def,
                             const char* file, std::uint32_t size = 1024) {
    std::string buffer(size, '\x7f');
    const std::uint32_t n = GetPrivateProfileStringA(section, key, def, buffer.data(), size, file);
    return buffer.substr(0, n);
}

// The buffer with everything a call wrote (up to the first untouched 0x7F filler).
inline std::string GetRaw(const char* section, const char* key, const char* def, const char* file,
                          std::uint32_t size, std::uint32_t* returned) {
    std::string buffer(size + 4, '\x7f');
    *returned = GetPrivateProfileStringA(section, key, def, buffer.data(), size, file);
    return buffer;
}

}  // namespace wk::test
