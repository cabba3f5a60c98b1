#pragma once

#include "platform/controls/grid.h"

#include <QSet>

namespace tarvello::controls {

// A grid that shows its rows as a tree: each row hangs under the row whose key column
// holds its parent column's value. Rows whose parent is empty, 0, itself or not among the
// rows are roots; siblings keep the recordset's order; rows are listed depth first, and the
// rows of a collapsed node are not shown. A cycle of parents is broken where it is first met.
//
// The outline column is the one that carries the tree's drawing (indentation, expand buttons
// and the picture of the row's kind); the key and parent columns serve the tree, not the
// reader, so views leave them out.
//
// Every node starts expanded. With followDataSource on, moving the recordset to a row
// hidden under collapsed nodes expands them, so the selection can show it.
class TreeGrid : public Grid {
    Q_OBJECT
public:
    using Grid::Grid;

    QString nodeKeyColumn() const { return m_keyField; }
    QString parentColumn() const { return m_parentField; }
    void setTreeColumns(const QString& keyField, const QString& parentField);
    // A column's key or field; empty: the first column a view shows.
    QString outlineColumn() const { return m_outline; }
    void setOutlineColumn(const QString& keyOrField);
    // Whether the column is the node key or the parent column.
    bool isTreeKeyColumn(int column) const;
    bool followsDataSource() const { return m_follow; }
    void setFollowDataSource(bool follow);

    int depth(int row) const;
    bool hasChildren(int row) const;
    bool isExpanded(int row) const;
    void setExpanded(int row, bool expanded);
    void expandAll();
    void collapseAll();
    // The collapsed nodes by key, to be given back after a while with everything expanded.
    QSet<QString> collapsedNodes() const { return m_collapsed; }
    // Collapses exactly these nodes, except those above the data source's row when the tree
    // follows it, so the row on view stays in sight.
    void setCollapsedNodes(const QSet<QString>& keys);

Q_SIGNALS:
    void treeColumnsChanged();
    void followDataSourceChanged(bool follow);

protected:
    QList<db::Recordset::Bookmark> arrangeRows(const QList<db::Recordset::Bookmark>& rows) override;
    bool revealRow(db::Recordset::Bookmark bookmark) override;
    // A row's place in the tree depends on the others.
    bool appendsInPlace() const override { return false; }

private:
    struct Node {
        QString key;
        std::optional<db::Recordset::Bookmark> parent;
        int depth = 0;
        bool hasChildren = false;
    };
    const Node* nodeAt(int row) const;

    QString m_keyField;
    QString m_parentField;
    QString m_outline;
    bool m_follow = true;
    QSet<QString> m_collapsed;
    QHash<db::Recordset::Bookmark, Node> m_nodes;
};

} // namespace tarvello::controls
