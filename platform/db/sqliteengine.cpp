#include "platform/db/sqliteengine.h"

#include "platform/db/identifier.h"
#include "platform/db/liftedconstants.h"
#include "platform/db/tsqlfunctions.h"
#include "platform/db/tsqlrewriter.h"

#include <QStringEncoder>
#include <QVarLengthArray>
#include <sqlite3.h>

namespace tarvello::db {

namespace {

constexpr auto isoFormat = "yyyy-MM-ddTHH:mm:ss";
// Enough for the statements of a screen's recordsets and lookups at once.
constexpr qsizetype keptStatements = 128;

QString columnText(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

// The text a value is bound as; empty for the values bound otherwise.
QString boundText(const Value& value)
{
    switch (value.kind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Boolean:
    case Value::Kind::Integer:
    case Value::Kind::Double:
        return {};
    case Value::Kind::Date:
        return value.toDateTime().toString(QString::fromLatin1(isoFormat));
    default:
        return value.toString();
    }
}

QString utf8OrEmpty(const char* text)
{
    return text ? QString::fromUtf8(text) : QString();
}

Value readValue(sqlite3_stmt* statement, int column, ColumnKind kind)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return Value::null();
    case SQLITE_INTEGER: {
        const qint64 v = sqlite3_column_int64(statement, column);
        if (kind == ColumnKind::Decimal)
            return Decimal(v);
        if (kind == ColumnKind::Boolean)
            return v != 0;
        return v;
    }
    case SQLITE_FLOAT:
        if (kind == ColumnKind::Decimal) {
            if (const auto d = Decimal::parse(columnText(statement, column)))
                return d->normalized();
        }
        return sqlite3_column_double(statement, column);
    case SQLITE_BLOB:
        return QString::fromUtf8(static_cast<const char*>(sqlite3_column_blob(statement, column)),
                                 sqlite3_column_bytes(statement, column));
    default:
        break;
    }
    const Value text = columnText(statement, column);
    return kind == ColumnKind::Text ? text : convertToKind(text, kind);
}

} // namespace

SqliteEngine::SqliteEngine(const QString& path, int busyTimeout)
    : m_statements(keptStatements)
{
    // A connection serves one thread: SQLite's own lock around every call would only cost.
    const int flags =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
    const int opened = sqlite3_open_v2(path.toUtf8().constData(), &m_db, flags, nullptr);
    try {
        if (opened != SQLITE_OK)
            fail(path);
        sqlite3_busy_timeout(m_db, busyTimeout);
        if (registerTsqlFunctions(m_db) != SQLITE_OK)
            fail(path);
        exec("PRAGMA foreign_keys = ON");
        // A file that can only be read keeps the journal it has: changing it is a write.
        const bool inMemory =
            path.isEmpty() || path == u":memory:" || path.contains(u"mode=memory");
        if (!inMemory && sqlite3_db_readonly(m_db, "main") == 0)
            exec("PRAGMA journal_mode = WAL");
    } catch (const EngineError&) {
        sqlite3_close(m_db);
        m_db = nullptr;
        throw;
    }
}

SqliteEngine::~SqliteEngine()
{
    // Closed once the kept statements are finalized, just after this.
    sqlite3_close_v2(m_db);
}

void SqliteEngine::exec(const char* sql)
{
    char* error = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &error) != SQLITE_OK) {
        const QString message = utf8OrEmpty(error);
        sqlite3_free(error);
        throw EngineError({sqlite3_extended_errcode(m_db), message, {}, QStringLiteral("SQLite")});
    }
}

void SqliteEngine::fail(const QString& sql) const
{
    Q_UNUSED(sql);
    throw EngineError({sqlite3_extended_errcode(m_db),
                       utf8OrEmpty(sqlite3_errmsg(m_db)),
                       {},
                       QStringLiteral("SQLite")});
}

sqlite3_stmt* SqliteEngine::prepare(const QString& sql)
{
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(m_db, text.constData(), int(text.size()), &statement, &tail) !=
        SQLITE_OK)
        fail(sql);
    if (tail && !QByteArray(tail).trimmed().isEmpty()) {
        sqlite3_finalize(statement);
        throw EngineError({SQLITE_MISUSE,
                           QStringLiteral("More than one statement in one call"),
                           {},
                           QStringLiteral("SQLite")});
    }
    return statement;
}

