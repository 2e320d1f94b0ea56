#include "ContextMenu.h"
#include "CaseName.h"
#include "ProjectContentFixture.h"
#include "VORNAUtil.h"
#include "frmAddOtherUser.h"
#include "frmAddUserGroup.h"

namespace {

struct Click
{
    bool onList = false;
    const char* tag = nullptr; // the selected node's Tag; null for no click at all
    const char* row = nullptr; // the selected row's text; null for none
};

// A row the list does not show is its first row renamed to it, as a language table would show
// it; the node's displayed text is replaced the same way.
struct ContextMenuCase
{
    const char* name;
    Click before; // a right click that runs first, leaving its entries
    Click click;
    const char* menu;   // the visible entries, "Entry=caption" or a bar's name, "|" between; null for no menu
    const char* record; // "Table=name" current after the click; "" when not checked
    const char* nodeText = nullptr;
};

const Click None {};
Click tree(const char* tag)
{
    return {false, tag, nullptr};
}
Click list(const char* tag, const char* row = nullptr)
{
    return {true, tag, row};
}

#define ONE_CONTACT(name)                                                                                    \
    "AddTelList=新增連絡人...|Bar1|DeleteTelList=刪除連絡人[" name "]|EditTelList=編輯連絡人[" name          \
    "]...|Bar2|AddGroup=加入新群組..."
#define ONE_GROUP(name)                                                                                      \
    "AddGroupList=新增連絡人群組...|Bar1|DeleteGroupList=刪除連絡人群組[" name                               \
    "]|EditGroupList=編輯連絡人群組[" name "]...|Bar2|AddUser=加入其它連絡人...|MoveUser=轉移到其它群組..."

const char* const Design
    = "AddGroupList=新增群組|AddTelList=新增電話|Bar1|DeleteTelList=刪除電話|"
      "DeleteGroupList=刪除群組|EditGroupList=編輯群組|EditTelList=編輯電話|"
      "EditZoneList=編輯警報點|Bar2|AddUser=加入連絡人|AddGroup=加入新群組|MoveUser=轉移到其它群組";

const ContextMenuCase kCases[] = {
    {"tree project root no menu", None, tree("ProjName"), nullptr, ""},
    {"tree zone branch no menu", None, tree("Zones"), nullptr, ""},
    {"tree contact branch", None, tree("Users"), "AddTelList=新增連絡人...", ""},
    {"tree group branch", None, tree("UserGroups"), "AddGroupList=新增連絡人群組...", ""},
    {"tree contact", None, tree("Users,Ann"), ONE_CONTACT("Ann"), "Users=Ann"},
    {"tree name with a comma shows its first part", None, tree("Users,A,B"), ONE_CONTACT("A"), ""},
    {"tree group", None, tree("UserGroups,Fire"), ONE_GROUP("Fire"), "UserGroups=Fire"},
    {"tree zone", None, tree("Zones,3"), "EditZoneList=編輯警報點[3]...", "Zones=3"},

    {"list root contacts row", None, list("ProjName", "連絡人"), "AddTelList=新增連絡人...", ""},
    {"list root groups row", None, list("ProjName", "群組"), "AddGroupList=新增連絡人群組...", ""},
    {"list root zones row no menu", None, list("ProjName", "警報區"), nullptr, ""},
    {"list root row translated falls to the contact rule", None, list("ProjName", "Contacts"),
        ONE_CONTACT("Contacts"), ""},
    {"list contact named Users gets AddContact", None, list("Users", "Users"), "AddTelList=新增連絡人...",
        ""},
    {"list contact row", None, list("Users", "Ann"), ONE_CONTACT("Ann"), "Users=Ann"},
    {"list group row", None, list("UserGroups", "Fire"), ONE_GROUP("Fire"), "UserGroups=Fire"},
    {"list group row under a translated branch gets the contact menu", None, list("UserGroups", "Fire"),
        ONE_CONTACT("Fire"), "", "Groups"},
    {"list contact sheet row", None, list("Users,Ann", "電話號碼:"), ONE_CONTACT("Ann"), "Users=Ann"},
    {"list member row of a group no menu", None, list("UserGroups,Fire", "Ann"), nullptr, ""},
    {"list zone row", None, list("Zones", "7"), "EditZoneList=編輯警報點[7]...", "Zones=7"},
    {"list zone sheet row", None, list("Zones,3", "警報區:"), "EditZoneList=編輯警報點[3]...", "Zones=3"},

    {"empty list under the root no menu", None, list("ProjName"), nullptr, ""},
    {"empty list of contacts", tree("UserGroups,Fire"), list("Users"), "AddTelList=新增連絡人...", ""},
    {"empty list of groups", None, list("UserGroups"), "AddGroupList=新增連絡人群組...", ""},
    {"empty zone list at first use shows the design", None, list("Zones"), Design, ""},
    {"empty zone list shows what the last click left", tree("UserGroups,Fire"), list("Zones"),
        ONE_GROUP("Fire"), ""},
    {"empty contact sheet leaves the zone entry", tree("Zones,3"), list("Users,Ann"),
        "AddTelList=新增連絡人...|Bar1|DeleteTelList=刪除連絡人[Ann]|EditTelList=編輯連絡人[Ann]...|"
        "EditZoneList=編輯警報點[3]...|Bar2|AddGroup=加入新群組...",
        "Users=Ann"},
    {"empty member list no menu", None, list("UserGroups,Fire"), nullptr, ""},
    {"empty zone sheet hides the edits", tree("UserGroups,Fire"), list("Zones,3"),
        "AddGroupList=新增連絡人群組...|Bar1|Bar2|AddUser=加入其它連絡人...|MoveUser=轉移到其它群組...",
        "Zones=3"},
    {"empty sheet of a name with a comma hides the edits", tree("Users,Ann"), list("Users,A,B"),
        "AddTelList=新增連絡人...|Bar1|Bar2|AddGroup=加入新群組...", ""},
};

class ContextMenuTest : public ProjectContentTest, public ::testing::WithParamInterface<ContextMenuCase>
{
protected:
    ContextMenuTest()
    {
        main.onPopupMenu = [this](const QString& name) { popups << name; };
    }

