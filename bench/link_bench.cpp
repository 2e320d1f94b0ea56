// SendCommand round trips against vorna-devsim at an emulated 9600 baud, through the real
// QSerialPort line on a pseudo-terminal and the window's own platform (offscreen), so that the
// yields of the receive cost what they cost in the window. For each kind of request it prints the medians of:
// the measured time over the wire time (10 bits a byte for the request and the answer, plus
// 3.5 characters of silence for each of the two frames; target 1.05 or less), the same over
// one silence alone (the tool sends a request as soon as the answer is in), and the tool's
// processor time over the wall time (target 0.05 or less).
#include <cstdio>
#include <ctime>

#include <QApplication>
#include <QElapsedTimer>

#include "BenchInstall.h"
#include "CommBuffer.h"
#include "CommControl.h"
#include "CommProtocol.h"
#include "CommUtil.h"
#include "DevsimProcess.h"
#include "Median.h"
#include "ProjectImage.h"
#include "QtPlatform.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

constexpr int Baud = 9600;
constexpr double ByteMs = 10 * 1000.0 / Baud;
constexpr double GapMs = 3.5 * ByteMs;
constexpr int RoundTrips = 300;

double ProcessCpuMs()
{
    timespec t {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return t.tv_sec * 1e3 + t.tv_nsec / 1e6;
}

struct Kind
{
    const char* name;
    // Fills the request of round trip k; returns nCmd.
    std::function<qint16(VORNAGlobal&, CommBuffer&, int)> request;
    qint16 nRsp;
};

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    BenchInstall install;
    QDir::setCurrent(install.appPath());
    QtPlatform platform(QDir(install.root()).filePath(QStringLiteral("settings.ini")));
    VORNAGlobal g(platform);
    InitApplication(g, install.appPath());
    CommControl comm(platform);
    g.link.CommCtl = &comm;

    DevsimProcess devsim({QStringLiteral("--baud"), QString::number(Baud)});
    g.link.CommDevice = devsim.path();
    if (devsim.path().isEmpty() || !EnsureCommOpen(g, comm)) {
        std::fprintf(stderr, "vorna-devsim did not start or its line did not open\n");
        return 1;
    }

    auto read = [](int address, int count) {
        return [address, count](VORNAGlobal& g, CommBuffer& cmd, int) {
            cmd = CommBuffer(8);
            cmd(1) = quint8(g.link.StationID);
            cmd(2) = 0x04;
            cmd(3) = quint8(address >> 8);
            cmd(4) = quint8(address);
            cmd(5) = 0x00;
            cmd(6) = quint8(count);
            return qint16(6);
        };
    };
    const PhoneBookEntry number {QStringLiteral("+886912345678"), false, 1, 13};
    const ShortMsgEntry text {false, 1, QString(70, QChar(u'警')), 70, 1};
    const Kind kinds[] = {
        {"read model id (8 + 7 bytes)", read(0x0000, 1), 7},
        {"read S/N (8 + 13 bytes)", read(0x0002, 4), 13},
        {"phone-book record (24 + 6 bytes)",
            [&number](VORNAGlobal& g, CommBuffer& cmd, int k) {
                return SetPhoneBookRecord(g, cmd, k % 128 + 1, number);
            },
            6},
        {"short-message record (151 + 6 bytes)",
            [&text](VORNAGlobal& g, CommBuffer& cmd, int) { return SetShortMsgRecord(g, cmd, text, true); },
            6},
    };

    std::printf("SendCommand round trips against vorna-devsim at %d baud, %d of each kind (medians)\n", Baud,
        RoundTrips);
    std::printf("  %-38s %10s %14s %14s %10s\n", "request", "ms", "time/wire", "time/1 gap", "cpu/wall");
    std::vector<double> allWire, allCpu;
    for (const Kind& kind : kinds) {
        std::vector<double> times, wire, paced, cpu;
        CommBuffer cmd;
        CommBuffer rsp(kind.nRsp);
        for (int k = 0; k < RoundTrips; ++k) {
            const qint16 nCmd = kind.request(g, cmd, k);
            const double cpuStart = ProcessCpuMs();
            QElapsedTimer clock;
            clock.start();
            if (!SendCommand(g, comm, cmd, nCmd, rsp, kind.nRsp, g.link.Timeout, 0)) {
                std::fprintf(stderr, "%s: round trip %d failed\n", kind.name, k);
                return 1;
            }
            const double ms = clock.nsecsElapsed() / 1e6;
            times.push_back(ms);
            wire.push_back(ms / ((nCmd + 2 + kind.nRsp) * ByteMs + 2 * GapMs));
            paced.push_back(ms / ((nCmd + 2 + kind.nRsp) * ByteMs + GapMs));
            cpu.push_back((ProcessCpuMs() - cpuStart) / ms);
        }
        allWire.insert(allWire.end(), wire.begin(), wire.end());
        allCpu.insert(allCpu.end(), cpu.begin(), cpu.end());
        std::printf("  %-38s %10.2f %14.3f %14.3f %10.4f\n", kind.name, Median(times), Median(wire),
            Median(paced), Median(cpu));
    }
    std::printf("  all: time/wire %.3f (target <= 1.05), cpu/wall %.4f (target <= 0.05)\n", Median(allWire),
        Median(allCpu));
    return 0;
}
