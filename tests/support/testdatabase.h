#pragma once

#include "platform/db/connection.h"

#include <QString>
#include <QTemporaryDir>
#include <memory>

namespace tarvello::test {

// The database paths a database test runs on: SQLite through its own engine always, and
// the same SQLite through ODBC when the SQLite ODBC driver is installed, so the ODBC code
// path is exercised on every machine.
struct DatabaseTarget {
    QString name; // "sqlite" or "odbc"
    bool viaOdbc = false;
};

std::vector<DatabaseTarget> databaseTargets();
void PrintTo(const DatabaseTarget& target, std::ostream* os);
// For gtest's INSTANTIATE_TEST_SUITE_P name generator.
std::string targetName(const DatabaseTarget& target);

// A fresh, empty database file in a temporary folder, opened on the given target.
class TestDatabase {
public:
    explicit TestDatabase(const DatabaseTarget& target);
    db::Connection& connection() { return m_connection; }
    QString path() const;
    QString connectionString() const { return m_connectionString; }
    // The same database for a second user who gives up on a lock after this long.
    QString connectionStringWaiting(int milliseconds) const;
    // Runs every statement of a script split on ';' at line ends (schema files, set-up).
    void runScript(const QString& script);

private:
    bool m_viaOdbc;
    QTemporaryDir m_dir;
    QString m_connectionString;
    db::Connection m_connection;
};

bool odbcSqliteDriverAvailable();

} // namespace tarvello::test
