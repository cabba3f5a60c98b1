#include "platform/db/rowwriter.h"

#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"

namespace tarvello::db {

QString quoteIdentifier(const QString& name) {
    QString escaped = name;
    escaped.replace(u'"', QStringLiteral("\"\""));
    return u'"' + escaped + u'"';
}

RowWriter::RowWriter(Connection& connection, const QString& table, const QList<Column>& columns)
    : m_connection(connection)
    , m_table(table)
    , m_columns(columns) {
    const TableInfo& info = connection.tableInfo(table);
    m_key = info.primaryKey();
    m_identity = info.identityColumn();
    for (int i = 0; i < columns.size(); ++i) {
        if (!columns[i].baseColumn.isEmpty())
            m_writable << i;
    }
    // Without a declared key, a row is found by every column it was read with.
    if (m_key.isEmpty()) {
        for (int i : std::as_const(m_writable))
            m_key << m_columns[i].baseColumn;
    }
}

RowWriter::Outcome RowWriter::write(RowStore::Row& row) {
    switch (row.status) {
    case Recordset::RowStatus::New:
        return insert(row);
    case Recordset::RowStatus::Modified:
        return update(row);
    case Recordset::RowStatus::Deleted:
        return remove(row);
    case Recordset::RowStatus::Unmodified:
        break;
    }
    return Outcome::Written;
}

QString RowWriter::condition(const QString& column, ColumnKind kind, ValueList& parameters,
                             const Value& value) const {
    const QString name = quoteIdentifier(column);
    if (m_connection.dialect() == Dialect::Sqlite) {
        parameters << value;
        // Dates may have been stored in another ISO spelling: compare them normalised.
        return kind == ColumnKind::Date
                   ? QStringLiteral("datetime(") + name + QStringLiteral(") IS datetime(?)")
                   : name + QStringLiteral(" IS ?");
    }
    if (value.isNull() || value.isEmpty())
        return name + QStringLiteral(" IS NULL");
    parameters << value;
    return name + QStringLiteral(" = ?");
}

QString RowWriter::keyCondition(const RowStore::Row& row, ValueList& parameters) const {
    const ValueList& read = row.original ? *row.original : row.values;
    QStringList parts;
    for (const QString& key : m_key) {
        int index = -1;
        for (int i : m_writable) {
            if (m_columns[i].baseColumn.compare(key, Qt::CaseInsensitive) == 0)
                index = i;
        }
        if (index < 0)
            throw RuntimeError(RuntimeError::OperationNotAllowed,
                               QStringLiteral("The rows of %1 cannot be written: the key column %2 "
                                              "is not among the columns read")
                                   .arg(m_table, key));
        parts << condition(key, m_columns[index].kind, parameters, read[index]);
    }
    return parts.join(QStringLiteral(" AND "));
}

RowWriter::Outcome RowWriter::insert(RowStore::Row& row) {
    QStringList columns;
    ValueList values;
    int identityIndex = -1;
    for (int i : std::as_const(m_writable)) {
        const QString& column = m_columns[i].baseColumn;
        if (column.compare(m_identity, Qt::CaseInsensitive) == 0) {
            identityIndex = i;
            continue;
        }
        if (row.values[i].isEmpty())
            continue;
        columns << column;
        values << row.values[i];
    }
    const Value identity = m_connection.insertRow(m_table, columns, values, m_identity);
    if (identityIndex >= 0)
        row.values[identityIndex] = identity;
    return Outcome::Written;
}

RowWriter::Outcome RowWriter::update(RowStore::Row& row) {
    if (!row.original)
        return Outcome::Written;
    QStringList assignments;
    QStringList checks;
    ValueList setParameters;
    ValueList checkParameters;
    for (int i : std::as_const(m_writable)) {
        if (row.values[i] == (*row.original)[i] ||
            m_columns[i].baseColumn.compare(m_identity, Qt::CaseInsensitive) == 0)
            continue;
        assignments << quoteIdentifier(m_columns[i].baseColumn) + QStringLiteral(" = ?");
        setParameters << row.values[i];
        checks << condition(m_columns[i].baseColumn, m_columns[i].kind, checkParameters,
                            (*row.original)[i]);
    }
    if (assignments.isEmpty())
        return Outcome::Written;
    ValueList keyParameters;
    const QString key = keyCondition(row, keyParameters);
    const QString sql = QStringLiteral("UPDATE ") + quoteIdentifier(m_table) +
                        QStringLiteral(" SET ") + assignments.join(QStringLiteral(", ")) +
                        QStringLiteral(" WHERE ") + key + QStringLiteral(" AND ") +
                        checks.join(QStringLiteral(" AND "));
    const ResultSet result = m_connection.run(sql, setParameters + keyParameters + checkParameters);
    return result.rowsAffected == 0 ? Outcome::Conflict : Outcome::Written;
}

RowWriter::Outcome RowWriter::remove(RowStore::Row& row) {
    ValueList parameters;
    const QString sql = QStringLiteral("DELETE FROM ") + quoteIdentifier(m_table) +
                        QStringLiteral(" WHERE ") + keyCondition(row, parameters);
    const ResultSet result = m_connection.run(sql, parameters);
    return result.rowsAffected == 0 ? Outcome::Conflict : Outcome::Written;
}

} // namespace tarvello::db
