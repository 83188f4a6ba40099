// The system parameters page: language, probe options, calibration diameter, threshold angle,
// error reporting, graphics printer, execution options, and the system files with their
// automatic saving.

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "page_checks.h"
#include "page_test_fixture.h"
#include "platform/text_codec.h"
#include "platform/text_to_number.h"
#include "settings/setup_settings.h"
#include "shell/kestel_main_wind.h"
#include "widgets/dialog_answers.h"
#include "widgets/page_control.h"

namespace wk {
namespace {

using test::ChooseItem;
using test::PressTab;
using test::Tick;
using test::TypeInto;

const char* const kLanguages = "[Languages]\r\nEnglish=ENG\r\nItaliano=ITA\r\n\r\n";
// Only English stands in the second file as well.
const char* const kLanguages32 = "[Languages]\r\nEnglish=ENG\r\n";
// Two printers; the system's default device is the second one.
const char* const kWinIni =
    "[windows]\r\ndevice=Kyocera FS-1920,winspool,LPT2:\r\n\r\n"
    "[devices]\r\nHP LaserJet 4250=winspool,LPT1:\r\nKyocera FS-1920=winspool,LPT2:\r\n";

const char* const kSystem =
    "[SYSTEMPARAM]\r\nDIASFERACAL=19.998000\r\nQUALIFILENAME=QUALI.TIP\r\n"
    "REFSYSFILENAME=REFSYS.REF\r\nMEMORYFILENAME=MEMORY.MEM\r\nAUTOSAVE=3\r\n"
    "3D LINE COMPENS=USING SELPL\r\nTHRESHOLD ANG MIDDLE REL=5.000000\r\n\r\n"
    "[GraphOutput]\r\nPrinter=KYOCERA FS-1920,WINSPOOL,LPT2:\r\n\r\n"
    "[OTHER]\r\nTRUEPOSERR=DIAMETER\r\nDOUBLEFORMERR=TRUE\r\nLINEARITY ERROR=RADIUS\r\n"
    "QUICK ALIGNEMENTS=TRUE\r\n\r\n"
    "[MACRO]\r\nUSE LAST MEMORIES=TRUE\r\nGEO TOL ELEMENT CREATION=FALSE\r\n\r\n"
    "[GEO TOLERANCE]\r\nUSE FORMAT=FALSE\r\n\r\n"
    "[EXEC]\r\nPRINT AT END EXEC=0\r\nWAIT AT END EXECUTION=TRUE\r\n\r\n"
    "[WZELKO]\r\nDATA_DIR=C:\\WZELKO\\SYSDATA\r\n\r\n";

class SysParPage : public test::PageTest {
protected:
    // WZELKO.INI of the given sections (English, metric, RMD), and the second file and WIN.INI.
    void StartPage(const std::string& sections = std::string(kLanguages) + kSystem,
                   const std::string& wzelko32 = kLanguages32,
                   const std::string& winIni = kWinIni) {
        prefix_.WriteWindowsFile("WZELKO32.INI", wzelko32);
        prefix_.WriteWindowsFile("WIN.INI", winIni);
        rows_ = test::TableRows({"SysParTabSheet"});
        Start(test::SettingsFileWithMain(sections), rows_);
        page_ = Page("SysParTabSheet");
        ASSERT_NE(page_, nullptr);
    }
    void StartOnRaw(const std::string& wzelkoIni) {
        prefix_.WriteWindowsFile("WZELKO32.INI", kLanguages32);
        prefix_.WriteWindowsFile("WIN.INI", kWinIni);
        rows_ = test::TableRows({"SysParTabSheet"});
        Start(wzelkoIni, rows_);
        page_ = Page("SysParTabSheet");
    }
    QComboBox* List(const char* name) const { return Find<QComboBox>(name); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    QStringList Items(const char* name) const {
        QStringList items;
        for (int i = 0; i < List(name)->count(); ++i) items << List(name)->itemText(i);
        return items;
    }
    QFileDialog* FileDialog() const { return window_->findChild<QFileDialog*>("OpenFileDialog"); }
    // Something else changed, so that Save writes.
    void ChangeSomethingElse() const { Tick(Check("pCHB_DosCompatib")); }

    std::vector<PageEntry> rows_;
    KestelPage* page_ = nullptr;
};

// ---- the language list -------------------------------------------------------------------

TEST_F(SysParPage, LanguageListShowsEnglishAndMarkedItalianMissingFromWzelko32EnglishSelected) {
    StartPage();
    EXPECT_EQ(Items("pCB_Language"),
              QStringList({QStringLiteral("English"), QStringLiteral("(*) Italiano")}));
    EXPECT_EQ(List("pCB_Language")->currentIndex(), 0);
}

TEST_F(SysParPage, ALanguageWhoseCodesDifferBetweenTheFilesIsMarkedToo) {
    StartPage(std::string(kLanguages) + kSystem, "[Languages]\r\nEnglish=ENG\r\nItaliano=ita\r\n");
    EXPECT_EQ(Items("pCB_Language"),
              QStringList({QStringLiteral("English"), QStringLiteral("(*) Italiano")}));
}

TEST_F(SysParPage, TheStoredLanguageIsSelectedWithoutRegardToCase) {
    StartOnRaw(
        "[WZELKO]\r\nLANGUAGE=ita\r\n\r\n[Languages]\r\nEnglish=ENG\r\nItaliano=Ita\r\n\r\n"
        "[MEASURE INTERFACE]\r\nMEASURE MODE METRIC/INCH=METRIC\r\n");
    EXPECT_EQ(List("pCB_Language")->currentIndex(), 1);
}

TEST_F(SysParPage, ChoosingMarkedItalianStoresItaAndLeavesTheCaptionsUnchanged) {
    StartPage();
    const QString sheetCaption = window_->PageCtl()->SheetCaption(page_);
    const QString languageLabel = Label("pST_Language")->text();
    ChooseItem(List("pCB_Language"), 1);
    EXPECT_EQ(Record().LanguageCode, "ITA");
    EXPECT_TRUE(Record().Modified);
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), sheetCaption);
    EXPECT_EQ(Label("pST_Language")->text(), languageLabel);
    EXPECT_EQ(Label("pST_Language")->text(), Language(169));
    Save();
    EXPECT_EQ(Saved("WZELKO", "LANGUAGE"), "ITA");
}

TEST_F(SysParPage, AChosenLanguagesCodeIsStoredAsTheFileHoldsItNotUpperCased) {
    StartPage(std::string("[Languages]\r\nEnglish=ENG\r\nDeutsch=deu\r\n\r\n") + kSystem,
              "[Languages]\r\nEnglish=ENG\r\nDeutsch=deu\r\n");
    ChooseItem(List("pCB_Language"), 1);
    Save();
    EXPECT_EQ(Saved("WZELKO", "LANGUAGE"), "deu");
}

// ---- captions and lists ------------------------------------------------------------------

TEST_F(SysParPage, CaptionsComeFromTheLanguageStringsAndTp200KeepsItsOwn) {
    StartPage();
    EXPECT_EQ(window_->PageCtl()->SheetCaption(page_), Language(6));
    const std::pair<const char*, int> labels[] = {
        {"pST_Language", 169},      {"pST_CalibDiam", 170},     {"pST_Calib_UNITY", 86},
        {"pST_ThreSholdAng", 178},  {"pST_TruePosErr", 180},    {"pST_Compens_Line", 162},
        {"pST_LinearityErr", 184},  {"pST_GraphPrinter", 188},  {"pST_ProbeFnameSt", 172},
        {"pST_RefsysFnameSt", 173}, {"pST_MemoryFnameSt", 174}, {"pST_AutoSave", 179},
    };
    for (const auto& [name, id] : labels) EXPECT_EQ(Label(name)->text(), Language(id)) << name;
    const std::pair<const char*, int> boxes[] = {
        {"pCHB_FenWire", 175},    {"pCHB_DblFormErr", 177},         {"pCHB_DosCompatib", 171},
        {"pCHB_ElemAccel", 182},  {"pCHB_UseLastMem", 183},         {"pCHB_SelfTeachRef0", 185},
        {"pCHB_UseFormat", 186},  {"pCHB_PrintAtEnd", 181},         {"pCHB_GeoElemCreated", 189},
        {"pCHB_QuickAlign", 190}, {"pCHB_ImmediateDataInput", 191}, {"pCHB_WaitAtEndExec", 192},
    };
    for (const auto& [name, id] : boxes) EXPECT_EQ(Check(name)->text(), Language(id)) << name;
    EXPECT_EQ(Check("pCHB_TP200")->text(), QStringLiteral("TP&200"));
    EXPECT_EQ(Find<QGroupBox>("pGBX_SysFilesSt")->title(), Language(218));
    EXPECT_EQ(Button("pPB_BrowserSys")->text(), Language(134));
}

TEST_F(SysParPage, ListsHoldTheirItemsInOrder) {
    StartPage();
    EXPECT_EQ(Items("pCB_TruePosErr"), QStringList({Language(155), Language(156)}));
    EXPECT_EQ(Items("pCB_LinearityErr"), QStringList({Language(155), Language(156)}));
    EXPECT_EQ(Items("pCB_Compens_Line"), QStringList({Language(166), Language(167)}));
    QStringList fileSets;
    for (int id : {157, 158, 159, 160, 161, 163, 164, 165}) fileSets << Language(id);
    EXPECT_EQ(Items("pCB_AutoSave"), fileSets);
}

TEST_F(SysParPage, ShowsTheRecordsValues) {
    StartPage();
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("19.998000"));
    EXPECT_EQ(Edit("pSLE_ThreSholdAng")->text(), QStringLiteral("5"));
    EXPECT_EQ(List("pCB_TruePosErr")->currentIndex(), 1);
    EXPECT_EQ(List("pCB_LinearityErr")->currentIndex(), 0);
    EXPECT_EQ(List("pCB_Compens_Line")->currentIndex(), 0);
    EXPECT_EQ(Edit("pSLE_ProbeFname")->text(), QStringLiteral("QUALI.TIP"));
    EXPECT_EQ(Edit("pSLE_RefsysFname")->text(), QStringLiteral("REFSYS.REF"));
    EXPECT_EQ(Edit("pSLE_MemoryFname")->text(), QStringLiteral("MEMORY.MEM"));
    EXPECT_TRUE(Check("pCHB_DblFormErr")->isChecked());
    EXPECT_TRUE(Check("pCHB_WaitAtEndExec")->isChecked());
    EXPECT_FALSE(Check("pCHB_PrintAtEnd")->isChecked());
    EXPECT_FALSE(Button("pPB_BrowserSys")->isEnabled());
    EXPECT_FALSE(Record().Modified);
}

