#pragma once

#include "platform/db/positionindex.h"
#include "platform/db/resultset.h"
#include "platform/db/value.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace tarvello::db {

class Connection;
class RowStore;
class Recordset;
using RecordsetPtr = std::shared_ptr<Recordset>;

enum class RowStatus { Unmodified, Modified, New, Deleted };
struct StoredRow;
class Criteria;
class PackedRow;

// A client-side recordset in the manner the module expects: rows read completely, a cursor
// with BOF/EOF, fields by name, bookmarks, Find, Filter and Sort, clones sharing the same
// rows, edits kept as pending changes until Update (one row) or UpdateBatch (all rows,
// filtered-out ones included) writes them with optimistic concurrency on the base table's
// key. Computed columns (no base column, like a ROW_NUMBER "ID") are never written.
//
// A Recordset is a handle with its own cursor, filter and sort over a shared RowStore; a
// Clone is a second handle on the same rows. Handles are shared through RecordsetPtr.
class Recordset : public QObject {
    Q_OBJECT
public:
    using Bookmark = quint64;

    using RowStatus = db::RowStatus;
    enum class EditMode { None, Editing, Adding };
    // Filter groups beside criteria texts.
    enum class FilterGroup { None, PendingRecords, ConflictingRecords };
    enum class LockType { ReadOnly, BatchOptimistic };

    // An updatable recordset over a T-SQL query (rows are read at once).
    static RecordsetPtr open(Connection& connection, const QString& tsql,
                             LockType lock = LockType::BatchOptimistic);
    // A recordset built in memory: append fields, then openInMemory().
    static RecordsetPtr create();
    void appendField(const QString& name, ColumnKind kind = ColumnKind::Unknown);
    void openInMemory();

    ~Recordset() override;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool isOpen() const;
    void close();
    // Opens this recordset again on another query, in place: whoever holds it (a record
    // frame, a grid) sees the new rows without being handed a new object. Filter and sort
    // are dropped; on a failing query the recordset stays as it was.
    void reopen(Connection& connection, const QString& tsql);
    QString source() const;
    Connection* activeConnection() const;
    bool isReadOnly() const;
    // The table rows are written to; empty when the rows come from no single table.
    QString baseTable() const;

    int fieldCount() const;
    const Column& field(int index) const;
    // -1 when there is no such field.
    int fieldIndex(QStringView name) const;
    bool hasField(QStringView name) const { return fieldIndex(name) >= 0; }

    // The current row's value; raises NoCurrentRecord at BOF/EOF, ItemNotFound for a name.
    Value value(QStringView field) const;
    Value value(int index) const;
    void setValue(QStringView field, const Value& value);
    // The value as read from the database (before pending changes).
    Value originalValue(QStringView field) const;
    // The current row's values, and as read from the database, in the order of the fields.
    ValueList values() const;
    ValueList originalValues() const;

    bool bof() const;
    bool eof() const;
    // Rows visible through the filter.
    qsizetype recordCount() const;
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    // 1-based position among visible rows; -1 at BOF/EOF or without rows.
    qsizetype absolutePosition() const;
    void setAbsolutePosition(qsizetype position);
    Bookmark bookmark() const;
    // Raises when the bookmark names no visible row.
    void setBookmark(Bookmark bookmark);
    bool hasBookmark(Bookmark bookmark) const;

    // Looks for the first row from the current one (skipping `skip` rows) matching a
    // single criterion ("COL = 5", "COL LIKE 'AB*'", "COL = 'it''s'"); lands on EOF (or BOF
    // backwards) when none matches.
    bool find(const QString& criterion, qsizetype skip = 0, bool forward = true);

    // Criteria joined with AND / OR ("A = 1 AND B = 'x'"); an empty text shows every row.
    void setFilter(const QString& criteria);
    void setFilter(FilterGroup group);
    QString filter() const;
    // "COL [ASC|DESC], ..."; empty for the order read.
    void setSort(const QString& sort);
    QString sort() const;

    // A second handle on the same rows, with its own cursor (on the first row).
    RecordsetPtr clone() const;

