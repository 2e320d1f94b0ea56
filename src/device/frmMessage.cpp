#include "frmMessage.h"

#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[] = {{""}, {"lblMessage"}};

} // namespace

frmMessage::frmMessage(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
{ }

void frmMessage::LoadFormObj(const QString& tmpCaption, const QString& tmpMessage)
{
    Caption = tmpCaption;
    lblMessage.Caption = tmpMessage;
    lblProgress.Visible = false;
    prgProgress.Visible = false;
    notifyChanged();
}
