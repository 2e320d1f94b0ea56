#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include <QSqlDatabase>
#include <QString>
#include <QVariant>

class QSqlQuery;
struct CursorData;
struct TableImage;

// One open database file: a QtSql connection of its own name, the table images its
// recordsets share, and the cursors to close with it.
struct ConnectionData
{
    ~ConnectionData();
    // Registers a QtSql connection of the given name on the SQLite driver.
    static QSqlDatabase addDatabase(const QString& name);
    QSqlDatabase database() const { return QSqlDatabase::database(connectionName, false); }
    // Runs a statement that returns no rows; a refusal is an unhandled error.
    void execute(const QString& sql);
    // Closes the file and forgets the QtSql connection. No query may be alive by then.
    void closeDatabase();

    QString connectionName;
    QString filePath;
    bool open = false;
    std::map<QString, std::weak_ptr<TableImage>> tables; // by lower-case table name
    std::vector<std::weak_ptr<CursorData>> cursors;
};

enum class FieldKind { Text, Integer, Double, Bool, Date };

// The rows of one table held in memory, in the order the cursors walk them. Rows are
// never removed from the image, only marked deleted, so that positions stay put while
// rows are added or deleted. Every write goes to the file at once.
struct TableImage
{
    struct Column
    {
        QString name;
        FieldKind kind = FieldKind::Text;
    };
    struct Row
    {
        qint64 rowid = 0;
        std::vector<QVariant> values;
        bool deleted = false;
    };
    using Changes = std::vector<std::optional<QVariant>>;

    ~TableImage();

    // The whole table in rowid order, or nothing if it cannot be read whole.
    static std::shared_ptr<TableImage> loadTable(
        const std::shared_ptr<ConnectionData>& conn, const QString& name);
    // The rows of a SELECT statement, read-only; nothing if it fails or yields no rows set.
    static std::shared_ptr<TableImage> loadStatement(
        const std::shared_ptr<ConnectionData>& conn, const QString& statement);

    int columnIndex(const QString& name) const;

    // Writes throw UnhandledError when the file refuses them.
    int insertRow(const Changes& values); // returns the new row's index
    void updateRow(int index, const Changes& changes);
    void deleteRow(int index);

    // Drops the prepared statements; called before the connection goes away.
    void releaseStatements();

    std::shared_ptr<ConnectionData> conn;
    QString name; // empty for a statement's rows
    bool readOnly = false;
    std::vector<Column> columns;
    std::vector<Row> rows;
    int liveCount = 0;
    int rowidColumn = -1; // the INTEGER PRIMARY KEY column that is the rowid, if any

private:
    QSqlQuery& prepared(std::unique_ptr<QSqlQuery>& slot, const QString& sql);
    Row readRow(QSqlQuery& query) const;

    std::unique_ptr<QSqlQuery> m_update;
    std::unique_ptr<QSqlQuery> m_delete;
    std::unique_ptr<QSqlQuery> m_selectRow;
    std::map<QString, std::unique_ptr<QSqlQuery>> m_inserts; // by the list of columns set
};

// A value as the field reads it, from what the file stores.
QVariant FieldFromStored(const QVariant& stored, FieldKind kind);
// A value written to a field, converted to the field's type; throws on a type mismatch.
QVariant FieldFromValue(const QVariant& value, FieldKind kind);
// A field value as the file stores it.
QVariant FieldToStored(const QVariant& value, FieldKind kind);
