#include "upgrade/upgrade_settings.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/profile.h"
#include "support/temp_prefix.h"

namespace wk {
namespace {

using test::TempWinePrefix;

constexpr char kPass1Text[] = "Upgrading WZELKO.INI. Please Wait...";
constexpr char kPass2Text[] = "Upgrading WZELKO32.INI. Please Wait...";

// Stands in for the main window: records the calls and what WZELKO.INI held at each.
class RecordingProgress : public UpgradeProgress {
public:
    explicit RecordingProgress(const TempWinePrefix& prefix) : prefix_(prefix) {}

    void Prepare(const std::string& statusText) override {
        calls.push_back("Prepare: " + statusText);
        freshAtCall.push_back(Fresh());
    }
    void Finish() override {
        calls.push_back("Finish");
        freshAtCall.push_back(Fresh());
    }

    std::vector<std::string> calls;
    std::vector<std::string> freshAtCall;

private:
    std::string Fresh() const {
        return std::filesystem::is_regular_file(prefix_.WindowsFile("WZELKO.INI"))
                   ? prefix_.ReadWindowsFile("WZELKO.INI")
                   : std::string();
    }
    const TempWinePrefix& prefix_;
};

class UpgradeSettings : public ::testing::Test {
protected:
    void Write(const std::string& name, const std::string& bytes) {
        prefix_.WriteWindowsFile(name, bytes);
    }
    std::string Bytes(const std::string& name) { return prefix_.ReadWindowsFile(name); }
    bool Exists(const std::string& name) {
        return std::filesystem::exists(prefix_.WindowsFile(name));
    }

    // A value as the measuring application would read it; "<missing>" when absent.
    std::string Value(const char* file, const char* section, const char* key) {
        char buffer[4096];
        const auto n =
            GetPrivateProfileStringA(section, key, "<missing>", buffer, sizeof buffer, file);
        return std::string(buffer, n);
    }

    UpgradeReport Run() { return UpgradeSettingsFiles(progress_); }

    TempWinePrefix prefix_;
    RecordingProgress progress_{prefix_};
};

// --- What is carried -----------------------------------------------------------------------

TEST_F(UpgradeSettings, AKeyInBothFilesTakesTheSavedValue) {
    Write("WZELKO.INI", "[MACHINEPARAM]\r\nDEPTH=10.000000\r\n");
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nDEPTH=12.000000\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "MACHINEPARAM", "DEPTH"), "12.000000");
}

TEST_F(UpgradeSettings, AKeyOnlyInTheSavedFileDoesNotAppearInTheFreshFile) {
    Write("WZELKO.INI", "[MACHINEPARAM]\r\nDEPTH=10\r\n");
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nDEPTH=12\r\nOLD KEY=1\r\n[OLD SECTION]\r\nA=1\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "MACHINEPARAM", "OLD KEY"), "<missing>");
    EXPECT_EQ(Value("WZELKO.INI", "OLD SECTION", "A"), "<missing>");
    EXPECT_EQ(Bytes("WZELKO.INI"), "[MACHINEPARAM]\r\nDEPTH=12\r\n");
}

TEST_F(UpgradeSettings, AKeyOnlyInTheFreshFileIsUnchanged) {
    Write("WZELKO.INI", "[MACHINEPARAM]\r\nDEPTH=10\r\nNEW KEY=7\r\n");
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nDEPTH=12\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "MACHINEPARAM", "NEW KEY"), "7");
}

TEST_F(UpgradeSettings, TheMergedFileKeepsCommentsBlankLinesAndLineEndingsOfTheFreshFile) {
    Write("WZELKO.INI",
          "; installed by setup\r\n"
          "[WZELKO]\r\n"
          "LANGUAGE=ENG\r\n"
          "\r\n"
          "; machine\r\n"
          "[CMM]\r\n"
          "PORT=COM1:\r\n"
          "CNC=TRUE\r\n");
    Write("WZELKO.SAV", "[WZELKO]\nLANGUAGE=ITA\n[CMM]\nPORT=COM3:\nCNC=FALSE\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"),
              "; installed by setup\r\n"
              "[WZELKO]\r\n"
              "LANGUAGE=ITA\r\n"
              "\r\n"
              "; machine\r\n"
              "[CMM]\r\n"
              "PORT=COM3:\r\n"
              "CNC=TRUE\r\n");
}