    void rightClick(const Click& c, const char* nodeText = nullptr)
    {
        click(QString::fromUtf8(c.tag));
        if (nodeText)
            main.tvProjectContent.Nodes[main.tvProjectContent.SelectedItem].Text
                = QString::fromUtf8(nodeText);
        if (c.row)
            selectRow(QString::fromUtf8(c.row));
        if (c.onList)
            main.lvNodeContent_MouseUp(2, 0);
        else
            main.tvProjectContent_MouseUp(2, 0);
    }

    void selectRow(const QString& text)
    {
        auto& rows = main.lvNodeContent.ListItems;
        ASSERT_FALSE(rows.empty());
        int i = 0;
        while (i < static_cast<int>(rows.size()) && rows[i].Text != text)
            ++i;
        if (i == static_cast<int>(rows.size())) {
            i = 0;
            rows[0].Text = text;
        }
        main.lvNodeContent.SelectedItem = i;
    }

    QString visibleEntries() const
    {
        QStringList shown;
        for (const char* name : ContextMenuEntryNames) {
            const Menu& e = main.menu(QString::fromLatin1(name));
            const QString entry = QString::fromLatin1(name).mid(13);
            if (e.Visible)
                shown << (e.Caption == QLatin1String("-") ? entry : entry + u'=' + e.Caption);
        }
        return shown.join(u'|');
    }

    QStringList popups;
};

} // namespace

