#include <algorithm>
#include <tuple>
#include <vector>

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "MainWindowView.h"
#include "ProjectFiles.h"
#include "ProjectRows.h"
#include "ProjectTreeModel.h"
#include "VBUtil.h"

namespace {

// Types over whatever the box holds, as a user who selects it all first.
void retype(QLineEdit* box, const QString& text)
{
    box->selectAll();
    QTest::keyClicks(box, text);
}

using SessionTest = VornaWindowTest;

} // namespace

// A short session in the real window, every dialog the real one: a new project, a group and a
// contact, a zone's texts, save, close, and back from the recent list with the same tree.
TEST_F(SessionTest, ANewProjectEditedInTheWindowComesBackWholeFromTheRecentList)
{
    MainWindowView* window = vorna.mainView();
    const auto choose = [&](const char* menu, const char* entry) { chooseMenu(menu, entry); };

    // The file dialog belongs to the window, shows each filter's caption once and proposes a
    // name that is free.
    atNextModal([&](QWidget* dialog) {
        EXPECT_EQ(dialog->parentWidget(), window);
        const auto* types = child<QComboBox>(dialog, "fileTypeCombo");
        QStringList filters;
        for (int i = 0; i < types->count(); ++i)
            filters << types->itemText(i);
        EXPECT_EQ(filters, QStringList({"Quillbeacon configuration files,(*.cmb)", "All files,(*.*)"}));
        auto* name = child<QLineEdit>(dialog, "fileNameEdit");
        EXPECT_EQ(name->text(), "Project1");
        retype(name, "Site.cmb");
        QTest::keyClick(name, Qt::Key_Return);
    });
    choose("mnuFile", "mnuFileNew");
    ASSERT_EQ(vorna.g.project.ProjectName, QStringLiteral("Site"));

    atNextModal([](QWidget* input) {
        atNextModal([](QWidget* editor) {
            QTest::keyClicks(child<QPlainTextEdit>(editor, "txtGroupDsc"), QStringLiteral("Brigade"));
            child<QPushButton>(editor, "cmdOK")->click();
        });
        auto* name = child<QLineEdit>(input, "txtKeyInString");
        retype(name, QStringLiteral("Fire"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    choose("mnuProj", "mnuProjAddGroupList");

    atNextModal([](QWidget* add) {
        atNextModal([](QWidget* editor) {
            QTest::keyClicks(child<QLineEdit>(editor, "txtTelNo"), QStringLiteral("0911222333"));
            child<QPushButton>(editor, "cmdOK")->click();
        });
        auto* name = child<QLineEdit>(add, "txtAddUserName");
        retype(name, QStringLiteral("Ann"));
        QTest::keyClick(name, Qt::Key_Return);
    });
    choose("mnuProj", "mnuProjAddTelList");

    const auto& nodes = vorna.mainForm.tvProjectContent.Nodes;
    int zone = -1;
    for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
        if (nodes[i].Tag == QLatin1String("Zones,3"))
            zone = i;
    ASSERT_GE(zone, 0);
    child<QTreeView>(window, "tvProjectContent")->setCurrentIndex(window->treeModel()->indexOfNode(zone));
    atNextModal([](QWidget* editor) {
        retype(child<QLineEdit>(editor, "txtZoneName"), QStringLiteral("Hall"));
        QTest::keyClicks(child<QPlainTextEdit>(editor, "txtAlarmSMS"), QStringLiteral("Fire in the hall"));
        child<QPushButton>(editor, "cmdOK")->click();
    });
    choose("mnuProj", "mnuProjEditZoneList");

    choose("mnuFile", "mnuFileSave");
    // The tree as the user sees it: each node under its parent, siblings in their order. Nodes
    // added while editing come last in the collection, those of a rebuilt tree in table order.
    const auto shown = [&] {
        const auto& all = vorna.mainForm.tvProjectContent.Nodes;
        std::vector<std::tuple<QString, QString, QString>> tree;
        for (const Node& n : all)
            tree.emplace_back(n.Parent < 0 ? QString() : all[n.Parent].Tag, n.Tag, n.Text);
        std::stable_sort(tree.begin(), tree.end(),
            [](const auto& a, const auto& b) { return std::get<0>(a) < std::get<0>(b); });
        return tree;
    };
    const auto before = shown();
    EXPECT_EQ(CloseProject(vorna.g), 0) << "saved: nothing to ask";
    EXPECT_TRUE(vorna.mainForm.tvProjectContent.Nodes.empty());

    choose("mnuFile", "mnuFileMRU(1)");
    EXPECT_EQ(shown(), before);
    ProjectState& p = vorna.g.project;
    EXPECT_EQ(Column(p.rsUsers, "PhoneNumber"), QStringList {"0911222333"});
    EXPECT_EQ(Column(p.rsUserGroups, "GroupDsc"), QStringList({"", "Brigade"}));
    EXPECT_EQ(Column(p.rsZones, "ZoneName").at(3), "Hall");
    EXPECT_EQ(Column(p.rsZones, "AlarmSMS").at(3), "Fire in the hall");
}
