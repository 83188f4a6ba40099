// Two `wkestel` processes writing the same file at the same time: each replaces the whole
// file, so without the writers' lock one would lose the other's change. With it, none is
// lost.

#include <gtest/gtest.h>

#include <string>

#include "process_support.h"
#include "support/temp_prefix.h"

namespace wk::test {
namespace {

// Large enough that reading and replacing it takes a while: the two writers overlap.
std::string LargeFile() {
    std::string text = "[FIRST]\r\nVALUE=0\r\n[SECOND]\r\nVALUE=0\r\n";
    for (int s = 0; s < 40; ++s) {
        text += "[TABLE " + std::to_string(s) + "]\r\n";
        for (int k = 0; k < 200; ++k) text += "K" + std::to_string(k) + "=0.125,0.25,0.5\r\n";
    }
    return text;
}

TEST(ConcurrentWriters, TwoProfileSetsOnDifferentSectionsBothLandEveryTime) {
    TempWinePrefix prefix;
    const std::string root = prefix.Root().string();
    constexpr int kTries = 40;
    int bothLanded = 0;
    for (int attempt = 1; attempt <= kTries; ++attempt) {
        prefix.WriteWindowsFile("WZELKO.INI", LargeFile());
        const std::string value = std::to_string(attempt);
        const pid_t first = StartWkestel(
            {"--prefix", root, "profile", "set", "WZELKO.INI", "FIRST", "VALUE", value});
        const pid_t second = StartWkestel(
            {"--prefix", root, "profile", "set", "WZELKO.INI", "SECOND", "VALUE", value});
        ASSERT_EQ(WaitFor(first), 0);
        ASSERT_EQ(WaitFor(second), 0);
        const std::string after = prefix.ReadWindowsFile("WZELKO.INI");
        const bool firstLanded =
            after.find("[FIRST]\r\nVALUE=" + value + "\r\n") != std::string::npos;
        const bool secondLanded =
            after.find("[SECOND]\r\nVALUE=" + value + "\r\n") != std::string::npos;
        if (firstLanded && secondLanded) ++bothLanded;
    }
    EXPECT_EQ(bothLanded, kTries);
}

}  // namespace
}  // namespace wk::test
