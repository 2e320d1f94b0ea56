#include "frmMain.h"

void frmMain::mnuDevice_Click() { }
void frmMain::mnuDeviceConnect_Click() { }
void frmMain::mnuDeviceDownLoad_Click() { }
void frmMain::mnuDeviceSetting_Click() { }
