#include <sys/wait.h>
#include <unistd.h>

#include "CoreFixture.h"
#include "FileUtil.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace {

// The installation, started, with no project open.
class ProjectTest : public CoreTest
{
protected:
    void SetUp() override { start(); }

    // The group names committed to a closed project file.
    QStringList groups(const QString& path) { return column(path, "UserGroups", "GroupName"); }
    void expectReplace(const QString& path, int answer)
    {
        platform.expectBox(52, boxQuestionReplace(path), "此檔案已經存在", answer);
    }
};

} // namespace

TEST_F(ProjectTest, NewProjectCopiesTheTemplateAndOpensItThroughAWorkingCopy)
{
    const QString path = projectPath("Site A.cmb");
    platform.expectOpenDialog(path, [](const FileDialogOptions& o) {
        EXPECT_EQ(o.DialogTitle, "開新專案");
        EXPECT_EQ(o.InitDir, NativePath("..\\Project"));
        EXPECT_EQ(o.FileName, "Project1");
        EXPECT_EQ(o.Filter, "Quillbeacon設定檔案,(*.cmb)|*.cmb|所有檔案,(*.*)|*.*");
        EXPECT_EQ(o.FilterIndex, 1);
        EXPECT_EQ(o.Flags, 4);
    });
    NewProject(g);

    EXPECT_EQ(g.project.ProjectName, "Site A");
    EXPECT_EQ(g.project.ProjectFilePath, path);
    EXPECT_EQ(g.project.ProjectWorkPath, projectPath("Site A.mir"));
    EXPECT_TRUE(QFile::exists(g.project.ProjectWorkPath));
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_GT(g.project.MaxTelNo, 0);
    EXPECT_GT(g.project.MaxMemoryByte, 0);
    EXPECT_EQ(g.system.MRUCount, 1);
    EXPECT_EQ(g.system.MRUFilePath(1), path);
    EXPECT_EQ(NullToEmpty(g.project.rsBasic.Fields("CreatedDate")), "2026-11-22");
    EXPECT_EQ(g.project.rsZones.RecordCount(), 64);
    EXPECT_EQ(QDir::currentPath(), folder.appPath());
    EXPECT_EQ(view.refreshCount, 1);

    // The creation date went into the working copy only.
    CloseProjectTables(g);
    EXPECT_EQ(column(path, "Basic", "CreatedDate"), QStringList {QString()});
    EXPECT_EQ(column(g.project.ProjectWorkPath, "Basic", "CreatedDate"), QStringList {"2026-11-22"});
}

TEST_F(ProjectTest, NewProjectOverAnExistingFileAsksAndNoShowsTheDialogAgain)
{
    const QString taken = projectPath("Project1.cmb");
    QFile(taken).open(QIODevice::WriteOnly);
    const auto proposesProject2 = [](const FileDialogOptions& o) { EXPECT_EQ(o.FileName, "Project2"); };
    platform.expectOpenDialog(taken, proposesProject2);
    expectReplace(taken, MsgBox::No);
    platform.expectOpenDialog(projectPath("Other.cmb"), proposesProject2);
    NewProject(g);

    EXPECT_EQ(g.project.ProjectName, "Other");
    EXPECT_EQ(QFileInfo(taken).size(), 0);
}

TEST_F(ProjectTest, CancelledDialogsChangeNothing)
{
    platform.expectOpenDialog(std::nullopt);
    NewProject(g);
    // The dialog is one control: Open proposes the name New set, though New was cancelled.
    platform.expectOpenDialog(
        std::nullopt, [](const FileDialogOptions& o) { EXPECT_EQ(o.FileName, "Project1"); });
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

class CloseAnswerTest : public ProjectTest, public ::testing::WithParamInterface<CloseCase>
{ };

TEST_P(CloseAnswerTest, CloseWithEditsFollowsTheAnswer)
{
    const CloseCase c = GetParam();
    const QString path = newProject();
    addGroup("Night shift");

    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, c.answer);
    EXPECT_EQ(CloseProject(g), c.result);

    const bool cancelled = c.result == ProjectResult::Cancelled;
    EXPECT_EQ(g.project.ProjectName.isEmpty(), !cancelled);
    EXPECT_EQ(QFile::exists(projectPath("Project1.mir")), cancelled);
    if (cancelled) {
        EXPECT_TRUE(g.project.IsProjectModified);
        EXPECT_EQ(g.project.rsUserGroups.RecordCount(), 2);
        CloseProjectTables(g);
    }
    EXPECT_EQ(groups(path).contains("Night shift"), c.committed);
    // Yes dates the commit itself; the other answers leave the template's empty date.
    EXPECT_EQ(column(path, "Basic", "ModifiedDate").value(0).isEmpty(), !c.committed);
}

