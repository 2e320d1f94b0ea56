#pragma once

#include <functional>

#include <QApplication>
#include <QTimer>

#include "VornaApplication.h"

// The one application object of the GUI tests, made on first use.
inline VornaApplication& guiApp()
{
    static int argc = 1;
    static char name[] = "gui_tests";
    static char* argv[] = {name, nullptr};
    // Never destroyed: the SQL driver's own clean-up at exit must not run after it.
    static VornaApplication* instance = new VornaApplication(argc, argv);
    return *instance;
}

// Plays the user at the next modal window: waits for it to come up, then hands it over.
// The action must close it, or the test hangs where a user would be left looking at it.
inline void atNextModal(std::function<void(QWidget*)> action)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        action(modal);
    });
    poll->start();
}
