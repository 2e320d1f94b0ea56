#include <functional>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "CliRunner.h"
#include "DevsimProcess.h"
#include "Golden.h"
#include "TestFolder.h"

namespace {

// The installation's program and project folders have Chinese names with blanks: every path,
// the debug files and the trace included, must work there.
const QString ProgramDir = QStringLiteral("程式 資料夾");
const QString ProjectDir = QStringLiteral("專案 檔案");

// A project of one contact in group 1 and zone 3's alarm and reset texts: two erases, one
// phone-book record and two message records.
const QStringList SmallProject = {
    QStringLiteral("INSERT INTO Users VALUES ('Ann', '0912345678', '', 'UserGroup1', 0)"),
    QStringLiteral("UPDATE Zones SET GroupName = 'ALL', AlarmSMS = 'AB', ResetSMS = '火' WHERE ZoneNo = 3"),
};

struct DeviceScenario
{
    const char* name;
    QStringList devsim; // beyond an unpaced line and the dump
    // Split at each space; "{PORT}" stands for the dialler's terminal, "{PROJECT}" for the
    // project and "{TRACE}" for a trace file, each one argument with its blanks.
    const char* line;
    // The dialler's dump is shown once it has received this number of requests; not at all
    // for 0.
    int requests = 0;
};

std::vector<DeviceScenario> Scenarios()
{
    return {
        {"connect_shows_who_answers",
            {"--model-id", "4106", "--firmware", "0415", "--serial", "1122334455667788", "--setting-byte",
                "0xC2"},
            "connect --port {PORT}", 5},
        {"connect_to_a_dialler_that_refuses_everything", {"--exception", "1"}, "connect --port {PORT}"},
        // A model without a name still connects; a firmware read refused on both attempts,
        // after all else answered, does not.
        {"connect_to_an_unknown_model", {"--model-id", "0000"}, "connect --port {PORT}", 5},
        {"connect_refused_at_the_firmware", {"--exception", "@5,6"}, "connect --port {PORT}", 6},
        {"connect_on_a_port_that_will_not_open", {}, "connect --port /dev/無此裝置"},
        // One bad answer, then the retry goes through: the whole exchange in the trace.
        {"download_with_a_fault_that_clears", {"--corrupt-crc", "@record:2x1"},
            "--yes download {PROJECT} --port {PORT} --trace {TRACE}", 6},
        // A record refused on every attempt: the failure box, and the debug file ends with it.
        {"download_failing_at_a_record", {"--exception", "@record:1"},
            "--yes download {PROJECT} --port {PORT}", 4},
        {"settings_shows_the_dialog_as_loaded",
            {"--model-id", "4106", "--firmware", "0415", "--slave-id", "9", "--setting-byte", "0xC2"},
            "settings --port {PORT}", 4},
        {"settings_written_with_yes", {}, "--yes settings --port {PORT} --slave 12 --baud 19200 --parity odd",
            5},
        // A value given as loaded is no change: no question, nothing written.
        {"settings_unchanged_writes_nothing", {}, "--yes settings --port {PORT} --slave 1", 4},
        // A baud id without a row shows as UnKnown, which OK refuses with a box of its own.
        {"settings_with_an_unknown_baud_rate", {"--model-id", "4106", "--setting-byte", "0x09"},
            "--yes settings --port {PORT} --slave 2", 4},
        // Cancel at the question keeps the dialog open in the window; here it ends the command.
        {"settings_unanswered_writes_nothing", {}, "settings --port {PORT} --slave 12", 4},
        // The dialler's model is known only once it has answered.
        {"settings_with_a_baud_rate_the_model_lacks", {}, "--yes settings --port {PORT} --baud 115200", 4},
        // The port dialog reaches the terminal through a number mapped for the run only, which
        // the profile does not keep.
        {"registers_of_a_whole_dialler", {"--alarm-bits", "8000000000000001"}, "registers --port {PORT}"},
        // The load reads three registers; the fifth row's two attempts are the 8th and 9th
        // requests. The rows before it keep their content, those from it on stay empty.
        {"registers_of_a_dialler_that_refuses_one", {"--exception", "@8,9"}, "registers --port {PORT}"},
        // A refused first attempt of each kind, retried with success, from the load's reads on:
        // the trace names each verdict in the order the protocol judges.
        {"registers_through_every_kind_of_refusal",
            {"--drop-request", "@1", "--truncate", "@3", "--exception", "@5,7", "--exception-code", "2",
                "--wrong-function", "@7,11", "--wrong-station", "@9", "--corrupt-crc", "@13"},
            "registers --port {PORT} --trace {TRACE}"},
    };
}

// A temporary installation with short link time-outs, so that a silent dialler costs little.
class CliDeviceTest : public ::testing::TestWithParam<DeviceScenario>
{
protected:
    void SetUp() override
    {
        QDir dir(root);
        ASSERT_TRUE(dir.rename(QStringLiteral("VORNA"), ProgramDir));
        ASSERT_TRUE(dir.mkpath(ProjectDir));
        WriteAll(profile, ReadAll(profile).replace("TimeOut=2", "TimeOut=1").replace("Retry=3", "Retry=1"));
        MakeProject(programDir.filePath(QStringLiteral("RM64.mdb")), project, SmallProject);
    }

    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    const QDir programDir {root + QLatin1Char('/') + ProgramDir};
    const QString profile = programDir.filePath(QStringLiteral("VORNA.set"));
    const QString project = root + QLatin1Char('/') + ProjectDir + QStringLiteral("/工地 A.cmb");
    const QString trace = root + QLatin1Char('/') + ProjectDir + QStringLiteral("/追蹤 1.txt");
    const QString dumpPath = root + QStringLiteral("/dialler.json");
};

// The run's whole output, then what it left: the trace with its time stamps masked, the debug
// files, what the dialler received and holds, and whether the profile maps a port.
TEST_P(CliDeviceTest, RunsAgainstTheVirtualDialler)
{
    const DeviceScenario& scenario = GetParam();
    DevsimProcess devsim(QStringList {"--baud", "0", "--dump", dumpPath} + scenario.devsim);
    ASSERT_FALSE(devsim.path().isEmpty());
    QStringList args;
    for (const QString& word : QString::fromUtf8(scenario.line).split(u' '))
        args << QString(word)
                    .replace(QStringLiteral("{PORT}"), devsim.path())
                    .replace(QStringLiteral("{PROJECT}"), project)
                    .replace(QStringLiteral("{TRACE}"), trace);
    const Result result = RunCli(root, TraditionalChinese, args, nullptr, {}, ProgramDir);
    const QString usage = result.status == 2
        ? RunCli(root, TraditionalChinese, {QStringLiteral("--help")}, nullptr, {}, ProgramDir).out
        : QString();
    QString transcript = Transcript(QString::fromUtf8(scenario.line), result, usage);
    if (QFile::exists(trace)) {
        static const QRegularExpression stamp(
            QStringLiteral("^ *\\d+ ms"), QRegularExpression::MultilineOption);
        transcript += QStringLiteral("trace:\n")
            + QString::fromUtf8(ReadAll(trace)).replace(stamp, QStringLiteral("T ms"));
    }
    for (const QString& dbg : {QStringLiteral("PhoneBook.dbg"), QStringLiteral("SHORTMSG.dbg")})
        if (programDir.exists(dbg))
            transcript += dbg + QStringLiteral(": ") + ReadAll(programDir.filePath(dbg)).toHex(' ').toUpper()
                + u'\n';
    if (scenario.requests > 0) {
        const QJsonObject dump = DumpAfter(dumpPath, scenario.requests);
        const QJsonObject held {{"received", dump["requests"].toObject()["received"]},
            {"registers", dump["registers"]}, {"phoneBook", dump["phoneBook"]},
            {"shortMessages", dump["shortMessages"]}};
        transcript
            += QStringLiteral("dialler: ") + QJsonDocument(held).toJson(QJsonDocument::Compact) + u'\n';
    }
    transcript
        += QStringLiteral("[Ports] in VORNA.set: %1\n")
               .arg(ReadAll(profile).contains("[Ports]") ? QStringLiteral("yes") : QStringLiteral("no"));
    ExpectGolden(QStringLiteral("cli/golden/device/%1.txt").arg(QLatin1String(scenario.name)),
        transcript.replace(devsim.path(), QStringLiteral("{PORT}"))
            .replace(root, Root)
            .replace(u'\r', QStringLiteral("\\r")));
}

INSTANTIATE_TEST_SUITE_P(cli, CliDeviceTest, ::testing::ValuesIn(Scenarios()),
    [](const ::testing::TestParamInfo<DeviceScenario>& info) { return std::string(info.param.name); });

} // namespace
