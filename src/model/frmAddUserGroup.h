#pragma once

#include "FormModel.h"

class VORNAGlobal;

// Adds one more group to a contact: the combo offers the groups the contact has not.
class frmAddUserGroup : public FormModel
{
public:
    explicit frmAddUserGroup(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmAddUserGroup"); }

    void LoadFormObj(const QString& ContactName);
    void mkcmbUserGroups();
    void SaveFormObj();

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdAddGroup_Click();

    Label lblUserTitle {*this, "lblUserTitle"};
    Label lblUserName {*this, "lblUserName"};
    Label lblUserGroup {*this, "lblUserGroup"};
    ComboBox cmbUserGroups {*this, "cmbUserGroups"};
    CommandButton cmdAddGroup {*this, "cmdAddGroup"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

    // The contact the dialog was opened for.
    QString ContactName;
    // The combo holds only the placeholder row: the contact is in every group.
    bool HasNoChoice = false;

private:
    VORNAGlobal& m_g;
};
