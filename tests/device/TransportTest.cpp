#include "CommPorts.h"
#include "CommUtil.h"
#include "DeviceFixture.h"
#include "ProfileSettings.h"

namespace {

const QString CommError = QStringLiteral("Communicaiton Error");

} // namespace

// Port 0 is refused like 256 although the box speaks of 0 to 255; the program ends before
// any open. 1 and 255 open at the fixed settings.
TEST_F(DeviceTest, ChecksThePortNumberBeforeOpening)
{
    for (const auto& [port, ends] :
        {std::pair {0, true}, {256, true}, {-1, true}, {1, false}, {255, false}}) {
        SCOPED_TRACE(port);
        CloseCommIfOpen(comm);
        platform.serial.openedPaths.clear();
        g.link.CommPort = qint16(port);
        if (ends) {
            platform.expectBox(MsgBox::Critical,
                "Unable to connect to VEK Controller.\r\nPlease check cable connection and communicaiton "
                "parameter settings.",
                CommError);
            EXPECT_THROW(EnsureCommOpen(g, comm), ProcessEnded);
            EXPECT_TRUE(platform.serial.openedPaths.empty());
        } else {
            EXPECT_TRUE(EnsureCommOpen(g, comm));
            EXPECT_EQ(platform.serial.openedSettings, (SerialSettings {9600, 'N', 8, 1}));
        }
    }
}

// Each cause of a failed open says what to do; the program goes on, and the next operation
// tries again. A device that is not there shows in vorna-cli's connect transcripts.
TEST_F(DeviceTest, AFailedOpenSaysWhatToDoAndTriesAgainNextTime)
{
    const std::pair<SerialLine::OpenFailure, const char*> causes[] = {
        {SerialLine::OpenFailure::PermissionDenied, "dialout 群組"},
        {SerialLine::OpenFailure::Busy, "數據機管理程式"},
    };
    for (const auto& [failure, advice] : causes) {
        SCOPED_TRACE(advice);
        CloseCommIfOpen(comm);
        platform.events.clear();
        platform.serial.failOpen = failure;
        platform.expectBoxWithAnyText(MsgBox::Critical, CommError);
        EXPECT_FALSE(EnsureCommOpen(g, comm));
        EXPECT_FALSE(comm.PortOpen());
        const QString text = platform.boxTexts().at(0);
        EXPECT_TRUE(text.startsWith("Unable to connect to Device.\r\nPlease check cable connection and "
                                    "communicaiton parameter settings.\r\n"))
            << text.toStdString();
        EXPECT_TRUE(text.contains(advice) && text.contains("/dev/ttyUSB0")) << text.toStdString();
        platform.serial.failOpen = SerialLine::OpenFailure::None;
        EXPECT_TRUE(EnsureCommOpen(g, comm));
    }
}

// COM1 to COM8 are the USB adapters, COM9 to COM16 the built-in ports, COM17 on the ACM
// devices; a port is given as a number, a COM name or a device path, and anything else is
// refused without a change.
TEST(CommPortsTest, MapsPortNumbersToDevices)
{
    const std::pair<const char*, const char*> ports[] = {{"1", "/dev/ttyUSB0"}, {"COM8", "/dev/ttyUSB7"},
        {"9", "/dev/ttyS0"}, {"16", "/dev/ttyS7"}, {"com17", "/dev/ttyACM0"}, {"12", "/dev/ttyS3"},
        {"/dev/ttyACM1", "/dev/ttyACM1"}, {"printer", "/dev/ttyACM1"}};
    LinkState link;
    for (const auto& [given, path] : ports) {
        EXPECT_EQ(SetCommPort(link, QString::fromLatin1(given)), QByteArray(given) != "printer") << given;
        EXPECT_EQ(CommDevicePath(link).toStdString(), path) << given;
    }
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

// A receive of nothing ends at once; half a frame ends the silent time-out after its last byte.
TEST_F(DeviceTest, TheSilentTimeOutRunsFromTheLastByte)
{
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    CommBuffer rsp(7);
    const QDateTime start = platform.clock;
    EXPECT_EQ(ReceiveDataUseHandshaking(g, comm, rsp, 0, 2), 0);
    EXPECT_EQ(platform.clock, start);
    platform.serial.answerInChunks({{0, QByteArray::fromHex("F704")}, {1500, QByteArray::fromHex("02")}});
    SendDataUseHandshaking(g, comm, Buffer(QByteArray::fromHex("F70400000001"), 6), 6);
    EXPECT_EQ(ReceiveDataUseHandshaking(g, comm, rsp, 7, 2), 3);
    // The last byte came at 1.5 s; more than two whole seconds later is at 4 s.
    EXPECT_GE(platform.clock, start.addMSecs(4000));
    EXPECT_LT(platform.clock, start.addMSecs(4100));
    EXPECT_EQ(rsp(3), 0x02);
}
