#include "MainWindowFixture.h"
#include "frmMessage.h"

namespace {

// A top menu's entries as the user sees them after its set-up: the visible ones but the bars,
// each marked when it is disabled or checked.
std::string MenuEntries(const frmMain& main, const QString& top)
{
    QStringList shown;
    for (const Menu& e : main.Menus)
        if (e.Parent == top && e.Visible && e.Caption != QLatin1String("-"))
            shown << e.Name.mid(top.size()) + (e.Enabled ? "" : "(off)") + (e.Checked ? "(checked)" : "");
    return shown.join(' ').toStdString();
}

// Every caption of the window from a table that translates each path to "T:" and the path,
// but for File Open, which has no row and goes blank; the popup's later entries have no rows
// and keep their design captions.
TEST_F(MainWindowTest, ApplyFormTextSetsEveryCaptionAndBlanksTheOneWithoutARow)
{
    FormEntry entry {"frmMain", {}};
    for (const FormTextPath& p : main.formTexts())
        if (QLatin1String(p.path) != QLatin1String("mnuFileOpen"))
            entry.Items.push_back({p.path, p.property, "orig", QStringLiteral("T:") + p.path});
    g.ml.FormTable = {entry};
    main.ApplyFormText();
    QString out = QStringLiteral("%1 paths\nform: %2\n%3\n%4\n")
                      .arg(main.formTexts().size())
                      .arg(main.Caption, main.lbllvNodeContentCaption.Caption,
                          main.lbltvProjectContentCaption.Caption);
    for (const Panel& panel : main.sbStatusBar.Panels)
        out += panel.Key + ": " + panel.Text + "\n";
    for (const Menu& e : main.Menus)
        out += e.Name + ": " + e.Caption + "\n";
    ExpectGolden("mainwindow/golden/form-text.txt", out);
}

// Every top menu with a set-up, after it, in states that each turn every entry that the one
// before set; Tools and Help have nothing to set up, and the design's hidden entries stay hidden.
TEST_F(MainWindowTest, TheTopMenusFollowTheProjectAndTheLink)
{
    const struct
    {
        bool projectOpen, modified, connected;
        const char* entries;
    } cases[] = {
        {false, false, false,
            "New Open Save(off) SaveAs(off) Basic(off) Exit | Connect DownLoad(off) Setting(off) | Options | "
            "About"},
        {true, true, true,
            "New Open Save SaveAs Basic Exit | Connect(checked) DownLoad Setting | Options | About"},
        {false, true, true,
            "New Open Save(off) SaveAs(off) Basic(off) Exit | Connect(checked) DownLoad(off) Setting | "
            "Options | About"},
        {true, false, false,
            "New Open Save(off) SaveAs Basic Exit | Connect DownLoad(off) Setting(off) | Options | About"},
    };
    for (const auto& c : cases) {
        g.project.ProjectName = c.projectOpen ? "Site" : QString();
        g.project.IsProjectModified = c.modified;
        g.link.IsDeviceConnected = c.connected;
        QStringList shown;
        for (const char* top : {"mnuFile", "mnuDevice", "mnuTools", "mnuHelp"}) {
            main.openMenu(top);
            shown << QString::fromStdString(MenuEntries(main, top));
        }
        EXPECT_EQ(shown.join(" | "), c.entries) << c.projectOpen << c.modified << c.connected;
    }
}

// From all four down to none, so that every entry is both shown and hidden again.
TEST_F(MainWindowTest, TheRecentEntriesInUseAreShownAndTheRestHidden)
{
    for (int i = 1; i <= 4; ++i)
        g.system.MRUFilePath(i) = QStringLiteral("/site/P%1.cmb").arg(i);
    for (int count = 4; count >= 0; --count) {
        g.system.MRUCount = static_cast<qint16>(count);
        main.mnuFile_Click();
        for (int i = 1; i <= 4; ++i) {
            const Menu& e = main.menu(QStringLiteral("mnuFileMRU(%1)").arg(i));
            const bool used = i <= count;
            EXPECT_EQ(e.Caption, used ? g.system.MRUFilePath(i) : QString()) << count << i;
            EXPECT_EQ(e.Enabled, used) << count << i;
            EXPECT_EQ(e.Visible, used) << count << i;
        }
        EXPECT_TRUE(main.menu("mnuFileBar1").Visible);
        EXPECT_TRUE(main.menu("mnuFileBar2").Visible);
    }
}

// An entry reading the empty mark is inert: no box, no dialog.
TEST_F(MainWindowTest, ARecentEntryReadingTheEmptyMarkIsInert)
{
    main.menu("mnuFileMRU(2)").Caption = "(空)";
    main.clickMenu("mnuFileMRU(2)");
}

TEST_F(ProjectWindowTest, TheRefreshKeyRebuildsTheTreeOnlyWithAProject)
{
    const Node stale {-1, {}, "x", {}, "ProjName"};
    main.tvProjectContent.Nodes = {stale};
    main.shortcut("F5");
    EXPECT_EQ(main.tvProjectContent.Nodes.size(), 1u);

    newProject();
    main.tvProjectContent.Nodes = {stale};
    main.shortcut("F5");
    EXPECT_EQ(main.tvProjectContent.Nodes.size(), 4u + 1u + 64u);
}

// Ctrl+S goes through the File menu's set-up, which disables Save on a clean project:
// the key then has no effect, although the command itself would commit anyway.
TEST_F(ProjectWindowTest, TheSaveKeyCommitsOnlyWhenTheSetUpEnablesSave)
{
    for (const bool modified : {false, true}) {
        SCOPED_TRACE(modified ? "modified" : "clean");
        const QString path = newProject(modified ? "Modified.cmb" : "Clean.cmb");
        if (modified)
            addGroup("Guards");
        const QByteArray before = ReadAll(path);

        main.shortcut("Ctrl+S");

        EXPECT_EQ(ReadAll(path) != before, modified);
        EXPECT_FALSE(g.project.IsProjectModified);
        EXPECT_EQ(main.menu("mnuFileSave").Enabled, modified);
        CloseProject(g);
    }
}

TEST_F(ProjectWindowTest, SummaryAndOptionsOpenTheirDialogs)
{
    newProject();
    for (const auto& [entry, form] :
        {std::pair {"mnuFileBasic", "frmProjBasic"}, {"mnuToolsOptions", "frmToolsOptions"}}) {
        main.openMenu(main.menu(entry).Parent);
        platform.expectModal(form);
        main.clickMenu(entry);
    }
    CloseProject(g);
}

// The download commits the working copy first, without a question; the new date goes into the
// working copy alone and does not mark the project modified.
TEST_F(ProjectWindowTest, DownloadCommitsTheWorkingCopyFirst)
{
    g.link.BusyForm = &g.form<frmMessage>();
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
