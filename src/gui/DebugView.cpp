#include "DebugView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>

#include "frmDebug.h"

DebugView::DebugView(frmDebug& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* SSTab1 = new QTabWidget(this);
    auto* settings = new QWidget;
    auto* registers = new QWidget;
    SSTab1->addTab(settings, QString());
    SSTab1->addTab(registers, QString());
    m_binder.bind(SSTab1, model.SSTab1);

    auto* Frame2 = new QGroupBox(settings);
    m_binder.bind(Frame2, model.Frame2);
    // The service window writes what it is given: the baud rate may be typed in.
    auto* cmbPortBaud = new QComboBox(Frame2);
    cmbPortBaud->setEditable(true);
    cmbPortBaud->setInsertPolicy(QComboBox::NoInsert);
    m_binder.bind(cmbPortBaud, model.cmbPortBaud);
    auto* cmbParityBit = new QComboBox(Frame2);
    m_binder.bind(cmbParityBit, model.cmbParityBit);
    auto* txtSlaveID = new QLineEdit(Frame2);
    txtSlaveID->setMaximumWidth(80);
    m_binder.bind(
        txtSlaveID, model.txtSlaveID, [&model] { model.txtSlaveID_Change(); },
        [&model](int& KeyAscii) { model.txtSlaveID_KeyPress(KeyAscii); });
    auto* cmdWrite = new QPushButton(Frame2);
    m_binder.bind(cmdWrite, model.cmdWrite, [&model] { model.cmdWrite_Click(); });

    auto* frame = new QGridLayout(Frame2);
    frame->addWidget(label(model.Label16), 0, 0);
    frame->addWidget(label(model.lblCommSettings), 0, 1, 1, 2);
    frame->addWidget(label(model.Label1, cmbPortBaud), 1, 0);
    frame->addWidget(cmbPortBaud, 1, 1, 1, 2);
    frame->addWidget(label(model.Label2), 2, 0);
    frame->addWidget(label(model.lblDataBit), 2, 1, 1, 2);
    frame->addWidget(label(model.Label4), 3, 0);
    frame->addWidget(label(model.lblStopBit), 3, 1, 1, 2);
    frame->addWidget(label(model.Label3, cmbParityBit), 4, 0);
    frame->addWidget(cmbParityBit, 4, 1, 1, 2);
    frame->addWidget(label(model.Label6, txtSlaveID), 5, 0);
    frame->addWidget(txtSlaveID, 5, 1);
    frame->addWidget(label(model.Label5), 5, 2);
    frame->addWidget(cmdWrite, 6, 2, Qt::AlignRight);
    frame->setColumnStretch(2, 1);
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
