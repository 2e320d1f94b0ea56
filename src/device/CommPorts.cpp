#include "CommPorts.h"

#include <QRegularExpression>

#include "VORNAGlobal.h"

QString CommPortPath(const LinkState& link, int port)
{
    for (const auto* map : {&link.RunPortPaths, &link.PortPaths})
        if (const auto mapped = map->find(port); mapped != map->end())
            return mapped->second;
    if (port >= 1 && port <= 8)
        return QStringLiteral("/dev/ttyUSB") + QString::number(port - 1);
    if (port >= 9 && port <= 16)
        return QStringLiteral("/dev/ttyS") + QString::number(port - 9);
    return QStringLiteral("/dev/ttyACM") + QString::number(port - 17);
}

QString CommDevicePath(const LinkState& link)
{
    return link.CommDevice.isEmpty() ? CommPortPath(link, link.CommPort) : link.CommDevice;
}

bool SetCommPort(LinkState& link, const QString& text)
{
    const QString t = text.trimmed();
    static const QRegularExpression portName(
        QStringLiteral("^(?:COM)?(\\d{1,5})$"), QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = portName.match(t);
    if (m.hasMatch()) {
        const int port = m.captured(1).toInt();
        if (port > 32767)
            return false;
        link.CommPort = qint16(port);
        link.CommDevice.clear();
        return true;
    }
    if (t.startsWith(QLatin1Char('/'))) {
        link.CommDevice = t;
        return true;
    }
    return false;
}

QString OpenFailureAdvice(SerialLine::OpenFailure failure, const QString& path)
{
    switch (failure) {
    case SerialLine::OpenFailure::NotFound:
        return QStringLiteral("There is no ") + path
            + QStringLiteral(": plug in the serial adapter, or choose another port "
                             "(the [Ports] section of VORNA.set maps port numbers to devices).");
    case SerialLine::OpenFailure::PermissionDenied:
        return QStringLiteral("No permission to open ") + path
            + QStringLiteral(": add your user to the dialout group (sudo usermod -aG dialout $USER), "
                             "then log out and in again.");
    case SerialLine::OpenFailure::Busy:
        return path
            + QStringLiteral(" is held by another program. A modem manager that probes new serial "
                             "ports is the usual one: stop it, or tell it to leave this port alone.");
    default:
        return path + QStringLiteral(" could not be opened.");
    }
}
