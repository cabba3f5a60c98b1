#include "platform/db/odbcengine.h"

#include "platform/db/runtimeerror.h"
#include "platform/db/sqliteengine.h"
#include "platform/db/tsqlrewriter.h"

#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

namespace tarvello::db {

namespace {

ProviderError providerError(const QSqlError& error)
{
    bool ok = false;
    const long number = error.nativeErrorCode().toLong(&ok);
    QString text = error.databaseText();
    if (text.isEmpty())
        text = error.text();
    return {ok ? number : RuntimeError::ProviderError, text, error.nativeErrorCode(),
            QStringLiteral("ODBC")};
}

ColumnKind kindOf(const QSqlField& field)
{
    switch (field.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return ColumnKind::Integer;
    case QMetaType::Double:
        return field.precision() > 0 && field.precision() < 16 ? ColumnKind::Decimal
                                                               : ColumnKind::Double;
    case QMetaType::Bool:
        return ColumnKind::Boolean;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return ColumnKind::Date;
    case QMetaType::QByteArray:
        return ColumnKind::Binary;
    case QMetaType::QString:
        return ColumnKind::Text;
    default:
        return ColumnKind::Unknown;
    }
}

// SQL Server describes a column by its bare type name and its storage: the declared type
// as a statement would write it, "decimal(6,3)" or "nvarchar(30)" (max_length counts
// bytes, two per character of an N type; -1 is MAX).
QString sqlServerDeclaredType(const QString& type, int maxLength, int precision, int scale)
{
    const QString name = type.toLower();
    if (name == u"decimal" || name == u"numeric")
        return QStringLiteral("%1(%2,%3)").arg(name).arg(precision).arg(scale);
    if (name.contains(u"char")) {
        if (maxLength < 0)
            return name + QStringLiteral("(max)");
        return QStringLiteral("%1(%2)").arg(name).arg(name.startsWith(u'n') ? maxLength / 2
                                                                            : maxLength);
    }
    return name;
}

} // namespace

OdbcEngine::OdbcEngine(const QString& connectionString)
    : m_name(QStringLiteral("tarvello-odbc-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), m_name);
    db.setDatabaseName(connectionString);
    if (!db.open()) {
        const ProviderError error = providerError(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_name);
        throw EngineError(error);
    }
    QSqlQuery probe(db);
    if (probe.exec(QStringLiteral("SELECT sqlite_version()"))) {
        m_dialect = Dialect::Sqlite;
        m_dbms = QStringLiteral("SQLite");
        probe.finish();
        probe.exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    } else {
        m_dialect = Dialect::SqlServer;
        // NOCOUNT stays off: the row counts of updates and deletes tell a conflict.
        m_dbms = QStringLiteral("SQL Server");
    }
    probe.finish();
}

OdbcEngine::~OdbcEngine()
{
    m_prepared.clear();
    {
        QSqlDatabase db = QSqlDatabase::database(m_name, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_name);
}

QString OdbcEngine::driverName() const
{
    return QStringLiteral("ODBC (%1)").arg(m_dbms);
}

void OdbcEngine::fail(const QSqlQuery& query) const
{
    throw EngineError(providerError(query.lastError()));
}

ResultSet OdbcEngine::read(QSqlQuery& query)
{
    ResultSet result;
    // A batch may answer with row counts before its rows; the last result with columns wins.
    do {
        const QSqlRecord record = query.record();
        if (record.isEmpty()) {
            if (result.columns.isEmpty())
                result.rowsAffected = query.numRowsAffected();
            continue;
        }
        result = ResultSet();
        QList<ColumnKind> kinds;
        for (int c = 0; c < record.count(); ++c) {
            const QSqlField field = record.field(c);
            // Some drivers hand the base table back with its quoting or its terminator.
            QString table = field.tableName();
            if (const qsizetype end = table.indexOf(QChar(0)); end >= 0)
                table.truncate(end);
            table.remove(QRegularExpression(QStringLiteral("[\"\\[\\]`]")));
            Column column{field.name(), kindOf(field), table,
                          table.isEmpty() ? QString() : field.name()};
            kinds << column.kind;
            result.columns << column;
        }
        while (query.next()) {
            ValueList row;
            row.reserve(record.count());
            for (int c = 0; c < record.count(); ++c)
                row << convertToKind(Value::fromVariant(query.value(c)), kinds[c]);
            result.rows << std::move(row);
        }
    } while (query.nextResult());
    query.finish();
    return result;
}

ResultSet OdbcEngine::run(const QString& sql, const ValueList& parameters)
{
    if (parameters.isEmpty())
        return runDirect(sql);
    std::shared_ptr<QSqlQuery>& query = m_prepared[sql];
    if (!query) {
        query = std::make_shared<QSqlQuery>(QSqlDatabase::database(m_name, false));
        query->setForwardOnly(true);
        query->setNumericalPrecisionPolicy(QSql::HighPrecision);
        if (!query->prepare(sql)) {
            const ProviderError error = providerError(query->lastError());
            m_prepared.remove(sql);
            throw EngineError(error);
        }
    }
    for (int i = 0; i < parameters.size(); ++i)
        query->bindValue(i, parameters[i].toVariant());
    if (!query->exec())
        fail(*query);
    return read(*query);
}

ResultSet OdbcEngine::runDirect(const QString& sql)
{
    // A statement kept prepared may describe a table this one drops or changes.
    if (mayChangeSchema(sql))
        m_prepared.clear();
    QSqlQuery query(QSqlDatabase::database(m_name, false));
    query.setForwardOnly(true);
    query.setNumericalPrecisionPolicy(QSql::HighPrecision);
    if (!query.exec(sql))
        fail(query);
    return read(query);
}

void OdbcEngine::begin()
{
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    if (!db.transaction())
        throw EngineError(providerError(db.lastError()));
}

void OdbcEngine::commit()
{
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    if (!db.commit())
        throw EngineError(providerError(db.lastError()));
}

void OdbcEngine::rollback()
{
    m_prepared.clear();
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    if (!db.rollback())
        throw EngineError(providerError(db.lastError()));
}

bool OdbcEngine::transactionOpen()
{
    if (m_dialect == Dialect::SqlServer)
        return runDirect(QStringLiteral("SELECT XACT_STATE()")).rows.value(0).value(0).toInt64() ==
               1;
    // SQLite has no question for it, but refuses a BEGIN inside a transaction. A BEGIN that
    // succeeds means the database had dropped the transaction; it opens the one the driver
    // still believes in, which the driver's rollback then ends.
    QSqlQuery probe(QSqlDatabase::database(m_name, false));
    const bool began = probe.exec(QStringLiteral("BEGIN"));
    probe.finish();
    return !began;
}

TableInfo OdbcEngine::tableInfo(const QString& table)
{
    if (m_dialect == Dialect::Sqlite)
        return sqlitePragmaTableInfo(*this, table);
    TableInfo info;
    info.name = table;
    const QString literal = Value(table).sqlLiteral();
    const ResultSet rows = runDirect(
        QStringLiteral("SELECT c.name, t.name AS type_name, c.is_nullable, c.is_identity, "
                       "CASE WHEN c.default_object_id <> 0 THEN 1 ELSE 0 END AS has_default, "
                       "OBJECT_DEFINITION(c.default_object_id) AS default_text, "
                       "ISNULL((SELECT ic.key_ordinal FROM sys.index_columns ic JOIN sys.indexes i "
                       "ON i.object_id = ic.object_id AND i.index_id = ic.index_id "
                       "WHERE i.is_primary_key = 1 AND ic.object_id = c.object_id "
                       "AND ic.column_id = c.column_id), 0) AS key_ordinal, "
                       "c.max_length, c.precision, c.scale "
                       "FROM sys.columns c JOIN sys.types t ON t.user_type_id = c.user_type_id "
                       "WHERE c.object_id = OBJECT_ID(%1) ORDER BY c.column_id")
            .arg(literal));
    for (const ValueList& row : rows.rows) {
        TableInfo::ColumnInfo column;
        column.name = row[0].toString();
        column.kind = columnKindFromDeclaredType(row[1].toString());
        column.size = columnSizeFromDeclaredType(
            sqlServerDeclaredType(row[1].toString(), int(row[7].toInt64()), int(row[8].toInt64()),
                                  int(row[9].toInt64())));
        column.notNull = row[2].toInt64() == 0;
        column.identity = row[3].toInt64() != 0;
        column.hasDefault = row[4].toInt64() != 0;
        column.defaultValue = defaultValueFromSql(row[5].toString(), column.kind);
        column.keyPosition = int(row[6].toInt64());
        column.primaryKey = column.keyPosition != 0;
        info.columns << column;
    }
    const ResultSet uniqueParts = runDirect(
        QStringLiteral("SELECT i.index_id, c.name FROM sys.indexes i JOIN sys.index_columns ic "
                       "ON ic.object_id = i.object_id AND ic.index_id = i.index_id "
                       "JOIN sys.columns c ON c.object_id = ic.object_id AND c.column_id = "
                       "ic.column_id WHERE i.object_id = OBJECT_ID(%1) AND i.is_unique = 1 AND "
                       "i.is_primary_key = 0 AND i.has_filter = 0 AND ic.is_included_column = 0 "
                       "ORDER BY i.index_id, ic.key_ordinal")
            .arg(literal));
    qint64 index = -1;
    for (const ValueList& part : uniqueParts.rows) {
        if (part[0].toInt64() != index) {
            index = part[0].toInt64();
            info.uniqueKeys << QStringList();
        }
        info.uniqueKeys.last() << part[1].toString();
    }
    return info;
}

} // namespace tarvello::db
