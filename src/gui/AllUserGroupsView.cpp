#include "AllUserGroupsView.h"

#include <QGridLayout>
#include <QPushButton>
#include <QTreeWidget>

#include "frmAllUserGroups.h"

AllUserGroupsView::AllUserGroupsView(frmAllUserGroups& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* lvUserGroups = new QTreeWidget(this);
    lvUserGroups->setMinimumHeight(160);
    m_binder.bind(
        lvUserGroups, model.lvUserGroups, [&model] { model.lvUserGroups_Click(); },
        [&model] { model.lvUserGroups_DblClick(); });
    auto* cmdAddGroup = new QPushButton(this);
    m_binder.bind(cmdAddGroup, model.cmdAddGroup, [&model] { model.cmdAddGroup_Click(); });
    QBoxLayout* buttons = okCancelRow(
        model.cmbOK, [&model] { model.cmbOK_Click(); }, model.cmbCancel,
        [&model] { model.cmbCancel_Click(); });
    setFirstFocus(lvUserGroups);

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 12);
    grid->addWidget(label(model.lblCaption, lvUserGroups), 0, 0);
    grid->addWidget(lvUserGroups, 1, 0);
    grid->addWidget(cmdAddGroup, 1, 1, Qt::AlignTop);
    grid->addLayout(buttons, 2, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    setMinimumWidth(440);
    refresh();
}
