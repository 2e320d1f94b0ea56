#include "TableImage.h"

#include <cmath>

#include <QDate>
#include <QDateTime>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>

#include "StoreText.h"
#include "UnhandledError.h"
#include "VBUtil.h"

namespace {

const QString& EmptyText()
{
    // A null QString binds as SQL NULL; an empty text must stay an empty text.
    static const QString empty = QStringLiteral("");
    return empty;
}

QString NonNullText(const QString& s)
{
    return s.isNull() ? EmptyText() : s;
}

FieldKind KindOfDeclaredType(const QString& declared)
{
    const QString t = declared.toUpper();
    if (t.contains(QLatin1String("BOOL")) || t == QLatin1String("BIT") || t == QLatin1String("YESNO")
        || t == QLatin1String("LOGICAL"))
        return FieldKind::Bool;
    if (t.contains(QLatin1String("DATE")) || t.contains(QLatin1String("TIME")))
        return FieldKind::Date;
    if (t.contains(QLatin1String("CHAR")) || t.contains(QLatin1String("TEXT"))
        || t.contains(QLatin1String("CLOB")) || t.contains(QLatin1String("MEMO")))
        return FieldKind::Text;
    if (t.contains(QLatin1String("INT")) || t.contains(QLatin1String("COUNTER")) || t == QLatin1String("LONG")
        || t == QLatin1String("BYTE"))
        return FieldKind::Integer;
    if (t.contains(QLatin1String("REAL")) || t.contains(QLatin1String("DOUB"))
        || t.contains(QLatin1String("FLOA")) || t.contains(QLatin1String("SINGLE"))
        || t.contains(QLatin1String("NUMERIC")) || t.contains(QLatin1String("DECIMAL"))
        || t.contains(QLatin1String("CURRENCY")))
        return FieldKind::Double;
    return FieldKind::Text;
}

FieldKind KindOfMetaType(int id)
{
    switch (id) {
    case QMetaType::Bool:
        return FieldKind::Bool;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return FieldKind::Integer;
    case QMetaType::Double:
        return FieldKind::Double;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return FieldKind::Date;
    default:
        return FieldKind::Text;
    }
}

bool IsText(const QVariant& v)
{
    return v.metaType().id() == QMetaType::QString || v.metaType().id() == QMetaType::QByteArray;
}

std::optional<double> TextNumber(const QString& text)
{
    bool ok = false;
    const double d = text.trimmed().toDouble(&ok);
    if (!ok || std::isnan(d) || std::isinf(d))
        return std::nullopt;
    return d;
}

std::optional<double> StoredNumber(const QVariant& stored)
{
    return IsNumericValue(stored) ? std::optional<double>(stored.toDouble()) : TextNumber(stored.toString());
}

std::optional<bool> TextBool(const QString& text)
{
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
        return true;
    if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
        return false;
    if (auto d = TextNumber(t))
        return *d != 0;
    return std::nullopt;
}

QDate TextDate(const QString& text)
{
    return QDate::fromString(text.trimmed().left(10), Qt::ISODate);
}

[[noreturn]] void ThrowMismatch()
{
    throw UnhandledError(
        QStringLiteral("Multiple-step operation generated errors. Check each status value."));
}

// SQLite's result code for a write to a file that may not be written.
constexpr int SqliteReadOnly = 8;

[[noreturn]] void ThrowWriteError(const QSqlQuery& query, const QString& filePath)
{
    // A read-only file is the likely cause of a refused write, and the driver's words
    // do not tell the user which file or what to do.
    if (query.lastError().nativeErrorCode().toInt() == SqliteReadOnly)
        throw UnhandledError(
            StoreText("檔案[", 1, 1) + filePath + StoreText("]是唯讀檔案，變更無法寫入。", 2, 1));
    throw UnhandledError(query.lastError().text());
}

QString Bracket(const QString& name)
{
    return QLatin1Char('[') + name + QLatin1Char(']');
}

} // namespace

namespace {

// QtSql's list of connections is a static that goes away at process exit; a connection
// still held by a static of the program must not be removed from it after that.
bool& SqlShutDown()
{
    static bool down = false;
    return down;
}

void WatchSqlShutdown()
{
    static struct Watch
    {
        ~Watch() { SqlShutDown() = true; }
    } watch;
}

} // namespace

QSqlDatabase ConnectionData::addDatabase(const QString& name)
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    WatchSqlShutdown();
    return db;
}

ConnectionData::~ConnectionData()
{
    if (open && !SqlShutDown())
        closeDatabase();
}

void ConnectionData::execute(const QString& sql)
{
    QSqlQuery query(database());
    if (!query.exec(sql))
        ThrowWriteError(query, filePath);
}

void ConnectionData::closeDatabase()
{
    {
        QSqlDatabase db = database();
        db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);
    open = false;
}

