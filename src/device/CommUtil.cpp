#include "CommUtil.h"

#include <algorithm>

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommPorts.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"VORNACommUtil"};

const QString CommErrorTitle = QStringLiteral("Communicaiton Error");
const QString CheckSettingsLine
    = QStringLiteral("Please check cable connection and communicaiton parameter settings.");

// Seconds in one unit of the interval code of the time comparison.
qint64 IntervalSeconds(const QString& interval)
{
    const QString code = interval.trimmed().toLower();
    if (code == QStringLiteral("s"))
        return 1;
    if (code == QStringLiteral("n"))
        return 60;
    if (code == QStringLiteral("h"))
        return 3600;
    throw UnhandledError(QStringLiteral("Invalid procedure call or argument"));
}

// The unit boundaries crossed since the epoch, so that a difference counts whole units.
qint64 WholeUnits(const QDateTime& t, qint64 unitSeconds)
{
    const qint64 ms = t.toMSecsSinceEpoch();
    const qint64 unitMs = unitSeconds * 1000;
    return ms >= 0 ? ms / unitMs : -((-ms + unitMs - 1) / unitMs);
}

// How long a wait for the next byte may last: until the silence since the last activity
// counts more than silentTimeout whole units, at most a minute at a time.
int MsecsLeft(qint64 unitSeconds, const QDateTime& lastActivity, const QDateTime& now, qint16 silentTimeout)
{
    const qint64 endMs = (WholeUnits(lastActivity, unitSeconds) + silentTimeout + 1) * unitSeconds * 1000;
    return int(std::clamp<qint64>(endMs - now.toMSecsSinceEpoch(), 0, 60'000));
}

} // namespace

CommControl& LinkComm(VORNAGlobal& g)
{
    if (!g.link.CommCtl)
        throw UnhandledError(QStringLiteral("Object variable or With block variable not set"));
    return *g.link.CommCtl;
}

bool EnsureCommOpen(VORNAGlobal& g, CommControl& comm)
{
    if (comm.PortOpen())
        return true;
    ConfigureComm(g, comm);
    return OpenComm(g, comm);
}

void ConfigureComm(VORNAGlobal& g, CommControl& comm)
{
    comm.CommPort = g.link.CommPort;
    comm.DevicePath = CommDevicePath(g.link);
    comm.Settings = QStringLiteral("9600,N,8,1");
}

bool OpenComm(VORNAGlobal& g, CommControl& comm)
{
    const qint16 port = comm.CommPort;
    if (port >= 256 || port < 1) {
        g.platform.msgBox(QStringLiteral("Unable to connect to VEK Controller.") + CRLF + CheckSettingsLine,
            MsgBox::Critical, CommErrorTitle);
        if (g.link.CommDebugLevel > 0)
            g.platform.msgBox(QStringLiteral("Error Communication PortCommPort = ") + QString::number(port)
                    + QStringLiteral("Communication Port is belong 0 to 255."),
                MsgBox::Critical, QStringLiteral("CommUtil:OpenComm"));
        g.platform.endProcess(0);
    }
    CloseComm(comm);
    if (comm.setPortOpen(true))
        return true;
    g.platform.msgBox(QStringLiteral("Unable to connect to Device.") + CRLF + CheckSettingsLine + CRLF
            + OpenFailureAdvice(g, comm.OpenFailure, comm.DevicePath),
        MsgBox::Critical, CommErrorTitle);
    if (g.link.CommDebugLevel > 0)
        g.platform.msgBox(QStringLiteral("RS-232 CommPort is failure.") + CRLF
                + QStringLiteral("ErrorObject:") + comm.DevicePath + CRLF + QStringLiteral("ErrorMessage:")
                + comm.ErrorDescription + CRLF + QStringLiteral("CommPort=") + QString::number(port) + CRLF
                + QStringLiteral("Settings=") + comm.Settings,
            MsgBox::Critical, QStringLiteral("CommUtil:OpenComm"));
    return false;
}

bool CloseComm(CommControl& comm)
{
    if (!comm.PortOpen())
        return false;
    comm.setPortOpen(false);
    return true;
}

void CloseCommIfOpen(CommControl& comm)
{
    if (comm.PortOpen())
        CloseComm(comm);
}

qint16 SendDataUseHandshaking(VORNAGlobal&, CommControl& comm, const CommBuffer& data, qint16 n)
{
    const QByteArray bytes = data.bytes(1, n);
    // Bytes left from an earlier exchange must never be taken for the answer to this one.
    if (comm.InBufferCount() >= 1)
        comm.DiscardInput();
    comm.Output(bytes);
    return n;
}

qint16 ReceiveDataUseHandshaking(
    VORNAGlobal& g, CommControl& comm, CommBuffer& data, qint16 n, qint16 silentTimeout)
{
    QDateTime lastActivity = g.platform.now();
    // When the queue was last found waited on: bytes found then had arrived by that moment.
    // The clock is read once for each wake-up, not once for each byte.
    QDateTime seen = lastActivity;
    comm.InputLen = 1;
    qint16 i = 0;
    const qint64 unit = IntervalSeconds(T(g, "s", 1, 456));
    bool timedOut = false;
    while (i < n) {
        if (WholeUnits(seen, unit) - WholeUnits(lastActivity, unit) > silentTimeout) {
            timedOut = true;
            break;
        }
        if (comm.InBufferCount() == 0) {
            // A line that has hung up brings nothing more.
            if (!comm.PortOpen())
                break;
            // The port wakes the wait at the next byte; the window stays live meanwhile.
            comm.WaitForInput(MsecsLeft(unit, lastActivity, seen, silentTimeout));
            seen = g.platform.now();
            continue;
        }
        // Each byte is taken alone, and each one restarts the silence clock.
        while (comm.InBufferCount() > 0 && i < n) {
            comm.InputLen = 1;
            const QByteArray b = comm.Input();
            if (b.isEmpty())
                break;
            ++i;
            data(i) = quint8(b.at(0));
            g.platform.doEvents();
        }
        lastActivity = seen;
    }
    if (timedOut && g.link.CommDebugLevel > 0)
        g.platform.msgBox(QStringLiteral("Communication silent timeout error in receiving  data!") + CRLF
                + QStringLiteral("Expected data length=") + QString::number(n) + CRLF
                + QStringLiteral("Received data length=") + QString::number(i) + CRLF
                + QStringLiteral("Silent time out(sec)=") + QString::number(silentTimeout),
            MsgBox::Critical, QStringLiteral("Silent timeout error!"));
    return i;
}
