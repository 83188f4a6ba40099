// `wkestel` killed with SIGKILL at random moments of a save, many times over.
//
// After each kill the files must be old or new, never torn; a whole save (backup, WZELKO.INI,
// WZELKO32.INI) must be the old set or the new set as soon as no complete commit journal is
// left (a journal the kill cut short decides nothing), and after the next access of the
// program (here a read) whatever the kill left; the backup is never torn; and the next save
// leaves no temporary file behind.
//
// The settings file is padded to 1 MB so that writing and flushing take long enough for the
// kills to land in every phase of a save. The delays are spread over the time an unkilled run
// takes, measured first.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <map>
#include <random>
#include <string>

#include "process_support.h"
#include "support/temp_prefix.h"

namespace wk::test {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;
using namespace std::chrono;

constexpr const char* kJournal = ".wkestel.journal";

// A WZELKO.INI of about 1 MB: a few settings of the record, and sections the editor does not
// know. Most of the record's keys are missing, so that a save adds them: the new file differs.
std::string PaddedSettingsFile() {
    std::string text = "[WZELKO]\r\nLANGUAGE=ENG\r\n[CMM]\r\nPORT=COM3:\r\n";
    for (int s = 0; s < 100; ++s) {
        text += "[CUSTOMER TABLE " + std::to_string(s) + "]\r\n";
        for (int k = 0; k < 160; ++k)
            text += "POINT " + std::to_string(k) + "=" + std::to_string(s * 1000 + k) +
                    ".1234567890,0.5,0.25\r\n";
    }
    return text;
}

class KillDuringSave : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = prefix_.WindowsDir();
        old_ = {{"WZELKO.INI", PaddedSettingsFile()},
                {"WZELKO32.INI", "[PH9]\r\nTYPE=1\r\n"},
                {"WZELKO.BAK", "the backup of an earlier save\r\n"}};
    }

    std::vector<std::string> Args(std::vector<std::string> command) const {
        command.insert(command.begin(), {"--prefix", prefix_.Root().string()});
        return command;
    }

    // What an unkilled run of `command` makes of the old files; the run times are the first
    // of those that the kill moments are drawn from.
    Files Reference(const std::vector<std::string>& command) {
        for (int i = 0; i < 5; ++i) {
            ResetDirectory(dir_, old_);
            EXPECT_EQ(Timed(command), 0);
        }
        return DirectoryFiles(dir_);
    }

    // Runs `command` to its end and records how long it took.
    int Timed(const std::vector<std::string>& command) {
        const auto start = steady_clock::now();
        const int code = RunWkestel(Args(command));
        runTimes_.push_back(duration_cast<microseconds>(steady_clock::now() - start));
        return code;
    }

    // A moment to kill at: a fraction of the time one of the unkilled runs took. The disk's
    // flushes make run times vary widely, so drawing from the runs seen keeps the kills spread
    // over every phase of a save, the replacing of the files at its end included.
    microseconds KillDelay() {
        const microseconds run = runTimes_[random_() % runTimes_.size()];
        return duration_cast<microseconds>(run *
                                           std::uniform_real_distribution<>(0.2, 1.05)(random_));
    }

    microseconds TypicalRunTime() const {
        std::vector<microseconds> sorted = runTimes_;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }

    static bool Has(const Files& files, const std::string& name) { return files.count(name) != 0; }

    TempWinePrefix prefix_;
    fs::path dir_;
    Files old_;
    std::mt19937 random_{20261123};
    std::vector<microseconds> runTimes_;
};

TEST_F(KillDuringSave, ProfileSetLeavesTheOldOrTheNewFileAndNoTemporaryFilesPileUp) {
    const std::vector<std::string> set = {"profile", "set", "WZELKO.INI", "CMM", "PORT", "COM1:"};
    const Files done = Reference(set);
    ASSERT_NE(done.at("WZELKO.INI"), old_.at("WZELKO.INI"));

    const int rounds = KillRounds(200);
    int killedOld = 0, killedNew = 0, finished = 0, leftTemporaries = 0;
    for (int round = 0; round < rounds; ++round) {
        ResetDirectory(dir_, old_);
        const bool killed = KillAfter(StartWkestel(Args(set)), KillDelay());
        const Files after = DirectoryFiles(dir_);
        const std::string& ini = after.at("WZELKO.INI");
        ASSERT_TRUE(ini == old_.at("WZELKO.INI") || ini == done.at("WZELKO.INI"))
            << "round " << round << ": WZELKO.INI is neither old nor new (" << ini.size()
            << " bytes)";
        ASSERT_FALSE(Has(after, kJournal)) << "a single file needs no journal";
        ASSERT_EQ(after.at("WZELKO.BAK"), old_.at("WZELKO.BAK"));
        if (!killed)
            ++finished;
        else if (ini == old_.at("WZELKO.INI"))
            ++killedOld;
        else
            ++killedNew;
        leftTemporaries += static_cast<int>(TemporaryFiles(dir_).size());

        // The next save of the file removes what the kill left.
        ASSERT_EQ(Timed(set), 0) << "round " << round;
        ASSERT_EQ(DirectoryFiles(dir_).at("WZELKO.INI"), done.at("WZELKO.INI"));
        ASSERT_TRUE(TemporaryFiles(dir_).empty()) << "round " << round;
    }
    std::cout << "profile set: " << rounds << " rounds (unkilled run, median "
              << TypicalRunTime().count() / 1000.0 << " ms): killed leaving the old file "
              << killedOld << ", killed after the rename " << killedNew
              << ", finished before the kill " << finished << "; temporary files left by kills "
              << leftTemporaries << ", all removed by the next save\n";
}

