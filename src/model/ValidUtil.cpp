#include "ValidUtil.h"

#include <array>

#include "VBArray.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"ValidUtil"};

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

namespace {

// The keys of one of the two name checks; they differ in wording only.
struct NameCheck
{
    Recordset ProjectState::*table;
    const char* field;
    std::array<TextKey, 2> blank;    // text, title
    std::array<TextKey, 5> reserved; // first line, text before the name, after it, the names, title
    std::array<TextKey, 3> taken;    // text before the name, after it, title
};

// The first line and the title of the reserved-name box speak of a group name in both
// checks: the text is shared.
const NameCheck kGroupNameCheck {&ProjectState::rsUserGroups, "GroupName",
    {T.key("本使用者群組名稱不得為空白。", 1, 10), T.key("本使用者群組名稱不得為空白", 2, 10)},
    {T.key("不合法的使用者群組名稱！", 1, 15), T.key("本使用者群組名稱[", 2, 15),
        T.key("]不得和以下名稱相同:", 3, 15),
        T.key("[所有群組]、[ALL GROUP]、[ALL USER GROUP]、[ALL]、[NONE]", 4, 15),
        T.key("不合法的使用者群組名稱", 5, 15)},
    {T.key("本使用者群組名稱[", 1, 26), T.key("]已經存在。", 2, 26),
        T.key("本使用者群組名稱已經存在", 3, 26)}};
const NameCheck kUserNameCheck {&ProjectState::rsUsers, "UserName",
    {T.key("本使用者名稱不得為空白。", 1, 44), T.key("本使用者名稱不得為空白", 2, 44)},
    {T.key("不合法的使用者群組名稱！", 1, 49), T.key("本使用者名稱[", 2, 49),
        T.key("]不得和以下名稱相同:", 3, 49),
        T.key("[所有群組]、[ALL GROUP]、[ALL USER GROUP]、[ALL]、[NONE]", 4, 49),
        T.key("不合法的使用者群組名稱", 5, 49)},
    {T.key("本電話使用者名稱[", 1, 60), T.key("]已經存在。", 2, 60),
        T.key("本電話使用者名稱已經存在", 3, 60)}};

bool IsValidName(VORNAGlobal& g, const QString& Name, const NameCheck& c)
{
    if (Name.isEmpty()) {
        Box(g, g.GetText(c.blank[0]), g.GetText(c.blank[1]));
        return false;
    }
    if (IsReservedName(Name)) {
        Box(g,
            g.GetText(c.reserved[0]) + CRLF + g.GetText(c.reserved[1]) + Name + g.GetText(c.reserved[2])
                + CRLF + g.GetText(c.reserved[3]),
            g.GetText(c.reserved[4]));
        return false;
    }
    Recordset& table = g.project.*c.table;
    if (table.RecordCount() == 0)
        return true;
    if (NameTaken(table, QString::fromLatin1(c.field), Name)) {
        Box(g, g.GetText(c.taken[0]) + Name + g.GetText(c.taken[1]), g.GetText(c.taken[2]));
        return false;
    }
    return true;
}

} // namespace

bool IsValidGroupName(VORNAGlobal& g, const QString& Name)
{
    return IsValidName(g, Name, kGroupNameCheck);
}

bool IsValidUserName(VORNAGlobal& g, const QString& Name)
{
    return IsValidName(g, Name, kUserNameCheck);
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
