#include "ContextMenu.h"
#include "ProjectTree.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "frmAddOtherUser.h"
#include "frmAddUserGroup.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmMain.h"
#include "frmMoveUsers.h"

namespace {

// The limit warning is looked up under this short module name, apart from the window's own.
const ModuleText TMain {"Main"};

// The number of notification targets that adding one to a contact's groups may reach.
constexpr int FixedTargetLimit = 128;

constexpr int RightButton = 2;

bool isGroupBranchText(const QString& text)
{
    return text == QStringLiteral("群組");
}

} // namespace

bool frmMain::selectedNode(NodeTagItems& Items, qint16& count, QString& text) const
{
    const TreeView& tv = tvProjectContent;
    if (tv.SelectedItem < 0 || tv.SelectedItem >= static_cast<int>(tv.Nodes.size()))
        return false;
    ParseNodeTag(tv.Nodes[tv.SelectedItem].Tag, Items, count);
    text = tv.Nodes[tv.SelectedItem].Text;
    return true;
}

ContextMenuSet frmMain::contextMenu(bool onList, const ContextMenuEntries& entries, bool& found)
{
    found = false;
    ContextMenuClick click;
    click.source = onList ? ContextMenuClick::Source::List : ContextMenuClick::Source::Tree;
    const TreeView& tv = tvProjectContent;
    if (tv.SelectedItem >= 0 && tv.SelectedItem < static_cast<int>(tv.Nodes.size())) {
        click.hasNode = true;
        click.nodeTag = tv.Nodes[tv.SelectedItem].Tag;
        click.nodeText = tv.Nodes[tv.SelectedItem].Text;
    }
    const ListView& lv = lvNodeContent;
    if (lv.SelectedItem >= 0 && lv.SelectedItem < static_cast<int>(lv.ListItems.size())) {
        click.hasRow = true;
        click.rowText = lv.ListItems[lv.SelectedItem].Text;
    }
    ContextMenuDecision d = DecideContextMenu(m_g, click, entries);
    if (!d.shows())
        return d.set;
    // A record that is not found is no failure: the menu opens all the same.
    LocateCurRecord(d.Items, d.count, found);
    return d.set;
}

void frmMain::tvProjectContent_MouseUp(int Button, int)
{
    if (Button != RightButton)
        return;
    bool found = false;
    if (contextMenu(false, contextEntries(), found) != ContextMenuSet::NoMenu)
        PopupMenu(QStringLiteral("mnuProjConent"));
}

void frmMain::lvNodeContent_MouseUp(int Button, int)
{
    if (Button != RightButton)
        return;
    bool found = false;
    if (contextMenu(true, contextEntries(), found) != ContextMenuSet::NoMenu)
        PopupMenu(QStringLiteral("mnuProjConent"));
}

void frmMain::PopupMenu(const QString& menuName)
{
    notifyChanged();
    if (onPopupMenu)
        onPopupMenu(menuName);
}

ContextMenuEntries frmMain::contextEntries()
{
    ContextMenuEntries entries {};
    for (size_t i = 0; i < entries.size(); ++i)
        entries[i] = &menu(QString::fromLatin1(ContextMenuEntryNames[i]));
    return entries;
}

void frmMain::deleteByKey(bool onList)
{
    // Decided on copies, so that the popup keeps what the last right click left it.
    std::array<Menu, std::tuple_size_v<ContextMenuEntries>> copies;
    ContextMenuEntries entries = contextEntries();
    for (size_t i = 0; i < entries.size(); ++i) {
        copies[i] = *entries[i];
        entries[i] = &copies[i];
    }
    bool found = false;
    const ContextMenuSet set = contextMenu(onList, entries, found);
    // Only a menu of its own node or row offers a delete, and only of a record that is there:
    // a menu kept from an earlier click, or a name not found, would delete another record.
    if (!found)
        return;
    if (set == ContextMenuSet::OneContact)
        DeleteUser(m_g);
    else if (set == ContextMenuSet::OneGroup)
        DeleteUserGroup(m_g);
}

void frmMain::tvProjectContent_KeyDelete()
{
    deleteByKey(false);
}

void frmMain::lvNodeContent_KeyDelete()
{
    deleteByKey(true);
}

void frmMain::mnuProjConentAddGroupList_Click()
{
    AddUserGroup(m_g);
}

void frmMain::mnuProjConentAddTelList_Click()
{
    AddUser(m_g);
}

void frmMain::mnuProjConentDeleteTelList_Click()
{
    DeleteUser(m_g);
}

void frmMain::mnuProjConentDeleteGroupList_Click()
{
    DeleteUserGroup(m_g);
}

void frmMain::mnuProjConentEditGroupList_Click()
{
    ShowDialog<frmEditGroupList>(m_g, false);
}

void frmMain::mnuProjConentEditTelList_Click()
{
    ShowDialog<frmEditTelList>(m_g);
}

void frmMain::mnuProjConentEditZoneList_Click()
{
    ShowDialog<frmEditZoneList>(m_g);
}

void frmMain::warnTargetLimit()
{
    m_g.platform.msgBox(TMain(m_g, "通知對象[群組/連絡人]已超過最大筆數[", 1, 2005)
            + QString::number(m_g.project.MaxTelNo)
            + TMain(m_g, "]，不得再增加通知對象[群組/連絡人]！", 2, 2005),
        MsgBox::Exclamation, TMain(m_g, "通知對象[群組/連絡人]已超過最大筆數", 3, 2005));
}

void frmMain::mnuProjConentAddGroup_Click()
{
    NodeTagItems Items;
    qint16 count = 0;
    QString text;
    if (!selectedNode(Items, count, text))
        return;
    // Tested against the fixed limit while the warning names the model's: kept apart on purpose.
    if (CountTelNo(m_g.project) + 1 > FixedTargetLimit) {
        warnTargetLimit();
        return;
    }
    const ListView& lv = lvNodeContent;
    if (Items(1) == QLatin1String("Users") && count == 2)
        ShowDialog<frmAddUserGroup>(m_g, Items(2));
    else if (count == 1 && (text == QStringLiteral("連絡人") || Items(1) == QLatin1String("Users"))
        && lv.SelectedItem >= 0)
        ShowDialog<frmAddUserGroup>(m_g, lv.ListItems[lv.SelectedItem].Text);
}

// The group that the membership commands work on: the group node's, or the row's in the group
// list; empty when there is none.
std::optional<QString> frmMain::contextGroup() const
{
    NodeTagItems Items;
    qint16 count = 0;
    QString text;
    if (!selectedNode(Items, count, text))
        return std::nullopt;
    if (Items(1) == QLatin1String("UserGroups") && count == 2)
        return Items(2);
    const ListView& lv = lvNodeContent;
    if (count == 1 && (Items(1) == QLatin1String("UserGroups") || isGroupBranchText(text))
        && lv.SelectedItem >= 0)
        return lv.ListItems[lv.SelectedItem].Text;
    return std::nullopt;
}

void frmMain::mnuProjConentAddUser_Click()
{
    const std::optional<QString> group = contextGroup();
    if (!group)
        return;
    if (CountTelNo(m_g.project) + 1 > m_g.project.MaxTelNo) {
        warnTargetLimit();
        return;
    }
    ShowDialog<frmAddOtherUser>(m_g, *group);
}

void frmMain::mnuProjConentMoveUser_Click()
{
    if (const std::optional<QString> group = contextGroup())
        ShowDialog<frmMoveUsers>(m_g, *group);
}
