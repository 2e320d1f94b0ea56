#include "CoreFixture.h"
#include "FileUtil.h"
#include "Golden.h"

#include <QSqlDatabase>
#include <QSqlQuery>

namespace {

// One database file as another program would read it: its groups and its two dates.
QString DescribeFile(const QFileInfo& file)
{
    if (file.isDir())
        return "a folder";
    QString text;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "reader");
        db.setDatabaseName(file.filePath());
        db.setConnectOptions("QSQLITE_OPEN_READONLY");
        QSqlQuery q(db);
        if (!db.open() || !q.exec("SELECT CreatedDate, ModifiedDate FROM Basic") || !q.next()) {
            text = file.size() == 0 ? "empty" : "no project";
        } else {
            text = QString("created %1, modified %2, groups")
                       .arg(q.value(0).toString(), q.value(1).toString());
            q.exec("SELECT GroupName FROM UserGroups");
            while (q.next())
                text += QLatin1Char(' ') + q.value(0).toString();
            q.exec("SELECT count(*) FROM Zones");
            text += q.next() ? QString(", %1 zones").arg(q.value(0).toInt()) : QString();
        }
    }
    QSqlDatabase::removeDatabase("reader");
    return text;
}

// The installation, started, with no project open. A test writes what each step left into a
// log, compared at the end with the golden file of the test's name.
class ProjectTest : public CoreTest
{
protected:
    void SetUp() override { start(); }

    void expectReplace(const QString& path, int answer)
    {
        platform.expectBox(
            52, "檔案[" + path + "]已經存在，您要取代現存的檔案嗎？", "此檔案已經存在", answer);
    }
    QString shortPath(const QString& path) const { return QDir(folder.root()).relativeFilePath(path); }

    // A file dialog's options as the user sees them, noted when it is shown.
    std::function<void(const FileDialogOptions&)> noteDialog()
    {
        return [this](const FileDialogOptions& o) {
            log += QString("dialog \"%1\" in %2 proposing \"%3\", filter %4 (%5), flags %6\n")
                       .arg(o.DialogTitle, o.InitDir, o.FileName, o.Filter)
                       .arg(o.FilterIndex)
                       .arg(o.Flags);
        };
    }

    // The project in memory with the model's limits, the recent list and every file in the project folder.
    void note(const QString& step)
    {
        const ProjectState& p = g.project;
        log += QString("== %1\nproject \"%2\"%3, tables %4, file %5, working copy %6\n")
                   .arg(step, p.ProjectName, p.IsProjectModified ? " modified" : QString(),
                       p.rsBasic.State() == 1 ? "open" : "closed", shortPath(p.ProjectFilePath),
                       shortPath(p.ProjectWorkPath));
        log += QString("limits %1 numbers, %2 bytes; ").arg(p.MaxTelNo).arg(p.MaxMemoryByte);
        log += "recent";
        for (int i = 1; i <= g.system.MRUCount; ++i)
            log += QLatin1Char(' ') + shortPath(g.system.MRUFilePath(i));
        log += QLatin1Char('\n');
        for (const QFileInfo& f :
            QDir(folder.projectDir()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            log += QString("  %1: %2\n").arg(f.fileName(), DescribeFile(f));
    }
    void expectLog()
    {
        const QString name
            = QString::fromLatin1(::testing::UnitTest::GetInstance()->current_test_info()->name());
        ExpectGolden(QString("core/golden/project-%1.txt").arg(QString(name).replace(u'/', u'-')), log);
    }

    QString log;
};

} // namespace

TEST_F(ProjectTest, NewProjectCopiesTheTemplateAndOpensItThroughAWorkingCopy)
{
    platform.expectOpenDialog(projectPath("Site A.cmb"), noteDialog());
    NewProject(g);
    note("new, the creation date only in the working copy");
    EXPECT_EQ(QDir::currentPath(), folder.appPath());
    EXPECT_EQ(view.refreshCount, 1);

    // Closed without edits, nothing is asked and the working copy goes. A taken name is asked
    // about; No shows the dialog again, proposing the next free name.
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    EXPECT_EQ(view.statusHistory.back(), QString());
    EXPECT_EQ(view.pointerHistory.back(), Pointer::Default);
    const QString taken = projectPath("Project1.cmb");
    QFile(taken).open(QIODevice::WriteOnly);
    platform.expectOpenDialog(taken, noteDialog());
    expectReplace(taken, MsgBox::No);
    platform.expectOpenDialog(projectPath("Other.cmb"), noteDialog());
    NewProject(g);
    note("new over a taken name, answered No");

    // Cancelled, nothing changes; the dialog is one control, so Open proposes the name New set.
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    platform.expectOpenDialog(std::nullopt, noteDialog());
    NewProject(g);
    platform.expectOpenDialog(std::nullopt, noteDialog());
    EXPECT_FALSE(OpenProject(g, QString()));
    note("new and open cancelled");
    expectLog();
}

class CloseAnswerTest : public ProjectTest, public ::testing::WithParamInterface<int>
{ };

// Yes commits with the day's date; No and Cancel leave the file as it was, and Cancel keeps
// the project open with its edits.
TEST_P(CloseAnswerTest, CloseWithEditsFollowsTheAnswer)
{
    newProject();
    addGroup("Night shift");
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, GetParam());
    EXPECT_EQ(CloseProject(g), GetParam() == MsgBox::Cancel ? ProjectResult::Cancelled : ProjectResult::Done);
    note("closed");
    expectLog();
}

