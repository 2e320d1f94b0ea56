#include "frmDebug.h"

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "DeviceRegisters.h"
#include "SlaveIDEntry.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "frmComPort.h"
#include "frmCommSetting.h"

namespace {

const QString Title = QStringLiteral("RM64 偵錯工具");

// The rows of the register list, in order; the read knows the registers only through them.
struct RegisterRow
{
    const char* key;
    const char* text;
    const char* address;
    const char* length;
    const char* tag; // "address,function"
};
const RegisterRow kRegisterRows[] = {
    {"ModelID", "Model ID", "0000H", "1", "0,4"},
    {"FirmwareVersion", "Firmware Version", "0001H", "1", "1,4"},
    {"ProductSN", "Product S/N", "0002H", "4", "2,4"},
    {"AddressOfNewRecord", "Address Of New Record", "0006H", "1", "6,4"},
    {"DeviceStatus", "Device Status", "0007H", "1", "7,4"},
    {"DeviceLastAlarmCode", "Device Last Alarm Code", "0008H", "1", "8,4"},
    {"ResultCodethatProcessAlarmCode", "Result Code that Process Alarm Code", "0009H", "1", "9,4"},
    {"WatchDogResetCount", "WatchDog Reset Count", "000AH", "1", "10,4"},
    {"FirmwareResetCount", "Firmware Reset Count", "000BH", "1", "11,4"},
    {"SlaveIDofCOM1", "Slave ID of COM1", "0080H", "1", "128,3"},
    {"SettingofCOM1", "Setting of COM1", "0081H", "1", "129,3"},
    {"CRC-16ofProject", "CRC-16 of project", "0082H", "1", "130,3"},
    {"CurrentAlarm", "Current Alarm", "0000H", "4", "0,1"},
};

// Columns of the list: its text, address and length columns follow the content column.
enum Column { Content = 0, Address = 1, Length = 2 };

} // namespace

frmDebug::frmDebug(VORNAGlobal& g)
    : m_g(g)
{
    Caption = Title;
    SSTab1.TabCaptions = {QStringLiteral("基本設定 "), QStringLiteral("暫存器 ")};
    Frame2.Caption = QStringLiteral("通訊出廠值設定 (裝置與控制器間)");
    Label16.Caption = QStringLiteral("目前值 :");
    Label1.Caption = QStringLiteral("通訊速率 :");
    Label2.Caption = QStringLiteral("資料位元 :");
    lblDataBit.Caption = QStringLiteral("8");
    Label4.Caption = QStringLiteral("停止位元 :");
    lblStopBit.Caption = QStringLiteral("1");
    Label3.Caption = QStringLiteral("同位元檢查 :");
    Label6.Caption = QStringLiteral("裝置識別碼 :");
    txtSlaveID.Text = QStringLiteral("1");
    Label5.Caption = QStringLiteral("( 1 ~ 255 )");
    cmdWrite.Caption = QStringLiteral("寫入");
    cmdRead.Caption = QStringLiteral("讀出");
    cmdExit.Caption = QStringLiteral("離開");
    lvBasicInfo.ColumnHeaders = {{QStringLiteral("項目"), 3900}, {QStringLiteral("內容(16進位)"), 2400},
        {QStringLiteral("位址"), 800}, {QStringLiteral("長度"), 600}};
}

void frmDebug::LoadFormObj()
{
    Load();
    mModelID.clear();
    const frmComPort& port = ShowDialog<frmComPort>(m_g);
    DeviceInfo info;
    bool read = false;
    if (port.IsOK && EnsureCommOpen(m_g, LinkComm(m_g))) {
        read = ReadDeviceComm(m_g, info, false);
        if (read)
            mModelID = info.Model;
    }
    cmbParityBit.Clear();
    cmbPortBaud.Clear();
    if (AddModelBaudRates(m_g, mModelID, cmbPortBaud))
        cmbPortBaud.SetText(QStringLiteral("9600"));
    for (const char* parity : {"EVEN", "ODD", "NONE"})
        cmbParityBit.AddItem(QString::fromLatin1(parity));
    cmbParityBit.SelectText(QStringLiteral("NONE"));
    if (read && info.Model.toUpper() != QLatin1String("UNKNOWN"))
        ShowCommSettings(info);
    else
        lblCommSettings.Caption = QStringLiteral("UnKnown");

    lvBasicInfo.ListItems.clear();
    lvBasicInfo.SelectedItem = -1;
    for (const RegisterRow& r : kRegisterRows) {
        ListItem row {QString::fromUtf8(r.text),
            {QString(), QString::fromLatin1(r.address), QString::fromLatin1(r.length)}};
        row.Key = QString::fromLatin1(r.key);
        row.Tag = QString::fromLatin1(r.tag);
        lvBasicInfo.ListItems.push_back(row);
    }
}

