#include <vector>

#include "CaseName.h"
#include "ModelFixture.h"
#include "UnhandledError.h"
#include "frmEditZoneList.h"

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

// The editors on a tree that holds zones 1 to 3 as well.
class EditorTest : public ModelTest
{
public:
    EditorTest()
    {
        for (int zone = 1; zone <= 3; ++zone)
            view.addNode(3, S("Zones%1").arg(zone), S("#%1").arg(zone), S("Alarm"), S("Zones,%1").arg(zone));
    }

    // Makes the zone the current row, as the window does before its editor opens, and
    // scripts what the user does in the editor.
    void expectZoneEditor(int zoneNo, std::function<void(frmEditZoneList&)> user)
    {
        ASSERT_TRUE(FindRecord(p().rsZones, "ZoneNo", QString::number(zoneNo), false));
        expectDialog<frmEditZoneList>(std::move(user));
    }
};

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
    // Renames A in its editor to the typed name, sets a description and closes the editor with OK
    // or Cancel; prints the name the editor shows after the rename, and the project when the name
    // changed.
    QString rename(const QString& typed, bool ok)
    {
        QString out = QStringLiteral("== \"%1\", %2\n").arg(typed, ok ? "OK" : "Cancel");
        expectDialog<frmEditGroupList>([&](frmEditGroupList& f) {
            f.cmdRename_Click();
            out += "label: " + f.lblGroupName.Caption + "\n";
            f.txtGroupDsc.Text = S("described");
            ok ? f.cmdOK_Click() : f.cmdCancel_Click();
        });
        expectKeyInString(S("變更連絡人群組名稱"), S("請輸入新連絡人群組名稱:"), S("A"), typed);
        if (typed == S("a"))
            platform.expectBoxWithAnyText(MsgBox::Critical, S("本使用者群組名稱已經存在"));
        ShowDialog<frmEditGroupList>(g, false);
        return out + (typed == S("B") ? state() : boxes());
    }
};

// An exact entry replaces all that stands before it in a contact's list; Cancel forgets the
// rename and the description. Cancel in the name box keeps the name, the same name is not
// checked, and a change of case is refused as taken.
TEST(RenameGroup, OkReplacesTheNameInListsAndTargetsAndTheTree)
{
    QString out;
    for (const auto& [typed, ok] :
        {std::pair {"B", true}, {"B", false}, {"連絡人按下取消鍵", true}, {"A", true}, {"a", true}})
        out += FreshModel<RenameGroupTest>().rename(S(typed), ok);
    ExpectGolden("model/golden/rename-group.txt", out);
}

struct SizeCase
{
    const char* name;
    bool unicode;
    QString alarm;
    QString reset;
    int alarmUsed;
    const char* boxText = nullptr; // nullptr: OK saves
    int titleId = 0;               // the key of the box's title, piece 2, shared by both measures
    bool resetRefused = false;
};

const SizeCase SizeCases[] = {
    {"70 characters pass", true, Zh(70), Zh(70), 70},
    {"71 characters are refused", true, Zh(71), {}, 71, "警報發起訊息長度不得超過70個字!", 255},
    {"a line break counts two characters", true, Zh(34) + CRLF + Zh(35), {}, 71,
        "警報發起訊息長度不得超過70個字!", 255},
    {"the reset message is checked once the alarm message fits", true, Zh(70), Zh(71), 70,
        "警報復歸訊息長度不得超過70個字!", 274, true},
    {"only the alarm message is reported when both are too long", true, Zh(71), Zh(71), 71,
        "警報發起訊息長度不得超過70個字!", 255},
    {"80 Chinese characters are 160 bytes and pass", false, Zh(80), Zh(80), 160},
    {"81 Chinese characters are refused", false, Zh(81), {}, 162, "警報發起訊息長度不得超過160個位元組!",
        255},
    {"a line break counts two bytes", false, Zh(79) + CRLF + S("a"), {}, 161,
        "警報發起訊息長度不得超過160個位元組!", 255},
    {"a reset message over 160 bytes is refused", false, {}, Zh(81), 0,
        "警報復歸訊息長度不得超過160個位元組!", 274, true},
};

class MessageSizeTest : public EditorTest, public ::testing::WithParamInterface<SizeCase>
{ };

