// The contract between the frame and every page of the table that is built: each is started
// alone in the window on the demo machine's files and checked the same way. A page gets these
// tests as soon as its row has a factory; its controls are listed in page_controls.cpp.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "page_controls.h"
#include "page_test_fixture.h"
#include "page_usability.h"
#include "shell/kestel_main_wind.h"
#include "support/file_bytes.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

constexpr const char* kDemoFiles[] = {"WZELKO.INI", "WZELKO32.INI", "WIN.INI"};
// The languages the program is delivered in, and controllers of the two kinds the pages show
// different controls for (TCP/IP limits; base address and mouse buttons).
constexpr const char* kLanguages[] = {"ENG", "ITA"};
constexpr const char* kControllers[] = {"RMD", "Tq"};

// A row of the table, printed by its sheet's name.
struct BuiltPage {
    const PageEntry* row;
};

void PrintTo(const BuiltPage& page, std::ostream* os) {
    *os << page.row->sheetName;
}

std::vector<BuiltPage> BuiltPages() {
    std::vector<BuiltPage> built;
    for (const PageEntry& entry : PageTable()) {
        if (entry.factory) built.push_back({&entry});
    }
    return built;
}

bool Contains(const std::vector<const char*>& names, const QString& name) {
    for (const char* n : names) {
        if (name == QLatin1String(n)) return true;
    }
    return false;
}

// A window on a fresh copy of the demo machine's files.
class DemoWindowTest : public test::PageTest {
protected:
    void CopyDemoFiles() {
        CloseWindow();
        for (const char* file : kDemoFiles) {
            prefix_.WriteWindowsFile(
                file, test::ReadFileBytes(std::filesystem::path(WKESTEL_DEMO_WINDOWS_DIR) / file));
        }
        std::filesystem::remove(prefix_.WindowsFile("WZELKO.BAK"));
    }

    // The demo files, in `language` for a controller of `controllerType`.
    void CopyDemoFilesFor(const std::string& language, const std::string& controllerType) {
        CopyDemoFiles();
        std::string ini = Bytes();
        Replace(ini, "LANGUAGE=ENG\r\n", "LANGUAGE=" + language + "\r\n");
        Replace(ini, "Type=RMD\r\n", "Type=" + controllerType + "\r\n");
        prefix_.WriteWindowsFile("WZELKO.INI", ini);
    }

    static void Replace(std::string& text, const std::string& from, const std::string& to) {
        const std::size_t at = text.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        text.replace(at, from.size(), to);
    }
};

class PageContract : public DemoWindowTest, public ::testing::WithParamInterface<BuiltPage> {
protected:
    void SetUp() override {
        controls_ = test::ControlsOf(Row().sheetName);
        ASSERT_NE(controls_, nullptr)
            << Row().sheetName << " has no list of controls in tests/ui/page_controls.cpp";
        StartOnDemoFiles();
    }

    const PageEntry& Row() const { return *GetParam().row; }

    // The page alone in the window, on a fresh copy of the demo machine's files.
    void StartOnDemoFiles() {
        CopyDemoFiles();
        ASSERT_NO_FATAL_FAILURE(StartOnFiles(std::span<const PageEntry>(GetParam().row, 1)));
        page_ = Page(Row().sheetName);
        ASSERT_NE(page_, nullptr);
    }

    // The whole window, as the program shows it, on the demo machine's files in `language`
    // for a controller of `controllerType`, with the page shown.
    void StartWindowOnDemoFiles(const std::string& language, const std::string& controllerType) {
        ASSERT_NO_FATAL_FAILURE(CopyDemoFilesFor(language, controllerType));
        ASSERT_NO_FATAL_FAILURE(StartOnFiles());
        page_ = Page(Row().sheetName);
        ASSERT_NE(page_, nullptr);
        window_->PageCtl()->SetActivePage(page_);
        QApplication::processEvents();
    }

    // Runs `check` on the page in each language and for a controller of each kind the pages
    // tell apart (with and without TCP/IP), and reports what it finds, each with where.
    template <typename Check>
    void ExpectNothingFound(Check&& check) {
        for (const char* language : kLanguages) {
            for (const char* controller : kControllers) {
                ASSERT_NO_FATAL_FAILURE(StartWindowOnDemoFiles(language, controller));
                for (const std::string& problem : check()) {
                    ADD_FAILURE() << language << ", " << controller << ": " << problem;
                }
            }
        }
    }

