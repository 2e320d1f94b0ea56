#include <array>
#include <functional>
#include <map>

#include <gtest/gtest.h>

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include "ADOUtil.h"
#include "Golden.h"
#include "RecordsetRows.h"
#include "ScriptedPlatform.h"
#include "UnhandledError.h"
#include "VBUtil.h"

namespace {

const QStringList Schema = {
    "CREATE TABLE UserGroups (GroupName TEXT, GroupDsc TEXT)",
    "INSERT INTO UserGroups VALUES ('G1', 'first'), ('G2', NULL), ('G3', 'third')",
    "CREATE TABLE Users (UserName TEXT, PhoneNumber TEXT, IsDisable BOOLEAN DEFAULT 0, GroupName TEXT)",
    "CREATE TABLE Zones (ZoneNo INTEGER PRIMARY KEY, ZoneName TEXT, IsDisable BOOLEAN)",
    "INSERT INTO Zones VALUES (3, 'Z3', 0), (1, 'Z1', 1), (2, 'Z2', 0)",
    "CREATE TABLE Basic (DeviceModelName TEXT, CreatedDate DATE, Ratio DOUBLE, Count INTEGER)",
    "INSERT INTO Basic VALUES ('RM64', '2020-01-02', 1.5, 4)",
};

// Runs statements on a database file through a connection of the test's own; gives the
// first value of the last statement.
QVariant RunSql(const QString& path, const QStringList& statements)
{
    QVariant v;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "fixture");
        db.setDatabaseName(path);
        EXPECT_TRUE(db.open());
        QSqlQuery q(db);
        q.exec("PRAGMA synchronous=OFF"); // the fixture's own writes need no fsync either
        for (const QString& s : statements)
            EXPECT_TRUE(q.exec(s)) << s.toStdString();
        if (q.next())
            v = q.value(0);
    }
    QSqlDatabase::removeDatabase("fixture");
    return v;
}

// Where the cursor stands, as a word: the field's text, "<EOF>", "<BOF>" or "<deleted>".
QString Where(const Recordset& rs, const QString& field)
{
    if (rs.IsEOF())
        return "<EOF>";
    if (rs.IsBOF())
        return "<BOF>";
    try {
        return NullToEmpty(rs.Fields(field));
    } catch (const UnhandledError&) {
        return "<deleted>";
    }
}

// Every row of the recordset, each field with its value and type.
QString Dump(const Recordset& rs)
{
    QString text;
    Recordset c = rs.Clone();
    for (c.MoveFirst(); !c.IsEOF(); c.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < c.FieldCount(); ++i) {
            const QVariant v = c.Fields(i);
            fields << QString("%1=%2 (%3)")
                          .arg(c.FieldName(i), NullToEmpty(v), v.isNull() ? "null" : v.typeName());
        }
        text += fields.join(", ") + "\n";
    }
    return text;
}

class StoreTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(dir.isValid());
        path = dir.filePath("test.mir");
        RunSql(path, Schema);
        reopen();
    }
    void TearDown() override
    {
        if (conn.State() == 1)
            conn.Close();
        EXPECT_TRUE(platform.allExpectationsMet());
    }
    // The database made anew from the schema, and opened.
    void fresh()
    {
        conn.Close();
        QFile::remove(path);
        RunSql(path, Schema);
        reopen();
    }
    void reopen()
    {
        if (conn.State() == 1)
            conn.Close();
        conn = OpenMDBConn(platform, path, "", "");
        ASSERT_EQ(conn.State(), 1);
    }
    Recordset open(const QString& source)
    {
        Recordset rs = OpenRecordset(conn, source, false);
        EXPECT_EQ(rs.State(), 1) << source.toStdString();
        return rs;
    }

    // Plays a script on rs: a method's name ("!" before it: the method must fail), "set X"
    // (GroupName), "delete all", or "clone" and "open" (a second recordset on the table),
    // which move the following words onto that recordset until "back".
    void play(Recordset& rs, const QStringList& words)
    {
        static const std::map<QString, void (Recordset::*)()> methods
            = {{"AddNew", &Recordset::AddNew}, {"Update", &Recordset::Update}, {"Delete", &Recordset::Delete},
                {"MoveFirst", &Recordset::MoveFirst}, {"MoveLast", &Recordset::MoveLast},
                {"MoveNext", &Recordset::MoveNext}, {"MovePrevious", &Recordset::MovePrevious}};
        Recordset other;
        Recordset* on = &rs;
        for (const QString& w : words) {
            if (w == "clone" || w == "open") {
                other = w == "clone" ? rs.Clone() : open("usergroups");
                on = &other;
            } else if (w == "back") {
                on = &rs;
            } else if (w == "delete all") {
                for (; !on->IsEOF(); on->MoveNext())
                    on->Delete();
            } else if (w.startsWith("set ")) {
                on->setField("groupname", w.mid(4));
            } else if (w.startsWith('!')) {
                EXPECT_THROW((on->*methods.at(w.mid(1)))(), UnhandledError) << w.toStdString();
            } else {
                (on->*methods.at(w))();
            }
        }
    }

    QTemporaryDir dir;
    QString path;
    ScriptedPlatform platform;
    Connection conn;
};

