#pragma once

#include <vector>

#include <QSerialPort>

#include "SerialLine.h"

// The serial ports of this system as QSerialPortInfo knows them, each with its name under
// /dev/serial/by-id when a link there leads to it.
std::vector<SerialPortInfo> SystemSerialPorts();

// The serial line on QSerialPort, shared by the window and the console tool.
class QtSerialLine : public SerialLine
{
public:
    // What is read from the driver and not yet taken stays within this many bytes; the rest
    // waits in the driver, whose queue the system bounds. Far more than any answer.
    static constexpr qint64 ReadBufferBytes = 4096;

    QtSerialLine();
    bool open(const QString& path, const SerialSettings& settings) override;
    bool isOpen() const override;
    void close() override;
    void write(const QByteArray& bytes) override;
    qint64 bytesAvailable() override;
    QByteArray read(qint64 maxBytes) override;
    bool waitForBytes(int msecs) override;
    void discardInput() override;
    qintptr nativeHandle() const override { return m_port.isOpen() ? qintptr(m_port.handle()) : -1; }
    OpenFailure openFailure() const override { return m_failure; }
    QString errorString() const override { return m_errorString; }

private:
    // Closes the port once its device is gone, so that its node is given back to the system.
    void closeIfGone();
    // Bytes that the driver holds and QSerialPort has not read yet; -1 once the system has
    // hung the line up (an adapter pulled, a pseudo-terminal closed), as it then refuses
    // every request on it.
    qint64 driverQueued() const;

    QSerialPort m_port;
    OpenFailure m_failure = OpenFailure::None;
    QString m_errorString;
};
