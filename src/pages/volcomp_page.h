#pragma once
// The volumetric compensation page (VolcompTabSheet): which compensation the measuring
// application applies to the machine's volumetric errors (QEN, KV, the controller's own), the
// QEN machine layout, what the controller does with its compensation when the measuring
// application exits, and thermal compensation. Every control writes the record at once.

#include <cstdint>

#include "shell/page_host.h"

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace wk {

class TVolcompPage : public KestelPage {
    Q_OBJECT

public:
    explicit TVolcompPage(PageHost& host);

    void Initialise() override;
    void Load(bool refreshAll) override;

public slots:
    void pRB_NoneClick();
    void pRB_QenClick();
    void pRB_KVLClick();
    void pRB_ControllerClick();
    void pRB_UseMELDAXSetClick();
    void pCHB_ActiveQENClick();
    void pRB_BridgeQenClick();
    void pRB_HorizQenClick();
    void pRB_DualReaderQenClick();
    void pRB_VolDisClick();
    void pRB_VolEnClick();
    void pRB_RestoreClick();
    void pCB_ThCompClick();

private:
    void BuildLayout();
    void ConnectHandlers();
    // The check marks of the record's values.
    void ShowChoices();
    // Tab enters each group of buttons at its checked one.
    void SetTabStops();
    // A method chosen: its value, and whether the QEN switch applies (the thermal switch is
    // left to each handler).
    bool ChooseMethod(std::int32_t method);
    void ChooseMode(std::int32_t mode);
    void ChooseOnExit(std::int32_t onExit);

    QGroupBox* pGBX_VolCompMethod;
    QRadioButton* pRB_None;
    QRadioButton* pRB_Qen;
    QRadioButton* pRB_KVL;
    QRadioButton* pRB_Controller;
    QRadioButton* pRB_UseMELDAXSet;
    QCheckBox* pCHB_ActiveQEN;
    QLabel* pST_CosDatFnameKVL;
    QLineEdit* pSLE_CosDatFnameKVL;
    QGroupBox* pGBX_VolCompModeQen;
    QRadioButton* pRB_BridgeQen;
    QRadioButton* pRB_HorizQen;
    QRadioButton* pRB_DualReaderQen;
    QGroupBox* pGBX_ContrCompOnExit;
    QRadioButton* pRB_VolDis;
    QRadioButton* pRB_VolEn;
    QRadioButton* pRB_Restore;
    QCheckBox* pCB_ThComp;
};

}  // namespace wk
