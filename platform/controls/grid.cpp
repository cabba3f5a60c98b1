#include "platform/controls/grid.h"

#include "platform/controls/displayformat.h"
#include "platform/db/runtimeerror.h"

#include <QScopedValueRollback>

namespace tarvello::controls {

void Grid::setDataSource(db::RecordsetPtr recordset)
{
    if (m_source == recordset)
        return;
    for (const QMetaObject::Connection& c : std::as_const(m_sourceConnections))
        disconnect(c);
    m_sourceConnections.clear();
    m_source = std::move(recordset);
    if (m_source) {
        db::Recordset* source = m_source.get();
        m_sourceConnections = {
            connect(source, &db::Recordset::rowsReset, this, &Grid::reload),
            connect(source, &db::Recordset::rowAppended, this, &Grid::onRowAppended),
            connect(source, &db::Recordset::currentChanged, this, &Grid::updateSelection),
            connect(source, &db::Recordset::rowChanged, this, &Grid::onRowChanged),
        };
    }
    Q_EMIT dataSourceChanged();
    reload();
}

void Grid::setKeyColumn(const QString& field)
{
    if (m_keyColumn == field)
        return;
    m_keyColumn = field;
    Q_EMIT keyColumnChanged(field);
}

void Grid::addColumn(GridColumn column)
{
    if (column.key.isEmpty())
        column.key = column.field;
    m_columns.append(std::move(column));
    Q_EMIT columnsChanged();
}

void Grid::addColumn(const QString& field, const QString& caption, int width, const QString& format)
{
    GridColumn column;
    column.field = field;
    column.caption = caption;
    column.width = width;
    column.format = format;
    addColumn(std::move(column));
}

void Grid::clearColumns()
{
    if (m_columns.isEmpty())
        return;
    m_columns.clear();
    Q_EMIT columnsChanged();
}

int Grid::columnIndex(QStringView keyOrField) const
{
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).key == keyOrField)
            return int(i);
    }
    for (qsizetype i = 0; i < m_columns.size(); ++i) {
        if (m_columns.at(i).field == keyOrField)
            return int(i);
    }
    return -1;
}

// Applies a change to one column and announces it when something changed.
template <class Change>
void Grid::changeColumn(const QString& keyOrField, Change change)
{
    const int index = columnIndex(keyOrField);
    if (index >= 0 && change(m_columns[index]))
        Q_EMIT columnsChanged();
}

void Grid::setColumnNumeric(const QString& keyOrField, bool numeric)
{
    changeColumn(keyOrField,
                 [numeric](GridColumn& c) { return std::exchange(c.numeric, numeric) != numeric; });
}

void Grid::setColumnVisible(const QString& keyOrField, bool visible)
{
    changeColumn(keyOrField,
                 [visible](GridColumn& c) { return std::exchange(c.visible, visible) != visible; });
}

void Grid::setColumnCaption(const QString& keyOrField, const QString& caption)
{
    changeColumn(keyOrField, [&caption](GridColumn& c) {
        return std::exchange(c.caption, caption) != caption;
    });
}

void Grid::setColumnWidth(const QString& keyOrField, int width)
{
    changeColumn(keyOrField,
                 [width](GridColumn& c) { return std::exchange(c.width, width) != width; });
}

void Grid::setColumnFormat(const QString& keyOrField, const QString& format)
{
    changeColumn(keyOrField,
                 [&format](GridColumn& c) { return std::exchange(c.format, format) != format; });
}

void Grid::setColumnImageList(const QString& keyOrField, const QString& imageList)
{
    changeColumn(keyOrField, [&imageList](GridColumn& c) {
        return std::exchange(c.imageList, imageList) != imageList;
    });
}

