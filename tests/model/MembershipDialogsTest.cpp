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
    // Contacts given as "name=group list", in table order.
    void users(const QStringList& rows)
    {
        for (const QString& row : rows)
            addUser(row.section('=', 0, 0), row.section('=', 1), "0912", false);
    }
    // The Users rows of contacts added with users().
    static QStringList expected(const QStringList& rows)
    {
        QStringList all;
        for (const QString& row : rows)
            all << row.section('=', 0, 0) + "|0912||" + row.section('=', 1) + "|False";
        return all;
    }
};

struct AddGroupCase
{
    const char* name;
    const char* list; // Ann's groups; Bob is in "C"
    bool onBob;       // the window left rsUsers on Bob's row
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
    users({"Bob=C"});
    ASSERT_TRUE(FindRecord(p().rsUsers, "UserName", c.onBob ? "Bob" : "Ann", false));
    const QStringList groupsBefore = rows(p().rsUserGroups);
    expectDialog<frmAddUserGroup>([&c](frmAddUserGroup& f) {
        EXPECT_EQ(f.lblUserName.Caption, "Ann");
        if (c.addGroup)
            f.cmdAddGroup_Click();
        EXPECT_EQ(f.cmbUserGroups.List, std::vector<QString>(c.offered.begin(), c.offered.end()));
        EXPECT_EQ(f.cmbUserGroups.ListIndex, 0);
        EXPECT_TRUE(f.cmbUserGroups.Enabled);
        c.ok ? f.cmdOK_Click() : f.cmdCancel_Click();
    });
    if (c.addGroup) {
        expectKeyInString("新增連絡人群組", "請輸入新連絡人群組名稱:", "UserGroup2", "UserGroup2");
        expectGroupEditor(true);
    }
    ShowDialog<frmAddUserGroup>(g, "Ann");
    EXPECT_EQ(rows(p().rsUsers), expected({"Ann=" + QString(c.stored), "Bob=C"}));
    EXPECT_EQ(
        rows(p().rsUserGroups), groupsBefore + (c.addGroup ? QStringList {"UserGroup2|"} : QStringList()));
}

