#include <functional>
#include <vector>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include "CliRunner.h"
#include "Golden.h"
#include "TestFolder.h"

namespace {

// A project with 128 contacts, then one page of its contacts zeroed as a disk fault leaves
// it: the file still opens, and the damage shows only when the rows are read (the transcript
// shows the read failing).
void MakeDamagedProject(const QString& templatePath, const QString& path)
{
    MakeProject(templatePath, path,
        {QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 128) "
                        "INSERT INTO Users SELECT 'User' || i, '0912' || (100000 + i), "
                        "hex(zeroblob(40)), 'UserGroup1', 0 FROM n")});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    // The page size stands big-endian at offset 16 of the header. The contacts were written
    // last, so the pages before the file's last one hold them.
    const QByteArray header = file.read(18);
    const qint64 pageSize = (quint8(header.at(16)) << 8) | quint8(header.at(17));
    ASSERT_GT(file.size(), 4 * pageSize);
    ASSERT_TRUE(file.seek(file.size() - 3 * pageSize));
    file.write(QByteArray(pageSize, '\0'));
    file.close();
}

// The projects that the transcript starts with, under Project/, each made from the template
// by its statements.
void MakeProjects(const TestFolder& folder)
{
    const QString ann = QStringLiteral("INSERT INTO Users VALUES ('Ann', '0912345678', '', 'UserGroup1', 0)");
    // Every zone's alarm text of 70 Unicode characters and reset text of 30: 13326 bytes with
    // Ann, between the memories of the two models.
    const QString longTexts = QStringLiteral("UPDATE Zones SET AlarmSMS = replace(hex(zeroblob(70)), '00', "
                                             "'A'), ResetSMS = replace(hex(zeroblob(30)), '00', 'R')");
    const std::vector<std::pair<const char*, QStringList>> projects = {
        {"Frames",
            {ann,
                QStringLiteral("UPDATE Zones SET GroupName = 'ALL', AlarmSMS = 'AB', ResetSMS = '火' "
                               "WHERE ZoneNo = 3")}},
        {"Larger", {ann, longTexts}},
        {"TooLarge", {ann, longTexts, QStringLiteral("UPDATE Basic SET DeviceModelName = 'RM64T'")}},
        // Every frame is built before any is printed: the one over 255 comes last.
        {"Over255", {ann, QStringLiteral("INSERT INTO Zones (ZoneNo, ResetSMS) VALUES (191, 'R')")}},
    };
    const QString templatePath = folder.path(QStringLiteral("RM64.mdb"));
    const QDir projectDir(folder.projectDir());
    for (const auto& [name, statements] : projects)
        MakeProject(
            templatePath, projectDir.filePath(QLatin1String(name) + QStringLiteral(".cmb")), statements);
    MakeDamagedProject(templatePath, projectDir.filePath(QStringLiteral("Damaged.cmb")));
    WriteAll(projectDir.filePath(QStringLiteral("Bad.cmb")), "not a database\n");
}

// One run of the transcript: its command line, split at each space ("info " ends in an empty
// argument), what it reads on stdin, and a change to the installation before it.
struct Step
{
    const char* line;
    const char* input = nullptr;
    std::function<void(const TestFolder&)> before = {};
    int outLines = -1; // the lines of stdout shown, when not all
};

