#pragma once

#include "FormModel.h"

class VORNAGlobal;

// Asks the name and the first group of a new contact.
class frmAddUser : public FormModel
{
public:
    explicit frmAddUser(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmAddUser"); }

    void LoadFormObj(const QString& ProposedName);
    void mkcmbUserGroups();

    void cmdOK_Click();
    void cmdCancel_Click();

    Label lblUserName {*this, "lblUserName"};
    TextBox txtAddUserName {*this, "txtAddUserName"};
    Label lblUserGroup {*this, "lblUserGroup"};
    ComboBox cmbUserGroups {*this, "cmbUserGroups"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

    // The answer: both empty after Cancel.
    QString NewUserName;
    QString NewUserGroup;

private:
    VORNAGlobal& m_g;
};
