#pragma once

#include "FormModel.h"

class VORNAGlobal;

// Adds a contact that is not in the group yet to the group.
class frmAddOtherUser : public FormModel
{
public:
    explicit frmAddOtherUser(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmAddOtherUser"); }

    void LoadFormObj(const QString& GroupName);
    void mkcmbAddUser();
    void SaveFormObj();

    void cmdOK_Click();
    void cmdCancel_Click();

    Label lblGroupName {*this, "lblGroupName"};
    Label Label1 {*this, "Label1"};
    ComboBox cmbAddUser {*this, "cmbAddUser"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

    // The group the dialog was opened for.
    QString CurrentGroupName;

private:
    VORNAGlobal& m_g;
};
