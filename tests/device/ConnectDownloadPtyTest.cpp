#include <map>

#include <QFile>

#include "CaseName.h"
#include "ConnectDownload.h"
#include "DownloadSteps.h"
#include "DownloadTexts.h"
#include "Golden.h"
#include "ProjectImage.h"
#include "PtyLinkFixture.h"

namespace {

const QStringList PhoneBook = {"0912345678 1 0", "110 1 0"};
const QStringList Messages = {QStringLiteral("4 1 65 火警"), "68 1 65 OK"};

// The two procedures against vorna-devsim, through the scripted boxes: a project of two
// contacts in one group and one zone with both texts, four records in all.
class ConnectDownloadPtyTest : public DevsimLinkTest
{
protected:
    void openSmallProject()
    {
        newEmptyProject();
        AddGroupRow(p(), "Fire");
        AddUserRow(p(), "Ann", "Fire", "0912345678");
        AddUserRow(p(), "Bob", "Fire", "110");
        AddZoneRow(p(), 3, "Fire", QStringLiteral("火警"), "OK");
        BuildProjectImage(g, image);
        size = p().ProjectImageSize;
    }

    void expectConfirmation()
    {
        platform.expectBox(
            MsgBox::OKCancel + MsgBox::Question, Confirmation(size, p().MaxMemoryByte - size), DownloadTitle);
    }

    void expectLink(bool online)
    {
        EXPECT_EQ(g.link.IsDeviceConnected, online);
        EXPECT_EQ(pause.panels["ConnectStatus"], online ? " Online" : " Offline");
        EXPECT_EQ(pause.pictures["ConnectStatus"], online ? "Connect" : "DisConnect");
    }

