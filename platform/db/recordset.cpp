#include "platform/db/recordset.h"

#include "platform/db/connection.h"
#include "platform/db/rowstore.h"
#include "platform/db/runtimeerror.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace tarvello::db {

namespace {

[[noreturn]] void noCurrentRecord()
{
    throw RuntimeError(RuntimeError::NoCurrentRecord,
                       QStringLiteral("Either BOF or EOF is True, or the current record has been "
                                      "deleted"));
}

[[noreturn]] void notOpen()
{
    throw RuntimeError(RuntimeError::OperationNotAllowed,
                       QStringLiteral("Operation is not allowed when the object is closed"));
}

// The single table a query reads, when its columns do not say (some ODBC drivers).
QString tableOfQuery(const QString& sql)
{
    static const QRegularExpression from(
        QStringLiteral("\\bFROM\\s+(\\[[^\\]]+\\]|\"[^\"]+\"|[A-Za-z0-9_#.]+)"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = from.match(sql);
    if (!match.hasMatch())
        return {};
    QString table = match.captured(1);
    if (table.startsWith(u'[') || table.startsWith(u'"'))
        table = table.mid(1, table.size() - 2);
    return table.section(u'.', -1);
}

// Picks the base table and marks which columns are its own (computed ones are never written).
void resolveBaseTable(Connection& connection, const QString& sql, QList<Column>& columns,
                      QString& baseTable)
{
    QHash<QString, int> counts;
    for (const Column& column : std::as_const(columns)) {
        if (!column.baseTable.isEmpty())
            ++counts[column.baseTable];
    }
    baseTable = counts.size() == 1 ? counts.begin().key()
                : counts.isEmpty() ? tableOfQuery(sql)
                                   : QString();
    if (counts.size() > 1) {
        for (Column& column : columns)
            column.baseColumn.clear();
        return;
    }
    if (baseTable.isEmpty())
        return;
    const TableInfo& info = connection.tableInfo(baseTable);
    for (Column& column : columns) {
        const bool fromBase = column.baseTable.isEmpty() || column.baseTable == baseTable;
        const TableInfo::ColumnInfo* base = info.column(
            column.baseColumn.isEmpty() && fromBase && counts.isEmpty() ? column.name
                                                                        : column.baseColumn);
        column.baseColumn = fromBase && base ? base->name : QString();
        if (base && column.kind == ColumnKind::Unknown)
            column.kind = base->kind;
    }
}

// The rows of a query, packed as they are read.
class RowPacker final : public RowSink {
public:
    void columns(QList<Column> columns) override { m_columns = std::move(columns); }
    void row(ValueList values) override { m_rows.append(PackedRow(values)); }

    QList<Column>& readColumns() { return m_columns; }
    QList<PackedRow> takeRows() { return std::move(m_rows); }

private:
    QList<Column> m_columns;
    QList<PackedRow> m_rows;
};

} // namespace

Recordset::Recordset(std::shared_ptr<RowStore> store)
    : m_store(std::move(store))
{
    m_store->addHandle(this);
}

Recordset::~Recordset()
{
    m_store->removeHandle(this);
}

RecordsetPtr Recordset::open(Connection& connection, const QString& tsql, LockType lock)
{
    auto store = std::make_shared<RowStore>();
    store->lock = lock;
    load(*store, connection, tsql);
    RecordsetPtr recordset(new Recordset(store));
    recordset->rebuildView(0);
    recordset->m_index = 0;
    return recordset;
}

RecordsetPtr Recordset::create()
{
    return RecordsetPtr(new Recordset(std::make_shared<RowStore>()));
}

void Recordset::appendField(const QString& name, ColumnKind kind)
{
    if (m_store->open)
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("Fields cannot be appended to an open recordset"));
    m_store->columns << Column{name, kind, {}, {}};
}

void Recordset::load(RowStore& store, Connection& connection, const QString& tsql)
{
    RowPacker rows;
    connection.query(tsql, rows);
    QString baseTable;
    if (store.lock != LockType::ReadOnly)
        resolveBaseTable(connection, tsql, rows.readColumns(), baseTable);
    store.connection = &connection;
    store.source = tsql;
    store.columns = std::move(rows.readColumns());
    store.baseTable = baseTable;
    store.indexColumns();
    store.reset(rows.takeRows());
    store.open = true;
}

void Recordset::openInMemory()
{
    m_store->indexColumns();
    m_store->open = true;
    m_store->reset({});
    rebuildView(0);
}

bool Recordset::isOpen() const
{
    return m_store->open;
}

void Recordset::close()
{
    m_store->open = false;
    m_store->reset({});
    setView({});
    m_index = -1;
}

void Recordset::reopen(Connection& connection, const QString& tsql)
{
    load(*m_store, connection, tsql);
    m_filter.clear();
    m_filterGroup = FilterGroup::None;
    m_sort.clear();
    m_index = 0;
    m_store->notifyRowsChanged();
    m_index = 0;
    Q_EMIT currentChanged();
}

QString Recordset::source() const
{
    return m_store->source;
}

Connection* Recordset::activeConnection() const
{
    return m_store->connection;
}

bool Recordset::isReadOnly() const
{
    return m_store->lock == LockType::ReadOnly && m_store->connection;
}

QString Recordset::baseTable() const
{
    return m_store->baseTable;
}

int Recordset::fieldCount() const
{
    return int(m_store->columns.size());
}

const Column& Recordset::field(int index) const
{
    if (index < 0 || index >= m_store->columns.size())
        throw RuntimeError(RuntimeError::ItemNotFound,
                           QStringLiteral("Item cannot be found in the collection"));
    return m_store->columns[index];
}

int Recordset::fieldIndex(QStringView name) const
{
    return m_store->columnIndex(name);
}

int Recordset::requireField(QStringView name) const
{
    const int index = fieldIndex(name);
    if (index < 0)
        throw RuntimeError(RuntimeError::ItemNotFound,
                           QStringLiteral("Item cannot be found in the collection: %1").arg(name));
    return index;
}

StoredRow& Recordset::currentRowData() const
{
    if (!m_store->open)
        notOpen();
    if (m_index < 0 || m_index >= m_view.size())
        noCurrentRecord();
    RowStore::Row* row = m_store->find(m_view[m_index]);
    if (!row || row->status == RowStatus::Deleted)
        noCurrentRecord();
    return *row;
}

Value Recordset::value(QStringView field) const
{
    return value(requireField(field));
}

Value Recordset::value(int index) const
{
    return currentRowData().values.at(index);
}

Value Recordset::originalValue(QStringView field) const
{
    const int index = requireField(field);
    const RowStore::Row& row = currentRowData();
    return row.original ? row.original->at(index) : row.values.at(index);
}

ValueList Recordset::values() const
{
    return currentRowData().values.toList();
}

ValueList Recordset::originalValues() const
{
    const RowStore::Row& row = currentRowData();
    return (row.original ? *row.original : row.values).toList();
}

void Recordset::setValue(QStringView field, const Value& value)
{
    if (isReadOnly())
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("The recordset is read-only"));
    const int index = requireField(field);
    RowStore::Row& row = currentRowData();
    // The values before the change, when they are to be kept, share the bytes: the change then
    // leaves them as they were. A row in the middle of its edit keeps nothing, and is changed in
    // place.
    const bool keepsBefore = row.status == RowStatus::Unmodified || !row.editing;
    PackedRow before = keepsBefore ? row.values : PackedRow();
    if (!row.values.replace(index, value))
        return;
    if (row.status == RowStatus::Unmodified) {
        row.original = std::move(before);
        row.status = RowStatus::Modified;
    } else if (!row.editing) {
        row.beforeEdit = std::move(before);
    }
    row.editing = true;
    row.conflict = false;
    m_store->notifyValueChanged(row.bookmark);
}