// Each script plays on a fresh database; the rows afterwards (GroupName, in order) and where
// the cursor stands go into one transcript. Every committed change is in the file already, as
// a second connection sees it; a new row not yet committed is not.
TEST_F(StoreTest, CursorScriptsKeepRowsAndPositionLiveInTheFile)
{
    const std::pair<const char*, QStringList> scripts[] = {
        {"AddNew and Update append and stand on the new row", {"AddNew", "set G4", "Update"}},
        {"AddNew commits the row under edit", {"AddNew", "set G4", "AddNew", "set G5", "Update"}},
        {"moving off an edited row commits it", {"set X1", "MoveNext"}},
        {"moving off a new row commits it", {"AddNew", "set G4", "MoveFirst"}},
        {"a new row not yet committed is not in the table", {"AddNew", "set G4"}},
        {"Delete leaves the cursor on the deleted row", {"MoveNext", "Delete"}},
        {"MoveNext after Delete goes to the following row", {"MoveNext", "Delete", "MoveNext"}},
        {"MovePrevious after Delete goes to the row before", {"MoveNext", "Delete", "MovePrevious"}},
        {"deleting the last row and moving on reaches end of file", {"MoveLast", "Delete", "MoveNext"}},
        {"a row keeps its position while others are added and deleted",
            {"MoveNext", "clone", "Delete", "AddNew", "set G4", "Update", "back", "MoveNext"}},
        {"deleting every row and moving gives an empty table", {"delete all"}},
        {"before the first row and no further", {"MovePrevious", "!MovePrevious"}},
        {"MoveNext from before the first row comes back to it", {"MovePrevious", "MoveNext"}},
        {"past the last row and no further", {"MoveLast", "MoveNext", "!MoveNext"}},
        {"MovePrevious from end of file comes back to the last row",
            {"MoveLast", "MoveNext", "MovePrevious"}},
        {"a clone starts on the first row and shares its edits",
            {"MoveLast", "clone", "set X1", "Update", "back", "MoveFirst"}},
        {"a second recordset on the table shares its rows", {"open", "Delete", "back", "MoveFirst"}},
    };
    QString log;
    for (const auto& [name, script] : scripts) {
        fresh();
        Recordset rs = open("UserGroups");
        play(rs, script);
        const QStringList rows = Column(rs, "GroupName");
        const QString at = Where(rs, "GroupName");
        log += QString("%1\n  rows: %2 | at %3\n").arg(name, rows.join(' '), at);
        if (at.startsWith('<')) {
            EXPECT_THROW(rs.Fields(0), UnhandledError) << name;
        }
        EXPECT_EQ(GetRecordCount(rs), rows.size()) << name;
        Connection second = OpenMDBConn(platform, path, "", "");
        EXPECT_EQ(Column(OpenRecordset(second, "UserGroups", false), "GroupName"), rows) << name;
        second.Close();
    }
    ExpectGolden("store/golden/cursor-scripts.txt", log);
}

