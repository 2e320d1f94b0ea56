#include "frmEditTelList.h"

#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "VORNAUtil.h"
#include "ValidUtil.h"
#include "frmAllUserGroups.h"

namespace {

const ModuleText T {"EditTelList"};

const FormTextPath kFormTexts[] = {{""}, {"cmdDelete"}, {"cmdAdd"}, {"txtTelNo", "Text"},
    {"cmdTelUserRename"}, {"txtTelDsc", "Text"}, {"chkIsDisable"}, {"cmdCancel"}, {"cmdOK"}, {"Label1"},
    {"Label5"}, {"lblTelUser"}, {"Label3"}, {"Label2"}};

} // namespace

frmEditTelList::frmEditTelList(VORNAGlobal& g)
    : FormModel(g.ml, kFormTexts)
    , m_g(g)
{
    txtTelNo.MaxLength = 20;
    txtTelDsc.MultiLine = true;
}

void frmEditTelList::LoadFormObj()
{
    // Filling a control loads the form first, so that its captions don't overwrite the row.
    Load();
    FocusControl = nullptr;
    RemovedCount = 0;
    AddedCount = 0;
    WorkTelNoCount = CountTelNo(m_g.project);

    const Recordset& rs = m_g.project.rsUsers;
    lblTelUser.Caption = FieldText(rs, "UserName");
    txtTelNo.Text = FieldText(rs, "PhoneNumber");
    txtTelDsc.Text = FieldText(rs, "UserDsc");
    chkIsDisable.Value = FieldFlag(rs, "IsDisable") ? CheckBox::Checked : CheckBox::Unchecked;
    OldGroupList = FieldText(rs, "GroupName");
    OldUserName = lblTelUser.Caption;

    mklvGroupName();

    FocusControl = &txtTelNo;
    cmdDelete.Enabled = !lvGroupName.ListItems.empty();
}

// The contact's groups in table order; an entry that names no group is not shown, and so
// is dropped by the next save.
void frmEditTelList::mklvGroupName()
{
    lvGroupName.ColumnHeaders = GroupListColumns(m_g);
    ProjectState& p = m_g.project;
    if (p.rsUsers.RecordCount() == 0)
        return;
    Recordset users = p.rsUsers.Clone();
    for (users.MoveFirst(); !users.IsEOF(); users.MoveNext()) {
        if (FieldText(users, "UserName").toUpper() != lblTelUser.Caption.toUpper())
            continue;
        const QString groupList = FieldText(users, "GroupName");
        QStringList entries;
        for (const QString& entry : groupList.isEmpty() ? QStringList() : groupList.split(CRLF))
            entries << entry.toUpper();
        if (p.rsUserGroups.RecordCount() == 0)
            continue;
        lvGroupName.ListItems.clear();
        lvGroupName.SelectedItem = -1;
        Recordset groups = p.rsUserGroups.Clone();
        for (groups.MoveFirst(); !groups.IsEOF(); groups.MoveNext()) {
            const QString name = FieldText(groups, "GroupName");
            if (entries.contains(name.toUpper()))
                lvGroupName.ListItems.push_back({name, {FieldText(groups, "GroupDsc")}});
        }
        groups.Close();
    }
    users.Close();
}

// The number as typed, trimmed: not empty, numeric, at most 20 characters. The numeric
// box does not end the check, so a long text of letters gives both boxes.
void frmEditTelList::CheckFormObj(bool& IsValid)
{
    IsValid = true;
    const QString number = Trim(txtTelNo.Text);
    const auto refuse = [this, &IsValid](const QString& text, const QString& title) {
        m_g.platform.msgBox(text, MsgBox::Critical, title);
        FocusControl = &txtTelNo;
        IsValid = false;
    };
    if (number.isEmpty()) {
        refuse(T(m_g, "本電話簿不得為空！請再次輸入電話號碼。", 1, 250), QStringLiteral("本電話簿不得為空"));
        return;
    }
    if (!IsNumeric(number))
        refuse(T(m_g, " 電話號碼只能輸入數字！請再次輸入電話號碼。", 1, 257),
            T(m_g, "電話號碼只能輸入數字", 2, 257));
    if (number.size() > 20)
        refuse(T(m_g, " 電話號碼不得大於20個數字！請再次輸入電話號碼。", 1, 255),
            T(m_g, "電話號碼不得大於20個數字", 2, 255));
}

