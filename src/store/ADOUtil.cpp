#include "ADOUtil.h"

#include <algorithm>
#include <atomic>

#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

#include "FileUtil.h"
#include "Platform.h"
#include "StoreText.h"
#include "TableImage.h"
#include "UnhandledError.h"
#include "VBUtil.h"

// One cursor over a shared table image. Positions are indexes into the image's rows,
// which never move, or one of the two ends.
struct CursorData
{
    enum class Mode { None, Edit, Add };
    static constexpr int BeforeFirst = -1;
    static constexpr int AfterLast = -2;

    std::shared_ptr<TableImage> table;
    bool open = false;
    int pos = BeforeFirst;
    Mode mode = Mode::None;
    TableImage::Changes pending;
};

namespace {

[[noreturn]] void ThrowClosed()
{
    throw UnhandledError(QStringLiteral("Operation is not allowed when the object is closed."));
}

[[noreturn]] void ThrowNoCurrentRecord()
{
    throw UnhandledError(QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. "
                                        "Requested operation requires a current record."));
}

[[noreturn]] void ThrowNoSuchField()
{
    throw UnhandledError(QStringLiteral(
        "Item cannot be found in the collection corresponding to the requested name or ordinal."));
}

[[noreturn]] void ThrowReadOnly()
{
    throw UnhandledError(
        QStringLiteral("Current Recordset does not support updating. This may be a limitation "
                       "of the provider, or of the selected locktype."));
}

CursorData& OpenCursor(const std::shared_ptr<CursorData>& data)
{
    if (!data || !data->open)
        ThrowClosed();
    return *data;
}

int FirstLive(const TableImage& t)
{
    for (int i = 0; i < int(t.rows.size()); ++i)
        if (!t.rows[i].deleted)
            return i;
    return -1;
}

int LastLive(const TableImage& t)
{
    for (int i = int(t.rows.size()) - 1; i >= 0; --i)
        if (!t.rows[i].deleted)
            return i;
    return -1;
}

bool OnLiveRow(const CursorData& c)
{
    return c.pos >= 0 && !c.table->rows[c.pos].deleted;
}

bool AtEOF(const CursorData& c)
{
    if (c.mode == CursorData::Mode::Add)
        return false;
    return c.pos == CursorData::AfterLast || (c.pos == CursorData::BeforeFirst && c.table->liveCount == 0);
}

bool AtBOF(const CursorData& c)
{
    if (c.mode == CursorData::Mode::Add)
        return false;
    return c.pos == CursorData::BeforeFirst || (c.pos == CursorData::AfterLast && c.table->liveCount == 0);
}

// Writes the row under edit or the new row; the cursor then stands on that row.
void CommitPending(CursorData& c)
{
    if (c.mode == CursorData::Mode::None)
        return;
    const CursorData::Mode mode = c.mode;
    TableImage::Changes changes;
    changes.swap(c.pending);
    c.mode = CursorData::Mode::None;
    if (mode == CursorData::Mode::Add) {
        c.pos = c.table->insertRow(changes);
    } else {
        if (!OnLiveRow(c))
            ThrowNoCurrentRecord();
        c.table->updateRow(c.pos, changes);
    }
}

std::shared_ptr<CursorData> NewCursor(const std::shared_ptr<TableImage>& table)
{
    auto c = std::make_shared<CursorData>();
    c->table = table;
    c->open = true;
    const int first = FirstLive(*table);
    c->pos = first >= 0 ? first : CursorData::BeforeFirst;
    auto& cursors = table->conn->cursors;
    std::erase_if(cursors, [](const std::weak_ptr<CursorData>& w) { return w.expired(); });
    cursors.push_back(c);
    return c;
}

void CloseCursor(CursorData& c)
{
    CommitPending(c);
    c.open = false;
    c.pending.clear();
    c.table.reset();
}

QVariant FieldValue(const CursorData& c, int index)
{
    if (index < 0 || index >= int(c.table->columns.size()))
        ThrowNoSuchField();
    if (c.mode == CursorData::Mode::Add)
        return c.pending[index] ? *c.pending[index] : QVariant();
    if (!OnLiveRow(c))
        ThrowNoCurrentRecord();
    if (c.mode == CursorData::Mode::Edit && c.pending[index])
        return *c.pending[index];
    return c.table->rows[c.pos].values[index];
}

