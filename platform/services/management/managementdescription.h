#pragma once

#include "platform/db/resultset.h"
#include "platform/db/value.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::services {

// A column a management shows in its grid or edits in its record. Its type and size are
// the schema's (db::Schema::host()); size overrides the size for the person (the digits a
// code is typed with).
struct ManagedColumn {
    QString name;
    QString caption;
    bool shown = true;
    bool editable = true;
    bool required = false;
    bool upperCase = false;
    int size = 0;

    db::ColumnKind kind() const;
    // The characters a person types for a value: those of a text, the digits of a number
    // with its sign and separator, as the schema declares them unless size is given.
    int length() const;
    bool isNumber() const;
    // How a number with decimals is shown ("#,0.000"); empty for other columns.
    QString displayFormat() const;
};

// One of the host's table managements, described as data: the table kept and its key, the
// columns, the rows it shows (the current company's, within the codes of the parents it is
// opened with), where its search box looks, and what a choice hands back.
//
// A management of a table edits it through a record frame; a list (rowsSql) only shows the
// rows of its statement, in which @DITTA stands for the company.
struct ManagementDescription {
    enum class Choice {
        None,        // nothing is chosen: the management only keeps its table
        OneRow,      // the current row
        SeveralRows, // the rows ticked in the grid (the current one when none is)
    };

    // The form's name and the window's caption.
    QString name;
    QString title;
    QString table;
    // The columns that tell one row from another within the company and the parents; the
    // first is the code the management is positioned on and searched by.
    QStringList key;
    QString companyColumn;
    QStringList parentColumns;
    QList<ManagedColumn> columns;
    QString rowsSql;
    QStringList searchColumns;
    Choice choice = Choice::None;
    // The columns a chosen row hands back, in order.
    QStringList handedBack;

    bool isList() const { return !rowsSql.isEmpty(); }
    const ManagedColumn* column(QStringView name) const;
};

// What a management is opened on: the codes of its parents (in the order of parentColumns;
// an empty one does not filter), the code of the row to show first, the text already
// searched.
struct ManagementOpening {
    QString connectionString;
    qint32 company = 0;
    db::ValueList parents;
    db::Value position;
    QString searchText;
};

} // namespace tarvello::services
