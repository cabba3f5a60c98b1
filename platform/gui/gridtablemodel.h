#pragma once

#include "platform/gui/gridcells.h"

#include <QAbstractTableModel>
#include <QPointer>

namespace tarvello::controls {
class Grid;
}

namespace tarvello::gui {

// A grid's rows and visible columns as a read-only table model. It follows the grid: rows
// read again, columns laid out again, a row's values changed.
class GridTableModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit GridTableModel(controls::Grid& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    const GridCells& cells() const { return m_cells; }

private:
    void reset();

    QPointer<controls::Grid> m_grid; // Not owned: the form's.
    GridCells m_cells;
};

} // namespace tarvello::gui
