#include "CaseName.h"
#include "ConnectDownload.h"
#include "DownloadTexts.h"
#include "ProjectImage.h"
#include "PtyLinkFixture.h"

namespace {

struct DownloadFaultCase
{
    const char* name;
    QStringList options;
    int requests; // received by the dialler: every attempt
    bool done;
};

class DownloadFaultTest : public DevsimLinkTest, public testing::WithParamInterface<DownloadFaultCase>
{ };

// One fault at one record of a project of two contacts and one zone's two texts, on a line
// paced at 9600 baud with two retries: what a real line leaves behind a fault must not spoil
// the next answer. The verdicts on each kind of bad answer, and a silence waited out, are in
// the protocol's tests and vorna-cli's registers transcripts.
TEST_P(DownloadFaultTest, EndsAsTheRetriesAllow)
{
    const DownloadFaultCase& c = GetParam();
    startDevsim(QStringList {"--baud", "9600", "--delay-ms", "400"} + c.options);
    g.link.Retry = 2;
    SetOnlineState(g);
    newEmptyProject();
    AddGroupRow(p(), "Fire");
    AddUserRow(p(), "Ann", "Fire", "0912345678");
    AddUserRow(p(), "Bob", "Fire", "110");
    AddZoneRow(p(), 3, "Fire", QStringLiteral("火警"), "OK");
    ProjectImage image;
    BuildProjectImage(g, image);
    const int size = p().ProjectImageSize;
    platform.expectBox(
        MsgBox::OKCancel + MsgBox::Question, Confirmation(size, p().MaxMemoryByte - size), DownloadTitle);
    if (c.done)
        platform.expectBox(MsgBox::OKOnly, DownloadSuccess("Project1", size), DownloadTitle);
    else
        platform.expectBox(MsgBox::Critical, SendFailure("Project1"), DownloadTitle);
    EXPECT_EQ(DownloadProject(g), c.done);
    EXPECT_EQ(g.link.IsDeviceConnected, c.done);

    const QJsonObject dump = dumpAfter(c.requests);
    if (c.done) {
        EXPECT_EQ(Lines(dump["phoneBook"], {"phoneNumber", "group", "flags"}),
            QStringList({"0912345678 1 0", "110 1 0"}));
        EXPECT_EQ(Lines(dump["shortMessages"], {"number", "group", "flags", "text"}),
            QStringList({QStringLiteral("4 1 65 火警"), "68 1 65 OK"}));
    }
}

// Requests 1 and 2 are the erases, 3 to 6 the records; a record struck on every attempt
// takes three.
const DownloadFaultCase DownloadFaultCases[] = {
    {"noise clears", {"--noise", "@record:4x1"}, 7, true},
    {"noise never clears", {"--noise", "@record:1"}, 5, false},
    // What a bad answer leaves on the line must be gone before the retry, or every later
    // answer is read out of step.
    {"extra bytes after a bad answer clear", {"--corrupt-crc", "@record:2x1", "--extra-bytes", "@record:2x1"},
        7, true},
    // Bytes after the last answer are dropped by the next send, whatever it is.
    {"extra bytes after the last answer", {"--extra-bytes", "@record:4"}, 6, true},
    // Within the silent time-out a slow answer is no fault at all.
    {"delay within the time out", {"--delay", "@record:2"}, 6, true},
};

INSTANTIATE_TEST_SUITE_P(ConnectDownloadPtyTest, DownloadFaultTest, testing::ValuesIn(DownloadFaultCases),
    [](const testing::TestParamInfo<DownloadFaultCase>& info) { return CaseName(info.param.name); });

// A dialler that hangs up leaves no port open behind it: the command under way fails at once
// instead of waiting out its silences, and the next operation opens the port again, which
// fails with the open's own box while the dialler is gone.
TEST_F(DevsimLinkTest, AHangUpClosesThePortAndTheNextOperationOpensItAgain)
{
    startDevsim({"--close-after-record", "1"});
    g.link.Retry = 3;
    CommBuffer cmd = Buffer(QByteArray::fromHex("F75043020E00020A0230393132333435363738"), 21);
    CommBuffer rsp(6);
    ASSERT_TRUE(SendCommand(g, comm, cmd, 19, rsp, 6, g.link.Timeout, g.link.Retry));
    EXPECT_EQ(devsim->finished(), 0);
    CommBuffer probe = Buffer(QByteArray::fromHex("F70400060001"), 8);
    CommBuffer answer(7);
    EXPECT_FALSE(SendCommand(g, comm, probe, 6, answer, 7, g.link.Timeout, g.link.Retry));
    EXPECT_EQ(pause.sleeps, 4);
    EXPECT_FALSE(comm.PortOpen());

    platform.expectBoxWithAnyText(MsgBox::Critical, QStringLiteral("Communicaiton Error"));
    EXPECT_FALSE(EnsureCommOpen(g, comm));
    EXPECT_TRUE(platform.boxTexts().at(0).startsWith("Unable to connect to Device."))
        << platform.boxTexts().at(0).toStdString();
}

} // namespace
