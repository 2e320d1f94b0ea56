#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include "CliRunner.h"
#include "Golden.h"
#include "TestFolder.h"

namespace {

struct Scenario
{
    const char* name;
    const char* locale; // LANG and LC_ALL of every run
    std::function<void(const TestFolder&)> prepare;
    std::vector<CliRun> runs;
    QStringList present; // files under the root after the last run
    QStringList absent;
};

// Project/A.cmb made from the template and changed by the given statements.
std::function<void(const TestFolder&)> ProjectA(QStringList statements)
{
    return [statements](const TestFolder& folder) {
        MakeProject(folder.path(QStringLiteral("RM64.mdb")),
            QDir(folder.root()).filePath(QStringLiteral("Project/A.cmb")), statements);
    };
}

// Project/A.cmb with 128 contacts, then one page of its contacts zeroed as a disk fault
// leaves it: the file still opens, and the damage shows only when the rows are read.
void DamagedProjectA(const TestFolder& folder)
{
    ProjectA({QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 128) "
                             "INSERT INTO Users SELECT 'User' || i, '0912' || (100000 + i), "
                             "hex(zeroblob(40)), 'UserGroup1', 0 FROM n")})(folder);
    const QString path = QDir(folder.root()).filePath(QStringLiteral("Project/A.cmb"));
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
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("check"));
        db.setDatabaseName(path);
        ASSERT_TRUE(db.open());
        QSqlQuery query(QStringLiteral("PRAGMA integrity_check"), db);
        ASSERT_TRUE(query.next());
        EXPECT_NE(query.value(0).toString(), QStringLiteral("ok"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("check"));
}

