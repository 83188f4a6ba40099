#pragma once
// The window colours page (WinColorTabSheet): the background colour of each window of the
// measuring application, picked from a list, shown as red, green and blue (scroll bars,
// three-digit edits and a swatch) or chosen in the colour dialog, and applied with Set.
//
// What the controls show is the page's current colour. Scroll bars, edits and the dialog change
// only that; the record changes only through Set.

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <array>
#include <cstdint>

#include "settings/colour_settings.h"
#include "shell/page_host.h"

class QColorDialog;
class QLineEdit;

namespace wk {

class EditField;

class TWinColorPage : public KestelPage {
    Q_OBJECT

public:
    // The active component, whose label and edit are highlighted.
    static constexpr int kRedComponent = 200;
    static constexpr int kGreenComponent = 201;
    static constexpr int kBlueComponent = 202;

    explicit TWinColorPage(PageHost& host);
    ~TWinColorPage() override;

    void Initialise() override;
    void Store() override;
    void Load(bool refreshAll) override;

    // What the page holds besides its controls (for the window's tests and tools).
    std::uint32_t CurrentColour() const { return currentColour_; }
    int SelectedRow() const { return selectedRow_; }
    int ActiveComponent() const { return activeComponent_; }

public slots:
    void pLB_WinListClick();
    void pHSB_RedChange();
    void pHSB_GreenChange();
    void pHSB_BlueChange();
    void pHSB_RedScroll(int position);
    void pHSB_GreenScroll(int position);
    void pHSB_BlueScroll(int position);
    void pSLE_RedColorEnter();
    void pSLE_GreenColorEnter();
    void pSLE_BlueColorEnter();
    void pSLE_RedColorExit();
    void pSLE_GreenColorExit();
    void pSLE_BlueColorExit();
    void pPB_ColorsPalClick();
    void pPB_SetColClick();

private:
    // The controls of one component: label, scroll bar and edit.
    struct Component {
        int id;
        QLabel* label;
        QScrollBar* bar;
        EditField* edit;
    };
    Component& ComponentOf(int id);

    // Writes the current colour into the three edits ("%03d"), the swatch and the scroll bars.
    void ShowColour();
    void PaintSwatch(std::uint32_t colour);
    void HighlightActiveComponent();
    // The entry the row-to-entry table gives for a row.
    int EntryOfRow(int row) const;
    // The colour dialog, made on first use.
    QColorDialog& ColourDialog();

    void ComponentChange(int id);
    void ComponentScroll(int id, int position);
    void ComponentEnter(int id);
    void ComponentExit(int id);
    static std::uint32_t WithComponent(std::uint32_t colour, int id, int value);

    QLabel* pST_WinList;
    QListWidget* pLB_WinList;
    QLabel* pST_RedColor;
    QLabel* pST_GreenColor;
    QLabel* pST_BlueColor;
    QScrollBar* pHSB_Red;
    QScrollBar* pHSB_Green;
    QScrollBar* pHSB_Blue;
    EditField* pSLE_RedColor;
    EditField* pSLE_GreenColor;
    EditField* pSLE_BlueColor;
    QLineEdit* pSLE_ShowColor;
    QPushButton* pPB_ColorsPal;
    QPushButton* pPB_SetCol;
    QColorDialog* WinColorDialog = nullptr;

    std::array<Component, 3> components_{};

    std::uint32_t currentColour_ = 0xFFFFFF;
    int selectedRow_ = 0;
    // Row by row, the index of the colour entry; the spare entries that are listed take slots
    // after the last row. Slots beyond the listed entries are 0.
    std::array<int, ColourSettings::kColourEntryCount> rowToEntry_{};
    int activeComponent_ = kRedComponent;
    // The list's selection is being set by the page, not by the user.
    bool selecting_ = false;
};

}  // namespace wk