std::vector<Step> Steps()
{
    // The usage, each command's help, and each kind of usage error.
    std::vector<Step> steps;
    for (const char* line : {"--help", "new --help", "info --help", "save-as --help", "recent --help",
             "image --help", "connect --help", "download --help", "settings --help", "registers --help",
             "ports --help", "", "frobnicate", "frobnicate --help", "--bogus recent", "recent --dir",
             "--yes --no recent", "info", "info ", "info x.cmb y.cmb", "save-as Project/A.cmb", "connect",
             "download Project/A.cmb", "connect Project/A.cmb --port COM1", "connect --port COM0",
             "connect --port 256", "registers --port ttyUSB0", "info Project/A.cmb --port COM1",
             "ports --trace t.txt", "connect --port COM1 --trace ", "connect --port COM1 --slave 2",
             "settings --port COM1 --slave 0", "settings --port COM1 --slave 256",
             "settings --port COM1 --slave 1x", "settings --port COM1 --parity MARK"})
        steps.push_back({line});
    steps.insert(steps.end(),
        {
            {"info Project/None.cmb"},
            {"info Project/Bad.cmb"},
            {"new Project/D.txt"},
            // Image only reads: the recent list stays empty, and no working copy or file is left.
            {"image Project/Frames.cmb"},
            {"recent"},
            {"image Project/TooLarge.cmb"},
            {"image Project/Larger.cmb", nullptr, {}, 2},
            {"image Project/Over255.cmb"},
            // A table read in part is no table: neither command reports a shorter project.
            {"image Project/Damaged.cmb"},
            {"info Project/Damaged.cmb"},
            // New writes its date into the working copy only, and nothing commits it.
            {"new Project/A.cmb"},
            {"--verbose info Project/A.cmb"},
            {"image Project/A.cmb"},
            // A question is answered by --no, by nobody (No, and the dialog shown again is
            // cancelled), by a word shown or English or its first letter; anything else is asked again.
            {"--no new Project/A.cmb"},
            {"new Project/A.cmb"},
            {"new Project/A.cmb", "maybe\ny\n"},
            {"new Project/A.cmb", "否\n"},
            {"new Project/A.cmb", "No\n"},
            {"--yes new Project/A.cmb"},
            {"new Project/B.cmb"},
            {"info Project/A.cmb"},
            {"recent"},
            {"--no save-as Project/A.cmb Project/A.cmb"},
            {"--no save-as Project/A.cmb Project/B.cmb"},
            {"save-as Project/A.cmb Project/C.txt"},
            {"--verbose save-as Project/A.cmb Project/E.cmb"},
            {"info Project/E.cmb"},
            {"recent"},
            {"new Project/F.cmb", nullptr,
                [](const TestFolder& folder) {
                    ASSERT_TRUE(QFile::setPermissions(
                        folder.path(QStringLiteral("VORNA.sdb")), QFileDevice::ReadOwner));
                }},
            {"recent", nullptr,
                [](const TestFolder& folder) {
                    ASSERT_TRUE(QFile::remove(folder.path(QStringLiteral("VORNA.set"))));
                }},
        });
    return steps;
}

// The program in one language, compared whole with that language's golden transcript: its
// help, every kind of usage error, the commands on projects with their boxes and questions,
// and what is left in the folders at the end.
class VornaCliTranscript : public ::testing::TestWithParam<std::pair<const char*, const char*>>
{ };

TEST_P(VornaCliTranscript, SpeaksTheAppliedLanguage)
{
    const auto [language, locale] = GetParam();
    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    MakeProjects(folder);
    ASSERT_FALSE(::testing::Test::HasFatalFailure());

    const QString usage = RunCli(root, locale, {QStringLiteral("--help")}, nullptr).out;
    QString transcript;
    for (const Step& step : Steps()) {
        if (step.before)
            step.before(folder);
        const QString line = QString::fromUtf8(step.line);
        const Result result
            = RunCli(root, locale, line.isEmpty() ? QStringList() : line.split(u' '), step.input);
        QStringList out = result.out.split(u'\n');
        if (step.outLines >= 0 && out.size() > step.outLines + 1)
            out = out.mid(0, step.outLines)
                << QStringLiteral("[%1 more lines]\n").arg(out.size() - step.outLines - 1);
        transcript
            += Transcript(line, {result.finished, result.status, out.join(u'\n'), result.err}, usage) + u'\n';
    }
    for (const QString& dir : {folder.projectDir(), folder.appPath()})
        transcript += dir.section(u'/', -1) + QStringLiteral(":\n")
            + QDir(dir).entryList(QDir::Files | QDir::Hidden, QDir::Name).join(u'\n') + u'\n';
    // The private copy that a command reads lies in a temporary folder of its own.
    static const QRegularExpression scratch(
        QRegularExpression::escape(QDir::tempPath()) + QStringLiteral("/vorna-cli-\\w+/"));
    transcript.replace(root, Root)
        .replace(scratch, QStringLiteral("{TMP}/"))
        .replace(u'\r', QStringLiteral("\\r"));
    ExpectGolden(QStringLiteral("cli/golden/transcript-%1.txt").arg(QLatin1String(language)), transcript);
}

