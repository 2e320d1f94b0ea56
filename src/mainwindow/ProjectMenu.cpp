#include "ProjectTree.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmMain.h"

namespace {

const ModuleText T {"VORNAMain"};

void setEntry(Menu& entry, const QString& caption, bool enabled)
{
    entry.Caption = caption;
    entry.Enabled = enabled;
}

} // namespace

// The Project menu works on the selected node: it sets its entries for the node's kind and
// makes the node's record current, so that an edit command finds it without looking again.
// Editing and deleting a contact is never offered here, only in the context menu.
void frmMain::mnuProj_Click()
{
    Menu& addGroup = menu(QStringLiteral("mnuProjAddGroupList"));
    Menu& addTel = menu(QStringLiteral("mnuProjAddTelList"));
    Menu& editGroup = menu(QStringLiteral("mnuProjEditGroupList"));
    Menu& editTel = menu(QStringLiteral("mnuProjEditTelList"));
    Menu& editZone = menu(QStringLiteral("mnuProjEditZoneList"));
    Menu& deleteGroup = menu(QStringLiteral("mnuProjDeleteGroupList"));
    Menu& deleteTel = menu(QStringLiteral("mnuProjDeleteTelList"));

    if (m_g.project.ProjectName.isEmpty()) {
        for (Menu* e : {&addGroup, &addTel, &editGroup, &editTel, &editZone, &deleteGroup, &deleteTel})
            e->Enabled = false;
        return;
    }
    addGroup.Enabled = true;
    addTel.Enabled = true;
    for (Menu* e : {&editGroup, &editTel, &editZone, &deleteGroup, &deleteTel})
        e->Enabled = false;
    if (tvProjectContent.SelectedItem < 0)
        return;

    NodeTagItems Items;
    qint16 count = 0;
    ParseNodeTag(tvProjectContent.Nodes[tvProjectContent.SelectedItem].Tag, Items, count);
    const auto plainGroupCaptions = [&] {
        setEntry(editGroup, T(m_g, "編輯連絡人群組", 1, 872), false);
        setEntry(deleteGroup, T(m_g, "刪除連絡人群組", 1, 874), false);
        setEntry(addGroup, T(m_g, "新增連絡人群組", 1, 876), true);
    };

    if (count == 1) {
        if (Items(1) == QLatin1String("Zones") || Items(1) == QLatin1String("ProjName"))
            return;
        if (Items(1) == QLatin1String("Users")) {
            plainGroupCaptions();
            setEntry(editTel, T(m_g, "編輯連絡人", 1, 878), false);
            setEntry(deleteTel, T(m_g, "刪除連絡人", 1, 880), false);
            setEntry(addTel, T(m_g, "新增連絡人", 1, 882), true);
            setEntry(editZone, T(m_g, "編輯警報點", 1, 884), false);
        }
    } else {
        if (Items(1) == QLatin1String("UserGroups") && count >= 2) {
            setEntry(editGroup, T(m_g, "編輯連絡人群組[", 1, 1030) + Items(2) + T(m_g, "]", 2, 1030), true);
            setEntry(deleteGroup, T(m_g, "刪除連絡人群組[", 1, 1032) + Items(2) + T(m_g, "]", 2, 1032), true);
            setEntry(addGroup, T(m_g, "新增連絡人群組", 1, 876), true);
        } else {
            plainGroupCaptions();
        }
        if (Items(1) == QLatin1String("Zones") && count >= 2)
            setEntry(editZone, T(m_g, "編輯警報點[", 1, 919) + Items(2) + QStringLiteral("]"), true);
        else
            setEntry(editZone, T(m_g, "編輯警報點", 1, 922), false);
    }
    bool found = false;
    LocateCurRecord(Items, count, found);
}

void frmMain::mnuProjAddGroupList_Click()
{
    AddUserGroup(m_g);
}

void frmMain::mnuProjAddTelList_Click()
{
    AddUser(m_g);
}

void frmMain::mnuProjEditGroupList_Click()
{
    ShowDialog<frmEditGroupList>(m_g, false);
}

void frmMain::mnuProjEditTelList_Click()
{
    ShowDialog<frmEditTelList>(m_g);
}

void frmMain::mnuProjEditZoneList_Click()
{
    ShowDialog<frmEditZoneList>(m_g);
}

void frmMain::mnuProjDeleteGroupList_Click()
{
    DeleteUserGroup(m_g);
}

void frmMain::mnuProjDeleteTelList_Click()
{
    DeleteUser(m_g);
}