// What a recordset refuses, each with its error: moves and fields on an empty table, a field
// that is not there or a value of the wrong type, changes to a statement's rows, and every
// operation on a recordset never opened, closed by its connection or by itself.
TEST_F(StoreTest, RefusedOperationsFailWithTheirErrors)
{
    Recordset empty = open("Users");
    EXPECT_TRUE(empty.IsEOF() && empty.IsBOF());
    EXPECT_EQ(GetRecordCount(empty), 0);
    EXPECT_FALSE(FindRecord(empty, "UserName", "", false));
    Recordset groups = open("UserGroups");
    Recordset basic = open("Basic");
    Recordset statement = open("SELECT * FROM UserGroups");
    QString log;
    const auto expectError = [&log](const QString& what, const std::function<void()>& op) {
        try {
            op();
            log += what + ": no error\n";
        } catch (const UnhandledError& e) {
            log += what + ": " + e.text() + "\n";
        }
    };
    expectError("empty table, MoveFirst", [&] { empty.MoveFirst(); });
    expectError("empty table, MoveLast", [&] { empty.MoveLast(); });
    expectError("empty table, MoveNext", [&] { empty.MoveNext(); });
    expectError("empty table, MovePrevious", [&] { empty.MovePrevious(); });
    expectError("empty table, Fields", [&] { empty.Fields("UserName"); });
    expectError("empty table, setField", [&] { empty.setField("UserName", "x"); });
    expectError("Fields of no such name", [&] { groups.Fields("NoSuchField"); });
    expectError("Fields past the last", [&] { groups.Fields(2); });
    expectError("setField of no such name", [&] { groups.setField("NoSuchField", "x"); });
    expectError("text into a number", [&] { basic.setField("Count", "many"); });
    expectError("text into a date", [&] { basic.setField("CreatedDate", "soon"); });
    expectError("statement, AddNew", [&] { statement.AddNew(); });
    expectError("statement, Delete", [&] { statement.Delete(); });
    expectError("statement, setField", [&] { statement.setField("GroupName", "x"); });

    Recordset closedByItself = open("UserGroups");
    closedByItself.Close();
    conn.Close();
    Recordset unopened;
    const std::pair<const char*, Recordset*> closed[]
        = {{"never opened", &unopened}, {"closed by its connection", &groups}, {"closed", &closedByItself}};
    for (const auto& [name, rs] : closed) {
        EXPECT_EQ(rs->State(), 0) << name;
        const QString on = QString(name) + ", ";
        expectError(on + "EOF", [rs] { rs->IsEOF(); });
        expectError(on + "MoveNext", [rs] { rs->MoveNext(); });
        expectError(on + "Update", [rs] { rs->Update(); });
        expectError(on + "Clone", [rs] { rs->Clone(); });
        expectError(on + "Fields", [rs] { rs->Fields("GroupName"); });
        expectError(on + "setField", [rs] { rs->setField("GroupName", "x"); });
        expectError(on + "GetRecordCount", [rs] { GetRecordCount(*rs); });
    }
    ExpectGolden("store/golden/refused-operations.txt", log);
}

TEST_F(StoreTest, IntegerKeyTableComesInKeyOrder)
{
    Recordset zones = open("Zones");
    EXPECT_EQ(Column(zones, "ZoneNo"), QStringList({"1", "2", "3"}));
    EXPECT_EQ(zones.Fields("ZoneNo").metaType().id(), QMetaType::LongLong);

    // A new key goes to the end while the table is open, to its place once reopened.
    AddRow(zones, {{"ZoneNo", 0}, {"ZoneName", "Z0"}});
    EXPECT_EQ(Column(zones, "ZoneNo"), QStringList({"1", "2", "3", "0"}));
    reopen();
    EXPECT_EQ(Column(open("Zones"), "ZoneNo"), QStringList({"0", "1", "2", "3"}));
}