// ---- the diameter ------------------------------------------------------------------------

TEST_F(SysParPage, ADiameterOfMinusOneIsRefusedAndTheOldValueShownAgain) {
    StartPage();
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("-1"));
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("19.998000"));
    EXPECT_DOUBLE_EQ(Record().DiaSferaCal, 19.998);
    EXPECT_FALSE(Record().Modified);
    EXPECT_EQ(script_.Count(), 0);  // refused without a word
}

TEST_F(SysParPage, ADiameterOf0IsAccepted) {
    StartPage();
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("0"));
    EXPECT_DOUBLE_EQ(Record().DiaSferaCal, 0.0);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "DIASFERACAL"), "0.000000");
}

TEST_F(SysParPage, InInchModeTyping1InTheDiameterStores254MillimetresAndTheUnitIsString87) {
    // No "MEASURE INTERFACE" section: inches.
    StartOnRaw(std::string("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n") + kSystem);
    ASSERT_FALSE(Record().IsMetric());
    EXPECT_EQ(Label("pST_Calib_UNITY")->text(), Language(87));
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("1"));
    EXPECT_DOUBLE_EQ(Record().DiaSferaCal, 25.4);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "DIASFERACAL"), "25.400000");
}

TEST_F(SysParPage, InInchModeTheDiameterShowsInInches) {
    StartOnRaw("[WZELKO]\r\nLANGUAGE=ENG\r\n\r\n[SYSTEMPARAM]\r\nDIASFERACAL=25.4\r\n");
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("1.000000"));
}

