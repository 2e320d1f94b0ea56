#include "ProjectTree.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "frmMain.h"

namespace {

QString mainText(const VORNAGlobal& g, const char* text, int seq, int id)
{
    return g.GetText(QString::fromUtf8(text), static_cast<qint16>(seq), static_cast<qint16>(id),
        QStringLiteral("VORNAMain"));
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
        editGroup.Caption = mainText(m_g, "編輯連絡人群組", 1, 872);
        editGroup.Enabled = false;
        deleteGroup.Caption = mainText(m_g, "刪除連絡人群組", 1, 874);
        deleteGroup.Enabled = false;
        addGroup.Caption = mainText(m_g, "新增連絡人群組", 1, 876);
        addGroup.Enabled = true;
    };

    if (count == 1) {
        if (Items(1) == QLatin1String("Zones") || Items(1) == QLatin1String("ProjName"))
            return;
        if (Items(1) == QLatin1String("Users")) {
            plainGroupCaptions();
            editTel.Caption = mainText(m_g, "編輯連絡人", 1, 878);
            editTel.Enabled = false;
            deleteTel.Caption = mainText(m_g, "刪除連絡人", 1, 880);
            deleteTel.Enabled = false;
            addTel.Caption = mainText(m_g, "新增連絡人", 1, 882);
            addTel.Enabled = true;
            editZone.Caption = mainText(m_g, "編輯警報點", 1, 884);
            editZone.Enabled = false;
        }
    } else {
        if (Items(1) == QLatin1String("UserGroups") && count >= 2) {
            editGroup.Caption
                = mainText(m_g, "編輯連絡人群組[", 1, 1030) + Items(2) + mainText(m_g, "]", 2, 1030);
            editGroup.Enabled = true;
            deleteGroup.Caption
                = mainText(m_g, "刪除連絡人群組[", 1, 1032) + Items(2) + mainText(m_g, "]", 2, 1032);
            deleteGroup.Enabled = true;
            addGroup.Caption = mainText(m_g, "新增連絡人群組", 1, 876);
            addGroup.Enabled = true;
        } else {
            plainGroupCaptions();
        }
        if (Items(1) == QLatin1String("Zones") && count >= 2) {
            editZone.Caption = mainText(m_g, "編輯警報點[", 1, 919) + Items(2) + QStringLiteral("]");
            editZone.Enabled = true;
        } else {
            editZone.Caption = mainText(m_g, "編輯警報點", 1, 922);
            editZone.Enabled = false;
        }
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
    m_g.dialogs().showEditGroupList(false);
}

void frmMain::mnuProjEditTelList_Click()
{
    m_g.dialogs().showEditTelList();
}

void frmMain::mnuProjEditZoneList_Click()
{
    m_g.dialogs().showEditZoneList();
}

void frmMain::mnuProjDeleteGroupList_Click()
{
    DeleteUserGroup(m_g);
}

void frmMain::mnuProjDeleteTelList_Click()
{
    DeleteUser(m_g);
}
