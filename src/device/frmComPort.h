#pragma once

#include "FormModel.h"

class VORNAGlobal;

// The port dialog: the PC's serial port, chosen for this run and opened at OK. Beside the
// design's combo, a list shows the device that each port number opens and what the system
// knows is plugged in there, and the system's ports that no number in the combo reaches.
class frmComPort : public FormModel
{
public:
    explicit frmComPort(VORNAGlobal& g);
    QString formName() const override { return QStringLiteral("frmComPort"); }

    // Read by the caller once the dialog is closed.
    bool IsOK = false;        // OK was pressed and the port is open
    bool IsConnected = false; // the port is open

    Frame Frame1 {*this, "Frame1"};
    Label Label8 {*this, "Label8"};
    ComboBox cmbCommPort {*this, "cmbCommPort"};
    ListView lvPorts {*this, "lvPorts"};
    CommandButton CmdOK {*this, "CmdOK"};
    CommandButton cmdExit {*this, "cmdExit"};

    void LoadFormObj();
    void CmdOK_Click();
    void cmdExit_Click();
    // A port chosen in the combo, or typed there, selects its row of the list.
    void cmbCommPort_Click();
    // A row of the list puts its port into the combo, when it has a number.
    void lvPorts_Click();

private:
    VORNAGlobal& m_g;
};
