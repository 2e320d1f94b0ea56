#include "ValidUtil.h"

#include "VBArray.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const QString Module = QStringLiteral("ValidUtil");
const QString CRLF = QStringLiteral("\r\n");

QString T(VORNAGlobal& g, const char* defaultText, int seq, int id)
{
    return g.GetText(QString::fromUtf8(defaultText), seq, id, Module);
}

void Box(VORNAGlobal& g, const QString& text, const QString& title)
{
    g.platform.msgBox(text, MsgBox::Critical, title);
}

// A stored Boolean; the store's default (null) reads as False.
bool IsTrue(const QVariant& value)
{
    return !value.isNull() && value.toBool();
}

// The names no group or contact may take: one compared as it stands, four after
// upper-casing, as the combo of zone targets and the stored "ALL" need them free.
bool IsReservedName(const QString& Name)
{
    if (Name == QStringLiteral("所有群組"))
        return true;
    const QString upper = Name.toUpper();
    return upper == QLatin1String("ALL GROUP") || upper == QLatin1String("ALL USER GROUP")
        || upper == QLatin1String("ALL") || upper == QLatin1String("NONE");
}

// True when a row of the table holds Name in the field, without regard to case. Runs on
// a clone so that the shared current row stays where it is.
bool NameTaken(Recordset& rs, const QString& FieldName, const QString& Name)
{
    Recordset clone = rs.Clone();
    clone.MoveFirst();
    const QString upper = Name.toUpper();
    while (!clone.IsEOF()) {
        if (NullToEmpty(clone.Fields(FieldName)).toUpper() == upper) {
            clone.Close();
            return true;
        }
        clone.MoveNext();
    }
    clone.Close();
    return false;
}

} // namespace

bool IsValidGroupName(VORNAGlobal& g, const QString& Name)
{
    if (Name.isEmpty()) {
        Box(g, T(g, "本使用者群組名稱不得為空白。", 1, 10), T(g, "本使用者群組名稱不得為空白", 2, 10));
        return false;
    }
    if (IsReservedName(Name)) {
        Box(g,
            T(g, "不合法的使用者群組名稱！", 1, 15) + CRLF + T(g, "本使用者群組名稱[", 2, 15) + Name
                + T(g, "]不得和以下名稱相同:", 3, 15) + CRLF
                + T(g, "[所有群組]、[ALL GROUP]、[ALL USER GROUP]、[ALL]、[NONE]", 4, 15),
            T(g, "不合法的使用者群組名稱", 5, 15));
        return false;
    }
    if (g.project.rsUserGroups.RecordCount() == 0)
        return true;
    if (NameTaken(g.project.rsUserGroups, QStringLiteral("GroupName"), Name)) {
        Box(g, T(g, "本使用者群組名稱[", 1, 26) + Name + T(g, "]已經存在。", 2, 26),
            T(g, "本使用者群組名稱已經存在", 3, 26));
        return false;
    }
    return true;
}

bool IsValidUserName(VORNAGlobal& g, const QString& Name)
{
    if (Name.isEmpty()) {
        Box(g, T(g, "本使用者名稱不得為空白。", 1, 44), T(g, "本使用者名稱不得為空白", 2, 44));
        return false;
    }
    // The first line and the title speak of a group name here too: the text is shared.
    if (IsReservedName(Name)) {
        Box(g,
            T(g, "不合法的使用者群組名稱！", 1, 49) + CRLF + T(g, "本使用者名稱[", 2, 49) + Name
                + T(g, "]不得和以下名稱相同:", 3, 49) + CRLF
                + T(g, "[所有群組]、[ALL GROUP]、[ALL USER GROUP]、[ALL]、[NONE]", 4, 49),
            T(g, "不合法的使用者群組名稱", 5, 49));
        return false;
    }
    if (g.project.rsUsers.RecordCount() == 0)
        return true;
    if (NameTaken(g.project.rsUsers, QStringLiteral("UserName"), Name)) {
        Box(g, T(g, "本電話使用者名稱[", 1, 60) + Name + T(g, "]已經存在。", 2, 60),
            T(g, "本電話使用者名稱已經存在", 3, 60));
        return false;
    }
    return true;
}

bool IsProjectReady(VORNAGlobal& g)
{
    const QString Cancelled = QStringLiteral("下載取消");
    ProjectState& p = g.project;

    if (p.rsUserGroups.RecordCount() == 0) {
        Box(g, T(g, "下載取消！", 1, 92) + CRLF + T(g, "未設定使用者群組及使用者。", 2, 92), Cancelled);
        return false;
    }

    // Room for 100 names: a 101st group is a subscript out of range, which ends the program.
    VBArray<QString, 1, 100> groups;
    qint16 groupCount = 0;
    Recordset clone = p.rsUserGroups.Clone();
    clone.MoveFirst();
    while (!clone.IsEOF()) {
        const QString name = NullToEmpty(clone.Fields(QStringLiteral("GroupName")));
        if (name.isEmpty()) {
            Box(g, T(g, "下載取消！", 1, 102) + CRLF + T(g, "未設定使用者群組及使用者。", 2, 102),
                T(g, "下載取消", 3, 102));
            return false;
        }
        ++groupCount;
        groups(groupCount) = name;
        clone.MoveNext();
    }
    clone.Close();

    if (p.rsUsers.RecordCount() == 0) {
        Box(g,
            T(g, "下載取消！", 1, 136) + CRLF + QString::number(groupCount)
                + T(g, "筆使用者群組未設定使用者。", 2, 136),
            T(g, "下載取消", 3, 136));
        return false;
    }

    // Only a contact whose whole group list is one group's name is checked: a list of two
    // groups equals no name and passes unchecked. Suspended contacts are exempt.
    clone = p.rsUsers.Clone();
    clone.MoveFirst();
    while (!clone.IsEOF()) {
        const QString userName = NullToEmpty(clone.Fields(QStringLiteral("UserName")));
        const QString phoneNumber = NullToEmpty(clone.Fields(QStringLiteral("PhoneNumber")));
        const QString groupList = NullToEmpty(clone.Fields(QStringLiteral("GroupName")));
        const bool disabled = IsTrue(clone.Fields(QStringLiteral("IsDisable")));
        for (int i = 1; i <= groupCount; ++i) {
            if (groups(i) != groupList)
                continue;
            if (userName.isEmpty() && !disabled) {
                Box(g,
                    T(g, "下載取消！", 1, 117) + CRLF + T(g, "此使用者群組名稱[", 2, 117) + groups(i)
                        + T(g, "]未設定使用者。", 3, 117),
                    T(g, "下載取消", 4, 117));
                return false;
            }
            if (phoneNumber.isEmpty() && !disabled) {
                Box(g,
                    T(g, "下載取消！", 1, 122) + CRLF + T(g, "此使用者群組名稱[", 2, 122) + groups(i)
                        + T(g, "]下的使用者[", 3, 122) + userName + T(g, "]未設定電話號碼。", 4, 122),
                    T(g, "下載取消", 5, 122));
                return false;
            }
        }
        clone.MoveNext();
    }
    clone.Close();

    if (p.ProjGroupCount > 128) {
        Box(g, T(g, "下載取消！", 1, 2001) + CRLF + T(g, "專案的群組不得超過128筆。", 2, 2001), Cancelled);
        return false;
    }
    if (p.ProjTelCount > 128) {
        Box(g,
            T(g, "下載取消！", 1, 2002) + CRLF + T(g, "專案的通知對象[群組/連絡人]不得超過128筆。", 2, 2002),
            Cancelled);
        return false;
    }
    return true;
}
