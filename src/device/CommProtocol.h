#pragma once

#include <QtGlobal>

class CommBuffer;
class CommControl;
class VORNAGlobal;

// The request and answer protocol: station id, function code, body, CRC-16 low byte first.

// The Modbus CRC-16 (reflected polynomial 0xA001, no final inversion) of count bytes from first.
qint32 CRC16(qint32 initial, const quint8* first, qint32 count);
// CRC16 over positions 1 to count of a buffer.
qint32 CalcCRC16(qint32 initial, const CommBuffer& data, qint16 count);
// Writes the CRC of positions 1 to nCmd into nCmd + 1 (low byte) and nCmd + 2.
void SetCommandCRC(CommBuffer& cmd, qint16 nCmd);

// Sends the request in positions 1 to nCmd (its CRC written into nCmd + 1 and nCmd + 2) and
// waits for an answer of exactly nRsp bytes, CRC included. retry + 1 attempts in all, with
// the window's pause between them. True when a well-formed answer is in rsp.
bool SendCommand(VORNAGlobal& g, CommControl& comm, CommBuffer& cmd, qint16 nCmd, CommBuffer& rsp,
    qint16 nRsp, qint16 silentTimeout, qint16 retry);
