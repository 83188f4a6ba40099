#include "platform/scratch_directory.h"

#include <random>
#include <stdexcept>
#include <system_error>

namespace wk::platform {
namespace fs = std::filesystem;

fs::path MakeScratchDirectory(const std::string& stem) {
    // create_directory fails when the name exists, so a name taken by another process is
    // simply skipped; the random suffix makes that rare.
    static std::mt19937_64 random{std::random_device{}()};
    std::error_code ec;
    const fs::path base = fs::temp_directory_path(ec);
    if (ec) throw std::runtime_error("no temporary directory: " + ec.message());
    for (int attempt = 0; attempt < 100; ++attempt) {
        const fs::path dir = base / (stem + std::to_string(random()));
        if (fs::create_directory(dir, ec)) return dir;
        if (ec) throw std::runtime_error("cannot create " + dir.string() + ": " + ec.message());
    }
    throw std::runtime_error("cannot find a free name for a directory in " + base.string());
}

void RemoveScratchDirectory(const fs::path& root) {
    std::error_code ignored;
    for (auto it = fs::recursive_directory_iterator(root, ignored);
         it != fs::recursive_directory_iterator(); it.increment(ignored)) {
        if (!it->is_symlink(ignored))
            fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::permissions(root, fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(root, ignored);
}

ScratchWinePrefix::ScratchWinePrefix(const std::string& stem) : root_(MakeScratchDirectory(stem)) {
    fs::create_directories(WindowsDir());
    fs::create_directories(root_ / "dosdevices");
    std::error_code ignored;  // without symlinks, drive_c still serves as C:
    fs::create_directory_symlink("../drive_c", root_ / "dosdevices" / "c:", ignored);
}

ScratchWinePrefix::~ScratchWinePrefix() { RemoveScratchDirectory(root_); }

}  // namespace wk::platform
