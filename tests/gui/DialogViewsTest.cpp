#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTreeWidget>

#include "FormView.h"
#include "GuiApp.h"
#include "ProjectRows.h"
#include "VBUtil.h"
#include "frmComPort.h"
#include "frmDebug.h"

namespace {

// The message boxes that come up while act runs, each answered with Escape.
int boxesDuring(const std::function<void()>& act)
{
    int count = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&count] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++count;
            QTest::keyClick(box, Qt::Key_Escape);
        }
    });
    poll.start(10);
    act();
    return count;
}

using DialogViewsTest = ProjectWindowTest;

} // namespace

TEST_F(DialogViewsTest, ANumberTypedAndAGroupPickedInTheRealDialogsReachTheTableOnEnter)
{
    ProjectState& p = vorna.g.project;
    AddGroupRow(p, "B");
    AddUserRow(p, "Ann", "UserGroup1", QString());

    openEditor("Users,Ann", [&](QWidget* editor) {
        auto* number = child<QLineEdit>(editor, "txtTelNo");
        // Typed past the box's 20 characters.
        QTest::keyClicks(number, "+8869123456789012345678");
        atNextModal([&](QWidget* picker) {
            auto* list = child<QTreeWidget>(picker, "lvUserGroups");
            ASSERT_EQ(list->topLevelItemCount(), 2);
            const auto clickRow = [list](int row) {
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->topLevelItem(row)).center());
            };
            // The contact's own group, grey, is current: the keys pass over it without a box,
            // and a click on it raises one.
            const auto downAndUp = [list] {
                QTest::keyClick(list, Qt::Key_Down);
                QTest::keyClick(list, Qt::Key_Up);
            };
            EXPECT_EQ(boxesDuring(downAndUp), 0);
            EXPECT_EQ(boxesDuring([&] { clickRow(0); }), 1);
            EXPECT_EQ(boxesDuring([&] { clickRow(1); }), 0);
            QTest::keyClick(list, Qt::Key_Return);
        });
        QTest::mouseClick(child<QPushButton>(editor, "cmdAdd"), Qt::LeftButton);
        EXPECT_EQ(child<QTreeWidget>(editor, "lvGroupName")->topLevelItemCount(), 2);
        QTest::keyClick(number, Qt::Key_Return);
        if (editor->isVisible())
            QTest::mouseClick(child<QPushButton>(editor, "cmdCancel"), Qt::LeftButton);
    });

    ASSERT_TRUE(FindRecord(p.rsUsers, "UserName", "Ann", false));
    EXPECT_EQ(NullToEmpty(p.rsUsers.Fields("PhoneNumber")), "+8869123456789012345");
    EXPECT_EQ(NullToEmpty(p.rsUsers.Fields("GroupName")), "UserGroup1\r\nB");
}

// A name of 204 characters in an editor: the dialog and its buttons stay on the screen.
TEST_F(DialogViewsTest, TheEditorsOfALongNameStayOnTheScreen)
{
    const QString name(204, u'W');
    AddGroupRow(vorna.g.project, name);
    AddUserRow(vorna.g.project, name, name);
    for (const QString& tag : {"UserGroups," + name, "Users," + name})
        openEditor(tag, [&](QWidget* editor) {
            const QRect screen = editor->screen()->availableGeometry();
            EXPECT_TRUE(screen.contains(editor->frameGeometry())) << tag.left(10).toStdString();
            auto* ok = child<QPushButton>(editor, "cmdOK");
            EXPECT_TRUE(screen.contains(QRect(ok->mapToGlobal(QPoint()), ok->size())));
            QTest::keyClick(editor, Qt::Key_Escape);
        });
}

