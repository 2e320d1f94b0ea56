#include "ProjectTree.h"

#include "ADOUtil.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmMain.h"

namespace {

const ModuleText T {"VORNAMain"};

// A suspended contact or zone is grey, any other black; the store's default reads as False.
quint32 DisableColor(const Recordset& rs)
{
    const QVariant value = rs.Fields(QStringLiteral("IsDisable"));
    return !value.isNull() && value.toBool() ? SystemColor::GrayText : 0;
}

} // namespace

void ParseNodeTag(const QString& Tag, NodeTagItems& Items, qint16& count)
{
    if (Tag.isEmpty()) {
        count = 0;
        return;
    }
    const QStringList parts = Tag.split(QLatin1Char(','));
    for (int i = 0; i < parts.size(); ++i)
        Items(i + 1) = parts[i];
    count = static_cast<qint16>(parts.size());
}

QString NodeTagTrace(const VORNAGlobal& g, const QString& Tag, const NodeTagItems& Items, qint16 count)
{
    QString trace = T(g, "夾帶資訊=", 1, 1145) + Tag + CRLF + T(g, "拆解出[", 1, 1146)
        + QString::number(count) + T(g, "]個資料項", 2, 1146) + CRLF;
    for (qint16 i = 1; i <= count; ++i)
        trace += Items(i) + CRLF;
    return trace;
}

void frmMain::mktvProjContent()
{
    TreeView& tv = tvProjectContent;
    tv.Nodes.clear();
    tv.SelectedItem = -1;
    if (m_g.project.ProjectName.isEmpty())
        return;
    ProjectState& p = m_g.project;

    const int root = addNode(-1, QString(), T(m_g, "專案(", 1, 1019) + p.ProjectName + QStringLiteral(")"),
        QStringLiteral("Proj"), QStringLiteral("ProjName"));
    tv.Nodes[root].Expanded = true;

    const int users = addNode(root, QStringLiteral("Users"), T(m_g, "連絡人", 2, 1023),
        QStringLiteral("UserName"), QStringLiteral("Users"));
    if (p.rsUsers.RecordCount() > 0) {
        for (p.rsUsers.MoveFirst(); !p.rsUsers.IsEOF(); p.rsUsers.MoveNext()) {
            const QString name = FieldText(p.rsUsers, "UserName");
            if (name.isEmpty())
                continue;
            const int node = addNode(
                users, QString(), name, QStringLiteral("UserName"), QStringLiteral("Users,") + name);
            tv.Nodes[node].ForeColor = DisableColor(p.rsUsers);
        }
    }

    // The group branch's key and image go through the lookup too; its Tag never does.
    const int groups = addNode(root, T(m_g, "UserGroups", 1, 1221), T(m_g, "群組", 2, 1221),
        T(m_g, "UserGroups", 3, 1221), QStringLiteral("UserGroups"));
    if (p.rsUserGroups.RecordCount() > 0) {
        for (p.rsUserGroups.MoveFirst(); !p.rsUserGroups.IsEOF(); p.rsUserGroups.MoveNext()) {
            const QString name = FieldText(p.rsUserGroups, "GroupName");
            if (!name.isEmpty())
                addNode(groups, QString(), name, QStringLiteral("UserGroups"),
                    QStringLiteral("UserGroups,") + name);
        }
    }

    const int zones = addNode(root, QStringLiteral("Zones"), T(m_g, "警報區", 2, 1061),
        QStringLiteral("Zones"), QStringLiteral("Zones"));
    if (p.rsZones.RecordCount() > 0) {
        for (p.rsZones.MoveFirst(); !p.rsZones.IsEOF(); p.rsZones.MoveNext()) {
            const QString zoneNo = FieldText(p.rsZones, "ZoneNo");
            const QString zoneName = FieldText(p.rsZones, "ZoneName");
            QString text = QStringLiteral("#") + zoneNo;
            if (!zoneName.isEmpty())
                text += QStringLiteral("-") + zoneName;
            const int node = addNode(zones, QStringLiteral("Zones") + zoneNo, text, QStringLiteral("Alarm"),
                QStringLiteral("Zones,") + zoneNo);
            tv.Nodes[node].ForeColor = DisableColor(p.rsZones);
        }
    }
}

