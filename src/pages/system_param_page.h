#pragma once
// The system parameters page (SysParTabSheet): the user-interface language, the probe options,
// the calibration sphere's diameter, the threshold angle of intersections, how form and
// position errors are reported, the printer for graphics, the on/off behaviours of part-program
// execution, and the three system files with their automatic saving.
//
// Lists and check boxes write the record as they change; the five edits when they are left.
// The three file-name edits share the browse target with the start-up options page.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <string>
#include <vector>

#include "shell/page_host.h"

namespace wk {

class EditField;

class TSysParPage : public KestelPage {
    Q_OBJECT

public:
    explicit TSysParPage(PageHost& host);
    ~TSysParPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

public slots:
    void pCB_LanguageChange();
    void pCB_TruePosErrChange();
    void pCB_Compens_LineChange();
    void pCB_LinearityErrChange();
    void pCB_GraphPrinterChange();
    void pCB_AutoSaveChange();
    void pCHB_TP200Click();
    void pCHB_FenWireClick();
    void pCHB_DblFormErrClick();
    void pCHB_DosCompatibClick();
    void pCHB_ElemAccelClick();
    void pCHB_UseLastMemClick();
    void pCHB_SelfTeachRef0Click();
    void pCHB_UseFormatClick();
    void pCHB_PrintAtEndClick();
    void pCHB_GeoElemCreatedClick();
    void pCHB_QuickAlignClick();
    void pCHB_ImmediateDataInputClick();
    void pCHB_WaitAtEndExecClick();
    void pPB_BrowserSysClick();
    void pSLE_CalibDiamEnter();
    void pSLE_CalibDiamExit();
    void pSLE_ThreSholdAngEnter();
    void pSLE_ThreSholdAngExit();
    void pSLE_ProbeFnameEnter();
    void pSLE_ProbeFnameExit();
    void pSLE_RefsysFnameEnter();
    void pSLE_RefsysFnameExit();
    void pSLE_MemoryFnameEnter();
    void pSLE_MemoryFnameExit();

private:
    void FillLanguageList();
    void FillPrinterList();
    // The record's values in the lists and check boxes.
    void ShowChoices();
    void ShowDiameter();
    void ShowThreshold();
    // The file names as the record holds them.
    void ShowFileNames();

    // What leaving a modified edit commits (the exit handlers and Store). The two numbers
    // raise ConversionError for a text that is not a number, before anything is stored.
    void CommitDiameter();
    void CommitThreshold();
    // `force`: commit even when the modified mark is clear (Store of an emptied name).
    void CommitFileName(EditField* edit, void (SystemSettings::*setter)(const std::string&),
                        bool force);
    void FileNameEnter(EditField* edit);
    // Every change made by a list or a check box.
    void ChoiceMade();

    QLabel* pST_Language;
    QComboBox* pCB_Language;
    QLabel* pST_CalibDiam;
    EditField* pSLE_CalibDiam;
    QLabel* pST_Calib_UNITY;
    QLabel* pST_ThreSholdAng;
    EditField* pSLE_ThreSholdAng;
    QLabel* pST_TruePosErr;
    QComboBox* pCB_TruePosErr;
    QLabel* pST_Compens_Line;
    QComboBox* pCB_Compens_Line;
    QLabel* pST_LinearityErr;
    QComboBox* pCB_LinearityErr;
    QLabel* pST_GraphPrinter;
    QComboBox* pCB_GraphPrinter;
    QCheckBox* pCHB_TP200;
    QCheckBox* pCHB_FenWire;
    QCheckBox* pCHB_DblFormErr;
    QCheckBox* pCHB_DosCompatib;
    QCheckBox* pCHB_ElemAccel;
    QCheckBox* pCHB_UseLastMem;
    QCheckBox* pCHB_SelfTeachRef0;
    QCheckBox* pCHB_UseFormat;
    QCheckBox* pCHB_PrintAtEnd;
    QCheckBox* pCHB_GeoElemCreated;
    QCheckBox* pCHB_QuickAlign;
    QCheckBox* pCHB_ImmediateDataInput;
    QCheckBox* pCHB_WaitAtEndExec;
    QGroupBox* pGBX_SysFilesSt;
    QLabel* pST_ProbeFnameSt;
    EditField* pSLE_ProbeFname;
    QLabel* pST_RefsysFnameSt;
    EditField* pSLE_RefsysFname;
    QLabel* pST_MemoryFnameSt;
    EditField* pSLE_MemoryFname;
    QLabel* pST_AutoSave;
    QComboBox* pCB_AutoSave;
    QPushButton* pPB_BrowserSys;

    // The printers as listed, in the files' code page: the item chosen is stored as it stands.
    std::vector<std::string> printers_;
};

}  // namespace wk
