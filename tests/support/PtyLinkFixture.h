#pragma once

#include <initializer_list>
#include <optional>

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include "CommUtil.h"
#include "DeviceFixture.h"
#include "DevsimProcess.h"
#include "QtSerialLine.h"

// The link through the real QSerialPort line on a pseudo-terminal, on the wall clock: the
// clock follows it at each yield, and the command pause ends 30 ms after it began. A silent
// time-out of 1 s and no retries, unless a test sets others. vorna-devsim, an independent
// dialler, runs as a child process at the other end when a test starts it: the line opened on
// the path it prints, and its JSON dump read once it has counted the requests sent.
class DevsimLinkTest : public DeviceTest
{
protected:
    DevsimLinkTest()
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

    // Unpaced unless the options give a --baud of their own.
    void startDevsim(const QStringList& options)
    {
        dumpPath = folder.path(QStringLiteral("dialler.json"));
        devsim.emplace(QStringList {"--baud", "0", "--dump", dumpPath} + options);
        ASSERT_TRUE(openLine(devsim->path())) << devsim->path().toStdString();
    }

    QJsonObject dumpAfter(int requests)
    {
        const QJsonObject dump = DumpAfter(dumpPath, requests);
        EXPECT_EQ(dump["requests"].toObject()["received"].toInt(), requests);
        return dump;
    }

    QString dumpPath;
    std::optional<DevsimProcess> devsim;
};

// The named fields of each element of an array of the dump, one line for each element.
inline QStringList Lines(const QJsonValue& array, std::initializer_list<const char*> keys)
{
    QStringList lines;
    for (const QJsonValue& element : array.toArray()) {
        QStringList fields;
        for (const char* key : keys)
            fields << element[QLatin1String(key)].toVariant().toString();
        lines << fields.join(u' ');
    }
    return lines;
}
