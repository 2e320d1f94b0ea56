#include "frmAddUserGroup.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"

namespace {

const ModuleText T {"AddUserGroup"};

const FormTextPath kFormTexts[]
    = {{""}, {"cmdAddGroup"}, {"cmdCancel"}, {"cmdOK"}, {"lblUserName"}, {"lblUserTitle"}, {"lblUserGroup"}};

} // namespace

frmAddUserGroup::frmAddUserGroup(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

void frmAddUserGroup::LoadFormObj(const QString& Name)
{
    Load();
    ContactName = Name;
    HasNoChoice = false;
    lblUserName.Caption = Name;
    mkcmbUserGroups();
}

// The groups the contact has not, read from the current row of rsUsers: the opener leaves it
// wherever the last locate did, which is the contact only when opened on its tree node.
void frmAddUserGroup::mkcmbUserGroups()
{
    ProjectState& p = m_g.project;
    if (p.rsUserGroups.RecordCount() == 0)
        return;
    cmbUserGroups.Clear();
    const QString had = FieldText(p.rsUsers, "GroupName").toUpper();
    const QStringList entries = had.split(CRLF);

    Recordset clone = p.rsUserGroups.Clone();
    for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
        const QString name = FieldText(clone, "GroupName");
        if (!entries.contains(name.toUpper()))
            cmbUserGroups.AddItem(ComboRowText(name, FieldText(clone, "GroupDsc")));
    }
    clone.Close();

    HasNoChoice = !cmbUserGroups.OfferRowsOr(T(m_g, "無", 1, 134));
}

// The new group joins the offer but is not chosen: the user picks it.
void frmAddUserGroup::cmdAddGroup_Click()
{
    Recordset& groups = m_g.project.rsUserGroups;
    const int before = groups.RecordCount();
    AddUserGroup(m_g);
    const int after = groups.RecordCount();
    groups.MoveLast();
    if (after <= before)
        return;
    cmbUserGroups.Enabled = true;
    if (HasNoChoice) {
        cmbUserGroups.Clear();
        HasNoChoice = false;
    }
    cmbUserGroups.AddItem(ComboRowText(FieldText(groups, "GroupName"), FieldText(groups, "GroupDsc")));
    cmbUserGroups.SelectRow(0);
}

void frmAddUserGroup::cmdOK_Click()
{
    if (cmbUserGroups.Text != T(m_g, "無", 1, 199))
        SaveFormObj();
    m_g.platform.hideForm(*this);
}

void frmAddUserGroup::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}

// Appends the group after a CR LF even to an empty list, which then starts with an empty
// entry; the readers of the list skip or count it as they do.
void frmAddUserGroup::SaveFormObj()
{
    ProjectState& p = m_g.project;
    const QString group = ComboRowName(cmbUserGroups.Text);
    LocateRecord(m_g.view(), QStringLiteral("Users"), ContactName);
    if (FieldText(p.rsUsers, "UserName").toUpper() == ContactName.toUpper()) {
        p.rsUsers.setField(QStringLiteral("GroupName"), FieldText(p.rsUsers, "GroupName") + CRLF + group);
        p.rsUsers.Update();
    }
    m_g.view().mklvNodeContent();
    p.IsProjectModified = true;
}
