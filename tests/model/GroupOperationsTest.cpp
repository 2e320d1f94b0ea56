#include <functional>

#include "CaseName.h"
#include "ModelFixture.h"
#include "UnhandledError.h"
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
    const QStringList before = column(p().rsUserGroups, "GroupName");
    expectKeyInString(AddTitle, AddPrompt, QString::fromUtf8(GetParam().proposal), Cancel);
    EXPECT_FALSE(AddUserGroup(g));
    EXPECT_EQ(column(p().rsUserGroups, "GroupName"), before);
    EXPECT_FALSE(p().IsProjectModified);
}

INSTANTIATE_TEST_SUITE_P(Proposals, GroupProposalTest, ::testing::ValuesIn(ProposalCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct AnswerCase
{
    const char* name;
    const char* typed;
    const char* stored; // nullptr: nothing is added
    const char* boxText = nullptr;
    const char* boxTitle = nullptr;
};

const AnswerCase AnswerCases[] = {
    {"blanks around the name are removed", "  A  ", "A"},
    {"blanks alone are empty", "   ", nullptr, "新增連絡人群組名稱不得為空白。\r\n新增連絡人群組失敗。",
        "新增連絡人群組失敗"},
    {"a name taken in another case is refused", "usergroup1", nullptr,
        "本使用者群組名稱[usergroup1]已經存在。", "本使用者群組名稱已經存在"},
};

class GroupAnswerTest : public ModelTest, public ::testing::WithParamInterface<AnswerCase>
{ };

TEST_P(GroupAnswerTest, TheAnswerIsTrimmedCheckedAndStored)
{
    const AnswerCase& c = GetParam();
    expectKeyInString(AddTitle, AddPrompt, "UserGroup2", QString::fromUtf8(c.typed));
    if (c.boxText)
        platform.expectBox(16, QString::fromUtf8(c.boxText), QString::fromUtf8(c.boxTitle));
    const QString stored = QString::fromUtf8(c.stored);
    if (c.stored) {
        // The row exists while the editor is open, and stays whatever the editor does.
        expectGroupEditor(
            true, [&] { EXPECT_EQ(NullToEmpty(p().rsUserGroups.Fields("GroupName")), stored); });
    }

    EXPECT_EQ(AddUserGroup(g), c.stored != nullptr);

    QStringList groups {"UserGroup1"};
    if (c.stored)
        groups << stored;
    EXPECT_EQ(column(p().rsUserGroups, "GroupName"), groups);
    EXPECT_EQ(p().IsProjectModified, c.stored != nullptr);
    if (c.stored) {
        EXPECT_EQ(field(p().rsUserGroups, "GroupName", stored, "GroupDsc"), QString());
        const RecordingView::Node added {2, {}, stored, "UserGroups", "UserGroups," + stored};
        ASSERT_EQ(view.nodes.size(), 6u);
        EXPECT_EQ(view.nodes.back(), added);
        EXPECT_EQ(view.selectedNode, 5);
        EXPECT_EQ(view.listFillCount, 2);
    } else {
        EXPECT_EQ(view.nodes.size(), 5u);
    }
}

INSTANTIATE_TEST_SUITE_P(Answers, GroupAnswerTest, ::testing::ValuesIn(AnswerCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(ModelTest, AGroupNamePastTheProposalsIsStillAccepted)
{
    for (int n = 2; n <= 99; ++n)
        addGroup(QStringLiteral("UserGroup%1").arg(n));
    expectKeyInString(AddTitle, AddPrompt, QString(), "UserGroup100");
    expectGroupEditor(true);
    EXPECT_TRUE(AddUserGroup(g));
    EXPECT_EQ(column(p().rsUserGroups, "GroupName").last(), "UserGroup100");
}

// Fire is used by zone 3 and by Ann and Cy; zone 7 and Bob name it in another case.
class DeleteGroupTest : public ModelTest
{
public:
    DeleteGroupTest()
    {
        addGroup("Fire");
        view.addNode(2, {}, "Fire", "UserGroups", "UserGroups,Fire");
        setZoneTarget(3, "Fire", "Hall");
        setZoneTarget(5, "ALL");
        setZoneTarget(7, "fire");
        addUser("Ann", "Fire" + CRLF + "UserGroup1", "0911");
        addUser("Bob", "fire", "0912");
        addUser("Cy", "Fire", "0913");
        FindRecord(p().rsUserGroups, "GroupName", "Fire", false);
        CountTelNo(p());
    }
};

TEST_F(DeleteGroupTest, ListsExactlyAndRemovesWithoutRegardToCase)
{
    platform.expectBox(52,
        QStringLiteral("確定是否要刪除這個連絡人群組[Fire]?\r\n"
                       "下列警報點對應本連絡人群組之參照將被移除:\r\n3 ,Hall\r\n"
                       "下列隸屬於本連絡人群組之連絡人[2]將被移除:\r\nAnn ,0911 ,\r\nCy ,0913 ,"),
        "是否確定刪除這個連絡人群組", MsgBox::Yes);

    EXPECT_TRUE(DeleteUserGroup(g));

    EXPECT_EQ(column(p().rsUserGroups, "GroupName"), QStringList {"UserGroup1"});
    // Zone 7's target differs in case and stays; Bob's list differs in case and goes.
    EXPECT_EQ(
        column(p().rsZones, "GroupName").mid(0, 8), QStringList({"", "", "", "", "", "ALL", "", "fire"}));
    EXPECT_EQ(column(p().rsUsers, "GroupName"), QStringList({"UserGroup1", "", ""}));
    EXPECT_EQ(p().TelNoCount, 4) << "left for the next CountTelNo";

    EXPECT_EQ(NullToEmpty(p().rsUserGroups.Fields("GroupName")), "UserGroup1");
    EXPECT_EQ(view.tags(),
        (std::vector<QString> {"ProjName", "Users", "UserGroups", "Zones", "UserGroups,UserGroup1"}));
    EXPECT_EQ(view.statusHistory,
        (std::vector<QString> {"正在刪除有關這個連絡人群組[Fire]中的相關資料...", QString()}));
    EXPECT_EQ(view.pointerHistory, (std::vector<int> {Pointer::Hourglass, Pointer::Default}));
    EXPECT_EQ(view.listFillCount, 1);
    EXPECT_TRUE(p().IsProjectModified);
}

TEST_F(DeleteGroupTest, NoChangesNothing)
{
    const QStringList groups = rows(p().rsUserGroups), users = rows(p().rsUsers), zones = rows(p().rsZones);
    platform.expectBoxWithAnyText(52, "是否確定刪除這個連絡人群組", MsgBox::No);
    EXPECT_FALSE(DeleteUserGroup(g));
    EXPECT_EQ(rows(p().rsUserGroups), groups);
    EXPECT_EQ(rows(p().rsUsers), users);
    EXPECT_EQ(rows(p().rsZones), zones);
    EXPECT_EQ(view.nodes.size(), 6u);
    EXPECT_FALSE(p().IsProjectModified);
}

TEST_F(ModelTest, AnUnusedGroupIsAskedForWithBothLineBreaks)
{
    addGroup("Spare");
    view.addNode(2, {}, "Spare", "UserGroups", "UserGroups,Spare");
    platform.expectBox(
        52, "確定是否要刪除這個連絡人群組[Spare]?\r\n\r\n", "是否確定刪除這個連絡人群組", MsgBox::Yes);
    EXPECT_TRUE(DeleteUserGroup(g));
    EXPECT_EQ(p().rsUserGroups.RecordCount(), 1);
}

TEST_F(ModelTest, TheLastGroupIsKept)
{
    p().rsUserGroups.MoveFirst();
    platform.expectBox(48, "不可刪除群組！\r\n群組至少留一組，不可全刪除。", "不可刪除群組");
    EXPECT_FALSE(DeleteUserGroup(g));
    EXPECT_EQ(p().rsUserGroups.RecordCount(), 1);
}

TEST_F(ModelTest, DeletingWithoutACurrentGroupEndsTheProgram)
{
    addGroup("Spare");
    p().rsUserGroups.MoveLast();
    p().rsUserGroups.MoveNext();
    try {
        DeleteUserGroup(g);
        FAIL() << "no current row must end the program";
    } catch (const UnhandledError& e) {
        EXPECT_EQ(e.text(), "GroupList資料表的CurrentRecord未指到可用的資料。\r\n刪除連絡人群組失敗。");
        EXPECT_EQ(e.title(), "刪除連絡人群組失敗");
        EXPECT_EQ(e.flags(), 16);
    }
    EXPECT_EQ(p().rsUserGroups.RecordCount(), 2);
}

} // namespace
