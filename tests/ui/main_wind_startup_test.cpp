// Start-up and first activation of the main window.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <map>

#include "i18n/resgenstring.h"
#include "page_usability.h"
#include "platform/text_codec.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "ui_test_support.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::MessageScript;
using test::SettingsFile;
using test::StartWindow;
using test::TempWinePrefix;
using test::WorkingDir;

QString Language(int id) {
    return QString::fromStdString(platform::AnsiToUtf8(GetLanguageString(id, 200)));
}

// The text of string `id` in the library of `code`, loaded on its own.
QString LanguageOf(const std::string& code, int id) {
    LoadLanguageLibrary(code);
    const QString text = Language(id);
    ReleaseLanguageLibrary();
    return text;
}

// The caption start-up gives the window (string 1), without what the controller page adds to
// it (" - " and the controller).
QString MainCaption(const QString& title) {
    const qsizetype controller = title.indexOf(QStringLiteral(" - "));
    return controller < 0 ? title : title.left(controller);
}

template <typename T>
T* Find(const TKestelMainWind& window, const char* name) {
    return window.findChild<T*>(QString::fromLatin1(name));
}

const char* const kOffsets = "[MECHAOFFS]\r\noffx=1.5\r\noffy=2\r\noffz=3\r\ncompensoff=4\r\n";

TEST(StartUp, WithoutLanguageLibraryShowsTheWorkingDirMessageAndEnds) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::Empty);
    MessageScript script;
    auto window = StartWindow(script);

    ASSERT_EQ(script.Count(), 1);
    // The measuring application's text, then the folder that was searched.
    EXPECT_EQ(script.Shown()[0].text,
              "Be sure working dir is correct ! (C:\\WZELKO)\n\nThe language library "
              "Kes32_ENG.dll or Kes32_eng.dll was looked for in " +
                  cwd.Path().string() + ", the folder the program was started from.");
    EXPECT_EQ(script.Shown()[0].caption, "");
    EXPECT_EQ(script.Shown()[0].type, MB_OK | MB_ICONSTOP);
    EXPECT_TRUE(window->TerminationRequested());
    EXPECT_TRUE(window->StartupFailed());
    EXPECT_FALSE(window->Ready());
    EXPECT_FALSE(window->RecordRead());
    EXPECT_FALSE(window->PageCtl()->isVisible());
    EXPECT_FALSE(Find<QPushButton>(*window, "pOK")->isVisible());
    EXPECT_FALSE(Find<QPushButton>(*window, "pCancel")->isVisible());
    // Nothing can be saved or asked without a record; closing goes ahead.
    Find<QAction>(*window, "KestelFile_Save")->trigger();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(script.Count(), 1);
}

TEST(StartUp, WithoutSettingsFileShowsString24OnceInitialisesThePagesAndEnds) {
    TempWinePrefix prefix;
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);

    ASSERT_EQ(script.Count(), 1);
    // String 24, then where the file was looked for.
    EXPECT_EQ(script.Shown()[0].text, GetLanguageString(24, 200) + "\n\nLooked for " +
                                          prefix.WindowsFile("WZELKO.INI").string() +
                                          ": does not exist.");
    EXPECT_EQ(script.Shown()[0].caption, "");
    EXPECT_EQ(script.Shown()[0].type, MB_OK | MB_ICONSTOP);
    // The sequence ran to its end on defaults before the program ends, with a failure.
    EXPECT_TRUE(window->TerminationRequested());
    EXPECT_TRUE(window->StartupFailed());
    EXPECT_TRUE(window->Ready());
    ASSERT_TRUE(window->RecordRead());
    EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_OffsetX")->text(), QStringLiteral("0"));
    EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_BridgeStroke")->text(), QStringLiteral("0"));
}

TEST(StartUp, SettingsFileThatIsADirectoryIsNamedInTheMessage) {
    TempWinePrefix prefix;
    std::filesystem::create_directory(prefix.WindowsFile("WZELKO.INI"));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_EQ(script.Count(), 1);
    EXPECT_EQ(script.Shown()[0].text, GetLanguageString(24, 200) + "\n\nLooked for " +
                                          prefix.WindowsFile("WZELKO.INI").string() +
                                          ": is a directory.");
    EXPECT_TRUE(window->StartupFailed());
}

