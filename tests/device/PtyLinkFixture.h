#pragma once

#include <QCoreApplication>

#include "CommUtil.h"
#include "DeviceFixture.h"
#include "QtSerialLine.h"

// The link through the real QSerialPort line on a pseudo-terminal, on the wall clock: the
// clock follows it at each yield, and the command pause ends 30 ms after it began. A silent
// time-out of 1 s and no retries, unless a test sets others.
class PtyLinkTest : public DeviceTest
{
protected:
    PtyLinkTest()
    {
        // QSerialPort wants an application object, and the suite has no main of its own.
        static int argc = 1;
        static char arg0[] = "device_pty_tests";
        static char* argv[] = {arg0, nullptr};
        if (!QCoreApplication::instance())
            new QCoreApplication(argc, argv);
        platform.makeSerialLine = [] { return std::make_unique<QtSerialLine>(); };
        platform.onDoEvents = [this] {
            platform.clock = QDateTime::currentDateTime();
            if (pause.inDelay && pause.sleepStarted.msecsTo(platform.clock) >= 30)
                pause.inDelay = false;
        };
        platform.clock = QDateTime::currentDateTime();
        g.link.Timeout = 1;
        g.link.Retry = 0;
    }

    bool openLine(const QString& path)
    {
        g.link.CommDevice = path;
        return EnsureCommOpen(g, comm);
    }
};
