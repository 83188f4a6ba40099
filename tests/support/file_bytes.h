#pragma once
// Whole-file reads and writes for tests, byte for byte.

#include <filesystem>
#include <string>

namespace wk::test {

void WriteFileBytes(const std::filesystem::path& path, const std::string& bytes);
std::string ReadFileBytes(const std::filesystem::path& path);

}  // namespace wk::test
