#include <cstdio>

#include <QCoreApplication>
#include <QSocketNotifier>

#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include "LineRunner.h"
#include "Options.h"

int main(int argc, char* argv[])
{
    // SIGTERM and SIGINT arrive through a descriptor, so the event loop ends normally and the
    // dump is written; blocked before Qt starts any thread.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGINT);
    sigprocmask(SIG_BLOCK, &stopSignals, nullptr);

    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vorna-devsim"));

    devsim::Options options;
    QString message;
    switch (devsim::ParseOptions(QCoreApplication::arguments(), options, message)) {
    case devsim::ParseResult::Help:
        std::fputs(qPrintable(message), stdout);
        return 0;
    case devsim::ParseResult::Error:
        std::fprintf(stderr, "vorna-devsim: %s\n", qPrintable(message));
        return 2;
    case devsim::ParseResult::Run:
        break;
    }

    devsim::LineRunner runner(options);
    if (!runner.start(message)) {
        std::fprintf(stderr, "vorna-devsim: %s\n", qPrintable(message));
        return 1;
    }
    std::printf("%s\n", qPrintable(runner.path()));
    std::fflush(stdout);

    const int signalFd = signalfd(-1, &stopSignals, SFD_NONBLOCK | SFD_CLOEXEC);
    QSocketNotifier signalNotifier(signalFd, QSocketNotifier::Read);
    QObject::connect(&signalNotifier, &QSocketNotifier::activated, &app, [&] {
        signalfd_siginfo info;
        while (read(signalFd, &info, sizeof info) == sizeof info) { }
        QCoreApplication::quit();
    });
    runner.onHungUp = [] { QCoreApplication::quit(); };

    const int status = app.exec();
    runner.finish();
    close(signalFd);
    return status;
}
