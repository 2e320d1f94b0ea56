#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The editor of a contact group: its description, and a rename that the contacts' group
// lists and the zones' targets follow when it is saved.
class frmEditGroupList : public FormModel
{
public:
    explicit frmEditGroupList(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmEditGroupList"); }
    // Fills the form from the current row of rsUserGroups. A group that was named a moment
    // ago (IsNewGroup) cannot be renamed here.
    void LoadFormObj(bool IsNewGroup);
    void CheckFormObj(bool& IsValid);
    void SaveFormObj();
    void cmdRename_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    bool IsNewGroup = false;
    QString OldGroupName;

    Label Label1 {*this, "Label1"};
    Label lblGroupName {*this, "lblGroupName"};
    CommandButton cmdRename {*this, "cmdRename"};
    Label Label2 {*this, "Label2"};
    TextBox txtGroupDsc {*this, "txtGroupDsc"};
    Control Line1 {*this, "Line1"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

private:
    VORNAGlobal& m_g;
};
