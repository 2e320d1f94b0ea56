#include <functional>
#include <optional>

#include "ModelFixture.h"
#include "UnhandledError.h"
#include "VORNAUtil.h"
#include "frmAddUser.h"
#include "frmEditTelList.h"

namespace {

// The new-contact dialog asked with the proposal: OK with the typed name and the first group,
// or Cancel when no name is given.
void expectAddUser(ModelTest& t, const QString& proposal, const std::optional<QString>& typed)
{
    t.expectDialog<frmAddUser>([=](frmAddUser& f) {
        EXPECT_EQ(f.txtAddUserName.Text, proposal);
        if (!typed)
            return f.cmdCancel_Click();
        f.txtAddUserName.Text = *typed;
        f.cmdOK_Click();
    });
}

// The count of targets is stored as well as returned.
TEST(CountTelNo, TargetsAreListEntriesAndContactsAreNamedRows)
{
    const struct
    {
        const char* name;
        const char* userName;
        const char* groupList;
        qint16 targets;
        qint16 users;
    } cases[] = {
        {"one group", "Ann", "A", 1, 1},
        {"three groups", "Ann", "A\r\nB\r\nC", 3, 1},
        {"no group counts as a contact only", "Ann", "", 0, 1},
        {"no name counts as a target only", "", "A", 1, 0},
        {"no name and no group count nowhere", "", "", 0, 0},
    };
    for (const auto& c : cases) {
        FreshModel<ModelTest> t;
        t.addUser(QString::fromUtf8(c.userName), QString::fromUtf8(c.groupList));
        t.p().TelNoCount = 77;
        EXPECT_EQ(CountTelNo(t.p()), c.targets) << c.name;
        EXPECT_EQ(t.p().TelNoCount, c.targets) << c.name;
        EXPECT_EQ(CountUsers(t.p()), c.users) << c.name;
    }
}

struct LimitCase
{
    const char* name;
    std::function<void(ModelTest&)> setUp;
    const char* boxText; // nullptr: the dialog opens
    const char* boxTitle = nullptr;
};

const LimitCase LimitCases[] = {
    {"as many contacts as the model holds",
        [](ModelTest& t) {
            t.addUser("User1", QString());
            t.addUser("User3", QString());
        },
        "連絡人已超過最大筆數[2]，不得再增加連絡人！", "連絡人已超過最大筆數"},
    {"as many targets as the model holds", [](ModelTest& t) { t.addUser("User1", "A\r\nB"); },
        "通知對象[群組/連絡人]已超過最大筆數[2]，不得再增加通知對象[群組/連絡人]！",
        "通知對象[群組/連絡人]已超過最大筆數"},
    {"a drifted count is recounted first",
        [](ModelTest& t) {
            t.addUser("User1", "A");
            t.p().TelNoCount = 2;
        },
        nullptr},
};

TEST(AddUser, LimitsAreTestedBeforeTheDialog)
{
    for (const LimitCase& c : LimitCases) {
        SCOPED_TRACE(c.name);
        FreshModel<ModelTest> t;
        c.setUp(t);
        t.p().MaxTelNo = 2;
        if (c.boxText)
            t.platform.expectBox(48, QString::fromUtf8(c.boxText), QString::fromUtf8(c.boxTitle));
        else
            expectAddUser(t, "User2", std::nullopt);
        AddUser(t.g);
        EXPECT_EQ(t.p().rsUsers.RecordCount(),
            1 + (c.boxText && QString::fromUtf8(c.boxTitle).startsWith(u"連絡人")));
        EXPECT_FALSE(t.p().IsProjectModified);
    }
}

class UserModel : public FreshModel<ModelTest>
{
public:
    // AddUser answered with the name; a stored contact opens its editor, which Cancel closes.
    QString add(const QString& typed, const QString& refusal = {})
    {
        addUser("Old", "UserGroup1\r\nB");
        expectAddUser(*this, "User1", typed);
        if (!refusal.isEmpty())
            platform.expectBoxWithAnyText(16, refusal);
        else if (!typed.isEmpty())
            expectDialog<frmEditTelList>([typed](frmEditTelList& f) {
                EXPECT_EQ(f.lblTelUser.Caption, typed);
                f.cmdCancel_Click();
            });
        AddUser(g);
        return QStringLiteral("== add \"%1\", events: %2\n").arg(typed).arg(platform.doEventsCount) + state();
    }
    // DeleteUser on A, a contact of two groups, answered; the count of targets goes down by one
    // whatever its groups.
    QString remove(int answer)
    {
        addUser("A", "UserGroup1\r\nB", "0911");
        addUser("Bob", "UserGroup1");
        view.addNode(1, {}, "A", "UserName", "Users,A");
        view.addNode(1, {}, "Bob", "UserName", "Users,Bob");
        CountTelNo(p());
        FindRecord(p().rsUsers, "UserName", "A", false);
        platform.expectBoxWithAnyText(52, "是否確定刪除這個連絡人", answer);
        const bool deleted = DeleteUser(g);
        return QStringLiteral("== delete, answer %1: %2\n").arg(answer).arg(deleted) + state()
            + "current contact: " + FieldText(p().rsUsers, "UserName") + "\n";
    }
};

TEST(AddAndDeleteUser, StoreTheContactBeforeItsEditorAndMoveTheCountOfTargets)
{
    // An empty name stops silently, a reserved one with a box.
    QString out
        = UserModel().add("Ann") + UserModel().add("") + UserModel().add("none", "不合法的使用者群組名稱");
    out += UserModel().remove(MsgBox::Yes) + UserModel().remove(MsgBox::No);
    ExpectGolden("model/golden/add-delete-contact.txt", out);
}

// Without a current row each delete ends the program with a critical box of its own, and
// deletes nothing.
TEST_F(ModelTest, DeletingWithoutACurrentRowEndsTheProgram)
{
    addGroup("Spare");
    p().rsUserGroups.MoveLast();
    p().rsUserGroups.MoveNext();
    const std::pair<bool (*)(VORNAGlobal&), const char*> cases[] = {
        {DeleteUserGroup,
            "GroupList資料表的CurrentRecord未指到可用的資料。\r\n刪除連絡人群組失敗。|刪除連絡人群組失敗|16"},
        {DeleteUser,
            "TelList資料表的CurrentRecord未指到可用的資料。\r\n刪除連絡人名稱失敗。|刪除連絡人名稱失敗|16"},
    };
    for (const auto& [remove, box] : cases) {
        try {
            remove(g);
            ADD_FAILURE() << "no current row must end the program";
        } catch (const UnhandledError& e) {
            EXPECT_EQ(
                QStringLiteral("%1|%2|%3").arg(e.text(), e.title()).arg(e.flags()), QString::fromUtf8(box));
        }
    }
    EXPECT_EQ(p().rsUserGroups.RecordCount(), 2);
}

TEST_F(ModelTest, FindNodeByTagComparesTheWholeTagExactly)
{
    view.addNode(2, {}, "x", "UserGroups", "UserGroups,usergroup1");
    EXPECT_EQ(FindNodeByTag(view, "UserGroups,UserGroup1"), 4);
    EXPECT_EQ(FindNodeByTag(view, "UserGroups,usergroup1"), 5);
    EXPECT_THROW(FindNodeByTag(view, "UserGroups,User"), UnhandledError);
}

} // namespace