QVariant FieldFromStored(const QVariant& stored, FieldKind kind)
{
    if (!stored.isValid() || stored.isNull())
        return QVariant();
    switch (kind) {
    case FieldKind::Text:
        return NonNullText(stored.toString());
    case FieldKind::Integer: {
        if (stored.metaType().id() == QMetaType::LongLong || stored.metaType().id() == QMetaType::Int)
            return stored.toLongLong();
        if (auto d = StoredNumber(stored))
            return *d == std::floor(*d) ? QVariant(qlonglong(*d)) : QVariant(*d);
        return stored;
    }
    case FieldKind::Double:
        if (auto d = StoredNumber(stored))
            return *d;
        return stored;
    case FieldKind::Bool:
        if (IsNumericValue(stored))
            return stored.toDouble() != 0;
        if (auto b = TextBool(stored.toString()))
            return *b;
        return stored;
    case FieldKind::Date:
        if (const QDate d = TextDate(stored.toString()); d.isValid())
            return d;
        return stored;
    }
    return stored;
}

QVariant FieldFromValue(const QVariant& value, FieldKind kind)
{
    if (!value.isValid() || value.isNull())
        return QVariant();
    const int id = value.metaType().id();
    switch (kind) {
    case FieldKind::Text:
        return NonNullText(NullToEmpty(value));
    case FieldKind::Integer:
        if (id == QMetaType::Bool)
            return qlonglong(value.toBool() ? -1 : 0);
        if (IsNumericValue(value))
            return qlonglong(std::nearbyint(value.toDouble()));
        if (IsText(value))
            if (auto d = TextNumber(value.toString()))
                return qlonglong(std::nearbyint(*d));
        ThrowMismatch();
    case FieldKind::Double:
        if (id == QMetaType::Bool)
            return value.toBool() ? -1.0 : 0.0;
        if (IsNumericValue(value))
            return value.toDouble();
        if (IsText(value))
            if (auto d = TextNumber(value.toString()))
                return *d;
        ThrowMismatch();
    case FieldKind::Bool:
        if (id == QMetaType::Bool)
            return value.toBool();
        if (IsNumericValue(value))
            return value.toDouble() != 0;
        if (IsText(value))
            if (auto b = TextBool(value.toString()))
                return *b;
        ThrowMismatch();
    case FieldKind::Date:
        if (id == QMetaType::QDate)
            return value.toDate();
        if (id == QMetaType::QDateTime)
            return value.toDateTime().date();
        if (IsText(value))
            if (const QDate d = TextDate(value.toString()); d.isValid())
                return d;
        ThrowMismatch();
    }
    ThrowMismatch();
}

QVariant FieldToStored(const QVariant& value, FieldKind kind)
{
    if (!value.isValid() || value.isNull())
        return QVariant();
    switch (value.metaType().id()) {
    case QMetaType::Bool:
        return qlonglong(value.toBool() ? 1 : 0);
    case QMetaType::QDate:
        return value.toDate().toString(Qt::ISODate);
    case QMetaType::QString:
        return NonNullText(value.toString());
    default:
        return kind == FieldKind::Text ? QVariant(NonNullText(value.toString())) : value;
    }
}

TableImage::~TableImage()
{
    releaseStatements();
}

void TableImage::releaseStatements()
{
    m_update.reset();
    m_delete.reset();
    m_selectRow.reset();
    m_inserts.clear();
}

std::shared_ptr<TableImage> TableImage::loadTable(
    const std::shared_ptr<ConnectionData>& conn, const QString& name)
{
    auto image = std::make_shared<TableImage>();
    image->conn = conn;
    image->name = name;
    const QSqlDatabase db = conn->database();
    {
        QSqlQuery info(db);
        if (!info.exec(QStringLiteral("PRAGMA table_info(") + Bracket(name) + QLatin1Char(')')))
            return nullptr;
        int keyColumns = 0;
        int integerKey = -1;
        while (info.next()) {
            const QString declared = info.value(2).toString();
            if (info.value(5).toInt() > 0) {
                ++keyColumns;
                if (declared.compare(QLatin1String("INTEGER"), Qt::CaseInsensitive) == 0)
                    integerKey = int(image->columns.size());
            }
            image->columns.push_back({info.value(1).toString(), KindOfDeclaredType(declared)});
        }
        // A read error is no end of the list: a table read in part is no table.
        if (info.lastError().isValid() || image->columns.empty())
            return nullptr;
        if (keyColumns == 1)
            image->rowidColumn = integerKey;
    }
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(
            QStringLiteral("SELECT rowid, * FROM ") + Bracket(name) + QStringLiteral(" ORDER BY rowid")))
        return nullptr;
    while (query.next())
        image->rows.push_back(image->readRow(query));
    // A damaged page ends the scan early: the rows read so far must never pass for the table.
    if (query.lastError().isValid())
        return nullptr;
    image->liveCount = int(image->rows.size());
    return image;
}

