#include "CommControl.h"

#include <QStringList>

#include "Platform.h"

CommControl::CommControl(Platform& platform)
    : m_platform(platform)
{ }

CommControl::~CommControl()
{
    if (m_line)
        m_line->close();
}

bool CommControl::PortOpen() const
{
    return m_line && m_line->isOpen();
}

bool CommControl::setPortOpen(bool open)
{
    OpenFailure = SerialLine::OpenFailure::None;
    ErrorDescription.clear();
    if (!open) {
        if (m_line)
            m_line->close();
        return true;
    }
    if (PortOpen())
        return true;
    if (!m_line)
        m_line = m_platform.createSerialLine();
    if (!m_line) {
        OpenFailure = SerialLine::OpenFailure::Other;
        ErrorDescription = QStringLiteral("No serial line on this platform.");
        return false;
    }
    if (m_line->open(DevicePath, ParseCommSettings(Settings)))
        return true;
    OpenFailure = m_line->openFailure();
    ErrorDescription = m_line->errorString();
    return false;
}

// A closed line has an empty queue of its own accord: asking first whether the port is open
// would cost a call to the system for every byte received.
int CommControl::InBufferCount()
{
    return m_line ? int(m_line->bytesAvailable()) : 0;
}

QByteArray CommControl::Input()
{
    if (!m_line)
        return {};
    return m_line->read(InputLen > 0 ? InputLen : m_line->bytesAvailable());
}

void CommControl::Output(const QByteArray& bytes)
{
    if (PortOpen())
        m_line->write(bytes);
}

void CommControl::DiscardInput()
{
    if (PortOpen())
        m_line->discardInput();
}

bool CommControl::WaitForInput(int msecs)
{
    return PortOpen() && m_platform.waitForBytes(*m_line, msecs);
}

SerialSettings ParseCommSettings(const QString& settings)
{
    SerialSettings s;
    const QStringList parts = settings.split(QLatin1Char(','));
    bool ok = false;
    if (parts.size() > 0) {
        const int baud = parts[0].trimmed().toInt(&ok);
        if (ok)
            s.BaudRate = baud;
    }
    if (parts.size() > 1 && !parts[1].trimmed().isEmpty())
        s.Parity = parts[1].trimmed().toUpper().at(0).toLatin1();
    if (parts.size() > 2) {
        const int bits = parts[2].trimmed().toInt(&ok);
        if (ok)
            s.DataBits = bits;
    }
    if (parts.size() > 3) {
        const int stop = parts[3].trimmed().toInt(&ok);
        if (ok)
            s.StopBits = stop;
    }
    return s;
}
