#include <functional>
#include <map>

#include "CaseName.h"
#include "ModelFixture.h"
#include "UnhandledError.h"
#include "ValidUtil.h"

namespace {

enum class Refusal { None, Empty, Reserved, Duplicate };

struct NameCase
{
    const char* name;
    const char* proposed;
    Refusal refusal;
};

// Both checks run against a group and a contact each called "Existing".
const NameCase NameCases[] = {
    {"a new name passes", "Office", Refusal::None},
    {"empty is refused", "", Refusal::Empty},
    {"blanks are a name, as nothing trims here", " ", Refusal::None},
    {"all in lower case is reserved", "all", Refusal::Reserved},
    {"All Group in mixed case is reserved", "All Group", Refusal::Reserved},
    {"ALL USER GROUP is reserved", "ALL USER GROUP", Refusal::Reserved},
    {"none is reserved", "none", Refusal::Reserved},
    {"the Chinese word is reserved exactly", "所有群組", Refusal::Reserved},
    {"a variant of the Chinese word passes", "所有群組A", Refusal::None},
    {"a trailing blank escapes the reserved words", "all group ", Refusal::None},
    {"NONE2 passes", "NONE2", Refusal::None},
    {"a duplicate in another case is refused", "eXISTING", Refusal::Duplicate},
    {"a comma passes", "a,b", Refusal::None},
};

// Both checks of each name against a group and a contact each called "Existing", their answers
// and their boxes; the contact's reserved-name box speaks of a group name in its first line and
// title as well.
TEST(NameChecks, GroupAndContactNamesAreCheckedAlike)
{
    const std::map<Refusal, std::pair<QString, QString>> titles = {
        {Refusal::Empty, {"本使用者群組名稱不得為空白", "本使用者名稱不得為空白"}},
        {Refusal::Reserved, {"不合法的使用者群組名稱", "不合法的使用者群組名稱"}},
        {Refusal::Duplicate, {"本使用者群組名稱已經存在", "本電話使用者名稱已經存在"}},
    };
    QString out;
    for (const NameCase& c : NameCases) {
        FreshModel<ModelTest> t;
        const QString name = QString::fromUtf8(c.proposed);
        t.addGroup("Existing");
        t.addUser("Existing", QString());
        if (c.refusal != Refusal::None) {
            t.platform.expectBoxWithAnyText(16, titles.at(c.refusal).first);
            t.platform.expectBoxWithAnyText(16, titles.at(c.refusal).second);
        }
        EXPECT_EQ(IsValidGroupName(t.g, name), c.refusal == Refusal::None) << c.name;
        EXPECT_EQ(IsValidUserName(t.g, name), c.refusal == Refusal::None) << c.name;
        out += QStringLiteral("== %1: \"%2\"\n").arg(c.name, name) + t.boxes();
    }
    ExpectGolden("model/golden/name-checks.txt", out);
}

TEST_F(ModelTest, NameChecksLeaveTheCurrentRowsWhereTheyStand)
{
    addGroup("Second");
    addUser("Ann", QString());
    ASSERT_TRUE(FindRecord(p().rsUserGroups, "GroupName", "Second", false));
    EXPECT_TRUE(IsValidGroupName(g, "Third"));
    EXPECT_TRUE(IsValidUserName(g, "Bob"));
    EXPECT_EQ(NullToEmpty(p().rsUserGroups.Fields("GroupName")), "Second");
    EXPECT_EQ(NullToEmpty(p().rsUsers.Fields("UserName")), "Ann");
}

struct ReadyCase
{
    const char* name;
    std::function<void(ModelTest&)> setUp;
    bool passes;
};

const ReadyCase ReadyCases[] = {
    {"no group", [](ModelTest& t) { DeleteRows(t.p().rsUserGroups); }, false},
    {"a group without a name", [](ModelTest& t) { t.addGroup(QString()); }, false},
    {"groups but no contact give their number",
        [](ModelTest& t) {
            t.addGroup("B");
            t.addGroup("C");
        },
        false},
    {"a contact of one group without a number",
        [](ModelTest& t) { t.addUser("Ann", "UserGroup1", QString()); }, false},
    {"a contact of one group without a name", [](ModelTest& t) { t.addUser(QString(), "UserGroup1"); },
        false},
    {"a suspended contact without a number passes",
        [](ModelTest& t) { t.addUser("Ann", "UserGroup1", QString(), true); }, true},
    {"a contact of two groups is not checked",
        [](ModelTest& t) {
            t.addGroup("B");
            t.addUser("Ann", "UserGroup1" + CRLF + "B", QString());
            t.addUser("Bob", "UserGroup1");
        },
        true},
    {"a contact of no group is not checked", [](ModelTest& t) { t.addUser("Ann", QString(), QString()); },
        true},
    {"the group list is compared exactly", [](ModelTest& t) { t.addUser("Ann", "usergroup1", QString()); },
        true},
    {"a group without members passes", [](ModelTest& t) { t.addUser("Ann", QString()); }, true},
    {"128 targets pass",
        [](ModelTest& t) {
            t.addUser("Ann", QString());
            t.p().ProjTelCount = 128;
            t.p().ProjGroupCount = 128;
        },
        true},
    {"129 groups by the sizing are refused",
        [](ModelTest& t) {
            t.addUser("Ann", QString());
            t.p().ProjGroupCount = 129;
        },
        false},
    {"129 targets are refused",
        [](ModelTest& t) {
            t.addUser("Ann", QString());
            t.p().ProjTelCount = 129;
        },
        false},
    {"100 groups pass",
        [](ModelTest& t) {
            for (int i = 2; i <= 100; ++i)
                t.addGroup(QStringLiteral("G%1").arg(i));
            t.addUser("Ann", "G100");
        },
        true},
};

// Each project of its own; a project that fails shows the box of its first failing step.
TEST(IsProjectReady, StopsAtTheFirstFailingStep)
{
    QString out;
    for (const ReadyCase& c : ReadyCases) {
        FreshModel<ModelTest> t;
        c.setUp(t);
        if (!c.passes)
            t.platform.expectBoxWithAnyText(16, "下載取消");
        EXPECT_EQ(IsProjectReady(t.g), c.passes) << c.name;
        out += QStringLiteral("== %1\n").arg(c.name) + t.boxes();
    }
    ExpectGolden("model/golden/project-ready.txt", out);
}

TEST_F(ModelTest, The101stGroupEndsTheProgramInIsProjectReady)
{
    for (int i = 2; i <= 101; ++i)
        addGroup(QStringLiteral("G%1").arg(i));
    addUser("Ann", "G2");
    try {
        IsProjectReady(g);
        FAIL() << "a 101st group must not pass";
    } catch (const UnhandledError& e) {
        EXPECT_EQ(e.text(), "Subscript out of range");
    }
}

} // namespace
