#pragma once

#include "platform/db/engine.h"
#include "platform/db/resultset.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::db {

// The column types of the host tables; each engine spells them its own way.
enum class SqlType { Integer, SmallInt, Decimal, VarChar, NVarChar, DateTime };

struct ColumnDef {
    QString name;
    SqlType type = SqlType::Integer;
    int length = 0; // characters of a text, digits of a decimal
    int scale = 0;  // decimal places of a decimal
    bool notNull = false;
    QString defaultValue; // an SQL literal; empty when the column has no default
    bool identity = false;

    ColumnKind kind() const;
    // The type as written in the engine's DDL ("INT", "DECIMAL(6,3)", "NVARCHAR(60)").
    QString declaredType(Dialect dialect) const;
};

struct IndexDef {
    QString name;
    QStringList columns;
    bool unique = false;

    // The same on both engines.
    QString createStatement(const QString& table) const;
};

struct TableDef {
    QString name;
    QList<ColumnDef> columns;
    QStringList primaryKey;
    QList<IndexDef> indexes;

    const ColumnDef* column(QStringView name) const;
    // The column the database assigns on insert; empty when there is none.
    QString identityColumn() const;
};

// The host tables the module and the host platform use, declared once; every engine's DDL
// is generated from this declaration.
class Schema {
public:
    static const Schema& host();
    Schema(const Schema&) = delete;
    Schema& operator=(const Schema&) = delete;

    const QList<TableDef>& tables() const { return m_tables; }
    const TableDef* table(QStringView name) const;
    // Column names are unique across the schema: each carries its table's prefix.
    const ColumnDef* column(QStringView name) const;

    QStringList statements(Dialect dialect) const;
    // The statements as a script file: a header comment, then each statement ended by ";".
    QString script(Dialect dialect) const;

private:
    Schema();

    QList<TableDef> m_tables;
    QHash<QString, const ColumnDef*> m_columns; // Not owned: points into m_tables.
};

QStringList schemaStatements(Dialect dialect);
// The name of the checked-in DDL file of a dialect, in the schema folder.
QString schemaScriptFileName(Dialect dialect);

} // namespace tarvello::db
