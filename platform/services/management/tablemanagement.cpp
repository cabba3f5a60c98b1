#include "platform/services/management/tablemanagement.h"

#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/keycodes.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/columnvalue.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/frame/keysearch.h"
#include "platform/services/userprompts.h"

namespace tarvello::services {

const QString TableManagement::SearchBox = QStringLiteral("TXT_CERCA");
const QString TableManagement::Rows = QStringLiteral("GRD_RIGHE");
const QString TableManagement::ChooseButton = QStringLiteral("CMD_SCEGLI");
const QString TableManagement::CloseButton = QStringLiteral("CMD_CHIUDI");
const QString TableManagement::Frame = QStringLiteral("FME_GESTIONE");
const QString TableManagement::Tick = QStringLiteral("SCELTO");

namespace {

constexpr int Space = 32;
constexpr int Up = 38;
constexpr int Down = 40;
// Grid widths are twips; a character of the grid's font is about this wide.
constexpr int twipsPerCharacter = 130;
constexpr int widestColumn = 4500;

QString equals(const QString& column, const db::Value& value)
{
    return column + QStringLiteral(" = ") + value.sqlLiteral();
}

} // namespace

TableManagement::TableManagement(ManagementDescription description, UserPrompts& prompts,
                                 QObject* parent)
    : QObject(parent)
    , m_description(std::move(description))
    , m_prompts(prompts)
    , m_form(new controls::Form(m_description.name, this))
{
    m_form->setCaption(m_description.title);
    buildControls();
    connectEvents();
}

TableManagement::~TableManagement()
{
    if (m_frame)
        m_frame->terminate();
}

QString TableManagement::fieldName(const QString& column)
{
    return QStringLiteral("TXT_") + column;
}

void TableManagement::buildControls()
{
    m_search = m_form->add<controls::Field>(SearchBox);
    m_search->setCaption(QStringLiteral("Cerca"));
    m_grid = m_form->add<controls::Grid>(Rows);
    if (m_description.choice == ManagementDescription::Choice::SeveralRows) {
        controls::GridColumn tick;
        tick.field = Tick;
        tick.width = 350;
        tick.checkBox = true;
        m_grid->addColumn(tick);
    }
    for (const ManagedColumn& column : m_description.columns) {
        if (!column.shown)
            continue;
        const int characters = qMax(column.length(), int(column.caption.size()));
        m_grid->addColumn(column.name, column.caption,
                          qMin(widestColumn, (characters + 2) * twipsPerCharacter),
                          column.displayFormat());
        m_grid->setColumnNumeric(column.name, column.isNumber());
    }
    if (!m_description.isList()) {
        m_frame = new frame::GestAnagrafica(m_prompts, m_form);
        m_frame->setObjectName(Frame);
        m_frame->setWriteMode(frame::GestAnagrafica::WriteMode::AtOnce);
        m_frame->setDescription(QStringLiteral("la gestione %1").arg(m_description.title));
        for (const ManagedColumn& column : m_description.columns) {
            if (column.editable)
                addField(column);
        }
    }
    auto* choose = m_form->add<controls::Button>(ChooseButton);
    choose->setCaption(QStringLiteral("&Scegli"));
    choose->setVisible(m_description.choice != ManagementDescription::Choice::None);
    m_form->add<controls::Button>(CloseButton)->setCaption(QStringLiteral("&Chiudi"));
}

void TableManagement::addField(const ManagedColumn& column)
{
    auto* field = m_form->add<controls::Field>(fieldName(column.name),
                                               column.isNumber() ? controls::Field::Kind::Numeric
                                                                 : controls::Field::Kind::Text);
    field->setCaption(column.caption);
    field->setDataField(column.name);
    field->setMaxLength(column.length());
    field->setDisplayFormat(column.displayFormat());
    field->setUpperCase(column.upperCase);
    field->setNumbersOnly(column.isNumber());
    field->setRequired(column.required);
}

void TableManagement::connectEvents()
{
    connect(m_search, &controls::Field::textChanged, this, [this](const QString& text) {
        if (!search(text))
            m_search->setText(m_searched);
    });
    for (controls::Control* control : m_form->controls()) {
        connect(
            control, &controls::Control::keyDown, this,
            [this, inGrid = control == m_grid](controls::KeyArgs& args) { onKey(args, inGrid); });
    }
    connect(m_form->find<controls::Button>(ChooseButton), &controls::Button::clicked, this,
            &TableManagement::choose);
    connect(m_form->find<controls::Button>(CloseButton), &controls::Button::clicked, this,
            &TableManagement::close);
    connect(m_form, &controls::Form::queryClose, this, [this](controls::CloseArgs& args) {
        if (!settle())
            args.cancel = true;
    });
    if (m_frame) {
        connect(m_frame, &frame::GestAnagrafica::AfterAddNew, this, [this](int result) {
            if (result == frame::OperationSucceeded)
                fillNewRow();
        });
        connect(m_frame, &frame::GestAnagrafica::ChangeStatus, this,
                [this](int status, int) { showKeyFields(frame::FrameStatus(status)); });
    }
}

void TableManagement::open(const ManagementOpening& opening)
{
    m_opening = opening;
    m_connection.open(opening.connectionString);
    openRows();
    m_form->load();
    if (!opening.searchText.isEmpty())
        m_search->setText(opening.searchText);
}

QString TableManagement::ownRowsFilter() const
{
    QStringList conditions;
    if (!m_description.companyColumn.isEmpty())
        conditions << equals(m_description.companyColumn, m_opening.company);
    for (qsizetype i = 0; i < m_description.parentColumns.size(); ++i) {
        const db::Value parent = m_opening.parents.value(i);
        if (!parent.isBlank())
            conditions << equals(m_description.parentColumns.at(i), parent);
    }
    return conditions.join(QStringLiteral(" AND "));
}

QString TableManagement::rowsSql() const
{
    const QString tick = m_description.choice == ManagementDescription::Choice::SeveralRows
                             ? QStringLiteral("0 AS %1, ").arg(Tick)
                             : QString();
    if (m_description.isList()) {
        QString listed = m_description.rowsSql;
        listed.replace(QStringLiteral("@DITTA"), QString::number(m_opening.company));
        return QStringLiteral("SELECT %1L.* FROM (%2) L").arg(tick, listed);
    }
    const QString filter = ownRowsFilter();
    return QStringLiteral("SELECT %1* FROM %2").arg(tick, m_description.table) +
           (filter.isEmpty() ? QString() : QStringLiteral(" WHERE ") + filter);
}

void TableManagement::openRows()
{
    const QString sql = rowsSql();
    m_rows = db::Recordset::open(m_connection, sql);
    m_rows->setSort((m_description.parentColumns + m_description.key).join(u','));
    if (!m_rows->bof() || !m_rows->eof())
        m_rows->moveFirst();
    position();
    m_grid->setDataSource(m_rows);
    if (!m_frame)
        return;
    m_frame->initialise(this, m_connection, m_rows, sql, ownRowsFilter(), nullptr, m_grid);
    for (controls::Control* control : m_form->controls()) {
        auto* field = qobject_cast<controls::Field*>(control);
        if (field && field != m_search)
            m_frame->registerField(field);
    }
    if (auto* key = m_form->find<controls::Field>(fieldName(m_description.key.value(0))))
        m_frame->setKeyField(key);
    showKeyFields(m_frame->status());
}

void TableManagement::position()
{
    const ManagedColumn* code = m_description.column(m_description.key.value(0));
    if (!code || m_opening.position.isBlank())
        return;
    const frame::ColumnValue key =
        frame::toColumnValue(m_opening.position, frame::ColumnFormat{code->kind(), {}});
    if (!key.accepted())
        return;
    if (const auto found = frame::KeySearch::findAmong(*m_rows, code->name, *key.value, -1))
        m_rows->setBookmark(*found);
}

bool TableManagement::isKeyOrParent(const QString& column) const
{
    return m_description.key.contains(column) || m_description.parentColumns.contains(column);
}

void TableManagement::showKeyFields(frame::FrameStatus status)
{
    for (const ManagedColumn& column : m_description.columns) {
        auto* field = m_form->find<controls::Field>(fieldName(column.name));
        if (field && isKeyOrParent(column.name))
            field->setEnabled(status != frame::FrameStatus::Browse);
    }
}

void TableManagement::fillNewRow()
{
    if (!m_description.companyColumn.isEmpty())
        m_rows->setValue(m_description.companyColumn, m_opening.company);
    for (qsizetype i = 0; i < m_description.parentColumns.size(); ++i) {
        const db::Value parent = m_opening.parents.value(i);
        if (!parent.isBlank())
            m_rows->setValue(m_description.parentColumns.at(i), parent);
    }
}

void TableManagement::onKey(controls::KeyArgs& args, bool inGrid)
{
    if (args.shift != 0)
        return;
    const bool inSearch = m_form->activeControl() == m_search;
    const auto handled = [&args] { args.keyCode = controls::Key::None; };
    if (args.keyCode == controls::Key::Escape) {
        handled();
        close();
    } else if (args.keyCode == controls::Key::Enter && (inGrid || inSearch) &&
               m_description.choice != ManagementDescription::Choice::None) {
        handled();
        choose();
    } else if (args.keyCode == Space && inGrid) {
        handled();
        toggleTick();
    } else if ((args.keyCode == Up || args.keyCode == Down) && inSearch) {
        handled();
        const int row = m_grid->selectedRow() + (args.keyCode == Down ? 1 : -1);
        if (row >= 0 && row < m_grid->rowCount())
            m_grid->clickRow(row);
    }
}

bool TableManagement::settle()
{
    return !m_frame || !m_frame->isRecordChanged() ||
           m_frame->confirmPendingChanges({.check = true, .show = true, .ask = true});
}

bool TableManagement::search(const QString& text)
{
    if (text == m_searched)
        return true;
    if (!settle())
        return false;
    m_searched = text;
    QStringList matches;
    const QString pattern = db::quoted(QStringLiteral("*%1*").arg(text));
    for (const QString& column : m_description.searchColumns)
        matches << QStringLiteral("%1 LIKE %2").arg(column, pattern);
    m_rows->setFilter(text.isEmpty() ? QString() : matches.join(QStringLiteral(" OR ")));
    return true;
}

void TableManagement::sortBy(const QString& column)
{
    m_ascending = column != m_sortColumn || !m_ascending;
    m_sortColumn = column;
    m_rows->setSort(column + (m_ascending ? QStringLiteral(" ASC") : QStringLiteral(" DESC")));
    Q_EMIT sorted(column, m_ascending);
}

void TableManagement::toggleTick()
{
    if (m_description.choice != ManagementDescription::Choice::SeveralRows || m_rows->bof() ||
        m_rows->eof())
        return;
    m_rows->setValue(Tick, m_rows->value(Tick).toInt() != 0 ? 0 : 1);
    m_rows->update();
}

QList<db::ValueList> TableManagement::rowsToHandBack() const
{
    QList<db::ValueList> handed;
    const auto take = [&](const db::Recordset& row) {
        db::ValueList values;
        for (const QString& column : m_description.handedBack)
            values << row.value(column);
        handed << values;
    };
    if (m_description.choice == ManagementDescription::Choice::SeveralRows) {
        const db::RecordsetPtr ticked = m_rows->clone();
        ticked->setFilter(QStringLiteral("%1 = 1").arg(Tick));
        for (ticked->moveFirst(); !ticked->eof(); ticked->moveNext())
            take(*ticked);
    }
    if (handed.isEmpty() && !m_rows->bof() && !m_rows->eof())
        take(*m_rows);
    return handed;
}

bool TableManagement::choose()
{
    if (m_description.choice == ManagementDescription::Choice::None || !settle())
        return false;
    const QList<db::ValueList> handed = rowsToHandBack();
    if (handed.isEmpty()) {
        m_prompts.messageBox(QStringLiteral("Nessuna riga da scegliere."), 64, m_description.title);
        return false;
    }
    m_chosen = handed;
    m_form->unload();
    return true;
}

bool TableManagement::close()
{
    return m_form->isLoaded() && m_form->requestClose(controls::CloseMode::User);
}

} // namespace tarvello::services
