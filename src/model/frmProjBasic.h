#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The project summary: the author, the description and the Unicode switch of the project's
// one Basic row, with its two dates shown read-only.
class frmProjBasic : public FormModel
{
public:
    explicit frmProjBasic(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmProjBasic"); }

    void LoadFormObj();
    void CheckFormObj(bool& IsValid);
    void SaveFormObj();
    void CmdOK_Click();
    void CmdCancel_Click();

    TabStrip SSTab1 {*this, "SSTab1"};
    Frame Frame1 {*this, "Frame1"};
    Label Label2 {*this, "Label2"};
    Label lblCreatedDate {*this, "lblCreatedDate"};
    Label Label3 {*this, "Label3"};
    Label lblModifiedDate {*this, "lblModifiedDate"};
    // The author's box, whatever its name says.
    Label Label1 {*this, "Label1"};
    TextBox txtPorjName {*this, "txtPorjName"};
    Label Label4 {*this, "Label4"};
    TextBox txtProjDsc {*this, "txtProjDsc"};
    CheckBox chkIsUnicode {*this, "chkIsUnicode"};
    CommandButton CmdOK {*this, "CmdOK"};
    CommandButton CmdCancel {*this, "CmdCancel"};

private:
    VORNAGlobal& m_g;
};