// Reads a table's rows again from the file. Old positions mean nothing in the new rows:
// every cursor on the table starts again at its first row. False if the table cannot be
// read whole; its rows then stay as they were.
bool ReloadRows(TableImage& table)
{
    const std::shared_ptr<TableImage> fresh = TableImage::loadTable(table.conn, table.name);
    if (!fresh)
        return false;
    table.rows = std::move(fresh->rows);
    table.liveCount = fresh->liveCount;
    const int first = FirstLive(table);
    for (const std::weak_ptr<CursorData>& w : table.conn->cursors) {
        if (const auto other = w.lock(); other && other->table.get() == &table) {
            other->pending.clear();
            other->mode = CursorData::Mode::None;
            other->pos = first >= 0 ? first : CursorData::BeforeFirst;
        }
    }
    return true;
}

bool IsStatement(const QString& Source)
{
    const QString head = Source.left(6).toUpper();
    return head == QLatin1String("SELECT") || head == QLatin1String("UPDATE")
        || head == QLatin1String("DELETE") || head == QLatin1String("INSERT");
}

QString NewConnectionName()
{
    static std::atomic<int> counter {0};
    return QStringLiteral("vorna-store-%1").arg(++counter);
}

} // namespace

int Connection::State() const
{
    return m_data && m_data->open ? 1 : 0;
}

void Connection::Close()
{
    if (!m_data || !m_data->open)
        ThrowClosed();
    for (const auto& weak : m_data->cursors)
        if (auto c = weak.lock(); c && c->open)
            CloseCursor(*c);
    m_data->cursors.clear();
    for (auto& [key, weak] : m_data->tables)
        if (auto t = weak.lock())
            t->releaseStatements();
    m_data->tables.clear();
    m_data->closeDatabase();
}

const QString& Connection::filePath() const
{
    static const QString none;
    return m_data ? m_data->filePath : none;
}

int Recordset::State() const
{
    return m_data && m_data->open ? 1 : 0;
}

void Recordset::Close()
{
    CloseCursor(OpenCursor(m_data));
}

bool Recordset::IsEOF() const
{
    return AtEOF(OpenCursor(m_data));
}

bool Recordset::IsBOF() const
{
    return AtBOF(OpenCursor(m_data));
}

void Recordset::MoveFirst()
{
    CursorData& c = OpenCursor(m_data);
    CommitPending(c);
    const int first = FirstLive(*c.table);
    if (first < 0)
        ThrowNoCurrentRecord();
    c.pos = first;
}

void Recordset::Requery()
{
    CursorData& c = OpenCursor(m_data);
    CommitPending(c);
    if (c.table->readOnly)
        throw UnhandledError(QStringLiteral("Operation is not allowed in this context"));
    if (!ReloadRows(*c.table))
        throw UnhandledError(StoreText("資料表[", 1, 3) + c.table->name + StoreText("]無法讀取。", 2, 3));
}

void Recordset::MoveLast()
{
    CursorData& c = OpenCursor(m_data);
    CommitPending(c);
    const int last = LastLive(*c.table);
    if (last < 0)
        ThrowNoCurrentRecord();
    c.pos = last;
}

void Recordset::MoveNext()
{
    CursorData& c = OpenCursor(m_data);
    CommitPending(c);
    if (AtEOF(c))
        ThrowNoCurrentRecord();
    const auto& rows = c.table->rows;
    int i = c.pos == CursorData::BeforeFirst ? 0 : c.pos + 1;
    while (i < int(rows.size()) && rows[i].deleted)
        ++i;
    c.pos = i < int(rows.size()) ? i : CursorData::AfterLast;
}

