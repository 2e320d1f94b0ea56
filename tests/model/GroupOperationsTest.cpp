#include <functional>

#include "CaseName.h"
#include "ModelFixture.h"
#include "VORNAUtil.h"

namespace {

const QString AddTitle = "新增連絡人群組";
const QString AddPrompt = "請輸入新連絡人群組名稱:";
const QString Cancel = "連絡人按下取消鍵";

struct ProposalCase
{
    const char* name;
    std::function<void(ModelTest&)> setUp;
    const char* proposal;
};

const ProposalCase ProposalCases[] = {
    {"after the template's group", [](ModelTest&) {}, "UserGroup2"},
    {"the first gap", [](ModelTest& t) { t.addGroup("UserGroup3"); }, "UserGroup2"},
    {"an empty table",
        [](ModelTest& t) {
            t.p().rsUserGroups.MoveFirst();
            t.p().rsUserGroups.Delete();
        },
        "UserGroup1"},
    {"another case does not hold a number back",
        [](ModelTest& t) {
            t.p().rsUserGroups.MoveFirst();
            t.p().rsUserGroups.setField("GroupName", "usergroup1");
            t.p().rsUserGroups.Update();
        },
        "UserGroup1"},
    {"blank when all 99 are taken",
        [](ModelTest& t) {
            for (int n = 2; n <= 99; ++n)
                t.addGroup(QStringLiteral("UserGroup%1").arg(n));
        },
        ""},
};

class GroupProposalTest : public ModelTest, public ::testing::WithParamInterface<ProposalCase>
{ };

TEST_P(GroupProposalTest, KeyInStringOpensWithTheProposal)
{
    GetParam().setUp(*this);
    const QString before = table("UserGroups", p().rsUserGroups);
    expectKeyInString(AddTitle, AddPrompt, QString::fromUtf8(GetParam().proposal), Cancel);
    EXPECT_FALSE(AddUserGroup(g));
    EXPECT_EQ(table("UserGroups", p().rsUserGroups), before);
    EXPECT_FALSE(p().IsProjectModified);
}

INSTANTIATE_TEST_SUITE_P(Proposals, GroupProposalTest, ::testing::ValuesIn(ProposalCases),
    [](const auto& info) { return CaseName(info.param.name); });

class GroupAnswerModel : public FreshModel<ModelTest>
{
public:
    // Adds a group answered with the typed name; the row exists while its editor is open, and
    // stays whatever the editor does.
    QString add(const QString& typed, int boxFlags, const QString& boxTitle)
    {
        expectKeyInString(AddTitle, AddPrompt, "UserGroup2", typed);
        if (boxFlags)
            platform.expectBoxWithAnyText(boxFlags, boxTitle);
        else
            expectGroupEditor(true, [this] { EXPECT_EQ(FieldText(p().rsUserGroups, "GroupName"), "A"); });
        const bool added = AddUserGroup(g);
        return QStringLiteral("== typed \"%1\": %2\n").arg(typed).arg(added) + state();
    }
};

TEST(AddUserGroup, TheAnswerIsTrimmedCheckedAndStored)
{
    QString out = GroupAnswerModel().add("  A  ", 0, {});
    out += GroupAnswerModel().add("   ", 16, "新增連絡人群組失敗");
    out += GroupAnswerModel().add("usergroup1", 16, "本使用者群組名稱已經存在");
    ExpectGolden("model/golden/add-group.txt", out);
}

TEST_F(ModelTest, AGroupNamePastTheProposalsIsStillAccepted)
{
    for (int n = 2; n <= 99; ++n)
        addGroup(QStringLiteral("UserGroup%1").arg(n));
    expectKeyInString(AddTitle, AddPrompt, QString(), "UserGroup100");
    expectGroupEditor(true);
    EXPECT_TRUE(AddUserGroup(g));
    EXPECT_TRUE(table("UserGroups", p().rsUserGroups).endsWith("\n  UserGroup100|\n"));
}

struct DeleteCase
{
    const char* name;
    std::function<void(ModelTest&)> setUp;
    int flags;
    int answer;
};

// Fire is used by zone 3 and by Ann and Cy; zone 7 and Bob name it in another case, and stay
// out of the lists, but Bob's list goes with it.
void FireInUse(ModelTest& t)
{
    t.addGroup("Fire");
    t.view.addNode(2, {}, "Fire", "UserGroups", "UserGroups,Fire");
    t.setZoneTarget(3, "Fire", "Hall");
    t.setZoneTarget(5, "ALL");
    t.setZoneTarget(7, "fire");
    t.addUser("Ann", "Fire" + CRLF + "UserGroup1", "0911");
    t.addUser("Bob", "fire", "0912");
    t.addUser("Cy", "Fire", "0913");
    FindRecord(t.p().rsUserGroups, "GroupName", "Fire", false);
    CountTelNo(t.p());
}

const DeleteCase DeleteCases[] = {
    // The count of targets is left for the next CountTelNo.
    {"a group in use, Yes", FireInUse, 52, MsgBox::Yes},
    {"a group in use, No changes nothing", FireInUse, 52, MsgBox::No},
    {"an unused group is asked for with both line breaks",
        [](ModelTest& t) {
            t.addGroup("Spare");
            t.view.addNode(2, {}, "Spare", "UserGroups", "UserGroups,Spare");
        },
        52, MsgBox::Yes},
    {"the last group is kept", [](ModelTest& t) { t.p().rsUserGroups.MoveFirst(); }, 48, MsgBox::OK},
};

class DeleteGroupModel : public FreshModel<ModelTest>
{
public:
    QString remove(const DeleteCase& c)
    {
        c.setUp(*this);
        view.statusHistory.clear();
        platform.expectBoxWithAnyText(
            c.flags, c.flags == 48 ? "不可刪除群組" : "是否確定刪除這個連絡人群組", c.answer);
        const bool deleted = DeleteUserGroup(g);
        return QStringLiteral("== %1: %2\n").arg(c.name).arg(deleted) + state()
            + "current group: " + FieldText(p().rsUserGroups, "GroupName") + "\n";
    }
};

TEST(DeleteUserGroup, ListsWhatGoesAndRemovesItWithoutRegardToCase)
{
    QString out;
    for (const DeleteCase& c : DeleteCases)
        out += DeleteGroupModel().remove(c);
    ExpectGolden("model/golden/delete-group.txt", out);
}

} // namespace
