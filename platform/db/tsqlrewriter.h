#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <functional>

namespace tarvello::db {

// Translates the T-SQL the module writes into SQLite statements with the same meaning.
//
// The text is tokenized (string and N'' literals, quoted and bracketed names, comments and
// parentheses are recognised), so nothing inside a literal is ever touched. The forms handled
// are the ones the module and the host lookups send: table hints, N'' literals, ISNULL, LEN,
// SUBSTRING, LEFT/RIGHT, GETDATE, CAST/CONVERT, TOP, '+' (by the operands' types),
// SELECT ... INTO #T,
// #temp names (and an index for a lookup of a #temp table by one column), IF OBJECT_ID(...) ...
// DROP TABLE, DELETE t FROM ... JOIN, batches and SET NOCOUNT. Anything else goes through
// unchanged, so an unsupported form fails in SQLite with its own message instead of running with
// another meaning.
//
// The result depends only on the text and on the lookup's answers, so it can be cached per
// text for as long as the schema does not change.
class TsqlRewriter {
public:
    // Tells whether a bare column name holds text; the connection answers from the schema
    // (column names are unique across the host schema because of their table prefixes).
    using TextColumnLookup = std::function<bool(QStringView column)>;
    // What '+' becomes where the statement does not tell whether both operands are texts
    // (the columns of a derived table, two parameters): SQLite's '+', which adds, or a call of
    // tsql_add (tsqlfunctions.h), which decides by the values, for an engine that has it.
    enum class UndecidedPlus { Add, CallTsqlAdd };
    explicit TsqlRewriter(TextColumnLookup isTextColumn = {},
                          UndecidedPlus undecidedPlus = UndecidedPlus::Add);
    // The SQLite statements with the same meaning as the T-SQL text, in order (a T-SQL
    // batch may become several statements; QSQLite-style engines run one at a time).
    QStringList rewrite(const QString& tsql) const;

private:
    TextColumnLookup m_isTextColumn;
    UndecidedPlus m_undecidedPlus;
};

// The rewriting of a lookup of a #temp table by one column starts with the statement making
// the table's index on that column, which begins with this text. Once made, the index stands
// until the schema changes (mayChangeSchema): a connection need not send it again before then.
inline constexpr QStringView temporaryLookupIndexPrefix = u"CREATE INDEX IF NOT EXISTS temp.";

// Whether a SQLite statement may change the schema: it creates, drops or alters, or it rolls
// back what may have done so.
bool mayChangeSchema(QStringView statement);

} // namespace tarvello::db
