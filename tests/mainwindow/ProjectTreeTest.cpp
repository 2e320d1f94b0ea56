#include "ProjectTree.h"
#include "MainWindowFixture.h"
#include "UnhandledError.h"

namespace {

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

TEST(ParseNodeTag, SplitsOnCommasIntoFourFieldsAtMost)
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
    NodeTagItems Items;
    qint16 count = 0;
    EXPECT_THROW(ParseNodeTag("Users,a,b,c,d", Items, count), UnhandledError) << "a fifth field";
}

// Where a record is found the double-click and context-menu tables see it current at the editor.
TEST_F(ProjectContentTest, LocateMovesTheRecordsetOfTheKindOnlyOnAnExactName)
{
    const struct
    {
        const char* tag;
        bool found;
        const char* current;
    } cases[] = {
        {"UserGroups,fire", false, "current: Users=<none> UserGroups=<none> Zones=<none>\n"},
        {"Users", false, "current: Users=<none> UserGroups=<none> Zones=<none>\n"},
        {"ProjName,x", true, "current: Users=<none> UserGroups=<none> Zones=<none>\n"},
        {"UserGroups,Fire", true, "current: Users=<none> UserGroups=Fire Zones=<none>\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.tag);
        NodeTagItems Items;
        qint16 count = 0;
        ParseNodeTag(QString::fromUtf8(c.tag), Items, count);
        bool found = !c.found;
        main.LocateCurRecord(Items, count, found);
        EXPECT_EQ(found, c.found);
        EXPECT_EQ(currentRecords(), QString::fromUtf8(c.current));
    }
}

} // namespace
