#include "QtSerialLine.h"

#include <unistd.h>

#include <QFile>

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

bool QtSerialLine::open(const QString& path, const SerialSettings& settings)
{
    m_failure = OpenFailure::None;
    m_errorString.clear();
    m_port.setPortName(path);
    m_port.setBaudRate(settings.BaudRate);
    m_port.setParity(QtParity(settings.Parity));
    m_port.setDataBits(static_cast<QSerialPort::DataBits>(settings.DataBits));
    m_port.setStopBits(settings.StopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    m_port.setFlowControl(QSerialPort::NoFlowControl);
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

void QtSerialLine::write(const QByteArray& bytes)
{
    m_port.write(bytes);
    // The console tool runs no event loop that would hand the bytes to the driver.
    m_port.flush();
}

qint64 QtSerialLine::bytesAvailable()
{
    return m_port.bytesAvailable();
}

QByteArray QtSerialLine::read(qint64 maxBytes)
{
    return m_port.read(maxBytes);
}

bool QtSerialLine::waitForBytes(int msecs)
{
    if (m_port.bytesAvailable() > 0)
        return true;
    m_port.waitForReadyRead(msecs);
    return m_port.bytesAvailable() > 0;
}

void QtSerialLine::discardInput()
{
    m_port.readAll();
    m_port.clear(QSerialPort::Input);
}
