#include "platform/frame/gestanagrafica.h"

#include "platform/controls/datacontrol.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/handlererrors.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/navigator.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/columnvalue.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

namespace tarvello::frame {

using controls::DataControl;
using db::identical;
using db::Value;

GestAnagrafica::BulkRewrite::BulkRewrite(GestAnagrafica& frame)
    : m_frame(&frame)
{
    frame.beginBulkRewrite();
}

GestAnagrafica::BulkRewrite::~BulkRewrite()
{
    if (m_frame)
        m_frame->endBulkRewrite();
}

GestAnagrafica::GestAnagrafica(MessageBoxes& prompts, QObject* parent)
    : QObject(parent)
    , m_messages(prompts)
    , m_fields([this](const QString& column) { return formatOf(column); })
{
    connect(&m_fields, &FieldBindings::edited, this, &GestAnagrafica::onEdited);
    connect(&m_fields, &FieldBindings::leaving, this, &GestAnagrafica::onLeaving);
}

GestAnagrafica::~GestAnagrafica()
{
    terminate();
}

bool GestAnagrafica::raise(const char* event, const std::function<void()>& fire)
{
    try {
        return controls::raiseEvent(controls::handlerErrorsOf(this),
                                    objectName() + u'_' + QLatin1String(event),
                                    fire) == controls::Raised::Completed;
    } catch (const db::RuntimeError& error) {
        // A frame on no form has no host to report to: it tells the person itself.
        reportHandlerError(error);
        return false;
    }
}

void GestAnagrafica::initialise(QObject* module, db::Connection& connection,
                                db::RecordsetPtr recordset, const QString& sql,
                                const QString& searchFilter, controls::Navigator* navigator,
                                controls::Grid* grid)
{
    m_terminated = false;
    m_module = module;
    m_connection = &connection;
    m_sql = sql;
    m_keySearch.setFilter(searchFilter);
    if (m_navigator && m_navigator->target() == this)
        m_navigator->setTarget(nullptr);
    m_navigator = navigator;
    if (navigator)
        navigator->setTarget(this);
    m_grid = grid;
    setRecordset(std::move(recordset));
    m_changed = false;
    goToRow(currentOrFirst(), StatusReason::Bound);
}

void GestAnagrafica::registerField(DataControl* control)
{
    if (m_fields.add(control) && (!m_shown || placeCursor()))
        m_fields.sync(rowReader());
}

QList<DataControl*> GestAnagrafica::fields() const
{
    return m_fields.controls();
}

void GestAnagrafica::setKeyField(DataControl* control)
{
    registerField(control);
    if (m_keyField)
        disconnect(m_keyField, &controls::Control::keyDown, this, nullptr);
    m_keyField = control;
    if (!control)
        return;
    connect(control, &controls::Control::keyDown, this, [this](controls::KeyArgs& args) {
        if (m_status != FrameStatus::Search || args.keyCode != controls::Key::Enter ||
            args.shift != 0)
            return;
        args.keyCode = controls::Key::None;
        searchCommand();
    });
}

DataControl* GestAnagrafica::keyField() const
{
    return m_keyField;
}

controls::Grid* GestAnagrafica::grid() const
{
    return m_grid;
}

void GestAnagrafica::setGrid(controls::Grid* grid)
{
    m_grid = grid;
}

controls::Navigator* GestAnagrafica::navigator() const
{
    return m_navigator;
}

void GestAnagrafica::addDetailFrame(GestAnagrafica* detail)
{
    if (!detail || detail == this || m_details.contains(detail))
        return;
    m_details << detail;
    detail->m_masterFrame = this;
}

QList<GestAnagrafica*> GestAnagrafica::detailFrames() const
{
    QList<GestAnagrafica*> details;
    for (const QPointer<GestAnagrafica>& detail : m_details) {
        if (detail)
            details << detail;
    }
    return details;
}

void GestAnagrafica::setRecordset(db::RecordsetPtr recordset)
{
    if (recordset == m_recordset) {
        if (recordset && !m_attached) {
            attach();
            placeCursor();
        }
        return;
    }
    // Taken away and given back (around code walking its rows), the frame keeps its row.
    const bool givenBack = recordset && recordset == m_released.lock();
    detach();
    m_released = recordset ? std::weak_ptr<db::Recordset>() : m_recordset;
    m_recordset = std::move(recordset);
    if (m_recordset && !givenBack) {
        m_shown.reset();
        m_returnTo.reset();
        m_snapshot.clear();
    }
    if (m_recordset) {
        attach();
        placeCursor();
    }
}

void GestAnagrafica::reopenRows(db::Connection& connection, const QString& sql)
{
    const bool wasAttached = m_attached;
    detach();
    try {
        m_recordset->reopen(connection, sql);
    } catch (const db::RuntimeError&) {
        // The recordset stays as it was, and so does the frame's hold on it.
        if (wasAttached)
            attach();
        throw;
    }
    m_sql = sql;
    m_shown.reset();
    m_returnTo.reset();
    m_snapshot.clear();
    attach();
    placeCursor();
}

db::Connection* GestAnagrafica::rowsConnection() const
{
    return m_recordset && m_recordset->activeConnection() ? m_recordset->activeConnection()
                                                          : m_connection;
}

void GestAnagrafica::reopen(const QString& sql)
{
    if (!alive() || !m_recordset)
        return;
    db::Connection* connection = rowsConnection();
    if (!connection) {
        m_sql = sql;
        detach();
        m_recordset->close();
        return;
    }
    // A query that fails leaves the rows shown as they were.
    reopenRows(*connection, sql);
    refresh();
    if (m_grid)
        m_grid->setDataSource(m_recordset);
}

void GestAnagrafica::attach()
{
    db::Recordset* rows = m_recordset.get();
    m_recordsetConnections = {
        connect(rows, &db::Recordset::currentChanged, this, &GestAnagrafica::onCurrentChanged),
        connect(rows, &db::Recordset::rowsReset, this, &GestAnagrafica::onRowsReset),
        connect(rows, &db::Recordset::rowChanged, this, &GestAnagrafica::onRowChanged),
    };
    m_attached = true;
}

void GestAnagrafica::detach()
{
    for (const QMetaObject::Connection& connection : std::as_const(m_recordsetConnections))
        disconnect(connection);
    m_recordsetConnections.clear();
    m_attached = false;
}

void GestAnagrafica::refresh(const QString& sql)
{
    if (!alive())
        return;
    if (!sql.isEmpty()) {
        m_sql = sql;
        if (!isOpen() || m_recordset->source() != sql) {
            db::Connection* connection = rowsConnection();
            if (!connection)
                return;
            try {
                if (m_recordset)
                    reopenRows(*connection, sql);
                else
                    setRecordset(db::Recordset::open(*connection, sql));
            } catch (const db::RuntimeError& error) {
                reportHandlerError(error);
                return;
            }
        }
    }
    if (!m_recordset)
        return;
    if (!m_attached)
        attach();
    const bool keepNewRow =
        entering() && placeCursor() && m_recordset->status() == db::RowStatus::New;
    if (keepNewRow)
        showRow(StatusReason::Bound);
    else
        goToRow(currentOrFirst(), StatusReason::Bound);
    if (!writesAtOnce())
        m_changed = m_recordset->pendingCount() > (keepNewRow ? 1 : 0);
    announceState();
}

void GestAnagrafica::terminate()
{
    if (m_terminated)
        return;
    detach();
    m_fields.clear();
    m_keyField = nullptr;
    if (m_navigator && m_navigator->target() == this)
        m_navigator->setTarget(nullptr);
    m_navigator = nullptr;
    m_grid = nullptr;
    m_details.clear();
    m_recordset.reset();
    m_shown.reset();
    m_returnTo.reset();
    m_snapshot.clear();
    m_searchEntry.clear();
    m_terminated = true;
}

void GestAnagrafica::setStatus(FrameStatus status)
{
    if (!working() || (status == m_status && status != FrameStatus::New))
        return;
    if (status == FrameStatus::New) {
        if (entering() && !m_rowEdited)
            return;
        leaveShownRow();
        addRow(true);
    } else if (status == FrameStatus::Search) {
        leaveShownRow();
        m_shown.reset();
        m_status = FrameStatus::Search;
        showRow(StatusReason::SearchEntry);
    } else if (status == FrameStatus::Browse) {
        // A new row being entered is the recordset's current row: no existing row was asked
        // for, so it stays (a search that found nothing leaves the key it was given on view).
        if (entering())
            return;
        std::optional<Bookmark> back = visible(m_returnTo);
        if (!back)
            back = currentOrFirst();
        // With no row to show there is nothing to browse: the frame waits for a new one.
        goToRow(back, StatusReason::StatusSet);
    }
}

void GestAnagrafica::setChangeFlag(bool changed)
{
    m_changed = changed;
    announceState();
}

void GestAnagrafica::setSecondChangeFlag(bool changed)
{
    m_rowEdited = changed;
    announceState();
}

void GestAnagrafica::notifyChange(bool changed)
{
    m_changed = changed;
    m_rowEdited = changed;
    announceState();
}

bool GestAnagrafica::isRecordChanged()
{
    if (!alive() || m_status == FrameStatus::Search)
        return false;
    RecordChangedArgs args{m_rowEdited || (writesAtOnce() && m_changed)};
    raise("IsRecordChanged", [&] { Q_EMIT IsRecordChanged(args); });
    return args.fbol_isRecordChanged;
}

void GestAnagrafica::refreshState()
{
    const bool changed = isRecordChanged();
    Q_EMIT stateChanged(m_status, changed);
}

void GestAnagrafica::announceState()
{
    Q_EMIT stateChanged(m_status, m_changed || m_rowEdited);
}

void GestAnagrafica::setFollowRowMoves(bool follow)
{
    if (m_followMoves == follow)
        return;
    m_followMoves = follow;
    if (follow)
        resync();
}

// The grid shows the rows rewritten in one step at the end, as the frame does.
void GestAnagrafica::beginBulkRewrite()
{
    if (m_bulkDepth++ == 0 && m_grid) {
        m_heldGrid = m_grid;
        m_heldGrid->holdChanges();
    }
}

void GestAnagrafica::endBulkRewrite()
{
    if (m_bulkDepth == 0 || --m_bulkDepth > 0)
        return;
    if (m_heldGrid)
        std::exchange(m_heldGrid, nullptr)->releaseChanges();
    resync();
}

bool GestAnagrafica::isOpen() const
{
    return m_recordset && m_recordset->isOpen();
}

bool GestAnagrafica::alive() const
{
    Q_ASSERT_X(!m_terminated, "GestAnagrafica", "used after TerminateGestAnagrafica");
    return !m_terminated;
}

bool GestAnagrafica::working() const
{
    return alive() && isOpen();
}

bool GestAnagrafica::entering() const
{
    return m_status == FrameStatus::New && m_shown.has_value();
}

std::optional<db::TableInfo> GestAnagrafica::baseTableInfo() const
{
    db::Connection* connection = m_recordset ? m_recordset->activeConnection() : nullptr;
    if (!isOpen() || !connection || m_recordset->baseTable().isEmpty())
        return std::nullopt;
    try {
        return connection->tableInfo(m_recordset->baseTable());
    } catch (const db::RuntimeError&) {
        // A table the database does not describe binds by the column's kind alone.
        return std::nullopt;
    }
}

std::optional<db::TableInfo::ColumnInfo> GestAnagrafica::describe(const QString& column) const
{
    return describe(column, baseTableInfo());
}

std::optional<db::TableInfo::ColumnInfo>
GestAnagrafica::describe(const QString& column, const std::optional<db::TableInfo>& table) const
{
    const int index = table && isOpen() ? m_recordset->fieldIndex(column) : -1;
    if (index < 0)
        return std::nullopt;
    const QString base = m_recordset->field(index).baseColumn;
    const auto* info = base.isEmpty() ? nullptr : table->column(base);
    return info ? std::optional(*info) : std::nullopt;
}

ColumnFormat GestAnagrafica::formatOf(const QString& column) const
{
    const int index = isOpen() ? m_recordset->fieldIndex(column) : -1;
    if (index < 0)
        return {};
    const std::optional<db::TableInfo::ColumnInfo> info = describe(column);
    return {m_recordset->field(index).kind, info ? info->size : db::ColumnSize()};
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::cursorBookmark() const
{
    if (!isOpen() || m_recordset->bof() || m_recordset->eof())
        return std::nullopt;
    try {
        return m_recordset->bookmark();
    } catch (const db::RuntimeError&) {
        // Standing on a row deleted meanwhile, the rows have no current row to name.
        return std::nullopt;
    }
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::visible(std::optional<Bookmark> row) const
{
    return row && isOpen() && m_recordset->hasBookmark(*row) ? row : std::nullopt;
}

bool GestAnagrafica::placeCursor()
{
    if (!m_shown || !isOpen())
        return false;
    if (cursorBookmark() == m_shown)
        return true;
    if (!m_recordset->hasBookmark(*m_shown))
        return false;
    const auto quiet = this->quiet();
    m_recordset->setBookmark(*m_shown);
    return true;
}

Value GestAnagrafica::shownValue(const QString& column) const
{
    try {
        return m_recordset->value(column);
    } catch (const db::RuntimeError&) {
        // A row gone meanwhile shows nothing, as a Null column does.
        return Value::null();
    }
}

std::optional<Value> GestAnagrafica::shownRowValue(const QString& column) const
{
    if (m_status != FrameStatus::Browse || !m_shown || !isOpen())
        return std::nullopt;
    try {
        if (cursorBookmark() == m_shown)
            return m_recordset->value(column);
        const db::RecordsetPtr row = m_recordset->clone();
        row->setBookmark(*m_shown);
        return row->value(column);
    } catch (const db::RuntimeError&) {
        // A row gone meanwhile is no row shown.
        return std::nullopt;
    }
}

void GestAnagrafica::writeColumn(const QString& column, const Value& value)
{
    if (!m_recordset)
        throw db::RuntimeError(db::RuntimeError::ObjectRequired, QStringLiteral("Object required"),
                               objectName());
    if (m_status != FrameStatus::Search) {
        placeCursor();
        m_recordset->setValue(column, value);
        return;
    }
    const int index = m_recordset->fieldIndex(column);
    m_recordset->field(index); // an unknown column is refused as the recordset refuses it
    m_searchEntry.insert(index, value);
    m_fields.sync(rowReader());
}

Value GestAnagrafica::readColumn(const QString& column) const
{
    if (!m_recordset)
        return {};
    if (m_status == FrameStatus::Search)
        return m_searchEntry.value(m_recordset->fieldIndex(column));
    if (m_recordset->bof() || m_recordset->eof())
        return {};
    return m_recordset->value(column);
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::currentOrFirst()
{
    if (!isOpen())
        return std::nullopt;
    if (const auto current = cursorBookmark())
        return current;
    if (m_recordset->recordCount() == 0)
        return std::nullopt;
    const auto quiet = this->quiet();
    if (m_recordset->eof())
        m_recordset->moveLast();
    else
        m_recordset->moveFirst();
    return cursorBookmark();
}

void GestAnagrafica::goToRow(std::optional<Bookmark> row, int reason, bool raiseEvent)
{
    m_shown = row;
    m_status = row ? FrameStatus::Browse : FrameStatus::New;
    showRow(row ? reason : (reason == StatusReason::Moved ? StatusReason::NewRow : reason),
            raiseEvent);
}

void GestAnagrafica::clearMarks()
{
    // The frame's own fields lose theirs as they are shown.
    const controls::Form* form = m_keyField ? m_keyField->form() : nullptr;
    if (!writesAtOnce() || !form)
        return;
    for (controls::Control* control : form->controls()) {
        auto* data = qobject_cast<DataControl*>(control);
        if (data && data->dataField().isEmpty())
            data->setValid(true);
    }
}

QString GestAnagrafica::recordDescription() const
{
    const auto textOf = [](const DataControl* control) {
        const auto* field = qobject_cast<const controls::Field*>(control);
        return field ? field->text().trimmed() : QString();
    };
    const QList<DataControl*> fields = m_fields.controls();
    const qsizetype key = fields.indexOf(m_keyField);
    QString description = textOf(m_keyField);
    for (qsizetype i = key + 1; key >= 0 && !description.isEmpty() && i < fields.size(); ++i) {
        if (const QString text = textOf(fields.at(i)); !text.isEmpty())
            return description + u' ' + text;
    }
    return description;
}

void GestAnagrafica::showRow(int reason, bool raiseEvent)
{
    ++m_generation;
    if (m_shown && !placeCursor())
        m_shown.reset();
    m_searchEntry.clear();
    clearMarks();
    m_fields.show(rowReader());
    m_fields.decode([this](const db::RuntimeError& error) { reportHandlerError(error); });
    takeSnapshot();
    m_rowEdited = false;
    if (writesAtOnce())
        m_changed = false;
    if (m_shown)
        m_keySearch.rememberCompany(*m_recordset);
    announceState();
    if (!raiseEvent)
        return;
    const QScopedValueRollback announcing(m_announcing, true);
    raise("ChangeStatus", [&] { Q_EMIT ChangeStatus(int(m_status), reason); });
}

FieldBindings::ColumnReader GestAnagrafica::rowReader() const
{
    // A new row's defaults come from one description of the table for all its fields: each
    // description asks the database whether its schema changed.
    return [this, described = false, table = std::optional<db::TableInfo>()](
               const QString& column) mutable -> std::optional<Value> {
        if (!isOpen() || !m_recordset->hasField(column))
            return std::nullopt;
        if (m_shown)
            return shownValue(column);
        if (m_status == FrameStatus::Search)
            return searchEntryValue(column);
        if (m_status != FrameStatus::New)
            return Value::null();
        if (!std::exchange(described, true))
            table = baseTableInfo();
        const std::optional<db::TableInfo::ColumnInfo> info = describe(column, table);
        return info ? info->defaultValue : Value::null();
    };
}

void GestAnagrafica::syncControls(const DataControl* except)
{
    if (m_shown && placeCursor())
        m_fields.sync(rowReader(), except);
}

void GestAnagrafica::reportHandlerError(const db::RuntimeError& error) const
{
    m_messages.handlerFailed(error.number(), error.description());
}

void GestAnagrafica::takeSnapshot()
{
    m_snapshot.clear();
    if (!m_shown || !placeCursor())
        return;
    // A master's undo goes back to the database's values, a detail's to its last confirmed ones.
    const bool fromDatabase = writesAtOnce() && !entering();
    m_snapshot = fromDatabase ? m_recordset->originalValues() : m_recordset->values();
}

void GestAnagrafica::restoreSnapshot()
{
    if (m_snapshot.isEmpty() || !placeCursor())
        return;
    const QScopedValueRollback writing(m_writing, true);
    // Cancelling the edit in progress also clears the row's pending state when nothing else
    // changed it; the snapshot then puts back what that edit did not cover.
    if (m_recordset->editMode() == db::Recordset::EditMode::Editing)
        m_recordset->cancelUpdate();
    for (int i = 0; i < m_recordset->fieldCount() && i < m_snapshot.size(); ++i) {
        if (identical(m_recordset->value(i), m_snapshot.at(i)))
            continue;
        try {
            m_recordset->setValue(m_recordset->field(i).name, m_snapshot.at(i));
        } catch (const db::RuntimeError&) {
            continue; // a column that cannot be written keeps its value
        }
    }
}

bool GestAnagrafica::addRow(bool show, const DataControl* editing)
{
    if (!isOpen())
        return false;
    try {
        const auto quiet = this->quiet();
        m_recordset->addNew();
    } catch (const db::RuntimeError& error) {
        m_messages.saveFailed(error.description());
        return false;
    }
    m_shown = cursorBookmark();
    m_status = FrameStatus::New;
    raise("AfterAddNew", [&] { Q_EMIT AfterAddNew(OperationSucceeded); });
    if (show) {
        showRow(StatusReason::NewRow);
        return true;
    }
    // Added under an edit: the controls already show the defaults, and the one being edited
    // holds what the person typed.
    syncControls(editing);
    takeSnapshot();
    if (placeCursor())
        m_keySearch.rememberCompany(*m_recordset);
    return true;
}

void GestAnagrafica::dropNewRow()
{
    if (!entering())
        return;
    if (placeCursor()) {
        const auto quiet = this->quiet();
        try {
            m_recordset->deleteRow();
        } catch (const db::RuntimeError&) {
            // Already gone from the rows: there is nothing left to drop.
        }
    }
    m_shown.reset();
}

void GestAnagrafica::leaveShownRow()
{
    if (entering()) {
        dropNewRow();
        return;
    }
    if (m_status == FrameStatus::Browse && m_shown) {
        restoreSnapshot();
        m_returnTo = m_shown;
    }
}

bool GestAnagrafica::addNew()
{
    if (!working() || m_locked)
        return false;
    if (m_status == FrameStatus::New && !m_shown)
        return addRow(true);
    if (entering() && !m_rowEdited)
        return true;
    if (m_status != FrameStatus::Search &&
        !confirmPendingChanges({.check = true, .ask = writesAtOnce()}))
        return false;
    if (entering())
        dropNewRow();
    if (m_status == FrameStatus::Browse)
        m_returnTo = m_shown;
    return addRow(true);
}

std::optional<bool> GestAnagrafica::navigatorAction(controls::Navigator&, const QString& key)
{
    using controls::FrameCommand;
    using namespace controls::NavigatorKey;
    const QList<std::pair<QString, FrameCommand>> commands = {
        {New, FrameCommand::New},     {Confirm, FrameCommand::Save},
        {Cancel, FrameCommand::Undo}, {Delete, FrameCommand::Delete},
        {First, FrameCommand::First}, {Previous, FrameCommand::Previous},
        {Next, FrameCommand::Next},   {Last, FrameCommand::Last},
    };
    for (const auto& [name, command] : commands) {
        if (key == name)
            return execute(command);
    }
    return std::nullopt;
}

bool GestAnagrafica::execute(controls::FrameCommand command)
{
    using controls::FrameCommand;
    switch (command) {
    case FrameCommand::New:
        return addNew();
    case FrameCommand::Save:
        return save();
    case FrameCommand::Undo:
        return undo();
    case FrameCommand::UndoWithDetails:
        return undoWithDetails();
    case FrameCommand::Delete:
        return deleteRecord();
    case FrameCommand::Search:
        return searchCommand();
    case FrameCommand::First:
        return moveFirst();
    case FrameCommand::Previous:
        return movePrevious();
    case FrameCommand::Next:
        return moveNext();
    case FrameCommand::Last:
        return moveLast();
    }
    return false;
}

} // namespace tarvello::frame