INSTANTIATE_TEST_SUITE_P(cli, VornaCliTranscript,
    ::testing::Values(std::pair {"ChineseBig5", TraditionalChinese}, std::pair {"ChineseGB", "zh_CN.UTF-8"},
        std::pair {"English", English}),
    [](const auto& info) { return std::string(info.param.first); });

// COM1 to COM16 come first, each with its device; the rest depends on the machine.
TEST(VornaCliPorts, ListsThePortNumbersFirst)
{
    TestFolder folder;
    const Result result
        = RunCli(QDir(folder.root()).canonicalPath(), English, {QStringLiteral("ports")}, nullptr);
    EXPECT_EQ(result.status, 0);
    for (const char* text :
        {"Port   Device        State", "\nCOM1   /dev/ttyUSB0  ", "\nCOM16  /dev/ttyS7    "})
        EXPECT_TRUE(result.out.contains(QLatin1String(text))) << result.out.toStdString();
}

// Runs the program killed at the 1st, 2nd, ... call of each system call in turn, until a run
// gets past its last such call. run starts one, under the wrapper it is given; check judges
// what it left, told where the kill was. Gives the number of runs killed.
int KillAtEachCall(std::initializer_list<const char*> calls, int most,
    const std::function<Result(const QStringList&)>& run,
    const std::function<void(const std::string&)>& check)
{
    const QString strace = QStandardPaths::findExecutable(QStringLiteral("strace"));
    EXPECT_FALSE(strace.isEmpty()) << "strace is needed (the set-up command installs it)";
    int kills = 0;
    for (const char* call : calls) {
        for (int when = 1; when <= most; ++when) {
            const Result result = run({strace, QStringLiteral("-f"), QStringLiteral("-o"),
                QStringLiteral("/dev/null"), QStringLiteral("-e"),
                QStringLiteral("inject=%1:signal=SIGKILL:when=%2").arg(QLatin1String(call)).arg(when)});
            const std::string where = call + (" #" + std::to_string(when));
            EXPECT_TRUE(result.finished) << where;
            check(where);
            if (result.status == 0)
                break;
            ++kills;
        }
    }
    return kills;
}

// An installation whose recent list holds Project/P1.cmb to P4.cmb, P4 first.
class RecentListRun : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* name : {"P1", "P2", "P3", "P4"})
            ASSERT_EQ(run({QStringLiteral("new"), project(name)}).status, 0) << name;
        initial = ReadAll(sdb);
    }

    Result run(const QStringList& args, const QStringList& wrapper = {})
    {
        return RunCli(root, English, args, nullptr, wrapper);
    }
    static QString project(const char* name)
    {
        return QStringLiteral("Project/%1.cmb").arg(QLatin1String(name));
    }
    // The list as the program shows it: the given projects, newest first, one a line.
    QString listOf(std::initializer_list<const char*> names) const
    {
        QString text;
        for (const char* name : names)
            text += root + QLatin1Char('/') + project(name) + QLatin1Char('\n');
        return text;
    }
    // The system database as SetUp left it, with no journal beside it, and no project N.
    void restore(std::initializer_list<const char*> projects)
    {
        QFile::remove(sdb + QStringLiteral("-journal"));
        WriteAll(sdb, initial);
        for (const char* name : projects)
            QFile::remove(QDir(root).filePath(project(name)));
    }

    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    const QString sdb = root + QStringLiteral("/VORNA/VORNA.sdb");
    QByteArray initial;
};

} // namespace

