#include <map>

#include "CaseName.h"
#include "DeviceRegisters.h"
#include "DevsimFixture.h"
#include "DownloadSteps.h"
#include "ProjectImage.h"

namespace {

// The number 0912345678 as the second entry of group 2.
constexpr const char* PhoneRecordHex = "F75043020E00020A0230393132333435363738";

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
    std::vector<bool> results; // of three model-id reads in a row
    int requests;              // received by the dialler: the attempts made
    int lastFunction;          // of the first read's last answer
};

class DevsimFaultTest : public DevsimLinkTest, public testing::WithParamInterface<FaultCase>
{ };

// Three reads of the model id on a line paced at 9600 baud, the first under a fault, judged
// by the protocol and counted by the dialler. What a fault leaves on the line must be gone
// before the next attempt, or every later answer is read out of step.
TEST_P(DevsimFaultTest, SeenAsTheProtocolJudgesIt)
{
    const FaultCase& c = GetParam();
    startDevsim(QStringList {"--baud", "9600"} + c.options);
    std::vector<bool> results;
    int firstFunction = 0;
    for (int k = 0; k < 3; ++k) {
        CommBuffer cmd = Buffer(QByteArray::fromHex("F70400000001"), 8);
        CommBuffer rsp(7);
        results.push_back(SendCommand(g, comm, cmd, 6, rsp, 7, g.link.Timeout, c.retry));
        if (k == 0)
            firstFunction = rsp(2);
    }
    EXPECT_EQ(results, c.results);
    EXPECT_EQ(firstFunction, c.lastFunction);
    dumpAfter(c.requests);
}

const FaultCase FaultCases[] = {
    {"dropped answer retried", {"--drop-response", "@1"}, 1, {true, true, true}, 4, 0x04},
    {"exception answer", {"--exception", "@1,2"}, 1, {false, true, true}, 4, 0x84},
    // The tail of the answer waits in the driver, and the retry drops it before it goes.
    {"noise before the answer", {"--noise", "@1"}, 3, {true, true, true}, 4, 0x04},
    {"bytes after a bad answer", {"--corrupt-crc", "@1", "--extra-bytes", "@1"}, 3, {true, true, true}, 4,
        0x04},
};

INSTANTIATE_TEST_SUITE_P(DevsimLinkTest, DevsimFaultTest, testing::ValuesIn(FaultCases),
    [](const testing::TestParamInfo<FaultCase>& info) { return CaseName(info.param.name); });

// A dialler that hangs up leaves no port open behind it: the command under way fails at once
// instead of waiting out its silences, and the next operation opens the port again, which
// fails with the open's own box while the dialler is gone.
TEST_F(DevsimLinkTest, AHangUpClosesThePortAndTheNextOperationOpensItAgain)
{
    startDevsim({"--close-after-record", "1"});
    g.link.Retry = 3;
    CommBuffer cmd = Buffer(QByteArray::fromHex(PhoneRecordHex), 21);
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
