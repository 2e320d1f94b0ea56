#pragma once

// A project at its model's limits: MaxTelNo contacts each in several groups, 100 groups,
// 64 zones with every text at its limit, written into the open project.
#include <QDir>
#include <QStringList>

#include "ADOUtil.h"
#include "FileUtil.h"
#include "ProjectFiles.h"
#include "VORNAGlobal.h"

inline constexpr int GroupCount = 100;
inline constexpr int GroupsPerContact = 3;

inline void FillLimitsProject(VORNAGlobal& g)
{
    // The template's UserGroup1 is the first of them.
    for (int i = 2; i <= GroupCount; ++i) {
        g.project.rsUserGroups.AddNew();
        g.project.rsUserGroups.setField(QStringLiteral("GroupName"), QStringLiteral("UserGroup%1").arg(i));
        g.project.rsUserGroups.setField(
            QStringLiteral("GroupDsc"), QStringLiteral("Shift %1 of the night watch").arg(i));
    }
    g.project.rsUserGroups.Update();
    for (int i = 1; i <= g.project.MaxTelNo; ++i) {
        QStringList groups;
        // Every contact is in UserGroup1, the group the editing benchmark renames and deletes.
        groups << QStringLiteral("UserGroup1");
        for (int k = 1; k < GroupsPerContact; ++k)
            groups << QStringLiteral("UserGroup%1").arg((i + k * 17) % (GroupCount - 1) + 2);
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

// A project at the limits saved as path, from the template in the program folder, and closed.
inline void MakeLimitsProject(VORNAGlobal& g, const QString& appPath, const QString& path)
{
    FileCopy(QDir(appPath).filePath(QStringLiteral("RM64.mdb")), path);
    OpenProject(g, path);
    FillLimitsProject(g);
    g.project.IsProjectModified = false;
    SaveProject(g, true, false, false);
    CloseProject(g);
}
