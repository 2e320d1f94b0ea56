#pragma once

#include <deque>
#include <vector>

#include <QDateTime>

#include "SerialLine.h"

class ScriptedPlatform;

// A serial line that plays a device from a script, on the scripted platform's clock. Each
// write takes the next scripted answer: bytes that arrive after given delays, or silence.
// Waiting for bytes moves the clock on, so time-outs cost no real time. It is strict: a
// write with no answer scripted, or an answer never asked for, fails the running test.
class ScriptedSerialLine : public SerialLine
{
public:
    struct Chunk
    {
        qint64 afterMs = 0; // after the write that takes the answer
        QByteArray bytes;
    };

    explicit ScriptedSerialLine(ScriptedPlatform& platform)
        : m_platform(platform)
    { }
    ~ScriptedSerialLine() override;

    // Script.
    void answer(const QByteArray& bytes) { m_answers.push_back({{0, bytes}}); }
    void answerInChunks(std::vector<Chunk> chunks) { m_answers.push_back(std::move(chunks)); }
    void answerNothing() { m_answers.push_back({}); }
    // The next opens fail for this reason.
    OpenFailure failOpen = OpenFailure::None;

    // Record.
    std::vector<QByteArray> written;
    std::vector<QDateTime> writeTimes;
    std::vector<QString> openedPaths;
    SerialSettings openedSettings;

    bool open(const QString& path, const SerialSettings& settings) override;
    bool isOpen() const override { return m_open; }
    void close() override;
    void write(const QByteArray& bytes) override;
    qint64 bytesAvailable() override;
    QByteArray read(qint64 maxBytes) override;
    bool waitForBytes(int msecs) override;
    void discardInput() override;
    OpenFailure openFailure() const override { return m_failure; }
    QString errorString() const override { return m_errorString; }

private:
    struct Pending
    {
        QDateTime due;
        QByteArray bytes;
    };
    void releaseDue();

    ScriptedPlatform& m_platform;
    std::deque<std::vector<Chunk>> m_answers;
    std::deque<Pending> m_pending;
    QByteArray m_queue;
    bool m_open = false;
    OpenFailure m_failure = OpenFailure::None;
    QString m_errorString;
};
