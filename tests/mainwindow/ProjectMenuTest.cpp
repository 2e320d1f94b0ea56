#include "MainWindowFixture.h"

namespace {

const char* const kEntries[] = {"mnuProjAddGroupList", "mnuProjAddTelList", "mnuProjEditGroupList",
    "mnuProjEditTelList", "mnuProjEditZoneList", "mnuProjDeleteGroupList", "mnuProjDeleteTelList"};

class ProjectMenuWindow : public FreshWindow<ProjectContentTest>
{
public:
    // Opens the Project menu with the node selected ("" for none) and prints its entries, enabled
    // (y) or not (n), with their captions, and the group it made current.
    QString open(const QString& selected)
    {
        g.project.rsUserGroups.MoveFirst();
        main.tvProjectContent.SelectedItem = selected.isEmpty() ? -1 : nodeIndex(selected);
        main.openMenu("mnuProj");
        QString out;
        for (const char* name : kEntries) {
            const Menu& e = main.menu(QString::fromLatin1(name));
            out += QStringLiteral("%1 %2 %3\n").arg(name, e.Enabled ? "y" : "n", e.Caption);
        }
        return out + "current group: " + current(g.project.rsUserGroups, "GroupName") + "\n";
    }
    void forgetProject() { g.project.ProjectName.clear(); }
};

// Each selection on a window of its own, so that the captions that it leaves untouched show the
// design's; a contact is never edited or deleted from this menu.
TEST(ProjectMenu, SetsItsEntriesForTheSelectedNodeAndMakesItsRecordCurrent)
{
    QString out;
    for (const char* selected : {"", "ProjName", "UserGroups", "Users", "UserGroups,Fire", "UserGroups,A,B",
             "Zones,3", "Users,Bob"}) {
        ProjectMenuWindow w;
        out += QStringLiteral("== selected: %1\n").arg(selected) + w.open(QString::fromUtf8(selected));
    }
    // A caption stays until the menu changes it again; without a project every entry is disabled.
    ProjectMenuWindow w;
    w.open("UserGroups,Fire");
    out += "== the root after a group\n" + w.open("ProjName");
    w.forgetProject();
    out += "== without a project\n" + w.open("ProjName");
    ExpectGolden("mainwindow/golden/project-menu.txt", out);
}

} // namespace