INSTANTIATE_TEST_SUITE_P(AddUserGroup, AddUserGroupTest, ::testing::ValuesIn(AddGroupCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct AddOtherCase
{
    const char* typed;
    const char* bob; // Bob's and Eve's groups afterwards; nullptr: the dialog fails
    const char* eve;
};

const AddOtherCase AddOtherCases[]
    = {{"Bob", "B", "UserGroup1"}, {"Eve(night (shift))", "", "UserGroup1\r\nB"}, {"Zed", nullptr, nullptr}};

class AddOtherUserTest : public MembershipTest, public ::testing::WithParamInterface<AddOtherCase>
{ };

TEST_P(AddOtherUserTest, OffersContactsOutsideTheGroupAndWritesAtTheRecordsetsNextMove)
{
    const AddOtherCase& c = GetParam();
    users({"Ann=B", "Bob=", "Cy=b", "Dee=UserGroup1\r\nb"});
    AddUserRow(p(), "Eve", "UserGroup1", "0912", false, "night (shift)");
    const QStringList before = rows(p().rsUsers);
    frmAddOtherUser& f = g.form<frmAddOtherUser>();
    f.LoadFormObj("B");
    EXPECT_EQ(f.lblGroupName.Caption, "目前群組名稱:B");
    EXPECT_EQ(f.cmbAddUser.List, std::vector<QString>({"Bob", "Eve(night (shift))"}));
    f.cmbAddUser.SetText(c.typed);
    if (!c.bob) {
        EXPECT_THROW(f.cmdOK_Click(), UnhandledError);
        return;
    }
    f.cmdOK_Click();
    EXPECT_EQ(rows(p().rsUsers), before) << "nothing is stored before rsUsers moves";
    EXPECT_EQ(view.locatedTags.back(), "UserGroups,B");
    p().rsUsers.MoveFirst();
    QStringList after = expected({"Ann=B", "Bob=", "Cy=b", "Dee=UserGroup1\r\nb"});
    after[1] = "Bob|0912||" + QString(c.bob) + "|False";
    after << "Eve|0912|night (shift)|" + QString(c.eve) + "|False";
    EXPECT_EQ(rows(p().rsUsers), after);
}

INSTANTIATE_TEST_SUITE_P(AddOtherUser, AddOtherUserTest, ::testing::ValuesIn(AddOtherCases),
    [](const auto& info) { return CaseName(info.param.typed); });

struct MoveCase
{
    const char* typed; // nullptr: the row of "B"
    QStringList after;
};

const MoveCase MoveCases[] = {
    {nullptr, {"m1=B", "m2=B", "m3=\r\nB", "m4=b", "m5=UserGroup1", "m6="}},
    {"Nowhere",
        {"m1=Nowhere", "m2=Nowhere\r\nB", "m3=\r\nNowhere", "m4=Nowhere\r\nb", "m5=UserGroup1", "m6="}},
    {"b", {"m1=b", "m2=B", "m3=\r\nb", "m4=b", "m5=UserGroup1", "m6="}},
};

class MoveUsersTest : public MembershipTest, public ::testing::WithParamInterface<MoveCase>
{ };

TEST_P(MoveUsersTest, RewritesEveryListAndSelectsTheTargetGroupWhichMayNotExist)
{
    const MoveCase& c = GetParam();
    group("A");
    users({"m1=A", "m2=A\r\nB", "m3=\r\nA", "m4=a\r\nb", "m5=UserGroup1", "m6="});
    setZoneTarget(1, "A");
    const QStringList groups = rows(p().rsUserGroups);
    frmMoveUsers& f = g.form<frmMoveUsers>();
    f.LoadFormObj("A");
    EXPECT_EQ(f.lblGroupName.Caption, "目前群組名稱:A");
    EXPECT_EQ(f.cmbMoveGroup.List, std::vector<QString>({"UserGroup1", "B(night (shift))", "C"}));
    c.typed ? f.cmbMoveGroup.SetText(c.typed) : f.cmbMoveGroup.SelectRow(1);
    // A target that no group bears exactly is written, and then its node is missing.
    if (c.typed)
        EXPECT_THROW(f.cmdOK_Click(), UnhandledError);
    else
        f.cmdOK_Click();
    EXPECT_EQ(rows(p().rsUsers), expected(c.after));
    EXPECT_EQ(rows(p().rsUserGroups), groups) << "the old group stays";
    EXPECT_EQ(field(p().rsZones, "ZoneNo", "1", "GroupName"), "A") << "zones stay on the old group";
    if (!c.typed) {
        EXPECT_EQ(view.nodes.at(view.selectedNode).Tag, "UserGroups,B");
        EXPECT_EQ(FieldText(p().rsUserGroups, "GroupName"), "B");
    }
}

INSTANTIATE_TEST_SUITE_P(MoveUsers, MoveUsersTest, ::testing::ValuesIn(MoveCases),
    [](const auto& info) { return CaseName(info.param.typed ? info.param.typed : "row"); });

// With one group and one contact in it there is nothing to choose: each dialog shows its
// placeholder, disabled, and OK on it only closes.
TEST_F(MembershipTest, APlaceholderRowIsShownDisabledAndOKOnItOnlyCloses)
{
    for (int i = 0; i < 2; ++i) {
        p().rsUserGroups.MoveLast();
        p().rsUserGroups.Delete();
    }
    users({"Ann=UserGroup1"});
    const auto check = [this](auto& f, ComboBox& combo, const char* placeholder) {
        EXPECT_EQ(combo.List, std::vector<QString>({placeholder}));
        EXPECT_EQ(combo.Text, placeholder);
        EXPECT_FALSE(combo.Enabled);
        f.cmdOK_Click();
        EXPECT_EQ(rows(p().rsUsers), expected({"Ann=UserGroup1"})) << placeholder;
        EXPECT_FALSE(p().IsProjectModified) << placeholder;
    };
    frmAddUserGroup& addGroup = g.form<frmAddUserGroup>();
    addGroup.LoadFormObj("Ann");
    check(addGroup, addGroup.cmbUserGroups, "無");
    frmAddOtherUser& addOther = g.form<frmAddOtherUser>();
    addOther.LoadFormObj("UserGroup1");
    check(addOther, addOther.cmbAddUser, "無其它連絡人");
    frmMoveUsers& move = g.form<frmMoveUsers>();
    move.LoadFormObj("UserGroup1");
    check(move, move.cmbMoveGroup, "無其它群組");
}

} // namespace
