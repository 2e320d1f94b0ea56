#include <sys/wait.h>
#include <unistd.h>

#include "CoreFixture.h"
#include "FileUtil.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace {
const QString SaveTitle = QStringLiteral("是否儲存專案");
}

TEST_F(CoreTest, NewProjectCopiesTheTemplateAndOpensItThroughAWorkingCopy)
{
    start();
    const QString path = projectPath(QStringLiteral("Site A.cmb"));
    platform.expectOpenDialog(path, [](const FileDialogOptions& o) {
        EXPECT_EQ(o.DialogTitle, QStringLiteral("開新專案"));
        EXPECT_EQ(o.InitDir, NativePath(QStringLiteral("..\\Project")));
        EXPECT_EQ(o.FileName, QStringLiteral("Project1"));
        EXPECT_EQ(o.Filter, QStringLiteral("Quillbeacon設定檔案,(*.cmb)|*.cmb|所有檔案,(*.*)|*.*"));
        EXPECT_EQ(o.FilterIndex, 1);
        EXPECT_EQ(o.Flags, 4);
    });
    NewProject(g);

    EXPECT_EQ(g.project.ProjectName, QStringLiteral("Site A"));
    EXPECT_EQ(g.project.ProjectFilePath, path);
    EXPECT_EQ(g.project.ProjectWorkPath, projectPath(QStringLiteral("Site A.mir")));
    EXPECT_TRUE(QFile::exists(g.project.ProjectWorkPath));
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_GT(g.project.MaxTelNo, 0);
    EXPECT_GT(g.project.MaxMemoryByte, 0);
    EXPECT_EQ(g.system.MRUCount, 1);
    EXPECT_EQ(g.system.MRUFilePath(1), path);
    EXPECT_EQ(
        NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("CreatedDate"))), QStringLiteral("2026-11-22"));
    EXPECT_EQ(g.project.rsZones.RecordCount(), 64);
    EXPECT_EQ(QDir::currentPath(), folder.appPath());
    EXPECT_EQ(view.refreshCount, 1);

    // The creation date went into the working copy only.
    CloseProjectTables(g);
    EXPECT_EQ(column(path, QStringLiteral("Basic"), QStringLiteral("CreatedDate")), QStringList {QString()});
    EXPECT_EQ(column(g.project.ProjectWorkPath, QStringLiteral("Basic"), QStringLiteral("CreatedDate")),
        QStringList {QStringLiteral("2026-11-22")});
}

TEST_F(CoreTest, NewProjectOverAnExistingFileAsksAndNoShowsTheDialogAgain)
{
    start();
    const QString taken = projectPath(QStringLiteral("Project1.cmb"));
    QFile(taken).open(QIODevice::WriteOnly);
    const QString other = projectPath(QStringLiteral("Other.cmb"));

    platform.expectOpenDialog(
        taken, [](const FileDialogOptions& o) { EXPECT_EQ(o.FileName, QStringLiteral("Project2")); });
    platform.expectBox(52, boxQuestionReplace(taken), QStringLiteral("此檔案已經存在"), MsgBox::No);
    platform.expectOpenDialog(
        other, [](const FileDialogOptions& o) { EXPECT_EQ(o.FileName, QStringLiteral("Project2")); });
    NewProject(g);

    EXPECT_EQ(g.project.ProjectName, QStringLiteral("Other"));
    EXPECT_EQ(QFileInfo(taken).size(), 0);
}

TEST_F(CoreTest, CancelledDialogsChangeNothing)
{
    start();
    platform.expectOpenDialog(std::nullopt);
    NewProject(g);
    // The dialog is one control: Open proposes the name New set, though New was cancelled.
    platform.expectOpenDialog(
        std::nullopt, [](const FileDialogOptions& o) { EXPECT_EQ(o.FileName, QStringLiteral("Project1")); });
    EXPECT_FALSE(OpenProject(g, QString()));
    EXPECT_TRUE(g.project.ProjectName.isEmpty());
    EXPECT_EQ(QDir(folder.projectDir()).entryList(QDir::Files), QStringList());
}

