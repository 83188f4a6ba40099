#pragma once
// A throw-away Wine prefix for the settings tests: $TMP/wkestel-settings-XXXXXX with
// drive_c/windows and dosdevices/c: -> ../drive_c, made the platform's prefix for the
// lifetime of the object. Nothing touches ~/.wine.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/profile.h"
#include "platform/windows_directory.h"
#include "settings/setup_settings.h"

namespace wk::test {

class SettingsTestPrefix {
public:
    SettingsTestPrefix() {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "wkestel-settings-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
        root_ = pattern;
        std::filesystem::create_directories(WindowsDir());
        std::filesystem::create_directories(root_ / "dosdevices");
        std::filesystem::create_directory_symlink("../drive_c", root_ / "dosdevices" / "c:");
        wk::platform::SetWinePrefixOverride(root_.string());
    }
    ~SettingsTestPrefix() {
        wk::platform::SetWinePrefixOverride("");
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    SettingsTestPrefix(const SettingsTestPrefix&) = delete;
    SettingsTestPrefix& operator=(const SettingsTestPrefix&) = delete;

    const std::filesystem::path& Root() const { return root_; }
    std::filesystem::path WindowsDir() const { return root_ / "drive_c" / "windows"; }

    void WriteFile(const std::string& name, const std::string& bytes) const {
        std::ofstream out(WindowsDir() / name, std::ios::binary | std::ios::trunc);
        out << bytes;
    }
    std::string ReadFile(const std::string& name) const {
        std::ifstream in(WindowsDir() / name, std::ios::binary);
        std::ostringstream text;
        text << in.rdbuf();
        return text.str();
    }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(WindowsDir() / name);
    }

private:
    std::filesystem::path root_;
};

// A value of a file as the platform reads it; "<missing>" when the key is absent.
inline std::string ValueIn(const char* fileName, const char* section, const char* key) {
    char buffer[1024];
    wk::GetPrivateProfileStringA(section, key, "<missing>", buffer, sizeof buffer, fileName);
    return buffer;
}

// Lines joined with CRLF, as the measuring application's files are.
inline std::string Crlf(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

// A record built and read as start-up builds and reads it.
inline std::unique_ptr<SetupSettings> ReadRecord(const ControllerFlags& flags = {}) {
    auto record = std::make_unique<SetupSettings>(flags);
    record->ReadAll();
    return record;
}

inline ControllerFlags TcpipController() { return ControllerFlagsFromType("RMD"); }

}  // namespace wk::test