void frmMain::LocateCurRecord(NodeTagItems& Items, qint16 count, bool& found)
{
    found = false;
    if (count < 2)
        return;
    ProjectState& p = m_g.project;
    if (Items(1) == QLatin1String("UserGroups"))
        found = FindRecord(p.rsUserGroups, QStringLiteral("GroupName"), Items(2), false);
    else if (Items(1) == QLatin1String("Users"))
        found = FindRecord(p.rsUsers, QStringLiteral("UserName"), Items(2), false);
    else if (Items(1) == QLatin1String("Zones"))
        found = FindRecord(p.rsZones, QStringLiteral("ZoneNo"), Items(2), false);
    else
        found = true;
}

void frmMain::tvProjectContent_NodeClick()
{
    if (tvProjectContent.SelectedItem >= 0)
        mklvNodeContent();
}

void frmMain::tvProjectContent_DblClick()
{
    if (tvProjectContent.SelectedItem < 0)
        return;
    NodeTagItems Items;
    qint16 count = 0;
    ParseNodeTag(tvProjectContent.Nodes[tvProjectContent.SelectedItem].Tag, Items, count);
    if (count == 1)
        return;
    bool found = false;
    // A contact needs exactly two fields, a group or zone two or more: a comma in a
    // contact's name keeps its editor shut, while a group's opens.
    if (Items(1) == QLatin1String("Users") && count == 2) {
        LocateCurRecord(Items, count, found);
        ShowDialog<frmEditTelList>(m_g);
    } else if (Items(1) == QLatin1String("UserGroups") && count >= 2) {
        LocateCurRecord(Items, count, found);
        ShowDialog<frmEditGroupList>(m_g, false);
    } else if (Items(1) == QLatin1String("Zones") && count >= 2) {
        LocateCurRecord(Items, count, found);
        ShowDialog<frmEditZoneList>(m_g);
    }
}

int frmMain::nodeCount() const
{
    return static_cast<int>(tvProjectContent.Nodes.size());
}

QString frmMain::nodeTag(int node) const
{
    return tvProjectContent.Nodes.at(node).Tag;
}

int frmMain::addNode(
    int parent, const QString& key, const QString& text, const QString& image, const QString& tag)
{
    Node n;
    n.Parent = parent;
    n.Key = key;
    n.Text = text;
    n.Image = image;
    n.Tag = tag;
    tvProjectContent.Nodes.push_back(n);
    return static_cast<int>(tvProjectContent.Nodes.size()) - 1;
}

void frmMain::removeNode(int node)
{
    auto& nodes = tvProjectContent.Nodes;
    if (node < 0 || node >= static_cast<int>(nodes.size()))
        return;
    // Parents come before their children, so one pass finds the whole subtree.
    std::vector<bool> removed(nodes.size(), false);
    std::vector<int> newIndex(nodes.size(), -1);
    std::vector<Node> kept;
    for (int i = 0; i < static_cast<int>(nodes.size()); ++i) {
        const int parent = nodes[i].Parent;
        removed[i] = i == node || (parent >= 0 && parent < i && removed[parent]);
        if (removed[i])
            continue;
        newIndex[i] = static_cast<int>(kept.size());
        kept.push_back(nodes[i]);
        if (parent >= 0 && parent < i)
            kept.back().Parent = newIndex[parent];
    }
    // A removed selection falls back to the removed node's parent.
    int& selected = tvProjectContent.SelectedItem;
    if (selected >= 0)
        selected = newIndex[selected] >= 0 ? newIndex[selected]
                                           : (nodes[node].Parent >= 0 ? newIndex[nodes[node].Parent] : -1);
    nodes = std::move(kept);
}

void frmMain::selectNode(int node)
{
    tvProjectContent.SelectedItem = node;
}

void frmMain::setNodeText(int node, const QString& text)
{
    if (node >= 0 && node < nodeCount())
        tvProjectContent.Nodes[node].Text = text;
}

void frmMain::setNodeTag(int node, const QString& tag)
{
    if (node >= 0 && node < nodeCount())
        tvProjectContent.Nodes[node].Tag = tag;
}

void frmMain::setNodeForeColor(int node, quint32 color)
{
    if (node >= 0 && node < nodeCount())
        tvProjectContent.Nodes[node].ForeColor = color;
}

void frmMain::refreshTree()
{
    notifyChanged();
}
