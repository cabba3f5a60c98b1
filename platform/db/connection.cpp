#include "platform/db/connection.h"

#include "platform/db/databasecondition.h"
#include "platform/db/identifier.h"
#include "platform/db/odbcengine.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "platform/db/sqliteengine.h"
#include "platform/db/tsqlrewriter.h"

#include <QRegularExpression>
#include <algorithm>

namespace tarvello::db {

namespace {

bool isOdbcConnectionString(const QString& text)
{
    static const QRegularExpression odbc(QStringLiteral("(^|;)\\s*(DRIVER|DSN)\\s*="),
                                         QRegularExpression::CaseInsensitiveOption);
    return odbc.match(text).hasMatch();
}

// "Data Source=PATH;..." or a bare path.
QString sqlitePath(const QString& text)
{
    static const QRegularExpression source(QStringLiteral("(?:^|;)\\s*Data Source\\s*=\\s*([^;]*)"),
                                           QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = source.match(text);
    return match.hasMatch() ? match.captured(1).trimmed() : text.trimmed();
}

int sqliteBusyTimeout(const QString& text)
{
    static const QRegularExpression timeout(
        QStringLiteral("(?:^|;)\\s*Busy Timeout\\s*=\\s*(\\d+)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = timeout.match(text);
    return match.hasMatch() ? match.captured(1).toInt() : SqliteEngine::defaultBusyTimeout;
}

QString describe(const ProviderError& error, Dialect dialect)
{
    const QString condition = databaseCondition(error, dialect);
    return condition.isEmpty() ? error.description : condition + u'\n' + error.description;
}

[[noreturn]] void raiseTransactionAborted()
{
    throw RuntimeError(RuntimeError::TransactionAborted,
                       QStringLiteral("Il database ha annullato l'intera transazione: nessuna "
                                      "delle modifiche fatte al suo interno è stata salvata."));
}

} // namespace

Connection::Connection() = default;

Connection::~Connection()
{
    close();
}

void Connection::open(const QString& connectionString)
{
    close();
    try {
        if (isOdbcConnectionString(connectionString))
            m_engine = std::make_unique<OdbcEngine>(connectionString);
        else
            m_engine = std::make_unique<SqliteEngine>(sqlitePath(connectionString),
                                                      sqliteBusyTimeout(connectionString));
    } catch (const EngineError& e) {
        m_errors.append(e.error());
        const Dialect guessed =
            isOdbcConnectionString(connectionString) ? Dialect::SqlServer : Dialect::Sqlite;
        throw RuntimeError(
            e.error().number,
            QStringLiteral("Impossibile aprire il database: %1").arg(describe(e.error(), guessed)),
            e.error().source);
    }
    m_connectionString = connectionString;
}

void Connection::close()
{
    if (!m_engine)
        return;
    while (m_transactionLevel > 0) {
        try {
            rollbackTrans();
        } catch (const RuntimeError&) {
            m_transactionLevel = 0;
            settle(false);
        }
    }
    m_transactionAborted = false;
    m_engine.reset();
    m_tables.clear();
    m_translations.clear();
    m_textColumns.clear();
    m_temporaryIndexes.clear();
    m_schemaVersion = -1;
    forgetSchemaReading();
}

Dialect Connection::dialect() const
{
    return m_engine ? m_engine->dialect() : Dialect::Sqlite;
}

QString Connection::driverName() const
{
    return m_engine ? m_engine->driverName() : QString();
}

Engine& Connection::engine()
{
    if (!m_engine)
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("The connection is closed"));
    return *m_engine;
}

void Connection::refreshSchemaKnowledge()
{
    const qint64 version = engine().schemaVersion();
    if (version == m_schemaVersion)
        return;
    m_schemaVersion = version;
    m_translations.clear();
    m_tables.clear();
    m_textColumns.clear();
    const ResultSet tables =
        engine().run(QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' UNION ALL "
                                    "SELECT name FROM sqlite_temp_master WHERE type = 'table'"),
                     {});
    for (const ValueList& row : tables.rows) {
        for (const TableInfo::ColumnInfo& column :
             sqlitePragmaTableInfo(engine(), row[0].toString()).columns) {
            if (column.kind == ColumnKind::Text)
                m_textColumns.insert(column.name.toUpper());
        }
    }
}

QStringList Connection::translate(const QString& tsql)
{
    if (dialect() == Dialect::SqlServer)
        return {tsql};
    const auto cached = m_translations.constFind(tsql);
    if (cached != m_translations.cend())
        return *cached;
    refreshSchemaKnowledge();
    // The statement is sent right after this reading; a description asked after it is not.
    m_sentSinceSchemaReading = 0;
    const TsqlRewriter rewriter(
        [this](QStringView column) { return m_textColumns.contains(column.toString().toUpper()); },
        engine().hasTsqlFunctions() ? TsqlRewriter::UndecidedPlus::CallTsqlAdd
                                    : TsqlRewriter::UndecidedPlus::Add);
    const QStringList statements = rewriter.rewrite(tsql);
    m_translations.insert(tsql, statements);
    return statements;
}

void Connection::raise(const EngineError& e, const QString& original, const QString& sent)
{
    forgetSchemaReading();
    ProviderError error = e.error();
    m_errors.append(error);
    QString description = describe(error, dialect());
    if (sent != original)
        description += QStringLiteral("\nStatement: %1\nSent as: %2").arg(original, sent);
    else
        description += QStringLiteral("\nStatement: %1").arg(original);
    throw RuntimeError(error.number, description, error.source);
}

void Connection::noteSent(const QString& statement)
{
    m_sentSinceSchemaReading = std::min(m_sentSinceSchemaReading + 1, schemaReadingStale);
    if (statement.startsWith(temporaryLookupIndexPrefix)) {
        m_temporaryIndexes.insert(statement);
    } else if (mayChangeSchema(statement)) {
        m_temporaryIndexes.clear();
        forgetSchemaReading();
    }
}

void Connection::refineColumnKinds(ResultSet& result)
{
    for (int c = 0; c < result.columns.size(); ++c) {
        Column& column = result.columns[c];
        if (column.baseTable.isEmpty() || column.baseColumn.isEmpty())
            continue;
        const TableInfo::ColumnInfo* declared =
            tableInfo(column.baseTable).column(column.baseColumn);
        if (!declared || declared->kind == column.kind || declared->kind == ColumnKind::Unknown)
            continue;
        // Drivers report some declared types loosely (a DECIMAL as a double, a DATETIME as
        // a text): the table's own declaration decides.
        column.kind = declared->kind;
        for (ValueList& row : result.rows)
            row[c] = convertToKind(row[c], column.kind);
    }
}

QStringList Connection::startStatement(const QString& tsql, bool logAsInternal)
{
    m_errors.clear();
    refuseWhileAborted();
    if (m_log.isEnabled())
        m_log.append(tsql, logAsInternal);
    try {
        return translate(tsql);
    } catch (const EngineError& e) {
        raise(e, tsql, tsql);
    }
}

ResultSet Connection::runTranslated(const QString& tsql, bool logAsInternal)
{
    return runStatements(tsql, startStatement(tsql, logAsInternal));
}

ResultSet Connection::runStatements(const QString& tsql, const QStringList& statements)
{
    ResultSet last;
    for (const QString& statement : statements) {
        if (m_temporaryIndexes.contains(statement))
            continue;
        try {
            ResultSet result = engine().runDirect(statement);
            noteSent(statement);
            if (m_engine->refinesKinds())
                refineColumnKinds(result);
            if (result.hasColumns() || !last.hasColumns())
                last = std::move(result);
        } catch (const EngineError& e) {
            checkTransaction();
            raise(e, tsql, statement);
        }
    }
    return last;
}

RecordsetPtr Connection::execute(const QString& tsql)
{
    return Recordset::open(*this, tsql, Recordset::LockType::ReadOnly);
}

qint64 Connection::executeNonQuery(const QString& tsql)
{
    return runTranslated(tsql, false).rowsAffected;
}

ResultSet Connection::query(const QString& tsql)
{
    return runTranslated(tsql, false);
}

void Connection::query(const QString& tsql, RowSink& rows)
{
    const QStringList statements = startStatement(tsql, false);
    // The rows a batch gives are its last query's, known only once it has run; kinds a driver
    // reports loosely are set right over all the rows.
    if (statements.size() != 1 || m_engine->refinesKinds()) {
        feed(runStatements(tsql, statements), rows);
        return;
    }
    try {
        engine().runDirect(statements.first(), rows);
        noteSent(statements.first());
    } catch (const EngineError& e) {
        checkTransaction();
        raise(e, tsql, statements.first());
    }
}

ResultSet Connection::run(const QString& sql, const ValueList& parameters)
{
    m_errors.clear();
    refuseWhileAborted();
    if (m_log.isEnabled())
        m_log.append(sql, true);
    ResultSet result;
    try {
        result = engine().run(sql, parameters);
        noteSent(sql);
    } catch (const EngineError& e) {
        checkTransaction();
        raise(e, sql, sql);
    }
    if (m_engine->refinesKinds() && result.hasColumns())
        refineColumnKinds(result);
    return result;
}

Value Connection::insertRow(const QString& table, const QStringList& columns,
                            const ValueList& values, const QString& identityColumn)
{
    return insertRow(insertStatement(table, columns, identityColumn), values,
                     !identityColumn.isEmpty());
}

QString Connection::insertStatement(const QString& table, const QStringList& columns,
                                    const QString& identityColumn) const
{
    QStringList names;
    QStringList markers;
    for (const QString& column : columns) {
        names << quoteIdentifier(column);
        markers << QStringLiteral("?");
    }
    const QString list = names.isEmpty()
                             ? QString()
                             : QStringLiteral(" (") + names.join(QStringLiteral(", ")) + u')';
    const QString output =
        dialect() == Dialect::SqlServer && !identityColumn.isEmpty()
            ? QStringLiteral(" OUTPUT INSERTED.") + quoteIdentifier(identityColumn)
            : QString();
    const QString valuesPart =
        names.isEmpty() ? QStringLiteral(" DEFAULT VALUES")
                        : QStringLiteral(" VALUES (") + markers.join(QStringLiteral(", ")) + u')';
    return QStringLiteral("INSERT INTO ") + quoteIdentifier(table) + list + output + valuesPart;
}

Value Connection::insertRow(const QString& statement, const ValueList& values, bool readsIdentity)
{
    const ResultSet result = run(statement, values);
    if (!readsIdentity)
        return {};
    if (dialect() == Dialect::SqlServer)
        return result.rows.isEmpty() ? Value() : result.rows.first().value(0);
    try {
        return engine().lastInsertRowId();
    } catch (const EngineError& e) {
        raise(e, statement, statement);
    }
}

void Connection::beginTrans()
{
    refuseWhileAborted();
    forgetSchemaReading();
    try {
        if (m_transactionLevel == 0)
            engine().begin();
        else
            engine().runDirect(
                dialect() == Dialect::SqlServer
                    ? QStringLiteral("SAVE TRANSACTION tv_level%1").arg(m_transactionLevel)
                    : QStringLiteral("SAVEPOINT tv_level%1").arg(m_transactionLevel));
    } catch (const EngineError& e) {
        if (m_transactionLevel > 0)
            checkTransaction();
        raise(e, QStringLiteral("BEGIN TRANSACTION"), QStringLiteral("BEGIN TRANSACTION"));
    }
    ++m_transactionLevel;
}

void Connection::commitTrans()
{
    if (m_transactionLevel == 0)
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("No transaction is open"));
    --m_transactionLevel;
    forgetSchemaReading();
    if (m_transactionAborted) {
        if (m_transactionLevel == 0)
            abandonTransaction();
        raiseTransactionAborted();
    }
    try {
        if (m_transactionLevel == 0)
            engine().commit();
        else if (dialect() == Dialect::Sqlite)
            engine().runDirect(QStringLiteral("RELEASE tv_level%1").arg(m_transactionLevel));
    } catch (const EngineError& e) {
        // SQLite keeps a transaction whose COMMIT it refused (a deferred constraint, a busy
        // file) open, holding its lock: it is rolled back, so that the connection can go on.
        if (m_transactionLevel == 0)
            abandonTransaction();
        else
            checkTransaction();
        raise(e, QStringLiteral("COMMIT"), QStringLiteral("COMMIT"));
    }
    if (m_transactionLevel == 0)
        settle(true);
}

void Connection::rollbackTrans()
{
    if (m_transactionLevel == 0)
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("No transaction is open"));
    --m_transactionLevel;
    m_temporaryIndexes.clear();
    forgetSchemaReading();
    if (m_transactionLevel == 0) {
        abandonTransaction();
        return;
    }
    if (m_transactionAborted)
        return;
    try {
        if (dialect() == Dialect::SqlServer) {
            engine().runDirect(
                QStringLiteral("ROLLBACK TRANSACTION tv_level%1").arg(m_transactionLevel));
        } else {
            engine().runDirect(QStringLiteral("ROLLBACK TO tv_level%1").arg(m_transactionLevel));
            engine().runDirect(QStringLiteral("RELEASE tv_level%1").arg(m_transactionLevel));
        }
    } catch (const EngineError& e) {
        checkTransaction();
        raise(e, QStringLiteral("ROLLBACK"), QStringLiteral("ROLLBACK"));
    }
}

