#pragma once
// The machine parameters page (MacParTabSheet), the start page: how the CMM is connected (COM
// port or TCP/IP), Manual or CNC, the machine resolution and the simulation switches, the PH9
// head (presence, serial line, head type) and the general values (compensation file names,
// approach distance, depth, optimal speed, scale factors, tool changer, compensation active).

#include <QString>
#include <array>
#include <cstdint>
#include <string>

#include "shell/page_host.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace wk {

class EditComboBox;
class EditField;

class TMacParPage : public KestelPage {
    Q_OBJECT

public:
    explicit TMacParPage(PageHost& host);

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

public slots:
    // Connection and mode.
    void pCB_PortChange();
    void pRB_CNCClick();
    void pRB_ManualClick();
    void pCHB_CNC_SimulClick();
    void pCHB_JX01_SimulClick();
    // Resolution.
    void pCB_ResolutionClick();
    void pCB_ResolutionEnter();
    void pCB_ResolutionExit();
    // PH9 head.
    void pCB_Ph9_PortChange();
    void pCB_Ph9_BaudChange();
    void pCB_Ph9_ParityChange();
    void pCB_Ph9_NBitsChange();
    void pCB_Ph9_StopBitsChange();
    void pCHB_Ph9_PresentClick();
    void pCHB_Ph9_SimulClick();
    void p_RB_PHxClick();
    void p_RB_MODRIVAXMClick();
    void p_RB_MODRIVAXIClick();
    // General values.
    void pSLE_CosDatFnameExit();
    void pSLE_CompensFnameExit();
    void pSLE_DistApproachExit();
    void pSLE_DepthExit();
    void pSLE_Optimal_SpeedExit();
    void pSLE_Term_XExit();
    void pSLE_Term_YExit();
    void pSLE_Term_ZExit();
    void pSLE_Term_PartExit();
    void pCHB_DepthClick();
    void pCHB_Optimal_SpeedClick();
    void pCHB_Tool_ChClick();
    void pCHB_ActiveClick();
    // File names and browsing.
    void pSLE_CosDatFnameEnter();
    void pSLE_CompensFnameEnter();
    void pPB_BrowserMPClick();
    // TCP/IP address and port.
    void pSLE_TCPEnterOrExit(EditField* field);
    void pSLE_TCPPORTExit();

private:
    // Who commits an edit: its exit handler (a changed text always counts as an edit, and a
    // refused one takes the focus back) or the page's store (only a changed value counts, and
    // the focus stays where it is).
    enum class Commit { OnExit, OnStore };

    void BuildControls();
    void BuildLayout();
    void ConnectHandlers();
    void SetTabOrder();
    void NameEditsAfterTheirSwitches();

    // Shows each group of the record.
    void ShowConnection();
    void ShowResolution();
    void ShowPh9();
    void ShowGeneral();
    void ShowAddressFields();
    void ShowPortField();
    void ShowDepth();
    void ShowOptimalSpeed();
    // The enabling that follows from the record alone (initialisation and a full load).
    void EnableByRecord();

    // The exit handlers' work, shared with Store.
    void CommitFileName(EditField* field, std::string& value, Commit how);
    void CommitDistApproach(Commit how);
    void CommitDepth(Commit how);
    void CommitOptimalSpeed(Commit how);
    void CommitScale(EditField* field, double& value, Commit how);
    void CommitResolution(Commit how);
    void CommitAddressPart(EditField* field, Commit how);
    void CommitPort(Commit how);

    // The PH9 serial line from the five lists' choices.
    void Ph9SerialChange();
    void SelectHeadType(std::int32_t type);
    void SetHeadTypeEnabled(bool enabled);
    void SetPh9ListsEnabled(bool enabled);

    // A control other than a file-name field was used: Browse has no target any more.
    void NotAFileNameField();

    // Texts of the page.
    QString LengthText(double mm);
    QString NotSetText() const;
    // The four parts of the address as the four fields show them.
    static std::array<std::string, 4> AddressParts(const std::string& address);
    void SetCaption(QWidget* control, int id);

    // Page-kept state: the resolution item remembered for each kind of machine, and the
    // file-name field that was entered last (the target of Browse).
    int CncResolutionIndex = 0;
    int ManualResolutionIndex = 1;
    EditField* LastFileEdit = nullptr;

    // pGBX_CMM
    QGroupBox* pGBX_CMM;
    QLabel* pST_Port;
    QComboBox* pCB_Port;
    QLabel* pST_Resolution;
    EditComboBox* pCB_Resolution;
    QLabel* pST_RESOL_UNITY;
    QCheckBox* pCHB_CNC_Simul;
    QCheckBox* pCHB_JX01_Simul;
    QGroupBox* pGB_TCPIP;
    QLabel* pST_TCPAddress;
    EditField* pSLE_TCP1;
    EditField* pSLE_TCP2;
    EditField* pSLE_TCP3;
    EditField* pSLE_TCP4;
    QLabel* pST_TCPPORT;
    EditField* pSLE_TCPPORT;
    // On the page itself.
    QRadioButton* pRB_Manual;
    QRadioButton* pRB_CNC;
    // pGBX_PH9
    QGroupBox* pGBX_PH9;
    QCheckBox* pCHB_Ph9_Present;
    QCheckBox* pCHB_Ph9_Simul;
    QLabel* pST_Ph9_Port;
    QComboBox* pCB_Ph9_Port;
    QComboBox* pCB_Ph9_Baud;
    QComboBox* pCB_Ph9_Parity;
    QComboBox* pCB_Ph9_NBits;
    QComboBox* pCB_Ph9_StopBits;
    QRadioButton* p_RB_PHx;
    QRadioButton* p_RB_MODRIVAXM;
    QRadioButton* p_RB_MODRIVAXI;
    // pGBX_General
    QGroupBox* pGBX_General;
    QLabel* pST_CosDatFname;
    EditField* pSLE_CosDatFname;
    QLabel* pST_CompensFname;
    EditField* pSLE_CompensFname;
    QPushButton* pPB_BrowserMP;
    QLabel* pST_DistApproach;
    EditField* pSLE_DistApproach;
    QLabel* pST_APPR_UNITY;
    QCheckBox* pCHB_Depth;
    EditField* pSLE_Depth;
    QLabel* pST_DEPTH_UNITY;
    QCheckBox* pCHB_Optimal_Speed;
    EditField* pSLE_Optimal_Speed;
    QLabel* pST_OPT_SP_UNITY;
    QLabel* pST_Term_X;
    EditField* pSLE_Term_X;
    QLabel* pST_Term_Y;
    EditField* pSLE_Term_Y;
    QLabel* pST_Term_Z;
    EditField* pSLE_Term_Z;
    QLabel* pST_Term_Part;
    EditField* pSLE_Term_Part;
    QCheckBox* pCHB_Tool_Ch;
    QCheckBox* pCHB_Active;
};

}  // namespace wk
