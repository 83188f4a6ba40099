#pragma once
// Language libraries and working directories for the language tests.

#include <filesystem>
#include <string>

namespace wk::test {

// A library built from tests/i18n/data: "test_eng32.dll", "test_eng64.dll",
// "test_ita32.dll", "test_no_strings.dll", "test_own_strings.dll".
std::filesystem::path TestLibrary(const std::string& name);

// The bytes of a test library.
std::string TestLibraryBytes(const std::string& name);

// A temporary directory that is the working directory for the object's lifetime: the
// language libraries and help files are looked up relative to it.
class TempWorkingDirectory {
public:
    TempWorkingDirectory();
    ~TempWorkingDirectory();

    TempWorkingDirectory(const TempWorkingDirectory&) = delete;
    TempWorkingDirectory& operator=(const TempWorkingDirectory&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    // Copies a test library into the directory under `name`.
    void CopyLibrary(const std::string& library, const std::string& name) const;

    // Writes a file (creating its folders) at `relative` with `bytes`.
    void WriteFile(const std::string& relative, const std::string& bytes) const;

private:
    std::filesystem::path previous_;
    std::filesystem::path path_;
};

}  // namespace wk::test
