#pragma once

#include "platform/db/tsqlrewriter.h"
#include "platform/db/tsqlstatement.h"

#include <optional>

// The rewriting passes over one statement. Those taking [begin, end) work on one level of
// parentheses: the rewriter runs them on the innermost levels first.
namespace tarvello::db::tsql {

// Function calls: ISNULL, LEN, SUBSTRING, LEFT/RIGHT, GETDATE, SCOPE_IDENTITY, CAST, CONVERT.
void rewriteCalls(Statement& s, int begin, int end);

// '+' becomes '||' where it joins texts, or a call of tsql_add where only the values can tell.
void concatenate(Statement& s, int begin, int end,
                 const TsqlRewriter::TextColumnLookup& isTextColumn,
                 TsqlRewriter::UndecidedPlus undecidedPlus);

// "WITH (NOLOCK)" after a table, and the old form "table (NOLOCK)", are removed.
void removeHints(Statement& s, int begin, int end);
// "SELECT TOP n ..." becomes "SELECT ... LIMIT n".
void rewriteTop(Statement& s, int begin, int end);
// "SELECT cols INTO #T FROM ..." becomes "CREATE TEMP TABLE "#T" AS SELECT cols FROM ...".
void rewriteSelectInto(Statement& s, int select);
// "DELETE t FROM ... JOIN ..." becomes a DELETE of the rows the join selects.
void rewriteDelete(Statement& s, int first);
// "SELECT ... FROM #T WHERE col = ...": the index of #T on col, created the first time such a
// lookup runs ("CREATE INDEX IF NOT EXISTS ..."), so that a walk over a temporary hierarchy,
// one lookup per level, does not scan the whole table at every level.
std::optional<QString> temporaryLookupIndex(const Statement& s, int first);
// The whole statement, when it is "IF OBJECT_ID(...) IS NOT NULL DROP TABLE ...".
std::optional<QString> dropIfExists(const Statement& s, int first);

} // namespace tarvello::db::tsql
