#pragma once

#include <memory>

#include <QString>
#include <QVariant>

class Platform;
struct ConnectionData;
struct CursorData;
class Recordset;

// An open database file. A default-constructed Connection is "no object": State() is 0
// and every recordset opened on it is closed.
class Connection
{
public:
    Connection() = default;

    // 1 while open, 0 otherwise.
    int State() const;
    // Closes the file. Every recordset opened on it becomes closed. Nothing stays
    // beside the file afterwards (no journal), so it may be copied byte for byte.
    void Close();
    bool isNothing() const { return !m_data; }

    const QString& filePath() const;

private:
    friend Connection OpenMDBConn(Platform&, const QString&, const QString&, const QString&);
    friend class Recordset;
    friend class Transaction;
    friend Recordset OpenRecordset(Connection&, const QString&, bool);
    std::shared_ptr<ConnectionData> m_data;
};

// A keyset cursor over one table, or a read-only snapshot of a SELECT statement.
//
// The project's procedures walk and edit tables through it and count on these properties:
//  - rows keep their positions while others are added or deleted;
//  - Update writes the current row into the file at once (no batch, no transaction);
//  - AddNew first commits a row still under edit, and moving off an edited row commits it;
//  - Delete removes the current row from the file; the cursor stays on the deleted row
//    until it moves, and reading a field there is an error;
//  - Clone gives an independent cursor over the same rows: rows added, changed or
//    deleted through one are seen by the other;
//  - natural order is the table's rowid order: insertion order for ordinary tables,
//    and key order for a table whose INTEGER PRIMARY KEY is its identity (Zones.ZoneNo).
//
// A default-constructed Recordset is closed: any cursor or field operation on it throws
// UnhandledError, as an operation on a closed recordset does. Copies of a Recordset refer
// to the same cursor (like object references); Clone makes a new one.
class Recordset
{
public:
    Recordset() = default;

    int State() const; // 1 open, 0 closed
    bool isNothing() const { return !m_data; }
    void Close();

    bool IsEOF() const;
    bool IsBOF() const;
    void MoveFirst();
    void MoveNext();
    void MovePrevious();
    void MoveLast();

    void AddNew();
    void Update();
    void Delete(); // adAffectCurrent
    Recordset Clone() const;
    // Reads the table again from the file, with the rows other programs wrote meanwhile;
    // every cursor on the table then stands on its first row.
    void Requery();

    // Live count of the rows that are not deleted.
    int RecordCount() const;

    // Fields of the current row, by name (case-insensitive) or index from 0.
    // Values keep their type: null, text, integer, double, Boolean (bool) or date (QDate).
    QVariant Fields(const QString& name) const;
    QVariant Fields(int index) const;
    void setField(const QString& name, const QVariant& value);
    int FieldCount() const;
    QString FieldName(int index) const;

private:
    friend Recordset OpenRecordset(Connection&, const QString&, bool);
    std::shared_ptr<CursorData> m_data;
};

// One transaction on a connection, for a table that is rewritten whole. It takes the file's
// write lock when it begins, so that what is read inside it is what it replaces, and a second
// program waits for it to end. Everything written in it lands at Commit or not at all: it is
// rolled back unless committed, and a process killed part way leaves the file as it was.
class Transaction
{
public:
    explicit Transaction(Connection& conn);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    std::shared_ptr<ConnectionData> m_data; // empty once committed
};

// Opens a database file. A missing file gives "no object" without a word; a file that
// will not open as a database shows the two boxes of a failed open and gives no object.
Connection OpenMDBConn(
    Platform& platform, const QString& FilePath, const QString& UserID, const QString& Password);

// The connection string named in OpenMDBConn's failure box: the store and the file's
// absolute path, then the user and password pieces when they are given.
QString ConnectString(const QString& FilePath, const QString& UserID, const QString& Password);

// Opens a table by name, or a statement when Source begins with SELECT, UPDATE, DELETE or
// INSERT (in any case). Fails silently: the result is then a closed Recordset.
Recordset OpenRecordset(Connection& Conn, const QString& Source, bool UseClientCursor);

int GetRecordCount(Recordset& rs);

// Linear scan comparing the field's text exactly; on True the cursor stands on the match,
// on False it is at end of file.
bool FindRecord(Recordset& rs, const QString& FieldName, const QString& Value, bool FromCurrent);

// A field's text, a null as the empty string.
QString FieldText(const Recordset& rs, const QString& field);
// A Boolean field, a null as False.
bool FieldFlag(const Recordset& rs, const QString& field);
