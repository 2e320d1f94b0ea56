#include "VORNAUtil.h"

#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "ValidUtil.h"
#include "frmAddUser.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmKeyInString.h"

namespace {

const ModuleText T {"VORNAUtil"};
// The model's own texts, beside those of its operations.
const ModuleText Own {"VORNAModel"};
const QString Status = QStringLiteral("Status");

// The first of Prefix1 to Prefix99 that no row holds (compared exactly), Prefix1 for an
// empty table, and nothing when all 99 are taken.
QString ProposeName(Recordset& rs, const QString& FieldName, const QString& Prefix)
{
    if (rs.RecordCount() == 0)
        return Prefix + QStringLiteral("1");
    Recordset clone = rs.Clone();
    QString proposal;
    for (int n = 1; n <= 99; ++n) {
        const QString name = Prefix + QString::number(n);
        if (!FindRecord(clone, FieldName, name, false)) {
            proposal = name;
            break;
        }
    }
    clone.Close();
    return proposal;
}

// Lines joined by CR LF, with none before the first or after the last.
void AppendLine(QString& text, const QString& line)
{
    if (!text.isEmpty())
        text += CRLF;
    text += line;
}

} // namespace

QString KeyInString(VORNAGlobal& g, const QString& Caption, const QString& Prompt, const QString& Default,
    const QString& PasswordChar)
{
    return Trim(ShowDialog<frmKeyInString>(g, Caption, Prompt, Default, PasswordChar).result);
}

bool AddUserGroup(VORNAGlobal& g)
{
    ProjectState& p = g.project;
    ProjectView& view = g.view();

    const QString proposal
        = ProposeName(p.rsUserGroups, QStringLiteral("GroupName"), QStringLiteral("UserGroup"));
    const QString name = KeyInString(
        g, T(g, "新增連絡人群組", 1, 30), T(g, "請輸入新連絡人群組名稱:", 2, 30), proposal, QString());
    if (name == KeyInStringCancelled)
        return false;
    if (name.isEmpty()) {
        g.platform.msgBox(
            T(g, "新增連絡人群組名稱不得為空白。", 1, 35) + CRLF + T(g, "新增連絡人群組失敗。", 2, 35),
            MsgBox::Critical, T(g, "新增連絡人群組失敗", 3, 35));
        return false;
    }
    if (!IsValidGroupName(g, name))
        return false;

    p.rsUserGroups.AddNew();
    p.rsUserGroups.setField(QStringLiteral("GroupName"), name);
    p.rsUserGroups.setField(QStringLiteral("GroupDsc"), QString());
    p.rsUserGroups.Update();

    const int node = view.addNode(FindNodeByTag(view, QStringLiteral("UserGroups")), QString(), name,
        QStringLiteral("UserGroups"), QStringLiteral("UserGroups,") + name);
    view.selectNode(node);
    view.refreshTree();
    view.mklvNodeContent();

    // The row is already stored: Cancel in the editor keeps the group.
    ShowDialog<frmEditGroupList>(g, true);
    view.mklvNodeContent();

    p.IsProjectModified = true;
    return true;
}

