#pragma once

#include "platform/db/dialect.h"
#include "platform/db/providererror.h"
#include "platform/db/resultset.h"

#include <QString>

namespace tarvello::db {

class EngineError : public std::runtime_error {
public:
    explicit EngineError(ProviderError error);
    const ProviderError& error() const { return m_error; }

private:
    ProviderError m_error;
};

// One open database session. Statements reach it already in its dialect, one at a time.
class Engine {
public:
    virtual ~Engine() = default;
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    virtual Dialect dialect() const = 0;
    virtual QString driverName() const = 0;

    // Runs one statement with positional parameters ('?'); throws EngineError.
    virtual ResultSet run(const QString& sql, const ValueList& parameters = {}) = 0;
    // Runs a statement that must not be prepared (batches creating #temp tables).
    virtual ResultSet runDirect(const QString& sql) { return run(sql); }
    // The same, handing the rows to `rows` as they are read.
    virtual void runDirect(const QString& sql, RowSink& rows) { feed(runDirect(sql), rows); }

    virtual void begin() = 0;
    virtual void commit() = 0;
    // Ends the transaction on the engine's side, also one the database has already dropped.
    virtual void rollback() = 0;
    // Whether the transaction begun with begin() is still open in the database: on some
    // errors (a deadlock victim, a full disk, an I/O error, a trigger's RAISE(ROLLBACK)) the
    // database rolls the whole transaction back and carries on without one.
    virtual bool transactionOpen() = 0;

    // The row id SQLite gave the latest row this session inserted: asked with a statement,
    // since not every ODBC driver passes RETURNING on.
    virtual Value lastInsertRowId()
    {
        return run(QStringLiteral("SELECT last_insert_rowid()")).rows.value(0).value(0);
    }

    virtual TableInfo tableInfo(const QString& table) = 0;
    // SQLite's schema versions of the main and the temporary tables in one number: any change
    // to either changes it, whichever connection made it.
    qint64 schemaVersion();
    // Whether the statements may call the functions of tsqlfunctions.h.
    virtual bool hasTsqlFunctions() const { return false; }
    // Whether result columns should take their kinds from the tables' declarations,
    // because the driver's own report of them is approximate.
    virtual bool refinesKinds() const { return false; }

protected:
    // The number a PRAGMA answers with.
    virtual qint64 pragmaNumber(const QString& pragma);
};

} // namespace tarvello::db
