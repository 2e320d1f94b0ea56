#include <functional>
#include <optional>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "CliRunner.h"
#include "DevsimProcess.h"
#include "DownloadTexts.h"
#include "Golden.h"
#include "TestFolder.h"

namespace {

// The installation's program and project folders have Chinese names with blanks: every path,
// the debug files and the trace included, must work there.
const QString ProgramDir = QStringLiteral("程式 資料夾");
const QString ProjectDir = QStringLiteral("專案 檔案");
// The trace of a run that asks for one, under the installation's root.
const QString TracePath = ProjectDir + QStringLiteral("/追蹤 1.txt");
// "{PORT}" in a command line stands for the dialler's terminal.
const QString Port = QStringLiteral("{PORT}");

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
    CliRun run;
    // What the dialler and the program folder hold afterwards; the dump is read once the
    // dialler has received the given number of requests.
    int requests = 0;
    std::function<void(const QJsonObject& dump, const QDir& programDir)> check = {};
    // The golden file that the run's trace must equal, its time stamps masked.
    const char* golden = nullptr;
};

QString ReadText(const QString& path)
{
    return QString::fromUtf8(ReadAll(path));
}

// The trace with its time stamps masked, which is all that differs from one run to the next.
QString MaskedTrace(const QString& text)
{
    static const QRegularExpression stamp(QStringLiteral("^ *\\d+ ms"), QRegularExpression::MultilineOption);
    return QString(text).replace(stamp, QStringLiteral("T ms"));
}

// A file's bytes in hexadecimal.
QString HexOf(const QString& path)
{
    return QString::fromLatin1(ReadAll(path).toHex().toUpper());
}

std::vector<DeviceScenario> Scenarios()
{
    auto cmd = [](const char* line) { return QString::fromUtf8(line).split(u' '); };
    const QString project = ProjectDir + QStringLiteral("/工地 A.cmb");
    const QString trace = TracePath;
    auto registers = [](int slaveId, int settingByte) {
        return [slaveId, settingByte](const QJsonObject& dump, const QDir&) {
            const QJsonObject r = dump["registers"].toObject();
            EXPECT_EQ(r["slaveId"].toInt(), slaveId);
            EXPECT_EQ(r["settingByte"].toInt(), settingByte);
        };
    };
    return {
        {"connect_shows_who_answers",
            {"--model-id", "4106", "--firmware", "0415", "--serial", "1122334455667788", "--setting-byte",
                "0xC2"},
            {cmd("connect --port {PORT}"), 0, {},
                {"訊息: [連線簡訊報警機] " + ConnectSuccess("KV470-RM64MT", "77-88-5566-334411-22", "4800, E")
                    + u'\n'},
                QString()},
            5},

        {"connect_to_a_dialler_that_refuses_everything", {"--exception", "1"},
            {cmd("connect --port {PORT}"), 1, {}, {"錯誤: [連線簡訊報警機] " + ConnectFailure + u'\n'}}},

        {"connect_on_a_port_that_will_not_open", {},
            {QStringList {
                 QStringLiteral("connect"), QStringLiteral("--port"), QStringLiteral("/dev/無此 裝置")},
                1, {}, {QStringLiteral("/dev/無此 裝置")}}},

        // One bad answer, then the retry goes through: the whole exchange against a golden trace.
        {"download_with_a_fault_that_clears", {"--corrupt-crc", "@record:2x1"},
            {{QStringLiteral("--yes"), QStringLiteral("download"), project, QStringLiteral("--port"), Port,
                 QStringLiteral("--trace"), trace},
                0, {},
                {QStringLiteral("確定(O)/取消(C)? 確定(O)\n"),
                    "[下載專案] " + DownloadSuccess(QStringLiteral("工地 A"), 28) + u'\n'},
                QString()},
            6,
            [](const QJsonObject& dump, const QDir& programDir) {
                EXPECT_EQ(dump["phoneBook"].toArray().size(), 1);
                EXPECT_EQ(dump["shortMessages"].toArray().size(), 2);
                EXPECT_EQ(HexOf(programDir.filePath(QStringLiteral("SHORTMSG.dbg"))),
                    QStringLiteral("F7505304084100040000410042F75053440641000200706B"));
            },
            "download-trace.txt"},

        // A record refused on every attempt: the failure box, and the debug file ends with it.
        {"download_failing_at_a_record", {"--exception", "@record:1"},
            {{QStringLiteral("--yes"), QStringLiteral("download"), project, QStringLiteral("--port"), Port},
                1, {}, {"錯誤: [下載專案] " + SendFailure(QStringLiteral("工地 A")) + u'\n'}},
            4,
            [](const QJsonObject&, const QDir& programDir) {
                EXPECT_EQ(HexOf(programDir.filePath(QStringLiteral("PhoneBook.dbg"))),
                    QStringLiteral("F75043010E00010A0130393132333435363738"));
            }},

        {"settings_shows_the_dialog_as_loaded",
            {"--model-id", "4106", "--firmware", "0415", "--slave-id", "9", "--setting-byte", "0xC2"},
            {cmd("settings --port {PORT}"), 0, {}, {},
                QStringLiteral("型號 : KV470-RM64MT\n序號 : 07-08-0506-030401-02\n通訊速率 : 4800\n"
                               "資料位元 : 8\n停止位元 : 1\n同位元檢查 : EVEN\n裝置識別碼 : 9\n")}},

        {"settings_written_with_yes", {},
            {cmd("--yes settings --port {PORT} --slave 12 --baud 19200 --parity odd"), 0, {},
                {QStringLiteral("[設定報警機通訊參數] 設定報警機通訊參數成功!\n")}},
            5, registers(12, 128 + 4)},

        // Cancel at the question keeps the dialog open in the window; here it ends the command.
        {"settings_unanswered_writes_nothing", {},
            {cmd("settings --port {PORT} --slave 12"), 1, {},
                {QStringLiteral("確定(O)/取消(C)? 取消(C) (無輸入)\n")}},
            4, registers(1, 3)},

        // The dialler's model is known only once it has answered.
        {"settings_with_a_baud_rate_the_model_lacks", {},
            {cmd("--yes settings --port {PORT} --baud 115200"), 2, {},
                {QStringLiteral("--baud 115200: 報警機的機型只提供 1200, 2400, 4800, 9600, 19200, 38400"),
                    QStringLiteral("用法: vorna-cli")}},
            4, registers(1, 3)},

        {"registers_of_a_whole_dialler", {"--alarm-bits", "8000000000000001"},
            {cmd("registers --port {PORT}"), 0,
                {QStringLiteral("Product S/N                          0102030405060708  0002H  4\n"),
                    QStringLiteral("Current Alarm                        0100000000000080  0000H  4\n")},
                {QStringLiteral("[RM64 偵錯工具] 讀取Quillbeacon暫存器資訊成功！\n")}},
            0,
            // The port dialog reaches the terminal through a number mapped for the run only.
            [](const QJsonObject&, const QDir& programDir) {
                EXPECT_FALSE(ReadText(programDir.filePath(QStringLiteral("VORNA.set"))).contains(u"[Ports]"));
            }},

        // The load reads three registers; the fifth row's two attempts are the 8th and 9th
        // requests. The rows before it keep their content, those from it on stay empty.
        {"registers_of_a_dialler_that_refuses_one", {"--exception", "@8,9"},
            {cmd("registers --port {PORT}"), 1,
                {QStringLiteral("Address Of New Record                0000              0006H  1\n"
                                "Device Status                                          0007H  1\n")},
                {QStringLiteral("[RM64 偵錯工具] 讀取Quillbeacon暫存器資訊失敗！\n")}}},

        // A refused first attempt of each kind, retried with success, from the load's reads on:
        // the trace names each verdict in the order the protocol judges.
        {"registers_through_every_kind_of_refusal",
            {"--drop-request", "@1", "--truncate", "@3", "--exception", "@5,7", "--exception-code", "2",
                "--wrong-function", "@7,11", "--wrong-station", "@9", "--corrupt-crc", "@13"},
            {{QStringLiteral("registers"), QStringLiteral("--port"), Port, QStringLiteral("--trace"), trace},
                0},
            0, {}, "registers-trace.txt"},
    };
}

