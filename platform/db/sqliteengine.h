#pragma once

#include "platform/db/engine.h"
#include "platform/db/sqlitestatements.h"

#include <QVarLengthArray>

struct sqlite3;
struct sqlite3_stmt;

namespace tarvello::db {

// SQLite through its C API: parameterised statements (and queries whose compared constants it
// lifts into parameters) stay prepared, so a recordset writing thousands of rows with the same
// statement prepares it once. Files are opened with write-ahead journaling (unless they can
// only be read), foreign-key checks and a busy timeout for a second user. Texts compare and
// convert case as on SQL Server (tsqlfunctions.h).
class SqliteEngine final : public Engine {
public:
    static constexpr int defaultBusyTimeout = 5000; // milliseconds

    // path may be a "file:" URI ("file:agenti.db?mode=ro").
    explicit SqliteEngine(const QString& path, int busyTimeout = defaultBusyTimeout);
    ~SqliteEngine() override;

    Dialect dialect() const override { return Dialect::Sqlite; }
    QString driverName() const override { return QStringLiteral("SQLite"); }
    ResultSet run(const QString& sql, const ValueList& parameters) override;
    void runDirect(const QString& sql, RowSink& rows) override;
    using Engine::runDirect;
    void begin() override;
    void commit() override;
    void rollback() override;
    bool transactionOpen() override;
    Value lastInsertRowId() override;
    TableInfo tableInfo(const QString& table) override;
    bool hasTsqlFunctions() const override { return true; }

protected:
    qint64 pragmaNumber(const QString& pragma) override;

private:
    // Runs one statement, its rows to `rows`; the rows it changed.
    qint64 execute(const QString& sql, const ValueList& parameters, RowSink& rows);
    // The same with the statement prepared; one not kept is finalized once run.
    qint64 execute(sqlite3_stmt* statement, const QString& sql, const ValueList& parameters,
                   RowSink& rows, bool keep);
    // A statement of its own for the text, finalized by the caller; null for only blanks or
    // comments.
    sqlite3_stmt* prepare(const QString& sql);
    // The statement kept for the text, prepared on first use.
    sqlite3_stmt* kept(const QString& sql);
    [[noreturn]] void fail(const QString& sql) const;
    // The UTF-8 of the texts bound, kept until the bindings are cleared: SQLite reads them in
    // place instead of copying each.
    using BoundTexts = QVarLengthArray<char, 512>;
    void bind(sqlite3_stmt* statement, const ValueList& parameters, const QString& sql,
              BoundTexts& texts);
    void exec(const char* sql);
    void refuseWritesIfMoved() const;

    sqlite3* m_db = nullptr; // Owned.
    // Declared after m_db, so destroyed (its statements finalized) before it is closed.
    SqliteStatementCache m_statements;
};

// The table description SQLite gives, through any engine speaking to a SQLite database.
TableInfo sqlitePragmaTableInfo(Engine& engine, const QString& table);

} // namespace tarvello::db
