#include "frmAbout.h"

#include "VORNAGlobal.h"

void frmAbout::Form_Load()
{
    ApplyFormText();
    lblVersion += QStringLiteral("%1.%2.%3")
                      .arg(m_g.program.App.Major)
                      .arg(m_g.program.App.Minor)
                      .arg(m_g.program.App.Revision);
}

void frmAbout::ApplyFormText()
{
    const MLUtil& ml = m_g.ml;
    const QString form = formName();
    const QString caption = QStringLiteral("Caption");
    Caption = ml.GetFormText(form, QString(), caption);
    cmdOK = ml.GetFormText(form, QStringLiteral("cmdOK"), caption);
    Label1 = ml.GetFormText(form, QStringLiteral("Label1"), caption);
    lblTitle = ml.GetFormText(form, QStringLiteral("lblTitle"), caption);
    lblVersion = ml.GetFormText(form, QStringLiteral("lblVersion"), caption);
}

void frmAbout::cmdOK_Click()
{
    m_g.platform.hideForm(*this);
}

void frmAbout::picIcon_MouseDown(int Button, int Shift)
{
    // The service window has no other way in, on purpose: nothing in the program hints at it.
    constexpr int LeftButton = 1;
    constexpr int ShiftAndAlt = 1 | 4;
    if (Button == LeftButton && Shift == ShiftAndAlt && openServiceWindow)
        openServiceWindow();
}
