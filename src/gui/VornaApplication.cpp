#include "VornaApplication.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "Icons.h"
#include "Platform.h"
#include "UnhandledError.h"

void ReportUnhandledError(Platform& platform, const UnhandledError& error)
{
    platform.msgBox(error.text(), error.flags(), error.title());
    platform.endProcess(UnhandledErrorExitStatus);
    Q_UNREACHABLE();
}

void ReportRuntimeError(Platform& platform, const std::exception& error)
{
    platform.msgBox(QStringLiteral("VORNA stopped: ") + QString::fromLocal8Bit(error.what()),
        MsgBox::Critical, QStringLiteral("VORNA"));
    platform.endProcess(UnhandledErrorExitStatus);
    Q_UNREACHABLE();
}

VornaApplication::VornaApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setOrganizationName(QStringLiteral("VORNA"));
    setApplicationName(QStringLiteral("VORNA"));
    // Every window, box and dialog without an icon of its own carries the program's.
    setWindowIcon(Icons::icon(QStringLiteral("VORNA")));
}

void InstallToolkitTranslation(const QString& language)
{
    // The toolkit's own words (file dialogs, box buttons) follow the program's language.
    static QTranslator translator;
    QCoreApplication::removeTranslator(&translator);
    QString locale;
    if (language == QLatin1String("ChineseBig5"))
        locale = QStringLiteral("zh_TW");
    else if (language == QLatin1String("ChineseGB"))
        locale = QStringLiteral("zh_CN");
    else
        return;
    if (translator.load(QLocale(locale), QStringLiteral("qt"), QStringLiteral("_"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&translator);
}

bool VornaApplication::notify(QObject* receiver, QEvent* event)
{
    if (!m_platform)
        return QApplication::notify(receiver, event);
    try {
        return QApplication::notify(receiver, event);
    } catch (const UnhandledError& error) {
        ReportUnhandledError(*m_platform, error);
    } catch (const std::exception& error) {
        ReportRuntimeError(*m_platform, error);
    }
}
