// File, Restore Backup: the backup put back after a question that shows what changes, the
// files read again and every page refreshed; its texts in the user's language, English with a
// library older than them.

#include "shell/restore_backup.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <filesystem>

#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "platform/windows_directory.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

namespace fs = std::filesystem;
using test::TypeInto;

constexpr const char* kEnglish = "LANGUAGE=ENG\r\n";

// The start-up options' auto power-on is in the first section, [WZELKO], beside the language.
std::string Settings(const char* autoPower, const char* offsetX,
                     const std::string& languageKeys = kEnglish) {
    return "[WZELKO]\r\n" + languageKeys + "AUTOPOWER=" + autoPower +
           "\r\n\r\n[CONTROLLER]\r\nType=RMD\r\n\r\n[MECHAOFFS]\r\noffx=" + offsetX + "\r\n";
}
const std::string kNow = Settings("FALSE", "1.000000");
const std::string kBackedUp = Settings("TRUE", "5.000000");

// Windows-1252 bytes, as the message boxes take their texts, of a text written here in UTF-8.
std::string Ansi(const char* utf8) {
    return platform::Utf8ToAnsi(utf8);
}

class RestoreBackup : public test::PageTest {
protected:
    void SetUp() override {
        pages_ = test::TableRows({"MecOffTabSheet", "InitTabSheet"});
        const std::string keys = LanguageKeys();
        prefix_.WriteWindowsFile("WZELKO.BAK", Settings("TRUE", "5.000000", keys) + '\xFF');
        Start(Settings("FALSE", "1.000000", keys), pages_);
        // The mechanical offsets page in front, the start-up options behind it.
        Action("KestelGenConf_MecOff")->trigger();
        ASSERT_EQ(window_->PageCtl()->ActivePage(), Page("MecOffTabSheet"));
    }
    // The language keys of the files' [WZELKO] section.
    virtual std::string LanguageKeys() const { return kEnglish; }
    void Restore() const { Action("KestelFile_Restore")->trigger(); }

    std::vector<PageEntry> pages_;
};

TEST_F(RestoreBackup, TheEntryFollowsSaveInTheFileMenu) {
    auto* file = Find<QMenu>("KestelFile_PopUp");
    ASSERT_NE(file, nullptr);
    const QList<QAction*> actions = file->actions();
    ASSERT_GE(actions.size(), 3);
    EXPECT_EQ(actions[0]->objectName(), QStringLiteral("KestelFile_Save"));
    EXPECT_EQ(actions[1]->objectName(), QStringLiteral("KestelFile_Restore"));
    EXPECT_EQ(actions[1]->text(), QStringLiteral("&Restore Backup..."));
    EXPECT_EQ(
        actions[1]->statusTip(),
        QStringLiteral("Puts back the settings files as the last save found them (WZELKO.BAK)"));
    EXPECT_TRUE(actions[2]->isSeparator());
}

TEST_F(RestoreBackup, TheQuestionShowsWhatTheRestoreChangesAndNoChangesNothing) {
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    const MessageBoxRequest& question = script_.Shown()[0];
    EXPECT_EQ(question.type, MB_YESNO | MB_ICONQUESTION);
    EXPECT_EQ(question.caption, "Restore Backup");
    EXPECT_EQ(question.text,
              "Put the settings files back as the last save found them?\n\n"
              "The files as they are now become the backup, so that restoring again undoes this.");
    EXPECT_EQ(question.details,
              "WZELKO.INI -> WZELKO.BAK:\n"
              "  [WZELKO] AUTOPOWER: \"FALSE\" -> \"TRUE\"\n"
              "  [MECHAOFFS] offx: \"1.000000\" -> \"5.000000\"\n");
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, YesRestoresReadsTheFilesAgainAndRefreshesEveryPage) {
    auto* autoPower = Find<QCheckBox>("pCHB_AutoPower");
    ASSERT_NE(autoPower, nullptr);
    EXPECT_FALSE(autoPower->isChecked());
    script_.Answer(IDYES);
    Restore();
    EXPECT_EQ(Bytes(), kBackedUp);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kNow + '\xFF');
    EXPECT_DOUBLE_EQ(Record().OffsetX, 5.0);
    EXPECT_TRUE(Record().AutoPower);
    EXPECT_FALSE(Record().Modified);
    // The page shown and the page behind it both show the restored values.
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("5"));
    EXPECT_TRUE(autoPower->isChecked());
}

