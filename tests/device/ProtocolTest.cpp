#include <vector>

#include "CaseName.h"
#include "CommUtil.h"
#include "DeviceFixture.h"

namespace {

const QString SendError = QStringLiteral("Send Command Error");
const QString SilentTitle = QStringLiteral("Silent timeout error!");

// One answer per attempt: hex completed with its CRC, "raw:" hex sent as it is, "" silence.
struct ProtocolCase
{
    const char* name;
    std::vector<const char*> answers;
    int retry;
    bool result;
    // The diagnostic boxes, in order: {title, text}.
    std::vector<std::pair<QString, QString>> boxes;
    int debugLevel = 1; // 0: the diagnostics sleep
};

QString Silent(int received)
{
    return QStringLiteral(
        "Communication silent timeout error in receiving  data!\r\nExpected data length=7\r\n"
        "Received data length=%1\r\nSilent time out(sec)=2")
        .arg(received);
}

QString Short(int received)
{
    return QStringLiteral("Send command timeOut!! Incomplete response data. nWord = %1\r\n"
                          "Request response data. nRspData= 7")
        .arg(received);
}

const std::vector<ProtocolCase> Cases = {
    {"good answer at once", {"F704024006"}, 3, true, {}},
    {"error answer counts even with a bad CRC, and is retried", {"raw:F784020000", "F704024006"}, 3, true,
        {{SilentTitle, Silent(5)}, {SendError, "Send command response error.\r\nCommand function no=4"},
            {SendError, QStringLiteral("這是一個不合法的命令.")}}},
    {"five bytes of another function are a short answer", {"raw:F703020000"}, 0, false,
        {{SilentTitle, Silent(5)}, {SendError, Short(5)}}},
    {"wrong function", {"F703024006"}, 0, false,
        {{SendError,
            "Response data with wrong function code.\r\nSend command function code=4\r\n"
            "Response data function code=3"}}},
    {"bad CRC", {"raw:F7040240060000"}, 0, false, {{SendError, "CRC Error."}}},
    {"silence on every attempt gives retry plus one attempts", {"", "", "", ""}, 3, false,
        {{SilentTitle, Silent(0)}, {SendError, Short(0)}, {SilentTitle, Silent(0)}, {SendError, Short(0)},
            {SilentTitle, Silent(0)}, {SendError, Short(0)}, {SilentTitle, Silent(0)},
            {SendError, Short(0)}}},
    {"a function byte left by an earlier attempt makes no error answer", {"raw:F784020000AABB", "raw:F7"}, 1,
        false,
        {{SendError,
             "Response data with wrong function code.\r\nSend command function code=4\r\n"
             "Response data function code=132"},
            {SilentTitle, Silent(1)}, {SendError, Short(1)}}},
    {"failed attempts show nothing when the diagnostics sleep", {"raw:F7840200", "F603024006"}, 1, false, {},
        0},
};

class ProtocolTest : public DeviceTest, public ::testing::WithParamInterface<ProtocolCase>
{ };

QByteArray Answer(const char* text)
{
    const QByteArray s(text);
    if (s.startsWith("raw:"))
        return QByteArray::fromHex(s.mid(4));
    return s.isEmpty() ? QByteArray() : WithCrc(text);
}

} // namespace

TEST_P(ProtocolTest, JudgesEachAttemptInOrderAndRetries)
{
    const ProtocolCase& c = GetParam();
    g.link.CommDebugLevel = qint16(c.debugLevel);
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    for (const char* a : c.answers) {
        if (QByteArray(a).isEmpty())
            platform.serial.answerNothing();
        else
            platform.serial.answer(Answer(a));
    }
    for (const auto& [title, text] : c.boxes)
        platform.expectBox(MsgBox::Critical, text, title);

    CommBuffer cmd = Buffer(QByteArray::fromHex("F70400000001"), 8);
    CommBuffer rsp(7);
    EXPECT_EQ(SendCommand(g, comm, cmd, 6, rsp, 7, 2, qint16(c.retry)), c.result);

    EXPECT_EQ(platform.serial.written.size(), c.answers.size());
    for (const QByteArray& w : platform.serial.written)
        EXPECT_EQ(Hex(w), Hex(WithCrc("F70400000001")));
    EXPECT_EQ(pause.sleeps, int(c.answers.size()) - (c.result ? 1 : 0));
    EXPECT_TRUE(platform.allExpectationsMet());
}

INSTANTIATE_TEST_SUITE_P(Answers, ProtocolTest, ::testing::ValuesIn(Cases),
    [](const auto& info) { return CaseName(info.param.name); });

// The next attempt waits for the sleep timer's 30 ms; a timer that never runs ends the pause
// after ten seconds all the same.
TEST_F(DeviceTest, TheNextAttemptWaitsForThePause)
{
    struct Case
    {
        bool timerRuns;
        int stepMs;
        qint64 least;
        qint64 most;
    };
    for (const Case& c : {Case {true, 1, 30, 99}, Case {false, 100, 10001, 12000}}) {
        pause.timerRuns = c.timerRuns;
        doEventsStepMs = c.stepMs;
        ASSERT_TRUE(EnsureCommOpen(g, comm));
        platform.serial.writeTimes.clear();
        platform.serial.answer(WithCrc("F604024006"));
        platform.serial.answer(WithCrc("F704024006"));
        CommBuffer cmd = Buffer(QByteArray::fromHex("F70400000001"), 8);
        CommBuffer rsp(7);
        ASSERT_TRUE(SendCommand(g, comm, cmd, 6, rsp, 7, 2, 1));
        ASSERT_EQ(platform.serial.writeTimes.size(), 2u);
        const qint64 gap = pause.sleepStarted.msecsTo(platform.serial.writeTimes[1]);
        EXPECT_GE(gap, c.least) << c.timerRuns;
        EXPECT_LE(gap, c.most) << c.timerRuns;
    }
}
