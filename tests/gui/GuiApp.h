#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

#include "MainWindowView.h"
#include "ProjectFiles.h"
#include "ProjectTreeModel.h"
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

// Plays the user at each modal window in turn, in the order given: a window is handed over
// once, when it comes up, and its action must close it, or the test hangs where a user would
// be left looking at it.
inline void atModals(std::vector<std::function<void(QWidget*)>> actions)
{
    struct Play
    {
        std::vector<std::function<void(QWidget*)>> actions;
        size_t next = 0;
        QPointer<QWidget> handled {};
    };
    auto play = std::make_shared<Play>(Play {std::move(actions)});
    auto* poll = new QTimer;
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, [poll, play] {
        QWidget* modal = QApplication::activeModalWidget();
        if (play->handled && !play->handled->isVisible())
            play->handled = nullptr;
        if (!modal || !modal->isVisible() || modal == play->handled)
            return;
        play->handled = modal;
        // Stopped before the last action runs: a window that it opens belongs to the player
        // that the action itself starts.
        if (play->next + 1 == play->actions.size()) {
            poll->stop();
            poll->deleteLater();
        }
        play->actions[play->next++](modal);
    });
    poll->start();
}

inline void atNextModal(std::function<void(QWidget*)> action)
{
    atModals({std::move(action)});
}

// The program started in a fresh installation, its main window shown, the splash's wait skipped.
class VornaWindowTest : public ::testing::Test
{
protected:
    VornaWindowTest()
        : platform(QDir(folder.root()).filePath("settings.ini"))
        , vorna(platform)
    {
        guiApp();
        vorna.Main({folder.appPath(), false});
    }
    ~VornaWindowTest() override { InstallToolkitTranslation("English"); }

    // Opens the menu, which sets its entries up, and chooses the entry, which must be enabled.
    void chooseMenu(const char* menu, const char* entry)
    {
        QMetaObject::invokeMethod(child<QMenu>(vorna.mainView(), menu), "aboutToShow");
        auto* action = child<QAction>(vorna.mainView(), entry);
        ASSERT_TRUE(action && action->isEnabled()) << entry;
        action->trigger();
    }
    // Opens a copy of the shipped template as the project Site.cmb.
    void openTemplateProject()
    {
        const QString cmb = QDir(folder.projectDir()).filePath("Site.cmb");
        ASSERT_TRUE(QFile::copy(folder.path("RM64.mdb"), cmb));
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

// The started program with the template project open (one group, no contact, zones 0 to 63),
// its tree and list at hand.
class ProjectWindowTest : public VornaWindowTest
{
protected:
    ProjectWindowTest() { openTemplateProject(); }

    QModelIndex node(const QString& tag) const
    {
        return window->treeModel()->indexOfNode(FindNodeByTag(vorna.mainForm, tag));
    }
    // A press and release of the button on the node; the menu that it pops up, if any.
    QMenu* click(Qt::MouseButton button, const QString& tag)
    {
        const QPoint at = tree->visualRect(node(tag)).center();
        QTest::mouseClick(tree->viewport(), button, {}, at);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }

    MainWindowView* window = vorna.mainView();
    QTreeView* tree = child<QTreeView>(window, "tvProjectContent");
    QTreeView* list = child<QTreeView>(window, "lvNodeContent");
};
