#include "frmAbout.h"

#include "FormText.h"
#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[] = {{""}, {"cmdOK"}, {"Label1"}, {"lblTitle"}, {"lblVersion"}};

} // namespace

frmAbout::frmAbout(VORNAGlobal& g)
    : m_g(g)
{
    Caption = QStringLiteral("關於 GSM Pellamatic");
    cmdOK.Caption = QStringLiteral("確定");
    Label1.Caption = QStringLiteral("簡訊報警機 ");
    lblTitle.Caption = QStringLiteral("2G/3G Quillbeacon");
    lblVersion.Caption = QStringLiteral("版本:");
}

std::span<const FormTextPath> frmAbout::formTexts() const
{
    return kFormTexts;
}

void frmAbout::Form_Load()
{
    ApplyFormText(m_g.ml, *this);
    lblVersion.Caption += QStringLiteral("%1.%2.%3")
                              .arg(m_g.program.App.Major)
                              .arg(m_g.program.App.Minor)
                              .arg(m_g.program.App.Revision);
}

// The box is unloaded, not hidden, so that each showing loads it afresh.
void frmAbout::cmdOK_Click()
{
    m_g.platform.unloadForm(*this);
}

void frmAbout::picIcon_MouseDown(int Button, int Shift)
{
    // The service window has no other way in, on purpose: nothing in the program hints at it.
    constexpr int LeftButton = 1;
    constexpr int ShiftAndAlt = 1 | 4;
    if (Button == LeftButton && Shift == ShiftAndAlt && openServiceWindow)
        openServiceWindow();
}
