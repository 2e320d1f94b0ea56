#include "ScriptedSerialLine.h"

#include <gtest/gtest.h>

#include "ScriptedPlatform.h"

ScriptedSerialLine::~ScriptedSerialLine()
{
    if (!m_answers.empty())
        ADD_FAILURE() << m_answers.size() << " scripted answer(s) of the serial line never asked for";
}

bool ScriptedSerialLine::open(const QString& path, const SerialSettings& settings)
{
    openedPaths.push_back(path);
    openedSettings = settings;
    m_failure = failOpen;
    if (m_failure != OpenFailure::None) {
        m_errorString = QStringLiteral("scripted failure to open ") + path;
        return false;
    }
    m_errorString.clear();
    m_open = true;
    return true;
}

void ScriptedSerialLine::close()
{
    m_open = false;
}

void ScriptedSerialLine::write(const QByteArray& bytes)
{
    EXPECT_TRUE(m_open) << "write on a closed line";
    written.push_back(bytes);
    writeTimes.push_back(m_platform.clock);
    if (m_answers.empty()) {
        ADD_FAILURE() << "a write with no answer scripted: " << bytes.toHex(' ').toStdString();
        return;
    }
    const QDateTime start = m_platform.clock;
    for (const Chunk& c : m_answers.front())
        m_pending.push_back({start.addMSecs(c.afterMs), c.bytes});
    m_answers.pop_front();
}

void ScriptedSerialLine::releaseDue()
{
    while (!m_pending.empty() && m_pending.front().due <= m_platform.clock) {
        m_queue += m_pending.front().bytes;
        m_pending.pop_front();
    }
}

qint64 ScriptedSerialLine::bytesAvailable()
{
    releaseDue();
    return m_queue.size();
}

QByteArray ScriptedSerialLine::read(qint64 maxBytes)
{
    releaseDue();
    const QByteArray taken = m_queue.left(maxBytes);
    m_queue.remove(0, taken.size());
    return taken;
}

bool ScriptedSerialLine::waitForBytes(int msecs)
{
    releaseDue();
    if (m_queue.isEmpty()) {
        QDateTime until = m_platform.clock.addMSecs(msecs);
        if (!m_pending.empty() && m_pending.front().due < until)
            until = m_pending.front().due;
        m_platform.clock = until;
        releaseDue();
    }
    return !m_queue.isEmpty();
}

void ScriptedSerialLine::discardInput()
{
    releaseDue();
    m_queue.clear();
}
