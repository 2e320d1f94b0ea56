// The context menu on a project at its model's limits: a right click on each kind of node and
// on the last row of each list (the decision and making the record current), and moving every
// member of a group to another group from the menu, the dialog answered at once. Prints the
// median of each over repeated runs.
#include <cstdio>
#include <functional>
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
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAMain.h"
#include "frmMain.h"
#include "frmMoveUsers.h"

namespace {

// Plays the user at each modal dialog.
class PlayingPlatform : public HeadlessPlatform
{
public:
    std::function<void(FormModel&)> onModal;

protected:
    void runModal(FormModel& form) override
    {
        if (onModal)
            onModal(form);
    }
};

void select(frmMain& main, const QString& tag)
{
    const auto& nodes = main.tvProjectContent.Nodes;
    for (int i = 0; i < static_cast<int>(nodes.size()); ++i)
        if (nodes[i].Tag == tag) {
            main.tvProjectContent.SelectedItem = i;
            main.tvProjectContent_NodeClick();
            return;
        }
    std::fprintf(stderr, "no node %s\n", qPrintable(tag));
    std::exit(1);
}

int members(VORNAGlobal& g, const QString& group)
{
    int n = 0;
    Recordset rs = g.project.rsUsers.Clone();
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
        n += FieldText(rs, "GroupName").split(CRLF).contains(group) ? 1 : 0;
    return n;
}

struct RightClick
{
    const char* label;
    const char* tag;
    bool lastRow; // on the list's last row rather than on the node
};

const RightClick kClicks[] = {
    {"tree: contact branch", "Users", false},
    {"tree: group branch", "UserGroups", false},
    {"tree: a contact", "Users,User1", false},
    {"tree: a group", "UserGroups,UserGroup1", false},
    {"tree: a zone", "Zones,0", false},
    {"list: last contact row", "Users", true},
    {"list: last group row", "UserGroups", true},
    {"list: last zone row", "Zones", true},
    {"list: empty zone list", "Zones", false},
};

} // namespace

int main()
{
    BenchInstall install;
    const QString app = install.appPath();
    QDir::setCurrent(app);

    PlayingPlatform platform;
    VORNAGlobal g(platform);
    InitApplication(g, app);
    frmMain main(g);
    g.setView(&main);

    const QString limits = QDir(install.root()).filePath(QStringLiteral("Project/Limits.cmb"));
    const QString path = QDir(install.root()).filePath(QStringLiteral("Project/Menu.cmb"));
    MakeLimitsProject(g, app, limits);

    // The move's dialog is given the last group, typed in, and OK.
    const QString target = QStringLiteral("UserGroup%1").arg(GroupCount);
    platform.onModal = [&target](FormModel& form) {
        auto& dialog = dynamic_cast<frmMoveUsers&>(form);
        dialog.cmbMoveGroup.SetText(target);
        dialog.cmdOK_Click();
    };

    int popups = 0;
    main.onPopupMenu = [&popups](const QString&) { ++popups; };
    std::map<std::string, std::vector<double>> clicks;
    std::map<std::string, bool> shown;
    std::vector<double> moves;
    int moved = 0;
    int movedTo = 0;
    for (int run = 0; run < 21; ++run) {
        FileCopy(limits, path);
        OpenProject(g, path);
        main.mktvProjContent();
        QElapsedTimer t;
        for (const RightClick& c : kClicks) {
            select(main, QString::fromLatin1(c.tag));
            if (c.lastRow)
                main.lvNodeContent.SelectedItem = static_cast<int>(main.lvNodeContent.ListItems.size()) - 1;
            popups = 0;
            t.restart();
            if (c.lastRow || QLatin1String(c.label).startsWith(QLatin1String("list")))
                main.lvNodeContent_MouseUp(2, 0);
            else
                main.tvProjectContent_MouseUp(2, 0);
            clicks[c.label].push_back(MsSince(t));
            shown[c.label] = popups == 1;
        }

        select(main, QStringLiteral("UserGroups,UserGroup1"));
        main.tvProjectContent_MouseUp(2, 0);
        moved = members(g, QStringLiteral("UserGroup1"));
        t.restart();
        main.clickMenu(QStringLiteral("mnuProjConentMoveUser"));
        moves.push_back(MsSince(t));
        if (members(g, QStringLiteral("UserGroup1")) != 0) {
            std::fprintf(stderr, "the move left members in UserGroup1\n");
            return 1;
        }
        movedTo = members(g, target);
        SaveProject(g, true, false, false);
        CloseProject(g);
    }
    std::printf("context menu at limits: %d contacts x %d groups, %d groups, 64 zones; medians of 21 runs "
                "(target < 50 ms each)\n",
        g.project.MaxTelNo, GroupsPerContact, GroupCount);
    for (const RightClick& c : kClicks)
        std::printf("  right click, %-24s %-8s %7.3f ms\n", c.label, shown[c.label] ? "menu" : "no menu",
            Median(clicks[c.label]));
    std::printf("  move %d members of UserGroup1 to %s (%d there after) %7.2f ms\n", moved,
        qPrintable(target), movedTo, Median(moves));
    return 0;
}
