#pragma once

#include <QHash>
#include <QString>

struct sqlite3_stmt;

namespace tarvello::db {

// The prepared statements a SQLite connection keeps for reuse, by text. Beyond its capacity
// the statement used longest ago makes room for a new one, so texts whose other parts vary do
// not pile up. A statement still running (stepped and not yet reset, while its rows are handed
// on) is never dropped.
class SqliteStatementCache {
public:
    explicit SqliteStatementCache(qsizetype capacity)
        : m_capacity(capacity)
    {}
    ~SqliteStatementCache();
    SqliteStatementCache(const SqliteStatementCache&) = delete;
    SqliteStatementCache& operator=(const SqliteStatementCache&) = delete;

    // The statement kept for this text; null when none is. The text asked last is recognised
    // without hashing it again, as a recordset writing row after row asks for it.
    sqlite3_stmt* find(const QString& sql);
    // Keeps a statement just prepared for this text; owned from now on.
    void keep(const QString& sql, sqlite3_stmt* statement);
    // Drops every statement not running: after a change of the schema a kept statement may
    // describe a table that is gone or has other columns.
    void clear();

private:
    struct Entry {
        sqlite3_stmt* statement = nullptr; // Owned: finalized when dropped.
        quint64 lastUse = 0;
    };
    void dropLeastRecentlyUsed();
    void forgetLast();

    QHash<QString, Entry> m_entries;
    // The text found last, and its entry.
    QString m_lastText;
    Entry* m_last = nullptr;
    const qsizetype m_capacity;
    quint64 m_clock = 0;
};

} // namespace tarvello::db
