// The frame around the pages: the save question, Save, Exit, close, OK and Cancel, help, the
// about box and the shared file dialog. Shown on the mechanical offsets page.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <filesystem>

#include "i18n/resgenstring.h"
#include "page_test_fixture.h"
#include "page_usability.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "support/file_bytes.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::PressTab;
using test::SettingsFile;
using test::TypeInto;

const char* const kOffsets =
    "[MACHINEPARAM]\r\nBRIDGE AXIS STROKE=1200.000000\r\n\r\n"
    "[MECHAOFFS]\r\noffx=0.000000\r\noffy=152.500000\r\noffz=-310.250000\r\ncompensoff=0."
    "000000\r\n";

// The mechanical offsets page first, and a page to switch to.
std::vector<PageEntry> FramePages() {
    return test::TableRows({"MecOffTabSheet", "WinColorTabSheet"});
}

class Frame : public test::PageTest {
protected:
    void SetUp() override { Start(SettingsFile(kOffsets), FramePages()); }

    bool AskedToSave(std::size_t index = 0) const {
        if (index >= script_.Shown().size()) {
            return false;
        }
        const MessageBoxRequest& r = script_.Shown()[index];
        return r.text == GetLanguageString(41, 200) && r.caption == GetLanguageString(42, 200) &&
               r.type == (MB_YESNOCANCEL | MB_ICONQUESTION);
    }
};

TEST_F(Frame, SaveWithNoChangeWritesNothingAndMakesNoBackup) {
    Save();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(Bytes(), original_);
    EXPECT_FALSE(Exists("WZELKO.BAK"));
}

TEST_F(Frame, Typing1250AndLeavingShows125AndSaveWritesSixDecimals) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("12.50"));
    PressTab(x);
    EXPECT_EQ(x->text(), QStringLiteral("12.5"));
    EXPECT_FALSE(x->isModified());
    EXPECT_DOUBLE_EQ(Record().OffsetX, 12.5);
    EXPECT_TRUE(Record().Modified);
    // Leaving the field stores into the record only; the files wait for Save.
    EXPECT_EQ(Bytes(), original_);

    Save();
    EXPECT_EQ(script_.Count(), 0);  // Save does not ask
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "12.500000");
    EXPECT_TRUE(Exists("WZELKO.BAK"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(Frame, SaveCommitsTheEditInProgressFirst) {
    QLineEdit* z = Edit("pSLE_OffsetZ");
    TypeInto(z, QStringLiteral("-5"));
    Save();
    EXPECT_EQ(Saved("MECHAOFFS", "offz"), "-5.000000");
    EXPECT_EQ(z->text(), QStringLiteral("-5"));
}

TEST_F(Frame, TextThatIsNotANumberShowsTheConversionMessageAndKeepsTheOldValue) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("abc"));
    PressTab(y);
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'abc' is not a valid floating point value");
    EXPECT_EQ(script_.Shown()[0].type & 0xF0u, MB_ICONSTOP);
    EXPECT_DOUBLE_EQ(Record().OffsetY, 152.5);
    EXPECT_FALSE(Record().Modified);
    // The program goes on; Save finds nothing changed, and reports the text once more.
    Save();
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(Frame, EscapeInAChangedEditRestoresTheValueFromTheRecord) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("77"));
    QTest::keyClick(y, Qt::Key_Escape);
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_FALSE(y->isModified());
    EXPECT_DOUBLE_EQ(Record().OffsetY, 152.5);
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, EnterInAChangedEditCommitsItWithoutWritingTheFiles) {
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(y, QStringLiteral("77.0"));
    QTest::keyClick(y, Qt::Key_Return);
    EXPECT_EQ(y->text(), QStringLiteral("77"));
    EXPECT_TRUE(y->hasFocus());
    EXPECT_DOUBLE_EQ(Record().OffsetY, 77.0);
    EXPECT_TRUE(Record().Modified);
    EXPECT_EQ(Bytes(), original_);
    EXPECT_FALSE(Exists("WZELKO.BAK"));
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, CancelDropsOnlyTheEditInProgress) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(x, QStringLiteral("4"));
    PressTab(x);  // taken into the record
    TypeInto(y, QStringLiteral("5"));
    window_->findChild<QPushButton*>(QStringLiteral("pCancel"))->click();
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_EQ(x->text(), QStringLiteral("4"));
    EXPECT_DOUBLE_EQ(Record().OffsetX, 4.0);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringCancelKeepsTheWindowAndTheEdit) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    EXPECT_FALSE(window_->close());
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(x->text(), QStringLiteral("7"));
    EXPECT_DOUBLE_EQ(Record().OffsetX, 7.0);
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringNoReReadsTheFiles) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    PressTab(x);
    script_.Answer(IDNO);
    EXPECT_TRUE(window_->close());
    EXPECT_TRUE(AskedToSave());
    EXPECT_DOUBLE_EQ(Record().OffsetX, 0.0);
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(x->text(), QStringLiteral("0"));
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(Frame, ClosingWithAChangeAndAnsweringYesWritesTheFiles) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDYES);
    EXPECT_TRUE(window_->close());
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "7.000000");
    EXPECT_TRUE(Exists("WZELKO.BAK"));
}

