#include "frmMessage.h"

#include "VORNAGlobal.h"

void frmMessage::Form_Load()
{
    IsLoaded = true;
    ApplyFormText();
}

void frmMessage::ApplyFormText()
{
    Caption = m_g.ml.GetFormText(formName(), QString(), QStringLiteral("Caption"));
    lblMessage = m_g.ml.GetFormText(formName(), QStringLiteral("lblMessage"), QStringLiteral("Caption"));
    notifyChanged();
}

void frmMessage::LoadFormObj(const QString& tmpCaption, const QString& tmpMessage)
{
    Caption = tmpCaption;
    lblMessage = tmpMessage;
    notifyChanged();
}
