// The default points page: an element picked from the list, its current number shown, a new
// one typed or stepped within the element's limits, and Set applying it.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::PressTab;

const char* const kPoints =
    "[DEFAULT PTS]\r\nCIRCLE=4\r\nSPHERE=5\r\nCYLINDER=8\r\nCONE=7\r\nLINE=3\r\nPLANE=4\r\n"
    "PARAB=7\r\nSLOT=6\r\nSQSLOT=9\r\nELLIPSE=6\r\nCIRC_NOT_ALI=8\r\nTORUS=13\r\n";

const char* const kKeys[] = {"CIRCLE", "SPHERE", "CYLINDER", "CONE",    "LINE",         "PLANE",
                             "PARAB",  "SLOT",   "SQSLOT",   "ELLIPSE", "CIRC_NOT_ALI", "TORUS"};
const char* const kDefaults[] = {"4", "5", "8", "7", "3", "4", "7", "6", "9", "6", "8", "13"};

constexpr int kTorus = 11;

class NumPointsPage : public test::PageTest {
protected:
    void StartPage(const std::string& sections = kPoints) {
        rows_ = test::TableRows({"NumPointsTabSheet"});
        Start(test::SettingsFileWithMain(sections), rows_);
        page_ = Page("NumPointsTabSheet");
        ASSERT_NE(page_, nullptr);
    }
    QListWidget* List() const { return Find<QListWidget>("pLB_Element"); }
    QLineEdit* Current() const { return Edit("pSLE_OldDefault"); }
    QLineEdit* New() const { return Edit("pSLE_NewDefault"); }
    // A click on the element's row, as a user picks it.
    void Pick(int row) const {
        QListWidget* list = List();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(row)).center());
    }
    // A click with the mouse, which takes the focus (and so leaves an edit first).
    void Press(const char* button) const { QTest::mouseClick(Button(button), Qt::LeftButton); }
    void TypeNew(const QString& text) const { test::TypeInto(New(), text); }

    std::vector<PageEntry> rows_;
    KestelPage* page_ = nullptr;
};

// ---- what the page shows -----------------------------------------------------------------

TEST_F(NumPointsPage, ListsTheTwelveElementsByTheirLanguageStrings) {
    StartPage();
    ASSERT_EQ(List()->count(), 12);
    for (int i = 0; i < 12; ++i) EXPECT_EQ(List()->item(i)->text(), Language(280 + i)) << i;
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(14));
    EXPECT_EQ(Label("pST_ListElement")->text(), Language(294));
    EXPECT_EQ(Label("pST_OldDefault")->text(), Language(292));
    EXPECT_EQ(Label("pST_NewDefault")->text(), Language(293));
    EXPECT_EQ(Button("pPB_Default")->text(), Language(295));
    EXPECT_EQ(Button("pPB_SetNum")->text(), Language(296));
    EXPECT_EQ(Button("pPB_Piu")->text(), QStringLiteral("+"));
    EXPECT_EQ(Button("pPB_Meno")->text(), QStringLiteral("-"));
}

TEST_F(NumPointsPage, TheFirstElementIsSelectedWithItsCountRightAlignedInThreeCharacters) {
    StartPage();
    EXPECT_EQ(List()->currentRow(), 0);
    EXPECT_EQ(Current()->text(), QStringLiteral("  4"));
    EXPECT_EQ(New()->text(), QStringLiteral("  4"));
    EXPECT_FALSE(Current()->isEnabled());
    EXPECT_TRUE(New()->isEnabled());
}

TEST_F(NumPointsPage, EachRowAndTheNewNumberShowTheElementsMinimumAndMaximum) {
    StartPage();
    EXPECT_EQ(Label("pST_Range")->text(), QStringLiteral("[3 \u2013 999]"));
    EXPECT_EQ(List()->item(kTorus)->toolTip(), QStringLiteral("[12 \u2013 999]"));
    Pick(kTorus);
    EXPECT_EQ(Label("pST_Range")->text(), QStringLiteral("[12 \u2013 999]"));
}

TEST_F(NumPointsPage, PickingAnElementShowsItsCurrentCountInBothEdits) {
    StartPage("[DEFAULT PTS]\r\nCONE=25\r\n");
    Pick(3);
    EXPECT_EQ(Current()->text(), QStringLiteral(" 25"));
    EXPECT_EQ(New()->text(), QStringLiteral(" 25"));
    QTest::keyClick(List(), Qt::Key_Down);  // the keyboard picks too
    EXPECT_EQ(Current()->text(), QStringLiteral("  3"));
}

TEST_F(NumPointsPage, ACountAbove999InTheFileIsShownAsItIs) {
    StartPage("[DEFAULT PTS]\r\nSPHERE=1500\r\n");
    Pick(1);
    EXPECT_EQ(Current()->text(), QStringLiteral("1500"));
}

// ---- the file ------------------------------------------------------------------------------

