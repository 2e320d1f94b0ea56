#include <atomic>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QThread>

#include "CaseName.h"

#include "PtyLinkFixture.h"

namespace {

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

struct PacingCase
{
    const char* name;
    QStringList options;
    double waitMs; // before the answer: the frame gap and any delay
    double byteMs; // one byte of 10 bits on the line
};

class PacingTest : public DevsimLinkTest, public testing::WithParamInterface<PacingCase>
{ };

// vorna-devsim sends each byte when its ten bits have passed after the gap and never before,
// so only lower bounds hold on a busy machine: the first byte's and the last byte's show that
// the answer is paced and that no byte comes at the start of its slot.
TEST_P(PacingTest, TheAnswerComesPacedOnTheLine)
{
    const PacingCase& c = GetParam();
    startDevsim(c.options);
    QElapsedTimer sent;
    sent.start();
    SendDataUseHandshaking(g, comm, Buffer(WithCrc("F70400020004"), 8), 8);
    double firstMs = 0;
    while (firstMs == 0 && sent.elapsed() < 5000)
        if (comm.WaitForInput(1))
            firstMs = sent.nsecsElapsed() / 1e6;
    while (comm.InBufferCount() < 13 && sent.elapsed() < 5000)
        QThread::usleep(200);
    const double lastMs = sent.nsecsElapsed() / 1e6;
    // The request's eight bytes cross the line before the gap begins.
    const double answerMs = 8 * c.byteMs + c.waitMs;
    EXPECT_EQ(comm.InBufferCount(), 13);
    EXPECT_GE(firstMs, answerMs + c.byteMs);
    EXPECT_GE(lastMs, answerMs + 13 * c.byteMs);
    EXPECT_LT(lastMs, answerMs + 13 * c.byteMs + 2000);
}

const PacingCase PacingCases[] = {
    {"9600 baud", {"--baud", "9600"}, 3.5 * 10 / 9.6, 10 / 9.6},
    {"1200 baud", {"--baud", "1200"}, 3.5 * 10 / 1.2, 10 / 1.2},
    {"delay fault", {"--delay", "@1", "--delay-ms", "300"}, 300, 0},
};

INSTANTIATE_TEST_SUITE_P(SerialLineTest, PacingTest, testing::ValuesIn(PacingCases),
    [](const testing::TestParamInfo<PacingCase>& info) { return CaseName(info.param.name); });

} // namespace
