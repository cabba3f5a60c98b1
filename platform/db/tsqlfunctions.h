#pragma once

struct sqlite3;

namespace tarvello::db {

// The T-SQL meanings SQLite lacks, given to one SQLite connection:
// - texts compare without regard to case and to trailing blanks: the NOCASE collation, which
//   the schema gives every text column, is replaced by one that also ignores trailing blanks
//   (case is still folded for ASCII letters only, so indexes built by SQLite's own NOCASE
//   keep their order);
// - UPPER and LOWER convert every letter, not only the ASCII ones;
// - tsql_add(a, b) is T-SQL's '+' decided by the values: two texts are joined, anything else
//   is added. The rewriter sends it where the statement does not tell what the operands hold.
// Returns an SQLite error code (SQLITE_OK when everything was registered).
int registerTsqlFunctions(sqlite3* db);

// The name the rewriter calls tsql_add by.
inline constexpr const char* tsqlAddFunction = "tsql_add";

} // namespace tarvello::db
