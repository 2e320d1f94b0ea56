#include "frmProjBasic.h"

#include "ADOUtil.h"
#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[]
    = {{""}, {"CmdOK"}, {"CmdCancel"}, {"SSTab1", "TabCaption(0)"}, {"SSTab1.txtPorjName", "Text"},
        {"SSTab1.txtProjDsc", "Text"}, {"SSTab1.chkIsUnicode"}, {"SSTab1.Label1"}, {"SSTab1.Label2"},
        {"SSTab1.Label4"}, {"SSTab1.Label3"}, {"SSTab1.lblCreatedDate"}, {"SSTab1.lblModifiedDate"}};

} // namespace

frmProjBasic::frmProjBasic(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    SSTab1.TabCaptions = {QString()};
    txtPorjName.MaxLength = 40;
    txtProjDsc.MultiLine = true;
}

// The Boolean is read by its text form: only a stored True ticks the box.
void frmProjBasic::LoadFormObj()
{
    Load();
    const Recordset& rs = m_g.project.rsBasic;
    lblCreatedDate.Caption = FieldText(rs, QStringLiteral("CreatedDate"));
    lblModifiedDate.Caption = FieldText(rs, QStringLiteral("ModifiedDate"));
    txtPorjName.Text = FieldText(rs, QStringLiteral("CreatedBy"));
    txtProjDsc.Text = FieldText(rs, QStringLiteral("ProjectDsc"));
    chkIsUnicode.Value = FieldText(rs, QStringLiteral("IsUnicode")) == QLatin1String("True")
        ? CheckBox::Checked
        : CheckBox::Unchecked;
}

void frmProjBasic::CheckFormObj(bool& IsValid)
{
    IsValid = true;
}

// An emptied author box keeps the author that the row has. The stored messages are not
// checked again against the Unicode switch: a zone's text is checked when it is edited.
void frmProjBasic::SaveFormObj()
{
    ProjectState& p = m_g.project;
    Recordset& rs = p.rsBasic;
    if (!txtPorjName.Text.isEmpty())
        rs.setField(QStringLiteral("CreatedBy"), txtPorjName.Text);
    rs.setField(QStringLiteral("IsUnicode"), chkIsUnicode.Value == CheckBox::Checked);
    rs.setField(QStringLiteral("ProjectDsc"), txtProjDsc.Text);
    rs.setField(QStringLiteral("ModifiedDate"), m_g.platform.now().date());
    rs.Update();
    p.IsProjectModified = true;
}

void frmProjBasic::CmdOK_Click()
{
    if (CheckThenSave([this](bool& IsValid) { CheckFormObj(IsValid); }, [this] { SaveFormObj(); }))
        m_g.platform.hideForm(*this);
}

void frmProjBasic::CmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}
