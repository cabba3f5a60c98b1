#pragma once

#include "platform/gui/rowsview.h"

class QTreeView;

namespace tarvello::controls {
class TreeGrid;
}

namespace tarvello::gui {

class TreeGridModel;

// A tree grid on a tree view. The nodes the grid has expanded are expanded in the view;
// a node the person expands or collapses is expanded or collapsed on the grid.
class TreeGridView final : public RowsView {
    Q_OBJECT
public:
    TreeGridView(controls::TreeGrid& tree, QTreeView& view);

    TreeGridModel& treeModel() const { return *m_model; }

protected:
    int gridRow(const QModelIndex& index) const override;
    QModelIndex indexOfRow(int gridRow) const override;
    int shownColumnCount() const override;
    int columnWidth(int shownColumn) const override;
    void modelRebuilt() override;

private:
    void takeExpansion(const QModelIndex& index, bool expanded);

    QTreeView& m_view;      // Not owned: the widget this view watches.
    TreeGridModel* m_model; // Owned (QObject child).
    bool m_expanding = false;
};

} // namespace tarvello::gui
