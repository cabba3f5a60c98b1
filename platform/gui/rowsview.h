#pragma once

#include "platform/gui/controlview.h"

class QAbstractItemView;
class QHeaderView;
class QModelIndex;

namespace tarvello::controls {
class Grid;
}

namespace tarvello::gui {

// What a table and a tree showing a grid share: the column widths of the layout, and the
// selection, which is the grid's selected row (its recordset's current row) and follows
// it. A row the person picks is clicked on the grid, which moves the recordset there; a
// pick made while the grid could not take the focus (a field refused to let it go) is
// taken back.
class RowsView : public ControlView {
    Q_OBJECT
public:
    RowsView(controls::Grid& grid, QAbstractItemView& view);

protected:
    // Called by subclasses once their item model is set.
    void connectModel(QHeaderView& header);
    virtual int gridRow(const QModelIndex& index) const = 0;
    virtual QModelIndex indexOfRow(int gridRow) const = 0;
    virtual int shownColumnCount() const = 0;
    virtual int columnWidth(int shownColumn) const = 0;
    // After the model was rebuilt, before the selection is shown again.
    virtual void modelRebuilt() {}

    void showSelection();

private:
    void showColumnWidths();
    void takePick(const QModelIndex& current);

    QAbstractItemView& m_view;       // Not owned: the widget this view watches.
    QHeaderView* m_header = nullptr; // Not owned: the item view's.
    bool m_showing = false;
};

} // namespace tarvello::gui
