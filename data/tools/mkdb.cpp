// vorna-mkdb: makes one of the shipped SQLite databases from its text sources.
//
//   vorna-mkdb OUTPUT SCRIPT.sql [TABLE=FILE.tsv ...]
//
// OUTPUT is replaced by a fresh database. SCRIPT is run statement by statement, then each
// tab-separated file is imported into its table: the first line names the columns, every
// further line is one row with exactly as many cells. An empty cell is stored as NULL; a
// cell cannot hold a tab or a line break. Text is UTF-8, a leading byte order mark is
// ignored, and a line may end in LF or CR LF.

#include <cstdio>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

namespace {

struct Failure
{
    QString message;
};

QString readUtf8(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure {QStringLiteral("cannot read %1: %2").arg(path, file.errorString())};
    QString text = QString::fromUtf8(file.readAll());
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text;
}

// Splits a script at the semicolons that stand outside quotes, brackets and comments.
// Statements that hold semicolons of their own (trigger bodies) are not supported.
QStringList splitStatements(const QString& script)
{
    QStringList statements;
    QString current;
    enum class In { Code, Single, Double, Bracket, LineComment, BlockComment } in = In::Code;
    for (qsizetype i = 0; i < script.size(); ++i) {
        const QChar c = script.at(i);
        const QChar next = i + 1 < script.size() ? script.at(i + 1) : QChar();
        switch (in) {
        case In::Code:
            if (c == QLatin1Char('-') && next == QLatin1Char('-')) {
                in = In::LineComment;
                continue;
            }
            if (c == QLatin1Char('/') && next == QLatin1Char('*')) {
                in = In::BlockComment;
                ++i;
                continue;
            }
            if (c == QLatin1Char(';')) {
                if (!current.trimmed().isEmpty())
                    statements << current.trimmed();
                current.clear();
                continue;
            }
            if (c == QLatin1Char('\''))
                in = In::Single;
            else if (c == QLatin1Char('"'))
                in = In::Double;
            else if (c == QLatin1Char('['))
                in = In::Bracket;
            break;
        case In::Single:
            if (c == QLatin1Char('\''))
                in = In::Code;
            break;
        case In::Double:
            if (c == QLatin1Char('"'))
                in = In::Code;
            break;
        case In::Bracket:
            if (c == QLatin1Char(']'))
                in = In::Code;
            break;
        case In::LineComment:
            if (c == QLatin1Char('\n')) {
                in = In::Code;
                current += c;
            }
            continue;
        case In::BlockComment:
            if (c == QLatin1Char('*') && next == QLatin1Char('/')) {
                in = In::Code;
                ++i;
                current += QLatin1Char(' ');
            }
            continue;
        }
        current += c;
    }
    if (!current.trimmed().isEmpty())
        statements << current.trimmed();
    return statements;
}

QString quoted(const QString& identifier)
{
    return QLatin1Char('"') + QString(identifier).replace(QLatin1Char('"'), QStringLiteral("\"\""))
        + QLatin1Char('"');
}

void exec(QSqlDatabase& db, const QString& statement)
{
    QSqlQuery query(db);
    if (!query.exec(statement))
        throw Failure {QStringLiteral("%1\n  in: %2").arg(query.lastError().text(), statement)};
}

void importTsv(QSqlDatabase& db, const QString& table, const QString& path)
{
    QStringList lines = readUtf8(path).split(QLatin1Char('\n'));
    for (QString& line : lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
    if (lines.isEmpty() || lines.first().isEmpty())
        throw Failure {QStringLiteral("%1: the first line must name the columns").arg(path)};

    const QStringList columns = lines.first().split(QLatin1Char('\t'));
    QStringList quotedColumns;
    for (const QString& column : columns)
        quotedColumns << quoted(column);
    QStringList marks;
    for (qsizetype i = 0; i < columns.size(); ++i)
        marks << QStringLiteral("?");

    QSqlQuery insert(db);
    const QString statement
        = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
              .arg(quoted(table), quotedColumns.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
    if (!insert.prepare(statement))
        throw Failure {QStringLiteral("%1: %2\n  in: %3").arg(path, insert.lastError().text(), statement)};

    for (qsizetype n = 1; n < lines.size(); ++n) {
        if (lines.at(n).isEmpty())
            continue;
        const QStringList cells = lines.at(n).split(QLatin1Char('\t'));
        if (cells.size() != columns.size())
            throw Failure {QStringLiteral("%1:%2: %3 cells, expected %4")
                               .arg(path)
                               .arg(n + 1)
                               .arg(cells.size())
                               .arg(columns.size())};
        for (qsizetype i = 0; i < cells.size(); ++i)
            insert.bindValue(int(i),
                cells.at(i).isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(cells.at(i)));
        if (!insert.exec())
            throw Failure {QStringLiteral("%1:%2: %3").arg(path).arg(n + 1).arg(insert.lastError().text())};
    }
}

// SQLite's companions of a database file; none may stay once the file is closed.
QStringList sideFiles(const QString& output)
{
    return {output + QStringLiteral("-journal"), output + QStringLiteral("-wal"),
        output + QStringLiteral("-shm")};
}

void removeOutput(const QString& output)
{
    QFile::remove(output);
    for (const QString& side : sideFiles(output))
        QFile::remove(side);
}

void build(const QString& output, const QString& script, const QStringList& imports)
{
    const QString connectionName = QStringLiteral("vorna-mkdb");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
        db.setDatabaseName(output);
        if (!db.open())
            throw Failure {QStringLiteral("cannot create %1: %2").arg(output, db.lastError().text())};
        try {
            exec(db, QStringLiteral("PRAGMA journal_mode=DELETE"));
            for (const QString& statement : splitStatements(readUtf8(script)))
                exec(db, statement);
            if (!imports.isEmpty()) {
                exec(db, QStringLiteral("BEGIN"));
                for (const QString& import : imports) {
                    const qsizetype eq = import.indexOf(QLatin1Char('='));
                    if (eq <= 0)
                        throw Failure {QStringLiteral("expected TABLE=FILE.tsv, got %1").arg(import)};
                    importTsv(db, import.left(eq), import.mid(eq + 1));
                }
                exec(db, QStringLiteral("COMMIT"));
            }
        } catch (...) {
            db.close();
            throw;
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(connectionName);

    for (const QString& side : sideFiles(output))
        if (QFileInfo::exists(side))
            throw Failure {QStringLiteral("%1 was left beside the database").arg(side)};
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() < 2) {
        std::fprintf(stderr, "usage: vorna-mkdb OUTPUT SCRIPT.sql [TABLE=FILE.tsv ...]\n");
        return 2;
    }
    const QString output = args.at(0);
    removeOutput(output);
    try {
        build(output, args.at(1), args.mid(2));
    } catch (const Failure& failure) {
        std::fprintf(stderr, "vorna-mkdb: %s\n", qPrintable(failure.message));
        removeOutput(output);
        return 1;
    }
    return 0;
}
