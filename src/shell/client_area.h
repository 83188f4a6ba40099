#pragma once
// The client area of the main window, laid out as the form shows it: the page control, pOK and
// pCancel beside it, and the status line pBottBar (large, bold, centred) below. The page control
// and the two buttons are hidden until start-up has filled the pages.

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

// Builds the client area as the central widget of `window`; the window owns the controls.
ClientArea BuildClientArea(QMainWindow& window);

}  // namespace wk
