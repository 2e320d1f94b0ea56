#include "PortList.h"

#include <QRegularExpression>

#include "CommPorts.h"
#include "VORNAGlobal.h"

namespace {

const QString ByIdFolder = QStringLiteral("/dev/serial/by-id/");

// The highest port number that the port can be opened with.
constexpr int LastCommPort = 255;

// A [Ports] entry may name the adapter by its by-id link, which stays put when adapters move.
bool Opens(const QString& path, const SerialPortInfo& device)
{
    return path == device.Path || (!device.ById.isEmpty() && path == ByIdFolder + device.ById);
}

// The number that the default rule gives the device, or 0.
int DefaultCommPort(const QString& path)
{
    static const QRegularExpression device(QStringLiteral("^/dev/tty(USB|S|ACM)(\\d{1,3})$"));
    const QRegularExpressionMatch m = device.match(path);
    if (!m.hasMatch())
        return 0;
    const int n = m.captured(2).toInt();
    const QString kind = m.captured(1);
    if (kind == QLatin1String("USB"))
        return n < 8 ? n + 1 : 0;
    if (kind == QLatin1String("S"))
        return n < 8 ? n + 9 : 0;
    return n + 17 <= LastCommPort ? n + 17 : 0;
}

} // namespace

int CommPortOf(const LinkState& link, const QString& path)
{
    for (const auto* map : {&link.RunPortPaths, &link.PortPaths})
        for (const auto& [port, mapped] : *map)
            if (mapped == path && port >= 1 && port <= LastCommPort && CommPortPath(link, port) == path)
                return port;
    const int port = DefaultCommPort(path);
    // A number that [Ports] gives to another device no longer reaches this one.
    return port > 0 && CommPortPath(link, port) == path ? port : 0;
}

std::vector<PortRow> ListCommPorts(VORNAGlobal& g)
{
    const std::vector<SerialPortInfo> devices = g.platform.availablePorts();
    std::vector<bool> reached(devices.size(), false);
    std::vector<PortRow> rows;
    for (int port = 1; port <= 16; ++port) {
        PortRow row;
        row.CommPort = port;
        row.Path = CommPortPath(g.link, port);
        for (size_t i = 0; i < devices.size(); ++i) {
            if (Opens(row.Path, devices[i])) {
                row.Present = true;
                row.Device = devices[i];
                reached[i] = true;
                break;
            }
        }
        // A device that is no serial port of the system's, such as a virtual dialler's
        // pseudo-terminal, is there all the same.
        if (!row.Present && g.platform.deviceExists(row.Path)) {
            row.Present = true;
            row.Device.Path = row.Path;
        }
        rows.push_back(row);
    }
    for (size_t i = 0; i < devices.size(); ++i) {
        if (reached[i])
            continue;
        const SerialPortInfo& device = devices[i];
        int port = CommPortOf(g.link, device.Path);
        if (port == 0 && !device.ById.isEmpty())
            port = CommPortOf(g.link, ByIdFolder + device.ById);
        rows.push_back({port, port > 0 ? CommPortPath(g.link, port) : device.Path, true, device});
    }
    return rows;
}
