#pragma once

#include "ADOUtil.h"
#include "MainWindowFixture.h"
#include "VBUtil.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"

// The editor a double click must open.
enum class Editor { None, TelList, GroupList, ZoneList };

// A new project with contacts, groups and two named zones, its tree built:
//   contacts Ann (suspended; groups Fire and UserGroup1), a row without a name, Bob (group
//   "fire"), "A,B" (group Fire); groups UserGroup1, a row without a name, Fire, "A,B";
//   zone 3 "Hall" on Fire and suspended, zone 7 without a name.
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
        setZone(3, "Hall", "Fire", true);
        main.mktvProjContent();
    }

    void addUser(const QString& name, const QString& groups, const QString& phone, bool disabled)
    {
        AddUserRow(g.project, name, groups, phone, disabled, name.isEmpty() ? QString() : name + " dsc");
    }

    void setZone(int zoneNo, const QString& name, const QString& target, bool disabled)
    {
        SetZoneRow(g.project, zoneNo, name, target, disabled, "fire in " + name);
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

    // Expects the editor to open with the record of its kind current: a contact by name, a group
    // by name, a zone by number, "<none>" for none. Cancel closes it.
    void expectEditor(Editor editor, const char* record)
    {
        const QString want = QString::fromUtf8(record);
        auto opensOn = [this, want](Recordset& rs, const char* field) {
            return [this, want, &rs, field](auto& form) {
                EXPECT_EQ(current(rs, QString::fromLatin1(field)), want);
                form.cmdCancel_Click();
            };
        };
        switch (editor) {
        case Editor::None:
            break;
        case Editor::TelList:
            platform.expectModal(g.form<frmEditTelList>(), opensOn(g.project.rsUsers, "UserName"));
            break;
        case Editor::GroupList:
            platform.expectModal(g.form<frmEditGroupList>(), opensOn(g.project.rsUserGroups, "GroupName"));
            break;
        case Editor::ZoneList:
            platform.expectModal(g.form<frmEditZoneList>(), opensOn(g.project.rsZones, "ZoneNo"));
            break;
        }
    }
};