struct CloseCase
{
    const char* name;
    int answer;
    int result;
    bool committed;
};

class CloseAnswerTest : public CoreTest, public ::testing::WithParamInterface<CloseCase>
{ };

TEST_P(CloseAnswerTest, CloseWithEditsFollowsTheAnswer)
{
    const CloseCase c = GetParam();
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Night shift"));

    platform.expectBox(MsgBox::YesNoCancel, SavePrompt(QStringLiteral("Project1")), SaveTitle, c.answer);
    EXPECT_EQ(CloseProject(g), c.result);

    const bool cancelled = c.result == ProjectResult::Cancelled;
    EXPECT_EQ(g.project.ProjectName.isEmpty(), !cancelled);
    EXPECT_EQ(QFile::exists(projectPath(QStringLiteral("Project1.mir"))), cancelled);
    if (cancelled) {
        EXPECT_TRUE(g.project.IsProjectModified);
        EXPECT_EQ(g.project.rsUserGroups.RecordCount(), 2);
        CloseProjectTables(g);
    }
    const QStringList groups = column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName"));
    EXPECT_EQ(groups.contains(QStringLiteral("Night shift")), c.committed);
    // Yes dates the commit itself; the other answers leave the template's empty date.
    EXPECT_EQ(column(path, QStringLiteral("Basic"), QStringLiteral("ModifiedDate")).value(0).isEmpty(),
        !c.committed);
}

