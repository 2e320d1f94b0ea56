#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The one-line input box that asks for a name. Cancel leaves the cancel mark as the result,
// so that callers tell it from any answer by comparing texts.
class frmKeyInString : public FormModel
{
public:
    explicit frmKeyInString(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmKeyInString"); }

    void Form_Activate() override;
    // The window title, the prompt, the proposed text and the password character (one
    // character, or empty for plain text).
    void LoadFormObj(
        const QString& Caption, const QString& Prompt, const QString& Default, const QString& PasswordChar);
    void cmdOK_Click();
    void cmdCancel_Click();

    // The box's text as the user left it, or the cancel mark.
    QString result;

    Label lbKeyInString {*this, "lbKeyInString"};
    TextBox txtKeyInString {*this, "txtKeyInString"};
    CommandButton cmdOK {*this, "cmdOK"};
    CommandButton cmdCancel {*this, "cmdCancel"};

private:
    VORNAGlobal& m_g;
};
