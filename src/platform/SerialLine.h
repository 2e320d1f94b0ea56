#pragma once

#include <QByteArray>
#include <QString>

// How a serial line is to be set up: speed, parity letter ('N', 'E', 'O'), data and stop bits.
struct SerialSettings
{
    qint32 BaudRate = 9600;
    char Parity = 'N';
    int DataBits = 8;
    int StopBits = 1;
    bool operator==(const SerialSettings&) const = default;
};

// A serial port that the system knows of, and what it knows of the device behind it.
struct SerialPortInfo
{
    QString Path;         // "/dev/ttyUSB0"
    QString Description;  // the adapter's product text, or empty
    QString SerialNumber; // the adapter's serial number, or empty
    QString ById;         // its name under /dev/serial/by-id, or empty
    bool operator==(const SerialPortInfo&) const = default;
};

// One serial line as the device link uses it: a byte pipe with a receive queue that can be
// counted, waited on and emptied. The platform hands one out; QSerialPort implements it in
// the shells, and the tests script it byte for byte.
class SerialLine
{
public:
    // Why an open failed, so that the box can say what to do about it.
    enum class OpenFailure { None, NotFound, PermissionDenied, Busy, Other };

    virtual ~SerialLine() = default;

    // Opens the device at path. On failure returns false; openFailure and errorString tell why.
    virtual bool open(const QString& path, const SerialSettings& settings) = 0;
    // False as well once the system reports the device gone (an adapter pulled, a line hung
    // up): such a line is closed, and the next open tries the device again.
    virtual bool isOpen() const = 0;
    virtual void close() = 0;

    // Queues bytes for sending without waiting for the line.
    virtual void write(const QByteArray& bytes) = 0;
    // Bytes waiting in the receive queue, those that the driver still holds included.
    virtual qint64 bytesAvailable() = 0;
    // Takes up to maxBytes off the receive queue.
    virtual QByteArray read(qint64 maxBytes) = 0;
    // Waits at most msecs for bytes to arrive; true if any are waiting on return.
    virtual bool waitForBytes(int msecs) = 0;
    // Drops everything received and not yet read, in the driver too.
    virtual void discardInput() = 0;

    // The system's handle of the open line, for a wait in an event loop; -1 when it has none.
    virtual qintptr nativeHandle() const { return -1; }

    virtual OpenFailure openFailure() const = 0;
    virtual QString errorString() const = 0;
};
