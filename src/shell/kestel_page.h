#pragma once
// The page protocol: what the main window asks of every page of its page control.
//
// A page is the tab sheet itself. Its check boxes, radio buttons, combo boxes and buttons
// write into the settings record from their own handlers; its edit fields do so from their
// exit handlers, only when their text was modified. The frame drives the rest:
//   Initialise  once, at first activation: captions, list contents, first display, enabling;
//   Store       on OK, Save, a page switch, Exit and close: commit what a modified edit field
//               holds, exactly as its exit handler would, and set the modified flag;
//   Load        on sheet entry, page change, Cancel, and after the user discarded changes:
//               refreshAll shows every value of the record again; without it only the modified
//               edit fields are put back, dropping what was typed.

#include <QWidget>

namespace wk {

class TKestelMainWind;

class KestelPage : public QWidget {
    Q_OBJECT

public:
    explicit KestelPage(TKestelMainWind& mainWind);

    virtual void Initialise() = 0;
    virtual void Store() = 0;
    virtual void Load(bool refreshAll) = 0;

protected:
    TKestelMainWind& mainWind_;
};

}  // namespace wk
