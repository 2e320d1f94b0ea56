#pragma once

#include <QDir>

#include <gtest/gtest.h>

#include "ADOUtil.h"
#include "ProjectFiles.h"
#include "RecordingView.h"
#include "ScriptedDialogs.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

inline const QString CRLF = QStringLiteral("\r\n");

// A new project made from the shipped template (group "UserGroup1", 64 empty zones), with
// the scripted platform and dialogs and a recording window whose tree holds the branches.
// The locale picks the original language, so every text is the default at its call site.
class ModelTest : public ::testing::Test
{
public:
    ModelTest()
    {
        platform.localeName = QStringLiteral("zh_TW");
        g.setView(&view);
        g.setDialogs(&dialogs);
        InitApplication(g, folder.appPath());
        platform.expectOpenDialog(QDir(folder.projectDir()).filePath(QStringLiteral("Project1.cmb")));
        NewProject(g);
        view.statusHistory.clear();
        view.pointerHistory.clear();
        view.seedBranches();
        view.addNode(2, {}, QStringLiteral("UserGroup1"), QStringLiteral("UserGroups"),
            QStringLiteral("UserGroups,UserGroup1"));
    }

    ProjectState& p() { return g.project; }

    void addGroup(const QString& name)
    {
        p().rsUserGroups.AddNew();
        p().rsUserGroups.setField(QStringLiteral("GroupName"), name);
        p().rsUserGroups.setField(QStringLiteral("GroupDsc"), QString());
        p().rsUserGroups.Update();
    }

    void addUser(const QString& name, const QString& groupList, const QString& phone = QStringLiteral("0912"),
        bool disabled = false)
    {
        p().rsUsers.AddNew();
        p().rsUsers.setField(QStringLiteral("UserName"), name);
        p().rsUsers.setField(QStringLiteral("PhoneNumber"), phone);
        p().rsUsers.setField(QStringLiteral("UserDsc"), QString());
        p().rsUsers.setField(QStringLiteral("GroupName"), groupList);
        p().rsUsers.setField(QStringLiteral("IsDisable"), disabled);
        p().rsUsers.Update();
    }

    void setZoneTarget(int zoneNo, const QString& target, const QString& zoneName = QString())
    {
        ASSERT_TRUE(FindRecord(p().rsZones, QStringLiteral("ZoneNo"), QString::number(zoneNo), false));
        p().rsZones.setField(QStringLiteral("GroupName"), target);
        p().rsZones.setField(QStringLiteral("ZoneName"), zoneName);
        p().rsZones.Update();
    }

    // One field of every row, in table order, read on a clone.
    QStringList column(Recordset& rs, const QString& field)
    {
        QStringList values;
        if (rs.RecordCount() == 0)
            return values;
        Recordset clone = rs.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext())
            values << NullToEmpty(clone.Fields(field));
        clone.Close();
        return values;
    }

    QString field(Recordset& rs, const QString& keyField, const QString& key, const QString& wanted)
    {
        Recordset clone = rs.Clone();
        const bool found = FindRecord(clone, keyField, key, false);
        EXPECT_TRUE(found) << key.toStdString();
        const QString value = found ? NullToEmpty(clone.Fields(wanted)) : QString();
        clone.Close();
        return value;
    }

    TestFolder folder;
    ScriptedPlatform platform;
    ScriptedDialogs dialogs;
    RecordingView view;
    VORNAGlobal g {platform};
};
