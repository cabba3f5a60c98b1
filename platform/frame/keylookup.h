#pragma once

#include "platform/db/recordset.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace tarvello::frame {

// The row whose column holds the key among the rows a recordset shows (its filter and sort
// apply), leaving out the row at position skip (1-based; -1 leaves out none). The rows are
// read through a clone visited by position, so the walk never stops on the row left out:
// a handle leaving a row ends the edit in progress there.
std::optional<db::Recordset::Bookmark> findKey(const db::Recordset& rows, const QString& column,
                                               const db::Value& key, qsizetype skip);

// "COLUMN = value" for each company column (named ..._DITTA_CG18) of the current row that
// holds a value.
QStringList companyConditions(const db::Recordset& rows);

// The statement reading the rows of a table whose key column holds the key, within the
// conditions given.
QString keyLookupStatement(const QString& table, QStringList conditions, const QString& keyColumn,
                           const db::Value& key);

} // namespace tarvello::frame
