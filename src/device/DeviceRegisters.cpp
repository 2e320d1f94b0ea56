#include "DeviceRegisters.h"

#include <cmath>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "Controls.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "frmMessage.h"

namespace {

const ModuleText T {"VORNACommUtil"};
const QString Unknown = QStringLiteral("UnKnown");

frmMessage& BusyForm(VORNAGlobal& g)
{
    if (!g.link.BusyForm)
        throw UnhandledError(QStringLiteral("Object variable or With block variable not set"));
    return *g.link.BusyForm;
}

QString Hex2(int b)
{
    return QStringLiteral("%1").arg(b & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
}

// A read of count registers from address with function fn; the answer lands in rsp.
bool ReadRegisters(VORNAGlobal& g, int fn, int address, int count, CommBuffer& rsp)
{
    const qint16 nRsp = qint16(2 * count + 5);
    rsp = CommBuffer(nRsp);
    return SendReadRequest(g, fn, address, count, rsp, nRsp);
}

} // namespace

bool SendReadRequest(VORNAGlobal& g, int fn, int address, int count, CommBuffer& rsp, qint16 nRsp)
{
    CommBuffer cmd(8);
    cmd(1) = CByte(g.link.StationID);
    cmd(2) = CByte(fn);
    cmd(3) = CByte(address / 256);
    cmd(4) = CByte(address % 256);
    cmd(5) = CByte(count / 256);
    cmd(6) = CByte(count % 256);
    return SendCommand(g, LinkComm(g), cmd, 6, rsp, nRsp, g.link.Timeout, g.link.Retry);
}

QString ModelCodeText(int highByte, int lowByte)
{
    // The power of two written as the platform writes a number: 15 significant digits.
    const QString power = QString::number(std::pow(2.0, lowByte), 'g', 15).toUpper();
    switch (highByte) {
    case 64:
        return QStringLiteral("RM") + power + QStringLiteral("T");
    case 65:
        return QStringLiteral("RM") + power + QStringLiteral("MT");
    case 128:
        return QStringLiteral("BQ");
    default:
        return Unknown;
    }
}

QString FirmwareText(int highByte, int lowByte)
{
    return Hex2(highByte) + Hex2(lowByte);
}

QString ModelPrefix(const QString& firmware)
{
    return firmware.left(2) == QStringLiteral("03") ? QStringLiteral("KV570-") : QStringLiteral("KV470-");
}

QString ProductSNText(const quint8 (&b)[8])
{
    // b[0] is answer position 4; the device's order is H10-H11-H8H9-H6H7H4-H5.
    auto H = [&](int position) { return Hex2(b[position - 4]); };
    return H(10) + QLatin1Char('-') + H(11) + QLatin1Char('-') + H(8) + H(9) + QLatin1Char('-') + H(6) + H(7)
        + H(4) + QLatin1Char('-') + H(5);
}

SettingByte DecodeSettingByte(int b)
{
    if (b / 128 == 0)
        return {QStringLiteral("N"), b & 0x7F};
    if ((b - 128) / 64 == 1)
        return {QStringLiteral("E"), b - 192};
    return {QStringLiteral("O"), b - 128};
}

bool ReadModelCode(VORNAGlobal& g, QString& code)
{
    code.clear();
    CommBuffer rsp;
    if (!ReadRegisters(g, 0x04, 0x0000, 1, rsp))
        return false;
    code = ModelCodeText(rsp(4), rsp(5));
    return true;
}

bool ReadFirmwareVersion(VORNAGlobal& g, QString& version)
{
    version.clear();
    CommBuffer rsp;
    if (!ReadRegisters(g, 0x04, 0x0001, 1, rsp))
        return false;
    version = FirmwareText(rsp(4), rsp(5));
    return true;
}

bool ReadProductSN(VORNAGlobal& g, QString& serialNo)
{
    serialNo.clear();
    CommBuffer rsp;
    if (!ReadRegisters(g, 0x04, 0x0002, 4, rsp))
        return false;
    quint8 bytes[8];
    for (int k = 0; k < 8; ++k)
        bytes[k] = rsp(4 + k);
    serialNo = ProductSNText(bytes);
    return true;
}

bool ReadDeviceComm(VORNAGlobal& g, DeviceInfo& info, bool showBusy)
{
    if (showBusy) {
        ShowBusyMessage(g, T(g, "裝置通訊設定", 1, 833), T(g, "讀取裝置通訊設定中...", 2, 833));
        g.platform.doEvents();
    }
    bool result = false;
    CommBuffer rsp;
    if (ReadModelCode(g, info.Model) && ReadProductSN(g, info.SerialNo)
        && ReadRegisters(g, 0x03, 0x0080, 2, rsp)) {
        info.SlaveID = QString::number(rsp(5));
        const SettingByte setting = DecodeSettingByte(rsp(7));
        info.Parity = setting.Parity;
        info.BaudRate = LookupBaudRate(g, info, QString::number(setting.BaudID));
        result = true;
    }
    if (showBusy)
        HideBusyMessage(g);
    return result;
}

bool AddModelBaudRates(VORNAGlobal& g, const QString& model, ComboBox& combo)
{
    Recordset& rs = g.system.rsCommBaudList;
    if (rs.RecordCount() == 0)
        return false;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
        if (NullToEmpty(rs.Fields(QStringLiteral("ModelName"))) == model)
            combo.AddItem(NullToEmpty(rs.Fields(QStringLiteral("BaudRate"))));
    return true;
}

QString ParityRow(const QString& letter)
{
    const QString p = letter.toUpper();
    if (p == QLatin1String("E"))
        return QStringLiteral("EVEN");
    if (p == QLatin1String("N"))
        return QStringLiteral("NONE");
    if (p == QLatin1String("O"))
        return QStringLiteral("ODD");
    return Unknown;
}

QString LookupBaudRate(VORNAGlobal& g, const DeviceInfo& info, const QString& baudID)
{
    Recordset& rs = g.system.rsCommBaudList;
    if (rs.RecordCount() == 0)
        return Unknown;
    rs.MoveFirst();
    while (!rs.IsEOF()) {
        if (NullToEmpty(rs.Fields(QStringLiteral("ModelName"))) == info.Model
            && NullToEmpty(rs.Fields(QStringLiteral("BaudID"))) == baudID)
            return NullToEmpty(rs.Fields(QStringLiteral("BaudRate")));
        rs.MoveNext();
    }
    return Unknown;
}

bool WriteDeviceComm(VORNAGlobal& g, const QString& model, const QString& slaveID, const QString& baudRate,
    const QString& parity, bool showBusy)
{
    Recordset& rs = g.system.rsCommBaudList;
    if (rs.RecordCount() == 0)
        return false;
    QString baudID;
    const QString modelCode = model.mid(6).toUpper();
    rs.MoveFirst();
    while (!rs.IsEOF()) {
        if (NullToEmpty(rs.Fields(QStringLiteral("ModelName"))).toUpper() == modelCode
            && NullToEmpty(rs.Fields(QStringLiteral("BaudRate"))) == baudRate) {
            baudID = NullToEmpty(rs.Fields(QStringLiteral("BaudID")));
            break;
        }
        rs.MoveNext();
    }
    CommControl& comm = LinkComm(g);
    if (!comm.PortOpen())
        EnsureCommOpen(g, comm);
    if (showBusy) {
        ShowBusyMessage(g, T(g, "裝置通訊設定", 1, 773), T(g, "設定裝置通訊參數中...", 2, 773));
        g.platform.doEvents();
    }
    CommBuffer cmd(13);
    cmd(1) = CByte(g.link.StationID);
    cmd(2) = 0x10;
    cmd(3) = 0x00;
    cmd(4) = 0x80;
    cmd(5) = 0x00;
    cmd(6) = 0x02;
    cmd(7) = 0x04;
    cmd(8) = 0x00;
    cmd(9) = CByte(slaveID);
    cmd(10) = 0x00;
    // The empty id of a baud rate without a row is no number for None, and counts as 0
    // in the sums for Odd and Even, as the conversions of the two forms have it.
    const QString p = parity.toUpper();
    if (p == QStringLiteral("NONE") || p == QStringLiteral("N"))
        cmd(11) = CByte(baudID);
    else if (p == QStringLiteral("ODD") || p == QStringLiteral("O"))
        cmd(11) = CByte(Val(baudID) + 128);
    else if (p == QStringLiteral("EVEN") || p == QStringLiteral("E"))
        cmd(11) = CByte(Val(baudID) + 192);
    CommBuffer rsp(8);
    const bool result = SendCommand(g, comm, cmd, 11, rsp, 8, g.link.Timeout, g.link.Retry);
    if (showBusy)
        HideBusyMessage(g);
    return result;
}

void ShowBusyMessage(VORNAGlobal& g, const QString& title, const QString& text)
{
    frmMessage& form = BusyForm(g);
    form.Load();
    form.MousePointer = Pointer::Hourglass;
    form.LoadFormObj(title, text);
    g.platform.showModeless(form);
}

void HideBusyMessage(VORNAGlobal& g)
{
    frmMessage& form = BusyForm(g);
    form.MousePointer = Pointer::Default;
    g.platform.hideForm(form);
}

void ShowBusyProgress(VORNAGlobal& g, int record, int total)
{
    const ModuleText D {"VORNADevice"};
    frmMessage& form = BusyForm(g);
    form.lblProgress.Caption = D(g, "正在傳送第 ", 1, 1) + QString::number(record) + D(g, " 筆，共 ", 2, 1)
        + QString::number(total) + D(g, " 筆...", 3, 1);
    form.prgProgress.Min = 0;
    form.prgProgress.Max = total;
    form.prgProgress.Value = record;
    form.lblProgress.Visible = true;
    form.prgProgress.Visible = true;
    form.notifyChanged();
}
