#include "upgrade/section_names.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>

namespace wk {
namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// The work file that ListSectionNames writes for `freshBytes`.
std::string WorkFileFor(const std::string& freshBytes) {
    File fresh(std::tmpfile());
    File work(std::tmpfile());
    std::fwrite(freshBytes.data(), 1, freshBytes.size(), fresh.get());
    std::rewind(fresh.get());
    EXPECT_TRUE(ListSectionNames(fresh.get(), work.get()));
    std::rewind(work.get());
    std::string bytes;
    for (int c; (c = std::fgetc(work.get())) != EOF;) bytes.push_back(static_cast<char>(c));
    return bytes;
}

TEST(SectionNames, EachHeaderGivesItsNameOnALineInFileOrder) {
    EXPECT_EQ(WorkFileFor("; installed\r\n[WZELKO]\r\nA=1\r\n\r\n[CMM]\r\nCNC=TRUE\r\n"),
              "WZELKO\nCMM\n");
}

TEST(SectionNames, ACommentAfterTheClosingBracketIsNotPartOfTheName) {
    EXPECT_EQ(WorkFileFor("[CMM] ; the machine\r\nCNC=TRUE\r\n"), "CMM\n");
}

TEST(SectionNames, AHeaderWithoutClosingBracketRunsToTheEndOfTheLine) {
    EXPECT_EQ(WorkFileFor("[PH9\r\nTYPE=1\r\n[CMM\n"), "PH9\nCMM\n");
}

TEST(SectionNames, ALastLineWithoutLineBreakStillGivesItsName) {
    EXPECT_EQ(WorkFileFor("A=1\n[LAST]"), "LAST\n");
}

TEST(SectionNames, AnyLineHoldingABracketGivesAName) {
    // The fresh file is read as text, not parsed: a '[' in a value or a comment counts too.
    EXPECT_EQ(WorkFileFor("[A]\nLIST=x[2]\n; see [NOTES]\n"), "A\n2\nNOTES\n");
}

TEST(SectionNames, AnEmptyHeaderGivesAnEmptyName) {
    EXPECT_EQ(WorkFileFor("[]\nA=1\n"), "\n");
}

TEST(SectionNames, EachPieceOfALongLineThatHoldsABracketGivesAName) {
    // 99 characters a read: the first piece ends before "[SECOND]", which the second holds.
    const std::string line = "[FIRST]" + std::string(100, 'x') + "[SECOND]\n";
    EXPECT_EQ(WorkFileFor(line), "FIRST\nSECOND\n");
}

TEST(SectionNames, AHeaderAcrossTheEndOfAPieceIsCutThere) {
    // The '[' is the 96th character: the first piece holds "[SEC", the rest has no '['.
    const std::string line = std::string(95, ' ') + "[SECTIONNAME]\n";
    EXPECT_EQ(WorkFileFor(line), "SEC\n");
}

TEST(SectionNames, AHeaderStartingInTheSecondPieceIsWhole) {
    const std::string line = std::string(120, ' ') + "[CMM]\n";
    EXPECT_EQ(WorkFileFor(line), "CMM\n");
}

TEST(SectionNames, OnlyTheFirstBracketOfAPieceCounts) {
    EXPECT_EQ(WorkFileFor("[A][B]\n"), "A\n");
}

TEST(SectionNames, BinaryBytesAndNulsDoNotStopTheListing) {
    // A NUL ends what the piece shows, so a '[' after it on the same line is not seen.
    const std::string bytes =
        std::string("[A]\n\xff\xfe", 6) + std::string(1, '\0') + "junk[\n[B]\n";
    EXPECT_EQ(WorkFileFor(bytes), "A\nB\n");
}

TEST(SectionNames, AnEmptyFreshFileGivesAnEmptyList) {
    EXPECT_EQ(WorkFileFor(""), "");
}

TEST(SectionNameForMerge, CutsTheLineBreakAndUpperCases) {
    EXPECT_EQ(SectionNameForMerge("Controller\n"), "CONTROLLER");
    EXPECT_EQ(SectionNameForMerge("cmm\r\n"), "CMM");
    EXPECT_EQ(SectionNameForMerge("Measure Interface"), "MEASURE INTERFACE");
}

TEST(SectionNameForMerge, DropsTheBlanksThatTheProfileFunctionsIgnoreAroundAName) {
    EXPECT_EQ(SectionNameForMerge(" cmm \t\n"), "CMM");
}

TEST(SectionNameForMerge, LeavesBytesOutsideAsciiAsTheyAre) {
    EXPECT_EQ(SectionNameForMerge("caf\xe9\n"), "CAF\xe9");
}

TEST(SectionNameInPiece, IsEmptyForAPieceWithoutBracket) {
    EXPECT_FALSE(SectionNameInPiece("KEY=VALUE\n").has_value());
    EXPECT_EQ(SectionNameInPiece("  [X]  \n").value(), "X");
}

}  // namespace
}  // namespace wk
