#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The choice of a device model among the six that the dialler comes as. Its texts are fixed:
// no form-text row reaches it.
class frmSelectModel : public FormModel
{
public:
    explicit frmSelectModel(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmSelectModel"); }

    // The model family of the chosen row after OK; empty after Cancel.
    QString ModelCode;

    void LoadFormObj();
    void CmdOK_Click();
    void cmdExit_Click();

    Frame Frame1 {*this, "Frame1"};
    Label Label1 {*this, "Label1"};
    ComboBox cmbModel {*this, "cmbModel"};
    CommandButton CmdOK {*this, "CmdOK"};
    CommandButton cmdExit {*this, "cmdExit"};

private:
    VORNAGlobal& m_g;
};

// The model family of a row of the model list: "RM64T", "RM64MT", or "UNKNOWN" for any other text.
QString ModelCodeOf(const QString& row);
