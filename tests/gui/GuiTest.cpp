#include <array>
#include <functional>
#include <stdexcept>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTreeView>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "MainWindowView.h"
#include "NodeListModel.h"
#include "ProjectTreeModel.h"
#include "QtPlatform.h"
#include "ScriptedPlatform.h"
#include "SplashView.h"
#include "TestFolder.h"
#include "UnhandledError.h"
#include "VornaApp.h"
#include "VornaApplication.h"
#include "frmMain.h"

namespace {

// An object whose event handler fails as the program's handlers do.
class FailingObject : public QObject
{
public:
    std::function<void()> fail;
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User)
            fail();
        return QObject::event(event);
    }
};

QStringList visibleActions(const QMenu* menu)
{
    QStringList names;
    for (const QAction* a : menu->actions())
        if (a->isVisible())
            names << a->objectName();
    return names;
}

} // namespace

using GuiStart = VornaWindowTest;

TEST_F(GuiStart, TheProgramStartsWithItsMainWindowShowingNoProject)
{
    QCoreApplication::processEvents();

    MainWindowView* window = vorna.mainView();
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(platform.existingView(QStringLiteral("frmSplash"))->widget()->isVisible());
    EXPECT_EQ(window->windowTitle(), vorna.mainForm.Caption);
    EXPECT_EQ(window->size(), QSize(720, 460)) << "10800 x 6900 twips from an empty settings store";

    const auto* status = window->findChild<QStatusBar*>(QStringLiteral("sbStatusBar"));
    ASSERT_NE(status, nullptr);
    EXPECT_TRUE(status->isVisible());
    for (const char* key : {"Status", "ProjName", "ConnectStatus"}) {
        const auto* label = status->findChild<QLabel*>(QString::fromLatin1(key));
        ASSERT_NE(label, nullptr) << key;
        EXPECT_EQ(label->text(), vorna.mainForm.panel(QString::fromLatin1(key)).Text) << key;
    }

    const auto* file = window->menuBar()->findChild<QMenu*>(QStringLiteral("mnuFile"));
    ASSERT_NE(file, nullptr);
    // Opening the menu runs its set-up: no project, so no saving and no recent files.
    QMetaObject::invokeMethod(const_cast<QMenu*>(file), "aboutToShow");
    EXPECT_EQ(visibleActions(file),
        QStringList({"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileSaveAs", "mnuFileBar0",
            "mnuFileBasic", "mnuFileBar1", "mnuFileBar2", "mnuFileExit"}));
    for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "mnuFileBasic"})
        EXPECT_FALSE(window->findChild<QAction*>(QString::fromLatin1(name))->isEnabled()) << name;
    // An entry with a key shows it after its caption.
    EXPECT_EQ(window->findChild<QAction*>(QStringLiteral("mnuFileNew"))->text(),
        vorna.mainForm.menu(QStringLiteral("mnuFileNew")).Caption + QStringLiteral("\tCtrl+N"));
}