// A kill at any system call of a save-as onto an existing file leaves that file whole: as
// it was, or the new project, never missing and never half-written. The hidden copies that
// killed runs leave beside their targets are removed by the next copy onto those targets.
TEST(VornaCliKill, ASaveAsKilledAtAnyStepLeavesTheOldOrTheNewFileWhole)
{
    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    ASSERT_EQ(RunCli(root, English, QStringLiteral("new Project/A.cmb").split(u' '), nullptr).status, 0);
    const QString target = root + QStringLiteral("/Project/T.cmb");
    const QByteArray oldBytes = QByteArray("an older project\n").repeated(500);
    const QByteArray newBytes = ReadAll(root + QStringLiteral("/Project/A.cmb"));
    const auto leftovers = [&root] {
        return QDir(root + QStringLiteral("/Project"))
            .entryList({QStringLiteral(".*")}, QDir::Files | QDir::Hidden);
    };

    bool leftBehind = false;
    const int kills = KillAtEachCall(
        {"openat", "write", "fsync", "rename", "unlink"}, 60,
        [&](const QStringList& wrapper) {
            WriteAll(target, oldBytes);
            return RunCli(root, English,
                QStringLiteral("--yes save-as Project/A.cmb Project/T.cmb").split(u' '), nullptr, wrapper);
        },
        [&](const std::string& where) {
            const QByteArray now = ReadAll(target);
            EXPECT_TRUE(now == oldBytes || now == newBytes) << where << ": " << now.size() << " bytes";
            leftBehind = leftBehind || !leftovers().isEmpty();
        });
    EXPECT_GT(kills, 5);
    EXPECT_TRUE(leftBehind);
    EXPECT_TRUE(leftovers().isEmpty()) << leftovers().join(u' ').toStdString();
}

// A kill anywhere in the recent list's rewrite leaves the old list or the whole new one, and
// the next start reads it.
TEST_F(RecentListRun, ARewriteKilledAtAnyStepLeavesTheOldOrTheNewList)
{
    const QString oldList = listOf({"P4", "P3", "P2", "P1"});
    const QString newList = listOf({"N", "P4", "P3", "P2"});
    const int kills = KillAtEachCall(
        {"pwrite64", "unlink"}, 40,
        [&](const QStringList& wrapper) {
            restore({"N"});
            return run({QStringLiteral("new"), project("N")}, wrapper);
        },
        [&](const std::string& where) {
            const Result recent = run({QStringLiteral("recent")});
            EXPECT_EQ(recent.status, 0) << where << "\n" << recent.err.toStdString();
            EXPECT_TRUE(recent.out == oldList || recent.out == newList) << where << "\n"
                                                                        << recent.out.toStdString();
        });
    EXPECT_GT(kills, 2);
}

// Two programs opening projects at once each write the list whole: what is left is the list
// of one of them, whichever wrote last, having read the other's or not.
TEST_F(RecentListRun, TwoProgramsRewritingAtOnceLeaveOneWholeList)
{
    const QStringList wholeLists = {listOf({"X", "P4", "P3", "P2"}), listOf({"Y", "P4", "P3", "P2"}),
        listOf({"X", "Y", "P4", "P3"}), listOf({"Y", "X", "P4", "P3"})};
    for (int trial = 1; trial <= 50; ++trial) {
        restore({"X", "Y"});
        const auto first = StartCli(root, English, {QStringLiteral("new"), project("X")}, nullptr);
        const auto second = StartCli(root, English, {QStringLiteral("new"), project("Y")}, nullptr);
        ASSERT_TRUE(first && second);
        ASSERT_EQ(FinishCli(*first).status, 0) << "trial " << trial;
        ASSERT_EQ(FinishCli(*second).status, 0) << "trial " << trial;
        const Result recent = run({QStringLiteral("recent")});
        ASSERT_EQ(recent.status, 0) << "trial " << trial << "\n" << recent.err.toStdString();
        ASSERT_TRUE(wholeLists.contains(recent.out)) << "trial " << trial << "\n" << recent.out.toStdString();
    }
}
