#include "ContextMenu.h"

#include <vector>

#include "ProjectTree.h"
#include "VORNAGlobal.h"

namespace {

const ModuleText T {"VORNAMain"};

enum Entry {
    AddGroupList,
    AddTelList,
    Bar1,
    DeleteTelList,
    DeleteGroupList,
    EditGroupList,
    EditTelList,
    EditZoneList,
    Bar2,
    AddUser,
    AddGroup,
    MoveUser
};

// How a situation sets one entry: shown (with a caption, or as it reads for a bar), given a
// caption but hidden, hidden, or left as it was.
enum class Op { Show, CaptionOnly, Hide, Keep };

// A caption is its text, then the situation's name and a closing text when there is one: the
// glue close as it stands, or the closing key looked up.
struct EntryStep
{
    Entry entry;
    Op op;
    TextKey text {};
    const char* close = nullptr;
    TextKey closeKey {};
};

// A situation's captions: the entries it names, and what happens to the others.
struct MenuPath
{
    Op others;
    std::vector<EntryStep> steps;
};

using enum Op;

// The tree's captions; a leaf's hidden entries get plain captions too.
const MenuPath TreeAddContact {Hide, {{AddTelList, Show, T.key("新增連絡人...", 1, 1455)}}};
const MenuPath TreeAddGroup {Hide, {{AddGroupList, Show, T.key("新增連絡人群組...", 1, 1449)}}};
const MenuPath TreeOneContact {Hide,
    {{EditTelList, Show, T.key("編輯連絡人[", 1, 1481), "]..."},
        {DeleteTelList, Show, T.key("刪除連絡人[", 1, 1483), "]"},
        {AddTelList, Show, T.key("新增連絡人...", 1, 1485)},
        {AddGroup, Show, T.key("加入新群組...", 1, 1749)}, {Bar1, Show}, {Bar2, Show},
        {EditZoneList, CaptionOnly, T.key("編輯警報點...", 1, 1500)}}};
const MenuPath TreeOneGroup {Hide,
    {{EditGroupList, Show, T.key("編輯連絡人群組[", 1, 1464), "]..."},
        {DeleteGroupList, Show, T.key("刪除連絡人群組[", 1, 1466), "]"},
        {AddGroupList, Show, T.key("新增連絡人群組...", 1, 1468)},
        {AddUser, Show, T.key("加入其它連絡人...", 1, 1730)},
        {MoveUser, Show, T.key("轉移到其它群組...", 1, 1734)}, {Bar1, Show}, {Bar2, Show},
        {EditTelList, CaptionOnly, T.key("編輯連絡人...", 1, 1488)},
        {DeleteTelList, CaptionOnly, T.key("刪除連絡人", 1, 1490)},
        {EditZoneList, CaptionOnly, T.key("編輯警報點...", 1, 1500)}}};
const MenuPath TreeOneZone {Hide,
    {{EditZoneList, Show, T.key("編輯警報點[", 1, 1494), "]..."},
        {EditTelList, CaptionOnly, T.key("編輯連絡人...", 1, 1488)},
        {DeleteTelList, CaptionOnly, T.key("刪除連絡人", 1, 1490)}}};

// The list's captions, by the kind of row clicked.
const MenuPath ListAddContact {Hide, {{AddTelList, Show, T.key("新增連絡人...", 1, 646)}}};
const MenuPath ListAddGroup {Hide, {{AddGroupList, Show, T.key("新增連絡人群組...", 1, 640)}}};
const MenuPath ListRowGroup {Hide,
    {{EditGroupList, Show, T.key("編輯連絡人群組[", 1, 636), "]..."},
        {DeleteGroupList, Show, T.key("刪除連絡人群組[", 1, 638), "]"},
        {AddGroupList, Show, T.key("新增連絡人群組...", 1, 640)},
        {AddUser, Show, T.key("加入其它連絡人...", 1, 739)},
        {MoveUser, Show, T.key("轉移到其它群組...", 1, 747)}, {Bar1, Show}, {Bar2, Show}}};
const MenuPath ListRowContact {Hide,
    {{EditTelList, Show, T.key("編輯連絡人[", 1, 677), "]..."},
        {DeleteTelList, Show, T.key("刪除連絡人[", 1, 679), "]"},
        {AddTelList, Show, T.key("新增連絡人...", 1, 646)}, {AddGroup, Show, T.key("加入新群組...", 1, 765)},
        {Bar1, Show}, {Bar2, Show}}};
const MenuPath ListSheetContact {Hide,
    {{EditTelList, Show, T.key("編輯連絡人[", 1, 750), "]..."},
        {DeleteTelList, Show, T.key("刪除連絡人[", 1, 752), "]"},
        {AddTelList, Show, T.key("新增連絡人...", 1, 646)}, {AddGroup, Show, T.key("加入新群組...", 1, 806)},
        {Bar1, Show}, {Bar2, Show}}};
const MenuPath ListZone {Hide, {{EditZoneList, Show, T.key("編輯警報點[", 1, 1494), "]..."}}};
// The empty part of a contact's sheet: the zone entry is left as it was.
const MenuPath ListNodeContact {Hide,
    {{EditTelList, Show, T.key("編輯連絡人[", 1, 754), nullptr, T.key("]...", 2, 754)},
        {DeleteTelList, Show, T.key("刪除連絡人[", 1, 756), nullptr, T.key("]", 2, 756)},
        {AddTelList, Show, T.key("新增連絡人...", 1, 646)}, {AddGroup, Show, T.key("加入新群組...", 1, 894)},
        {Bar1, Show}, {Bar2, Show}, {EditZoneList, Keep}}};
const MenuPath ListAsLeft {Keep, {}};
const MenuPath ListEditsHidden {Keep,
    {{Bar1, Show}, {EditGroupList, Hide}, {EditTelList, Hide}, {EditZoneList, Hide}, {DeleteGroupList, Hide},
        {DeleteTelList, Hide}}};

// Which tag counts a rule takes.
enum class Count { One, TwoOrMore, ExactlyTwo, Any };
// Which row texts a rule takes: a branch's word, in the program's words or the default captions.
enum class Row { Any, Users, Groups, Zones };
enum class NameFrom { None, Tag, Row };
// The record made current: the tag's, none, or the row's text as a contact's or a group's name.
enum class RecordFrom { Tag, None, RowAsContact, RowAsGroup };

struct Rule
{
    const char* kind; // Items(1); null takes any
    Count count;
    Row row;
    bool groupBranchText; // the node's displayed text is the group branch's
    ContextMenuSet set;
    const MenuPath* path;
    NameFrom name = NameFrom::None;
    RecordFrom record = RecordFrom::Tag;
};

using Set = ContextMenuSet;

// The first rule that takes the click decides; none means no menu.
const Rule TreeRules[] = {
    {"ProjName", Count::One, Row::Any, false, Set::NoMenu, nullptr},
    {"Zones", Count::One, Row::Any, false, Set::NoMenu, nullptr},
    {"Users", Count::One, Row::Any, false, Set::AddContact, &TreeAddContact},
    {"UserGroups", Count::One, Row::Any, false, Set::AddGroup, &TreeAddGroup},
    {"Users", Count::TwoOrMore, Row::Any, false, Set::OneContact, &TreeOneContact, NameFrom::Tag},
    {"UserGroups", Count::TwoOrMore, Row::Any, false, Set::OneGroup, &TreeOneGroup, NameFrom::Tag},
    {"Zones", Count::TwoOrMore, Row::Any, false, Set::OneZone, &TreeOneZone, NameFrom::Tag},
};

// The group rule reads the node's displayed text, not its tag, so a translated branch
// caption sends group rows to the contact rule; the rules are kept so.
const Rule ListRowRules[] = {
    {"ProjName", Count::One, Row::Users, false, Set::AddContact, &ListAddContact, NameFrom::None,
        RecordFrom::None},
    {"ProjName", Count::One, Row::Groups, false, Set::AddGroup, &ListAddGroup, NameFrom::None,
        RecordFrom::None},
    {"ProjName", Count::One, Row::Zones, false, Set::NoMenu, nullptr},
    {"Users", Count::One, Row::Users, false, Set::AddContact, &ListAddContact, NameFrom::None,
        RecordFrom::RowAsContact},
    {nullptr, Count::One, Row::Any, true, Set::OneGroup, &ListRowGroup, NameFrom::Row,
        RecordFrom::RowAsGroup},
    {nullptr, Count::One, Row::Any, false, Set::OneContact, &ListRowContact, NameFrom::Row,
        RecordFrom::RowAsContact},
    {"Users", Count::TwoOrMore, Row::Any, false, Set::OneContact, &ListSheetContact, NameFrom::Tag},
    {"UserGroups", Count::TwoOrMore, Row::Any, false, Set::NoMenu, nullptr},
    {"Zones", Count::TwoOrMore, Row::Any, false, Set::OneZone, &ListZone, NameFrom::Tag},
};

const Rule ListNoRowRules[] = {
    {"ProjName", Count::One, Row::Any, false, Set::NoMenu, nullptr},
    {"Users", Count::One, Row::Any, false, Set::AddContact, &ListAddContact},
    {"UserGroups", Count::One, Row::Any, false, Set::AddGroup, &ListAddGroup},
    {"Zones", Count::One, Row::Any, false, Set::AsLeft, &ListAsLeft},
    {"Users", Count::ExactlyTwo, Row::Any, false, Set::OneContact, &ListNodeContact, NameFrom::Tag},
    {"UserGroups", Count::ExactlyTwo, Row::Any, false, Set::NoMenu, nullptr},
    {nullptr, Count::Any, Row::Any, false, Set::EditsHidden, &ListEditsHidden},
};

bool countTakes(Count rule, qint16 count)
{
    switch (rule) {
    case Count::One:
        return count == 1;
    case Count::TwoOrMore:
        return count >= 2;
    case Count::ExactlyTwo:
        return count == 2;
    case Count::Any:
        return true;
    }
    return false;
}

bool rowTakes(Row rule, const QString& text)
{
    const auto either = [&text](const char* word, const char* caption) {
        return text == QLatin1String(word) || text == QString::fromUtf8(caption);
    };
    switch (rule) {
    case Row::Any:
        return true;
    case Row::Users:
        return either("Users", "連絡人");
    case Row::Groups:
        return either("UserGroups", "群組");
    case Row::Zones:
        return either("Zones", "警報區");
    }
    return false;
}

bool takes(const Rule& r, const NodeTagItems& Items, qint16 count, const ContextMenuClick& click)
{
    return (!r.kind || Items(1) == QLatin1String(r.kind)) && countTakes(r.count, count)
        && rowTakes(r.row, click.rowText)
        && (!r.groupBranchText || click.nodeText == QLatin1String("UserGroups")
            || click.nodeText == QStringLiteral("群組"));
}

void apply(const VORNAGlobal& g, const MenuPath& path, const QString& name, const ContextMenuEntries& entries)
{
    std::array<bool, std::size(ContextMenuEntryNames)> named {};
    for (const EntryStep& s : path.steps) {
        Menu& e = *entries[s.entry];
        named[s.entry] = true;
        if (s.op == Keep)
            continue;
        e.Visible = s.op == Show;
        if (!s.text.module)
            continue;
        e.Caption = g.GetText(s.text);
        if (s.closeKey.module)
            e.Caption += name + g.GetText(s.closeKey);
        else if (s.close)
            e.Caption += name + QString::fromUtf8(s.close);
    }
    if (path.others == Hide)
        for (size_t i = 0; i < entries.size(); ++i)
            if (!named[i])
                entries[i]->Visible = false;
}

} // namespace

