#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/rowstore.h"
#include "platform/db/rowwriter.h"
#include "platform/db/runtimeerror.h"

#include <utility>

// The rows against the database: the batch write with its settling at commit, and the checks
// of what the database holds beside them.

namespace tarvello::db {

void Recordset::writeRows(const QList<Bookmark>& bookmarks)
{
    requireWritable();
    if (!m_store->connection || m_store->baseTable.isEmpty())
        throw RuntimeError(
            RuntimeError::OperationNotAllowed,
            QStringLiteral("The rows come from no single table and cannot be written"));
    leaveEdit();
    Connection& connection = *m_store->connection;
    RowWriter writer(connection, m_store->baseTable, m_store->columns);

    QList<Bookmark> pending;
    for (Bookmark bookmark : bookmarks) {
        const RowStore::Row* row = m_store->find(bookmark);
        if (row && row->status != RowStatus::Unmodified && !row->awaitingCommit)
            pending << bookmark;
    }
    QList<Written> written;
    written.reserve(pending.size());
    QList<Bookmark> refused;
    std::optional<QString> dropped; // why the database dropped the whole write
    {
        TransactionGuard transaction(connection);
        for (Bookmark bookmark : std::as_const(pending)) {
            RowStore::Row* row = m_store->find(bookmark);
            try {
                const RowWriter::Result result = writer.write(*row);
                row->conflict = result.outcome == RowWriter::Outcome::Conflict;
                row->error = row->conflict ? QStringLiteral("la riga è stata modificata o "
                                                            "eliminata da un altro utente dopo "
                                                            "la lettura")
                                           : QString();
                if (!row->conflict)
                    written << Written{bookmark, result.identity};
            } catch (const RuntimeError& e) {
                row->conflict = true;
                row->error = e.description();
                // The rows written so far went with the transaction, and the ones after it
                // would be committed on their own: nothing more is written.
                if (connection.transactionAborted()) {
                    dropped = e.description();
                    break;
                }
            }
            if (row->conflict)
                refused << bookmark;
        }
        if (!dropped) {
            try {
                transaction.commit();
            } catch (const RuntimeError& e) {
                dropped = e.description();
            }
        }
    }
    if (dropped) {
        const QStringList names = rowNames(pending);
        m_store->notifyRowsChanged();
        throw RuntimeError(RuntimeError::TransactionAborted,
                           QStringLiteral("Nessuna riga è stata scritta: il database ha annullato "
                                          "l'intera operazione.\n%1\nRighe non scritte: %2")
                               .arg(*dropped, names.join(QStringLiteral(", "))));
    }
    settleWhenCommitted(connection, std::move(written), writer.identityIndex());
    if (refused.isEmpty())
        return;
    QStringList reasons = rowNames(refused);
    for (qsizetype i = 0; i < refused.size(); ++i)
        reasons[i] += QStringLiteral(": ") + m_store->find(refused.at(i))->error;
    throw RuntimeError(RuntimeError::RowConflict,
                       QStringLiteral("Righe non scritte nel database: %1")
                           .arg(reasons.join(QStringLiteral("; "))));
}

void Recordset::settleWhenCommitted(Connection& connection, QList<Written> written,
                                    int identityIndex)
{
    for (const Written& w : std::as_const(written))
        m_store->find(w.bookmark)->awaitingCommit = true;
    const std::weak_ptr<RowStore> store = m_store;
    connection.whenTransactionEnds([store, written, identityIndex](bool committed) {
        const std::shared_ptr<RowStore> rows = store.lock();
        if (!rows)
            return;
        for (const Written& w : written) {
            RowStore::Row* row = rows->find(w.bookmark);
            if (!row)
                continue;
            row->awaitingCommit = false;
            if (!committed)
                continue;
            if (row->status == RowStatus::Deleted) {
                rows->remove(w.bookmark);
                continue;
            }
            if (row->status == RowStatus::New && identityIndex >= 0)
                row->values.set(identityIndex, w.identity);
            row->original.reset();
            row->status = RowStatus::Unmodified;
        }
        rows->notifyRowsChanged();
    });
}

QStringList Recordset::rowNames(const QList<Bookmark>& bookmarks) const
{
    // One walk over the rows gives every place, however many rows are named.
    QHash<Bookmark, qsizetype> places;
    qsizetype place = 0;
    for (const RowStore::Row& row : m_store->rows())
        places.insert(row.bookmark, row.status == RowStatus::Deleted ? 0 : ++place);
    QStringList names;
    for (const Bookmark bookmark : bookmarks) {
        const qsizetype at = places.value(bookmark);
        names << (at == 0 ? QStringLiteral("una riga eliminata")
                          : QStringLiteral("riga %1").arg(at));
    }
    return names;
}

void Recordset::updateBatch()
{
    QList<Bookmark> pending;
    for (const RowStore::Row& row : m_store->rows()) {
        if (row.status != RowStatus::Unmodified)
            pending << row.bookmark;
    }
    writeRows(pending);
}

void Recordset::updateCurrent()
{
    writeRows({currentRowData().bookmark});
}

bool Recordset::changedInDatabase() const
{
    if (!m_store->connection || !m_store->open)
        return false;
    // Rows compared whole and without regard to order: a text per row, sorted.
    const auto rowText = [](const ValueList& values) {
        QStringList texts;
        for (const Value& value : values)
            texts << (value.isNull() || value.isEmpty() ? QStringLiteral("\x01")
                                                        : value.toString());
        return texts.join(u'\x02');
    };
    QStringList read;
    for (const RowStore::Row& row : m_store->rows()) {
        if (row.status != RowStatus::New)
            read << rowText((row.original ? *row.original : row.values).toList());
    }
    QStringList now;
    for (const ValueList& values : m_store->connection->query(m_store->source).rows)
        now << rowText(values);
    read.sort();
    now.sort();
    return read != now;
}

QStringList Recordset::duplicatedUniqueKey() const
{
    const StoredRow& row = currentRowData();
    if (!m_store->connection || m_store->baseTable.isEmpty())
        return {};
    Connection& connection = *m_store->connection;
    const TableInfo& table = connection.tableInfo(m_store->baseTable);
    QList<QStringList> keys = table.uniqueKeys;
    // A primary key the person types (a code, not an identity) is taken the same way.
    if (table.identityColumn().isEmpty() && !table.primaryKey().isEmpty())
        keys << table.primaryKey();
    RowWriter writer(connection, m_store->baseTable, m_store->columns);
    for (const QStringList& key : std::as_const(keys)) {
        if (writer.anotherRowHolds(row, key))
            return key;
    }
    return {};
}

} // namespace tarvello::db
