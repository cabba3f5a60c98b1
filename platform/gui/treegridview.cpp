#include "platform/gui/treegridview.h"

#include "platform/controls/treegrid.h"
#include "platform/gui/imagelibrary.h"
#include "platform/gui/treegridmodel.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QTimer>
#include <QTreeView>
#include <utility>

namespace tarvello::gui {

TreeGridView::TreeGridView(controls::TreeGrid& tree, QTreeView& view)
    : RowsView(tree, view)
    , m_view(view)
    , m_model(new TreeGridModel(tree, this))
    , m_shown(new QSortFilterProxyModel(this))
{
    m_shown->setSourceModel(m_model);
    m_shown->setFilterKeyColumn(-1);
    m_shown->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_shown->setRecursiveFilteringEnabled(true);
    m_shown->setAutoAcceptChildRows(true);
    view.setModel(m_shown);
    view.setUniformRowHeights(true);
    // A narrower step keeps more of a deep name in sight.
    view.setIndentation(view.fontMetrics().averageCharWidth() * 2);
    view.setIconSize(QSize(ImageLibrary::pictureSize, ImageLibrary::pictureSize));
    view.header()->setStretchLastSection(false);
    view.header()->setHighlightSections(false);
    connect(&view, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { takeExpansion(index, true); });
    connect(&view, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { takeExpansion(index, false); });
    connectModel(*view.header());
    modelRebuilt();
    addFilterBox();
}

QKeySequence TreeGridView::filterKey()
{
    return QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F);
}

void TreeGridView::addFilterBox()
{
    QWidget* parent = m_view.parentWidget();
    auto* column = qobject_cast<QVBoxLayout*>(parent ? parent->layout() : nullptr);
    const int at = column ? column->indexOf(&m_view) : -1;
    if (at < 0)
        return;
    m_filterBox = new QLineEdit(parent);
    m_filterBox->setObjectName(QStringLiteral("filtroAlbero"));
    m_filterBox->setPlaceholderText(
        tr("Filtra per codice o nome (%1)").arg(filterKey().toString(QKeySequence::NativeText)));
    m_filterBox->setClearButtonEnabled(true);
    m_filterBox->installEventFilter(this);
    column->insertWidget(at, m_filterBox);
    connect(m_filterBox, &QLineEdit::textChanged, this, &TreeGridView::narrow);
}

void TreeGridView::narrow(const QString& text)
{
    auto* tree = model<controls::TreeGrid>();
    // Rows under collapsed nodes are not in the tree's rows until their nodes open; the nodes
    // the person had collapsed close again when the filter goes.
    if (tree && !text.isEmpty() && !m_collapsedBeforeFilter) {
        m_collapsedBeforeFilter = tree->collapsedNodes();
        tree->expandAll();
    }
    m_shown->setFilterFixedString(text);
    if (!text.isEmpty()) {
        m_expanding = true;
        m_view.expandAll();
        m_expanding = false;
    } else if (tree && m_collapsedBeforeFilter) {
        // Rows the filter had hidden come back collapsed in the view: the tree lays them out
        // again as its nodes say.
        tree->setCollapsedNodes(*std::exchange(m_collapsedBeforeFilter, std::nullopt));
    }
    showSelection();
}

void TreeGridView::goToFirstMatch()
{
    const QString text = m_filterBox->text();
    const auto holds = [this, &text](const QModelIndex& shown) {
        for (int column = 0; column < m_shown->columnCount(shown.parent()); ++column) {
            if (shown.siblingAtColumn(column).data().toString().contains(text, Qt::CaseInsensitive))
                return true;
        }
        return false;
    };
    // Depth first, the order the rows are drawn in.
    QList<QModelIndex> pending;
    for (int row = m_shown->rowCount() - 1; row >= 0; --row)
        pending << m_shown->index(row, 0);
    while (!pending.isEmpty()) {
        const QModelIndex shown = pending.takeLast();
        if (holds(shown)) {
            m_view.setFocus(Qt::ShortcutFocusReason);
            m_view.setCurrentIndex(shown);
            return;
        }
        for (int row = m_shown->rowCount(shown) - 1; row >= 0; --row)
            pending << m_shown->index(row, 0, shown);
    }
}

bool TreeGridView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_filterBox || event->type() != QEvent::KeyPress)
        return RowsView::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        goToFirstMatch();
        return true;
    case Qt::Key_Escape:
        m_filterBox->clear();
        return true;
    default:
        return false;
    }
}

int TreeGridView::gridRow(const QModelIndex& index) const
{
    return m_model->gridRow(index.model() == m_shown ? m_shown->mapToSource(index) : index);
}

QModelIndex TreeGridView::indexOfRow(int gridRow) const
{
    return m_shown->mapFromSource(m_model->indexOfRow(gridRow));
}

const GridCells& TreeGridView::cells() const
{
    return m_model->cells();
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
    if (m_filterBox && !m_filterBox->text().isEmpty())
        m_view.expandAll();
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
