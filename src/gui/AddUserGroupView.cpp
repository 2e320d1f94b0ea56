#include "AddUserGroupView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "frmAddUserGroup.h"

AddUserGroupView::AddUserGroupView(frmAddUserGroup& model, QWidget* parent)
    : DialogView(model, parent)
{
    QLabel* lblUserName = nameLabel(model.lblUserName);
    lblUserName->setFrameShape(QFrame::StyledPanel);
    auto* cmbUserGroups = new QComboBox(this);
    m_binder.bind(cmbUserGroups, model.cmbUserGroups);
    auto* cmdAddGroup = new QPushButton(this);
    m_binder.bind(cmdAddGroup, model.cmdAddGroup, [&model] { model.cmdAddGroup_Click(); });
    setFirstFocus(cmbUserGroups);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(label(model.lblUserTitle), 0, 0);
    grid->addWidget(lblUserName, 0, 1, 1, 2);
    grid->addWidget(label(model.lblUserGroup, cmbUserGroups), 1, 0, 1, 3);
    grid->addWidget(cmbUserGroups, 2, 0, 1, 2);
    grid->addWidget(cmdAddGroup, 2, 2);
    grid->setRowMinimumHeight(3, 8);
    grid->addLayout(okCancelRow(
                        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
                        [&model] { model.cmdCancel_Click(); }),
        4, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    setMinimumWidth(380);
    refresh();
}