// A user opens zone 3 from the tree, types into the real boxes, starting a line with Ctrl+Enter,
// and leaves with Enter from a multi-line box; then opens it again and leaves with Escape.
TEST_F(DialogViewsTest, EnterFromAnyBoxSavesWhatWasTypedAndEscapeLeavesTheZoneAsItWas)
{
    Recordset& zones = vorna.g.project.rsZones;
    auto zone3 = [&](const char* field) { return Column(zones, field).at(3); };

    openEditor("Zones,3", [](QWidget* dialog) {
        QTest::keyClicks(child<QLineEdit>(dialog, "txtZoneName"), "Hall");
        auto* alarm = child<QPlainTextEdit>(dialog, "txtAlarmSMS");
        QTest::keyClicks(alarm, "Fire");
        QTest::keyClick(alarm, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClicks(alarm, "out");
        auto* reset = child<QPlainTextEdit>(dialog, "txtResetSMS");
        QTest::keyClicks(reset, QString(71, u'x'));
        auto* resetSize = child<QLabel>(dialog, "ResetSMSSize");
        EXPECT_EQ(child<QLabel>(dialog, "AlarmSMSSize")->text(), "9/70");
        EXPECT_EQ(resetSize->text(), "71/70");
        EXPECT_TRUE(resetSize->styleSheet().contains("red"));
        QTest::keyClick(reset, Qt::Key_Backspace);
        EXPECT_EQ(resetSize->text(), "70/70");
        EXPECT_FALSE(resetSize->styleSheet().contains("red"));
        QTest::keyClick(reset, Qt::Key_Return);
    });
    EXPECT_EQ(zone3("ZoneName"), "Hall");
    EXPECT_EQ(zone3("AlarmSMS"), "Fire\r\nout");
    EXPECT_EQ(zone3("ResetSMS"), QString(70, u'x'));
    EXPECT_EQ(zone3("GroupName"), "UserGroup1");
    const TreeView& tree = vorna.mainForm.tvProjectContent;
    EXPECT_EQ(tree.Nodes[tree.SelectedItem].Text, "#3-Hall");

    openEditor("Zones,3", [](QWidget* dialog) {
        QTest::keyClicks(child<QLineEdit>(dialog, "txtZoneName"), " Annex");
        QTest::keyClick(child<QPlainTextEdit>(dialog, "txtAlarmSMS"), Qt::Key_Escape);
    });
    EXPECT_EQ(zone3("ZoneName"), "Hall");
}

// The key filter stands in the real box: letters, signs and Backspace never reach it, the
// arrows still move the caret, and what is typed is held to 255.
TEST_F(DialogViewsTest, TheSlaveIDBoxTakesOnlyDigitsAndKeepsItsRange)
{
    frmDebug& form = vorna.g.form<frmDebug>();
    FormView& view = platform.viewOf(form);
    view.refresh();
    auto* box = child<QLineEdit>(view.widget(), "txtSlaveID");
    ASSERT_NE(box, nullptr);
    box->end(false);
    QTest::keyClicks(box, "2a-3 ");
    EXPECT_EQ(form.txtSlaveID.Text, "123");
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(form.txtSlaveID.Text, "123");
    QTest::keyClick(box, Qt::Key_Left);
    QTest::keyClicks(box, "9");
    EXPECT_EQ(form.txtSlaveID.Text, "255");
    EXPECT_EQ(box->text(), "255");
}

// A port typed into the combo is the combo's text, and its row is chosen in the list.
TEST_F(DialogViewsTest, APortTypedIntoTheComboChoosesItsRow)
{
    frmComPort& form = vorna.g.form<frmComPort>();
    form.LoadFormObj();
    FormView& view = platform.viewOf(form);
    view.refresh();
    auto* combo = child<QComboBox>(view.widget(), "cmbCommPort");
    auto* list = child<QTreeWidget>(view.widget(), "lvPorts");
    ASSERT_TRUE(combo && combo->lineEdit() && list);
    EXPECT_EQ(combo->currentText(), "COM1");
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), "COM12");
    EXPECT_EQ(form.cmbCommPort.Text, "COM12");
    EXPECT_EQ(form.cmbCommPort.ListIndex, 11);
    EXPECT_EQ(form.lvPorts.SelectedItem, 11);
    EXPECT_EQ(list->currentItem(), list->topLevelItem(11));
}
