#include "CommUtil.h"
#include "ConnectDownload.h"
#include "DeviceFixture.h"
#include "DownloadTexts.h"
#include "Golden.h"
#include "SlaveIDEntry.h"
#include "frmComPort.h"
#include "frmCommSetting.h"
#include "frmDebug.h"

TEST(SlaveIDEntryTest, OnlyDigitsAreTypedAndTheValueStaysFrom1To255)
{
    const std::pair<int, int> keys[]
        = {{'0', '0'}, {'9', '9'}, {'a', 0}, {' ', 0}, {'-', 0}, {8, 0}, {'/', 0}, {':', 0}};
    for (const auto& [typed, kept] : keys) {
        int KeyAscii = typed;
        SlaveIDKeyPress(KeyAscii);
        EXPECT_EQ(KeyAscii, kept) << "key " << typed;
    }
    const std::pair<const char*, const char*> changes[] = {{"", "1"}, {"0", "1"}, {"1", "1"}, {"007", "007"},
        {"255", "255"}, {"256", "255"}, {"99999", "255"}, {"12abc", "12abc"}, {"abc", "1"}};
    for (const auto& [typed, kept] : changes) {
        TextBox box;
        box.Text = QString::fromLatin1(typed);
        SlaveIDChange(box);
        EXPECT_EQ(box.Text, QString::fromLatin1(kept)) << "text " << typed;
    }
}

// What the settings dialog shows, checks and asks is compared whole by vorna-cli's settings
// transcripts; here, the link state that the connect and the dialog leave behind.
TEST_F(DeviceTest, ASilenceTakesTheLinkOfflineAndAWrittenSettingOnline)
{
    g.link.Retry = 0;
    ASSERT_TRUE(EnsureCommOpen(g, comm));
    SetOnlineState(g);
    platform.serial.answerNothing();
    platform.expectBox(MsgBox::Critical, ConnectFailure, ConnectTitle);
    EXPECT_FALSE(ConnectDevice(g));
    EXPECT_FALSE(g.link.IsDeviceConnected);

    frmCommSetting& form = g.form<frmCommSetting>();
    bool loaded = true;
    SetOnlineState(g);
    platform.serial.answerNothing();
    platform.expectBox(MsgBox::Critical, QStringLiteral("通訊錯誤, 無法連接簡訊報警機!\r\n") + CheckLines,
        QStringLiteral("裝置通訊設定"));
    form.LoadFormObj(loaded);
    EXPECT_FALSE(loaded);
    EXPECT_FALSE(g.link.IsDeviceConnected);
    EXPECT_EQ(form.lblModelName.Caption, QStringLiteral("UnKnown"));

    // Model, serial number, slave id and setting byte, firmware.
    for (const char* answer : {"F704024106", "F704080102030405060708", "F7030400010003", "F704020301"})
        platform.serial.answer(WithCrc(answer));
    form.LoadFormObj(loaded);
    ASSERT_TRUE(loaded);
    const QString title = QStringLiteral("設定報警機通訊參數");
    platform.expectModal(form, [&](frmCommSetting& f) {
        f.txtSlaveID.Text = QStringLiteral("2");
        platform.expectBox(MsgBox::OKCancel + MsgBox::Question,
            QStringLiteral("您已變更通訊參數! \r\n是否要將新的通訊參數, 存入簡訊報警機中?"), title);
        platform.serial.answer(WithCrc("F71000800002"));
        platform.expectBox(MsgBox::OKOnly, QStringLiteral("設定報警機通訊參數成功!"), title);
        f.CmdOK_Click();
    });
    platform.showModal(form);
    EXPECT_TRUE(g.link.IsDeviceConnected);
}

