#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"

// Deleting the row shown or every row, with the events around it, as one transaction.

namespace tarvello::frame {

using controls::DataControl;
using db::Value;

bool GestAnagrafica::deleteRecord()
{
    if (!working() || m_locked || m_status != FrameStatus::Browse || !m_shown)
        return false;
    if (!m_messages.confirmDelete(recordDescription()))
        return false;
    if (!deleteWithEvents(DeleteScope::ShownRow, true))
        return false;
    std::optional<Bookmark> next = cursorBookmark();
    if (!next && m_recordset->recordCount() > 0) {
        const auto quiet = this->quiet();
        m_recordset->moveLast();
        next = cursorBookmark();
    }
    finishDelete(next, true, true);
    return true;
}

bool GestAnagrafica::deleteRows(DropOptions options)
{
    if (!working() || m_locked)
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
        const auto quiet = this->quiet();
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
} // namespace tarvello::frame
