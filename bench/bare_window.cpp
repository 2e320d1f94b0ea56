// The floor under the program's cold start: a plain Qt Widgets main window with the program's
// menu bar, a tree, a list and a status bar, and nothing of VORNA behind it. The menu captions
// come from a file that startup_bench writes from the program's own menu bar: a line "M title"
// starts a menu, "I text" is an item and "S" a separator. Exits as soon as the window is
// shown, after printing the milliseconds from main() to that moment.
#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QSplitter>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTreeView>

namespace {

void AddMenus(QMenuBar* bar, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QMenu* menu = nullptr;
    for (const QByteArray& raw : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(raw);
        if (line.startsWith(QLatin1String("M ")))
            menu = bar->addMenu(line.mid(2));
        else if (menu && line.startsWith(QLatin1String("I ")))
            menu->addAction(line.mid(2));
        else if (menu && line == QLatin1String("S"))
            menu->addSeparator();
    }
}

} // namespace

int main(int argc, char** argv)
{
    QElapsedTimer sinceMain;
    sinceMain.start();
    QApplication app(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("VORNA"));
    AddMenus(window.menuBar(), argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());

    QStandardItemModel treeModel;
    treeModel.appendRow(new QStandardItem(QStringLiteral("Project")));
    QStandardItemModel listModel(0, 2);
    auto* splitter = new QSplitter(&window);
    auto* tree = new QTreeView(splitter);
    tree->setHeaderHidden(true);
    tree->setModel(&treeModel);
    auto* list = new QTreeView(splitter);
    list->setRootIsDecorated(false);
    list->setModel(&listModel);
    window.setCentralWidget(splitter);
    for (const char* text : {"Status", "Project", "Offline"})
        window.statusBar()->addWidget(new QLabel(QString::fromLatin1(text)), 1);

    window.resize(720, 460);
    window.show();
    app.processEvents();
    std::printf("%.3f\n", sinceMain.nsecsElapsed() / 1e6);
    std::fflush(stdout);
    return 0;
}