bool Recordset::bof() const
{
    return m_view.isEmpty() || m_index < 0;
}

bool Recordset::eof() const
{
    return m_view.isEmpty() || m_index >= m_view.size();
}

qsizetype Recordset::recordCount() const
{
    return m_view.size();
}

void Recordset::setCurrentIndex(qsizetype index)
{
    if (!m_store->open)
        notOpen();
    index = std::clamp<qsizetype>(index, -1, m_view.size());
    m_onDeleted = false;
    if (index == m_index)
        return;
    leaveEdit();
    m_index = index;
    Q_EMIT currentChanged();
}

void Recordset::leaveEdit()
{
    // Moving away ends the edit in progress, as an explicit Update would.
    if (m_index >= 0 && m_index < m_view.size()) {
        if (RowStore::Row* row = m_store->find(m_view[m_index])) {
            endEdit(*row);
            if (m_store->adding == row->bookmark)
                m_store->adding = 0;
        }
    }
}

void Recordset::moveFirst()
{
    setCurrentIndex(0);
}

void Recordset::moveLast()
{
    setCurrentIndex(m_view.isEmpty() ? 0 : m_view.size() - 1);
}

void Recordset::moveNext()
{
    if (std::exchange(m_onDeleted, false)) {
        if (!m_store->open)
            notOpen();
        return;
    }
    if (eof())
        noCurrentRecord();
    setCurrentIndex(m_index + 1);
}

