#include "QtSerialLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSerialPortInfo>

namespace {

QSerialPort::Parity QtParity(char parity)
{
    switch (parity) {
    case 'E':
        return QSerialPort::EvenParity;
    case 'O':
        return QSerialPort::OddParity;
    default:
        return QSerialPort::NoParity;
    }
}

// QSerialPort reports a port held by another program and a port we may not open with the
// same error; the file's own access rights tell them apart.
SerialLine::OpenFailure Classify(QSerialPort::SerialPortError error, const QString& path)
{
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return SerialLine::OpenFailure::NotFound;
    case QSerialPort::PermissionError:
        if (!QFile::exists(path))
            return SerialLine::OpenFailure::NotFound;
        if (::access(QFile::encodeName(path).constData(), R_OK | W_OK) != 0)
            return SerialLine::OpenFailure::PermissionDenied;
        return SerialLine::OpenFailure::Busy;
    default:
        return QFile::exists(path) ? SerialLine::OpenFailure::Other : SerialLine::OpenFailure::NotFound;
    }
}

} // namespace

QtSerialLine::QtSerialLine()
{
    // In the window the event loop notices a hang-up between two commands.
    QObject::connect(
        &m_port, &QSerialPort::errorOccurred, &m_port, [this] { closeIfGone(); }, Qt::QueuedConnection);
}

bool QtSerialLine::open(const QString& path, const SerialSettings& settings)
{
    m_failure = OpenFailure::None;
    m_errorString.clear();
    // A port whose device went away is still held open until now.
    close();
    m_port.setPortName(path);
    m_port.setBaudRate(settings.BaudRate);
    m_port.setParity(QtParity(settings.Parity));
    m_port.setDataBits(static_cast<QSerialPort::DataBits>(settings.DataBits));
    m_port.setStopBits(settings.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
    m_port.setReadBufferSize(ReadBufferBytes);
    if (m_port.open(QIODevice::ReadWrite))
        return true;
    m_failure = Classify(m_port.error(), path);
    m_errorString = m_port.errorString();
    return false;
}

void QtSerialLine::close()
{
    if (m_port.isOpen())
        m_port.close();
}

bool QtSerialLine::isOpen() const
{
    return m_port.isOpen() && driverQueued() >= 0;
}

void QtSerialLine::closeIfGone()
{
    if (m_port.isOpen() && !isOpen())
        m_port.close();
}

qint64 QtSerialLine::driverQueued() const
{
    int queued = 0;
    return ::ioctl(int(m_port.handle()), FIONREAD, &queued) == 0 ? queued : -1;
}

void QtSerialLine::write(const QByteArray& bytes)
{
    if (!m_port.isOpen())
        return;
    m_port.write(bytes);
    // The console tool runs no event loop that would hand the bytes to the driver.
    m_port.flush();
}

qint64 QtSerialLine::bytesAvailable()
{
    if (!m_port.isOpen())
        return 0;
    const qint64 queued = driverQueued();
    if (queued < 0) {
        m_port.close();
        return 0;
    }
    return m_port.bytesAvailable() + queued;
}

QByteArray QtSerialLine::read(qint64 maxBytes)
{
    if (!m_port.isOpen())
        return {};
    // QSerialPort hands out only what it has read from the driver: read the rest in first.
    if (m_port.bytesAvailable() < maxBytes && driverQueued() > 0)
        m_port.waitForReadyRead(0);
    return m_port.read(maxBytes);
}

bool QtSerialLine::waitForBytes(int msecs)
{
    if (bytesAvailable() > 0)
        return true;
    if (!m_port.isOpen())
        return false;
    m_port.waitForReadyRead(msecs);
    return bytesAvailable() > 0;
}

void QtSerialLine::discardInput()
{
    // What QSerialPort has read and what the driver still holds.
    if (m_port.isOpen())
        m_port.clear(QSerialPort::Input);
}

std::vector<SerialPortInfo> SystemSerialPorts()
{
    // The by-id names are links to the device nodes: resolve each once.
    const QDir byId(QStringLiteral("/dev/serial/by-id"));
    std::vector<std::pair<QString, QString>> links; // target, name
    for (const QFileInfo& link : byId.entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot))
        links.emplace_back(link.canonicalFilePath(), link.fileName());
    std::vector<SerialPortInfo> ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        SerialPortInfo port {info.systemLocation(), info.description(), info.serialNumber(), {}};
        const QString target = QFileInfo(port.Path).canonicalFilePath();
        for (const auto& [linkTarget, name] : links)
            if (linkTarget == target)
                port.ById = name;
        ports.push_back(port);
    }
    return ports;
}
