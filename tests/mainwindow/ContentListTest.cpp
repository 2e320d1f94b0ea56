#include "CaseName.h"
#include "MainWindowFixture.h"
#include "UnhandledError.h"

namespace {

// The tree as built, then the list of each node clicked, with the current records it leaves.
TEST_F(ProjectContentTest, TheTreeAndTheListShowWhatEachNodeStandsFor)
{
    QString out = treeText() + currentRecords();
    // A group whose name has a comma has a tag of three fields, which fills nothing: the list of
    // the group clicked before it stays.
    for (const char* tag : {"ProjName", "UserGroups", "UserGroups,Fire", "UserGroups,A,B",
             "UserGroups,UserGroup1", "Users", "Users,Ann", "Zones,3", "Zones"}) {
        click(QString::fromUtf8(tag));
        out += QStringLiteral("== click %1\n").arg(tag) + listText() + currentRecords();
    }
    // The zone table's columns are narrower without records.
    DeleteRows(g.project.rsZones);
    click("Zones");
    out += "== click Zones without zones\n" + listText();
    // The root sheet's contact row fills the contact table and expands the branch.
    click("ProjName");
    main.lvNodeContent.SelectedItem = 0;
    main.lvNodeContent_DblClick();
    out += "== double click on the root sheet's first row\n" + listText() + treeText().section('\n', 0, 4);
    ExpectGolden("mainwindow/golden/project-content.txt", out);
}

TEST_F(ProjectContentTest, ANodeWithoutATagIsAnInternalErrorThatLeavesTheList)
{
    click("Users");
    const QString before = listText();
    main.tvProjectContent.Nodes[0].Tag.clear();
    main.tvProjectContent.SelectedItem = 0;
    platform.expectBox(16, "系統內部錯誤，被選中節點的夾帶資訊是為空。", "系統內部錯誤");
    main.tvProjectContent_NodeClick();
    EXPECT_EQ(listText(), before);
}

// A language that translates the group branch's Key leaves the sheet's group row no branch.
TEST_F(ProjectContentTest, TheRootSheetsRowWithoutItsBranchIsAnUnhandledError)
{
    main.tvProjectContent.Nodes[nodeIndex("UserGroups")].Key = "Groups";
    click("ProjName");
    main.lvNodeContent.SelectedItem = 1;
    EXPECT_THROW(main.lvNodeContent_DblClick(), UnhandledError);
}

struct DblClickCase
{
    const char* name;
    const char* node;
    const char* row;               // the list row's Text; nullptr: the node itself, selected without a click
    const char* editor;            // the form that opens; nullptr: none
    const char* record;            // current when the editor opens; nullptr: none, and its load fails
    const char* caption = nullptr; // the list's caption after a double click on a row
    const char* selectedTag = nullptr; // the tree's selection after a double click on a row
};

const DblClickCase DblClickCases[] = {
    {"node: a contact opens its editor", "Users,Bob", nullptr, "frmEditTelList", "Users=Bob"},
    {"node: a contact with a comma opens nothing", "Users,A,B", nullptr, nullptr, ""},
    // Only the part before the comma is searched, so no group is current for the editor to read.
    {"node: a group with a comma still opens its editor", "UserGroups,A,B", nullptr, "frmEditGroupList",
        nullptr},
    {"node: a zone opens its editor", "Zones,3", nullptr, "frmEditZoneList", "Zones=3"},
    {"node: a branch opens nothing", "Zones", nullptr, nullptr, ""},
    {"node: the root opens nothing", "ProjName", nullptr, nullptr, ""},
    {"row: the root sheet's contact row opens the contacts", "ProjName", "連絡人", nullptr, "", "連絡人",
        "Users"},
    {"row: the root sheet's group row opens the groups", "ProjName", "群組", nullptr, "", "連絡人群組",
        "UserGroups"},
    {"row: the root sheet's zone row opens the zones", "ProjName", "警報區", nullptr, "", "警報區域",
        "Zones"},
    {"row: a contact opens its editor with the caption cut at the colon", "Users", "Bob", "frmEditTelList",
        "Users=Bob", "連絡人內容:", "Users"},
    {"row: a group opens its editor", "UserGroups", "Fire", "frmEditGroupList", "UserGroups=Fire",
        "連絡人群組", "UserGroups"},
    {"row: a group's contact does nothing", "UserGroups,Fire", "Ann", nullptr, "", "連絡人群組名稱:Fire",
        "UserGroups,Fire"},
    {"row: a zone acts as its node", "Zones", "3", "frmEditZoneList", "Zones=3", "警報區域", "Zones"},
    {"row: any row of a contact's sheet opens its editor", "Users,Bob", "說明:", "frmEditTelList",
        "Users=Bob", "連絡人內容:Bob", "Users,Bob"},
};

class DblClickTest : public ProjectContentTest, public ::testing::WithParamInterface<DblClickCase>
{ };

TEST_P(DblClickTest, OpensTheEditorOfTheRecordDoubleClicked)
{
    const DblClickCase& c = GetParam();
    if (!c.row) {
        main.tvProjectContent.SelectedItem = nodeIndex(QString::fromUtf8(c.node));
        if (!c.record) {
            EXPECT_THROW(main.tvProjectContent_DblClick(), UnhandledError);
            return;
        }
        if (c.editor)
            expectEditor(c.editor, c.record);
        main.tvProjectContent_DblClick();
        return;
    }
    click(QString::fromUtf8(c.node));
    const auto& items = main.lvNodeContent.ListItems;
    for (int i = 0; i < static_cast<int>(items.size()); ++i)
        if (items[i].Text == QString::fromUtf8(c.row))
            main.lvNodeContent.SelectedItem = i;
    ASSERT_GE(main.lvNodeContent.SelectedItem, 0) << "no row " << c.row;
    if (c.editor)
        expectEditor(c.editor, c.record);
    main.lvNodeContent_DblClick();
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, QString::fromUtf8(c.caption));
    ASSERT_GE(main.tvProjectContent.SelectedItem, 0);
    EXPECT_EQ(main.tvProjectContent.Nodes[main.tvProjectContent.SelectedItem].Tag,
        QString::fromUtf8(c.selectedTag));
}

INSTANTIATE_TEST_SUITE_P(Clicks, DblClickTest, ::testing::ValuesIn(DblClickCases),
    [](const auto& info) { return CaseName(info.param.name); });

} // namespace
