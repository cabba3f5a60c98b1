#pragma once

#include "platform/gui/gridcells.h"

#include <QAbstractItemModel>
#include <QList>
#include <QPointer>

namespace tarvello::controls {
class TreeGrid;
}

namespace tarvello::gui {

// A tree grid's rows as a tree model. The grid lists its shown rows depth first with their
// depths; each row here hangs under the nearest row above it one level up. A node whose
// children the grid hides (collapsed) still says it has children, so the view offers to
// expand it; expanding is the grid's to do, and the model is rebuilt when it has.
//
// The grid's outline column comes first, with the picture of the grid's first picture
// column beside its text; the node key and parent columns are left out.
class TreeGridModel final : public QAbstractItemModel {
    Q_OBJECT
public:
    explicit TreeGridModel(controls::TreeGrid& tree, QObject* parent = nullptr);

    // The grid's row of an index (-1 for none) and back.
    int gridRow(const QModelIndex& index) const;
    QModelIndex indexOfRow(int gridRow, int column = 0) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    const GridCells& cells() const { return m_cells; }

private:
    void reset();
    void build();
    void arrangeColumns();
    const QList<int>& childrenOf(int gridRow) const;

    QPointer<controls::TreeGrid> m_tree; // Not owned: the form's.
    GridCells m_cells;
    // The grid column whose picture the outline column shows; -1 for none.
    int m_pictureColumn = -1;
    QList<int> m_roots;
    QList<int> m_parentOf;
    // Position of each row among its siblings.
    QList<int> m_positionOf;
    QList<QList<int>> m_children;
};

} // namespace tarvello::gui