INSTANTIATE_TEST_SUITE_P(Answers, CloseAnswerTest,
    ::testing::Values(CloseCase {"Yes", MsgBox::Yes, ProjectResult::Done, true},
        CloseCase {"No", MsgBox::No, ProjectResult::Done, false},
        CloseCase {"Cancel", MsgBox::Cancel, ProjectResult::Cancelled, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CoreTest, CloseWithoutEditsAsksNothingAndRemovesTheWorkingCopy)
{
    start();
    newProject();
    EXPECT_EQ(CloseProject(g), ProjectResult::Done);
    EXPECT_FALSE(QFile::exists(projectPath(QStringLiteral("Project1.mir"))));
    EXPECT_EQ(view.statusHistory.back(), QString());
    EXPECT_EQ(view.pointerHistory.back(), Pointer::Default);
}

TEST_F(CoreTest, FileSaveCommitsThePreviousDateAndKeepsTheNewOneInTheWorkingCopy)
{
    start();
    const QString path = newProject();
    platform.clock = QDateTime(QDate(2026, 12, 1), QTime(8, 0));
    addGroup(QStringLiteral("Day shift"));

    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(
        NullToEmpty(g.project.rsBasic.Fields(QStringLiteral("ModifiedDate"))), QStringLiteral("2026-12-01"));
    CloseProjectTables(g);
    EXPECT_TRUE(column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName"))
                    .contains(QStringLiteral("Day shift")));
    EXPECT_EQ(column(path, QStringLiteral("Basic"), QStringLiteral("ModifiedDate")), QStringList {QString()});
    // The creation date of File New was not committed either: only edits mark a project modified.
    EXPECT_EQ(column(path, QStringLiteral("Basic"), QStringLiteral("CreatedDate")),
        QStringList {QStringLiteral("2026-11-22")});
}

TEST_F(CoreTest, OpenWithAStaleWorkingCopyDiscardsIt)
{
    start();
    const QString path = newProject();
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    const QString stale = projectPath(QStringLiteral("Project1.mir"));
    {
        QFile f(stale);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("left over from a crash");
    }
    ASSERT_TRUE(OpenProject(g, path));
    EXPECT_EQ(g.project.rsZones.RecordCount(), 64);
    EXPECT_EQ(view.statusHistory.front(), QStringLiteral("專案[Project1]開啟中..."));
}

struct RefusedOpenCase
{
    const char* name;
    const char* fileName;
    bool create;
    const char* text; // %1 is the path, %2 the file name
    const char* title;
};

class RefusedOpenTest : public CoreTest, public ::testing::WithParamInterface<RefusedOpenCase>
{ };

TEST_P(RefusedOpenTest, IsRefusedWithItsBox)
{
    const RefusedOpenCase c = GetParam();
    start();
    const QString path = projectPath(QString::fromUtf8(c.fileName));
    if (c.create)
        QFile(path).open(QIODevice::WriteOnly);
    QString text = QString::fromUtf8(c.text);
    text.replace(QStringLiteral("%1"), path).replace(QStringLiteral("%2"), QString::fromUtf8(c.fileName));
    platform.expectBox(MsgBox::Critical, text, QString::fromUtf8(c.title));
    EXPECT_FALSE(OpenProject(g, path));
    EXPECT_TRUE(g.project.ProjectName.isEmpty());
    EXPECT_EQ(g.system.MRUCount, 0);
}

INSTANTIATE_TEST_SUITE_P(Files, RefusedOpenTest,
    ::testing::Values(
        RefusedOpenCase {"UpperCaseExtension", "Site.CMB", true,
            "本專案無法開啟！\n因為專案檔名[%2]不屬於[.cmb]，導致本專案無法開啟。", "本專案無法執行"},
        RefusedOpenCase {"OtherExtension", "Site.mdb", true,
            "本專案無法開啟！\n因為專案檔名[%2]不屬於[.cmb]，導致本專案無法開啟。", "本專案無法執行"},
        RefusedOpenCase {"Missing", "Gone.cmb", false, "本專案檔案路徑[%1]不存在。", "專案開啟失敗"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CoreTest, AProjectFileThatIsNoDatabaseEndsInAnUnhandledError)
{
    start();
    const QString path = projectPath(QStringLiteral("Broken.cmb"));
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(QByteArray(4096, 'x'));
    }
    platform.expectBox(MsgBox::Critical,
        QStringLiteral("OpenMDBConn Failed!\nConnect String:")
            + ConnectString(projectPath(QStringLiteral("Broken.mir")), {}, {}),
        QStringLiteral("OpenMDBConn Failed"));
    // The provider's own description follows in a plain box; its wording is the driver's.
    platform.expectBoxWithAnyText(MsgBox::OKOnly, QStringLiteral("VORNA"));
    EXPECT_THROW(OpenProject(g, path), UnhandledError);
    const auto texts = platform.boxTexts();
    EXPECT_EQ(texts.size(), 2u);
    // What was on disk is untouched.
    EXPECT_EQ(QFileInfo(path).size(), 4096);
}

TEST_F(CoreTest, AProjectFileWithoutItsBasicTableEndsInAnUnhandledErrorWithoutABox)
{
    start();
    const QString path = newProject();
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    {
        // Rebuilt without the Basic table: the open of a missing table is silent.
        QFile::remove(path);
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("lacking"));
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery(db).exec(QStringLiteral("CREATE TABLE Zones (ZoneNo INTEGER PRIMARY KEY, ZoneName TEXT)"));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("lacking"));
    EXPECT_THROW(OpenProject(g, path), UnhandledError);
    EXPECT_TRUE(platform.boxTexts().empty());
}

TEST_F(CoreTest, SaveAsOntoItsOwnProjectFileReplacesItWithTheWorkingCopy)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    platform.expectSaveDialog(path, [](const FileDialogOptions& o) {
        EXPECT_EQ(o.DialogTitle, QStringLiteral("另存專案"));
        EXPECT_EQ(o.Filter, QStringLiteral("Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*"));
        EXPECT_EQ(o.FileName, QStringLiteral("Project2"));
    });
    platform.expectBox(52, boxQuestionReplace(path), QStringLiteral("此檔案已經存在"), MsgBox::Yes);
    SaveProjectAs(g);

    EXPECT_EQ(g.project.ProjectName, QStringLiteral("Project1"));
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(g.project.rsUserGroups.RecordCount(), 2);
    CloseProjectTables(g);
    EXPECT_TRUE(column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName"))
                    .contains(QStringLiteral("Guards")));
}

TEST_F(CoreTest, SaveAsToANewNameLeavesTheOldProjectAtItsLastCommit)
{
    start();
    const QString oldPath = newProject();
    addGroup(QStringLiteral("Guards"));
    const QString newPath = projectPath(QStringLiteral("Copy.cmb"));
    platform.expectSaveDialog(newPath);
    SaveProjectAs(g);

    EXPECT_EQ(g.project.ProjectFilePath, newPath);
    EXPECT_FALSE(QFile::exists(projectPath(QStringLiteral("Project1.mir"))));
    EXPECT_EQ(g.system.MRUFilePath(1), newPath);
    EXPECT_EQ(g.system.MRUFilePath(2), oldPath);
    EXPECT_FALSE(column(oldPath, QStringLiteral("UserGroups"), QStringLiteral("GroupName"))
                     .contains(QStringLiteral("Guards")));
}

TEST_F(CoreTest, SaveAsAnsweredNoEndsTheCommand)
{
    start();
    newProject();
    const QString taken = projectPath(QStringLiteral("Taken.cmb"));
    QFile(taken).open(QIODevice::WriteOnly);
    platform.expectSaveDialog(taken);
    platform.expectBox(52, boxQuestionReplace(taken), QStringLiteral("此檔案已經存在"), MsgBox::No);
    SaveProjectAs(g);
    EXPECT_EQ(g.project.ProjectName, QStringLiteral("Project1"));
    EXPECT_EQ(g.project.rsBasic.State(), 1);
}

TEST_F(CoreTest, SaveOntoAReadOnlyProjectFileShowsItsBoxAndLeavesItAlone)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    const QByteArray before = [&] {
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();
    QFile::setPermissions(path, QFileDevice::ReadOwner);
    platform.expectBox(MsgBox::Critical,
        QStringLiteral("儲存專案失敗。\n專案檔案[") + path + QStringLiteral("]檔案無法儲存。"),
        QStringLiteral("儲存專案失敗"));
    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);

    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), before);
    // The tables stay closed with the project still named: the next use is fatal.
    EXPECT_FALSE(g.project.ProjectName.isEmpty());
    EXPECT_THROW(g.project.rsUserGroups.MoveFirst(), UnhandledError);
}

