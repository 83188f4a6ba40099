// The window with pages of a test's own: it shows the pages it is given, places their menu
// entries and applies their frame rules from their rows of the table, and gives them the host's
// services (the record, conversion errors, the shared file-name edit, the file dialog).

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <array>
#include <filesystem>

#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "shell/kestel_main_wind.h"
#include "widgets/dialog_answers.h"
#include "widgets/edit_field.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::SettingsFile;

// A page of one integer (the record's X offset) in an edit field, and a file-name edit with a
// browse button that acts on the shared file-name edit. It counts the frame's calls.
class TTestPage : public KestelPage {
    Q_OBJECT

public:
    explicit TTestPage(PageHost& host) : KestelPage(host), record_(host.Settings()) {
        pSLE_Value = new EditField(this);
        pSLE_Value->setObjectName(QStringLiteral("pSLE_Value"));
        pSLE_File = new EditField(this);
        pSLE_File->setObjectName(QStringLiteral("pSLE_File"));
        pPB_Browse = new QPushButton(QStringLiteral("Browse"), this);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(pSLE_Value);
        layout->addWidget(pSLE_File);
        layout->addWidget(pPB_Browse);
        connect(pSLE_Value, &EditField::Exit, this, &TTestPage::pSLE_ValueExit);
        connect(pSLE_File, &EditField::Enter, this, &TTestPage::pSLE_FileEnter);
        connect(pPB_Browse, &QPushButton::clicked, this, &TTestPage::pPB_BrowseClick);
    }

    void Initialise() override {
        ++initialised;
        Load(true);
    }
    void Store() override {
        ++stores;
        if (pSLE_Value->hasFocus()) pSLE_ValueExit();
    }
    void Load(bool refreshAll) override {
        ++(refreshAll ? refreshes : cancels);
        if (refreshAll || pSLE_Value->isModified()) {
            pSLE_Value->setText(QString::number(record_.OffsetX));
        }
    }

    void pSLE_ValueExit() {
        if (!pSLE_Value->isModified()) return;
        host_.Converting([&] {
            const std::int32_t typed = StrToInt(pSLE_Value->text().toStdString());
            pSLE_Value->setText(QString::number(typed));
            record_.OffsetX = typed;
            host_.MarkModified();
        });
    }
    void pSLE_FileEnter() { host_.ActiveFile().Enter(pSLE_File); }
    void pPB_BrowseClick() {
        if (!host_.ActiveFile().Is(pSLE_File)) return;
        std::string path = pSLE_File->text().toStdString();
        if (host_.BrowseForFile(path, "C:\\", "TEC", "Part programs")) {
            pSLE_File->setText(QString::fromStdString(path));
        }
    }

    // Taken at construction, before start-up: the one record for the window's whole life.
    SetupSettings& record_;
    EditField* pSLE_Value;
    EditField* pSLE_File;
    QPushButton* pPB_Browse;
    int initialised = 0;
    int stores = 0;
    int refreshes = 0;
    int cancels = 0;
};

bool Never(const ControllerFlags&) {
    return false;
}

PageEntry Row(const char* sheet, const char* entry, MenuPopup popup, int position) {
    return {
        .sheetName = sheet,
        .designCaption = sheet,
        .factory = &MakePage<TTestPage>,
        .helpContext = 40 + position,
        .storesOnOk = true,
        .refreshOnEntry = true,
        .refreshOnChange = false,
        .startPage = false,
        .menu = {.name = entry, .popup = popup, .position = position, .captionId = 0, .hintId = 0}};
}

class WindowPages : public test::PageTest {
protected:
    TTestPage* TestPage(const char* sheet) const { return Find<TTestPage>(sheet); }
    // The objectNames of a popup's entries, in menu order.
    QStringList Entries(const char* popup) const {
        QStringList names;
        for (QAction* action : Find<QMenu>(popup)->actions()) names << action->objectName();
        return names;
    }
    void SwitchTo(const char* sheet) const {
        PageControl* pages = window_->PageCtl();
        pages->TabBar()->setCurrentIndex(pages->IndexOf(Find<QWidget>(sheet)));
    }

