#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include "FormView.h"
#include "GuiApp.h"
#include "frmComPort.h"
#include "frmDebug.h"

using DeviceDialogViewsTest = VornaWindowTest;

// The key filter stands in the real box: letters, signs and Backspace never reach it, the
// arrows still move the caret, and what is typed is held to 255.
TEST_F(DeviceDialogViewsTest, TheSlaveIDBoxTakesOnlyDigitsAndKeepsItsRange)
{
    frmDebug& form = vorna.g.form<frmDebug>();
    FormView& view = platform.viewOf(form);
    view.refresh();
    auto* box = child<QLineEdit>(view.widget(), "txtSlaveID");
    ASSERT_NE(box, nullptr);
    box->end(false);
    QTest::keyClicks(box, QStringLiteral("2a-3 "));
    EXPECT_EQ(form.txtSlaveID.Text, QStringLiteral("123"));
    QTest::keyClick(box, Qt::Key_Backspace);
    EXPECT_EQ(form.txtSlaveID.Text, QStringLiteral("123"));
    QTest::keyClick(box, Qt::Key_Left);
    QTest::keyClicks(box, QStringLiteral("9"));
    EXPECT_EQ(form.txtSlaveID.Text, QStringLiteral("255"));
    EXPECT_EQ(box->text(), QStringLiteral("255"));
}

// A port typed into the combo is the combo's text, and its row is chosen in the list.
TEST_F(DeviceDialogViewsTest, APortTypedIntoTheComboChoosesItsRow)
{
    frmComPort& form = vorna.g.form<frmComPort>();
    form.LoadFormObj();
    FormView& view = platform.viewOf(form);
    view.refresh();
    auto* combo = child<QComboBox>(view.widget(), "cmbCommPort");
    auto* list = child<QTreeWidget>(view.widget(), "lvPorts");
    ASSERT_TRUE(combo && combo->lineEdit() && list);
    EXPECT_EQ(combo->currentText(), QStringLiteral("COM1"));
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), QStringLiteral("COM12"));
    EXPECT_EQ(form.cmbCommPort.Text, QStringLiteral("COM12"));
    EXPECT_EQ(form.cmbCommPort.ListIndex, 11);
    EXPECT_EQ(form.lvPorts.SelectedItem, 11);
    EXPECT_EQ(list->currentItem(), list->topLevelItem(11));
}