    // Adds a row holding the base table's column defaults and makes it current.
    void addNew();
    // Adds rows of values given field by field, as AddNew and Update would one by one, in one
    // step: the other handles and the views read the rows once. Raises, adding none, when a row
    // holds more or fewer values than the fields. The cursor stays on its row.
    void appendRows(const QList<ValueList>& rows);
    // Ends the edit of the current row; the change stays pending until it is written.
    void update();
    // Leaves the pending change of the current row: a new row goes away, an edited row
    // gets its read values back.
    void cancelUpdate();
    // Drops every pending change.
    void cancelBatch();
    // Marks the current row deleted (written by updateBatch) and hides it. The next moveNext
    // goes to the row that followed it, so a loop of delete and moveNext clears every row.
    void deleteRow();
    RowStatus status() const;
    EditMode editMode() const;
    qsizetype pendingCount() const;

    // Writes every pending row (including rows hidden by a filter) in one transaction (a
    // nested level inside one already open). A row the database refuses, or one changed or
    // gone since it was read, stays pending with all its values; the others are written, and
    // RowConflict names the rows that failed. When the database drops the whole transaction
    // (or refuses its commit), no row is written: all stay pending and TransactionAborted
    // names them. Rows written inside an enclosing transaction count as saved only once it
    // commits; until then they stay pending and are not written again.
    void updateBatch();
    // Writes the current row only (the record frame's immediate save).
    void updateCurrent();
    // Reads the rows again from the source query; pending changes are dropped.
    void requery();
    // Whether the source query now reads other rows than it read (added, removed or changed
    // by someone else since); the recordset's own pending changes do not count. False for a
    // recordset built in memory.
    bool changedInDatabase() const;
    // The columns of a unique key of the base table (its primary key too, unless an identity
    // makes it) whose values the current row shares with another row of the table; empty when
    // none does.
    QStringList duplicatedUniqueKey() const;

Q_SIGNALS:
    // The current row of this handle moved (also to BOF/EOF).
    void currentChanged();
    // Rows were added, removed, re-read, filtered or sorted: views read them again.
    void rowsReset();
    // A row was added after the rows shown, the others staying as they were: views add it
    // rather than read every row again.
    void rowAppended(tarvello::db::Recordset::Bookmark bookmark);
    // A value of the row with this bookmark changed.
    void rowChanged(tarvello::db::Recordset::Bookmark bookmark);

private:
    // The rows tell each handle of their changes.
    friend class RowStore;

    explicit Recordset(std::shared_ptr<RowStore> store);
    // Reads the query's rows into the store, packed as they come; on a failing query the
    // store stays as it was.
    static void load(RowStore& store, Connection& connection, const QString& tsql);
    void rebuildView(Bookmark keep);
    void rebuildViewKeepingCurrent();
    void showAddedRow(Bookmark added);
    void sortView(QList<Bookmark>& view) const;
    void setCurrentIndex(qsizetype index);
    void leaveEdit();
    static void endEdit(StoredRow& row);
    // A new row: the base table's column defaults, null for the other columns.
    PackedRow defaultRow() const;
    int requireField(QStringView name) const;
    void requireWritable() const;
    StoredRow& currentRowData() const;
    // The only rows a filter can show, when an index tells them without a scan.
    std::optional<QList<Bookmark>> filterCandidates(const Criteria& criteria) const;
    // The criteria's fields as columns of this recordset (ItemNotFound for an unknown one).
    QList<std::pair<QString, int>> criteriaColumns(const Criteria& criteria) const;
    // Where a bookmark stands in the view; -1 when it is not visible.
    qsizetype viewPosition(Bookmark bookmark) const;
    void setView(QList<Bookmark> view);
    struct Written {
        Bookmark bookmark;
        Value identity;
    };
    void writeRows(const QList<Bookmark>& bookmarks);
    // Marks the rows written saved when the transaction they were written in commits.
    void settleWhenCommitted(Connection& connection, QList<Written> written, int identityIndex);
    // How a message names rows: each by its place among the rows not deleted.
    QStringList rowNames(const QList<Bookmark>& bookmarks) const;

    std::shared_ptr<RowStore> m_store;
    QList<Bookmark> m_view;              // visible rows in order
    PositionIndex<Bookmark> m_positions; // in m_view
    qsizetype m_index = -1;              // into m_view; -1 = BOF, m_view.size() = EOF
    QString m_filter;
    FilterGroup m_filterGroup = FilterGroup::None;
    QString m_sort;
    // The current row was just deleted: its follower has taken its place, and the next
    // moveNext lands there rather than past it.
    bool m_onDeleted = false;
};

} // namespace tarvello::db
