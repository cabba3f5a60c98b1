#include "platform/db/rowstore.h"

#include "platform/db/criteria.h"

#include <algorithm>

namespace tarvello::db {

namespace {

constexpr qsizetype columnsFoundByScan = 16;

} // namespace

void RowStore::addHandle(Recordset* handle)
{
    m_handles.append(handle);
}

void RowStore::removeHandle(Recordset* handle)
{
    const qsizetype at = m_handles.indexOf(handle);
    if (at < 0)
        return;
    if (m_telling > 0)
        m_handles[at] = nullptr;
    else
        m_handles.removeAt(at);
}

void RowStore::reset(QList<PackedRow> rows)
{
    m_textIndexes.clear();
    m_rows.clear();
    m_rows.reserve(rows.size());
    dropIndex();
    adding = 0;
    newRow.reset();
    for (PackedRow& values : rows) {
        Row row;
        row.bookmark = m_next++;
        row.values = std::move(values);
        m_rows.append(std::move(row));
    }
}

Recordset::Bookmark RowStore::append(PackedRow values, Recordset::RowStatus status)
{
    m_textIndexes.clear();
    Row row;
    row.bookmark = m_next++;
    row.values = std::move(values);
    row.status = status;
    if (m_indexed)
        m_index.insert(row.bookmark, m_rows.size());
    m_rows.append(std::move(row));
    return m_rows.last().bookmark;
}

void RowStore::append(QList<PackedRow> rows, Recordset::RowStatus status)
{
    m_rows.reserve(m_rows.size() + rows.size());
    for (PackedRow& values : rows)
        append(std::move(values), status);
}

void RowStore::remove(Recordset::Bookmark bookmark)
{
    const qsizetype at = placeOf(bookmark);
    if (at < 0)
        return;
    m_textIndexes.clear();
    m_rows.removeAt(at);
    if (adding == bookmark)
        adding = 0;
    dropIndex();
}

RowStore::Row* RowStore::find(Recordset::Bookmark bookmark)
{
    const qsizetype at = placeOf(bookmark);
    return at < 0 ? nullptr : &m_rows[at];
}

const RowStore::Row* RowStore::find(Recordset::Bookmark bookmark) const
{
    const qsizetype at = placeOf(bookmark);
    return at < 0 ? nullptr : &m_rows[at];
}

qsizetype RowStore::placeOf(Recordset::Bookmark bookmark) const
{
    // Bookmarks are handed out in the order rows are kept: until a row is removed, a row's
    // place is its distance from the first one, found without a look-up in the index.
    if (!m_rows.isEmpty() && bookmark >= m_rows.first().bookmark) {
        const auto guess = qsizetype(bookmark - m_rows.first().bookmark);
        if (guess < m_rows.size() && m_rows.at(guess).bookmark == bookmark)
            return guess;
    }
    if (!m_indexed)
        buildIndex();
    const auto found = m_index.constFind(bookmark);
    return found == m_index.cend() ? -1 : *found;
}

std::optional<QList<Recordset::Bookmark>> RowStore::rowsWithText(int column,
                                                                 const QString& text) const
{
    auto built = m_textIndexes.constFind(column);
    if (built == m_textIndexes.cend()) {
        std::optional<QMultiHash<QString, qsizetype>> index(std::in_place);
        index->reserve(m_rows.size());
        for (qsizetype i = 0; i < m_rows.size(); ++i) {
            const PackedRow& values = m_rows[i].values;
            if (column >= values.size())
                continue;
            const Value value = values.at(column);
            if (value.isNull() || value.isEmpty())
                continue;
            if (value.kind() != Value::Kind::Text) {
                index.reset();
                break;
            }
            index->insert(comparedText(value.toString()).toCaseFolded(), i);
        }
        built = m_textIndexes.insert(column, std::move(index));
    }
    if (!*built)
        return std::nullopt;
    QList<qsizetype> positions = (*built)->values(comparedText(text).toCaseFolded());
    std::sort(positions.begin(), positions.end());
    QList<Recordset::Bookmark> bookmarks;
    bookmarks.reserve(positions.size());
    for (const qsizetype position : std::as_const(positions))
        bookmarks << m_rows[position].bookmark;
    return bookmarks;
}

int RowStore::columnIndex(QStringView name) const
{
    // Code names a field as the query spelled it nearly always: comparing lengths and
    // characters is cheaper than folding the case of the name for the index on every read.
    // A loop over the rows names the same field each time: the last one found is tried first.
    if (m_lastFound < columns.size() && columns[m_lastFound].name == name)
        return m_lastFound;
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].name == name)
            return m_lastFound = i;
    }
    if (m_columnIndex.size() != columns.size()) {
        for (int i = 0; i < columns.size(); ++i) {
            if (columns[i].name.compare(name, Qt::CaseInsensitive) == 0)
                return i;
        }
        return -1;
    }
    const auto found = m_columnIndex.constFind(name.toString().toUpper());
    return found == m_columnIndex.cend() ? -1 : *found;
}

void RowStore::indexColumns()
{
    m_columnIndex.clear();
    // A few names are found as fast by comparing them all; a hash's first storage is a large
    // allocation, which costs a lookup of one row more than reading it.
    if (columns.size() <= columnsFoundByScan)
        return;
    for (int i = 0; i < columns.size(); ++i)
        m_columnIndex.insert(columns[i].name.toUpper(), i);
}

void RowStore::buildIndex() const
{
    m_index.clear();
    m_index.reserve(m_rows.size());
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        m_index.insert(m_rows[i].bookmark, i);
    m_indexed = true;
}

void RowStore::dropIndex()
{
    m_index.clear();
    m_indexed = false;
}

} // namespace tarvello::db