TEST_F(SysParPage, InMetricModeTheUnitIsString86) {
    StartPage();
    EXPECT_EQ(Label("pST_Calib_UNITY")->text(), Language(86));
}

TEST_F(SysParPage, LeavingTheDiameterKeepsTheTypedTextAndStoreShowsItThroughTheConversion) {
    StartPage();
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("20"));
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("20"));
    Type("pSLE_CalibDiam", QStringLiteral("21.5"));
    Save();
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("21.500000"));
    EXPECT_EQ(Saved("SYSTEMPARAM", "DIASFERACAL"), "21.500000");
}

TEST_F(SysParPage, ADiameterThatIsNotANumberGivesTheConversionMessageAndStoresNothing) {
    StartPage();
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("12,3,4"));
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'12,3,4' is not a valid floating point value");
    EXPECT_DOUBLE_EQ(Record().DiaSferaCal, 19.998);
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
}

// ---- the threshold angle -----------------------------------------------------------------

TEST_F(SysParPage, LeavingTheThresholdShowsItInItsShortestForm) {
    StartPage();
    TypeAndLeave("pSLE_ThreSholdAng", QStringLiteral("12.50"));
    EXPECT_EQ(Edit("pSLE_ThreSholdAng")->text(), QStringLiteral("12.5"));
    EXPECT_DOUBLE_EQ(Record().ThresholdAngMiddleRel, 12.5);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "THRESHOLD ANG MIDDLE REL"), "12.500000");
}