TEST_F(RestoreBackup, RestoringTwiceGivesBackTheFilesAndTheBackup) {
    script_.Answer(IDYES);
    Restore();
    script_.Answer(IDYES);
    Restore();
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, UnsavedChangesAreNamedInTheQuestionAndKeptOnNo) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));  // still in the field
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text,
              RestoreQuestionText(false) + "\n\nThe changes that are not saved are lost.");
    EXPECT_TRUE(Record().Modified);
    EXPECT_DOUBLE_EQ(Record().OffsetX, 9.0);
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("9"));
    EXPECT_EQ(Bytes(), kNow);
}

TEST_F(RestoreBackup, UnsavedChangesAreLostOnYes) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));
    script_.Answer(IDYES);
    Restore();
    EXPECT_DOUBLE_EQ(Record().OffsetX, 5.0);
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("5"));
    // Nothing left to save: leaving asks nothing.
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(script_.Count(), 1);
}

TEST_F(RestoreBackup, AFailedRestoreSaysWhichFileAndWhyAndChangesNothing) {
    fs::permissions(prefix_.WindowsFile("WZELKO.INI"), fs::perms::owner_read);
    script_.Answer(IDYES);
    Restore();
    ASSERT_EQ(script_.Count(), 2);
    const MessageBoxRequest& failure = script_.Shown()[1];
    EXPECT_EQ(failure.type, MB_OK | MB_ICONSTOP);
    EXPECT_EQ(failure.caption, "Restore Backup");
    EXPECT_EQ(failure.text.rfind("The backup could not be restored.\n\n", 0), 0u) << failure.text;
    EXPECT_NE(failure.text.find("WZELKO.INI"), std::string::npos) << failure.text;
    EXPECT_NE(failure.text.find("read-only"), std::string::npos) << failure.text;
    EXPECT_NE(failure.text.find("No file was changed."), std::string::npos);
    EXPECT_EQ(Bytes(), kNow);
    EXPECT_EQ(Bytes("WZELKO.BAK"), kBackedUp + '\xFF');
    EXPECT_EQ(Edit("pSLE_OffsetX")->text(), QStringLiteral("1"));
}

TEST_F(RestoreBackup, WithoutABackupItSaysSoAndChangesNothing) {
    fs::remove(prefix_.WindowsFile("WZELKO.BAK"));
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].type, MB_OK | MB_ICONSTOP);
    EXPECT_EQ(script_.Shown()[0].text,
              "There is no backup to restore: neither WZELKO.BAK nor WZELKO32.BAK is in " +
                  platform::WindowsDirectoryHostPath() + ".");
    EXPECT_EQ(Bytes(), kNow);
}

// In Italian, the library's texts without the OEM conversion (as the demo's settings have it).
class RestoreBackupInItalian : public RestoreBackup {
protected:
    std::string LanguageKeys() const override {
        return "LANGUAGE=ITA\r\nNO ANSI-OEM CONVERSION=ENG,ITA\r\n";
    }
};

TEST_F(RestoreBackupInItalian, TheEntryHasItsItalianCaptionAndHint) {
    QAction* entry = Action("KestelFile_Restore");
    EXPECT_EQ(entry->text(), QStringLiteral("&Ripristina backup..."));
    EXPECT_EQ(entry->statusTip(), QStringLiteral("Riporta i file di configurazione com'erano "
                                                 "prima dell'ultimo salvataggio (WZELKO.BAK)"));
}

