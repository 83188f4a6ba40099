#pragma once
// The default points page (NumPointsTabSheet): for each kind of geometric element, the number
// of points a measurement takes by default. An element is picked from the list; its current
// number is shown, a new one is typed or stepped with - and + (never below the element's
// minimum, never above 999) or reset with Default, and Set applies it.
//
// Only Set changes the record. Leaving the new-number edit keeps what is typed within the
// element's limits.

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <cstdint>

#include "settings/default_points_settings.h"
#include "shell/page_host.h"

namespace wk {

class EditField;

class TNumPointsPage : public KestelPage {
    Q_OBJECT

public:
    explicit TNumPointsPage(PageHost& host);
    ~TNumPointsPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

public slots:
    void pLB_ElementClick();
    void pSLE_NewDefaultExit();
    void pPB_PiuClick();
    void pPB_MenoClick();
    void pPB_DefaultClick();
    void pPB_SetNumClick();

private:
    // The element of a list position, or -1.
    int ElementAt(int position) const;
    // Validates the typed number: within the element's limits it is shown and Set takes the
    // focus; otherwise the element's minimum is shown. Nothing is stored.
    void CheckNewDefault();
    // The limits of the selected element, shown beside the new number.
    void ShowRange(int element);

    QLabel* pST_ListElement;
    QListWidget* pLB_Element;
    QLabel* pST_OldDefault;
    QLineEdit* pSLE_OldDefault;
    QLabel* pST_NewDefault;
    EditField* pSLE_NewDefault;
    // The lowest and highest number the selected element takes ("[3 - 999]").
    QLabel* pST_Range;
    QPushButton* pPB_Piu;
    QPushButton* pPB_Meno;
    QPushButton* pPB_Default;
    QPushButton* pPB_SetNum;

    // List position to element index.
    std::array<int, DefaultPointsSettings::kElementCapacity> positionToElement_{};
    int selectedPosition_ = 0;
    // The list's selection is being set by the page, not by the user.
    bool selecting_ = false;
};

}  // namespace wk
