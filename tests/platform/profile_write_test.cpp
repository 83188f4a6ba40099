// Writing settings files with WritePrivateProfileStringA: Windows edits the file in place,
// so every byte the call was not asked to change survives.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "engine_prefix.h"
#include "platform/profile.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;
using test::GetString;

class ProfileWrite : public testing::Test {
protected:
    void File(const std::string& bytes) { EnginePrefix::WriteBytes(Path(), bytes); }
    std::string Bytes() { return EnginePrefix::ReadBytes(Path()); }
    std::string Path() { return prefix.WinPath("TEST.INI"); }
    bool Write(const char* section, const char* key, const char* value) {
        return WritePrivateProfileStringA(section, key, value, "TEST.INI");
    }
    EnginePrefix prefix;
};

TEST_F(ProfileWrite, ExistingKeyKeepsItsLineSpellingAndPosition) {
    File("[Sec]\r\n  KeyA = old \r\nb=2\r\n");
    ASSERT_TRUE(Write("sec", "keya", "new"));
    EXPECT_EQ(Bytes(), "[Sec]\r\n  KeyA =new\r\nb=2\r\n");
}

TEST_F(ProfileWrite, ExistingKeyKeepsItsLineEnd) {
    File("[S]\na=1\rb=2\nc=3");
    ASSERT_TRUE(Write("S", "a", "x"));
    ASSERT_TRUE(Write("S", "b", "y"));
    EXPECT_EQ(Bytes(), "[S]\na=x\rb=y\nc=3");
}

TEST_F(ProfileWrite, ExistingKeyOnALastLineWithoutEndGetsCrLf) {
    File("[S]\na=1\nc=3");
    ASSERT_TRUE(Write("S", "c", "4"));
    EXPECT_EQ(Bytes(), "[S]\na=1\nc=4\r\n");
}

TEST_F(ProfileWrite, FirstOfDuplicateKeysIsChanged) {
    File("[S]\r\nk=1\r\nK=2\r\n");
    ASSERT_TRUE(Write("S", "k", "3"));
    EXPECT_EQ(Bytes(), "[S]\r\nk=3\r\nK=2\r\n");
}