TEST_F(SysParPage, StoringTheThresholdShowsItWithSixDecimals) {
    StartPage();
    Type("pSLE_ThreSholdAng", QStringLiteral("-7.25"));
    Save();
    EXPECT_EQ(Edit("pSLE_ThreSholdAng")->text(), QStringLiteral("-7.250000"));
    EXPECT_EQ(Saved("SYSTEMPARAM", "THRESHOLD ANG MIDDLE REL"), "-7.250000");
}

TEST_F(SysParPage, AThresholdThatIsNotANumberGivesTheConversionMessageAndStoresNothing) {
    StartPage();
    Type("pSLE_ThreSholdAng", QStringLiteral("abc"));
    Save();
    ASSERT_EQ(script_.Count(), 1);
    EXPECT_EQ(script_.Shown()[0].text, "'abc' is not a valid floating point value");
    EXPECT_DOUBLE_EQ(Record().ThresholdAngMiddleRel, 5.0);
    EXPECT_EQ(Edit("pSLE_ThreSholdAng")->text(), QStringLiteral("abc"));
    EXPECT_EQ(Bytes(), Original());
}

// ---- the graphics printer ----------------------------------------------------------------

TEST_F(SysParPage, PrintersComeFromTheUsersSystemProfileAsNameAndValue) {
    StartPage();
    EXPECT_EQ(Items("pCB_GraphPrinter"),
              QStringList({QStringLiteral("HP LaserJet 4250,winspool,LPT1:"),
                           QStringLiteral("Kyocera FS-1920,winspool,LPT2:")}));
    // The stored printer, upper-cased when read, is found without regard to case.
    EXPECT_EQ(List("pCB_GraphPrinter")->currentIndex(), 1);
    EXPECT_EQ(Record().GraphPrinter, "Kyocera FS-1920,winspool,LPT2:");
    EXPECT_FALSE(Record().Modified);
}

TEST_F(SysParPage, WithNoStoredPrinterTheFirstPrinterIsChosenAndStoredEvenWhenTheDefaultIsAnother) {
    StartPage(kLanguages);
    EXPECT_EQ(List("pCB_GraphPrinter")->currentIndex(), 0);
    EXPECT_EQ(Record().GraphPrinter, "HP LaserJet 4250,winspool,LPT1:");
    // Chosen, not changed by the user: no question, nothing written until something changes.
    EXPECT_FALSE(Record().Modified);
    Save();
    EXPECT_EQ(Bytes(), Original());
    ChangeSomethingElse();
    Save();
    EXPECT_EQ(Saved("GraphOutput", "Printer"), "HP LaserJet 4250,winspool,LPT1:");
}

TEST_F(SysParPage, AStoredPrinterThatIsNotInstalledGivesWayToTheFirst) {
    StartPage(std::string(kLanguages) + "[GraphOutput]\r\nPrinter=OLD PLOTTER,LPT3:\r\n");
    EXPECT_EQ(List("pCB_GraphPrinter")->currentIndex(), 0);
    EXPECT_EQ(Record().GraphPrinter, "HP LaserJet 4250,winspool,LPT1:");
}

TEST_F(SysParPage, WithoutPrintersTheListIsDisabledAndEmptyAndTheStoredPrinterStays) {
    StartPage(std::string(kLanguages) + kSystem, kLanguages32, "[windows]\r\nload=\r\n");
    EXPECT_FALSE(List("pCB_GraphPrinter")->isEnabled());
    EXPECT_EQ(List("pCB_GraphPrinter")->count(), 0);
    EXPECT_EQ(Record().GraphPrinter, "KYOCERA FS-1920,WINSPOOL,LPT2:");
    ChangeSomethingElse();
    Save();
    EXPECT_EQ(Saved("GraphOutput", "Printer"), "KYOCERA FS-1920,WINSPOOL,LPT2:");
}

