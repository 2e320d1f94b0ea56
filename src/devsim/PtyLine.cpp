#include "PtyLine.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <QFile>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace devsim {

PtyLine::~PtyLine()
{
    close();
}

bool PtyLine::open(const QString& linkPath)
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY);
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0) {
        m_error = QStringLiteral("cannot open a pseudo-terminal: %1")
                      .arg(QString::fromLocal8Bit(strerror(errno)));
        close();
        return false;
    }
    char name[128] = {};
    if (ptsname_r(m_master, name, sizeof name) != 0) {
        m_error = QStringLiteral("cannot name the pseudo-terminal");
        close();
        return false;
    }
    m_path = QString::fromLocal8Bit(name);
    m_slave = ::open(name, O_RDWR | O_NOCTTY);
    if (m_slave < 0) {
        m_error = QStringLiteral("cannot open %1: %2").arg(m_path, QString::fromLocal8Bit(strerror(errno)));
        close();
        return false;
    }
    // Raw from the start: with the terminal's default echo, answers would come back as requests
    // until the tool set its own mode.
    termios mode {};
    tcgetattr(m_slave, &mode);
    cfmakeraw(&mode);
    cfsetispeed(&mode, B9600);
    cfsetospeed(&mode, B9600);
    tcsetattr(m_slave, TCSANOW, &mode);
    fcntl(m_master, F_SETFL, fcntl(m_master, F_GETFL) | O_NONBLOCK);

    if (!linkPath.isEmpty()) {
        QFile::remove(linkPath);
        if (!QFile::link(m_path, linkPath)) {
            m_error = QStringLiteral("cannot make the link %1").arg(linkPath);
            close();
            return false;
        }
        m_link = linkPath;
    }
    return true;
}

void PtyLine::close()
{
    if (!m_link.isEmpty())
        QFile::remove(m_link);
    m_link.clear();
    if (m_slave >= 0)
        ::close(m_slave);
    if (m_master >= 0)
        ::close(m_master);
    m_slave = m_master = -1;
}

QByteArray PtyLine::readAvailable()
{
    QByteArray bytes;
    char chunk[512];
    for (;;) {
        const ssize_t n = ::read(m_master, chunk, sizeof chunk);
        if (n <= 0)
            break;
        bytes.append(chunk, n);
    }
    return bytes;
}

bool PtyLine::write(QByteArrayView bytes)
{
    // A full queue means nobody reads the port; give up after a second rather than hang.
    qsizetype done = 0;
    int waits = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(m_master, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN && ++waits <= 1000) {
            usleep(1000);
            continue;
        }
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

int PtyLine::unread() const
{
    int count = 0;
    if (m_slave < 0 || ioctl(m_slave, TIOCINQ, &count) != 0)
        return 0;
    return count;
}

} // namespace devsim