TEST_P(MessageSizeTest, OkRefusesAMessagePastItsLimitWithTheFocusOnIt)
{
    const SizeCase& c = GetParam();
    // A language whose rows are titles named for their keys, the two unused ones included.
    g.ml.CurAppliedLang = S("English");
    TextModule titles {S("EditZoneList"), {}};
    for (qint16 id : {255, 261, 268, 274})
        titles.Items.push_back({id, 2, {}, S("title %1").arg(id)});
    g.ml.TextTable = {titles};
    SetUnicode(p(), c.unicode);
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
        platform.expectBox(MsgBox::Critical, S(c.boxText), S("title %1").arg(c.titleId));
    ShowDialog<frmEditZoneList>(g);
    EXPECT_EQ(Column(p().rsZones, "AlarmSMS").at(3), c.boxText ? QString() : c.alarm);
}

INSTANTIATE_TEST_SUITE_P(Limits, MessageSizeTest, ::testing::ValuesIn(SizeCases),
    [](const auto& info) { return CaseName(info.param.name); });

struct TargetCase
{
    const char* name;
    const char* group; // added after the template's; nullptr: the project has no group
    const char* stored;
    int listIndex;
    int picked; // -1: the row shown at opening
    const char* saved;
};

const TargetCase TargetCases[] = {
    {"NONE alone without groups, and it leaves the target", nullptr, "", 0, -1, ""},
    {"no target opens on the first group", "Fire", "", 0, -1, "UserGroup1"},
    {"ALL opens on every group", "Fire", "ALL", 2, -1, "ALL"},
    {"every group is stored as ALL", "Fire", "Fire", 1, 2, "ALL"},
    {"a group is stored by its name", "Fire", "ALL", 2, 1, "Fire"},
    {"a group named like every group is stored as ALL", "所有連絡人群組", "所有連絡人群組", 1, -1, "ALL"},
};

class ZoneTargetTest : public EditorTest, public ::testing::WithParamInterface<TargetCase>
{ };

TEST_P(ZoneTargetTest, TheComboOffersTheGroupsAndStoresTheTextOfItsRow)
{
    const TargetCase& c = GetParam();
    if (c.group) {
        // A group without a name is not offered.
        addGroup(QString());
        addGroup(S(c.group));
    } else {
        p().rsUserGroups.MoveFirst();
        p().rsUserGroups.Delete();
    }
    setZoneTarget(3, S(c.stored));
    const std::vector<QString> list = c.group
        ? std::vector<QString> {S("UserGroup1"), S(c.group), S("所有連絡人群組")}
        : std::vector<QString> {S("NONE")};
    expectZoneEditor(3, [&](frmEditZoneList& f) {
        EXPECT_EQ(f.cmbGroupName.List, list);
        EXPECT_EQ(f.cmbGroupName.ListIndex, c.listIndex);
        if (c.picked >= 0)
            f.cmbGroupName.SelectRow(c.picked);
        f.cmdOK_Click();
    });
    ShowDialog<frmEditZoneList>(g);
    EXPECT_EQ(Column(p().rsZones, "GroupName").at(3), S(c.saved));
}

INSTANTIATE_TEST_SUITE_P(Targets, ZoneTargetTest, ::testing::ValuesIn(TargetCases),
    [](const auto& info) { return CaseName(info.param.name); });

TEST_F(EditorTest, AStoredTargetThatNoRowHoldsStopsTheProgram)
{
    setZoneTarget(3, S("Gone"));
    ASSERT_TRUE(FindRecord(p().rsZones, S("ZoneNo"), S("3"), false));
    EXPECT_THROW(ShowDialog<frmEditZoneList>(g), UnhandledError);
}

TEST_F(EditorTest, OkWritesTheZoneAndItsNode)
{
    expectZoneEditor(3, [](frmEditZoneList& f) {
        f.txtZoneName.Text = S("Hall");
        f.txtZoneDsc.Text = S("ground floor");
        f.txtAlarmSMS.Text = S("火警") + CRLF + S("請離開");
        f.txtResetSMS.Text = S("OK");
        f.chkIsDisable.Value = CheckBox::Checked;
        f.cmdOK_Click();
    });
    ShowDialog<frmEditZoneList>(g);
    ExpectGolden("model/golden/zone-editor.txt", state());
}

} // namespace
