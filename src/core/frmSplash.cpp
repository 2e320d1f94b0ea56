#include "frmSplash.h"

#include "VORNAGlobal.h"

namespace {

// Label3 has no row: its English caption stays in every language.
const FormTextPath kFormTexts[]
    = {{"Label2"}, {"Label1"}, {"lblProductName"}, {"lblCompanyProduct"}, {"lblVersion"}};

} // namespace

frmSplash::frmSplash(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    Label3.Caption = QStringLiteral("Contignration Utility");
}

void frmSplash::Form_Load()
{
    m_clicked = false;
    lblVersion.Caption = QStringLiteral("Version %1.%2.%3")
                             .arg(m_g.program.App.Major)
                             .arg(m_g.program.App.Minor)
                             .arg(m_g.program.App.Revision);
}

void frmSplash::Control_Click()
{
    m_clicked = true;
    m_g.platform.hideForm(*this);
}
