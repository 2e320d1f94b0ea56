#include "frmKeyInString.h"

#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const FormTextPath kFormTexts[]
    = {{""}, {"cmdCancel"}, {"cmdOK"}, {"txtKeyInString", "Text"}, {"lbKeyInString"}};

} // namespace

frmKeyInString::frmKeyInString(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

// The whole text is selected, so that typing replaces the proposal.
void frmKeyInString::Form_Activate()
{
    result.clear();
    txtKeyInString.SelStart = 0;
    txtKeyInString.SelLength = static_cast<int>(txtKeyInString.Text.size());
    SetFocus(txtKeyInString);
}

void frmKeyInString::LoadFormObj(
    const QString& Caption, const QString& Prompt, const QString& Default, const QString& PasswordChar)
{
    Load();
    this->Caption = Caption;
    lbKeyInString.Caption = Prompt;
    txtKeyInString.Text = Default;
    txtKeyInString.PasswordChar = PasswordChar;
}

void frmKeyInString::cmdOK_Click()
{
    result = txtKeyInString.Text;
    m_g.platform.hideForm(*this);
}

void frmKeyInString::cmdCancel_Click()
{
    result = KeyInStringCancelled;
    m_g.platform.hideForm(*this);
}