INSTANTIATE_TEST_SUITE_P(Answers, CloseAnswerTest, ::testing::Values(MsgBox::Yes, MsgBox::No, MsgBox::Cancel),
    [](const auto& info) {
        return std::string(info.param == MsgBox::Yes ? "Yes" : info.param == MsgBox::No ? "No" : "Cancel");
    });

// File Save commits the previous modification date and keeps the new one in the working copy.
// The creation date of File New goes with it: only edits mark a project modified. The download's
// commit copies without asking and leaves the project marked modified.
TEST_F(ProjectTest, SavesCommitTheWorkingCopy)
{
    newProject();
    platform.clock = QDateTime(QDate(2026, 12, 1), QTime(8, 0));
    addGroup("Day shift");
    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);
    note("File Save");
    addGroup("Guards");
    CommitWorkingCopy(g);
    note("download's commit");
    expectLog();
}

// The extension's case counts: only ".cmb" opens.
TEST_F(ProjectTest, OpenIsRefusedWithItsBoxUnlessTheExtensionIsLowerCaseCmb)
{
    QFile(projectPath("Site.CMB")).open(QIODevice::WriteOnly);
    platform.expectBox(MsgBox::Critical,
        "本專案無法開啟！\n因為專案檔名[Site.CMB]不屬於[.cmb]，導致本專案無法開啟。", "本專案無法執行");
    EXPECT_FALSE(OpenProject(g, projectPath("Site.CMB")));
    EXPECT_TRUE(g.project.ProjectName.isEmpty());
    EXPECT_EQ(g.system.MRUCount, 0);
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

// Onto its own file, Save As replaces it with the working copy; to a new name it leaves the old
// project at its last commit; onto another file answered No it ends the command; Yes onto a
// read-only file is refused as its delete is.
TEST_F(ProjectTest, SaveAsReplacesAskingOrWritesANewProject)
{
    const QString path = newProject();
    addGroup("Guards");
    platform.expectSaveDialog(path, noteDialog());
    expectReplace(path, MsgBox::Yes);
    SaveProjectAs(g);
    note("Save As onto its own file");

    addGroup("Night shift");
    platform.expectSaveDialog(projectPath("Copy.cmb"), noteDialog());
    SaveProjectAs(g);
    note("Save As to a new name");

    const QString taken = projectPath("Taken.cmb");
    QFile(taken).open(QIODevice::WriteOnly);
    platform.expectSaveDialog(taken);
    expectReplace(taken, MsgBox::No);
    SaveProjectAs(g);
    note("Save As onto another file, answered No");
    expectLog();

    QFile::setPermissions(taken, QFileDevice::ReadOwner);
    platform.expectSaveDialog(taken);
    expectReplace(taken, MsgBox::Yes);
    EXPECT_THROW(SaveProjectAs(g), UnhandledError);
    EXPECT_TRUE(QFileInfo::exists(taken));
}

class BlockedSaveTest : public ProjectTest, public ::testing::WithParamInterface<bool>
{ };

// The box comes, the file stays as it was, and the tables stay closed with the project still
// named: the next use is fatal. A read-only project opens without a word, over a read-only
// working copy left by an earlier run (which it discards), and takes edits until the save. The other case has
// a folder where the project file was.
TEST_P(BlockedSaveTest, ShowsItsBoxAndLeavesTheProjectBroken)
{
    const QString path = newProject();
    const QByteArray before = ReadAll(path);
    if (GetParam()) {
        ASSERT_EQ(CloseProject(g), ProjectResult::Done);
        const QString stale = projectPath("Project1.mir");
        WriteAll(stale, "left over from a crash");
        for (const QString& file : {path, stale})
            QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadGroup);
        view.statusHistory.clear();
        ASSERT_TRUE(OpenProject(g, path));
        EXPECT_EQ(view.statusHistory.front(), "專案[Project1]開啟中...");
        addGroup("Guards");
    } else {
        addGroup("Guards");
        QFile::remove(path);
        QDir().mkpath(path + "/in the way");
    }
    platform.expectBox(
        MsgBox::Critical, "儲存專案失敗。\n專案檔案[" + path + "]檔案無法儲存。", "儲存專案失敗");
    EXPECT_EQ(SaveProject(g, true, false, false), ProjectResult::Done);
    EXPECT_EQ(ReadAll(path), GetParam() ? before : QByteArray());
    note("blocked save");
    expectLog();
    EXPECT_THROW(g.project.rsUserGroups.MoveFirst(), UnhandledError);
    EXPECT_THROW(g.project.rsBasic.Fields("ModifiedDate"), UnhandledError);
}

INSTANTIATE_TEST_SUITE_P(Saves, BlockedSaveTest, ::testing::Bool(),
    [](const auto& info) { return std::string(info.param ? "ReadOnlyProjectFile" : "FolderInTheWay"); });

// A project of a model the program does not know keeps the limits of the one opened before.
TEST_F(ProjectTest, ASecondProjectOfAnUnknownModelKeepsTheFirstOnesLimits)
{
    newProject();
    g.project.rsBasic.setField("DeviceModelName", "XX9");
    g.project.rsBasic.Update();
    g.project.IsProjectModified = true;
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Yes);
    ASSERT_EQ(CloseProject(g), ProjectResult::Done);
    ASSERT_TRUE(OpenProject(g, projectPath("Project1.cmb")));
    note("reopened as model XX9");
    expectLog();
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
    newProject();
    addGroup("Guards");
    platform.expectBox(MsgBox::YesNoCancel, SavePrompt("Project1"), SaveTitle, MsgBox::Cancel);
    try {
        ExitApplication(g, true);
        FAIL() << "the program did not end";
    } catch (const ProcessEnded& e) {
        EXPECT_EQ(e.status, 0);
    }
    note("exit cancelled");
    expectLog();
}