TEST(StartUp, IsHiddenWithItsDesignCaptionUntilTheFirstActivation) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    TKestelMainWind window({"WKestel32"}, PageTable());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("General Setup"));
    EXPECT_EQ(Find<QLabel>(window, "pBottBar")->text(), QStringLiteral("."));
    EXPECT_TRUE(window.PageCtl()->isHidden());
    EXPECT_TRUE(Find<QPushButton>(window, "pOK")->isHidden());
    EXPECT_TRUE(Find<QPushButton>(window, "pCancel")->isHidden());
    EXPECT_FALSE(window.RecordRead());
}

TEST(StartUp, FirstActivationShowsThePagesWithTheRecordReadAndUnmodified) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);

    EXPECT_EQ(script.Count(), 0);
    ASSERT_TRUE(window->Ready());
    EXPECT_FALSE(window->TerminationRequested());
    EXPECT_FALSE(window->StartupFailed());
    EXPECT_TRUE(window->PageCtl()->isVisible());
    EXPECT_TRUE(Find<QPushButton>(*window, "pOK")->isVisible());
    EXPECT_TRUE(Find<QPushButton>(*window, "pCancel")->isVisible());
    EXPECT_FALSE(window->Settings().Modified);
    // The controller page names the controller after the program's caption.
    EXPECT_EQ(window->windowTitle(), Language(1) + QStringLiteral(" - ") + Language(491) +
                                         QStringLiteral(" [") + Language(470) +
                                         QStringLiteral("]"));
    EXPECT_EQ(Find<QLabel>(*window, "pBottBar")->text(), QString());
    EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_OffsetX")->text(), QStringLiteral("1.5"));
}

TEST(StartUp, RunsOnceAlthoughTheWindowIsActivatedAgain) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    test::TypeInto(Find<QLineEdit>(*window, "pSLE_OffsetX"), QStringLiteral("9"));
    test::PressTab(Find<QLineEdit>(*window, "pSLE_OffsetX"));
    const SetupSettings* record = &window->Settings();

    QWidget other;
    other.show();
    other.activateWindow();
    (void)QTest::qWaitForWindowActive(&other, 2000);
    window->activateWindow();
    (void)QTest::qWaitForWindowActive(window.get(), 2000);

    EXPECT_EQ(&window->Settings(), record);
    EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_OffsetX")->text(), QStringLiteral("9"));
}

TEST(StartUp, RightAfterStartUpClosingAsksNoQuestion) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_TRUE(window->Ready());
    EXPECT_TRUE(window->close());
    EXPECT_EQ(script.Count(), 0);
}

// Whether a window made with this command line (in a prefix of its own) asks for the upgrade.
bool RequestsUpgrade(std::vector<std::string> commandLine) {
    TempWinePrefix prefix;
    return TKestelMainWind(std::move(commandLine), PageTable()).UpgradeRequested();
}

TEST(CommandLine, WordUpgradeInAnyCaseRequestsTheUpgrade) {
    EXPECT_TRUE(RequestsUpgrade({"WKestel32", "UPGRADE"}));
    EXPECT_TRUE(RequestsUpgrade({"WKestel32", "upgrade"}));
    EXPECT_TRUE(RequestsUpgrade({"WKestel32", "x", "UpGrade"}));
    // The program's own path is a word of the command line too.
    EXPECT_TRUE(RequestsUpgrade({"upgrade"}));
}

TEST(CommandLine, UpgradeWithALeadingSlashOrAnEqualsSignDoesNotRequestTheUpgrade) {
    EXPECT_FALSE(RequestsUpgrade({"WKestel32"}));
    EXPECT_FALSE(RequestsUpgrade({"WKestel32", "/UPGRADE"}));
    EXPECT_FALSE(RequestsUpgrade({"WKestel32", "UPGRADE=1"}));
    EXPECT_FALSE(RequestsUpgrade({"WKestel32", "-upgrade"}));
}

// A fresh WZELKO.INI and the user's saved WZELKO.SAV beside it, with another Y offset.
void WriteFreshAndSaved(TempWinePrefix& prefix) {
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile("[MECHAOFFS]\r\noffx=0\r\noffy=1\r\n"));
    prefix.WriteWindowsFile("WZELKO.SAV", SettingsFile("[MECHAOFFS]\r\noffx=0\r\noffy=99\r\n"));
}

