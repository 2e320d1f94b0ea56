#pragma once

#include <QDir>

#include <gtest/gtest.h>

#include "ProjectFiles.h"
#include "ProjectRows.h"
#include "ScriptedPlatform.h"
#include "TestFolder.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmMain.h"

// The window model on the scripted platform, with no installation behind it. The locale
// picks the original language, so every text is the default at its call site.
class MainWindowTest : public ::testing::Test
{
protected:
    MainWindowTest()
    {
        platform.localeName = QStringLiteral("zh_TW");
        g.setView(&main);
    }

    ScriptedPlatform platform;
    VORNAGlobal g {platform};
    frmMain main {g};
};

// The same over an installation in a temporary folder, started and with a new project open.
class ProjectWindowTest : public ::testing::Test
{
protected:
    ProjectWindowTest()
    {
        platform.localeName = QStringLiteral("zh_TW");
        g.setView(&main);
        InitApplication(g, folder.appPath());
    }

    QString projectPath(const QString& fileName) const
    {
        return QDir(folder.projectDir()).filePath(fileName);
    }

    QString newProject(const QString& fileName = QStringLiteral("Project1.cmb"))
    {
        const QString path = projectPath(fileName);
        platform.expectOpenDialog(path);
        main.mnuFileNew_Click();
        return path;
    }

    // An edit as the editors make it: a row stored, and the project marked modified.
    void addGroup(const QString& name)
    {
        AddGroupRow(g.project, name);
        g.project.IsProjectModified = true;
    }

    TestFolder folder;
    ScriptedPlatform platform;
    VORNAGlobal g {platform};
    frmMain main {g};
};

inline QString SavePrompt(const QString& name)
{
    return QStringLiteral("您要將變更儲存到專案[") + name + QStringLiteral("]?");
}

inline const QString SaveTitle = QStringLiteral("是否儲存專案");
