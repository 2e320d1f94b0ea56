#include "CoreFixture.h"
#include "SystemDB.h"

struct RecentCase
{
    const char* name;
    QStringList before;
    QString opened;
    QStringList after;
    int menuRebuilds; // the menu is rebuilt only when a new path comes in
};

class RecentListTest : public CoreTest, public ::testing::WithParamInterface<RecentCase>
{ };

TEST_P(RecentListTest, KeepsTheNewestFirstAndWritesTheTableAtOnce)
{
    const RecentCase c = GetParam();
    start();
    for (const QString& p : c.before) {
        ++g.system.MRUCount;
        g.system.MRUFilePath(g.system.MRUCount) = p;
    }
    if (g.system.MRUCount > 0)
        SaveMRUList(g);
    view.recentMenuCount = 0;

    AddMRUFilePath(g, c.opened);

    QStringList now;
    for (int i = 1; i <= g.system.MRUCount; ++i)
        now << g.system.MRUFilePath(i);
    EXPECT_EQ(now, c.after);
    EXPECT_EQ(column(folder.path("VORNA.sdb"), "MRUList", "FilePath"), c.after);
    EXPECT_EQ(view.recentMenuCount, c.menuRebuilds);
}

INSTANTIATE_TEST_SUITE_P(Orders, RecentListTest,
    ::testing::Values(RecentCase {"FirstIntoAnEmptyList", {}, "/p/a.cmb", {"/p/a.cmb"}, 1},
        RecentCase {
            "PlaceOneChangesNothing", {"/p/a.cmb", "/p/b.cmb"}, "/p/a.cmb", {"/p/a.cmb", "/p/b.cmb"}, 0},
        RecentCase {"PlaceThreeMovesToTheTop", {"/p/1.cmb", "/p/2.cmb", "/p/3.cmb", "/p/4.cmb"}, "/p/3.cmb",
            {"/p/3.cmb", "/p/1.cmb", "/p/2.cmb", "/p/4.cmb"}, 0},
        RecentCase {"AFifthPushesOutTheOldest", {"/p/1.cmb", "/p/2.cmb", "/p/3.cmb", "/p/4.cmb"}, "/p/5.cmb",
            {"/p/5.cmb", "/p/1.cmb", "/p/2.cmb", "/p/3.cmb"}, 1},
        RecentCase {"CaseMakesAnotherEntry", {"/p/a.cmb"}, "/p/A.cmb", {"/p/A.cmb", "/p/a.cmb"}, 1}),
    [](const auto& info) { return std::string(info.param.name); });

// Each program writes its whole list at once, so the last writer's list is what the next
// start reads back, in its order.
TEST_F(CoreTest, TheRecentListStaysWholeWhenTwoProgramsShareTheFolder)
{
    start();
    AddMRUFilePath(g, "/p/a.cmb");
    VORNAGlobal other(platform);
    InitApplication(other, folder.appPath());
    for (const char* path : {"/p/b.cmb", "/p/c.cmb", "/p/d.cmb", "/p/e.cmb"})
        AddMRUFilePath(other, path);
    AddMRUFilePath(g, "/p/f.cmb");
    EXPECT_EQ(
        column(folder.path("VORNA.sdb"), "MRUList", "FilePath"), (QStringList {"/p/f.cmb", "/p/a.cmb"}));

    VORNAGlobal next(platform);
    InitApplication(next, folder.appPath());
    ASSERT_EQ(next.system.MRUCount, 2);
    EXPECT_EQ(next.system.MRUFilePath(1), "/p/f.cmb");
    EXPECT_EQ(next.system.MRUFilePath(2), "/p/a.cmb");
}
