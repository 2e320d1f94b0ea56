#include <array>

#include <QFile>

#include "MainWindowFixture.h"

namespace {

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

// Each case starts from the opposite state, so that every entry must be set.
TEST_F(MainWindowTest, EnablesTheFileEntriesFromTheProjectState)
{
    const struct
    {
        bool projectOpen, modified;
        const char* entries;
    } cases[] = {
        {false, false, "New Open Save(off) SaveAs(off) Basic(off) Exit"},
        {false, true, "New Open Save(off) SaveAs(off) Basic(off) Exit"},
        {true, false, "New Open Save(off) SaveAs Basic Exit"},
        {true, true, "New Open Save SaveAs Basic Exit"},
    };
    for (const auto& c : cases) {
        g.project.ProjectName = c.projectOpen ? "Site" : QString();
        g.project.IsProjectModified = c.modified;
        for (Menu& e : main.Menus)
            if (e.Parent == QLatin1String("mnuFile"))
                e.Enabled = !c.projectOpen || e.Name.endsWith("New") || e.Name.endsWith("Open")
                    || e.Name.endsWith("Exit");
        main.openMenu("mnuFile");
        EXPECT_EQ(MenuEntries(main, "mnuFile"), c.entries) << c.projectOpen << c.modified;
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

// An entry reading the empty mark is inert; another opens the project of its caption.
TEST_F(MainWindowTest, ARecentEntryOpensTheProjectOfItsCaption)
{
    main.menu("mnuFileMRU(2)").Caption = "(空)";
    main.clickMenu("mnuFileMRU(2)");
    const QString path = "/nowhere/Gone.cmb";
    main.menu("mnuFileMRU(3)").Caption = path;
    platform.expectBox(MsgBox::Critical, "本專案檔案路徑[" + path + "]不存在。", "專案開啟失敗");
    main.clickMenu("mnuFileMRU(3)");
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

TEST_F(ProjectWindowTest, TheNewProjectKeyShowsTheNewProjectDialog)
{
    platform.expectOpenDialog(
        std::nullopt, [](const FileDialogOptions& o) { EXPECT_EQ(o.DialogTitle, "開新專案"); });
    main.shortcut("Ctrl+N");
}

struct SaveKeyCase
{
    const char* name;
    bool modified;
    bool commits;
};

class SaveKeyTest : public ProjectWindowTest, public ::testing::WithParamInterface<SaveKeyCase>
{ };

// Ctrl+S goes through the File menu's set-up, which disables Save on a clean project:
// the key then has no effect, although the command itself would commit anyway.
TEST_P(SaveKeyTest, CommitsOnlyWhenTheSetUpEnablesSave)
{
    const SaveKeyCase c = GetParam();
    const QString path = newProject();
    if (c.modified)
        addGroup("Guards");
    const QByteArray before = ReadAll(path);

    main.shortcut("Ctrl+S");

    EXPECT_EQ(ReadAll(path) != before, c.commits);
    EXPECT_FALSE(g.project.IsProjectModified);
    EXPECT_EQ(main.menu("mnuFileSave").Enabled, c.modified);
    CloseProject(g);
}

INSTANTIATE_TEST_SUITE_P(States, SaveKeyTest,
    ::testing::Values(SaveKeyCase {"Clean", false, false}, SaveKeyCase {"Modified", true, true}),
    [](const auto& info) { return std::string(info.param.name); });

// Tools and Help have nothing to set up: each shows its one entry, with a project or without,
// and the design's hidden entries stay hidden.
TEST_F(ProjectWindowTest, ToolsAndHelpShowOneEntryEachWhateverTheProject)
{
    for (bool projectOpen : {false, true}) {
        if (projectOpen)
            newProject();
        main.openMenu("mnuTools");
        main.openMenu("mnuHelp");
        EXPECT_EQ(MenuEntries(main, "mnuTools") + " | " + MenuEntries(main, "mnuHelp"), "Options | About");
    }
    CloseProject(g);
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

} // namespace