std::vector<Scenario> Scenarios()
{
    const QString a = QStringLiteral("Project/A.cmb");
    const QString b = QStringLiteral("Project/B.cmb");
    const QString aAbs = Root + QStringLiteral("/Project/A.cmb");
    const QString bAbs = Root + QStringLiteral("/Project/B.cmb");
    // The words of a command line, split at each space: "info " ends in an empty argument.
    auto cmd = [](const char* line) { return QString::fromUtf8(line).split(u' '); };
    const CliRun newA {cmd("new Project/A.cmb")};
    const CliRun newB {cmd("new Project/B.cmb")};
    const QString annInGroup1
        = QStringLiteral("INSERT INTO Users VALUES ('Ann', '0912345678', '', 'UserGroup1', 0)");
    // Every zone's alarm text of 70 Unicode characters and reset text of 30: 13326 bytes with Ann,
    // between the memories of the two models.
    const QString longTexts = QStringLiteral("UPDATE Zones SET AlarmSMS = replace(hex(zeroblob(70)), '00', "
                                             "'A'), ResetSMS = replace(hex(zeroblob(30)), '00', 'R')");

    return {
        {"cmb_that_is_no_database_is_unhandled", English,
            [](const TestFolder& folder) {
                WriteAll(QDir(folder.root()).filePath(QStringLiteral("Project/Bad.cmb")), "not a database\n");
            },
            {{cmd("info Project/Bad.cmb"), 3, {}, {QStringLiteral("\nvorna-cli: ")}}}, {}, {}},

        {"new_without_cmb_extension_is_unhandled", English, {},
            {{cmd("new Project/D.txt"), 3, {},
                {QStringLiteral("This project cannot be opened!"), QStringLiteral("\nvorna-cli: ")}}},
            {QStringLiteral("Project/D.txt")}, {}},

        {"image_prints_the_size_every_frame_and_the_debug_files", English,
            ProjectA({annInGroup1,
                QStringLiteral("UPDATE Zones SET GroupName = 'ALL', AlarmSMS = 'AB', ResetSMS = '火' "
                               "WHERE ZoneNo = 3")}),
            {{cmd("image Project/A.cmb"), 0, {}, {},
                 QStringLiteral("28\n"
                                "F7 50 40 FF 43 C1\n"
                                "F7 50 50 FF 4E 01\n"
                                "F7 50 43 01 0E 00 01 0A 01 30 39 31 32 33 34 35 36 37 38 C0 13\n"
                                "F7 50 53 04 08 41 00 04 00 00 41 00 42 B4 90\n"
                                "F7 50 53 44 06 41 00 02 00 70 6B FD 64\n"
                                "PhoneBook.dbg: F7 50 43 01 0E 00 01 0A 01 30 39 31 32 33 34 35 36 37 38\n"
                                "SHORTMSG.dbg: F7 50 53 04 08 41 00 04 00 00 41 00 42 "
                                "F7 50 53 44 06 41 00 02 00 70 6B\n")},
                // Only read: the recent list stays empty, and no working copy or file is left.
                {cmd("recent"), 0, {}, {}, QString()}},
            {}, {QStringLiteral("Project/A.mir"), QStringLiteral("VORNA/PhoneBook.dbg")}},

        {"image_refuses_a_project_too_large_for_its_model", English,
            ProjectA({annInGroup1, longTexts, QStringLiteral("UPDATE Basic SET DeviceModelName = 'RM64T'")}),
            {{cmd("image Project/A.cmb"), 1, {},
                {QStringLiteral(
                    "error: [Download Project] Project download failed!\r\nThe project to download "
                    "[13326 Byte] is too large; please reduce its content. The memory holds "
                    "12288Byte.\n")},
                QString()}},
            {}, {}},

        {"image_lets_the_same_project_go_on_a_larger_model", English, ProjectA({annInGroup1, longTexts}),
            {{cmd("image Project/A.cmb"), 0, {QStringLiteral("13326\nF7 50 40 FF")}}}, {}, {}},

        {"image_with_a_record_number_over_255_is_unhandled", English,
            ProjectA({annInGroup1, QStringLiteral("INSERT INTO Zones (ZoneNo, ResetSMS) VALUES (191, 'R')")}),
            // Every frame is built before any is printed: the one over 255 comes last.
            {{cmd("image Project/A.cmb"), 3, {}, {QStringLiteral("vorna-cli: ")}, QString()}}, {}, {}},

        // A table read in part is no table: neither command reports a shorter project.
        {"damaged_project_is_unhandled", English, DamagedProjectA,
            {{cmd("image Project/A.cmb"), 3, {}, {QStringLiteral("vorna-cli: ")}, QString()},
                {cmd("info Project/A.cmb"), 3, {}, {QStringLiteral("vorna-cli: ")}}},
            {}, {}},

        // COM1 to COM16 come first, each with its device; the rest depends on the machine.
        {"ports_lists_the_port_numbers_first", English, {},
            {{cmd("ports"), 0,
                {QStringLiteral("Port   Device        State"), QStringLiteral("\nCOM1   /dev/ttyUSB0  "),
                    QStringLiteral("\nCOM16  /dev/ttyS7    ")}}},
            {}, {}},

        {"save_as_onto_itself_answered_no_fails", English, {},
            {newA, {cmd("--no save-as Project/A.cmb Project/A.cmb"), 1}}, {a}, {}},

        {"read_only_system_database_is_named", English,
            [](const TestFolder& folder) {
                ASSERT_TRUE(
                    QFile::setPermissions(folder.path(QStringLiteral("VORNA.sdb")), QFileDevice::ReadOwner));
            },
            {{cmd("new Project/A.cmb"), 3, {},
                {QStringLiteral("VORNA.sdb is read-only, so the change could not be written to it.")}}},
            {}, {}},

        // An answer is the word shown or the English one, or its first letter; anything else
        // is asked again.
        {"new_over_existing_answered_by_typing", TraditionalChinese, {},
            {newA,
                {cmd("new Project/A.cmb"), 0, {}, {QStringLiteral("是(Y)/否(N)? maybe\n是(Y)/否(N)? y\n")},
                    {}, "maybe\ny\n"},
                {cmd("new Project/A.cmb"), 1, {}, {QStringLiteral("是(Y)/否(N)? 否\n")}, {}, "否\n"},
                {cmd("new Project/A.cmb"), 0, {}, {QStringLiteral("是(Y)/否(N)? Yes\n")}, {}, "Yes\n"}},
            {a}, {QStringLiteral("Project/A.mir")}},

        {"recent_list_carries_over_newest_first", English, {},
            {newA, newB,
                {cmd("recent"), 0, {}, {}, bAbs + QStringLiteral("\n") + aAbs + QStringLiteral("\n")},
                // Info only reads: the list stays as it was.
                {cmd("info Project/A.cmb")},
                {cmd("recent"), 0, {}, {}, bAbs + QStringLiteral("\n") + aAbs + QStringLiteral("\n")}},
            {}, {}},

        {"save_as_makes_and_opens_the_new_file", English, {},
            {newA, {cmd("save-as Project/A.cmb Project/B.cmb")},
                {cmd("info Project/B.cmb"), 0,
                    {QStringLiteral("Project: B\n"), QStringLiteral("Zones: 64\n")}},
                {cmd("recent"), 0, {}, {}, bAbs + QStringLiteral("\n") + aAbs + QStringLiteral("\n")}},
            {a, b}, {QStringLiteral("Project/A.mir"), QStringLiteral("Project/B.mir")}},

        {"save_as_over_existing_answered_no_is_cancelled", English, {},
            {newA, newB,
                {cmd("--no save-as Project/A.cmb Project/B.cmb"), 1, {},
                    {QStringLiteral("[File already exists] File [") + bAbs
                        + QStringLiteral("] already exists.")}}},
            {a, b}, {QStringLiteral("Project/A.mir"), QStringLiteral("Project/B.mir")}},

        {"save_as_without_cmb_extension_leaves_no_project", English, {},
            {newA,
                {cmd("save-as Project/A.cmb Project/C.txt"), 1, {},
                    {QStringLiteral("[Project Cannot Be Used] This project cannot be opened!")}}},
            {a, QStringLiteral("Project/C.txt")}, {QStringLiteral("Project/A.mir")}},

        {"missing_profile_ends_the_start", English,
            [](const TestFolder& folder) {
                ASSERT_TRUE(QFile::remove(folder.path(QStringLiteral("VORNA.set"))));
            },
            {{cmd("recent"), 1, {}, {QStringLiteral("error: [ML system failed] ML system failed!\nFile [")}}},
            {}, {}},
    };
}

