#include "platform/gui/gridcells.h"

#include "platform/controls/grid.h"
#include "platform/gui/imagelibrary.h"

namespace tarvello::gui {

namespace {

// Layout widths are twips: 15 to a pixel on a 96-dpi screen.
constexpr int twipsPerPixel = 15;

} // namespace

GridCells::GridCells(controls::Grid& grid)
    : m_grid(grid)
{
    refresh();
}

void GridCells::refresh()
{
    m_columns.clear();
    for (int column = 0; column < m_grid.columnCount(); ++column) {
        if (m_grid.columns().at(column).visible)
            m_columns << column;
    }
}

QVariant GridCells::data(int row, int shownColumn, int role) const
{
    const int column = gridColumn(shownColumn);
    if (column < 0 || row < 0 || row >= m_grid.rowCount())
        return {};
    const controls::GridColumn& layout = m_grid.columns().at(column);
    switch (role) {
    case Qt::DisplayRole:
        return layout.isPicture() || layout.checkBox ? QVariant()
                                                     : QVariant(m_grid.cellText(row, column));
    case Qt::CheckStateRole: {
        if (!layout.checkBox)
            return {};
        const db::Value ticked = m_grid.cellValue(row, column);
        return !ticked.isBlank() && ticked.toInt() != 0 ? Qt::Checked : Qt::Unchecked;
    }
    case Qt::DecorationRole:
        if (layout.isPicture()) {
            const QPixmap picture =
                ImageLibrary::picture(layout.imageList, m_grid.pictureKey(row, column));
            return picture.isNull() ? QVariant() : QVariant(picture);
        }
        return {};
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(m_grid.alignment(column) | Qt::AlignVCenter);
    case Qt::ToolTipRole:
        return layout.isPicture() ? QVariant() : QVariant(m_grid.cellText(row, column));
    case SortRole:
        return sortKey(row, column);
    default:
        return {};
    }
}

QVariant GridCells::sortKey(int row, int column) const
{
    const db::Value value = m_grid.cellValue(row, column);
    if (value.isNumeric())
        return value.toDouble();
    if (value.kind() == db::Value::Kind::Date)
        return value.toDateTime();
    return m_grid.cellText(row, column);
}

QVariant GridCells::heading(int shownColumn, int role) const
{
    const int column = gridColumn(shownColumn);
    if (column < 0)
        return {};
    if (role == Qt::DisplayRole)
        return m_grid.columns().at(column).caption;
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(m_grid.alignment(column) | Qt::AlignVCenter);
    return {};
}

int GridCells::width(int shownColumn) const
{
    const int column = gridColumn(shownColumn);
    return column < 0 ? 0 : m_grid.columns().at(column).width / twipsPerPixel;
}

} // namespace tarvello::gui