TEST_F(DeviceTest, ThePortListShowsEachNumbersDeviceAndThePortsNoNumberReaches)
{
    g.link.PortPaths[3] = QStringLiteral("/dev/serial/by-id/usb-Prolific_PL2303-if00-port0");
    g.link.PortPaths[4] = QStringLiteral("/dev/ttyUSB0");
    // A virtual dialler's pseudo-terminal, mapped for the run: there, though no serial port.
    g.link.RunPortPaths[5] = QStringLiteral("/tmp/dialler");
    platform.devices = {QStringLiteral("/tmp/dialler")};
    platform.ports = {{"/dev/ttyUSB0", "FT232R USB UART", "A10K", "usb-FTDI_FT232R_A10K-if00-port0"},
        {"/dev/ttyUSB2", "PL2303 Serial", "", "usb-Prolific_PL2303-if00-port0"}, {"/dev/ttyS3", "", "", ""},
        {"/dev/ttyACM1", "Modem", "77", ""}, {"/dev/ttyUSB9", "CH340", "", ""}};
    frmComPort& form = g.form<frmComPort>();
    g.link.CommPort = 4;
    form.LoadFormObj();
    QStringList shown;
    for (const ListItem& row : form.lvPorts.ListItems)
        shown << (QStringList {row.Text} + QStringList(row.SubItems.begin(), row.SubItems.end())).join(u'|')
                + (row.ForeColor == SystemColor::GrayText ? QStringLiteral(" (grey)") : QString());
    // Grey rows are numbers without a device; the path of a row comes from the profile's map,
    // the run's own map or the number; a port that no number reaches closes the list.
    ExpectGolden(QStringLiteral("device/golden/port-list.txt"), shown.join(u'\n') + u'\n');
    EXPECT_EQ(form.cmbCommPort.Text, QStringLiteral("COM4"));
    EXPECT_EQ(form.lvPorts.SelectedItem, 3);

    // Rows with a number in the combo's range choose it; the others leave the combo alone.
    form.lvPorts.SelectedItem = 11;
    form.lvPorts_Click();
    EXPECT_EQ(form.cmbCommPort.Text, QStringLiteral("COM12"));
    for (int row : {16, 17}) {
        form.lvPorts.SelectedItem = row;
        form.lvPorts_Click();
        EXPECT_EQ(form.cmbCommPort.Text, QStringLiteral("COM12"));
    }
    form.cmbCommPort.SetText(QStringLiteral("COM18"));
    form.cmbCommPort_Click();
    EXPECT_EQ(form.lvPorts.SelectedItem, 16);
}

TEST_F(DeviceTest, ThePortDialogOpensThePortItWasGivenOrSaysWhy)
{
    struct Case
    {
        const char* typed;
        bool opens;
        int port; // 0: the text is no number, and the program ends
    };
    const Case cases[] = {{"COM2", true, 2}, {"COM17", true, 17}, {"COM3", false, 3}, {"COMx", false, 0}};
    frmComPort& form = g.form<frmComPort>();
    for (const Case& c : cases) {
        form.LoadFormObj();
        form.cmbCommPort.SetText(QString::fromLatin1(c.typed));
        platform.serial.failOpen
            = c.opens ? SerialLine::OpenFailure::None : SerialLine::OpenFailure::NotFound;
        if (c.port == 0) {
            EXPECT_THROW(form.CmdOK_Click(), UnhandledError);
            continue;
        }
        if (!c.opens)
            platform.expectBoxWithAnyText(MsgBox::Critical, QStringLiteral("Communicaiton Error"));
        form.CmdOK_Click();
        EXPECT_EQ(g.link.CommPort, c.port) << c.typed;
        EXPECT_EQ(form.IsOK, c.opens) << c.typed;
        EXPECT_EQ(form.IsConnected, c.opens) << c.typed;
        EXPECT_FALSE(form.Visible) << c.typed;
    }
}

// Without a dialler the window opens all the same, and a read that finds no port does nothing.
TEST_F(DeviceTest, TheServiceWindowOpensWithoutADevice)
{
    frmDebug& form = g.form<frmDebug>();
    platform.expectModal(g.form<frmComPort>(), [](frmComPort& f) { f.cmdExit_Click(); });
    form.LoadFormObj();
    EXPECT_EQ(form.lblCommSettings.Caption, QStringLiteral("UnKnown"));
    EXPECT_TRUE(form.cmbPortBaud.List.empty());
    EXPECT_EQ(form.cmbPortBaud.Text, QStringLiteral("9600"));
    EXPECT_EQ(form.cmbParityBit.Text, QStringLiteral("NONE"));
    ASSERT_EQ(form.lvBasicInfo.ListItems.size(), 13u);
    for (const ListItem& row : form.lvBasicInfo.ListItems)
        EXPECT_TRUE(row.SubItems.at(0).isEmpty()) << row.Key.toStdString();
    EXPECT_EQ(form.lvBasicInfo.ListItems.back().Tag, QStringLiteral("0,1"));

    platform.expectModal(g.form<frmComPort>(), [](frmComPort& f) { f.cmdExit_Click(); });
    form.cmdRead_Click();
    EXPECT_TRUE(platform.serial.written.empty());
}
