#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "ProjectRows.h"

using EditZoneListViewTest = ProjectWindowTest;

// A user opens zone 3 from the tree, types into the real boxes, starting a line with Ctrl+Enter,
// and leaves with Enter from a multi-line box; then opens it again and leaves with Escape.
TEST_F(EditZoneListViewTest, EnterFromAnyBoxSavesWhatWasTypedAndEscapeLeavesTheZoneAsItWas)
{
    Recordset& zones = vorna.g.project.rsZones;
    auto zone3 = [&](const char* field) { return Column(zones, field).at(3); };

    openEditor(QStringLiteral("Zones,3"), [](QWidget* dialog) {
        QTest::keyClicks(child<QLineEdit>(dialog, "txtZoneName"), QStringLiteral("Hall"));
        auto* alarm = child<QPlainTextEdit>(dialog, "txtAlarmSMS");
        QTest::keyClicks(alarm, QStringLiteral("Fire"));
        QTest::keyClick(alarm, Qt::Key_Return, Qt::ControlModifier);
        QTest::keyClicks(alarm, QStringLiteral("out"));
        auto* reset = child<QPlainTextEdit>(dialog, "txtResetSMS");
        QTest::keyClicks(reset, QString(71, u'x'));
        auto* resetSize = child<QLabel>(dialog, "ResetSMSSize");
        EXPECT_EQ(child<QLabel>(dialog, "AlarmSMSSize")->text(), QStringLiteral("9/70"));
        EXPECT_EQ(resetSize->text(), QStringLiteral("71/70"));
        EXPECT_TRUE(resetSize->styleSheet().contains(QStringLiteral("red")));
        QTest::keyClick(reset, Qt::Key_Backspace);
        EXPECT_EQ(resetSize->text(), QStringLiteral("70/70"));
        EXPECT_FALSE(resetSize->styleSheet().contains(QStringLiteral("red")));
        QTest::keyClick(reset, Qt::Key_Return);
    });
    EXPECT_EQ(zone3("ZoneName"), QStringLiteral("Hall"));
    EXPECT_EQ(zone3("AlarmSMS"), QStringLiteral("Fire\r\nout"));
    EXPECT_EQ(zone3("ResetSMS"), QString(70, u'x'));
    EXPECT_EQ(zone3("GroupName"), QStringLiteral("UserGroup1"));
    const TreeView& tree = vorna.mainForm.tvProjectContent;
    EXPECT_EQ(tree.Nodes[tree.SelectedItem].Text, QStringLiteral("#3-Hall"));

    openEditor(QStringLiteral("Zones,3"), [](QWidget* dialog) {
        QTest::keyClicks(child<QLineEdit>(dialog, "txtZoneName"), QStringLiteral(" Annex"));
        QTest::keyClick(child<QPlainTextEdit>(dialog, "txtAlarmSMS"), Qt::Key_Escape);
    });
    EXPECT_EQ(zone3("ZoneName"), QStringLiteral("Hall"));
}