TEST_F(SysParPage, ChoosingAPrinterStoresItsItem) {
    StartPage();
    ChooseItem(List("pCB_GraphPrinter"), 0);
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("GraphOutput", "Printer"), "HP LaserJet 4250,winspool,LPT1:");
}

// ---- lists -------------------------------------------------------------------------------

TEST_F(SysParPage, SelectingAutoSavePosition1StoresCode7) {
    StartPage();
    ChooseItem(List("pCB_AutoSave"), 1);
    EXPECT_EQ(Record().AutoSave, 7u);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "AUTOSAVE"), "7");
}

TEST_F(SysParPage, AutoSaveCode3ShowsPosition5) {
    StartPage();  // AUTOSAVE=3
    EXPECT_EQ(List("pCB_AutoSave")->currentIndex(), 5);
    EXPECT_EQ(List("pCB_AutoSave")->currentText(), Language(163));
}

TEST_F(SysParPage, EveryAutoSavePositionStoresItsCode) {
    StartPage();
    const std::uint32_t codes[] = {0, 7, 1, 2, 4, 3, 5, 6};
    for (int position = 0; position < 8; ++position) {
        ChooseItem(List("pCB_AutoSave"), position);
        EXPECT_EQ(Record().AutoSave, codes[position]) << position;
    }
}

TEST_F(SysParPage, ErrorListsStoreDiameterAtPosition1AndRadiusAtPosition0) {
    StartPage();
    ChooseItem(List("pCB_TruePosErr"), 0);
    ChooseItem(List("pCB_LinearityErr"), 1);
    Save();
    EXPECT_EQ(Saved("OTHER", "TRUEPOSERR"), "RADIUS");
    EXPECT_EQ(Saved("OTHER", "LINEARITY ERROR"), "DIAMETER");
}

TEST_F(SysParPage, The3dLineListStoresItsPositionAsTheMode) {
    StartPage();
    ChooseItem(List("pCB_Compens_Line"), 1);
    EXPECT_EQ(Record().Line3dCompens, 1u);
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "3D LINE COMPENS"), "SHOULD MODE");
}

// ---- check boxes -------------------------------------------------------------------------

TEST_F(SysParPage, CheckBoxesWriteTheirOptions) {
    StartPage();
    Tick(Check("pCHB_TP200"));
    Tick(Check("pCHB_FenWire"));
    Tick(Check("pCHB_DblFormErr"));
    Tick(Check("pCHB_UseFormat"));
    Tick(Check("pCHB_PrintAtEnd"));
    Tick(Check("pCHB_GeoElemCreated"));
    Tick(Check("pCHB_ImmediateDataInput"));
    Tick(Check("pCHB_WaitAtEndExec"));
    EXPECT_TRUE(Record().Modified);
    Save();
    EXPECT_EQ(Saved("MEASUREPARAM", "TP200"), "TRUE");
    EXPECT_EQ(Saved("TOOL", "FENWIRE"), "TRUE");
    EXPECT_EQ(Saved("OTHER", "DOUBLEFORMERR"), "FALSE");
    EXPECT_EQ(Saved("GEO TOLERANCE", "USE FORMAT"), "TRUE");
    // Held as "1"/"0", unlike the other options.
    EXPECT_EQ(Saved("EXEC", "PRINT AT END EXEC"), "1");
    EXPECT_EQ(Saved("MACRO", "GEO TOL ELEMENT CREATION"), "TRUE");
    // Not in the file, so read as off: ticked, it is on.
    EXPECT_EQ(Saved("EXEC PROCEDURE", "IMMEDIATE DATA INPUT WINDOW"), "TRUE");
    EXPECT_EQ(Saved("EXEC", "WAIT AT END EXECUTION"), "FALSE");
}

