#include "platform/db/rowstore.h"

#include "platform/db/criteria.h"

#include <algorithm>

namespace tarvello::db {

void RowStore::reset(QList<ValueList> rows)
{
    m_textIndexes.clear();
    m_rows.clear();
    m_rows.reserve(rows.size());
    m_index.clear();
    m_index.reserve(rows.size());
    adding = 0;
    for (ValueList& values : rows) {
        Row row;
        row.bookmark = m_next++;
        row.values = std::move(values);
        m_index.insert(row.bookmark, m_rows.size());
        m_rows.append(std::move(row));
    }
}

Recordset::Bookmark RowStore::append(ValueList values, Recordset::RowStatus status)
{
    m_textIndexes.clear();
    Row row;
    row.bookmark = m_next++;
    row.values = std::move(values);
    row.status = status;
    m_index.insert(row.bookmark, m_rows.size());
    m_rows.append(std::move(row));
    return m_rows.last().bookmark;
}

void RowStore::remove(Recordset::Bookmark bookmark)
{
    const auto found = m_index.constFind(bookmark);
    if (found == m_index.cend())
        return;
    m_textIndexes.clear();
    m_rows.removeAt(*found);
    if (adding == bookmark)
        adding = 0;
    reindex();
}

RowStore::Row* RowStore::find(Recordset::Bookmark bookmark)
{
    const auto found = m_index.constFind(bookmark);
    return found == m_index.cend() ? nullptr : &m_rows[*found];
}

const RowStore::Row* RowStore::find(Recordset::Bookmark bookmark) const
{
    const auto found = m_index.constFind(bookmark);
    return found == m_index.cend() ? nullptr : &m_rows[*found];
}

std::optional<QList<Recordset::Bookmark>> RowStore::rowsWithText(int column,
                                                                 const QString& text) const
{
    auto built = m_textIndexes.constFind(column);
    if (built == m_textIndexes.cend()) {
        std::optional<QMultiHash<QString, qsizetype>> index(std::in_place);
        index->reserve(m_rows.size());
        for (qsizetype i = 0; i < m_rows.size(); ++i) {
            const ValueList& values = m_rows[i].values;
            if (column >= values.size())
                continue;
            const Value& value = values.at(column);
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
    for (int i = 0; i < columns.size(); ++i)
        m_columnIndex.insert(columns[i].name.toUpper(), i);
}

void RowStore::reindex()
{
    m_index.clear();
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        m_index.insert(m_rows[i].bookmark, i);
}

} // namespace tarvello::db
