#include "AddUserView.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "frmAddUser.h"

AddUserView::AddUserView(frmAddUser& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* lblUserName = new QLabel(this);
    m_binder.bind(lblUserName, model.lblUserName);
    auto* txtAddUserName = new QLineEdit(this);
    m_binder.bind(txtAddUserName, model.txtAddUserName);
    lblUserName->setBuddy(txtAddUserName);
    auto* lblUserGroup = new QLabel(this);
    m_binder.bind(lblUserGroup, model.lblUserGroup);
    auto* cmbUserGroups = new QComboBox(this);
    m_binder.bind(cmbUserGroups, model.cmbUserGroups);
    lblUserGroup->setBuddy(cmbUserGroups);
    setFirstFocus(txtAddUserName);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(lblUserName);
    layout->addWidget(txtAddUserName);
    layout->addSpacing(8);
    layout->addWidget(lblUserGroup);
    layout->addWidget(cmbUserGroups);
    layout->addSpacing(12);
    layout->addLayout(okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); }));
    setMinimumWidth(360);
    refresh();
}
