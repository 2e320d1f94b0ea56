#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The device settings dialog: the dialler's identity, and its slave id, baud rate and parity,
// which OK writes to it after a question.
class frmCommSetting : public FormModel
{
public:
    explicit frmCommSetting(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmCommSetting"); }

    // The texts shown at load, to tell a change.
    QString myOldPortBaud;
    QString myOldParityBit;
    QString myOldSlaveID;

    TabStrip sstCommunication {*this, "sstCommunication"};
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
    Label Label7 {*this, "Label7"};
    Label lblModelName {*this, "lblModelName"};
    Label Label9 {*this, "Label9"};
    Label lblSN {*this, "lblSN"};
    CommandButton CmdOK {*this, "CmdOK"};
    CommandButton cmdExit {*this, "cmdExit"};

    // Reads the device; ok is false, after the failure box, when it does not answer.
    void LoadFormObj(bool& ok);
    void CheckFormObj(bool& changed);
    void SaveFormObj();
    void CmdOK_Click();
    void cmdExit_Click();
    void txtSlaveID_KeyPress(int& KeyAscii);
    void txtSlaveID_Change();

private:
    VORNAGlobal& m_g;
};
