#pragma once

#include <initializer_list>
#include <optional>

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>
#include <QThread>

#include "DevsimProcess.h"
#include "PtyLinkFixture.h"

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

// The link against vorna-devsim, an independent dialler, as a child process: the line opened
// on the path it prints, and its JSON dump read once it has counted the requests sent.
class DevsimLinkTest : public PtyLinkTest
{
protected:
    // Unpaced unless the options give a --baud of their own.
    void startDevsim(const QStringList& options)
    {
        dumpPath = folder.path(QStringLiteral("dialler.json"));
        devsim.emplace(QStringList {"--baud", "0", "--dump", dumpPath} + options);
        ASSERT_TRUE(openLine(devsim->path())) << devsim->path().toStdString();
    }

    // The dialler rewrites its dump a moment after each answer.
    QJsonObject dumpAfter(int requests)
    {
        auto received
            = [](const QJsonObject& dump) { return dump["requests"].toObject()["received"].toInt(); };
        QElapsedTimer clock;
        clock.start();
        QJsonObject dump = ReadDump(dumpPath);
        while (received(dump) != requests && clock.elapsed() < 5000) {
            QThread::msleep(2);
            dump = ReadDump(dumpPath);
        }
        EXPECT_EQ(received(dump), requests);
        return dump;
    }

    QString dumpPath;
    std::optional<DevsimProcess> devsim;
};
