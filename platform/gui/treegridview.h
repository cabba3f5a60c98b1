#pragma once

#include "platform/gui/rowsview.h"

#include <QKeySequence>
#include <QSet>
#include <optional>

class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace tarvello::controls {
class TreeGrid;
}

namespace tarvello::gui {

class TreeGridModel;

// A tree grid on a tree view. The nodes the grid has expanded are expanded in the view;
// a node the person expands or collapses is expanded or collapsed on the grid.
//
// A filter box above the tree (when the tree's parent lays it out in a column) narrows the
// rows as the person types: rows holding the text in any column, with the rows above them
// so the hierarchy stays in sight, and the rows below a row that holds it. Down or Enter in
// the box goes to the first row holding the text (showing it, as a click would); Esc clears
// the box.
class TreeGridView final : public RowsView {
    Q_OBJECT
public:
    TreeGridView(controls::TreeGrid& tree, QTreeView& view);

    TreeGridModel& treeModel() const { return *m_model; }
    // nullptr when the tree's parent has no column layout to put it in.
    QLineEdit* filterBox() const { return m_filterBox; }
    // The key that puts the keyboard in the filter box.
    static QKeySequence filterKey();

protected:
    int gridRow(const QModelIndex& index) const override;
    QModelIndex indexOfRow(int gridRow) const override;
    const GridCells& cells() const override;
    void modelRebuilt() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addFilterBox();
    void narrow(const QString& text);
    void goToFirstMatch();
    void takeExpansion(const QModelIndex& index, bool expanded);

    QTreeView& m_view;                // Not owned: the widget this view watches.
    TreeGridModel* m_model;           // Owned (QObject child).
    QSortFilterProxyModel* m_shown;   // Owned (QObject child): the rows the filter leaves.
    QLineEdit* m_filterBox = nullptr; // Owned by the tree's parent widget.
    bool m_expanding = false;
    // While the filter box holds a text: the nodes collapsed before it was typed.
    std::optional<QSet<QString>> m_collapsedBeforeFilter;
};

} // namespace tarvello::gui