TEST_F(KillDuringSave, ResaveLeavesTheOldOrTheNewSetWholeAndTheBackupIsNeverTorn) {
    const std::vector<std::string> resave = {"resave"};
    const Files done = Reference(resave);
    for (const char* name : {"WZELKO.INI", "WZELKO32.INI", "WZELKO.BAK"})
        ASSERT_NE(done.at(name), old_.at(name)) << name << " must change in a save";
    ASSERT_EQ(done.at("WZELKO.BAK"), old_.at("WZELKO.INI") + '\xFF');
    const auto isOldSet = [&](const Files& f) {
        return f.at("WZELKO.INI") == old_.at("WZELKO.INI") &&
               f.at("WZELKO32.INI") == old_.at("WZELKO32.INI") &&
               f.at("WZELKO.BAK") == old_.at("WZELKO.BAK");
    };
    const auto isNewSet = [&](const Files& f) {
        return f.at("WZELKO.INI") == done.at("WZELKO.INI") &&
               f.at("WZELKO32.INI") == done.at("WZELKO32.INI") &&
               f.at("WZELKO.BAK") == done.at("WZELKO.BAK");
    };

    const int rounds = KillRounds(200);
    int killedOld = 0, killedWithJournal = 0, killedWithCutJournal = 0, killedNew = 0, finished = 0,
        leftTemporaries = 0;
    for (int round = 0; round < rounds; ++round) {
        ResetDirectory(dir_, old_);
        const bool killed = KillAfter(StartWkestel(Args(resave)), KillDelay());

        // Right after the kill: each file old or new; the set whole unless a journal is left.
        const Files after = DirectoryFiles(dir_);
        for (const char* name : {"WZELKO.INI", "WZELKO32.INI", "WZELKO.BAK"}) {
            ASSERT_TRUE(Has(after, name)) << "round " << round << ": " << name << " is gone";
            ASSERT_TRUE(after.at(name) == old_.at(name) || after.at(name) == done.at(name))
                << "round " << round << ": " << name << " is torn (" << after.at(name).size()
                << " bytes)";
        }
        // A journal is complete once its end is written; one the kill cut short was written
        // before any rename, and it renames nothing.
        const bool journal =
            Has(after, kJournal) && after.at(kJournal).size() >= 4 &&
            after.at(kJournal).compare(after.at(kJournal).size() - 4, 4, "end\n") == 0;
        const bool cutJournal = Has(after, kJournal) && !journal;
        if (cutJournal) {
            ASSERT_TRUE(isOldSet(after))
                << "round " << round << ": files replaced before the journal was complete";
        } else if (!journal) {
            ASSERT_TRUE(isOldSet(after) || isNewSet(after))
                << "round " << round << ": a mixed set without a journal";
        }
        leftTemporaries += static_cast<int>(TemporaryFiles(dir_).size());

        // The next access (a read) completes what the journal decided.
        ASSERT_EQ(RunWkestel(Args({"profile", "get", "WZELKO.INI", "CMM", "PORT"})), 0);
        const Files next = DirectoryFiles(dir_);
        ASSERT_FALSE(Has(next, kJournal)) << "round " << round;
        if (journal) {
            ASSERT_TRUE(isNewSet(next)) << "round " << round << ": the journal was not completed";
        } else if (cutJournal) {
            ASSERT_TRUE(isOldSet(next))
                << "round " << round << ": a journal cut short renamed something";
        } else {
            ASSERT_TRUE(isOldSet(next) || isNewSet(next)) << "round " << round;
        }
        if (!killed)
            ++finished;
        else if (journal)
            ++killedWithJournal;
        else if (cutJournal)
            ++killedWithCutJournal;
        else if (isOldSet(after))
            ++killedOld;
        else
            ++killedNew;

        // The next save leaves no temporary file behind.
        ASSERT_EQ(Timed(resave), 0) << "round " << round;
        const Files saved = DirectoryFiles(dir_);
        ASSERT_EQ(saved.at("WZELKO.INI"), done.at("WZELKO.INI"));
        ASSERT_EQ(saved.at("WZELKO32.INI"), done.at("WZELKO32.INI"));
        ASSERT_TRUE(TemporaryFiles(dir_).empty()) << "round " << round;
        ASSERT_FALSE(Has(saved, kJournal));
    }
    std::cout << "resave: " << rounds << " rounds (unkilled run, median "
              << TypicalRunTime().count() / 1000.0 << " ms): killed leaving the old set "
              << killedOld << ", killed with the journal "
              << "written (completed by the next read) " << killedWithJournal
              << ", killed while the journal was written (nothing renamed) " << killedWithCutJournal
              << ", killed after the commit " << killedNew << ", finished before the kill "
              << finished << "; temporary files left by kills " << leftTemporaries
              << ", all removed by the next save\n";
}

}  // namespace
}  // namespace wk::test
