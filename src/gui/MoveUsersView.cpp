#include "MoveUsersView.h"

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "frmMoveUsers.h"

MoveUsersView::MoveUsersView(frmMoveUsers& model, QWidget* parent)
    : DialogView(model, parent)
{
    QLabel* lblGroupName = nameLabel(model.lblGroupName);
    auto* cmbMoveGroup = new QComboBox(this);
    cmbMoveGroup->setEditable(true);
    m_binder.bind(cmbMoveGroup, model.cmbMoveGroup);
    setFirstFocus(cmbMoveGroup);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(lblGroupName);
    layout->addSpacing(8);
    layout->addWidget(label(model.Label1, cmbMoveGroup));
    layout->addWidget(cmbMoveGroup);
    layout->addSpacing(12);
    layout->addLayout(okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); }));
    setMinimumWidth(360);
    refresh();
}