// A temporary installation with short link time-outs, so that a silent dialler costs little.
class CliDeviceFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QDir dir(root);
        ASSERT_TRUE(dir.rename(QStringLiteral("VORNA"), ProgramDir));
        ASSERT_TRUE(dir.mkpath(ProjectDir));
        const QString profile = dir.filePath(ProgramDir + QStringLiteral("/VORNA.set"));
        WriteAll(profile, ReadAll(profile).replace("TimeOut=2", "TimeOut=1").replace("Retry=3", "Retry=1"));
        MakeProject(dir.filePath(ProgramDir + QStringLiteral("/RM64.mdb")),
            dir.filePath(ProjectDir + QStringLiteral("/工地 A.cmb")), SmallProject);
    }

    TestFolder folder;
    const QString root = QDir(folder.root()).canonicalPath();
    const QString dumpPath = root + QStringLiteral("/dialler.json");
};

class CliDeviceTest : public CliDeviceFixture, public ::testing::WithParamInterface<DeviceScenario>
{ };

TEST_P(CliDeviceTest, RunsAgainstTheVirtualDialler)
{
    const DeviceScenario& scenario = GetParam();
    DevsimProcess devsim(QStringList {"--baud", "0", "--dump", dumpPath} + scenario.devsim);
    ASSERT_FALSE(devsim.path().isEmpty());
    auto expand = [&](QString text) { return text.replace(Port, devsim.path()).replace(Root, root); };
    QStringList args;
    for (const QString& arg : scenario.run.args)
        args << expand(arg);
    SCOPED_TRACE("vorna-cli " + args.join(QLatin1Char(' ')).toStdString());

    ExpectRun(
        scenario.run, RunCli(root, TraditionalChinese, args, scenario.run.input, {}, ProgramDir), expand);
    if (scenario.check)
        scenario.check(DumpAfter(dumpPath, scenario.requests), QDir(root + QLatin1Char('/') + ProgramDir));
    if (scenario.golden)
        ExpectGolden(QStringLiteral("cli/golden/") + QLatin1String(scenario.golden),
            MaskedTrace(ReadText(root + QLatin1Char('/') + TracePath)));
}

INSTANTIATE_TEST_SUITE_P(cli, CliDeviceTest, ::testing::ValuesIn(Scenarios()),
    [](const ::testing::TestParamInfo<DeviceScenario>& info) { return std::string(info.param.name); });

} // namespace
