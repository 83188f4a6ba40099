#pragma once
// The controller page (ControllerTabSheet): what the mouse buttons of the machine's control
// panel do, the controller's I/O base address, hard probe compensation, the QD32Z compatible
// mode, and the motion limits with where they come from. Which of these a controller has
// depends on its type: the page shows or enables only what applies.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <cstdint>
#include <string>

#include "shell/page_host.h"

namespace wk {

class EditField;

class TControllerPage : public KestelPage {
    Q_OBJECT

public:
    explicit TControllerPage(PageHost& host);
    ~TControllerPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

    // The main window's caption for a controller type: string 1, " - ", then the controller's
    // display name and string 470 as "%s [%s]".
    static QString WindowCaption(const PageHost& host, const std::string& controllerType);

public slots:
    void pCB_LeftChange();
    void pCB_MiddleChange();
    void pCB_RightChange();
    void pSLE_BaseAddrExit();
    void pCHB_HpEnabledClick();
    void pSLE_MaxMSpeedExit();
    void pSLE_MaxPSpeedExit();
    void pSLE_MaxAccellExit();
    void pRB_FromControllerClick();
    void pRB_FromSetupFileClick();
    void pCB_IsQD32ZClick();

private:
    void BuildLayout();
    void ButtonChange(QComboBox* list, std::int32_t& function);
    void CommitLimit(EditField* edit, double& value);
    // Enables the positioning speed and acceleration rows when the limits come from the
    // settings file; the measuring speed row is enabled either way.
    void EnableLimits(bool fromSetupFile);
    void ShowLimitSource(bool fromSetupFile);

    QGroupBox* pGBX_MouseButt;
    QLabel* pFT_LeftButt;
    QLabel* pFT_MiddleButt;
    QLabel* pFT_RightButt;
    QComboBox* pCB_Left;
    QComboBox* pCB_Middle;
    QComboBox* pCB_Right;
    QLabel* pFT_BaseAddr;
    EditField* pSLE_BaseAddr;
    QCheckBox* pCHB_HpEnabled;
    QGroupBox* pGrBox_SpeedAndAccel;
    QLabel* pFT_MaxMSpeed;
    QLabel* pFT_MaxPSpeed;
    QLabel* pFT_MaxAccell;
    QLabel* pFT_MMSpUnity;
    QLabel* pFT_MPSpUnity;
    QLabel* pFT_MAccUnity;
    QLabel* pFT_Square;
    EditField* pSLE_MaxMSpeed;
    EditField* pSLE_MaxPSpeed;
    EditField* pSLE_MaxAccell;
    QRadioButton* pRB_FromController;
    QRadioButton* pRB_FromSetupFile;
    QCheckBox* pCB_IsQD32Z;
};

}  // namespace wk
