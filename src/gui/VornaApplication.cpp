#include "VornaApplication.h"

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