void Connection::whenTransactionEnds(std::function<void(bool committed)> settle)
{
    if (m_transactionLevel == 0)
        settle(true);
    else
        m_settlers << std::move(settle);
}

void Connection::checkTransaction()
{
    if (m_transactionLevel == 0 || m_transactionAborted || !m_engine)
        return;
    try {
        m_transactionAborted = !m_engine->transactionOpen();
    } catch (const EngineError&) {
        // A connection that cannot even answer is taken to have lost the transaction: writing
        // on would risk statements committed on their own.
        m_transactionAborted = true;
    }
}

void Connection::refuseWhileAborted() const
{
    if (m_transactionAborted)
        raiseTransactionAborted();
}

void Connection::abandonTransaction()
{
    m_transactionAborted = false;
    m_temporaryIndexes.clear();
    forgetSchemaReading();
    try {
        if (m_engine)
            m_engine->rollback();
    } catch (const EngineError& e) {
        m_errors.append(e.error());
    }
    settle(false);
}

void Connection::settle(bool committed)
{
    const QList<std::function<void(bool)>> settlers = std::exchange(m_settlers, {});
    for (const auto& settler : settlers)
        settler(committed);
}

bool Connection::takeSchemaReading()
{
    const bool fresh = m_sentSinceSchemaReading == 1;
    forgetSchemaReading();
    return fresh;
}

const TableInfo& Connection::tableInfo(const QString& table)
{
    ++m_tableInfoReads;
    try {
        if (dialect() == Dialect::Sqlite && !takeSchemaReading())
            refreshSchemaKnowledge();
        const QString key = table.toUpper();
        auto found = m_tables.find(key);
        if (found == m_tables.end())
            found = m_tables.insert(key, engine().tableInfo(table));
        return *found;
    } catch (const EngineError& e) {
        raise(e, table, table);
    }
}

TransactionGuard::TransactionGuard(Connection& connection)
    : m_connection(connection)
{
    m_connection.beginTrans();
}

TransactionGuard::~TransactionGuard()
{
    if (m_done)
        return;
    try {
        m_connection.rollbackTrans();
    } catch (const RuntimeError&) {
        // Destructors do not throw; the error is kept in the connection's provider errors.
    }
}

void TransactionGuard::commit()
{
    // The level is ended whether the commit succeeds or not: the destructor must not end it
    // a second time (which would roll back the level around this one).
    m_done = true;
    m_connection.commitTrans();
}

} // namespace tarvello::db
