#pragma once
// The axes convention page (AxesConvTabSheet): the two conventions of the machine axes as two
// large picture buttons, the chosen one showing its "on" picture and the other its "off"
// picture. A click writes the record at once, so the page has nothing to store.

#include <QLabel>
#include <QToolButton>

#include "shell/page_host.h"

namespace wk {

class TAxesConvPage : public KestelPage {
    Q_OBJECT

public:
    explicit TAxesConvPage(PageHost& host);

    // No Store: a click has already written the record, and nothing is ever pending here.
    void Initialise() override;
    void Load(bool refreshAll) override;

public slots:
    void pGB_QenAxesClick();
    void pGB_KVAxesClick();

private:
    void ShowState();
    // The pictures (and the buttons' state) of the convention chosen: QEN, or standard.
    void ShowChosen(bool qen);
    static void CopyGlyph(QToolButton* button, const QLabel* picture);

    QToolButton* pGB_QenAxes;
    QToolButton* pGB_KVAxes;
    // Hidden: they only hold the pictures the buttons' glyphs are copied from.
    QLabel* QenAxesOn;
    QLabel* QenAxesOff;
    QLabel* VKAxesOn;
    QLabel* VKAxesOff;
};

}  // namespace wk
