#pragma once

#include <algorithm>

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QThread>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

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

// The tool's end of the line: the slave side opened raw, as a serial port.
class PtyPort
{
public:
    explicit PtyPort(const QString& path)
    {
        m_fd = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (m_fd >= 0) {
            termios mode {};
            tcgetattr(m_fd, &mode);
            cfmakeraw(&mode);
            tcsetattr(m_fd, TCSANOW, &mode);
        }
    }
    ~PtyPort()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }

    bool isOpen() const { return m_fd >= 0; }
    bool write(const QByteArray& bytes)
    {
        m_sent.start();
        return ::write(m_fd, bytes.constData(), bytes.size()) == bytes.size();
    }

    // Reads until count bytes have come or the deadline passes; notes when the first and the
    // last byte arrived, in ms from the last write. A closed line ends the read.
    QByteArray read(int count, int deadlineMs = 2000)
    {
        QElapsedTimer clock;
        clock.start();
        if (!m_sent.isValid())
            m_sent.start();
        QByteArray bytes;
        do {
            pollfd wait {m_fd, POLLIN, 0};
            const int slice = static_cast<int>(std::clamp<qint64>(deadlineMs - clock.elapsed(), 0, 5));
            if (poll(&wait, 1, slice) <= 0)
                continue;
            char chunk[256];
            const ssize_t n = ::read(m_fd, chunk, sizeof chunk);
            if (n <= 0) {
                if ((wait.revents & POLLHUP) != 0 || n == 0)
                    break;
                continue;
            }
            if (bytes.isEmpty())
                firstByteMs = m_sent.nsecsElapsed() / 1e6;
            bytes.append(chunk, n);
            lastByteMs = m_sent.nsecsElapsed() / 1e6;
        } while (bytes.size() < count && clock.elapsed() < deadlineMs);
        return bytes;
    }

    double firstByteMs = 0;
    double lastByteMs = 0;

private:
    int m_fd = -1;
    QElapsedTimer m_sent;
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
