#include "AddUserView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QVBoxLayout>

#include "frmAddUser.h"

AddUserView::AddUserView(frmAddUser& model, QWidget* parent)
    : DialogView(model, parent)
{
    auto* txtAddUserName = new QLineEdit(this);
    m_binder.bind(txtAddUserName, model.txtAddUserName);
    auto* cmbUserGroups = new QComboBox(this);
    m_binder.bind(cmbUserGroups, model.cmbUserGroups);
    setFirstFocus(txtAddUserName);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(label(model.lblUserName, txtAddUserName));
    layout->addWidget(txtAddUserName);
    layout->addSpacing(8);
    layout->addWidget(label(model.lblUserGroup, cmbUserGroups));
    layout->addWidget(cmbUserGroups);
    layout->addSpacing(12);
    layout->addLayout(okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); }));
    setMinimumWidth(360);
    refresh();
}
