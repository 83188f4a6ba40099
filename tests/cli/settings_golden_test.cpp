// `wkestel check`, `show`, `show --json` and `resave` on fixed pairs of settings files, against
// the outputs kept in tests/cli/golden: every byte read, written and listed stays as it was.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli_test_support.h"
#include "support/file_bytes.h"
#include "support/temp_prefix.h"

#ifndef WKESTEL_CLI_GOLDEN_DIR
#error "WKESTEL_CLI_GOLDEN_DIR must name tests/cli/golden"
#endif

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::ReadFileBytes;
using test::RunCli;
using test::TempWinePrefix;

const char kPlaceholder[] = "<windows directory>";

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

class SettingsGoldenTest : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        const fs::path input = Dir() / "input";
        for (const char* name : {"WZELKO.INI", "WZELKO32.INI"}) {
            if (fs::exists(input / name)) {
                prefix.WriteWindowsFile(name, ReadFileBytes(input / name));
            }
        }
    }
    static fs::path Dir() { return fs::path(WKESTEL_CLI_GOLDEN_DIR) / GetParam(); }
    static std::string Expected(const std::string& name) {
        return ReadFileBytes(Dir() / "expected" / name);
    }
    // The output with the test's own Windows directory in neutral form.
    std::string Neutral(const std::string& out) const {
        return ReplaceAll(out, prefix.WindowsDir().string(), kPlaceholder);
    }
    TempWinePrefix prefix;
};

TEST_P(SettingsGoldenTest, CheckReportsTheSameChangesAsBefore) {
    const auto result = RunCli({"check"});
    const std::string expected = Expected("check.txt");
    EXPECT_EQ(result.out, expected);
    EXPECT_EQ(result.exitCode, expected.find("would change") != std::string::npos ? 1 : 0)
        << result.err;
}

TEST_P(SettingsGoldenTest, ShowListsEverySettingAsBefore) {
    const auto result = RunCli({"show"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Neutral(result.out), Expected("show.txt"));
}

TEST_P(SettingsGoldenTest, ShowJsonListsEverySettingAsBefore) {
    const auto result = RunCli({"show", "--json"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(Neutral(result.out), Expected("show.json"));
}

TEST_P(SettingsGoldenTest, ResaveWritesTheSameBytesAsBefore) {
    const auto result = RunCli({"resave"});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(prefix.ReadWindowsFile("WZELKO.INI"), Expected("resaved.WZELKO.INI"));
    EXPECT_EQ(prefix.ReadWindowsFile("WZELKO32.INI"), Expected("resaved.WZELKO32.INI"));
}

INSTANTIATE_TEST_SUITE_P(Golden, SettingsGoldenTest,
                         ::testing::Values("demo-machine", "missing", "none-upper", "none-lower",
                                           "quirky"),
                         [](const ::testing::TestParamInfo<const char*>& info) {
                             std::string name = info.param;
                             for (char& c : name) {
                                 if (c == '-') c = '_';
                             }
                             return name;
                         });

}  // namespace
}  // namespace wk
