#include "AddOtherUserView.h"

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "frmAddOtherUser.h"

AddOtherUserView::AddOtherUserView(frmAddOtherUser& model, QWidget* parent)
    : DialogView(model, parent)
{
    QLabel* lblGroupName = nameLabel(model.lblGroupName);
    auto* cmbAddUser = new QComboBox(this);
    cmbAddUser->setEditable(true);
    m_binder.bind(cmbAddUser, model.cmbAddUser);
    setFirstFocus(cmbAddUser);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->addWidget(lblGroupName);
    layout->addSpacing(8);
    layout->addWidget(label(model.Label1, cmbAddUser));
    layout->addWidget(cmbAddUser);
    layout->addSpacing(12);
    layout->addLayout(okCancelRow(
        model.cmdOK, [&model] { model.cmdOK_Click(); }, model.cmdCancel,
        [&model] { model.cmdCancel_Click(); }));
    setMinimumWidth(360);
    refresh();
}