TEST_F(NumPointsPage, WithoutDefaultPtsTheDefaultsShowAndSetThenSaveWritesThemFrom4To13) {
    StartPage("");
    for (int i = 0; i < 12; ++i) {
        Pick(i);
        EXPECT_EQ(Current()->text().trimmed(), QString::fromLatin1(kDefaults[i])) << kKeys[i];
    }
    Pick(0);
    Press("pPB_SetNum");
    Save();
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(Saved("DEFAULT PTS", kKeys[i]), kDefaults[i]) << kKeys[i];
}

TEST_F(NumPointsPage, ACircleOf2InTheFileIsIgnoredAndTheCircleKeeps4) {
    StartPage("[DEFAULT PTS]\r\nCIRCLE=2\r\n");
    EXPECT_EQ(Current()->text(), QStringLiteral("  4"));
    Pick(4);
    Press("pPB_SetNum");
    Save();
    EXPECT_EQ(Saved("DEFAULT PTS", "CIRCLE"), "4");
}

TEST_F(NumPointsPage, ACircleOf3InTheFileIsTaken) {
    StartPage("[DEFAULT PTS]\r\nCIRCLE=3\r\n");
    EXPECT_EQ(Current()->text(), QStringLiteral("  3"));
}

// ---- the new number --------------------------------------------------------------------

