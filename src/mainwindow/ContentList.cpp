#include "ADOUtil.h"
#include "ProjectTree.h"
#include "UnhandledError.h"
#include "VBUtil.h"
#include "VORNAGlobal.h"
#include "frmEditGroupList.h"
#include "frmEditTelList.h"
#include "frmEditZoneList.h"
#include "frmMain.h"

namespace {

// Width of a column added without one, as the list control gives it.
constexpr double DefaultColumnWidth = 1440;

const ModuleText T {"VORNAMain"};

// A column of a table view: its text and width when the table is empty, and when it has
// records. The zone columns differ between the two by design.
struct TableColumn
{
    TextKey empty;
    double emptyWidth;
    TextKey filled;
    double filledWidth;
};

struct TableLayout
{
    std::vector<TableColumn> columns;
    std::vector<const char*> fields; // the row's text, then its sub-items
};

const TableLayout GroupTable {
    {{T.key("連絡人群組名稱", 1, 1197), 1500, T.key("連絡人群組名稱", 1, 1227), 1500},
        {T.key("連絡人群組說明", 1, 1198), 1800, T.key("連絡人群組說明", 1, 1228), 1800}},
    {"GroupName", "GroupDsc"}};

const TableLayout GroupMemberTable {
    {{T.key("連絡人", 1, 1200), 1000, T.key("連絡人", 1, 1230), 1000},
        {T.key("電話號碼", 1, 1201), 1500, T.key("電話號碼", 1, 1231), 1500},
        {T.key("連絡人群組名稱", 1, 1202), 1500, T.key("連絡人群組名稱", 1, 1232), 1500},
        {T.key("說明", 1, 1203), 1500, T.key("說明", 1, 1233), 1500},
        {T.key("暫停使用", 1, 1204), 1000, T.key("暫停使用", 1, 1234), 1000}},
    {"UserName", "PhoneNumber", "GroupName", "UserDsc", "IsDisable"}};

const TableLayout UserTable {{{T.key("連絡人名稱", 1, 1403), 1500, T.key("連絡人名稱", 1, 1438), 1500},
                                 {T.key("連絡人說明", 1, 1404), 1500, T.key("連絡人說明", 1, 1439), 1500}},
    {"UserName", "UserDsc"}};

const TableLayout ZoneTable {
    {{T.key("警報區", 1, 1206), 800, T.key("警報區", 1, 1236), 1000},
        {T.key("警報區名稱", 1, 1207), 1500, T.key("警報區名稱", 1, 1237), 1500},
        {T.key("連絡人群組名稱", 1, 1208), 1500, T.key("連絡人群組名稱", 1, 1238), 1500},
        {T.key("說明", 1, 1209), 1200, T.key("說明", 1, 1239), 1300},
        {T.key("警報發起訊息", 1, 1210), 1200, T.key("警報發起訊息", 1, 1240), 1500},
        {T.key("警報復歸訊息", 1, 1211), 1200, T.key("警報復歸訊息", 1, 1241), 1500},
        {T.key("暫停使用", 1, 1212), 1000, T.key("暫停使用", 1, 1242), 1000}},
    {"ZoneNo", "ZoneName", "GroupName", "ZoneDsc", "AlarmSMS", "ResetSMS", "IsDisable"}};

// A row of a record sheet: its label and the field it shows.
struct SheetRow
{
    TextKey label;
    const char* field;
};

// "暫使使用:" and the zone's "暫停使用" without a colon are the sheet's own words.
const SheetRow UserSheet[] = {{T.key("電話號碼:", 1, 1348), "PhoneNumber"},
    {T.key("暫使使用:", 1, 1350), "IsDisable"}, {T.key("連絡人群組名稱:", 1, 1352), "GroupName"},
    {T.key("連絡人:", 1, 1354), "UserName"}, {T.key("說明:", 1, 1356), "UserDsc"}};

const SheetRow ZoneSheet[] = {{T.key("警報區:", 1, 1333), "ZoneNo"},
    {T.key("警報區名稱:", 1, 1335), "ZoneName"}, {T.key("暫停使用", 1, 1337), "IsDisable"},
    {T.key("連絡人群組名稱:", 1, 1339), "GroupName"}, {T.key("說明:", 1, 1341), "ZoneDsc"},
    {T.key("警報發起訊息:", 1, 1343), "AlarmSMS"}, {T.key("警報復歸訊息:", 1, 1345), "ResetSMS"}};

} // namespace

