#pragma once
// The shared temporary Wine prefix, plus a cleared store of parsed files, so that no parsed
// file or resolved name leaks from one profile-engine test into the next.

#include <gtest/gtest.h>

#include <filesystem>
#include <mutex>
#include <string>

#include "platform/profile.h"
#include "platform/profile_store.h"
#include "support/file_bytes.h"
#include "support/temp_prefix.h"

namespace wk::test {

class EnginePrefix : public TempWinePrefix {
public:
    EnginePrefix() { ClearStore(); }
    ~EnginePrefix() { ClearStore(); }

    static void ClearStore() {
        auto& store = platform::ProfileStore::Instance();
        std::lock_guard lock(store.Mutex());
        store.Clear();
    }

    std::string WinPath(const std::string& name) const { return WindowsFile(name).string(); }

    static void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
        WriteFileBytes(path, bytes);
    }
    static std::string ReadBytes(const std::filesystem::path& path) { return ReadFileBytes(path); }
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
