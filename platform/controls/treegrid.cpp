#include "platform/controls/treegrid.h"

namespace tarvello::controls {

namespace {

QString keyText(const db::Value& value)
{
    return value.isBlank() ? QString() : value.toString().trimmed();
}

} // namespace

void TreeGrid::setTreeColumns(const QString& keyField, const QString& parentField)
{
    if (m_keyField == keyField && m_parentField == parentField)
        return;
    m_keyField = keyField;
    m_parentField = parentField;
    Q_EMIT treeColumnsChanged();
    rearrange();
}

void TreeGrid::setOutlineColumn(const QString& keyOrField)
{
    if (m_outline == keyOrField)
        return;
    m_outline = keyOrField;
    Q_EMIT treeColumnsChanged();
}

bool TreeGrid::isTreeKeyColumn(int column) const
{
    if (column < 0 || column >= columnCount())
        return false;
    const QString& field = columns().at(column).field;
    return !field.isEmpty() && (field == m_keyField || field == m_parentField);
}

void TreeGrid::setFollowDataSource(bool follow)
{
    if (m_follow == follow)
        return;
    m_follow = follow;
    Q_EMIT followDataSourceChanged(follow);
}

QList<db::Recordset::Bookmark> TreeGrid::arrangeRows(const QList<db::Recordset::Bookmark>& rows)
{
    m_nodes.clear();
    if (m_keyField.isEmpty() || m_parentField.isEmpty())
        return rows;

    QHash<QString, db::Recordset::Bookmark> byKey;
    QHash<db::Recordset::Bookmark, QString> parentKey;
    for (const db::Recordset::Bookmark row : rows) {
        const QString key = keyText(valueAt(row, m_keyField));
        m_nodes.insert(row, Node{key, std::nullopt, 0, false});
        parentKey.insert(row, keyText(valueAt(row, m_parentField)));
        if (!key.isEmpty() && !byKey.contains(key))
            byKey.insert(key, row);
    }

    QHash<db::Recordset::Bookmark, QList<db::Recordset::Bookmark>> children;
    QList<db::Recordset::Bookmark> roots;
    for (const db::Recordset::Bookmark row : rows) {
        const QString parent = parentKey.value(row);
        const auto found = byKey.constFind(parent);
        if (parent.isEmpty() || parent == u"0" || found == byKey.cend() || *found == row) {
            roots.append(row);
        } else {
            children[*found].append(row);
            m_nodes[*found].hasChildren = true;
            m_nodes[row].parent = *found;
        }
    }

    // Depth first from the roots, then from the first row of each cycle left unreached.
    QList<db::Recordset::Bookmark> ordered;
    QSet<db::Recordset::Bookmark> placed;
    auto place = [&](db::Recordset::Bookmark start) {
        QList<std::pair<db::Recordset::Bookmark, int>> stack{{start, 0}};
        while (!stack.isEmpty()) {
            const auto [row, depth] = stack.takeLast();
            if (placed.contains(row))
                continue;
            placed.insert(row);
            ordered.append(row);
            m_nodes[row].depth = depth;
            const QList<db::Recordset::Bookmark>& below = children.value(row);
            for (auto it = below.crbegin(); it != below.crend(); ++it)
                stack.append({*it, depth + 1});
        }
    };
    for (const db::Recordset::Bookmark root : std::as_const(roots))
        place(root);
    for (const db::Recordset::Bookmark row : rows) {
        if (!placed.contains(row)) {
            m_nodes[row].parent.reset();
            place(row);
        }
    }

    QList<db::Recordset::Bookmark> shown;
    QSet<db::Recordset::Bookmark> hidden;
    for (const db::Recordset::Bookmark row : std::as_const(ordered)) {
        const Node& node = m_nodes[row];
        const bool parentHidesIt =
            node.parent && (hidden.contains(*node.parent) ||
                            m_collapsed.contains(m_nodes.value(*node.parent).key));
        if (parentHidesIt)
            hidden.insert(row);
        else
            shown.append(row);
    }
    return shown;
}

bool TreeGrid::revealRow(db::Recordset::Bookmark bookmark)
{
    if (!m_follow || !m_nodes.contains(bookmark))
        return false;
    bool changed = false;
    for (auto parent = m_nodes.value(bookmark).parent; parent;
         parent = m_nodes.value(*parent).parent) {
        changed = m_collapsed.remove(m_nodes.value(*parent).key) || changed;
    }
    return changed;
}

const TreeGrid::Node* TreeGrid::nodeAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return nullptr;
    const auto it = m_nodes.constFind(bookmarkAt(row));
    return it == m_nodes.cend() ? nullptr : &*it;
}

int TreeGrid::depth(int row) const
{
    const Node* node = nodeAt(row);
    return node ? node->depth : 0;
}

bool TreeGrid::hasChildren(int row) const
{
    const Node* node = nodeAt(row);
    return node && node->hasChildren;
}

bool TreeGrid::isExpanded(int row) const
{
    const Node* node = nodeAt(row);
    return node && node->hasChildren && !m_collapsed.contains(node->key);
}

void TreeGrid::setExpanded(int row, bool expanded)
{
    const Node* node = nodeAt(row);
    if (!node || !node->hasChildren || isExpanded(row) == expanded)
        return;
    if (expanded)
        m_collapsed.remove(node->key);
    else
        m_collapsed.insert(node->key);
    rearrange();
}

void TreeGrid::expandAll()
{
    if (m_collapsed.isEmpty())
        return;
    m_collapsed.clear();
    rearrange();
}

void TreeGrid::setCollapsedNodes(const QSet<QString>& keys)
{
    m_collapsed = keys;
    if (const std::optional<db::Recordset::Bookmark> current = sourceBookmark())
        revealRow(*current);
    rearrange();
}

void TreeGrid::collapseAll()
{
    QSet<QString> parents;
    for (const Node& node : std::as_const(m_nodes)) {
        if (node.hasChildren)
            parents.insert(node.key);
    }
    if (parents == m_collapsed)
        return;
    m_collapsed = parents;
    rearrange();
}

} // namespace tarvello::controls
