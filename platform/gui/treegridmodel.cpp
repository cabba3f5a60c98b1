#include "platform/gui/treegridmodel.h"

#include "platform/controls/treegrid.h"
#include "platform/gui/imagelibrary.h"

#include <utility>

namespace tarvello::gui {

TreeGridModel::TreeGridModel(controls::TreeGrid& tree, QObject* parent)
    : QAbstractItemModel(parent)
    , m_tree(&tree)
    , m_cells(tree)
{
    using controls::TreeGrid;
    build();
    connect(&tree, &TreeGrid::rowsReset, this, &TreeGridModel::reset);
    connect(&tree, &TreeGrid::columnsChanged, this, &TreeGridModel::reset);
    connect(&tree, &TreeGrid::dataSourceChanged, this, &TreeGridModel::reset);
    connect(&tree, &TreeGrid::treeColumnsChanged, this, &TreeGridModel::reset);
    connect(&tree, &TreeGrid::rowsChanged, this, [this](int first, int last) {
        for (int row = first; row <= last; ++row)
            Q_EMIT dataChanged(indexOfRow(row, 0), indexOfRow(row, columnCount() - 1));
    });
    connect(&tree, &QObject::destroyed, this, &TreeGridModel::reset);
}

void TreeGridModel::reset()
{
    beginResetModel();
    build();
    endResetModel();
}

void TreeGridModel::build()
{
    m_roots.clear();
    m_parentOf.clear();
    m_positionOf.clear();
    m_children.clear();
    if (!m_tree)
        return;
    arrangeColumns();
    const int count = m_tree->rowCount();
    m_parentOf.fill(-1, count);
    m_positionOf.fill(0, count);
    m_children.resize(count);
    // The last row seen at each depth: a row's parent is the last one a level up.
    QList<int> lastAtDepth;
    for (int row = 0; row < count; ++row) {
        const int depth = qMin(m_tree->depth(row), int(lastAtDepth.size()));
        lastAtDepth.resize(depth + 1);
        lastAtDepth[depth] = row;
        QList<int>& siblings = depth == 0 ? m_roots : m_children[lastAtDepth.at(depth - 1)];
        if (depth > 0)
            m_parentOf[row] = lastAtDepth.at(depth - 1);
        m_positionOf[row] = int(siblings.size());
        siblings << row;
    }
}

void TreeGridModel::arrangeColumns()
{
    m_cells.refresh();
    m_pictureColumn = -1;
    const QString outlineName = m_tree->outlineColumn();
    const int named = outlineName.isEmpty() ? -1 : m_tree->columnIndex(outlineName);
    int outline = -1;
    QList<int> shown;
    for (int shownColumn = 0; shownColumn < m_cells.columnCount(); ++shownColumn) {
        const int column = m_cells.gridColumn(shownColumn);
        if (m_tree->isTreeKeyColumn(column))
            continue;
        if (column == named)
            outline = column;
        else if (m_tree->columns().at(column).isPicture() && m_pictureColumn < 0)
            m_pictureColumn = column;
        else
            shown << column;
    }
    if (outline >= 0)
        shown.prepend(outline);
    if (shown.isEmpty() && m_pictureColumn >= 0)
        shown << std::exchange(m_pictureColumn, -1);
    m_cells.show(shown);
}

const QList<int>& TreeGridModel::childrenOf(int gridRow) const
{
    return gridRow < 0 ? m_roots : m_children.at(gridRow);
}

int TreeGridModel::gridRow(const QModelIndex& index) const
{
    if (!index.isValid() || index.model() != this)
        return -1;
    return int(index.internalId()) - 1;
}

QModelIndex TreeGridModel::indexOfRow(int gridRow, int column) const
{
    if (gridRow < 0 || gridRow >= m_positionOf.size())
        return {};
    return createIndex(m_positionOf.at(gridRow), column, quintptr(gridRow + 1));
}

QModelIndex TreeGridModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column < 0 || column >= columnCount() || (parent.isValid() && parent.column() != 0))
        return {};
    const QList<int>& rows = childrenOf(gridRow(parent));
    if (row < 0 || row >= rows.size())
        return {};
    return createIndex(row, column, quintptr(rows.at(row) + 1));
}

QModelIndex TreeGridModel::parent(const QModelIndex& child) const
{
    const int row = gridRow(child);
    return row < 0 ? QModelIndex() : indexOfRow(m_parentOf.value(row, -1));
}

int TreeGridModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() && parent.column() != 0)
        return 0;
    return int(childrenOf(gridRow(parent)).size());
}

int TreeGridModel::columnCount(const QModelIndex&) const
{
    return m_tree ? m_cells.columnCount() : 0;
}

bool TreeGridModel::hasChildren(const QModelIndex& parent) const
{
    const int row = gridRow(parent);
    if (row < 0)
        return !parent.isValid() && !m_roots.isEmpty();
    return parent.column() == 0 && m_tree && m_tree->hasChildren(row);
}

QVariant TreeGridModel::data(const QModelIndex& index, int role) const
{
    const int row = gridRow(index);
    if (row < 0 || !m_tree)
        return {};
    if (role == Qt::DecorationRole && index.column() == 0 && m_pictureColumn >= 0) {
        const QPixmap picture =
            ImageLibrary::picture(m_tree->columns().at(m_pictureColumn).imageList,
                                  m_tree->pictureKey(row, m_pictureColumn));
        return picture.isNull() ? QVariant() : QVariant(picture);
    }
    return m_cells.data(row, index.column(), role);
}

QVariant TreeGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical || !m_tree)
        return QAbstractItemModel::headerData(section, orientation, role);
    return m_cells.heading(section, role);
}

} // namespace tarvello::gui
