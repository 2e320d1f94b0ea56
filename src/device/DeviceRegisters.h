#pragma once

#include <QString>

class CommBuffer;
struct ComboBox;
class VORNAGlobal;

// What the identity and settings reads learn of the device. All text, empty at first.
struct DeviceInfo
{
    QString Model;
    QString Firmware; // declared with the others; no read writes it
    QString SerialNo;
    QString BaudRate;
    QString Parity;
    QString SlaveID;
    bool operator==(const DeviceInfo&) const = default;
};

// The setting byte of register 0081H taken apart: parity letter and baud id.
struct SettingByte
{
    QString Parity;
    int BaudID = 0;
    bool operator==(const SettingByte&) const = default;
};

// Model code of the Model ID register: "RM" 2^n "T", "RM" 2^n "MT", "BQ" or "UnKnown".
QString ModelCodeText(int highByte, int lowByte);
// The firmware text: four upper-case hex digits, high byte first.
QString FirmwareText(int highByte, int lowByte);
// "KV570-" for firmware starting "03", else "KV470-". Both are six characters.
QString ModelPrefix(const QString& firmware);
// Product S/N from the eight bytes at answer positions 4 to 11, in the device's own order.
QString ProductSNText(const quint8 (&bytes)[8]);
SettingByte DecodeSettingByte(int b);

// A read request of function fn (0x01, 0x03, 0x04) for count items from address, sent on the
// shared line and answered into rsp, which holds nRsp bytes.
bool SendReadRequest(VORNAGlobal& g, int fn, int address, int count, CommBuffer& rsp, qint16 nRsp);

bool ReadModelCode(VORNAGlobal& g, QString& code);
bool ReadFirmwareVersion(VORNAGlobal& g, QString& version);
bool ReadProductSN(VORNAGlobal& g, QString& serialNo);
bool ReadDeviceComm(VORNAGlobal& g, DeviceInfo& info, bool showBusy);
bool WriteDeviceComm(VORNAGlobal& g, const QString& model, const QString& slaveID, const QString& baudRate,
    const QString& parity, bool showBusy);
// Adds to the combo the baud rates that the model offers, in the system database's order.
// False, adding nothing, when the table has no rows at all.
bool AddModelBaudRates(VORNAGlobal& g, const QString& model, ComboBox& combo);
// The parity combo's row for a parity letter: "EVEN", "NONE", "ODD", else "UnKnown".
QString ParityRow(const QString& letter);
// Baud rate text of the model's baud id in the system database, or "UnKnown".
QString LookupBaudRate(VORNAGlobal& g, const DeviceInfo& info, const QString& baudID);

void ShowBusyMessage(VORNAGlobal& g, const QString& title, const QString& text);
void HideBusyMessage(VORNAGlobal& g);
// Shows in the busy box that record number of total is being sent.
void ShowBusyProgress(VORNAGlobal& g, int record, int total);
