#pragma once
// The start-up options page (InitTabSheet): what the measuring application does by itself when
// it starts (power on, initialise, home, the PH9/PH10 head, load and run a part program), the
// exit code, the part-program files used at start, and which system files are loaded. The
// system files themselves are named on the system parameters page and only shown here.
//
// Check boxes and lists write the record as they change, and enable the options that depend on
// them; the three file-name edits when they are left. Those edits share the browse target with
// the system parameters page.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "shell/page_host.h"

namespace wk {

class EditField;

class TInitPage : public KestelPage {
    Q_OBJECT

public:
    explicit TInitPage(PageHost& host);
    ~TInitPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

public slots:
    void pCB_ExitCodeChange();
    void pCB_AutoLoadChange();
    void pCHB_AutoPowerClick();
    void pCHB_AutoInitClick();
    void pCHB_AutoLoadClick();
    void pCHB_AutoExecClick();
    void pCHB_PP_MirrorClick();
    void pCHB_No_Inter_ExecClick();
    void pCHB_AutoHomeClick();
    void pCHB_AutoPH9Click();
    void pCHB_PH9_FirstClick();
    void pCHB_No_Inter_InitClick();
    void pPB_BrowserInitClick();
    void pSLE_PP_NameEnter();
    void pSLE_PP_NameExit();
    void pSLE_DefProcNameEnter();
    void pSLE_DefProcNameExit();
    void pSLE_DefNilFileNameEnter();
    void pSLE_DefNilFileNameExit();

private:
    // The record's values in the check boxes and lists, and the options enabled by them.
    void ShowChoices();
    void ApplyEnabling();
    // The system files as the system parameters hold them.
    void ShowSystemFiles();
    // The homing options follow the quick start and the auto initialisation.
    void EnableZeroes();
    // Every change made by a check box or a list.
    void ChoiceMade();
    void FileNameEnter(EditField* edit);
    void CommitFileName(EditField* edit, void (InitSettings::*setter)(const std::string&));

    QCheckBox* pCHB_AutoPower;
    QCheckBox* pCHB_AutoInit;
    QCheckBox* pCHB_AutoLoad;
    QLabel* pST_ExitCode;
    QComboBox* pCB_ExitCode;
    QGroupBox* pGBX_PP;
    QCheckBox* pCHB_AutoExec;
    QCheckBox* pCHB_PP_Mirror;
    // The part program's edit has no caption of its own on the form; this label gives it one.
    QLabel* pST_PP_Name;
    EditField* pSLE_PP_Name;
    QLabel* pST_DefProcName;
    EditField* pSLE_DefProcName;
    QLabel* pST_DefNilFileName;
    EditField* pSLE_DefNilFileName;
    QCheckBox* pCHB_No_Inter_Exec;
    QPushButton* pPB_BrowserInit;
    QGroupBox* pGBX_Zeroes;
    QCheckBox* pCHB_AutoHome;
    QCheckBox* pCHB_AutoPH9;
    QCheckBox* pCHB_PH9_First;
    QCheckBox* pCHB_No_Inter_Init;
    QGroupBox* pGBX_SysFilesIni;
    QLabel* pST_Probe_Label;
    QLineEdit* pST_ProbeFnameIni;
    QLabel* pST_Refsys_Label;
    QLineEdit* pST_RefsysFnameIni;
    QLabel* pST_Memory_Label;
    QLineEdit* pST_MemoryFnameIni;
    QLabel* pST_AutoLoad;
    QComboBox* pCB_AutoLoad;
};

}  // namespace wk
