#include "DebugView.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "frmDebug.h"

DebugView::DebugView(frmDebug& model, QWidget* parent)
    : CommSettingRowsView(model, parent)
{
    auto* SSTab1 = new QTabWidget(this);
    auto* settings = new QWidget;
    auto* registers = new QWidget;
    SSTab1->addTab(settings, QString());
    SSTab1->addTab(registers, QString());
    m_binder.bind(SSTab1, model.SSTab1);

    auto* Frame2 = new QGroupBox(settings);
    m_binder.bind(Frame2, model.Frame2);
    auto* frame = new QGridLayout(Frame2);
    frame->addWidget(label(model.Label16), 0, 0);
    frame->addWidget(label(model.lblCommSettings), 0, 1, 1, 2);
    // The service window writes what it is given: the baud rate may be typed in.
    addCommSettingRows(model, Frame2, frame, 1, true);
    auto* cmdWrite = new QPushButton(Frame2);
    m_binder.bind(cmdWrite, model.cmdWrite, [&model] { model.cmdWrite_Click(); });
    frame->addWidget(cmdWrite, 6, 2, Qt::AlignRight);
    auto* first = new QGridLayout(settings);
    first->addWidget(Frame2, 0, 0);
    first->setRowStretch(1, 1);

    auto* lvBasicInfo = new QTreeWidget(registers);
    m_binder.bind(lvBasicInfo, model.lvBasicInfo);
    auto* cmdRead = new QPushButton(registers);
    m_binder.bind(cmdRead, model.cmdRead, [&model] { model.cmdRead_Click(); });
    auto* second = new QGridLayout(registers);
    second->addWidget(lvBasicInfo, 0, 0);
    second->addWidget(cmdRead, 1, 0, Qt::AlignRight);

    auto* cmdExit = new QPushButton(this);
    m_binder.bind(cmdExit, model.cmdExit, [&model] { model.cmdExit_Click(); });
    setCancel([&model] { model.cmdExit_Click(); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdExit);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(SSTab1, 0, 0);
    grid->addLayout(buttons, 1, 0);
    grid->setRowStretch(0, 1);
    resize(640, 460);
    refresh();
}