void frmMain::mklvNodeContent()
{
    ListView& lv = lvNodeContent;
    if (tvProjectContent.SelectedItem < 0) {
        lv.ListItems.clear();
        lv.SelectedItem = -1;
        lv.ColumnHeaders.clear();
        lbllvNodeContentCaption.Caption = QString();
        notifyChanged();
        return;
    }
    const QString tag = tvProjectContent.Nodes[tvProjectContent.SelectedItem].Tag;
    if (tag.isEmpty()) {
        m_g.platform.msgBox(T(m_g, "系統內部錯誤，被選中節點的夾帶資訊是為空。", 1, 1107), MsgBox::Critical,
            T(m_g, "系統內部錯誤", 2, 1107));
        return;
    }
    NodeTagItems Items;
    qint16 count = 0;
    ParseNodeTag(tag, Items, count);
    [[maybe_unused]] const QString trace = NodeTagTrace(m_g, tag, Items, count);
    bool found = false;
    LocateCurRecord(Items, count, found);

    ProjectState& p = m_g.project;
    const QString& kind = Items(1);
    QString& caption = lbllvNodeContentCaption.Caption;
    if (kind == QLatin1String("ProjName") && count == 1) {
        caption = T(m_g, "資料", 1, 1289);
        lv.ColumnHeaders = {{T(m_g, "項目", 1, 1292), 1500}, {T(m_g, "項目說明", 1, 1293), 1500}};
        lv.ListItems = {{T(m_g, "連絡人", 1, 1295), {T(m_g, "連絡人清單", 1, 1296)}},
            {T(m_g, "群組", 1, 1297), {T(m_g, "群組清單", 1, 1298)}},
            {T(m_g, "警報區", 1, 1299), {T(m_g, "警報區清單", 1, 1300)}}};
        lv.SelectedItem = -1;
    } else if (kind == QLatin1String("UserGroups") && count == 1) {
        caption = T(m_g, "連絡人群組", 1, 1113);
        PutTableTolvNodeContent(QStringLiteral("UserGroups"), p.rsUserGroups, QString());
    } else if (kind == QLatin1String("UserGroups") && count == 2) {
        caption = T(m_g, "連絡人群組名稱:", 1, 1117) + Items(2);
        PutTableTolvNodeContent(QStringLiteral("Users"), p.rsUsers, QStringLiteral("GroupName"), Items(2));
    } else if (kind == QLatin1String("Users") && count == 1) {
        caption = T(m_g, "連絡人", 1, 1312);
        PutTableTolvNodeContent(QStringLiteral("Users"), p.rsUsers, QString());
    } else if (kind == QLatin1String("Users") && count == 2) {
        caption = T(m_g, "連絡人內容:", 1, 1121) + Items(2);
        PutRecordTolvNodeContent(QStringLiteral("Users"), p.rsUsers);
    } else if (kind == QLatin1String("Zones") && count == 1) {
        caption = T(m_g, "警報區域", 1, 1125);
        PutTableTolvNodeContent(QStringLiteral("Zones"), p.rsZones, QString());
    } else if (kind == QLatin1String("Zones") && count == 2) {
        caption = T(m_g, "警報區=", 1, 1129) + Items(2);
        PutRecordTolvNodeContent(QStringLiteral("Zones"), p.rsZones);
    }
    notifyChanged();
}

void frmMain::PutTableTolvNodeContent(
    const QString& TableName, Recordset& rs, const QString& FilterField, const QString& FilterValue)
{
    ListView& lv = lvNodeContent;
    const bool memberFilter
        = TableName == QLatin1String("Users") && FilterField == QLatin1String("GroupName");
    const TableLayout* layout = nullptr;
    if (TableName == QLatin1String("UserGroups"))
        layout = &GroupTable;
    else if (TableName == QLatin1String("Users"))
        layout = FilterField == QLatin1String("GroupName") ? &GroupMemberTable : &UserTable;
    else if (TableName == QLatin1String("Zones"))
        layout = &ZoneTable;

    const bool empty = rs.RecordCount() == 0;
    lv.ColumnHeaders.clear();
    if (layout) {
        for (const TableColumn& c : layout->columns)
            lv.ColumnHeaders.push_back(empty ? ColumnHeader {m_g.GetText(c.empty), c.emptyWidth}
                                             : ColumnHeader {m_g.GetText(c.filled), c.filledWidth});
    } else {
        for (int i = 0; i < rs.FieldCount(); ++i)
            lv.ColumnHeaders.push_back({rs.FieldName(i), DefaultColumnWidth});
    }
    lv.ListItems.clear();
    lv.SelectedItem = -1;
    if (empty)
        return;

    // Exact comparison: a list entry that differs from the group's name in case is no match.
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
        bool matches = true;
        if (memberFilter) {
            matches = false;
            for (const QString& entry : FieldText(rs, "GroupName").split(CRLF))
                if (entry == FilterValue)
                    matches = true;
        } else if (!FilterField.isEmpty()) {
            matches = NullToEmpty(rs.Fields(FilterField)) == FilterValue;
        }
        if (!matches)
            continue;
        ListItem item;
        if (layout) {
            item.Text = FieldText(rs, layout->fields.front());
            for (size_t i = 1; i < layout->fields.size(); ++i)
                item.SubItems.push_back(FieldText(rs, layout->fields[i]));
        } else {
            item.Text = NullToEmpty(rs.Fields(0));
            for (int i = 1; i < rs.FieldCount(); ++i)
                item.SubItems.push_back(NullToEmpty(rs.Fields(i)));
        }
        lv.ListItems.push_back(item);
    }
}

