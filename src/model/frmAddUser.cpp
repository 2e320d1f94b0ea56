#include "frmAddUser.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const FormTextPath kFormTexts[]
    = {{""}, {"cmdOK"}, {"cmdCancel"}, {"txtAddUserName", "Text"}, {"lblUserGroup"}, {"lblUserName"}};

} // namespace

frmAddUser::frmAddUser(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

void frmAddUser::LoadFormObj(const QString& ProposedName)
{
    Load();
    NewUserName.clear();
    NewUserGroup.clear();
    txtAddUserName.Text = ProposedName;
    mkcmbUserGroups();
}

// Each group as its combo row; the first is chosen.
void frmAddUser::mkcmbUserGroups()
{
    Recordset& groups = m_g.project.rsUserGroups;
    if (groups.RecordCount() == 0)
        return;
    cmbUserGroups.Clear();
    Recordset clone = groups.Clone();
    for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext())
        cmbUserGroups.AddItem(ComboRowText(FieldText(clone, "GroupName"), FieldText(clone, "GroupDsc")));
    clone.Close();
    cmbUserGroups.SelectRow(0);
}

// The name as typed, and the group named by the combo row. An empty combo is not guarded:
// the template and the rule that the last group stays keep a project from that state.
void frmAddUser::cmdOK_Click()
{
    NewUserName = txtAddUserName.Text;
    NewUserGroup = ComboRowName(cmbUserGroups.Text);
    m_g.platform.hideForm(*this);
}

void frmAddUser::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}
