#pragma once
// Throw-away directories and Wine prefixes.
//
// `wkestel check` tries a save on copies of the settings files without touching the real ones;
// tests and benchmarks work in prefixes of their own. All of them need a fresh directory that
// nobody else uses and that is gone again afterwards.

#include <filesystem>
#include <string>

namespace wk::platform {

// Creates a new, empty directory in the system's temporary directory, named `stem` followed
// by a unique suffix. Throws std::runtime_error when none can be made.
std::filesystem::path MakeScratchDirectory(const std::string& stem);

// Removes a directory tree, giving its owner the permissions back first, so that a tree made
// partly read-only is removed too. Errors are ignored: this is cleanup.
void RemoveScratchDirectory(const std::filesystem::path& root);

// A Wine prefix in a scratch directory: drive_c/windows (the Windows directory) and
// dosdevices/c: -> ../drive_c, like a prefix made by Wine. Removed on destruction. It does not
// point the platform at itself: the owner decides when (SetWinePrefixOverride).
class ScratchWinePrefix {
public:
    explicit ScratchWinePrefix(const std::string& stem = "wkestel-prefix-");
    ~ScratchWinePrefix();

    ScratchWinePrefix(const ScratchWinePrefix&) = delete;
    ScratchWinePrefix& operator=(const ScratchWinePrefix&) = delete;

    const std::filesystem::path& Root() const { return root_; }
    std::filesystem::path WindowsDir() const { return root_ / "drive_c" / "windows"; }

private:
    std::filesystem::path root_;
};

}  // namespace wk::platform
