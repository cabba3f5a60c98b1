#include "platform/gui/lookupdialog.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvello::gui {

LookupDialog::LookupDialog(const QString& title, const QStringList& headings,
                           const QList<QStringList>& rows, QWidget* parent)
    : QDialog(parent)
    , m_search(new QLineEdit(this))
    , m_table(new QTableView(this))
    , m_rows(new QStandardItemModel(this))
    , m_filtered(new QSortFilterProxyModel(this))
{
    setWindowTitle(title);
    qsizetype columns = headings.size();
    for (const QStringList& row : rows)
        columns = qMax(columns, row.size());
    m_rows->setColumnCount(int(columns));
    m_rows->setHorizontalHeaderLabels(headings);
    for (const QStringList& row : rows) {
        QList<QStandardItem*> items;
        for (const QString& text : row)
            items << new QStandardItem(text);
        m_rows->appendRow(items);
    }
    m_filtered->setSourceModel(m_rows);
    m_filtered->setFilterKeyColumn(-1);
    m_filtered->setFilterCaseSensitivity(Qt::CaseInsensitive);

    m_table->setModel(m_filtered);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->resizeColumnsToContents();
    m_table->installEventFilter(this);
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { pick(index.row()); });

    m_search->setPlaceholderText(tr("Cerca"));
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, &LookupDialog::narrow);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Scegli"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Chiudi"));
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { pick(highlightedRow()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_search);
    layout->addWidget(m_table, 1);
    layout->addWidget(buttons);
    resize(640, 400);
    narrow({});
    m_search->setFocus();
}

int LookupDialog::shownRowCount() const
{
    return m_filtered->rowCount();
}

void LookupDialog::narrow(const QString& text)
{
    m_filtered->setFilterFixedString(text);
    if (m_filtered->rowCount() > 0)
        m_table->selectRow(0);
}

int LookupDialog::highlightedRow() const
{
    const QModelIndex current = m_table->selectionModel()->currentIndex();
    return current.isValid() ? current.row() : 0;
}

void LookupDialog::pick(int shownRow)
{
    const QModelIndex shown = m_filtered->index(shownRow, 0);
    if (!shown.isValid())
        return;
    m_chosen = m_filtered->mapToSource(shown).row();
    accept();
}

bool LookupDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        pick(highlightedRow());
        return true;
    }
    if (watched == m_search && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        const int row = qBound(0, highlightedRow() + (key == Qt::Key_Down ? 1 : -1),
                               qMax(0, shownRowCount() - 1));
        m_table->selectRow(row);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace tarvello::gui
