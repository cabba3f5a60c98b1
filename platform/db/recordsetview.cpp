#include "platform/db/criteria.h"
#include "platform/db/recordset.h"
#include "platform/db/rowstore.h"
#include "platform/db/runtimeerror.h"

#include <algorithm>
#include <utility>

// Which rows a handle shows, and in what order: Find, Filter and Sort over the shared rows.

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

} // namespace

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

} // namespace tarvello::db