void frmEditTelList::SaveFormObj()
{
    ProjectState& p = m_g.project;
    ProjectView& view = m_g.view();
    const QString userName = lblTelUser.Caption;
    const bool renamed = userName != OldUserName;

    LocateRecord(view, QStringLiteral("Users"), OldUserName);
    if (renamed)
        p.rsUsers.setField(QStringLiteral("UserName"), userName);
    // Moving to the renamed row stores the name; no other table holds a contact's name.
    LocateRecord(view, QStringLiteral("Users"), userName);

    if (!txtTelNo.Text.isEmpty())
        p.rsUsers.setField(QStringLiteral("PhoneNumber"), txtTelNo.Text);
    p.rsUsers.setField(QStringLiteral("UserDsc"), txtTelDsc.Text);
    QString groupList;
    for (const ListItem& row : lvGroupName.ListItems)
        groupList += row.Text + CRLF;
    groupList.chop(2);
    p.rsUsers.setField(QStringLiteral("GroupName"), groupList);
    const bool disabled = chkIsDisable.Value == CheckBox::Checked;
    p.rsUsers.setField(QStringLiteral("IsDisable"), disabled);
    p.rsUsers.Update();

    const int node = FindNodeByTag(view, QStringLiteral("Users,") + OldUserName);
    if (renamed) {
        view.setNodeText(node, userName);
        view.setNodeTag(node, QStringLiteral("Users,") + userName);
        view.refreshTree();
    }
    view.setNodeForeColor(node, disabled ? SystemColor::GrayText : 0);

    view.selectNode(FindNodeByTag(view, QStringLiteral("Users,") + userName));
    view.refreshTree();
    view.mklvNodeContent();
    p.IsProjectModified = true;
}

void frmEditTelList::cmdOK_Click()
{
    if (!CheckThenSave([this](bool& IsValid) { CheckFormObj(IsValid); }, [this] { SaveFormObj(); }))
        return;
    // The running count follows the rows removed and added here, whatever the list held.
    ProjectState& p = m_g.project;
    p.TelNoCount = static_cast<qint16>(p.TelNoCount - RemovedCount + AddedCount);
    if (lvGroupName.ListItems.empty())
        cmdDelete.Enabled = false;
    m_g.platform.hideForm(*this);
}

void frmEditTelList::cmdCancel_Click()
{
    m_g.platform.hideForm(*this);
}

void frmEditTelList::cmdAdd_Click()
{
    const qint16 MaxTelNo = m_g.project.MaxTelNo;
    if (WorkTelNoCount + 1 > MaxTelNo) {
        m_g.platform.msgBox(T(m_g, "通知對象[群組/連絡人]已超過最大筆數[", 1, 2004)
                + QString::number(MaxTelNo) + T(m_g, "]，不得再增加通知對象[群組/連絡人]！", 2, 2004),
            MsgBox::Exclamation, T(m_g, "通知對象[群組/連絡人]已超過最大筆數", 3, 2004));
        return;
    }

    const frmAllUserGroups& picker = ShowDialog<frmAllUserGroups>(m_g);
    const QString name = picker.SelectedGroupName;
    bool listed = false;
    for (const ListItem& row : lvGroupName.ListItems)
        listed = listed || row.Text == name;
    if (!name.isEmpty() && !listed) {
        lvGroupName.ListItems.push_back({name, {picker.SelectedGroupDsc}});
        lvGroupName.SelectedItem = static_cast<int>(lvGroupName.ListItems.size()) - 1;
        ++AddedCount;
        ++WorkTelNoCount;
    }
    cmdDelete.Enabled = !lvGroupName.ListItems.empty();
}

// Delete stays enabled once the last row is gone: only a load, Add and OK set it.
void frmEditTelList::cmdDelete_Click()
{
    const int row = lvGroupName.SelectedItem;
    if (row < 0 || row >= static_cast<int>(lvGroupName.ListItems.size()))
        return;
    lvGroupName.ListItems.erase(lvGroupName.ListItems.begin() + row);
    lvGroupName.SelectedItem = -1;
    ++RemovedCount;
    --WorkTelNoCount;
}

// The new name shows in the label only; OK stores it, Cancel forgets it.
void frmEditTelList::cmdTelUserRename_Click()
{
    const QString answer = KeyInString(m_g, T(m_g, "變更連絡人", 1, 278),
        T(m_g, "請輸入新連絡人名稱:", 2, 278), lblTelUser.Caption, QString());
    if (answer == KeyInStringCancelled || answer == lblTelUser.Caption)
        return;
    if (IsValidUserName(m_g, answer))
        lblTelUser.Caption = answer;
}
