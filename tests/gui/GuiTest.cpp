#include <algorithm>
#include <array>
#include <stdexcept>

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolTip>

#include "GuiApp.h"
#include "NodeListModel.h"
#include "ProjectRows.h"
#include "ScriptedPlatform.h"
#include "SplashView.h"
#include "Twips.h"
#include "UnhandledError.h"
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

} // namespace

using GuiStart = VornaWindowTest;

// The main window shows the model's captions; opening a menu runs its set-up (no project, so
// no saving and no recent files), and an entry with a key shows it after its caption.
TEST_F(GuiStart, TheProgramStartsWithItsMainWindowShowingNoProject)
{
    QCoreApplication::processEvents();
    MainWindowView* window = vorna.mainView();
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(platform.existingView("frmSplash")->widget()->isVisible());
    EXPECT_EQ(window->windowTitle(), vorna.mainForm.Caption);
    EXPECT_EQ(window->size(), QSize(720, 460)) << "10800 x 6900 twips from an empty settings store";
    EXPECT_TRUE(child<QStatusBar>(window, "sbStatusBar")->isVisible());
    for (const char* key : {"Status", "ProjName", "ConnectStatus"})
        EXPECT_EQ(child<QLabel>(window, key)->text(), vorna.mainForm.panel(key).Text) << key;

    auto* file = child<QMenu>(window, "mnuFile");
    QMetaObject::invokeMethod(file, "aboutToShow");
    QStringList shown;
    for (const QAction* a : file->actions())
        if (a->isVisible())
            shown << a->objectName() + (a->isEnabled() ? "" : " (disabled)");
    EXPECT_EQ(shown.join(", "),
        "mnuFileNew, mnuFileOpen, mnuFileSave (disabled), mnuFileSaveAs (disabled), mnuFileBar0, "
        "mnuFileBasic (disabled), mnuFileBar1, mnuFileBar2, mnuFileExit");
    EXPECT_EQ(
        child<QAction>(window, "mnuFileNew")->text(), vorna.mainForm.menu("mnuFileNew").Caption + "\tCtrl+N");
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
        Node {-1, {}, "專案(Site)", "Proj", "ProjName"},
        Node {0, "Users", "連絡人", "UserName", "Users"},
        Node {1, {}, "Ann", "UserName", "Users,Ann", SystemColor::GrayText},
        Node {0, "UserGroups", "群組", "UserGroups", "UserGroups"},
        Node {1, {}, "Bob", "UserName", "Users,Bob", 0},
    };
    main.lvNodeContent.ColumnHeaders = {{"項目", 1500}, {"項目說明", 1500}};
    main.lvNodeContent.ListItems = {{"連絡人", {"Fire\r\nUserGroup1"}}, {"群組", {}}};
    EXPECT_TRUE(tree.sync());
    EXPECT_TRUE(list.sync());

    const QModelIndex users = tree.index(0, 0, tree.index(0, 0));
    EXPECT_EQ(tree.rowCount(users), 2);
    EXPECT_EQ(tree.nodeOf(tree.index(1, 0, users)), 4);
    EXPECT_EQ(tree.parent(tree.indexOfNode(4)), users);
    EXPECT_EQ(list.index(1, 1).data().toString(), QString()) << "a missing sub-item reads empty";
    EXPECT_EQ(list.index(0, 1).data().toString(), "Fire, UserGroup1") << "a group list on one line";

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

struct StartLineCase
{
    QStringList arguments;
    std::map<int, QString> portMap;
    bool refused;
};

