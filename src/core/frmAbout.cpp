#include "frmAbout.h"

#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[] = {{""}, {"cmdOK"}, {"Label1"}, {"lblTitle"}, {"lblVersion"}};

} // namespace

frmAbout::frmAbout(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

// The version follows the caption that the form table gives.
void frmAbout::Form_Load()
{
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
