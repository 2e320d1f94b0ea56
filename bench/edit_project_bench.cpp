// Editing a project at its model's limits, as an installer clicks through it all day: fill
// the tree, fill the list for each kind of node, rename a group that every contact belongs
// to, delete it, save. Prints the median of each over repeated runs on a fresh copy of the project.
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <QDir>
#include <QElapsedTimer>

#include "BenchInstall.h"
#include "FileUtil.h"
#include "HeadlessPlatform.h"
#include "LimitsProject.h"
#include "Median.h"
#include "ProjectFiles.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "VORNAUtil.h"
#include "frmEditGroupList.h"
#include "frmMain.h"

namespace {

void select(frmMain& main, const QString& tag)
{
    const auto& nodes = main.tvProjectContent.Nodes;
    for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
        if (nodes[i].Tag == tag) {
            main.tvProjectContent.SelectedItem = i;
            return;
        }
    std::fprintf(stderr, "no node %s\n", qPrintable(tag));
    std::exit(1);
}

} // namespace

int main()
{
    BenchInstall install;
    const QString app = install.appPath();
    QDir::setCurrent(app);

    HeadlessPlatform platform;
    platform.boxAnswer = MsgBox::Yes;
    VORNAGlobal g(platform);
    InitApplication(g, app);
    frmMain main(g);
    g.setView(&main);

    const QString limits = QDir(install.root()).filePath(QStringLiteral("Project/Limits.cmb"));
    const QString path = QDir(install.root()).filePath(QStringLiteral("Project/Edit.cmb"));
    MakeLimitsProject(g, app, limits);

    const std::vector<const char*> kinds
        = {"ProjName", "Users", "UserGroups", "Zones", "UserGroups,UserGroup1", "Users,User1", "Zones,0"};
    frmEditGroupList editor(g);
    std::vector<double> trees, renames, deletes, saves;
    std::map<std::string, std::vector<double>> lists;
    std::map<std::string, size_t> rows;
    size_t nodes = 0;
    for (int run = 0; run < 21; ++run) {
        FileCopy(limits, path);
        OpenProject(g, path);
        QElapsedTimer t;
        t.start();
        main.mktvProjContent();
        trees.push_back(MsSince(t));
        nodes = main.tvProjectContent.Nodes.size();
        for (const char* kind : kinds) {
            select(main, QString::fromLatin1(kind));
            t.restart();
            main.mklvNodeContent();
            lists[kind].push_back(MsSince(t));
            rows[kind] = main.lvNodeContent.ListItems.size();
        }
        // The rename as the group editor's OK saves it, the new name typed in already.
        select(main, QStringLiteral("UserGroups,UserGroup1"));
        main.openMenu(QStringLiteral("mnuProj"));
        editor.Load();
        editor.LoadFormObj(false);
        editor.lblGroupName.Caption = QStringLiteral("Night watch");
        t.restart();
        editor.SaveFormObj();
        renames.push_back(MsSince(t));
        select(main, QStringLiteral("UserGroups,Night watch"));
        main.openMenu(QStringLiteral("mnuProj"));
        t.restart();
        main.clickMenu(QStringLiteral("mnuProjDeleteGroupList"));
        deletes.push_back(MsSince(t));
        SaveProject(g, true, false, false);
        saves.push_back(MsSince(t));
        CloseProject(g);
    }
    std::printf("edit project at limits: %d contacts x %d groups, %d groups, 64 zones; medians of 21 runs "
                "(target < 50 ms each)\n",
        g.project.MaxTelNo, GroupsPerContact, GroupCount);
    std::printf("  fill the tree (%zu nodes)         %7.2f ms\n", nodes, Median(trees));
    for (const char* kind : kinds)
        std::printf("  list of %-21s (%3zu rows) %7.2f ms\n", kind, rows[kind], Median(lists[kind]));
    std::printf("  rename UserGroup1, in every contact %7.2f ms\n", Median(renames));
    std::printf("  delete it                           %7.2f ms\n", Median(deletes));
    std::printf("  save                                %7.2f ms\n", Median(saves));
    return 0;
}
