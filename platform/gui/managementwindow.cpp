#include "platform/gui/managementwindow.h"

#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/hosttoolbar.h"
#include "platform/services/management/tablemanagement.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>

namespace tarvello::gui {

namespace {

using services::TableManagement;

// Beyond this many fields the record lays them out in two columns.
constexpr int fieldsInOneColumn = 4;
// Fields for codes this short get a width to match.
constexpr int shortField = 12;

QPushButton* addButton(QHBoxLayout& row, const QString& name, QWidget* parent)
{
    auto* button = new QPushButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    row.addWidget(button);
    return button;
}

} // namespace

ManagementWindow::ManagementWindow(TableManagement& management, services::HostNavigator& navigator,
                                   services::UserPrompts& prompts, QWidget* parent)
    : QDialog(parent)
    , m_management(management)
    , m_table(new QTableView(this))
{
    auto* layout = new QVBoxLayout(this);
    frame::GestAnagrafica* record = management.recordFrame();
    if (record) {
        auto* bar = new QToolBar(this);
        bar->setIconSize(QSize(20, 20));
        m_toolbar =
            std::make_unique<HostToolbar>(*bar, navigator, prompts, HostToolbar::recordButtons());
        layout->addWidget(bar);
        connect(record, &frame::GestAnagrafica::stateChanged, this,
                [this] { m_toolbar->showFrameState(true); });
    }

    auto* searchRow = new QHBoxLayout;
    auto* search = new QLineEdit(this);
    search->setObjectName(TableManagement::SearchBox);
    QStringList searched;
    for (const QString& column : management.description().searchColumns) {
        if (const services::ManagedColumn* described = management.description().column(column))
            searched << described->caption.toLower();
    }
    search->setPlaceholderText(tr("Cerca per %1").arg(searched.join(QStringLiteral(", "))));
    search->setClearButtonEnabled(true);
    auto* searchLabel = new QLabel(tr("&Cerca:"), this);
    searchLabel->setBuddy(search);
    searchRow->addWidget(searchLabel);
    searchRow->addWidget(search, 1);
    layout->addLayout(searchRow);

    m_table->setObjectName(TableManagement::Rows);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionsClickable(true);
    m_table->horizontalHeader()->setSortIndicatorShown(true);
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->horizontalHeader()->setStretchLastSection(true);
    layout->addWidget(m_table, 1);
    if (record)
        layout->addWidget(buildRecord());

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    addButton(*buttons, TableManagement::ChooseButton, this)->setDefault(true);
    addButton(*buttons, TableManagement::CloseButton, this);
    layout->addLayout(buttons);

    FormBinder::bind(management.form(), *this);

    const controls::Grid& grid = management.grid();
    connect(m_table->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this, &grid](int section) {
                const controls::GridColumn& column = grid.columns().at(section);
                if (!column.checkBox)
                    m_management.sortBy(column.field);
            });
    connect(&management, &TableManagement::sorted, this, &ManagementWindow::showSort);
    connect(m_table, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        m_management.grid().clickRow(index.row());
        m_management.choose();
    });
    connect(m_table, &QTableView::clicked, this, [this, &grid](const QModelIndex& index) {
        if (!grid.columns().at(index.column()).checkBox)
            return;
        m_management.grid().clickRow(index.row());
        m_management.toggleTick();
    });
    connect(&management.form(), &controls::Form::unloaded, this, [this] { done(Accepted); });

    // Wide enough for the columns as the grid lays them out.
    resize(qBound(560, m_table->horizontalHeader()->length() + 60, 1100), record ? 600 : 480);
    if (m_toolbar)
        m_toolbar->showFrameState(true);
    management.form().find<controls::Field>(TableManagement::SearchBox)->setFocus();
}

ManagementWindow::~ManagementWindow() = default;

QWidget* ManagementWindow::buildRecord()
{
    auto* box = new QGroupBox(tr("Dati"), this);
    auto* grid = new QGridLayout(box);
    QList<const services::ManagedColumn*> editable;
    for (const services::ManagedColumn& column : m_management.description().columns) {
        if (column.editable)
            editable << &column;
    }
    const int perColumn =
        editable.size() > fieldsInOneColumn ? int(editable.size() + 1) / 2 : int(editable.size());
    for (int i = 0; i < editable.size(); ++i) {
        const services::ManagedColumn& column = *editable.at(i);
        auto* edit = new QLineEdit(box);
        edit->setObjectName(TableManagement::fieldName(column.name));
        if (column.length() <= shortField)
            edit->setMaximumWidth(edit->fontMetrics().averageCharWidth() * (column.length() + 4) +
                                  16);
        auto* label = new QLabel(column.caption + u':', box);
        label->setBuddy(edit);
        const int row = i % perColumn;
        const int pair = (i / perColumn) * 2;
        grid->addWidget(label, row, pair);
        grid->addWidget(edit, row, pair + 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return box;
}

void ManagementWindow::showSort(const QString& column, bool ascending)
{
    m_table->horizontalHeader()->setSortIndicator(m_management.grid().columnIndex(column),
                                                  ascending ? Qt::AscendingOrder
                                                            : Qt::DescendingOrder);
}

void ManagementWindow::reject()
{
    if (m_management.form().isLoaded())
        m_management.close();
    else
        QDialog::reject();
}

} // namespace tarvello::gui
