#include "platform/controls/field.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/columnvalue.h"
#include "platform/frame/gestanagrafica.h"

// The search by key: search entry, the key looked up among the rows and then in the table.

namespace tarvello::frame {

using controls::DataControl;
using db::Value;

bool GestAnagrafica::enterSearch()
{
    if (!working())
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
    if (!working() || column.isEmpty() || !m_recordset->hasField(column))
        return false;
    Value wanted;
    if (m_status == FrameStatus::Search && fromKeyColumn) {
        wanted = searchEntryValue(column);
    } else if (m_status == FrameStatus::Search || !fromKeyColumn || !m_shown) {
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

Value GestAnagrafica::searchEntryValue(const QString& column) const
{
    return m_searchEntry.value(m_recordset->fieldIndex(column), Value::null());
}

void GestAnagrafica::holdSearchEntry(const DataControl* control)
{
    const int index = m_recordset->fieldIndex(m_fields.columnOf(control));
    if (index < 0)
        return;
    const ColumnValue typed = m_fields.columnValue(control);
    if (!typed.accepted()) {
        m_searchEntry.remove(index);
        return;
    }
    m_searchEntry.insert(index, *typed.value);
    m_fields.written(control, *typed.value);
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::findInRecordset(const QString& column,
                                                                        const Value& key)
{
    const qsizetype skip = m_shown && placeCursor() ? m_recordset->absolutePosition() : -1;
    return KeySearch::findAmong(*m_recordset, column, key, skip);
}

std::optional<GestAnagrafica::Bookmark> GestAnagrafica::bringFromDatabase(const QString& column,
                                                                          const Value& key)
{
    try {
        const std::optional<QString> statement =
            m_keySearch.lookUp(*m_recordset, column, key, placeCursor());
        if (!statement)
            return std::nullopt;
        leaveShownRow();
        {
            const auto quiet = this->quiet();
            m_recordset->requery();
        }
        m_shown.reset();
        m_returnTo.reset();
        if (const auto found = findInRecordset(column, key))
            return found;
        // The recordset's own query leaves the row out (it was narrowed to another key).
        reopenRows(*m_recordset->activeConnection(), *statement);
        return currentOrFirst();
    } catch (const db::RuntimeError& error) {
        reportHandlerError(error);
        return std::nullopt;
    }
}

} // namespace tarvello::frame