// The window's one option maps ports for the run; anything else is refused before the start.
TEST(GuiStartLine, PortMapsAreTakenAndAnythingElseRefused)
{
    const StartLineCase cases[] = {
        {{"VORNA"}, {}, false},
        {{"VORNA", "--port-map", "COM1=/tmp/dialler", "--port-map=com12=/dev/pts/4"},
            {{1, "/tmp/dialler"}, {12, "/dev/pts/4"}}, false},
        {{"VORNA", "--port-map", "COM0=/tmp/x"}, {}, true},
        {{"VORNA", "--port-map", "COM1=dialler"}, {}, true},
        {{"VORNA", "--port-map", "COM256=/tmp/x"}, {}, true},
        {{"VORNA", "--verbose"}, {}, true},
        {{"VORNA", "project.cmb"}, {}, true},
    };
    for (const StartLineCase& c : cases) {
        StartOptions options;
        const QString error = ParseStartOptions(c.arguments, options);
        EXPECT_EQ(!error.isEmpty(), c.refused) << c.arguments.join(' ').toStdString();
        EXPECT_EQ(options.portMap, c.portMap) << c.arguments.join(' ').toStdString();
    }
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

// Whatever fails in an event handler shows one box and ends the program with status 3.
TEST(GuiFailures, AFailingEventShowsOneBoxAndEndsWithStatus3)
{
    struct Case
    {
        std::function<void()> fail;
        int flags;
        const char* text;
        const char* title;
    };
    const Case cases[] = {
        {[] { throw UnhandledError("GetFname - VBUtil", "VBUtil", 17); }, 17, "GetFname - VBUtil", "VBUtil"},
        {[] { throw UnhandledError("Subscript out of range"); }, 16, "Subscript out of range", "VORNA"},
        {[] { throw std::length_error("vector too long"); }, 16, "VORNA stopped: vector too long", "VORNA"},
    };
    for (const Case& c : cases) {
        ScriptedPlatform platform;
        guiApp().setPlatform(&platform);
        FailingObject target;
        target.fail = c.fail;
        platform.expectBox(c.flags, c.text, c.title);
        QEvent event(QEvent::User);
        try {
            QCoreApplication::sendEvent(&target, &event);
            ADD_FAILURE() << "the process did not end: " << c.text;
        } catch (const ProcessEnded& e) {
            EXPECT_EQ(e.status, UnhandledErrorExitStatus);
        }
        guiApp().setPlatform(nullptr);
    }
}

namespace {

class MainWindowViewTest : public ProjectWindowTest
{
protected:
    // Keys pressed on a widget; the name of the dialog that they bring up, closed by Escape.
    QString keys(QWidget* widget, std::initializer_list<Qt::Key> keys, bool opens = false)
    {
        QString opened;
        if (opens)
            atNextModal([&opened](QWidget* dialog) {
                opened = dialog->objectName();
                QTest::keyClick(dialog, Qt::Key_Escape);
            });
        for (Qt::Key key : keys)
            QTest::keyClick(widget, key);
        return opened;
    }

    std::string caption() const
    {
        return child<QLabel>(window, "lbllvNodeContentCaption")->text().toStdString();
    }
};

} // namespace

// The list and its caption show the node that the user selected, by the mouse or by the keys,
// and Enter acts as a double click on a node and on a row; another button than the left one
// only points.
TEST_F(MainWindowViewTest, TheListFollowsTheTreeByMouseAndByKeys)
{
    click(Qt::LeftButton, "ProjName");
    EXPECT_EQ(caption(), "Data");
    click(Qt::RightButton, "Zones");
    EXPECT_EQ(caption(), "Data");
    EXPECT_EQ(tree->currentIndex(), node("ProjName")) << "the right button leaves the selection";

    keys(tree, {Qt::Key_Down});
    EXPECT_EQ(caption(), "Contacts");
    keys(tree, {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down});
    EXPECT_EQ(caption(), "Contact group: UserGroup1");
    EXPECT_EQ(keys(tree, {Qt::Key_Return}, true), "frmEditGroupList");
    keys(tree, {Qt::Key_End});
    EXPECT_EQ(caption(), "Alarm Zones");
    EXPECT_EQ(keys(list, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, true), "frmEditZoneList");
    EXPECT_EQ(vorna.mainForm.lvNodeContent.SelectedItem, 1);
    keys(tree, {Qt::Key_Home});
    EXPECT_EQ(caption(), "Data");
    // The project sheet's group row moves the tree to the groups as the model does, not as a user.
    EXPECT_EQ(keys(list, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}), "");
    EXPECT_EQ(caption(), "Contact Groups");
    EXPECT_EQ(tree->currentIndex(), node("UserGroups"));
}

