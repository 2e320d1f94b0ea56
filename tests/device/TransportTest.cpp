#include <vector>

#include "CaseName.h"
#include "CommPorts.h"
#include "CommUtil.h"
#include "DeviceFixture.h"
#include "ProfileSettings.h"

namespace {

const QString CommError = QStringLiteral("Communicaiton Error");

struct PortRangeCase
{
    const char* name;
    int port;
    bool ends;
};

const std::vector<PortRangeCase> PortRangeCases = {
    {"port 0 ends the program", 0, true},
    {"port 256 ends the program", 256, true},
    {"a negative port ends the program", -1, true},
    {"port 1 opens", 1, false},
    {"port 255 opens", 255, false},
};

class PortRangeTest : public DeviceTest, public ::testing::WithParamInterface<PortRangeCase>
{ };

struct OpenFailureCase
{
    const char* name;
    SerialLine::OpenFailure failure;
    const char* advice;
};

const std::vector<OpenFailureCase> OpenFailureCases = {
    {"absent", SerialLine::OpenFailure::NotFound, "請接上序列埠轉接器"},
    {"no permission", SerialLine::OpenFailure::PermissionDenied, "dialout 群組"},
    {"busy", SerialLine::OpenFailure::Busy, "數據機管理程式"},
};

class OpenFailureTest : public DeviceTest, public ::testing::WithParamInterface<OpenFailureCase>
{ };

} // namespace

TEST_P(PortRangeTest, ChecksThePortNumberBeforeOpening)
{
    const PortRangeCase& c = GetParam();
    g.link.CommPort = qint16(c.port);
    if (c.ends) {
        platform.expectBox(MsgBox::Critical,
            "Unable to connect to VEK Controller.\r\nPlease check cable connection and communicaiton "
            "parameter settings.",
            CommError);
        EXPECT_THROW(EnsureCommOpen(g, comm), ProcessEnded);
        EXPECT_TRUE(platform.serial.openedPaths.empty());
    } else {
        EXPECT_TRUE(EnsureCommOpen(g, comm));
        EXPECT_TRUE(comm.PortOpen());
        EXPECT_EQ(platform.serial.openedSettings, (SerialSettings {9600, 'N', 8, 1}));
    }
}

