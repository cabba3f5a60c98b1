#pragma once

#include <QString>
#include <QStringList>

namespace tarvello::db {

// Every statement sent on a connection, as it was written by its sender (before any
// rewriting), in order. Tests and scenarios pin the module's exact texts with it.
class StatementLog {
public:
    struct Entry {
        QString text;
        // Written by the platform itself (a recordset's row writes), not by the module.
        bool internal = false;
    };

    void append(QString text, bool internal) { m_entries.append({std::move(text), internal}); }
    const QList<Entry>& entries() const { return m_entries; }
    qsizetype size() const { return m_entries.size(); }
    void clear() { m_entries.clear(); }
    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }

private:
    QList<Entry> m_entries;
    bool m_enabled = true;
};

} // namespace tarvello::db
