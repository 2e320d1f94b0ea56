#include <vector>

#include "CaseName.h"
#include "MLUtil.h"
#include "ModelFixture.h"
#include "ProjectForms.h"
#include "UnhandledError.h"
#include "VORNAUtil.h"

namespace {

QString S(const char* text)
{
    return QString::fromUtf8(text);
}

// n Chinese characters, two bytes each in Big5.
QString Zh(int n)
{
    return QString(n, QChar(0x706B));
}

// The dialogs themselves, shown through the scripted platform.
class EditorTest : public ModelTest
{
public:
    EditorTest() { g.setDialogs(&forms); }

    // Every row of a table, its fields joined, in table order.
    QStringList rows(Recordset& rs)
    {
        QStringList all;
        Recordset clone = rs.Clone();
        for (clone.MoveFirst(); !clone.IsEOF(); clone.MoveNext()) {
            QStringList fields;
            for (int i = 0; i < clone.FieldCount(); ++i)
                fields << NullToEmpty(clone.Fields(i));
            all << fields.join(u'|');
        }
        clone.Close();
        return all;
    }
    // Makes the zone the current row, as the window does before its editor opens, and
    // scripts what the user does in the editor.
    void expectZoneEditor(int zoneNo, std::function<void(frmEditZoneList&)> user)
    {
        ASSERT_TRUE(FindRecord(p().rsZones, QStringLiteral("ZoneNo"), QString::number(zoneNo), false));
        platform.expectModal(
            QStringLiteral("frmEditZoneList"), [this, user](FormModel&) { user(forms.editZoneList); });
    }

