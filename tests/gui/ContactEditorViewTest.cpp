#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "ProjectFiles.h"
#include "ProjectRows.h"
#include "VBUtil.h"
#include "VORNAUtil.h"

using ContactEditorViewTest = VornaWindowTest;

TEST_F(ContactEditorViewTest, ANumberTypedAndAGroupPickedInTheRealDialogsReachTheTableOnEnter)
{
    const QString cmb = QDir(folder.projectDir()).filePath("Site.cmb");
    ASSERT_TRUE(QFile::copy(folder.path("RM64.mdb"), cmb));
    ASSERT_TRUE(OpenProject(vorna.g, cmb));
    ProjectState& p = vorna.g.project;
    AddGroupRow(p, "B");
    AddUserRow(p, "Ann", "UserGroup1", QString());
    vorna.mainForm.RefreshFormObj();

    atNextModal([&](QWidget* editor) {
        auto* number = editor->findChild<QLineEdit*>("txtTelNo");
        ASSERT_NE(number, nullptr);
        EXPECT_EQ(number->maxLength(), 20);
        QTest::keyClicks(number, "+886912345678");
        atNextModal([&](QWidget* picker) {
            auto* list = picker->findChild<QTreeWidget*>("lvUserGroups");
            ASSERT_NE(list, nullptr);
            ASSERT_EQ(list->topLevelItemCount(), 2);
            QTest::mouseClick(
                list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(1)).center());
            QTest::mouseClick(picker->findChild<QPushButton*>("cmbOK"), Qt::LeftButton);
        });
        QTest::mouseClick(editor->findChild<QPushButton*>("cmdAdd"), Qt::LeftButton);
        EXPECT_EQ(editor->findChild<QTreeWidget*>("lvGroupName")->topLevelItemCount(), 2);
        QTest::keyClick(number, Qt::Key_Return);
        if (editor->isVisible())
            QTest::mouseClick(editor->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    });
    vorna.mainForm.selectNode(FindNodeByTag(vorna.mainForm, "Users,Ann"));
    vorna.mainForm.tvProjectContent_DblClick();

    ASSERT_TRUE(FindRecord(p.rsUsers, "UserName", "Ann", false));
    EXPECT_EQ(NullToEmpty(p.rsUsers.Fields("PhoneNumber")), "+886912345678");
    EXPECT_EQ(NullToEmpty(p.rsUsers.Fields("GroupName")), "UserGroup1\r\nB");
    EXPECT_EQ(p.TelNoCount, 2);
    EXPECT_TRUE(p.IsProjectModified);
}