sqlite3_stmt* SqliteEngine::kept(const QString& sql)
{
    if (sqlite3_stmt* statement = m_statements.find(sql))
        return statement;
    sqlite3_stmt* statement = prepare(sql);
    if (statement)
        m_statements.keep(sql, statement);
    return statement;
}

qint64 SqliteEngine::pragmaNumber(const QString& pragma)
{
    // Asked before every translation and table description: kept prepared, it costs one step.
    sqlite3_stmt* statement = kept(pragma);
    const int rc = sqlite3_step(statement);
    const qint64 number = rc == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : 0;
    // The reset keeps the step's error for fail() to read.
    sqlite3_reset(statement);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        fail(pragma);
    return number;
}

void SqliteEngine::bind(sqlite3_stmt* statement, const ValueList& parameters, const QString& sql,
                        BoundTexts& texts)
{
    if (sqlite3_bind_parameter_count(statement) != parameters.size())
        throw EngineError({SQLITE_RANGE,
                           QStringLiteral("%1 parameters given for %2 markers")
                               .arg(parameters.size())
                               .arg(sqlite3_bind_parameter_count(statement)),
                           {},
                           QStringLiteral("SQLite")});
    // The texts first, so that the buffer holding their UTF-8 is sized once and does not move
    // under the texts bound before.
    QVarLengthArray<QString, 8> strings(parameters.size());
    QStringEncoder utf8(QStringEncoder::Utf8, QStringConverter::Flag::Stateless);
    qsizetype space = 0;
    for (int i = 0; i < parameters.size(); ++i) {
        strings[i] = boundText(parameters[i]);
        space += utf8.requiredSpace(strings[i].size());
    }
    texts.resize(space);
    char* end = texts.data();
    for (int i = 0; i < parameters.size(); ++i) {
        const Value& v = parameters[i];
        int rc = SQLITE_OK;
        switch (v.kind()) {
        case Value::Kind::Empty:
        case Value::Kind::Null:
            rc = sqlite3_bind_null(statement, i + 1);
            break;
        case Value::Kind::Boolean:
            rc = sqlite3_bind_int(statement, i + 1, v.toBool() ? 1 : 0);
            break;
        case Value::Kind::Integer:
            rc = sqlite3_bind_int64(statement, i + 1, v.toInt64());
            break;
        case Value::Kind::Double:
            rc = sqlite3_bind_double(statement, i + 1, v.toDouble());
            break;
        default: {
            char* const text = end;
            end = utf8.appendToBuffer(end, strings[i]);
            rc = sqlite3_bind_text(statement, i + 1, text, int(end - text), SQLITE_STATIC);
            break;
        }
        }
        if (rc != SQLITE_OK)
            fail(sql);
    }
}

ResultSet SqliteEngine::run(const QString& sql, const ValueList& parameters)
{
    ResultSet result;
    ResultCollector collector(result);
    result.rowsAffected = execute(sql, parameters, collector);
    return result;
}

void SqliteEngine::runDirect(const QString& sql, RowSink& rows)
{
    execute(sql, {}, rows);
}

qint64 SqliteEngine::execute(const QString& sql, const ValueList& parameters, RowSink& rows)
{
    if (mayChangeSchema(sql))
        m_statements.clear();
    if (!parameters.isEmpty())
        return execute(kept(sql), sql, parameters, rows, true);
    if (const std::optional<LiftedStatement> lifted = liftComparedConstants(sql))
        return execute(kept(lifted->sql), lifted->sql, lifted->parameters, rows, true);
    // Statements built with their values in the text are seldom sent twice: only the
    // parameterised ones stay prepared.
    return execute(prepare(sql), sql, {}, rows, false);
}