    const char* const offsets_ = "[MECHAOFFS]\r\noffx=12\r\n";
};

TEST_F(WindowPages, ShowsExactlyTheGivenPagesInTheirOrderAndInitialisesEachOnce) {
    const std::array<PageEntry, 2> rows{
        Row("BTabSheet", "Test_B", MenuPopup::Other, 1),
        Row("ATabSheet", "Test_A", MenuPopup::Other, 2),
    };
    Start(SettingsFile(offsets_), rows);
    PageControl* pages = window_->PageCtl();
    ASSERT_EQ(pages->SheetCount(), 2);
    EXPECT_EQ(pages->Sheet(0)->objectName(), QStringLiteral("BTabSheet"));
    EXPECT_EQ(pages->Sheet(1)->objectName(), QStringLiteral("ATabSheet"));
    EXPECT_EQ(TestPage("ATabSheet")->initialised, 1);
    EXPECT_EQ(TestPage("BTabSheet")->initialised, 1);
    // Without a start page the first sheet is shown.
    EXPECT_EQ(pages->ActivePage(), pages->Sheet(0));
    // No page of the program's table is there.
    EXPECT_EQ(Find<QWidget>("MecOffTabSheet"), nullptr);
    EXPECT_EQ(Action("KestelGenConf_MecOff"), nullptr);
}

TEST_F(WindowPages, ThePagesReferToTheRecordMadeBeforeStartUpWhichStartUpFilled) {
    const std::array<PageEntry, 1> rows{Row("ATabSheet", "Test_A", MenuPopup::Other, 1)};
    prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(offsets_));
    TKestelMainWind window({"WKestel32"}, rows);
    const SetupSettings* before = &window.Settings();
    auto* page = window.findChild<TTestPage*>(QStringLiteral("ATabSheet"));
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(&page->record_, before);
    EXPECT_FALSE(window.RecordRead());

    window.show();
    window.activateWindow();
    for (int i = 0; i < 200 && !window.Ready(); ++i) QTest::qWait(10);
    ASSERT_TRUE(window.Ready());
    EXPECT_EQ(&window.Settings(), before);
    EXPECT_DOUBLE_EQ(page->record_.OffsetX, 12.0);
    EXPECT_EQ(page->pSLE_Value->text(), QStringLiteral("12"));
}

TEST_F(WindowPages, TheStartPageOfTheRowsIsShownFirst) {
    std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
        Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
    };
    rows[1].startPage = true;
    Start(SettingsFile(offsets_), rows);
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("BTabSheet"));
    EXPECT_EQ(window_->HelpContextOfPage(), 42);
}

TEST_F(WindowPages, MenuEntriesArePlacedByPopupAndPosition) {
    std::array<PageEntry, 3> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 3),
        Row("BTabSheet", "Test_B", MenuPopup::ElementParameters, 1),
        Row("CTabSheet", "Test_C", MenuPopup::Other, 1),
    };
    rows[0].menu.separatorBefore = "Test_Separator";
    Start(SettingsFile(offsets_), rows);
    EXPECT_EQ(Entries("KestelOther_PopUp"),
              (QStringList{QStringLiteral("Test_C"), QStringLiteral("Test_Separator"),
                           QStringLiteral("Test_A")}));
    EXPECT_EQ(Entries("KestelElemPar_PopUp"), QStringList{QStringLiteral("Test_B")});
    EXPECT_TRUE(Entries("KestelGenConf_PopUp").isEmpty());
    // Caption id 0: the design caption stays in every language.
    EXPECT_EQ(Action("Test_A")->text(), QStringLiteral("&ATabSheet"));

    Action("Test_A")->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage()->objectName(), QStringLiteral("ATabSheet"));
}