TEST_F(UpgradeSettings, KeysOfASectionThatTheSavedFileLacksKeepTheFreshValues) {
    Write("WZELKO.INI", "[SOUNDS]\r\nBEEP=DING.WAV\r\n");
    Write("WZELKO.SAV", "[CMM]\r\nPORT=COM3:\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[SOUNDS]\r\nBEEP=DING.WAV\r\n");
    ASSERT_EQ(report.passes[0].keys.size(), 1u);
    EXPECT_EQ(report.passes[0].keys[0].fate, UpgradeKeyFate::NotInSavedFile);
}

TEST_F(UpgradeSettings, AnEmptySavedValueIsCarried) {
    Write("WZELKO.INI", "[WZELKO]\r\nAUTOEXEC=PART.PRG\r\n");
    Write("WZELKO.SAV", "[WZELKO]\r\nAUTOEXEC=\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[WZELKO]\r\nAUTOEXEC=\r\n");
}

// --- What stays as installed --------------------------------------------------------------

TEST_F(UpgradeSettings, SystemDirOfWzelkoKeepsTheFreshValueWhenTheSavedFileHasAnother) {
    Write("WZELKO.INI", "[WZELKO]\r\nSYSTEM_DIR=C:\\WZELKO\r\nLANGUAGE=ENG\r\n");
    Write("WZELKO.SAV", "[WZELKO]\r\nSYSTEM_DIR=D:\\OLDWZELKO\r\nLANGUAGE=ITA\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "WZELKO", "SYSTEM_DIR"), "C:\\WZELKO");
    EXPECT_EQ(Value("WZELKO.INI", "WZELKO", "LANGUAGE"), "ITA");
}

TEST_F(UpgradeSettings, EveryDirectoryOfWzelkoKeepsTheFreshValue) {
    Write("WZELKO.INI",
          "[WZELKO]\r\nSYSTEM_DIR=C:\\W\r\nDATA_DIR=C:\\W\\DATA\r\nPPROG_DIR=C:\\W\\PROG\r\n"
          "MEAS_DIR=C:\\W\\MEAS\r\nUSER_DIR=C:\\W\\USER\r\n");
    const std::string fresh = Bytes("WZELKO.INI");
    Write("WZELKO.SAV",
          "[WZELKO]\r\nSYSTEM_DIR=D:\\X\r\nDATA_DIR=D:\\X\r\nPPROG_DIR=D:\\X\r\n"
          "MEAS_DIR=D:\\X\r\nUSER_DIR=D:\\X\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), fresh);
}

TEST_F(UpgradeSettings, CncAndSimulationOfCmmKeepTheFreshValuesAndOtherCmmKeysAreCarried) {
    Write("WZELKO.INI", "[CMM]\r\nSIMULATION=FALSE\r\nCNC=TRUE\r\nPORT=COM1:\r\nRESOLUTION=1\r\n");
    Write("WZELKO.SAV", "[CMM]\r\nSIMULATION=TRUE\r\nCNC=FALSE\r\nPORT=COM3:\r\nRESOLUTION=2\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"),
              "[CMM]\r\nSIMULATION=FALSE\r\nCNC=TRUE\r\nPORT=COM3:\r\nRESOLUTION=2\r\n");
}

TEST_F(UpgradeSettings, ThePh9HeadAndTheControllerTypeKeepTheFreshValues) {
    Write("WZELKO.INI",
          "[PH9]\r\nSIMULATION=FALSE\r\nPH9PRESENT=TRUE\r\nSPEED=5\r\n"
          "[CONTROLLER]\r\nTYPE=RMD\r\nSUBTYPE=R7NS\r\n");
    Write("WZELKO.SAV",
          "[PH9]\r\nSIMULATION=TRUE\r\nPH9PRESENT=FALSE\r\nSPEED=9\r\n"
          "[CONTROLLER]\r\nTYPE=Vek3\r\nSUBTYPE=OLD\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"),
              "[PH9]\r\nSIMULATION=FALSE\r\nPH9PRESENT=TRUE\r\nSPEED=9\r\n"
              "[CONTROLLER]\r\nTYPE=RMD\r\nSUBTYPE=OLD\r\n");
}

