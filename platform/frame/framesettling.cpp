#include "platform/controls/datacontrol.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"

#include <QScopedValueRollback>
#include <algorithm>

// Settling the changes of the row: checking and writing it, dropping it, and the batch save.
//
// Master frame: save checks the registered fields, raises BeforeUpdate, writes the row to
// the database (insert or update, the identity read back), raises AfterUpdate, then shows the
// row in status 0; a save another user's row makes break a unique key (the same code) names
// the field and keeps what was typed. Undo puts back the values read from the database; a new
// row is dropped and the row shown before it comes back. Delete asks the person (Yes / No, No
// by default), raises BeforeDelete, deletes the row in the database, raises AfterDelete and
// shows the next row (or the previous, or none); BeforeDelete and the delete are one
// transaction, in which the handler's own transaction nests, and a delete of data another
// user changed since it was shown (the row, or the rows of a detail frame) is refused. Undo of
// a master also drops the pending changes of its attached detail frames.
//
// Detail frame: "Nuovo" adds a row (status 2); "Conferma" checks it, raises BeforeUpdate and
// keeps the row as a pending change (status 0); "Annulla" takes the row shown back to where
// it was last confirmed (a new row back to its starting values, still in status 2);
// "Elimina" asks, then marks the row deleted in the recordset. Nothing reaches the database
// until the batch save, which raises UpdateBatchAll for the caller's handler to write.
//
// Checks on save: a registered control that the person can reach (enabled and visible) is
// refused when it is required and empty, marked not valid, or holds a value its column
// cannot take. The message names the control's caption and the focus goes to it. A control
// the person cannot reach is never held against them.

namespace tarvello::frame {

using controls::DataControl;
using db::Value;

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
    if (!working() || m_locked || m_status == FrameStatus::Search)
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
        const auto quiet = this->quiet();
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
    if (!working() || m_status == FrameStatus::Search || !isRecordChanged())
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
    if (!working())
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
    if (!working())
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
    if (!working() || !m_attached)
        return;
    const auto shown = m_shown;
    {
        const auto quiet = this->quiet();
        try {
            m_recordset->cancelBatch();
        } catch (const db::RuntimeError& error) {
            reportHandlerError(error);
            return;
        }
    }
    m_changed = false;
    m_rowEdited = false;
    const auto still = visible(shown);
    goToRow(still ? still : currentOrFirst(),
            still ? StatusReason::Refreshed : StatusReason::Moved);
}

void GestAnagrafica::updateBatch()
{
    if (!alive())
        return;
    const db::RecordsetPtr rows = m_recordset;
    // A batch write the handler tried reads the rows again, written or refused.
    bool touched = false;
    QMetaObject::Connection watch;
    if (rows)
        watch =
            connect(rows.get(), &db::Recordset::rowsReset, this, [&touched] { touched = true; });
    raise("UpdateBatchAll", [&] { Q_EMIT UpdateBatchAll(); });
    disconnect(watch);
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
} // namespace tarvello::frame
