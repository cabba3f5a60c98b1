#pragma once

#include "platform/db/engine.h"

#include <QHash>
#include <QSqlDatabase>
#include <memory>

class QSqlQuery;

namespace tarvello::db {

// Any database behind an ODBC driver, through Qt's QODBC. SQL Server gets its statements
// unchanged; an ODBC connection to SQLite (the SQLite ODBC driver) is recognised and gets
// the SQLite rewriting, which lets the ODBC path be exercised on machines without SQL Server.
// Results are read forward-only and kept client-side, so the connection never has two
// active results.
class OdbcEngine final : public Engine {
public:
    explicit OdbcEngine(const QString& connectionString);
    ~OdbcEngine() override;

    Dialect dialect() const override { return m_dialect; }
    QString driverName() const override;
    ResultSet run(const QString& sql, const ValueList& parameters) override;
    ResultSet runDirect(const QString& sql) override;
    void begin() override;
    void commit() override;
    void rollback() override;
    bool transactionOpen() override;
    TableInfo tableInfo(const QString& table) override;
    bool refinesKinds() const override { return true; }

private:
    ResultSet read(QSqlQuery& query);
    [[noreturn]] void fail(const QSqlQuery& query) const;

    QString m_name;
    Dialect m_dialect = Dialect::SqlServer;
    QString m_dbms;
    QHash<QString, std::shared_ptr<QSqlQuery>> m_prepared;
};

} // namespace tarvello::db
