#pragma once
// What the tests of the commands on the settings files share: files written line by line with
// the CR LF the measuring application writes, and a Wine prefix of the test's own that the
// commands are pointed at with --prefix.

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>

#include "support/temp_prefix.h"

namespace wk::test {

// The lines, each ended with CR LF.
inline std::string Crlf(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

class CliPrefixTest : public ::testing::Test {
protected:
    // The prefix's root, for --prefix.
    std::string Prefix() const { return prefix.Root().string(); }
    // The bytes of a file of the prefix's Windows directory, and whether it is there.
    std::string File(const std::string& name) const { return prefix.ReadWindowsFile(name); }
    bool Exists(const std::string& name) const {
        return std::filesystem::exists(prefix.WindowsFile(name));
    }

    TempWinePrefix prefix;
};

}  // namespace wk::test
