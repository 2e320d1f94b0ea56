#pragma once

#include <QDeadlineTimer>

#include "ProjectView.h"

// What the project operations ask of the main window, for a terminal: there is no tree
// or list to keep up, so only the status texts remain, printed when asked for.
class ConsoleView : public NullProjectView
{
public:
    // statusCaption names the status panel as the window's status bar does.
    ConsoleView(bool verbose, const QString& statusCaption)
        : m_verbose(verbose)
        , m_statusCaption(statusCaption)
    { }

    void setStatusText(const QString& panelKey, const QString& text) override;
    // The pause between two attempts of a device command, on the clock as there is no
    // window timer here: as long as the window's.
    void startSleep() override { m_pauseEnds = QDeadlineTimer(PauseMs); }
    bool isInDelay() const override { return !m_pauseEnds.hasExpired(); }

private:
    static constexpr int PauseMs = 30;
    bool m_verbose;
    QString m_statusCaption;
    QDeadlineTimer m_pauseEnds {0};
};