INSTANTIATE_TEST_SUITE_P(Ports, PortRangeTest, ::testing::ValuesIn(PortRangeCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_P(OpenFailureTest, SaysWhatToDoAndTriesAgainNextTime)
{
    const OpenFailureCase& c = GetParam();
    platform.serial.failOpen = c.failure;
    platform.expectBoxWithAnyText(MsgBox::Critical, CommError);
    EXPECT_FALSE(EnsureCommOpen(g, comm));
    EXPECT_FALSE(comm.PortOpen());
    const QString text = platform.boxTexts().at(0);
    EXPECT_TRUE(text.startsWith("Unable to connect to Device.\r\nPlease check cable connection and "
                                "communicaiton parameter settings.\r\n"))
        << text.toStdString();
    EXPECT_TRUE(text.contains(c.advice)) << text.toStdString();
    EXPECT_TRUE(text.contains("/dev/ttyUSB0")) << text.toStdString();

    platform.serial.failOpen = SerialLine::OpenFailure::None;
    EXPECT_TRUE(EnsureCommOpen(g, comm));
    EXPECT_EQ(platform.serial.openedPaths.size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Causes, OpenFailureTest, ::testing::ValuesIn(OpenFailureCases),
    [](const auto& info) { return CaseName(info.param.name); });

// COM1 to COM8 are the USB adapters, COM9 to COM16 the built-in ports, COM17 on the ACM devices.
TEST(CommPortsTest, MapsPortNumbersToDevices)
{
    const std::pair<int, const char*> paths[] = {{1, "/dev/ttyUSB0"}, {8, "/dev/ttyUSB7"}, {9, "/dev/ttyS0"},
        {16, "/dev/ttyS7"}, {17, "/dev/ttyACM0"}};
    for (const auto& [port, path] : paths)
        EXPECT_EQ(CommPortPath(LinkState(), port).toStdString(), path) << port;
}

TEST(CommPortsTest, APortIsGivenAsANumberOrADevicePath)
{
    LinkState link;
    EXPECT_TRUE(SetCommPort(link, QStringLiteral("com3")));
    EXPECT_EQ(CommDevicePath(link), QStringLiteral("/dev/ttyUSB2"));
    EXPECT_TRUE(SetCommPort(link, QStringLiteral("/dev/ttyACM1")));
    EXPECT_EQ(CommDevicePath(link), QStringLiteral("/dev/ttyACM1"));
    EXPECT_TRUE(SetCommPort(link, QStringLiteral("12")));
    EXPECT_EQ(link.CommPort, 12);
    EXPECT_EQ(CommDevicePath(link), QStringLiteral("/dev/ttyS3"));
    EXPECT_FALSE(SetCommPort(link, QStringLiteral("printer")));
    EXPECT_EQ(link.CommPort, 12);
}

// A port mapped for the run only comes first and is never written back.
TEST_F(DeviceTest, TheProfileKeepsThePortMapAndTheCodePage)
{
    QFile profile(QStringLiteral("VORNA.set"));
    ASSERT_TRUE(profile.open(QIODevice::WriteOnly));
    profile.write("[Comm]\r\nTimeOut=2\r\nRetry=3\r\nCodePage=GBK\r\n\r\n[ML]\r\nAppliedLangName=AUTO\r\n"
                  "\r\n[Ports]\r\nCOM2=/dev/ttyAMA0\r\nCOM10=/dev/rfcomm0\r\n");
    profile.close();
    ReadCommSettings(g, QString());
    g.link.RunPortPaths[10] = QStringLiteral("/tmp/dialler");
    EXPECT_EQ(g.link.CodePage, QStringLiteral("GBK"));
    EXPECT_EQ(g.link.PortPaths, (std::map<int, QString> {{2, "/dev/ttyAMA0"}, {10, "/dev/rfcomm0"}}));
    const QString text = SettingsText(g);
    EXPECT_TRUE(text.contains("Retry=3\r\nCodePage=GBK\r\n\r\n[ML]")) << text.toStdString();
    EXPECT_TRUE(text.endsWith("\r\n[Ports]\r\nCOM2=/dev/ttyAMA0\r\nCOM10=/dev/rfcomm0\r\n"))
        << text.toStdString();

    g.link.CommPort = 2;
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    EXPECT_EQ(platform.serial.openedPaths.back(), QStringLiteral("/dev/ttyAMA0"));
    g.link.CommPort = 10;
    ConfigureComm(g, comm);
    ASSERT_TRUE(OpenComm(g, comm));
    EXPECT_EQ(platform.serial.openedPaths.back(), QStringLiteral("/tmp/dialler"));
}

TEST_F(DeviceTest, TheSilentTimeOutRunsFromTheLastByte)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    const QDateTime start = platform.clock;
    platform.serial.answerInChunks({{0, QByteArray::fromHex("F704")}, {1500, QByteArray::fromHex("02")}});
    SendDataUseHandshaking(g, comm, Buffer(QByteArray::fromHex("F70400000001"), 6), 6);
    CommBuffer rsp(7);
    EXPECT_EQ(ReceiveDataUseHandshaking(g, comm, rsp, 7, 2), 3);
    // The last byte came at 1.5 s; more than two whole seconds later is at 4 s.
    EXPECT_GE(platform.clock, start.addMSecs(4000));
    EXPECT_LT(platform.clock, start.addMSecs(4100));
    EXPECT_EQ(rsp(3), 0x02);
}

TEST_F(DeviceTest, AReceiveOfNothingEndsAtOnce)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    const QDateTime start = platform.clock;
    CommBuffer rsp(7);
    EXPECT_EQ(ReceiveDataUseHandshaking(g, comm, rsp, 0, 2), 0);
    EXPECT_EQ(platform.clock, start);
}
