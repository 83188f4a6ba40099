// The sound plugin itself, loaded as the sounds page loads it on its first test, playing files
// on a machine that may have no audio device at all (a build machine has none): whatever the
// machine, every Play is answered, nothing blocks and nothing crashes.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFileInfo>
#include <QTest>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/scratch_directory.h"
#include "support/file_bytes.h"
#include "wave_files.h"
#include "widgets/wave_player_loader.h"

namespace wk {
namespace {

namespace fs = std::filesystem;

struct Reported {
    WavePlayer::Outcome outcome;
    QString detail;
};

class WavePlayerPlugin : public ::testing::Test {
protected:
    WavePlayerPlugin() : dir_(platform::MakeScratchDirectory("wkestel-wave-")) {
        SetWavePlayerSource({});
    }
    ~WavePlayerPlugin() override { platform::RemoveScratchDirectory(dir_); }

    QString File(const std::string& name, const std::string& bytes) const {
        test::WriteFileBytes(dir_ / name, bytes);
        return QString::fromStdString((dir_ / name).string());
    }

    std::unique_ptr<WavePlayer> Load() const {
        LoadedWavePlayer loaded = LoadWavePlayer();
        EXPECT_TRUE(loaded.player) << loaded.error.toStdString();
        return std::move(loaded.player);
    }

    // Plays and waits for the report (at most `seconds`); nullopt when none came.
    static std::optional<Reported> PlayAndWait(WavePlayer& player, const QString& file,
                                               int seconds = 10) {
        std::optional<Reported> reported;
        bool inPlay = true;
        bool reportedInPlay = false;
        player.Play(file, [&](WavePlayer::Outcome outcome, const QString& detail) {
            reportedInPlay = inPlay;
            reported = Reported{outcome, detail};
        });
        inPlay = false;
        EXPECT_FALSE(reportedInPlay) << "reported before Play returned";
        QElapsedTimer clock;
        clock.start();
        while (!reported && clock.elapsed() < seconds * 1000) QTest::qWait(20);
        return reported;
    }

    fs::path dir_;
};

TEST_F(WavePlayerPlugin, TheProgramsFolderHoldsThePlugin) {
    EXPECT_TRUE(QFileInfo::exists(WavePlayerPluginPath())) << WavePlayerPluginPath().toStdString();
}

TEST_F(WavePlayerPlugin, AWaveFileIsPlayedOrTheMissingAudioDeviceIsReported) {
    std::unique_ptr<WavePlayer> player = Load();
    ASSERT_TRUE(player);
    const std::optional<Reported> reported =
        PlayAndWait(*player, File("beep.wav", test::BeepWave()));
    ASSERT_TRUE(reported) << "no report within 10 s";
    EXPECT_TRUE(reported->outcome == WavePlayer::Outcome::Playing ||
                reported->outcome == WavePlayer::Outcome::NoAudioDevice)
        << reported->detail.toStdString();
    EXPECT_FALSE(reported->detail.isEmpty());
}

TEST_F(WavePlayerPlugin, AMissingFileCannotBePlayed) {
    std::unique_ptr<WavePlayer> player = Load();
    ASSERT_TRUE(player);
    const std::optional<Reported> reported =
        PlayAndWait(*player, QString::fromStdString((dir_ / "gone.wav").string()));
    ASSERT_TRUE(reported);
    // The file is loaded first, device or not.
    EXPECT_EQ(reported->outcome, WavePlayer::Outcome::CannotPlay);
    EXPECT_FALSE(reported->detail.isEmpty());
}

TEST_F(WavePlayerPlugin, AGarbageWaveFileIsGivenUpInsteadOfLoadingForEver) {
    std::unique_ptr<WavePlayer> player = Load();
    ASSERT_TRUE(player);
    const std::optional<Reported> reported = PlayAndWait(
        *player, File("garbage.wav", std::string("RIFF\x10\0\0\0WAVEgarbage garbage", 27)));
    ASSERT_TRUE(reported) << "no report within 10 s";
    EXPECT_EQ(reported->outcome, WavePlayer::Outcome::CannotPlay);
}

TEST_F(WavePlayerPlugin, APlayOvertakenByTheNextIsNotReported) {
    std::unique_ptr<WavePlayer> player = Load();
    ASSERT_TRUE(player);
    int firstReports = 0;
    player->Play(File("first.wav", test::BeepWave()),
                 [&](WavePlayer::Outcome, const QString&) { ++firstReports; });
    const std::optional<Reported> second =
        PlayAndWait(*player, File("second.wav", test::BeepWave()));
    ASSERT_TRUE(second);
    QTest::qWait(50);
    EXPECT_EQ(firstReports, 0);
}

TEST_F(WavePlayerPlugin, APlayerDestroyedWhileLoadingReportsNothingAndDoesNotCrash) {
    int reports = 0;
    {
        std::unique_ptr<WavePlayer> player = Load();
        ASSERT_TRUE(player);
        player->Play(File("beep.wav", test::BeepWave()),
                     [&](WavePlayer::Outcome, const QString&) { ++reports; });
    }
    QTest::qWait(200);
    EXPECT_EQ(reports, 0);
}

}  // namespace
}  // namespace wk
