#pragma once
// The settings tests' Wine prefix: the shared temporary prefix, with short names for the
// settings files and a record built as start-up builds it. Nothing touches ~/.wine.

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/profile.h"
#include "settings/setup_settings.h"
#include "support/file_bytes.h"
#include "support/temp_prefix.h"

namespace wk::test {

class SettingsTestPrefix : public TempWinePrefix {
public:
    void WriteFile(const std::string& name, const std::string& bytes) const {
        WriteWindowsFile(name, bytes);
    }
    std::string ReadFile(const std::string& name) const { return ReadFileBytes(WindowsFile(name)); }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(WindowsFile(name));
    }
};

// A value of a file as the platform reads it; "<missing>" when the key is absent.
inline std::string ValueIn(const char* fileName, const char* section, const char* key) {
    char buffer[1024];
    wk::GetPrivateProfileStringA(section, key, "<missing>", buffer, sizeof buffer, fileName);
    return buffer;
}

// A record built and read as start-up builds and reads it.
inline std::unique_ptr<SetupSettings> ReadRecord(const ControllerFlags& flags = {}) {
    auto record = std::make_unique<SetupSettings>(flags);
    record->ReadAll();
    return record;
}

inline ControllerFlags TcpipController() {
    return ControllerFlagsFromType("RMD");
}

// A test with its own prefix, whose WZELKO.INI it writes and whose WZELKO32.INI is empty unless
// it writes that too.
class SettingsFileTest : public ::testing::Test {
protected:
    void File(const std::string& wzelko) { Files(wzelko, ""); }
    // Both files, for a test of keys of WZELKO32.INI too.
    void Files(const std::string& wzelko, const std::string& wzelko32 = "") {
        prefix.WriteFile("WZELKO.INI", wzelko);
        prefix.WriteFile("WZELKO32.INI", wzelko32);
    }
    SettingsTestPrefix prefix;
};

}  // namespace wk::test
