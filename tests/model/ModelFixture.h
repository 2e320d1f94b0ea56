#pragma once

#include <QDir>

#include <gtest/gtest.h>

#include "ADOUtil.h"
#include "ProjectFiles.h"
#include "ProjectRows.h"
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

    void addGroup(const QString& name) { AddGroupRow(p(), name); }
    void addUser(const QString& name, const QString& groupList, const QString& phone = QStringLiteral("0912"),
        bool disabled = false)
    {
        AddUserRow(p(), name, groupList, phone, disabled);
    }
    void setZoneTarget(int zoneNo, const QString& target, const QString& zoneName = QString())
    {
        SetZoneRow(p(), zoneNo, zoneName, target);
    }
    QStringList column(Recordset& rs, const QString& field) { return Column(rs, field); }

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