bool DeleteUserGroup(VORNAGlobal& g)
{
    ProjectState& p = g.project;
    ProjectView& view = g.view();

    if (p.rsUserGroups.IsEOF() || p.rsUserGroups.IsBOF())
        throw UnhandledError(T(g, "GroupList資料表的CurrentRecord未指到可用的資料。", 1, 64) + CRLF
                + T(g, "刪除連絡人群組失敗。", 2, 64),
            T(g, "刪除連絡人群組失敗", 3, 64), MsgBox::Critical);

    const QString name = FieldText(p.rsUserGroups, "GroupName");

    int groupRows = 0;
    Recordset clone = p.rsUserGroups.Clone();
    clone.MoveFirst();
    while (!clone.IsEOF()) {
        ++groupRows;
        clone.MoveNext();
    }
    clone.Close();
    if (groupRows <= 1) {
        g.platform.msgBox(T(g, "不可刪除群組！", 1, 93) + CRLF + T(g, "群組至少留一組，不可全刪除。", 2, 93),
            MsgBox::Exclamation, T(g, "不可刪除群組", 3, 93));
        return false;
    }

    // What is announced is found by exact comparison; the removal below ignores case.
    QString zoneText;
    if (p.rsZones.RecordCount() > 0) {
        p.rsZones.MoveFirst();
        while (!p.rsZones.IsEOF()) {
            if (FieldText(p.rsZones, "GroupName") == name)
                AppendLine(zoneText,
                    FieldText(p.rsZones, "ZoneNo") + QStringLiteral(" ,") + FieldText(p.rsZones, "ZoneName"));
            p.rsZones.MoveNext();
        }
    }
    QString userText;
    qint16 userCount = 0;
    if (p.rsUsers.RecordCount() > 0) {
        p.rsUsers.MoveFirst();
        while (!p.rsUsers.IsEOF()) {
            for (const QString& entry : FieldText(p.rsUsers, "GroupName").split(CRLF)) {
                if (entry != name)
                    continue;
                ++userCount;
                AppendLine(userText,
                    FieldText(p.rsUsers, "UserName") + QStringLiteral(" ,")
                        + FieldText(p.rsUsers, "PhoneNumber") + QStringLiteral(" ,")
                        + FieldText(p.rsUsers, "UserDsc"));
            }
            p.rsUsers.MoveNext();
        }
    }
    if (!zoneText.isEmpty())
        zoneText = T(g, "下列警報點對應本連絡人群組之參照將被移除:", 1, 104) + CRLF + zoneText;
    if (!userText.isEmpty())
        userText = T(g, "下列隸屬於本連絡人群組之連絡人[", 1, 139) + QString::number(userCount)
            + T(g, "]將被移除:", 2, 139) + CRLF + userText;

    const int answer = g.platform.msgBox(T(g, "確定是否要刪除這個連絡人群組[", 1, 109) + name
            + QStringLiteral("]?") + CRLF + zoneText + CRLF + userText,
        MsgBox::YesNo | MsgBox::Exclamation, T(g, "是否確定刪除這個連絡人群組", 3, 109));
    if (answer == MsgBox::No)
        return false;

    view.setMousePointer(Pointer::Hourglass);
    view.setStatusText(
        Status, T(g, "正在刪除有關這個連絡人群組[", 2, 115) + name + T(g, "]中的相關資料...", 3, 115));

    // A zone on the group is left without a target; a zone on "ALL" keeps it.
    if (p.rsZones.RecordCount() > 0) {
        p.rsZones.MoveFirst();
        while (!p.rsZones.IsEOF()) {
            if (FieldText(p.rsZones, "GroupName") == name) {
                p.rsZones.setField(QStringLiteral("GroupName"), QString());
                p.rsZones.Update();
            }
            p.rsZones.MoveNext();
        }
    }

    // Membership goes, the contact stays, even with an empty list.
    if (p.rsUsers.RecordCount() > 0) {
        const QString upperName = name.toUpper();
        p.rsUsers.MoveFirst();
        while (!p.rsUsers.IsEOF()) {
            QString newList;
            bool found = false;
            for (const QString& entry : FieldText(p.rsUsers, "GroupName").split(CRLF)) {
                if (entry.toUpper() == upperName)
                    found = true;
                else
                    newList += entry + CRLF;
            }
            if (found) {
                newList.chop(2);
                p.rsUsers.setField(QStringLiteral("GroupName"), newList);
                p.rsUsers.Update();
            }
            p.rsUsers.MoveNext();
        }
    }

    p.rsUserGroups.Delete();
    p.rsUserGroups.MoveFirst();

    view.removeNode(FindNodeByTag(view, QStringLiteral("UserGroups,") + name));
    view.refreshTree();
    view.mklvNodeContent();

    view.setMousePointer(Pointer::Default);
    view.setStatusText(Status, QString());
    p.IsProjectModified = true;
    return true;
}

void AddUser(VORNAGlobal& g)
{
    ProjectState& p = g.project;
    ProjectView& view = g.view();

    const QString proposal = ProposeName(p.rsUsers, QStringLiteral("UserName"), QStringLiteral("User"));
    CountTelNo(p);
    if (CountUsers(p) + 1 > p.MaxTelNo) {
        g.platform.msgBox(T(g, "連絡人已超過最大筆數[", 1, 2003) + QString::number(p.MaxTelNo)
                + T(g, "]，不得再增加連絡人！", 2, 2003),
            MsgBox::Exclamation, QStringLiteral("連絡人已超過最大筆數"));
        return;
    }
    if (p.TelNoCount + 1 > p.MaxTelNo) {
        g.platform.msgBox(T(g, "通知對象[群組/連絡人]已超過最大筆數[", 1, 208) + QString::number(p.MaxTelNo)
                + T(g, "]，不得再增加通知對象[群組/連絡人]！", 2, 208),
            MsgBox::Exclamation, T(g, "通知對象[群組/連絡人]已超過最大筆數", 3, 208));
        return;
    }

    const frmAddUser& added = ShowDialog<frmAddUser>(g, proposal);
    // Cancel and an emptied name box both end here without a word.
    if (added.NewUserName.isEmpty())
        return;
    if (!IsValidUserName(g, added.NewUserName))
        return;

    p.rsUsers.AddNew();
    p.rsUsers.setField(QStringLiteral("UserName"), added.NewUserName);
    p.rsUsers.setField(QStringLiteral("PhoneNumber"), QString());
    p.rsUsers.setField(QStringLiteral("UserDsc"), QString());
    p.rsUsers.setField(QStringLiteral("GroupName"), added.NewUserGroup);
    p.rsUsers.Update();

    const int node = view.addNode(FindNodeByTag(view, QStringLiteral("Users")), QString(), added.NewUserName,
        QStringLiteral("UserName"), QStringLiteral("Users,") + added.NewUserName);
    view.selectNode(node);
    view.refreshTree();
    g.platform.doEvents();

    // One target, whatever the list holds; the next CountTelNo puts it right.
    p.TelNoCount += 1;
    view.mklvNodeContent();

    // The row is already stored: Cancel in the editor keeps a contact without a number.
    ShowDialog<frmEditTelList>(g);
    view.mklvNodeContent();
    p.IsProjectModified = true;
}