TEST_F(WindowPages, AnEntryWhoseRuleRefusesItIsHiddenWithItsSeparatorAndKeepsItsCaption) {
    std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::GeneralConfiguration, 1),
        Row("BTabSheet", "Test_B", MenuPopup::GeneralConfiguration, 2),
    };
    rows[0].menu.captionId = 5;
    rows[1].menu.captionId = 9;
    rows[1].menu.separatorBefore = "Test_Separator";
    rows[1].menu.shownFor = &Never;
    Start(SettingsFile(offsets_), rows);
    EXPECT_TRUE(Action("Test_A")->isVisible());
    EXPECT_EQ(Action("Test_A")->text(), Language(5));
    EXPECT_FALSE(Action("Test_B")->isVisible());
    EXPECT_FALSE(Action("Test_Separator")->isVisible());
    EXPECT_EQ(Action("Test_B")->text(), QStringLiteral("&BTabSheet"));
}

TEST_F(WindowPages, ARowWithoutAFactoryHasNoSheetAndADisabledEntry) {
    std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
        Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
    };
    rows[1].factory = nullptr;
    Start(SettingsFile(offsets_), rows);
    EXPECT_EQ(window_->PageCtl()->SheetCount(), 1);
    EXPECT_EQ(Find<QWidget>("BTabSheet"), nullptr);
    EXPECT_TRUE(Action("Test_A")->isEnabled());
    EXPECT_FALSE(Action("Test_B")->isEnabled());
}

TEST_F(WindowPages, OkAndLeavingStoreOnlyAPageWhoseRowSaysSo) {
    std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
        Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
    };
    rows[0].storesOnOk = false;
    Start(SettingsFile(offsets_), rows);
    TTestPage* a = TestPage("ATabSheet");
    Click("pOK");
    Save();
    EXPECT_EQ(a->stores, 0);

    Action("Test_B")->trigger();
    TTestPage* b = TestPage("BTabSheet");
    Click("pOK");
    Save();
    EXPECT_EQ(b->stores, 2);
}

TEST_F(WindowPages, RefreshOnEntryAndOnChangeFollowTheRows) {
    std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
        Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
    };
    rows[1].refreshOnEntry = false;
    rows[1].refreshOnChange = true;
    Start(SettingsFile(offsets_), rows);
    TTestPage* a = TestPage("ATabSheet");
    TTestPage* b = TestPage("BTabSheet");
    const int aBefore = a->refreshes;
    const int bBefore = b->refreshes;

    SwitchTo("BTabSheet");  // a change: B refreshes
    EXPECT_EQ(b->refreshes, bBefore + 1);
    b->pSLE_Value->setFocus(Qt::TabFocusReason);  // an entry: B does not refresh
    EXPECT_EQ(b->refreshes, bBefore + 1);

    Button("pOK")->setFocus(Qt::MouseFocusReason);  // so that the switch moves no focus
    SwitchTo("ATabSheet");                          // a change: A does not refresh...
    EXPECT_EQ(a->refreshes, aBefore);
    a->pSLE_Value->setFocus(Qt::TabFocusReason);  // ...but on entry it does
    EXPECT_EQ(a->refreshes, aBefore + 1);
}

