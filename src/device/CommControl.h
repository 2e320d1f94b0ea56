#pragma once

#include <memory>

#include <QString>

#include "SerialLine.h"

class Platform;

// The serial control of the main window: a port number and a settings text that are written
// while the port is closed, the port's open state, and its receive queue read InputLen bytes
// at a time. It drives the serial line that the platform hands out.
class CommControl
{
public:
    explicit CommControl(Platform& platform);
    ~CommControl();
    CommControl(const CommControl&) = delete;
    CommControl& operator=(const CommControl&) = delete;

    qint16 CommPort = 1;
    QString Settings = QStringLiteral("9600,N,8,1");
    // The device that the port stands for, written with CommPort.
    QString DevicePath;
    int InputLen = 0;

    // False once the system reports the port's device gone: the next open tries it again.
    bool PortOpen() const;
    // Opening a port that cannot be opened returns false, and OpenFailure and
    // ErrorDescription say why. Closing always succeeds.
    bool setPortOpen(bool open);
    SerialLine::OpenFailure OpenFailure = SerialLine::OpenFailure::None;
    QString ErrorDescription;

    // Bytes waiting, in the driver as well as read from it.
    int InBufferCount();
    // Takes InputLen bytes off the receive queue (all of it when InputLen is 0).
    QByteArray Input();
    // Queues the bytes for sending, without waiting for the line.
    void Output(const QByteArray& bytes);
    // Drops what waits in the receive queue.
    void DiscardInput();
    // Waits at most msecs for bytes, window events running meanwhile; true if any are waiting.
    bool WaitForInput(int msecs);

private:
    Platform& m_platform;
    std::unique_ptr<SerialLine> m_line;
};

// "9600,N,8,1" as line settings; parts that do not read keep their defaults.
SerialSettings ParseCommSettings(const QString& settings);
