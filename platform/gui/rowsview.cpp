#include "platform/gui/rowsview.h"

#include "platform/controls/grid.h"
#include "platform/gui/gridcells.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QScopedValueRollback>

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
    connect(&header, &QHeaderView::sectionResized, this,
            [this](int logical, int, int width) { takeWidth(logical, width); });
    showColumnWidths();
    showSelection();
}

QString RowsView::columnKey(int shownColumn) const
{
    const auto* grid = model<controls::Grid>();
    const int column = cells().gridColumn(shownColumn);
    return grid && column >= 0 && column < grid->columnCount() ? grid->columns().at(column).key
                                                               : QString();
}

QVariantMap RowsView::columnWidths() const
{
    QVariantMap widths;
    for (auto it = m_chosenWidths.cbegin(); it != m_chosenWidths.cend(); ++it)
        widths.insert(it.key(), it.value());
    return widths;
}

void RowsView::setColumnWidths(const QVariantMap& widths)
{
    for (auto it = widths.cbegin(); it != widths.cend(); ++it) {
        if (const int width = it.value().toInt(); width > 0)
            m_chosenWidths.insert(it.key(), width);
    }
    showColumnWidths();
}

void RowsView::showColumnWidths()
{
    if (!m_header)
        return;
    const QScopedValueRollback sizing(m_sizing, true);
    for (int column = 0; column < cells().columnCount(); ++column) {
        const QString key = columnKey(column);
        const int layout = cells().width(column);
        // A new width in the layout is the module's: it wins over the person's.
        if (m_layoutWidths.value(key, layout) != layout)
            m_chosenWidths.remove(key);
        m_layoutWidths.insert(key, layout);
        if (const int width = m_chosenWidths.value(key, layout); width > 0)
            m_header->resizeSection(column, width);
    }
}

void RowsView::takeWidth(int shownColumn, int width)
{
    // The stretched last column follows the view's width, not the person.
    const bool stretched =
        m_header->stretchLastSection() && shownColumn == cells().columnCount() - 1;
    if (m_sizing || width <= 0 || stretched)
        return;
    if (const QString key = columnKey(shownColumn); !key.isEmpty())
        m_chosenWidths.insert(key, width);
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