TEST_F(Frame, ExitAsksAndEndsTheProgramUnlessCancelled) {
    TypeInto(Edit("pSLE_OffsetX"), QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    Action("KestelFile_Exit")->trigger();
    EXPECT_TRUE(AskedToSave());
    EXPECT_FALSE(window_->TerminationRequested());
    script_.Answer(IDYES);
    Action("KestelFile_Exit")->trigger();
    EXPECT_TRUE(window_->TerminationRequested());
    EXPECT_EQ(Saved("MECHAOFFS", "offx"), "7.000000");
}

TEST_F(Frame, ExitWithNoChangeEndsWithoutAQuestion) {
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_TRUE(window_->TerminationRequested());
}

TEST_F(Frame, ChoosingTheMenuEntryOfThePageAlreadyShownStillAsks) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("7"));
    script_.Answer(IDCANCEL);
    Action("KestelGenConf_MecOff")->trigger();
    // Asked once: the menu's own question, no second one from the switch.
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_EQ(x->text(), QStringLiteral("7"));
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("MecOffTabSheet"));
}

// The edit in progress is taken into the record before the question, so leaving the page with
// nothing but a typed value still asks; Cancel keeps the sheet and what was typed.
TEST_F(Frame, TypingAndClickingAnotherTabStoresTheEditFirstSoTheQuestionAppears) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("4.5"));
    ASSERT_FALSE(Record().Modified);
    QTabBar* tabs = window_->PageCtl()->TabBar();
    QWidget* colours = window_->findChild<QWidget*>(QStringLiteral("WinColorTabSheet"));
    ASSERT_NE(colours, nullptr);
    const int colourTab = window_->PageCtl()->IndexOf(colours);
    ASSERT_GE(colourTab, 0);
    script_.Answer(IDCANCEL);
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(colourTab).center());
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_TRUE(AskedToSave());
    EXPECT_DOUBLE_EQ(Record().OffsetX, 4.5);
    EXPECT_TRUE(Record().Modified);
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("MecOffTabSheet"));
    EXPECT_EQ(x->text(), QStringLiteral("4.5"));
    EXPECT_EQ(Bytes(), original_);
}

TEST_F(Frame, AnsweringNoOnLeavingAPageReloadsTheFilesAndRefreshesThePage) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    QLineEdit* y = Edit("pSLE_OffsetY");
    TypeInto(x, QStringLiteral("7"));
    PressTab(x);
    TypeInto(y, QStringLiteral("8"));
    script_.Answer(IDNO);
    Action("KestelGenConf_MecOff")->trigger();
    EXPECT_EQ(script_.Count(), 1);
    EXPECT_EQ(x->text(), QStringLiteral("0"));
    EXPECT_EQ(y->text(), QStringLiteral("152.5"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(Frame, OkCommitsTheEditAndNeverWrites) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("3.25"));
    window_->pOKClick();
    EXPECT_DOUBLE_EQ(Record().OffsetX, 3.25);
    EXPECT_EQ(Bytes(), original_);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, DestroyingTheWindowRunsNoExitHandler) {
    QLineEdit* x = Edit("pSLE_OffsetX");
    TypeInto(x, QStringLiteral("abc"));  // its exit handler would report the text
    window_.reset();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_EQ(Bytes(), original_);
}