TEST_P(ContextMenuTest, ShowsTheEntriesOfTheClickAndMakesItsRecordCurrent)
{
    const ContextMenuCase& c = GetParam();
    if (c.before.tag) {
        rightClick(c.before);
        ASSERT_EQ(popups.size(), 1);
    }
    const QString left = visibleEntries();
    // Away from any record a click makes current.
    g.project.rsUsers.MoveLast();
    g.project.rsUserGroups.MoveLast();
    g.project.rsZones.MoveLast();

    rightClick(c.click, c.nodeText);

    if (!c.menu) {
        EXPECT_EQ(popups.size(), c.before.tag ? 1 : 0) << "no menu pops up";
        EXPECT_EQ(visibleEntries(), left) << "no entry changes";
        return;
    }
    ASSERT_EQ(popups.size(), c.before.tag ? 2 : 1);
    EXPECT_EQ(popups.back(), "mnuProjConent");
    EXPECT_EQ(visibleEntries(), QString::fromUtf8(c.menu));
    if (*c.record) {
        const QStringList record = QString::fromUtf8(c.record).split(u'=');
        ProjectState& p = g.project;
        const QString current = record[0] == QLatin1String("Users") ? this->current(p.rsUsers, "UserName")
            : record[0] == QLatin1String("UserGroups") ? this->current(p.rsUserGroups, "GroupName")
                                                       : this->current(p.rsZones, "ZoneNo");
        EXPECT_EQ(current, record[1]);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ContextMenuTest, ::testing::ValuesIn(kCases),
    [](const auto& info) { return CaseName(info.param.name); });
namespace {

// A contact of further groups brings the project's notification targets to the case's count.
struct LimitCase
{
    const char* name;
    const char* command; // the entry clicked
    int targets;
    int maxTelNo;
    bool selected; // the tree has a selection
    bool warns;
    bool opens;
};

const LimitCase kLimitCases[] = {
    {"add to a group at 127 targets", "mnuProjConentAddGroup", 127, 64, true, false, true},
    {"add to a group at 128 targets warns with the model's limit", "mnuProjConentAddGroup", 128, 500, true,
        true, false},
    {"add to a group without a selection does nothing", "mnuProjConentAddGroup", 300, 64, false, false,
        false},
    {"add other contacts below the model's limit", "mnuProjConentAddUser", 63, 64, true, false, true},
    {"add other contacts at the model's limit warns", "mnuProjConentAddUser", 64, 64, true, true, false},
    {"add other contacts past 128 under a larger limit", "mnuProjConentAddUser", 200, 300, true, false, true},
    {"add other contacts without a selection does nothing", "mnuProjConentAddUser", 300, 64, false, false,
        false},
};

class TargetLimitTest : public ProjectContentTest, public ::testing::WithParamInterface<LimitCase>
{ };

} // namespace

TEST_P(TargetLimitTest, ChecksTheNotificationTargetsBeforeTheDialog)
{
    const LimitCase& c = GetParam();
    QStringList groups;
    for (int i = CountTelNo(g.project); i < c.targets; ++i)
        groups << QStringLiteral("G%1").arg(i);
    addUser("Many", groups.join(CRLF), "0914", false);
    main.mktvProjContent();
    ASSERT_EQ(CountTelNo(g.project), c.targets);
    g.project.MaxTelNo = static_cast<qint16>(c.maxTelNo);
    const bool addGroup = QLatin1String(c.command) == QLatin1String("mnuProjConentAddGroup");
    if (c.selected)
        click(addGroup ? "Users,Bob" : "UserGroups,Fire");
    else
        main.tvProjectContent.SelectedItem = -1;

    if (c.warns)
        platform.expectBox(MsgBox::Exclamation,
            QString("通知對象[群組/連絡人]已超過最大筆數[%1]，不得再增加通知對象[群組/連絡人]！")
                .arg(c.maxTelNo),
            "通知對象[群組/連絡人]已超過最大筆數");
    if (c.opens && addGroup)
        platform.expectModal(g.form<frmAddUserGroup>(), [](frmAddUserGroup& f) {
            EXPECT_EQ(f.ContactName, "Bob");
            f.cmdCancel_Click();
        });
    if (c.opens && !addGroup)
        platform.expectModal(g.form<frmAddOtherUser>(), [](frmAddOtherUser& f) {
            EXPECT_EQ(f.CurrentGroupName, "Fire");
            f.cmdCancel_Click();
        });

    main.clickMenu(QString::fromLatin1(c.command));
    EXPECT_TRUE(platform.allExpectationsMet());
}

INSTANTIATE_TEST_SUITE_P(Rows, TargetLimitTest, ::testing::ValuesIn(kLimitCases),
    [](const auto& info) { return CaseName(info.param.name); });
