#pragma once

#include "platform/db/engine.h"

#include <QHash>

struct sqlite3;
struct sqlite3_stmt;

namespace tarvello::db {

// SQLite through its C API: prepared statements are kept per text, so a recordset writing
// thousands of rows with the same statement prepares it once. Files are opened with
// write-ahead journaling (unless they can only be read), foreign-key checks and a busy
// timeout for a second user. Texts compare and convert case as on SQL Server (tsqlfunctions.h).
class SqliteEngine final : public Engine {
public:
    static constexpr int defaultBusyTimeout = 5000; // milliseconds

    // path may be a "file:" URI ("file:agenti.db?mode=ro").
    explicit SqliteEngine(const QString& path, int busyTimeout = defaultBusyTimeout);
    ~SqliteEngine() override;

    Dialect dialect() const override { return Dialect::Sqlite; }
    QString driverName() const override { return QStringLiteral("SQLite"); }
    ResultSet run(const QString& sql, const ValueList& parameters) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    bool transactionOpen() override;
    TableInfo tableInfo(const QString& table) override;
    bool hasTsqlFunctions() const override { return true; }

private:
    sqlite3_stmt* prepare(const QString& sql);
    [[noreturn]] void fail(const QString& sql) const;
    void bind(sqlite3_stmt* statement, const ValueList& parameters, const QString& sql);
    void exec(const char* sql);
    void refuseWritesIfMoved() const;

    sqlite3* m_db = nullptr;                    // Owned.
    QHash<QString, sqlite3_stmt*> m_statements; // Owned: finalized on destruction.
};

// The table description SQLite gives, through any engine speaking to a SQLite database.
TableInfo sqlitePragmaTableInfo(Engine& engine, const QString& table);

} // namespace tarvello::db
