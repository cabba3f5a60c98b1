#include "platform/db/recordset.h"

#include "platform/db/connection.h"
#include "platform/db/criteria.h"
#include "platform/db/rowstore.h"
#include "platform/db/rowwriter.h"
#include "platform/db/runtimeerror.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace tarvello::db {

namespace {

// Matches rows one after another against parsed criteria, with their fields resolved to
// columns once rather than by name for every row.
class RowMatcher {
public:
    RowMatcher(const Criteria& criteria, QList<std::pair<QString, int>> columns)
        : m_criteria(criteria)
        , m_columns(std::move(columns))
        , m_reader([this](const QString& name) { return read(name); })
    {}
    RowMatcher(const RowMatcher&) = delete;
    RowMatcher& operator=(const RowMatcher&) = delete;

    bool matches(const StoredRow& row)
    {
        if (m_criteria.isEmpty())
            return true;
        m_row = &row;
        return m_criteria.matches(m_reader);
    }

private:
    Value read(const QString& name) const
    {
        for (const auto& [field, column] : m_columns) {
            if (field.compare(name, Qt::CaseInsensitive) == 0)
                return m_row->values.at(column);
        }
        throw RuntimeError(RuntimeError::ItemNotFound,
                           QStringLiteral("Item cannot be found in the collection"));
    }

    const Criteria& m_criteria;
    const QList<std::pair<QString, int>> m_columns;
    const StoredRow* m_row = nullptr;
    const Criteria::FieldReader m_reader;
};

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
    connectStore();
}

Recordset::~Recordset() = default;

