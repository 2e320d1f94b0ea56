#include "LineRunner.h"

#include <QJsonDocument>
#include <QSaveFile>

namespace devsim {

LineRunner::LineRunner(const Options& options)
    : m_options(options)
    , m_dialler(options.dialler)
{
    m_silenceTimer.setSingleShot(true);
    m_silenceTimer.setTimerType(Qt::PreciseTimer);
    m_sendTimer.setSingleShot(true);
    m_sendTimer.setTimerType(Qt::PreciseTimer);
    m_hangUpTimer.setInterval(5);
    QObject::connect(&m_silenceTimer, &QTimer::timeout, [this] { lineSilent(); });
    QObject::connect(&m_sendTimer, &QTimer::timeout, [this] { pump(); });
    QObject::connect(&m_hangUpTimer, &QTimer::timeout, [this] { hangUp(); });
}

bool LineRunner::start(QString& error)
{
    if (!m_line.open(m_options.link)) {
        error = m_line.error();
        return false;
    }
    m_clock.start();
    m_notifier = std::make_unique<QSocketNotifier>(m_line.masterFd(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, [this] { readLine(); });
    writeDump(true);
    return true;
}

void LineRunner::finish()
{
    if (m_finished)
        return;
    m_finished = true;
    m_notifier.reset();
    writeDump(true);
    m_line.close();
}

void LineRunner::readLine()
{
    const QByteArray bytes = m_line.readAvailable();
    if (bytes.isEmpty())
        return;
    m_requestEndUs = std::max(now(), m_requestEndUs) + bytes.size() * byteUs();
    schedule(m_dialler.receive(bytes, now()));
    // The silence check runs a little after the gap, so a frame cut short is dropped in time.
    m_silenceTimer.start(static_cast<int>(m_options.dialler.gapUs / 1000) + 1);
    writeDump();
}

void LineRunner::lineSilent()
{
    schedule(m_dialler.silence(now()));
    writeDump();
}

void LineRunner::schedule(const std::vector<Reply>& replies)
{
    const qint64 gapUs = m_options.baud > 0 ? m_options.dialler.gapUs : 0;
    for (const Reply& reply : replies) {
        // The answer starts 3.5 characters after the request has crossed the line, and a byte
        // reaches the other end once its ten bits have passed, not when its start bit goes.
        qint64 due = std::max(std::max(now(), m_requestEndUs) + gapUs + reply.delayUs, m_lineFreeUs);
        for (const char byte : reply.bytes) {
            due += byteUs();
            m_out.push_back({due, byte, false});
        }
        if (reply.closeLine)
            m_out.push_back({due, 0, true});
        m_lineFreeUs = due;
    }
    pump();
}

qint64 LineRunner::byteUs() const
{
    return m_options.baud > 0 ? 10'000'000 / m_options.baud : 0;
}

void LineRunner::pump()
{
    if (m_finished)
        return;
    const qint64 at = now();
    QByteArray burst;
    while (!m_out.empty() && m_out.front().dueUs <= at) {
        const Pending next = m_out.front();
        m_out.pop_front();
        if (next.hangUp) {
            m_line.write(burst);
            m_out.clear();
            m_hangUpStartUs = at;
            m_hangUpTimer.start();
            return;
        }
        burst.append(next.byte);
    }
    m_line.write(burst);
    if (!m_out.empty())
        m_sendTimer.start(static_cast<int>((m_out.front().dueUs - at + 999) / 1000));
}

void LineRunner::hangUp()
{
    // Let the tool read the last answer first, but not forever.
    if (m_line.unread() > 0 && now() - m_hangUpStartUs < 500'000)
        return;
    m_hangUpTimer.stop();
    finish();
    if (onHungUp)
        onHungUp();
}

void LineRunner::writeDump(bool always)
{
    if (m_options.dump.isEmpty() || (!always && m_dumpedRequests == m_dialler.log().size()))
        return;
    m_dumpedRequests = m_dialler.log().size();
    QSaveFile file(m_options.dump);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(QJsonDocument(m_dialler.toJson()).toJson(QJsonDocument::Indented));
    file.commit();
}

} // namespace devsim