class VornaCliTest : public ::testing::TestWithParam<Scenario>
{ };

TEST_P(VornaCliTest, RunsAsScripted)
{
    const Scenario& scenario = GetParam();
    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    auto expand = [&root](QString text) { return text.replace(Root, root); };
    if (scenario.prepare)
        scenario.prepare(folder);
    ASSERT_FALSE(::testing::Test::HasFatalFailure());

    for (std::size_t i = 0; i < scenario.runs.size(); ++i) {
        const CliRun& run = scenario.runs[i];
        QStringList args;
        for (const QString& arg : run.args)
            args << expand(arg);
        SCOPED_TRACE(
            "run " + std::to_string(i + 1) + ": vorna-cli " + args.join(QLatin1Char(' ')).toStdString());
        ExpectRun(run, RunCli(root, scenario.locale, args, run.input), expand);
    }
    for (const QString& file : scenario.present)
        EXPECT_TRUE(QFile::exists(QDir(root).filePath(file))) << file.toStdString();
    for (const QString& file : scenario.absent)
        EXPECT_FALSE(QFile::exists(QDir(root).filePath(file))) << file.toStdString();
}

INSTANTIATE_TEST_SUITE_P(cli, VornaCliTest, ::testing::ValuesIn(Scenarios()),
    [](const ::testing::TestParamInfo<Scenario>& info) { return std::string(info.param.name); });