// Dates, numbers (a count rounded half to even), booleans with the store's default, empty
// text apart from null: each comes back with its type, and the file holds them as text and 0/1.
TEST_F(StoreTest, ValuesKeepTheirTypesThroughTheFile)
{
    QString log = Dump(open("Basic"));
    Recordset basic = open("Basic");
    basic.setField("CreatedDate", QDate(2026, 11, 22));
    basic.setField("Ratio", "2.25");
    basic.setField("Count", 7.5);
    basic.setField("DeviceModelName", QVariant());
    basic.Update();
    Recordset users = open("Users");
    AddRow(users, {{"UserName", "Ann"}, {"PhoneNumber", ""}});
    AddRow(users, {{"UserName", "Bob"}, {"IsDisable", true}});
    reopen();
    log += Dump(open("Basic")) + Dump(open("Users"));
    conn.Close();
    log += "in the file: " + RunSql(path, {"SELECT CreatedDate FROM Basic"}).toString() + ", "
        + RunSql(path, {"SELECT group_concat(IsDisable) FROM Users"}).toString() + "\n";
    ExpectGolden("store/golden/value-types.txt", log);
}

TEST_F(StoreTest, PendingEditIsCommittedByClose)
{
    Recordset rs = open("UserGroups");
    rs.setField("GroupDsc", "by close");
    rs.Close();
    Recordset other = open("UserGroups");
    other.AddNew();
    other.setField("GroupName", "by conn close");
    conn.Close();
    EXPECT_EQ(other.State(), 0);

    reopen();
    rs = open("UserGroups");
    EXPECT_EQ(rs.Fields("GroupDsc").toString(), "by close");
    EXPECT_TRUE(FindRecord(rs, "GroupName", "by conn close", false));
}

// A source opens as a table name in any case or as a statement; anything else, a bracketed name
// included (it is bracketed again), gives a closed recordset. FindRecord scans from the first row
// and compares the value's text: case and blanks matter, null is the empty text, a number or a
// boolean matches by its text only.
TEST_F(StoreTest, OpenAndFindGoByTheSourcesAndTheValuesText)
{
    QString log;
    for (const char* source : {"USERGROUPS", "select [GroupName] from [UserGroups] order by GroupName desc",
             "SELECT GroupName FROM UserGroups WHERE 0", "", "NoSuchTable", "SELECT FROM WHERE",
             "[UserGroups]"}) {
        Recordset rs = OpenRecordset(conn, source, false);
        log += QString("open \"%1\": %2\n")
                   .arg(source, rs.State() == 1 ? "rows " + Column(rs, "GroupName").join(' ') : "closed");
    }
    const std::array<std::array<const char*, 3>, 7> finds = {{{"UserGroups", "GroupName", "G2"},
        {"UserGroups", "GroupName", "g2"}, {"UserGroups", "GroupName", "G2 "}, {"UserGroups", "GroupDsc", ""},
        {"Zones", "ZoneNo", "2"}, {"Zones", "ZoneNo", "02"}, {"Zones", "IsDisable", "True"}}};
    for (const auto& [table, field, value] : finds) {
        Recordset rs = open(table);
        rs.MoveLast();
        const bool found = FindRecord(rs, field, value, false);
        log += QString("find %1.%2 \"%3\": %4, at %5\n")
                   .arg(table, field, value, found ? "found" : "not found",
                       Where(rs, QString(table) == "Zones" ? "ZoneName" : "GroupName"));
    }
    ExpectGolden("store/golden/open-and-find.txt", log);

    Connection nothing;
    EXPECT_EQ(OpenRecordset(nothing, "UserGroups", false).State(), 0);
    conn.Close();
    EXPECT_EQ(OpenRecordset(conn, "UserGroups", false).State(), 0);
}

// A table rewritten in a transaction: taken back, the rows in memory and in the file are the
// old ones; committed, the new ones.
TEST_F(StoreTest, ATransactionLandsWholeAtCommitOrNotAtAll)
{
    for (const bool commit : {false, true}) {
        Recordset rs = open("UserGroups");
        {
            Transaction rewrite(conn);
            play(rs, {"delete all"});
            AddRow(rs, {{"GroupName", "G9"}});
            if (commit)
                rewrite.Commit();
        }
        const QStringList expected = commit ? QStringList {"G9"} : QStringList {"G1", "G2", "G3"};
        EXPECT_EQ(Column(rs, "GroupName"), expected) << commit;
        reopen();
        EXPECT_EQ(Column(open("UserGroups"), "GroupName"), expected) << commit;
    }
}

} // namespace