TEST_F(UpgradeSettings, SectionAndKeyNamesInOtherCasesThanTheTableKeepTheFreshValues) {
    Write("WZELKO.INI",
          "[cmm]\r\nCnc=TRUE\r\nsimulation=FALSE\r\nPort=COM1:\r\n"
          "[Controller]\r\nType=RMD\r\n[Wzelko]\r\nSystem_Dir=C:\\WZELKO\r\n");
    Write("WZELKO.SAV",
          "[CMM]\r\ncnc=FALSE\r\nSIMULATION=TRUE\r\nPORT=COM4:\r\n"
          "[CONTROLLER]\r\ntype=KPT\r\n[WZELKO]\r\nSYSTEM_DIR=D:\\OLD\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"),
              "[cmm]\r\nCnc=TRUE\r\nsimulation=FALSE\r\nPort=COM4:\r\n"
              "[Controller]\r\nType=RMD\r\n[Wzelko]\r\nSystem_Dir=C:\\WZELKO\r\n");
}

TEST_F(UpgradeSettings, ASectionHeaderWithBlanksInsideTheBracketsStillKeepsTheTable) {
    Write("WZELKO.INI", "[ CMM ]\r\nCNC=TRUE\r\nPORT=COM1:\r\n");
    Write("WZELKO.SAV", "[CMM]\r\nCNC=FALSE\r\nPORT=COM2:\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "CMM", "CNC"), "TRUE");
    EXPECT_EQ(Value("WZELKO.INI", "CMM", "PORT"), "COM2:");
}

TEST_F(UpgradeSettings, ATableKeyInAnotherSectionIsCarried) {
    Write("WZELKO.INI", "[MACHINEPARAM]\r\nCNC=1\r\nTYPE=A\r\n");
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nCNC=2\r\nTYPE=B\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[MACHINEPARAM]\r\nCNC=2\r\nTYPE=B\r\n");
}

// --- "NONE" --------------------------------------------------------------------------------

TEST_F(UpgradeSettings, ASavedValueNoneLeavesTheFreshValueInPlace) {
    Write("WZELKO.INI", "[COLORS]\r\nBACKGROUND=0,0,128\r\n");
    Write("WZELKO.SAV", "[COLORS]\r\nBACKGROUND=NONE\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[COLORS]\r\nBACKGROUND=0,0,128\r\n");
    ASSERT_EQ(report.passes[0].keys.size(), 1u);
    EXPECT_EQ(report.passes[0].keys[0].fate, UpgradeKeyFate::SavedValueNone);
}

TEST_F(UpgradeSettings, ASavedValueNoneInLowerCaseIsCarriedBecauseOnlyTheExactWordIsSkipped) {
    Write("WZELKO.INI", "[COLORS]\r\nBACKGROUND=0,0,128\r\n");
    Write("WZELKO.SAV", "[COLORS]\r\nBACKGROUND=none\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "COLORS", "BACKGROUND"), "none");
}

// --- Section names -------------------------------------------------------------------------

TEST_F(UpgradeSettings, ASectionLineWithACommentAfterTheClosingBracketYieldsOnlyTheName) {
    Write("WZELKO.INI", "[CMM] ; machine connection\r\nPORT=COM1:\r\n");
    Write("WZELKO.SAV", "[CMM]\r\nPORT=COM3:\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[CMM] ; machine connection\r\nPORT=COM3:\r\n");
}

TEST_F(UpgradeSettings, AHeaderCutAtTheEndOfAReadPieceLeavesItsKeysAsInstalled) {
    // The fresh file is read 99 characters at a time: this header's name is cut to "MAC".
    const std::string fresh = std::string(95, ' ') + "[MACHINEPARAM]\r\nDEPTH=10\r\n";
    Write("WZELKO.INI", fresh);
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nDEPTH=12\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), fresh);
}