    // The edit fields of the page's table that a user can type into now (shown, enabled, not
    // read-only), less those whose Load follows a rule of their own.
    std::vector<QLineEdit*> TypableEdits() const {
        std::vector<QLineEdit*> edits;
        for (const char* name : controls_->controls) {
            auto* edit = page_->findChild<QLineEdit*>(QString::fromLatin1(name));
            if (edit && edit->isVisibleTo(page_) && edit->isEnabled() && !edit->isReadOnly() &&
                !Contains(controls_->ownLoadRule, edit->objectName())) {
                edits.push_back(edit);
            }
        }
        return edits;
    }

    static std::vector<QString> Texts(const std::vector<QLineEdit*>& edits) {
        std::vector<QString> texts;
        for (const QLineEdit* edit : edits) texts.push_back(edit->text());
        return texts;
    }

    // The files after typing into every edit in turn, storing `stores` times, and Save.
    std::string SavedAfterTypingAndStoring(int stores) {
        StartOnDemoFiles();
        for (QLineEdit* edit : TypableEdits()) {
            test::TypeInto(edit, QStringLiteral("7"));
            for (int i = 0; i < stores; ++i) page_->Store();
        }
        Save();
        return Bytes("WZELKO.INI") + "\n--\n" + Bytes("WZELKO32.INI");
    }

    const test::PageControls* controls_ = nullptr;
    KestelPage* page_ = nullptr;
};

TEST_P(PageContract, EveryControlOfItsTableIsOnThePageWithThatObjectName) {
    EXPECT_EQ(page_->objectName(), QString::fromLatin1(Row().sheetName));
    for (const char* name : controls_->controls) {
        EXPECT_EQ(page_->findChildren<QWidget*>(QString::fromLatin1(name)).size(), 1) << name;
    }
}

TEST_P(PageContract, ItsMenuEntryShowsItWithItsHelpContext) {
    QAction* entry = Action(Row().menu.name);
    ASSERT_NE(entry, nullptr);
    EXPECT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), page_);
    EXPECT_EQ(window_->HelpContextOfPage(), Row().helpContext);
}

TEST_P(PageContract, LoadWithRefreshAllShowsTheRecordAgainOverWhatWasTyped) {
    const std::vector<QLineEdit*> edits = TypableEdits();
    const std::vector<QString> shown = Texts(edits);
    for (QLineEdit* edit : edits) {
        QTest::keyClicks(edit, QStringLiteral("9"));  // typed, and the focus never left
        ASSERT_TRUE(edit->isModified()) << edit->objectName().toStdString();
    }
    page_->Load(true);
    for (std::size_t i = 0; i < edits.size(); ++i) {
        const std::string name = edits[i]->objectName().toStdString();
        EXPECT_EQ(edits[i]->text(), shown[i]) << name;
        EXPECT_FALSE(edits[i]->isModified()) << name;
    }
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(script_.Count(), 0);
}

TEST_P(PageContract, CancelDealsWithTheFocusedTypedEditAsThePageSays) {
    const std::vector<QLineEdit*> edits = TypableEdits();
    const std::vector<QString> shown = Texts(edits);
    const bool putsBack = controls_->cancel == test::CancelRule::PutsBackTheRecord;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        const std::string name = edits[i]->objectName().toStdString();
        test::TypeInto(edits[i], QStringLiteral("97531"));
        ASSERT_TRUE(edits[i]->hasFocus()) << name;
        Click("pCancel");
        EXPECT_EQ(edits[i]->text(), putsBack ? shown[i] : QStringLiteral("97531")) << name;
        EXPECT_EQ(edits[i]->isModified(), !putsBack) << name;
        page_->Load(true);  // the next edit starts from what the record shows
    }
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Bytes(), Original());
}

TEST_P(PageContract, StoreTwiceChangesNothingMoreThanStoreOnce) {
    const std::string once = SavedAfterTypingAndStoring(1);
    const std::string twice = SavedAfterTypingAndStoring(2);
    EXPECT_EQ(twice, once);
}

TEST_P(PageContract, SaveThroughTheFileMenuWritesNothingWhenNothingChanged) {
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
    EXPECT_FALSE(Exists("WZELKO.BAK"));
    EXPECT_EQ(script_.Count(), 0);
}

// ---- usable by anyone --------------------------------------------------------------------

