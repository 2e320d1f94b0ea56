#include <vector>

#include "CaseName.h"
#include "ModelFixture.h"
#include "UnhandledError.h"
#include "frmAddOtherUser.h"
#include "frmAddUserGroup.h"
#include "frmMoveUsers.h"

namespace {

// The dialogs that change memberships, on the template's "UserGroup1" and the groups "B" and
// "C"; the window locates contacts and groups as the real one does, and every group has its node.
class MembershipTest : public ModelTest
{
public:
    MembershipTest()
    {
        view.locate = [this](const QString& kind, const QString& name) {
            if (kind == "Users")
                return FindRecord(p().rsUsers, "UserName", name, false);
            return kind == "UserGroups" && FindRecord(p().rsUserGroups, "GroupName", name, false);
        };
        group("B", "night (shift)");
        group("C");
    }

    void group(const QString& name, const QString& description = {})
    {
        AddGroupRow(p(), name, description);
        view.addNode(2, {}, name, "UserGroups", "UserGroups," + name);
    }
    // Each contact as its name and group list, in table order: what the file holds.
    QStringList members()
    {
        QStringList rows;
        const QStringList names = column(p().rsUsers, "UserName");
        const QStringList lists = column(p().rsUsers, "GroupName");
        for (int i = 0; i < names.size(); ++i)
            rows << names[i] + "=" + lists[i];
        return rows;
    }
    QStringList groups() { return column(p().rsUserGroups, "GroupName"); }
};

struct AddGroupCase
{
    const char* name;
    const char* list; // Ann's groups; Bob is in "C"
    bool openedOnBob; // rsUsers left on Bob's row by the window
    bool addGroup;    // "UserGroup2" made with the dialog's button
    std::vector<const char*> offered;
    bool ok;            // OK on the first row, or Cancel
    const char* stored; // Ann's groups afterwards
};

const AddGroupCase AddGroupCases[] = {
    {"offers the groups the contact lacks whatever their case", "userGROUP1\r\nb", false, false, {"C"}, true,
        "userGROUP1\r\nb\r\nC"},
    {"a description shows in brackets and the name is cut at the first", "UserGroup1", false, false,
        {"B(night (shift))", "C"}, true, "UserGroup1\r\nB"},
    {"an empty list gets a leading CR LF", "", false, false, {"UserGroup1", "B(night (shift))", "C"}, true,
        "\r\nUserGroup1"},
    {"a contact in every group sees the placeholder", "UserGroup1\r\nB\r\nC", false, false, {"無"}, true,
        "UserGroup1\r\nB\r\nC"},
    {"a group made on the spot replaces the placeholder", "UserGroup1\r\nB\r\nC", false, true, {"UserGroup2"},
        true, "UserGroup1\r\nB\r\nC\r\nUserGroup2"},
    {"a group made on the spot joins the offer last unchosen", "UserGroup1", false, true,
        {"B(night (shift))", "C", "UserGroup2"}, false, "UserGroup1"},
    {"the offer follows the row the window left but the contact is written", "UserGroup1", true, false,
        {"UserGroup1", "B(night (shift))"}, true, "UserGroup1\r\nUserGroup1"},
};

class AddUserGroupTest : public MembershipTest, public ::testing::WithParamInterface<AddGroupCase>
{ };

TEST_P(AddUserGroupTest, OffersTheGroupsTheContactLacksAndAppendsThePickedOne)
{
    const AddGroupCase& c = GetParam();
    addUser("Ann", c.list);
    addUser("Bob", "C");
    ASSERT_TRUE(FindRecord(p().rsUsers, "UserName", c.openedOnBob ? "Bob" : "Ann", false));
    expectDialog<frmAddUserGroup>([&c](frmAddUserGroup& f) {
        EXPECT_EQ(f.Caption, "加入新群組");
        EXPECT_EQ(f.lblUserName.Caption, "Ann");
        if (c.addGroup)
            f.cmdAddGroup_Click();
        EXPECT_EQ(f.cmbUserGroups.List, std::vector<QString>(c.offered.begin(), c.offered.end()));
        EXPECT_EQ(f.cmbUserGroups.ListIndex, 0);
        EXPECT_EQ(f.cmbUserGroups.Enabled, f.cmbUserGroups.Text != "無");
        EXPECT_EQ(f.HasNoChoice, !f.cmbUserGroups.Enabled);
        c.ok ? f.cmdOK_Click() : f.cmdCancel_Click();
    });
    // The dialog's button asks for the name and opens the group editor on the new group.
    if (c.addGroup) {
        expectKeyInString("新增連絡人群組", "請輸入新連絡人群組名稱:", "UserGroup2", "UserGroup2");
        expectGroupEditor(true);
    }
    ShowDialog<frmAddUserGroup>(g, "Ann");
    EXPECT_EQ(members(), QStringList({"Ann=" + QString(c.stored), "Bob=C"}));
    EXPECT_EQ(groups().size(), c.addGroup ? 4 : 3);
    EXPECT_EQ(p().IsProjectModified, c.addGroup || c.list != QString(c.stored));
}

INSTANTIATE_TEST_SUITE_P(AddUserGroup, AddUserGroupTest, ::testing::ValuesIn(AddGroupCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct AddOtherCase
{
    const char* name;
    const char* picked;  // a row's text, or a text typed
    const char* written; // the contact's row afterwards; nullptr: the dialog fails
};

const AddOtherCase AddOtherCases[] = {
    {"an empty list gets the bare group", "Bob", "Bob=B"},
    {"a list gets the group after CR LF and the description is cut off", "Eve(night (shift))",
        "Eve=UserGroup1\r\nB"},
    {"a typed name is cut at its first bracket", "Bob(typed", "Bob=B"},
    {"a typed name that fits no contact fails unguarded", "Zed", nullptr},
    {"a typed name in another case fails too", "bob", nullptr},
};

class AddOtherUserTest : public MembershipTest, public ::testing::WithParamInterface<AddOtherCase>
{ };

TEST_P(AddOtherUserTest, OffersContactsOutsideTheGroupAndWritesOnlyAtTheNextMove)
{
    const AddOtherCase& c = GetParam();
    addUser("Ann", "B");
    addUser("Bob", "");
    addUser("Cy", "b");
    addUser("Dee", "UserGroup1\r\nb");
    AddUserRow(p(), "Eve", "UserGroup1", "0912", false, "night (shift)");
    const QStringList before = members();
    frmAddOtherUser& f = g.form<frmAddOtherUser>();
    f.LoadFormObj("B");
    EXPECT_EQ(f.Caption, "加入其它連絡人");
    EXPECT_EQ(f.lblGroupName.Caption, "目前群組名稱:B");
    EXPECT_EQ(f.cmbAddUser.List, std::vector<QString>({"Bob", "Eve(night (shift))"}));
    EXPECT_TRUE(f.cmbAddUser.Enabled);
    f.cmbAddUser.SetText(c.picked);
    if (!c.written) {
        EXPECT_THROW(f.cmdOK_Click(), UnhandledError);
        EXPECT_EQ(members(), before);
        return;
    }
    f.cmdOK_Click();
    EXPECT_EQ(members(), before) << "nothing reaches the file before rsUsers moves";
    EXPECT_EQ(view.locatedTags.back(), "UserGroups,B");
    EXPECT_TRUE(p().IsProjectModified);
    p().rsUsers.MoveFirst();
    QStringList after = before;
    const QString contact = QString(c.written).section('=', 0, 0);
    for (QString& row : after)
        if (row.startsWith(contact + "="))
            row = c.written;
    EXPECT_EQ(members(), after);
}

INSTANTIATE_TEST_SUITE_P(AddOtherUser, AddOtherUserTest, ::testing::ValuesIn(AddOtherCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct MoveCase
{
    const char* name;
    const char* typed; // nullptr: the row of "B"
    std::vector<const char*> after;
    bool fails;
};

const MoveCase MoveCases[] = {
    {"every member moves and one already in the target keeps it once", nullptr,
        {"m1=B", "m2=B", "m3=\r\nB", "m4=b", "m5=UserGroup1", "m6="}, false},
    {"a typed name no group bears is written and the missing node fails", "Nowhere",
        {"m1=Nowhere", "m2=Nowhere\r\nB", "m3=\r\nNowhere", "m4=Nowhere\r\nb", "m5=UserGroup1", "m6="}, true},
    {"a typed name in another case merges by case but finds no node", "b",
        {"m1=b", "m2=B", "m3=\r\nb", "m4=b", "m5=UserGroup1", "m6="}, true},
};

class MoveUsersTest : public MembershipTest, public ::testing::WithParamInterface<MoveCase>
{ };

TEST_P(MoveUsersTest, RewritesEveryListAndSelectsTheTargetGroup)
{
    const MoveCase& c = GetParam();
    group("A");
    for (const char* row : {"m1=A", "m2=A\r\nB", "m3=\r\nA", "m4=a\r\nb", "m5=UserGroup1", "m6="})
        addUser(QString(row).section('=', 0, 0), QString(row).section('=', 1));
    setZoneTarget(1, "A");
    frmMoveUsers& f = g.form<frmMoveUsers>();
    f.LoadFormObj("A");
    EXPECT_EQ(f.Caption, "轉移到其它群組");
    EXPECT_EQ(f.lblGroupName.Caption, "目前群組名稱:A");
    EXPECT_EQ(f.cmbMoveGroup.List, std::vector<QString>({"UserGroup1", "B(night (shift))", "C"}));
    EXPECT_EQ(f.cmbMoveGroup.Text, "UserGroup1");
    c.typed ? f.cmbMoveGroup.SetText(c.typed) : f.cmbMoveGroup.SelectRow(1);
    if (c.fails)
        EXPECT_THROW(f.cmdOK_Click(), UnhandledError);
    else
        f.cmdOK_Click();
    EXPECT_EQ(members(), QStringList(c.after.begin(), c.after.end()));
    EXPECT_EQ(groups(), QStringList({"UserGroup1", "B", "C", "A"})) << "the old group stays";
    EXPECT_EQ(field(p().rsZones, "ZoneNo", "1", "GroupName"), "A") << "zones stay on the old group";
    if (!c.fails) {
        EXPECT_EQ(view.nodes.at(view.selectedNode).Tag, "UserGroups,B");
        EXPECT_EQ(FieldText(p().rsUserGroups, "GroupName"), "B");
        EXPECT_EQ(view.listFillCount, 1);
        EXPECT_TRUE(p().IsProjectModified);
    }
}

INSTANTIATE_TEST_SUITE_P(MoveUsers, MoveUsersTest, ::testing::ValuesIn(MoveCases),
    [](const auto& info) { return CaseName(info.param.name); });

// With one group and one contact in it there is nothing to choose: each dialog shows its
// placeholder, disabled, and OK on it only closes.
TEST_F(MembershipTest, APlaceholderRowIsShownDisabledAndOKOnItOnlyCloses)
{
    for (int i = 0; i < 2; ++i) {
        p().rsUserGroups.MoveLast();
        p().rsUserGroups.Delete();
    }
    addUser("Ann", "UserGroup1");
    const QStringList before = members();
    const auto check = [&](ComboBox& combo, const char* placeholder, auto& f) {
        EXPECT_EQ(combo.List, std::vector<QString>({placeholder}));
        EXPECT_EQ(combo.Text, placeholder);
        EXPECT_FALSE(combo.Enabled);
        f.cmdOK_Click();
        EXPECT_EQ(members(), before) << placeholder;
        EXPECT_FALSE(p().IsProjectModified) << placeholder;
    };
    ASSERT_TRUE(FindRecord(p().rsUsers, "UserName", "Ann", false));
    frmAddUserGroup& addGroup = g.form<frmAddUserGroup>();
    addGroup.LoadFormObj("Ann");
    check(addGroup.cmbUserGroups, "無", addGroup);
    frmAddOtherUser& addOther = g.form<frmAddOtherUser>();
    addOther.LoadFormObj("UserGroup1");
    check(addOther.cmbAddUser, "無其它連絡人", addOther);
    frmMoveUsers& move = g.form<frmMoveUsers>();
    move.LoadFormObj("UserGroup1");
    check(move.cmbMoveGroup, "無其它群組", move);
}

} // namespace
