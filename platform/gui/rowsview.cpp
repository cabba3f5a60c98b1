#include "platform/gui/rowsview.h"

#include "platform/controls/grid.h"

#include <QAbstractItemView>
#include <QHeaderView>

namespace tarvello::gui {

RowsView::RowsView(controls::Grid& grid, QAbstractItemView& view)
    : ControlView(grid, view)
    , m_view(view)
{
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setAlternatingRowColors(true);
    watchKeys(*view.viewport());
    connect(&grid, &controls::Grid::selectedRowChanged, this, &RowsView::showSelection);
}

void RowsView::connectModel(QHeaderView& header)
{
    m_header = &header;
    connect(m_view.model(), &QAbstractItemModel::modelReset, this, [this] {
        modelRebuilt();
        showColumnWidths();
        showSelection();
    });
    connect(m_view.selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &RowsView::takePick);
    showColumnWidths();
    showSelection();
}

void RowsView::showColumnWidths()
{
    if (!m_header)
        return;
    for (int column = 0; column < shownColumnCount(); ++column) {
        if (const int width = columnWidth(column); width > 0)
            m_header->resizeSection(column, width);
    }
}

void RowsView::showSelection()
{
    const auto* grid = model<controls::Grid>();
    if (!grid || !m_view.selectionModel())
        return;
    m_showing = true;
    const QModelIndex current = indexOfRow(grid->selectedRow());
    if (current.isValid()) {
        m_view.selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect |
                                                              QItemSelectionModel::Rows);
        m_view.scrollTo(current);
    } else {
        m_view.selectionModel()->clear();
    }
    m_showing = false;
}

void RowsView::takePick(const QModelIndex& current)
{
    if (m_showing)
        return;
    auto* grid = model<controls::Grid>();
    const int row = gridRow(current);
    if (grid && row >= 0 && row != grid->selectedRow() && grid->hasFocus())
        grid->clickRow(row);
    showSelection();
}

} // namespace tarvello::gui
