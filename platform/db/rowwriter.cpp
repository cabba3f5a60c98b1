#include "platform/db/rowwriter.h"

#include "platform/db/connection.h"
#include "platform/db/identifier.h"
#include "platform/db/runtimeerror.h"

namespace tarvello::db {

RowWriter::RowWriter(Connection& connection, const QString& table, const QList<Column>& columns)
    : m_connection(connection)
    , m_table(table)
    , m_columns(columns)
{
    const TableInfo& info = connection.tableInfo(table);
    m_key = info.primaryKey();
    m_identity = info.identityColumn();
    m_updatable.fill(false, columns.size());
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].baseColumn.isEmpty())
            continue;
        m_writable << i;
        if (columns[i].baseColumn.compare(m_identity, Qt::CaseInsensitive) == 0)
            m_identityIndex = i;
        else
            m_updatable[i] = true;
    }
    // Without a declared key, a row is found by every column it was read with.
    if (m_key.isEmpty()) {
        for (int i : std::as_const(m_writable))
            m_key << m_columns[i].baseColumn;
    }
    for (const QString& key : std::as_const(m_key)) {
        const auto found = std::find_if(m_writable.cbegin(), m_writable.cend(), [&](int i) {
            return m_columns[i].baseColumn.compare(key, Qt::CaseInsensitive) == 0;
        });
        if (found == m_writable.cend())
            throw RuntimeError(RuntimeError::OperationNotAllowed,
                               QStringLiteral("The rows of %1 cannot be written: the key column %2 "
                                              "is not among the columns read")
                                   .arg(m_table, key));
        m_keyIndexes << *found;
    }
}

RowWriter::Result RowWriter::write(const RowStore::Row& row)
{
    switch (row.status) {
    case Recordset::RowStatus::New:
        return insert(row);
    case Recordset::RowStatus::Modified:
        return {update(row), {}};
    case Recordset::RowStatus::Deleted:
        return {remove(row), {}};
    case Recordset::RowStatus::Unmodified:
        break;
    }
    return {};
}

QString RowWriter::condition(const QString& column, ColumnKind kind, ValueList& parameters,
                             const Value& value) const
{
    const QString name = quoteIdentifier(column);
    addConditionParameters(parameters, value);
    if (m_connection.dialect() == Dialect::Sqlite) {
        // Dates may have been stored in another ISO spelling: compare them normalised.
        return kind == ColumnKind::Date
                   ? QStringLiteral("datetime(") + name + QStringLiteral(") IS datetime(?)")
                   : name + QStringLiteral(" IS ?");
    }
    // Null-safe, with the same text whatever the value: one prepared statement serves all rows.
    return QStringLiteral("(") + name + QStringLiteral(" = ? OR (") + name +
           QStringLiteral(" IS NULL AND ? IS NULL))");
}

void RowWriter::addConditionParameters(ValueList& parameters, const Value& value) const
{
    parameters << value;
    if (m_connection.dialect() == Dialect::SqlServer)
        parameters << value;
}

QString RowWriter::keyCondition(const RowStore::Row& row, ValueList& parameters) const
{
    const PackedRow& read = row.original ? *row.original : row.values;
    QStringList parts;
    for (int index : m_keyIndexes)
        parts << condition(m_columns[index].baseColumn, m_columns[index].kind, parameters,
                           read.at(index));
    return parts.join(QStringLiteral(" AND "));
}

RowWriter::Result RowWriter::insert(const RowStore::Row& row)
{
    QList<int> filled;
    ValueList values;
    filled.reserve(m_writable.size());
    values.reserve(m_writable.size());
    for (int i : std::as_const(m_writable)) {
        Value value = row.values.at(i);
        if (i == m_identityIndex || value.isEmpty())
            continue;
        filled << i;
        values << std::move(value);
    }
    return {Outcome::Written,
            m_connection.insertRow(insertStatement(filled), values, !m_identity.isEmpty())};
}

QString RowWriter::insertStatement(const QList<int>& filled)
{
    QString& sql = m_inserts[filled];
    if (sql.isEmpty()) {
        QStringList columns;
        for (int i : filled)
            columns << m_columns[i].baseColumn;
        sql = m_connection.insertStatement(m_table, columns, m_identity);
    }
    return sql;
}

