// Cold start of the program to its main window ready, with the splash wait left out,
// against the floor of a bare Qt Widgets window with the same menu captions. The driver
// starts itself again as a child process many times, each time followed by the bare window;
// each child runs offscreen and exits as soon as its main window is shown. Prints the
// medians of the whole process lifetime and of the time from main() to the window shown,
// and the ratio of the two whole-process medians.
#include <cstdio>
#include <optional>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>
#include <QTemporaryDir>

#include "BenchInstall.h"
#include "MainWindowView.h"
#include "Median.h"
#include "QtPlatform.h"
#include "VornaApp.h"

namespace {

// The program's menu bar as the bare window reads it: "M title", "I text", "S".
QByteArray MenuLines(const QMenuBar* bar)
{
    QByteArray lines;
    for (const QAction* top : bar->actions()) {
        if (!top->menu() || !top->isVisible())
            continue;
        lines += "M " + top->text().toUtf8() + '\n';
        for (const QAction* a : top->menu()->actions())
            lines += a->isSeparator() ? QByteArray("S\n") : "I " + a->text().toUtf8() + '\n';
    }
    return lines;
}

// With a menu file, the menus are written there once the window is shown, outside the timing.
int RunChild(int argc, char** argv, const QString& appPath, const QString& menuFile)
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
    if (!menuFile.isEmpty()) {
        QFile file(menuFile);
        if (!file.open(QIODevice::WriteOnly) || !vorna.mainView())
            return 1;
        file.write(MenuLines(vorna.mainView()->menuBar()));
    }
    return 0;
}

struct Run
{
    double whole = 0;  // the process, as the driver sees it
    double inside = 0; // from main() to the window shown, as the child reports it
};

std::optional<Run> TimeChild(const QProcessEnvironment& env, const QString& program, const QStringList& args)
{
    QProcess child;
    child.setProcessEnvironment(env);
    QElapsedTimer t;
    t.start();
    child.start(program, args);
    if (!child.waitForFinished(30000) || child.exitCode() != 0) {
        std::fprintf(
            stderr, "%s failed: %s\n", qPrintable(program), child.readAllStandardError().constData());
        return std::nullopt;
    }
    return Run {t.nsecsElapsed() / 1e6, child.readAllStandardOutput().trimmed().toDouble()};
}

} // namespace

int main(int argc, char** argv)
{
    if (argc >= 3 && QByteArray(argv[1]) == "--child")
        return RunChild(argc, argv, QString::fromLocal8Bit(argv[2]),
            argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString());

    BenchInstall install;
    const QString app = install.appPath();
    const QString self = QString::fromLocal8Bit(argv[0]);
    const QString bare = QFileInfo(self).dir().filePath(QStringLiteral("bare_window"));
    const QString menus = QDir(install.root()).filePath(QStringLiteral("menus.txt"));

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), install.root());
    // Traditional Chinese, so that both windows show the original captions.
    env.insert(QStringLiteral("LANG"), QStringLiteral("zh_TW.UTF-8"));
    env.insert(QStringLiteral("LC_ALL"), QStringLiteral("zh_TW.UTF-8"));

    // A first start, not counted, writes the menu captions for the bare window.
    if (!TimeChild(env, self, {QStringLiteral("--child"), app, menus}))
        return 1;

    constexpr int Runs = 21;
    std::vector<double> whole, inside, bareWhole, bareInside;
    for (int run = 0; run < Runs; ++run) {
        const auto program = TimeChild(env, self, {QStringLiteral("--child"), app});
        const auto floor = TimeChild(env, bare, {menus});
        if (!program || !floor)
            return 1;
        whole.push_back(program->whole);
        inside.push_back(program->inside);
        bareWhole.push_back(floor->whole);
        bareInside.push_back(floor->inside);
    }
    std::printf(
        "start to main window ready, splash wait left out, offscreen, %d runs of each, in turn\n", Runs);
    std::printf(
        "  VORNA: whole process median %.1f ms (target < 100 ms), from main() to window shown %.1f ms\n",
        Median(whole), Median(inside));
    std::printf("  bare Qt window with the same menus: whole process median %.1f ms, from main() %.1f ms\n",
        Median(bareWhole), Median(bareInside));
    std::printf(
        "  VORNA over the bare window, whole process medians: %.2f\n", Median(whole) / Median(bareWhole));
    return 0;
}