INSTANTIATE_TEST_SUITE_P(Answers, CloseAnswerTest,
    ::testing::Values(CloseCase {"Yes", MsgBox::Yes, ProjectResult::Done, true},
        CloseCase {"No", MsgBox::No, ProjectResult::Done, false},
        CloseCase {"Cancel", MsgBox::Cancel, ProjectResult::Cancelled, false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ProjectTest, CloseWithoutEditsAsksNothingAndRemovesTheWorkingCopy)
{
    newProject();
    EXPECT_EQ(CloseProject(g), ProjectResult::Done);
    EXPECT_FALSE(QFile::exists(projectPath("Project1.mir")));
    EXPECT_EQ(view.statusHistory.back(), QString());
    EXPECT_EQ(view.pointerHistory.back(), Pointer::Default);
}

TEST_F(ProjectTest, FileSaveCommitsThePreviousDateAndKeepsTheNewOneInTheWorkingCopy)
{
    const QString path = newProject();
    platform.clock = QDateTime(QDate(2026, 12, 1), QTime(8, 0));
    addGroup("Day shift");

    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(NullToEmpty(g.project.rsBasic.Fields("ModifiedDate")), "2026-12-01");
    CloseProjectTables(g);
    EXPECT_TRUE(groups(path).contains("Day shift"));
    EXPECT_EQ(column(path, "Basic", "ModifiedDate"), QStringList {QString()});
    // The creation date of File New was not committed either: only edits mark a project modified.
    EXPECT_EQ(column(path, "Basic", "CreatedDate"), QStringList {"2026-11-22"});
}

TEST_F(ProjectTest, OpenWithAStaleWorkingCopyDiscardsIt)
{
    const QString path = newProject();
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    WriteAll(projectPath("Project1.mir"), "left over from a crash");
    ASSERT_TRUE(OpenProject(g, path));
    EXPECT_EQ(g.project.rsZones.RecordCount(), 64);
    EXPECT_EQ(view.statusHistory.front(), "專案[Project1]開啟中...");
}

TEST_F(ProjectTest, OpenIsRefusedWithItsBox)
{
    struct Case
    {
        QString fileName;
        bool create;
        QString text;
        QString title;
    };
    const QString notCmb = "本專案無法開啟！\n因為專案檔名[%1]不屬於[.cmb]，導致本專案無法開啟。";
    const std::array cases = {
        Case {"Site.CMB", true, notCmb.arg("Site.CMB"), "本專案無法執行"}, // the extension's case counts
        Case {"Site.mdb", true, notCmb.arg("Site.mdb"), "本專案無法執行"},
        Case {"Gone.cmb", false, "本專案檔案路徑[" + projectPath("Gone.cmb") + "]不存在。", "專案開啟失敗"},
    };
    for (const Case& c : cases) {
        if (c.create)
            QFile(projectPath(c.fileName)).open(QIODevice::WriteOnly);
        platform.expectBox(MsgBox::Critical, c.text, c.title);
        EXPECT_FALSE(OpenProject(g, projectPath(c.fileName)));
        EXPECT_TRUE(platform.allExpectationsMet()) << c.fileName.toStdString();
    }
    EXPECT_TRUE(g.project.ProjectName.isEmpty());
    EXPECT_EQ(g.system.MRUCount, 0);
}

TEST_F(ProjectTest, AProjectFileThatIsNoDatabaseEndsInAnUnhandledError)
{
    const QString path = projectPath("Broken.cmb");
    WriteAll(path, QByteArray(4096, 'x'));
    // The box names the working copy, the file actually opened.
    platform.expectBox(MsgBox::Critical,
        "OpenMDBConn Failed!\nConnect String:" + ConnectString(projectPath("Broken.mir"), {}, {}),
        "OpenMDBConn Failed");
    // The provider's own description follows in a plain box; its wording is the driver's.
    platform.expectBoxWithAnyText(MsgBox::OKOnly, "VORNA");
    EXPECT_THROW(OpenProject(g, path), UnhandledError);
    EXPECT_EQ(QFileInfo(path).size(), 4096); // what was on disk is untouched
}

TEST_F(ProjectTest, AProjectFileWithoutItsBasicTableEndsInAnUnhandledErrorWithoutABox)
{
    const QString path = newProject();
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    {
        // Rebuilt without the Basic table: the open of a missing table is silent.
        QFile::remove(path);
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "lacking");
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery(db).exec("CREATE TABLE Zones (ZoneNo INTEGER PRIMARY KEY, ZoneName TEXT)");
        db.close();
    }
    QSqlDatabase::removeDatabase("lacking");
    EXPECT_THROW(OpenProject(g, path), UnhandledError);
}

TEST_F(ProjectTest, SaveAsOntoItsOwnProjectFileReplacesItWithTheWorkingCopy)
{
    const QString path = newProject();
    addGroup("Guards");
    platform.expectSaveDialog(path, [](const FileDialogOptions& o) {
        EXPECT_EQ(o.DialogTitle, "另存專案");
        EXPECT_EQ(o.Filter, "Quillbeacon設定檔案,(*.cbm)|*.cmb|所有檔案,(*.*)|*.*");
        EXPECT_EQ(o.FileName, "Project2");
    });
    expectReplace(path, MsgBox::Yes);
    SaveProjectAs(g);

    EXPECT_EQ(g.project.ProjectName, "Project1");
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(g.project.rsUserGroups.RecordCount(), 2);
    CloseProjectTables(g);
    EXPECT_TRUE(groups(path).contains("Guards"));
}

TEST_F(ProjectTest, SaveAsToANewNameLeavesTheOldProjectAtItsLastCommit)
{
    const QString oldPath = newProject();
    addGroup("Guards");
    const QString newPath = projectPath("Copy.cmb");
    platform.expectSaveDialog(newPath);
    SaveProjectAs(g);

    EXPECT_EQ(g.project.ProjectFilePath, newPath);
    EXPECT_FALSE(QFile::exists(projectPath("Project1.mir")));
    EXPECT_EQ(g.system.MRUFilePath(1), newPath);
    EXPECT_EQ(g.system.MRUFilePath(2), oldPath);
    EXPECT_FALSE(groups(oldPath).contains("Guards"));
}

TEST_F(ProjectTest, SaveAsOntoAnotherFileAnsweredNoEndsTheCommandAndReadOnlyIsFatal)
{
    newProject();
    const QString taken = projectPath("Taken.cmb");
    QFile(taken).open(QIODevice::WriteOnly);
    platform.expectSaveDialog(taken);
    expectReplace(taken, MsgBox::No);
    SaveProjectAs(g);
    EXPECT_EQ(g.project.ProjectName, "Project1");
    EXPECT_EQ(g.project.rsBasic.State(), 1);

    // Yes onto a read-only file is refused as its delete is.
    QFile::setPermissions(taken, QFileDevice::ReadOwner);
    platform.expectSaveDialog(taken);
    expectReplace(taken, MsgBox::Yes);
    EXPECT_THROW(SaveProjectAs(g), UnhandledError);
    EXPECT_TRUE(QFileInfo::exists(taken));
}

struct BlockedSaveCase
{
    const char* name;
    bool readOnly; // else something that is not a file stands where the project file was
    QStringList files;
};

class BlockedSaveTest : public ProjectTest, public ::testing::WithParamInterface<BlockedSaveCase>
{ };

// The box comes, the file stays as it was, and the tables stay closed with the project still
// named: the next use is fatal. A read-only project opens without a word, over a read-only
// working copy left by an earlier run, and takes edits until the save.
TEST_P(BlockedSaveTest, ShowsItsBoxAndLeavesTheProjectBroken)
{
    const QString path = newProject();
    const QByteArray before = ReadAll(path);
    if (GetParam().readOnly) {
        ASSERT_EQ(CloseProject(g), ProjectResult::Done);
        const QString stale = projectPath("Project1.mir");
        WriteAll(stale, "left over from a crash");
        for (const QString& file : {path, stale})
            QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
        ASSERT_TRUE(OpenProject(g, path));
        addGroup("Guards");
    } else {
        addGroup("Guards");
        QFile::remove(path);
        QDir().mkpath(path + "/in the way");
    }
    platform.expectBox(
        MsgBox::Critical, "儲存專案失敗。\n專案檔案[" + path + "]檔案無法儲存。", "儲存專案失敗");
    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);

    EXPECT_EQ(QFileInfo(path).isDir(), !GetParam().readOnly);
    EXPECT_EQ(ReadAll(path), GetParam().readOnly ? before : QByteArray());
    EXPECT_EQ(QDir(folder.projectDir()).entryList(QDir::Files), GetParam().files);
    EXPECT_FALSE(g.project.ProjectName.isEmpty());
    EXPECT_THROW(g.project.rsUserGroups.MoveFirst(), UnhandledError);
    EXPECT_THROW(g.project.rsBasic.Fields("ModifiedDate"), UnhandledError);
}

