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
#include "Median.h"
#include "ProjectFiles.h"
#include "ProjectView.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

namespace {

const int GroupCount = 100;
const int GroupsPerContact = 3;

void FillProject(VORNAGlobal& g)
{
    for (int i = 1; i <= GroupCount; ++i) {
        g.project.rsUserGroups.AddNew();
        g.project.rsUserGroups.setField(QStringLiteral("GroupName"), QStringLiteral("UserGroup%1").arg(i));
        g.project.rsUserGroups.setField(
            QStringLiteral("GroupDsc"), QStringLiteral("Shift %1 of the night watch").arg(i));
    }
    g.project.rsUserGroups.Update();
    for (int i = 1; i <= g.project.MaxTelNo; ++i) {
        QStringList groups;
        for (int k = 0; k < GroupsPerContact; ++k)
            groups << QStringLiteral("UserGroup%1").arg((i + k * 17) % GroupCount + 1);
        g.project.rsUsers.AddNew();
        g.project.rsUsers.setField(QStringLiteral("UserName"), QStringLiteral("User%1").arg(i));
        g.project.rsUsers.setField(
            QStringLiteral("PhoneNumber"), QStringLiteral("+8869%1").arg(i, 14, 10, QLatin1Char('0')));
        g.project.rsUsers.setField(QStringLiteral("UserDsc"), QStringLiteral("Contact number %1").arg(i));
        g.project.rsUsers.setField(QStringLiteral("GroupName"), groups.join(QStringLiteral("\r\n")));
        g.project.rsUsers.setField(QStringLiteral("IsDisable"), false);
    }
    g.project.rsUsers.Update();
    g.project.rsZones.MoveFirst();
    while (!g.project.rsZones.IsEOF()) {
        g.project.rsZones.setField(QStringLiteral("ZoneName"), QString(40, QChar(u'區')));
        g.project.rsZones.setField(QStringLiteral("ZoneDsc"), QStringLiteral("Door contact, ground floor"));
        g.project.rsZones.setField(QStringLiteral("GroupName"), QStringLiteral("UserGroup7"));
        g.project.rsZones.setField(QStringLiteral("AlarmSMS"), QString(70, QChar(u'警')));
        g.project.rsZones.setField(QStringLiteral("ResetSMS"), QString(70, QChar(u'復')));
        g.project.rsZones.Update();
        g.project.rsZones.MoveNext();
    }
    g.project.rsBasic.setField(QStringLiteral("IsUnicode"), true);
    g.project.rsBasic.Update();
}

} // namespace

int main()
{
    BenchInstall install;
    const QString app = install.appPath();
    QDir::setCurrent(app);

    HeadlessPlatform platform;
    VORNAGlobal g(platform);
    InitApplication(g, app);

    const QString path = QDir(install.root()).filePath(QStringLiteral("Project/Limits.cmb"));
    FileCopy(QDir(app).filePath(QStringLiteral("RM64.mdb")), path);
    OpenProject(g, path);
    FillProject(g);
    g.project.IsProjectModified = false;
    SaveProject(g, true, false, false);
    CloseProject(g);

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