TEST_F(ProfileWrite, KeyInTheFirstOfDuplicateSectionsIsChanged) {
    File("[S]\r\na=1\r\n[S]\r\nb=2\r\n");
    ASSERT_TRUE(Write("S", "b", "3"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nb=3\r\n[S]\r\nb=2\r\n");
}

TEST_F(ProfileWrite, NewKeyGoesRightAfterTheLastKeyLine) {
    File("[S]\r\na=1\r\n;comment\r\n\r\n[T]\r\n");
    ASSERT_TRUE(Write("S", "b", "2"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nb=2\r\n;comment\r\n\r\n[T]\r\n");
}

TEST_F(ProfileWrite, NewKeyGoesRightAfterTheHeaderOfASectionWithoutKeys) {
    File("[S]\r\n;comment\r\n\r\n[T]\r\n");
    ASSERT_TRUE(Write("S", "b", "2"));
    EXPECT_EQ(Bytes(), "[S]\r\nb=2\r\n;comment\r\n\r\n[T]\r\n");
}

TEST_F(ProfileWrite, LineWithoutEqualsCountsAsAKeyLineForPlacement) {
    File("[S]\r\na=1\r\nplain\r\n;c\r\n");
    ASSERT_TRUE(Write("S", "b", "2"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nplain\r\nb=2\r\n;c\r\n");
}

TEST_F(ProfileWrite, NewKeyAfterALastLineWithoutEndStartsAFreshLine) {
    File("[S]\nk=1");
    ASSERT_TRUE(Write("S", "n", "2"));
    EXPECT_EQ(Bytes(), "[S]\nk=1\r\nn=2\r\n");
    File("[T]");
    ASSERT_TRUE(Write("T", "n", "2"));
    EXPECT_EQ(Bytes(), "[T]\r\nn=2\r\n");
}

TEST_F(ProfileWrite, NewKeysAppearInCallOrder) {
    File("[S]\r\n");
    ASSERT_TRUE(Write("S", "a", "1"));
    ASSERT_TRUE(Write("S", "b", "2"));
    ASSERT_TRUE(Write("S", "c", "3"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nb=2\r\nc=3\r\n");
}

TEST_F(ProfileWrite, CommentKeysEndUpInReverseOrderAndAreNeverFoundAgain) {
    File("[S]\r\nk=1\r\n");
    ASSERT_TRUE(Write("S", ";one", "1"));
    ASSERT_TRUE(Write("S", ";two", "2"));
    ASSERT_TRUE(Write("S", ";one", "1"));
    EXPECT_EQ(Bytes(), "[S]\r\nk=1\r\n;one=1\r\n;two=2\r\n;one=1\r\n");
    EXPECT_EQ(GetString("S", ";one", "d", "TEST.INI"), "d");
}

TEST_F(ProfileWrite, NewSectionIsAppendedAtTheEnd) {
    File("[A]\r\na=1\r\n");
    ASSERT_TRUE(Write("B", "b", "2"));
    EXPECT_EQ(Bytes(), "[A]\r\na=1\r\n[B]\r\nb=2\r\n");
}

TEST_F(ProfileWrite, NewSectionAfterAFileWithoutFinalLineEndStartsWithCrLf) {
    File("[A]\r\na=1");
    ASSERT_TRUE(Write("B", "b", "2"));
    EXPECT_EQ(Bytes(), "[A]\r\na=1\r\n[B]\r\nb=2\r\n");
}

TEST_F(ProfileWrite, NewSectionAfterLoneCrOrLfGetsNoExtraLineEnd) {
    File("[A]\ra=1\r");
    ASSERT_TRUE(Write("B", "b", "2"));
    EXPECT_EQ(Bytes(), "[A]\ra=1\r[B]\r\nb=2\r\n");
}

TEST_F(ProfileWrite, NewSectionInAnEmptyFileHasNoLeadingLineEnd) {
    File("");
    ASSERT_TRUE(Write("S", "k", "v"));
    EXPECT_EQ(Bytes(), "[S]\r\nk=v\r\n");
}

TEST_F(ProfileWrite, NewSectionAfterJunkOrUtf8BomStartsWithCrLf) {
    File(std::string("junk\0", 5));
    ASSERT_TRUE(Write("S", "k", "v"));
    EXPECT_EQ(Bytes(), std::string("junk\0\r\n[S]\r\nk=v\r\n", 17));
    File("\xEF\xBB\xBF");
    ASSERT_TRUE(Write("S", "k", "v"));
    EXPECT_EQ(Bytes(), "\xEF\xBB\xBF\r\n[S]\r\nk=v\r\n");
}

TEST_F(ProfileWrite, NamesAreWrittenTrimmedOfSpacesOnly) {
    File("");
    ASSERT_TRUE(Write("  S  ", "  k\t ", "v"));
    EXPECT_EQ(Bytes(), "[S]\r\nk\t=v\r\n");
}

TEST_F(ProfileWrite, ValueIsWrittenVerbatim) {
    File("[S]\r\n");
    ASSERT_TRUE(Write("S", "key", " value \"q\" "));
    EXPECT_EQ(Bytes(), "[S]\r\nkey= value \"q\" \r\n");
}

TEST_F(ProfileWrite, EmptyValueWritesKeyAndEquals) {
    File("[S]\r\n");
    ASSERT_TRUE(Write("S", "key", ""));
    EXPECT_EQ(Bytes(), "[S]\r\nkey=\r\n");
}

TEST_F(ProfileWrite, EmptySectionNameWritesEmptyBrackets) {
    File("");
    ASSERT_TRUE(Write("", "k", "v"));
    EXPECT_EQ(Bytes(), "[]\r\nk=v\r\n");
    EXPECT_EQ(GetString("", "k", "d", "TEST.INI"), "v");
}

TEST_F(ProfileWrite, KeyWithLineBreakInjectsLinesAndReadsBackAsWritten) {
    File("[S]\r\na=1\r\n");
    ASSERT_TRUE(Write("S", "x\r\n[T]\r\ny", "2"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nx\r\n[T]\r\ny=2\r\n");
    EXPECT_EQ(GetString("T", "y", "d", "TEST.INI"), "2");
    ASSERT_TRUE(Write("S", "b", "3"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nx\r\nb=3\r\n[T]\r\ny=2\r\n");
}

TEST_F(ProfileWrite, KeyStartingWithBracketWritesAHeader) {
    File("[S]\r\na=1\r\n;c\r\n");
    ASSERT_TRUE(Write("S", "[T]x", "1"));
    ASSERT_TRUE(Write("S", "b", "2"));
    ASSERT_TRUE(Write("T", "c", "3"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nb=2\r\n[T]x=1\r\nc=3\r\n;c\r\n");
}

TEST_F(ProfileWrite, ValueWithLineBreakInjectsLines) {
    File("[S]\r\na=1\r\n");
    ASSERT_TRUE(Write("S", "a", "2\r\nz=9"));
    ASSERT_TRUE(Write("S", "z", "8"));
    EXPECT_EQ(Bytes(), "[S]\r\na=2\r\nz=8\r\n");
}

TEST_F(ProfileWrite, SectionNameWithBracketIsReadBackAsItsHeaderSays) {
    File("[a]\r\nk=1\r\n");
    ASSERT_TRUE(Write("a]b", "k", "2"));
    EXPECT_EQ(Bytes(), "[a]\r\nk=1\r\n[a]b]\r\nk=2\r\n");
    EXPECT_EQ(GetString("a", "k", "d", "TEST.INI"), "1");
    ASSERT_TRUE(Write("a]b", "k", "3"));
    EXPECT_EQ(Bytes(), "[a]\r\nk=1\r\n[a]b]\r\nk=2\r\n[a]b]\r\nk=3\r\n");
}

TEST_F(ProfileWrite, DeleteKeyRemovesItsLineAndLineEnd) {
    File("[S]\r\na=1\nb=2\rc=3\r\n");
    ASSERT_TRUE(Write("S", "b", nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\nc=3\r\n");
}

TEST_F(ProfileWrite, DeleteLastKeyKeepsTheSectionHeader) {
    File("[S]\r\na=1\r\n[T]\r\n");
    ASSERT_TRUE(Write("S", "a", nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\n[T]\r\n");
}

TEST_F(ProfileWrite, DeleteKeyCannotRemoveAComment) {
    File("[S]\r\n;a=1\r\n");
    ASSERT_TRUE(Write("S", ";a", nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\n;a=1\r\n");
}

TEST_F(ProfileWrite, DeleteKeyBetweenLoneCrAndEmptyLfLineRereadsTheStructure) {
    File("[S]\r\na=1\rb=2\n\nc=3\r\n");
    ASSERT_TRUE(Write("S", "b", nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nc=3\r\n");
    ASSERT_TRUE(Write("S", "d", "4"));
    EXPECT_EQ(Bytes(), "[S]\r\na=1\r\nc=3\r\nd=4\r\n");
}

TEST_F(ProfileWrite, DeleteSectionKeepsCommentsAndBlankLines) {
    File("[A]\r\na=1\r\n[S]\r\nk=1\r\n;c\r\nplain\r\n\r\nk2=2\r\n[B]\r\nb=1\r\n");
    ASSERT_TRUE(Write("s", nullptr, "ignored"));
    EXPECT_EQ(Bytes(), "[A]\r\na=1\r\n;c\r\n\r\n[B]\r\nb=1\r\n");
    ASSERT_TRUE(Write("A", "n", "1"));
    EXPECT_EQ(Bytes(), "[A]\r\na=1\r\nn=1\r\n;c\r\n\r\n[B]\r\nb=1\r\n");
}

TEST_F(ProfileWrite, DeleteSectionRemovesOnlyTheFirstOccurrence) {
    File("[S]\r\na=1\r\n[S]\r\nb=2\r\n");
    ASSERT_TRUE(Write("S", nullptr, nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\nb=2\r\n");
}

TEST_F(ProfileWrite, DeleteOfMissingKeyOrSectionSucceedsAndChangesNothing) {
    File("[S]\nk=1");
    ASSERT_TRUE(Write("S", "x", nullptr));
    ASSERT_TRUE(Write("T", "x", nullptr));
    ASSERT_TRUE(Write("T", nullptr, nullptr));
    EXPECT_EQ(Bytes(), "[S]\nk=1");
}

TEST_F(ProfileWrite, DeleteOnAMissingFileLeavesAnEmptyFile) {
    ASSERT_TRUE(Write("S", "k", nullptr));
    ASSERT_TRUE(fs::exists(Path()));
    EXPECT_EQ(fs::file_size(Path()), 0u);
    fs::remove(Path());
    ASSERT_TRUE(Write("S", nullptr, nullptr));
    ASSERT_TRUE(fs::exists(Path()));
    EXPECT_EQ(fs::file_size(Path()), 0u);
}

TEST_F(ProfileWrite, NullSectionWithAKeyFailsAndLeavesTheFileUntouched) {
    EXPECT_FALSE(Write(nullptr, "k", "v"));
    EXPECT_FALSE(fs::exists(Path()));
    EXPECT_FALSE(LastProfileError().empty());
    File("[S]\r\n");
    EXPECT_FALSE(Write(nullptr, "k", nullptr));
    EXPECT_EQ(Bytes(), "[S]\r\n");
}

TEST_F(ProfileWrite, AllNullSucceeds) {
    EXPECT_TRUE(WritePrivateProfileStringA(nullptr, nullptr, nullptr, "TEST.INI"));
    EXPECT_TRUE(LastProfileError().empty());
    EXPECT_FALSE(fs::exists(Path()));
}

TEST_F(ProfileWrite, BytesBeforeTheFirstHeaderSurvive) {
    const std::string junk("\0\0junk=1\r\n\xFF\r;x\n\r\n", 17);
    File(junk + "[S]\r\nk=1\r\n");
    ASSERT_TRUE(Write("S", "k", "2"));
    ASSERT_TRUE(Write("T", "k", "3"));
    EXPECT_EQ(Bytes(), junk + "[S]\r\nk=2\r\n[T]\r\nk=3\r\n");
}

TEST_F(ProfileWrite, EveryOtherByteSurvivesAWrite) {
    const std::string head("[A]\n  x = \"1\" \r\n\t\r\n;comment \xE9\r\n\0\n", 33);
    const std::string tail("[B]\rz=\xFF\x80\r\n\r\n");
    File(head + "[S]\r\nkey=old\r\n" + tail);
    ASSERT_TRUE(Write("S", "key", "new"));
    EXPECT_EQ(Bytes(), head + "[S]\r\nkey=new\r\n" + tail);
}

TEST_F(ProfileWrite, MissingFileIsCreatedUnderTheNameGiven) {
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "v", "NewFile.ini"));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WindowsDir() / "NewFile.ini"), "[S]\r\nk=v\r\n");
}

TEST_F(ProfileWrite, BareNameMatchesAnExistingFileWithoutRegardToCase) {
    EnginePrefix::WriteBytes(prefix.WinPath("WZELKO.INI"), "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "Wzelko.ini"), "1");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "Wzelko.ini"));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.WinPath("WZELKO.INI")), "[S]\r\nk=2\r\n");
    EXPECT_FALSE(fs::exists(prefix.WinPath("Wzelko.ini")));
}

TEST_F(ProfileWrite, MissingDirectoryIsNotCreated) {
    const std::string path = (prefix.Root() / "nodir" / "x.ini").string();
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", path.c_str()));
    EXPECT_NE(LastProfileError().find(path), std::string::npos);
    EXPECT_FALSE(fs::exists(prefix.Root() / "nodir"));
}

TEST_F(ProfileWrite, EmptyFileNameWriteFails) {
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", ""));
    EXPECT_FALSE(LastProfileError().empty());
}

TEST_F(ProfileWrite, WritingTheValueAKeyHasLeavesTheFileAlone) {
    File("[S]\r\nk=v\r\n");
    const auto inode = fs::status(Path()).type();
    struct stat before {};
    ASSERT_EQ(::stat(Path().c_str(), &before), 0);
    ASSERT_TRUE(Write("S", "k", "v"));
    struct stat after {};
    ASSERT_EQ(::stat(Path().c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    (void)inode;
}

TEST_F(ProfileWrite, OnlyTheNamedKeysLineChanges) {
    std::string text;
    for (int s = 0; s < 20; ++s) {
        text += "[Section" + std::to_string(s) + "]\r\n;about " + std::to_string(s) + "\r\n";
        for (int k = 0; k < 20; ++k)
            text += "Key" + std::to_string(k) + " = " + std::to_string(s * k) + "\r\n";
        text += "\r\n";
    }
    File(text);
    ASSERT_TRUE(Write("section7", "key13", "changed"));
    const std::string from = "[Section7]";
    const std::size_t line = text.find("Key13 = 91\r\n", text.find(from));
    ASSERT_NE(line, std::string::npos);
    std::string expected = text;
    expected.replace(line, 12, "Key13 =changed\r\n");
    EXPECT_EQ(Bytes(), expected);
}

TEST_F(ProfileWrite, PermissionsOfTheFileAreKept) {
    File("[S]\r\nk=1\r\n");
    fs::permissions(Path(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(Write("S", "k", "2"));
    EXPECT_EQ(fs::status(Path()).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(ProfileWrite, WriteThroughASymbolicLinkReplacesItsTarget) {
    const fs::path target = prefix.Root() / "real.ini";
    EnginePrefix::WriteBytes(target, "[S]\r\nk=1\r\n");
    fs::create_symlink(target, prefix.WindowsDir() / "LINKED.INI");
    ASSERT_TRUE(WritePrivateProfileStringA("S", "k", "2", "LINKED.INI"));
    EXPECT_TRUE(fs::is_symlink(prefix.WindowsDir() / "LINKED.INI"));
    EXPECT_EQ(EnginePrefix::ReadBytes(target), "[S]\r\nk=2\r\n");
}

TEST_F(ProfileWrite, ReadOnlyDirectoryMakesTheWriteFailWithTheFileIntact) {
    if (::geteuid() == 0) GTEST_SKIP() << "root ignores directory permissions";
    File("[S]\r\nk=1\r\n");
    fs::permissions(prefix.WindowsDir(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(Write("S", "k", "2"));
    EXPECT_NE(LastProfileError().find("Permission denied"), std::string::npos);
    fs::permissions(prefix.WindowsDir(), fs::perms::owner_all);
    EXPECT_EQ(Bytes(), "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "TEST.INI"), "1");
    EXPECT_EQ(fs::directory_iterator(prefix.WindowsDir())->path().filename(), "TEST.INI");
}

TEST_F(ProfileWrite, ParentThatIsAFileMakesTheWriteFail) {
    EnginePrefix::WriteBytes(prefix.Root() / "plain", "not a directory");
    const std::string path = (prefix.Root() / "plain" / "x.ini").string();
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", path.c_str()));
    EXPECT_EQ(EnginePrefix::ReadBytes(prefix.Root() / "plain"), "not a directory");
}

TEST_F(ProfileWrite, DirectoryRemovedAfterReadMakesTheWriteFail) {
    const fs::path dir = prefix.Root() / "gone";
    fs::create_directory(dir);
    const std::string path = (dir / "x.ini").string();
    EnginePrefix::WriteBytes(path, "[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", path.c_str()), "1");
    fs::remove_all(dir);
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "2", path.c_str()));
    EXPECT_NE(LastProfileError().find("No such file or directory"), std::string::npos);
    EXPECT_FALSE(fs::exists(dir));
}

TEST_F(ProfileWrite, UnreadableFileIsNeverReplaced) {
    if (::geteuid() == 0) GTEST_SKIP() << "root reads any file";
    File("[S]\r\nk=1\r\n");
    fs::permissions(Path(), fs::perms::owner_write);
    EXPECT_FALSE(Write("S", "k", "2"));
    fs::permissions(Path(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Bytes(), "[S]\r\nk=1\r\n");
}

TEST_F(ProfileWrite, SuccessClearsTheLastError) {
    EXPECT_FALSE(WritePrivateProfileStringA("S", "k", "v", ""));
    EXPECT_TRUE(Write("S", "k", "v"));
    EXPECT_TRUE(LastProfileError().empty());
}

}  // namespace
}  // namespace wk

namespace wk {
namespace {

class ProfileWriteLimits : public ProfileWrite {};

// A write that fails half-way (here: the file size limit of the process, which binds root
// too) removes its temporary file and leaves the original as it was.
TEST_F(ProfileWriteLimits, FailedWriteRemovesTheTemporaryFileAndKeepsTheOriginal) {
    File("[S]\r\nk=1\r\n");
    EXPECT_EQ(GetString("S", "k", "", "TEST.INI"), "1");
    struct rlimit old {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit small = old;
    small.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string big(10000, 'x');
    const bool ok = Write("S", "k", big.c_str());
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_FALSE(ok);
    EXPECT_NE(LastProfileError().find(Path()), std::string::npos);
    EXPECT_EQ(Bytes(), "[S]\r\nk=1\r\n");
    std::size_t entries = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(prefix.WindowsDir()))
        ++entries;
    EXPECT_EQ(entries, 1u);
    EXPECT_EQ(GetString("S", "k", "", "TEST.INI"), "1");
}

// Windows wraps value lengths at 65,536 characters (a value of 65,537 reads as one
// character); no caller relies on that defect, and the engine returns long values whole.
TEST_F(ProfileWrite, LongValuesAreWrittenAndReadWholeWithoutTheSixteenBitWrap) {
    const std::string big(1 << 20, 'v');
    ASSERT_TRUE(Write("S", "k", big.c_str()));
    EXPECT_EQ(Bytes(), "[S]\r\nk=" + big + "\r\n");
    const std::string value = GetString("S", "k", "", "TEST.INI", (1 << 20) + 1);
    EXPECT_EQ(value.size(), big.size());
}

}  // namespace
}  // namespace wk
