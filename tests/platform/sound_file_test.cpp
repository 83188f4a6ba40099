#include "platform/sound_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "engine_prefix.h"

namespace wk::platform {
namespace {

namespace fs = std::filesystem;
using test::EnginePrefix;

// The smallest wave file header: "RIFF", a size, "WAVE".
const std::string kWave = std::string("RIFF\x24\0\0\0WAVEfmt ", 16);

class SoundFiles : public testing::Test {
protected:
    void SetUp() override {
        sounds_ = prefix.Root() / "drive_c" / "WZELKO" / "SOUNDS";
        fs::create_directories(sounds_);
        EnginePrefix::WriteBytes(sounds_ / "ERROR.WAV", kWave);
        EnginePrefix::WriteBytes(sounds_ / "home.wav", kWave);
        EnginePrefix::WriteBytes(sounds_ / "NOTES.WAV", "just some text, no wave");
        EnginePrefix::WriteBytes(prefix.WindowsDir() / "CHIMES.WAV", kWave);
    }
    std::string Sounds(const std::string& name) const {
        return (fs::canonical(sounds_) / name).string();
    }

    EnginePrefix prefix;
    fs::path sounds_;
};

TEST_F(SoundFiles, APathWithADriveIsFoundThroughThePrefixWithoutRegardToCase) {
    const SoundFile file = LocateSoundFile("C:\\wzelko\\sounds\\error.wav", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::None);
    EXPECT_EQ(file.hostPath, Sounds("ERROR.WAV"));
}

TEST_F(SoundFiles, APathWithoutADriveIsOnC) {
    const SoundFile file = LocateSoundFile("\\WZELKO\\SOUNDS\\HOME.WAV", "");
    EXPECT_EQ(file.problem, SoundFileProblem::None);
    EXPECT_EQ(file.hostPath, Sounds("home.wav"));
}

TEST_F(SoundFiles, ABareNameIsLookedForInTheLocationWithWavAdded) {
    const SoundFile file = LocateSoundFile("error", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::None);
    EXPECT_EQ(file.hostPath, Sounds("ERROR.WAV"));
}

TEST_F(SoundFiles, ABareNameMissingFromTheLocationIsLookedForInTheWindowsDirectory) {
    const SoundFile file = LocateSoundFile("chimes.wav", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::None);
    EXPECT_EQ(file.hostPath, (fs::canonical(prefix.WindowsDir()) / "CHIMES.WAV").string());
}

TEST_F(SoundFiles, ABareNameFoundNowhereIsMissingInTheLocation) {
    const SoundFile file = LocateSoundFile("input", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::Missing);
    EXPECT_EQ(file.hostPath, Sounds("input"));
}

TEST_F(SoundFiles, NothingNamedIsNoFile) {
    const SoundFile file = LocateSoundFile("", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::NoFile);
    EXPECT_TRUE(file.hostPath.empty());
}

TEST_F(SoundFiles, ADriveThePrefixDoesNotHaveIsNamedAsSuch) {
    EXPECT_EQ(LocateSoundFile("Q:\\SOUNDS\\A.WAV", "").problem, SoundFileProblem::NoSuchDrive);
}

TEST_F(SoundFiles, TheComposedValueOfATypedNameLeadsToAMissingFile) {
    // A name typed on the sounds page is stored before the location: played as it stands.
    const SoundFile file = LocateSoundFile("init.wav\\\\WZELKO\\SOUNDS", "\\WZELKO\\SOUNDS");
    EXPECT_EQ(file.problem, SoundFileProblem::Missing);
}

TEST_F(SoundFiles, ATextFileIsNoWaveFile) {
    EXPECT_EQ(LocateSoundFile("C:\\WZELKO\\SOUNDS\\NOTES.WAV", "").problem,
              SoundFileProblem::NotWave);
    EnginePrefix::WriteBytes(sounds_ / "EMPTY.WAV", "");
    EXPECT_EQ(CheckWaveFile(Sounds("EMPTY.WAV")), SoundFileProblem::NotWave);
}

TEST_F(SoundFiles, ADirectoryIsNoFile) {
    EXPECT_EQ(LocateSoundFile("C:\\WZELKO\\SOUNDS", "").problem, SoundFileProblem::NotAFile);
}

TEST_F(SoundFiles, AFileThatCannotBeReadIsUnreadable) {
    if (::geteuid() == 0) GTEST_SKIP() << "root reads every file";
    fs::permissions(sounds_ / "ERROR.WAV", fs::perms::none);
    EXPECT_EQ(CheckWaveFile(Sounds("ERROR.WAV")), SoundFileProblem::Unreadable);
    fs::permissions(sounds_ / "ERROR.WAV", fs::perms::owner_all);
}

TEST_F(SoundFiles, AHostPathIsTakenAsItStands) {
    const SoundFile file = LocateSoundFile(Sounds("ERROR.WAV"), "");
    EXPECT_EQ(file.problem, SoundFileProblem::None);
    EXPECT_EQ(file.hostPath, Sounds("ERROR.WAV"));
}

}  // namespace
}  // namespace wk::platform
