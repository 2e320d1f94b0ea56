#include "CaseName.h"
#include "ProjectContentFixture.h"
#include "UnhandledError.h"

namespace {

using Column = ColumnHeader;
using Row = ListItem;

struct NodeContentCase
{
    const char* name;
    const char* tag;
    const char* caption;
    std::vector<Column> columns;
    std::vector<Row> rows;
};

const std::vector<Column> GroupColumns {{"連絡人群組名稱", 1500}, {"連絡人群組說明", 1800}};
const std::vector<Column> MemberColumns {
    {"連絡人", 1000}, {"電話號碼", 1500}, {"連絡人群組名稱", 1500}, {"說明", 1500}, {"暫停使用", 1000}};

const NodeContentCase NodeContentCases[] = {
    {"the root shows the fixed sheet", "ProjName", "資料", {{"項目", 1500}, {"項目說明", 1500}},
        {{"連絡人", {"連絡人清單"}}, {"群組", {"群組清單"}}, {"警報區", {"警報區清單"}}}},
    {"the group branch lists every group row", "UserGroups", "連絡人群組", GroupColumns,
        {{"UserGroup1", {""}}, {"", {""}}, {"Fire", {""}}, {"A,B", {"comma"}}}},
    {"a group lists the contacts naming it exactly", "UserGroups,Fire", "連絡人群組名稱:Fire", MemberColumns,
        {{"Ann", {"0911", "Fire\r\nUserGroup1", "Ann dsc", "True"}},
            {"A,B", {"0913", "Fire", "A,B dsc", "False"}}}},
    {"the contact branch shows two columns", "Users", "連絡人", {{"連絡人名稱", 1500}, {"連絡人說明", 1500}},
        {{"Ann", {"Ann dsc"}}, {"", {""}}, {"Bob", {"Bob dsc"}}, {"A,B", {"A,B dsc"}}}},
    {"a contact shows its sheet", "Users,Ann", "連絡人內容:Ann", {{"項目", 1500}, {"內容", 4000}},
        {{"電話號碼:", {"0911"}}, {"暫使使用:", {"True"}}, {"連絡人群組名稱:", {"Fire\r\nUserGroup1"}},
            {"連絡人:", {"Ann"}}, {"說明:", {"Ann dsc"}}}},
    {"a zone shows its sheet", "Zones,3", "警報區=3", {{"項目", 1500}, {"內容", 1500}},
        {{"警報區:", {"3"}}, {"警報區名稱:", {"Hall"}}, {"暫停使用", {"True"}}, {"連絡人群組名稱:", {"Fire"}},
            {"說明:", {""}}, {"警報發起訊息:", {"fire in Hall"}}, {"警報復歸訊息:", {""}}}},
};

class NodeContentTest : public ProjectContentTest, public ::testing::WithParamInterface<NodeContentCase>
{ };

TEST_P(NodeContentTest, TheListShowsWhatTheNodeStandsFor)
{
    const NodeContentCase& c = GetParam();
    click(QString::fromUtf8(c.tag));
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, QString::fromUtf8(c.caption));
    EXPECT_EQ(main.lvNodeContent.ColumnHeaders, c.columns);
    EXPECT_EQ(main.lvNodeContent.ListItems, c.rows);
}

INSTANTIATE_TEST_SUITE_P(Nodes, NodeContentTest, ::testing::ValuesIn(NodeContentCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ProjectContentTest, TheZoneTableHasWiderColumnsWithRecords)
{
    click("Zones");
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, "警報區域");
    const std::vector<Column> filled {{"警報區", 1000}, {"警報區名稱", 1500}, {"連絡人群組名稱", 1500},
        {"說明", 1300}, {"警報發起訊息", 1500}, {"警報復歸訊息", 1500}, {"暫停使用", 1000}};
    EXPECT_EQ(main.lvNodeContent.ColumnHeaders, filled);
    ASSERT_EQ(main.lvNodeContent.ListItems.size(), 64u);
    EXPECT_EQ(main.lvNodeContent.ListItems[3], (Row {"3", {"Hall", "Fire", "", "fire in Hall", "", "True"}}));

    Recordset& zones = g.project.rsZones;
    for (zones.MoveFirst(); !zones.IsEOF(); zones.MoveNext())
        zones.Delete();
    click("Zones");
    const std::vector<Column> empty {{"警報區", 800}, {"警報區名稱", 1500}, {"連絡人群組名稱", 1500},
        {"說明", 1200}, {"警報發起訊息", 1200}, {"警報復歸訊息", 1200}, {"暫停使用", 1000}};
    EXPECT_EQ(main.lvNodeContent.ColumnHeaders, empty);
    EXPECT_TRUE(main.lvNodeContent.ListItems.empty());
}

