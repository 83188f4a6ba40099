#pragma once
// Whole-file reads and writes for tests, byte for byte.

#include <filesystem>
#include <initializer_list>
#include <string>

namespace wk::test {

void WriteFileBytes(const std::filesystem::path& path, const std::string& bytes);
std::string ReadFileBytes(const std::filesystem::path& path);

// Lines joined with CRLF, each ended with it, as the measuring application's files are.
inline std::string Crlf(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

}  // namespace wk::test