    ProjectImage image;
    int size = 0;
};

// A connect, then a download of two groups, a contact in both, a disabled contact and a
// disabled zone's reset text: the boxes, busy box and status in order, and the dialler keeping
// the very frames of the dry run, in order, as the debug files do without their CRC.
TEST_F(ConnectDownloadPtyTest, ConnectsThenDownloadsAndTheDiallerKeepsTheProjectAsSent)
{
    startDevsim({});
    newEmptyProject();
    AddGroupRow(p(), "Fire");
    AddGroupRow(p(), "Police");
    AddUserRow(p(), "Ann", "Fire\r\nPolice", "0912345678");
    AddUserRow(p(), "Bob", "Police", "110", true);
    AddZoneRow(p(), 3, "Police", QStringLiteral("火警"), "OK");
    AddZoneRow(p(), 5, "ALL", "", "Reset", true);
    BuildProjectImage(g, image);
    size = p().ProjectImageSize;
    startJournal();
    platform.expectBox(
        MsgBox::Information, ConnectSuccess("KV570-RM64T", "07-08-0506-030401-02", "9600, N"), ConnectTitle);
    EXPECT_TRUE(ConnectDevice(g));
    expectConfirmation();
    platform.expectBox(MsgBox::OKOnly, DownloadSuccess("Project1", size), DownloadTitle);
    EXPECT_TRUE(DownloadProject(g));

    QStringList planned;
    std::map<QString, QByteArray> dbgFiles;
    ForEachDownloadFrame(g, image, [&](const QByteArray& frame, const QString& dbgFile) {
        planned << QString::fromLatin1(frame.toHex().toUpper());
        if (!dbgFile.isEmpty())
            dbgFiles[dbgFile] += frame.chopped(2);
    });
    for (const auto& [file, content] : dbgFiles)
        EXPECT_EQ(ReadAll(file), content) << file.toStdString();
    const QJsonObject dump = dumpAfter(5 + int(planned.size()));
    EXPECT_EQ(Lines(dump["log"], {"frame"}).mid(5), planned);
    expectLink(true);
    const ProgressBar& bar = message.prgProgress;
    const QStringList shown = QStringList {journal().join(u'\n'), message.lblProgress.Caption,
        QStringLiteral("progress %1..%2 at %3, shown %4")
            .arg(bar.Min)
            .arg(bar.Max)
            .arg(bar.Value)
            .arg(int(message.lblProgress.Visible && bar.Visible)),
        QStringLiteral("erases %1 %2")
            .arg(dump["erases"]["phoneBook"].toInt())
            .arg(dump["erases"]["shortMessages"].toInt()),
        Lines(dump["phoneBook"], {"phoneNumber", "group", "flags"}).join(u'\n'),
        Lines(dump["shortMessages"], {"number", "group", "flags", "text"}).join(u'\n')};
    ExpectGolden(QStringLiteral("device/golden/connect-download.txt"), shown.join(u'\n') + u'\n');
}

struct ConnectCase
{
    const char* name;
    QStringList options;
    int requests;
    int flags;
    QString text; // of the box
};

class ConnectTest : public ConnectDownloadPtyTest, public testing::WithParamInterface<ConnectCase>
{ };

// The probe, the settings and the firmware must all answer; the model need not be known.
TEST_P(ConnectTest, EndsInItsBoxAndLinkState)
{
    const ConnectCase& c = GetParam();
    startDevsim(c.options);
    SetOfflineState(g);
    if (c.flags == MsgBox::Critical)
        SetOnlineState(g);
    platform.expectBox(c.flags, c.text, ConnectTitle);
    EXPECT_EQ(ConnectDevice(g), c.flags == MsgBox::Information);
    expectLink(c.flags == MsgBox::Information);
    dumpAfter(c.requests);
}

const ConnectCase ConnectCases[] = {
    {"unknown model", {"--model-id", "0000"}, 5, MsgBox::Information,
        ConnectSuccess("KV570-UnKnown", "07-08-0506-030401-02", "UnKnown, N")},
    {"firmware read refused", {"--exception", "@5"}, 5, MsgBox::Critical, ConnectFailure},
};

INSTANTIATE_TEST_SUITE_P(ConnectDownloadPtyTest, ConnectTest, testing::ValuesIn(ConnectCases),
    [](const testing::TestParamInfo<ConnectCase>& info) { return CaseName(info.param.name); });

struct DownloadFaultCase
{
    const char* name;
    QStringList options;
    int requests;     // received by the dialler: every attempt
    int failedRecord; // 0 when the download succeeds
};

class DownloadFaultTest : public ConnectDownloadPtyTest, public testing::WithParamInterface<DownloadFaultCase>
{ };

// One fault at one record, on a line paced at 9600 baud with two retries: a fault that clears
// within them leaves the dialler holding the project; one that does not ends offline, with
// the frames up to the failed one kept in the debug files.
TEST_P(DownloadFaultTest, EndsAsTheRetriesAllow)
{
    const DownloadFaultCase& c = GetParam();
    startDevsim(QStringList {"--baud", "9600", "--delay-ms", "400"} + c.options);
    g.link.Retry = 2;
    SetOnlineState(g);
    openSmallProject();
    expectConfirmation();
    if (c.failedRecord == 0)
        platform.expectBox(MsgBox::OKOnly, DownloadSuccess("Project1", size), DownloadTitle);
    else
        platform.expectBox(MsgBox::Critical, SendFailure("Project1"), DownloadTitle);
    EXPECT_EQ(DownloadProject(g), c.failedRecord == 0);
    expectLink(c.failedRecord == 0);

    const QJsonObject dump = dumpAfter(c.requests);
    if (c.failedRecord == 0) {
        EXPECT_EQ(Lines(dump["phoneBook"], {"phoneNumber", "group", "flags"}), PhoneBook);
        EXPECT_EQ(Lines(dump["shortMessages"], {"number", "group", "flags", "text"}), Messages);
        return;
    }
    std::map<QString, QByteArray> kept;
    int record = 0;
    ForEachDownloadFrame(g, image, [&](const QByteArray& frame, const QString& dbgFile) {
        if (!dbgFile.isEmpty() && ++record <= c.failedRecord)
            kept[dbgFile] += frame.chopped(2);
    });
    for (const QString& file : {PhoneBookDbgFile, ShortMsgDbgFile}) {
        if (kept.contains(file))
            EXPECT_EQ(ReadAll(file), kept[file]) << file.toStdString();
        else
            EXPECT_FALSE(QFile::exists(file)) << file.toStdString();
    }
}

// Requests 1 and 2 are the erases, 3 to 6 the records; a record struck on every attempt
// takes three.
const DownloadFaultCase DownloadFaultCases[] = {
    {"drop request clears", {"--drop-request", "@record:2x2"}, 8, 0},
    {"drop response never clears", {"--drop-response", "@record:3"}, 7, 3},
    {"truncate clears", {"--truncate", "@record:2x1"}, 7, 0},
    {"corrupt crc never clears", {"--corrupt-crc", "@record:4"}, 8, 4},
    {"wrong station clears", {"--wrong-station", "@record:1x2"}, 8, 0},
    {"wrong function never clears", {"--wrong-function", "@record:2"}, 6, 2},
    {"exception clears", {"--exception", "@record:3x2"}, 8, 0},
    {"noise clears", {"--noise", "@record:4x1"}, 7, 0},
    {"noise never clears", {"--noise", "@record:1"}, 5, 1},
    {"drop response clears", {"--drop-response", "@record:2x1"}, 7, 0},
    // What a bad answer leaves on the line must be gone before the retry, or every later
    // answer is read out of step.
    {"extra bytes after a bad answer clear", {"--corrupt-crc", "@record:2x1", "--extra-bytes", "@record:2x1"},
        7, 0},
    // Bytes after the last answer are dropped by the next send, whatever it is.
    {"extra bytes after the last answer", {"--extra-bytes", "@record:4"}, 6, 0},
    // Within the silent time-out a slow answer is no fault at all.
    {"delay within the time out", {"--delay", "@record:2"}, 6, 0},
    {"hang up after the first record", {"--close-after-record", "1"}, 3, 2},
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