TEST_F(NumPointsPage, Typing2ForACircleAndLeavingShows3RightAlignedInThreeCharacters) {
    StartPage();
    TypeNew(QStringLiteral("2"));
    PressTab(New());
    EXPECT_EQ(New()->text(), QStringLiteral("  3"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(NumPointsPage, Typing1000ForACircleAndLeavingShows3) {
    StartPage();
    TypeNew(QStringLiteral("1000"));
    PressTab(New());
    EXPECT_EQ(New()->text(), QStringLiteral("  3"));
}

TEST_F(NumPointsPage, ANegativeNumberBecomesTheMinimumToo) {
    StartPage();
    Pick(kTorus);
    TypeNew(QStringLiteral("-20"));
    PressTab(New());
    EXPECT_EQ(New()->text(), QStringLiteral(" 12"));
}

TEST_F(NumPointsPage, ANumberWithinTheLimitsIsShownInThreeCharactersAndSetTakesTheFocus) {
    StartPage();
    TypeNew(QStringLiteral("25"));
    PressTab(New());
    EXPECT_EQ(New()->text(), QStringLiteral(" 25"));
    EXPECT_TRUE(Button("pPB_SetNum")->hasFocus());
    EXPECT_FALSE(Record().Modified);  // nothing is applied before Set
}

TEST_F(NumPointsPage, SetAppliesTheNewNumberToTheElementAndSaveWritesIt) {
    StartPage();
    Pick(2);
    TypeNew(QStringLiteral("40"));
    PressTab(New());
    QTest::keyClick(Button("pPB_SetNum"), Qt::Key_Space);
    EXPECT_EQ(Current()->text(), QStringLiteral(" 40"));
    EXPECT_EQ(Record().CurrentPoints[2].Count, 40u);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("DEFAULT PTS", "CYLINDER"), "40");
    EXPECT_EQ(Saved("DEFAULT PTS", "CIRCLE"), "4");
}

TEST_F(NumPointsPage, ClickingSetRightAfterTypingChecksTheNumberFirst) {
    StartPage();
    TypeNew(QStringLiteral("5000"));
    Press("pPB_SetNum");
    EXPECT_EQ(Current()->text(), QStringLiteral("  3"));
    Save();
    EXPECT_EQ(Saved("DEFAULT PTS", "CIRCLE"), "3");
}

TEST_F(NumPointsPage, PressingMinusOnACircleAt4Gives3AndPressingItAgainLeaves3) {
    StartPage();
    Pick(0);
    Press("pPB_Meno");
    EXPECT_EQ(New()->text(), QStringLiteral("3"));
    Press("pPB_Meno");
    EXPECT_EQ(New()->text(), QStringLiteral("3"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(NumPointsPage, PressingPlusAt999Leaves999) {
    StartPage();
    TypeNew(QStringLiteral("998"));
    Press("pPB_Piu");
    EXPECT_EQ(New()->text(), QStringLiteral("999"));
    Press("pPB_Piu");
    EXPECT_EQ(New()->text(), QStringLiteral("999"));
}

TEST_F(NumPointsPage, PlusCountsOnFromTheCountShownInPlainDigits) {
    StartPage();
    Pick(1);
    Press("pPB_Piu");
    Press("pPB_Piu");
    EXPECT_EQ(New()->text(), QStringLiteral("7"));
    Press("pPB_SetNum");
    EXPECT_EQ(Current()->text(), QStringLiteral("  7"));
}

TEST_F(NumPointsPage, DefaultOnATorusGives13) {
    StartPage("[DEFAULT PTS]\r\nTORUS=40\r\n");
    Pick(kTorus);
    Press("pPB_Default");
    EXPECT_EQ(New()->text(), QStringLiteral(" 13"));
    EXPECT_TRUE(Button("pPB_SetNum")->hasFocus());
    EXPECT_EQ(Record().CurrentPoints[kTorus].Count, 40u);
    QTest::keyClick(Button("pPB_SetNum"), Qt::Key_Return);
    EXPECT_EQ(Record().CurrentPoints[kTorus].Count, 13u);
}

TEST_F(NumPointsPage, TextThatIsNotANumberGivesTheConversionMessageAndSetStoresNothing) {
    StartPage();
    TypeNew(QStringLiteral("ten"));
    PressTab(New());
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'ten' is not a valid integer value");
    EXPECT_EQ(New()->text(), QStringLiteral("ten"));
    Press("pPB_SetNum");
    EXPECT_EQ(script_.Count(), 2);
    Press("pPB_Piu");
    Press("pPB_Meno");
    EXPECT_EQ(script_.Count(), 4);
    EXPECT_EQ(Record().CurrentPoints[0].Count, 4u);
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

// ---- store, load -------------------------------------------------------------------------

TEST_F(NumPointsPage, StoreChecksTheTypedNumberButAppliesNothing) {
    StartPage();
    TypeNew(QStringLiteral("50"));
    Save();
    EXPECT_EQ(New()->text(), QStringLiteral(" 50"));
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(Bytes(), Original());
    TypeNew(QStringLiteral("1"));
    Click("pOK");
    EXPECT_EQ(New()->text(), QStringLiteral("  3"));
    EXPECT_EQ(Record().CurrentPoints[0].Count, 4u);
}

TEST_F(NumPointsPage, LoadPutsTheElementsMinimumIntoTheNewNumberInPlainDigits) {
    StartPage();
    Pick(kTorus);
    page_->Load(true);
    EXPECT_EQ(New()->text(), QStringLiteral("12"));
    EXPECT_EQ(Current()->text(), QStringLiteral(" 13"));
}

TEST_F(NumPointsPage, CancelWhileTypingPutsTheMinimumIntoTheNewNumber) {
    StartPage();
    Pick(1);
    TypeNew(QStringLiteral("77"));
    Click("pCancel");
    EXPECT_EQ(New()->text(), QStringLiteral("4"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(NumPointsPage, CancelWithoutTypingLeavesTheNewNumber) {
    StartPage();
    Pick(1);
    Click("pCancel");
    EXPECT_EQ(New()->text(), QStringLiteral("  5"));
}

// ---- the frame ---------------------------------------------------------------------------

TEST_F(NumPointsPage, MenuEntryIsEnabledAndShowsThePage) {
    rows_ = test::TableRows({"NumPointsTabSheet", "WinColorTabSheet"});
    Start(test::SettingsFileWithMain(kPoints), rows_);
    Action("KestelOther_WindowsColor")->trigger();
    QAction* entry = Action("KestelElemPar_NumPts");
    ASSERT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), Page("NumPointsTabSheet"));
    EXPECT_EQ(window_->HelpContextOfPage(), 23);
}

// ---- random text -------------------------------------------------------------------------

// Random texts typed into the new number and committed by leaving, OK, Save or Set: no crash,
// a text that is not an integer gives the conversion message and changes nothing, a number
// outside the limits is never applied, and the saved file differs from one saved before only
// in the counts.
TEST_F(NumPointsPage, RandomTextInTheNewNumberNeverCrashesNorCorruptsTheFiles) {
    StartPage();
    const std::string before = SaveUnchanged();
    test::RandomText random(777);
    int reported = 0;
    for (int round = 0; round < 150; ++round) {
        if (random.Below(4) == 0) Pick(random.Below(12));
        const int element = List()->currentRow();
        const std::uint32_t count = Record().CurrentPoints[element].Count;
        script_.Clear();
        TypeNew(random.Next());
        const bool typed = New()->isModified();
        bool integer = true;
        try {
            StrToInt(platform::Utf8ToAnsi(New()->text().toStdString()));
        } catch (const ConversionError&) {
            integer = false;
        }
        const int commit = random.Below(4);  // Tab, OK, Save or Set
        if (commit == 3) {
            Press("pPB_SetNum");
        } else {
            CommitTyped(New(), kCommits[commit]);
        }
        // Leaving, OK and Save check a typed text; Set reads whatever the edit then holds.
        const int expected = (typed && !integer ? 1 : 0) + (commit == 3 && !integer ? 1 : 0);
        EXPECT_EQ(script_.Count(), expected) << New()->text().toStdString();
        for (const MessageBoxRequest& shown : script_.Shown()) {
            EXPECT_NE(shown.text.find("is not a valid integer value"), std::string::npos);
        }
        if (!integer) {
            reported += expected;
            EXPECT_EQ(Record().CurrentPoints[element].Count, count);
        }
        const std::uint32_t now = Record().CurrentPoints[element].Count;
        if (now != count) {
            EXPECT_GE(now, Record().MinimumPoints[element].Count);
            EXPECT_LE(now, 999u);
        }
        Click("pCancel");
    }
    EXPECT_GT(reported, 5);
    const std::string after = SaveUnchanged();
    EXPECT_TRUE(test::ParsesAsSettingsFile(after));
    std::set<std::string> counts;
    for (const char* key : kKeys) counts.insert(std::string("DEFAULT PTS|") + key);
    EXPECT_EQ(test::ChangedBeyond(before, after, counts), std::set<std::string>{});
}

}  // namespace
}  // namespace wk
