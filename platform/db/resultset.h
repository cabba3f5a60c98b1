#pragma once

#include "platform/db/value.h"

#include <QList>
#include <QString>

namespace tarvello::db {

// What a column holds, as far as values read from it are converted.
enum class ColumnKind { Unknown, Integer, Decimal, Double, Text, Date, Boolean, Binary };

struct Column {
    QString name;
    ColumnKind kind = ColumnKind::Unknown;
    // The table and column the value comes from; empty for computed columns.
    QString baseTable;
    QString baseColumn;
};

// The rows of one statement, read completely (a client-side cursor).
struct ResultSet {
    QList<Column> columns;
    QList<ValueList> rows;
    // Rows changed by a statement that returned no columns; -1 when not known.
    qint64 rowsAffected = -1;

    bool hasColumns() const { return !columns.isEmpty(); }
    int columnIndex(QStringView name) const;
};

// How much a column holds, as its declared type says; 0 where the type sets no limit.
struct ColumnSize {
    int length = 0;       // characters of a text
    int precision = 0;    // digits of a decimal, its decimal places included
    int scale = 0;        // decimal places of a decimal
    int integerBytes = 0; // bytes of an integer: 1 (0 to 255), 2, 4 or 8

    bool operator==(const ColumnSize&) const = default;
};

// What the database says of a table: its columns with their kinds and sizes, which of them
// form the primary key and which one the database assigns on insert.
struct TableInfo {
    struct ColumnInfo {
        QString name;
        ColumnKind kind = ColumnKind::Unknown;
        ColumnSize size;
        bool primaryKey = false;
        int keyPosition = 0; // 1-based place in the primary key
        bool identity = false;
        bool notNull = false;
        bool hasDefault = false;
        Value defaultValue; // Null when the column has no constant default
    };
    QString name;
    QList<ColumnInfo> columns;
    // The columns of each unique index or constraint other than the primary key.
    QList<QStringList> uniqueKeys;

    bool exists() const { return !columns.isEmpty(); }
    const ColumnInfo* column(QStringView name) const;
    QStringList primaryKey() const;
    QString identityColumn() const;
};

// Maps a declared SQL type ("INT", "DECIMAL(9,3)", "DATETIME", "VARCHAR(20)") to a kind.
ColumnKind columnKindFromDeclaredType(QStringView declared);
// The size a declared SQL type gives its column: "VARCHAR(20)" 20 characters, "DECIMAL(6,3)"
// 6 digits with 3 decimal places, "SMALLINT" a 2-byte integer. SQLite's "INTEGER" is its
// 8-byte row id.
ColumnSize columnSizeFromDeclaredType(QStringView declared);
// Reads a column default as the database states it ("0", "((-1))", "'abc'", "N'x'").
Value defaultValueFromSql(QStringView sql, ColumnKind kind);
// Converts a raw value read from the engine to the kind of its column.
Value convertToKind(const Value& raw, ColumnKind kind);

} // namespace tarvello::db
