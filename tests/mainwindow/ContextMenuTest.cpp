#include "ContextMenu.h"
#include "CaseName.h"
#include "MainWindowFixture.h"
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

const ContextMenuCase kCases[] = {
    {"tree project root no menu", None, tree("ProjName")},
    {"tree zone branch no menu", None, tree("Zones")},
    {"tree contact branch", None, tree("Users")},
    {"tree group branch", None, tree("UserGroups")},
    {"tree contact", None, tree("Users,Ann")},
    {"tree name with a comma shows its first part", None, tree("Users,A,B")},
    {"tree group", None, tree("UserGroups,Fire")},
    {"tree zone", None, tree("Zones,3")},

    {"list root contacts row", None, list("ProjName", "連絡人")},
    {"list root groups row", None, list("ProjName", "群組")},
    {"list root zones row no menu", None, list("ProjName", "警報區")},
    {"list root row translated falls to the contact rule", None, list("ProjName", "Contacts")},
    {"list contact named Users gets AddContact", None, list("Users", "Users")},
    {"list contact row", None, list("Users", "Ann")},
    {"list group row", None, list("UserGroups", "Fire")},
    {"list group row under a translated branch gets the contact menu", None, list("UserGroups", "Fire"),
        "Groups"},
    {"list contact sheet row", None, list("Users,Ann", "電話號碼:")},
    {"list member row of a group no menu", None, list("UserGroups,Fire", "Ann")},
    {"list zone row", None, list("Zones", "7")},
    {"list zone sheet row", None, list("Zones,3", "警報區:")},

    {"empty list under the root no menu", None, list("ProjName")},
    {"empty list of contacts", tree("UserGroups,Fire"), list("Users")},
    {"empty list of groups", None, list("UserGroups")},
    {"empty zone list at first use shows the design", None, list("Zones")},
    {"empty zone list shows what the last click left", tree("UserGroups,Fire"), list("Zones")},
    {"empty contact sheet leaves the zone entry", tree("Zones,3"), list("Users,Ann")},
    {"empty member list no menu", None, list("UserGroups,Fire")},
    {"empty zone sheet hides the edits", tree("UserGroups,Fire"), list("Zones,3")},
    {"empty sheet of a name with a comma hides the edits", tree("Users,Ann"), list("Users,A,B")},
};

class ContextMenuWindow : public FreshWindow<ProjectContentTest>
{
public:
    ContextMenuWindow()
    {
        main.onPopupMenu = [this](const QString& name) { popups << name; };
    }

    // The right click of the case after its first one, if any, from records away from any that
    // the click makes current: the menu that pops up, its visible entries, the current records.
    QString play(const ContextMenuCase& c)
    {
        if (c.before.tag)
            rightClick(c.before);
        const QStringList popupsBefore = popups;
        const QString left = visibleEntries();
        g.project.rsUsers.MoveLast();
        g.project.rsUserGroups.MoveLast();
        g.project.rsZones.MoveLast();
        rightClick(c.click, c.nodeText);
        QString out = QStringLiteral("== %1\n").arg(c.name);
        if (popups == popupsBefore)
            return out + "no menu, "
                + (visibleEntries() == left ? "entries unchanged\n" : "entries changed\n");
        out += "popup: " + popups.mid(popupsBefore.size()).join(", ") + "\n";
        for (const char* name : ContextMenuEntryNames) {
            const Menu& e = main.menu(QString::fromLatin1(name));
            if (e.Visible)
                out += "  " + QString::fromLatin1(name).mid(13) + (e.Caption == "-" ? "" : " " + e.Caption)
                    + "\n";
        }
        return out + currentRecords();
    }

private:
    void rightClick(const Click& c, const char* nodeText = nullptr)
    {
        click(QString::fromUtf8(c.tag));
        if (nodeText)
            main.tvProjectContent.Nodes[main.tvProjectContent.SelectedItem].Text
                = QString::fromUtf8(nodeText);
        if (c.row)
            selectRow(QString::fromUtf8(c.row));
        c.onList ? main.lvNodeContent_MouseUp(2, 0) : main.tvProjectContent_MouseUp(2, 0);
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
        QString shown;
        for (const char* name : ContextMenuEntryNames)
            if (main.menu(QString::fromLatin1(name)).Visible)
                shown += main.menu(QString::fromLatin1(name)).Caption + "|";
        return shown;
    }

    QStringList popups;
};

TEST(ContextMenu, ShowsTheEntriesOfTheClickAndMakesItsRecordCurrent)
{
    QString out;
    for (const ContextMenuCase& c : kCases)
        out += ContextMenuWindow().play(c);
    ExpectGolden("mainwindow/golden/context-menu.txt", out);
}

} // namespace

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
