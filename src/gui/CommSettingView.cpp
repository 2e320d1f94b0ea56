#include "CommSettingView.h"

#include <QGridLayout>
#include <QTabWidget>

#include "frmCommSetting.h"

CommSettingView::CommSettingView(frmCommSetting& model, QWidget* parent)
    : CommSettingRowsView(model, parent)
{
    auto* sstCommunication = new QTabWidget(this);
    auto* link = new QWidget;
    auto* identity = new QWidget;
    sstCommunication->addTab(link, QString());
    sstCommunication->addTab(identity, QString());
    m_binder.bind(sstCommunication, model.sstCommunication);

    auto* first = new QGridLayout(link);
    QComboBox* cmbPortBaud = addCommSettingRows(model, link, first, 0, false);
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
