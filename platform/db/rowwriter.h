#pragma once

#include "platform/db/rowstore.h"

namespace tarvello::db {

// Writes one pending row of a recordset to its base table: an insert (reading back the
// identity), an update of the changed columns, or a delete. Updates and deletes find the
// row by the table's key and check that the changed columns still hold the values read,
// so a row changed or removed by someone else since is reported, not overwritten.
class RowWriter {
public:
    RowWriter(Connection& connection, const QString& table, const QList<Column>& columns);

    enum class Outcome { Written, Conflict };
    // Raises RuntimeError when the database refuses the statement.
    Outcome write(RowStore::Row& row);

private:
    QString condition(const QString& column, ColumnKind kind, ValueList& parameters,
                      const Value& value) const;
    QString keyCondition(const RowStore::Row& row, ValueList& parameters) const;
    Outcome insert(RowStore::Row& row);
    Outcome update(RowStore::Row& row);
    Outcome remove(RowStore::Row& row);

    Connection& m_connection; // Not owned.
    QString m_table;
    const QList<Column>& m_columns; // Not owned.
    QStringList m_key;
    QString m_identity;
    QList<int> m_writable; // recordset columns that are base columns of the table
};

QString quoteIdentifier(const QString& name);

} // namespace tarvello::db
