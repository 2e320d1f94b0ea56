#include <map>
#include <optional>

#include <QJsonArray>
#include <QThread>

#include "CaseName.h"
#include "DeviceRegisters.h"
#include "DevsimProcess.h"
#include "DownloadSteps.h"
#include "ProjectImage.h"
#include "PtyLinkFixture.h"

namespace {

// The named fields of each element of an array of the dump, one line for each element.
QStringList Lines(const QJsonValue& array, std::initializer_list<const char*> keys)
{
    QStringList lines;
    for (const QJsonValue& element : array.toArray()) {
        QStringList fields;
        for (const char* key : keys)
            fields << element[QLatin1String(key)].toVariant().toString();
        lines << fields.join(u' ');
    }
    return lines;
}

// The link against vorna-devsim, an independent dialler, as a child process: the line opened
// on the path it prints, and its JSON dump read once it has counted the requests sent.
class DevsimLinkTest : public PtyLinkTest
{
protected:
    void startDevsim(const QStringList& options)
    {
        dumpPath = folder.path(QStringLiteral("dialler.json"));
        devsim.emplace(QStringList {"--baud", "0", "--dump", dumpPath} + options);
        ASSERT_TRUE(openLine(devsim->path())) << devsim->path().toStdString();
    }

    // The dialler rewrites its dump a moment after each answer.
    QJsonObject dumpAfter(int requests)
    {
        auto received
            = [](const QJsonObject& dump) { return dump["requests"].toObject()["received"].toInt(); };
        QElapsedTimer clock;
        clock.start();
        QJsonObject dump = ReadDump(dumpPath);
        while (received(dump) != requests && clock.elapsed() < 5000) {
            QThread::msleep(2);
            dump = ReadDump(dumpPath);
        }
        EXPECT_EQ(received(dump), requests);
        return dump;
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
    DeleteRows(p().rsUserGroups);
    DeleteRows(p().rsZones);
    AddGroupRow(p(), "Fire");
    AddGroupRow(p(), "Police");
    AddUserRow(p(), "Ann", "Fire\r\nPolice", "0912345678");
    AddUserRow(p(), "Bob", "Police", "110", true);
    AddZoneRow(p(), 3, "Police", QStringLiteral("火警"), "OK");
    AddZoneRow(p(), 5, "ALL", "", "Reset", true);
    ProjectImage image;
    BuildProjectImage(g, image);
    ASSERT_TRUE(ClearPhoneBook(g));
    ASSERT_TRUE(ClearShortMessages(g));
    ASSERT_TRUE(DownloadImages(g, image));

    QStringList planned;
    std::map<QString, QByteArray> dbgFiles;
    ForEachDownloadFrame(g, image, [&](const QByteArray& frame, const QString& dbgFile) {
        planned << QString::fromLatin1(frame.toHex().toUpper());
        if (!dbgFile.isEmpty())
            dbgFiles[dbgFile] += frame.chopped(2);
    });
    for (const auto& [file, content] : dbgFiles)
        EXPECT_EQ(FileBytes(file), content) << file.toStdString();
    const QJsonObject dump = dumpAfter(int(planned.size()));
    EXPECT_EQ(Lines(dump["log"], {"frame"}), planned);
    EXPECT_EQ(dump["erases"].toObject(), (QJsonObject {{"phoneBook", 1}, {"shortMessages", 1}}));
    EXPECT_EQ(Lines(dump["phoneBook"], {"phoneNumber", "group", "flags"}),
        (QStringList {"0912345678 1 0", "0912345678 2 0", "110 2 128"}));
    EXPECT_EQ(Lines(dump["shortMessages"], {"number", "group", "flags", "text"}),
        (QStringList {QStringLiteral("4 2 65 火警"), "68 2 65 OK", "70 0 193 Reset"}));
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
    {"exception answer", {"--exception", "1"}, 1, false, 2, 0x84},
    // The rest of the answer waits in the queue, and the retry drops it before it goes.
    {"noise before the answer", {"--noise", "@1"}, 1, true, 2, 0x04},
};

INSTANTIATE_TEST_SUITE_P(DevsimLinkTest, DevsimFaultTest, testing::ValuesIn(FaultCases),
    [](const testing::TestParamInfo<FaultCase>& info) { return CaseName(info.param.name); });

} // namespace
