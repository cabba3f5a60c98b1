#pragma once

#include <QList>
#include <QVariant>

namespace tarvello::controls {
class Grid;
}

namespace tarvello::gui {

// What an item model shows of a grid's cells: the visible columns of its layout, each
// cell's text (as the grid gives it, after its text hook), alignment and picture, and the
// column captions and widths.
class GridCells {
public:
    // The role a cell's value is sorted by: numbers and dates as such, the rest as shown.
    static constexpr int SortRole = Qt::UserRole + 1;

    explicit GridCells(controls::Grid& grid);

    // Reads the column layout again: the visible columns in their order.
    void refresh();
    // Shows these grid columns, in this order.
    void show(const QList<int>& gridColumns) { m_columns = gridColumns; }
    int columnCount() const { return int(m_columns.size()); }
    // The grid's column of a shown column.
    int gridColumn(int shownColumn) const { return m_columns.value(shownColumn, -1); }
    QVariant data(int row, int shownColumn, int role) const;
    QVariant heading(int shownColumn, int role) const;
    // The width in pixels of a shown column, from the layout's twips.
    int width(int shownColumn) const;

private:
    QVariant sortKey(int row, int column) const;

    controls::Grid& m_grid; // Not owned: the model's owner outlives it.
    QList<int> m_columns;
};

} // namespace tarvello::gui
