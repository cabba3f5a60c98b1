#include "platform/gui/gridtablemodel.h"

#include "platform/controls/grid.h"

namespace tarvello::gui {

GridTableModel::GridTableModel(controls::Grid& grid, QObject* parent)
    : QAbstractTableModel(parent)
    , m_grid(&grid)
    , m_cells(grid)
{
    using controls::Grid;
    connect(&grid, &Grid::rowsReset, this, &GridTableModel::reset);
    connect(&grid, &Grid::rowsAboutToBeAppended, this,
            [this](int first, int last) { beginInsertRows(QModelIndex(), first, last); });
    connect(&grid, &Grid::rowsAppended, this, [this] { endInsertRows(); });
    connect(&grid, &Grid::columnsChanged, this, &GridTableModel::reset);
    connect(&grid, &Grid::dataSourceChanged, this, &GridTableModel::reset);
    connect(&grid, &Grid::rowsChanged, this, [this](int first, int last) {
        Q_EMIT dataChanged(index(first, 0), index(last, columnCount() - 1));
    });
    connect(&grid, &QObject::destroyed, this, &GridTableModel::reset);
}

void GridTableModel::reset()
{
    beginResetModel();
    if (m_grid)
        m_cells.refresh();
    endResetModel();
}

int GridTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_grid ? 0 : m_grid->rowCount();
}

int GridTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_grid ? 0 : m_cells.columnCount();
}

QVariant GridTableModel::data(const QModelIndex& index, int role) const
{
    return m_grid && index.isValid() ? m_cells.data(index.row(), index.column(), role) : QVariant();
}

QVariant GridTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || !m_grid)
        return QAbstractTableModel::headerData(section, orientation, role);
    return m_cells.heading(section, role);
}

} // namespace tarvello::gui
