// Cold start of the program to its main window ready, with the splash wait left out.
// The driver starts itself again as a child process many times; each child runs the
// real start order offscreen and exits as soon as the main window is shown. Prints the
// median of the whole process lifetime and of the start order alone.
#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "BenchInstall.h"
#include "Median.h"
#include "QtPlatform.h"
#include "VornaApp.h"

namespace {

int RunChild(int argc, char** argv, const QString& appPath)
{
    QElapsedTimer sinceMain;
    sinceMain.start();
    QApplication app(argc, argv);
    QtPlatform platform;
    QDir::setCurrent(appPath);
    VornaApp vorna(platform);
    vorna.Main({appPath, false});
    app.processEvents();
    std::printf("%.3f\n", sinceMain.nsecsElapsed() / 1e6);
    std::fflush(stdout);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && QByteArray(argv[1]) == "--child")
        return RunChild(argc, argv, QString::fromLocal8Bit(argv[2]));

    BenchInstall install;
    const QString app = install.appPath();

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), install.root());

    std::vector<double> whole, inside;
    for (int run = 0; run < 21; ++run) {
        QProcess child;
        child.setProcessEnvironment(env);
        QElapsedTimer t;
        t.start();
        child.start(QString::fromLocal8Bit(argv[0]), {QStringLiteral("--child"), app});
        if (!child.waitForFinished(30000) || child.exitCode() != 0) {
            std::fprintf(stderr, "child failed: %s\n", child.readAllStandardError().constData());
            return 1;
        }
        whole.push_back(t.nsecsElapsed() / 1e6);
        inside.push_back(child.readAllStandardOutput().trimmed().toDouble());
    }
    std::printf("start to main window ready, splash wait left out, offscreen, 21 runs\n");
    std::printf("  whole process median %.1f ms (target < 100 ms)\n", Median(whole));
    std::printf("  from main() to window shown median %.1f ms\n", Median(inside));
    return 0;
}
