#include <string>

#include <QComboBox>
#include <QMessageBox>
#include <QPushButton>

#include "GuiApp.h"
#include "ProjectRows.h"

namespace {

// The template project with two more groups and three contacts, in the real window.
class ContextMenuViewTest : public ProjectWindowTest
{
protected:
    ContextMenuViewTest()
    {
        AddGroupRow(vorna.g.project, "Night");
        AddGroupRow(vorna.g.project, "Day");
        AddUserRow(vorna.g.project, "Ann", "UserGroup1");
        AddUserRow(vorna.g.project, "Bob", "UserGroup1");
        AddUserRow(vorna.g.project, "Cid", "Night");
        vorna.mainForm.RefreshFormObj();
        tree->expand(node("Users"));
        tree->expand(node("UserGroups"));
    }

    // Selects the node by the left button, then clicks the right one on it.
    QMenu* rightClick(const QString& tag)
    {
        click(Qt::LeftButton, tag);
        return click(Qt::RightButton, tag);
    }

    // The captions of the menu's visible entries, "|" between.
    static std::string entries(QMenu* menu)
    {
        QStringList shown;
        for (QAction* a : menu->actions())
            if (a->isVisible() && !a->isSeparator())
                shown << a->text();
        return shown.join(u'|').toStdString();
    }

    // Clicks the menu's entry; the dialog it opens is given the row that begins with `choice`
    // in its combo, by the arrow keys, and OK.
    void choose(QMenu* menu, const char* entry, const char* combo, const QString& choice)
    {
        atNextModal([combo, choice](QWidget* dialog) {
            auto* box = child<QComboBox>(dialog, combo);
            for (int i = 0; i < box->count() && !box->currentText().startsWith(choice); ++i)
                QTest::keyClick(box, Qt::Key_Down);
            EXPECT_TRUE(box->currentText().startsWith(choice)) << combo;
            child<QPushButton>(dialog, "cmdOK")->click();
        });
        QAction* action = menu->findChild<QAction*>(QString::fromLatin1(entry));
        ASSERT_NE(action, nullptr) << entry;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        EXPECT_FALSE(menu->isVisible());
    }
};

} // namespace

// A user adds a contact to a group from the contact's menu and another from the group's, moves
// the first group's members, and deletes a contact by the Delete key.
TEST_F(ContextMenuViewTest, RightClicksEditMembershipsAndDeleteDeletesAContact)
{
    QMenu* menu = rightClick("Users,Ann");
    ASSERT_NE(menu, nullptr) << "a right click on a contact pops a menu up";
    EXPECT_EQ(
        entries(menu), "New Contact...|Delete Contact [Ann]|Edit Contact [Ann]...|Add to Contact Group...");
    choose(menu, "mnuProjConentAddGroup", "cmbUserGroups", "Night");

    menu = rightClick("UserGroups,Day");
    ASSERT_NE(menu, nullptr);
    choose(menu, "mnuProjConentAddUser", "cmbAddUser", "Cid");

    menu = rightClick("UserGroups,UserGroup1");
    ASSERT_NE(menu, nullptr);
    choose(menu, "mnuProjConentMoveUser", "cmbMoveGroup", "Day");

    // The keys open the same menu on the selected node, and Escape closes it.
    QTest::keyClick(tree, Qt::Key_F10, Qt::ShiftModifier);
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr) << "Shift+F10 opens the menu";
    EXPECT_NE(entries(menu).find("Move to Another Group..."), std::string::npos);
    QTest::keyClick(menu, Qt::Key_Escape);

    // On the list, a row's menu is its contact's; the empty part below the rows has the list's own.
    click(Qt::LeftButton, "Users");
    QTest::mouseClick(
        list->viewport(), Qt::RightButton, {}, list->visualRect(list->model()->index(0, 0)).center());
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(
        entries(menu), "New Contact...|Delete Contact [Ann]|Edit Contact [Ann]...|Add to Contact Group...");
    QTest::keyClick(menu, Qt::Key_Escape);
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, QPoint(10, list->viewport()->height() - 5));
    menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(entries(menu), "New Contact...");
    QTest::keyClick(menu, Qt::Key_Escape);

    click(Qt::LeftButton, "Users,Bob");
    QString asked;
    atNextModal([&asked](QWidget* box) {
        asked = box->windowTitle();
        qobject_cast<QMessageBox*>(box)->button(QMessageBox::Yes)->click();
    });
    QTest::keyClick(tree, Qt::Key_Delete);
    EXPECT_EQ(asked.toStdString(), "Delete Contact");

    // The tree follows the deletion; the memberships themselves are the model's tests' business.
    QStringList contacts;
    for (int row = 0; row < tree->model()->rowCount(node("Users")); ++row)
        contacts << tree->model()->index(row, 0, node("Users")).data().toString();
    EXPECT_EQ(contacts, QStringList({"Ann", "Cid"}));
    EXPECT_EQ(Column(vorna.g.project.rsUsers, "GroupName"), QStringList({"Day\r\nNight", "Night\r\nDay"}));
}
