#pragma once

#include "platform/db/rowstore.h"

namespace tarvello::db {

// Writes one pending row of a recordset to its base table: an insert (reading back the
// identity), an update of the changed columns, or a delete. Updates and deletes find the
// row by the table's key and check that the columns they concern (an update's changed ones,
// every column of a row deleted) still hold the values read, so a row changed or removed by
// someone else since is reported, not overwritten or deleted unseen.
class RowWriter {
public:
    RowWriter(Connection& connection, const QString& table, const QList<Column>& columns);

    enum class Outcome { Written, Conflict };
    struct Result {
        Outcome outcome = Outcome::Written;
        Value identity; // assigned by the database to an inserted row
    };
    // Raises RuntimeError when the database refuses the statement. The row itself is left
    // as it is: the caller applies the result once the whole write is committed.
    Result write(const RowStore::Row& row);
    // The recordset column the identity goes to; -1 when none.
    int identityIndex() const { return m_identityIndex; }
    // Whether another row of the table holds the row's values in these columns (false when
    // the recordset lacks one of them).
    bool anotherRowHolds(const RowStore::Row& row, const QStringList& columns);

private:
    QString condition(const QString& column, ColumnKind kind, ValueList& parameters,
                      const Value& value) const;
    // The parameters `condition` binds for a value, without building its text again.
    void addConditionParameters(ValueList& parameters, const Value& value) const;
    QString keyCondition(const RowStore::Row& row, ValueList& parameters) const;
    Result insert(const RowStore::Row& row);
    QString insertStatement(const QList<int>& filled);
    Outcome update(const RowStore::Row& row);
    Outcome remove(const RowStore::Row& row);
    QString updateStatement(const QList<int>& changed);
    QString deleteStatement();
    int columnIndex(const QString& baseColumn) const;

    Connection& m_connection; // Not owned.
    QString m_table;
    const QList<Column>& m_columns; // Not owned.
    QStringList m_key;
    QList<int> m_keyIndexes; // the recordset columns holding the key
    QString m_identity;
    QList<int> m_writable;   // recordset columns that are base columns of the table
    QList<bool> m_updatable; // by recordset column: writable and not the identity
    int m_identityIndex = -1;
    // Rows changed in the same columns share one statement text (and prepared statement).
    QHash<QList<int>, QString> m_updates;
    // So do rows inserted with the same columns filled.
    QHash<QList<int>, QString> m_inserts;
    QString m_delete;
    // An update's changed columns and parameters, kept between rows.
    QList<int> m_changed;
    ValueList m_parameters;
};

} // namespace tarvello::db
