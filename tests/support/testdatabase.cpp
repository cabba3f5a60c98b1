#include "support/testdatabase.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace tarvello::test {

bool odbcSqliteDriverAvailable()
{
    for (const char* path : {"/etc/odbcinst.ini"}) {
        QFile file(QString::fromLatin1(path));
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains("[SQLite3]"))
            return true;
    }
    return false;
}

std::vector<DatabaseTarget> databaseTargets()
{
    std::vector<DatabaseTarget> targets{{QStringLiteral("sqlite"), false}};
    if (odbcSqliteDriverAvailable())
        targets.push_back({QStringLiteral("odbc"), true});
    return targets;
}

void PrintTo(const DatabaseTarget& target, std::ostream* os)
{
    *os << target.name.toStdString();
}

std::string targetName(const DatabaseTarget& target)
{
    return target.name.toStdString();
}

TestDatabase::TestDatabase(const DatabaseTarget& target)
    : m_viaOdbc(target.viaOdbc)
{
    const QString file = m_dir.filePath(QStringLiteral("test.db"));
    m_connectionString = target.viaOdbc ? QStringLiteral("DRIVER={SQLite3};Database=%1;").arg(file)
                                        : QStringLiteral("Data Source=%1").arg(file);
    m_connection.open(m_connectionString);
}

QString TestDatabase::connectionStringWaiting(int milliseconds) const
{
    return m_connectionString +
           (m_viaOdbc ? QStringLiteral("Timeout=%1;") : QStringLiteral(";Busy Timeout=%1"))
               .arg(milliseconds);
}

QString TestDatabase::path() const
{
    return m_dir.filePath(QStringLiteral("test.db"));
}

void TestDatabase::runScript(const QString& script)
{
    static const QRegularExpression separator(QStringLiteral(";\\s*\\n"));
    for (const QString& statement : script.split(separator, Qt::SkipEmptyParts)) {
        if (!statement.trimmed().isEmpty())
            m_connection.executeNonQuery(statement.trimmed());
    }
}

} // namespace tarvello::test