TEST_F(UpgradeSettings, AHeaderWhoseBracketIsInTheSecondReadPieceIsMerged) {
    Write("WZELKO.INI", std::string(120, ' ') + "[MACHINEPARAM]\r\nDEPTH=10\r\n");
    Write("WZELKO.SAV", "[MACHINEPARAM]\r\nDEPTH=12\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "MACHINEPARAM", "DEPTH"), "12");
}

// --- Read sizes ----------------------------------------------------------------------------

TEST_F(UpgradeSettings, KeysBeyondTheKeyListOfASectionKeepTheFreshValues) {
    // 60 keys of 10 characters: the list of 512 holds 46 names whole and "K046" cut.
    std::string fresh = "[BIG]\r\n", saved = "[BIG]\r\n";
    for (int i = 0; i < 60; ++i) {
        char key[16];
        std::snprintf(key, sizeof key, "K%03dxxxxxx", i);
        fresh += std::string(key) + "=fresh\r\n";
        saved += std::string(key) + "=saved\r\n";
    }
    Write("WZELKO.INI", fresh);
    Write("WZELKO.SAV", saved);
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K000xxxxxx"), "saved");
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K045xxxxxx"), "saved");
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K046xxxxxx"), "fresh");
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K059xxxxxx"), "fresh");
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K046"), "<missing>");
}

TEST_F(UpgradeSettings, TheKeyNameCutByTheKeyListIsLookedUpAsItStands) {
    std::string fresh = "[BIG]\r\n";
    for (int i = 0; i < 60; ++i) {
        char key[16];
        std::snprintf(key, sizeof key, "K%03dxxxxxx", i);
        fresh += std::string(key) + "=fresh\r\n";
    }
    Write("WZELKO.INI", fresh);
    Write("WZELKO.SAV", "[BIG]\r\nK046=from the cut name\r\n");
    const UpgradeReport report = Run();
    // The saved file has a key of the cut name, so it is written as a new key of the section.
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K046"), "from the cut name");
    EXPECT_EQ(Value("WZELKO.INI", "BIG", "K046xxxxxx"), "fresh");
    ASSERT_EQ(report.passes[0].keys.size(), 47u);
    EXPECT_EQ(report.passes[0].keys.back().key, "K046");
    EXPECT_EQ(report.passes[0].keys.back().fate, UpgradeKeyFate::Carried);
}

TEST_F(UpgradeSettings, ASavedValueLongerThanTheValueBufferIsCarriedCutTo99Characters) {
    const std::string longValue = std::string(99, 'a') + std::string(51, 'b');
    Write("WZELKO.INI", "[USER]\r\nNOTE=short\r\n");
    Write("WZELKO.SAV", "[USER]\r\nNOTE=" + longValue + "\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "USER", "NOTE"), std::string(99, 'a'));
}

// --- The compensation method ---------------------------------------------------------------

TEST_F(UpgradeSettings, ASavedMethodCtrlOfCompensInTheSecondFileIsCarried) {
    Write("WZELKO32.INI", "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=1\r\n");
    Write("WZELKO32INI.SAVE", "[COMPENS]\r\nMETHOD=CTRL\r\nACTIVE=0\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[COMPENS]\r\nMETHOD=CTRL\r\nACTIVE=0\r\n");
}

TEST_F(UpgradeSettings, ASavedMethodCtrlInAnyCaseIsCarriedAsSaved) {
    Write("WZELKO32.INI", "[Compens]\r\nMethod=QEN\r\n");
    Write("WZELKO32INI.SAVE", "[COMPENS]\r\nMETHOD=Ctrl\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO32.INI", "COMPENS", "METHOD"), "Ctrl");
}

TEST_F(UpgradeSettings, ASavedMethodOtherThanCtrlOfTheSecondFileIsNotCarried) {
    Write("WZELKO32.INI", "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=1\r\n");
    Write("WZELKO32INI.SAVE", "[COMPENS]\r\nMETHOD=TABLE\r\nACTIVE=0\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=0\r\n");
    ASSERT_EQ(report.passes[1].keys.size(), 2u);
    EXPECT_EQ(report.passes[1].keys[0].fate, UpgradeKeyFate::MethodNotCtrl);
    EXPECT_EQ(report.passes[1].keys[0].savedValue, "TABLE");
}

TEST_F(UpgradeSettings, AMissingSavedMethodOfTheSecondFileLeavesTheFreshValue) {
    Write("WZELKO32.INI", "[COMPENS]\r\nMETHOD=QEN\r\n");
    Write("WZELKO32INI.SAVE", "[COMPENS]\r\nACTIVE=0\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[COMPENS]\r\nMETHOD=QEN\r\n");
    ASSERT_EQ(report.passes[1].keys.size(), 1u);
    EXPECT_EQ(report.passes[1].keys[0].fate, UpgradeKeyFate::NotInSavedFile);
}

TEST_F(UpgradeSettings, AnySavedMethodOfTheFirstFileIsNotCarriedNotEvenCtrl) {
    Write("WZELKO.INI", "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=1\r\n");
    Write("WZELKO.SAV", "[COMPENS]\r\nMETHOD=CTRL\r\nACTIVE=0\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[COMPENS]\r\nMETHOD=QEN\r\nACTIVE=0\r\n");

    Write("WZELKO.SAV", "[COMPENS]\r\nMETHOD=TABLE\r\n");
    Run();
    EXPECT_EQ(Value("WZELKO.INI", "COMPENS", "METHOD"), "QEN");
}

// --- Passes, work file, progress -----------------------------------------------------------

TEST_F(UpgradeSettings, TheWorkFileDoesNotExistInTheWindowsDirectoryAfterTheUpgrade) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    Run();
    EXPECT_FALSE(Exists("TEMP.TMP"));
    EXPECT_EQ(Value("WZELKO32.INI", "B", "K"), "2");
}

