#include "i18n_test_support.h"

#include <system_error>

#include "platform/scratch_directory.h"
#include "support/file_bytes.h"

namespace wk::test {

std::filesystem::path TestLibrary(const std::string& name) {
    return std::filesystem::path(WKESTEL_TEST_LIBRARY_DIR) / name;
}

std::string TestLibraryBytes(const std::string& name) {
    return ReadFileBytes(TestLibrary(name));
}

TempWorkingDirectory::TempWorkingDirectory()
    : previous_(std::filesystem::current_path()),
      path_(platform::MakeScratchDirectory("wkestel-cwd-")) {
    std::filesystem::current_path(path_);
}

TempWorkingDirectory::~TempWorkingDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(previous_, ignored);
    platform::RemoveScratchDirectory(path_);
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
