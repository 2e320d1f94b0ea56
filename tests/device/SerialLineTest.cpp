#include <atomic>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>

#include "PtyLinkFixture.h"

// A flood on a bare pseudo-terminal into a port open and unread, the window's event loop
// running as between two commands: what is kept stays bounded, and the send drops all of it,
// the driver's queue included, before its request goes.
TEST_F(DevsimLinkTest, AFloodOnAnIdlePortStaysBoundedAndGoesBeforeTheNextSend)
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    grantpt(master);
    unlockpt(master);
    ASSERT_TRUE(openLine(QString::fromLatin1(ptsname(master))));
    std::atomic<bool> stop {false};
    std::thread flood([master, &stop] {
        const QByteArray chunk(4096, '\x55');
        while (!stop)
            if (::write(master, chunk.constData(), chunk.size()) < 0)
                std::this_thread::yield();
    });
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 300)
        QCoreApplication::processEvents();
    stop = true;
    flood.join();

    EXPECT_GT(comm.InBufferCount(), 0);
    EXPECT_LE(comm.InBufferCount(), QtSerialLine::ReadBufferBytes + 128 * 1024);
    SendDataUseHandshaking(g, comm, Buffer(QByteArray::fromHex("F70400060001"), 6), 6);
    EXPECT_EQ(comm.InBufferCount(), 0);
    ::close(master);
}
