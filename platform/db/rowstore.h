#pragma once

#include "platform/db/packedrow.h"
#include "platform/db/recordset.h"

#include <QHash>
#include <QList>
#include <QScopeGuard>
#include <optional>

namespace tarvello::db {

// One row with its pending change.
struct StoredRow {
    Recordset::Bookmark bookmark = 0;
    PackedRow values;
    std::optional<PackedRow> original; // as read, kept once the row is changed
    // An edit is in progress; beforeEdit holds the values at its start when they differ from
    // `original` (a row already pending).
    bool editing = false;
    std::optional<PackedRow> beforeEdit;
    RowStatus status = RowStatus::Unmodified;
    bool conflict = false;
    QString error;
    // Written inside a transaction that has not ended yet: the row stays pending, but is not
    // written again, until the outcome is known.
    bool awaitingCommit = false;
};

} // namespace tarvello::db

// Every member moves as its bytes do: the list of a hundred thousand rows grows without moving
// each row one by one.
Q_DECLARE_TYPEINFO(tarvello::db::StoredRow, Q_RELOCATABLE_TYPE);

namespace tarvello::db {

// The rows of a recordset and of all its clones, with their pending changes. Each handle over the
// rows registers itself and is told of every change by a direct call: a value set on a row
// reaches the handles without a signal relayed per handle.
class RowStore {
public:
    using Row = StoredRow;

    RowStore() = default;
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    Connection* connection = nullptr; // Not owned.
    QString source;
    Recordset::LockType lock = Recordset::LockType::BatchOptimistic;
    QList<Column> columns;
    QString baseTable;
    bool open = false;
    Recordset::Bookmark adding = 0; // the row an AddNew is filling, 0 when none
    // What an AddNew starts from, once one has asked (reset drops it with the rows).
    std::optional<PackedRow> newRow;

    void addHandle(Recordset* handle);
    void removeHandle(Recordset* handle);

    void reset(QList<PackedRow> rows);
    Recordset::Bookmark append(PackedRow values, Recordset::RowStatus status);
    void append(QList<PackedRow> rows, Recordset::RowStatus status);
    void remove(Recordset::Bookmark bookmark);
    Row* find(Recordset::Bookmark bookmark);
    const Row* find(Recordset::Bookmark bookmark) const;
    const QList<Row>& rows() const { return m_rows; }
    QList<Row>& rows() { return m_rows; }
    int columnIndex(QStringView name) const;
    // Builds the name index once the columns are known.
    void indexColumns();
    // Every row-set change ends with this, so each handle rebuilds its view once.
    void notifyRowsChanged()
    {
        m_textIndexes.clear();
        tellHandles([](Recordset& handle) { handle.rebuildViewKeepingCurrent(); });
    }
    // A row appended by an AddNew: handles show it without reading every row again.
    void notifyRowAdded(Recordset::Bookmark bookmark)
    {
        m_textIndexes.clear();
        tellHandles([bookmark](Recordset& handle) { handle.showAddedRow(bookmark); });
    }
    void notifyValueChanged(Recordset::Bookmark bookmark)
    {
        m_textIndexes.clear();
        tellHandles([bookmark](Recordset& handle) { Q_EMIT handle.rowChanged(bookmark); });
    }
    // The rows, in their order, whose value in the column is a text equal to `text` without
    // regard to case or trailing blanks, as a criterion compares them; none when the column holds
    // anything but texts and empty values, for then a comparison may find rows an index would miss.
    // Built on first use, dropped by any change of the rows.
    std::optional<QList<Recordset::Bookmark>> rowsWithText(int column, const QString& text) const;

private:
    // As a signal would: a handle made while the others are told (a grid reading the rows again)
    // hears only of later changes, and one gone meanwhile is skipped.
    template <class Tell>
    void tellHandles(const Tell& tell)
    {
        const qsizetype count = m_handles.size();
        ++m_telling;
        const auto told = qScopeGuard([this] {
            if (--m_telling == 0)
                m_handles.removeAll(nullptr);
        });
        for (qsizetype i = 0; i < count; ++i) {
            if (Recordset* handle = m_handles.at(i))
                tell(*handle);
        }
    }

    // Places by bookmark, needed only once a removal has left the bookmarks apart from the
    // places (placeOf); built then, on the first look-up that misses.
    void buildIndex() const;
    void dropIndex();
    // Where the row with that bookmark is kept; -1 when none is.
    qsizetype placeOf(Recordset::Bookmark bookmark) const;

    QList<Recordset*> m_handles; // Not owned: each handle removes itself when it goes.
    int m_telling = 0;
    QList<Row> m_rows;
    mutable QHash<Recordset::Bookmark, qsizetype> m_index;
    mutable bool m_indexed = false;
    QHash<QString, int> m_columnIndex; // upper-case name -> column
    mutable int m_lastFound = 0;       // the column the last look-up by exact name found
    // By column: row positions by case-folded text; none for a column that is not all texts.
    mutable QHash<int, std::optional<QMultiHash<QString, qsizetype>>> m_textIndexes;
    Recordset::Bookmark m_next = 1;
};

} // namespace tarvello::db
