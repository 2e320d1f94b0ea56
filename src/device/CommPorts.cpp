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

QString OpenFailureAdvice(const VORNAGlobal& g, SerialLine::OpenFailure failure, const QString& path)
{
    const ModuleText T {"VORNADevice"};
    switch (failure) {
    case SerialLine::OpenFailure::NotFound:
        return T(g, "找不到 ", 1, 53) + path
            + T(g, "：請接上序列埠轉接器，或選擇其他通訊埠 (VORNA.set 的 [Ports] 段將通訊埠編號對應到裝置)。",
                2, 53);
    case SerialLine::OpenFailure::PermissionDenied:
        return T(g, "沒有開啟 ", 1, 54) + path
            + T(g,
                " 的權限：請將您的帳號加入 dialout 群組 (sudo usermod -aG dialout $USER)，然後登出再登入。",
                2, 54);
    case SerialLine::OpenFailure::Busy:
        return path
            + T(g, " 正被其他程式占用。通常是會探測新序列埠的數據機管理程式：請停止它，或設定它不碰這個埠。",
                1, 55);
    default:
        return path + T(g, " 無法開啟。", 1, 56);
    }
}
