#include <array>

#include "CaseName.h"
#include "ProjectContentFixture.h"
#include "ProjectTree.h"
#include "UnhandledError.h"

namespace {

constexpr quint32 Grey = SystemColor::GrayText;
constexpr quint32 Default = SystemColor::WindowText;

TEST_F(ProjectContentTest, TheTreeShowsTheThreeBranchesInRecordsetOrder)
{
    const auto& nodes = main.tvProjectContent.Nodes;
    ASSERT_EQ(nodes.size(), 10u + 64u);
    const std::vector<Node> head(nodes.begin(), nodes.begin() + 10);
    const std::vector<Node> expected {
        {-1, "", "專案(Project1)", "Proj", "ProjName", Default, true},
        {0, "Users", "連絡人", "UserName", "Users", Default, false},
        {1, "", "Ann", "UserName", "Users,Ann", Grey, false},
        {1, "", "Bob", "UserName", "Users,Bob", 0, false},
        {1, "", "A,B", "UserName", "Users,A,B", 0, false},
        {0, "UserGroups", "群組", "UserGroups", "UserGroups", Default, false},
        {5, "", "UserGroup1", "UserGroups", "UserGroups,UserGroup1", Default, false},
        {5, "", "Fire", "UserGroups", "UserGroups,Fire", Default, false},
        {5, "", "A,B", "UserGroups", "UserGroups,A,B", Default, false},
        {0, "Zones", "警報區", "Zones", "Zones", Default, false},
    };
    EXPECT_EQ(head, expected);
    EXPECT_EQ(nodes[10], (Node {9, "Zones0", "#0", "Alarm", "Zones,0", 0, false}));
    EXPECT_EQ(nodes[13], (Node {9, "Zones3", "#3-Hall", "Alarm", "Zones,3", Grey, false}));
    EXPECT_EQ(main.tvProjectContent.SelectedItem, -1);
    EXPECT_TRUE(g.project.rsUsers.IsEOF()) << "the rebuild leaves no current record";
}

TEST_F(MainWindowTest, WithoutAProjectTheTreeAndListAreEmptyAndTheEventsDoNothing)
{
    main.tvProjectContent.Nodes.push_back({});
    main.lbllvNodeContentCaption.Caption = "old";
    main.mktvProjContent();
    main.tvProjectContent_NodeClick();
    main.tvProjectContent_DblClick();
    main.lvNodeContent_DblClick();
    main.mklvNodeContent();
    EXPECT_TRUE(main.tvProjectContent.Nodes.empty());
    EXPECT_TRUE(main.lvNodeContent.ColumnHeaders.empty());
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, QString());
}

struct ParseCase
{
    const char* name;
    const char* tag;
    qint16 count;
    const char* items[4];
};

const ParseCase ParseCases[] = {
    {"empty leaves the items", "", 0, {"old", "old", "old", "old"}},
    {"a branch", "Users", 1, {"Users", "old", "old", "old"}},
    {"a leaf", "Zones,12", 2, {"Zones", "12", "old", "old"}},
    {"a comma in a name adds a field", "Users,A,B", 3, {"Users", "A", "B", "old"}},
    {"four fields fill the items", "a,b,,d", 4, {"a", "b", "", "d"}},
};

TEST(ParseNodeTag, SplitsOnCommas)
{
    for (const ParseCase& c : ParseCases) {
        SCOPED_TRACE(c.name);
        NodeTagItems Items;
        for (int i = 1; i <= 4; ++i)
            Items(i) = "old";
        qint16 count = -1;
        ParseNodeTag(QString::fromUtf8(c.tag), Items, count);
        EXPECT_EQ(count, c.count);
        for (int i = 1; i <= 4; ++i)
            EXPECT_EQ(Items(i), QString::fromUtf8(c.items[i - 1])) << i;
    }
}

TEST(ParseNodeTag, AFifthFieldIsASubscriptOutOfRange)
{
    NodeTagItems Items;
    qint16 count = 0;
    EXPECT_THROW(ParseNodeTag("Users,a,b,c,d", Items, count), UnhandledError);
}

// The current row of each recordset after the search: rsUsers' UserName, rsUserGroups'
// GroupName, rsZones' ZoneNo; nullptr where the case does not look. A record found, and the
// part before a comma, are seen in the double-click tables by the record current at the editor.
struct LocateCase
{
    const char* name;
    const char* tag;
    bool found;
    std::array<const char*, 3> rows;
};

const LocateCase LocateCases[] = {
    {"the name is compared exactly", "UserGroups,fire", false, {nullptr, "<none>", nullptr}},
    {"a branch moves nothing", "Users", false, {"<none>", "<none>", nullptr}},
    {"another kind word is found without moving", "ProjName,x", true, {"<none>", "<none>", nullptr}},
};

class LocateTest : public ProjectContentTest, public ::testing::WithParamInterface<LocateCase>
{ };

TEST_P(LocateTest, MovesTheRecordsetOfTheKind)
{
    const LocateCase& c = GetParam();
    NodeTagItems Items;
    qint16 count = 0;
    ParseNodeTag(QString::fromUtf8(c.tag), Items, count);
    bool found = !c.found;
    main.LocateCurRecord(Items, count, found);
    EXPECT_EQ(found, c.found);
    const std::pair<Recordset*, const char*> tables[] = {{&g.project.rsUsers, "UserName"},
        {&g.project.rsUserGroups, "GroupName"}, {&g.project.rsZones, "ZoneNo"}};
    for (int i = 0; i < 3; ++i) {
        if (c.rows[i]) {
            const auto& [rs, field] = tables[i];
            EXPECT_EQ(current(*rs, QString::fromLatin1(field)), QString::fromUtf8(c.rows[i])) << field;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Tags, LocateTest, ::testing::ValuesIn(LocateCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct DblClickCase
{
    const char* name;
    const char* tag;
    Editor editor;
    const char* record; // current when the editor opens; nullptr: none, and its load fails
};

const DblClickCase TreeDblClickCases[] = {
    {"a contact opens its editor", "Users,Bob", Editor::TelList, "Bob"},
    {"a contact with a comma opens nothing", "Users,A,B", Editor::None, ""},
    // Only the part before the comma is searched, so no group is current for the editor to read.
    {"a group with a comma still opens its editor", "UserGroups,A,B", Editor::GroupList, nullptr},
    {"a zone opens its editor", "Zones,3", Editor::ZoneList, "3"},
    {"a branch opens nothing", "Zones", Editor::None, ""},
    {"the root opens nothing", "ProjName", Editor::None, ""},
};

class TreeDblClickTest : public ProjectContentTest, public ::testing::WithParamInterface<DblClickCase>
{ };

TEST_P(TreeDblClickTest, OpensTheEditorOfTheSelectedRecord)
{
    const DblClickCase& c = GetParam();
    main.tvProjectContent.SelectedItem = nodeIndex(QString::fromUtf8(c.tag));
    if (!c.record) {
        EXPECT_THROW(main.tvProjectContent_DblClick(), UnhandledError);
        return;
    }
    expectEditor(c.editor, c.record);
    main.tvProjectContent_DblClick();
}

INSTANTIATE_TEST_SUITE_P(Nodes, TreeDblClickTest, ::testing::ValuesIn(TreeDblClickCases),
    [](const auto& info) { return CaseName(info.param.name); });

} // namespace