void Recordset::MovePrevious()
{
    CursorData& c = OpenCursor(m_data);
    CommitPending(c);
    if (AtBOF(c))
        ThrowNoCurrentRecord();
    const auto& rows = c.table->rows;
    int i = c.pos == CursorData::AfterLast ? int(rows.size()) - 1 : c.pos - 1;
    while (i >= 0 && rows[i].deleted)
        --i;
    c.pos = i >= 0 ? i : CursorData::BeforeFirst;
}

void Recordset::AddNew()
{
    CursorData& c = OpenCursor(m_data);
    if (c.table->readOnly)
        ThrowReadOnly();
    CommitPending(c);
    c.mode = CursorData::Mode::Add;
    c.pending.assign(c.table->columns.size(), std::nullopt);
}

void Recordset::Update()
{
    CursorData& c = OpenCursor(m_data);
    if (c.table->readOnly)
        ThrowReadOnly();
    if (c.mode == CursorData::Mode::None) {
        if (!OnLiveRow(c))
            ThrowNoCurrentRecord();
        return;
    }
    CommitPending(c);
}

void Recordset::Delete()
{
    CursorData& c = OpenCursor(m_data);
    if (c.table->readOnly)
        ThrowReadOnly();
    if (c.mode == CursorData::Mode::Add)
        CommitPending(c);
    c.mode = CursorData::Mode::None;
    c.pending.clear();
    if (!OnLiveRow(c))
        ThrowNoCurrentRecord();
    c.table->deleteRow(c.pos);
}

Recordset Recordset::Clone() const
{
    CursorData& c = OpenCursor(m_data);
    Recordset clone;
    clone.m_data = NewCursor(c.table);
    return clone;
}

int Recordset::RecordCount() const
{
    return OpenCursor(m_data).table->liveCount;
}

QVariant Recordset::Fields(const QString& name) const
{
    const CursorData& c = OpenCursor(m_data);
    return FieldValue(c, c.table->columnIndex(name));
}

QVariant Recordset::Fields(int index) const
{
    return FieldValue(OpenCursor(m_data), index);
}

void Recordset::setField(const QString& name, const QVariant& value)
{
    CursorData& c = OpenCursor(m_data);
    const int index = c.table->columnIndex(name);
    if (index < 0)
        ThrowNoSuchField();
    if (c.table->readOnly)
        ThrowReadOnly();
    if (c.mode == CursorData::Mode::None) {
        if (!OnLiveRow(c))
            ThrowNoCurrentRecord();
        c.mode = CursorData::Mode::Edit;
        c.pending.assign(c.table->columns.size(), std::nullopt);
    }
    c.pending[index] = FieldFromValue(value, c.table->columns[index].kind);
}

int Recordset::FieldCount() const
{
    return int(OpenCursor(m_data).table->columns.size());
}

QString Recordset::FieldName(int index) const
{
    const CursorData& c = OpenCursor(m_data);
    if (index < 0 || index >= int(c.table->columns.size()))
        ThrowNoSuchField();
    return c.table->columns[index].name;
}

Transaction::Transaction(Connection& conn)
    : m_data(conn.m_data)
{
    if (!m_data || !m_data->open)
        ThrowClosed();
    // The write lock is taken at once: a second program waits here, not between the reads
    // and the writes of this one.
    m_data->execute(QStringLiteral("BEGIN IMMEDIATE"));
}

Transaction::~Transaction()
{
    if (!m_data || !m_data->open)
        return;
    {
        QSqlQuery rollback(m_data->database());
        rollback.exec(QStringLiteral("ROLLBACK"));
    }
    // The rows held in memory went with the writes that were taken back.
    for (auto& [key, weak] : m_data->tables)
        if (const auto table = weak.lock(); table && !table->readOnly)
            ReloadRows(*table);
}

void Transaction::Commit()
{
    if (!m_data || !m_data->open)
        ThrowClosed();
    m_data->execute(QStringLiteral("COMMIT"));
    m_data.reset();
}

QString ConnectString(const QString& FilePath, const QString& UserID, const QString& Password)
{
    // Names the store and the file as it is really opened: relative paths are resolved.
    QString s = QStringLiteral("Provider=SQLite;Data Source=") + AbsolutePath(FilePath) + QLatin1Char(';');
    if (!UserID.isEmpty())
        s += QStringLiteral("User ID=") + UserID + QLatin1Char(';');
    if (!Password.isEmpty())
        s += QStringLiteral("Password=\"") + Password + QStringLiteral("\";");
    return s;
}

