#include "ComPortView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QTreeWidget>

#include "frmComPort.h"

ComPortView::ComPortView(frmComPort& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* Frame1 = new QGroupBox(this);
    m_binder.bind(Frame1, model.Frame1);
    // A port may be typed in: a number past the list's sixteen reaches the adapters beyond.
    auto* cmbCommPort = new QComboBox(Frame1);
    cmbCommPort->setEditable(true);
    cmbCommPort->setInsertPolicy(QComboBox::NoInsert);
    m_binder.bind(
        cmbCommPort, model.cmbCommPort, [&model] { model.cmbCommPort_Click(); },
        [&model] { model.cmbCommPort_Click(); });
    auto* lvPorts = new QTreeWidget(Frame1);
    lvPorts->setMinimumHeight(220);
    m_binder.bind(lvPorts, model.lvPorts, [&model] { model.lvPorts_Click(); });

    auto* frame = new QGridLayout(Frame1);
    frame->addWidget(label(model.Label8, cmbCommPort), 0, 0);
    frame->addWidget(cmbCommPort, 0, 1);
    frame->addWidget(lvPorts, 1, 0, 1, 3);
    frame->setColumnStretch(2, 1);
    frame->setRowStretch(1, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(Frame1, 0, 0);
    grid->addLayout(okCancelRow(
                        model.CmdOK, [&model] { model.CmdOK_Click(); }, model.cmdExit,
                        [&model] { model.cmdExit_Click(); }),
        1, 0);
    grid->setRowStretch(0, 1);
    setFirstFocus(cmbCommPort);
    resize(760, 420);
    refresh();
}
