#include "ProfileSettings.h"

#include "FileUtil.h"
#include "SettingUtil.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

// The ports that a [Ports] section may map: the range that the port check accepts.
constexpr int MaxPortInProfile = 255;

} // namespace

QString ProfileFileName(VORNAGlobal& g)
{
    return GetFname(g.program.App.EXEName, 0) + QStringLiteral(".set");
}

void ReadCommSettings(VORNAGlobal& g, const QString& FilePath)
{
    const QString name = FilePath.isEmpty() ? ProfileFileName(g) : FilePath;
    if (!FileExists(name)) {
        g.platform.msgBox(
            QStringLiteral("VORNA system failed!\nFile [") + name + QStringLiteral("] not exist."),
            MsgBox::Critical, QStringLiteral("VORNA system failed"));
        ExitApplication(g, false);
    }
    const QString text = ReadTextFile(name);
    g.link.Timeout = ValToInt16(
        GetProfileString(QStringLiteral("Comm"), QStringLiteral("Timeout"), QStringLiteral("2"), text));
    g.link.Retry = ValToInt16(
        GetProfileString(QStringLiteral("Comm"), QStringLiteral("Retry"), QStringLiteral("3"), text));
    g.link.CodePage
        = GetProfileString(QStringLiteral("Comm"), QStringLiteral("CodePage"), QString(), text).trimmed();
    g.link.PortPaths.clear();
    for (int port = 1; port <= MaxPortInProfile; ++port) {
        const QString path = GetProfileString(
            QStringLiteral("Ports"), QStringLiteral("COM") + QString::number(port), QString(), text)
                                 .trimmed();
        if (!path.isEmpty())
            g.link.PortPaths[port] = path;
    }
}

QString SettingsText(VORNAGlobal& g)
{
    const MLUtil& ml = g.ml;
    QString text;
    text += QStringLiteral("[Comm]") + CRLF;
    text += QStringLiteral("TimeOut=") + QString::number(g.link.Timeout) + CRLF;
    text += QStringLiteral("Retry=") + QString::number(g.link.Retry) + CRLF;
    if (!g.link.CodePage.isEmpty())
        text += QStringLiteral("CodePage=") + g.link.CodePage + CRLF;
    text += CRLF;
    text += QStringLiteral("[ML]") + CRLF;
    text += QStringLiteral("AppliedLangName=") + ml.AppliedLangName + CRLF;
    text += QStringLiteral("AlternateLangName=") + ml.AlternateLangName + CRLF;
    text += QStringLiteral("OriginalLangName =") + ml.OriginalLangName + CRLF;
    text += (ml.IsFormDisable == 1 ? QStringLiteral("IsFormDisable= 1") : QStringLiteral("IsFormDisable= 0"))
        + CRLF;
    text += (ml.IsTextDisable == 1 ? QStringLiteral("IsTextDisable= 1") : QStringLiteral("IsTextDisable= 0"))
        + CRLF;
    // The port mapping is the user's own: kept when there is one, left out otherwise.
    if (!g.link.PortPaths.empty()) {
        text += CRLF + QStringLiteral("[Ports]") + CRLF;
        for (const auto& [port, path] : g.link.PortPaths)
            text += QStringLiteral("COM") + QString::number(port) + QLatin1Char('=') + path + CRLF;
    }
    return text;
}

void WriteSettings(VORNAGlobal& g, const QString& FilePath)
{
    const QString name = FilePath.isEmpty() ? ProfileFileName(g) : FilePath;
    const QString text = SettingsText(g);
    if (FileExists(name))
        DeleteFile(name);
    // A profile that cannot be written (a read-only folder) has no trap of its own.
    if (WriteTextFile(text, name) < 0 || !FileExists(name))
        throw UnhandledError(QStringLiteral("Permission denied: ") + name);
}
