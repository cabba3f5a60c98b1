#pragma once

#include "platform/gui/controlview.h"

#include <QHash>
#include <QVariantMap>

class QAbstractItemView;
class QHeaderView;
class QModelIndex;

namespace tarvello::controls {
class Grid;
}

namespace tarvello::gui {

class GridCells;

// What a table and a tree showing a grid share: the column widths, and the selection, which
// is the grid's selected row (its recordset's current row) and follows it. A row the person
// picks is clicked on the grid, which moves the recordset there; a pick made while the grid
// could not take the focus (a field refused to let it go) is taken back.
//
// A column starts at the layout's width; a width the person drags it to stays, over every
// reload of the rows, until the layout gives the column another width.
class RowsView : public ControlView {
    Q_OBJECT
public:
    RowsView(controls::Grid& grid, QAbstractItemView& view);

    // The widths the person gave columns, by column key (to keep between openings).
    QVariantMap columnWidths() const;
    void setColumnWidths(const QVariantMap& widths);

protected:
    // Called by subclasses once their item model is set.
    void connectModel(QHeaderView& header);
    virtual int gridRow(const QModelIndex& index) const = 0;
    virtual QModelIndex indexOfRow(int gridRow) const = 0;
    // The grid's cells as the item model shows them.
    virtual const GridCells& cells() const = 0;
    // After the model was rebuilt, before the selection is shown again.
    virtual void modelRebuilt() {}

    void showSelection();

private:
    QString columnKey(int shownColumn) const;
    void showColumnWidths();
    void takeWidth(int shownColumn, int width);
    void takePick(const QModelIndex& current);

    QAbstractItemView& m_view;       // Not owned: the widget this view watches.
    QHeaderView* m_header = nullptr; // Not owned: the item view's.
    // By column key: the layout's width last applied, and the width the person chose.
    QHash<QString, int> m_layoutWidths;
    QHash<QString, int> m_chosenWidths;
    bool m_showing = false;
    bool m_sizing = false;
};

} // namespace tarvello::gui