INSTANTIATE_TEST_SUITE_P(Saves, BlockedSaveTest,
    ::testing::Values(BlockedSaveCase {"ReadOnlyProjectFile", true, {"Project1.cmb", "Project1.mir"}},
        BlockedSaveCase {"FolderInTheWay", false, {"Project1.mir"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ProjectTest, ACommitKilledMidwayLeavesTheProjectFileWhole)
{
    const QString path = newProject();
    addGroup("Guards");
    CloseProjectTables(g);
    const QByteArray before = ReadAll(path);

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

    EXPECT_EQ(ReadAll(path), before);
    EXPECT_EQ(groups(path).size(), 1);
    OpenProjectTables(g, g.project.ProjectWorkPath);
}

TEST_F(ProjectTest, ASecondProjectOfAnUnknownModelKeepsTheFirstOnesLimits)
{
    newProject();
    const qint16 maxTel = g.project.MaxTelNo;
    const qint16 maxMem = g.project.MaxMemoryByte;
    g.project.rsBasic.setField("DeviceModelName", "XX9");
    g.project.rsBasic.Update();
    g.project.IsProjectModified = true;
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Yes);
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);

    ASSERT_TRUE(OpenProject(g, projectPath("Project1.cmb")));
    EXPECT_EQ(g.project.MaxTelNo, maxTel);
    EXPECT_EQ(g.project.MaxMemoryByte, maxMem);
}

TEST_F(ProjectTest, TheProposedNameIsEmptyWhenAllNinetyNineAreTaken)
{
    for (int n = 1; n <= 99; ++n)
        QFile(projectPath(QString("Project%1.cmb").arg(n))).open(QIODevice::WriteOnly);
    EXPECT_EQ(ProposedProjectName(g), QString());
    QFile::remove(projectPath("Project57.cmb"));
    EXPECT_EQ(ProposedProjectName(g), "Project57");
}

TEST_F(ProjectTest, FileExitWithCancelEndsTheProgramAndKeepsTheWorkingCopy)
{
    const QString path = newProject();
    addGroup("Guards");
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Cancel);
    try {
        ExitApplication(g, true);
        FAIL() << "the program did not end";
    } catch (const ProcessEnded& e) {
        EXPECT_EQ(e.status, 0);
    }
    EXPECT_TRUE(QFile::exists(projectPath("Project1.mir")));
    EXPECT_FALSE(groups(path).contains("Guards"));
}

TEST_F(ProjectTest, TheDownloadCommitCopiesWithoutAskingAndKeepsTheModifiedFlag)
{
    const QString path = newProject();
    addGroup("Guards");
    CommitWorkingCopy(g);
    EXPECT_TRUE(g.project.IsProjectModified);
    EXPECT_EQ(g.project.rsBasic.State(), 1);
    CloseProjectTables(g);
    EXPECT_TRUE(groups(path).contains("Guards"));
    OpenProjectTables(g, g.project.ProjectWorkPath);
}
