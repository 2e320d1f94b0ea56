#include "frmEditGroupList.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "ValidUtil.h"

namespace {

const ModuleText T {"EditGroupList"};

const FormTextPath kFormTexts[] = {{""}, {"cmdRename"}, {"txtGroupDsc", "Text"}, {"cmdCancel"}, {"cmdOK"},
    {"lblGroupName"}, {"Label2"}, {"Label1"}};

} // namespace

frmEditGroupList::frmEditGroupList(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    txtGroupDsc.MultiLine = true;
}

void frmEditGroupList::LoadFormObj(bool IsNewGroup)
{
    Load();
    this->IsNewGroup = IsNewGroup;
    cmdRename.Enabled = !IsNewGroup;
    const Recordset& rs = m_g.project.rsUserGroups;
    OldGroupName = FieldText(rs, "GroupName");
    lblGroupName.Caption = OldGroupName;
    txtGroupDsc.Text = FieldText(rs, "GroupDsc");
}

void frmEditGroupList::CheckFormObj(bool& IsValid)
{
    IsValid = true;
}

// The new name lives in the label until OK: Cancel forgets it.
void frmEditGroupList::cmdRename_Click()
{
    const QString name = KeyInString(m_g, T(m_g, "變更連絡人群組名稱", 1, 185),
        T(m_g, "請輸入新連絡人群組名稱:", 2, 185), lblGroupName.Caption, QString());
    if (name == KeyInStringCancelled || name == lblGroupName.Caption)
        return;
    if (IsValidGroupName(m_g, name))
        lblGroupName.Caption = name;
}

void frmEditGroupList::SaveFormObj()
{
    ProjectState& p = m_g.project;
    ProjectView& view = m_g.view();
    const QString Old = FieldText(p.rsUserGroups, "GroupName");
    const QString New = lblGroupName.Caption;

    if (New != Old) {
        // An entry equal to the old name replaces everything before it in the list, so a
        // contact keeps only the renamed group and the groups after it.
        if (p.rsUsers.RecordCount() > 0) {
            Recordset users = p.rsUsers.Clone();
            for (users.MoveFirst(); !users.IsEOF(); users.MoveNext()) {
                QString list;
                for (const QString& entry : FieldText(users, "GroupName").split(CRLF)) {
                    if (entry == Old)
                        list = New + CRLF;
                    else
                        list += entry + CRLF;
                }
                list.chop(2);
                users.setField(QStringLiteral("GroupName"), list);
                users.Update();
            }
            users.Close();
        }
        // A zone on "ALL" keeps it.
        if (p.rsZones.RecordCount() > 0) {
            Recordset zones = p.rsZones.Clone();
            for (zones.MoveFirst(); !zones.IsEOF(); zones.MoveNext()) {
                if (FieldText(zones, "GroupName") != Old)
                    continue;
                zones.setField(QStringLiteral("GroupName"), New);
                zones.Update();
                const QString tag = QStringLiteral("Zones,") + FieldText(zones, "ZoneNo");
                view.setNodeTag(FindNodeByTag(view, tag), tag);
                view.refreshTree();
            }
            zones.Close();
        }
        p.rsUserGroups.setField(QStringLiteral("GroupName"), New);
    }
    p.rsUserGroups.setField(QStringLiteral("GroupDsc"), txtGroupDsc.Text);
    p.rsUserGroups.Update();

    if (OldGroupName != New) {
        const int node = FindNodeByTag(view, QStringLiteral("UserGroups,") + OldGroupName);
        view.setNodeText(node, New);
        view.setNodeTag(node, QStringLiteral("UserGroups,") + New);
        view.refreshTree();
    }
    view.mklvNodeContent();
    p.IsProjectModified = true;
}

void frmEditGroupList::cmdOK_Click()
{
    if (CheckThenSave([this](bool& IsValid) { CheckFormObj(IsValid); }, [this] { SaveFormObj(); }))
        m_g.platform.hideForm(*this);
}

void frmEditGroupList::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}
