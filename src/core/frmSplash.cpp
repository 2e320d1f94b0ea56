#include "frmSplash.h"

#include "FormText.h"
#include "VORNAGlobal.h"

namespace {

// Label3 has no row: its English caption stays in every language.
const FormTextPath kFormTexts[]
    = {{"Label2"}, {"Label1"}, {"lblProductName"}, {"lblCompanyProduct"}, {"lblVersion"}};

} // namespace

frmSplash::frmSplash(VORNAGlobal& g)
    : m_g(g)
{
    Label1.Caption = QStringLiteral("適用機型: ");
    Label2.Caption = QStringLiteral("VORNA-RM64MT");
    Label3.Caption = QStringLiteral("Contignration Utility");
    lblProductName.Caption = QStringLiteral("簡訊報警機   設定工具");
    lblCompanyProduct.Caption = QStringLiteral("2G/3G Quillbeacon");
    lblVersion.Caption = QStringLiteral("版本");
}

std::span<const FormTextPath> frmSplash::formTexts() const
{
    return kFormTexts;
}

void frmSplash::Form_Load()
{
    ApplyFormText(m_g.ml, *this);
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
