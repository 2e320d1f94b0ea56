#include "frmMessage.h"

#include "FormText.h"
#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[] = {{""}, {"lblMessage"}};

} // namespace

std::span<const FormTextPath> frmMessage::formTexts() const
{
    return kFormTexts;
}

void frmMessage::Form_Load()
{
    ApplyFormText(m_g.ml, *this);
}

void frmMessage::LoadFormObj(const QString& tmpCaption, const QString& tmpMessage)
{
    Caption = tmpCaption;
    lblMessage.Caption = tmpMessage;
    notifyChanged();
}