TEST_F(WindowPages, AConversionErrorIsReportedAndNothingIsStored) {
    const std::array<PageEntry, 1> rows{Row("ATabSheet", "Test_A", MenuPopup::Other, 1)};
    Start(SettingsFile(offsets_), rows);
    TypeAndLeave("pSLE_Value", QStringLiteral("x1"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'x1' is not a valid integer value");
    EXPECT_EQ(script_.Shown()[0].caption, "WKestel32");
    EXPECT_EQ(script_.Shown()[0].type, MB_OK | MB_ICONSTOP);
    EXPECT_DOUBLE_EQ(Record().OffsetX, 12.0);
    EXPECT_FALSE(Record().Modified);

    TypeAndLeave("pSLE_Value", QStringLiteral("5"));
    EXPECT_DOUBLE_EQ(Record().OffsetX, 5.0);
    EXPECT_TRUE(Record().Modified);
}

TEST_F(WindowPages, ABrowseButtonActsOnlyWhenTheFileEditEnteredLastIsItsPages) {
    const std::array<PageEntry, 2> rows{
        Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
        Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
    };
    Start(SettingsFile(offsets_), rows);
    TTestPage* a = TestPage("ATabSheet");
    TTestPage* b = TestPage("BTabSheet");
    // Nothing entered yet: no dialog.
    a->pPB_BrowseClick();
    EXPECT_EQ(FileOpenAnswers().Runs(), 0);

    a->pSLE_File->setFocus(Qt::MouseFocusReason);
    Action("Test_B")->trigger();
    b->pPB_BrowseClick();  // the edit entered last is A's
    EXPECT_EQ(FileOpenAnswers().Runs(), 0);

    b->pSLE_File->setFocus(Qt::MouseFocusReason);
    std::filesystem::create_directories(prefix_.DriveC() / "WZELKO" / "PROG");
    AnswerFileOpen(prefix_.DriveC() / "WZELKO" / "PROG" / "PART.TEC");
    b->pPB_BrowseClick();
    EXPECT_EQ(FileOpenAnswers().Runs(), 1);
    EXPECT_EQ(b->pSLE_File->text(), QStringLiteral("C:\\WZELKO\\PROG\\PART.TEC"));
    EXPECT_FALSE(window_->ActiveFile().Is(a->pSLE_File));
}

TEST_F(WindowPages, WithoutPagesTheHelpContextIs15AndSaveWritesNothing) {
    Start(SettingsFile(offsets_), {});
    EXPECT_EQ(window_->PageCtl()->SheetCount(), 0);
    EXPECT_EQ(window_->HelpContextOfPage(), 15);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

TEST(ActiveFileEdit, IsTheEditEnteredLastAndNoneAtFirst) {
    QLineEdit a;
    QLineEdit b;
    ActiveFileEdit active;
    EXPECT_FALSE(active.Is(&a));
    EXPECT_FALSE(active.Is(nullptr));
    active.Enter(&a);
    EXPECT_TRUE(active.Is(&a));
    EXPECT_FALSE(active.Is(&b));
    active.Enter(&b);
    EXPECT_FALSE(active.Is(&a));
    EXPECT_TRUE(active.Is(&b));
}

// ---- pages made after the window is on screen --------------------------------------------

class DeferredPages : public WindowPages {
protected:
    // Rows A (the start page), B and C, on the X offset 12.
    void SetUp() override {
        rows_ = {Row("ATabSheet", "Test_A", MenuPopup::Other, 1),
                 Row("BTabSheet", "Test_B", MenuPopup::Other, 2),
                 Row("CTabSheet", "Test_C", MenuPopup::Other, 3)};
        rows_[0].startPage = true;
        prefix_.WriteWindowsFile("WZELKO.INI", SettingsFile(offsets_));
    }

    // The window, started without the tests' wait for every page; `idle` says whether the
    // pages after the start page are made in idle time.
    void StartWithPagesToCome(bool idle) {
        window_ = std::make_unique<TKestelMainWind>(std::vector<std::string>{"WKestel32"}, rows_);
        window_->SetIdlePageBuilding(idle);
        test::ShowUntilReady(*window_, script_);
        ASSERT_TRUE(window_->Ready());
    }

    std::array<PageEntry, 3> rows_;
};

TEST_F(DeferredPages, OnlyTheStartPageIsMadeWithTheWindowEveryTabIsThere) {
    window_ = std::make_unique<TKestelMainWind>(std::vector<std::string>{"WKestel32"}, rows_);
    ASSERT_NE(TestPage("ATabSheet"), nullptr);
    EXPECT_EQ(TestPage("BTabSheet"), nullptr);
    EXPECT_EQ(TestPage("CTabSheet"), nullptr);
    PageControl* pages = window_->PageCtl();
    ASSERT_EQ(pages->SheetCount(), 3);
    EXPECT_EQ(pages->TabBar()->tabText(1), QStringLiteral("BTabSheet"));
    EXPECT_EQ(pages->TabBar()->tabText(2), QStringLiteral("CTabSheet"));
    EXPECT_FALSE(window_->AllPagesBuilt());
}

TEST_F(DeferredPages, TheOtherPagesAreMadeByThemselvesOnceTheWindowIsDrawn) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(true));
    for (int i = 0; i < 200 && !window_->AllPagesBuilt(); ++i) QTest::qWait(5);
    ASSERT_TRUE(window_->AllPagesBuilt());
    for (const char* sheet : {"ATabSheet", "BTabSheet", "CTabSheet"}) {
        TTestPage* page = TestPage(sheet);
        ASSERT_NE(page, nullptr) << sheet;
        EXPECT_EQ(page->initialised, 1) << sheet;
        EXPECT_EQ(&page->record_, &window_->Settings()) << sheet;
        EXPECT_EQ(page->pSLE_Value->text(), QStringLiteral("12")) << sheet;
    }
    // In their places, and the start page still shown.
    PageControl* pages = window_->PageCtl();
    EXPECT_EQ(pages->Sheet(1), TestPage("BTabSheet"));
    EXPECT_EQ(pages->Sheet(2), TestPage("CTabSheet"));
    EXPECT_EQ(pages->ActivePage(), TestPage("ATabSheet"));
    EXPECT_FALSE(window_->Settings().Modified);
}

TEST_F(DeferredPages, APageNotMadeYetIsMadeWhenItIsShown) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    QTest::qWait(20);
    ASSERT_EQ(TestPage("BTabSheet"), nullptr);
    PageControl* pages = window_->PageCtl();
    pages->SetActivePage(pages->Sheet(1));
    TTestPage* b = TestPage("BTabSheet");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(pages->ActivePage(), b);
    EXPECT_TRUE(b->isVisible());
    EXPECT_EQ(b->initialised, 1);
    EXPECT_EQ(b->pSLE_Value->text(), QStringLiteral("12"));
    EXPECT_EQ(pages->TabBar()->currentIndex(), 1);
    EXPECT_EQ(TestPage("CTabSheet"), nullptr);  // only what is shown
}