    ProjectForms forms {g};
};

struct KeyInCase
{
    const char* name;
    const char* typed;
    bool ok;
    const char* answer;
};

const KeyInCase KeyInCases[] = {
    {"blanks around the text are removed", "  abc  ", true, "abc"},
    {"blanks alone give the empty string", "   ", true, ""},
    {"cancel gives the cancel mark", "abc", false, "連絡人按下取消鍵"},
    {"typing the cancel mark is taken for cancel", "連絡人按下取消鍵", true, "連絡人按下取消鍵"},
};

class KeyInStringTest : public EditorTest, public ::testing::WithParamInterface<KeyInCase>
{ };

TEST_P(KeyInStringTest, AnswersTheBoxTrimmedOrTheCancelMark)
{
    const KeyInCase& c = GetParam();
    platform.expectModal(QStringLiteral("frmKeyInString"), [&](FormModel&) {
        frmKeyInString& f = forms.keyInString;
        // The proposal is selected whole in the box that has the focus, so typing replaces it.
        EXPECT_EQ(f.txtKeyInString.SelLength, 8);
        EXPECT_EQ(f.takeFocusRequest(), &f.txtKeyInString);
        f.txtKeyInString.Text = S(c.typed);
        c.ok ? f.cmdOK_Click() : f.cmdCancel_Click();
    });
    EXPECT_EQ(KeyInString(g, S("Title"), S("Prompt"), S("Proposal"), QString()), S(c.answer));
}

INSTANTIATE_TEST_SUITE_P(Answers, KeyInStringTest, ::testing::ValuesIn(KeyInCases),
    [](const auto& info) { return CaseName(info.param.name); });

// Group A is renamed B: lists and targets that name it exactly follow, others stay.
class RenameGroupTest : public EditorTest
{
public:
    RenameGroupTest()
    {
        for (const char* name : {"X", "A", "C"})
            addGroup(S(name));
        view.addNode(2, {}, S("A"), S("UserGroups"), S("UserGroups,A"));
        for (const char* list : {"X\r\nA\r\nC", "C\r\nA", "A", "a\r\nC", ""})
            addUser(S("U") + QString::number(p().rsUsers.RecordCount()), S(list));
        setZoneTarget(1, S("A"));
        setZoneTarget(2, S("ALL"));
        setZoneTarget(3, S("a"));
        FindRecord(p().rsUserGroups, S("GroupName"), S("A"), false);
    }
    void renameAToB(bool ok)
    {
        platform.expectModal(S("frmEditGroupList"), [this, ok](FormModel&) {
            frmEditGroupList& f = forms.editGroupList;
            f.cmdRename_Click();
            EXPECT_EQ(f.lblGroupName.Caption, S("B"));
            f.txtGroupDsc.Text = S("described");
            ok ? f.cmdOK_Click() : f.cmdCancel_Click();
        });
        platform.expectModal(S("frmKeyInString"), [this](FormModel&) {
            forms.keyInString.txtKeyInString.Text = S("B");
            forms.keyInString.cmdOK_Click();
        });
        g.dialogs().showEditGroupList(false);
    }
};

TEST_F(RenameGroupTest, OkReplacesTheNameInListsAndTargetsAndTheTree)
{
    renameAToB(true);
    EXPECT_EQ(column(p().rsUserGroups, S("GroupName")), QStringList({"UserGroup1", "X", "B", "C"}));
    EXPECT_EQ(field(p().rsUserGroups, S("GroupName"), S("B"), S("GroupDsc")), S("described"));
    // An exact entry replaces all that stands before it in the list.
    EXPECT_EQ(column(p().rsUsers, S("GroupName")), QStringList({"B\r\nC", "B", "B", "a\r\nC", ""}));
    EXPECT_EQ(column(p().rsZones, S("GroupName")).mid(0, 4), QStringList({"", "B", "ALL", "a"}));
    EXPECT_EQ(view.nodes.back().Text, S("B"));
    EXPECT_EQ(view.nodes.back().Tag, S("UserGroups,B"));
    EXPECT_TRUE(p().IsProjectModified);
}

TEST_F(RenameGroupTest, CancelForgetsTheRenameAndTheDescription)
{
    const QStringList groups = rows(p().rsUserGroups), users = rows(p().rsUsers), zones = rows(p().rsZones);
    renameAToB(false);
    EXPECT_EQ(rows(p().rsUserGroups), groups);
    EXPECT_EQ(rows(p().rsUsers), users);
    EXPECT_EQ(rows(p().rsZones), zones);
    EXPECT_EQ(view.nodes.back().Tag, S("UserGroups,A"));
    EXPECT_FALSE(p().IsProjectModified);
}

struct RenameCase
{
    const char* name;
    const char* typed;
    const char* label;
    const char* boxText = nullptr;
    const char* boxTitle = nullptr;
};

const RenameCase RenameCases[] = {
    {"cancel keeps the name", "連絡人按下取消鍵", "A"},
    {"the same name is not checked", "A", "A"},
    {"a change of case is refused as taken", "a", "A", "本使用者群組名稱[a]已經存在。",
        "本使用者群組名稱已經存在"},
};

class RenameAnswerTest : public RenameGroupTest, public ::testing::WithParamInterface<RenameCase>
{ };

TEST_P(RenameAnswerTest, OnlyAValidNewNameReachesTheLabel)
{
    const RenameCase& c = GetParam();
    platform.expectModal(S("frmEditGroupList"), [&](FormModel&) {
        frmEditGroupList& f = forms.editGroupList;
        EXPECT_TRUE(f.cmdRename.Enabled);
        f.cmdRename_Click();
        EXPECT_EQ(f.lblGroupName.Caption, S(c.label));
        f.cmdCancel_Click();
    });
    platform.expectModal(S("frmKeyInString"), [&](FormModel&) {
        forms.keyInString.txtKeyInString.Text = S(c.typed);
        forms.keyInString.cmdOK_Click();
    });
    if (c.boxText)
        platform.expectBox(MsgBox::Critical, S(c.boxText), S(c.boxTitle));
    g.dialogs().showEditGroupList(false);
}

INSTANTIATE_TEST_SUITE_P(Answers, RenameAnswerTest, ::testing::ValuesIn(RenameCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(EditorTest, ANewGroupCannotBeRenamedInItsFirstEditor)
{
    platform.expectModal(S("frmEditGroupList"), [this](FormModel&) {
        EXPECT_FALSE(forms.editGroupList.cmdRename.Enabled);
        forms.editGroupList.cmdCancel_Click();
    });
    g.dialogs().showEditGroupList(true);
}

struct SizeCase
{
    const char* name;
    bool unicode;
    QString alarm;
    QString reset;
    int alarmUsed;
    const char* boxText = nullptr; // nullptr: OK saves
    const char* boxTitle = nullptr;
    bool resetRefused = false;
};

const SizeCase SizeCases[] = {
    {"70 characters pass", true, Zh(70), Zh(70), 70},
    {"71 characters are refused", true, Zh(71), {}, 71, "警報發起訊息長度不得超過70個字!",
        "警報發起訊息長度超過限制"},
    {"a line break counts two characters", true, Zh(34) + CRLF + Zh(35), {}, 71,
        "警報發起訊息長度不得超過70個字!", "警報發起訊息長度超過限制"},
    {"the reset message is checked once the alarm message fits", true, Zh(70), Zh(71), 70,
        "警報復歸訊息長度不得超過70個字!", "警報復歸訊息長度超過限制", true},
    {"only the alarm message is reported when both are too long", true, Zh(71), Zh(71), 71,
        "警報發起訊息長度不得超過70個字!", "警報發起訊息長度超過限制"},
    {"80 Chinese characters are 160 bytes and pass", false, Zh(80), Zh(80), 160},
    {"81 Chinese characters are refused", false, Zh(81), {}, 162, "警報發起訊息長度不得超過160個位元組!",
        "警報發起訊息長度超過限制"},
    {"a line break counts two bytes", false, Zh(79) + CRLF + S("a"), {}, 161,
        "警報發起訊息長度不得超過160個位元組!", "警報發起訊息長度超過限制"},
    {"a reset message over 160 bytes is refused", false, {}, Zh(81), 0,
        "警報復歸訊息長度不得超過160個位元組!", "警報復歸訊息長度超過限制", true},
};

class MessageSizeTest : public EditorTest, public ::testing::WithParamInterface<SizeCase>
{ };

TEST_P(MessageSizeTest, OkRefusesAMessagePastItsLimitWithTheFocusOnIt)
{
    const SizeCase& c = GetParam();
    p().rsBasic.MoveFirst();
    p().rsBasic.setField(S("IsUnicode"), c.unicode);
    p().rsBasic.Update();
    expectZoneEditor(3, [&](frmEditZoneList& f) {
        f.txtAlarmSMS.Text = c.alarm;
        f.txtResetSMS.Text = c.reset;
        EXPECT_EQ(f.MessageSizeOf(c.alarm).used, c.alarmUsed);
        f.cmdOK_Click();
        if (!c.boxText)
            return;
        EXPECT_TRUE(f.Visible);
        EXPECT_EQ(f.takeFocusRequest(), c.resetRefused ? &f.txtResetSMS : &f.txtAlarmSMS);
        f.cmdCancel_Click();
    });
    if (c.boxText)
        platform.expectBox(MsgBox::Critical, S(c.boxText), S(c.boxTitle));
    g.dialogs().showEditZoneList();
    EXPECT_EQ(field(p().rsZones, S("ZoneNo"), S("3"), S("AlarmSMS")), c.boxText ? QString() : c.alarm);
}

INSTANTIATE_TEST_SUITE_P(Limits, MessageSizeTest, ::testing::ValuesIn(SizeCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct TargetCase
{
    const char* name;
    bool withGroups;
    const char* stored;
    int listIndex;
    int picked; // -1: the row shown at opening
    const char* saved;
};

const TargetCase TargetCases[] = {
    {"NONE alone without groups, and it leaves the target", false, "", 0, -1, ""},
    {"no target opens on the first group", true, "", 0, -1, "UserGroup1"},
    {"ALL opens on every group", true, "ALL", 2, -1, "ALL"},
    {"every group is stored as ALL", true, "Fire", 1, 2, "ALL"},
    {"a group is stored by its name", true, "ALL", 2, 1, "Fire"},
};

class ZoneTargetTest : public EditorTest, public ::testing::WithParamInterface<TargetCase>
{ };

TEST_P(ZoneTargetTest, TheComboOffersTheGroupsAndStoresTheValueOfItsRow)
{
    const TargetCase& c = GetParam();
    if (c.withGroups) {
        // A group without a name is not offered.
        addGroup(QString());
        addGroup(S("Fire"));
    } else {
        p().rsUserGroups.MoveFirst();
        p().rsUserGroups.Delete();
    }
    setZoneTarget(3, S(c.stored));
    const std::vector<QString> list = c.withGroups
        ? std::vector<QString> {S("UserGroup1"), S("Fire"), S("所有連絡人群組")}
        : std::vector<QString> {S("NONE")};
    expectZoneEditor(3, [&](frmEditZoneList& f) {
        EXPECT_EQ(f.cmbGroupName.List, list);
        EXPECT_EQ(f.cmbGroupName.ListIndex, c.listIndex);
        if (c.picked >= 0)
            f.cmbGroupName.ListIndex = c.picked;
        f.cmdOK_Click();
    });
    g.dialogs().showEditZoneList();
    EXPECT_EQ(field(p().rsZones, S("ZoneNo"), S("3"), S("GroupName")), S(c.saved));
}

INSTANTIATE_TEST_SUITE_P(Targets, ZoneTargetTest, ::testing::ValuesIn(TargetCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(EditorTest, AStoredTargetThatNoRowHoldsStopsTheProgram)
{
    setZoneTarget(3, S("Gone"));
    ASSERT_TRUE(FindRecord(p().rsZones, S("ZoneNo"), S("3"), false));
    EXPECT_THROW(g.dialogs().showEditZoneList(), UnhandledError);
}

TEST_F(EditorTest, OkWritesTheZoneAndItsNode)
{
    view.addNode(3, S("Zones3"), S("#3"), S("Alarm"), S("Zones,3"));
    const QStringList before = rows(p().rsZones);
    expectZoneEditor(3, [](frmEditZoneList& f) {
        f.txtZoneName.Text = S("Hall");
        f.txtZoneDsc.Text = S("ground floor");
        f.txtAlarmSMS.Text = S("火警") + CRLF + S("請離開");
        f.txtResetSMS.Text = S("OK");
        f.chkIsDisable.Value = CheckBox::Checked;
        f.cmdOK_Click();
    });
    g.dialogs().showEditZoneList();
    const QStringList saved = rows(p().rsZones);
    EXPECT_EQ(saved.mid(0, 3), before.mid(0, 3));
    EXPECT_EQ(saved[3].toStdString(), "3|Hall|ground floor|UserGroup1|火警\r\n請離開|OK|True");
    EXPECT_EQ(view.nodes.back().Text, S("#3-Hall"));
    EXPECT_EQ(view.nodes.back().ForeColor, SystemColor::GrayText);
    EXPECT_TRUE(p().IsProjectModified);
}

TEST_F(EditorTest, EveryFormTextOfTheDialogsHasTextInEveryLanguage)
{
    for (const char* language : {"ChineseBig5", "ChineseGB", "English"}) {
        MLUtil ml(platform);
        ml.CurOriginalLang = ml.CurAppliedLang = ml.CurAlternateLang = S(language);
        ml.OpenMLConn(S("VORNA.ml"));
        ml.LoadFormTable();
        for (FormModel* form : forms.forms())
            for (const FormTextPath& t : form->formTexts())
                EXPECT_FALSE(ml.GetFormText(form->formName(), S(t.path), S(t.property)).isEmpty())
                    << language << " " << form->formName().toStdString() << " [" << t.path << "]";
    }
}

} // namespace