TEST_F(CoreTest, SaveAsOntoAReadOnlyFileIsRefusedAsItsDeleteIs)
{
    start();
    newProject();
    const QString taken = projectPath(QStringLiteral("Taken.cmb"));
    QFile(taken).open(QIODevice::WriteOnly);
    QFile::setPermissions(taken, QFileDevice::ReadOwner);
    platform.expectSaveDialog(taken);
    platform.expectBox(52, boxQuestionReplace(taken), QStringLiteral("此檔案已經存在"), MsgBox::Yes);
    EXPECT_THROW(SaveProjectAs(g), UnhandledError);
    EXPECT_TRUE(QFileInfo::exists(taken));
}

TEST_F(CoreTest, ASaveThatCannotReplaceTheProjectFileLeavesTheProjectBroken)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    // Something that is not a file now stands where the project file was.
    QFile::remove(path);
    QDir().mkpath(path + QStringLiteral("/in the way"));
    platform.expectBox(MsgBox::Critical,
        QStringLiteral("儲存專案失敗。\n專案檔案[") + path + QStringLiteral("]檔案無法儲存。"),
        QStringLiteral("儲存專案失敗"));
    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);
    EXPECT_TRUE(QFileInfo(path).isDir());
    EXPECT_EQ(QDir(folder.projectDir()).entryList(QDir::Files), QStringList {QStringLiteral("Project1.mir")});
    EXPECT_THROW(g.project.rsBasic.Fields(QStringLiteral("ModifiedDate")), UnhandledError);
}

