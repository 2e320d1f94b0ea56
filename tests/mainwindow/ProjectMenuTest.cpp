#include <array>

#include "CaseName.h"
#include "ProjectContentFixture.h"

namespace {

// The Project menu's seven entries, in the order of the rows below: enabled state, then caption
// ("" for the design caption left as it was).
const char* const kEntries[] = {"mnuProjAddGroupList", "mnuProjAddTelList", "mnuProjEditGroupList",
    "mnuProjEditTelList", "mnuProjEditZoneList", "mnuProjDeleteGroupList", "mnuProjDeleteTelList"};

struct ProjectMenuCase
{
    const char* name;
    const char* selected; // the Tag of the selected node, "" for none
    const char* enabled;  // one letter an entry: y enabled, n disabled
    std::array<const char*, 7> captions;
    const char* currentGroup; // rsUserGroups' current row after the set-up
};

const ProjectMenuCase kCases[] = {
    {"nothing selected", "", "yynnnnn", {"", "", "", "", "", "", ""}, "UserGroup1"},
    {"the project root", "ProjName", "yynnnnn", {"", "", "", "", "", "", ""}, "UserGroup1"},
    {"the groups branch", "UserGroups", "yynnnnn", {"", "", "", "", "", "", ""}, "UserGroup1"},
    {"the contacts branch", "Users", "yynnnnn",
        {"新增連絡人群組", "新增連絡人", "編輯連絡人群組", "編輯連絡人", "編輯警報點", "刪除連絡人群組",
            "刪除連絡人"},
        "UserGroup1"},
    {"a group", "UserGroups,Fire", "yyynnyn",
        {"新增連絡人群組", "", "編輯連絡人群組[Fire]", "", "編輯警報點", "刪除連絡人群組[Fire]", ""}, "Fire"},
    {"a group whose name has a comma", "UserGroups,A,B", "yyynnyn",
        {"新增連絡人群組", "", "編輯連絡人群組[A]", "", "編輯警報點", "刪除連絡人群組[A]", ""}, "<none>"},
    {"a zone", "Zones,3", "yynnynn",
        {"新增連絡人群組", "", "編輯連絡人群組", "", "編輯警報點[3]", "刪除連絡人群組", ""}, "UserGroup1"},
    {"a contact: never edited or deleted from here", "Users,Bob", "yynnnnn",
        {"新增連絡人群組", "", "編輯連絡人群組", "", "編輯警報點", "刪除連絡人群組", ""}, "UserGroup1"},
};

class ProjectMenuTest : public ProjectContentTest, public ::testing::WithParamInterface<ProjectMenuCase>
{ };

} // namespace

TEST_P(ProjectMenuTest, SetsItsEntriesForTheSelectedNodeAndMakesItsRecordCurrent)
{
    const ProjectMenuCase& c = GetParam();
    std::array<QString, 7> design;
    for (int i = 0; i < 7; ++i)
        design[i] = main.menu(QString::fromLatin1(kEntries[i])).Caption;
    g.project.rsUserGroups.MoveFirst();
    main.tvProjectContent.SelectedItem = *c.selected ? nodeIndex(QString::fromUtf8(c.selected)) : -1;

    main.openMenu("mnuProj");

    for (int i = 0; i < 7; ++i) {
        const Menu& e = main.menu(QString::fromLatin1(kEntries[i]));
        EXPECT_EQ(e.Enabled, c.enabled[i] == 'y') << kEntries[i];
        EXPECT_EQ(e.Caption, *c.captions[i] ? QString::fromUtf8(c.captions[i]) : design[i]) << kEntries[i];
    }
    EXPECT_EQ(current(g.project.rsUserGroups, "GroupName"), QString::fromUtf8(c.currentGroup));
}

INSTANTIATE_TEST_SUITE_P(Rows, ProjectMenuTest, ::testing::ValuesIn(kCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ProjectContentTest, TheProjectMenuIsEmptyHandedWithoutAProjectAndKeepsItsCaptionsAfterwards)
{
    main.tvProjectContent.SelectedItem = nodeIndex("UserGroups,Fire");
    main.openMenu("mnuProj");
    main.tvProjectContent.SelectedItem = nodeIndex("ProjName");
    main.openMenu("mnuProj");
    EXPECT_EQ(main.menu("mnuProjEditGroupList").Caption, "編輯連絡人群組[Fire]")
        << "a caption stays until the menu changes it again";

    g.project.ProjectName.clear();
    main.openMenu("mnuProj");
    for (const char* name : kEntries)
        EXPECT_FALSE(main.menu(QString::fromLatin1(name)).Enabled) << name;
}