// A `wine` of the test's own, first on PATH, that records how the help viewer was started.
class RecordingHelpViewer {
public:
    explicit RecordingHelpViewer(const std::filesystem::path& dir) : dir_(dir) {
        const char* path = std::getenv("PATH");
        savedPath_ = path ? path : "";
        std::filesystem::create_directories(dir_ / "bin");
        const std::filesystem::path wine = dir_ / "bin" / "wine";
        const std::string record = Record().string();
        test::WriteFileBytes(wine, "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > " +
                                       record + ".tmp\n/bin/mv " + record + ".tmp " + record +
                                       "\n");
        std::filesystem::permissions(wine, std::filesystem::perms::owner_all);
        setenv("PATH", (dir_ / "bin").c_str(), 1);
    }
    ~RecordingHelpViewer() { setenv("PATH", savedPath_.c_str(), 1); }

    // The words the viewer was started with, one a line, once it has run; the record is then
    // taken away for the next call.
    std::string Args() const {
        for (int i = 0; i < 500 && !std::filesystem::exists(Record()); ++i) {
            QTest::qWait(10);
        }
        if (!std::filesystem::exists(Record())) return std::string();
        std::string args = test::ReadFileBytes(Record());
        std::filesystem::remove(Record());
        return args;
    }

private:
    std::filesystem::path Record() const { return dir_ / "help-args"; }

    std::filesystem::path dir_;
    std::string savedPath_;
};

// The help file of the language, beside a copy of the language libraries.
class FrameHelp : public test::PageTest {
protected:
    FrameHelp() {
        std::filesystem::create_directories(helpCwd_.Path() / "Help");
        test::WriteFileBytes(helpCwd_.Path() / "Help" / "MarvaneEng.hlp", "help");
    }
    test::WorkingDir helpCwd_{test::WorkingDir::Kind::CopyOfLanguageLibraries};
    RecordingHelpViewer viewer_{helpCwd_.Path()};
};

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

TEST_F(FrameHelp, HelpContextIsThatOfTheActivePage) {
    Start(SettingsFile(kOffsets), FramePages());
    EXPECT_EQ(window_->HelpContextOfPage(), 21);
    Action("KestelHelp_Index")->trigger();
    const std::string args = viewer_.Args();
    EXPECT_TRUE(StartsWith(args, "winhlp32\n-n\n21\n")) << args;
    EXPECT_NE(args.find("MarvaneEng.hlp\n"), std::string::npos) << args;

    Action("KestelOther_WindowsColor")->trigger();
    EXPECT_EQ(window_->HelpContextOfPage(), 28);
    Action("KestelHelp_Index")->trigger();
    const std::string colours = viewer_.Args();
    EXPECT_TRUE(StartsWith(colours, "winhlp32\n-n\n28\n")) << colours;
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(FrameHelp, HelpShownLeavesTheStatusLineAlone) {
    Start(SettingsFile(kOffsets), FramePages());
    Action("KestelHelp_Index")->trigger();
    EXPECT_FALSE(viewer_.Args().empty());
    EXPECT_EQ(Label("pBottBar")->text(), QString());
}

TEST_F(FrameHelp, HelpFileWithoutAViewerSaysSoInTheStatusLine) {
    Start(SettingsFile(kOffsets), FramePages());
    const char* path = std::getenv("PATH");
    const std::string saved = path ? path : "";
    setenv("PATH", "/nonexistent", 1);  // no wine to run the help viewer
    Action("KestelHelp_Index")->trigger();
    setenv("PATH", saved.c_str(), 1);
    const QString line = Label("pBottBar")->text();
    EXPECT_TRUE(line.contains(QStringLiteral("cannot be shown"))) << line.toStdString();
    EXPECT_TRUE(line.contains(QStringLiteral("MarvaneEng.hlp"))) << line.toStdString();
    EXPECT_EQ(script_.Count(), 0);
}

TEST_F(Frame, HelpWithoutAHelpFileSaysSoInTheStatusLine) {
    // The language libraries' folder holds no Help folder.
    Action("KestelHelp_Index")->trigger();
    const QString line = Label("pBottBar")->text();
    EXPECT_TRUE(line.startsWith(QStringLiteral("No help is installed: "))) << line.toStdString();
    EXPECT_TRUE(line.contains(QStringLiteral("MarvaneENG.hlp"))) << line.toStdString();
    EXPECT_TRUE(line.contains(QString::fromStdString(cwd_.Path().string()))) << line.toStdString();
    EXPECT_EQ(script_.Count(), 0);

    // A menu hint takes the line over again.
    Action("KestelFile_Save")->showStatusText(window_->menuBar());
    EXPECT_EQ(Label("pBottBar")->text(), Language(26));
}

TEST_F(Frame, StatusLineIsTheStatusBarsTextInItsOwnFont) {
    QLabel* line = Label("pBottBar");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->parentWidget(), window_->statusBar());
    const QFont own = QApplication::font(window_->statusBar());
    EXPECT_FALSE(line->font().bold());
    EXPECT_EQ(line->font().pointSizeF(), own.pointSizeF());
    EXPECT_TRUE(line->alignment() & Qt::AlignLeft);
}

