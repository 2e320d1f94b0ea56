#include "CoreFixture.h"
#include "SystemDB.h"

// The newest comes first and the table is written at once; the menu is rebuilt only when a
// new path comes in.
TEST_F(CoreTest, TheRecentListKeepsTheNewestFirstAndWritesTheTableAtOnce)
{
    struct Case
    {
        const char* name;
        QStringList before;
        QString opened;
        QStringList after;
        int menuRebuilds;
    };
    const Case cases[] = {{"first into an empty list", {}, "/p/a.cmb", {"/p/a.cmb"}, 1},
        {"place one changes nothing", {"/p/a.cmb", "/p/b.cmb"}, "/p/a.cmb", {"/p/a.cmb", "/p/b.cmb"}, 0},
        {"place three moves to the top", {"/p/1.cmb", "/p/2.cmb", "/p/3.cmb", "/p/4.cmb"}, "/p/3.cmb",
            {"/p/3.cmb", "/p/1.cmb", "/p/2.cmb", "/p/4.cmb"}, 0},
        {"a fifth pushes out the oldest", {"/p/1.cmb", "/p/2.cmb", "/p/3.cmb", "/p/4.cmb"}, "/p/5.cmb",
            {"/p/5.cmb", "/p/1.cmb", "/p/2.cmb", "/p/3.cmb"}, 1},
        {"case makes another entry", {"/p/a.cmb"}, "/p/A.cmb", {"/p/A.cmb", "/p/a.cmb"}, 1}};
    start();
    for (const Case& c : cases) {
        g.system.MRUCount = 0;
        for (const QString& p : c.before)
            g.system.MRUFilePath(++g.system.MRUCount) = p;
        if (g.system.MRUCount > 0) // the empty list is the first case, on the empty table
            SaveMRUList(g);
        view.recentMenuCount = 0;

        AddMRUFilePath(g, c.opened);
        QStringList now;
        for (int i = 1; i <= g.system.MRUCount; ++i)
            now << g.system.MRUFilePath(i);
        EXPECT_EQ(now, c.after) << c.name;
        EXPECT_EQ(column(folder.path("VORNA.sdb"), "MRUList", "FilePath"), c.after) << c.name;
        EXPECT_EQ(view.recentMenuCount, c.menuRebuilds) << c.name;
    }
}

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
