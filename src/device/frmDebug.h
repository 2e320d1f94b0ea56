#pragma once

#include "FormModel.h"

class CommBuffer;
struct DeviceInfo;
class VORNAGlobal;

// The register service window: the device's raw registers in hexadecimal, and a write of its
// communication settings without the checks of the settings dialog. Its texts are fixed.
class frmDebug : public FormModel
{
public:
    explicit frmDebug(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmDebug"); }

    // The model code that the last successful read at load gave; empty otherwise.
    QString mModelID;

    TabStrip SSTab1 {*this, "SSTab1"};
    Frame Frame2 {*this, "Frame2"};
    Label Label16 {*this, "Label16"};
    Label lblCommSettings {*this, "lblCommSettings"};
    Label Label1 {*this, "Label1"};
    ComboBox cmbPortBaud {*this, "cmbPortBaud"};
    Label Label2 {*this, "Label2"};
    Label lblDataBit {*this, "lblDataBit"};
    Label Label4 {*this, "Label4"};
    Label lblStopBit {*this, "lblStopBit"};
    Label Label3 {*this, "Label3"};
    ComboBox cmbParityBit {*this, "cmbParityBit"};
    Label Label6 {*this, "Label6"};
    TextBox txtSlaveID {*this, "txtSlaveID"};
    Label Label5 {*this, "Label5"};
    CommandButton cmdWrite {*this, "cmdWrite"};
    ListView lvBasicInfo {*this, "lvBasicInfo"};
    CommandButton cmdRead {*this, "cmdRead"};
    CommandButton cmdExit {*this, "cmdExit"};

    // Asks for the port, reads the device's settings if it answers, and lays out the rows.
    void LoadFormObj();
    // Reads every row in turn into its content column; false at the first that fails.
    void ReadRM64Settings(bool& ok);
    void SetRM64Settings(bool& ok);
    void cmdRead_Click();
    void cmdWrite_Click();
    void cmdExit_Click();
    void txtSlaveID_KeyPress(int& KeyAscii);
    void txtSlaveID_Change();

private:
    // The device's settings as read: the current-value label and the two combos.
    void ShowCommSettings(const DeviceInfo& info);
    // The port dialog again; true when the user chose a port that opened.
    bool AskForPort();

    VORNAGlobal& m_g;
};

// The row's Tag, "address,function", taken apart at its first comma.
void SplitTag(const QString& tmpTag, qint32& tmpAddress, qint16& tmpFunction);
bool ReadHoldingRegisters(VORNAGlobal& g, int address, int count, CommBuffer& rsp, qint16 nRsp);
bool ReadInputRegisters(VORNAGlobal& g, int address, int count, CommBuffer& rsp, qint16 nRsp);
// The 64 alarm bits from address 0, whatever the row asks.
bool ReadAlarmBits(VORNAGlobal& g, CommBuffer& rsp, qint16 nRsp);
// The data bytes of an answer (positions 4 to 3 + the count at position 3) in upper-case hex.
QString ResponseToHex(const CommBuffer& rsp);