Qt::Alignment Grid::alignment(int column) const
{
    const bool numeric = column >= 0 && column < m_columns.size() && m_columns.at(column).numeric;
    return (numeric ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

db::Value Grid::valueAt(db::Recordset::Bookmark bookmark, QStringView field) const
{
    if (!m_reader)
        return {};
    try {
        m_reader->setBookmark(bookmark);
        return m_reader->value(field);
    } catch (const db::RuntimeError&) {
        return {};
    }
}

db::Value Grid::value(int row, QStringView field) const
{
    if (row < 0 || row >= m_rows.size())
        return {};
    return valueAt(m_rows.at(row), field);
}

db::Value Grid::cellValue(int row, int column) const
{
    if (column < 0 || column >= m_columns.size())
        return {};
    return value(row, m_columns.at(column).field);
}

QString Grid::cellText(int row, int column)
{
    if (column < 0 || column >= m_columns.size() || row < 0 || row >= m_rows.size())
        return {};
    const GridColumn& layout = m_columns.at(column);
    if (layout.isPicture())
        return {};
    CellTextArgs args;
    args.row = row;
    args.field = layout.field;
    args.value = value(row, layout.field);
    args.text = formatForDisplay(args.value, layout.format);
    // Cell texts are asked for while the grid is drawn, where a report would be drawn over
    // and over: a failing handler leaves the text as far as it got, and the grid goes on.
    try {
        Q_EMIT cellTextRequested(args);
    } catch (const db::RuntimeError&) {
    }
    return args.text;
}

QString Grid::pictureKey(int row, int column) const
{
    if (column < 0 || column >= m_columns.size() || !m_columns.at(column).isPicture())
        return {};
    return cellValue(row, column).toString().trimmed();
}

db::Value Grid::rowKey(int row) const
{
    return m_keyColumn.isEmpty() ? db::Value() : value(row, m_keyColumn);
}

std::optional<db::Recordset::Bookmark> Grid::sourceBookmark() const
{
    if (!m_source || !m_source->isOpen() || m_source->bof() || m_source->eof())
        return std::nullopt;
    try {
        return m_source->bookmark();
    } catch (const db::RuntimeError&) {
        return std::nullopt;
    }
}

bool Grid::clickRow(int row)
{
    if (!canReceiveFocus() || row < 0 || row >= m_rows.size())
        return false;
    try {
        m_source->setBookmark(m_rows.at(row));
    } catch (const db::RuntimeError&) {
        return false;
    }
    updateSelection();
    raise("Click", [this] { Q_EMIT clicked(); });
    return true;
}

void Grid::selectCurrentRow()
{
    updateSelection();
    raise("Click", [this] { Q_EMIT clicked(); });
}

std::optional<db::Recordset::Bookmark> Grid::bookmarkOfKey(const db::Value& key) const
{
    if (key.isBlank() || m_keyColumn.isEmpty())
        return std::nullopt;
    // Read afresh: the grid's own rows may still be those of a source just replaced.
    const db::RecordsetPtr rows = m_source->clone();
    rows->setFilter(m_source->filter());
    for (rows->moveFirst(); !rows->eof(); rows->moveNext()) {
        if (rows->value(m_keyColumn) == key)
            return rows->bookmark();
    }
    return std::nullopt;
}

bool Grid::showKey(const std::optional<db::Value>& key)
{
    if (!m_source || !m_source->isOpen())
        return false;
    try {
        const std::optional<db::Recordset::Bookmark> row = key ? bookmarkOfKey(*key) : std::nullopt;
        if (row && sourceBookmark() != row)
            m_source->setBookmark(*row);
        else if (!row && sourceBookmark()) {
            m_source->moveFirst();
            m_source->movePrevious();
        }
        return row.has_value();
    } catch (const db::RuntimeError&) {
        return false;
    }
}

void Grid::refresh()
{
    reload();
}

void Grid::reload()
{
    m_reader.reset();
    m_recordOrder.clear();
    if (m_source && m_source->isOpen()) {
        try {
            m_reader = m_source->clone();
            if (m_reader->filter() != m_source->filter())
                m_reader->setFilter(m_source->filter());
            if (m_reader->sort() != m_source->sort())
                m_reader->setSort(m_source->sort());
            if (m_reader->recordCount() > 0) {
                for (m_reader->moveFirst(); !m_reader->eof(); m_reader->moveNext())
                    m_recordOrder.append(m_reader->bookmark());
            }
        } catch (const db::RuntimeError&) {
            m_recordOrder.clear();
        }
    }
    rearrange();
}

void Grid::rearrange()
{
    const QScopedValueRollback arranging(m_arranging, true);
    m_rows = arrangeRows(m_recordOrder);
    m_rowOf.clear();
    Q_EMIT rowsReset();
    updateSelection();
}

// Rows added one by one (a list of customers handed to a route) thus cost each the same,
// however many the grid already shows.
void Grid::onRowAppended(db::Recordset::Bookmark bookmark)
{
    if (!m_reader || !appendsInPlace()) {
        reload();
        return;
    }
    const int row = int(m_rows.size());
    Q_EMIT rowAboutToBeAppended(row);
    m_rows.append(bookmark);
    m_recordOrder.append(bookmark);
    Q_EMIT rowAppended(row);
    updateSelection();
}

QList<db::Recordset::Bookmark> Grid::arrangeRows(const QList<db::Recordset::Bookmark>& rows)
{
    return rows;
}

void Grid::updateSelection()
{
    const std::optional<db::Recordset::Bookmark> current = sourceBookmark();
    int row = -1;
    if (current) {
        row = rowOf(*current);
        if (row < 0 && !m_arranging && !m_recordOrder.contains(*current)) {
            // A row the clone has not seen yet (added without a reset): read again.
            reload();
            return;
        }
        if (row < 0 && !m_arranging && revealRow(*current)) {
            rearrange();
            return;
        }
    }
    if (row == m_selected)
        return;
    m_selected = row;
    Q_EMIT selectedRowChanged(row);
}

void Grid::onRowChanged(db::Recordset::Bookmark bookmark)
{
    const int row = rowOf(bookmark);
    if (row >= 0)
        Q_EMIT rowChanged(row);
}

} // namespace tarvello::controls
