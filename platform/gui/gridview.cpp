#include "platform/gui/gridview.h"

#include "platform/gui/gridtablemodel.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>

namespace tarvello::gui {

GridView::GridView(controls::Grid& grid, QTableView& table)
    : RowsView(grid, table)
    , m_model(new GridTableModel(grid, this))
    , m_shown(new QSortFilterProxyModel(this))
{
    m_shown->setSourceModel(m_model);
    m_shown->setSortRole(GridCells::SortRole);
    m_shown->setSortCaseSensitivity(Qt::CaseInsensitive);
    const bool sortable = table.isSortingEnabled();
    table.setSortingEnabled(false);
    table.setModel(m_shown);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setStretchLastSection(true);
    if (sortable) {
        // No heading chosen yet: the rows in the grid's own order.
        table.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
        table.setSortingEnabled(true);
    }
    connectModel(*table.horizontalHeader());
}

int GridView::gridRow(const QModelIndex& index) const
{
    const QModelIndex row = index.model() == m_shown ? m_shown->mapToSource(index) : index;
    return row.isValid() ? row.row() : -1;
}

QModelIndex GridView::indexOfRow(int gridRow) const
{
    return m_shown->mapFromSource(m_model->index(gridRow, 0));
}

const GridCells& GridView::cells() const
{
    return m_model->cells();
}

} // namespace tarvello::gui