TEST_F(ProjectContentTest, AGroupWithoutMembersShowsItsFiveColumnsAndNoRows)
{
    click("UserGroups,Fire");
    const auto fireRows = main.lvNodeContent.ListItems;
    click("UserGroups,A,B");
    EXPECT_EQ(main.lvNodeContent.ListItems, fireRows);
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, "連絡人群組名稱:Fire") << "a count of 3 changes nothing";
    click("UserGroups,UserGroup1");
    EXPECT_EQ(main.lvNodeContent.ColumnHeaders, MemberColumns);
    ASSERT_EQ(main.lvNodeContent.ListItems.size(), 1u);
    EXPECT_EQ(main.lvNodeContent.ListItems[0].Text, "Ann");
    EXPECT_TRUE(g.project.rsUsers.IsEOF()) << "the table fill leaves the contacts at end of file";
}

TEST_F(ProjectContentTest, ANodeWithoutATagIsAnInternalErrorThatLeavesTheList)
{
    click("Users");
    const auto before = main.lvNodeContent.ListItems;
    main.tvProjectContent.Nodes[0].Tag.clear();
    main.tvProjectContent.SelectedItem = 0;
    platform.expectBox(16, "系統內部錯誤，被選中節點的夾帶資訊是為空。", "系統內部錯誤");
    main.tvProjectContent_NodeClick();
    EXPECT_EQ(main.lvNodeContent.ListItems, before);
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, "連絡人");
}

struct ListDblClickCase
{
    const char* name;
    const char* node;
    const char* row; // the row's Text
    Editor editor;
    const char* record;      // current when the editor opens
    const char* caption;     // after the click
    const char* selectedTag; // the tree's selection after the click
};

const ListDblClickCase ListDblClickCases[] = {
    {"the contact row of the root sheet opens the contacts", "ProjName", "連絡人", Editor::None, "", "連絡人",
        "Users"},
    {"the group row of the root sheet opens the groups", "ProjName", "群組", Editor::None, "", "連絡人群組",
        "UserGroups"},
    {"the zone row of the root sheet opens the zones", "ProjName", "警報區", Editor::None, "", "警報區域",
        "Zones"},
    {"a contact row opens its editor with the caption cut at the colon", "Users", "Bob", Editor::TelList,
        "Bob", "連絡人內容:", "Users"},
    {"a group row opens its editor", "UserGroups", "Fire", Editor::GroupList, "Fire", "連絡人群組",
        "UserGroups"},
    {"a row of a group's contacts does nothing", "UserGroups,Fire", "Ann", Editor::None, "",
        "連絡人群組名稱:Fire", "UserGroups,Fire"},
    {"a zone row acts as its node", "Zones", "3", Editor::ZoneList, "3", "警報區域", "Zones"},
    {"any row of a contact's sheet opens its editor", "Users,Bob", "說明:", Editor::TelList, "Bob",
        "連絡人內容:Bob", "Users,Bob"},
};

class ListDblClickTest : public ProjectContentTest, public ::testing::WithParamInterface<ListDblClickCase>
{ };

TEST_P(ListDblClickTest, FollowsTheRowOfTheSelectedNode)
{
    const ListDblClickCase& c = GetParam();
    click(QString::fromUtf8(c.node));
    const QString row = QString::fromUtf8(c.row);
    auto& items = main.lvNodeContent.ListItems;
    for (int i = 0; i < static_cast<int>(items.size()); ++i)
        if (items[i].Text == row)
            main.lvNodeContent.SelectedItem = i;
    ASSERT_GE(main.lvNodeContent.SelectedItem, 0) << "no row " << c.row;

    expectEditor(c.editor, c.record);
    main.lvNodeContent_DblClick();

    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, QString::fromUtf8(c.caption));
    const int selected = main.tvProjectContent.SelectedItem;
    ASSERT_GE(selected, 0);
    EXPECT_EQ(main.tvProjectContent.Nodes[selected].Tag, QString::fromUtf8(c.selectedTag));
}

INSTANTIATE_TEST_SUITE_P(Rows, ListDblClickTest, ::testing::ValuesIn(ListDblClickCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ProjectContentTest, TheRootSheetFillsTheBranchTableAndExpandsItsNode)
{
    click("ProjName");
    main.lvNodeContent.SelectedItem = 0;
    main.lvNodeContent_DblClick();
    EXPECT_TRUE(main.tvProjectContent.Nodes[nodeIndex("Users")].Expanded);
    EXPECT_EQ(
        main.lvNodeContent.ColumnHeaders, (std::vector<Column> {{"連絡人名稱", 1500}, {"連絡人說明", 1500}}));
    EXPECT_EQ(main.lvNodeContent.ListItems.size(), 4u);
}

// A language that translates the group branch's Key leaves the sheet's group row no branch.
TEST_F(ProjectContentTest, TheRootSheetsRowWithoutItsBranchIsAnUnhandledError)
{
    main.tvProjectContent.Nodes[nodeIndex("UserGroups")].Key = "Groups";
    click("ProjName");
    main.lvNodeContent.SelectedItem = 1;
    EXPECT_THROW(main.lvNodeContent_DblClick(), UnhandledError);
}

} // namespace
