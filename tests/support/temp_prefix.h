#pragma once
// A Wine prefix in a temporary directory, for tests that must never touch ~/.wine.
//
// It has drive_c/windows (the Windows directory) and dosdevices/c: -> ../drive_c, like a
// prefix made by Wine, and points the platform at itself for its lifetime.

#include <filesystem>
#include <string>

#include "platform/scratch_directory.h"

namespace wk::test {

class TempWinePrefix {
public:
    TempWinePrefix();
    ~TempWinePrefix();

    TempWinePrefix(const TempWinePrefix&) = delete;
    TempWinePrefix& operator=(const TempWinePrefix&) = delete;

    const std::filesystem::path& Root() const { return prefix_.Root(); }
    std::filesystem::path WindowsDir() const { return prefix_.WindowsDir(); }
    std::filesystem::path DriveC() const { return Root() / "drive_c"; }

    // The host path of a file in the Windows directory.
    std::filesystem::path WindowsFile(const std::string& name) const { return WindowsDir() / name; }

    // Writes `bytes` to a file in the Windows directory, exactly.
    void WriteWindowsFile(const std::string& name, const std::string& bytes) const;

    // The bytes of a file in the Windows directory; throws when it cannot be read.
    std::string ReadWindowsFile(const std::string& name) const;

private:
    platform::ScratchWinePrefix prefix_;
};

}  // namespace wk::test