RowWriter::Outcome RowWriter::update(const RowStore::Row& row)
{
    if (!row.original)
        return Outcome::Written;
    const PackedRow& read = *row.original;
    QList<PackedRow::Change> changes = PackedRow::changes(read, row.values);
    changes.removeIf(
        [this](const PackedRow::Change& change) { return !m_updatable[change.column]; });
    if (changes.isEmpty())
        return Outcome::Written;
    // Cleared, not made anew: the rows of a batch reuse their storage.
    m_changed.clear();
    m_parameters.clear();
    for (const PackedRow::Change& change : std::as_const(changes)) {
        m_changed << change.column;
        m_parameters << change.after;
    }
    for (const Value& value : read.at(m_keyIndexes))
        addConditionParameters(m_parameters, value);
    for (const PackedRow::Change& change : std::as_const(changes))
        addConditionParameters(m_parameters, change.before);
    const ResultSet result = m_connection.run(updateStatement(m_changed), m_parameters);
    return result.rowsAffected == 0 ? Outcome::Conflict : Outcome::Written;
}

QString RowWriter::updateStatement(const QList<int>& changed)
{
    QString& sql = m_updates[changed];
    if (!sql.isEmpty())
        return sql;
    QStringList assignments;
    QStringList checks;
    ValueList unused;
    for (int i : changed) {
        assignments << quoteIdentifier(m_columns[i].baseColumn) + QStringLiteral(" = ?");
        checks << condition(m_columns[i].baseColumn, m_columns[i].kind, unused, Value(0));
    }
    RowStore::Row probe;
    probe.values = PackedRow(ValueList(m_columns.size(), Value(0)));
    sql = QStringLiteral("UPDATE ") + quoteIdentifier(m_table) + QStringLiteral(" SET ") +
          assignments.join(QStringLiteral(", ")) + QStringLiteral(" WHERE ") +
          keyCondition(probe, unused) + QStringLiteral(" AND ") +
          checks.join(QStringLiteral(" AND "));
    return sql;
}

RowWriter::Outcome RowWriter::remove(const RowStore::Row& row)
{
    const ValueList read = (row.original ? *row.original : row.values).toList();
    ValueList parameters;
    for (int i : std::as_const(m_keyIndexes))
        addConditionParameters(parameters, read[i]);
    for (int i : std::as_const(m_writable)) {
        if (!m_keyIndexes.contains(i))
            addConditionParameters(parameters, read[i]);
    }
    const ResultSet result = m_connection.run(deleteStatement(), parameters);
    return result.rowsAffected == 0 ? Outcome::Conflict : Outcome::Written;
}

QString RowWriter::deleteStatement()
{
    if (!m_delete.isEmpty())
        return m_delete;
    QStringList checks;
    ValueList unused;
    RowStore::Row probe;
    probe.values = PackedRow(ValueList(m_columns.size(), Value(0)));
    checks << keyCondition(probe, unused);
    for (int i : std::as_const(m_writable)) {
        if (!m_keyIndexes.contains(i))
            checks << condition(m_columns[i].baseColumn, m_columns[i].kind, unused, Value(0));
    }
    m_delete = QStringLiteral("DELETE FROM ") + quoteIdentifier(m_table) +
               QStringLiteral(" WHERE ") + checks.join(QStringLiteral(" AND "));
    return m_delete;
}

int RowWriter::columnIndex(const QString& baseColumn) const
{
    for (int i : m_writable) {
        if (m_columns[i].baseColumn.compare(baseColumn, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool RowWriter::anotherRowHolds(const RowStore::Row& row, const QStringList& columns)
{
    ValueList parameters;
    QStringList checks;
    for (const QString& column : columns) {
        const int index = columnIndex(column);
        if (index < 0)
            return false;
        checks << condition(m_columns[index].baseColumn, m_columns[index].kind, parameters,
                            row.values.at(index));
    }
    // A row already in the table is not its own duplicate.
    if (row.status != Recordset::RowStatus::New)
        checks << QStringLiteral("NOT (") + keyCondition(row, parameters) + u')';
    const ResultSet found =
        m_connection.run(QStringLiteral("SELECT COUNT(*) FROM ") + quoteIdentifier(m_table) +
                             QStringLiteral(" WHERE ") + checks.join(QStringLiteral(" AND ")),
                         parameters);
    return found.rows.value(0).value(0).toInt64() > 0;
}

} // namespace tarvello::db
