#include "frmAllUserGroups.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "frmEditTelList.h"

namespace {

const ModuleText T {"frmAllUserGroups"};

// The box of a group that the contact has already, on a click and on a double click.
const std::array<TextKey, 3> DuplicateOnClick {
    T.key("群組不可重覆挑選!", 1, 161), T.key("群組早已加入至 ", 2, 161), T.key("群組不可重覆挑選!", 3, 161)};
const std::array<TextKey, 3> DuplicateOnDoubleClick {
    T.key("群組不可重覆挑選!", 1, 173), T.key("群組早已加入至 ", 2, 173), T.key("群組不可重覆挑選!", 3, 173)};

const FormTextPath kFormTexts[] = {{""}, {"cmdAddGroup"}, {"cmbCancel"}, {"cmbOK"}, {"lblCaption"}};

ListItem GroupRow(const Recordset& rs)
{
    return {FieldText(rs, "GroupName"), {FieldText(rs, "GroupDsc")}};
}

} // namespace

frmAllUserGroups::frmAllUserGroups(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{ }

const frmEditTelList& frmAllUserGroups::contact() const
{
    return m_g.form<frmEditTelList>();
}

void frmAllUserGroups::LoadFormObj()
{
    Load();
    SelectedGroupName.clear();
    SelectedGroupDsc.clear();
    mklvUserGroupsContent();
}

// Every group, on the shared recordset itself (it ends at end of file); the contact's own
// are grey. The first row is chosen unless no group differs from the contact's list.
void frmAllUserGroups::mklvUserGroupsContent()
{
    lvUserGroups.ColumnHeaders = GroupListColumns(m_g);
    lvUserGroups.ListItems.clear();
    lvUserGroups.SelectedItem = -1;
    Recordset& rs = m_g.project.rsUserGroups;
    if (rs.RecordCount() > 0)
        for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
            lvUserGroups.ListItems.push_back(GroupRow(rs));

    bool anyDifferent = false;
    for (ListItem& row : lvUserGroups.ListItems)
        for (const ListItem& had : contact().lvGroupName.ListItems) {
            if (row.Text.toUpper() == had.Text.toUpper())
                row.ForeColor = SystemColor::GrayText;
            else
                anyDifferent = true;
        }
    lvUserGroups.SelectedItem = anyDifferent ? 0 : -1;
}

void frmAllUserGroups::CheckFromObj(bool&) { }

void frmAllUserGroups::SaveFormObj() { }

// A grey row is taken too: the contact editor drops a group its contact already has.
void frmAllUserGroups::cmbOK_Click()
{
    bool IsValid = true;
    CheckFromObj(IsValid);
    const int row = lvUserGroups.SelectedItem;
    if (row >= 0 && row < static_cast<int>(lvUserGroups.ListItems.size())
        && !lvUserGroups.ListItems[row].Text.isEmpty()) {
        SelectedGroupName = lvUserGroups.ListItems[row].Text;
        SelectedGroupDsc = lvUserGroups.ListItems[row].SubItems.at(0);
    }
    SaveFormObj();
    m_g.platform.hideForm(*this);
}

void frmAllUserGroups::cmbCancel_Click()
{
    m_g.platform.hideForm(*this);
}

void frmAllUserGroups::cmdAddGroup_Click()
{
    if (!AddUserGroup(m_g))
        return;
    Recordset& rs = m_g.project.rsUserGroups;
    rs.MoveLast();
    lvUserGroups.ListItems.push_back(GroupRow(rs));
    lvUserGroups.SelectedItem = static_cast<int>(lvUserGroups.ListItems.size()) - 1;
}

void frmAllUserGroups::lvUserGroups_Click()
{
    const int row = lvUserGroups.SelectedItem;
    if (row >= 0 && row < static_cast<int>(lvUserGroups.ListItems.size())
        && contactHas(lvUserGroups.ListItems[row].Text))
        showDuplicateBox(DuplicateOnClick);
}

// Walks the contact's list and answers for each row that differs: a group the contact has
// further down the list is picked all the same, with the box over the closing dialog.
void frmAllUserGroups::lvUserGroups_DblClick()
{
    const int row = lvUserGroups.SelectedItem;
    if (row < 0 || row >= static_cast<int>(lvUserGroups.ListItems.size()))
        return;
    const ListItem picked = lvUserGroups.ListItems[row];
    for (const ListItem& had : contact().lvGroupName.ListItems) {
        if (picked.Text.toUpper() == had.Text.toUpper()) {
            showDuplicateBox(DuplicateOnDoubleClick);
            return;
        }
        SelectedGroupName = picked.Text;
        SelectedGroupDsc = picked.SubItems.at(0);
        m_g.platform.hideForm(*this);
    }
}

bool frmAllUserGroups::contactHas(const QString& GroupName) const
{
    for (const ListItem& had : contact().lvGroupName.ListItems)
        if (had.Text.toUpper() == GroupName.toUpper())
            return true;
    return false;
}

void frmAllUserGroups::showDuplicateBox(const std::array<TextKey, 3>& keys)
{
    m_g.platform.msgBox(m_g.GetText(keys[0]) + CRLF + m_g.GetText(keys[1]) + contact().lblTelUser.Caption,
        MsgBox::Exclamation, m_g.GetText(keys[2]));
}