TEST_F(Frame, TabGoesFromTheTabsThroughThePageToOkAndCancel) {
    window_->PageCtl()->TabBar()->setFocus(Qt::TabFocusReason);
    const char* const expected[] = {"pSLE_OffsetX",    "pSLE_OffsetY",      "pSLE_OffsetZ",
                                    "pSLE_CompOffset", "pSLE_BridgeStroke", "pOK",
                                    "pCancel",         "PageControlTabs"};
    for (const char* name : expected) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_NE(QApplication::focusWidget(), nullptr) << name;
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromLatin1(name));
    }
}

TEST_F(Frame, MinimumSizeLeavesEveryPageTheRoomItsLayoutNeeds) {
    window_->resize(window_->minimumSize());
    QApplication::processEvents();
    for (const char* sheet : {"MecOffTabSheet", "WinColorTabSheet"}) {
        window_->PageCtl()->SetActivePage(Page(sheet));
        QApplication::processEvents();
        const QSize needed = Page(sheet)->minimumSizeHint();
        EXPECT_GE(Page(sheet)->width(), needed.width()) << sheet;
        EXPECT_GE(Page(sheet)->height(), needed.height()) << sheet;
        EXPECT_TRUE(test::LayoutProblems(Page(sheet)).empty()) << sheet;
    }
}

TEST_F(Frame, AWindowForcedBelowItsMinimumScrollsInsteadOfSqueezingThePage) {
    window_->PageCtl()->SetActivePage(Page("WinColorTabSheet"));
    // As a window manager that ignores the window's minimum size would make it.
    window_->setMinimumSize(1, 1);
    window_->resize(400, 300);
    QApplication::processEvents();
    ASSERT_EQ(window_->size(), QSize(400, 300));
    EXPECT_EQ(test::LayoutProblems(Page("WinColorTabSheet")), std::vector<std::string>{});
    auto* area = qobject_cast<QScrollArea*>(window_->centralWidget());
    ASSERT_NE(area, nullptr);
    EXPECT_TRUE(area->horizontalScrollBar()->isVisible());
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
}

TEST_F(Frame, AboutEntryShowsTheAboutBoxModally) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal && modal->objectName() == QStringLiteral("AboutBox")) {
            seen = true;
            modal->findChild<QPushButton*>(QStringLiteral("ButtonOK"))->click();
        } else if (modal) {
            modal->close();
        }
    });
    Action("KestelHelp_About")->trigger();
    EXPECT_TRUE(seen);
    EXPECT_EQ(window_->findChild<QWidget*>(QStringLiteral("AboutBox")), nullptr);
}

TEST_F(Frame, BrowseForFileShowsTheMeasuringApplicationsPaths) {
    const auto dir = prefix_.DriveC() / "WZELKO" / "SOUNDS";
    std::filesystem::create_directories(dir);
    test::WriteFileBytes(dir / "beep.wav", "RIFF");
    AnswerFileOpen(dir / "beep.wav");

    std::string path = "unchanged";
    EXPECT_TRUE(window_->BrowseForFile(path, "C:\\WZELKO\\SOUNDS", "wav", "Wave files"));
    EXPECT_EQ(path, "C:\\WZELKO\\SOUNDS\\beep.wav");
    auto* dialog = Find<QFileDialog>("OpenFileDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(std::filesystem::path(dialog->directory().absolutePath().toStdString()),
              std::filesystem::canonical(dir));
    EXPECT_EQ(dialog->nameFilters(), QStringList{QStringLiteral("Wave files (*.wav)")});
    EXPECT_EQ(FileOpenAnswers().Runs(), 1);
}

TEST_F(Frame, BrowseForFileCancelledLeavesThePathUnchanged) {
    CancelFileOpen();
    std::string path = "C:\\KEEP.BIN";
    EXPECT_FALSE(window_->BrowseForFile(path, "C:\\", "bin", "Compensation"));
    EXPECT_EQ(path, "C:\\KEEP.BIN");
    EXPECT_EQ(FileOpenAnswers().Runs(), 1);
}

}  // namespace
}  // namespace wk
