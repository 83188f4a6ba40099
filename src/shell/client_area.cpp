#include "shell/client_area.h"

#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include "widgets/contents_scroll_area.h"
#include "widgets/page_control.h"

namespace wk {

ClientArea BuildClientArea(QMainWindow& window) {
    auto* client = new QWidget;
    client->setObjectName(QStringLiteral("KestelClientArea"));
    auto* grid = new QGridLayout(client);

    auto* pageControl = new PageControl(client);
    pageControl->setObjectName(QStringLiteral("KestelPageControl"));

    auto* pOK = new QPushButton(QStringLiteral("OK"), client);
    pOK->setObjectName(QStringLiteral("pOK"));
    pOK->setDefault(true);
    pOK->setAutoDefault(true);
    auto* pCancel = new QPushButton(QStringLiteral("Cancel"), client);
    pCancel->setObjectName(QStringLiteral("pCancel"));
    pCancel->setAutoDefault(true);

    // The buttons start level with the top of the page, below the tabs.
    auto* buttons = new QVBoxLayout;
    buttons->addSpacing(pageControl->TabBar()->sizeHint().height());
    buttons->addWidget(pOK);
    buttons->addWidget(pCancel);
    buttons->addStretch(1);

    grid->addWidget(pageControl, 0, 0);
    grid->addLayout(buttons, 0, 1);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
    window.setCentralWidget(new ContentsScrollArea(client, &window));

    // The status line shows the menu hints and what start-up is doing, in the status bar's
    // own font, as a status bar's text shows anywhere else on the desktop.
    auto* statusBar = new QStatusBar(&window);
    statusBar->setObjectName(QStringLiteral("KestelStatusBar"));
    auto* pBottBar = new QLabel(QStringLiteral("."), statusBar);
    pBottBar->setObjectName(QStringLiteral("pBottBar"));
    pBottBar->setTextFormat(Qt::PlainText);
    statusBar->addWidget(pBottBar, 1);
    window.setStatusBar(statusBar);

    // Hidden until start-up has filled the pages, they keep their room meanwhile: the window
    // opens at the size the pages ask for and keeps it when they appear.
    for (QWidget* control : {static_cast<QWidget*>(pageControl), static_cast<QWidget*>(pOK),
                             static_cast<QWidget*>(pCancel)}) {
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
        control->setVisible(false);
    }
    return {pageControl, pOK, pCancel, pBottBar};
}

}  // namespace wk
