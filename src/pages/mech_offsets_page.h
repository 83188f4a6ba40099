#pragma once
// The mechanical offsets page (MecOffTabSheet): the offsets along X, Y and Z, the compensation
// offset and the stroke of the bridge axis, five lengths always in millimetres.

#include <QLabel>

#include "shell/page_host.h"

namespace wk {

class EditField;

class TMecOffPage : public KestelPage {
    Q_OBJECT

public:
    explicit TMecOffPage(PageHost& host);

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

public slots:
    void pSLE_OffsetXExit();
    void pSLE_OffsetYExit();
    void pSLE_OffsetZExit();
    void pSLE_CompOffsetExit();
    void pSLE_BridgeStrokeExit();

private:
    // What every exit handler does: a modified text is converted, shown again in its shortest
    // form and stored. No range, no inch conversion.
    void CommitField(EditField* field, double& value);
    static void ShowValue(EditField* field, double value);

    QLabel* pST_OffsetX;
    QLabel* pST_OffsetY;
    QLabel* pST_OffsetZ;
    QLabel* pST_CompOffset;
    QLabel* pST_BridgeStroke;
    EditField* pSLE_OffsetX;
    EditField* pSLE_OffsetY;
    EditField* pSLE_OffsetZ;
    EditField* pSLE_CompOffset;
    EditField* pSLE_BridgeStroke;
    QLabel* pST_CompX_Unity;
    QLabel* pST_CompY_Unity;
    QLabel* pST_CompZ_Unity;
    QLabel* pST_CompOff_Unity;
    QLabel* pST_Bridge_Unity;
};

}  // namespace wk