TEST_P(PageContract, EveryControlIsNamedForAScreenReaderAfterItsCaption) {
    ExpectNothingFound([&] { return test::UnnamedControls(page_); });
}

TEST_P(PageContract, MnemonicsClashNeitherOnThePageNorWithTheWindowsTabsAndMenus) {
    ExpectNothingFound(
        [&] { return test::MnemonicClashes(page_, test::WindowMnemonicCaptions(*window_)); });
}

TEST_P(PageContract, TabReachesEveryControlOnceInReadingOrder) {
    ExpectNothingFound([&] { return test::TabOrderProblems(*window_, page_); });
}

TEST_P(PageContract, NothingOverlapsNorIsCutAtTheSmallestSizeOfTheWindowNorWhenLarger) {
    ExpectNothingFound([&] {
        std::vector<std::string> problems;
        const QSize smallest = window_->minimumSize();
        // The window cannot be made smaller than its layouts need.
        const QSize needed = window_->minimumSizeHint();
        if (smallest.isEmpty() || smallest.width() < needed.width() ||
            smallest.height() < needed.height()) {
            problems.push_back("the window's minimum size is below what its layouts need");
        }
        for (const QSize size : {smallest, smallest + QSize(360, 240)}) {
            window_->resize(size);
            QApplication::processEvents();
            if (window_->size() != size) problems.push_back("the window does not take its size");
            for (std::string& problem : test::LayoutProblems(page_)) {
                problems.push_back(std::move(problem));
            }
        }
        return problems;
    });
}

INSTANTIATE_TEST_SUITE_P(BuiltPages, PageContract, ::testing::ValuesIn(BuiltPages()),
                         [](const auto& info) { return std::string(info.param.row->sheetName); });

// The window as the program starts it, with the pages after the start page still to come (as
// when they have not had their turn yet). Their tabs say already what the pages will say, and
// once they are there the window has the size it would have had with every page made at
// start-up: the room the largest page needs, nothing cut.
class PagesToCome : public DemoWindowTest {
protected:
    // The window on the files, ready; the pages after the start page made at once before it is
    // shown, or left to come.
    void StartProgramWindow(bool everyPageAtOnce) {
        CloseWindow();
        window_ =
            std::make_unique<TKestelMainWind>(std::vector<std::string>{"WKestel32"}, PageTable());
        window_->SetIdlePageBuilding(false);
        if (everyPageAtOnce) window_->BuildRemainingPages();
        test::ShowUntilReady(*window_, script_);
        ASSERT_TRUE(window_->Ready());
        QTest::qWait(20);
        script_.Clear();
    }

    QStringList TabCaptions() const {
        QTabBar* tabs = window_->PageCtl()->TabBar();
        QStringList captions;
        for (int i = 0; i < tabs->count(); ++i) captions << tabs->tabText(i);
        return captions;
    }
};

TEST_F(PagesToCome, TheirTabsSayWhatThePagesWillAndTheWindowEndsAtTheSizeOfEveryPageAtOnce) {
    for (const char* language : kLanguages) {
        for (const char* controller : kControllers) {
            ASSERT_NO_FATAL_FAILURE(CopyDemoFilesFor(language, controller));
            ASSERT_NO_FATAL_FAILURE(StartProgramWindow(true));
            const QSize size = window_->size();
            const QSize minimum = window_->minimumSize();

            ASSERT_NO_FATAL_FAILURE(StartProgramWindow(false));
            ASSERT_FALSE(window_->AllPagesBuilt());
            const QStringList captions = TabCaptions();
            window_->BuildRemainingPages();
            QTest::qWait(20);
            ASSERT_TRUE(window_->AllPagesBuilt());
            EXPECT_EQ(TabCaptions(), captions) << language << ", " << controller;
            EXPECT_EQ(window_->size(), size) << language << ", " << controller;
            EXPECT_EQ(window_->minimumSize(), minimum) << language << ", " << controller;
        }
    }
}

TEST(PageControlsData, EveryPageOfTheTableHasItsControlsListedInTabOrder) {
    const std::vector<test::PageControls>& listed = test::AllPageControls();
    ASSERT_EQ(listed.size(), PageTable().size());
    for (std::size_t i = 0; i < listed.size(); ++i) {
        EXPECT_STREQ(listed[i].sheetName, PageTable()[i].sheetName);
        EXPECT_FALSE(listed[i].controls.empty()) << listed[i].sheetName;
    }
}

}  // namespace
}  // namespace wk
