#include "support/temp_prefix.h"

#include <atomic>
#include <chrono>
#include <system_error>

#include "platform/windows_directory.h"
#include "support/file_bytes.h"

namespace wk::test {
namespace {

std::filesystem::path UniqueTempDir() {
    static std::atomic<unsigned> counter{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    for (;;) {
        auto dir = std::filesystem::temp_directory_path() /
                   ("wkestel-prefix-" + std::to_string(stamp) + "-" + std::to_string(++counter));
        if (std::filesystem::create_directory(dir)) return dir;
    }
}

}  // namespace

TempWinePrefix::TempWinePrefix() : root_(UniqueTempDir()) {
    std::filesystem::create_directories(WindowsDir());
    std::filesystem::create_directories(root_ / "dosdevices");
    std::error_code ignored;  // file systems without symlinks still have drive_c as C:
    std::filesystem::create_directory_symlink("../drive_c", root_ / "dosdevices" / "c:", ignored);
    platform::SetWinePrefixOverride(root_.string());
}

TempWinePrefix::~TempWinePrefix() {
    platform::SetWinePrefixOverride("");
    std::error_code ignored;
    // Tests may have made parts read-only; give permissions back so that cleanup works.
    for (auto it = std::filesystem::recursive_directory_iterator(root_, ignored);
         it != std::filesystem::recursive_directory_iterator(); it.increment(ignored)) {
        if (!it->is_symlink(ignored))
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all,
                                         std::filesystem::perm_options::add, ignored);
    }
    std::filesystem::permissions(root_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(root_, ignored);
}

void TempWinePrefix::WriteWindowsFile(const std::string& name, const std::string& bytes) const {
    WriteFileBytes(WindowsFile(name), bytes);
}

std::string TempWinePrefix::ReadWindowsFile(const std::string& name) const {
    return ReadFileBytes(WindowsFile(name));
}

}  // namespace wk::test