TEST(Upgrade, WordUpgradeRunsTheUpgradeBeforeTheRecordIsRead) {
    TempWinePrefix prefix;
    WriteFreshAndSaved(prefix);
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script, {"WKestel32", "Upgrade"});
    ASSERT_TRUE(window->Ready());
    EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_OffsetY")->text(), QStringLiteral("99"));
    EXPECT_EQ(test::IniValue(prefix.ReadWindowsFile("WZELKO.INI"), "MECHAOFFS", "offy"), "99");
    EXPECT_FALSE(window->Settings().Modified);
    EXPECT_FALSE(test::Exists(prefix, "TEMP.TMP"));
    // The status line keeps the last pass's text; the controls and the cursor are back.
    EXPECT_EQ(Find<QLabel>(*window, "pBottBar")->text(),
              QStringLiteral("Upgrading WZELKO.INI. Please Wait..."));
    EXPECT_TRUE(window->PageCtl()->isVisible());
    EXPECT_TRUE(Find<QPushButton>(*window, "pOK")->isVisible());
    EXPECT_EQ(window->cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(script.Count(), 0);
}

TEST(Upgrade, UpgradeWithALeadingSlashOrAnEqualsSignLeavesTheFilesAlone) {
    for (const char* word : {"/UPGRADE", "UPGRADE=1"}) {
        TempWinePrefix prefix;
        WriteFreshAndSaved(prefix);
        const std::string fresh = prefix.ReadWindowsFile("WZELKO.INI");
        WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
        MessageScript script;
        auto window = StartWindow(script, {"WKestel32", word});
        ASSERT_TRUE(window->Ready()) << word;
        EXPECT_EQ(Find<QLineEdit>(*window, "pSLE_OffsetY")->text(), QStringLiteral("1")) << word;
        EXPECT_EQ(prefix.ReadWindowsFile("WZELKO.INI"), fresh) << word;
    }
}

std::unique_ptr<TKestelMainWind> StartWithLanguage(TempWinePrefix& prefix, MessageScript& script,
                                                   const std::string& language) {
    prefix.WriteWindowsFile("WZELKO.INI", "[WZELKO]\r\nLANGUAGE=" + language + "\r\n");
    return StartWindow(script);
}

// The caption start-up gives the window (string 1 of the library it loaded, from the working
// directory the test is in) when "LANGUAGE" is `language`; the window is gone again, with its
// library.
QString StartUpCaption(const std::string& language) {
    TempWinePrefix prefix;
    MessageScript script;
    auto window = StartWithLanguage(prefix, script, language);
    EXPECT_TRUE(window->Ready());
    return MainCaption(window->windowTitle());
}

TEST(Language, NoneInCapitalsUsesTheEnglishLibrary) {
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    EXPECT_EQ(StartUpCaption("NONE"), LanguageOf("ENG", 1));
}

// The help file chosen at start-up, with a working directory whose Help folder holds `files`.
std::string HelpFileFor(const std::string& language, std::initializer_list<const char*> files) {
    TempWinePrefix prefix;
    WorkingDir cwd(WorkingDir::Kind::CopyOfLanguageLibraries);
    std::filesystem::create_directories(cwd.Path() / "Help");
    for (const char* file : files) {
        std::ofstream(cwd.Path() / "Help" / file) << "help";
    }
    MessageScript script;
    auto window = StartWithLanguage(prefix, script, language);
    EXPECT_TRUE(window->Ready());
    const LanguageState& state = wk::Language();
    const std::string path = state.HelpAvailable ? state.HelpFilePath : "<none>";
    return std::filesystem::path(path).filename().string();
}

TEST(Language, NoneInCapitalsUsesTheHelpFileForEng) {
    EXPECT_EQ(HelpFileFor("NONE", {"MarvaneENG.hlp", "MarvaneNONE.hlp"}), "MarvaneENG.hlp");
}

TEST(Language, NoneInLowerCaseLooksForTheHelpFileOfItsOwnCode) {
    // Not changed to ENG: only "NONE" in capitals is.
    EXPECT_EQ(HelpFileFor("none", {"MarvaneNONE.hlp", "MarvaneENG.hlp"}), "MarvaneNONE.hlp");
}

