#include "CommSettingView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QTabWidget>

#include "frmCommSetting.h"

CommSettingView::CommSettingView(frmCommSetting& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* sstCommunication = new QTabWidget(this);
    auto* link = new QWidget;
    auto* identity = new QWidget;
    sstCommunication->addTab(link, QString());
    sstCommunication->addTab(identity, QString());
    m_binder.bind(sstCommunication, model.sstCommunication);

    auto* cmbPortBaud = new QComboBox(link);
    m_binder.bind(cmbPortBaud, model.cmbPortBaud);
    auto* cmbParityBit = new QComboBox(link);
    m_binder.bind(cmbParityBit, model.cmbParityBit);
    auto* txtSlaveID = new QLineEdit(link);
    txtSlaveID->setMaximumWidth(80);
    m_binder.bind(
        txtSlaveID, model.txtSlaveID, [&model] { model.txtSlaveID_Change(); },
        [&model](int& KeyAscii) { model.txtSlaveID_KeyPress(KeyAscii); });

    auto* first = new QGridLayout(link);
    first->addWidget(label(model.Label1, cmbPortBaud), 0, 0);
    first->addWidget(cmbPortBaud, 0, 1, 1, 2);
    first->addWidget(label(model.Label2), 1, 0);
    first->addWidget(label(model.lblDataBit), 1, 1, 1, 2);
    first->addWidget(label(model.Label4), 2, 0);
    first->addWidget(label(model.lblStopBit), 2, 1, 1, 2);
    first->addWidget(label(model.Label3, cmbParityBit), 3, 0);
    first->addWidget(cmbParityBit, 3, 1, 1, 2);
    first->addWidget(label(model.Label6, txtSlaveID), 4, 0);
    first->addWidget(txtSlaveID, 4, 1);
    first->addWidget(label(model.Label5), 4, 2);
    first->setColumnStretch(2, 1);
    first->setRowStretch(5, 1);

    auto* second = new QGridLayout(identity);
    second->addWidget(label(model.Label7), 0, 0);
    second->addWidget(nameLabel(model.lblModelName), 0, 1);
    second->addWidget(label(model.Label9), 1, 0);
    second->addWidget(nameLabel(model.lblSN), 1, 1);
    second->setColumnStretch(1, 1);
    second->setRowStretch(2, 1);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(sstCommunication, 0, 0);
    grid->addLayout(okCancelRow(
                        model.CmdOK, [&model] { model.CmdOK_Click(); }, model.cmdExit,
                        [&model] { model.cmdExit_Click(); }),
        1, 0);
    setFirstFocus(cmbPortBaud);
    setMinimumWidth(400);
    refresh();
}
