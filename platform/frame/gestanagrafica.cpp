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
#include "platform/frame/keylookup.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace tarvello::frame {

using controls::DataControl;
using db::identical;
using db::Value;

namespace {

QString captionOf(const DataControl* control)
{
    return control->caption().isEmpty() ? control->name() : control->caption();
}

} // namespace

// Marks the frame's own work on its recordset, which its reactions must not take for a move
// or a write made elsewhere.
class GestAnagrafica::Quiet {
public:
    explicit Quiet(GestAnagrafica& frame)
        : m_frame(frame)
    {
        ++m_frame.m_quietDepth;
    }
    ~Quiet() { --m_frame.m_quietDepth; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    GestAnagrafica& m_frame;
};

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

GestAnagrafica::GestAnagrafica(services::UserPrompts& prompts, QObject* parent)
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

template <class Emit>
bool GestAnagrafica::raise(const char* event, Emit fire)
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
    m_searchFilter = searchFilter;
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
    if (m_terminated || !m_recordset)
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
    if (m_terminated)
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
    m_terminated = true;
}

void GestAnagrafica::setStatus(int status)
{
    if (!isOpen() || m_terminated || (status == m_status && status != FrameStatus::New))
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
    if (m_terminated || m_status == FrameStatus::Search)
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

void GestAnagrafica::beginBulkRewrite()
{
    ++m_bulkDepth;
}

void GestAnagrafica::endBulkRewrite()
{
    if (m_bulkDepth == 0)
        return;
    if (--m_bulkDepth == 0)
        resync();
}

bool GestAnagrafica::isOpen() const
{
    return m_recordset && m_recordset->isOpen();
}

bool GestAnagrafica::entering() const
{
    return m_status == FrameStatus::New && m_shown.has_value();
}

std::optional<db::TableInfo::ColumnInfo> GestAnagrafica::describe(const QString& column) const
{
    const int index = isOpen() ? m_recordset->fieldIndex(column) : -1;
    db::Connection* connection = m_recordset ? m_recordset->activeConnection() : nullptr;
    if (index < 0 || !connection || m_recordset->baseTable().isEmpty())
        return std::nullopt;
    const QString base = m_recordset->field(index).baseColumn;
    if (base.isEmpty())
        return std::nullopt;
    try {
        const auto* info = connection->tableInfo(m_recordset->baseTable()).column(base);
        return info ? std::optional(*info) : std::nullopt;
    } catch (const db::RuntimeError&) {
        return std::nullopt;
    }
}

ColumnFormat GestAnagrafica::formatOf(const QString& column) const
{
    const int index = isOpen() ? m_recordset->fieldIndex(column) : -1;
    if (index < 0)
        return {};
    const std::optional<db::TableInfo::ColumnInfo> info = describe(column);
    return {m_recordset->field(index).kind, info ? info->size : db::ColumnSize()};
}

Value GestAnagrafica::defaultOf(const QString& column) const
{
    const std::optional<db::TableInfo::ColumnInfo> info = describe(column);
    return info ? info->defaultValue : Value::null();
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::cursorBookmark() const
{
    if (!isOpen() || m_recordset->bof() || m_recordset->eof())
        return std::nullopt;
    try {
        return m_recordset->bookmark();
    } catch (const db::RuntimeError&) {
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
    const Quiet quiet(*this);
    m_recordset->setBookmark(*m_shown);
    return true;
}

Value GestAnagrafica::shownValue(const QString& column) const
{
    try {
        return m_recordset->value(column);
    } catch (const db::RuntimeError&) {
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
        return std::nullopt;
    }
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::currentOrFirst()
{
    if (!isOpen())
        return std::nullopt;
    if (const auto current = cursorBookmark())
        return current;
    if (m_recordset->recordCount() == 0)
        return std::nullopt;
    const Quiet quiet(*this);
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
    QList<DataControl*> marked = m_fields.controls();
    const controls::Form* form = m_keyField ? m_keyField->form() : nullptr;
    if (writesAtOnce() && form) {
        for (controls::Control* control : form->controls()) {
            auto* data = qobject_cast<DataControl*>(control);
            if (data && data->dataField().isEmpty())
                marked << data;
        }
    }
    for (DataControl* control : std::as_const(marked))
        control->setValid(true);
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
    clearMarks();
    m_fields.show(rowReader());
    m_fields.decode([this](const db::RuntimeError& error) { reportHandlerError(error); });
    takeSnapshot();
    m_rowEdited = false;
    if (writesAtOnce())
        m_changed = false;
    if (m_shown)
        m_lastCompany = companyConditions(*m_recordset);
    announceState();
    if (!raiseEvent)
        return;
    const QScopedValueRollback announcing(m_announcing, true);
    raise("ChangeStatus", [&] { Q_EMIT ChangeStatus(m_status, reason); });
}

FieldBindings::ColumnReader GestAnagrafica::rowReader() const
{
    return [this](const QString& column) -> std::optional<Value> {
        if (!isOpen() || !m_recordset->hasField(column))
            return std::nullopt;
        if (m_shown)
            return shownValue(column);
        return m_status == FrameStatus::New ? defaultOf(column) : Value::null();
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
    for (int i = 0; i < m_recordset->fieldCount(); ++i) {
        m_snapshot << (fromDatabase ? m_recordset->originalValue(m_recordset->field(i).name)
                                    : m_recordset->value(i));
    }
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
        const Quiet quiet(*this);
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
        m_lastCompany = companyConditions(*m_recordset);
    return true;
}

void GestAnagrafica::dropNewRow()
{
    if (!entering())
        return;
    if (placeCursor()) {
        const Quiet quiet(*this);
        try {
            m_recordset->deleteRow();
        } catch (const db::RuntimeError&) {
            // already gone
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

bool GestAnagrafica::checkFields()
{
    using Reason = FieldBindings::Refusal::Reason;
    const std::optional<FieldBindings::Refusal> refusal = m_fields.firstRefusal();
    if (!refusal)
        return true;
    const QString caption = captionOf(refusal->control);
    if (refusal->reason == Reason::Required)
        m_messages.requiredFieldEmpty(caption);
    else if (refusal->reason == Reason::NotValid)
        m_messages.fieldNotValid(caption);
    else
        m_messages.valueRefused(caption, refusal->value);
    refusal->control->setFocus();
    return false;
}

bool GestAnagrafica::save()
{
    return writeRow(true, true);
}

bool GestAnagrafica::writeRow(bool check, bool show)
{
    if (!isOpen() || m_terminated || m_locked || m_status == FrameStatus::Search)
        return false;
    if (check && !checkFields())
        return false;
    if (!m_shown && m_status == FrameStatus::New && !addRow(false))
        return false;
    if (!placeCursor())
        return false;
    const bool wasNew = m_status == FrameStatus::New;
    if (check) {
        CancelArgs args;
        if (!raise("BeforeUpdate", [&] { Q_EMIT BeforeUpdate(args); }) || args.fbol_Cancel ||
            !placeCursor())
            return false;
    }
    try {
        const Quiet quiet(*this);
        if (writesAtOnce())
            m_recordset->updateCurrent();
        else
            m_recordset->update();
    } catch (const db::RuntimeError& error) {
        reportSaveFailure(error);
        if (check)
            raise("AfterUpdate", [&] { Q_EMIT AfterUpdate(OperationFailed); });
        return false;
    }
    m_status = FrameStatus::Browse;
    m_rowEdited = false;
    m_changed = !writesAtOnce() && (m_changed || m_recordset->pendingCount() > 0);
    takeSnapshot();
    const quint64 generation = m_generation;
    if (check)
        raise("AfterUpdate", [&] { Q_EMIT AfterUpdate(OperationSucceeded); });
    if (show && generation == m_generation)
        showRow(wasNew ? StatusReason::Inserted : StatusReason::Refreshed);
    else
        announceState();
    return true;
}

void GestAnagrafica::reportSaveFailure(const db::RuntimeError& error)
{
    // A unique key that another row holds (another user saved the same code first) is told
    // in the person's terms: the field and the value, which they can change and save again.
    QStringList key;
    try {
        if (placeCursor())
            key = m_recordset->duplicatedUniqueKey();
    } catch (const db::RuntimeError&) {
        key.clear(); // the first error is the one to tell
    }
    for (const QString& column : std::as_const(key)) {
        for (DataControl* control : m_fields.controls()) {
            if (m_fields.columnOf(control).compare(column, Qt::CaseInsensitive) == 0) {
                m_messages.valueTaken(captionOf(control), shownValue(column).toString());
                return;
            }
        }
    }
    m_messages.saveFailed(error.description());
}

bool GestAnagrafica::confirmPendingChanges(SettleOptions options)
{
    if (!isOpen() || m_terminated || m_status == FrameStatus::Search || !isRecordChanged())
        return true;
    if (options.ask) {
        const int answer = m_messages.askSaveChanges();
        if (answer == FrameMessages::No) {
            dropPendingRow({.raiseEvents = options.check, .show = options.show});
            return true;
        }
        if (answer != FrameMessages::Yes)
            return false;
    }
    return writeRow(options.check, options.show);
}

bool GestAnagrafica::confirmLettingRowsGo()
{
    if (!isOpen() || m_terminated)
        return true;
    if (!holdsUnsavedChanges())
        return true;
    const int answer = m_messages.askSaveChanges();
    if (answer == FrameMessages::No)
        return true;
    if (answer != FrameMessages::Yes)
        return false;
    // Rows the save could not write stay, and so does the person, who was told why.
    return (m_masterFrame ? m_masterFrame->save() : save()) && !holdsUnsavedChanges();
}

bool GestAnagrafica::holdsUnsavedChanges() const
{
    // A row just started and not yet typed into is nobody's change.
    const qsizetype untouched = entering() && !m_rowEdited ? 1 : 0;
    return m_changed || m_rowEdited || (isOpen() && m_recordset->pendingCount() > untouched);
}

bool GestAnagrafica::addNew()
{
    if (!isOpen() || m_terminated || m_locked)
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

bool GestAnagrafica::undoWithDetails()
{
    const QList<GestAnagrafica*> details = detailFrames();
    const bool detailsChanged = std::any_of(details.cbegin(), details.cend(),
                                            [](const auto* d) { return d->holdsUnsavedChanges(); });
    if (detailsChanged && !m_messages.confirmDropChanges())
        return false;
    return undo();
}

bool GestAnagrafica::undo()
{
    return dropPendingRow({.raiseEvents = true, .show = true});
}

bool GestAnagrafica::dropPendingRow(DropOptions options)
{
    if (!isOpen() || m_terminated)
        return false;
    if (m_status == FrameStatus::Search) {
        const auto back = visible(m_returnTo);
        goToRow(back ? back : currentOrFirst(), StatusReason::Moved, options.show);
    } else {
        if (options.ask && m_rowEdited && !m_messages.confirmDropChanges())
            return false;
        if (entering() && writesAtOnce()) {
            dropNewRow();
            const auto back = visible(m_returnTo);
            discardDetailChanges();
            goToRow(back ? back : currentOrFirst(), StatusReason::Moved, options.show);
        } else {
            restoreSnapshot();
            if (writesAtOnce())
                discardDetailChanges();
            showRow(StatusReason::Restored, options.show);
        }
    }
    if (options.raiseEvents)
        raise("AfterUndo", [&] { Q_EMIT AfterUndo(OperationSucceeded); });
    return true;
}

void GestAnagrafica::discardDetailChanges()
{
    for (GestAnagrafica* detail : detailFrames())
        detail->discardPendingChanges();
}

void GestAnagrafica::discardPendingChanges()
{
    if (!isOpen() || !m_attached || m_terminated)
        return;
    const auto shown = m_shown;
    {
        const Quiet quiet(*this);
        try {
            m_recordset->cancelBatch();
        } catch (const db::RuntimeError&) {
            return;
        }
    }
    m_changed = false;
    m_rowEdited = false;
    const auto still = visible(shown);
    goToRow(still ? still : currentOrFirst(),
            still ? StatusReason::Refreshed : StatusReason::Moved);
}

bool GestAnagrafica::deleteRecord()
{
    if (!isOpen() || m_terminated || m_locked || m_status != FrameStatus::Browse || !m_shown)
        return false;
    if (!m_messages.confirmDelete(recordDescription()))
        return false;
    if (!deleteWithEvents(DeleteScope::ShownRow, true))
        return false;
    std::optional<Bookmark> next = cursorBookmark();
    if (!next && m_recordset->recordCount() > 0) {
        const Quiet quiet(*this);
        m_recordset->moveLast();
        next = cursorBookmark();
    }
    finishDelete(next, true, true);
    return true;
}

bool GestAnagrafica::deleteRows(DropOptions options)
{
    if (!isOpen() || m_terminated || m_locked)
        return false;
    if (entering())
        dropNewRow();
    if (m_recordset->recordCount() == 0) {
        goToRow(std::nullopt, StatusReason::Deleted, options.show);
        return true;
    }
    if (options.ask && !m_messages.confirmDeleteAll())
        return false;
    if (!deleteWithEvents(DeleteScope::AllRows, options.raiseEvents))
        return false;
    finishDelete(std::nullopt, options.raiseEvents, options.show);
    return true;
}

bool GestAnagrafica::deleteWithEvents(DeleteScope scope, bool raiseEvents)
{
    const std::optional<Bookmark> shownBefore = m_shown;
    // A master's delete is one transaction on its connection, BeforeDelete's own writes
    // (which nest inside it) included: a row and what hangs off it go together or not at all.
    std::optional<db::TransactionGuard> transaction;
    if (writesAtOnce() && m_connection) {
        try {
            transaction.emplace(*m_connection);
            if (shownDetailsChanged()) {
                m_messages.deleteFailed(m_messages.changedByOthers());
                return false;
            }
        } catch (const db::RuntimeError& error) {
            m_messages.deleteFailed(error.description());
            return false;
        }
    }
    if (raiseEvents) {
        CancelArgs args;
        placeCursor();
        if (!raise("BeforeDelete", [&] { Q_EMIT BeforeDelete(args); }) || args.fbol_Cancel)
            return false;
    }
    // The row shown is the one to delete: the handler must have left it there.
    if (scope == DeleteScope::ShownRow && !placeCursor())
        return false;
    const auto deleteRows = [this, scope] {
        if (scope == DeleteScope::ShownRow) {
            m_recordset->deleteRow();
            return;
        }
        while (m_recordset->recordCount() > 0) {
            m_recordset->moveFirst();
            m_recordset->deleteRow();
        }
    };
    return deleteAndWrite(deleteRows, shownBefore, raiseEvents, transaction);
}

bool GestAnagrafica::shownDetailsChanged() const
{
    // The rows a detail shows are what the person decided on: a row another user added,
    // changed or removed since (a partner, say) would go unseen with the master.
    for (const GestAnagrafica* detail : detailFrames()) {
        const db::RecordsetPtr rows = detail->recordset();
        if (rows && rows->isOpen() && rows->changedInDatabase())
            return true;
    }
    return false;
}

bool GestAnagrafica::deleteAndWrite(const std::function<void()>& deleteRows,
                                    std::optional<Bookmark> shownBefore, bool raiseEvents,
                                    std::optional<db::TransactionGuard>& transaction)
{
    std::optional<QString> failure;
    {
        const Quiet quiet(*this);
        try {
            deleteRows();
            if (writesAtOnce())
                m_recordset->updateBatch();
            if (transaction)
                transaction->commit();
        } catch (const db::RuntimeError& error) {
            failure = error.description();
            // Rolled back before anything is shown again: what is shown is what the database
            // has.
            transaction.reset();
            if (writesAtOnce())
                m_recordset->cancelBatch();
        }
    }
    if (failure) {
        m_messages.deleteFailed(*failure);
        const auto back = visible(shownBefore);
        goToRow(back ? back : currentOrFirst(), StatusReason::Refreshed);
        if (raiseEvents)
            raise("AfterDelete", [&] { Q_EMIT AfterDelete(OperationFailed); });
        return false;
    }
    if (!writesAtOnce())
        m_changed = true;
    m_rowEdited = false;
    return true;
}

void GestAnagrafica::finishDelete(std::optional<Bookmark> next, bool raiseEvents, bool show)
{
    // AfterDelete handlers see the status the frame is going to: 0 while rows are left.
    m_shown = next;
    m_status = next ? FrameStatus::Browse : FrameStatus::New;
    const quint64 generation = ++m_generation;
    if (raiseEvents)
        raise("AfterDelete", [&] { Q_EMIT AfterDelete(OperationSucceeded); });
    if (generation == m_generation)
        showRow(StatusReason::Deleted, show);
}

void GestAnagrafica::updateBatch()
{
    if (m_terminated)
        return;
    const db::RecordsetPtr rows = m_recordset;
    bool touched = false;
    QMetaObject::Connection watch;
    QMetaObject::Connection watchAdded;
    if (rows) {
        watch =
            connect(rows.get(), &db::Recordset::rowsReset, this, [&touched] { touched = true; });
        watchAdded =
            connect(rows.get(), &db::Recordset::rowAppended, this, [&touched] { touched = true; });
    }
    raise("UpdateBatchAll", [&] { Q_EMIT UpdateBatchAll(); });
    disconnect(watch);
    disconnect(watchAdded);
    // A handler that left the person's changes pending without even trying to write them
    // (its procedure had no branch for what the frame holds) would lose them without a word.
    // Showing nothing, the frame holds only rows confirmed or deleted: it writes them itself.
    // With a row being entered, which is not the frame's to write, the person is told.
    if (!rows || touched || rows->pendingCount() == 0)
        return;
    if (entering())
        m_messages.changesNotSaved();
    else
        writePending(*rows);
}

void GestAnagrafica::writePending(db::Recordset& rows)
{
    try {
        rows.updateBatch();
    } catch (const db::RuntimeError& error) {
        m_messages.saveFailed(error.description());
    }
    m_changed = rows.pendingCount() > 0;
    announceState();
}

bool GestAnagrafica::enterSearch()
{
    if (!isOpen() || m_terminated)
        return false;
    if (m_status == FrameStatus::Search)
        return true;
    if (!confirmPendingChanges({.check = true, .ask = true}))
        return false;
    leaveShownRow();
    m_shown.reset();
    m_status = FrameStatus::Search;
    showRow(StatusReason::SearchEntry);
    if (m_keyField && m_keyField->canReceiveFocus())
        m_keyField->setFocus();
    return true;
}

bool GestAnagrafica::searchCommand()
{
    if (m_status != FrameStatus::Search)
        return enterSearch();
    auto* keyField = qobject_cast<controls::Field*>(m_keyField.data());
    if (!keyField || !keyField->hasLookup())
        return search(false, false);
    if (search(false, true))
        return true;
    // Not a key (a name, part of a code, nothing at all): the key field's list, narrowed to
    // what was typed, and the row picked there is looked up.
    return keyField->openLookup(keyField->text().trimmed()) && search(false, false);
}

bool GestAnagrafica::search(bool fromKeyColumn, bool quiet)
{
    const QString column = m_fields.columnOf(m_keyField);
    if (!isOpen() || m_terminated || column.isEmpty() || !m_recordset->hasField(column))
        return false;
    Value wanted;
    if (m_status == FrameStatus::Search || !fromKeyColumn || !m_shown) {
        const ColumnValue typed = m_fields.columnValue(m_keyField);
        if (!typed.accepted()) {
            if (!quiet)
                m_messages.valueRefused(captionOf(m_keyField), typed);
            return false;
        }
        wanted = *typed.value;
    } else if (placeCursor()) {
        wanted = shownValue(column);
    }
    if (wanted.isBlank()) {
        if (!quiet)
            m_messages.keyNotFound();
        return false;
    }

    // The key the row shown was read with names that same row.
    const int keyIndex = m_recordset->fieldIndex(column);
    const bool writtenIntoExisting = m_status == FrameStatus::Browse && m_shown;
    if (writtenIntoExisting && keyIndex < m_snapshot.size() &&
        sameKey(m_snapshot.at(keyIndex), wanted)) {
        restoreSnapshot();
        showRow(StatusReason::Found);
        return true;
    }

    // The row written into gets its values back before the rows are walked: walking ends the
    // edit in progress, after which its pending state could not be cleared.
    if (writtenIntoExisting)
        restoreSnapshot();
    std::optional<Bookmark> found = findInRecordset(column, wanted);
    if (found)
        leaveShownRow();
    else if (writesAtOnce())
        found = bringFromDatabase(column, wanted);
    if (!found) {
        if (writtenIntoExisting && placeCursor())
            m_recordset->setValue(column, wanted);
        if (!quiet)
            m_messages.keyNotFound();
        return false;
    }
    goToRow(found, StatusReason::Found);
    return true;
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::findInRecordset(const QString& column,
                                                                        const Value& key)
{
    const qsizetype skip = m_shown && placeCursor() ? m_recordset->absolutePosition() : -1;
    return findKey(*m_recordset, column, key, skip);
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::bringFromDatabase(const QString& column,
                                                                          const Value& key)
{
    db::Connection* connection = m_recordset->activeConnection();
    const QString table = m_recordset->baseTable();
    const int index = m_recordset->fieldIndex(column);
    const QString baseColumn = index < 0 ? QString() : m_recordset->field(index).baseColumn;
    if (!connection || table.isEmpty() || baseColumn.isEmpty())
        return std::nullopt;
    QStringList conditions = m_lastCompany;
    if (!m_searchFilter.isEmpty())
        conditions = {QStringLiteral("(%1)").arg(m_searchFilter)};
    else if (placeCursor())
        conditions = companyConditions(*m_recordset);
    const QString statement = keyLookupStatement(table, conditions, baseColumn, key);
    try {
        if (connection->query(statement).rows.isEmpty())
            return std::nullopt;
        leaveShownRow();
        {
            const Quiet quiet(*this);
            m_recordset->requery();
        }
        m_shown.reset();
        m_returnTo.reset();
        if (const auto found = findInRecordset(column, key))
            return found;
        // The recordset's own query leaves the row out (it was narrowed to another key).
        reopenRows(*connection, statement);
        return currentOrFirst();
    } catch (const db::RuntimeError& error) {
        reportHandlerError(error);
        return std::nullopt;
    }
}

bool GestAnagrafica::moveFirst()
{
    return moveBy([](db::Recordset& rows) { rows.moveFirst(); });
}

bool GestAnagrafica::moveLast()
{
    return moveBy([](db::Recordset& rows) { rows.moveLast(); });
}

bool GestAnagrafica::movePrevious()
{
    return moveBy([](db::Recordset& rows) {
        if (!rows.bof())
            rows.movePrevious();
    });
}

bool GestAnagrafica::moveNext()
{
    return moveBy([](db::Recordset& rows) {
        if (!rows.eof())
            rows.moveNext();
    });
}

bool GestAnagrafica::moveToBookmark(Bookmark bookmark)
{
    if (!isOpen() || !m_recordset->hasBookmark(bookmark))
        return false;
    // The row on view asked for by its bookmark is shown again, with what hangs off it.
    return moveBy([bookmark](db::Recordset& rows) { rows.setBookmark(bookmark); }, true);
}

bool GestAnagrafica::moveBy(const std::function<void(db::Recordset&)>& move, bool showAgain)
{
    if (!isOpen() || !m_attached || m_terminated)
        return false;
    if (!confirmPendingChanges({.check = true, .ask = writesAtOnce()}))
        return false;
    const auto before = m_shown;
    if (entering())
        dropNewRow();
    else if (m_rowEdited)
        restoreSnapshot();
    try {
        const Quiet quiet(*this);
        placeCursor();
        move(*m_recordset);
        if (m_recordset->recordCount() > 0 && m_recordset->eof())
            m_recordset->moveLast();
        if (m_recordset->recordCount() > 0 && m_recordset->bof())
            m_recordset->moveFirst();
    } catch (const db::RuntimeError&) {
        return false;
    }
    const auto reached = cursorBookmark();
    if (reached && reached == before && !showAgain)
        return false;
    goToRow(reached, StatusReason::Moved);
    return reached.has_value();
}

void GestAnagrafica::onEdited(DataControl* control)
{
    if (m_terminated || !isOpen() || !m_attached || m_status == FrameStatus::Search || m_locked)
        return;
    const QString column = m_fields.columnOf(control);
    // What the screen's answer to ChangeStatus puts into a control bound to no column (a name
    // looked up, a field emptied for a new row) is how it shows the row, not an edit of it.
    if (m_announcing && column.isEmpty())
        return;
    m_rowEdited = true;
    // A control bound to no column changes nothing the database would see.
    if (writesAtOnce() && !column.isEmpty())
        m_changed = true;
    const ColumnValue converted = m_fields.columnValue(control);
    if (!column.isEmpty() && m_recordset->hasField(column) && converted.accepted() &&
        (m_shown || addRow(false, control)) && placeCursor()) {
        const QScopedValueRollback writing(m_writing, true);
        try {
            m_recordset->setValue(column, *converted.value);
            m_fields.written(control, *converted.value);
        } catch (const db::RuntimeError& error) {
            m_messages.saveFailed(error.description());
        }
    }
    announceState();
}

void GestAnagrafica::onLeaving(DataControl* control, bool& cancel)
{
    if (m_terminated || !isOpen())
        return;
    const ColumnValue converted = m_fields.columnValue(control);
    if (converted.accepted())
        return;
    m_messages.valueRefused(captionOf(control), converted);
    cancel = true;
}

bool GestAnagrafica::reacting() const
{
    return m_attached && !m_terminated && m_quietDepth == 0 && m_bulkDepth == 0 && m_followMoves &&
           isOpen();
}

void GestAnagrafica::onCurrentChanged()
{
    if (!reacting())
        return;
    const auto current = cursorBookmark();
    if (!current) {
        if (!visible(m_shown))
            followNearest();
        return;
    }
    if (current != m_shown && leaveFor(*current))
        goToRow(current, StatusReason::Moved);
}

void GestAnagrafica::onRowsReset()
{
    if (reacting() && !visible(m_shown))
        followNearest();
}

void GestAnagrafica::onRowChanged(Bookmark bookmark)
{
    if (reacting() && !m_writing && m_shown == bookmark && cursorBookmark() == m_shown)
        syncControls(nullptr);
}

void GestAnagrafica::followNearest()
{
    goToRow(currentOrFirst(), StatusReason::Moved);
}

bool GestAnagrafica::leaveFor(Bookmark target)
{
    if (!visible(m_shown) || m_status == FrameStatus::Search)
        return true;
    if (entering() && !m_rowEdited) {
        dropNewRow();
    } else if (m_rowEdited) {
        placeCursor();
        if (!confirmPendingChanges({.check = true, .ask = writesAtOnce()}))
            return false;
    }
    if (visible(target)) {
        const Quiet quiet(*this);
        m_recordset->setBookmark(target);
    }
    return true;
}

void GestAnagrafica::resync()
{
    if (!reacting())
        return;
    const auto current = cursorBookmark();
    if (current && current != m_shown) {
        if (leaveFor(*current))
            goToRow(current, StatusReason::Moved);
        return;
    }
    if (m_shown && !visible(m_shown)) {
        followNearest();
        return;
    }
    syncControls(nullptr);
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