void Recordset::movePrevious()
{
    if (bof())
        noCurrentRecord();
    setCurrentIndex(m_index - 1);
}

qsizetype Recordset::absolutePosition() const
{
    return bof() || eof() ? -1 : m_index + 1;
}

void Recordset::setAbsolutePosition(qsizetype position)
{
    if (position < 1 || position > m_view.size())
        throw RuntimeError(
            RuntimeError::InvalidProcedureCall,
            QStringLiteral("Position %1 is outside the %2 rows").arg(position).arg(m_view.size()));
    setCurrentIndex(position - 1);
}

Recordset::Bookmark Recordset::bookmark() const
{
    return currentRowData().bookmark;
}

qsizetype Recordset::viewPosition(Bookmark bookmark) const
{
    return m_positions.find(m_view, bookmark);
}

void Recordset::setView(QList<Bookmark> view)
{
    m_view = std::move(view);
    m_positions.clear();
}

void Recordset::setBookmark(Bookmark bookmark)
{
    const qsizetype index = viewPosition(bookmark);
    if (index < 0)
        throw RuntimeError(RuntimeError::InvalidProcedureCall,
                           QStringLiteral("The bookmark names no row of the recordset"));
    setCurrentIndex(index);
}

bool Recordset::hasBookmark(Bookmark bookmark) const
{
    return viewPosition(bookmark) >= 0;
}

RecordsetPtr Recordset::clone() const
{
    RecordsetPtr copy(new Recordset(m_store));
    // Unfiltered and unsorted, this handle already shows what the clone's own view would be
    // (every row not deleted, in the order read): the clone shares it instead of walking
    // every row again, which matters to a clone taken only to be filtered down to one row.
    if (m_store->open && m_filter.isEmpty() && m_filterGroup == FilterGroup::None &&
        m_sort.trimmed().isEmpty())
        copy->setView(m_view);
    else
        copy->rebuildView(0);
    copy->m_index = 0;
    return copy;
}

void Recordset::requireWritable() const
{
    if (!m_store->open)
        notOpen();
    if (isReadOnly())
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("The recordset is read-only"));
}

void Recordset::addNew()
{
    requireWritable();
    leaveEdit();
    // The defaults are asked of the table once per reading of the rows: rows added one after
    // another (a list of customers) would otherwise each check the schema again.
    if (!m_store->newRow)
        m_store->newRow = defaultRow();
    const Bookmark added = m_store->append(*m_store->newRow, RowStatus::New);
    m_store->adding = added;
    m_store->notifyRowAdded(added);
    m_index = viewPosition(added);
    Q_EMIT currentChanged();
}

void Recordset::appendRows(const QList<ValueList>& rows)
{
    requireWritable();
    leaveEdit();
    QList<PackedRow> packed;
    packed.reserve(rows.size());
    for (const ValueList& values : rows) {
        if (values.size() != m_store->columns.size())
            throw RuntimeError(RuntimeError::InvalidProcedureCall,
                               QStringLiteral("A row of %1 values for %2 fields")
                                   .arg(values.size())
                                   .arg(m_store->columns.size()));
        packed.append(PackedRow(values));
    }
    if (packed.isEmpty())
        return;
    m_store->append(std::move(packed), RowStatus::New);
    m_store->notifyRowsChanged();
}

