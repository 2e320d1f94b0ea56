#include "frmAddUser.h"

#include "FormText.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const FormTextPath kFormTexts[]
    = {{""}, {"cmdOK"}, {"cmdCancel"}, {"txtAddUserName", "Text"}, {"lblUserGroup"}, {"lblUserName"}};

} // namespace

frmAddUser::frmAddUser(VORNAGlobal& g)
    : m_g(g)
{
    Caption = QStringLiteral("新增連絡人");
    lblUserName.Caption = QStringLiteral("請輸入新連絡人名稱:");
    lblUserGroup.Caption = QStringLiteral("請挑選連絡人群組:");
    cmdOK.Caption = QStringLiteral("確定");
    cmdCancel.Caption = QStringLiteral("取消");
}

std::span<const FormTextPath> frmAddUser::formTexts() const
{
    return kFormTexts;
}

void frmAddUser::Form_Load()
{
    ApplyFormText(m_g.ml, *this);
}

void frmAddUser::LoadFormObj(const QString& ProposedName)
{
    Load();
    NewUserName.clear();
    NewUserGroup.clear();
    txtAddUserName.Text = ProposedName;
    mkcmbUserGroups();
}

// Each group as its name, or as name(description); the first is chosen.
void frmAddUser::mkcmbUserGroups()
{
    Recordset& groups = m_g.project.rsUserGroups;
    if (groups.RecordCount() == 0)
        return;
    cmbUserGroups.Clear();
    Recordset clone = groups.Clone();
    for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
        const QString name = NullToEmpty(clone.Fields(QStringLiteral("GroupName")));
        const QString dsc = NullToEmpty(clone.Fields(QStringLiteral("GroupDsc")));
        cmbUserGroups.AddItem(dsc.isEmpty() ? name : name + u'(' + dsc + u')');
    }
    clone.Close();
    cmbUserGroups.ListIndex = 0;
    cmbUserGroups.Text = cmbUserGroups.List.front();
}

// The name as typed; the group is the combo text up to its first "(". An empty combo has
// no piece to take, which the program does not guard: the template and the rule that the
// last group stays keep a project from that state.
void frmAddUser::cmdOK_Click()
{
    NewUserName = txtAddUserName.Text;
    const QStringList pieces = cmbUserGroups.Text.split(u'(');
    if (cmbUserGroups.Text.isEmpty())
        throw UnhandledError(QStringLiteral("Subscript out of range"));
    NewUserGroup = pieces.front();
    m_g.platform.hideForm(*this);
}

void frmAddUser::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}