TEST_F(DeferredPages, AMenuEntryShowsAPageNotMadeYet) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    Action("Test_C")->trigger();
    ASSERT_NE(TestPage("CTabSheet"), nullptr);
    EXPECT_EQ(window_->PageCtl()->ActivePage(), TestPage("CTabSheet"));
}

TEST_F(DeferredPages, TheFirstKeyPressMakesEveryPageBeforeItArrives) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    ASSERT_FALSE(window_->AllPagesBuilt());
    TTestPage* a = TestPage("ATabSheet");
    a->pSLE_Value->setFocus(Qt::MouseFocusReason);
    a->pSLE_Value->selectAll();
    QTest::keyClick(a->pSLE_Value, Qt::Key_7);
    EXPECT_TRUE(window_->AllPagesBuilt());
    EXPECT_EQ(a->pSLE_Value->text(), QStringLiteral("7"));  // and the key arrived
    // The pages made then start from the files, not from the edit.
    TypeAndLeave("pSLE_Value", QStringLiteral("34"));
    EXPECT_EQ(TestPage("BTabSheet")->pSLE_Value->text(), QStringLiteral("12"));
    EXPECT_EQ(TestPage("BTabSheet")->initialised, 1);
}

TEST_F(DeferredPages, TheFirstMouseClickMakesEveryPage) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    ASSERT_FALSE(window_->AllPagesBuilt());
    QTest::mouseClick(Button("pOK"), Qt::LeftButton);
    EXPECT_TRUE(window_->AllPagesBuilt());
}

TEST_F(DeferredPages, APageMadeLaterIsNotAChangeOfTheRecord) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    window_->BuildRemainingPages();
    EXPECT_FALSE(window_->Settings().Modified);
    // Nothing to ask on Exit.
    Action("KestelFile_Exit")->trigger();
    EXPECT_EQ(script_.Count(), 0);
    EXPECT_TRUE(window_->TerminationRequested());
}

TEST_F(DeferredPages, TabGoesFromAPageMadeLaterToOkAndCancel) {
    ASSERT_NO_FATAL_FAILURE(StartWithPagesToCome(false));
    PageControl* pages = window_->PageCtl();
    pages->SetActivePage(pages->Sheet(2));
    TTestPage* c = TestPage("CTabSheet");
    ASSERT_NE(c, nullptr);
    c->pPB_Browse->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Button("pOK"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), Button("pCancel"));
}

}  // namespace
}  // namespace wk

#include "main_wind_pages_test.moc"
