#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli_test_support.h"
#include "language_test_fixture.h"

namespace wk::test {
namespace {

class StringsCommand : public LanguageTest {
protected:
    CliResult Run(std::vector<std::string> args) {
        args.insert(args.begin(), {"--prefix", prefix_.Root().string(), "strings"});
        return RunCli(args);
    }
};

TEST_F(StringsCommand, PrintsTheStringsAskedForAsTheWindowShowsThemInUtf8) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=ENG\r\n");
    auto r = Run({"1", "4", "40", "5"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    // Every byte goes through the OEM conversion: 0x82 is e acute in code page 850, and 0x80
    // (the euro sign of the library's text) is C cedilla there.
    EXPECT_EQ(r.out, "1\tGeneral Setup\n4\tByte \xc3\xa9 for OEM\n40\tEuro \xc3\x87\n5\t\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(StringsCommand, WithoutIdsPrintsEveryStringOfTheLibraryInOrder) {
    cwd_.CopyLibrary("test_ita32.dll", "Kes32_ita.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=ita\r\nNO ANSI-OEM CONVERSION=ITA\r\n");
    auto r = Run({});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    // No conversion: byte 0x82 of Windows-1252 is a low quotation mark.
    EXPECT_EQ(r.out, "1\tImpostazioni generali\n4\tByte \xe2\x80\x9a per OEM\n");
}

TEST_F(StringsCommand, CutsStringsTo199Characters) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    auto r = Run({"2"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    ASSERT_GT(r.out.size(), 3u);
    EXPECT_EQ(r.out.size(), std::string("2\t").size() + 199 + 1);
}

TEST_F(StringsCommand, LanguageOptionOverridesTheSettingsFile) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    cwd_.CopyLibrary("test_ita32.dll", "Kes32_ita.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=ENG\r\n");
    auto r = Run({"--language", "ITA", "1"});
    EXPECT_EQ(r.out, "1\tImpostazioni generali\n");
}

TEST_F(StringsCommand, LanguageNoneMeansEnglish) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    cwd_.CopyLibrary("test_ita32.dll", "Kes32_NONE.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=NONE\r\n");
    auto r = Run({"1"});
    EXPECT_EQ(r.out, "1\tGeneral Setup\n");
}

TEST_F(StringsCommand, LowerCaseNoneIsACodeOfItsOwn) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    cwd_.CopyLibrary("test_ita32.dll", "Kes32_none.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=none\r\n");
    auto r = Run({"1"});
    EXPECT_EQ(r.out, "1\tImpostazioni generali\n");
}

TEST_F(StringsCommand, UnknownLanguageFallsBackToEnglish) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    WriteSettings("[Wzelko]\r\nLANGUAGE=FRA\r\n");
    auto r = Run({"1"});
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_EQ(r.out, "1\tGeneral Setup\n");
}

TEST_F(StringsCommand, NoLibrarySaysToCheckTheWorkingDirectoryAndFails) {
    WriteSettings("[Wzelko]\r\nLANGUAGE=ITA\r\nSYSTEM_DIR=C:\\WZELKO\r\n");
    auto r = Run({"1"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "Be sure working dir is correct ! (C:\\WZELKO)\n");
}

TEST_F(StringsCommand, LibraryThatDoesNotLoadShowsTheErrorAndFails) {
    cwd_.WriteFile("Kes32_eng.dll", "garbage");
    auto r = Run({"--language", "ENG", "1"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err,
              "ERROR: In ResourceFile::ResourceFile(const char *) -> Error while loading "
              "Kes32_ENG.dll\n");
}

TEST_F(StringsCommand, IdOutOfRangeIsAUsageError) {
    cwd_.CopyLibrary("test_eng32.dll", "Kes32_eng.dll");
    auto r = Run({"70000"});
    EXPECT_EQ(r.exitCode, 2);
}

}  // namespace
}  // namespace wk::test
