#include <array>

#include <QFile>

#include "MainWindowFixture.h"
#include "frmProjBasic.h"
#include "frmToolsOptions.h"

namespace {

FormEntry formTableWithout(const frmMain& main, const QString& missing)
{
    FormEntry entry {"frmMain", {}};
    for (const FormTextPath& p : main.formTexts()) {
        const QString path = QString::fromLatin1(p.path);
        if (path != missing)
            entry.Items.push_back({path, QString::fromLatin1(p.property), "orig", "T:" + path});
    }
    return entry;
}

TEST_F(MainWindowTest, ApplyFormTextSetsEveryCaptionAndBlanksTheOneWithoutARow)
{
    ASSERT_EQ(main.formTexts().size(), 65u);
    g.ml.FormTable = {formTableWithout(main, "mnuFileOpen")};
    main.ApplyFormText();

    EXPECT_EQ(main.Caption, "T:");
    EXPECT_EQ(main.lbllvNodeContentCaption.Caption, "T:lbllvNodeContentCaption");
    EXPECT_EQ(main.lbltvProjectContentCaption.Caption, "T:lbltvProjectContentCaption");
    for (int i = 1; i <= 3; ++i)
        EXPECT_EQ(main.sbStatusBar.Panels[i - 1].Text, QStringLiteral("T:sbStatusBar.Panels(%1)").arg(i));
    EXPECT_EQ(main.menu("mnuFileOpen").Caption, QString()) << "no row: the control goes blank";

    int translated = 0;
    for (const Menu& e : main.Menus) {
        if (e.Name == QLatin1String("mnuFileOpen"))
            continue;
        if (e.Caption == "T:" + e.Name)
            ++translated;
    }
    EXPECT_EQ(translated, 65 - 6 - 1);
    // The popup's later entries have no rows and keep their design captions.
    EXPECT_EQ(main.menu("mnuProjConentMoveUser").Caption, "轉移到其它群組");
    EXPECT_EQ(main.menu("mnuProjConentBar2").Caption, "-");
}

struct FileMenuCase
{
    const char* name;
    bool projectOpen;
    bool modified;
    bool save;
    bool saveAs;
};

constexpr std::array kFileMenuCases = {
    FileMenuCase {"NoProject", false, false, false, false},
    FileMenuCase {"NoProjectButModifiedFlag", false, true, false, false},
    FileMenuCase {"CleanProject", true, false, false, true},
    FileMenuCase {"ModifiedProject", true, true, true, true},
};

TEST_F(MainWindowTest, EnablesTheEntriesFromTheProjectState)
{
    for (const FileMenuCase& c : kFileMenuCases) {
        SCOPED_TRACE(c.name);
        g.project.ProjectName = c.projectOpen ? "Site" : QString();
        g.project.IsProjectModified = c.modified;
        // Start from the opposite state, so that every entry must be set.
        for (const char* name : {"mnuFileSave", "mnuFileSaveAs", "mnuFileBasic"})
            main.menu(QString::fromLatin1(name)).Enabled = !c.saveAs;
        for (const char* name : {"mnuFileNew", "mnuFileOpen", "mnuFileExit"})
            main.menu(QString::fromLatin1(name)).Enabled = true;

        main.openMenu("mnuFile");

        EXPECT_EQ(main.menu("mnuFileSave").Enabled, c.save);
        EXPECT_EQ(main.menu("mnuFileSaveAs").Enabled, c.saveAs);
        EXPECT_EQ(main.menu("mnuFileBasic").Enabled, c.saveAs);
        for (const char* name : {"mnuFileNew", "mnuFileOpen", "mnuFileExit"})
            EXPECT_TRUE(main.menu(QString::fromLatin1(name)).Enabled) << name;
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

TEST_F(MainWindowTest, ARecentEntryReadingTheEmptyMarkIsInert)
{
    main.menu("mnuFileMRU(2)").Caption = "(空)";
    main.clickMenu("mnuFileMRU(2)");
    EXPECT_TRUE(platform.events.empty());
}

TEST_F(MainWindowTest, ARecentEntryOpensTheProjectOfItsCaption)
{
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
        QStringList shown;
        for (const char* top : {"mnuTools", "mnuHelp"}) {
            main.openMenu(QString::fromLatin1(top));
            for (const Menu& e : main.Menus)
                if (e.Parent == QLatin1String(top) && e.Visible && e.Enabled)
                    shown << e.Name;
        }
        EXPECT_EQ(shown, QStringList({"mnuToolsOptions", "mnuHelpAbout"})) << projectOpen;
    }
    CloseProject(g);
}

// File Summary shows the open project's row; Tools Options the link's settings as they stand.
TEST_F(ProjectWindowTest, SummaryAndOptionsOpenTheirDialogsLoaded)
{
    newProject();
    g.project.rsBasic.setField("CreatedBy", "Chen");
    g.project.rsBasic.Update();
    g.link.Retry = 4;
    platform.expectModal(g.form<frmProjBasic>(), [](frmProjBasic& f) {
        EXPECT_EQ(f.txtPorjName.Text, "Chen");
        f.CmdCancel_Click();
    });
    platform.expectModal(g.form<frmToolsOptions>(), [](frmToolsOptions& f) {
        EXPECT_EQ(f.txtRetry.Text, "4");
        f.cmdExit_Click();
    });

    for (const char* entry : {"mnuFileBasic", "mnuToolsOptions"}) {
        const QString name = QString::fromLatin1(entry);
        main.openMenu(main.menu(name).Parent);
        ASSERT_TRUE(main.menu(name).Enabled) << entry;
        main.clickMenu(name);
    }
    EXPECT_TRUE(platform.allExpectationsMet());
    CloseProject(g);
}

} // namespace
