#include "platform/db/sqlitestatements.h"

#include <sqlite3.h>

namespace tarvello::db {

SqliteStatementCache::~SqliteStatementCache()
{
    for (const Entry& entry : std::as_const(m_entries))
        sqlite3_finalize(entry.statement);
}

sqlite3_stmt* SqliteStatementCache::find(const QString& sql)
{
    if (m_last && sql == m_lastText) {
        m_last->lastUse = ++m_clock;
        return m_last->statement;
    }
    const auto found = m_entries.find(sql);
    if (found == m_entries.end())
        return nullptr;
    found->lastUse = ++m_clock;
    m_lastText = sql;
    m_last = &found.value();
    return found->statement;
}

void SqliteStatementCache::keep(const QString& sql, sqlite3_stmt* statement)
{
    if (m_entries.size() >= m_capacity)
        dropLeastRecentlyUsed();
    // An insertion may move the entries.
    forgetLast();
    m_entries.insert(sql, Entry{statement, ++m_clock});
}

void SqliteStatementCache::forgetLast()
{
    m_last = nullptr;
    m_lastText.clear();
}

void SqliteStatementCache::dropLeastRecentlyUsed()
{
    auto oldest = m_entries.end();
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (!sqlite3_stmt_busy(it->statement) &&
            (oldest == m_entries.end() || it->lastUse < oldest->lastUse))
            oldest = it;
    }
    if (oldest == m_entries.end())
        return;
    forgetLast();
    sqlite3_finalize(oldest->statement);
    m_entries.erase(oldest);
}

void SqliteStatementCache::clear()
{
    forgetLast();
    m_entries.removeIf([](const QHash<QString, Entry>::iterator& it) {
        if (sqlite3_stmt_busy(it->statement))
            return false;
        sqlite3_finalize(it->statement);
        return true;
    });
}

} // namespace tarvello::db