TEST_F(UpgradeSettings, AnEarlierWorkFileIsReplacedAndRemoved) {
    Write("TEMP.TMP", "CMM\nSTALE\n");
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n[CMM]\r\nPORT=X\r\n");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[A]\r\nK=2\r\n");
    EXPECT_FALSE(Exists("TEMP.TMP"));
}

TEST_F(UpgradeSettings, AMissingSavFileSkipsTheFirstPassAndTheSecondPassStillRuns) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[A]\r\nK=1\r\n");
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=2\r\n");
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::NoSavedFile);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::Merged);
    EXPECT_TRUE(report.Succeeded());
    EXPECT_EQ(progress_.calls,
              (std::vector<std::string>{"Prepare: " + std::string(kPass2Text), "Finish"}));
}

TEST_F(UpgradeSettings, FilesNamedInAnotherCaseOnDiskAreFoundAsWindowsFindsThem) {
    Write("wzelko.ini", "[A]\r\nK=1\r\n");
    Write("Wzelko.Sav", "[A]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::Merged);
    EXPECT_EQ(Bytes("wzelko.ini"), "[A]\r\nK=2\r\n");
    EXPECT_FALSE(Exists("WZELKO.INI"));
}

TEST_F(UpgradeSettings, TheSecondSavedFileKeepsItsIrregularName) {
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32.SAV", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=1\r\n");
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NoSavedFile);
    EXPECT_TRUE(progress_.calls.empty());
}

TEST_F(UpgradeSettings, WithoutSavedFilesNothingIsShownAndNothingChanges) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    const UpgradeReport report = Run();
    EXPECT_TRUE(progress_.calls.empty());
    EXPECT_EQ(Bytes("WZELKO.INI"), "[A]\r\nK=1\r\n");
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=1\r\n");
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::NoSavedFile);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NoSavedFile);
    EXPECT_FALSE(Exists("TEMP.TMP"));
}

TEST_F(UpgradeSettings, TheProgressIsShownOncePerPassWithItsExactText) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(progress_.calls, (std::vector<std::string>{
                                   "Prepare: Upgrading WZELKO.INI. Please Wait...", "Finish",
                                   "Prepare: Upgrading WZELKO32.INI. Please Wait...", "Finish"}));
    EXPECT_EQ(report.passes[0].statusText, kPass1Text);
    EXPECT_EQ(report.passes[1].statusText, kPass2Text);
}

TEST_F(UpgradeSettings, TheProgressIsPreparedBeforeTheFreshFileChangesAndFinishedAfter) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Run();
    ASSERT_EQ(progress_.freshAtCall.size(), 2u);
    EXPECT_EQ(progress_.freshAtCall[0], "[A]\r\nK=1\r\n");
    EXPECT_EQ(progress_.freshAtCall[1], "[A]\r\nK=2\r\n");
}

TEST_F(UpgradeSettings, AWorkFileThatCannotBeCreatedEndsTheUpgradeWithoutWriting) {
    std::filesystem::create_directory(prefix_.WindowsFile("TEMP.TMP"));
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[A]\r\nK=1\r\n");
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=1\r\n");
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::WorkFileNotCreated);
    EXPECT_NE(report.passes[0].problem.find("TEMP.TMP"), std::string::npos);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NotReached);
    EXPECT_FALSE(report.Succeeded());
    EXPECT_EQ(progress_.calls,
              (std::vector<std::string>{"Prepare: " + std::string(kPass1Text), "Finish"}));
    EXPECT_TRUE(std::filesystem::is_directory(prefix_.WindowsFile("TEMP.TMP")));
}