bool DeleteUser(VORNAGlobal& g)
{
    ProjectState& p = g.project;
    ProjectView& view = g.view();

    if (p.rsUsers.IsEOF() || p.rsUsers.IsBOF())
        throw UnhandledError(T(g, "TelList資料表的CurrentRecord未指到可用的資料。", 1, 238) + CRLF
                + T(g, "刪除連絡人名稱失敗。", 2, 238),
            T(g, "刪除連絡人名稱失敗", 3, 238), MsgBox::Critical);

    const QString userName = FieldText(p.rsUsers, "UserName");
    const QString phoneNumber = FieldText(p.rsUsers, "PhoneNumber");
    const int answer = g.platform.msgBox(T(g, "確定是否要刪除這個連絡人[", 1, 248) + userName
            + QStringLiteral(":") + phoneNumber + QStringLiteral("]?"),
        MsgBox::YesNo | MsgBox::Exclamation, T(g, "是否確定刪除這個連絡人", 3, 248));
    if (answer == MsgBox::No)
        return false;

    view.setMousePointer(Pointer::Hourglass);
    view.setStatusText(Status, T(g, "正在刪除這筆連絡人資料[", 2, 254) + userName + T(g, "]中...", 3, 254));

    p.rsUsers.Delete();
    p.rsUsers.MoveFirst();

    view.removeNode(FindNodeByTag(view, QStringLiteral("Users,") + userName));
    view.refreshTree();
    view.mklvNodeContent();

    // One less, however many groups the contact had; the next CountTelNo corrects it.
    p.TelNoCount -= 1;

    view.setMousePointer(Pointer::Default);
    view.setStatusText(Status, QString());
    p.IsProjectModified = true;
    return true;
}

qint16 CountTelNo(ProjectState& project)
{
    project.TelNoCount = 0;
    if (project.rsUsers.RecordCount() == 0)
        return 0;
    Recordset clone = project.rsUsers.Clone();
    clone.MoveFirst();
    while (!clone.IsEOF()) {
        const QString groupList = FieldText(clone, "GroupName");
        if (!groupList.isEmpty())
            project.TelNoCount += static_cast<qint16>(groupList.split(CRLF).size());
        clone.MoveNext();
    }
    clone.Close();
    return project.TelNoCount;
}

qint16 CountUsers(ProjectState& project)
{
    if (project.rsUsers.RecordCount() == 0)
        return 0;
    qint16 count = 0;
    Recordset clone = project.rsUsers.Clone();
    clone.MoveFirst();
    while (!clone.IsEOF()) {
        if (!FieldText(clone, "UserName").isEmpty())
            ++count;
        clone.MoveNext();
    }
    clone.Close();
    return count;
}

int FindNodeByTag(const ProjectView& view, const QString& Tag)
{
    const int count = view.nodeCount();
    for (int i = 0; i < count; ++i)
        if (view.nodeTag(i) == Tag)
            return i;
    throw UnhandledError(QStringLiteral("Object variable or With block variable not set"));
}

bool LocateRecord(ProjectView& view, const QString& kind, const QString& name)
{
    NodeTagItems Items;
    Items(1) = kind;
    Items(2) = name;
    bool found = false;
    view.LocateCurRecord(Items, 2, found);
    return found;
}

std::vector<ColumnHeader> GroupListColumns(const VORNAGlobal& g)
{
    return {{Own(g, "連絡人群組名稱", 1, 1), 1800}, {Own(g, "連絡人群組說明", 2, 1), 1800}};
}

QString ComboRowText(const QString& name, const QString& description)
{
    return description.isEmpty() ? name : name + u'(' + description + u')';
}

QString ComboRowName(const QString& text)
{
    if (text.isEmpty())
        throw UnhandledError(QStringLiteral("Subscript out of range"));
    return text.section(u'(', 0, 0);
}