std::shared_ptr<TableImage> TableImage::loadStatement(
    const std::shared_ptr<ConnectionData>& conn, const QString& statement)
{
    auto image = std::make_shared<TableImage>();
    image->conn = conn;
    image->readOnly = true;
    QSqlQuery query(conn->database());
    query.setForwardOnly(true);
    if (!query.exec(statement) || !query.isSelect())
        return nullptr;
    const QSqlRecord record = query.record();
    for (int i = 0; i < record.count(); ++i)
        image->columns.push_back({record.fieldName(i), KindOfMetaType(record.field(i).metaType().id())});
    while (query.next()) {
        Row row;
        row.values.reserve(image->columns.size());
        for (int i = 0; i < int(image->columns.size()); ++i)
            row.values.push_back(
                query.isNull(i) ? QVariant() : FieldFromStored(query.value(i), image->columns[i].kind));
        image->rows.push_back(std::move(row));
    }
    if (query.lastError().isValid())
        return nullptr;
    image->liveCount = int(image->rows.size());
    return image;
}

TableImage::Row TableImage::readRow(QSqlQuery& query) const
{
    Row row;
    row.rowid = query.value(0).toLongLong();
    row.values.reserve(columns.size());
    for (int i = 0; i < int(columns.size()); ++i)
        row.values.push_back(
            query.isNull(i + 1) ? QVariant() : FieldFromStored(query.value(i + 1), columns[i].kind));
    return row;
}

int TableImage::columnIndex(const QString& field) const
{
    for (int i = 0; i < int(columns.size()); ++i)
        if (columns[i].name.compare(field, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

QSqlQuery& TableImage::prepared(std::unique_ptr<QSqlQuery>& slot, const QString& sql)
{
    if (!slot) {
        slot = std::make_unique<QSqlQuery>(conn->database());
        if (!slot->prepare(sql)) {
            const QString error = slot->lastError().text();
            slot.reset();
            throw UnhandledError(error);
        }
    }
    return *slot;
}

int TableImage::insertRow(const Changes& values)
{
    QString key;
    QStringList names;
    QStringList marks;
    for (int i = 0; i < int(columns.size()); ++i) {
        if (values[i]) {
            key += QString::number(i) + QLatin1Char(',');
            names << Bracket(columns[i].name);
            marks << QStringLiteral("?");
        }
    }
    const QString sql = names.isEmpty()
        ? QStringLiteral("INSERT INTO ") + Bracket(name) + QStringLiteral(" DEFAULT VALUES")
        : QStringLiteral("INSERT INTO ") + Bracket(name) + QStringLiteral(" (") + names.join(QLatin1Char(','))
            + QStringLiteral(") VALUES (") + marks.join(QLatin1Char(',')) + QLatin1Char(')');
    QSqlQuery& insert = prepared(m_inserts[key], sql);
    int bound = 0;
    for (int i = 0; i < int(columns.size()); ++i)
        if (values[i])
            insert.bindValue(bound++, FieldToStored(*values[i], columns[i].kind));
    if (!insert.exec())
        ThrowWriteError(insert, conn->filePath);
    const qint64 rowid = insert.lastInsertId().toLongLong();
    insert.finish();

    // Read the row back, so that the columns left unset show the file's defaults.
    QSqlQuery& select = prepared(m_selectRow,
        QStringLiteral("SELECT rowid, * FROM ") + Bracket(name) + QStringLiteral(" WHERE rowid = ?"));
    select.bindValue(0, rowid);
    if (!select.exec())
        ThrowWriteError(select, conn->filePath);
    if (!select.next())
        throw UnhandledError(StoreText("新增的資料列無法讀回。", 1, 2));
    rows.push_back(readRow(select));
    select.finish();
    ++liveCount;
    return int(rows.size()) - 1;
}

void TableImage::updateRow(int index, const Changes& changes)
{
    Row& row = rows[index];
    std::vector<QVariant> merged = row.values;
    for (int i = 0; i < int(columns.size()); ++i)
        if (changes[i])
            merged[i] = *changes[i];

    QStringList sets;
    for (const Column& c : columns)
        sets << Bracket(c.name) + QStringLiteral(" = ?");
    QSqlQuery& update = prepared(m_update,
        QStringLiteral("UPDATE ") + Bracket(name) + QStringLiteral(" SET ") + sets.join(QStringLiteral(", "))
            + QStringLiteral(" WHERE rowid = ?"));
    for (int i = 0; i < int(columns.size()); ++i)
        update.bindValue(i, FieldToStored(merged[i], columns[i].kind));
    update.bindValue(int(columns.size()), row.rowid);
    if (!update.exec())
        ThrowWriteError(update, conn->filePath);
    update.finish();

    row.values = std::move(merged);
    if (rowidColumn >= 0 && row.values[rowidColumn].isValid())
        row.rowid = row.values[rowidColumn].toLongLong();
}

void TableImage::deleteRow(int index)
{
    Row& row = rows[index];
    QSqlQuery& remove = prepared(
        m_delete, QStringLiteral("DELETE FROM ") + Bracket(name) + QStringLiteral(" WHERE rowid = ?"));
    remove.bindValue(0, row.rowid);
    if (!remove.exec())
        ThrowWriteError(remove, conn->filePath);
    remove.finish();
    row.deleted = true;
    --liveCount;
}