// Disabled contacts and zones show in the palette's disabled text and the others in its
// text, which on a dark palette is no longer black.
TEST_F(MainWindowViewTest, NodesTakeTheirColoursFromThePalette)
{
    AddUserRow(vorna.g.project, "Ann", "UserGroup1");
    AddUserRow(vorna.g.project, "Bob", "UserGroup1", "0912", true);
    SetZoneRow(vorna.g.project, 5, "Hall", QString(), true);
    vorna.mainForm.mnuViewRefresh_Click();

    const QPalette light = QApplication::palette();
    QPalette dark = light;
    dark.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Text, QColor(0xf0, 0xf0, 0xf0));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x80, 0x80));
    QApplication::setPalette(dark);
    QCoreApplication::processEvents();
    QStringList seen;
    for (const char* tag : {"Users,Ann", "Users,Bob", "Zones,4", "Zones,5"}) {
        const QVariant foreground = node(tag).data(Qt::ForegroundRole);
        seen << QString("%1 %2").arg(tag,
            (foreground.isValid() ? foreground.value<QBrush>().color()
                                  : tree->palette().color(QPalette::Text))
                .name());
    }
    EXPECT_EQ(seen.join(", "), "Users,Ann #f0f0f0, Users,Bob #808080, Zones,4 #f0f0f0, Zones,5 #808080");
    QApplication::setPalette(light);
}

// The list's columns start at their widths, widened where a header would be cut (the zone
// list's last headers are), and a text that its column cuts shows whole in its tooltip.
TEST_F(MainWindowViewTest, TheListStartsAtItsColumnWidthsAndShowsACutTextInATooltip)
{
    SetZoneRow(vorna.g.project, 0, QString(60, u'W'), QString());
    click(Qt::LeftButton, "Zones");
    const auto& columns = vorna.mainForm.lvNodeContent.ColumnHeaders;
    ASSERT_EQ(list->model()->columnCount(), static_cast<int>(columns.size()));
    // Each column is as wide as drawn and as its header; the zone name's column widens for its
    // long text only up to twice its drawn width.
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const int design = Twips::toPixels(columns[i].Width);
        EXPECT_GE(list->header()->sectionSize(i), std::max(design, list->header()->sectionSizeHint(i))) << i;
        if (i == 1) {
            EXPECT_EQ(
                list->header()->sectionSize(i), std::max(2 * design, list->header()->sectionSizeHint(i)));
        }
    }

    const auto tooltipAt = [&](int row, int column) {
        const QRect cell = list->visualRect(list->model()->index(row, column));
        QHelpEvent help(QEvent::ToolTip, cell.center(), list->viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(list->viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tooltipAt(0, 0), QString()) << "a zone number fits";
    EXPECT_EQ(tooltipAt(0, 1), QString(60, u'W'));
}

// A node that a command selects inside a closed branch shows: the branch opens to it, the
// model learns that it is open, and the pane is wide enough for the name. A width that the
// user gives the pane by the splitter is the width it starts at in the next run.
TEST_F(MainWindowViewTest, ASelectedNodeShowsWholeAndThePaneKeepsTheWidthTheUserGives)
{
    ASSERT_FALSE(tree->isExpanded(node("UserGroups")));
    vorna.mainForm.selectNode(FindNodeByTag(vorna.mainForm, "UserGroups,UserGroup1"));
    window->refresh();
    const QModelIndex group = node("UserGroups,UserGroup1");
    EXPECT_EQ(tree->currentIndex(), group);
    EXPECT_TRUE(tree->isExpanded(node("UserGroups")));
    EXPECT_TRUE(vorna.mainForm.tvProjectContent.Nodes[FindNodeByTag(vorna.mainForm, "UserGroups")].Expanded);
    EXPECT_LT(tree->visualRect(group).x() + tree->iconSize().width()
            + tree->fontMetrics().horizontalAdvance("UserGroup1"),
        tree->viewport()->width());

    auto* grip = child<QWidget>(window, "imgSplitter");
    const int before = tree->width();
    QTest::mousePress(grip, Qt::LeftButton, {}, QPoint(1, 10));
    QTest::mouseMove(grip, QPoint(61, 10));
    QTest::mouseRelease(grip, Qt::LeftButton, {}, QPoint(61, 10));
    EXPECT_NEAR(tree->width(), before + 60, 1);

    QtPlatform nextPlatform(QDir(folder.root()).filePath("settings.ini"));
    VornaApp next(nextPlatform);
    next.Main({folder.appPath(), false});
    EXPECT_EQ(child<QTreeView>(next.mainView(), "tvProjectContent")->width(), tree->width());
}
