#include <atomic>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <gtest/gtest.h>

#include "QtSerialLine.h"

namespace {

// The serial line on a bare pseudo-terminal whose master side the test holds.
class SerialLineTest : public testing::Test
{
protected:
    SerialLineTest()
    {
        static int argc = 1;
        static char arg0[] = "device_pty_tests";
        static char* argv[] = {arg0, nullptr};
        if (!QCoreApplication::instance())
            new QCoreApplication(argc, argv);
        m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
        grantpt(m_master);
        unlockpt(m_master);
        EXPECT_TRUE(line.open(QString::fromLatin1(ptsname(m_master)), SerialSettings {}));
    }
    ~SerialLineTest() override
    {
        if (m_master >= 0)
            ::close(m_master);
    }
    void hangUp()
    {
        ::close(m_master);
        m_master = -1;
    }

    int m_master = -1;
    QtSerialLine line;
};

// A flood on an open port that nobody reads, as in the window between two commands: what is
// read and kept stays bounded, and the discard before a send drops all of it, the driver's
// queue included.
TEST_F(SerialLineTest, AFloodStaysBoundedAndTheDiscardDropsIt)
{
    std::atomic<bool> stop {false};
    std::thread flood([this, &stop] {
        const QByteArray chunk(4096, '\x55');
        while (!stop)
            if (::write(m_master, chunk.constData(), chunk.size()) < 0)
                std::this_thread::yield();
    });
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300)
        QCoreApplication::processEvents();
    stop = true;
    flood.join();

    EXPECT_GT(line.bytesAvailable(), 0);
    EXPECT_LE(line.bytesAvailable(), QtSerialLine::ReadBufferBytes + 128 * 1024);
    line.discardInput();
    EXPECT_EQ(line.bytesAvailable(), 0);
}

// A hung-up line counts as closed before anything is read, and waits for nothing.
TEST_F(SerialLineTest, AHungUpLineIsClosed)
{
    ASSERT_TRUE(line.isOpen());
    ASSERT_EQ(::write(m_master, "\x01\x02", 2), 2);
    EXPECT_TRUE(line.waitForBytes(1000));
    hangUp();
    EXPECT_FALSE(line.isOpen());
    EXPECT_EQ(line.bytesAvailable(), 0);
    EXPECT_FALSE(line.waitForBytes(1000));
}

} // namespace
