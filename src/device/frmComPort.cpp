#include "frmComPort.h"

#include "VORNAGlobal.h"

frmComPort::frmComPort(VORNAGlobal& g)
    : m_g(g)
{ }
void frmComPort::LoadFormObj() { }
void frmComPort::CmdOK_Click() { }
void frmComPort::cmdExit_Click() { }
void frmComPort::cmbCommPort_Click() { }
void frmComPort::lvPorts_Click() { }