TEST(Language, HelpFileFallsBackToEnglish) {
    EXPECT_EQ(HelpFileFor("ITA", {"MarvaneEng.hlp"}), "MarvaneEng.hlp");
}

TEST(Language, NoneInLowerCaseIsACodeOfItsOwnAndFallsBackToEnglish) {
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    EXPECT_EQ(StartUpCaption("none"), LanguageOf("ENG", 1));
}

TEST(Language, TheFileNamesTheLibraryInUse) {
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    const QString caption = StartUpCaption("ita");
    EXPECT_EQ(caption, LanguageOf("ita", 1));
    EXPECT_NE(caption, LanguageOf("ENG", 1));
}

TEST(Language, MissingLanguageKeyUsesTheEnglishLibrary) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(""));
    prefix.WriteWindowsFile("WZELKO.INI", "[CONTROLLER]\r\nType=RMD\r\n");
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    QString title;
    {
        auto window = StartWindow(script);
        ASSERT_TRUE(window->Ready());
        title = window->windowTitle();
    }
    EXPECT_EQ(MainCaption(title), LanguageOf("ENG", 1));
}

struct ControllerCase {
    const char* type;
    bool entryVisible;
    bool qd32OrRmd, vek3Family, kpt, rmdOrKpt;
};

void PrintTo(const ControllerCase& c, std::ostream* os) {
    *os << '"' << c.type << '"';
}

class ControllerMenu : public ::testing::TestWithParam<ControllerCase> {};

TEST_P(ControllerMenu, EntryVisibilityAndFlagsFollowTheControllerType) {
    const ControllerCase c = GetParam();
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile("", c.type));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_TRUE(window->Ready());

    auto* entry = Find<QAction>(*window, "KestelGenConf_Controller");
    auto* separator = Find<QAction>(*window, "KestelGenConf_ControlSeparator");
    ASSERT_NE(entry, nullptr);
    ASSERT_NE(separator, nullptr);
    EXPECT_EQ(entry->isVisible(), c.entryVisible);
    EXPECT_EQ(separator->isVisible(), c.entryVisible);
    if (c.entryVisible) {
        EXPECT_EQ(entry->text(), Language(9));
        EXPECT_EQ(entry->statusTip(), Language(33));
    }
    EXPECT_EQ(window->Flags().IsQd32OrRmd, c.qd32OrRmd);
    EXPECT_EQ(window->Flags().IsVek3Family, c.vek3Family);
    EXPECT_EQ(window->Flags().IsKpt, c.kpt);
    EXPECT_EQ(window->Flags().IsRmdOrKpt, c.rmdOrKpt);
}

INSTANTIATE_TEST_SUITE_P(Types, ControllerMenu,
                         ::testing::Values(ControllerCase{"vek3", true, false, true, false, false},
                                           ControllerCase{"qd32", false, true, false, false, false},
                                           ControllerCase{"RMD", true, true, false, false, true},
                                           ControllerCase{"rmd", true, true, false, false, true},
                                           ControllerCase{"Tq", true, false, true, false, false},
                                           ControllerCase{"Q5", true, false, true, false, false},
                                           ControllerCase{"KPT", false, false, false, true, true},
                                           ControllerCase{"", false, false, false, false, false}),
                         [](const auto& info) {
                             const std::string type = info.param.type;
                             return type.empty() ? std::string("Missing") : type;
                         });

TEST(Menu, EntriesAreCaptionedAndHintedFromTheLanguageStrings) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_TRUE(window->Ready());

    const struct {
        const char* name;
        int caption;
        int hint;
    } entries[] = {
        {"KestelFile_PopUp", 2, 0},
        {"KestelFile_Save", 3, 26},
        {"KestelFile_Exit", 4, 25},
        {"KestelGenConf_PopUp", 10, 0},
        {"KestelGenConf_MacPar", 5, 29},
        {"KestelGenConf_SysParam", 6, 30},
        {"KestelGenConf_Init", 7, 31},
        {"KestelGenConf_MecOff", 8, 32},
        {"KestelElemPar_PopUp", 11, 0},
        {"KestelElemPar_NumPts", 14, 34},
        {"KestelOther_PopUp", 15, 0},
        {"KestelOther_Sounds", 17, 36},
        {"KestelOther_WindowsColor", 16, 37},
        {"KestelOther_Directories", 18, 38},
        {"KestelOther_AxesConvention", 19, 0},
        {"KestelHelp_PopUp", 20, 0},
        {"KestelHelp_Index", 21, 0},
        {"KestelHelp_About", 22, 0},
    };
    for (const auto& e : entries) {
        auto* action = Find<QAction>(*window, e.name);
        ASSERT_NE(action, nullptr) << e.name;
        EXPECT_EQ(action->text(), Language(e.caption)) << e.name;
        if (e.hint) {
            EXPECT_EQ(action->statusTip(), Language(e.hint)) << e.name;
        }
    }
    // Not translated, on purpose.
    EXPECT_EQ(Find<QAction>(*window, "KestelGenConf_Volcomp")->text(), QStringLiteral("&Volcomp"));
}

