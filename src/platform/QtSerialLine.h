#pragma once

#include <QSerialPort>

#include "SerialLine.h"

// The serial line on QSerialPort, shared by the window and the console tool.
class QtSerialLine : public SerialLine
{
public:
    bool open(const QString& path, const SerialSettings& settings) override;
    bool isOpen() const override { return m_port.isOpen(); }
    void close() override;
    void write(const QByteArray& bytes) override;
    qint64 bytesAvailable() override;
    QByteArray read(qint64 maxBytes) override;
    bool waitForBytes(int msecs) override;
    void discardInput() override;
    OpenFailure openFailure() const override { return m_failure; }
    QString errorString() const override { return m_errorString; }

private:
    QSerialPort m_port;
    OpenFailure m_failure = OpenFailure::None;
    QString m_errorString;
};
