#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QFile>
#include <QString>

#include "LinkTrace.h"

// The link trace written to a file as it goes, one line a frame: milliseconds since the
// first request, ">" for a request and "<" for what came back, the bytes in hexadecimal,
// and what the frame is (a request's function and record; an answer's verdict). Each line is
// flushed at once, so that a run that dies leaves every frame up to its end.
class TraceFile : public LinkTrace
{
public:
    // False, with the reason in errorString(), when the file cannot be written.
    bool open(const QString& path);
    QString errorString() const { return m_file.errorString(); }

    void sent(const QByteArray& frame) override;
    void received(const QByteArray& bytes, const QString& verdict) override;

private:
    void writeLine(char direction, const QByteArray& bytes, const QString& meaning);

    QFile m_file;
    QElapsedTimer m_clock;
    QByteArray m_lastRequest;
    bool m_lastRefused = false;
    int m_attempt = 0;
};

// A request in a few words: "read input registers 0006H x1", "phone-book record 3".
QString DescribeRequest(const QByteArray& frame);
