#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "ProjectRows.h"
#include "VBUtil.h"

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

using ContactEditorViewTest = ProjectWindowTest;

} // namespace

TEST_F(ContactEditorViewTest, ANumberTypedAndAGroupPickedInTheRealDialogsReachTheTableOnEnter)
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
    EXPECT_EQ(p.TelNoCount, 2);
    EXPECT_TRUE(p.IsProjectModified);
}

// A name of 204 characters in an editor: the dialog and its buttons stay on the screen.
TEST_F(ContactEditorViewTest, TheEditorsOfALongNameStayOnTheScreen)
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
