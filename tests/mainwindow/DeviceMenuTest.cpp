#include "MainWindowFixture.h"
#include "frmComPort.h"
#include "frmMessage.h"

namespace {

class DeviceMenuTest : public ProjectWindowTest
{
protected:
    DeviceMenuTest() { g.link.BusyForm = &g.form<frmMessage>(); }

    const Menu& entry(const char* name) { return main.menu(QString::fromLatin1(name)); }
};

// The settings follow the link alone, the download the link and the project. The cases without
// a project run first: the project, once opened, stays for the rest.
TEST_F(DeviceMenuTest, TheSetUpFollowsTheLinkAndTheProject)
{
    const struct
    {
        bool connected, projectOpen;
        const char* entries;
    } cases[] = {
        {false, false, "Connect DownLoad(off) Setting(off)"},
        {true, false, "Connect(checked) DownLoad(off) Setting"},
        {false, true, "Connect DownLoad(off) Setting(off)"},
        {true, true, "Connect(checked) DownLoad Setting"},
    };
    for (const auto& c : cases) {
        if (c.projectOpen && g.project.ProjectName.isEmpty())
            newProject();
        g.link.IsDeviceConnected = c.connected;
        main.openMenu("mnuDevice");
        EXPECT_EQ(MenuEntries(main, "mnuDevice"), c.entries);
        EXPECT_EQ(entry("mnuDeviceConnect").Caption, "連線簡訊報警機");
    }
}

// A port that the dialog opened is probed at once (here a silent one).
TEST_F(DeviceMenuTest, ConnectProbesThePortThatTheDialogOpened)
{
    platform.expectModal(g.form<frmComPort>(), [&](frmComPort& f) {
        f.IsOK = f.IsConnected = true;
        g.platform.hideForm(f);
    });
    g.link.Retry = 0;
    platform.serial.answerNothing();
    platform.expectBoxWithAnyText(MsgBox::Critical, "連線簡訊報警機");
    main.clickMenu("mnuDeviceConnect");
    EXPECT_EQ(platform.serial.written.size(), 1u);
    EXPECT_EQ(main.panel("ConnectStatus").Picture, "DisConnect");
}

// The download commits the working copy first, without a question; the new date goes into the
// working copy alone and does not mark the project modified.
TEST_F(DeviceMenuTest, DownloadCommitsTheWorkingCopyFirst)
{
    const QString path = newProject();
    AddGroupRow(g.project, "Fire");
    AddUserRow(g.project, "Ann", "Fire", "0912345678");
    platform.clock = QDateTime(QDate(2026, 12, 1), QTime(8, 0));
    g.link.IsDeviceConnected = true;
    platform.expectBoxWithAnyText(MsgBox::OKCancel + MsgBox::Question, "下載專案", MsgBox::Cancel);
    main.clickMenu("mnuDeviceDownLoad");

    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(NullToEmpty(g.project.rsBasic.Fields("ModifiedDate")), "2026-12-01");
    const QString mir = projectPath("Project1.mir");
    for (const auto& [table, field] :
        {std::pair {"UserGroups", "GroupName"}, std::pair {"Users", "UserName"}})
        EXPECT_EQ(column(path, table, field), column(mir, table, field)) << table;
    EXPECT_EQ(column(path, "Basic", "ModifiedDate"), QStringList {QString()});
    EXPECT_TRUE(platform.serial.written.empty());
}

} // namespace