TEST_F(UpgradeSettings, AMissingFreshFileOfTheFirstPassStopsTheSecondPass) {
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_FALSE(Exists("WZELKO.INI"));
    EXPECT_FALSE(Exists("TEMP.TMP"));
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=1\r\n");
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::FreshFileNotOpened);
    EXPECT_NE(report.passes[0].problem.find("WZELKO.INI"), std::string::npos);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NotReached);
    EXPECT_EQ(progress_.calls,
              (std::vector<std::string>{"Prepare: " + std::string(kPass1Text), "Finish"}));
}

TEST_F(UpgradeSettings, AMissingFreshFileOfTheSecondPassIsReportedAndCreatesNothing) {
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), "[A]\r\nK=2\r\n");
    EXPECT_FALSE(Exists("WZELKO32.INI"));
    EXPECT_FALSE(Exists("TEMP.TMP"));
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::Merged);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::FreshFileNotOpened);
    EXPECT_EQ(progress_.calls.size(), 4u);
}

TEST_F(UpgradeSettings, AFreshFileThatCannotBeReadEndsTheUpgradeLikeOneThatCannotBeOpened) {
    std::filesystem::create_directory(prefix_.WindowsFile("WZELKO.INI"));
    Write("WZELKO.SAV", "[A]\r\nK=2\r\n");
    Write("WZELKO32.INI", "[B]\r\nK=1\r\n");
    Write("WZELKO32INI.SAVE", "[B]\r\nK=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::FreshFileNotOpened);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NotReached);
    EXPECT_EQ(Bytes("WZELKO32.INI"), "[B]\r\nK=1\r\n");
    EXPECT_FALSE(Exists("TEMP.TMP"));
}

TEST_F(UpgradeSettings, RunningTheUpgradeTwiceGivesTheSameFiles) {
    Write("WZELKO.INI",
          "; setup\r\n[WZELKO]\r\nLANGUAGE=ENG\r\nSYSTEM_DIR=C:\\WZELKO\r\n"
          "[CMM]\r\nCNC=TRUE\r\nPORT = COM1:\r\n[COMPENS]\r\nMETHOD=QEN\r\n");
    Write("WZELKO.SAV",
          "[WZELKO]\r\nLANGUAGE=ITA\r\nSYSTEM_DIR=D:\\OLD\r\n[CMM]\r\nCNC=FALSE\r\n"
          "PORT=COM3:\r\n[COMPENS]\r\nMETHOD=CTRL\r\n");
    Write("WZELKO32.INI", "[COMPENS]\r\nMETHOD=QEN\r\n[PH9]\r\nTYPE=1\r\n");
    Write("WZELKO32INI.SAVE", "[COMPENS]\r\nMETHOD=CTRL\r\n[PH9]\r\nTYPE=2\r\n");
    Run();
    const std::string first = Bytes("WZELKO.INI");
    const std::string first32 = Bytes("WZELKO32.INI");
    Run();
    EXPECT_EQ(Bytes("WZELKO.INI"), first);
    EXPECT_EQ(Bytes("WZELKO32.INI"), first32);
    EXPECT_EQ(Value("WZELKO.INI", "CMM", "PORT"), "COM3:");
    EXPECT_EQ(Value("WZELKO32.INI", "COMPENS", "METHOD"), "CTRL");
}

TEST_F(UpgradeSettings, TheSavedFilesAreLeftAsTheyWere) {
    const std::string saved = "[A]\r\nK=2\r\nONLY SAVED=3\r\n";
    Write("WZELKO.INI", "[A]\r\nK=1\r\n");
    Write("WZELKO.SAV", saved);
    Run();
    EXPECT_EQ(Bytes("WZELKO.SAV"), saved);
}

TEST_F(UpgradeSettings, OnePassGivesTheBytesOfItsWritesOneByOne) {
    const std::string fresh =
        "; setup\r\n[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[CMM]\n"
        "PORT=COM1:\nCNC=TRUE\n[SOUNDS]\r\nBEEP=A.WAV\r\n[CMM]\r\nEXTRA=1\r\n";
    Write("WZELKO.INI", fresh);
    Write("WZELKO.SAV",
          "[WZELKO]\r\nLANGUAGE=ITA\r\n[CMM]\r\nPORT=COM3:\r\nCNC=FALSE\r\nEXTRA=2\r\n"
          "[SOUNDS]\r\nBEEP=\"B.WAV\"\r\n");
    const UpgradeReport report = Run();

    // The same writes, one by one, on a copy of the fresh file.
    Write("EXPECTED.INI", fresh);
    for (const UpgradeKeyEntry& entry : report.passes[0].keys) {
        if (entry.fate != UpgradeKeyFate::Carried) continue;
        ASSERT_TRUE(WritePrivateProfileStringA(entry.section.c_str(), entry.key.c_str(),
                                               entry.savedValue.c_str(), "EXPECTED.INI"));
    }
    EXPECT_EQ(Bytes("WZELKO.INI"), Bytes("EXPECTED.INI"));
    EXPECT_EQ(Value("WZELKO.INI", "SOUNDS", "BEEP"), "B.WAV");
}

TEST_F(UpgradeSettings, ADamagedFreshFileKeepsEveryByteThatNoCarriedValueReplaces) {
    // Not at the very start: "\xff\xfe" there would make it a UTF-16LE file.
    const std::string junk = std::string("x\xff\xfe\x00junk\x1a\r\n", 11);
    const std::string fresh = junk + "[A]\r\nK=1\r\nno equals sign\r\n" + std::string(300, '#') +
                              "\n[B\r\nL=1\r\n=orphan\r\n[A]\r\nM=1";
    Write("WZELKO.INI", fresh);
    Write("WZELKO.SAV", junk + "[A]\r\nK=2\r\nM=2\r\n[B]\r\nL=2\r\n");
    const UpgradeReport report = Run();
    EXPECT_EQ(report.passes[0].status, UpgradePassStatus::Merged);

    Write("EXPECTED.INI", fresh);
    for (const UpgradeKeyEntry& entry : report.passes[0].keys) {
        if (entry.fate != UpgradeKeyFate::Carried) continue;
        WritePrivateProfileStringA(entry.section.c_str(), entry.key.c_str(),
                                   entry.savedValue.c_str(), "EXPECTED.INI");
    }
    EXPECT_EQ(Bytes("WZELKO.INI"), Bytes("EXPECTED.INI"));
    EXPECT_EQ(Bytes("WZELKO.INI").substr(0, junk.size()), junk);
    EXPECT_EQ(Value("WZELKO.INI", "A", "K"), "2");
    EXPECT_EQ(Value("WZELKO.INI", "B", "L"), "2");
    EXPECT_FALSE(Exists("TEMP.TMP"));
}

TEST_F(UpgradeSettings, TheReportSaysWhatBecameOfEveryKeyInTheOrderMet) {
    Write("WZELKO.INI", "[cmm]\r\nCNC=TRUE\r\nPort=COM1:\r\nSPEED=1\r\nNEW=1\r\n");
    Write("WZELKO.SAV", "[CMM]\r\nCNC=FALSE\r\nPORT=COM3:\r\nSPEED=NONE\r\n");
    const UpgradeReport report = Run();
    const UpgradePassReport& pass = report.passes[0];
    EXPECT_EQ(pass.number, 1);
    EXPECT_EQ(pass.freshFile, "C:\\windows\\WZELKO.INI");
    EXPECT_EQ(pass.savedFile, "C:\\windows\\WZELKO.SAV");
    EXPECT_EQ(pass.status, UpgradePassStatus::Merged);
    ASSERT_EQ(pass.keys.size(), 4u);
    EXPECT_EQ(pass.keys[0].section, "CMM");
    EXPECT_EQ(pass.keys[0].key, "CNC");
    EXPECT_EQ(pass.keys[0].fate, UpgradeKeyFate::KeptAsInstalled);
    EXPECT_EQ(pass.keys[1].key, "Port");
    EXPECT_EQ(pass.keys[1].fate, UpgradeKeyFate::Carried);
    EXPECT_EQ(pass.keys[1].savedValue, "COM3:");
    EXPECT_EQ(pass.keys[1].installedValue, "COM1:");
    EXPECT_EQ(pass.keys[2].fate, UpgradeKeyFate::SavedValueNone);
    EXPECT_EQ(pass.keys[2].savedValue, "NONE");
    EXPECT_EQ(pass.keys[3].fate, UpgradeKeyFate::NotInSavedFile);
    EXPECT_EQ(pass.keys[3].savedValue, "");
    EXPECT_EQ(report.passes[1].number, 2);
    EXPECT_EQ(report.passes[1].status, UpgradePassStatus::NoSavedFile);
}

}  // namespace
}  // namespace wk