PackedRow Recordset::defaultRow() const
{
    PackedRow values;
    const TableInfo* info = m_store->connection && !m_store->baseTable.isEmpty()
                                ? &m_store->connection->tableInfo(m_store->baseTable)
                                : nullptr;
    for (const Column& column : std::as_const(m_store->columns)) {
        const TableInfo::ColumnInfo* base = info ? info->column(column.baseColumn) : nullptr;
        values.append(base && !column.baseColumn.isEmpty() ? base->defaultValue : Value::null());
    }
    return values;
}

void Recordset::update()
{
    RowStore::Row& row = currentRowData();
    endEdit(row);
    if (m_store->adding == row.bookmark)
        m_store->adding = 0;
}

void Recordset::endEdit(StoredRow& row)
{
    row.editing = false;
    row.beforeEdit.reset();
}

void Recordset::cancelUpdate()
{
    if (m_index < 0 || m_index >= m_view.size())
        return;
    RowStore::Row* row = m_store->find(m_view[m_index]);
    if (!row)
        return;
    if (m_store->adding == row->bookmark) {
        m_store->remove(row->bookmark);
        m_store->notifyRowsChanged();
        Q_EMIT currentChanged();
        return;
    }
    if (!row->editing)
        return;
    row->values = row->beforeEdit ? *row->beforeEdit : *row->original;
    endEdit(*row);
    if (row->status == RowStatus::Modified && row->original && *row->original == row->values) {
        row->original.reset();
        row->status = RowStatus::Unmodified;
    }
    m_store->notifyValueChanged(row->bookmark);
}

void Recordset::cancelBatch()
{
    QList<Bookmark> added;
    for (RowStore::Row& row : m_store->rows()) {
        endEdit(row);
        row.conflict = false;
        if (row.status == RowStatus::New) {
            added << row.bookmark;
            continue;
        }
        if (row.original)
            row.values = *row.original;
        row.original.reset();
        row.status = RowStatus::Unmodified;
    }
    for (Bookmark bookmark : std::as_const(added))
        m_store->remove(bookmark);
    m_store->adding = 0;
    m_store->notifyRowsChanged();
}

void Recordset::deleteRow()
{
    requireWritable();
    RowStore::Row& row = currentRowData();
    const Bookmark bookmark = row.bookmark;
    if (row.status == RowStatus::New) {
        m_store->remove(bookmark);
    } else {
        if (!row.original)
            row.original = row.values;
        row.status = RowStatus::Deleted;
        endEdit(row);
    }
    if (m_store->adding == bookmark)
        m_store->adding = 0;
    // The cursor stays on the deleted row's place until the next move, as the host expects.
    const qsizetype place = m_index;
    m_store->notifyRowsChanged();
    m_index = std::clamp<qsizetype>(place, 0, m_view.size());
    m_onDeleted = true;
    Q_EMIT currentChanged();
}

Recordset::RowStatus Recordset::status() const
{
    return currentRowData().status;
}

Recordset::EditMode Recordset::editMode() const
{
    if (m_index < 0 || m_index >= m_view.size())
        return EditMode::None;
    const RowStore::Row* row = m_store->find(m_view[m_index]);
    if (!row)
        return EditMode::None;
    if (row->bookmark == m_store->adding)
        return EditMode::Adding;
    return row->editing ? EditMode::Editing : EditMode::None;
}

qsizetype Recordset::pendingCount() const
{
    return std::count_if(
        m_store->rows().cbegin(), m_store->rows().cend(),
        [](const RowStore::Row& row) { return row.status != RowStatus::Unmodified; });
}

void Recordset::requery()
{
    if (!m_store->connection)
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("A recordset built in memory cannot be read again"));
    load(*m_store, *m_store->connection, m_store->source);
    m_index = 0;
    m_store->notifyRowsChanged();
    m_index = 0;
    Q_EMIT currentChanged();
}

} // namespace tarvello::db
