#include "CoreFixture.h"
#include "FileUtil.h"
#include "SystemDB.h"
#include "frmAbout.h"
#include "frmSplash.h"

// The profile is looked for in the current folder, not the program's: started from elsewhere,
// the start ends with its English box.
TEST_F(CoreTest, StartedFromAnotherFolderTheStartEndsForWantOfItsProfile)
{
    ChDir(folder.projectDir());
    platform.expectBox(
        MsgBox::Critical, "ML system failed!\nFile [VORNA.set] not exist.", "ML system failed");
    EXPECT_THROW(start(), ProcessEnded);
}

TEST_F(CoreTest, AMissingSystemDatabaseFailsAtTheRecentListWithoutABoxOfItsOwn)
{
    QFile::remove(folder.path("VORNA.sdb"));
    EXPECT_THROW(start(), UnhandledError);
}

TEST_F(CoreTest, AFifthRecentRowIsASubscriptError)
{
    {
        Connection conn = OpenMDBConn(platform, folder.path("VORNA.sdb"), {}, {});
        Recordset rs = OpenRecordset(conn, "MRUList", false);
        for (int i = 1; i <= 5; ++i)
            AddRow(rs, {{"FilePath", QString("/p/%1.cmb").arg(i)}});
        conn.Close();
    }
    try {
        start();
        FAIL() << "five recent rows were accepted";
    } catch (const UnhandledError& e) {
        EXPECT_EQ(e.text(), "Subscript out of range");
    }
}

TEST_F(CoreTest, TheSplashWaitsForWholeSecondsOrAClick)
{
    struct Case
    {
        const char* name;
        int startMs;    // where in its second the wait begins
        int clickAfter; // doEvents passes before a click; -1 for none
        qint64 minWaitMs;
        qint64 maxWaitMs;
    };
    const Case cases[] = {{"start of a second", 0, -1, 3000, 3020}, {"end of a second", 990, -1, 2000, 2030},
        {"clicked at once", 0, 1, 0, 40}};
    for (const Case& c : cases) {
        frmSplash splash(g);
        splash.Form_Load();
        platform.clock = QDateTime(QDate(2026, 11, 22), QTime(9, 30, 0, c.startMs));
        platform.autoAdvanceMs = 10;
        const int passes = platform.doEventsCount;
        platform.onDoEvents = [&] {
            if (platform.doEventsCount - passes == c.clickAfter)
                splash.Label1_Click();
        };
        const QDateTime begin = platform.clock;
        WaitForSplash(g, [&] { return splash.clicked(); });
        const qint64 waited = begin.msecsTo(platform.clock);
        EXPECT_GE(waited, c.minWaitMs) << c.name;
        EXPECT_LE(waited, c.maxWaitMs) << c.name;
    }
}

// The splash's version line is English whatever the form table holds, and Label3, which has
// no row, keeps its own caption; the about box appends the version to its caption from the table.
TEST_F(CoreTest, TheVersionLinesAndTheSplashLineWithoutARow)
{
    start();
    const QString version = QStringLiteral("%1.%2.%3")
                                .arg(g.program.App.Major)
                                .arg(g.program.App.Minor)
                                .arg(g.program.App.Revision);
    frmSplash splash(g);
    splash.Load();
    EXPECT_EQ(splash.lblVersion.Caption, QStringLiteral("Version ") + version);
    EXPECT_EQ(splash.Label3.Caption, QStringLiteral("Contignration Utility"));
    frmAbout about(g);
    about.Load();
    EXPECT_EQ(about.lblVersion.Caption, QStringLiteral("版本:") + version);
}

TEST_F(CoreTest, OnlyShiftAltLeftPressOnTheAboutIconOpensTheServiceWindow)
{
    frmAbout about(g);
    int opened = 0;
    about.openServiceWindow = [&] { ++opened; };
    about.picIcon_MouseDown(1, 1);
    about.picIcon_MouseDown(1, 4);
    about.picIcon_MouseDown(2, 5);
    about.picIcon_MouseDown(1, 7);
    EXPECT_EQ(opened, 0);
    about.picIcon_MouseDown(1, 5);
    EXPECT_EQ(opened, 1);
}