TEST_F(RestoreBackupInItalian, TheQuestionIsAskedInItalian) {
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].caption, "Ripristina backup");
    EXPECT_EQ(script_.Shown()[0].text,
              Ansi("Riportare i file di configurazione com'erano prima dell'ultimo "
                   "salvataggio?\n\nI file così come sono ora diventano il backup: "
                   "ripristinando di nuovo si annulla questa operazione."));
}

TEST_F(RestoreBackupInItalian, TheQuestionSaysInItalianThatUnsavedChangesAreLost) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));
    script_.Answer(IDNO);
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    const std::string& text = script_.Shown()[0].text;
    const std::string lost = "\n\nLe modifiche non salvate andranno perse.";
    ASSERT_GT(text.size(), lost.size());
    EXPECT_EQ(text.substr(text.size() - lost.size()), lost);
}

TEST_F(RestoreBackupInItalian, AFailedRestoreNamesTheFileAndWhyInItalian) {
    fs::permissions(prefix_.WindowsFile("WZELKO.INI"), fs::perms::owner_read);
    script_.Answer(IDYES);
    Restore();
    ASSERT_EQ(script_.Count(), 2);
    const std::string& text = script_.Shown()[1].text;
    EXPECT_EQ(text.rfind("Impossibile ripristinare il backup.\n\n", 0), 0u) << text;
    EXPECT_NE(text.find("WZELKO.INI"), std::string::npos) << text;
    EXPECT_NE(text.find("read-only"), std::string::npos) << text;
    const std::string unchanged = Ansi("\n\nNessun file è stato modificato.");
    EXPECT_EQ(text.substr(text.size() - unchanged.size()), unchanged) << text;
}

TEST_F(RestoreBackupInItalian, WithoutABackupItSaysSoInItalianNamingTheWindowsDirectory) {
    fs::remove(prefix_.WindowsFile("WZELKO.BAK"));
    Restore();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, Ansi("Nessun backup da ripristinare: in ") +
                                           platform::WindowsDirectoryHostPath() +
                                           Ansi(" non ci sono né WZELKO.BAK né WZELKO32.BAK."));
}

// A language library installed before the entry had strings of its own: the test Italian
// library, which has none of them, as the language "OLD".
class RestoreBackupWithAnOlderLibrary : public RestoreBackup {
protected:
    RestoreBackupWithAnOlderLibrary() {
        fs::copy_file(WKESTEL_OLDER_LIBRARY, olderCwd_.Path() / "Kes32_OLD.dll");
    }
    std::string LanguageKeys() const override { return "LANGUAGE=OLD\r\n"; }

    test::WorkingDir olderCwd_{test::WorkingDir::Kind::CopyOfLanguageLibraries};
};

TEST_F(RestoreBackupWithAnOlderLibrary, TheEntryKeepsItsEnglishCaptionAndHint) {
    ASSERT_EQ(Language(1), QStringLiteral("Impostazioni generali"));  // the older library is in use
    QAction* entry = Action("KestelFile_Restore");
    EXPECT_EQ(entry->text(), QStringLiteral("&Restore Backup..."));
    EXPECT_EQ(
        entry->statusTip(),
        QStringLiteral("Puts back the settings files as the last save found them (WZELKO.BAK)"));
}

TEST_F(RestoreBackupWithAnOlderLibrary, TheMessagesAreInEnglish) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("9"));
    script_.Answer(IDNO);
    Restore();
    fs::remove(prefix_.WindowsFile("WZELKO.BAK"));
    Restore();
    ASSERT_EQ(script_.Count(), 2);
    EXPECT_EQ(script_.Shown()[0].caption, "Restore Backup");
    EXPECT_EQ(script_.Shown()[0].text,
              "Put the settings files back as the last save found them?\n\n"
              "The files as they are now become the backup, so that restoring again undoes "
              "this.\n\nThe changes that are not saved are lost.");
    EXPECT_EQ(script_.Shown()[1].caption, "Restore Backup");
    EXPECT_EQ(script_.Shown()[1].text,
              "There is no backup to restore: neither WZELKO.BAK nor WZELKO32.BAK is in " +
                  platform::WindowsDirectoryHostPath() + ".");
}

}  // namespace
}  // namespace wk
