#pragma once
// What the tests of the commands on the settings files share: a Wine prefix of the test's own
// that the commands are pointed at with --prefix, and files written line by line with the CR LF
// the measuring application writes (Crlf, file_bytes.h).

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/file_bytes.h"
#include "support/temp_prefix.h"

namespace wk::test {

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