TEST_F(SysParPage, TheFourFixedOptionsAreDisabledAndKeepTheirValues) {
    StartPage();
    for (const char* name :
         {"pCHB_ElemAccel", "pCHB_UseLastMem", "pCHB_SelfTeachRef0", "pCHB_QuickAlign"}) {
        EXPECT_FALSE(Check(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(Check("pCHB_UseLastMem")->isChecked());
    EXPECT_TRUE(Check("pCHB_QuickAlign")->isChecked());
    QTest::mouseClick(Check("pCHB_QuickAlign"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(Check("pCHB_QuickAlign")->isChecked());
    ChangeSomethingElse();
    Save();
    EXPECT_EQ(Saved("MACRO", "USE LAST MEMORIES"), "TRUE");
    EXPECT_EQ(Saved("OTHER", "QUICK ALIGNEMENTS"), "TRUE");
}

// The box cannot be reached by a user (it is disabled); its handler is run as the form would
// run it, to show where its state goes.
TEST_F(SysParPage, TheLastMemoriesBoxWritesTheGeoToleranceFormatOptionNotTheLastMemories) {
    StartPage();
    auto* box = Check("pCHB_UseLastMem");
    box->setChecked(false);
    QMetaObject::invokeMethod(page_, "pCHB_UseLastMemClick");
    EXPECT_TRUE(Record().UseLastMemories);
    EXPECT_FALSE(Record().GeoTolUseFormat);
    box->setChecked(true);
    QMetaObject::invokeMethod(page_, "pCHB_UseLastMemClick");
    EXPECT_TRUE(Record().GeoTolUseFormat);
    Save();
    EXPECT_EQ(Saved("GEO TOLERANCE", "USE FORMAT"), "TRUE");
    EXPECT_EQ(Saved("MACRO", "USE LAST MEMORIES"), "TRUE");
}

// ---- file names and browsing -------------------------------------------------------------

TEST_F(SysParPage, AFileNameIsUpperCasedWhenLeftAndStored) {
    StartPage();
    TypeAndLeave("pSLE_ProbeFname", QStringLiteral("probe.tip"));
    EXPECT_EQ(Edit("pSLE_ProbeFname")->text(), QStringLiteral("PROBE.TIP"));
    EXPECT_EQ(Record().QualiFileName, "PROBE.TIP");
    TypeAndLeave("pSLE_RefsysFname", QStringLiteral("base.ref"));
    TypeAndLeave("pSLE_MemoryFname", QStringLiteral("m1.mem"));
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "QUALIFILENAME"), "PROBE.TIP");
    EXPECT_EQ(Saved("SYSTEMPARAM", "REFSYSFILENAME"), "BASE.REF");
    EXPECT_EQ(Saved("SYSTEMPARAM", "MEMORYFILENAME"), "M1.MEM");
}

TEST_F(SysParPage, AnEmptyFileNameIsTakenOnLeavingAndOnStore) {
    StartPage();
    test::TypeInto(Edit("pSLE_ProbeFname"), QString());
    PressTab(Edit("pSLE_ProbeFname"));
    EXPECT_EQ(Record().QualiFileName, "");
    test::TypeInto(Edit("pSLE_MemoryFname"), QString());
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "QUALIFILENAME"), "");
    EXPECT_EQ(Saved("SYSTEMPARAM", "MEMORYFILENAME"), "");
}

TEST_F(SysParPage, EnteringAFileNameEnablesBrowseAndTheNumbersAndListsDisableIt) {
    StartPage();
    Edit("pSLE_RefsysFname")->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(Button("pPB_BrowserSys")->isEnabled());
    Edit("pSLE_CalibDiam")->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(Button("pPB_BrowserSys")->isEnabled());
    Edit("pSLE_MemoryFname")->setFocus(Qt::TabFocusReason);
    ChooseItem(List("pCB_TruePosErr"), 0);
    EXPECT_FALSE(Button("pPB_BrowserSys")->isEnabled());
    Edit("pSLE_MemoryFname")->setFocus(Qt::TabFocusReason);
    Tick(Check("pCHB_TP200"));
    EXPECT_FALSE(Button("pPB_BrowserSys")->isEnabled());
}

TEST_F(SysParPage, BrowsePutsTheChosenProbeFileIntoItsEditAndLeavingStoresIt) {
    StartPage();
    std::filesystem::create_directories(prefix_.DriveC() / "WZELKO" / "SYSDATA");
    Edit("pSLE_ProbeFname")->setFocus(Qt::TabFocusReason);
    AnswerFileOpen(prefix_.DriveC() / "WZELKO" / "SYSDATA" / "Star.tip");
    QTest::mouseClick(Button("pPB_BrowserSys"), Qt::LeftButton);
    QLineEdit* probe = Edit("pSLE_ProbeFname");
    EXPECT_EQ(probe->text(), QStringLiteral("C:\\WZELKO\\SYSDATA\\Star.tip"));
    EXPECT_TRUE(probe->isModified());
    EXPECT_TRUE(probe->hasFocus());
    // Shown in the data folder, probe files only.
    EXPECT_EQ(FileDialog()->nameFilters(), QStringList({Language(159) + " (*.TIP)"}));
    EXPECT_EQ(std::filesystem::canonical(FileDialog()->directory().absolutePath().toStdString()),
              std::filesystem::canonical(prefix_.DriveC() / "WZELKO" / "SYSDATA"));
    EXPECT_EQ(Record().QualiFileName, "QUALI.TIP");
    PressTab(probe);
    EXPECT_EQ(Record().QualiFileName, "C:\\WZELKO\\SYSDATA\\STAR.TIP");
    Save();
    EXPECT_EQ(Saved("SYSTEMPARAM", "QUALIFILENAME"), "C:\\WZELKO\\SYSDATA\\STAR.TIP");
}

TEST_F(SysParPage, BrowseOffersReferenceSystemAndMemoryFilesForTheirEdits) {
    StartPage();
    Edit("pSLE_RefsysFname")->setFocus(Qt::TabFocusReason);
    CancelFileOpen();
    Click("pPB_BrowserSys");
    EXPECT_EQ(FileDialog()->nameFilters(), QStringList({Language(160) + " (*.REF)"}));
    Edit("pSLE_MemoryFname")->setFocus(Qt::TabFocusReason);
    CancelFileOpen();
    Click("pPB_BrowserSys");
    EXPECT_EQ(FileDialog()->nameFilters(), QStringList({Language(161) + " (*.MEM)"}));
    EXPECT_EQ(Edit("pSLE_MemoryFname")->text(), QStringLiteral("MEMORY.MEM"));
    EXPECT_FALSE(Record().Modified);
}

TEST_F(SysParPage, WithoutADataFolderBrowseStartsInTheUsualOne) {
    StartPage(kLanguages);
    std::filesystem::create_directories(prefix_.DriveC() / "WZELKO" / "DATA");
    Edit("pSLE_ProbeFname")->setFocus(Qt::TabFocusReason);
    CancelFileOpen();
    Click("pPB_BrowserSys");
    // "C:\Wzelko\data", found on the drive without regard to case.
    EXPECT_EQ(std::filesystem::canonical(FileDialog()->directory().absolutePath().toStdString()),
              std::filesystem::canonical(prefix_.DriveC() / "WZELKO" / "DATA"));
}

TEST_F(SysParPage, BrowseDoesNothingWhenTheFileEditEnteredLastIsTheStartUpPages) {
    rows_ = test::TableRows({"SysParTabSheet", "InitTabSheet"});
    prefix_.WriteWindowsFile("WIN.INI", kWinIni);
    Start(test::SettingsFileWithMain(std::string(kLanguages) + kSystem), rows_);
    Edit("pSLE_ProbeFname")->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(Button("pPB_BrowserSys")->isEnabled());
    Action("KestelGenConf_Init")->trigger();
    Edit("pSLE_PP_Name")->setFocus(Qt::TabFocusReason);
    Action("KestelGenConf_SysParam")->trigger();
    ASSERT_TRUE(Button("pPB_BrowserSys")->isEnabled());
    Click("pPB_BrowserSys");
    EXPECT_EQ(FileOpenAnswers().Runs(), 0);
}

// ---- store, load, the frame --------------------------------------------------------------

TEST_F(SysParPage, CancelPutsBackOnlyTheEditBeingTyped) {
    StartPage();
    TypeAndLeave("pSLE_ThreSholdAng", QStringLiteral("8"));
    Type("pSLE_ProbeFname", QStringLiteral("x.tip"));
    Click("pCancel");
    EXPECT_EQ(Edit("pSLE_ProbeFname")->text(), QStringLiteral("QUALI.TIP"));
    EXPECT_EQ(Edit("pSLE_ThreSholdAng")->text(), QStringLiteral("8"));
    EXPECT_DOUBLE_EQ(Record().ThresholdAngMiddleRel, 8.0);
}

TEST_F(SysParPage, AnsweringNoOnLeavingThePageShowsWhatWasReadAgainInEveryControl) {
    rows_ = test::TableRows({"SysParTabSheet", "WinColorTabSheet"});
    prefix_.WriteWindowsFile("WIN.INI", kWinIni);
    Start(test::SettingsFileWithMain(std::string(kLanguages) + kSystem), rows_);
    Tick(Check("pCHB_FenWire"));
    ChooseItem(List("pCB_AutoSave"), 0);
    TypeAndLeave("pSLE_CalibDiam", QStringLiteral("3"));
    script_.Answer(IDNO);
    Action("KestelOther_WindowsColor")->trigger();
    EXPECT_FALSE(Check("pCHB_FenWire")->isChecked());
    EXPECT_EQ(List("pCB_AutoSave")->currentIndex(), 5);
    EXPECT_EQ(Edit("pSLE_CalibDiam")->text(), QStringLiteral("19.998000"));
    EXPECT_EQ(Bytes(), Original());
}

TEST_F(SysParPage, MenuEntryIsEnabledAndShowsThePage) {
    rows_ = test::TableRows({"SysParTabSheet", "WinColorTabSheet"});
    prefix_.WriteWindowsFile("WIN.INI", kWinIni);
    Start(test::SettingsFileWithMain(kLanguages), rows_);
    Action("KestelOther_WindowsColor")->trigger();
    QAction* entry = Action("KestelGenConf_SysParam");
    ASSERT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(window_->PageCtl()->ActivePage(), Page("SysParTabSheet"));
    EXPECT_EQ(window_->HelpContextOfPage(), 19);
}

// ---- random text -------------------------------------------------------------------------

// Random texts typed into every edit and committed by leaving, OK or Save: no crash, a text that
// is not a number gives the conversion message and changes nothing, and the saved file differs
// from one saved before only in this page's keys.
TEST_F(SysParPage, RandomTextInEveryEditNeverCrashesNorCorruptsTheFiles) {
    StartPage();
    const std::string before = SaveUnchanged();
    const std::string before32 = Bytes("WZELKO32.INI");

    test::RandomText random(20240611);
    const char* const edits[] = {"pSLE_CalibDiam", "pSLE_ThreSholdAng", "pSLE_ProbeFname",
                                 "pSLE_RefsysFname", "pSLE_MemoryFname"};
    int reported = 0;
    for (int round = 0; round < 150; ++round) {
        const char* name = edits[random.Below(5)];
        const QString text = random.Next();
        const bool number =
            std::string(name) == "pSLE_CalibDiam" || std::string(name) == "pSLE_ThreSholdAng";
        const double diameter = Record().DiaSferaCal;
        const double threshold = Record().ThresholdAngMiddleRel;
        script_.Clear();
        test::TypeInto(Edit(name), text);
        const bool typed = Edit(name)->isModified();
        bool convertible = true;
        try {
            StrToFloat(platform::Utf8ToAnsi(Edit(name)->text().toStdString()));
        } catch (const ConversionError&) {
            convertible = false;
        }
        CommitTyped(Edit(name), kCommits[random.Below(3)]);  // Tab, OK or Save
        if (number && typed && !convertible) {
            ++reported;
            ASSERT_EQ(script_.Count(), 1) << name << " " << text.toStdString();
            EXPECT_NE(script_.Shown()[0].text.find("is not a valid floating point value"),
                      std::string::npos);
            EXPECT_EQ(Record().DiaSferaCal, diameter);
            EXPECT_EQ(Record().ThresholdAngMiddleRel, threshold);
        } else {
            EXPECT_EQ(script_.Count(), 0) << name << " " << text.toStdString();
        }
        EXPECT_GE(Record().DiaSferaCal, 0.0);
        Click("pCancel");
    }
    // The run met both kinds of text.
    EXPECT_GT(reported, 5);
    const std::string after = SaveUnchanged();
    EXPECT_TRUE(test::ParsesAsSettingsFile(after));
    EXPECT_NE(after, before);
    EXPECT_EQ(
        test::ChangedBeyond(before, after,
                            {"SYSTEMPARAM|DIASFERACAL", "SYSTEMPARAM|THRESHOLD ANG MIDDLE REL",
                             "SYSTEMPARAM|QUALIFILENAME", "SYSTEMPARAM|REFSYSFILENAME",
                             "SYSTEMPARAM|MEMORYFILENAME"}),
        std::set<std::string>{});
    EXPECT_EQ(Bytes("WZELKO32.INI"), before32);
}

}  // namespace
}  // namespace wk
