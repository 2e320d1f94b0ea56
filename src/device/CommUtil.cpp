#include "CommUtil.h"

#include "CommBuffer.h"
#include "CommControl.h"
#include "CommPorts.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const QString CommErrorTitle = QStringLiteral("Communicaiton Error");
const QString CheckSettingsLine
    = QStringLiteral("Please check cable connection and communicaiton parameter settings.");

// While no byte waits, the receive sleeps on the port this long before it lets the event
// loop run again, so that a download costs next to no processor time.
constexpr int ReceiveSliceMs = 10;

// Whole units between two moments, by the interval code of the time comparison.
qint64 DateDiff(const QString& interval, const QDateTime& from, const QDateTime& to)
{
    const QString code = interval.trimmed().toLower();
    const qint64 seconds = DateDiffSeconds(from, to);
    if (code == QStringLiteral("s"))
        return seconds;
    auto units = [&](qint64 unitSeconds) {
        auto floorDiv = [](qint64 a, qint64 b) { return a >= 0 ? a / b : -((-a + b - 1) / b); };
        return floorDiv(to.toSecsSinceEpoch(), unitSeconds) - floorDiv(from.toSecsSinceEpoch(), unitSeconds);
    };
    if (code == QStringLiteral("n"))
        return units(60);
    if (code == QStringLiteral("h"))
        return units(3600);
    throw UnhandledError(QStringLiteral("Invalid procedure call or argument"));
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
            + OpenFailureAdvice(comm.OpenFailure, comm.DevicePath),
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
    const QString interval = g.GetText(QStringLiteral("s"), 1, 456, QStringLiteral("VORNACommUtil"));
    bool timedOut = false;
    while (i < n) {
        if (DateDiff(interval, lastActivity, seen) > silentTimeout) {
            timedOut = true;
            break;
        }
        if (comm.InBufferCount() == 0) {
            comm.WaitForInput(ReceiveSliceMs);
            g.platform.doEvents();
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
