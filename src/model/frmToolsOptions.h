#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The options dialog: the link's time-out and retries, written to the profile on OK.
class frmToolsOptions : public FormModel
{
public:
    explicit frmToolsOptions(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmToolsOptions"); }

    void LoadFormObj();
    void CheckFormObj(bool& IsValid);
    void SaveFormObj();
    void cmdSetDefault_Click();
    void CmdOK_Click();
    void cmdExit_Click();

    TabStrip sstToolsOptions {*this, "sstToolsOptions"};
    Frame Frame1 {*this, "Frame1"};
    Label Label1 {*this, "Label1"};
    TextBox txtRetry {*this, "txtRetry"};
    Label Label2 {*this, "Label2"};
    TextBox txtTimeOut {*this, "txtTimeOut"};
    Label Label3 {*this, "Label3"};
    CommandButton cmdSetDefault {*this, "cmdSetDefault"};
    CommandButton CmdOK {*this, "CmdOK"};
    CommandButton cmdExit {*this, "cmdExit"};

private:
    VORNAGlobal& m_g;
};
