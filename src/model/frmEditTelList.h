#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The contact editor, on the current row of rsUsers: name, number, description, the
// suspended flag and the contact's groups. Nothing reaches the store before OK.
class frmEditTelList : public FormModel
{
public:
    explicit frmEditTelList(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmEditTelList"); }

    void LoadFormObj();
    void mklvGroupName();
    void CheckFormObj(bool& IsValid);
    void SaveFormObj();

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdTelUserRename_Click();

    Label Label2 {*this, "Label2"};
    Label lblTelUser {*this, "lblTelUser"};
    CommandButton cmdTelUserRename {*this, "cmdTelUserRename"};
    Label Label1 {*this, "Label1"};
    TextBox txtTelNo {*this, "txtTelNo"};
    CheckBox chkIsDisable {*this, "chkIsDisable"};
    Label Label3 {*this, "Label3"};
    TextBox txtTelDsc {*this, "txtTelDsc"};
    Label Label5 {*this, "Label5"};
    ListView lvGroupName {*this, "lvGroupName"};
    CommandButton cmdAdd {*this, "cmdAdd"};
    CommandButton cmdDelete {*this, "cmdDelete"};
    Control Line1 {*this, "Line1"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

    // Kept from LoadFormObj for SaveFormObj.
    QString OldUserName;
    QString OldGroupList;
    // Rows taken from and put into lvGroupName since the load, and the target count they move.
    qint16 RemovedCount = 0;
    qint16 AddedCount = 0;
    qint16 WorkTelNoCount = 0;

private:
    VORNAGlobal& m_g;
};