void Recordset::connectStore()
{
    connect(m_store.get(), &RowStore::rowsChanged, this, &Recordset::rebuildViewKeepingCurrent);
    connect(m_store.get(), &RowStore::rowAdded, this, &Recordset::showAddedRow);
    connect(m_store.get(), &RowStore::valueChanged, this, &Recordset::rowChanged);
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

void Recordset::setValue(QStringView field, const Value& value)
{
    if (isReadOnly())
        throw RuntimeError(RuntimeError::OperationNotAllowed,
                           QStringLiteral("The recordset is read-only"));
    const int index = requireField(field);
    RowStore::Row& row = currentRowData();
    if (identical(row.values.at(index), value))
        return;
    if (row.status == RowStatus::Unmodified) {
        row.original = row.values;
        row.status = RowStatus::Modified;
    } else if (!row.editing) {
        row.beforeEdit = row.values;
    }
    row.editing = true;
    row.values.set(index, value);
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
    // A few lookups scan the view; a run of them (every row of a grid) earns an index.
    constexpr int scansBeforeIndexing = 8;
    if (m_positions.isEmpty() && ++m_lookupsSinceChange <= scansBeforeIndexing)
        return m_view.indexOf(bookmark);
    if (m_positions.isEmpty()) {
        m_positions.reserve(m_view.size());
        for (qsizetype i = 0; i < m_view.size(); ++i)
            m_positions.insert(m_view[i], i);
    }
    return m_positions.value(bookmark, -1);
}

void Recordset::setView(QList<Bookmark> view)
{
    m_view = std::move(view);
    m_positions.clear();
    m_lookupsSinceChange = 0;
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

std::optional<QList<Recordset::Bookmark>>
Recordset::filterCandidates(const Criteria& criteria) const
{
    // The row an AddNew is filling is shown whatever the filter says: the whole scan finds it.
    if (m_filterGroup != FilterGroup::None || m_store->adding)
        return std::nullopt;
    const auto equality = criteria.textEquality();
    if (!equality)
        return std::nullopt;
    return m_store->rowsWithText(requireField(equality->first), equality->second);
}

QList<std::pair<QString, int>> Recordset::criteriaColumns(const Criteria& criteria) const
{
    QList<std::pair<QString, int>> columns;
    for (const QString& name : criteria.fields())
        columns.append({name, requireField(name)});
    return columns;
}

bool Recordset::find(const QString& criterion, qsizetype skip, bool forward)
{
    const Criteria criteria = Criteria::parse(criterion);
    RowMatcher matcher(criteria, criteriaColumns(criteria));
    qsizetype index = std::clamp<qsizetype>(m_index, 0, qMax<qsizetype>(m_view.size() - 1, 0));
    index += forward ? skip : -skip;
    for (; index >= 0 && index < m_view.size(); index += forward ? 1 : -1) {
        const RowStore::Row* row = m_store->find(m_view[index]);
        if (row && matcher.matches(*row)) {
            setCurrentIndex(index);
            return true;
        }
    }
    setCurrentIndex(forward ? m_view.size() : -1);
    return false;
}

void Recordset::setFilter(const QString& criteria)
{
    const Criteria parsed = Criteria::parse(criteria);
    for (const QString& name : parsed.fields())
        requireField(name);
    m_filter = criteria;
    m_filterGroup = FilterGroup::None;
    rebuildView(0);
    m_index = 0;
    Q_EMIT currentChanged();
}

void Recordset::setFilter(FilterGroup group)
{
    m_filter.clear();
    m_filterGroup = group;
    rebuildView(0);
    m_index = 0;
    Q_EMIT currentChanged();
}

QString Recordset::filter() const
{
    return m_filter;
}

void Recordset::setSort(const QString& sort)
{
    m_sort = sort;
    const Bookmark keep = m_index >= 0 && m_index < m_view.size() ? m_view[m_index] : 0;
    rebuildView(keep);
}

QString Recordset::sort() const
{
    return m_sort;
}

void Recordset::rebuildViewKeepingCurrent()
{
    rebuildView(m_index >= 0 && m_index < m_view.size() ? m_view[m_index] : 0);
}

// The row being added is shown whatever the filter, after the rows already shown, as a rebuild
// would place it; only a sort or a view of conflicts needs every row considered again. Adding
// rows one by one thus costs each of them the same, however many the recordset holds.
void Recordset::showAddedRow(Bookmark added)
{
    if (!m_sort.trimmed().isEmpty() || m_filterGroup == FilterGroup::ConflictingRecords) {
        rebuildViewKeepingCurrent();
        return;
    }
    m_view.append(added);
    if (!m_positions.isEmpty())
        m_positions.insert(added, m_view.size() - 1);
    m_onDeleted = false;
    Q_EMIT rowAppended(added);
}

void Recordset::rebuildView(Bookmark keep)
{
    const Criteria criteria = Criteria::parse(m_filter);
    RowMatcher matcher(criteria, criteriaColumns(criteria));
    QList<Bookmark> view;
    const auto consider = [&](const RowStore::Row& row) {
        const bool pending = row.status != RowStatus::Unmodified;
        bool visible = row.status != RowStatus::Deleted;
        if (m_filterGroup == FilterGroup::PendingRecords)
            visible = pending;
        else if (m_filterGroup == FilterGroup::ConflictingRecords)
            visible = row.conflict;
        else if (visible && row.bookmark != m_store->adding)
            visible = matcher.matches(row);
        if (visible)
            view << row.bookmark;
    };
    if (const std::optional<QList<Bookmark>> candidates = filterCandidates(criteria)) {
        for (const Bookmark bookmark : *candidates) {
            if (const RowStore::Row* row = m_store->find(bookmark))
                consider(*row);
        }
    } else {
        view.reserve(m_store->rows().size());
        for (const RowStore::Row& row : m_store->rows())
            consider(row);
    }
    if (!m_sort.trimmed().isEmpty())
        sortView(view);
    setView(std::move(view));
    m_onDeleted = false;
    const qsizetype kept = keep ? m_view.indexOf(keep) : -1;
    if (kept >= 0)
        m_index = kept;
    else
        m_index = std::clamp<qsizetype>(m_index, 0, m_view.size());
    Q_EMIT rowsReset();
}

void Recordset::sortView(QList<Bookmark>& view) const
{
    struct Key {
        int column;
        bool descending;
    };
    QList<Key> keys;
    for (const QString& part : m_sort.split(u',', Qt::SkipEmptyParts)) {
        const QStringList words = part.simplified().split(u' ');
        const bool descending =
            words.size() > 1 && words[1].compare(QStringLiteral("DESC"), Qt::CaseInsensitive) == 0;
        keys << Key{requireField(words[0]), descending};
    }
    std::stable_sort(view.begin(), view.end(), [&](Bookmark a, Bookmark b) {
        const RowStore::Row* x = m_store->find(a);
        const RowStore::Row* y = m_store->find(b);
        for (const Key& key : keys) {
            const int c = compareValues(x->values.at(key.column), y->values.at(key.column));
            if (c != 0)
                return key.descending ? c > 0 : c < 0;
        }
        return false;
    });
}

RecordsetPtr Recordset::clone() const
{
    RecordsetPtr copy(new Recordset(m_store));
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
    PackedRow values;
    const TableInfo* info = m_store->connection && !m_store->baseTable.isEmpty()
                                ? &m_store->connection->tableInfo(m_store->baseTable)
                                : nullptr;
    for (const Column& column : std::as_const(m_store->columns)) {
        const TableInfo::ColumnInfo* base = info ? info->column(column.baseColumn) : nullptr;
        values.append(base && !column.baseColumn.isEmpty() ? base->defaultValue : Value::null());
    }
    const Bookmark added = m_store->append(std::move(values), RowStatus::New);
    m_store->adding = added;
    m_store->notifyRowAdded(added);
    m_index = viewPosition(added);
    Q_EMIT currentChanged();
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

void Recordset::writeRows(const QList<Bookmark>& bookmarks)
{
    requireWritable();
    if (!m_store->connection || m_store->baseTable.isEmpty())
        throw RuntimeError(
            RuntimeError::OperationNotAllowed,
            QStringLiteral("The rows come from no single table and cannot be written"));
    leaveEdit();
    Connection& connection = *m_store->connection;
    RowWriter writer(connection, m_store->baseTable, m_store->columns);

    QList<Bookmark> pending;
    for (Bookmark bookmark : bookmarks) {
        const RowStore::Row* row = m_store->find(bookmark);
        if (row && row->status != RowStatus::Unmodified && !row->awaitingCommit)
            pending << bookmark;
    }
    QList<Written> written;
    QList<Bookmark> refused;
    std::optional<QString> dropped; // why the database dropped the whole write
    {
        TransactionGuard transaction(connection);
        for (Bookmark bookmark : std::as_const(pending)) {
            RowStore::Row* row = m_store->find(bookmark);
            try {
                const RowWriter::Result result = writer.write(*row);
                row->conflict = result.outcome == RowWriter::Outcome::Conflict;
                row->error = row->conflict ? QStringLiteral("la riga è stata modificata o "
                                                            "eliminata da un altro utente dopo "
                                                            "la lettura")
                                           : QString();
                if (!row->conflict)
                    written << Written{bookmark, result.identity};
            } catch (const RuntimeError& e) {
                row->conflict = true;
                row->error = e.description();
                // The rows written so far went with the transaction, and the ones after it
                // would be committed on their own: nothing more is written.
                if (connection.transactionAborted()) {
                    dropped = e.description();
                    break;
                }
            }
            if (row->conflict)
                refused << bookmark;
        }
        if (!dropped) {
            try {
                transaction.commit();
            } catch (const RuntimeError& e) {
                dropped = e.description();
            }
        }
    }
    if (dropped) {
        const QStringList names = rowNames(pending);
        m_store->notifyRowsChanged();
        throw RuntimeError(RuntimeError::TransactionAborted,
                           QStringLiteral("Nessuna riga è stata scritta: il database ha annullato "
                                          "l'intera operazione.\n%1\nRighe non scritte: %2")
                               .arg(*dropped, names.join(QStringLiteral(", "))));
    }
    settleWhenCommitted(connection, std::move(written), writer.identityIndex());
    if (refused.isEmpty())
        return;
    QStringList reasons = rowNames(refused);
    for (qsizetype i = 0; i < refused.size(); ++i)
        reasons[i] += QStringLiteral(": ") + m_store->find(refused.at(i))->error;
    throw RuntimeError(RuntimeError::RowConflict,
                       QStringLiteral("Righe non scritte nel database: %1")
                           .arg(reasons.join(QStringLiteral("; "))));
}

void Recordset::settleWhenCommitted(Connection& connection, QList<Written> written,
                                    int identityIndex)
{
    for (const Written& w : std::as_const(written))
        m_store->find(w.bookmark)->awaitingCommit = true;
    const std::weak_ptr<RowStore> store = m_store;
    connection.whenTransactionEnds([store, written, identityIndex](bool committed) {
        const std::shared_ptr<RowStore> rows = store.lock();
        if (!rows)
            return;
        for (const Written& w : written) {
            RowStore::Row* row = rows->find(w.bookmark);
            if (!row)
                continue;
            row->awaitingCommit = false;
            if (!committed)
                continue;
            if (row->status == RowStatus::Deleted) {
                rows->remove(w.bookmark);
                continue;
            }
            if (row->status == RowStatus::New && identityIndex >= 0)
                row->values.set(identityIndex, w.identity);
            row->original.reset();
            row->status = RowStatus::Unmodified;
        }
        rows->notifyRowsChanged();
    });
}

QStringList Recordset::rowNames(const QList<Bookmark>& bookmarks) const
{
    // One walk over the rows gives every place, however many rows are named.
    QHash<Bookmark, qsizetype> places;
    qsizetype place = 0;
    for (const RowStore::Row& row : m_store->rows())
        places.insert(row.bookmark, row.status == RowStatus::Deleted ? 0 : ++place);
    QStringList names;
    for (const Bookmark bookmark : bookmarks) {
        const qsizetype at = places.value(bookmark);
        names << (at == 0 ? QStringLiteral("una riga eliminata")
                          : QStringLiteral("riga %1").arg(at));
    }
    return names;
}

void Recordset::updateBatch()
{
    QList<Bookmark> pending;
    for (const RowStore::Row& row : m_store->rows()) {
        if (row.status != RowStatus::Unmodified)
            pending << row.bookmark;
    }
    writeRows(pending);
}

void Recordset::updateCurrent()
{
    writeRows({currentRowData().bookmark});
}

bool Recordset::changedInDatabase() const
{
    if (!m_store->connection || !m_store->open)
        return false;
    // Rows compared whole and without regard to order: a text per row, sorted.
    const auto rowText = [](const ValueList& values) {
        QStringList texts;
        for (const Value& value : values)
            texts << (value.isNull() || value.isEmpty() ? QStringLiteral("\x01")
                                                        : value.toString());
        return texts.join(u'\x02');
    };
    QStringList read;
    for (const RowStore::Row& row : m_store->rows()) {
        if (row.status != RowStatus::New)
            read << rowText((row.original ? *row.original : row.values).toList());
    }
    QStringList now;
    for (const ValueList& values : m_store->connection->query(m_store->source).rows)
        now << rowText(values);
    read.sort();
    now.sort();
    return read != now;
}

QStringList Recordset::duplicatedUniqueKey() const
{
    const StoredRow& row = currentRowData();
    if (!m_store->connection || m_store->baseTable.isEmpty())
        return {};
    Connection& connection = *m_store->connection;
    const TableInfo& table = connection.tableInfo(m_store->baseTable);
    QList<QStringList> keys = table.uniqueKeys;
    // A primary key the person types (a code, not an identity) is taken the same way.
    if (table.identityColumn().isEmpty() && !table.primaryKey().isEmpty())
        keys << table.primaryKey();
    RowWriter writer(connection, m_store->baseTable, m_store->columns);
    for (const QStringList& key : std::as_const(keys)) {
        if (writer.anotherRowHolds(row, key))
            return key;
    }
    return {};
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
