#pragma once

#include "platform/db/tsqltokens.h"

namespace tarvello::db::tsql {

// Tokens [begin, end) of one statement of a batch.
struct Range {
    int begin = 0;
    int end = 0;
};

// Splits a batch into statements: at ';' and GO, and where a statement keyword starts a new
// statement after a complete one (T-SQL needs no separator between them). A block
// (BEGIN ... END, a trigger's body) stays in the statement that opens it.
QList<Range> splitBatch(const Tokens& tokens, const QList<int>& partner);

} // namespace tarvello::db::tsql
