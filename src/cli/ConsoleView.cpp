#include "ConsoleView.h"

#include "ConsolePlatform.h"

void ConsoleView::setStatusText(const QString& panelKey, const QString& text)
{
    // An empty text only clears the panel: nothing to tell on a terminal.
    if (m_verbose && !text.isEmpty())
        PrintError(
            (panelKey == QLatin1String("Status") && !m_statusCaption.isEmpty() ? m_statusCaption : panelKey)
            + QStringLiteral(": ") + text);
}
