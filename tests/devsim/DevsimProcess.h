#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QThread>

// vorna-devsim as a child process: started with the given options, its pseudo-terminal path
// read from the first line of its output, stopped with SIGTERM.
class DevsimProcess
{
public:
    explicit DevsimProcess(const QStringList& options)
    {
        m_process.start(QStringLiteral(VORNA_DEVSIM_PATH), options);
        // QProcess takes in output only while waiting, so the deadline is waitForReadyRead's.
        if (!m_process.waitForStarted(5000))
            return;
        QElapsedTimer clock;
        clock.start();
        while (!m_process.canReadLine() && clock.elapsed() < 5000)
            m_process.waitForReadyRead(100);
        if (m_process.canReadLine())
            m_path = QString::fromLocal8Bit(m_process.readLine().trimmed());
    }
    ~DevsimProcess()
    {
        if (m_process.state() != QProcess::NotRunning)
            stop();
    }

    QString path() const { return m_path; }

    // SIGTERM, then the exit status; -1 if it did not end cleanly.
    int stop()
    {
        m_process.terminate();
        return finished();
    }
    int finished(int deadlineMs = 5000)
    {
        if (!m_process.waitForFinished(deadlineMs)) {
            m_process.kill();
            m_process.waitForFinished();
            return -1;
        }
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }

private:
    QProcess m_process;
    QString m_path;
};

inline QJsonObject ReadDump(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

// The dialler rewrites its dump a moment after each answer: the dump once it has received the
// given number of requests, or the last one read after five seconds.
inline QJsonObject DumpAfter(const QString& path, int requests)
{
    auto received = [](const QJsonObject& dump) { return dump["requests"].toObject()["received"].toInt(); };
    QElapsedTimer clock;
    clock.start();
    QJsonObject dump = ReadDump(path);
    while (received(dump) < requests && clock.elapsed() < 5000) {
        QThread::msleep(2);
        dump = ReadDump(path);
    }
    return dump;
}
