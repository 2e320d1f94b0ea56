#pragma once

#include <QByteArray>
#include <QString>

namespace devsim {

// The device's end of a pseudo-terminal. The program holds the master side; the tool opens
// the slave side as its serial port. The dialler keeps a descriptor of the slave open too,
// so the master never sees a hang-up when the tool closes and reopens its port.
class PtyLine
{
public:
    PtyLine() = default;
    ~PtyLine();
    PtyLine(const PtyLine&) = delete;
    PtyLine& operator=(const PtyLine&) = delete;

    // Opens the pair in raw mode and, with a link path, points a symbolic link at the slave.
    // On failure returns false with the reason in error().
    bool open(const QString& linkPath);
    void close();

    QString path() const { return m_path; }
    QString error() const { return m_error; }
    int masterFd() const { return m_master; }

    QByteArray readAvailable();
    bool write(QByteArrayView bytes);
    // Bytes the other side has not read yet.
    int unread() const;

private:
    int m_master = -1;
    int m_slave = -1;
    QString m_path;
    QString m_link;
    QString m_error;
};

} // namespace devsim
