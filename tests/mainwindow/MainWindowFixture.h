#pragma once

#include "ADOUtil.h"
#include "CoreFixture.h"
#include "Golden.h"
#include "VBUtil.h"
#include "frmMain.h"

// The window model on the installation of the core tests, not started.
class MainWindowTest : public InstallationTest
{
protected:
    MainWindowTest() { g.setView(&main); }

    frmMain main {g};
};

// The same, started.
class ProjectWindowTest : public MainWindowTest
{
protected:
    ProjectWindowTest() { start(); }
};

inline QString ColorMark(quint32 color)
{
    return color == SystemColor::GrayText  ? QStringLiteral(" grey")
        : color == SystemColor::WindowText ? QString()
                                           : QStringLiteral(" color=%1").arg(color, 0, 16);
}

// A new project with contacts, groups and two named zones, its tree built:
//   contacts Ann (suspended; groups Fire and UserGroup1), a row without a name, Bob (group
//   "fire"), "A,B" (group Fire); groups UserGroup1, a row without a name, Fire, "A,B";
//   zone 3 "Hall" on Fire and suspended, zone 7 without a name.
// Public, so that a loop can make a fresh window for each of its cases (FreshWindow).
class ProjectContentTest : public ProjectWindowTest
{
public:
    ProjectContentTest()
    {
        newProject();
        addGroup(QString());
        addGroup("Fire");
        addGroup("A,B");
        g.project.rsUserGroups.setField("GroupDsc", "comma");
        g.project.rsUserGroups.Update();
        addUser("Ann", "Fire\r\nUserGroup1", "0911", true);
        addUser(QString(), QString(), QString(), false);
        addUser("Bob", "fire", "0912", false);
        addUser("A,B", "Fire", "0913", false);
        SetZoneRow(g.project, 3, "Hall", "Fire", true, "fire in Hall");
        main.mktvProjContent();
    }

    void addUser(const QString& name, const QString& groups, const QString& phone, bool disabled)
    {
        AddUserRow(g.project, name, groups, phone, disabled, name.isEmpty() ? QString() : name + " dsc");
    }

    // Selects the node with the Tag as a click does, and fills the list.
    void click(const QString& tag)
    {
        main.tvProjectContent.SelectedItem = nodeIndex(tag);
        main.tvProjectContent_NodeClick();
    }

    int nodeIndex(const QString& tag) const
    {
        const auto& nodes = main.tvProjectContent.Nodes;
        for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
            if (nodes[i].Tag == tag)
                return i;
        ADD_FAILURE() << "no node " << tag.toStdString();
        return -1;
    }

    QString current(Recordset& rs, const QString& field) const
    {
        return rs.IsEOF() || rs.IsBOF() ? "<none>" : NullToEmpty(rs.Fields(field));
    }
    // The current record of each table, for a printed state.
    QString currentRecords()
    {
        return QStringLiteral("current: Users=%1 UserGroups=%2 Zones=%3\n")
            .arg(current(g.project.rsUsers, "UserName"), current(g.project.rsUserGroups, "GroupName"),
                current(g.project.rsZones, "ZoneNo"));
    }

    // The tree, one node a line, indented under its parent, the selected one marked.
    QString treeText() const
    {
        QString out;
        const auto& nodes = main.tvProjectContent.Nodes;
        for (int i = 0; i < static_cast<int>(nodes.size()); ++i) {
            const Node& n = nodes[i];
            int depth = 0;
            for (int p = n.Parent; p >= 0; p = nodes[p].Parent)
                ++depth;
            out += QString(2 * depth, u' ') + n.Text + " [" + n.Tag + "] key=" + n.Key + " image=" + n.Image
                + ColorMark(n.ForeColor) + (n.Expanded ? " expanded" : "")
                + (i == main.tvProjectContent.SelectedItem ? " selected" : "") + "\n";
        }
        return out;
    }

    // The list: its caption, its columns with their widths, then its rows, fields between bars.
    QString listText() const
    {
        QString out = "caption: " + main.lbllvNodeContentCaption.Caption + "\ncolumns:";
        for (const ColumnHeader& c : main.lvNodeContent.ColumnHeaders)
            out += " " + c.Text + "/" + QString::number(c.Width);
        out += "\n";
        for (const ListItem& row : main.lvNodeContent.ListItems) {
            QStringList fields {row.Text};
            fields.append(QStringList(row.SubItems.begin(), row.SubItems.end()));
            out += "  " + fields.join(" | ").replace("\r\n", "\\r\\n") + ColorMark(row.ForeColor) + "\n";
        }
        return out;
    }

    // Expects the editor form to open with the record current, as currentRecords prints it
    // ("Users=Bob"); the user leaves it at once.
    void expectEditor(const char* form, const char* record)
    {
        platform.expectModal(QString::fromLatin1(form), [this, record](FormModel& f) {
            EXPECT_TRUE(currentRecords().simplified().split(u' ').contains(QString::fromUtf8(record)))
                << currentRecords().toStdString();
            g.platform.hideForm(f);
        });
    }
};

// A window of its own for each case of a loop that prints all its cases into one text: Fixture
// is a test class whose members the case reaches through its public members.
template<class Fixture> class FreshWindow : public Fixture
{
public:
    void TestBody() override { }
};
