#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The editor of an alarm zone: its name, description, target group, the two messages and
// whether it is suspended.
class frmEditZoneList : public FormModel
{
public:
    explicit frmEditZoneList(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmEditZoneList"); }

    // What a message takes of its room in the device: UTF-16 units of 70 in a Unicode
    // project, else bytes of 160 in the 8-bit code page; CR LF counts two either way.
    struct MessageSize
    {
        int used = 0;
        int limit = 0;
        bool fits() const { return used <= limit; }
    };
    MessageSize MessageSizeOf(const QString& message) const;

    // Fills the form from the current row of rsZones.
    void LoadFormObj();
    void mkcmbGroupName();
    void CheckFormObj(bool& IsValid);
    void SaveFormObj();
    void cmdOK_Click();
    void cmdCancel_Click();

    QString OldGroupText;
    QString OldZoneName;

    Label Label3 {*this, "Label3"};
    Label lblZoneNo {*this, "lblZoneNo"};
    Label Label2 {*this, "Label2"};
    TextBox txtZoneName {*this, "txtZoneName"};
    Label Label4 {*this, "Label4"};
    TextBox txtZoneDsc {*this, "txtZoneDsc"};
    Label Label1 {*this, "Label1"};
    // The groups, then the every-group row; "NONE" alone when there is no group. Its text is
    // what OK stores: "ALL" for the every-group row, nothing for "NONE".
    ComboBox cmbGroupName {*this, "cmbGroupName"};
    Control Line1 {*this, "Line1"};
    Label Label5 {*this, "Label5"};
    TextBox txtAlarmSMS {*this, "txtAlarmSMS"};
    Label Label6 {*this, "Label6"};
    TextBox txtResetSMS {*this, "txtResetSMS"};
    Control Line2 {*this, "Line2"};
    CheckBox chkIsDisable {*this, "chkIsDisable"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

private:
    bool IsUnicode() const;

    VORNAGlobal& m_g;
};
