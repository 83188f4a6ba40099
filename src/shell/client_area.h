#pragma once
// The client area of the main window: the page control with pOK and pCancel beside it, and the
// status line pBottBar below them in the window's status bar. The page control and the two
// buttons are hidden until start-up has filled the pages.
//
// The window's minimum size is what the pages need: the page control is as large as the
// largest minimum size of its pages' layouts, and the window keeps room for it (see
// ContentsScrollArea).

class QLabel;
class QMainWindow;
class QPushButton;

namespace wk {

class PageControl;

struct ClientArea {
    PageControl* pageControl;
    QPushButton* pOK;      // the window's default button
    QPushButton* pCancel;  // the window's cancel button
    QLabel* pBottBar;
};

// Builds the client area as the central widget and the status bar of `window`; the window owns
// the controls.
ClientArea BuildClientArea(QMainWindow& window);

}  // namespace wk