ContextMenuDecision DecideContextMenu(
    const VORNAGlobal& g, const ContextMenuClick& click, const ContextMenuEntries& entries)
{
    ContextMenuDecision d;
    if (!click.hasNode)
        return d;
    const bool onRow = click.source == ContextMenuClick::Source::List && click.hasRow;
    QString tag = click.nodeTag;
    // A row of the zone table stands for its zone.
    if (onRow && tag == QLatin1String("Zones"))
        tag += QStringLiteral(",") + click.rowText;
    NodeTagItems& Items = d.Items;
    qint16 count = 0;
    ParseNodeTag(tag, Items, count);

    const std::span<const Rule> rules = click.source == ContextMenuClick::Source::Tree
        ? std::span<const Rule>(TreeRules)
        : onRow ? std::span<const Rule>(ListRowRules)
                : std::span<const Rule>(ListNoRowRules);
    for (const Rule& r : rules) {
        if (!takes(r, Items, count, click))
            continue;
        if (!r.path)
            return d;
        d.set = r.set;
        apply(g, *r.path, r.name == NameFrom::Row ? click.rowText : Items(2), entries);
        switch (r.record) {
        case RecordFrom::Tag:
            d.count = count;
            break;
        case RecordFrom::None:
            d.count = 0;
            break;
        case RecordFrom::RowAsContact:
        case RecordFrom::RowAsGroup:
            Items(1) = r.record == RecordFrom::RowAsContact ? QStringLiteral("Users")
                                                            : QStringLiteral("UserGroups");
            Items(2) = click.rowText;
            d.count = 2;
            break;
        }
        return d;
    }
    return d;
}
