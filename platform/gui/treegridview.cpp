#include "platform/gui/treegridview.h"

#include "platform/controls/treegrid.h"
#include "platform/gui/imagelibrary.h"
#include "platform/gui/treegridmodel.h"

#include <QHeaderView>
#include <QTimer>
#include <QTreeView>

namespace tarvello::gui {

TreeGridView::TreeGridView(controls::TreeGrid& tree, QTreeView& view)
    : RowsView(tree, view)
    , m_view(view)
    , m_model(new TreeGridModel(tree, this))
{
    view.setModel(m_model);
    view.setUniformRowHeights(true);
    view.setIconSize(QSize(ImageLibrary::pictureSize, ImageLibrary::pictureSize));
    view.header()->setStretchLastSection(false);
    view.header()->setHighlightSections(false);
    connect(&view, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { takeExpansion(index, true); });
    connect(&view, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { takeExpansion(index, false); });
    connectModel(*view.header());
    modelRebuilt();
}

int TreeGridView::gridRow(const QModelIndex& index) const
{
    return m_model->gridRow(index);
}

QModelIndex TreeGridView::indexOfRow(int gridRow) const
{
    return m_model->indexOfRow(gridRow);
}

int TreeGridView::shownColumnCount() const
{
    return m_model->columnCount();
}

int TreeGridView::columnWidth(int shownColumn) const
{
    return m_model->cells().width(shownColumn);
}

void TreeGridView::modelRebuilt()
{
    const auto* tree = model<controls::TreeGrid>();
    if (!tree)
        return;
    m_expanding = true;
    for (int row = 0; row < tree->rowCount(); ++row) {
        if (tree->hasChildren(row))
            m_view.setExpanded(indexOfRow(row), tree->isExpanded(row));
    }
    m_expanding = false;
}

void TreeGridView::takeExpansion(const QModelIndex& index, bool expanded)
{
    if (m_expanding)
        return;
    const int row = gridRow(index);
    // The grid rebuilds its rows, and so the model, when a node opens or closes: not while
    // the tree view is still inside its own expand handling.
    QTimer::singleShot(0, this, [this, row, expanded] {
        auto* tree = model<controls::TreeGrid>();
        if (tree && row >= 0 && row < tree->rowCount() && tree->isExpanded(row) != expanded)
            tree->setExpanded(row, expanded);
    });
}

} // namespace tarvello::gui
