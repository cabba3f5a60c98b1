#pragma once

#include "platform/db/value.h"

#include <QByteArray>
#include <QList>

namespace tarvello::db {

// The values of one row in one block of bytes: per value a tag saying its kind and size, then
// only the bytes it needs (none for Null or a boolean, one for a small integer, one per
// character for a text of Western characters). A table row of fifty mostly empty or small
// columns takes a hundred bytes or so, where a list of Values takes kilobytes, and a recordset
// holds a hundred thousand of them. Copies share the bytes until one of them changes.
//
// Arrays are not values of a row (RuntimeError, type mismatch); a date in a named time zone is
// kept as the same moment at its offset from UTC.
class PackedRow {
public:
    PackedRow() = default;
    explicit PackedRow(const ValueList& values);

    int size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    // Raises ItemNotFound outside the row.
    Value at(int column) const;
    // The values of these columns, in the order given, read in one walk when they ascend.
    ValueList at(const QList<int>& columns) const;
    void set(int column, const Value& value);
    // Sets the column unless it already holds an identical value (same kind, equal); whether it
    // did. One walk to the column serves both the comparison and the change.
    bool replace(int column, const Value& value);
    void append(const Value& value);
    ValueList toList() const;

    // A column whose values differ between two rows of the same columns, as Values compare.
    struct Change {
        int column = 0;
        Value before;
        Value after;
    };
    static QList<Change> changes(const PackedRow& before, const PackedRow& after);
    // Byte for byte: the same kinds and values.
    friend bool operator==(const PackedRow& a, const PackedRow& b)
    {
        return a.m_count == b.m_count && a.m_bytes == b.m_bytes;
    }

private:
    // Where each value starts, found by walking the tags from the first.
    qsizetype offsetOf(int column) const;
    qsizetype lengthAt(qsizetype offset) const;
    Value decodeAt(qsizetype offset) const;
    void setAt(qsizetype offset, const Value& value);
    static void encode(QByteArray& bytes, const Value& value);

    QByteArray m_bytes;
    int m_count = 0;
};

} // namespace tarvello::db
