#pragma once

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "ADOUtil.h"
#include "ProjectFiles.h"
#include "ProjectRows.h"
#include "RecordingView.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"

// An installation in a temporary folder, the scripted platform and the shared state, with
// no window yet. The locale is Traditional Chinese, so that the profile's AUTO rule picks
// the original language and every text is the default at its call site.
class InstallationTest : public ::testing::Test
{
protected:
    InstallationTest() { platform.localeName = QStringLiteral("zh_TW"); }

    void start() { InitApplication(g, folder.appPath()); }

    QString projectPath(const QString& fileName) const
    {
        return QDir(folder.projectDir()).filePath(fileName);
    }

    // File New answered with the given file, in the sibling Project folder.
    QString newProject(const QString& fileName = QStringLiteral("Project1.cmb"))
    {
        const QString path = projectPath(fileName);
        platform.expectOpenDialog(path);
        NewProject(g);
        return path;
    }

    // An edit as the editors make it: a row stored, and the project marked modified.
    void addGroup(const QString& name)
    {
        AddGroupRow(g.project, name);
        g.project.IsProjectModified = true;
    }

    // One field of every row of a table in a closed database file.
    QStringList column(const QString& dbPath, const QString& table, const QString& field)
    {
        Connection conn = OpenMDBConn(platform, dbPath, {}, {});
        Recordset rs = OpenRecordset(conn, table, false);
        EXPECT_EQ(rs.State(), 1) << "cannot open " << table.toStdString() << " in " << dbPath.toStdString();
        const QStringList values = rs.State() == 1 ? Column(rs, field) : QStringList();
        if (rs.State() == 1)
            rs.Close();
        conn.Close();
        return values;
    }

    TestFolder folder;
    ScriptedPlatform platform;
    VORNAGlobal g {platform};
};

// The same with a recording window in place of the main window.
class CoreTest : public InstallationTest
{
protected:
    CoreTest() { g.setView(&view); }

    RecordingView view;
};

inline QString SavePrompt(const QString& name)
{
    return QStringLiteral("您要將變更儲存到專案[") + name + QStringLiteral("]?");
}

inline const QString SaveTitle = QStringLiteral("是否儲存專案");