void frmMain::PutRecordTolvNodeContent(const QString& TableName, Recordset& rs)
{
    ListView& lv = lvNodeContent;
    lv.ColumnHeaders.clear();
    lv.ListItems.clear();
    lv.SelectedItem = -1;

    auto addSheet = [&](const auto& rows) {
        for (const SheetRow& r : rows)
            lv.ListItems.push_back({m_g.GetText(r.label), {FieldText(rs, r.field)}});
    };
    if (TableName == QLatin1String("Users")) {
        lv.ColumnHeaders = {{T(m_g, "項目", 1, 1322), 1500}, {T(m_g, "內容", 1, 1323), 4000}};
        addSheet(UserSheet);
    } else if (TableName == QLatin1String("Zones")) {
        lv.ColumnHeaders = {{T(m_g, "項目", 1, 1325), 1500}, {T(m_g, "內容", 1, 1326), 1500}};
        addSheet(ZoneSheet);
    } else {
        lv.ColumnHeaders
            = {{T(m_g, "項目", 1, 1328), DefaultColumnWidth}, {T(m_g, "內容", 1, 1329), DefaultColumnWidth}};
        for (int i = 0; i < rs.FieldCount(); ++i)
            lv.ListItems.push_back({rs.FieldName(i), {NullToEmpty(rs.Fields(i))}});
    }
}

void frmMain::lvNodeContent_DblClick()
{
    ListView& lv = lvNodeContent;
    TreeView& tv = tvProjectContent;
    if (lv.SelectedItem < 0 || tv.SelectedItem < 0)
        return;
    const QString rowText = lv.ListItems[lv.SelectedItem].Text;
    ProjectState& p = m_g.project;

    // A row of the zone table acts as its zone node.
    QString tag = tv.Nodes[tv.SelectedItem].Tag;
    if (tag == QLatin1String("Zones"))
        tag += QStringLiteral(",") + rowText;
    NodeTagItems Items;
    qint16 count = 0;
    ParseNodeTag(tag, Items, count);
    [[maybe_unused]] const QString trace = NodeTagTrace(m_g, tag, Items, count);
    bool found = false;

    // A group's list of contacts has no double click of its own.
    if (count != 1) {
        if (Items(1) == QLatin1String("Users") && count >= 2) {
            LocateCurRecord(Items, count, found);
            ShowDialog<frmEditTelList>(m_g);
        } else if (Items(1) == QLatin1String("Zones") && count >= 2) {
            LocateCurRecord(Items, count, found);
            ShowDialog<frmEditZoneList>(m_g);
        }
        return;
    }

    // On the project sheet a row leads to its branch, matched by its word or its default
    // caption only; the three cases differ in caption lookup and selection on purpose.
    // A branch is found by its Key; none of that Key is an unhandled error.
    auto openBranch = [&](const QString& key) {
        for (int i = 0; i < static_cast<int>(tv.Nodes.size()); ++i) {
            if (tv.Nodes[i].Key == key) {
                tv.Nodes[i].Expanded = true;
                tv.SelectedItem = i;
                return;
            }
        }
        throw UnhandledError(QStringLiteral("Element not found"));
    };
    const bool onRoot = Items(1) == QLatin1String("ProjName");
    QString& caption = lbllvNodeContentCaption.Caption;
    if (onRoot && (rowText == QLatin1String("Users") || rowText == QStringLiteral("連絡人"))) {
        caption = QStringLiteral("連絡人");
        PutTableTolvNodeContent(QStringLiteral("Users"), p.rsUsers, QString());
        openBranch(QStringLiteral("Users"));
    } else if (Items(1) == QLatin1String("Users")) {
        // The caption is set before Items(2) is filled, so it ends at the colon.
        caption = T(m_g, "連絡人內容:", 1, 1121) + Items(2);
        Items(2) = rowText;
        LocateCurRecord(Items, 2, found);
        ShowDialog<frmEditTelList>(m_g);
    }
    if (onRoot && (rowText == QLatin1String("Groups") || rowText == QStringLiteral("群組"))) {
        caption = T(m_g, "連絡人群組", 1, 1113);
        PutTableTolvNodeContent(QStringLiteral("UserGroups"), p.rsUserGroups, QString());
        openBranch(QStringLiteral("UserGroups"));
    } else if (Items(1) == QLatin1String("UserGroups")) {
        Items(2) = rowText;
        LocateCurRecord(Items, 2, found);
        ShowDialog<frmEditGroupList>(m_g, false);
    }
    if (onRoot && (rowText == QStringLiteral("警報區") || rowText == QLatin1String("Zones"))) {
        caption = T(m_g, "警報區域", 1, 1125);
        PutTableTolvNodeContent(QStringLiteral("Zones"), p.rsZones, QString());
        openBranch(QStringLiteral("Zones"));
    }
    notifyChanged();
}
