#pragma once

#include "platform/gui/rowsview.h"

class QSortFilterProxyModel;
class QTableView;

namespace tarvello::gui {

class GridTableModel;

// A grid on a table view, over a table model of its rows. A table laid out with sorting on
// sorts its rows by a click on a heading (numbers and dates by value), in the view only: the
// grid and its recordset keep their order. It opens in the grid's order.
class GridView final : public RowsView {
    Q_OBJECT
public:
    GridView(controls::Grid& grid, QTableView& table);

    GridTableModel& tableModel() const { return *m_model; }

protected:
    int gridRow(const QModelIndex& index) const override;
    QModelIndex indexOfRow(int gridRow) const override;
    const GridCells& cells() const override;

private:
    GridTableModel* m_model;        // Owned (QObject child).
    QSortFilterProxyModel* m_shown; // Owned (QObject child): the rows in the order shown.
};

} // namespace tarvello::gui
