#pragma once

#include "platform/db/dialect.h"
#include "platform/db/providererror.h"
#include "platform/db/resultset.h"
#include "platform/db/statementlog.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <functional>
#include <memory>

namespace tarvello::db {

class Engine;
class EngineError;
class Recordset;
using RecordsetPtr = std::shared_ptr<Recordset>;

// A database connection as the module uses it: opened from a connection string, it runs
// T-SQL texts (rewritten for SQLite), collects provider errors, keeps a statement log and
// nests transactions.
//
// Connection strings: "Data Source=PATH" (or a bare path, a "file:" URI, or ":memory:")
// opens SQLite, waiting up to "Busy Timeout=MS" (5000) for another user's lock; anything
// with "DRIVER=" or "DSN=" goes through ODBC, and the engine behind it is detected, so an
// ODBC connection to SQLite gets the SQLite rewriting too.
//
// Transactions tell the truth. A COMMIT the database refuses leaves the transaction rolled
// back. When the database drops a whole transaction on an error (a deadlock victim, a full
// disk, a trigger's RAISE(ROLLBACK)), the connection notices, refuses every statement until
// each level opened has been ended (so nothing meant for the transaction is written on its
// own), and commitTrans at any level raises TransactionAborted.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void open(const QString& connectionString);
    void close();
    bool isOpen() const { return m_engine != nullptr; }
    const QString& connectionString() const { return m_connectionString; }
    Dialect dialect() const;
    QString driverName() const;

    // Runs a T-SQL text and returns the rows of its last statement as a read-only
    // recordset whose row count is exact. Raises RuntimeError with the provider's number.
    RecordsetPtr execute(const QString& tsql);
    // Runs a T-SQL text and returns the rows it changed (-1 when not known).
    qint64 executeNonQuery(const QString& tsql);
    // Runs a T-SQL text and returns its raw rows.
    ResultSet query(const QString& tsql);
    // The same, handing the rows to `rows` as they are read.
    void query(const QString& tsql, RowSink& rows);

    // Platform statements with '?' parameters, written in SQL both engines accept.
    ResultSet run(const QString& sql, const ValueList& parameters = {});
    // Inserts a row and returns the value the database assigned to identityColumn
    // (Empty when identityColumn is empty).
    Value insertRow(const QString& table, const QStringList& columns, const ValueList& values,
                    const QString& identityColumn);
    // The same in two steps, for many rows alike: the text is built once and its prepared
    // statement serves every row. On SQL Server the text itself gives the identity back.
    QString insertStatement(const QString& table, const QStringList& columns,
                            const QString& identityColumn) const;
    Value insertRow(const QString& statement, const ValueList& values, bool readsIdentity);

    void beginTrans();
    void commitTrans();
    void rollbackTrans();
    int transactionLevel() const { return m_transactionLevel; }
    // The database has dropped the open transaction; the levels are still to be ended.
    bool transactionAborted() const { return m_transactionAborted; }
    // Runs `settle` when the outermost transaction ends: with true when it commits, false when
    // it is rolled back or dropped. Outside a transaction it runs at once, with true. Work done
    // inside a nested level is only done once the outermost commits.
    void whenTransactionEnds(std::function<void(bool committed)> settle);

    // The provider errors of the latest statement: each statement starts with none, so a
    // report of a failure shows that statement's errors and no earlier ones.
    const QList<ProviderError>& errors() const { return m_errors; }
    void clearErrors() { m_errors.clear(); }
    StatementLog& log() { return m_log; }

    // Cached description of a table (columns, kinds, key, identity).
    const TableInfo& tableInfo(const QString& table);
    // How many descriptions were asked for. They bypass the statement log, though on SQLite
    // each asking reads the schema version: a caller that should ask once for many rows is
    // checked by this count.
    qint64 tableInfoReads() const { return m_tableInfoReads; }

private:
    Engine& engine();
    QStringList translate(const QString& tsql);
    // Text columns and table descriptions change with the schema; SQLite numbers its versions.
    void refreshSchemaKnowledge();
    // Clears the errors, logs the text and gives the statements to send for it.
    QStringList startStatement(const QString& tsql, bool logAsInternal);
    ResultSet runTranslated(const QString& tsql, bool logAsInternal);
    ResultSet runStatements(const QString& tsql, const QStringList& statements);
    void refineColumnKinds(ResultSet& result);
    // Remembers the lookup indexes made on temporary tables, and forgets them all when the
    // schema may have changed.
    void noteSent(const QString& statement);
    // Whether the schema reading covers the statement just sent; a reading serves once.
    bool takeSchemaReading();
    // A statement that is no plain read (a transaction's start or end, an error) leaves the
    // schema reading to be taken again.
    void forgetSchemaReading() { m_sentSinceSchemaReading = schemaReadingStale; }
    // A failed statement may have cost the whole transaction.
    void checkTransaction();
    void refuseWhileAborted() const;
    // Ends the engine's transaction after the database refused or dropped it, and tells the
    // work waiting for the outcome.
    void abandonTransaction();
    void settle(bool committed);
    [[noreturn]] void raise(const EngineError& e, const QString& original, const QString& sent);

    std::unique_ptr<Engine> m_engine; // Owned.
    QString m_connectionString;
    QList<ProviderError> m_errors;
    StatementLog m_log;
    QHash<QString, TableInfo> m_tables;
    qint64 m_tableInfoReads = 0;
    QHash<QString, QStringList> m_translations;
    QSet<QString> m_textColumns;
    // Lookup indexes of temporary tables known to stand: not sent again.
    QSet<QString> m_temporaryIndexes;
    qint64 m_schemaVersion = -1;
    // Statements sent since the schema version was last read. A description asked right after
    // the one statement that followed the reading takes that reading instead of a new one: the
    // statement ran on that schema, and a new reading could be overtaken just the same.
    static constexpr int schemaReadingStale = 2;
    int m_sentSinceSchemaReading = schemaReadingStale;
    int m_transactionLevel = 0;
    bool m_transactionAborted = false;
    QList<std::function<void(bool)>> m_settlers;
};

// Rolls back on destruction unless committed: every multi-statement write uses one.
class TransactionGuard {
public:
    explicit TransactionGuard(Connection& connection);
    ~TransactionGuard();
    TransactionGuard(const TransactionGuard&) = delete;
    TransactionGuard& operator=(const TransactionGuard&) = delete;
    void commit();

private:
    Connection& m_connection; // Not owned.
    bool m_done = false;
};

} // namespace tarvello::db
