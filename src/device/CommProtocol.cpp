#include "CommProtocol.h"

#include <array>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommUtil.h"
#include "LinkTrace.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"VORNACommUtil"};

constexpr std::array<quint16, 256> MakeCrcTable()
{
    std::array<quint16, 256> table {};
    for (int n = 0; n < 256; ++n) {
        quint16 crc = quint16(n);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) ? quint16((crc >> 1) ^ 0xA001) : quint16(crc >> 1);
        table[n] = crc;
    }
    return table;
}

constexpr std::array<quint16, 256> CrcTable = MakeCrcTable();

// The pause that a failed attempt started ends with the window's timer, or after ten
// seconds should the timer never run. The wait wakes at least this often to look.
constexpr int PauseCapSeconds = 10;
constexpr int PauseSliceMs = 10;

void DebugBox(VORNAGlobal& g, const QString& text)
{
    if (g.link.CommDebugLevel >= 1)
        g.platform.msgBox(text, MsgBox::Critical, QStringLiteral("Send Command Error"));
}

// Why an attempt's answer was refused, as the judge found it; Ok when it was not.
enum class Verdict { Ok, ErrorAnswer, ShortAnswer, WrongStation, WrongFunction, BadCrc };

// One attempt's answer judged in a fixed order: error answer, short answer, station,
// function, CRC. Only the last can make it good.
Verdict JudgeResponse(VORNAGlobal& g, const CommBuffer& cmd, const CommBuffer& rsp, qint16 n, qint16 nRsp)
{
    if (rsp(2) == cmd(2) + 128 && n == 5) {
        if (g.link.CommDebugLevel >= 1) {
            DebugBox(g,
                QStringLiteral("Send command response error.") + CRLF + QStringLiteral("Command function no=")
                    + QString::number(cmd(2)));
            DebugBox(g, T(g, "這是一個不合法的命令.", 1, 574));
        }
        return Verdict::ErrorAnswer;
    }
    if (n < nRsp) {
        DebugBox(g,
            QStringLiteral("Send command timeOut!! Incomplete response data. nWord = ") + QString::number(n)
                + CRLF + QStringLiteral("Request response data. nRspData= ") + QString::number(nRsp));
        return Verdict::ShortAnswer;
    }
    if (rsp(1) != cmd(1)) {
        DebugBox(g, QStringLiteral("Station ID is Error."));
        return Verdict::WrongStation;
    }
    if (rsp(2) != cmd(2)) {
        DebugBox(g,
            QStringLiteral("Response data with wrong function code.") + CRLF
                + QStringLiteral("Send command function code=") + QString::number(cmd(2)) + CRLF
                + QStringLiteral("Response data function code=") + QString::number(rsp(2)));
        return Verdict::WrongFunction;
    }
    if (CalcCRC16(65535, rsp, qint16(nRsp - 2)) == rsp(nRsp - 1) + 256 * rsp(nRsp))
        return Verdict::Ok;
    DebugBox(g, QStringLiteral("CRC Error."));
    return Verdict::BadCrc;
}

QString Hex2(int b)
{
    return QStringLiteral("%1").arg(b & 0xFF, 2, 16, QLatin1Char('0')).toUpper();
}

// The verdict as the link trace words it. A short answer that is a whole frame of its own (its
// CRC holds) came complete at a wrong length; any other short answer ended in silence.
QString VerdictText(Verdict verdict, const CommBuffer& rsp, qint16 n, qint16 nRsp)
{
    switch (verdict) {
    case Verdict::Ok:
        return QStringLiteral("ok");
    case Verdict::ErrorAnswer:
        return QStringLiteral("exception code ") + Hex2(rsp(3));
    case Verdict::ShortAnswer:
        if (n >= 4 && CalcCRC16(65535, rsp, qint16(n - 2)) == rsp(n - 1) + 256 * rsp(n))
            return QStringLiteral("wrong length: a whole frame of %1 bytes, %2 expected").arg(n).arg(nRsp);
        return QStringLiteral("silence after %1 of %2 bytes").arg(n).arg(nRsp);
    case Verdict::WrongStation:
        return QStringLiteral("wrong station ") + Hex2(rsp(1));
    case Verdict::WrongFunction:
        return QStringLiteral("wrong function ") + Hex2(rsp(2));
    case Verdict::BadCrc:
        return QStringLiteral("bad CRC");
    }
    return {};
}

} // namespace

qint32 CRC16(qint32 initial, const quint8* first, qint32 count)
{
    quint16 crc = quint16(initial);
    for (qint32 k = 0; k < count; ++k)
        crc = quint16((crc >> 8) ^ CrcTable[(crc ^ first[k]) & 0xFF]);
    return crc;
}

qint32 CalcCRC16(qint32 initial, const CommBuffer& data, qint16 count)
{
    if (count > 0)
        data.bytes(1, count); // the whole range must lie in the buffer
    return CRC16(initial, data.data(), count);
}

void SetCommandCRC(CommBuffer& cmd, qint16 nCmd)
{
    const qint32 crc = CalcCRC16(65535, cmd, nCmd);
    cmd(nCmd + 1) = CByte(crc % 256);
    cmd(nCmd + 2) = CByte(crc / 256);
}

bool SendCommand(VORNAGlobal& g, CommControl& comm, CommBuffer& cmd, qint16 nCmd, CommBuffer& rsp,
    qint16 nRsp, qint16 silentTimeout, qint16 retry)
{
    // One CRC for all attempts: each sends the same bytes.
    SetCommandCRC(cmd, nCmd);

    int attempts = 0;
    bool result = false;
    for (;;) {
        g.platform.doEvents();
        const QDateTime start = g.platform.now();
        while (g.view().isInDelay()) {
            g.platform.waitEvents(PauseSliceMs);
            if (DateDiffSeconds(start, g.platform.now()) > PauseCapSeconds)
                break;
        }
        SendDataUseHandshaking(g, comm, cmd, qint16(nCmd + 2));
        if (g.link.Trace)
            g.link.Trace->sent(cmd.bytes(1, nCmd + 2));
        const qint16 n = ReceiveDataUseHandshaking(g, comm, rsp, nRsp, silentTimeout);
        const Verdict verdict = JudgeResponse(g, cmd, rsp, n, nRsp);
        if (g.link.Trace)
            g.link.Trace->received(rsp.bytes(1, n), VerdictText(verdict, rsp, n, nRsp));
        if (verdict == Verdict::Ok) {
            result = true;
            break;
        }
        g.view().startSleep();
        ++attempts;
        if (attempts > retry)
            break;
    }
    return result;
}
