#include "shell/client_area.h"

#include <QGridLayout>
#include <QLabel>
#include <QMainWindow>
#include <QPushButton>
#include <QVBoxLayout>

#include "widgets/page_control.h"

namespace wk {

ClientArea BuildClientArea(QMainWindow& window) {
    auto* central = new QWidget(&window);
    central->setObjectName(QStringLiteral("KestelClientArea"));
    auto* grid = new QGridLayout(central);

    auto* pageControl = new PageControl(central);
    pageControl->setObjectName(QStringLiteral("KestelPageControl"));

    auto* pOK = new QPushButton(QStringLiteral("OK"), central);
    pOK->setObjectName(QStringLiteral("pOK"));
    pOK->setDefault(true);
    pOK->setAutoDefault(true);
    auto* pCancel = new QPushButton(QStringLiteral("Cancel"), central);
    pCancel->setObjectName(QStringLiteral("pCancel"));
    pCancel->setAutoDefault(true);

    auto* buttons = new QVBoxLayout;
    buttons->addSpacing(pageControl->TabBar()->sizeHint().height());
    buttons->addWidget(pOK);
    buttons->addWidget(pCancel);
    buttons->addStretch(1);

    auto* pBottBar = new QLabel(QStringLiteral("."), central);
    pBottBar->setObjectName(QStringLiteral("pBottBar"));
    pBottBar->setAlignment(Qt::AlignCenter);
    QFont font = pBottBar->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    pBottBar->setFont(font);
    pBottBar->setFrameShape(QFrame::Panel);
    pBottBar->setFrameShadow(QFrame::Sunken);
    pBottBar->setMinimumHeight(pBottBar->fontMetrics().height() + 10);

    grid->addWidget(pageControl, 0, 0);
    grid->addLayout(buttons, 0, 1);
    grid->addWidget(pBottBar, 1, 0, 1, 2);
    grid->setRowStretch(0, 1);
    grid->setColumnStretch(0, 1);
    window.setCentralWidget(central);

    pageControl->setVisible(false);
    pOK->setVisible(false);
    pCancel->setVisible(false);
    return {pageControl, pOK, pCancel, pBottBar};
}

}  // namespace wk