TEST(GuiAdapters, TheTreeAndListStaySoundItemModelsThroughRebuilds)
{
    guiApp();
    QtPlatform platform;
    VORNAGlobal g(platform);
    frmMain main(g);
    ProjectTreeModel tree(main.tvProjectContent);
    NodeListModel list(main.lvNodeContent);
    QAbstractItemModelTester treeTester(&tree, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QAbstractItemModelTester listTester(&list, QAbstractItemModelTester::FailureReportingMode::Fatal);

    main.tvProjectContent.Nodes = {
        Node {-1, {}, QStringLiteral("專案(Site)"), QStringLiteral("Proj"), QStringLiteral("ProjName")},
        Node {0, QStringLiteral("Users"), QStringLiteral("連絡人"), QStringLiteral("UserName"),
            QStringLiteral("Users")},
        Node {1, {}, QStringLiteral("Ann"), QStringLiteral("UserName"), QStringLiteral("Users,Ann"),
            SystemColor::GrayText},
        Node {0, QStringLiteral("UserGroups"), QStringLiteral("群組"), QStringLiteral("UserGroups"),
            QStringLiteral("UserGroups")},
        Node {1, {}, QStringLiteral("Bob"), QStringLiteral("UserName"), QStringLiteral("Users,Bob"), 0},
    };
    main.lvNodeContent.ColumnHeaders = {{QStringLiteral("項目"), 1500}, {QStringLiteral("項目說明"), 1500}};
    main.lvNodeContent.ListItems
        = {{QStringLiteral("連絡人"), {QStringLiteral("Fire\r\nUserGroup1")}}, {QStringLiteral("群組"), {}}};
    EXPECT_TRUE(tree.sync());
    EXPECT_TRUE(list.sync());

    const QModelIndex users = tree.index(0, 0, tree.index(0, 0));
    EXPECT_EQ(tree.rowCount(users), 2);
    EXPECT_EQ(tree.nodeOf(tree.index(1, 0, users)), 4);
    EXPECT_EQ(tree.parent(tree.indexOfNode(4)), users);
    EXPECT_TRUE(tree.indexOfNode(2).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(tree.indexOfNode(1).data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(list.index(1, 1).data().toString(), QString()) << "a missing sub-item reads empty";
    EXPECT_EQ(list.index(0, 1).data().toString(), QStringLiteral("Fire, UserGroup1"))
        << "a group list on one line";

    // An expanded flag is the view's business and does not reset the model.
    main.tvProjectContent.Nodes[1].Expanded = true;
    EXPECT_FALSE(tree.sync());

    main.mktvProjContent();
    main.mklvNodeContent();
    EXPECT_TRUE(tree.sync());
    EXPECT_TRUE(list.sync());
    EXPECT_EQ(tree.rowCount(), 0);
    EXPECT_EQ(list.columnCount(), 0);
}

TEST(GuiFilters, BecomeQtsNameFilters)
{
    const std::array<std::pair<const char*, const char*>, 5> cases = {{
        {"Quillbeacon設定檔案,(*.cmb)|*.cmb|所有檔案,(*.*)|*.*",
            "Quillbeacon設定檔案,(*.cmb) (*.cmb);;所有檔案,(*.*) (*.*)"},
        {"Quillbeacon設定檔案,(*.cbm)|*.cmb",
            "Quillbeacon設定檔案,(*.cbm) (*.cmb)"}, // caption unlike its pattern
        {"Databases|*.cmb;*.mir", "Databases (*.cmb *.mir)"},
        {"A|*.a|B", "A (*.a)"}, // a trailing caption is dropped
        {"", ""},
    }};
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(QtPlatform::QtFilter(QString::fromUtf8(filter)).toStdString(), std::string(expected))
            << filter;
}

namespace {

struct FailureCase
{
    const char* name;
    std::function<void()> fail;
    int flags;
    const char* text;
    const char* title;
};

class FailureReportTest : public ::testing::TestWithParam<FailureCase>
{ };

} // namespace

TEST_P(FailureReportTest, AFailingEventShowsOneBoxAndEndsWithStatus3)
{
    const FailureCase& c = GetParam();
    ScriptedPlatform platform;
    guiApp().setPlatform(&platform);
    FailingObject target;
    target.fail = c.fail;
    platform.expectBox(c.flags, QString::fromUtf8(c.text), QString::fromUtf8(c.title));

    QEvent event(QEvent::User);
    try {
        QCoreApplication::sendEvent(&target, &event);
        ADD_FAILURE() << "the process did not end";
    } catch (const ProcessEnded& e) {
        EXPECT_EQ(e.status, UnhandledErrorExitStatus);
    }
    guiApp().setPlatform(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Failures, FailureReportTest,
    ::testing::Values(
        FailureCase {"ProgramStop",
            [] { throw UnhandledError(QStringLiteral("GetFname - VBUtil"), QStringLiteral("VBUtil"), 17); },
            17, "GetFname - VBUtil", "VBUtil"},
        FailureCase {"UnhandledErrorWithDefaults",
            [] { throw UnhandledError(QStringLiteral("Subscript out of range")); }, 16,
            "Subscript out of range", "VORNA"},
        FailureCase {"RuntimeFailure", [] { throw std::length_error("vector too long"); }, 16,
            "VORNA stopped: vector too long", "VORNA"}),
    [](const auto& info) { return std::string(info.param.name); });
