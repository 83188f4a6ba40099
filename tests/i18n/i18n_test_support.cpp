#include "i18n_test_support.h"

#include <atomic>
#include <chrono>
#include <system_error>

#include "support/file_bytes.h"

namespace wk::test {

std::filesystem::path TestLibrary(const std::string& name) {
    return std::filesystem::path(WKESTEL_TEST_LIBRARY_DIR) / name;
}

std::string TestLibraryBytes(const std::string& name) {
    return ReadFileBytes(TestLibrary(name));
}

TempWorkingDirectory::TempWorkingDirectory() : previous_(std::filesystem::current_path()) {
    static std::atomic<unsigned> counter{0};
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    for (;;) {
        path_ = std::filesystem::temp_directory_path() /
                ("wkestel-cwd-" + std::to_string(stamp) + "-" + std::to_string(++counter));
        if (std::filesystem::create_directory(path_)) break;
    }
    std::filesystem::current_path(path_);
}

TempWorkingDirectory::~TempWorkingDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(previous_, ignored);
    std::filesystem::remove_all(path_, ignored);
}

void TempWorkingDirectory::CopyLibrary(const std::string& library, const std::string& name) const {
    std::filesystem::copy_file(TestLibrary(library), path_ / name,
                               std::filesystem::copy_options::overwrite_existing);
}

void TempWorkingDirectory::WriteFile(const std::string& relative, const std::string& bytes) const {
    std::filesystem::path target = path_ / relative;
    std::filesystem::create_directories(target.parent_path());
    WriteFileBytes(target, bytes);
}

}  // namespace wk::test
