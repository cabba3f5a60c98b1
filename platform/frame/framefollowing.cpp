#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"

#include <QScopedValueRollback>

// Row moves: the frame moving its recordset, and following the moves and writes made elsewhere.
//
// Row moves. The frame follows its recordset: a move made elsewhere (a grid click, code)
// shows the row reached. Unconfirmed edits of the row left are confirmed first; when they are
// refused the recordset goes back to that row. Following is suspended while the row-move
// reaction is switched off, while a bulk-rewrite bracket is open and while the frame is
// detached; when following resumes the frame shows the recordset's current row (or goes back
// to its own when the recordset stands before the first or after the last row).

namespace tarvello::frame {

using controls::DataControl;
using db::Value;

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
    if (!working() || !m_attached)
        return false;
    if (!confirmPendingChanges({.check = true, .ask = writesAtOnce()}))
        return false;
    const auto before = m_shown;
    if (entering())
        dropNewRow();
    else if (m_rowEdited)
        restoreSnapshot();
    try {
        const auto quiet = this->quiet();
        placeCursor();
        move(*m_recordset);
        if (m_recordset->recordCount() > 0 && m_recordset->eof())
            m_recordset->moveLast();
        if (m_recordset->recordCount() > 0 && m_recordset->bof())
            m_recordset->moveFirst();
    } catch (const db::RuntimeError&) {
        // A move the rows refuse (the row reached went meanwhile) is no move: the row stays.
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
    if (!working() || !m_attached || m_locked)
        return;
    if (m_status == FrameStatus::Search) {
        holdSearchEntry(control);
        return;
    }
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
    if (!working())
        return;
    const ColumnValue converted = m_fields.columnValue(control);
    if (converted.accepted())
        return;
    m_messages.valueRefused(captionOf(control), converted);
    cancel = true;
}

bool GestAnagrafica::reacting() const
{
    return working() && m_attached && m_quietDepth == 0 && m_bulkDepth == 0 && m_followMoves;
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
        const auto quiet = this->quiet();
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
} // namespace tarvello::frame
