#include "frmCommSetting.h"

#include "VORNAGlobal.h"

frmCommSetting::frmCommSetting(VORNAGlobal& g)
    : m_g(g)
{ }
void frmCommSetting::LoadFormObj(bool& ok)
{
    ok = false;
}
void frmCommSetting::CheckFormObj(bool& changed)
{
    changed = false;
}
void frmCommSetting::SaveFormObj() { }
void frmCommSetting::CmdOK_Click() { }
void frmCommSetting::cmdExit_Click() { }
void frmCommSetting::txtSlaveID_KeyPress(int&) { }
void frmCommSetting::txtSlaveID_Change() { }
