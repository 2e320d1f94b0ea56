#include "frmSplash.h"

#include "VORNAGlobal.h"

void frmSplash::Form_Load()
{
    ApplyFormText();
    m_clicked = false;
    lblVersion = QStringLiteral("Version %1.%2.%3")
                     .arg(m_g.program.App.Major)
                     .arg(m_g.program.App.Minor)
                     .arg(m_g.program.App.Revision);
}

void frmSplash::ApplyFormText()
{
    const MLUtil& ml = m_g.ml;
    const QString form = formName();
    const QString caption = QStringLiteral("Caption");
    Label2 = ml.GetFormText(form, QStringLiteral("Label2"), caption);
    Label1 = ml.GetFormText(form, QStringLiteral("Label1"), caption);
    lblProductName = ml.GetFormText(form, QStringLiteral("lblProductName"), caption);
    lblCompanyProduct = ml.GetFormText(form, QStringLiteral("lblCompanyProduct"), caption);
    lblVersion = ml.GetFormText(form, QStringLiteral("lblVersion"), caption);
}

void frmSplash::Control_Click()
{
    m_clicked = true;
    m_g.platform.hideForm(*this);
}
