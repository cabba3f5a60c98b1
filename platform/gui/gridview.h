#pragma once

#include "platform/gui/rowsview.h"

class QTableView;

namespace tarvello::gui {

class GridTableModel;

// A grid on a table view, over a table model of its rows.
class GridView final : public RowsView {
    Q_OBJECT
public:
    GridView(controls::Grid& grid, QTableView& table);

    GridTableModel& tableModel() const { return *m_model; }

protected:
    int gridRow(const QModelIndex& index) const override;
    QModelIndex indexOfRow(int gridRow) const override;
    int shownColumnCount() const override;
    int columnWidth(int shownColumn) const override;

private:
    GridTableModel* m_model; // Owned (QObject child).
};

} // namespace tarvello::gui
