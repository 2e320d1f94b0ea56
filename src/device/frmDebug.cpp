#include "frmDebug.h"

#include "CommBuffer.h"
#include "VORNAGlobal.h"

frmDebug::frmDebug(VORNAGlobal& g)
    : m_g(g)
{ }
void frmDebug::LoadFormObj() { }
void frmDebug::ReadRM64Settings(bool& ok)
{
    ok = false;
}
void frmDebug::SetRM64Settings(bool& ok)
{
    ok = false;
}
void frmDebug::cmdRead_Click() { }
void frmDebug::cmdWrite_Click() { }
void frmDebug::cmdExit_Click() { }
void frmDebug::txtSlaveID_KeyPress(int&) { }
void frmDebug::txtSlaveID_Change() { }

void SplitTag(const QString&, qint32& tmpAddress, qint16& tmpFunction)
{
    tmpAddress = 0;
    tmpFunction = 0;
}
bool ReadHoldingRegisters(VORNAGlobal&, int, int, CommBuffer&, qint16)
{
    return false;
}
bool ReadInputRegisters(VORNAGlobal&, int, int, CommBuffer&, qint16)
{
    return false;
}
bool ReadAlarmBits(VORNAGlobal&, CommBuffer&, qint16)
{
    return false;
}
QString ResponseToHex(const CommBuffer&)
{
    return {};
}
