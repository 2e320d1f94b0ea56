#include <cstring>
#include <map>
#include <vector>

#include "CaseName.h"
#include "ModelFixture.h"
#include "frmAddUser.h"
#include "frmAllUserGroups.h"
#include "frmEditTelList.h"

namespace {

// The contact editor and the dialogs it and AddUser open, on a project with the template's
// "UserGroup1" and the groups "B" and "C"; the window locates contacts as the real one does,
// and a contact added here has its node.
class ContactDialogsTest : public ModelTest
{
public:
    ContactDialogsTest()
    {
        view.locate = [this](const QString& kind, const QString& name) {
            return kind == "Users" && FindRecord(p().rsUsers, "UserName", name, false);
        };
        addGroup("B");
        addGroup("C");
    }

    void addUser(const QString& name, const QString& groupList, const QString& phone = "0912")
    {
        ModelTest::addUser(name, groupList, phone);
        view.addNode(1, {}, name, "UserName", "Users," + name);
    }
    // The editor on a contact, made the current row first as the window does.
    frmEditTelList& edit(const QString& name)
    {
        EXPECT_TRUE(FindRecord(p().rsUsers, "UserName", name, false));
        frmEditTelList& f = g.form<frmEditTelList>();
        f.LoadFormObj();
        return f;
    }
    // A field of Ann, the one contact of the tests that read it.
    QString stored(const char* wanted) { return Column(p().rsUsers, wanted).value(0); }
    static QStringList texts(const ListView& list)
    {
        QStringList t;
        for (const ListItem& row : list.ListItems)
            t << row.Text;
        return t;
    }
};

struct NumberCase
{
    const char* name;
    const char* typed;
    std::vector<int> boxes; // the IDs of the boxes in order; none: stored
};

const NumberCase NumberCases[] = {
    {"twenty digits pass", "09123456789012345678", {}},
    {"blanks around are not counted and are stored", "  09123456789012345678 ", {}},
    {"twenty one digits are refused", "091234567890123456789", {255}},
    {"empty", "", {250}},
    {"blanks alone are empty", "   ", {250}},
    {"letters past twenty give both boxes", "abcdefghijklmnopqrstu", {257, 255}},
    {"a plus sign", "+886912345678", {}},
    {"thousands commas", "1,234,567", {}},
    {"a decimal point", "12.5", {}},
    {"an exponent", "1e-5", {}},
    {"surrounding parentheses", "(12)", {}},
    {"an inner space", "12 34", {257}},
    {"an inner hyphen", "02-1234", {257}},
    {"a sign and parentheses", "-(12)", {257}},
    {"an exponent without digits", "1E", {257}},
};

class NumberCheckTest : public ContactDialogsTest, public ::testing::WithParamInterface<NumberCase>
{ };

TEST_P(NumberCheckTest, OKStoresANumberThatPassesEveryCheckInTheirOrder)
{
    const std::map<int, std::pair<const char*, const char*>> boxes = {
        {250, {"本電話簿不得為空！請再次輸入電話號碼。", "本電話簿不得為空"}},
        {257, {" 電話號碼只能輸入數字！請再次輸入電話號碼。", "電話號碼只能輸入數字"}},
        {255, {" 電話號碼不得大於20個數字！請再次輸入電話號碼。", "電話號碼不得大於20個數字"}},
    };
    const NumberCase& c = GetParam();
    addUser("Ann", "UserGroup1", "");
    frmEditTelList& f = edit("Ann");
    f.txtTelNo.Text = c.typed;
    for (int id : c.boxes)
        platform.expectBox(16, boxes.at(id).first, boxes.at(id).second);
    f.cmdOK_Click();
    EXPECT_EQ(stored("PhoneNumber"), c.boxes.empty() ? f.txtTelNo.Text : QString());
    EXPECT_EQ(f.takeFocusRequest(), c.boxes.empty() ? nullptr : &f.txtTelNo);
}

INSTANTIATE_TEST_SUITE_P(Numbers, NumberCheckTest, ::testing::ValuesIn(NumberCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ContactDialogsTest, GroupsAreEditedInTheListAndReachTheTableOnOKWithTheRunningCountMovedByRows)
{
    // Entries match whatever their case; one that names no group is not shown.
    addUser("Ann", "c\r\nGone\r\nUserGroup1");
    frmEditTelList& f = edit("Ann");
    EXPECT_EQ(texts(f.lvGroupName), QStringList({"UserGroup1", "C"}));
    EXPECT_EQ(f.WorkTelNoCount, 3);

    for (int i = 0; i < 2; ++i) {
        f.lvGroupName.SelectedItem = 0;
        f.cmdDelete_Click();
    }
    EXPECT_TRUE(f.cmdDelete.Enabled) << "Delete stays enabled once the last row is gone";
    // The picker answers "B" twice: the second time the contact has it, and it is dropped.
    for (int i = 0; i < 2; ++i) {
        expectDialog<frmAllUserGroups>([](frmAllUserGroups& picker) {
            picker.lvUserGroups.SelectedItem = 1;
            picker.cmbOK_Click();
        });
        f.cmdAdd_Click();
    }
    EXPECT_EQ(texts(f.lvGroupName), QStringList({"B"}));
    EXPECT_EQ(f.lvGroupName.SelectedItem, 0);
    EXPECT_EQ(f.RemovedCount, 2);
    EXPECT_EQ(f.AddedCount, 1);
    EXPECT_EQ(f.WorkTelNoCount, 2);
    EXPECT_EQ(stored("GroupName"), "c\r\nGone\r\nUserGroup1") << "nothing is stored before OK";

    f.cmdOK_Click();
    EXPECT_EQ(stored("GroupName"), "B");
    // Recounted at load (3), then moved by the rows: the dropped entry still counts.
    EXPECT_EQ(p().TelNoCount, 2);
    EXPECT_EQ(CountTelNo(p()), 1);
}

TEST_F(ContactDialogsTest, ThePickerOpensWhileTheTargetsWithTheDialogsChangesStayBelowTheLimit)
{
    addUser("Bob", "B\r\nC");
    addUser("Ann", "UserGroup1");
    const struct
    {
        qint16 maxTelNo;
        bool removeFirst;
        bool opens;
    } cases[] = {{4, false, true}, {3, false, false}, {3, true, true}};
    for (const auto& c : cases) {
        p().MaxTelNo = c.maxTelNo;
        frmEditTelList& f = edit("Ann");
        if (c.removeFirst) {
            f.lvGroupName.SelectedItem = 0;
            f.cmdDelete_Click();
        }
        if (c.opens)
            expectDialog<frmAllUserGroups>([](frmAllUserGroups& picker) { picker.cmbCancel_Click(); });
        else
            platform.expectBox(48,
                "通知對象[群組/連絡人]已超過最大筆數[3]，不得再增加通知對象[群組/連絡人]！",
                "通知對象[群組/連絡人]已超過最大筆數");
        f.cmdAdd_Click();
    }
}

struct PickerCase
{
    const char* name;
    const char* contactList;
    const char* grey; // one mark per group: UserGroup1, B, C; one mark: the template's group alone
    int chosen;       // the row chosen at load
    int row;          // the row then clicked
    bool doubleClick;
    int box; // 0: none
    const char* picked;
};

const PickerCase PickerCases[] = {
    {"no groups: nothing grey or chosen, a double click does nothing", "", "...", -1, 0, true, 0, ""},
    {"the first row is chosen even when grey, a click on it refused", "userGROUP1", "x..", 0, 0, false, 161,
        ""},
    {"a click on another group", "B\r\nC", ".xx", 0, 0, false, 0, ""},
    {"a double click on another group picks it", "B\r\nC", ".xx", 0, 0, true, 0, "UserGroup1"},
    {"a double click on the contact's first group", "B\r\nC", ".xx", 0, 1, true, 173, ""},
    {"a double click on a later group picks it with the box", "B\r\nC", ".xx", 0, 2, true, 173, "C"},
    {"the only group compared with itself: no row chosen", "UserGroup1", "x", -1, 0, false, 161, ""},
};

class PickerTest : public ContactDialogsTest, public ::testing::WithParamInterface<PickerCase>
{ };

TEST_P(PickerTest, GreysTheContactsGroupsAndRefusesAClickOnThem)
{
    const PickerCase& c = GetParam();
    for (int i = 1; i < 3 && std::strlen(c.grey) == 1; ++i) {
        p().rsUserGroups.MoveLast();
        p().rsUserGroups.Delete();
    }
    addUser("Ann", c.contactList);
    edit("Ann");
    frmAllUserGroups& picker = g.form<frmAllUserGroups>();
    picker.LoadFormObj();
    QString grey;
    for (const ListItem& row : picker.lvUserGroups.ListItems)
        grey += row.ForeColor == SystemColor::GrayText ? u'x' : u'.';
    EXPECT_EQ(grey, c.grey);
    EXPECT_EQ(picker.lvUserGroups.SelectedItem, c.chosen);
    EXPECT_TRUE(p().rsUserGroups.IsEOF()) << "the list is filled on the shared recordset";

    picker.lvUserGroups.SelectedItem = c.row;
    if (c.box)
        platform.expectBox(48, "群組不可重覆挑選!\r\n群組早已加入至 Ann", "群組不可重覆挑選!");
    c.doubleClick ? picker.lvUserGroups_DblClick() : picker.lvUserGroups_Click();
    EXPECT_EQ(picker.SelectedGroupName, c.picked);
}

INSTANTIATE_TEST_SUITE_P(Picker, PickerTest, ::testing::ValuesIn(PickerCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ContactDialogsTest, CancelLeavesTheTableAndOKStoresTheRenamedSuspendedContactAndItsNode)
{
    addUser("Ann", "UserGroup1", "0912");
    const QStringList before = rows(p().rsUsers);
    for (const bool ok : {false, true}) {
        frmEditTelList& f = edit("Ann");
        expectKeyInString("變更連絡人", "請輸入新連絡人名稱:", "Ann", "Bea");
        f.cmdTelUserRename_Click();
        EXPECT_EQ(f.lblTelUser.Caption, "Bea");
        f.txtTelNo.Text = "0987";
        f.txtTelDsc.Text = "night\r\nshift";
        f.chkIsDisable.Value = CheckBox::Checked;
        f.lvGroupName.SelectedItem = 0;
        f.cmdDelete_Click();
        ok ? f.cmdOK_Click() : f.cmdCancel_Click();
        if (!ok) {
            EXPECT_EQ(rows(p().rsUsers), before);
        }
    }
    EXPECT_EQ(rows(p().rsUsers), QStringList({"Bea|0987|night\r\nshift||True"}));
    const RecordingView::Node node {1, {}, "Bea", "UserName", "Users,Bea", SystemColor::GrayText};
    EXPECT_EQ(view.nodes.back(), node);
    EXPECT_EQ(view.selectedNode, static_cast<int>(view.nodes.size()) - 1);
    EXPECT_TRUE(p().IsProjectModified);
}

TEST_F(ContactDialogsTest, AddUserAnswersTheTypedNameAndTheGroupCutFromItsRowOrNothingOnCancel)
{
    ASSERT_TRUE(FindRecord(p().rsUserGroups, "GroupName", "B", false));
    p().rsUserGroups.setField("GroupDsc", "night (shift)");
    p().rsUserGroups.Update();
    for (const bool ok : {true, false})
        expectDialog<frmAddUser>([ok](frmAddUser& f) {
            EXPECT_EQ(f.txtAddUserName.Text, "User1");
            EXPECT_EQ(f.cmbUserGroups.List, std::vector<QString>({"UserGroup1", "B(night (shift))", "C"}));
            EXPECT_EQ(f.cmbUserGroups.Text, "UserGroup1");
            f.txtAddUserName.Text = " Ann";
            f.cmbUserGroups.SelectRow(1);
            ok ? f.cmdOK_Click() : f.cmdCancel_Click();
        });
    const frmAddUser& picked = ShowDialog<frmAddUser>(g, "User1");
    EXPECT_EQ(picked.NewUserName, " Ann");
    EXPECT_EQ(picked.NewUserGroup, "B");
    const frmAddUser& cancelled = ShowDialog<frmAddUser>(g, "User1");
    EXPECT_TRUE(cancelled.NewUserName.isEmpty() && cancelled.NewUserGroup.isEmpty());
}

} // namespace