Connection OpenMDBConn(
    Platform& platform, const QString& FilePath, const QString& UserID, const QString& Password)
{
    if (!FileExists(FilePath))
        return Connection();
    const QString connectString = ConnectString(FilePath, UserID, Password);
    const QString name = NewConnectionName();
    QString error;
    {
        QSqlDatabase db = ConnectionData::addDatabase(name);
        db.setDatabaseName(AbsolutePath(FilePath));
        // A file marked read-only is opened so, even for the superuser: its first write then
        // fails as a write to a read-only file, and is reported as such.
        if (!(QFileInfo(AbsolutePath(FilePath)).permissions() & QFileDevice::WriteOwner))
            db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (!db.open()) {
            error = db.lastError().text();
        } else {
            // SQLite opens lazily: the first read tells whether the file is a database at all.
            // A rollback journal keeps the database one self-contained file while it is closed;
            // durability comes from copying the closed file, so a write needs no fsync.
            QSqlQuery probe(db);
            for (const char* sql : {"SELECT count(*) FROM sqlite_master", "PRAGMA journal_mode=DELETE",
                     "PRAGMA synchronous=OFF"}) {
                if (!probe.exec(QLatin1String(sql))) {
                    error = probe.lastError().databaseText();
                    if (error.isEmpty())
                        error = probe.lastError().text();
                    break;
                }
                probe.finish();
            }
        }
        if (!error.isNull())
            db.close();
    }
    if (!error.isNull()) {
        QSqlDatabase::removeDatabase(name);
        platform.msgBox(QStringLiteral("OpenMDBConn Failed!\nConnect String:") + connectString, 16,
            QStringLiteral("OpenMDBConn Failed"));
        platform.msgBox(error, 0, QStringLiteral("VORNA"));
        return Connection();
    }
    Connection conn;
    conn.m_data = std::make_shared<ConnectionData>();
    conn.m_data->connectionName = name;
    conn.m_data->filePath = FilePath;
    conn.m_data->open = true;
    return conn;
}

Recordset OpenRecordset(Connection& Conn, const QString& Source, bool UseClientCursor)
{
    // A client cursor would behave no differently: the rows are held in memory either way.
    (void)UseClientCursor;
    if (Conn.State() != 1 || Source.isEmpty())
        return Recordset();
    const std::shared_ptr<ConnectionData>& conn = Conn.m_data;
    std::shared_ptr<TableImage> image;
    if (IsStatement(Source)) {
        // Only queries make rows; the program issues no other statement.
        if (!Source.left(6).toUpper().startsWith(QLatin1String("SELECT")))
            return Recordset();
        image = TableImage::loadStatement(conn, Source);
    } else {
        std::weak_ptr<TableImage>& shared = conn->tables[Source.toLower()];
        image = shared.lock();
        if (!image) {
            image = TableImage::loadTable(conn, Source);
            shared = image;
        }
    }
    if (!image)
        return Recordset();
    Recordset rs;
    rs.m_data = NewCursor(image);
    return rs;
}

int GetRecordCount(Recordset& rs)
{
    if (rs.IsEOF() && rs.IsBOF())
        return 0;
    return rs.RecordCount();
}

bool FindRecord(Recordset& rs, const QString& FieldName, const QString& Value, bool FromCurrent)
{
    if (rs.IsEOF() && rs.IsBOF())
        return false;
    if (!FromCurrent)
        rs.MoveFirst();
    while (!rs.IsEOF()) {
        if (NullToEmpty(rs.Fields(FieldName)) == Value)
            return true;
        rs.MoveNext();
    }
    return false;
}

QString FieldText(const Recordset& rs, const QString& field)
{
    return NullToEmpty(rs.Fields(field));
}

bool FieldFlag(const Recordset& rs, const QString& field)
{
    const QVariant value = rs.Fields(field);
    return !value.isNull() && value.toBool();
}
