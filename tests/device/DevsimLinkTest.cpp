#include <optional>

#include <QJsonArray>

#include "CaseName.h"
#include "DeviceRegisters.h"
#include "DevsimProcess.h"
#include "DownloadSteps.h"
#include "ProjectImage.h"
#include "PtyLinkFixture.h"

namespace {

// The link against vorna-devsim, an independent dialler, as a child process: the line opened
// on the path it prints, and its JSON dump read once it has counted the requests sent.
class DevsimLinkTest : public PtyLinkTest, public ProjectRows
{
protected:
    DevsimLinkTest()
        : ProjectRows(g)
    { }

    void startDevsim(const QStringList& options)
    {
        dumpPath = folder.path(QStringLiteral("dialler.json"));
        devsim.emplace(QStringList {"--baud", "0", "--dump", dumpPath} + options);
        ASSERT_TRUE(openLine(devsim->path())) << devsim->path().toStdString();
    }

    int received() const { return ReadDump(dumpPath)["requests"].toObject()["received"].toInt(); }

    QJsonObject dumpAfter(int requests)
    {
        EXPECT_TRUE(WaitFor([&] { return received() == requests; })) << "requests: " << received();
        return ReadDump(dumpPath);
    }

    QString dumpPath;
    std::optional<DevsimProcess> devsim;
};

TEST_F(DevsimLinkTest, ReadsTheIdentityAndWritesTheSettings)
{
    startDevsim({"--model-id", "4106", "--firmware", "0415", "--serial", "1122334455667788", "--slave-id",
        "9", "--setting-byte", "0xC2"});
    DeviceInfo info;
    QString firmware;
    ASSERT_TRUE(ReadDeviceComm(g, info, false));
    ASSERT_TRUE(ReadFirmwareVersion(g, firmware));
    EXPECT_EQ(info, (DeviceInfo {"RM64MT", {}, "77-88-5566-334411-22", "4800", "E", "9"}));
    EXPECT_EQ(ModelPrefix(firmware) + info.Model, QStringLiteral("KV470-RM64MT"));

    ASSERT_TRUE(WriteDeviceComm(g, "KV470-RM64MT", "12", "19200", "O", false));
    const QJsonObject registers = dumpAfter(5)["registers"].toObject();
    EXPECT_EQ(registers["slaveId"].toInt(), 12);
    EXPECT_EQ(registers["settingByte"].toInt(), 128 + 4);
    ASSERT_TRUE(ReadDeviceComm(g, info, false));
    EXPECT_EQ(info, (DeviceInfo {"RM64MT", {}, "77-88-5566-334411-22", "19200", "O", "12"}));
}

// The erases and every record of a small project, then what the dialler kept against what
// was built: the same frames as the dry run, in order, and the same entries.
TEST_F(DevsimLinkTest, DownloadsAProjectThatTheDiallerKeepsAsSent)
{
    startDevsim({});
    newProject();
    clearGroupsAndZones();
    group("Fire");
    group("Police");
    user("Ann", "0912345678", "Fire\r\nPolice");
    user("Bob", "110", "Police", true);
    zone(3, "Police", QStringLiteral("火警"), "OK");
    zone(5, "ALL", "", "Reset", true);
    ProjectImage image;
    BuildProjectImage(g, image);
    ASSERT_TRUE(ClearPhoneBook(g));
    ASSERT_TRUE(ClearShortMessages(g));
    ASSERT_TRUE(DownloadImages(g, image));

    QStringList planned;
    ForEachDownloadFrame(g, image, [&](const QByteArray& frame, const QString&) {
        planned << QString::fromLatin1(frame.toHex().toUpper());
    });
    const QJsonObject dump = dumpAfter(int(planned.size()));
    QStringList received;
    for (const QJsonValue& request : dump["log"].toArray())
        received << request["frame"].toString();
    EXPECT_EQ(received, planned);
    EXPECT_EQ(dump["erases"].toObject(), (QJsonObject {{"phoneBook", 1}, {"shortMessages", 1}}));

    QByteArray kept;
    const QJsonArray phoneBook = dump["phoneBook"].toArray();
    ASSERT_EQ(phoneBook.size(), qsizetype(image.PhoneBookList.size()));
    for (qsizetype i = 0; i < phoneBook.size(); ++i) {
        const PhoneBookEntry& sent = image.PhoneBookList[size_t(i)];
        EXPECT_EQ(phoneBook[i]["phoneNumber"].toString(), sent.PhoneNumber);
        EXPECT_EQ(phoneBook[i]["group"].toInt(), sent.GroupNo);
        EXPECT_EQ(phoneBook[i]["disabled"].toBool(), sent.IsDisable);
        kept += QByteArray::fromHex(phoneBook[i]["frame"].toString().toLatin1());
    }
    EXPECT_EQ(kept, File(PhoneBookDbgFile));
    QStringList texts;
    for (const QJsonValue& message : dump["shortMessages"].toArray())
        texts << QStringLiteral("%1 %2 %3")
                     .arg(message["number"].toInt())
                     .arg(message["group"].toInt())
                     .arg(message["text"].toString());
    EXPECT_EQ(texts, (QStringList {QStringLiteral("4 2 火警"), "68 2 OK", "70 0 Reset"}));
}

struct FaultCase
{
    const char* name;
    QStringList options;
    qint16 retry;
    bool result;
    int requests;     // received by the dialler: the attempts made
    int lastFunction; // of the last answer
};

class DevsimFaultTest : public DevsimLinkTest, public testing::WithParamInterface<FaultCase>
{ };

// A read of the model id under one fault, judged by the protocol and counted by the dialler.
TEST_P(DevsimFaultTest, SeenAsTheProtocolJudgesIt)
{
    const FaultCase& c = GetParam();
    startDevsim(c.options);
    CommBuffer cmd = Buffer(QByteArray::fromHex("F70400000001"), 8);
    CommBuffer rsp(7);
    EXPECT_EQ(SendCommand(g, comm, cmd, 6, rsp, 7, g.link.Timeout, c.retry), c.result);
    EXPECT_EQ(rsp(2), c.lastFunction);
    dumpAfter(c.requests);
    EXPECT_EQ(pause.sleeps, c.requests - (c.result ? 1 : 0));
}

const FaultCase FaultCases[] = {
    {"dropped answer retried", {"--drop-response", "@1"}, 1, true, 2, 0x04},
    {"corrupt crc on every answer", {"--corrupt-crc", "1"}, 2, false, 3, 0x04},
    {"exception answer", {"--exception", "1"}, 1, false, 2, 0x84},
    {"noise before the answer", {"--noise", "@1"}, 1, true, 2, 0x04},
};

INSTANTIATE_TEST_SUITE_P(DevsimLinkTest, DevsimFaultTest, testing::ValuesIn(FaultCases),
    [](const testing::TestParamInfo<FaultCase>& info) { return CaseName(info.param.name); });

// Bytes after an answer stay in the queue, and the next request drops them before it goes.
TEST_F(DevsimLinkTest, ExtraBytesAfterAnAnswerAreDroppedBeforeTheNextRequest)
{
    startDevsim({"--extra-bytes", "1"});
    QString code;
    for (int k = 0; k < 3; ++k)
        ASSERT_TRUE(ReadModelCode(g, code)) << k;
    dumpAfter(3);
    EXPECT_EQ(pause.sleeps, 0);
}

} // namespace