qint64 SqliteEngine::execute(sqlite3_stmt* statement, const QString& sql,
                             const ValueList& parameters, RowSink& rows, bool keep)
{
    if (!statement) {
        rows.columns({});
        return -1;
    }
    // Outlives the bindings, which read their texts in place.
    BoundTexts texts;
    struct Finish {
        sqlite3_stmt* statement;
        bool keep;
        ~Finish()
        {
            if (!keep) {
                sqlite3_finalize(statement);
                return;
            }
            sqlite3_reset(statement);
            sqlite3_clear_bindings(statement);
        }
    } finish{statement, keep};

    if (!sqlite3_stmt_readonly(statement) && !transactionOpen())
        refuseWritesIfMoved();
    bind(statement, parameters, sql, texts);
    int rc = sqlite3_step(statement);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE)
        fail(sql);
    // Described after the first step: a kept statement that SQLite prepared again for a
    // changed schema gives its new columns only from then on.
    const int columnCount = sqlite3_column_count(statement);
    QList<ColumnKind> kinds;
    QList<Column> columns;
    for (int c = 0; c < columnCount; ++c) {
        Column column;
        column.name = utf8OrEmpty(sqlite3_column_name(statement, c));
        column.kind =
            columnKindFromDeclaredType(utf8OrEmpty(sqlite3_column_decltype(statement, c)));
        column.baseTable = utf8OrEmpty(sqlite3_column_table_name(statement, c));
        column.baseColumn = utf8OrEmpty(sqlite3_column_origin_name(statement, c));
        kinds << column.kind;
        columns << column;
    }
    rows.columns(std::move(columns));
    for (; rc == SQLITE_ROW; rc = sqlite3_step(statement)) {
        ValueList row;
        row.reserve(columnCount);
        for (int c = 0; c < columnCount; ++c)
            row << readValue(statement, c, kinds[c]);
        rows.row(std::move(row));
    }
    if (rc != SQLITE_DONE)
        fail(sql);
    return columnCount == 0 ? sqlite3_changes64(m_db) : -1;
}

void SqliteEngine::begin()
{
    refuseWritesIfMoved();
    exec("BEGIN");
}

void SqliteEngine::commit()
{
    refuseWritesIfMoved();
    exec("COMMIT");
}

void SqliteEngine::refuseWritesIfMoved() const
{
    // A file deleted or renamed while open is still read and written through its open
    // handle, and in write-ahead mode SQLite does not notice: what was written would be lost
    // with the file.
    int moved = 0;
    if (sqlite3_file_control(m_db, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved)
        throw EngineError({SQLITE_READONLY_DBMOVED,
                           QStringLiteral("the database file has been moved or deleted"),
                           {},
                           QStringLiteral("SQLite")});
}

void SqliteEngine::rollback()
{
    // What is rolled back may have made or changed a table a kept statement reads.
    m_statements.clear();
    if (transactionOpen())
        exec("ROLLBACK");
}

bool SqliteEngine::transactionOpen()
{
    return sqlite3_get_autocommit(m_db) == 0;
}

Value SqliteEngine::lastInsertRowId()
{
    return qint64(sqlite3_last_insert_rowid(m_db));
}

TableInfo SqliteEngine::tableInfo(const QString& table)
{
    return sqlitePragmaTableInfo(*this, table);
}

TableInfo sqlitePragmaTableInfo(Engine& engine, const QString& table)
{
    TableInfo info;
    info.name = table;
    const QString name = quoteIdentifier(table);
    const ResultSet rows = engine.run(QStringLiteral("PRAGMA table_info(%1)").arg(name), {});
    int keyColumns = 0;
    for (const ValueList& row : rows.rows) {
        TableInfo::ColumnInfo column;
        column.name = row[1].toString();
        const QString declared = row[2].toString();
        column.kind = columnKindFromDeclaredType(declared);
        column.size = columnSizeFromDeclaredType(declared);
        column.notNull = row[3].toInt64() != 0;
        column.hasDefault = !row[4].isNull();
        column.defaultValue = defaultValueFromSql(row[4].toString(), column.kind);
        column.keyPosition = int(row[5].toInt64());
        column.primaryKey = column.keyPosition != 0;
        // An INTEGER PRIMARY KEY is the row id: the database assigns it.
        column.identity =
            column.primaryKey && declared.compare(u"INTEGER", Qt::CaseInsensitive) == 0;
        keyColumns += column.primaryKey ? 1 : 0;
        info.columns << column;
    }
    if (keyColumns > 1) {
        for (auto& column : info.columns)
            column.identity = false;
    }
    const ResultSet indexes = engine.run(QStringLiteral("PRAGMA index_list(%1)").arg(name), {});
    for (const ValueList& index : indexes.rows) {
        // Columns: seq, name, unique, origin ("c" an index, "u" a constraint, "pk"), partial.
        if (index[2].toInt64() == 0 || index[3].toString() == u"pk" || index[4].toInt64() != 0)
            continue;
        const QString indexName = quoteIdentifier(index[1].toString());
        QStringList key;
        for (const ValueList& part :
             engine.run(QStringLiteral("PRAGMA index_info(%1)").arg(indexName), {}).rows)
            key << part[2].toString();
        info.uniqueKeys << key;
    }
    return info;
}

} // namespace tarvello::db