// The program's own texts in one language, compared whole with that language's golden
// transcript: the usage and each command's help, every kind of usage error, a project's info,
// a question answered No and unanswered, and the boxes of refusals.
class VornaCliTranscript : public ::testing::TestWithParam<std::pair<const char*, const char*>>
{ };

TEST_P(VornaCliTranscript, SpeaksTheAppliedLanguage)
{
    const auto [language, locale] = GetParam();
    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    QStringList lines {QStringLiteral("--help")};
    for (const char* command : {"new", "info", "save-as", "recent", "image", "connect", "download",
             "settings", "registers", "ports"})
        lines << QLatin1String(command) + QStringLiteral(" --help");
    // A command line split at each space: "info " ends in an empty argument.
    lines << QString() << QStringLiteral("frobnicate") << QStringLiteral("frobnicate --help")
          << QStringLiteral("--bogus recent") << QStringLiteral("recent --dir")
          << QStringLiteral("--yes --no recent") << QStringLiteral("info") << QStringLiteral("info ")
          << QStringLiteral("info x.cmb y.cmb") << QStringLiteral("save-as Project/A.cmb")
          << QStringLiteral("connect") << QStringLiteral("download Project/A.cmb")
          << QStringLiteral("connect Project/A.cmb --port COM1") << QStringLiteral("connect --port COM0")
          << QStringLiteral("connect --port 256") << QStringLiteral("registers --port ttyUSB0")
          << QStringLiteral("info Project/A.cmb --port COM1") << QStringLiteral("ports --trace t.txt")
          << QStringLiteral("connect --port COM1 --trace ") << QStringLiteral("connect --port COM1 --slave 2")
          << QStringLiteral("settings --port COM1 --slave 0")
          << QStringLiteral("settings --port COM1 --slave 256")
          << QStringLiteral("settings --port COM1 --slave 1x")
          << QStringLiteral("settings --port COM1 --parity MARK") << QStringLiteral("info Project/None.cmb")
          << QStringLiteral("new Project/A.cmb") << QStringLiteral("--verbose info Project/A.cmb")
          << QStringLiteral("--no new Project/A.cmb") << QStringLiteral("new Project/A.cmb")
          << QStringLiteral("image Project/A.cmb");

    const QString usage = RunCli(root, locale, {QStringLiteral("--help")}, nullptr).out;
    QString transcript;
    for (const QString& line : lines) {
        const Result result
            = RunCli(root, locale, line.isEmpty() ? QStringList() : line.split(u' '), nullptr);
        QString err = result.err;
        // Every usage error ends with the usage, which the transcript shows once, whole.
        if (result.status == 2 && err.endsWith(usage))
            err = err.chopped(usage.size()) + QStringLiteral("[usage]\n");
        transcript += QStringLiteral("$ vorna-cli ") + line + u'\n' + result.out;
        for (const QString& text : err.split(u'\n', Qt::SkipEmptyParts))
            transcript += QStringLiteral("2> ") + text + u'\n';
        transcript += QStringLiteral("[exit %1]\n\n").arg(result.status);
    }
    ExpectGolden(QStringLiteral("cli/golden/transcript-%1.txt").arg(QLatin1String(language)),
        transcript.replace(root, Root).replace(u'\r', QStringLiteral("\\r")));
    // Neither the question answered No nor the one left unanswered leaves a working copy.
    EXPECT_EQ(QDir(root + QStringLiteral("/Project")).entryList(QDir::Files),
        QStringList {QStringLiteral("A.cmb")});
}

INSTANTIATE_TEST_SUITE_P(cli, VornaCliTranscript,
    ::testing::Values(std::pair {"ChineseBig5", TraditionalChinese}, std::pair {"ChineseGB", "zh_CN.UTF-8"},
        std::pair {"English", English}),
    [](const auto& info) { return std::string(info.param.first); });

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
