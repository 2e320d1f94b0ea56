// Opening a project at its model's limits: MaxTelNo contacts each in several groups,
// 100 groups, 64 zones with every text at its limit. Prints the median of repeated
// opens (copy to the working copy, four tables, model lookup, recent list) and closes.
#include <cstdio>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "ADOUtil.h"
#include "BenchInstall.h"
#include "FileUtil.h"
#include "HeadlessPlatform.h"
#include "LimitsProject.h"
#include "Median.h"
#include "ProjectFiles.h"
#include "ProjectView.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

int main()
{
    BenchInstall install;
    const QString app = install.appPath();
    QDir::setCurrent(app);

    HeadlessPlatform platform;
    VORNAGlobal g(platform);
    InitApplication(g, app);

    const QString path = QDir(install.root()).filePath(QStringLiteral("Project/Limits.cmb"));
    MakeLimitsProject(g, app, path);

    std::vector<double> opens, closes;
    for (int run = 0; run < 31; ++run) {
        QElapsedTimer t;
        t.start();
        OpenProject(g, path);
        opens.push_back(t.nsecsElapsed() / 1e6);
        t.restart();
        CloseProject(g);
        closes.push_back(t.nsecsElapsed() / 1e6);
    }
    std::printf("open project at limits: %d contacts x %d groups, %d groups, 64 zones, %lld bytes\n",
        g.project.MaxTelNo, GroupsPerContact, GroupCount, static_cast<long long>(QFileInfo(path).size()));
    std::printf("  open  median %.2f ms (target < 50 ms), min %.2f ms\n", Median(opens),
        *std::min_element(opens.begin(), opens.end()));
    std::printf("  close median %.2f ms\n", Median(closes));
    return 0;
}
