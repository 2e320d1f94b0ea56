#pragma once

#include "FormModel.h"

class VORNAGlobal;

// Moves every member of a group to another group; the old group stays, empty.
class frmMoveUsers : public FormModel
{
public:
    explicit frmMoveUsers(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmMoveUsers"); }

    void LoadFormObj(const QString& GroupName);
    void mkcmbMoveGroups();
    void SaveFormObj();

    void cmdOK_Click();
    void cmdCancel_Click();

    Label lblGroupName {*this, "lblGroupName"};
    Label Label1 {*this, "Label1"};
    ComboBox cmbMoveGroup {*this, "cmbMoveGroup"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

    // The group the dialog was opened for.
    QString CurrentGroupName;

private:
    VORNAGlobal& m_g;
};