TEST(Menu, HintOfAnEntryShowsInTheStatusLine) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_TRUE(window->Ready());
    Find<QAction>(*window, "KestelFile_Save")->showStatusText(window->menuBar());
    EXPECT_EQ(Find<QLabel>(*window, "pBottBar")->text(), Language(26));
}

// The tabs and the menu bar's popups answer their mnemonics wherever the focus is, and the
// entries of an open popup answer theirs: within each of those sets no letter is taken twice.
TEST(Menu, TabsPopupsAndEachPopupsEntriesHaveMnemonicsOfTheirOwnInEveryLanguage) {
    for (const std::string language : {"ENG", "ITA"}) {
        TempWinePrefix prefix;
        std::string ini = SettingsFile(kOffsets, "Vek3");  // the controller entry shown too
        ini.replace(ini.find("LANGUAGE=ENG"), 12, "LANGUAGE=" + language);
        prefix.WriteWindowsFile("WZELKO.INI", ini);
        WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
        MessageScript script;
        auto window = StartWindow(script);
        ASSERT_TRUE(window->Ready());

        auto expectUnique = [&](const QStringList& captions, const char* where) {
            std::map<QChar, QString> taken;
            for (const QString& caption : captions) {
                const QChar letter = test::MnemonicOf(caption);
                if (letter.isNull()) continue;
                EXPECT_EQ(taken.count(letter), 0u)
                    << language << ", " << where << ": " << caption.toStdString() << " and "
                    << taken[letter].toStdString();
                taken[letter] = caption;
            }
        };
        expectUnique(test::WindowMnemonicCaptions(*window), "tabs and menu bar");
        for (const QAction* popup : window->menuBar()->actions()) {
            QStringList entries;
            for (const QAction* entry : popup->menu()->actions()) {
                if (entry->isVisible() && !entry->isSeparator()) entries << entry->text();
            }
            expectUnique(entries, popup->objectName().toLatin1().constData());
        }
    }
}

TEST(PageTable, PagesNotBuiltAreAbsentAndTheirMenuEntriesDisabled) {
    TempWinePrefix prefix;
    prefix.WriteWindowsFile("WZELKO.INI", SettingsFile(kOffsets));
    WorkingDir cwd(WorkingDir::Kind::LanguageLibraries);
    MessageScript script;
    auto window = StartWindow(script);
    ASSERT_TRUE(window->Ready());

    // The sheets of the built pages, in tab order; the others absent, their entries disabled.
    PageControl* pages = window->PageCtl();
    int sheet = 0;
    for (const PageEntry& entry : PageTable()) {
        const QString name = QString::fromLatin1(entry.sheetName);
        EXPECT_EQ(Find<QAction>(*window, entry.menu.name)->isEnabled(), entry.factory != nullptr)
            << entry.menu.name;
        if (entry.factory) {
            ASSERT_LT(sheet, pages->SheetCount()) << entry.sheetName;
            EXPECT_EQ(pages->Sheet(sheet++)->objectName(), name);
        } else {
            EXPECT_EQ(window->findChild<QWidget*>(name), nullptr) << entry.sheetName;
        }
    }
    EXPECT_EQ(pages->SheetCount(), sheet);
    // The start page if it is built, else the first sheet is shown.
    const PageEntry* start = nullptr;
    for (const PageEntry& entry : PageTable()) {
        if (entry.startPage && entry.factory) start = &entry;
    }
    EXPECT_EQ(pages->ActivePage()->objectName(),
              start ? QString::fromLatin1(start->sheetName) : pages->Sheet(0)->objectName());
}

}  // namespace
}  // namespace wk