TEST_F(CoreTest, ACommitKilledMidwayLeavesTheProjectFileWhole)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    CloseProjectTables(g);
    const QByteArray before = [&] {
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }();

    // A child process copies the working copy over the project file and dies just
    // before the copy would take its place.
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        FileCopy(g.project.ProjectWorkPath, path, [] { ::_exit(9); });
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), 9);

    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), before);
    EXPECT_EQ(column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName")).size(), 1);
    OpenProjectTables(g, g.project.ProjectWorkPath);
}

TEST_F(CoreTest, ASecondProjectOfAnUnknownModelKeepsTheFirstOnesLimits)
{
    start();
    newProject();
    const qint16 maxTel = g.project.MaxTelNo;
    const qint16 maxMem = g.project.MaxMemoryByte;
    g.project.rsBasic.setField(QStringLiteral("DeviceModelName"), QStringLiteral("XX9"));
    g.project.rsBasic.Update();
    g.project.IsProjectModified = true;
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt(QStringLiteral("Project1")), SaveTitle, MsgBox::Yes);
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);

    ASSERT_TRUE(OpenProject(g, projectPath(QStringLiteral("Project1.cmb"))));
    EXPECT_EQ(g.project.MaxTelNo, maxTel);
    EXPECT_EQ(g.project.MaxMemoryByte, maxMem);
}

TEST_F(CoreTest, TheProposedNameIsEmptyWhenAllNinetyNineAreTaken)
{
    start();
    for (int n = 1; n <= 99; ++n)
        QFile(projectPath(QStringLiteral("Project%1.cmb").arg(n))).open(QIODevice::WriteOnly);
    EXPECT_EQ(ProposedProjectName(g), QString());
    QFile::remove(projectPath(QStringLiteral("Project57.cmb")));
    EXPECT_EQ(ProposedProjectName(g), QStringLiteral("Project57"));
}

TEST_F(CoreTest, FileExitWithCancelEndsTheProgramAndKeepsTheWorkingCopy)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    platform.expectBox(
        MsgBox::YesNoCancel, SavePrompt(QStringLiteral("Project1")), SaveTitle, MsgBox::Cancel);
    try {
        ExitApplication(g, true);
        FAIL() << "the program did not end";
    } catch (const ProcessEnded& e) {
        EXPECT_EQ(e.status, 0);
    }
    EXPECT_TRUE(QFile::exists(projectPath(QStringLiteral("Project1.mir"))));
    EXPECT_FALSE(column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName"))
                     .contains(QStringLiteral("Guards")));
    EXPECT_EQ(platform.settings[QStringLiteral("Settings/MainWidth")], QStringLiteral("10800"));
    EXPECT_EQ(platform.settings[QStringLiteral("Settings/ViewMode")], QStringLiteral("3"));
}

TEST_F(CoreTest, ExitFromAMinimisedWindowKeepsThePlaceButWritesTheViewMode)
{
    start();
    platform.settings[QStringLiteral("Settings/MainLeft")] = QStringLiteral("1234");
    view.placement = {0, 0, 1440, 400, 1, 2};
    EXPECT_THROW(ExitApplication(g, true), ProcessEnded);
    EXPECT_EQ(platform.settings[QStringLiteral("Settings/MainLeft")], QStringLiteral("1234"));
    EXPECT_EQ(platform.settings.count(QStringLiteral("Settings/MainWidth")), 0u);
    EXPECT_EQ(platform.settings[QStringLiteral("Settings/ViewMode")], QStringLiteral("2"));
}

TEST_F(CoreTest, TheDownloadCommitCopiesWithoutAskingAndKeepsTheModifiedFlag)
{
    start();
    const QString path = newProject();
    addGroup(QStringLiteral("Guards"));
    CommitWorkingCopy(g);
    EXPECT_TRUE(g.project.IsProjectModified);
    EXPECT_EQ(g.project.rsBasic.State(), 1);
    CloseProjectTables(g);
    EXPECT_TRUE(column(path, QStringLiteral("UserGroups"), QStringLiteral("GroupName"))
                    .contains(QStringLiteral("Guards")));
    OpenProjectTables(g, g.project.ProjectWorkPath);
}
