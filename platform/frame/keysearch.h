#pragma once

#include "platform/db/recordset.h"

#include <QList>
#include <QString>
#include <optional>

namespace tarvello::frame {

// Where a record frame's search by key looks: among the rows the frame holds, then in the
// table behind them, within the frame's search filter or, without one, within the company
// of the row the search starts from (the company columns, named ..._DITTA_CG18).
class KeySearch {
public:
    using Bookmark = db::Recordset::Bookmark;

    // The row whose column holds the key among the rows a recordset shows (its filter and
    // sort apply), leaving out the row at position skip (1-based; -1 leaves out none). The
    // rows are read through a clone visited by position, so the walk never stops on the row
    // left out: a handle leaving a row ends the edit in progress there.
    static std::optional<Bookmark> findAmong(const db::Recordset& rows, const QString& column,
                                             const db::Value& key, qsizetype skip);

    // The condition ("MG17_DITTA_CG18 = 1") a look in the table adds; empty keeps to the
    // company of the row the search starts from.
    void setFilter(const QString& filter) { m_filter = filter; }
    // The company of the row the rows stand on: a search starting from no row keeps to the
    // company of the row shown last.
    void rememberCompany(const db::Recordset& rows);

    // Looks in the table behind the rows for the key of the column, from the row the rows
    // stand on (onStartRow) or from none. Found, the statement reading that row, on which the
    // rows can be opened again; raises db::RuntimeError when the database refuses the look.
    std::optional<QString> lookUp(const db::Recordset& rows, const QString& column,
                                  const db::Value& key, bool onStartRow) const;

private:
    struct Condition {
        QString column;
        db::Value value;
    };
    static QList<Condition> companyOf(const db::Recordset& rows);

    QString m_filter;
    QList<Condition> m_lastCompany;
};

} // namespace tarvello::frame
