#pragma once

#include <deque>
#include <functional>
#include <memory>

#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QTimer>

#include "Dialler.h"
#include "Options.h"
#include "PtyLine.h"

namespace devsim {

// Puts a Dialler on a pseudo-terminal: reads what the tool sends, waits the frame gap,
// paces the answers at the line's rate and keeps the dump file current.
class LineRunner
{
public:
    explicit LineRunner(const Options& options);

    bool start(QString& error);
    QString path() const { return m_line.path(); }
    // Writes the last dump and closes the line.
    void finish();

    // Called once the close fault has hung up the line.
    std::function<void()> onHungUp;

private:
    qint64 now() const { return m_clock.nsecsElapsed() / 1000; }
    void readLine();
    void lineSilent();
    void schedule(const std::vector<Reply>& replies);
    void pump();
    // The time one character takes on the line at the set speed; 0 unpaced.
    qint64 byteUs() const;
    void hangUp();
    void writeDump(bool always = false);

    struct Pending
    {
        qint64 dueUs = 0;
        char byte = 0;
        bool hangUp = false; // no byte: hang up once everything before it is out
    };

    Options m_options;
    Dialler m_dialler;
    PtyLine m_line;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer m_silenceTimer;
    QTimer m_sendTimer;
    QTimer m_hangUpTimer;
    QElapsedTimer m_clock;
    qint64 m_hangUpStartUs = 0;
    std::deque<Pending> m_out;
    qint64 m_lineFreeUs = 0;
    // When the last byte received would have ended on a line at the set speed: a
    // pseudo-terminal hands over a whole request at once, a serial line one byte a character.
    qint64 m_requestEndUs = 0;
    size_t m_dumpedRequests = 0;
    bool m_finished = false;
};

} // namespace devsim
