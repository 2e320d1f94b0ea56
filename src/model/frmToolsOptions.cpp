#include "frmToolsOptions.h"

#include "ProfileSettings.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[] = {{""}, {"Label1"}, {"Label2"}, {"Label3"}, {"Frame1"}, {"cmdSetDefault"},
    {"CmdOK"}, {"cmdExit"}, {"sstToolsOptions"}};

} // namespace

frmToolsOptions::frmToolsOptions(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    sstToolsOptions.TabCaptions = {QString()};
    txtRetry.Text = QStringLiteral("3");
    txtTimeOut.Text = QStringLiteral("1");
}

void frmToolsOptions::LoadFormObj()
{
    Load();
    txtRetry.Text = QString::number(m_g.link.Retry);
    txtTimeOut.Text = QString::number(m_g.link.Timeout);
}

void frmToolsOptions::CheckFormObj(bool& IsValid)
{
    IsValid = true;
}

// Each box's leading number, rounded to 16 bits (a tie to the even one): text without a
// number gives 0, and a number past the range is an unhandled overflow.
void frmToolsOptions::SaveFormObj()
{
    m_g.link.Retry = ValToInt16(txtRetry.Text);
    m_g.link.Timeout = ValToInt16(txtTimeOut.Text);
}

// Only the boxes change: the settings follow on OK.
void frmToolsOptions::cmdSetDefault_Click()
{
    txtRetry.Text = QStringLiteral("3");
    txtTimeOut.Text = QStringLiteral("2");
}

// The link reads the new values from the shared state at its next exchange.
void frmToolsOptions::CmdOK_Click()
{
    SaveFormObj();
    WriteSettings(m_g, QString());
    m_g.platform.hideForm(*this);
}

void frmToolsOptions::cmdExit_Click()
{
    m_g.platform.hideForm(*this);
}
