#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

#include "GuiApp.h"
#include "ProjectFiles.h"
#include "QtPlatform.h"
#include "TestFolder.h"
#include "VBUtil.h"
#include "VORNAUtil.h"
#include "VornaApp.h"

namespace {

template<class W> W* child(QWidget* window, const char* name)
{
    auto* w = window->findChild<W*>(QString::fromLatin1(name));
    EXPECT_NE(w, nullptr) << name;
    return w;
}

} // namespace

// A user opens zone 3 from the tree, types into the real boxes, starting a line with Ctrl+Enter,
// and leaves with Enter from a multi-line box; then opens it again and leaves with Escape.
TEST(EditZoneListView, EnterFromAnyBoxSavesWhatWasTypedAndEscapeLeavesTheZoneAsItWas)
{
    guiApp();
    TestFolder folder;
    QtPlatform platform(QDir(folder.root()).filePath(QStringLiteral("settings.ini")));
    VornaApp vorna(platform);
    vorna.Main({folder.appPath(), false});
    const QString project = QDir(folder.projectDir()).filePath(QStringLiteral("a.cmb"));
    ASSERT_TRUE(QFile::copy(folder.path(QStringLiteral("RM64.mdb")), project));
    ASSERT_TRUE(OpenProject(vorna.g, project));
    frmMain& main = vorna.mainForm;
    Recordset& zones = vorna.g.project.rsZones;
    auto zone3 = [&](const char* field) {
        EXPECT_TRUE(FindRecord(zones, QStringLiteral("ZoneNo"), QStringLiteral("3"), false));
        return NullToEmpty(zones.Fields(QString::fromLatin1(field)));
    };

    atNextModal([](QWidget* dialog) {
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
    main.tvProjectContent.SelectedItem = FindNodeByTag(main, QStringLiteral("Zones,3"));
    main.tvProjectContent_DblClick();
    EXPECT_EQ(zone3("ZoneName"), QStringLiteral("Hall"));
    EXPECT_EQ(zone3("AlarmSMS"), QStringLiteral("Fire\r\nout"));
    EXPECT_EQ(zone3("ResetSMS"), QString(70, u'x'));
    EXPECT_EQ(zone3("GroupName"), QStringLiteral("UserGroup1"));
    EXPECT_EQ(
        main.tvProjectContent.Nodes[main.tvProjectContent.SelectedItem].Text, QStringLiteral("#3-Hall"));

    atNextModal([](QWidget* dialog) {
        QTest::keyClicks(child<QLineEdit>(dialog, "txtZoneName"), QStringLiteral(" Annex"));
        QTest::keyClick(child<QPlainTextEdit>(dialog, "txtAlarmSMS"), Qt::Key_Escape);
    });
    main.tvProjectContent_DblClick();
    EXPECT_EQ(zone3("ZoneName"), QStringLiteral("Hall"));
}
