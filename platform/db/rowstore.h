#pragma once

#include "platform/db/recordset.h"

#include <QHash>
#include <QObject>
#include <optional>

namespace tarvello::db {

// One row with its pending change.
struct StoredRow {
    Recordset::Bookmark bookmark = 0;
    ValueList values;
    std::optional<ValueList> original; // as read, kept once the row is changed
    // An edit is in progress; beforeEdit holds the values at its start when they differ from
    // `original` (a row already pending), so the common first edit copies the row once.
    bool editing = false;
    std::optional<ValueList> beforeEdit;
    RowStatus status = RowStatus::Unmodified;
    bool conflict = false;
    QString error;
};

// The rows of a recordset and of all its clones, with their pending changes.
class RowStore : public QObject {
    Q_OBJECT
public:
    using Row = StoredRow;

    Connection* connection = nullptr; // Not owned.
    QString source;
    Recordset::LockType lock = Recordset::LockType::BatchOptimistic;
    QList<Column> columns;
    QString baseTable;
    bool open = false;
    Recordset::Bookmark adding = 0; // the row an AddNew is filling, 0 when none

    void reset(QList<ValueList> rows);
    Recordset::Bookmark append(ValueList values, Recordset::RowStatus status);
    void remove(Recordset::Bookmark bookmark);
    Row* find(Recordset::Bookmark bookmark);
    const Row* find(Recordset::Bookmark bookmark) const;
    const QList<Row>& rows() const { return m_rows; }
    QList<Row>& rows() { return m_rows; }
    int columnIndex(QStringView name) const;
    // Builds the name index once the columns are known.
    void indexColumns();
    // Every row-set change ends with this, so each handle rebuilds its view once.
    void notifyRowsChanged() { Q_EMIT rowsChanged(); }
    void notifyValueChanged(Recordset::Bookmark bookmark) { Q_EMIT valueChanged(bookmark); }

Q_SIGNALS:
    void rowsChanged();
    void valueChanged(tarvello::db::Recordset::Bookmark bookmark);

private:
    void reindex();

    QList<Row> m_rows;
    QHash<Recordset::Bookmark, qsizetype> m_index;
    QHash<QString, int> m_columnIndex; // upper-case name -> column
    Recordset::Bookmark m_next = 1;
};

} // namespace tarvello::db
