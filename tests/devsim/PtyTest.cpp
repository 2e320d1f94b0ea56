#include <algorithm>

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <QFile>
#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "CaseName.h"
#include "DevsimProcess.h"
#include "Frames.h"

namespace {

// The tool's end of the line: the slave side opened raw, as a serial port.
class PtyPort
{
public:
    explicit PtyPort(const QString& path)
    {
        m_fd = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (m_fd >= 0) {
            termios mode {};
            tcgetattr(m_fd, &mode);
            cfmakeraw(&mode);
            tcsetattr(m_fd, TCSANOW, &mode);
        }
    }
    ~PtyPort()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }

    bool isOpen() const { return m_fd >= 0; }
    bool write(const QByteArray& bytes)
    {
        m_sent.start();
        return ::write(m_fd, bytes.constData(), bytes.size()) == bytes.size();
    }

    // Reads until count bytes have come or the deadline passes; notes when the first and the
    // last byte arrived, in ms from the last write. A closed line ends the read.
    QByteArray read(int count, int deadlineMs = 2000)
    {
        QElapsedTimer clock;
        clock.start();
        if (!m_sent.isValid())
            m_sent.start();
        QByteArray bytes;
        do {
            pollfd wait {m_fd, POLLIN, 0};
            const int slice = static_cast<int>(std::clamp<qint64>(deadlineMs - clock.elapsed(), 0, 5));
            if (poll(&wait, 1, slice) <= 0)
                continue;
            char chunk[256];
            const ssize_t n = ::read(m_fd, chunk, sizeof chunk);
            if (n <= 0) {
                if ((wait.revents & POLLHUP) != 0 || n == 0)
                    break;
                continue;
            }
            if (bytes.isEmpty())
                firstByteMs = m_sent.nsecsElapsed() / 1e6;
            bytes.append(chunk, n);
            lastByteMs = m_sent.nsecsElapsed() / 1e6;
        } while (bytes.size() < count && clock.elapsed() < deadlineMs);
        return bytes;
    }

    double firstByteMs = 0;
    double lastByteMs = 0;

private:
    int m_fd = -1;
    QElapsedTimer m_sent;
};

// The link names the terminal while the dialler runs; SIGTERM ends it cleanly, link gone and
// dump written. Closing and opening the port again is the port dialog's, in the link's suite.
TEST(DevsimPtyTest, AnswersThroughItsLinkAndDumpsOnTermination)
{
    QTemporaryDir dir;
    const QString link = dir.filePath("ttyDialler");
    const QString dump = dir.filePath("dump.json");
    DevsimProcess devsim({"--baud", "0", "--link", link, "--dump", dump});
    ASSERT_TRUE(devsim.path().startsWith("/dev/pts/")) << devsim.path().toStdString();
    {
        PtyPort port(link);
        ASSERT_TRUE(port.isOpen());
        ASSERT_TRUE(port.write(Sealed(PhoneRecord)));
        EXPECT_EQ(port.read(6), Sealed("F7504302"));
    }
    EXPECT_EQ(devsim.stop(), 0);
    EXPECT_FALSE(QFile::exists(link));
    const QJsonObject json = ReadDump(dump);
    EXPECT_EQ(json["requests"]["received"].toInt(), 1);
    EXPECT_EQ(json["phoneBook"][0]["phoneNumber"].toString(), "0912345678");
}

struct TimingCase
{
    const char* name;
    QStringList options;
    double waitMs; // before the answer: the frame gap and any delay
    double byteMs; // one byte of 10 bits on the line
};

class TimingTest : public testing::TestWithParam<TimingCase>
{ };

// Each byte is due when its ten bits have passed after the gap and never goes out before it,
// so only lower bounds hold on a busy machine: the first byte's and the last byte's show that
// the answer is paced and that no byte comes at the start of its slot.
TEST_P(TimingTest, AnswerPacedOnTheLine)
{
    const TimingCase& c = GetParam();
    DevsimProcess devsim(c.options);
    PtyPort port(devsim.path());
    ASSERT_TRUE(port.isOpen());
    ASSERT_TRUE(port.write(Sealed("F70400020004")));
    EXPECT_EQ(port.read(13, 5000).size(), 13);
    EXPECT_GE(port.firstByteMs, c.waitMs + c.byteMs);
    EXPECT_GE(port.lastByteMs, c.waitMs + 13 * c.byteMs);
    EXPECT_LT(port.lastByteMs, c.waitMs + 13 * c.byteMs + 2000);
}

const TimingCase TimingCases[] = {
    {"9600 baud", {"--baud", "9600"}, 3.5 * 10 / 9.6, 10 / 9.6},
    {"1200 baud", {"--baud", "1200"}, 3.5 * 10 / 1.2, 10 / 1.2},
    {"delay fault", {"--baud", "0", "--delay", "@1", "--delay-ms", "300"}, 300, 0},
};

INSTANTIATE_TEST_SUITE_P(DevsimPtyTest, TimingTest, testing::ValuesIn(TimingCases),
    [](const testing::TestParamInfo<TimingCase>& info) { return CaseName(info.param.name); });

} // namespace