void frmDebug::ShowCommSettings(const DeviceInfo& info)
{
    lblCommSettings.Caption = info.BaudRate + QStringLiteral(", ") + info.Parity + QStringLiteral(", 8, 1");
    cmbPortBaud.SetText(info.BaudRate);
    // This window has no "UnKnown" row: another letter leaves the parity as it was.
    const QString parity = ParityRow(info.Parity);
    if (parity != QLatin1String("UnKnown"))
        cmbParityBit.SelectText(parity);
}

void frmDebug::ReadRM64Settings(bool& ok)
{
    ok = false;
    for (ListItem& row : lvBasicInfo.ListItems) {
        const int n = int(Val(row.SubItems[Length]));
        qint32 tmpAddress = 0;
        qint16 tmpFunction = 0;
        SplitTag(row.Tag, tmpAddress, tmpFunction);
        const qint16 nRsp = qint16(2 * n + 5);
        CommBuffer rsp(nRsp);
        bool read = false;
        switch (tmpFunction) {
        case 1:
            read = ReadAlarmBits(m_g, rsp, nRsp);
            break;
        case 3:
            read = ReadHoldingRegisters(m_g, tmpAddress, n, rsp, nRsp);
            break;
        case 4:
            read = ReadInputRegisters(m_g, tmpAddress, n, rsp, nRsp);
            break;
        }
        if (!read)
            return;
        row.SubItems[Content] = ResponseToHex(rsp);
        notifyChanged();
    }
    ok = true;
}

void frmDebug::SetRM64Settings(bool& ok)
{
    ok = WriteDeviceComm(m_g, QStringLiteral("KV570-") + mModelID, txtSlaveID.Text, cmbPortBaud.Text,
        cmbParityBit.Text, false);
}

bool frmDebug::AskForPort()
{
    const frmComPort& port = ShowDialog<frmComPort>(m_g);
    return port.IsOK && port.IsConnected;
}

void frmDebug::cmdRead_Click()
{
    if (!AskForPort())
        return;
    bool ok = false;
    ReadRM64Settings(ok);
    m_g.platform.msgBox(ok ? QStringLiteral("讀取Quillbeacon暫存器資訊成功！")
                           : QStringLiteral("讀取Quillbeacon暫存器資訊失敗！"),
        MsgBox::OKOnly, Title);
}

void frmDebug::cmdWrite_Click()
{
    if (!AskForPort())
        return;
    bool ok = false;
    SetRM64Settings(ok);
    if (!ok) {
        m_g.platform.msgBox(QStringLiteral("基本設定寫入Quillbeacon失敗！"), MsgBox::OKOnly, Title);
        return;
    }
    m_g.platform.msgBox(QStringLiteral("基本設定寫入Quillbeacon成功！"), MsgBox::OKOnly, Title);
    DeviceInfo info;
    if (EnsureCommOpen(m_g, LinkComm(m_g)) && ReadDeviceComm(m_g, info, false))
        ShowCommSettings(info);
}

void frmDebug::cmdExit_Click()
{
    m_g.platform.hideForm(*this);
}

void frmDebug::txtSlaveID_KeyPress(int& KeyAscii)
{
    SlaveIDKeyPress(KeyAscii);
}

void frmDebug::txtSlaveID_Change()
{
    SlaveIDChange(txtSlaveID);
}

void SplitTag(const QString& tmpTag, qint32& tmpAddress, qint16& tmpFunction)
{
    const qsizetype comma = tmpTag.indexOf(u',');
    tmpAddress = CInt(tmpTag.left(comma));
    tmpFunction = CInt(tmpTag.mid(comma + 1));
}

bool ReadHoldingRegisters(VORNAGlobal& g, int address, int count, CommBuffer& rsp, qint16 nRsp)
{
    return SendReadRequest(g, 0x03, address, count, rsp, nRsp);
}

bool ReadInputRegisters(VORNAGlobal& g, int address, int count, CommBuffer& rsp, qint16 nRsp)
{
    return SendReadRequest(g, 0x04, address, count, rsp, nRsp);
}

bool ReadAlarmBits(VORNAGlobal& g, CommBuffer& rsp, qint16 nRsp)
{
    return SendReadRequest(g, 0x01, 0, 64, rsp, nRsp);
}

QString ResponseToHex(const CommBuffer& rsp)
{
    const int n = rsp(3);
    return QString::fromLatin1(rsp.bytes(4, n).toHex().toUpper());
}
