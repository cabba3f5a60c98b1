#include "platform/gui/gridview.h"

#include "platform/gui/gridtablemodel.h"

#include <QHeaderView>
#include <QTableView>

namespace tarvello::gui {

GridView::GridView(controls::Grid& grid, QTableView& table)
    : RowsView(grid, table)
    , m_model(new GridTableModel(grid, this))
{
    table.setModel(m_model);
    table.verticalHeader()->hide();
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 6);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setStretchLastSection(true);
    connectModel(*table.horizontalHeader());
}

int GridView::gridRow(const QModelIndex& index) const
{
    return index.isValid() ? index.row() : -1;
}

QModelIndex GridView::indexOfRow(int gridRow) const
{
    return m_model->index(gridRow, 0);
}

int GridView::shownColumnCount() const
{
    return m_model->columnCount();
}

int GridView::columnWidth(int shownColumn) const
{
    return m_model->cells().width(shownColumn);
}

} // namespace tarvello::gui
