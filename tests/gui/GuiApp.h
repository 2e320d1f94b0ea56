#pragma once

#include <functional>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimer>

#include <gtest/gtest.h>

#include "ProjectFiles.h"
#include "QtPlatform.h"
#include "TestFolder.h"
#include "VORNAUtil.h"
#include "VornaApp.h"
#include "VornaApplication.h"

// The one application object of the GUI tests, made on first use.
inline VornaApplication& guiApp()
{
    static int argc = 1;
    static char name[] = "gui_tests";
    static char* argv[] = {name, nullptr};
    // Never destroyed: the SQL driver's own clean-up at exit must not run after it.
    static VornaApplication* instance = new VornaApplication(argc, argv);
    return *instance;
}

// The named child widget of a window, failing the test when there is none.
template<class W> W* child(QWidget* window, const char* name)
{
    auto* w = window->findChild<W*>(QString::fromLatin1(name));
    EXPECT_NE(w, nullptr) << name;
    return w;
}

// Plays the user at the next modal window: waits for it to come up, then hands it over.
// The action must close it, or the test hangs where a user would be left looking at it.
inline void atNextModal(std::function<void(QWidget*)> action)
{
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        poll->stop();
        poll->deleteLater();
        action(modal);
    });
    poll->start();
}

// The program started in a fresh installation, its main window shown, the splash's wait skipped.
class VornaWindowTest : public ::testing::Test
{
protected:
    VornaWindowTest()
        : platform(QDir(folder.root()).filePath(QStringLiteral("settings.ini")))
        , vorna(platform)
    {
        guiApp();
        vorna.Main({folder.appPath(), false});
    }
    ~VornaWindowTest() override { InstallToolkitTranslation(QStringLiteral("English")); }

    // Opens a copy of the shipped template as the project Site.cmb.
    void openTemplateProject()
    {
        const QString cmb = QDir(folder.projectDir()).filePath(QStringLiteral("Site.cmb"));
        ASSERT_TRUE(QFile::copy(folder.path(QStringLiteral("RM64.mdb")), cmb));
        ASSERT_TRUE(OpenProject(vorna.g, cmb));
    }
    // Opens the editor of the tree node with the tag, as a double click does, the user at the
    // dialog played by action. The tree is rebuilt first, with the rows a test has written.
    void openEditor(const QString& tag, std::function<void(QWidget*)> action)
    {
        vorna.mainForm.RefreshFormObj();
        atNextModal(std::move(action));
        vorna.mainForm.selectNode(FindNodeByTag(vorna.mainForm, tag));
        vorna.mainForm.tvProjectContent_DblClick();
    }

    TestFolder folder;
    QtPlatform platform;
    VornaApp vorna;
};
